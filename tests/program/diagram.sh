#!/usr/bin/env bash
# Bonding diagrams as other programs read them: PDF by qpdf and poppler, SVG by an XML parser, DXF by ezdxf.
set -u
yax=$(readlink -f "$1")
root=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
export LC_ALL=C.UTF-8
failed=0

fail() {
  echo "$*" >&2
  failed=1
}

# draw SAMPLE UNIT
draw() {
  for format in pdf svg dxf; do
    "$yax" diagram -o "$1.$format" --unit "$2" --table "$root/samples/$1.yax" || fail "$1.$format: status $?"
  done
  "$yax" diagram -o - --unit "$2" --table "$root/samples/$1.yax" >again.pdf
  cmp -s "$1.pdf" again.pdf || fail "$1: other bytes the second time"
  qpdf --check "$1.pdf" >qpdf.log 2>&1 || { fail "$1.pdf"; cat qpdf.log >&2; }
  pdffonts "$1.pdf" | awk 'NR > 2 && $(NF - 4) != "yes"' | grep . >&2 && fail "$1.pdf: a font is not embedded"
  pdftotext -raw "$1.pdf" "$1.txt"
  "$yax" wires --format bond-list "$root/samples/$1.yax" >"$1.csv"
  /usr/bin/python3 "$root/tests/program/diagram.py" "$1" "$2" || failed=1
}

draw AAAc mm
draw bga332 mm
draw stacked-ram mil
"$yax" diagram -o small.pdf --unit mm --sheet 60x60 "$root/samples/bga332.yax" 2>message && fail "a sheet of 60 x 60 was not refused"
grep -q 'use --sheet a4$' message || fail "$(cat message)"
"$yax" diagram -o none.pdf --unit mm --title none "$root/samples/bga332.yax" 2>message
[ $? = 2 ] || fail "a missing title file: status"
[ -e small.pdf ] || [ -e none.pdf ] && fail "a refused sheet left a file"
exit $failed
