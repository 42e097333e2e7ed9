#!/bin/bash
# What the program says and answers: exit statuses, one line for each mistake, events of an input file.
# host.sh PROGRAMS
set -euo pipefail
programs=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
status=0

tarnook() { timeout 60 "$programs/tarnook" "$@"; }

# says STATUS WORDS OPTION...: nothing on standard output, one line with these words on standard error.
says() {
    local wanted=$1 words=$2 code=0
    shift 2
    tarnook "$@" >out 2>err </dev/null || code=$?
    [ "$code" = "$wanted" ] && [ ! -s out ] && [ "$(wc -l <err)" = 1 ] && grep -qF -- "$words" err ||
        { echo "tarnook $*: status $code, wanted $wanted with '$words': $(cat out err)" && status=1; }
}

# prints STATUS LINES OPTION...: exactly these lines (of printf) on standard output.
prints() {
    local wanted=$1 lines=$2 code=0
    shift 2
    tarnook "$@" >out 2>err </dev/null || code=$?
    [ "$code" = "$wanted" ] && diff <(printf "$lines") out >/dev/null ||
        { echo "tarnook $*: status $code, wanted $wanted with '$lines': $(cat out err)" && status=1; }
}

# game FOLDER: a game that counts its timer's ticks, one each tick, and leaves at the 20th.
game() {
    mkdir -p "$1/Dane"
    cat >"$1/Dane/application.def" <<TEXT
OBJECT=GAME
GAME:TYPE=APPLICATION
GAME:SCENES=S
OBJECT=S
S:TYPE=SCENE
TEXT
    cat >"$1/Dane/S.cnv" <<TEXT
OBJECT=T
T:TYPE=TIMER
T:ENABLED=TRUE
T:ELAPSE=10
T:ONTICK={@MSGBOX(T^GETTICKS());}
T:ONTICK^20={GAME^EXIT();}
OBJECT=S
S:ONINIT={@IF(SYSTEM^ISCMDLINEPARAMETER("mine"),"_",TRUE,{@MSGBOX("mine",SYSTEM^GETCMDLINEPARAMETER("mine"));},"");}
TEXT
}

# --- wrong options: 2
game good
says 2 "--nosuch" --nosuch good
says 2 "--nosuch" --headless good --nosuch
says 2 "--ticks" --headless good --ticks
says 2 "--ticks" --headless --ticks 0 good
says 2 "--ticks" --headless --ticks ten good
says 2 "--step" --headless --step -5 good
says 2 "--seed" --headless --seed 0 good
says 2 "--depth" --headless --depth 24 good
says 2 "--rate" --headless --rate 0 good
says 2 "--disc" --headless --disc nowhere good
for shot in x 5 5: :x.png 0:x.png -1:x.png 5x:x.png; do says 2 "TICK:FILE.png" --headless --screenshot "$shot" good; done
says 2 "--input requires --headless" --input events good
says 2 "--audio requires --headless" --audio x.wav good
says 2 "--headless excludes --raw-mouse" --headless --raw-mouse good
says 2 "--step requires --headless" --step 5 good
says 2 "can't read the input file nowhere" --headless --input nowhere good
says 2 "can't read the input file good" --headless --input good good

# --- no game: 3
mkdir -p none empty/Dane scenes/Dane
touch file empty/Dane/application.def
printf 'OBJECT=S\nS:TYPE=SCENE\n' >scenes/Dane/application.def
says 3 "no such folder: nowhere" --headless nowhere
says 3 "no such folder: file" --headless file
says 3 "no such folder: /no/where" --headless /no/where
says 3 "no such folder: /nowhere" --headless /nowhere
looked="looked for Dane/application.def with an element of TYPE APPLICATION"
says 3 "no game in $PWD: $looked" --headless
for folder in none empty scenes; do says 3 "no game in $PWD/$folder: $looked" --headless "$folder"; done
mkdir good/sub && says 3 "no game in $PWD/good/sub: $looked" --headless -path sub good

