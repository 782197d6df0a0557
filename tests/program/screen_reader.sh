#!/usr/bin/env bash
# The whole program as a screen reader sees and drives it, with a stand-in estimator.
. "$(dirname "$0")/checks.sh"
open_display
# The estimator lies beside the viewer, so the viewer moves to it, below a name that shells would trip over.
odd="$folder/a \"viewer's\" f"$'\xC3\xB6'lder
mkdir "$odd"
cp "$viewer" "$(dirname "$viewer")"/*.rtf "$odd/"
cp "$root/samples/stacked-ram.yax" "$odd/a package.yax"
cp "$root/samples/stacked-ram.yax.vu" "$odd/a package.yax.vu"
cp "$root/samples/lqfp100.yax" "$odd/single.yax"
cat >"$odd/ZU.exe" <<'END'
#!/bin/sh
cd "${0%/*}" && { echo $#; echo "$1"; } >part && mv part started
END
chmod +x "$odd/ZU.exe"
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 NO_AT_BRIDGE=1
# pyatspi belongs to the system's Python; another python3 may come first in PATH.
/usr/bin/python3 "$root/tests/program/screen_reader.py" "$odd/$(basename "$viewer")" "$odd" >"$folder/log" 2>&1
status=$?
[ $status = 0 ] || cat "$folder/log" >&2
expect "screen_reader.py" $status 0
