#!/usr/bin/env bash
# clang-tidy over one file, quiet when it is clean: tidy_file.sh BUILD_DIR FILE
set -euo pipefail
build=$1 file=$2

tidy=$(tools/lint/clang_tool.sh clang-tidy)

if output=$("$tidy" --quiet -p "$build/tidy" "$file" 2>&1); then
  touch "$build/tidy/last-${file//\//_}"
else
  printf '%s\n' "$output"
  exit 1
fi
