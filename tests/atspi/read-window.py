#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
# The real window as a screen reader meets it and drives it: vornlink runs
# on the caller's X display and D-Bus session, and everything here goes
# through AT-SPI. The unit rows and the status line are read by name, a row
# is chosen through its Press action, the tab list is read and the
# Communication tab chosen through its Press action, Tab moves the focus
# from the last tab into the shown tab's first field, the Wire2 switch is
# read, flipped through its Toggle action and saved through the Press action
# of "Save changes"; the simulator's log must hold that write, and the unit
# must report the new value to vornctl once the window has ended. Then the
# window starts again as LANG=de_DE.UTF-8: German tabs and status line, and
# the unit and tab it was left on.
# run.sh starts it inside the LAN harness with three simulated units logging
# to SIMLOG, under display-session.sh (an X display, then a D-Bus session in
# which the AT-SPI registry sees that display).
#   read-window.py VORNLINK VORNCTL SIMLOG
import os
import json
import re
import subprocess
import sys

try:
    import pyatspi
except ImportError:
    print("read-window: python3-pyatspi is missing: skipped")
    sys.exit(77)

from atspikit import Scratch, action, application, fail, has, key, nodes_of, wait_for, window_environment

ROW = re.compile(r"^KT400 \u00b7\w{6}, (10\.232\.1\.[123]), online$")


def writes_to(log, address):
    """The Key:Value pairs of every write the simulator received for address."""
    writes = []
    if not os.path.exists(log):
        return writes
    with open(log) as lines:
        for line in lines:
            record = json.loads(line)
            if record.get("dst") != address:
                continue
            text = bytes.fromhex(record["bytes"]).decode("latin-1")
            pairs = dict(item.split(":", 1) for item in text.split("\n") if ":" in item)
            if "Wire2Enable" in pairs:
                writes.append(pairs)
    return writes


def main():
    if len(sys.argv) != 4:
        print("usage: read-window.py VORNLINK VORNCTL SIMLOG", file=sys.stderr)
        return 2
    program, vornctl, simlog = sys.argv[1], sys.argv[2], sys.argv[3]
    # Its own runtime, settings and temporary folders: a window of another
    # session (single instance) must not take this launch over.
    with Scratch() as scratch:
        environment = window_environment(scratch.folder)
        window = scratch.launch([program], environment)
        address, wire2 = read_and_drive(simlog)
        end_window(window)
        # The unit itself, asked once the window has let go of the port.
        reported = unit_reports(vornctl, address, environment).get("config", {}).get("Wire2Enable")
        if reported != wire2:
            fail("the unit at %s reports Wire2Enable=%s, not %s" % (address, reported, wire2))
        print("read-window: the unit at %s reports Wire2Enable=%s" % (address, reported))
        # Started again as LANG=de_DE.UTF-8 starts it, on the same settings.
        german = dict(environment, LANG="de_DE.UTF-8")
        del german["LC_ALL"]
        window = scratch.launch([program], german)
        read_again(address)
        end_window(window)
    return 0


def end_window(window):
    """Ends the window (SIGTERM) and waits for it; what it remembers was written when it changed."""
    window.terminate()
    try:
        window.wait(15)
    except subprocess.TimeoutExpired:
        fail("the window did not end on SIGTERM")


def read_again(address):
    """The restarted window, in German, on the unit and the tab it was left on."""
    def tabs():
        app = application()
        found = [node for node in nodes_of(app) if node.getRoleName() == "page tab"] if app else []
        return found if len(found) == 5 else None

    tab_list = wait_for("the restarted window's editor", tabs)
    names = [tab.name for tab in tab_list]
    print("read-window: after the restart in German: tabs %s" % names)
    if names != ["Tally", "Kommunikation", "Netzwerk", "Details", "Verlauf"]:
        fail("the tabs are not the German ones: %s" % names)
    selected = [tab.name for tab in tab_list if has(tab, pyatspi.STATE_SELECTED)]
    if selected != ["Kommunikation"]:
        fail("after the restart the selected tab is %s, not the one left" % selected)
    app = application()
    rows = [node for node in nodes_of(app) if node.getRoleName() == "list item" and has(node, pyatspi.STATE_SELECTED)]
    if len(rows) != 1 or ROW.match(rows[0].name or "") is None or ROW.match(rows[0].name).group(1) != address:
        fail("after the restart the selected row is %s, not the unit at %s" % ([row.name for row in rows], address))
    status = [node.name for node in nodes_of(app) if node.getRoleName() == "status bar"]
    if len(status) != 1 or not status[0].startswith("empfängt auf 23457"):
        fail("status line after the restart: %r" % status)
    print("read-window: after the restart %r is selected, the status line reads %r" % (rows[0].name, status[0]))


