#!/usr/bin/env bash
# cmake --install gives programs that find what belongs to them, whatever the prefix.
. "$(dirname "$0")/checks.sh"
prefix="$folder/a prefix"
cmake --install "$(dirname "$viewer")/.." --prefix "$prefix" >"$folder/log" 2>&1 || cat "$folder/log" >&2
viewer=$prefix/bin/yaxview
open_display
start
window=$(found '^3D YAX Viewer - .* - AAAc.yax$') || exit # the sample lies beside the program
expect "help pages" "$(ls "$prefix/lib/yaxview"/*.rtf | wc -l)" 2
# A limit on the size of files must be an error in a message, not a signal that ends the program.
expect "SIGXFSZ" $((0x$(sed -n 's/^SigIgn:\t//p' /proc/$pid/status) >> 24 & 1)) 1
xdotool windowfocus --sync "$window" key Escape
ends "the installed viewer" 0
"$prefix/bin/yax" check "$prefix/share/doc/yaxview/examples/bga332.yax" >/dev/null
expect "yax check: status" $? 0
# The diagram's text needs the module in lib/yax.
"$prefix/bin/yax" diagram --unit mm -o "$folder/diagram.pdf" "$prefix/share/doc/yaxview/examples/bga332.yax"
expect "yax diagram: status" $? 0
expect "yax diagram: file" "$(head -c 5 "$folder/diagram.pdf")" %PDF-
for file in man/man1/yax-render.1 man/man1/yaxview.1 man/man5/yax.5 mime/packages/yax.xml doc/yaxview/guide.html \
  bash-completion/completions/yax zsh/site-functions/_yax fish/vendor_completions.d/yax.fish; do
  grep -q . "$prefix/share/$file"
  expect "$file: status" $? 0
done
