"""Opens the viewer's windows as a user would and grabs what the screen shows: VIEWER PACKAGES PICTURES"""

import atexit
import subprocess
import sys
import time

from bus import act, choose, named, start, until

PICTURES = sys.argv[3]


def run(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout


def visible(title):
    """The X window with this title, once it is there."""
    return until(lambda: run("xdotool", "search", "--onlyvisible", "--name", title).split()[-1], title)


def grab(name, title=None):
    """The window with this title in its frame, or all of the screen that is not empty."""
    run("xdotool", "mousemove", "1490", "950")
    time.sleep(1)
    picture = f"{PICTURES}/{name}.png"
    run("import", *(["-frame", "-window", visible(title)] if title else ["-window", "root"]), picture)
    run("mogrify", "-trim", "+repage", "-strip", picture)


class Viewer:
    def __init__(self, package):
        self.program, self.app = start(package)
        self.window = visible("^3D YAX Viewer - ")
        run("xdotool", "windowsize", "--sync", self.window, "900", "680", "windowmove", self.window, "10", "30")
        time.sleep(1)

    def press(self, *keys):
        run("xdotool", "windowactivate", "--sync", self.window, "key", "--delay", "30", *keys)
        time.sleep(0.5)

    def open(self, entry, title, role="frame"):
        choose(self.app, named(self.app, "Package view"), entry)
        visible(title)
        return named(self.app, title, role)

    def close(self):
        self.program.kill()
        self.program.wait()


def push(window, name):
    act(named(window, name, "push button"), "Press")


def custom(window, frame, value):
    panel = named(window, frame, "panel")
    act(named(panel, "Custom", "radio button"), "Toggle")
    named(panel, frame + " value", "text").queryEditableText().setTextContents(value)


TURNED = ["shift+Up"] * 5 + ["shift+Right"] * 3


def looking():
    viewer = Viewer("AAAc.yax")
    grab("window-first")
    viewer.press(*TURNED)
    grab("window-turned")
    act(named(viewer.app, "Package view"), "ShowMenu")
    grab("window-menu")
    viewer.close()


def choosing_wires():
    viewer = Viewer("bga332.yax")
    viewer.press(*TURNED)
    wires = viewer.open("Wire List ...", "Wire List")
    push(wires, "Tier1")
    grab("window-wires")
    viewer.close()


def shaping_loops():
    viewer = Viewer("stacked-ram.yax")
    viewer.press(*["shift+Up"] * 7, *["Up"] * 5, "shift+Right", "shift+Right", "plus", "plus")
    grab("window-flat", "^3D YAX Viewer - ")
    setup = viewer.open("Wire Bond Setup ...", "Wire Bond Setup")
    custom(setup, "Base Loop Height", "7")
    custom(setup, "Base Loop Extension", "12")
    custom(setup, "Stack Loop Height", "6")
    act(named(named(setup, "Stacked Loop Extension", "panel"), "Edge of Base Die", "radio button"), "Toggle")
    custom(setup, "Stitch Loop Extension", "8")
    push(setup, "Apply")
    grab("window-setup", "Wire Bond Setup")
    push(setup, "OK")
    grab("window-loops", "^3D YAX Viewer - ")
    viewer.close()


def keeping():
    viewer = Viewer("AAAc.yax")
    viewer.press(*TURNED)
    choose(viewer.app, named(viewer.app, "Package view"), "White")
    # By keys: a dialog answers the accessibility bus only when it closes.
    viewer.press("Menu", "Down", "Down", "Return")
    grab("window-save")
    run("xdotool", "key", "Escape")
    viewer.press("Menu", "Down", "Down", "Down", "Return")
    grab("window-printer", "Printer Setup")
    viewer.close()


manager = subprocess.Popen(["openbox"])
atexit.register(manager.kill)
looking()
choosing_wires()
shaping_loops()
keeping()
