#!/usr/bin/env bash
# The X server goes away, or has no GL: the viewer ends with status 1, without a crash and at once.
. "$(dirname "$0")/checks.sh"

open_display
start "$folder/board.yax"
window=$(found 'board.yax$') || exit
xdotool windowfocus --sync "$window" key Menu
kill -9 $server
wait $server 2>/dev/null
ended "display gone under an open menu" 1

open_display -extension GLX
start "$folder/board.yax"
xdotool windowfocus --sync "$(found 'board.yax$')" key Escape
ends "EGL in place of GLX" 0

export __EGL_VENDOR_LIBRARY_DIRS=/nowhere
start "$folder/board.yax"
box=$(found '^Fatal Error In 3D YAX Viewer$') || exit
xdotool windowfocus --sync "$box" key Return
ended "neither GLX nor EGL" 1
