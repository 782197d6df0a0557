# What the program's tests share: source it with the viewer as first argument. Each test has an X server, a home
# and a folder of its own, all gone at its end.
set -u
viewer=$(readlink -f "$1")
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
folder=$(mktemp -d)
server="" manager="" pid="" failed=0
mkdir -m 700 "$folder/run"
export HOME=$folder XDG_RUNTIME_DIR=$folder/run LC_ALL=C.UTF-8
printf 'COMPL 8\nCOMPW 4\nCOMPZ 1\n' >"$folder/board.yax"
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM QT_SCALE_FACTOR XDG_CONFIG_HOME DBUS_SESSION_BUS_ADDRESS

finish() {
  kill $pid $manager $server 2>/dev/null
  wait 2>/dev/null
  [ -e "$folder/missed" ] && failed=1
  rm -rf "$folder"
  exit $failed
}
trap finish EXIT

# expect WHAT FOUND WANTED
expect() {
  [ "$2" = "$3" ] && return
  printf '%s: found "%s", wanted "%s"\n' "$1" "$2" "$3" >&2
  failed=1
}

# open_display OPTIONS...: a fresh X server
open_display() {
  # Without -noreset it would start anew each time its last client goes.
  rm -f "$folder/display"
  Xvfb -noreset -displayfd 4 -screen 0 1600x1200x24 "$@" 4>"$folder/display" 2>"$folder/server.log" &
  server=$!
  until [ -s "$folder/display" ]; do
    kill -0 $server 2>/dev/null || { cat "$folder/server.log" >&2; failed=1; exit; }
    sleep 0.05
  done
  export DISPLAY=:$(cat "$folder/display")
}

# start ARGUMENTS...: the viewer, in the background
start() {
  "$viewer" "$@" >"$folder/out" 2>"$folder/err" &
  pid=$!
}

# found NAME: the visible window whose title matches; waits for it
found() {
  local window
  for _ in $(seq 200); do
    window=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1)
    [ -n "$window" ] && { echo "$window"; return; }
    kill -0 $pid 2>/dev/null || break
    sleep 0.05
  done
  echo "there is no window '$1'" >&2
  cat "$folder/err" >&2
  : >"$folder/missed" # it is asked in a shell of its own, whose variables nobody sees
  exit 1
}

# ended WHAT STATUS: the viewer ends by itself, with that status
ended() {
  local status
  for _ in $(seq 200); do
    kill -0 $pid 2>/dev/null || break
    sleep 0.05
  done
  kill -0 $pid 2>/dev/null && { expect "$1" "still running" "ended"; kill -9 $pid; }
  wait $pid 2>/dev/null
  status=$?
  pid=""
  expect "$1: status" "$status" "$2"
}

# ends WHAT STATUS: and without a word on the terminal
ends() {
  ended "$1" "$2"
  expect "$1: words" "$(cat "$folder/out" "$folder/err")" ""
}

# over_the_bus SCRIPT VIEWER FOLDER: runs a script that drives the viewer over the accessibility bus
over_the_bus() {
  export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 NO_AT_BRIDGE=1
  local status
  # The bus has a lot to say about itself.
  dbus-run-session -- /usr/bin/python3 "$root/tests/program/$1" "$2" "$3" >"$folder/log" 2>&1
  status=$?
  [ $status = 0 ] || cat "$folder/log" >&2
  expect "$1" $status 0
}
