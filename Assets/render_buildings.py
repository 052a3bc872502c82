"""Renders what stands on the maps: blender -b -P render_buildings.py -- DIR [samples=N] [NAME...]

FILE.png: the thing at SCALE times its size, of what moves one picture a frame as FILE_00.png and so on; FILE_shadow.png: what
it shades of the ground at its size, SHADOW_WIDER wider.
"""
import os
import sys

import bpy

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path[:0] = [HERE, os.path.join(HERE, "buildings")]
import looks
import models
import scene

SCALE, SAMPLES = 3, 24


def render_look(out, name, state, samples):
    look, file = looks.LOOKS[name], f"{out}/{looks.file_name(name, state)}"
    frames = look.frames if looks.is_moving(name, state) else 1
    for i in range(frames):
        scene.reset()
        models.build(name, state, i / frames)
        scene.map_camera_on(look.size, look.foot)
        scene.render(f"{file}_{i:02}.png" if frames > 1 else f"{file}.png", tuple(v * SCALE for v in look.size), samples if frames == 1 else samples // 2)
    if look.trodden:
        render_shadow(f"{file}_shadow.png", look, samples)


def render_shadow(path, look, samples):
    """Hides all that stands in the scene from the camera, not from the sun."""
    bpy.ops.mesh.primitive_plane_add(size=60)
    ground = bpy.context.object
    ground.is_shadow_catcher = True
    for o in bpy.context.scene.objects:
        if o.type == "MESH" and o is not ground:
            o.visible_camera = False
    wide = (look.size[0] + looks.SHADOW_WIDER, look.size[1])
    scene.map_camera_on(wide, look.foot)
    scene.render(path, wide, samples)


def main():
    out, samples, wanted = scene.quick_arguments(SAMPLES)
    for name, look in looks.LOOKS.items():
        if not wanted or name in wanted:
            for state in look.states:
                render_look(out, name, state, samples)


main()
