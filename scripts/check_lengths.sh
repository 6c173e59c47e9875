#!/usr/bin/env bash
# No source file grows beyond 600 lines.
set -euo pipefail
cd "$(dirname "$0")/.."

find . -path ./build -prune -o \( -name "*.cpp" -o -name "*.h" \) -exec wc -l {} + |
    awk '$2 != "total" && $1 > 600 { print $2 ": " $1 " lines, more than 600"; bad = 1 } END { exit bad }'
