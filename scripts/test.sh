#!/usr/bin/env bash
# Installs what is missing, builds and runs all tests; needs no display. The last line reads "N passed, N failed".
#
#   scripts/test.sh            the checks of the sources, the core's tests, the renderer's tests, the journeys on both hosts
#   scripts/test.sh --asan     the core's tests and the journeys on the scripted user, under ASan and UBSan
#   scripts/test.sh --all      both
#
# Outputs stand in build/PRESET/logs. JOBS says how many test processes run at once (as many as processors).
set -euo pipefail
cd "$(dirname "$0")/.."

plain=1
asan=0
case ${1:-} in
"") ;;
--asan) plain=0 asan=1 ;;
--all) asan=1 ;;
*)
    echo "usage: scripts/test.sh [--asan|--all]" >&2
    exit 2
    ;;
esac

export LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES='qt.qpa.*=false'
unset DISPLAY WAYLAND_DISPLAY
if [[ -z ${XDG_RUNTIME_DIR:-} ]]; then
    XDG_RUNTIME_DIR=$(mktemp -d)
    export XDG_RUNTIME_DIR
    trap 'rm -rf "$XDG_RUNTIME_DIR"' EXIT
fi
jobs=${JOBS:-$(nproc)}
passed=0
failed=0
skipped=0
names=()
pids=()

# start NAME COMMAND...: runs it in the background, its output in the log NAME, at most $jobs at once.
start() {
    local name=$1
    shift
    while (($(jobs -rp | wc -l) >= jobs)); do wait -n || true; done
    (
        status=0
        timeout 1800 "$@" >"$logs/$name.log" 2>&1 || status=$?
        echo "$status" >"$logs/$name.status"
    ) &
    names+=("$name")
    pids+=("$!")
}

# Counts the outcomes in the logs of all that was started, and shows what failed.
collect() {
    wait "${pids[@]}" || true
    local name log status ok bad left
    for name in "${names[@]}"; do
        log=$logs/$name.log
        status=$(cat "$logs/$name.status")
        case $name in
        core* | qt*)
            ok=$(grep -c '^\[       OK \]' "$log" || true)
            bad=$(grep -c '^\[  FAILED  \] .* ms)$' "$log" || true)
            left=$(grep -c '^\[  SKIPPED \] .* ms)$' "$log" || true)
            ;;
        journeys*)
            ok=$(grep -c '^ok ' "$log" || true)
            bad=$(grep -c '^FAILED ' "$log" || true)
            left=0
            ;;
        *)
            ok=$((status == 0))
            bad=0
            left=0
            ;;
        esac
        # A process that ended badly without a failed test is a failure of its own: it crashed, or ran out of time.
        if ((status != 0 && bad == 0)); then bad=1; fi
        passed=$((passed + ok)) failed=$((failed + bad)) skipped=$((skipped + left))
        if ((status != 0)); then
            echo "--- $name ended with $status"
            case $name in
            core* | qt*) grep -vE '^(\[( RUN      |       OK |----------)\]|This plugin does not support)' "$log" | tail -n 80 || true ;;
            journeys*) grep -vE '^(ok |This plugin does not support)' "$log" | tail -n 80 || true ;;
            *) tail -n 80 "$log" ;;
            esac
        else
            echo "$name: $ok passed"
        fi
    done
    names=()
    pids=()
}

# tests PRESET HOST...: the test programs of a preset and its journeys on these hosts.
tests() {
    local preset=$1 bin=build/$1/bin shard host folder
    shift
    if [[ -x $bin/bravona_tests ]]; then
        for ((shard = 0; shard < jobs; shard++)); do
            GTEST_TOTAL_SHARDS=$jobs GTEST_SHARD_INDEX=$shard start "core-$shard" "$bin/bravona_tests" --gtest_color=no
        done
    fi
    if [[ $preset == debug && -x $bin/bravona_qt_tests ]]; then
        start qt "$bin/bravona_qt_tests" --gtest_color=no
    fi
    if [[ -x $bin/bravona_journey ]]; then
        for host in "$@"; do
            for folder in tests/journeys/*/; do
                if [[ -n $(find "$folder" -name '*.journey' -print -quit 2>/dev/null) ]]; then
                    start "journeys-$host-$(basename "$folder")" "$bin/bravona_journey" --host "$host" "$folder"
                fi
            done
        done
    fi
}

# folder PRESET: an empty folder for the logs of a preset.
folder() {
    logs=build/$1/logs
    rm -rf "$logs"
    mkdir -p "$logs"
}

scripts/deps.sh
if ((plain)); then
    scripts/build.sh debug
    folder debug
    start includes scripts/check_includes.py
    start lengths scripts/check_lengths.sh
    start formatting scripts/format.sh --check
    tests debug prova qt
    collect
fi
if ((asan)); then
    export ASAN_OPTIONS=detect_stack_use_after_return=1 UBSAN_OPTIONS=print_stacktrace=1
    export LSAN_OPTIONS=suppressions=$PWD/tests/lsan.supp
    scripts/build.sh asan
    folder asan
    tests asan prova
    collect
fi

if ((skipped > 0)); then echo "$skipped skipped"; fi
echo "$passed passed, $failed failed"
((failed == 0))
