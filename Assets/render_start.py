"""Renders the layers of the start screen into a folder: blender -b -P render_start.py -- DIR [back] [mill] [sails]

back.png: the valley without the big mill but with its shadow. mill.png: the mill's tower where it is not hidden.
sails_00.png ...: the wheel, one picture a step. layout.json: where the pieces lie on the screen. All at
SCALE times the screen's size.
"""
import json
import math
import os
import sys

import bpy
from mathutils import Vector

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import props
import scene
import valley

SCREEN, SCALE, FRAMES, SAIL_FRAME = (800, 600), 2, 32, 256
SIZE = (SCREEN[0] * SCALE, SCREEN[1] * SCALE)


def main():
    out, *wanted = scene.arguments()
    scene.reset(haze=valley.HAZE)
    valley.build()
    tower, wheel = valley.build_mill()
    scene.vista_camera(valley.EYE, valley.LOOK_DOWN, valley.LENS)
    hub = scene.where_on_picture(_hub(tower), SCREEN)
    hub = (round(hub[0]), round(hub[1]))
    if "back" in wanted:
        tower.visible_camera = False
        scene.render(f"{out}/back.png", SIZE, 40)
        tower.visible_camera = True
    if "mill" in wanted:
        window = _mill_window(tower)
        _write_layout(out, hub, window)
        _render_mill(out, tower, [v * SCALE for v in window])
    if "sails" in wanted:
        _render_sails(out, tower, wheel, hub)


def _hub(tower):
    x, y, z = props.MILL_HUB
    c, s = math.cos(valley.MILL_TURN), math.sin(valley.MILL_TURN)
    at = tower.location
    return (at[0] + x * c - y * s, at[1] + x * s + y * c, at[2] + z)


def _mill_window(tower):
    """The screen's pixels that the tower may cover, by the corners of its bounds."""
    bpy.context.view_layer.update()
    seen = [scene.where_on_picture(tower.matrix_world @ Vector(c), SCREEN) for c in tower.bound_box]
    xs, ys = [p[0] for p in seen], [p[1] for p in seen]
    return [math.floor(min(xs)) - 2, math.floor(min(ys)) - 2, math.ceil(max(xs)) + 2, math.ceil(max(ys)) + 2]


def _write_layout(out, hub, window):
    with open(f"{out}/layout.json", "w") as f:
        json.dump({"hub": hub, "mill": window, "sail_frame": SAIL_FRAME, "scale": SCALE, "frames": FRAMES}, f)


def _render_mill(out, tower, window):
    others = [o for o in bpy.context.scene.objects if o.type == "MESH" and o is not tower]
    for o in others:
        o.is_holdout = True
    scene.render(f"{out}/mill.png", SIZE, 72, window)
    for o in others:
        o.is_holdout = False


def _render_sails(out, tower, wheel, hub):
    for o in bpy.context.scene.objects:
        o.hide_render = o.type == "MESH"
    half = SAIL_FRAME // 2
    window = [v * SCALE for v in (hub[0] - half, hub[1] - half, hub[0] + half, hub[1] + half)]
    turning = valley.stand_sails(wheel, tower.location, valley.MILL_TURN, 1.0, 0.0)
    for i in range(FRAMES):
        valley.spin_sails(turning, valley.MILL_TURN, math.pi / 2 * i / FRAMES)
        scene.render(f"{out}/sails_{i:02}.png", SIZE, 48, window)


main()
