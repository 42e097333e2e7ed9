#!/bin/bash
# tarnook --check: a spoiled game, each mistake told at its line; the tests' own games are clean.
# check.sh PROGRAMS
set -euo pipefail
programs=$1
games=$(cd "$(dirname "$0")/../games" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0

for game in "$games"/*/; do
    timeout 60 "$programs/tarnook" "$game" --check >"$work/out" ||
        { echo "$game isn't clean:" && cat "$work/out" && status=1; }
done

mkdir -p "$work/game/Dane"
cat >"$work/game/Dane/application.def" <<'TEXT'
OBJECT=GAME
GAME:TYPE=APPLICATION
GAME:SCENES=ROOM,CELAR
GAME:STARTWTH=ROOM
GAME:STARTWITH=ROMO
OBJECT=ROOM
ROOM:TYPE=SCENE
ROOM:BACKGROUND=gone.img
TEXT
cat >"$work/game/Dane/ROOM.cnv" <<'TEXT'
OBJECT=SCORE
SCORE:TYPE=INTEGR
OBJECT=COUNT
COUNT:TYPE=INTEGER
COUNT:VALU=3
CUONT:VALUE=4
OBJECT=T
T:TYPE=TIMER
T:ONTIKC={COUNT^INC();}
T:ONTICK={COUNT^INCC();}
T:ONTICK^2={CUONT^INC();}
T:ONTICK^3={COUNT^INC()COUNT^DEC();}
T:ONTICK^4={COUNT^INC(;}
T:ONTICK^5={COUNT^INC();
T:ONTICK^6={@MGSBOX("a");}
T:ONTICK^7={@MSGBOX("a);}
T:ONTICK^8={COUNT^ADD([1+2);}
T:ONTICK^9=HANDLR(1)
OBJECT=B
B:TYPE=BEHAVIOUR
B:CODE={COUNT^INC();/
COUNT^INC();/
COUNT^DECC();}
OBJECT=P
P:TYPE=IMAGE
P:FILENAME=lost.img
OBJECT=NOTYPE
NOTYPE:VALUE=1
OBJECT=OK
OK:TYPE=BEHAVIOUR
OK:CODE={@INT("N",1);N^INC();COUNT_3^INC();$1^ANYTHING();*COUNT^INC();@IF("N'2",{COUNT^INC();},"");}
TEXT
code=0
timeout 60 "$programs/tarnook" "$work/game" --check >"$work/out" || code=$?
[ "$code" = 1 ] || { echo "status $code, wanted 1" && status=1; }
while IFS='|' read -r place words; do
    grep -F -- "Dane/$place: " "$work/out" | grep -qF -- "$words" || { echo "not told: $place $words" && status=1; }
done <<'TEXT'
application.def:3|no scene or episode CELAR
application.def:4|did you mean STARTWITH?
application.def:5|did you mean ROOM?
application.def:8|no file gone.img
ROOM.cnv:2|did you mean INTEGER?
ROOM.cnv:5|did you mean VALUE?
ROOM.cnv:6|no OBJECT of this name
ROOM.cnv:9|raises no signal ONTIKC, did you mean ONTICK?
ROOM.cnv:10|no method INCC of COUNT, did you mean INC?
ROOM.cnv:11|no object CUONT, did you mean COUNT?
ROOM.cnv:12|';' is missing
ROOM.cnv:13|isn't closed
ROOM.cnv:14|isn't closed
ROOM.cnv:15|did you mean MSGBOX?
ROOM.cnv:16|the quotes aren't closed
ROOM.cnv:17|closes nothing
ROOM.cnv:18|no behaviour HANDLR
ROOM.cnv:23|no method DECC of COUNT, did you mean DEC?
ROOM.cnv:26|no file lost.img
ROOM.cnv:28|has no TYPE
TEXT
grep -E 'ROOM.cnv:(3[0-9]|29):' "$work/out" && { echo "told of what is right" && status=1; }
[ "$status" = 0 ] || cat "$work/out"
exit "$status"
