"""A screen reader for the tests beside it: a bar with a home of its own, and what AT-SPI tells of it."""
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
SERVERS = ["weatherForecastURL", "weatherAirQualityURL", "weatherGeocodingURL", "hackerNewsURL", "currencyRatesURL",
           "modelServerURL"]
ENVIRONMENT = {key: value for key, value in os.environ.items() if not key.startswith("XDG_") or key == "XDG_RUNTIME_DIR"}
# Of the programs that are installed some have the same name.
ENVIRONMENT.update(HOME=HOME, XDG_DATA_DIRS=HOME, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")

CONTROLS = {pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_CHECK_BOX, pyatspi.ROLE_PAGE_TAB, pyatspi.ROLE_RADIO_BUTTON,
            pyatspi.ROLE_SLIDER, pyatspi.ROLE_SPIN_BUTTON, pyatspi.ROLE_TEXT, pyatspi.ROLE_ENTRY, pyatspi.ROLE_LINK,
            pyatspi.ROLE_LIST_ITEM, pyatspi.ROLE_MENU_ITEM, pyatspi.ROLE_COMBO_BOX}
NAMED = {pyatspi.ROLE_IMAGE, pyatspi.ROLE_CHART, pyatspi.ROLE_TABLE, pyatspi.ROLE_TABLE_CELL, pyatspi.ROLE_LIST,
         pyatspi.ROLE_PROGRESS_BAR, pyatspi.ROLE_DIALOG, pyatspi.ROLE_HEADING, pyatspi.ROLE_NOTIFICATION}
NOTHING = {pyatspi.ROLE_PANEL, pyatspi.ROLE_FILLER, pyatspi.ROLE_UNKNOWN, pyatspi.ROLE_INVALID}


def write(path, document):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w") as file:
        json.dump(document, file)


def with_bar(bar, act, **more):
    """Calls `act` while a bar runs that asks no server, and has these choices."""
    write(CHOICES, {"barAlwaysVisible": True, **dict.fromkeys(SERVERS, "http://127.0.0.1:1/"), **more})
    children = [subprocess.Popen([LAUNCHER, "--launch-immediately"]), subprocess.Popen([bar], env=ENVIRONMENT)]
    try:
        wait_for("bar in the tree", program)
        act()
    finally:
        for child in reversed(children):
            child.terminate()
            child.wait()


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


def is_in(item, state):
    return item.getState().contains(state)


def faults(window):
    """What somebody who hears the window cannot tell, each in a sentence."""
    previous = None
    for item in below(window):
        if not is_in(item, pyatspi.STATE_SHOWING):
            continue
        role, name = item.getRole(), item.name.strip()
        words = f"{item.getRoleName()} '{name}'"
        if role in CONTROLS | NAMED and not name:
            yield f"a {words} has no name"
        if role in NOTHING and is_in(item, pyatspi.STATE_FOCUSABLE):
            yield f"a {words} takes the keyboard"
        if role in CONTROLS and name and item.description and name.endswith(item.description.split("\n")[0]):
            yield f"{words} says '{item.description}' twice"
        if role in CONTROLS - {pyatspi.ROLE_LIST_ITEM} and previous == (item.parent, role, name):
            yield f"two neighbours are {words}"
        previous = (item.parent, role, name)


def look_over(window):
    found = list(faults(window))
    assert not found, f"'{window.name}': {found}"
