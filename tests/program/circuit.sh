#!/usr/bin/env bash
# The subcircuit that yax estimate writes, in a circuit simulator.
. "$(dirname "$0")/checks.sh"
python3 "$root/tests/program/circuit.py" "$(dirname "$viewer")/yax" "$root/samples" "$folder" || failed=1
