#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# The installed window as a desktop sees it, on the X display of the caller:
# its class is the menu entry's StartupWMClass (so the dock groups the window
# under the entry) and it carries an icon. Run it inside a network namespace,
# on a display of its own (tests/atspi/display-session.sh, which takes a free
# display's lock also against servers in other namespaces): the window binds
# UDP 23457 and broadcasts.
#   window-identity.sh PREFIX/bin/vornlink PREFIX/share/applications/ID.desktop
set -u
[ $# -eq 2 ] || { echo "usage: window-identity.sh VORNLINK DESKTOP_FILE" >&2; exit 2; }
program=$(realpath "$1")
expected=$(sed -n 's/^StartupWMClass=//p' "$2")
[ -n "$expected" ] || { echo "window-identity: $2 has no StartupWMClass" >&2; exit 1; }
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

cd "$scratch"
env -i PATH=/usr/bin:/bin HOME="$scratch" TMPDIR="$scratch" DISPLAY="$DISPLAY" XAUTHORITY="${XAUTHORITY:-}" \
  "$program" 2>"$scratch/stderr" &
pid=$!
window=""
for _ in $(seq 100); do
  window=$(xdotool search --classname '^vornlink$' 2>/dev/null | head -n 1)
  [ -n "$window" ] && break
  kill -0 "$pid" 2>/dev/null || break
  sleep 0.1
done
status=1
if [ -z "$window" ]; then
  echo "window-identity: no window from $program" >&2
  cat "$scratch/stderr" >&2
else
  class=$(xprop -id "$window" WM_CLASS)
  icon=$(xprop -id "$window" -f _NET_WM_ICON 32c _NET_WM_ICON | cut -d= -f2 | cut -d, -f1-2)
  echo "window-identity: $class; _NET_WM_ICON first size:$icon"
  status=0
  case "$class" in
    *", \"$expected\"") ;;
    *) echo "window-identity: the class is not \"$expected\"" >&2; status=1 ;;
  esac
  case "$icon" in
    " "[1-9]*", "[1-9]*) ;;
    *) echo "window-identity: the window has no icon" >&2; status=1 ;;
  esac
fi
kill "$pid" 2>/dev/null
wait "$pid" 2>/dev/null
exit "$status"
