#!/usr/bin/env bash
# The checks that need no build.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

say() { printf '== lint: %s\n' "$*"; }

if format=$(tools/lint/clang_tool.sh clang-format); then
  say "formatting"
  tools/lint/sources.sh | xargs -0 "$format" --dry-run -Werror
fi

say "layers and lengths"
/usr/bin/python3 -m unittest -q tools/lint/test_rules.py
/usr/bin/python3 tools/lint/check_layers.py .
/usr/bin/python3 tools/lint/check_lengths.py .

say "translations"
/usr/bin/python3 tools/lint/check_translations.py

say "shell scripts"
shellcheck dev .ci/run tools/lint/*.sh packaging/*.sh bench/program/*.sh

say "desktop entry"
desktop-file-validate packaging/orvane.desktop
