"""The viewer's controls on the accessibility bus: finds, reads and operates them."""

import subprocess
import time

import pyatspi


def until(found, what):
    """What `found` returns once it is true; it may fail meanwhile, as windows come and go."""
    end = time.monotonic() + 30
    while time.monotonic() < end:
        try:
            if result := found():
                return result
        except Exception:  # the bus reports in many ways that something is gone
            pass
        time.sleep(0.05)
    raise SystemExit(f"waited in vain for {what}")


def all_below(thing):
    for child in filter(None, thing):
        yield child
        yield from all_below(child)


def named(root, name, role=None):
    things = until(lambda: [t for t in all_below(root) if t.name == name and role in (None, t.getRoleName())],
                   f'"{name}" ({role})')
    assert len(things) == 1, f'{len(things)} things are called "{name}" ({role})'
    return things[0]


def act(thing, action):
    actions = thing.queryAction()
    names = [actions.getName(i) for i in range(actions.nActions)]
    assert action in names, f"{thing.name}: {names}"
    actions.doAction(names.index(action))


def press(root, name):
    act(named(root, name, "push button"), "Press")


def has(thing, *states):
    return set(states) <= set(thing.getState().getStates())


def usable(thing):
    return has(thing, pyatspi.STATE_ENABLED, pyatspi.STATE_SENSITIVE)


def choose(app, name):
    """Through the view's menu, whose submenus need not be opened."""
    act(named(app, "Package view"), "ShowMenu")
    act(named(app, name, "menu item"), "Press")


class Viewer:
    """The running viewer: opened with `arguments`, at its end terminated."""

    def __init__(self, *arguments):
        self.program = subprocess.Popen(arguments, stderr=subprocess.PIPE, text=True)
        desktop = pyatspi.Registry.getDesktop(0)
        self.app = until(lambda: next(a for a in desktop if a and a.get_process_id() == self.program.pid), "the bus")
        self.window = until(lambda: self.app[0], "the window")
        assert self.window.getRoleName() == "frame", self.window

    def __enter__(self):
        return self

    def __exit__(self, failed, *_):
        ended = self.program.poll()
        self.program.kill() if failed else self.program.terminate()
        words = self.program.communicate()[1]
        assert failed or (ended is None and words == ""), f"it ended with {ended}; on the terminal: {words}"

    def open(self, entry, name):
        choose(self.app, entry)
        return named(self.app, name, "frame")