def read_and_drive(simlog):
    app = wait_for("the VornLink application on the AT-SPI bus", application)

    def rows():
        found = [node for node in nodes_of(app) if node.getRoleName() == "list item" and ROW.match(node.name or "")]
        return found if len(found) == 3 else None

    listed = wait_for("three unit rows", rows)
    for row in listed:
        print("read-window: row %r" % row.name)
    status = [node for node in nodes_of(app) if node.getRoleName() == "status bar"]
    if len(status) != 1 or not status[0].name.startswith("listening on 23457"):
        fail("status line: %r" % [node.name for node in status])
    print("read-window: status line %r" % status[0].name)

    # The second row, chosen through its action.
    chosen = listed[1]
    address = ROW.match(chosen.name).group(1)
    action(chosen, "Press")
    wait_for("the pressed row to be selected", lambda: has(chosen, pyatspi.STATE_SELECTED))

    def tabs():
        found = [node for node in nodes_of(app) if node.getRoleName() == "page tab"]
        return found if found else None

    tab_list = wait_for("the editor's tabs", tabs)
    names = [tab.name for tab in tab_list]
    print("read-window: tabs %s" % names)
    for expected in ("Tally", "Communication", "Network", "Details", "History"):
        if expected not in names:
            fail("no tab %r among %s" % (expected, names))
    if len(names) != 5:
        fail("%d tabs, not 5: %s" % (len(names), names))
    if not has(tab_list[0], pyatspi.STATE_SELECTED):
        fail("the first tab is not the selected one")

    def switch():
        found = [node for node in nodes_of(app)
                 if node.getRoleName() == "check box" and node.name == "Wire2" and has(node, pyatspi.STATE_SHOWING)]
        return found[0] if found else None

    if switch():
        fail("the Wire2 switch is on screen before its tab is chosen")
    # The Communication tab, switched to through its action.
    communication = tab_list[names.index("Communication")]
    action(communication, "Press")
    wait_for("the Communication tab to be selected", lambda: has(communication, pyatspi.STATE_SELECTED))
    if has(tab_list[0], pyatspi.STATE_SELECTED):
        fail("the Tally tab is still selected")
    wire2 = wait_for("the Wire2 switch on screen", switch)
    was_on = has(wire2, pyatspi.STATE_CHECKED)
    print("read-window: Wire2 is %s" % ("on" if was_on else "off"))

    # Tab goes through the tabs, then into the fields of the shown one.
    last = tab_list[-1]
    action(last, "SetFocus")
    wait_for("the focus on the last tab", lambda: has(last, pyatspi.STATE_FOCUSED))
    key(0xFF09)  # Tab

    def focused():
        found = [node for node in nodes_of(app) if has(node, pyatspi.STATE_FOCUSED)]
        return found[0] if found and found[0] is not last else None

    after_tab = wait_for("the focus to move on Tab", focused)
    print("read-window: after Tab the focus is on %s %r" % (after_tab.getRoleName(), after_tab.name))
    if after_tab.getRoleName() != "text" or after_tab.name != "Channel":
        fail("Tab from the last tab went to %s %r, not the Communication tab's Channel field"
             % (after_tab.getRoleName(), after_tab.name))

    # Flipped and saved through the actions; the unit must receive the write.
    before = len(writes_to(simlog, address))
    action(wire2, "Toggle")
    wait_for("the switch to flip", lambda: has(wire2, pyatspi.STATE_CHECKED) != was_on)
    save = [node for node in nodes_of(app)
            if node.getRoleName() == "push button" and node.name == "Save changes" and has(node, pyatspi.STATE_SHOWING)]
    if len(save) != 1:
        fail("no single Save changes button")
    action(save[0], "Press")
    sent = wait_for("the write to reach %s" % address, lambda: writes_to(simlog, address)[before:])
    expected = "0" if was_on else "1"
    if sent[-1].get("Wire2Enable") != expected:
        fail("the unit received Wire2Enable=%s, not %s" % (sent[-1].get("Wire2Enable"), expected))
    print("read-window: %s received Wire2Enable=%s" % (address, expected))
    print("read-window: the AT-SPI tree holds %d objects" % len(nodes_of(app)))
    return address, expected


def unit_reports(vornctl, address, environment):
    """What the unit at address reports now, asked by vornctl."""
    shown = subprocess.run([vornctl, "--no-site", "show", address, "--json"], env=environment,
                           capture_output=True, text=True, timeout=30)
    if shown.returncode != 0:
        fail("vornctl show %s: %s" % (address, shown.stderr.strip()))
    return json.loads(shown.stdout)


if __name__ == "__main__":
    sys.exit(main())
