# SPDX-License-Identifier: Apache-2.0
# What the AT-SPI drivers of the real window share: finding the running
# VornLink on the session's AT-SPI bus, walking its tree, acting on a node as
# a screen reader does, waiting with a bound, and the environment that keeps
# a launched window off the user's own files and out of another session's
# single instance, and the scratch folder its windows are launched from.
import os
import shutil
import subprocess
import sys
import tempfile
import time

import pyatspi
from gi.repository import GLib

# How often a walk of the tree is tried before a vanished node counts as a failure.
WALKS = 5


def fail(message):
    """Ends the driver with status 1, the message on stderr under the driver's name."""
    print("%s: %s" % (os.path.splitext(os.path.basename(sys.argv[0]))[0], message), file=sys.stderr)
    sys.exit(1)


def wait_for(what, probe, seconds=15, interval=0.1):
    """probe()'s first truthy answer, asked every interval seconds; fails after seconds."""
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        found = probe()
        if found:
            return found
        time.sleep(interval)
    fail("timed out waiting for " + what)


def nodes_of(root, keep=lambda node: True):
    """root and everything under it for which keep(node) holds, in tree order;
    walked again when a node went away meanwhile (a list the window rebuilds)."""
    for attempt in range(WALKS):
        try:
            return [node for node in walk(root) if keep(node)]
        except GLib.GError:
            if attempt == WALKS - 1:
                raise
            time.sleep(0.05)


def walk(root):
    found = []
    stack = [root]
    while stack:
        node = stack.pop()
        if node is None:
            continue
        found.append(node)
        stack.extend(reversed([child for child in node]))
    return found


def has(node, state):
    return node.getState().contains(state)


def action(node, name):
    actions = node.queryAction()
    for index in range(actions.nActions):
        if actions.getName(index) == name:
            return actions.doAction(index)
    fail("%s %r has no action %s" % (node.getRoleName(), node.name, name))


def key(keysym):
    pyatspi.Registry.generateKeyboardEvent(keysym, None, pyatspi.KEY_SYM)


def application():
    """The running VornLink on the AT-SPI bus, or None."""
    for candidate in pyatspi.Registry.getDesktop(0):
        if candidate is not None and candidate.name == "VornLink":
            return candidate
    return None


def window_environment(scratch, **extra):
    """The environment of a window launched from scratch: its own home, runtime,
    settings, data and temporary folders there, the C locale, accessibility on."""
    runtime = os.path.join(scratch, "run")
    os.makedirs(runtime, 0o700, exist_ok=True)
    environment = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", HOME=scratch, TMPDIR=scratch,
                       XDG_RUNTIME_DIR=runtime, XDG_CONFIG_HOME=os.path.join(scratch, "config"),
                       XDG_DATA_HOME=os.path.join(scratch, "data"), LANG="C.UTF-8", LC_ALL="C.UTF-8")
    environment.update(extra)
    return environment


class Scratch:
    """A scratch folder for the windows a driver launches one after another:
    their stderr goes to one log there, shown when the driver fails; on leaving,
    the window still running is ended and the folder removed.
        with Scratch() as scratch:
            window = scratch.launch([program], window_environment(scratch.folder))"""

    def __init__(self):
        self.folder = tempfile.mkdtemp()
        self.log = os.path.join(self.folder, "stderr")
        self.window = None

    def launch(self, command, environment):
        with open(self.log, "a") as log:
            self.window = subprocess.Popen(command, env=environment, cwd=self.folder, stderr=log)
        return self.window

    def __enter__(self):
        return self

    def __exit__(self, kind, error, trace):
        if kind is not None and not (kind is SystemExit and not error.code) and os.path.exists(self.log):
            with open(self.log) as log:
                print(log.read(), file=sys.stderr)
        if self.window is not None and self.window.poll() is None:
            self.window.terminate()
            self.window.wait(10)
        shutil.rmtree(self.folder, ignore_errors=True)
        return False
