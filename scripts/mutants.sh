#!/usr/bin/env bash
# Plants the faults of tests/mutants/faults.txt one by one in a copy of the sources and sees that the test named beside
# each fails. For before a release: every fault is a build of its own.
#
#   scripts/mutants.sh [WORD]     only the faults whose name or file holds the word
#
# The copy stays in build/mutants, so that the next run builds only what has changed.
set -euo pipefail
cd "$(dirname "$0")/.."

only=${1:-}
copy=$PWD/build/mutants
mkdir -p "$copy"
# Only what differs is written, so that nothing else is built; what is gone here goes there, too.
git ls-files --cached --others --exclude-standard | while IFS= read -r file; do
    if [[ -f $file ]] && ! cmp -s "$file" "$copy/$file"; then
        mkdir -p "$copy/$(dirname "$file")"
        cp --preserve=mode "$file" "$copy/$file"
    fi
done
(cd "$copy" && find . -path ./build -prune -o -type f -print) | while IFS= read -r file; do
    if [[ ! -f $file ]]; then rm "$copy/$file"; fi
done
cd "$copy"
export LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES='qt.qpa.*=false'
bin=build/debug/bin
log=$(mktemp)
trap 'rm -f "$log"' EXIT

# killers KILL...: runs the test that an entry names; its output goes to the log.
killers() {
    case $1 in
    core) timeout 300 "$bin/bravona_tests" --gtest_brief=1 --gtest_fail_fast --gtest_filter="$2" ;;
    qt) timeout 300 "$bin/bravona_qt_tests" --gtest_brief=1 --gtest_fail_fast --gtest_filter="$2" ;;
    *) timeout 300 "$bin/bravona_journey" --host prova "tests/journeys/$1.journey" ;;
    esac >"$log" 2>&1
}

# A test that fails without any fault, or a filter that holds no test, kills nothing.
kills_when_sound() {
    killers "$@" && ! grep -q '^\[==========\] 0 tests' "$log"
}

# entries DO: calls it with name, file, old, new and kill of each entry that is asked for.
entries() {
    local line name="" file="" old="" new=""
    while IFS= read -r line <&3; do
        case $line in
        "fault "*) name=${line#fault } ;;
        "in    "*) file=${line#in    } ;;
        "old   "*) old=${line#old   } ;;
        "new   "*) new=${line#new   } ;;
        "kill  "*)
            if [[ "$name $file" == *"$only"* ]]; then "$1" "$name" "$file" "$old" "$new" "${line#kill  }"; fi
            ;;
        esac
    done 3<tests/mutants/faults.txt
}

dead=0
alive=0
void=0
declare -A unsound

# An entry whose piece does not stand once, or whose test fails already.
examine() {
    local name=$1 file=$2 old=$3 kill=$5 text rest
    text=$(cat "$file" 2>/dev/null || true)
    rest=${text#*"$old"}
    if [[ $text != *"$old"* || $rest == *"$old"* ]]; then
        unsound[$name]="the piece does not stand once in $file"
    elif ! kills_when_sound $kill; then
        unsound[$name]="$kill fails without it or holds no test"
    fi
    if [[ -n ${unsound[$name]:-} ]]; then
        echo "VOID    $name: ${unsound[$name]}"
        void=$((void + 1))
    fi
}

plant() {
    local name=$1 file=$2 old=$3 new=$4 kill=$5 text target=bravona_journey
    if [[ -n ${unsound[$name]:-} ]]; then return; fi
    case $kill in
    core*) target=bravona_tests ;;
    qt*) target=bravona_qt_tests ;;
    esac
    text=$(cat "$file" && echo .)
    text=${text%.}
    printf '%s' "${text%%"$old"*}$new${text#*"$old"}" >"$file"
    if ! scripts/build.sh debug "$target" >"$log" 2>&1; then
        echo "VOID    $name: does not build"
        grep -m 3 'error' "$log" || true
        void=$((void + 1))
    elif killers $kill; then
        echo "LIVES   $name: $kill passes"
        alive=$((alive + 1))
    else
        echo "killed  $name"
        dead=$((dead + 1))
    fi
    printf '%s' "$text" >"$file"
}

set -f # filters hold stars
targets=(bravona_tests bravona_journey)
if grep -q '^kill  qt ' tests/mutants/faults.txt; then targets+=(bravona_qt_tests); fi
scripts/build.sh debug "${targets[@]}"
entries examine
entries plant

echo "$dead killed, $alive live, $void void"
((dead > 0 && alive == 0 && void == 0))
