#!/usr/bin/env bash
# Every measurement: run_all.sh BUILD_DIR
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
readonly build=$1

for program in "$build"/bench/*_benchmark; do
  printf '== %s\n' "${program##*/}"
  "$program" --benchmark_counters_tabular=true
done
printf '== shown figures beside true ones\n'
/usr/bin/python3 bench/program/true_figures.py "$build"
printf '== the running program\n'
/usr/bin/python3 bench/program/measure.py "$build"
