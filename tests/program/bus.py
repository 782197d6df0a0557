"""The viewer over the accessibility bus, as assistive technology reads and drives it; VIEWER FOLDER are the arguments."""

import atexit
import subprocess
import sys
import time

import pyatspi

VIEWER, FOLDER = sys.argv[1:3]


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


def usable(thing):
    return {pyatspi.STATE_ENABLED, pyatspi.STATE_SENSITIVE} <= states(thing)


def choose(app, view, name):
    """Through the view's menu, whose submenus need not be opened."""
    act(view, "ShowMenu")
    entry = named(app, name, "menu item")
    assert pyatspi.STATE_ENABLED in states(entry), name
    act(entry, "Press")
