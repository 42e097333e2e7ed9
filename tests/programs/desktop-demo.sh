#!/bin/bash
# The demo game in a real window, on an X server of its own, played by a pointer and keys from its title to its end and
# out of it. What was reached is told by the window's picture; the pictures to wait for come from the recorded game.
# desktop-demo.sh PROGRAMS
set -euo pipefail
programs=$1
root=$PWD
work=$(mktemp -d)
jobs=()
trap 'kill "${jobs[@]}" 2>/dev/null || true; wait; rm -rf "$work"' EXIT
cd "$work"
export LC_ALL=C.UTF-8 SDL_RENDER_DRIVER=software SDL_AUDIODRIVER=dummy
unset SDL_VIDEODRIVER WAYLAND_DISPLAY
# What the libraries of the X server keep until the end is theirs.
export ASAN_OPTIONS=detect_leaks=0${ASAN_OPTIONS:+:$ASAN_OPTIONS}

fail() {
    echo "$*"
    cat out err 2>/dev/null || true
    tail -20 game/Tarnook.log 2>/dev/null || true
    exit 1
}

# within SECONDS COMMAND...: runs it again and again until it succeeds.
within() {
    local end=$((SECONDS + $1))
    shift
    until "$@" 2>/dev/null; do
        [ $SECONDS -lt $end ] || return 1
        sleep 0.2
    done
}

python3 "$root/demo/make.py" "$programs/tarnook-tool" game >made || { cat made && fail "the demo can't be made"; }

# Pictures of the recorded game, and the places of them that stand still while what is waited for lasts.
shots=()
names=(15:title 60:cottage 515:taken 600:jetty 1120:oil 1250:sea 1400:crossing 2920:lamproom 3110:poured 3440:end)
for shot in "${names[@]}"; do shots+=(--screenshot "${shot%%:*}:${shot#*:}.png"); done
"$programs/tarnook" --headless --ticks 3450 --input "$root/demo/demo.input" "${shots[@]}" game >out 2>err || fail "headless: $?"
rm -f game/settings.ini
declare -A place=([title]=214x56+153+459 [cottage]=100x40+60+40 [taken]=40x30+40+543 [jetty]=100x40+430+545
    [oil]=40x30+118+543 [sea]=60x20+400+300 [crossing]=40x60+750+300 [lamproom]=60x40+720+500 [poured]=40x30+118+543 [end]=110x30+345+245)

Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp -noreset 3>display 2>xvfb.log &
jobs+=($!)
within 30 test -s display || fail "$(cat xvfb.log)"
DISPLAY=:$(cat display)
export DISPLAY
within 30 eval 'xwininfo -root >/dev/null' || fail "$(cat xvfb.log)"

"$programs/tarnook" game -log >out 2>err </dev/null &
game=$!
jobs+=($game)

# The window may be made anew by the library at any time, so it is looked up for whatever is done to it.
window() { id=$(xdotool search --onlyvisible --name Tarnook | tail -1) && [ -n "$id" ]; }

for name in "${!place[@]}"; do convert "$name.png" -crop "${place[$name]}" +repage -depth 8 "rgb:$name.rgb"; done

# shows NAME: whether the window shows that picture at its place.
shows() {
    kill -0 $game || fail "the game has ended before $1"
    window && import -window "$id" -crop "${place[$1]}" -depth 8 rgb:seen.rgb && cmp -s seen.rgb "$1.rgb"
}

press() { window && xdotool windowfocus "$id" mousemove --window "$id" "$1" "$2" click 1; }

# A hold that begins at X Y and is let go at X Y, with moves between.
drag() {
    window && xdotool windowfocus "$id" mousemove --window "$id" "$1" "$2" mousedown 1
    local i
    for i in 1 2 3 4; do
        xdotool mousemove --window "$id" $(($1 + ($3 - $1) * i / 4)) $(($2 + ($4 - $2) * i / 4)) sleep 0.1
    done
    xdotool mouseup 1
}

# reach NAME SECONDS ACTION...: does it, again after a while, until the window shows that picture.
reach() {
    local name=$1 seconds=$2 try
    shift 2
    for try in 1 2 3 4; do
        "$@" 2>/dev/null || true
        within "$seconds" shows "$name" && return 0
    done
    fail "not reached: $name"
}

within 60 shows title || fail "no title"
reach cottage 10 press 250 410
reach taken 20 press 596 196
reach jetty 20 press 722 330
reach oil 30 press 410 365
reach crossing 30 press 700 500

# The panel of the help goes with the first key, so that the sea is seen where it was; the trip takes 23 seconds.
steer() { window && xdotool windowfocus "$id" keydown Left sleep 0.5 keyup Left; }
reach sea 5 steer
within 90 shows lamproom || fail "not reached: lamproom"
reach poured 15 drag 138 557 400 400
reach end 15 drag 60 560 400 400

# Once more, and good night.
reach title 10 press 400 260
code=0
for try in 1 2 3 4; do
    press 260 487 2>/dev/null || true
    within 5 eval '! kill -0 $game' && break
done
kill -0 $game 2>/dev/null && fail "it doesn't end"
wait $game || code=$?
jobs=("${jobs[0]}")
[ "$code" = 0 ] && [ ! -s out ] && [ ! -s err ] || fail "status $code"
! grep "script:\|Failed" game/Tarnook.log || fail "the log tells of something that isn't there"
