#!/usr/bin/env python3
"""Makes the demo's sounds and music: 16-bit mono WAV files at 22,050 Hz.

synth.py OUT: all of them, into the folder OUT. Everything is computed here; the same run gives the same bytes.
"""
import array
import math
import os
import random
import sys
import wave

RATE = 22050
NAMES = {name: step for step, name in enumerate(["C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"])}


def pitch(note):
    """Hertz of a note such as F#4."""
    return 440.0 * 2 ** ((NAMES[note[:-1]] - 9) / 12 + int(note[-1]) - 4)


def tone(hertz, seconds, partials, fall, rise=0.004, bend=0.0):
    """A note: `partials` are (multiple, strength), `fall` is how fast it dies away, `bend` its glide in octaves."""
    samples = [0.0] * int(RATE * seconds)
    for multiple, strength in partials:
        phase = 0.0
        for i in range(len(samples)):
            t = i / RATE
            phase += 2 * math.pi * hertz * multiple * 2 ** (bend * t / seconds) / RATE
            samples[i] += strength * math.sin(phase) * math.exp(-fall * multiple ** 0.5 * t) * min(1.0, t / rise)
    end = min(len(samples), int(RATE * 0.02))
    for i in range(end):
        samples[-1 - i] *= i / end
    return samples


def noise(seconds, fall, low, seed, rise=0.002):
    """A hiss that dies away; `low` from 0 (bright) to 1 (dull)."""
    chance = random.Random(seed)
    held, samples = 0.0, []
    for i in range(int(RATE * seconds)):
        t = i / RATE
        held = low * held + (1 - low) * chance.uniform(-1, 1)
        samples.append(held * math.exp(-fall * t) * min(1.0, t / rise))
    return samples


def mix(*layers):
    """Layers as (start in seconds, strength, samples), added."""
    length = max(int(start * RATE) + len(samples) for start, _, samples in layers)
    out = [0.0] * length
    for start, strength, samples in layers:
        first = int(start * RATE)
        for i, sample in enumerate(samples):
            out[first + i] += strength * sample
    return out


