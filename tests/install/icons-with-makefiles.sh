#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# The project configured with the default generator (Unix Makefiles), as a
# plain "cmake -S . -B build && cmake --build build" does, builds its icons.
# Usage: icons-with-makefiles.sh CMAKE SOURCE_DIR APP_ID
set -eu
cmake=$1 source=$2 app_id=$3
build=$(mktemp -d)
trap 'rm -rf "$build"' EXIT
"$cmake" -S "$source" -B "$build" -G "Unix Makefiles" >"$build/configure.log" 2>&1 \
    || { cat "$build/configure.log"; exit 1; }
"$cmake" --build "$build" --target vorn_icons >"$build/build.log" 2>&1 \
    || { cat "$build/build.log"; exit 1; }
for size in 16 24 32 48 64 128 256; do
    png="$build/data/icons/${size}x${size}/$app_id.png"
    [ -s "$png" ] || { echo "missing $png"; exit 1; }
    # A PNG starts with its eight-byte signature.
    [ "$(head -c 8 "$png" | od -An -tx1 | tr -d ' \n')" = 89504e470d0a1a0a ] || { echo "not a PNG: $png"; exit 1; }
done
echo "7 icons built with Unix Makefiles"
