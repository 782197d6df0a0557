#!/usr/bin/env bash
# The whole program as a screen reader sees and drives it, over the accessibility bus.
. "$(dirname "$0")/checks.sh"
open_display
over_the_bus accessibility.py "$viewer" "$folder"
