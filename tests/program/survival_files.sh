#!/usr/bin/env bash
# The package's file changes behind the viewer's back; a new size of the window reads it again.
. "$(dirname "$0")/checks.sh"
open_display
board=$folder/board.yax
package='TECHNOLOGY WIRE_BOND\nCOMPL 8\nCOMPW 4\nCOMPZ 1\nCBP A 1 1 0 1 1 0 L ROUND\nWB A 1 1 F 9 9 1 0\n'

# shown: a fresh package in a fresh viewer, whose window is then $window
shown() {
  rm -rf "$board" "$board.vu"
  printf "$package" >"$board"
  start "$board"
  window=$(found 'board.yax$') || exit
}
resize() { xdotool windowsize "$window" 700 500; }

for length in 0 30 65; do # empty; in the header; in the middle of a pad
  shown
  truncate -s $length "$board"
  resize
  xdotool windowfocus --sync "$window" key Escape
  ends "truncated to $length" 0
done

# fails WHAT WINDOWS: one box beside so many windows, and status 1 when it is closed
fails() {
  local box
  box=$(found '^3D YAX Viewer$') || exit
  expect "$1: windows beside the box" "$(xdotool search --onlyvisible --name '3D YAX Viewer - ' | wc -l)" "$2"
  xdotool windowfocus --sync "$box" key Return
  ends "$1" 1
}

shown
printf 'RING R ARC -2 2 2 -2 1 0\n' >>"$board"
resize
fails "a bowed ring without bulge" 1

shown
ln -s /proc/self/mem "$board.vu" # a regular file that even root cannot read from its start
resize
fails "unreadable net types" 1

start "$board"
fails "unreadable net types from the start" 0

rm "$board.vu"
truncate -s 1T "$board" # sparse: it needs no room on the disk and more than any memory
start "$board"
fails "a file of a terabyte" 0
