#!/bin/bash
# tarnook --check: a spoiled copy of the demo, each mistake told at its line and nothing else; the demo itself and the
# tests' games are clean.
# check.sh PROGRAMS
set -euo pipefail
programs=$1
root=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
status=0
bad() { echo "$*" && status=1; }

python3 "$root/demo/make.py" "$programs/tarnook-tool" demo >made.log || { cat made.log && exit 1; }
for game in demo "$root"/tests/games/*/ "$root/tests/games/walk/next"; do
    "$programs/tarnook" "$game" --check >out || bad "$game isn't clean: $(cat out)"
done

# FILE|what sed makes of a line|what is told of that line
cat >mistakes <<'TEXT'
CROSSING.cnv|s/^HELP:TYPE=IMAGE/HELP:TYPE=IMAG/|unknown type IMAG, did you mean IMAGE?
application.def|s/^LAMP:STARTWITH/LAMP:STARTSWITH/|APPLICATION reads no key STARTSWITH, did you mean STARTWITH?
application.def|s/TITLE,COTTAGE,JETTY/TITLE,COTAGE,JETTY/|no scene or episode COTAGE, did you mean COTTAGE?
application.def|s/^ISLE:MUSIC=.*/ISLE:MUSIC=WAVS\\see.wav/|no file WAVS\see.wav
application.def|s/^JETTY:PATH=.*/JETTY:PATH=SHORE\\JETY/|no folder SHORE\JETY
TITLE.cnv|s/HASMATCHES^SET(0)/HASMATCHS^SET(0)/|no object HASMATCHS, did you mean HASMATCHES?
TITLE.cnv|s/SPARK^CLONE(7);/SPARK^CLONE(7)/|';' is missing behind this
TITLE.cnv|s/"SCATTER"/"SCATER"/|no behaviour SCATER, did you mean SCATTER?
TITLE.cnv|s/^TENS:ONINIT={TENS^SETPOSITION(284,537);}/TENS:ONINIT={TENS^SETPOSITION(284,537;}/|'(' isn't closed
TITLE.cnv|s/^BESTWORD:FILENAME=.*/BESTWORD:FILENAME=beast.img/|no file beast.img
TITLE.cnv|s/GFXONMOVE=PLAYOVER/GFXONMOVE=PLAYOFF/|no object PLAYOFF
TITLE.cnv|s/^QUITBUTTON:ONACTION/QUITBUTTON:ONACTON/|BUTTON raises no signal ONACTON, did you mean ONACTION?
TITLE.cnv|s/SPARK:PRIORITY/SPARKS:PRIORITY/|no OBJECT of this name is above, did you mean SPARK?
COTTAGE.cnv|s/OMMON.hero.cnv/OMMON\\heroes.cnv/|no file $COMMON\heroes.cnv
COTTAGE.cnv|s/"BURN");CAT/"BURN);CAT/|the quotes aren't closed
COTTAGE.cnv|s/CAT^PLAY("LOOK");}$/CAT^PLAY("LOOK")}/|';' is missing at the end
COTTAGE.cnv|s/PURR^PLAY();STROKES/PURR^PLAY();}STROKES/|'}' closes nothing
JETTY.cnv|s/@IF("HASOIL'1&&HASMATCHES'1"/@IFF("HASOIL'1\&\&HASMATCHES'1"/|unknown statement @IFF, did you mean IF?
JETTY.cnv|s/^WIND:ONTICK=.*/WIND:ONTICK=GLIDES/|no behaviour GLIDES, did you mean GLIDE?
JETTY.cnv|s/HINT^SHOW();/HINT^SHOWN();/|no method SHOWN of HINT, did you mean SHOW?
JETTY.cnv|s/SHORE^GOTO("COTTAGE");}/SHORE^GOTO("COTAGE");}/|no scene or episode COTAGE, did you mean COTTAGE?
CROSSING.cnv|s/\[TRIP@200\]/[TRIPP@200]/|no object TRIPP, did you mean TRIP?
CROSSING.cnv|s/"TRIP<'0"/"TIRP<'0"/|no object TIRP, did you mean TRIP?
CROSSING.cnv|s/\[N%10\]);/[N%10);/|'[' isn't closed
CROSSING.cnv|s/X^CLAMP(90,630);/X.CLAMP(90,630);/|no statement
CROSSING.cnv|s/{CATCH^SUBAT(0,1);},""/{CATCH^SUBAT(0,1);,""/|'{' isn't closed
LAMP.cnv|s/^OBJECT=HASOIL/OBJECT=HASOILS/|the keys below are of HASOIL
LAMPROOM.cnv|s/^OILSOUND:TYPE=SOUND/OILSOUND:TIPE=SOUND/|no type reads TIPE, did you mean TYPE?
LAMPROOM.cnv|s/^OBJECT=MATCHSOUND/MATCHSOUND=MATCHSOUND/|no OBJECT of this name is above
LAMPROOM.cnv|s/^AGAINBUTTON:SNDONCLICK=CLICKSOUND/AGAINBUTTON:SNDONCLICK=CLACKSOUND/|no object CLACKSOUND, did you mean CLICKSOUND?
LAMPROOM.cnv|s/BEAM^PLAY("TURN")/BEAM^PLAY()/|PLAY needs 1 parameter
LAMPROOM.cnv|s/@RUNONTIMER(900,1,"SHINE","")/@RUNONTIMER(900,1)/|RUNONTIMER needs 3 parameters
drag.cnv|s/^OBJECT=MATCHDRAG/OBJEKT=MATCHDRAG/|did you mean OBJECT?
drag.cnv|s/^CANDRAG:DRAG=BAGCAN/CANDRAG:DRAG=BAGCAM/|no object BAGCAM, did you mean BAGCAN?
hero.cnv|s/^GORIGHT:CODE={/GORIGHT:CODE=/|'}' closes nothing
hero.cnv|s/\*NOW^RUN();}/*NEW^RUN();}/|no object NEW, did you mean NOW?
bag.cnv|s/{BAGCAN^SHOW();},{BAGCAN^HIDE();});}/{BAGCAN^SHOW();}{BAGCAN^HIDE();});}/|',' is missing behind this
bag.cnv|s/^PAUSEOVER:FILENAME=.*/PAUSEOVER:FILENAME=$COMMON\\pause-ower.img/|no file $COMMON\pause-ower.img
TEXT
cp -r demo spoiled
while IFS='|' read -r name change told; do
    file=$(find spoiled -name "$name")
    cp "$file" before
    sed -i "$change" "$file"
    line=$({ diff before "$file" || true; } | sed -n 's/^\([0-9]*\)c.*/\1/p')
    [ -n "$line" ] || bad "no mistake: $name $change"
    echo "${file#spoiled/}:$line: |$told" >>wanted
done <mistakes
code=0
"$programs/tarnook" spoiled --check >out || code=$?
[ "$code" = 1 ] || bad "status $code, wanted 1"
while IFS='|' read -r place told; do
    [ "$(grep -F -- "$place" out | grep -cF -- ": $told")" = 1 ] || bad "not told: $place $told"
done <wanted
while read -r each; do
    grep -qF -- "$(cut -d: -f1,2 <<<"$each"): " wanted || bad "told of what is right: $each"
done <out
[ "$(wc -l <out)" = "$(wc -l <mistakes)" ] || bad "$(wc -l <out) lines for $(wc -l <mistakes) mistakes"

# What scripts make at run time isn't known here; nothing is told of it.
mkdir -p made/Dane
printf 'OBJECT=DEMO\nDEMO:TYPE=APPLICATION\nDEMO:SCENES=ROOM\nOBJECT=ROOM\nROOM:TYPE=SCENE\n' >made/Dane/application.def
cat >made/Dane/ROOM.cnv <<'TEXT'
OBJECT=COUNT
COUNT:TYPE=INTEGER
OBJECT=OK
OK:TYPE=BEHAVIOUR
OK:CODE=@INT("N",1);N^INC();@IF("N'2&&COUNT<'3",{COUNT_3^INC();/
$1^INC();*COUNT^INC();@LOOP({COUNT^ADD([_I_*N]);},0,3,1);},"");@IF(COUNT,"_","3","$2","");GAME^EXIT();ROOM^CREATEOBJECT("BUTTON","BUT");BUT^ENABLE();
TEXT
"$programs/tarnook" made --check >out || bad "made at run time: $(cat out)"
code=0
"$programs/tarnook" "$work" --check >out 2>err || code=$?
[ "$code" = 3 ] && [ "$(wc -l <err)" = 1 ] || bad "no game: status $code, $(cat out err)"
exit "$status"
