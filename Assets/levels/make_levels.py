#!/usr/bin/python3
"""Writes Data/LevelMap.lvl from the descriptions beside this file, after looking them over for what can't be played."""
import math
import os
import sys

import numpy
from xml.sax.saxutils import quoteattr

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
sys.dont_write_bytecode = True
import shape

TILE = 200
BEYOND = 100  # the deep water reaches this far over the map's edges
MARGIN = 45  # between a point and the screen's edge
SHALLOWS = 46  # how far from the shore a tile still shows something of the land
HEAD = """<?xml version="1.0" encoding="utf-8"?>
<!-- The levels of the campaign, in their order: each child of the root is one. A point's number is its place in the list.
     Assets/levels/make_levels.py writes this file. -->
"""


def check(number, lv):
    """Throws a sentence about the first thing that would spoil the level."""
    def fail(what):
        raise SystemExit(f"level {number}: {what}")
    places = [p[:2] for p in lv.POINTS]
    for i, (x, y) in enumerate(places):
        if not (MARGIN <= x <= lv.SIZE[0] - MARGIN and 60 <= y <= lv.SIZE[1] - 60):
            fail(f"point {i} at {x},{y} is too near to the edge")
    away = shape.shore(lv, numpy.array([float(p[0]) for p in places]), numpy.array([float(p[1]) for p in places]))
    for i, d in enumerate(away):
        if d < 20:
            fail(f"point {i} is {d:.0f} from the shore")
    arcs = shape.all_arcs(lv)
    for a, b, kind, _ in arcs:
        length = math.dist(places[a], places[b])
        if not 50 <= length <= 158:
            fail(f"arc {a}-{b} is {length:.0f} long")
        for k, p in enumerate(places):
            if k not in (a, b) and shape.near_line(*p, [(places[a], places[b])]) < 26:
                fail(f"arc {a}-{b} passes point {k}")
    for x, y, w, h in lv.FIELDS:
        for px, py in [(x + i * w / 8, y + k * h / 4) for i in range(-4, 5) for k in range(-2, 3)]:
            if shape.near_line(px, py, shape.arc_lines(lv)) < 12:
                fail(f"an arc runs through the field at {x},{y}")
    for i, (a, b, *_) in enumerate(arcs):
        for c, d, *_ in arcs[:i]:
            if len({a, b, c, d}) == 4 and crosses(places[a], places[b], places[c], places[d]):
                fail(f"arcs {a}-{b} and {c}-{d} cross")
    alone = set(range(len(places))) - {p for a, b, *_ in arcs for p in (a, b)}
    if alone:
        fail(f"no arc leads to {sorted(alone)}")


def crosses(a, b, c, d):
    def side(p, q, r):
        return (q[0] - p[0]) * (r[1] - p[1]) - (q[1] - p[1]) * (r[0] - p[0])
    return side(a, b, c) * side(a, b, d) < 0 and side(c, d, a) * side(c, d, b) < 0


class Writer:
    def __init__(self):
        self.lines, self.depth = [], 0

    def tag(self, name, children=None, **keys):
        text = "    " * self.depth + f"<{name}" + "".join(f" {k}={quoteattr(str(v))}" for k, v in keys.items())
        if children is None:
            self.lines.append(text + "/>")
            return
        self.lines.append(text + ">")
        self.depth += 1
        children()
        self.depth -= 1
        self.lines.append("    " * self.depth + f"</{name}>")


def write_building(out, lv, building):
    keys = {k: v for k, v in building.items() if k != "point" and not isinstance(v, (dict, list))}
    x, y, _ = lv.POINTS[building["point"]]

    def children():
        out.tag("Points", lambda: out.tag("Point", index=building["point"]))
        if "ManCost" in building:
            out.tag("ManCost", **building["ManCost"])
        if "Upgrades" in building:
            out.tag("Upgrades", lambda: [out.tag("Upgrade", UpgradeNumber=i, **row) for i, row in enumerate(building["Upgrades"])])
        if "Tasks" in building:
            out.tag("Tasks", lambda: [write_task(out, task) for task in building["Tasks"]])
    out.tag("Building", children, Type=keys.pop("Type"), Position=f"{x},{y}", **keys)


def write_task(out, task):
    """Of a bunker, or of a market: then with what is paid and what that gives."""
    keys = {k: v for k, v in task.items() if not isinstance(v, dict)}
    goods = {k: v for k, v in task.items() if isinstance(v, dict)}
    out.tag("Task", (lambda: [out.tag(k, **v) for k, v in goods.items()]) if goods else None, **keys)


def land_tiles(lv):
    """The tiles that show land or shallows, as (column, row); the last ones of a row or column may be cut off."""
    tiles = []
    for row in range(-(-lv.SIZE[1] // TILE)):
        for column in range(-(-lv.SIZE[0] // TILE)):
            x, y = numpy.meshgrid(numpy.arange(column * TILE, column * TILE + TILE + 1, 20.0), numpy.arange(row * TILE, row * TILE + TILE + 1, 20.0))
            if (shape.shore(lv, x, y) > -SHALLOWS).any():
                tiles.append((column, row))
    return tiles


def write_background(out, number, lv):
    w, h = lv.SIZE
    for y in range(-BEYOND + TILE // 2, h + BEYOND + TILE // 2, TILE):
        for x in range(-BEYOND + TILE // 2, w + BEYOND + TILE // 2, TILE):
            out.tag("Tile", Type=2, position=f"{x},{y}")
    for column, row in land_tiles(lv):
        out.tag("Tile", Type=0, position=f"{column * TILE + TILE // 2},{row * TILE + TILE // 2}", Picture=f"l{number}_{column}_{row}.png")
    for x, y, kind, size, stands in shape.trees(lv):
        if stands:
            width, height = round(96 * size), round(112 * size)
            out.tag("Tile", Type=3, position=f"{x:g},{y - 36 * size:g}", Picture=f"Land/tree_{kind}.png", size=f"{width},{height}", deep=f"{y:g}")


def write_level(out, number, lv):
    def children():
        out.tag("Points", lambda: [out.tag("Point", Pos=f"{x},{y}", Opt=opt) for x, y, opt in lv.POINTS])
        out.tag("Arcs", lambda: [out.tag("Arc", p1=a, p2=b, Type=t, **price) for a, b, t, price in shape.all_arcs(lv)])
        out.tag("Buildings", lambda: [write_building(out, lv, b) for b in lv.BUILDINGS])
        out.tag("BackGround", lambda: write_background(out, number, lv))
    out.tag("Level", children, Size=f"{lv.SIZE[0]},{lv.SIZE[1]}")


def main(path):
    out = Writer()
    levels = [shape.level(i) for i in range(shape.LEVELS)]
    for number, lv in enumerate(levels):
        check(number, lv)
    out.tag("LevelMap", lambda: [write_level(out, i, lv) for i, lv in enumerate(levels)])
    with open(path, "w", encoding="utf-8", newline="\n") as f:
        f.write(HEAD + "\n".join(out.lines) + "\n")
    print(f"  {path}: {len(levels)} levels, {len(out.lines)} lines")


if __name__ == "__main__":
    here = os.path.dirname(os.path.abspath(__file__))
    main(os.path.join(here, "..", "..", "Data", "LevelMap.lvl"))
