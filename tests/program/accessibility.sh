#!/usr/bin/env bash
# The whole program as a screen reader sees and drives it, over the accessibility bus.
. "$(dirname "$0")/checks.sh"
open_display
printf 'COMPL 8\nCOMPW 4\nCOMPZ 1\n' >"$folder/board.yax"
printf 'TECHNOLOGY WIRE_BOND\nCOMPL 8\nCOMPW 4\nCOMPZ 1\n%s\n%s\n%s\n' \
  'CBP A 1 1 1 0.1 0.1 0 L RECTANGLE' 'SBP A 1 1 0 0 0.1 0.1 L RECTANGLE' 'WB A 1 1 N 1 1 0 0' >"$folder/faulty.yax"
over_the_bus accessibility.py "$viewer" "$folder"
