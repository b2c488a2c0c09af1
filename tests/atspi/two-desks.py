#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
# One of two workstations of a site, driven through AT-SPI as a screen reader
# would: vornlink runs on this desk's X display and D-Bus session, stores on
# the site's server (desk a names it with --site, desk b with VORNLINK_SITE,
# the password from ~/.pgpass) and has the unit at 10.232.1.2 selected. The
# two drivers take turns through files in TURNS:
#   b shows the unit's History tab;
#   a flips Wire2 and saves; b must list that save, named as made on desk-a;
#   a shows its History tab;
#   b saves Wire2 as a left it plus one step of the Tally type; a must list
#   that save, named as made on desk-b, with the Tally type as its only change;
#   both then read the same list.
# Each desk prints how long after a Save press the entry was first read in
# its own History and in the other desk's (polled every 50 ms, so up to that
# much later than it appeared); the save itself settles when the unit is
# asked again 1.5 s after the write.
# two-desks.sh starts it inside a LAN of the harness whose simulator holds
# the same three units as the other desk's, under its own host name.
#   two-desks.py a|b VORNLINK SITE_URI PGPASS TURNS [SHOTS_DIR]
# With SHOTS_DIR a screenshot of the display goes there as desk-a.png or
# desk-b.png once the other desk's save is listed.
import os
import pwd
import re
import shutil
import subprocess
import sys
import time

try:
    import pyatspi
except ImportError:
    print("two-desks: python3-pyatspi is missing: skipped")
    sys.exit(77)

from gi.repository import GLib

from atspikit import Scratch, action, application, fail, has, nodes_of, wait_for, window_environment

UNIT = "10.232.1.2"
ROW = re.compile(r"^KT400 \u00b7(\w{6}), (10\.232\.1\.[123]), online$")
TIME = re.compile(r"^\d{4}-\d\d-\d\d \d\d:\d\d:\d\d$")
# How long the other desk's save may take to be listed; the figure printed is what counts.
LISTED_WITHIN = 10
TURN_WITHIN = 90


def saved_by(host):
    """The cause of a save from a window of this user on host; its verdict as group 1."""
    user = pwd.getpwuid(os.geteuid()).pw_name
    return re.compile(r"^Saved from VornLink by %s on %s \u00b7 (.+)$" % (re.escape(user), re.escape(host)))


class Turns:
    """Files in a folder both desks see: one desk posts a turn, the other awaits it."""

    def __init__(self, folder, desk):
        self.folder, self.desk = folder, desk
        self.other = "b" if desk == "a" else "a"

    def post(self, name, text=""):
        path = os.path.join(self.folder, name)
        with open(path + ".part", "w") as part:
            part.write(text)
        os.replace(path + ".part", path)

    def wait(self, name, seconds=TURN_WITHIN):
        path = os.path.join(self.folder, name)
        failed = os.path.join(self.folder, "failed-" + self.other)

        def posted():
            if os.path.exists(failed):
                fail("desk %s failed; stopping" % self.other)
            if os.path.exists(path):
                with open(path) as turn:
                    return [turn.read()]
            return None

        return wait_for("desk %s's turn %r" % (self.other, name), posted, seconds, 0.05)[0]


