#!/usr/bin/env bash
# Prints the C++ files of the repository, each followed by a zero byte; `sources.sh .cpp` prints only
# those with that ending.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
ending=${1:-}

find core platform app ui preview packaging testing tests bench fuzz -type f \
  \( -name "*${ending:-.cpp}" -o -name "*${ending:-.h}" \) -print0 | sort -z
