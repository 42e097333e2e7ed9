#!/bin/bash
# Plays tests/games/walk headless from its start to its exit, twice: the boxes come out as expected, the
# second run finds the settings that the first one kept, and a third from a fresh copy gives the same bytes.
# walk.sh PROGRAMS [--update-expected]
set -euo pipefail
programs=$1
cd "$(dirname "${BASH_SOURCE[0]}")/../games"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

walk() { timeout 60 "$programs/tarnook" --headless --ticks 1000 --input walk.input "$work/$1"; }

cp -r walk "$work/one" && cp -r walk "$work/two"
walk one >"$work/first" && walk one >"$work/second" && walk two >"$work/again"
if [ "${2:-}" = --update-expected ]; then
    cp "$work/first" walk.expected
fi
diff -u walk.expected "$work/first"
cmp "$work/first" "$work/again"
diff -u <(sed '1s/1/2/' walk.expected) "$work/second"