class Window:
    """The running window's AT-SPI tree."""

    def __init__(self, shots):
        self.app = wait_for("the VornLink application on the AT-SPI bus", application, 30)
        self.shots = shots

    def shoot(self, name):
        """Leaves a screenshot of the display as NAME.png in the shots folder, if there is one."""
        if self.shots:
            subprocess.run(["import", "-window", "root", os.path.join(self.shots, name + ".png")], check=True)

    def nodes(self, role=None, name=None, showing=True):
        return nodes_of(self.app, lambda node: (role is None or node.getRoleName() == role)
                        and (name is None or node.name == name)
                        and (not showing or has(node, pyatspi.STATE_SHOWING)))

    def one(self, role, name):
        found = self.nodes(role, name)
        if len(found) != 1:
            fail("%d %s named %r on screen, not one" % (len(found), role, name))
        return found[0]

    def tab(self, name):
        tab = wait_for("the %s tab" % name, lambda: self.nodes("page tab", name))[0]
        action(tab, "Press")
        wait_for("the %s tab to be selected" % name, lambda: has(tab, pyatspi.STATE_SELECTED))

    def history(self):
        """The History tab's entries, newest first, as (time, cause, changes); None while it is not on screen."""
        try:
            panels = self.nodes("panel", "Configuration history")
            if len(panels) != 1:
                return None
            entries = []
            for label in nodes_of(panels[0]):
                if label.getRoleName() != "label":
                    continue
                text = label.name or ""
                if TIME.match(text):
                    entries.append([text, "", ""])
                elif entries and not entries[-1][1]:
                    entries[-1][1] = text
                elif entries:
                    entries[-1][2] = text
            return [tuple(entry) for entry in entries]
        except GLib.GError:  # a node went away while the list was read again
            return None

    def wire2(self):
        self.tab("Communication")
        return wait_for("the Wire2 switch", lambda: self.nodes("check box", "Wire2"))[0]

    def save(self):
        """Presses Save changes; the time of the press."""
        button = self.one("push button", "Save changes")
        pressed = time.monotonic()
        action(button, "Press")
        return pressed


def select_unit(window):
    """Waits for the three units to be listed online and selects the one at UNIT; its serial."""
    def rows():
        found = [node for node in window.nodes("list item") if ROW.match(node.name or "")]
        return found if len(found) == 3 else None

    listed = wait_for("three units listed online", rows, 30)
    row = next((row for row in listed if ROW.match(row.name).group(2) == UNIT), None)
    if row is None:
        fail("no row for %s among %s" % (UNIT, [row.name for row in listed]))
    action(row, "Press")
    wait_for("the unit's row to be selected", lambda: has(row, pyatspi.STATE_SELECTED))
    for alert in window.nodes("alert"):
        if alert.name:
            fail("the footer says %r" % alert.name)
    return ROW.match(row.name).group(1)


def show_history(window, probe, what):
    window.tab("History")
    return wait_for(what, lambda: probe(window.history() or []), LISTED_WITHIN, 0.05)


def show_own_save(window, desk, pressed):
    """Shows the History tab and waits for this desk's save to be listed first."""
    own = saved_by("desk-" + desk)
    show_history(window, lambda entries: entries and own.match(entries[0][1]),
                 "desk %s's own save in its History" % desk)
    print("two-desks: %s's save in its own History after %.0f ms" % (desk.upper(), (time.monotonic() - pressed) * 1000))


def await_save(window, turns, host, what):
    """Waits for the other desk's Save press, then for its save in this History; the entry."""
    pressed = float(turns.wait("saved-" + turns.other))
    match = saved_by(host)
    entry = wait_for(what, lambda: next((e for e in window.history() or [] if match.match(e[1])), None),
                     LISTED_WITHIN, 0.05)
    latency = (time.monotonic() - pressed) * 1000
    print("two-desks: %s's save in %s's History after %.0f ms: %s | %s"
          % (turns.other.upper(), turns.desk.upper(), latency, entry[1], entry[2].replace("\n", "; ")))
    if match.match(entry[1]).group(1) != "confirmed":
        fail("the save is listed as %r, not confirmed" % entry[1])
    window.shoot("desk-%s" % turns.desk)
    return entry


def desk_a(window, turns):
    turns.wait("watching-b")
    switch = window.wire2()
    was_on = has(switch, pyatspi.STATE_CHECKED)
    action(switch, "Toggle")
    wait_for("the switch to flip", lambda: has(switch, pyatspi.STATE_CHECKED) != was_on)
    pressed = window.save()
    turns.post("saved-a", repr(pressed))
    print("two-desks: desk a saved Wire2 %s" % ("off" if was_on else "on"))
    turns.post("wire2", "0" if was_on else "1")

    # Its own save listed first, then it waits for desk b's.
    show_own_save(window, "a", pressed)
    turns.post("watching-a")
    entry = await_save(window, turns, "desk-b", "desk b's save in desk a's History")
    changes = entry[2].split("\n")
    if len(changes) != 1 or not changes[0].startswith("TallyType: "):
        fail("desk b's save changed %s, not the Tally type alone" % changes)


