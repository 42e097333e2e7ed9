# The demo game, made with the programs of the folder $1 and played from its title to its end by recorded input: the
# pictures of each scene, what is heard, and what is kept.
set -euo pipefail
bin=$1
root=$PWD
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
fail() { echo "$*" && exit 1; }

python3 "$root/demo/make.py" "$bin/tarnook-tool" game >made || { cat made && fail "the demo can't be made"; }

shots=()
names=(15:title 60:cottage 85:paused 600:taken 1120:jetty 1400:crossing 2920:lamproom 3300:light 3440:end)
for shot in "${names[@]}"; do shots+=(--screenshot "${shot%%:*}:${shot#*:}.png"); done
"$bin/tarnook" --headless --ticks 5000 --input "$root/demo/demo.input" --audio out.wav "${shots[@]}" game -log >out 2>err ||
    fail "exit status $?: $(cat err)"
[ ! -s out ] && [ ! -s err ] || fail "it says: $(cat out err)"
! grep "script:" game/Tarnook.log || fail "a statement met something that isn't there"
! grep "Failed" game/Tarnook.log || fail "a file is missing"
grep -q '^BEST=3' game/settings.ini || fail "the best catch: $(cat game/settings.ini)"

# Each picture against a small one of the day when it was looked at: shades may differ by the fonts' and the
# drawing library's version, but nothing may be missing or lie elsewhere.
for shot in "${names[@]}"; do
    name=${shot#*:}
    convert "$name.png" -resize 160x120! small.png
    difference=$(compare -metric RMSE small.png "$root/tests/pictures/demo/$name.png" null: 2>&1 || true)
    share=${difference#*(}
    awk -v share="${share%)}" 'BEGIN { exit !(share != "" && share < 0.03) }' || fail "$name.png differs: $difference"
done

# Music alone is heard sample for sample, on through the change from the title to the cottage, and after the walk to
# the other episode it is another.
python3 - <<'P'
import struct, sys, wave

def samples(name):
    with wave.open(name) as file:
        data = file.readframes(file.getnframes())
        return struct.unpack(f"<{len(data) // 2}h", data), file.getnchannels()

heard, channels = samples("out.wav")
left = heard[::channels]
shore, _ = samples("game/WAVS/shore.wav")
sea, _ = samples("game/WAVS/sea.wav")
begin = next(i for i in range(len(left)) if left[i]) - next(i for i in range(len(shore)) if shore[i])
for tick in 3, 30, 85, 630:  # in the title, in the cottage, while the game is paused, on the jetty
    at = 22050 * 16 * tick // 1000
    if list(left[at:at + 300]) != [shore[(at + i - begin) % len(shore)] for i in range(300)]:
        sys.exit(f"tick {tick}: that isn't the shore's music")
at = 22050 * 16 * 2945 // 1000
piece = left[at:at + 60]
if not any(list(piece) == list(sea[i:i + 60]) for i in range(len(sea) - 60)):
    sys.exit("tick 2945: that isn't the sea's music")
P
