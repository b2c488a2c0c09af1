#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# Runs CMD on an X display of its own, in a D-Bus session of its own where the
# AT-SPI registry starts on demand, with a runtime folder of its own; exits
# with CMD's status. The display is the first free one from :99 on: Xvfb
# takes a display's lock file in /tmp or ends, so that sessions started at
# the same moment, also in other network namespaces, never share one (without
# a lock file, as with -displayfd, a server in another namespace takes the
# same number and replaces its socket file). The display counts as this
# session's once the lock file names its Xvfb and it answers: a socket file
# in /tmp reaches another namespace's server of the same number. -noreset: the AT-SPI bus launcher
# opens the display and closes it again; a server that resets when its last
# client leaves would refuse the window that connects in that moment.
#   display-session.sh CMD [ARG...]
set -u
[ $# -ge 1 ] || { echo "usage: display-session.sh CMD [ARG...]" >&2; exit 2; }
folder=$(mktemp -d)
xvfb=
trap 'if [ -n "$xvfb" ]; then kill "$xvfb" 2>/dev/null; wait "$xvfb" 2>/dev/null; fi; rm -rf "$folder"' EXIT
number=99
while :; do
  Xvfb ":$number" -nolisten tcp -screen 0 1280x1024x24 -noreset 2>"$folder/xvfb.log" &
  xvfb=$!
  tries=100
  until { [ "$(tr -d ' ' <"/tmp/.X$number-lock" 2>/dev/null)" = "$xvfb" ] &&
          xdpyinfo -display ":$number" >/dev/null 2>&1; } || ! kill -0 "$xvfb" 2>/dev/null; do
    tries=$((tries - 1))
    [ "$tries" -gt 0 ] || { echo "display-session: Xvfb :$number did not start" >&2; exit 1; }
    sleep 0.1
  done
  kill -0 "$xvfb" 2>/dev/null && break
  wait "$xvfb"
  xvfb=
  if ! grep -q 'already active' "$folder/xvfb.log" || [ "$number" -ge 199 ]; then
    echo "display-session: Xvfb did not start: $(tail -n 5 "$folder/xvfb.log")" >&2
    exit 1
  fi
  number=$((number + 1))
done
DISPLAY=:$number
# The AT-SPI bus launcher puts its socket in the runtime folder, without one
# in ~/.cache: this session's own folder keeps it off the user's files.
mkdir -m 700 "$folder/runtime"
XDG_RUNTIME_DIR=$folder/runtime
export DISPLAY XDG_RUNTIME_DIR
dbus-run-session -- "$@"
status=$?
exit "$status"
