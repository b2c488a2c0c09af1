#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# Every screenshot the metadata links is kept in the given folder (the files
# to publish at the link's address).
#   check-screenshots.sh METAINFO SCREENSHOT_DIR
set -u
[ $# -eq 2 ] || { echo "usage: check-screenshots.sh METAINFO SCREENSHOT_DIR" >&2; exit 2; }
names=$(sed -n 's|.*<image>.*/\([^/]*\)</image>.*|\1|p' "$1")
[ -n "$names" ] || { echo "check-screenshots: $1 links no screenshot" >&2; exit 1; }
for name in $names; do
  [ -f "$2/$name" ] || { echo "check-screenshots: $name is not in $2" >&2; exit 1; }
done
echo "check-screenshots:" $names
