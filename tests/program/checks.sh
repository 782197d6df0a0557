# What the program's tests share: source it with the viewer as first argument. Each test has a separate X server,
# session bus, home and folder, all gone at its end.
set -u
viewer=$(readlink -f "$1")
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
folder=$(mktemp -d)
server="" bus="" manager="" pid="" failed=0
mkdir -m 700 "$folder/run"
export HOME=$folder XDG_RUNTIME_DIR=$folder/run LC_ALL=C.UTF-8
printf 'COMPL 8\nCOMPW 4\nCOMPZ 1\n' >"$folder/board.yax"
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM QT_SCALE_FACTOR XDG_CONFIG_HOME NO_AT_BRIDGE
# Without a bus at this address no other is looked for, such as the desktop's.
export DBUS_SESSION_BUS_ADDRESS=unix:path=$folder/run/bus

finish() {
  kill $pid $manager $bus $server 2>/dev/null
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

# open_display OPTIONS...: a fresh X server, and a session bus for its programs
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
  [ -z "$bus" ] || return
  dbus-daemon --session --nofork --address="$DBUS_SESSION_BUS_ADDRESS" >/dev/null 2>&1 &
  bus=$!
  until [ -S "$folder/run/bus" ]; do
    kill -0 $bus 2>/dev/null || { echo "the session bus does not start" >&2; failed=1; exit; }
    sleep 0.05
  done
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
  : >"$folder/missed" # a command substitution cannot set "failed" here
  exit 1
}

# ended WHAT STATUS: the viewer ends without being killed, with that status
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

# ends WHAT STATUS: the same, and writes nothing to the terminal
ends() {
  ended "$1" "$2"
  expect "$1: words" "$(cat "$folder/out" "$folder/err")" ""
}
