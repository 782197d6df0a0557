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

"$root/run" --help >"$folder/out" 2>&1
expect "run --help: status" $? 0
expect "run --help: words" "$(cat "$folder/out")" "usage: ./run [FILE.yax]"

# The script alone, with what it builds already there.
house=$folder/house
mkdir -p "$house/tools" "$house/build/release"
cp "$root/run" "$house"
ln -s "$root/samples" "$house/samples"
ln -s "$(dirname "$viewer")" "$house/build/release/bin"
for tool in setup build; do
  printf '#!/bin/sh\n' >"$house/tools/$tool"
  chmod +x "$house/tools/$tool"
done
# pictured DISPLAY NAME ARGUMENTS...: without that display there is a picture of that name
pictured() {
  DISPLAY=$1 "$house/run" "${@:3}" >"$folder/out" 2>&1
  expect "run $*: status" $? 0
  expect "run $*: words" "$(cat "$folder/out")" \
    "run: there is no display for the viewer; the picture is $house/build/$2.png"
  expect "run $*: picture" "$(head -c 4 "$house/build/$2.png" | tail -c 3)" PNG
  rm -f "$house/build/$2.png"
}
pictured "" AAAc
pictured :987 AAAc
cp "$root/samples/lqfp100.yax" "$folder/-my board.v2.yax"
cd "$folder" && pictured :987 "-my board.v2" "-my board.v2.yax"

echo "COMPL 1" >"$folder/none.yax"
"$house/run" "$folder/none.yax" >"$folder/out" 2>&1
expect "run: status without a package" $? 1
expect "run: words without a package" "$(cat "$folder/out")" \
  "$folder/none.yax: it holds no package; a header that ends in a COMPZ line has to come first"
