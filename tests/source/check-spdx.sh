#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# Every file of the project that can carry a comment names its licence with an
# SPDX identifier. Exempt: the licence texts themselves, the changelog, the
# README, JSON data, images, fuzzer seeds and the translation files (lupdate
# rewrites them whole, comments included). Needs the git checkout to know
# which files are the project's; without one it is skipped (77).
#   check-spdx.sh SOURCE_DIR
set -eu
cd "$1"
git rev-parse --is-inside-work-tree >/dev/null 2>&1 || { echo "not a git checkout: skipped"; exit 77; }
missing=$(git ls-files | grep -v -E '^(LICENSE|README\.md|doc/changelog|packaging/copyright)$|\.(json|png|ts)$|^fuzz/corpus/' |
  while IFS= read -r file; do
    grep -q 'SPDX-License-Identifier: Apache-2.0' "$file" || echo "$file"
  done)
if [ -n "$missing" ]; then
  echo "no SPDX-License-Identifier in:"
  echo "$missing"
  exit 1
fi
