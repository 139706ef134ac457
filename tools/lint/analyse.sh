#!/usr/bin/env bash
# The checks that need a finished build (generated headers, QML types): analyse.sh BUILD_DIR
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
build=$1

say() { printf '== lint: %s\n' "$*"; }

say "metadata"
appstreamcli validate --no-net "$build/packaging/orvane.metainfo.xml"

say "QML"
cmake --build "$build" --target all_qmllint

say "man page"
/usr/bin/python3 tools/lint/check_man_page.py "$build/orvane" packaging/orvane.1

if tools/lint/clang_tool.sh clang-tidy >/dev/null; then
  say "static analysis"
  tools/lint/tidy.sh "$build"
fi
