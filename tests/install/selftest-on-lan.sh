#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# An installed "vornlink --selftest" on the private LAN of scripts/lan-harness
# finds the units of the installed vorn-sim: the report must list each of them.
#   selftest-on-lan.sh LAN_HARNESS PREFIX/bin
# Exits 77 (skipped) when the harness cannot make its namespaces.
set -u
[ $# -eq 2 ] || { echo "usage: selftest-on-lan.sh LAN_HARNESS BINDIR" >&2; exit 2; }
harness=$1
bindir=$2
# The self-test records what it hears in the site store: never the user's own.
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
output=$("$harness" run --sim-bin "$bindir/vorn-sim" --sim "--count 3 --first-ip 10.232.1.1" -- \
  env XDG_DATA_HOME="$scratch/data" XDG_CONFIG_HOME="$scratch/config" "$bindir/vornlink" --selftest)
status=$?
printf '%s\n' "$output"
[ "$status" -eq 77 ] && exit 77
[ "$status" -eq 0 ] || { echo "selftest-on-lan: exit status $status" >&2; exit 1; }
printf '%s\n' "$output" | grep -qx 'selftest: 3 device(s)' || { echo "selftest-on-lan: not three units" >&2; exit 1; }
for unit in 10.232.1.1 10.232.1.2 10.232.1.3; do
  printf '%s\n' "$output" | grep -q "^  $unit  ATEM=" || { echo "selftest-on-lan: $unit missing" >&2; exit 1; }
done
