#!/usr/bin/env bash
# Which file the command line opens, and how the program ends.
. "$(dirname "$0")/checks.sh"
open_display
cd "$folder" || exit
mkdir "a folder"
cp board.yax "a folder/bo ärd.yax"

# opens TITLE ARGUMENTS...: then Escape ends it
opens() {
  local name=$1
  shift
  start "$@"
  xdotool windowfocus --sync "$(found "3D YAX Viewer - .* - ${name}\$")" key Escape
  ends "$name" 0
}
opens AAAc.yax # the sample beside the program
opens board.yax board.yax
opens board.yax "$folder/board.yax"
opens "bo ärd.yax" "a folder/bo ärd.yax"
opens "bo ärd.yax" "a folder/bo" "ärd.yax" # words a shell has parted are one path

for missing in none.yax "a folder"; do
  start "$missing"
  ends "missing $missing" 0
done
