#!/usr/bin/env bash
# What the program says where there is no display.
. "$(dirname "$0")/checks.sh"

for answer in --help --version; do
  "$viewer" $answer >"$folder/out" 2>"$folder/err"
  expect "$answer: status" $? 0
  expect "$answer: errors" "$(cat "$folder/err")" ""
done
"$viewer" --help | grep -q '^Usage: yaxview \[FILE.yax\]$'
expect "--help: usage" $? 0
"$viewer" board.yax --version | grep -qxE 'yaxview [0-9]+\.[0-9]+\.[0-9]+'
expect "--version: version" $? 0

for display in "" ":987"; do
  DISPLAY=$display "$viewer" >"$folder/out" 2>"$folder/err"
  expect "no display: status" $? 1
  expect "no display: words" "$(cat "$folder/out" "$folder/err")" \
    "Fatal Error In 3D YAX Viewer: Fatal Error: Could not retrieve pixel format!"
done

"$root/run" "$folder/missing.yax" >"$folder/out" 2>&1
expect "run: status" $? 1
expect "run: words" "$(cat "$folder/out")" "run: there is no file '$folder/missing.yax'"
