# SPDX-License-Identifier: Apache-2.0
# Sourced by the runners of the AT-SPI drivers, after they define skip(): skips
# with the reason where an X display, a D-Bus session or the AT-SPI registry
# cannot be had, and fits AddressSanitizer to a window on X11.
command -v Xvfb >/dev/null 2>&1 || skip "no Xvfb (Debian: xvfb)"
command -v xdpyinfo >/dev/null 2>&1 || skip "no xdpyinfo (Debian: x11-utils)"
command -v dbus-run-session >/dev/null 2>&1 || skip "no D-Bus session (Debian: dbus)"
[ -e /usr/share/dbus-1/services/org.a11y.Bus.service ] || skip "no AT-SPI bus (Debian: at-spi2-core)"
/usr/bin/python3 -c 'import pyatspi' 2>/dev/null || skip "no python3-pyatspi"
# Under AddressSanitizer: xkbcommon-x11 (Debian 12) hands strndup a keymap
# name without a terminating NUL, which strict string checks read past; this
# window is on the X11 platform, so its run drops those checks.
if [ -n "${ASAN_OPTIONS:-}" ]; then
  export ASAN_OPTIONS="$ASAN_OPTIONS:strict_string_checks=0"
fi
