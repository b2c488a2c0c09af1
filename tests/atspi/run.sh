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
# python3 -B: no bytecode cache in the sources.
"$harness" run --sim-bin "$sim" --sim "--count 3 --log $scratch/sim.log" -- \
  "$here/display-session.sh" /usr/bin/python3 -B "$here/read-window.py" "$program" "$vornctl" "$scratch/sim.log"
