#!/usr/bin/env bash
# No room for a file: what was there stays as it was; the viewer lives, and yax ends with status 2.
. "$(dirname "$0")/checks.sh"

# A limit on the size of files is told by a signal as well, which must not end the programs.
mkdir "$folder/answers"
while read -r command name options; do
  printf 'old' >"$folder/answers/$name"
  (ulimit -S -f 1 && exec "$(dirname "$viewer")/yax" $command "$root/samples/bga332.yax" $options \
    "$folder/answers/$name") >/dev/null 2>"$folder/err"
  expect "yax $command $name: status" $? 2
  expect "yax $command $name: words" "$(grep -c 'File too large' "$folder/err") in $(wc -l <"$folder/err")" "1 in 1"
  expect "yax $command $name: files" "$(ls -A "$folder/answers") $(cat "$folder/answers/$name")" "$name old"
  rm "$folder/answers/$name"
done <<'END'
render board.png -o
render board.bmp -o
wires board.csv -o
wires board.json --json -o
clearance board.txt --unit mm --all -o
clearance board.png --unit mm --picture
export board.glb --unit mm -o
export board.obj --unit mm -o
END

open_display
mkdir "$folder/pictures"
printf 'old' >"$folder/pictures/old.bmp"

# save FILE: Menu, then its second entry, then the name in the dialog
save() {
  xdotool windowfocus --sync "$window" key Menu
  sleep 0.3
  xdotool key Down key Down key Return
  local dialog
  dialog=$(found '^Save Picture$') || exit
  xdotool windowfocus --sync "$dialog" type --delay 5 "$1"
  xdotool key Return
}

# closed: the dialog is gone, and with it what it asked for is done or has failed
closed() {
  for _ in $(seq 100); do
    [ -z "$(xdotool search --onlyvisible --name '^Save Picture$' 2>/dev/null)" ] && break
    sleep 0.05
  done
  sleep 0.2
}

# A frame of this window has two megabytes.
ulimit -S -f 500
start "$folder/board.yax"
window=$(found 'board.yax$') || exit
save "$folder/pictures/new.bmp"
closed
expect "files after a full disk" "$(ls -A "$folder/pictures")" old.bmp
prlimit --pid $pid --fsize=unlimited
save "$folder/pictures/new.bmp"
closed
expect "a picture where there is room" "$(head -c 2 "$folder/pictures/new.bmp" | tr -d '\0')" BM
# The key may come while the dialog still hands the focus back.
for _ in $(seq 10); do
  xdotool windowfocus "$window" key Escape 2>/dev/null
  sleep 0.5
  kill -0 $pid 2>/dev/null || break
done
ends "after a full disk" 0
