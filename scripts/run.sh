#!/usr/bin/env bash
# Installs what is missing, builds the program and starts it. Arguments and environment reach the program.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)

"$root/scripts/deps.sh"
"$root/scripts/build.sh" release bravona programma
exec "$root/build/release/bin/bravona" "$@"
