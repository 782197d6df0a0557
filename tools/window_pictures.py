"""Opens the viewer's windows as a user would and saves screenshots: window_pictures.py VIEWER PACKAGES PICTURES"""

import atexit
import subprocess
import sys
import time

from bus import Viewer, act, choose, named, press, until

YAXVIEW, PACKAGES, PICTURES = sys.argv[1:]


def run(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout


def visible(title):
    """Waits for the X window with this title and returns it."""
    return until(lambda: run("xdotool", "search", "--onlyvisible", "--name", title).split()[-1], title)


def grab(name, title=None):
    """Saves a screenshot of the window with this title and its frame, or of the screen without its empty margins."""
    run("xdotool", "mousemove", "1490", "950")
    time.sleep(1)
    picture = f"{PICTURES}/{name}.png"
    run("import", *(["-frame", "-window", visible(title)] if title else ["-window", "root"]), picture)
    run("mogrify", "-trim", "+repage", "-strip", picture)


class Shown(Viewer):
    """The viewer with a package, placed so that other windows fit beside it."""

    def __init__(self, package):
        super().__init__(YAXVIEW, f"{PACKAGES}/{package}")
        self.place = visible("^3D YAX Viewer - ")
        run("xdotool", "windowsize", "--sync", self.place, "900", "680", "windowmove", self.place, "10", "30")
        time.sleep(1)

    def keys(self, *keys):
        run("xdotool", "windowactivate", "--sync", self.place, "key", "--delay", "30", *keys)
        time.sleep(0.5)


def custom(window, frame, value):
    panel = named(window, frame, "panel")
    act(named(panel, "Custom", "radio button"), "Toggle")
    named(panel, frame + " value", "text").queryEditableText().setTextContents(value)


TURNED = ["shift+Up"] * 5 + ["shift+Right"] * 3


def looking():
    with Shown("AAAc.yax") as viewer:
        grab("window-first")
        viewer.keys(*TURNED)
        grab("window-turned")
        act(named(viewer.app, "Package view"), "ShowMenu")
        grab("window-menu")


def choosing_wires():
    with Shown("bga332.yax") as viewer:
        viewer.keys(*TURNED)
        wires = viewer.open("Wire List ...", "Wire List")
        press(wires, "Tier1")
        grab("window-wires")


def shaping_loops():
    with Shown("stacked-ram.yax") as viewer:
        viewer.keys(*["shift+Up"] * 7, *["Up"] * 5, "shift+Right", "shift+Right", "plus", "plus")
        grab("window-flat", "^3D YAX Viewer - ")
        setup = viewer.open("Wire Bond Setup ...", "Wire Bond Setup")
        custom(setup, "Base Loop Height", "7")
        custom(setup, "Base Loop Extension", "12")
        custom(setup, "Stack Loop Height", "6")
        act(named(named(setup, "Stacked Loop Extension", "panel"), "Edge of Base Die", "radio button"), "Toggle")
        custom(setup, "Stitch Loop Extension", "8")
        press(setup, "Apply")
        grab("window-setup", "Wire Bond Setup")
        press(setup, "OK")
        grab("window-loops", "^3D YAX Viewer - ")


def estimating():
    with Shown("AAAc.yax") as viewer:
        setup = viewer.open("Wire Bond Setup ...", "Wire Bond Setup")
        press(setup, "ZU Estimator")
        grab("window-estimator", "^ZU Estimator")
        # The estimator outlives the viewer, so close it here.
        run("xdotool", "windowactivate", "--sync", visible("^ZU Estimator"), "key", "alt+F4")


def keeping():
    with Shown("AAAc.yax") as viewer:
        viewer.keys(*TURNED)
        choose(viewer.app, "White")
        # Use keys: over the accessibility bus the action would return only when the dialog closes.
        viewer.keys("Menu", "Down", "Down", "Return")
        grab("window-save")
        run("xdotool", "key", "Escape")
        viewer.keys("Menu", "Down", "Down", "Down", "Return")
        grab("window-printer", "Printer Setup")


manager = subprocess.Popen(["openbox"])
atexit.register(manager.kill)
looking()
choosing_wires()
shaping_loops()
estimating()
keeping()
