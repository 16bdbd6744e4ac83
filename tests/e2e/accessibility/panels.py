#!/usr/bin/python3
"""The panels as a screen reader has them: over AT-SPI, with a bar that runs. First argument: the program.

Runs on a virtual desktop. 77 where there is no AT-SPI to speak to.
"""
import json
import os
import subprocess
import sys
import time

LAUNCHER = "/usr/libexec/at-spi-bus-launcher"
try:
    import pyatspi
except ImportError:
    sys.exit(77)
if not os.path.exists(LAUNCHER):
    sys.exit(77)

HOME = os.path.join(os.environ["XDG_RUNTIME_DIR"], "home")
CHOICES = HOME + "/.config/Ambrel/defaults.json"
os.makedirs(os.path.dirname(CHOICES))
UNREACHABLE = "http://127.0.0.1:1/"
with open(CHOICES, "w") as file:
    json.dump({"barAlwaysVisible": True, "weatherForecastURL": UNREACHABLE, "weatherAirQualityURL": UNREACHABLE,
               "modelServerURL": UNREACHABLE}, file)
ENVIRONMENT = {key: value for key, value in os.environ.items() if not key.startswith("XDG_") or key == "XDG_RUNTIME_DIR"}
ENVIRONMENT.update(HOME=HOME, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")

CONTROLS = {pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_CHECK_BOX, pyatspi.ROLE_PAGE_TAB, pyatspi.ROLE_RADIO_BUTTON,
            pyatspi.ROLE_SLIDER, pyatspi.ROLE_SPIN_BUTTON, pyatspi.ROLE_TEXT, pyatspi.ROLE_ENTRY, pyatspi.ROLE_LINK,
            pyatspi.ROLE_LIST_ITEM, pyatspi.ROLE_MENU_ITEM}


def wait_for(what, found, seconds=15):
    end = time.monotonic() + seconds
    while True:
        try:
            value = found()
        except Exception:  # of an object that is gone meanwhile
            value = None
        if value:
            return value
        if time.monotonic() > end:
            sys.exit(f"no {what}")
        time.sleep(0.02)


def below(item):
    yield item
    for index in range(item.childCount):
        child = item.getChildAtIndex(index)
        if child:
            yield from below(child)


def program():
    return next((each for each in pyatspi.Registry.getDesktop(0) if each and each.name == "tilebay"), None)


def shown(role, name):
    """The first object of that role and name that can be seen."""
    for item in below(program()):
        if item.getRole() == role and item.name == name and item.getState().contains(pyatspi.STATE_SHOWING):
            return item
    return None


def see(role, name):
    return wait_for(f"{role} '{name}'", lambda: shown(role, name))


def press(item):
    actions = item.queryAction()
    names = [actions.getName(index) for index in range(actions.nActions)]
    wanted = next(name for name in ("Press", "press", "Toggle", "toggle", "SetFocus") if name in names)
    assert actions.doAction(names.index(wanted)), f"'{item.name}' refuses {wanted}"


def choices():
    with open(CHOICES) as file:
        return json.load(file)


def look_over(panel):
    """Every control of it says what it is."""
    nameless = [item.getRoleName() for item in below(panel)
                if item.getRole() in CONTROLS and item.getState().contains(pyatspi.STATE_SHOWING) and not item.name.strip()]
    assert not nameless, f"'{panel.name}' has controls without a name: {nameless}"


def settings_are_read_and_changed():
    dialog = see(pyatspi.ROLE_DIALOG, "Settings")
    pages = ["General", "Appearance", "Tiles", "Calendars", "Buddy", "Agents", "Clipboard", "Disk", "Privacy", "Licence",
             "About"]
    for page in pages:
        press(see(pyatspi.ROLE_PAGE_TAB, page))
        wait_for(f"page {page}", lambda: see(pyatspi.ROLE_PAGE_TAB, page).getState().contains(pyatspi.STATE_CHECKED))
        look_over(dialog)
    press(see(pyatspi.ROLE_PAGE_TAB, "General"))
    switch = see(pyatspi.ROLE_CHECK_BOX, "Peek when something needs you")
    assert switch.getState().contains(pyatspi.STATE_CHECKED)
    press(switch)
    wait_for("stored choice", lambda: choices().get("barPeeksForContext") is False)
    wait_for("switch that is off", lambda: not switch.getState().contains(pyatspi.STATE_CHECKED))


def guide_leads_to_tiles():
    guide = see(pyatspi.ROLE_DIALOG, "Welcome to Tilebay")
    for _ in range(2):
        look_over(guide)
        press(see(pyatspi.ROLE_PUSH_BUTTON, "Continue"))
    tile = see(pyatspi.ROLE_CHECK_BOX, "Memory")
    assert not tile.getState().contains(pyatspi.STATE_CHECKED)
    press(tile)
    wait_for("tile that was chosen", lambda: see(pyatspi.ROLE_CHECK_BOX, "Memory").getState().contains(pyatspi.STATE_CHECKED))
    for _ in range(2):
        look_over(guide)
        press(see(pyatspi.ROLE_PUSH_BUTTON, "Continue"))
    look_over(guide)
    press(see(pyatspi.ROLE_PUSH_BUTTON, "Start"))
    wait_for("end of the guide", lambda: choices().get("welcomeDone") is True)


def panels_of_tiles_open_and_close(bar):
    subprocess.run([bar, "--toggle-agents"], env=ENVIRONMENT, check=True)
    look_over(see(pyatspi.ROLE_DIALOG, "AI Agents"))
    subprocess.run([bar, "--settings"], env=ENVIRONMENT, check=True)
    press(wait_for("tab", lambda: shown(pyatspi.ROLE_PAGE_TAB, "Tiles")))
    press(see(pyatspi.ROLE_PUSH_BUTTON, "Customize…"))
    look_over(see(pyatspi.ROLE_DIALOG, "Customize"))


def main():
    bar = sys.argv[1]
    children = [subprocess.Popen([LAUNCHER, "--launch-immediately"]), subprocess.Popen([bar], env=ENVIRONMENT)]
    try:
        wait_for("bar in the tree", program)
        guide_leads_to_tiles()
        subprocess.run([bar, "--settings"], env=ENVIRONMENT, check=True)
        settings_are_read_and_changed()
        panels_of_tiles_open_and_close(bar)
    finally:
        for child in reversed(children):
            child.terminate()
            child.wait()


main()
