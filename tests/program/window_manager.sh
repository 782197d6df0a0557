#!/usr/bin/env bash
# Under a window manager: closing the window ends the program; resizing and minimizing it do not.
. "$(dirname "$0")/checks.sh"
open_display
openbox >/dev/null 2>&1 &
manager=$!
for _ in $(seq 100); do
  xdotool get_num_desktops >/dev/null 2>&1 && break
  sleep 0.05
done
start "$folder/board.yax"
window=$(found 'board.yax$')
# xdotool gives up with a complaint while no window is active; what counts is checked below.
xdotool windowactivate --sync "$window" windowsize --sync "$window" 700 500 2>/dev/null
xdotool windowminimize --sync "$window"
xdotool windowactivate --sync "$window" 2>/dev/null
expect "size" "$(xdotool getwindowgeometry "$window" | grep -o 'Geometry: .*')" "Geometry: 700x500"
# The first key brings in xdotool's keyboard; openbox then grabs its keys again and misses those that come meanwhile.
xdotool key Shift_L
sleep 0.5
xdotool key --clearmodifiers alt+F4
ends "closed by the window manager" 0
