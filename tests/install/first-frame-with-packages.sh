#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# The window draws its first frame with no QML modules but those of the given
# packages: a copy of the program gets a qt.conf whose QML import path holds
# only their files. Run it inside a network namespace, like first-frame.sh.
#   first-frame-with-packages.sh VORNLINK QT_PREFIX QT_PLUGINS QT_QML_DIR PACKAGE...
#   (QT_PLUGINS relative to QT_PREFIX; QT_QML_DIR absolute)
set -u
[ $# -ge 5 ] || { echo "usage: first-frame-with-packages.sh VORNLINK QT_PREFIX QT_PLUGINS QT_QML_DIR PACKAGE..." >&2; exit 2; }
program=$1 prefix=$2 plugins=$3 qtqml=$4
shift 4
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

mkdir -p "$scratch/bin" "$scratch/qml"
cp "$program" "$scratch/bin/"
printf '[Paths]\nPrefix=%s\nPlugins=%s\nQmlImports=%s\n' "$prefix" "$plugins" "$scratch/qml" >"$scratch/bin/qt.conf"
for package in "$@"; do
  dpkg-query -L "$package" | while read -r file; do
    case "$file" in
      "$qtqml"/*) [ -f "$file" ] || continue
                  mkdir -p "$scratch/qml/$(dirname "${file#"$qtqml"/}")"
                  cp "$file" "$scratch/qml/${file#"$qtqml"/}" ;;
    esac
  done
done
echo "first-frame-with-packages: QML modules only from: $*"
"$(dirname "$0")/first-frame.sh" "$scratch/bin/$(basename "$program")"
