#!/usr/bin/env bash
# Configures a preset when that is due, and builds it.
#
#   scripts/build.sh PRESET [TARGET ...]
set -euo pipefail
cd "$(dirname "$0")/.."

preset=${1:?usage: scripts/build.sh PRESET [TARGET ...]}
shift
folder=build/$preset
if [[ ! -f $folder/build.ninja || CMakePresets.json -nt $folder/build.ninja ]]; then
    log=$(mktemp)
    trap 'rm -f "$log"' EXIT
    cmake --preset "$preset" >"$log" 2>&1 || { cat "$log" >&2; exit 1; }
fi
targets=()
if (($# > 0)); then targets=(--target "$@"); fi
cmake --build --preset "$preset" "${targets[@]}" -- --quiet
