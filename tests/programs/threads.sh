#!/bin/bash
# Plays a game with all the threads that there are: the loudspeaker's, the one that polls devices and the timer
# that streams music, while sounds come and go and scenes change. A build with the thread sanitizer tells of
# races; any build must get through.
# threads.sh PROGRAMS
set -euo pipefail
programs=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
export SDL_VIDEODRIVER=dummy SDL_AUDIODRIVER=dummy SDL_RENDER_DRIVER=software
export TSAN_OPTIONS=halt_on_error=0:exitcode=66${TSAN_OPTIONS:+:$TSAN_OPTIONS}

mkdir -p game/Dane game/Wavs
# A stream of a second and a half loops; packed and plain sounds begin over it.
sox -n -r 22050 -c 2 -b 16 game/Wavs/music.wav synth 1.5 sine 330
sox -n -r 22050 -c 1 -b 16 game/Wavs/other.wav synth 0.7 sine 220
sox -n -r 22050 -c 1 -b 8 game/Wavs/beep.wav synth 0.1 sine 880
cat >game/Dane/application.def <<TEXT
OBJECT=GAME
GAME:TYPE=APPLICATION
GAME:EPISODES=E
OBJECT=E
E:TYPE=EPISODE
E:SCENES=A,B
E:MUSIC=Wavs\\music.wav
OBJECT=A
A:TYPE=SCENE
OBJECT=B
B:TYPE=SCENE
B:MUSIC=Wavs\\other.wav
TEXT
for scene in A B; do
    cat >"game/Dane/$scene.cnv" <<TEXT
OBJECT=BEEP
BEEP:TYPE=SOUND
BEEP:FILENAME=beep.wav
OBJECT=LOOPS
LOOPS:TYPE=INTEGER
OBJECT=$scene
$scene:ONMUSICLOOPED={LOOPS^INC();BEEP^STOP();}
OBJECT=T
T:TYPE=TIMER
T:ELAPSE=40
T:ENABLED=TRUE
T:ONTICK={BEEP^PLAY();BEEP^SETPAN(50);$scene^SETMUSICVOLUME(80);}
OBJECT=KEYS
KEYS:TYPE=KEYBOARD
KEYS:ONKEYDOWN={BEEP^STOP();}
OBJECT=JOY
JOY:TYPE=JOYSTICK
OBJECT=NEXT
NEXT:TYPE=TIMER
NEXT:ELAPSE=400
NEXT:ENABLED=TRUE
TEXT
done
echo 'NEXT:ONTICK={E^NEXT();}' >>game/Dane/A.cnv
echo 'NEXT:ONTICK={E^PREV();}' >>game/Dane/B.cnv
timeout 100 "$programs/tarnook" -res 320 240 --raw-mouse --rate 100 --ticks 400 game >out 2>&1 </dev/null || {
    echo "status $?"
    cat out
    exit 1
}
[ ! -s out ] || { cat out && exit 1; }
