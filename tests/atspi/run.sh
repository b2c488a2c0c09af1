#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# Runs read-window.py on the real window: three simulated units on a private
# LAN of the harness, an Xvfb display, a D-Bus session with the AT-SPI
# registry. Skips (77) with the reason where one of them cannot be had.
#   run.sh LAN_HARNESS VORN_SIM VORNLINK VORNCTL
set -u
[ $# -eq 4 ] || { echo "usage: run.sh LAN_HARNESS VORN_SIM VORNLINK VORNCTL" >&2; exit 2; }
harness=$1 sim=$2 program=$3 vornctl=$4
here=$(cd "$(dirname "$0")" && pwd)
skip() { echo "atspi: skipped: $*"; exit 77; }
. "$here/session-checks.sh"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
# -noreset: the AT-SPI bus launcher opens the display and closes it again; a
# server that resets when its last client leaves would refuse the window
# that connects in that moment. python3 -B: no bytecode cache in the sources.
"$harness" run --sim-bin "$sim" --sim "--count 3 --log $scratch/sim.log" -- \
  xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" dbus-run-session -- /usr/bin/python3 -B "$here/read-window.py" "$program" "$vornctl" "$scratch/sim.log"
