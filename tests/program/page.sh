#!/usr/bin/env bash
# The page that yax export writes, in a browser.
. "$(dirname "$0")/checks.sh"
python3 "$root/tests/program/page.py" "$(dirname "$viewer")/yax" "$root/samples" "$folder" || failed=1
