"""What the SVG and DXF files of a diagram hold, against the bond list: diagram.py NAME UNIT"""
import csv
import re
import sys
import xml.etree.ElementTree as xml

import ezdxf

name, unit = sys.argv[1:]
MILLIMETRES = {"mm": 1.0, "mil": 0.0254, "um": 0.001}
wires = list(csv.DictReader(open(f"{name}.csv", encoding="utf-8")))
faults = []

# DXF: every wire is a line on its layer, true to size.
document = ezdxf.readfile(f"{name}.dxf")
audit = document.audit()
if audit.errors or audit.fixes:
    faults.append(f"DXF: {[entry.message for entry in audit.errors + audit.fixes][:3]}")
lines = [entity for entity in document.modelspace().query("LINE") if entity.dxf.layer.startswith("WIRES_")]
if len(lines) != len(wires):
    faults.append(f"DXF: {len(lines)} lines for {len(wires)} wires")
ends = sorted((*line.dxf.start.vec2, *line.dxf.end.vec2) for line in lines)
wanted = sorted(tuple(float(wire[key]) * MILLIMETRES[unit] for key in ("Die X", "Die Y", "Subs X", "Subs Y")) for wire in wires)
for found, right in zip(ends, wanted):
    if max(abs(a - b) for a, b in zip(found, right)) > 1e-3:
        faults.append(f"DXF: a wire at {found}, not {right}")
        break

# SVG: every name is a text, and the scale bar is as long as it says.
tree = xml.parse(f"{name}.svg").getroot()
space = "{http://www.w3.org/2000/svg}"
words = {text.text for text in tree.iter(f"{space}text")}
missing = [wire["Net Name"] for wire in wires if wire["Net Name"] not in words]
if missing:
    faults.append(f"SVG: no text {missing[:3]}")
scale = next(re.fullmatch(r"([\d.]+) : 1", word) for word in words if word and re.fullmatch(r"[\d.]+ : 1", word))
label = next(text for text in tree.iter(f"{space}text") if re.fullmatch(rf"[\d.]+ {unit}", text.text or "")
             and text.get("text-anchor") == "middle")
length = float(label.text.split()[0]) * MILLIMETRES[unit] * float(scale.group(1))
middle = float(label.get("x"))
bars = [float(line.get("x2")) - float(line.get("x1")) for line in tree.iter(f"{space}line")
        if line.get("y1") == line.get("y2") and abs((float(line.get("x1")) + float(line.get("x2"))) / 2 - middle) < 1e-3
        and 0 < float(line.get("y1")) - float(label.get("y")) < 3]
if not any(abs(bar / length - 1) < 1e-3 for bar in bars):
    faults.append(f"SVG: the bar '{label.text}' is {bars} long, not {length}")

# PDF: every name is found by a search.
text = open(f"{name}.txt", encoding="utf-8").read()
missing = [wire["Net Name"] for wire in wires if wire["Net Name"] not in text]
if missing:
    faults.append(f"PDF: no text {missing[:3]}")

for fault in faults:
    print(f"{name}: {fault}", file=sys.stderr)
sys.exit(bool(faults))
