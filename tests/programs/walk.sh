#!/bin/bash
# Plays tests/games/walk headless from its start to its exit, twice: the boxes come out as expected, the
# second run finds the settings that the first one kept, and a third from a fresh copy gives the same bytes.
# walk.sh PROGRAMS [--update-expected]
set -euo pipefail
programs=$1
cd "$(dirname "${BASH_SOURCE[0]}")/../games"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

walk() { timeout 60 "$programs/tarnook" --headless --ticks 1000 "$work/$1"; }

cp -r walk "$work/one" && cp -r walk "$work/two"
walk one >"$work/first" && walk one >"$work/second" && walk two >"$work/again"
if [ "${2:-}" = --update-expected ]; then
    cp "$work/first" walk.expected
fi
diff -u walk.expected "$work/first"
cmp "$work/first" "$work/again"
diff -u <(sed '1s/1/2/' walk.expected) "$work/second"

# A line for what isn't there, and the exit status that belongs to it.
fails() {
    local status=$1 words=$2 line code=0
    shift 2
    line=$("$programs/tarnook" "$@" 2>&1) || code=$?
    [ "$code" = "$status" ] && [ "$(wc -l <<<"$line")" = 1 ] && grep -q -- "$words" <<<"$line" ||
        { echo "tarnook $*: status $code: $line" && exit 1; }
}
fails 2 "nosuch" --nosuch
fails 2 "TICK:FILE" --headless --screenshot x "$work/one"
fails 3 "no such folder" --headless "$work/none"
mkdir "$work/empty" && fails 3 "application.def" --headless "$work/empty"
mkdir -p "$work/blank/Dane" && touch "$work/blank/Dane/application.def" && fails 3 "application.def" --headless "$work/blank"

# Input: wrong lines are told and left out, closing ends the game.
printf '1 move 1 2\nnonsense\n3 close # now\n2 keydown 28\n' >"$work/input"
"$programs/tarnook" --headless --input "$work/input" "$work/two" >/dev/null 2>"$work/told"
grep -q 'input:2: is no event' "$work/told" && grep -q 'input:4: comes too late' "$work/told"
