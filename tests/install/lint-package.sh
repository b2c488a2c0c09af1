#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# Makes the Debian package from a configured build directory with CPack and
# passes when lintian finds neither errors nor warnings in it.
#   lint-package.sh BUILD_DIR OUTPUT_DIR
set -u
[ $# -eq 2 ] || { echo "usage: lint-package.sh BUILD_DIR OUTPUT_DIR" >&2; exit 2; }
build=$1 output=$2
rm -rf "$output"
cpack --config "$build/CPackConfig.cmake" -G DEB -B "$output" >"$output.cpack.log" 2>&1 || {
  cat "$output.cpack.log" >&2
  exit 1
}
set -- "$output"/vornlink_*.deb
[ $# -eq 1 ] && [ -f "$1" ] || { echo "lint-package: no single package in $output" >&2; exit 1; }
echo "lint-package: $1"
lintian --fail-on error,warning "$1"
