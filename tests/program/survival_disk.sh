#!/usr/bin/env bash
# No room for a file: yax ends with status 2 and a message, and the old file stays as it was.
. "$(dirname "$0")/checks.sh"

# A limit on the size of files also raises a signal, which must not end the program.
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
