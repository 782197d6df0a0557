"""Finds, reads and drives every control of the viewer over the accessibility bus: accessibility.py VIEWER FOLDER"""

import atexit
import subprocess
import sys
import time

import pyatspi

VIEWER, FOLDER = sys.argv[1:]


def until(found, what):
    """What `found` returns once it is something; it may fail meanwhile, as windows come and go."""
    end = time.monotonic() + 10
    while time.monotonic() < end:
        try:
            result = found()
            if result:
                return result
        except Exception:  # the bus reports what is gone in many ways
            pass
        time.sleep(0.05)
    raise SystemExit(f"waited in vain for {what}")


def all_below(thing):
    for child in thing:
        if child is not None:
            yield child
            yield from all_below(child)


def start(file):
    program = subprocess.Popen([VIEWER, f"{FOLDER}/{file}"], stderr=subprocess.PIPE, text=True)
    atexit.register(program.kill)

    def running():
        desktop = pyatspi.Registry.getDesktop(0)
        return next((app for app in desktop if app and app.get_process_id() == program.pid), None)

    return program, until(running, "the program on the bus")


def named(root, name, role=None):
    def found():
        return [t for t in all_below(root) if t.name == name and (role is None or t.getRoleName() == role)]

    things = until(found, f'"{name}" ({role})')
    assert len(things) == 1, f'{len(things)} things are called "{name}" ({role})'
    return things[0]


def act(thing, action):
    actions = thing.queryAction()
    names = [actions.getName(i) for i in range(actions.nActions)]
    assert action in names, f"{thing.name}: {names}"
    actions.doAction(names.index(action))


def states(thing):
    return set(thing.getState().getStates())


def drive_the_controls(window):
    view = named(window, "Package view")
    assert pyatspi.STATE_FOCUSED in states(view), "the view has the keyboard at the start"
    bars = {}
    for name, low, high in (("Pitch", -90, 270), ("Yaw", -180, 180)):
        bars[name] = named(window, name, "scroll bar").queryValue()
        assert (bars[name].minimumValue, bars[name].maximumValue) == (low, high), name
    assert (bars["Pitch"].currentValue, bars["Yaw"].currentValue) == (90, 0)
    buttons = ["In +", "Out -", "< < < < <", "> > > > >", "U", "D"]
    buttons += ["Camera left", "Camera right", "Camera up", "Camera down"]
    for name in buttons:
        button = named(window, name, "push button")
        assert pyatspi.STATE_ENABLED in states(button), name
        assert button.description, name
        act(button, "Press")
    dummy = named(window, "Reset view")
    until(lambda: pyatspi.STATE_FOCUSED in states(dummy), "the focus after an arrow")
    bars["Pitch"].currentValue = 45
    bars["Yaw"].currentValue = -170
    until(lambda: (bars["Pitch"].currentValue, bars["Yaw"].currentValue) == (45, -170), "the bars to move")
    act(dummy, "Press")
    until(lambda: (bars["Pitch"].currentValue, bars["Yaw"].currentValue) == (90, 0), "the reset")
    return view


def choose(app, view, name):
    """Through the view's menu, whose submenus need not be opened."""
    act(view, "ShowMenu")
    entry = named(app, name, "menu item")
    assert pyatspi.STATE_ENABLED in states(entry), name
    act(entry, "Press")


def main():
    program, app = start("board.yax")
    window = until(lambda: app[0] if app.childCount else None, "the window")
    assert window.name.endswith("board.yax"), window.name
    assert window.getRoleName() == "frame", window.getRoleName()
    view = drive_the_controls(window)
    choose(app, view, "Navagation")
    text = named(app, "Help text").queryText()
    assert "Arrow keys" in text.getText(0, -1)
    choose(app, view, "About")
    about = named(app, "About", "dialog")
    act(named(about, "OK", "push button"), "Press")
    assert program.poll() is None
    program.terminate()
    assert program.communicate()[1] == "", "a word on the terminal"

    # The box of a fault can be read and closed.
    program, app = start("faulty.yax")
    box = named(app, "3D YAX Viewer")
    said = [thing.name for thing in all_below(box) if thing.getRoleName() == "label"]
    assert any(text.startswith("Run-time error") for text in said), said
    act(named(box, "OK", "push button"), "Press")
    assert program.wait(10) == 1


main()
