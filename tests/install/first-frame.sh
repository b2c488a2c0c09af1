#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# Starts an installed vornlink with its window offscreen, from an empty
# directory and a bare environment (nothing of the build tree), and passes once
# the window has drawn its first frame, without any of the named libraries in
# its memory (its site store is then a file in the empty home folder). Run it
# inside a network namespace: the window binds UDP 23457 and broadcasts.
#   first-frame.sh PREFIX/bin/vornlink [LIBRARY...]   (e.g. libpq.so, imageformats/)
set -u
[ $# -ge 1 ] || { echo "usage: first-frame.sh VORNLINK [LIBRARY...]" >&2; exit 2; }
program=$(realpath "$1")
shift
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

cd "$scratch"
env -i PATH=/usr/bin:/bin HOME="$scratch" TMPDIR="$scratch" QT_QPA_PLATFORM=offscreen \
  QT_LOGGING_RULES=vornlink.window.info=true "$program" 2>"$scratch/stderr" &
pid=$!
status=1
for _ in $(seq 300); do
  if grep -q 'vornlink.window: first frame' "$scratch/stderr"; then
    status=0
    for library in "$@"; do
      if grep -q "/$library" "/proc/$pid/maps"; then
        echo "first-frame: $library is mapped: $(grep "/$library" "/proc/$pid/maps" | head -n 1)" >&2
        status=1
      fi
    done
    break
  fi
  kill -0 "$pid" 2>/dev/null || break
  sleep 0.1
done
kill "$pid" 2>/dev/null
wait "$pid" 2>/dev/null
cat "$scratch/stderr" >&2
[ "$status" -eq 0 ] && echo "first-frame: $program drew its first frame" || echo "first-frame: no first frame from $program" >&2
exit "$status"