def save(path, samples, peak):
    loudest = max(abs(sample) for sample in samples) or 1.0
    data = array.array("h", (round(sample / loudest * peak * 32767) for sample in samples))
    if sys.byteorder == "big":
        data.byteswap()
    with wave.open(path, "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(data.tobytes())


BOX = [(1, 1.0), (2, 0.35), (4.02, 0.12)]
REED = [(1, 1.0), (2, 0.5), (3, 0.33), (5, 0.12)]
BASS = [(1, 1.0), (2, 0.25)]


def tune(beat, bars, chords, voice):
    """A loop: notes are `NAME:BEATS`, `-` rests; each bar has a chord that is plucked under it. What rings at the end
    of the loop rings on at its beginning, so that it can be played round and round."""
    score, clock = [], 0.0
    known = {}

    def note(name, seconds, partials, fall):
        key = name, seconds, fall
        if key not in known:
            known[key] = tone(pitch(name), seconds, partials, fall)
        return known[key]

    for bar, chord in zip(bars, chords):
        began = clock
        for word in bar.split():
            name, _, beats = word.partition(":")
            length = beat * float(beats or 1)
            if name != "-":
                score.append((clock, 0.8, note(name, min(2.0, length + 0.5), voice, 2.6)))
            clock += length
        steps = chord.split()
        each = (clock - began) / len(steps)
        for place, name in enumerate(steps):
            score.append((began + place * each, 0.5 if place == 0 else 0.3,
                          note(name, 1.1, BASS if place == 0 else BOX, 3.4)))
    out = [0.0] * round(clock * RATE)
    for start, strength, samples in score:
        first = round(start * RATE)
        for i, sample in enumerate(samples):
            out[(first + i) % len(out)] += strength * sample
    return out


SHORE = tune(
    60 / 92,
    ["A4:2 C5", "C5:2 A4", "G4:2 E4", "D4:2 E4", "A4:2 C5", "D5 C5 A4", "B4:2 G4", "A4:3",
     "C5:2 F5", "E5:2 C5", "D5 B4 G4", "A4:3", "F4 A4 D5", "C5 A4 E4", "G#4:2 B4", "A4:3"],
    ["A2 E3 C4", "F2 C3 A3", "C3 G3 E4", "G2 D3 B3", "A2 E3 C4", "F2 C3 A3", "G2 D3 B3", "A2 E3 C4",
     "F2 C3 A3", "C3 G3 E4", "G2 D3 B3", "A2 E3 C4", "D3 A3 F4", "A2 E3 C4", "E2 B2 G#3", "A2 E3 C4"],
    BOX)
SEA = tune(
    60 / 330,
    ["D5 F#5 A5 F#5 D5 A4", "E5 C#5 A4 C#5 E5 A5", "B4 D5 F#5 B5 F#5 D5", "G5 F#5 E5 D5 B4 G4",
     "A4 D5 F#5 A5 F#5 D5", "C#5 E5 A5 G5 F#5 E5", "D5 B4 G4 E5 C#5 A4", "D5:2 A4 D5:3",
     "F#5:2 A5 G5 F#5 E5", "C#5:2 E5 A4 C#5 E5", "D5:2 F#5 B4 D5 F#5", "B4 D5 G5 F#5 E5 D5",
     "F#5 A5 F#5 D5 F#5 A4", "E5 A5 E5 C#5 E5 A4", "B4 D5 G4 A4 C#5 E5", "D5:3 D5:3"],
    ["D3 A3 A3", "A2 E3 E3", "B2 F#3 F#3", "G2 D3 D3", "D3 A3 A3", "A2 E3 E3", "G2 D3 A2", "D3 A3 A3",
     "D3 A3 A3", "A2 E3 E3", "B2 F#3 F#3", "G2 D3 D3", "D3 A3 A3", "A2 E3 E3", "G2 A2 E3", "D3 A3 D3"],
    REED)

SOUNDS = {
    "shore": (SHORE, 0.42),
    "sea": (SEA, 0.36),
    "over": (tone(1320, 0.09, BOX, 30), 0.22),
    "click": (mix((0, 1, noise(0.03, 120, 0.3, 1)), (0, 1, tone(660, 0.12, BOX, 26))), 0.45),
    "step": (mix((0, 1, noise(0.08, 60, 0.82, 2)), (0, 0.5, tone(110, 0.08, BASS, 40))), 0.30),
    "take": (mix((0, 1, tone(660, 0.3, BOX, 9)), (0.09, 1, tone(990, 0.4, BOX, 8))), 0.5),
    "door": (mix((0, 1, noise(0.25, 18, 0.93, 3)), (0.05, 0.6, tone(140, 0.35, REED, 9, bend=0.5))), 0.5),
    "gull": (mix((0, 1, tone(1250, 0.28, REED, 4, 0.04, -0.4)), (0.32, 0.8, tone(1180, 0.24, REED, 5, 0.04, -0.4)),
                 (0.6, 0.6, tone(1120, 0.22, REED, 6, 0.04, -0.4))), 0.2),
    "purr": (mix(*((n * 0.045, 1 + 0.5 * math.sin(n / 3), tone(62, 0.05, REED, 30)) for n in range(26))), 0.4),
    "fish": (mix((0, 1, tone(880, 0.16, BOX, 14, bend=0.4)), (0.07, 1, tone(1320, 0.3, BOX, 10))), 0.45),
    "hit": (mix((0, 1, noise(0.5, 9, 0.75, 4)), (0, 1.2, tone(92, 0.4, BASS, 9, bend=-0.6))), 0.65),
    "oil": (mix(*((n * 0.13, 1, tone(250 + 26 * (n % 3), 0.12, BASS, 16, bend=0.8)) for n in range(6))), 0.5),
    "match": (mix((0, 1, noise(0.22, 12, 0.2, 5)), (0.16, 1, noise(0.7, 4, 0.9, 6, 0.1))), 0.5),
    "lit": (mix(*((n * 0.12, 1, tone(pitch(name), 2.6, BOX, 1.3, 0.05)) for n, name in
                  enumerate(["D4", "A4", "D5", "F#5", "A5", "D6"]))), 0.6),
}


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    os.makedirs(sys.argv[1], exist_ok=True)
    for name, (samples, peak) in SOUNDS.items():
        save(os.path.join(sys.argv[1], name + ".wav"), samples, peak)
    print(f"{len(SOUNDS)} sounds")


main()
