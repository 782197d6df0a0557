#!/usr/bin/env bash
# What the programs do without a display.
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
expect "run: words" "$(cat "$folder/out")" "run: no such file: '$folder/missing.yax'"

"$root/run" --help >"$folder/out" 2>&1
expect "run --help: status" $? 0
expect "run --help: words" "$(cat "$folder/out")" "usage: ./run [FILE.yax]"

# The script alone: setting up and building do nothing here.
house=$folder/house
mkdir -p "$house/tools" "$house/build/release"
cp "$root/run" "$house"
ln -s /bin/true "$house/tools/setup"
ln -s /bin/true "$house/tools/build"
ln -s "$(dirname "$viewer")" "$house/build/release/bin"
cp "$root/samples/lqfp100.yax" "$folder/-my board.v2.yax"
cd "$folder" || exit
DISPLAY=:987 "$house/run" "-my board.v2.yax" >"$folder/out" 2>&1
expect "run without a display: status" $? 0
expect "run without a display: words" "$(grep -c "$house/build/-my board.v2.png" "$folder/out") of $(wc -l <"$folder/out")" "1 of 1"
expect "run without a display: picture" "$(head -c 4 "$house/build/-my board.v2.png" | tail -c 3)" PNG
