#!/usr/bin/env python3
"""Draws the demo's pictures: PNG files of the layers of art/*.svg.

draw.py OUT [NAME]: all of them, or of one source, below the folder OUT.

A layer is a top-level group that carries data-picture="LEFT TOP WIDTH HEIGHT", the part of the drawing that becomes
a picture. A layer with the id NAME becomes OUT/SOURCE/NAME.png; NAME.EVENT.3 becomes the third frame of an event,
OUT/SOURCE/NAME/EVENT_03.png. hero.svg is a puppet: hero.poses says how its parts stand in each frame.
"""
import copy
import os
import re
import subprocess
import sys
import xml.etree.ElementTree as xml
from concurrent.futures import ThreadPoolExecutor

SVG = "{http://www.w3.org/2000/svg}"
HERE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "art")
xml.register_namespace("", SVG[1:-1])


def render(root, path):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    made = subprocess.run(["rsvg-convert", "-o", path], input=xml.tostring(root), stderr=subprocess.PIPE)
    if made.returncode:
        sys.exit(f"{path}: rsvg-convert: {made.stderr.decode().strip()}")


def layers(source, out):
    """(drawing, path) of each layer of a source."""
    root = xml.parse(os.path.join(HERE, source + ".svg")).getroot()
    shared = [part for part in root if part.tag != SVG + "g"]
    for layer in root.findall(SVG + "g"):
        box = layer.get("data-picture")
        if not box:
            continue
        _, _, width, height = box.split()
        page = xml.Element(SVG + "svg", {"viewBox": box, "width": width, "height": height})
        page.extend(shared)
        page.append(layer)
        name, *frame = layer.get("id").split(".")
        path = f"{name}/{frame[0]}_{int(frame[1]):02}" if frame else name
        yield page, os.path.join(out, source, path + ".png")


def posed(root, words):
    """A copy of the puppet with its parts turned as the words say."""
    puppet = copy.deepcopy(root)
    parts = {part.get("id"): part for part in puppet.iter() if part.get("id")}
    shut = "shut" in words
    parts["head"].remove(parts["eyes-open" if shut else "eyes-shut"])
    words = [word for word in words if word != "shut"]
    lift = 0
    for part, turn in zip(words[::2], words[1::2]):
        angle, _, down = turn.partition(",")
        if part == "all":
            lift = float(down)
            continue
        pivot = parts[part].get("data-pivot")
        parts[part].set("transform", f"translate(0 {down or 0}) rotate({angle} {pivot})")
    figure = xml.Element(SVG + "g", {"transform": f"translate(0 {lift:g})"})
    for group in puppet.findall(SVG + "g"):
        puppet.remove(group)
        figure.append(group)
    puppet.append(figure)
    return puppet


def mirrored(puppet):
    other = copy.deepcopy(puppet)
    figure = other.find(SVG + "g")
    figure.set("transform", f"translate({other.get('width')} 0) scale(-1 1) " + figure.get("transform"))
    return other


def poses(source, out):
    root = xml.parse(os.path.join(HERE, source + ".svg")).getroot()
    for line in open(os.path.join(HERE, source + ".poses"), encoding="utf-8"):
        words = line.split()
        if not words or words[0].startswith("#"):
            continue
        event, number = words[0], int(words[1])
        right = posed(root, words[2:])
        for puppet, side in (right, "R"), (mirrored(right), "L"):
            yield puppet, os.path.join(out, source, f"{source}/{event[:-1]}{side}_{number:02}.png")


def main():
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    out = sys.argv[1]
    sources = sys.argv[2:] or sorted(re.sub(r"\.svg$", "", name) for name in os.listdir(HERE) if name.endswith(".svg"))
    work = []
    for source in sources:
        puppet = os.path.exists(os.path.join(HERE, source + ".poses"))
        work += (poses if puppet else layers)(source, out)
    with ThreadPoolExecutor() as pool:
        list(pool.map(lambda pair: render(*pair), work))
    print(f"{len(work)} pictures")


main()
