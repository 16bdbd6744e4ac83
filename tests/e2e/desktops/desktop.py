#!/usr/bin/python3
"""The bar at home on a desktop: beside its panel, windows in full screen, workspaces and the keyboard. Arguments: the
program and tilebayctl. Runs on a virtual desktop that has a panel at the lower edge.

With AMBREL_SHOTS=FOLDER, a picture of the screen where something does not hold.
"""
import itertools
import json
import os
import subprocess
import sys
import time
import uuid

BAR, CTL = sys.argv[1:]
HOME = os.path.join(os.environ["XDG_RUNTIME_DIR"], "home")
TYPED = HOME + "/typed"
ENVIRONMENT = {key: value for key, value in os.environ.items() if not key.startswith("XDG_") or key == "XDG_RUNTIME_DIR"}
ENVIRONMENT["HOME"] = HOME
FILL = (20, 64, 96)
HEIGHT, PANEL = 900, 30
letters = itertools.count()
children = []
failed = []


def out(*command):
    return subprocess.run(command, env=ENVIRONMENT, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout


def spawn(*command):
    children.append(subprocess.Popen(command, env=ENVIRONMENT))
    return children[-1]


def end(child):
    child.terminate()
    child.wait()


def expect(what, holds, seconds=8):
    deadline = time.monotonic() + seconds
    while not holds():
        if time.monotonic() > deadline:
            failed.append(what)
            if "AMBREL_SHOTS" in os.environ:
                out("import", "-silent", "-window", "root", f"{os.environ['AMBREL_SHOTS']}/{what.replace(' ', '-')}.png")
            return
        time.sleep(0.05)


def write(path, document):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w") as file:
        json.dump(document, file)


def expect_keyboard_at_terminal(when):
    letter = chr(ord("a") + next(letters))

    def arrives():
        out("xdotool", "type", letter)
        with open(TYPED) as file:
            return letter in file.read()

    expect(f"the keyboard is at the terminal {when}", arrives)


def bar():
    """Its window, which can be another one after a while; 0 while it is not there."""
    return int((out("xdotool", "search", "--onlyvisible", "--name", "^Tilebay$").split() or [0])[0])


def frame():
    """The x, y, width and height of the bar's window; None while it is not there."""
    place = dict(line.split(b"=") for line in out("xdotool", "getwindowgeometry", "--shell", str(bar())).split())
    return [int(place[key]) for key in (b"X", b"Y", b"WIDTH", b"HEIGHT")] if place else None


def slab():
    """The color of the bar below its tiles; None while it is not there."""
    place = frame()
    x, y = (place[0] + place[2] // 2, sum(place[1::2]) - 12) if place else (0, 0)
    return color(x, y) if place and color(x, y) == color(x + 9, y) else None


def color(x, y):
    return tuple(out("import", "-silent", "-window", "root", "-crop", f"1x1+{x}+{y}", "-depth", "8", "rgb:-"))


def keyboard():
    return int(out("xdotool", "getwindowfocus") or 0)


def key(name):
    out("xdotool", "key", name)


def stays_beside_its_panel():
    expect("it is above the panel at its edge", lambda: sum(frame()[1::2]) <= HEIGHT - PANEL)
    expect_keyboard_at_terminal("when the bar has come")


def leave(window):
    """By Escape; the bar may have the keyboard a moment before it listens."""
    expect("Escape gives the keyboard back", lambda: key("Escape") or keyboard() != window)


def gets_and_returns_the_keyboard():
    terminal = keyboard()
    key("ctrl+alt+super+d")
    expect("a key brings the bar the keyboard", lambda: keyboard() == bar())
    leave(bar())
    expect_keyboard_at_terminal("after Escape")
    x, y, width, height = frame()
    out("xdotool", "mousemove", str(x + width // 2 - 30), str(y + height - 40), "click", "1")
    expect("a click opens a panel, which has the keyboard", lambda: keyboard() not in (terminal, bar()))
    leave(keyboard())
    expect_keyboard_at_terminal("when a panel has closed")


def gives_the_keyboard_back_from_the_shelf():
    terminal = keyboard()
    key("super+alt+v")
    expect("a key opens the shelf, which has the keyboard", lambda: keyboard() not in (terminal, bar()))
    leave(keyboard())
    expect_keyboard_at_terminal("when the shelf has closed")


def leaves_full_screens_alone(is_there):
    filler = spawn("xterm", "-fullscreen", "-bg", "#%02x%02x%02x" % FILL, "-e", "sleep", "99")
    expect("a window is in full screen", lambda: color(1200, 300) == FILL)
    # Some window managers bring a new window forward at a click alone.
    out("xdotool", "mousemove", "1200", "300", "click", "1")
    expect("it covers the bar", lambda: slab() in (None, FILL))
    key("ctrl+alt+super+d")
    expect("a key brings the bar over it", lambda: slab() not in (None, FILL) and keyboard() == bar())
    leave(bar())
    expect("the bar goes again", lambda: slab() in (None, FILL))
    end(filler)
    expect("the bar comes back when it has closed", is_there)
    expect_keyboard_at_terminal("when a window in full screen has closed")


def is_on_every_workspace(is_there):
    if int(out("xdotool", "get_num_desktops") or 1) < 2:
        return
    out("xdotool", "set_desktop", "1")
    expect("another workspace is shown", lambda: out("xdotool", "get_desktop").strip() == b"1")
    expect("the bar is on it", is_there)
    out("xdotool", "set_desktop", "0")
    expect("the first one is shown again", lambda: out("xdotool", "get_desktop").strip() == b"0")


def comes_by_the_pointer(is_there):
    out(CTL, "settings", "set", "barAlwaysVisible", "false")
    out("xdotool", "mousemove", "300", "300")
    expect("the bar hides", lambda: not is_there())
    out("xdotool", "mousemove", "800", str(HEIGHT - 1))
    expect("the pointer at the edge brings it", is_there)
    out("xdotool", "mousemove", "300", "300")
    expect("it goes with the pointer", lambda: not is_there())
    expect_keyboard_at_terminal("meanwhile")


def main():
    new_id = lambda: str(uuid.uuid4()).upper()
    write(HOME + "/.config/Ambrel/defaults.json",
          {"welcomeDone": True, "buddyAdded": True, "barAlwaysVisible": True, "buddyCategories": ["agents"]})
    write(HOME + "/.local/share/Ambrel/profiles.json",
          [{"id": new_id(), "name": "All", "items": [{"id": new_id(), "widget": each} for each in ("water", "clock")]}])
    # What is typed into the terminal is in the file at once.
    spawn("xterm", "-geometry", "60x20+200+150", "-e", f"stty -icanon -echo min 1; exec cat >{TYPED}")
    expect("a terminal comes", lambda: os.path.exists(TYPED))
    out("xdotool", "mousemove", "300", "300", "click", "1")
    spawn(BAR)
    try:
        # Before that it shows windows by which it gets to know the window manager.
        expect("the bar answers", lambda: b"true" in out(
            "dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus", "/", "org.freedesktop.DBus.NameHasOwner",
            "string:dev.qorvin.ambrel"))
        seen = [None]
        expect("the bar stays", lambda: seen.append((frame(), slab())) or seen[-1][1] and seen[-1] == seen[-2])
        is_there = lambda: slab() == seen[-1][1]
        stays_beside_its_panel()
        gets_and_returns_the_keyboard()
        gives_the_keyboard_back_from_the_shelf()
        leaves_full_screens_alone(is_there)
        is_on_every_workspace(is_there)
        comes_by_the_pointer(is_there)
    finally:
        for child in reversed(children):
            end(child)
    sys.exit("\n".join(failed) or 0)


main()
