"""Finds, reads and drives every control of the viewer over the accessibility bus: accessibility.py VIEWER FOLDER"""

import pyatspi
from bus import act, choose, named, start, states, until


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


main()