def desk_b(window, turns):
    entries = show_history(window, lambda entries: entries, "the unit's history")
    turns.post("watching-b")
    entry = await_save(window, turns, "desk-a", "desk a's save in desk b's History")
    wire2 = turns.wait("wire2")
    if entry[2] != "Wire2Enable: %s \u2192 %s" % ("0" if wire2 == "1" else "1", wire2):
        fail("desk a's save is listed with the changes %r" % entry[2])
    listed = window.history() or []
    if len(listed) != len(entries) + 1:
        fail("after desk a's save the History lists %s" % listed)

    # This desk's simulator did not hear desk a's write (each desk has a
    # simulator of its own standing in for the one unit): Wire2 is set as
    # desk a left it, so that the Tally type is what this save changes.
    turns.wait("watching-a")
    switch = window.wire2()
    if has(switch, pyatspi.STATE_CHECKED) == (wire2 == "1"):
        fail("desk b's own unit already reports Wire2 as desk a left it")
    action(switch, "Toggle")
    wait_for("the switch to flip", lambda: has(switch, pyatspi.STATE_CHECKED) == (wire2 == "1"))
    window.tab("Tally")
    stepper = wait_for("the Tally type stepper",
                       lambda: [node for node in window.nodes("spin button") if (node.name or "").startswith("type ")])[0]
    buttons = [node for node in nodes_of(stepper)
               if node.getRoleName() == "push button" and has(node, pyatspi.STATE_ENABLED)]
    if not buttons:
        fail("the Tally type stepper has no open direction")
    before = stepper.name
    action(buttons[-1], "Press")  # Increase where it is open, else Decrease
    wait_for("the Tally type to step", lambda: stepper.name != before)
    pressed = window.save()
    turns.post("saved-b", repr(pressed))
    print("two-desks: desk b saved Tally type %r (was %r) and Wire2 as desk a left it" % (stepper.name, before))
    show_own_save(window, "b", pressed)


def main():
    if len(sys.argv) not in (6, 7) or sys.argv[1] not in ("a", "b"):
        print("usage: two-desks.py a|b VORNLINK SITE_URI PGPASS TURNS [SHOTS_DIR]", file=sys.stderr)
        return 2
    desk, program, uri, pgpass, folder = sys.argv[1:6]
    shots = sys.argv[6] if len(sys.argv) == 7 else ""
    turns = Turns(folder, desk)
    try:
        with Scratch() as scratch:
            run_desk(desk, program, uri, pgpass, turns, shots, scratch)
    except BaseException as ending:
        if not isinstance(ending, SystemExit) or ending.code:
            turns.post("failed-" + desk)
        raise
    return 0


def run_desk(desk, program, uri, pgpass, turns, shots, scratch):
    # The password where a user keeps it: ~/.pgpass, readable by its owner only.
    own_pgpass = os.path.join(scratch.folder, ".pgpass")
    shutil.copyfile(pgpass, own_pgpass)
    os.chmod(own_pgpass, 0o600)
    if desk == "a":
        window = scratch.launch([program, "--site", uri], window_environment(scratch.folder))
    else:
        window = scratch.launch([program], window_environment(scratch.folder, VORNLINK_SITE=uri))
    shown = Window(shots)
    serial = select_unit(shown)
    print("two-desks: desk %s on %s shows KT400 %s at %s" % (desk, os.uname().nodename, serial, UNIT))
    (desk_a if desk == "a" else desk_b)(shown, turns)
    listed = shown.history()
    turns.post("listed-" + desk, repr(listed))
    other = turns.wait("listed-" + turns.other)
    if repr(listed) != other:
        fail("the two History tabs differ:\n  %s\n  %s" % (listed, other))
    print("two-desks: desk %s lists %d versions, as desk %s does" % (desk, len(listed), turns.other))
    turns.post("done-" + desk)
    turns.wait("done-" + turns.other)
    window.terminate()
    window.wait(15)


if __name__ == "__main__":
    sys.exit(main())
