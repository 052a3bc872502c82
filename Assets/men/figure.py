"""A figure under construction: parts that follow bones, coloured by name, with the light of their nooks painted on.

Runs inside Blender. Every part names the bones that it follows: one bone's name, or a list of (bone, weight).
"""
import math

import bpy
from mathutils import Euler, Vector
from mathutils.bvhtree import BVHTree

import palette

SHEET = 16  # colours side by side on the texture
SHADES = 32  # of each, from open (top) to deep in a nook (bottom)
CELL = 4  # texels, the width of a colour
RAYS = 96
FPS = 24  # of all actions
REACH = 0.30  # how far off a neighbour takes light away


NEAR = "near"  # marks a ring that only a near figure has


class Figure:
    """A near figure has all its details; one that is far leaves out what can't be seen on the map, two triangles of three."""

    def __init__(self, near=True):
        self.near = near
        self.points, self.weights, self.faces, self.colours = [], [], [], []

    def add(self, points, faces, colour, follows):
        """follows: one bone or list for the part, or a function from a point to one."""
        first = len(self.points)
        self.points += [tuple(p) for p in points]
        for p in points:
            f = follows(p) if callable(follows) else follows
            self.weights.append([(f, 1.0)] if isinstance(f, str) else f)
        self.faces += [tuple(first + i for i in f) for f in faces]
        self.colours += colour if isinstance(colour, list) else [colour] * len(faces)

    def loft(self, rings, sides, follows, closed=(True, True), spin=0.0, ends_show=False):
        """A tube through rings (centre, radius along x, radius along y, colour of what lies above the ring[, NEAR]).

        ends_show: a far figure has its ends, too.
        """
        points, faces, colours = [], [], []
        if not self.near:
            rings = [ring for ring in rings if NEAR not in ring]
            sides = max(round(sides * 0.68), 5)
            closed = closed if ends_show else (False, False)
        for (x, y, z), rx, ry, *_ in rings:
            for i in range(sides):
                a = spin + 2 * math.pi * i / sides
                points.append((x + rx * math.cos(a), y + ry * math.sin(a), z))
        for ring in range(len(rings) - 1):
            for i in range(sides):
                a, b = ring * sides + i, ring * sides + (i + 1) % sides
                faces.append((a, b, b + sides, a + sides))
                colours.append(rings[ring][3])
        if closed[0]:
            faces.append(tuple(reversed(range(sides))))
            colours.append(rings[0][3])
        if closed[1]:
            faces.append(tuple(range(len(points) - sides, len(points))))
            colours.append(rings[-1][3])
        self.add(points, faces, colours, follows)

    def ball(self, at, radii, colour, follows, across=8, up=5, tilt=0.0):
        """A ball of rings, its poles along z; tilt leans it about the x axis."""
        points, faces = [(0, 0, -1)], []
        if not self.near:
            across, up = (4, 2) if across < 7 else (across - 3, up - 2)
        for j in range(1, up):
            b = math.pi * j / up
            for i in range(across):
                a = 2 * math.pi * (i + 0.5) / across
                points.append((math.sin(b) * math.cos(a), math.sin(b) * math.sin(a), -math.cos(b)))
        points.append((0, 0, 1))
        last = len(points) - 1
        for i in range(across):
            n = (i + 1) % across
            faces.append((0, 1 + n, 1 + i))
            faces.append((last, last - across + i, last - across + n))
            for j in range(up - 2):
                a = 1 + j * across
                faces.append((a + i, a + n, a + across + n, a + across + i))
        placed = []
        for x, y, z in points:
            x, y, z = x * radii[0], y * radii[1], z * radii[2]
            y, z = y * math.cos(tilt) - z * math.sin(tilt), y * math.sin(tilt) + z * math.cos(tilt)
            placed.append((x + at[0], y + at[1], z + at[2]))
        self.add(placed, faces, colour, follows)

    def build(self, name, armature, smooth_below, sheet=None):
        """The object, moved by the armature. Edges flatter than smooth_below (radians) look round.

        sheet: the colours of the texture that it shares with other figures.
        """
        data = bpy.data.meshes.new(name)
        data.from_pydata(self.points, [], self.faces)
        data.update()
        for polygon in data.polygons:
            polygon.use_smooth = True
        data.use_auto_smooth, data.auto_smooth_angle = True, smooth_below
        self._paint(data, sheet or self.sheet())
        model = bpy.data.objects.new(name, data)
        bpy.context.scene.collection.objects.link(model)
        for bone in armature.data.bones:
            group = model.vertex_groups.new(name=bone.name)
            for i, follows in enumerate(self.weights):
                for followed, weight in follows:
                    if followed == bone.name and weight > 0:
                        group.add([i], weight, "REPLACE")
        model.parent = armature
        model.modifiers.new("armature", "ARMATURE").object = armature
        return model

    def sheet(self):
        """The names of the colours, in the order in which they stand on the texture."""
        names = sorted(set(self.colours))
        if len(names) > SHEET:
            raise SystemExit(f"figure: {len(names)} colours; the texture has {SHEET}")
        return names

    def _paint(self, data, names):
        """Gives every corner the place of its colour, the lower the deeper it lies in a nook."""
        tree = BVHTree.FromPolygons(self.points, self.faces)
        nook = [_nook(tree, Vector(p), data.vertices[i].normal) for i, p in enumerate(self.points)]
        layer = data.uv_layers.new(name="colour")
        for polygon, colour in zip(data.polygons, self.colours):
            for loop in polygon.loop_indices:
                shade = nook[data.loops[loop].vertex_index]
                v = (0.5 + shade * (SHADES - 1)) / SHADES
                layer.data[loop].uv = ((names.index(colour) + 0.5) / SHEET, 1 - v)

    def save_texture(self, path, instead=None):
        """The colours with their shades; instead maps names to those that another dress has in their place."""
        from PIL import Image
        dress = instead or {}
        image = Image.new("RGB", (SHEET * CELL, SHADES), palette.rgb("ink"))
        for column, name in enumerate(self.sheet()):
            for row in range(SHADES):
                colour = _shaded(palette.rgb(dress.get(name, name)), row / (SHADES - 1))
                image.paste(colour, (column * CELL, row, column * CELL + CELL, row + 1))
        image.save(path, optimize=True)


