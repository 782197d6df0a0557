"""Finds, reads and drives every control over the accessibility bus: screen_reader.py VIEWER FOLDER

The folder holds "a package.yax" with a stacked die, "single.yax" without one, and a stand-in estimator beside the
viewer that leaves "started" behind.
"""

import os
import sys

import pyatspi
from bus import Viewer, act, choose, has, named, press, until, usable

VIEWER, FOLDER = sys.argv[1:3]
DEFAULT, CUSTOM = "Default to Die Height", "Custom"
FRAMES = {
    "Material": ["Au", "Al", "Cu"],
    "Wire Diameter Mils": ["0.5", "0.7", "0.8", "1.0", "1.25", "1.5", CUSTOM],
    "Frequency": ["hz", "Khz", "Mhz", "Ghz"],
    "Base Loop Height": [DEFAULT, CUSTOM],
    "Base Loop Extension": [DEFAULT, CUSTOM],
    "Stacked Loop Extension": [DEFAULT, "Edge of Base Die", CUSTOM],
    "Stack Loop Height": [DEFAULT, CUSTOM],
    "Stitch Loop Extension": [DEFAULT, CUSTOM],
}
LOOPS = dict(zip(list(FRAMES)[3:], ["BaseLoopHeight", "BaseExtension", "StackExtension", "StackLoopHeight",
                                    "StichExtension"]))


def drive_the_view(viewer):
    window = viewer.window
    assert has(named(window, "Package view"), pyatspi.STATE_FOCUSED), "the view has the keyboard at the start"
    pitch, yaw = (named(window, name, "scroll bar").queryValue() for name in ("Pitch", "Yaw"))
    ranges = [(bar.minimumValue, bar.maximumValue, bar.currentValue) for bar in (pitch, yaw)]
    assert ranges == [(-90, 270, 90), (-180, 180, 0)], ranges
    for name in ["In +", "Out -", "< < < < <", "> > > > >", "U", "D",
                 "Camera left", "Camera right", "Camera up", "Camera down"]:
        press(window, name)
        assert named(window, name).description, name
    dummy = named(window, "Reset view")
    until(lambda: has(dummy, pyatspi.STATE_FOCUSED), "the focus after an arrow")
    pitch.currentValue, yaw.currentValue = 45, -170
    until(lambda: (pitch.currentValue, yaw.currentValue) == (45, -170), "the bars to move")
    act(dummy, "Press")
    until(lambda: (pitch.currentValue, yaw.currentValue) == (90, 0), "the reset")
    choose(viewer.app, "Navagation")
    assert "Arrow keys" in named(viewer.app, "Help text").queryText().getText(0, -1)
    choose(viewer.app, "About")
    press(named(viewer.app, "About", "dialog"), "OK")


def drive_the_setup(viewer):
    window = viewer.open("Wire Bond Setup ...", "Wire Bond Setup")
    text = named(window, "Parameter file text")
    named(window, "Loop side view")

    def lines():
        return text.queryText().getText(0, -1).split("\n")

    def says(*wanted):
        until(lambda: set(wanted) <= set(lines()), f"{wanted}; the text is {lines()}")

    def option(frame, name):
        return named(named(window, frame, "panel"), name, "radio button")

    def write(frame, words):
        value = named(window, frame + " value", "text")
        until(lambda: usable(value), frame)
        value.queryEditableText().setTextContents(words)

    assert all(usable(option(frame, name)) for frame in FRAMES for name in FRAMES[frame])
    assert not has(text, pyatspi.STATE_EDITABLE)
    act(option("Material", "Cu"), "Toggle")
    says("Material=Cu")
    assert has(option("Material", "Cu"), pyatspi.STATE_CHECKED)
    for frame in LOOPS:
        assert not usable(named(window, frame + " value", "text")), f"{frame}: at the default there is nothing to write"
        act(option(frame, CUSTOM), "Toggle")
        write(frame, "12,5")
    act(option("Wire Diameter Mils", CUSTOM), "Toggle")
    write("Wire Diameter Mils", "0.9")
    act(option("Frequency", "Ghz"), "Toggle")
    write("Frequency", "2.5")
    press(window, "Apply")
    says("WireDiameter=0.9", "Frequency=2500000000", *(key + "=12.5" for key in LOOPS.values()))

    press(window, "ZU Estimator")
    started = until(lambda: open(f"{FOLDER}/started").read(), "the estimator")
    assert started == f"1\n{FOLDER}/a package.zu\n", started
    with open(f"{FOLDER}/a package.zu", newline="") as file:
        assert file.read().split("\r\n") == lines()
    press(window, "Reset")
    # 10 mil in a package whose unit scale is 100.
    says("Material=Au", "Frequency=1000000", *(key + "=0.1" for key in LOOPS.values()))
    press(window, "OK")
    until(lambda: not has(window, pyatspi.STATE_SHOWING), "OK to close the window")


def drive_the_list(viewer):
    window = viewer.open("Wire List ...", "Wire List")
    wires = named(window, "Wires", "list")
    names = [wires[i].name for i in range(wires.childCount)]
    assert len(names) == 103, f"91 wires and 12 stitches are {len(names)}"

    def selects(*rows):
        until(lambda: wires.queryTable().getSelectedRows() == list(rows), f"{rows} to be selected")

    wires.queryTable().addRowSelection(2)
    selects(2)
    act(wires[4], "Toggle")
    selects(2, 4)
    press(window, "Stitch")
    selects(*(i for i, name in enumerate(names) if ":" in name))
    press(window, "Clear")
    selects()


with Viewer(VIEWER, f"{FOLDER}/a package.yax") as viewer:
    assert viewer.window.name.endswith(" - a package.yax"), viewer.window
    drive_the_view(viewer)
    drive_the_setup(viewer)
    drive_the_list(viewer)
os.remove(f"{FOLDER}/ZU.exe")
with Viewer(VIEWER, f"{FOLDER}/single.yax") as viewer:
    setup = viewer.open("Wire Bond Setup ...", "Wire Bond Setup")
    wires = viewer.open("Wire List ...", "Wire List")
    disabled = [(setup, "ZU Estimator")] + [(wires, name) for name in ["Tier3", "Tier4", "Stitch", "Power", "Signal"]]
    for window, name in disabled:
        assert not usable(named(window, name, "push button")), name
