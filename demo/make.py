#!/usr/bin/env python3
"""Makes the demo game: definitions, pictures and sounds in the engine's formats.

make.py TOOL OUT: TOOL is the program tarnook-tool; the game is put into the folder OUT, which is made anew.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml
from concurrent.futures import ThreadPoolExecutor

HERE = os.path.dirname(os.path.abspath(__file__))

# The folder of the game that the pictures of a source belong to.
HOMES = {
    "title": "Dane/SHORE/TITLE",
    "cottage": "Dane/SHORE/COTTAGE",
    "jetty": "Dane/SHORE/JETTY",
    "crossing": "Dane/ISLE/CROSSING",
    "lamproom": "Dane/ISLE/LAMPROOM",
    "common": "COMMON",
    "hero": "COMMON",
}


def run(*words):
    made = subprocess.run(words, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if made.returncode:
        sys.exit(f"{' '.join(words)}\n{made.stdout.strip()}")


def places(source):
    """Where each layer of a source stands on the screen: {name: (left, top)}."""
    found = {}
    for layer in xml.parse(os.path.join(HERE, "art", source + ".svg")).getroot():
        if layer.get("data-picture"):
            found[layer.get("id").split(".")[0]] = layer.get("data-picture").split()[:2]
    return found


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    tool, out = map(os.path.abspath, sys.argv[1:])
    for old in os.listdir(out) if os.path.isdir(out) else []:
        if old != "settings.ini":  # the best catch stays
            path = os.path.join(out, old)
            shutil.rmtree(path) if os.path.isdir(path) else os.remove(path)
    shutil.copytree(os.path.join(HERE, "game"), out, dirs_exist_ok=True)
    work = []
    with tempfile.TemporaryDirectory() as drawn:
        run(sys.executable, os.path.join(HERE, "draw.py"), drawn)
        run(sys.executable, os.path.join(HERE, "synth.py"), os.path.join(out, "WAVS"))
        for source, home in HOMES.items():
            place = places(source)
            for name in sorted(os.listdir(os.path.join(drawn, source))):
                path = os.path.join(drawn, source, name)
                goal = os.path.join(out, home, re.sub(r"\.png$", "", name))
                at = place.get(re.sub(r"\.png$", "", name), ("0", "0"))
                if os.path.isdir(path):
                    text = os.path.join(HERE, "art", name + ".anim")
                    if os.path.exists(text):
                        shutil.copy(text, os.path.join(path, "animation.txt"))
                    work.append((tool, "anim", path, goal + ".ann", "--trim", "--at", *at))
                else:
                    work.append((tool, "image", path, goal + ".img", "--dither", "--at", *at))
        with ThreadPoolExecutor() as pool:
            list(pool.map(lambda words: run(*words), work))
    print(f"{len(work)} pictures and animations")


main()
