"""Reads and drives every control of the wire bond setup and the wire list: setup_and_list.py VIEWER FOLDER

The folder holds "a package.yax" with a stacked die, "single.yax" without one, and a stand-in estimator beside the
viewer that leaves "started" behind.
"""

import os

import pyatspi
from bus import FOLDER, act, choose, named, start, states, until, usable

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
KEYS = {
    "Base Loop Height": "BaseLoopHeight",
    "Base Loop Extension": "BaseExtension",
    "Stack Loop Height": "StackLoopHeight",
    "Stacked Loop Extension": "StackExtension",
    "Stitch Loop Extension": "StichExtension",
}


def open_window(app, entry, name):
    choose(app, named(app, "Package view"), entry)
    return named(app, name, "frame")


class Setup:
    def __init__(self, app):
        self.window = open_window(app, "Wire Bond Setup ...", "Wire Bond Setup")
        self.frames = {name: named(self.window, name, "panel") for name in FRAMES}
        self.text = named(self.window, "Parameter file text")

    def option(self, frame, name):
        return named(self.frames[frame], name, "radio button")

    def select(self, frame, name):
        act(self.option(frame, name), "Toggle")

    def value(self, frame):
        return named(self.frames[frame], frame + " value", "text")

    def write(self, frame, text):
        self.value(frame).queryEditableText().setTextContents(text)

    def press(self, name):
        act(named(self.window, name, "push button"), "Press")

    def lines(self):
        return self.text.queryText().getText(0, -1).split("\n")

    def says(self, *lines):
        until(lambda: set(lines) <= set(self.lines()), f"{lines}; the text is {self.lines()}")


def drive_the_setup(app):
    setup = Setup(app)
    for frame, options in FRAMES.items():
        for option in options:
            assert usable(setup.option(frame, option)), (frame, option)
    named(setup.window, "Loop side view")
    for button in ["Load", "Save"]:
        assert usable(named(setup.window, button, "push button")), button

    setup.select("Material", "Cu")
    setup.says("Material=Cu")
    assert pyatspi.STATE_CHECKED in states(setup.option("Material", "Cu"))
    assert pyatspi.STATE_CHECKED not in states(setup.option("Material", "Au"))
    setup.select("Wire Diameter Mils", CUSTOM)
    setup.write("Wire Diameter Mils", "0.9")
    setup.select("Frequency", "Ghz")
    setup.write("Frequency", "2.5")
    for frame in KEYS:
        value = setup.value(frame)
        assert not usable(value), f"{frame}: at the default there is nothing to write"
        setup.select(frame, CUSTOM)
        until(lambda: usable(value), frame)
        setup.write(frame, "12,5")
    setup.press("Apply")
    setup.says("WireDiameter=0.9", "Frequency=2500000000", *(key + "=12.5" for key in KEYS.values()))
    setup.select("Stacked Loop Extension", "Edge of Base Die")
    setup.says("StackExtension=-1")

    setup.press("ZU Estimator")
    started = until(lambda: open(f"{FOLDER}/started").read(), "the estimator")
    assert started == f"1\n{FOLDER}/a package.zu\n", started
    with open(f"{FOLDER}/a package.zu", newline="") as file:
        assert file.read().split("\r\n") == setup.lines()

    setup.press("Reset")
    # 10 mil in a package whose unit scale is 100.
    setup.says("Material=Au", "Frequency=1000000", *(key + "=0.1" for key in KEYS.values()))
    setup.press("OK")
    until(lambda: pyatspi.STATE_SHOWING not in states(setup.window), "OK to close the window")


def drive_the_list(app):
    window = open_window(app, "Wire List ...", "Wire List")
    wires = named(window, "Wires", "list")
    table = wires.queryTable()
    names = [wires[i].name for i in range(wires.childCount)]
    assert len(names) == 103, f"91 wires and 12 stitches are {len(names)}"

    def selects(*rows):
        until(lambda: table.getSelectedRows() == list(rows), f"{rows} to be selected")

    def press(name):
        act(named(window, name, "push button"), "Press")

    selects()
    table.addRowSelection(2)
    selects(2)
    act(wires[4], "Toggle")
    selects(2, 4)
    assert pyatspi.STATE_SELECTED in states(wires[4])
    act(wires[2], "Toggle")
    selects(4)
    press("Stitch")
    selects(*(i for i, name in enumerate(names) if ":" in name))
    press("Clear")
    selects()
    for name in ["Tier1", "Tier2", "Tier3", "Tier4", "Power", "Ground", "Signal"]:
        assert usable(named(window, name, "push button")), name


def main():
    program, app = start("a package.yax")
    drive_the_setup(app)
    drive_the_list(app)
    program.terminate()
    program.wait()

    os.remove(f"{FOLDER}/ZU.exe")
    program, app = start("single.yax")
    setup = Setup(app)
    assert not usable(named(setup.window, "ZU Estimator", "push button"))
    window = open_window(app, "Wire List ...", "Wire List")
    for name in ["Tier3", "Tier4", "Stitch", "Power", "Ground", "Signal"]:
        assert not usable(named(window, name, "push button")), name
    program.terminate()


main()
