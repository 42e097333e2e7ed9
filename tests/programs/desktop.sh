#!/bin/bash
# Plays a small game in a real window, on an X server of its own: its picture is what the window shows, pointer
# and keys reach it, a message box is a dialog, and a still scene costs little.
# desktop.sh PROGRAMS
set -euo pipefail
programs=$1
work=$(mktemp -d)
jobs=()
trap 'kill "${jobs[@]}" 2>/dev/null || true; wait; rm -rf "$work"' EXIT
cd "$work"
status=0
export LC_ALL=C.UTF-8 SDL_RENDER_DRIVER=software SDL_AUDIODRIVER=dummy
unset SDL_VIDEODRIVER WAYLAND_DISPLAY
# What the libraries of the X server keep until the end is theirs.
export ASAN_OPTIONS=detect_leaks=0${ASAN_OPTIONS:+:$ASAN_OPTIONS}

bad() { echo "$*" && status=1; }

# until COMMAND...: runs it until it succeeds, 20 seconds at most; what it prints last is printed.
until_() {
    local end=$((SECONDS + 20)) out
    while [ $SECONDS -lt $end ]; do
        if out=$("$@" 2>/dev/null) && [ -n "$out" ]; then echo "$out" && return 0; fi
        sleep 0.05
    done
    return 1
}

mkdir -p game/Dane
convert -size 320x240 gradient:'#103020'-'#F0C0A0' -rotate 0 back.png
convert -size 24x16 xc:'#E02020' -fill '#20E040' -draw 'rectangle 4,4 11,11' box.png
"$programs/tarnook-tool" image back.png game/Dane/back.img >/dev/null
"$programs/tarnook-tool" image box.png game/Dane/box.img >/dev/null
cat >game/Dane/application.def <<TEXT
OBJECT=GAME
GAME:TYPE=APPLICATION
GAME:SCENES=S
OBJECT=S
S:TYPE=SCENE
S:BACKGROUND=back.img
TEXT
# The box goes to a click, to the right with a key, down with a character; the middle button tells of it, the
# right one ends the game.
cat >game/Dane/S.cnv <<TEXT
OBJECT=BOX
BOX:TYPE=IMAGE
BOX:FILENAME=box.img
BOX:TOCANVAS=TRUE
BOX:VISIBLE=TRUE
BOX:PRIORITY=5
OBJECT=MOUSE
MOUSE:TYPE=MOUSE
MOUSE:ONCLICK^LEFT={BOX^SETPOSITION(MOUSE^GETLASTCLICKPOSX(),MOUSE^GETLASTCLICKPOSY());}
MOUSE:ONCLICK^MIDDLE={@MSGBOX("there",BOX^GETPOSITIONX());BOX^SETPOSITION(3,5);}
MOUSE:ONCLICK^RIGHT={GAME^EXIT();}
OBJECT=KEYS
KEYS:TYPE=KEYBOARD
KEYS:ONKEYDOWN^RIGHT={BOX^MOVE(50,0);}
KEYS:ONCHAR^q={BOX^MOVE(0,30);}
OBJECT=S
S:ONINIT={KEYS^SETAUTOREPEAT(FALSE);BOX^SETPOSITION(10,20);}
TEXT

tarnook() { timeout 60 "$programs/tarnook" -res 320 240 "$@" game </dev/null; }

# The pictures that the game makes of the same events without a window.
cat >events <<TEXT
3 down left 100 60
3 up left 100 60
5 keydown 205
6 keyup 205
8 char 113
10 down middle 1 1
TEXT
tarnook --headless --ticks 20 --input events --screenshot 2:start.png --screenshot 4:click.png \
    --screenshot 7:key.png --screenshot 9:char.png --screenshot 20:box.png >out
[ "$(cat out)" = "msgbox: there, 150" ] || bad "headless: $(cat out)"

# --- without a display: 4
code=0
env -u DISPLAY "$programs/tarnook" game >out 2>err </dev/null || code=$?
[ "$code" = 4 ] && [ ! -s out ] && [ "$(wc -l <err)" = 1 ] && grep -q "no display" err ||
    bad "no display: status $code, $(cat out err)"

# --- a server of its own, which stays as it is while no client is there
Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp -noreset 3>display 2>xvfb.log &
jobs+=($!)
DISPLAY=:$(until_ cat display) || { cat xvfb.log && exit 1; }
export DISPLAY
until_ xwininfo -root >/dev/null || { cat xvfb.log && exit 1; }

# opened: whether the game's window is there and takes the keys. A window may still go: that of the game before,
# or one that the library makes anew for what draws in it.
opened() { id=$(xdotool search --onlyvisible --name Tarnook) && xdotool windowfocus "$id" && same start.png; }

# shows WHAT FILE: waits until the window shows that picture, in steps of two; a failure otherwise.
same() { import -window "$id" png:- | convert - -sample 50% -depth 8 rgb:seen && cmp -s seen <(convert "$1" rgb:-) && echo yes; }
shows() { until_ same "$2" >/dev/null || { import -window "$id" seen.png; bad "$1: the window shows another picture"; }; }

# pixel X Y: the pointer goes to a pixel of the picture.
point() { xdotool mousemove --sync --window "$id" $(($1 * 2)) $(($2 * 2)); }

# spent PROCESS: of the processor, in hundredths of a second.
spent() { awk '{ print $14 + $15 }' "/proc/$1/stat"; }

# play NAME OPTION...: the game, and what a person does.
play() {
    local name=$1 began code=0 used
    shift
    "$programs/tarnook" -res 320 240 "$@" game >out 2>err </dev/null &
    local game=$!
    jobs+=($game)
    until_ opened >/dev/null || { bad "$name: no window with the first picture: $(cat err)" && return; }
    id=$(xdotool search --onlyvisible --name Tarnook)
    point 100 60
    xdotool click 1
    shows "$name, click" click.png
    xdotool key Right
    shows "$name, key" key.png
    xdotool key q
    shows "$name, character" char.png
    # A still scene: of a second that has 100 ticks the program's own time is less than 10.
    used=$(spent $game)
    sleep 1
    used=$(($(spent $game) - used))
    [ "$used" -lt 10 ] || bad "$name: a still scene takes $used % of a processor"
    point 1 1
    xdotool click 2
    answer || bad "$name: no dialog: $(cat out err)"
    shows "$name, after the box" box.png
    xdotool click 3
    [ "$status" = 0 ] || kill $game # it may be in another state
    wait $game || code=$?
    jobs=("${jobs[0]}")
    [ "$code" = 0 ] && [ ! -s out ] && [ ! -s err ] || bad "$name: status $code, $(cat out err)"
}

# The dialog is the window of that name without a class; its key is Return.
dialog() { xwininfo -root -children | awk '/"Tarnook": \(\)/ { print $1 }'; }
answer() {
    local box
    box=$(until_ dialog) || return 1
    xdotool windowfocus --sync "$box" key Return
}

play "window"
play "raw mouse" --raw-mouse

# --- ticks, rate and screenshots
began=$(date +%s%N)
tarnook --ticks 20 --rate 20 --screenshot 2:two.png >out 2>err || bad "ticks: $(cat err)"
took=$((($(date +%s%N) - began) / 1000000))
[ $took -ge 900 ] || bad "20 ticks at 20 a second took $took ms"
cmp -s <(convert two.png rgb:-) <(convert start.png rgb:-) || bad "a screenshot differs"
exit $status
