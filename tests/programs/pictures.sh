#!/bin/bash
# An animation made of PNG files by the tool, played headless at both depths: what a scene's scripts hear of it,
# in order, and the pixels that are seen.
# pictures.sh PROGRAMS
set -euo pipefail
programs=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

# A picture of 2 x 2 pixels of one 16-bit word and one alpha: two bytes of each in printf's octal.
picture() {
    { printf 'TNK\0\2\0\0\0\2\0\0\0\20\0\0\0\10\0\0\0\0\0\0\0\0\0\0\0\4\0\0\0\0\0\0\0\0\0\0\0'
      printf "$2$2$2$2$3$3$3$3"; } >one.img
    "$programs/tarnook-tool" image one.img "$1"
}
mkdir -p frames game/Dane/S
picture frames/walk_0.png '\0\370' '\377'  # red
picture frames/walk_1.png '\340\7' '\377'  # green
picture frames/walk_2.png '\37\0' '\377'   # blue
picture frames/haze_0.png '\377\377' '\200' # half white
picture ground.png '\40\10' '\377'         # 1, 1, 0 of 31, 63, 31: bands at neither depth

cat >frames/animation.txt <<'END'
event ONCE
show walk_0.png
show walk_1.png name last
event TWICE loop 1 2 2
show walk_0.png
show walk_1.png
show walk_2.png
event HAZE opacity 128
show haze_0.png at 5 6
END
cat >game/Dane/application.def <<'END'
OBJECT=G
G:TYPE=APPLICATION
G:EPISODES=E
OBJECT=E
E:TYPE=EPISODE
E:SCENES=S
OBJECT=S
S:TYPE=SCENE
S:PATH=S
END
cat >game/Dane/S/S.cnv <<'END'
OBJECT=GROUND
GROUND:TYPE=IMAGE
GROUND:FILENAME=ground.img
GROUND:TOCANVAS=TRUE
GROUND:VISIBLE=TRUE
OBJECT=A
A:TYPE=ANIMO
A:FILENAME=a.ann
A:TOCANVAS=TRUE
A:VISIBLE=TRUE
A:PRIORITY=2
A:FPS=10
A:ONSTARTED={@MSGBOX("started");}
A:ONSTARTED^TWICE={@MSGBOX("startedTWICE");}
A:ONFINISHED={@MSGBOX("finished");}
A:ONFINISHED^ONCE={@MSGBOX("finishedONCE");A^PLAY("TWICE");}
A:ONFRAMECHANGED={N^SET(A^GETFRAME());@MSGBOX("frame",N);}
A:ONFRAMECHANGEDFRAME^last={@MSGBOX("last");}
A:ONFRAMECHANGEDFRAME^2={@MSGBOX("entry2");}
OBJECT=N
N:TYPE=INTEGER
OBJECT=C
C:TYPE=BOOL
OBJECT=H
H:TYPE=ANIMO
H:FILENAME=a.ann
H:TOCANVAS=TRUE
H:VISIBLE=TRUE
H:PRIORITY=1
OBJECT=__INIT__
__INIT__:TYPE=BEHAVIOUR
__INIT__:CODE={H^SETFRAME("HAZE",0);H^SETPOSITION(-5,-6);N^SET(H^GETALPHA(0,1,1));@MSGBOX("alpha",N);N^SET(H^GETPIXEL(3,1,1));@MSGBOX("word",N);C^SET(H^ISAT(1,1,TRUE));@MSGBOX("at",C);A^SETPOSITION(20,30);A^PLAY("ONCE");}
END
# haze_0 is frame 0, walk_0 to walk_2 are 1 to 3. The loop of two entries runs twice, and the step behind its
# end stays on the last entry. Pixels are told before the first frame is drawn.
cat >expected <<'END'
msgbox: alpha, 128
msgbox: word, 31
msgbox: at, TRUE
msgbox: frame, 1
msgbox: started
msgbox: frame, 2
msgbox: last
msgbox: finishedONCE
msgbox: frame, 1
msgbox: startedTWICE
msgbox: frame, 2
msgbox: frame, 3
msgbox: entry2
msgbox: frame, 2
msgbox: frame, 3
msgbox: entry2
msgbox: finished
msgbox: frame, 3
msgbox: entry2
END

# pixel X Y: the word of the raw picture shot.img.
pixel() { od -An -tu2 -j $((40 + (800 * $2 + $1) * 2)) -N2 shot.img | tr -d ' '; }
is() { [ "$(pixel "$1" "$2")" = "$3" ] || { echo "depth $depth: pixel $1 $2 is $(pixel "$1" "$2"), not $3"; exit 1; }; }

for depth in 15 16; do
    { echo "depth $depth"; cat frames/animation.txt; } >game/text
    cp -r frames deep && mv game/text deep/animation.txt
    "$programs/tarnook-tool" anim deep game/Dane/S/a.ann >/dev/null
    rm -r deep
    "$programs/tarnook-tool" image ground.png game/Dane/S/ground.img --depth $depth
    timeout 60 "$programs/tarnook" --headless --depth $depth --ticks 120 --screenshot 2:shot.png game >told
    diff -u expected told
    "$programs/tarnook-tool" image shot.png shot.img --compression raw --depth $depth
    # White over the ground with alpha 128 under opacity 128: the weight is 128 * 128 >> 8, a quarter.
    if [ $depth = 15 ]; then
        is 0 0 $((8 << 10 | 7 << 5 | 7))
        is 20 30 $((31 << 10))
    else
        is 0 0 $((8 << 11 | 16 << 5 | 7))
        is 20 30 $((31 << 11))
    fi
    is 2 0 0 # beside both
done
