#!/usr/bin/env bash
# Prints the command of a clang tool in the release that the sources are checked with, as others judge
# otherwise: clang_tool.sh clang-format. Without that release it says so and fails.
set -euo pipefail
readonly release=14

for candidate in "$1-$release" "$1"; do
  if "$candidate" --version 2>/dev/null | grep -q "version $release\."; then
    printf '%s\n' "$candidate"
    exit
  fi
done
printf '== lint: %s skipped, its release %s is not here\n' "$1" "$release" >&2
exit 1
