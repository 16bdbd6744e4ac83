#!/usr/bin/python3
"""The panels as a screen reader has them: over AT-SPI, with a bar that runs. First argument: the program.

Runs on a virtual desktop. 77 where there is no AT-SPI to speak to.
"""
import subprocess
import sys

from reader import ENVIRONMENT, choices, look_over, press, pyatspi, see, shown, wait_for, with_bar


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

    def walk():
        guide_leads_to_tiles()
        subprocess.run([bar, "--settings"], env=ENVIRONMENT, check=True)
        settings_are_read_and_changed()
        panels_of_tiles_open_and_close(bar)

    with_bar(bar, walk)


main()
