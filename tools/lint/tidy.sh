#!/usr/bin/env bash
# clang-tidy over every .cpp file: tidy.sh BUILD_DIR
# What was clean is not looked at again until it, any header or the rules change.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
readonly build=$1

shared_state=$( (tools/lint/sources.sh .h | xargs -0 cat && cat .clang-tidy) | sha256sum)

clean_stamp() {
  local state
  state=$( (printf '%s' "$shared_state" && cat "$1") | sha256sum)
  printf '%s/tidy/%s-%s' "$build" "${1//\//_}" "${state%% *}"
}

needs_check=()
while IFS= read -r -d '' file; do
  if [[ ! -e $(clean_stamp "$file") ]]; then needs_check+=("$file"); fi
done < <(tools/lint/sources.sh .cpp)

mkdir -p "$build/tidy"
# Each file as it is written: without what the compiler reads beforehand for all of them.
sed -E 's/-Winvalid-pch -include [^ ]+//' "$build/compile_commands.json" >"$build/tidy/compile_commands.json"
if [[ ${#needs_check[@]} -eq 0 ]]; then exit 0; fi

clean=true
printf '%s\0' "${needs_check[@]}" |
  xargs -0 -n 1 -P "$(nproc)" tools/lint/tidy_file.sh "$build" || clean=false

for file in "${needs_check[@]}"; do
  if [[ -e $build/tidy/last-${file//\//_} ]]; then
    mv "$build/tidy/last-${file//\//_}" "$(clean_stamp "$file")"
  fi
done
$clean
