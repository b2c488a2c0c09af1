#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# An installed program answers --help with a usage line and status 0; run in a
# namespace of scripts/lan-harness like every run of the programs.
#   help.sh LAN_HARNESS PROGRAM
set -u
[ $# -eq 2 ] || { echo "usage: help.sh LAN_HARNESS PROGRAM" >&2; exit 2; }
output=$("$1" run -- "$2" --help 2>&1)
status=$?
printf '%s\n' "$output"
[ "$status" -eq 77 ] && exit 77
[ "$status" -eq 0 ] || { echo "help: exit status $status" >&2; exit 1; }
printf '%s\n' "$output" | grep -qi "^usage: .*${2##*/}" || { echo "help: no usage line" >&2; exit 1; }