def _nook(tree, place, normal):
    """The part of the sky over the face that neighbours take away, 0 to 1."""
    hits = 0
    for i in range(RAYS):
        z = 1 - 2 * (i + 0.5) / RAYS
        a = math.pi * (1 + math.sqrt(5)) * i
        ray = Vector((math.sqrt(1 - z * z) * math.cos(a), math.sqrt(1 - z * z) * math.sin(a), z))
        if ray.dot(normal) < 0:
            ray = -ray
        hits += tree.ray_cast(place + normal * 0.012, ray, REACH)[0] is not None
    return hits / RAYS


def _shaded(rgb, nook):
    """Shadow is cooler and deeper, never black. Colours are a little stronger than the palette's, as in the pictures."""
    grey = sum(rgb) / 3
    strong = [min(max(grey + (c - grey) * 1.2, 0), 255) for c in rgb]
    return tuple(round(c * (1 - nook * loss)) for c, loss in zip(strong, (0.50, 0.56, 0.50)))


def make_armature(name, bones):
    """bones: {name: (parent or None, head, tail)}, parents first."""
    data = bpy.data.armatures.new(name)
    armature = bpy.data.objects.new(name, data)
    bpy.context.scene.collection.objects.link(armature)
    bpy.context.view_layer.objects.active = armature
    bpy.ops.object.mode_set(mode="EDIT")
    for bone_name, (parent, head, tail) in bones.items():
        bone = data.edit_bones.new(bone_name)
        bone.head, bone.tail = head, tail
        bone.parent = data.edit_bones[parent] if parent else None
    bpy.ops.object.mode_set(mode="OBJECT")
    for bone in armature.pose.bones:
        bone.rotation_mode = "QUATERNION"
    return armature


def apply(armature, pose):
    """Takes up a pose: {bone: turns in degrees about the scene's axes}; "lift" is how far the root rises, "move" where it goes."""
    for bone in armature.pose.bones:
        degrees = pose.get(bone.name, (0, 0, 0))
        turn = Euler([math.radians(d) for d in degrees]).to_matrix()
        rest = bone.bone.matrix_local.to_3x3()
        bone.rotation_quaternion = (rest.inverted() @ turn @ rest).to_quaternion()
        move = Vector(pose.get("move", (0, 0, pose.get("lift", 0.0)))) if not bone.parent else Vector()
        bone.location = rest.inverted() @ move


def make_actions(armature, actions, root):
    """Records actions: {name: (pose at a time from 0 to 1, seconds)}; root is the bone that moves."""
    for name, (pose_at, length) in actions.items():
        frames = round(length * FPS)
        armature.animation_data_create().action = bpy.data.actions.new(name)
        for frame in range(frames + 1):
            apply(armature, pose_at(frame / frames))
            for bone in armature.pose.bones:
                bone.keyframe_insert("rotation_quaternion", frame=frame)
            armature.pose.bones[root].keyframe_insert("location", frame=frame)
