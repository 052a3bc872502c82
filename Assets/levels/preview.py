#!/usr/bin/python3
"""Composes a level from Data/ as the game shows it at its start, without the game: preview.py NUMBER OUT.png [--paths]"""
import math
import os
import sys
import xml.etree.ElementTree as xml

from PIL import Image, ImageDraw

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path[:0] = [HERE, os.path.dirname(HERE)]
sys.dont_write_bytecode = True
from picture import DATA

FILES = {8: "StartPoint", 9: "Warehouse", 10: "IronMill", 11: "StoneMill", 12: "WoodMill", 13: "FoodMill", 14: "Bridge", 15: "Bunker", 16: "Port",
         17: "Shop", 5: "Idol", 6: "PlayerCatapult", 7: "EnemyCatapult"}


def pair(text):
    return tuple(float(v) for v in text.split(","))


def read(name):
    return xml.parse(os.path.join(DATA, name)).getroot()


def open_picture(name):
    return Image.open(os.path.join(DATA, name)).convert("RGBA")


class Board:
    """Pictures by depth, laid over each other at the end."""

    def __init__(self, size):
        self.size, self.items = size, []

    def add(self, element, at, deep=None, name=None, lift=0.0, angle=0.0):
        name = name or element.get("Picture")
        if not name:
            return
        image = open_picture(name)
        columns, rows = int(element.get("anim_columns", 1)), int(element.get("anim_rows", 1))
        image = image.crop((0, 0, image.width // columns, image.height // rows))
        size = tuple(round(v) for v in pair(element.get("size")))
        image = image.resize(size, Image.LANCZOS) if image.size != size else image
        if element.get("alpha"):
            image.putalpha(image.getchannel("A").point(lambda v: round(v * float(element.get("alpha")))))
        if angle:
            image = image.rotate(angle, Image.BICUBIC, expand=True)
        deep = float(element.get("deep", 0)) if deep is None else deep
        self.items.append((deep, len(self.items), image, (round(at[0] - image.width / 2), round(at[1] - lift - image.height / 2))))

    def draw(self):
        board = Image.new("RGBA", tuple(int(v) for v in self.size), (0, 0, 0, 255))
        for _, _, image, (x, y) in sorted(self.items, key=lambda item: item[:2]):
            layer = Image.new("RGBA", board.size, (0, 0, 0, 0))
            layer.paste(image, (x, y))
            board = Image.alpha_composite(board, layer)
        return board


def add_scenery(board, level):
    tactic = read("GameUI/TacticMap.xml")
    folder, top, bottom = (tactic.get(k) for k in ("land_base_dir", "top_tile_prefix", "bottom_tile_prefix"))
    for tile in level.find("BackGround"):
        at, kind = pair(tile.get("position")), tile.get("Type")
        if kind == "2":
            board.add(tactic.find("DeepWater"), at)
        elif kind == "0":
            board.add(tactic.find("BottomTile"), at, name=folder + bottom + tile.get("Picture"))
            board.add(tactic.find("NearshoreWater"), at)
            board.add(tactic.find("TopTile"), at, name=folder + top + tile.get("Picture"))
        elif kind == "3":
            board.add(tile, at)


def add_tiles(board, template, a, b, deep):
    """The tiles of a road from a to b, the last one cut."""
    width, length = pair(template.get("size"))[0], math.dist(a, b)
    angle = -math.degrees(math.atan2(b[1] - a[1], b[0] - a[0]))
    flip = abs(angle) > 90
    for i in range(math.ceil(length / width)):
        t = width * (i + 0.5) / length
        image = open_picture(template.get("Picture")).resize(tuple(round(v) for v in pair(template.get("size"))), Image.LANCZOS)
        left = min(1.0, (length - width * i) / width)
        if left < 1:
            keep = Image.new("L", image.size, 0)
            cut = round(image.width * left)
            keep.paste(255, (0, 0, cut, image.height) if not flip else (image.width - cut, 0, image.width, image.height))
            blank = Image.new("RGBA", image.size, (0, 0, 0, 0))
            image = Image.composite(image, blank, keep)
        image = image.rotate(angle + (180 if flip else 0), Image.BICUBIC, expand=True)
        x, y = a[0] + (b[0] - a[0]) * t, a[1] + (b[1] - a[1]) * t
        board.items.append((deep, len(board.items), image, (round(x - image.width / 2), round(y - image.height / 2))))


def add_arcs(board, points, arcs, rings):
    files = {name: read(f"GameLogic/{name}.xml") for name in ("DamagedRoad", "Road", "RoadEnemy")}

    def end(p):
        return points[p]
    for arc in arcs:
        a, b, kind = int(arc.get("p1")), int(arc.get("p2")), int(arc.get("Type"))
        if kind in (0, 1, 2):
            road = files["DamagedRoad"]
            add_tiles(board, road.find("TileTemplate"), end(a), end(b), float(road.get("deep")))
        if kind in (1, 2):
            road = files["Road" if kind == 1 else "RoadEnemy"]
            add_tiles(board, road.find("TileTemplate"), end(a), end(b), float(road.get("deep")))


def state_name(kind, level):
    return {8: "normal_state", 15: "init_state", 16: "init_state", 17: "init_state"}.get(kind, f"wait_state_upgrade_{level}")


def add_building(board, building, level=None):
    kind = int(building.get("Type"))
    definition = read(f"GameLogic/{FILES[kind]}.xml")
    states = {s.get("id"): s for s in definition.find("States")}
    at = pair(building.get("Position"))
    name = state_name(kind, building.get("Level", "0") if level is None else level)
    name = name if name in states else max(s for s in states if not s.endswith("base"))
    lift = float(definition.get("HeightOffset", 0))
    for part in ("Base", "Shadow"):
        element = definition.find(part)
        if element is None:
            continue
        offset = pair(element.get("position", "0,0"))
        state = states.get(name + "_base", states.get("common_base")) if part == "Base" else None
        board.add(element, (at[0] + offset[0], at[1] + offset[1]), name=state.get("Picture") if state is not None else None)
    look = dict(definition.attrib)
    element = xml.Element("x", look)
    for key, value in states[name].attrib.items():
        element.set(key, value)
    board.add(element, at, deep=at[1] + lift, lift=lift)
    return float(definition.get("ellipse_a", 40)), float(definition.get("ellipse_b", 30))


def main(number, out, paths, upgraded):
    level = read("LevelMap.lvl")[number]
    points = [pair(p.get("Pos")) for p in level.find("Points")]
    board = Board(pair(level.get("Size")))
    add_scenery(board, level)
    rings, under = {}, set()
    for b in level.find("Buildings"):
        under |= {int(p.get("index")) for p in b.find("Points")}
        if os.path.exists(os.path.join(DATA, "GameLogic", FILES[int(b.get("Type"))] + ".xml")):
            rings[int(b.find("Points")[0].get("index"))] = add_building(board, b, upgraded)
    if os.path.exists(os.path.join(DATA, "GameLogic", "DamagedRoad.xml")):
        add_arcs(board, points, level.find("Arcs"), rings)
    if os.path.exists(os.path.join(DATA, "GameLogic", "WayPoint.xml")):
        mark = read("GameLogic/WayPoint.xml")
        states = {s.get("id"): s for s in mark.find("States")}
        for i, at in enumerate(points):
            if i not in under:
                name = "wp_player" if i < 4 else "wp_neutral"
                board.add(mark.find("Back"), at, name=states[name + "_base"].get("Picture"))
                board.add(mark, at, deep=at[1] + float(mark.get("HeightOffset", 0)), name=states[name].get("Picture"), lift=float(mark.get("HeightOffset", 0)))
    picture = board.draw()
    if paths:
        draw = ImageDraw.Draw(picture)
        for arc in level.find("Arcs"):
            draw.line([points[int(arc.get("p1"))], points[int(arc.get("p2"))]], (255, 255, 255), 1)
        for i, (x, y) in enumerate(points):
            draw.ellipse((x - 4, y - 3, x + 4, y + 3), (255, 255, 0))
            draw.text((x + 5, y - 5), str(i), (255, 255, 255))
        for p, (a, b) in rings.items():
            x, y = points[p]
            draw.ellipse((x - a, y - b, x + a, y + b), outline=(255, 255, 255))
    picture.convert("RGB").save(out)


if __name__ == "__main__":
    words = [a for a in sys.argv[1:] if not a.startswith("--")]
    main(int(words[0]), words[1], "--paths" in sys.argv, words[2] if len(words) > 2 else None)
