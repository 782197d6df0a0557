"""Opens the installed viewer as its desktop does, in a session of its own: installed_window.py SAMPLE

Each line on standard output names what works.
"""

import os
import signal
import subprocess
import sys

import pyatspi
from bus import Viewer, named, press, until, usable

SAMPLE = sys.argv[1]
ESTIMATOR = "/usr/lib/yaxview/ZU.exe"
PARAMETERS = os.path.expanduser("~/.local/share/3D YAX Viewer/AAAc.zu")


def close(part):
    """Waits for the window with `part` in its title and ends its program."""
    def window():
        apps = filter(None, pyatspi.Registry.getDesktop(0))
        return next(window for app in apps for window in app if part in window.name)

    os.kill(until(window, part).getApplication().get_process_id(), signal.SIGTERM)


with Viewer("yaxview") as viewer:
    assert viewer.window.name.endswith(" - AAAc.yax"), viewer.window.name
    print("yaxview opens its sample")
    for entry, title in [("Navagation", "Navigation Help"), ("Viewer", "3D Yax Viewer Help")]:
        text = viewer.open(entry, title)
        assert named(text, "Help text").queryText().characterCount > 1000, title
        print(f"{title} opens")
    setup = viewer.open("Wire Bond Setup ...", "Wire Bond Setup")
    assert usable(named(setup, "ZU Estimator", "push button")) == os.path.exists(ESTIMATOR)
    if os.path.exists(ESTIMATOR):
        press(setup, "ZU Estimator")
        until(lambda: os.path.getsize(PARAMETERS), PARAMETERS)
        print("the parameter file goes to the user's own folder")
        close("ZU Estimator")
        print("the estimator opens")

# Without a desktop environment xdg-open waits for the program's end.
opener = subprocess.Popen(["xdg-open", SAMPLE], stderr=subprocess.DEVNULL)
close(" - " + os.path.basename(SAMPLE))
opener.wait(timeout=10)
print("xdg-open opens a package")
