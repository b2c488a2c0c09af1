#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# Every Qt QML module that the window's QML files import comes from one of the
# packages the Debian package depends on by hand (the library scan cannot see
# QML imports).
#   check-qml-imports.sh QML_SOURCE_DIR PROJECT_QML_DIR QT_QML_DIR PACKAGE...
# PROJECT_QML_DIR holds the project's own modules (built into the program).
set -u
[ $# -ge 4 ] || { echo "usage: check-qml-imports.sh QML_SOURCE_DIR PROJECT_QML_DIR QT_QML_DIR PACKAGE..." >&2; exit 2; }
sources=$1 own=$2 qtqml=$3
shift 3
modules=$(sed -n 's/^import \([A-Za-z][A-Za-z0-9.]*\).*/\1/p' "$sources"/*.qml | sort -u)
failures=0
for module in $modules; do
  path=$(echo "$module" | tr . /)
  [ -f "$own/$path/qmldir" ] && continue
  qmldir="$qtqml/$path/qmldir"
  if [ ! -f "$qmldir" ]; then
    echo "check-qml-imports: $module is imported but not installed here ($qmldir)" >&2
    failures=$((failures + 1))
    continue
  fi
  package=$(dpkg-query -S "$qmldir" | cut -d: -f1)
  case " $* " in
    *" $package "*) echo "check-qml-imports: $module from $package" ;;
    *) echo "check-qml-imports: $module comes from $package, which the package does not depend on" >&2
       failures=$((failures + 1)) ;;
  esac
done
[ "$failures" -eq 0 ]