# --- it ends: 0
first=$(printf 'msgbox: %d\\n' {1..5})
prints 0 "$first" --headless --ticks 6 good
prints 0 "$(printf 'msgbox: %d\\n' {1..19})" --headless good
prints 0 "$first" --headless --step 10 --ticks 6 good
prints 0 "" --headless --step 0 --ticks 50 good
prints 0 "msgbox: mine, yours\n" --headless -mine yours --ticks 1 good
prints 0 "msgbox: mine, \n" --headless good /mine --ticks 1
prints 0 "$first" -window -res 640 480 --headless -nosound good -log -path . --ticks 6
[ -s good/Tarnook.log ] || { echo "no log" && status=1; }
cd good && prints 0 "$first" --headless --ticks 6 && cd ..
for options in --help --version --describe; do
    tarnook $options >out 2>err && [ -s out ] && [ ! -s err ] || { echo "tarnook $options" && status=1; }
done
for option in $(tarnook --help | grep -o -- "--[a-z-]*[a-z]" | sort -u); do
    case $option in
    --headless | --ticks | --step | --seed | --depth | --input | --screenshot | --audio | --config | --archive | \
        --rate | --raw-mouse | --disc | --check | --describe | --help | --version) ;;
    *) echo "unknown option in the help: $option" && status=1 ;;
    esac
done

# Where SDL shows nothing, a desktop's boxes go to the terminal.
SDL_VIDEODRIVER=dummy tarnook --ticks 3 --rate 50 good </dev/null >out 2>err && [ ! -s out ] && grep -q '\] 1$' err ||
    { echo "desktop: $(cat out err)" && status=1; }

# --- what was heard: ten steps of 40 ms, two channels of 16 bits behind a head of 44 bytes
tarnook --headless --ticks 11 --step 40 --audio x.wav good >out 2>err
[ ! -s err ] && [ "$(stat -c %s x.wav)" = $((44 + 400 * 22050 / 1000 * 4)) ] ||
    { echo "audio: $(cat err) $(stat -c %s x.wav)" && status=1; }

# --- a next game that isn't one: 3, after what came before
game second
sed -i 's/T:ONTICK^20.*/T:ONTICK^3={GAME^RELOAD("sub");}/' second/Dane/S.cnv
prints 0 "$(printf 'msgbox: %d\\n' 1 2 4 5)" --headless --ticks 6 second
mkdir second/sub
prints 3 "$(printf 'msgbox: %d\\n' 1 2)" --headless --ticks 6 second
grep -qF "no game in $PWD/second/sub: $looked" err || { echo "next game: $(cat err)" && status=1; }

# --- input: wrong lines are told and left out, the others come
cat >events <<TEXT
# comment
  
3 focus off # behind an event
6 focus on
nonsense
0 close
-1 close
1.5 close
7
7 jump 1
7 move
7 move 5
7 move 5 x
7 move 5 6 7
7 down 5 6
7 down middle 5
7 keydown 256
7 char -1
7 focus
7 focus maybe
5 close
99999999999999999999 close
7 move 99999999999 0
10 close
TEXT
prints 0 "$(printf 'msgbox: %d\\n' 1 {2..5})" --headless --input events good
diff - err <<TEXT || status=1
tarnook: events:5: nonsense is no tick: they count from 1; left out
tarnook: events:6: 0 is no tick: they count from 1; left out
tarnook: events:7: -1 is no tick: they count from 1; left out
tarnook: events:8: 1.5 is no tick: they count from 1; left out
tarnook: events:9: no event behind the tick; left out
tarnook: events:10: unknown event jump; left out
tarnook: events:11: move wants x and y behind move; left out
tarnook: events:12: move wants x and y behind 5; left out
tarnook: events:13: move wants x and y, not x; left out
tarnook: events:14: 7 is too much; left out
tarnook: events:15: down wants left, middle or right, not 5; left out
tarnook: events:16: down wants x and y behind 5; left out
tarnook: events:17: keydown wants a number up to 255, not 256; left out
tarnook: events:18: char wants a number up to 255, not -1; left out
tarnook: events:19: focus wants on or off behind focus; left out
tarnook: events:20: focus wants on or off, not maybe; left out
tarnook: events:21: tick 5 stands behind tick 6: they must rise; left out
tarnook: events:22: 99999999999999999999 is no tick: they count from 1; left out
tarnook: events:23: move wants x and y, not 99999999999; left out
TEXT
exit $status
