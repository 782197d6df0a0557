#!/usr/bin/env bash
# A package with a wire of no length that cannot be drawn: one box, and status 1 when it is closed.
. "$(dirname "$0")/checks.sh"
open_display
printf 'TECHNOLOGY WIRE_BOND\nCOMPL 8\nCOMPW 4\nCOMPZ 1\n%s\n%s\n%s\n' \
  'CBP A 1 1 1 0.1 0.1 0 L RECTANGLE' 'SBP A 1 1 0 0 0.1 0.1 L RECTANGLE' 'WB A 1 1 N 1 1 0 0' >"$folder/faulty.yax"
start "$folder/faulty.yax"
box=$(found '^3D YAX Viewer$')
expect "windows beside the box" "$(xdotool search --onlyvisible --name '3D YAX Viewer - ' 2>/dev/null)" ""
xdotool windowfocus --sync "$box" key Return
ends "faulty package" 1
