#!/usr/bin/env bash
# Formats the C++ files of the tree; with --check only tells which of them are not formatted, and fails if there are any.
set -euo pipefail
cd "$(dirname "$0")/.."

formatter=$(command -v clang-format-14 || command -v clang-format) || { echo "clang-format is missing" >&2; exit 2; }
mapfile -d '' files < <(git ls-files -z --cached --others --exclude-standard -- '*.cpp' '*.h')
existing=()
for file in "${files[@]}"; do
    if [[ -f $file ]]; then existing+=("$file"); fi
done
if ((${#existing[@]} == 0)); then exit 0; fi
if [[ ${1:-} == --check ]]; then
    "$formatter" --dry-run --Werror "${existing[@]}"
else
    "$formatter" -i "${existing[@]}"
fi
