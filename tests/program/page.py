"""The page of a package in a real browser: page.py YAX SAMPLES FOLDER"""
import base64
import pathlib
import subprocess
import sys

from browser import Browser

DOWN, ESCAPE = "\ue015", "\ue00c"
yax, samples, folder = sys.argv[1], pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])

# Names that a page must not take for its own text.
NAMES = ["<script>document.title='hacked'</script>", "</script><b>", "\"'&amp;&lt;", "\u0416\u4e2d\u05d0", "@STYLE@"]


def hostile_package():
    lines = ["TECHNOLOGY WIRE_BOND", "COMPL 40", "COMPW 40", "COMPZ 5"]
    for number, name in enumerate(NAMES):
        y = -12 + 6 * number
        lines += [f"CBP {name} 15 {y} {number % 3} 3 3 0 R RECTANGLE", f"SBP {name} 60 {y} 0 6 3 0 RECTANGLE 0 1",
                  f"WB {name} 15 {y} 0 60 {y} 5 0"]
    (folder / "odd.yax").write_text("\n".join(lines) + "\n")
    return folder / "odd.yax"


def page_of(package, *options):
    page = folder / (package.stem + ".html")
    meshes = folder / (package.stem + ".glb")
    for output in (page, meshes):
        subprocess.run([yax, "export", "-o", output, *options, package], check=True)
    text = page.read_bytes()
    diagram = text[text.index(b"<svg"):text.index(b"</svg>")]
    assert len(text) <= 750_000 + meshes.stat().st_size * 4 / 3 + len(diagram), f"{page.name}: {len(text)} bytes"
    return page


def about(browser):
    return browser.run("return document.getElementById('about').innerText")


def listed(browser):
    return browser.run("return [...document.querySelectorAll('[role=\"list\"] [role=\"listitem\"] span:first-child')]"
                       ".map((name) => name.textContent)")


def count(browser):
    return browser.run("return document.getElementById('count').textContent")


def switch(browser, name):
    browser.run("[...document.querySelectorAll('[role=\"switch\"]')].find((box) => "
                "box.parentElement.textContent === arguments[0]).click()", name)


def check_names(browser):
    browser.open(page_of(hostile_package(), "--unit", "mil"))
    assert browser.wait("return document.title") == "odd.yax", "a name ran"
    assert listed(browser) == NAMES, listed(browser)
    assert browser.run("return document.querySelectorAll('script').length") == 3


def check_list(browser):
    browser.open(page_of(samples / "bga332.yax", "--unit", "mm"))
    assert count(browser) == "328 of 328 wires"
    switch(browser, "Tier 1")
    without_tier = count(browser)
    switch(browser, "Power")
    switch(browser, "Ground")
    switch(browser, "Signal")
    assert without_tier != "328 of 328 wires" and count(browser) == "0 of 328 wires", without_tier
    for name in ("Tier 1", "Power", "Ground", "Signal"):
        switch(browser, name)
    browser.run("document.querySelector('[role=\"searchbox\"]').focus()")
    browser.press(*"vss_l_1")
    expected = ["VSS_L_1"] + [f"VSS_L_{number}" for number in range(10, 17)]
    assert listed(browser) == expected, listed(browser)
    browser.run("document.querySelector('[role=\"list\"] button[tabindex=\"0\"]').focus()")
    assert "VSS_L_1\n" in about(browser)
    browser.press(DOWN)
    facts = about(browser)
    for fact in ("VSS_L_10", "GROUND", "mm to ", "\u00b0"):
        assert fact in facts, facts
    browser.press("\ue007")  # Enter chooses it
    browser.run("document.activeElement.blur()")
    assert "VSS_L_10" in about(browser)
    browser.press(ESCAPE)
    assert about(browser) == ""


def met(browser, view, across):
    """The wires under a pointer that goes down the picture, in their order."""
    browser.run("[...document.querySelectorAll('button')].find((one) => one.textContent === arguments[0]).click()", view)
    box = browser.run("const box = document.getElementById('view').getBoundingClientRect();"
                      "return [box.left, box.top, box.width, box.height]")
    names = []
    for step in range(90):
        browser.point(box[0] + across * box[2], box[1] + box[3] * (0.05 + 0.01 * step))
        name = about(browser).split("\n")[1] if about(browser) else ""
        if name and name not in names:
            names.append(name)
    return names


def check_pointer(browser):
    """From above the wires of the odd package lie one below the other, to the right of the die."""
    browser.open(folder / "odd.html")
    found = met(browser, "Top", 0.65)
    assert found == NAMES[::-1], found  # the package's y points up on the screen
    over = folder / "over.yax"  # this wire lies over the die, which hides it from below
    over.write_text("TECHNOLOGY WIRE_BOND\nCOMPL 40\nCOMPW 40\nCOMPZ 5\nCBP A 15 0 0 3 3 0 R RECTANGLE\n"
                    "SBP A -15 0 0 3 3 0 RECTANGLE 0 1\nWB A 15 0 0 -15 0 5 5\n")
    browser.open(page_of(over, "--unit", "mil"))
    found = met(browser, "Top", 0.5), met(browser, "Bottom", 0.5)
    assert found == (["A"], []), found


def check_diagram(browser):
    """The second tab by keyboard, and larger."""
    browser.open(folder / "bga332.html")
    browser.run("document.getElementById('model-tab').focus()")
    browser.press("\ue014")  # arrow right
    width = "return document.querySelector('#diagram-panel svg').getBoundingClientRect().width"
    assert browser.run("return document.activeElement.id") == "diagram-tab"
    assert "VSS_L_1" in browser.run("return document.getElementById('diagram-panel').textContent")
    whole = browser.run(width)
    assert 1000 < whole < 1280, whole
    for name, factor in (("Larger", 1.5), ("Whole sheet", 1)):
        browser.run("[...document.querySelectorAll('button')].find((one) => one.textContent === arguments[0]).click()", name)
        assert abs(browser.run(width) - factor * whole) < 0.02 * whole, name


def check_paper(browser):
    paper = folder / "page.pdf"
    paper.write_bytes(base64.b64decode(browser.send("POST", "/print", {})))
    text = subprocess.run(["pdftotext", "-layout", paper, "-"], check=True, capture_output=True, text=True).stdout
    for expected in ("odd.yax", "Length (mil)", "45.73618", "@STYLE@", "Smallest opening"):
        assert expected in text, text
    assert not any(control in text for control in ("Search", "Top", "Larger"))


browser = Browser(1280, 800)
try:
    check_names(browser)
    check_list(browser)
    check_pointer(browser)
    check_diagram(browser)
    browser.open(folder / "odd.html")
    check_paper(browser)
    browser.open(page_of(samples / "flipchip-bigblade.yax", "--unit", "mm"))
    assert count(browser) == "This package has no wires."
    assert browser.messages() == [], "messages"
    others = [address for address in browser.requests() if not address.startswith(("file:", "data:"))]
    assert others == [], others
finally:
    browser.close()
