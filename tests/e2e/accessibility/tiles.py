#!/usr/bin/python3
"""Every tile of the catalogue as a screen reader has it, and every window that one opens. Arguments: the program and
tilebayctl.

Runs on a virtual desktop. 77 where there is no AT-SPI to speak to.
"""
import json
import re
import subprocess
import sys
import uuid

from reader import (HOME, below, faults, is_in, press, program, pyatspi, see, wait_for, with_bar, write)
from gi.repository import GLib

BAR, CTL = sys.argv[1:]
# What these open comes only after a picture of the screen was taken.
SLOW = {"screenshot", "screenNotes", "colorPicker"}
found = []


def check(holds, what):
    if not holds:
        found.append(what)


def windows():
    """Those that are for the keyboard; messages are not."""
    return [each for each in program() if each and is_in(each, pyatspi.STATE_SHOWING)
            and pyatspi.ROLE_NOTIFICATION not in [item.getRole() for item in each if item]]


def tiles():
    bar = next(item for window in windows() for item in window if item.getRole() == pyatspi.ROLE_TOOL_BAR)
    return [item for item in bar if item and re.search(r"\d+ of \d+$", item.description)]


def new_window(before, whose):
    return wait_for(f"window of {whose}", lambda: next(
        each for each in windows() if each not in before and is_in(each, pyatspi.STATE_ACTIVE)))


def opened(tile, widget):
    """The window that the tile's first action opens; None when it does something else."""
    before = windows()
    action = tile.queryAction()
    if tile.getRole() == pyatspi.ROLE_LABEL:
        check(action.getName(0) == "SetFocus", f"{widget} is only read, and offers {action.getName(0)}")
        return None
    check(action.getName(0) in ("Press", "Toggle"), f"{widget}: its first action is {action.getName(0)}")
    action.doAction(0)
    # A window is there when the action has returned.
    return new_window(before, widget) if widget in SLOW or len(windows()) > len(before) else None


def look_into(window, widget):
    if widget == "colorPicker":
        return check(re.fullmatch("rgb.*, Color Picker", window.name), f"the loupe says '{window.name}'")
    if widget == "disk":
        press(see(pyatspi.ROLE_PUSH_BUTTON, "Scan Home"))
        see(pyatspi.ROLE_LIST, "Findings")
    wait_for(f"keyboard in the window of {widget}",
             lambda: any(is_in(item, pyatspi.STATE_FOCUSED) for item in below(window)))
    found.extend(f"{widget}: {fault}" for fault in faults(window))


def takes_keys(window):
    """Whether the X server sends keys to it: a window that is shown again is focused for Qt a moment earlier."""
    title = subprocess.check_output(["xdotool", "getwindowfocus", "getwindowname"], text=True)
    return window.name.endswith(title.removesuffix(" — Tilebay\n"))


def close(window, whose):
    wait_for(f"keys for the window of {whose}", lambda: takes_keys(window))
    subprocess.run(["xdotool", "key", "Escape"], check=True)
    if whose == "screenNotes":
        press(see(pyatspi.ROLE_PUSH_BUTTON, "Close the review"))
    wait_for(f"end of the window of {whose}", lambda: window not in windows())


def every_tile_is_heard_and_pressed(widgets):
    count = 0
    for widget, tile in zip(widgets, wait_for("tiles", lambda: len(tiles()) == len(widgets) and tiles())):
        found.extend(f"{widget}: {fault}" for fault in faults(tile))
        window = opened(tile, widget)
        if window:
            count += 1
            look_into(window, widget)
            close(window, widget)
    check(count > 60, f"only {count} tiles have opened something")


def menu_of_a_tile_leads_on(tile):
    before = windows()
    place = tile.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    subprocess.run(["xdotool", "mousemove", str(place.x + 9), str(place.y + 9), "click", "3", "mousemove", "8", "8"], check=True)
    found.extend(f"menu: {fault}" for fault in faults(new_window(before, "menu")))
    press(see(pyatspi.ROLE_MENU_ITEM, "Customize Dock…"))
    close(new_window(before, "gallery"), "gallery")


def each_message_is_announced_once(tile):
    """Also the second one, which takes the place of the first."""
    heard = []

    def hear(event):
        if event.detail1 and event.source.getRole() == pyatspi.ROLE_NOTIFICATION:
            heard.append(event.source.name)

    def heard_all(count):
        GLib.MainContext.default().iteration(False)
        return len(heard) >= count

    pyatspi.Registry.registerEventListener(hear, "object:state-changed:showing")
    for count in 1, 2:
        tile.queryAction().doAction(0)
        wait_for(f"announcement {count}", lambda: heard_all(count))
    heard_all(3)
    check(len(heard) == 2 and all(name.startswith("Copied, ") for name in heard), f"messages are announced as {heard}")


def a_message_stays_clear_of_a_panel(tiles_of):
    def extents(item):
        return item.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)

    def message():
        return next((item for each in program() if each and is_in(each, pyatspi.STATE_SHOWING)
                     for item in each if item.getRole() == pyatspi.ROLE_NOTIFICATION), None)

    panel = opened(tiles_of("emoji"), "emoji")
    tiles_of("uuid").queryAction().doAction(0)
    inside, box = extents(wait_for("message", message)), extents(panel[0])
    check(inside.y + inside.height <= box.y or inside.x >= box.x + box.width or inside.x + inside.width <= box.x,
          f"a message at {inside} is over the panel at {box}")
    close(panel, "emoji")


def main():
    widgets = [each["id"] for each in json.loads(subprocess.check_output([CTL, "widgets", "--json"]))]
    new_id = lambda: str(uuid.uuid4()).upper()
    write(HOME + "/.local/share/Ambrel/profiles.json",
          [{"id": new_id(), "name": "All", "items": [{"id": new_id(), "widget": each} for each in widgets]}])

    def walk():
        every_tile_is_heard_and_pressed(widgets)
        menu_of_a_tile_leads_on(tiles()[0])
        tiles_of = lambda widget: tiles()[widgets.index(widget)]
        each_message_is_announced_once(tiles_of("uuid"))
        a_message_stays_clear_of_a_panel(tiles_of)

    with_bar(BAR, walk, welcomeDone=True, buddyAdded=True, buddyCategories=["agents"])
    sys.exit("\n".join(found) or 0)


main()
