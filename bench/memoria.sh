#!/usr/bin/env bash
# Memory of the program at rest with an archive of 100,000 documents open, against a bare main window of the toolkit: proportional set
# sizes after five idle seconds, the same plug-ins. The difference is to stay within 20 MB.
#   bench/memoria.sh [BUILD FOLDER] [DOCUMENTS]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build/release}
documenti=${2:-100000}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export QT_QPA_PLATFORM=offscreen XDG_DATA_HOME=$work/data XDG_CONFIG_HOME=$work/config

mkdir -p "$work/data/bravona/Database" "$work/config"
"$build/bin/popola_archivio" "$documenti" 1 "$work/data/bravona/Database/DBBVEURO.mdb"
ln -s Database/DBBVEURO.mdb "$work/data/bravona/dbbveuro.mdb"

# peso PROGRAM: its proportional set size in kB, at rest
peso() {
    "$1" >/dev/null 2>&1 &
    local pid=$!
    sleep 8
    awk '/^Pss:/ { print $2 }' "/proc/$pid/smaps_rollup"
    kill "$pid"
    wait "$pid" 2>/dev/null || true
}
for giro in 1 2 3; do
    nuda=$(peso "$build/bin/bravona_finestra_nuda")
    programma=$(peso "$build/bin/bravona")
    echo "run $giro: program $((programma / 1024)) MB, bare window $((nuda / 1024)) MB, difference $(((programma - nuda) / 1024)) MB (at most 20)"
done
