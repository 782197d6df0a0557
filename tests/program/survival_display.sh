#!/usr/bin/env bash
# The X server goes away, or never had GL: the viewer ends by itself, by no signal, and does not wait.
. "$(dirname "$0")/checks.sh"

# gone WHAT: takes the server away under the viewer
gone() {
  kill -9 $server
  wait $server 2>/dev/null
  server=""
  ended "$1" 1
}

shown() {
  open_display
  start "$folder/board.yax"
  window=$(found 'board.yax$') || exit
}

shown
gone "display gone"

shown
xdotool windowfocus --sync "$window" key Menu
gone "display gone under an open menu"

shown
while xdotool mousemove 300 300 mousemove 500 500 2>/dev/null; do :; done &
mover=$!
sleep 0.3
gone "display gone while the mouse moves"
wait $mover

# fatal WHAT: the box that says so, and status 1 when it is closed
fatal() {
  local box
  start "$folder/board.yax"
  box=$(found '^Fatal Error In 3D YAX Viewer$') || exit
  xdotool windowfocus --sync "$box" key Return
  : >"$folder/err" # GL's own libraries have their say there
  ends "$1" 1
}

open_display
export LIBGL_ALWAYS_INDIRECT=1 # which no server takes unless it is told to
fatal "indirect GL"
unset LIBGL_ALWAYS_INDIRECT
kill $server
wait $server 2>/dev/null

open_display -extension GLX
start "$folder/board.yax"
xdotool windowfocus --sync "$(found 'board.yax$')" key Escape
ends "EGL in place of GLX" 0
export __EGL_VENDOR_LIBRARY_DIRS=/nowhere
fatal "neither GLX nor EGL"
