#!/usr/bin/env bash
# The wire bond setup with a stand-in estimator, and the wire list, as a screen reader sees and drives them.
. "$(dirname "$0")/checks.sh"
open_display
# The estimator lies beside the viewer, so the viewer comes to it, under a name that shells would trip over.
odd="$folder/a \"viewer's\" f"$'\xC3\xB6'lder
mkdir "$odd"
cp "$viewer" "$odd/"
cp "$root/samples/stacked-ram.yax" "$odd/a package.yax"
cp "$root/samples/stacked-ram.yax.vu" "$odd/a package.yax.vu"
cp "$root/samples/lqfp100.yax" "$odd/single.yax"
cat >"$odd/ZU.exe" <<'END'
#!/bin/sh
cd "${0%/*}" && { echo $#; echo "$1"; } >part && mv part started
END
chmod +x "$odd/ZU.exe"
over_the_bus setup_and_list.py "$odd/$(basename "$viewer")" "$odd"
