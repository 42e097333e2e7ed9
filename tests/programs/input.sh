#!/bin/bash
# Plays tests/games/input headless with its events: what the game tells of pointer, keys and characters comes
# out as expected.
# input.sh PROGRAMS [--update-expected]
set -euo pipefail
programs=$1
cd "$(dirname "${BASH_SOURCE[0]}")/../games"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r input "$work/game"
timeout 60 "$programs/tarnook" --headless --ticks 100 --input input.input "$work/game" >"$work/out"
[ "${2:-}" != --update-expected ] || cp "$work/out" input.expected
diff -u input.expected "$work/out"
