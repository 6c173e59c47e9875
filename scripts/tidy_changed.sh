#!/usr/bin/env bash
# Runs the linter on the sources that differ from a commit, the headers by way of the sources that stand beside them.
#
#   scripts/tidy_changed.sh [COMMIT]
#
# Without a commit: from where this branch left the main one, or, on the main one itself, the last ten commits. Of more
# than forty sources the forty that changed last are looked at; the first line says how many of how many.
set -euo pipefail
cd "$(dirname "$0")/.."

tidy=$(command -v clang-tidy-14 || command -v clang-tidy || true)
if [[ -z $tidy ]]; then
    echo "the linter is missing: scripts/deps.sh --tidy installs it" >&2
    exit 1
fi

since=${1:-}
if [[ -z $since ]]; then
    for branch in origin/HEAD origin/main main; do
        since=$(git merge-base HEAD "$branch" 2>/dev/null || true)
        if [[ -n $since ]]; then break; fi
    done
    if [[ -z $since || $since == "$(git rev-parse HEAD)" ]]; then
        since=$(git rev-list --first-parent --max-count=11 HEAD | tail -n 1)
    fi
fi

most=40
mapfile -t changed < <(
    {
        git diff --name-only HEAD -- '*.cpp' '*.h'
        git log --format= --name-only "$since.." -- '*.cpp' '*.h'
    } | sed 's/\.h$/.cpp/' | awk '!seen[$0]++' | while IFS= read -r file; do if [[ -f $file ]]; then echo "$file"; fi; done
)
if [[ ! -f build/debug/compile_commands.json ]]; then cmake --preset debug >/dev/null; fi
# What the preset does not compile, the linter cannot read.
known=()
for file in "${changed[@]}"; do
    if grep -q "\"file\": \"$PWD/$file\"" build/debug/compile_commands.json; then known+=("$file"); fi
done
changed=("${known[@]}")
sources=("${changed[@]:0:most}")
echo "linter: ${#sources[@]} of ${#changed[@]} sources changed since ${since:0:10}"
if ((${#sources[@]} == 0)); then exit 0; fi
printf '%s\0' "${sources[@]}" |
    xargs -0 -n 1 -P "$(nproc)" "$tidy" --quiet --extra-arg=-Wno-unknown-warning-option -p build/debug \
    2> >(grep -vE '^[0-9]+ warnings? generated\.$' >&2)
