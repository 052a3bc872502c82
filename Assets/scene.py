"""What every render of Brindle shares: one sun, one camera pitch for the map, materials, and a builder of models.

Runs inside Blender (3.4, Cycles on the CPU). A script that renders begins with reset(), builds its models,
places them, chooses a camera (map_camera or vista_camera) and calls render(). Lengths are metres as far as
men are concerned: a man is 1.7 high. x goes right, y away from the viewer, z up. Angles are radians.
"""
import math
import os
import random
import sys

import bpy

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
sys.dont_write_bytecode = True
import palette

MAP_PITCH = math.radians(50)  # of the map's orthographic camera, from straight down
MAP_UNITS = 16.0  # of the map to a metre; men, who shall be seen, are drawn twice as large
SUN_HEIGHT = math.radians(38)  # above the ground
SUN_SIDE = math.radians(-58)  # from the viewer's back towards his left
_haze = {"near": 0.0, "far": 0.0, "most": 0.0}


def arguments():
    """What stands behind the "--" on Blender's command line."""
    return sys.argv[sys.argv.index("--") + 1:] if "--" in sys.argv else []


def quick_arguments(samples):
    """Folder, samples and what is wanted, of a command line that may say samples=N for a quick look."""
    out, *wanted = arguments()
    if wanted and wanted[0].startswith("samples="):
        samples = int(wanted.pop(0).split("=")[1])
    return out, samples, wanted


def reset(haze=(0.0, 0.0, 0.0), sun=3.6, sky=0.62):
    """Empties Blender and sets sun and sky.

    haze: from which distance to which one things fade into the haze, and how much at most (0 to 1).
    """
    bpy.ops.wm.read_factory_settings(use_empty=True)
    _haze.update(near=haze[0], far=haze[1], most=haze[2])
    _add_sun(sun)
    _add_sky(sky)


def _add_sun(energy):
    light = bpy.data.lights.new("sun", "SUN")
    light.energy, light.angle, light.color = energy, 0.05, palette.linear("sun")
    o = bpy.data.objects.new("sun", light)
    o.rotation_euler = (math.pi / 2 - SUN_HEIGHT, 0, SUN_SIDE)
    bpy.context.scene.collection.objects.link(o)


def _add_sky(strength):
    """Light from all sides: warm along the horizon, blue above; seen only in the water's mirror."""
    world = bpy.data.worlds.new("sky")
    bpy.context.scene.world = world
    world.use_nodes = True
    nodes, links = world.node_tree.nodes, world.node_tree.links
    where = nodes.new("ShaderNodeTexCoord")
    split = nodes.new("ShaderNodeSeparateXYZ")
    ramp = nodes.new("ShaderNodeValToRGB")
    links.new(where.outputs["Generated"], split.inputs[0])
    links.new(split.outputs["Z"], ramp.inputs[0])
    ramp.color_ramp.elements[0].color = (*palette.linear("horizon"), 1)
    ramp.color_ramp.elements[1].color = (*palette.linear("shade_light"), 1)
    ramp.color_ramp.elements[1].position = 0.55
    background = nodes["Background"]
    links.new(ramp.outputs[0], background.inputs[0])
    background.inputs[1].default_value = strength


def material(name, roughness=0.85, specular=0.12, metallic=0.0, glow=0.0):
    """The material of a palette colour, made once. All share the haze that reset() was given."""
    if name in bpy.data.materials:
        return bpy.data.materials[name]
    m = bpy.data.materials.new(name)
    m.use_nodes = True
    nodes, links = m.node_tree.nodes, m.node_tree.links
    shader = nodes["Principled BSDF"]
    shader.inputs["Base Color"].default_value = (*palette.linear(name), 1)
    shader.inputs["Roughness"].default_value = roughness
    shader.inputs["Specular"].default_value = specular
    shader.inputs["Metallic"].default_value = metallic
    if glow:
        shader.inputs["Emission"].default_value = (*palette.linear(name), 1)
        shader.inputs["Emission Strength"].default_value = glow
    if _haze["most"] > 0:
        _add_haze(nodes, links, shader)
    return m


def _add_haze(nodes, links, shader):
    """Mixes the haze colour in by the distance from the camera, for camera rays alone."""
    distance = nodes.new("ShaderNodeCameraData")
    amount = nodes.new("ShaderNodeMapRange")
    amount.interpolation_type = "SMOOTHSTEP"
    amount.inputs["From Min"].default_value = _haze["near"]
    amount.inputs["From Max"].default_value = _haze["far"]
    amount.inputs["To Max"].default_value = _haze["most"]
    path = nodes.new("ShaderNodeLightPath")
    seen = nodes.new("ShaderNodeMath")
    seen.operation = "MULTIPLY"
    air = nodes.new("ShaderNodeEmission")
    air.inputs[0].default_value = (*palette.linear("haze"), 1)
    mix = nodes.new("ShaderNodeMixShader")
    links.new(distance.outputs["View Distance"], amount.inputs["Value"])
    links.new(amount.outputs["Result"], seen.inputs[0])
    links.new(path.outputs["Is Camera Ray"], seen.inputs[1])
    links.new(seen.outputs[0], mix.inputs[0])
    links.new(shader.outputs[0], mix.inputs[1])
    links.new(air.outputs[0], mix.inputs[2])
    links.new(mix.outputs[0], nodes["Material Output"].inputs[0])


def water_material():
    """Water with small waves, drawn out sideways."""
    if "water" in bpy.data.materials:
        return bpy.data.materials["water"]
    m = material("water", roughness=0.10, specular=0.7)
    nodes, links = m.node_tree.nodes, m.node_tree.links
    where, scale = nodes.new("ShaderNodeTexCoord"), nodes.new("ShaderNodeMapping")
    waves, bump = nodes.new("ShaderNodeTexNoise"), nodes.new("ShaderNodeBump")
    scale.inputs["Scale"].default_value = (0.55, 1.5, 1)
    waves.inputs["Scale"].default_value = 1.0
    bump.inputs["Strength"].default_value, bump.inputs["Distance"].default_value = 0.35, 0.5
    links.new(where.outputs["Object"], scale.inputs["Vector"])
    links.new(scale.outputs[0], waves.inputs["Vector"])
    links.new(waves.outputs["Fac"], bump.inputs["Height"])
    links.new(bump.outputs[0], nodes["Principled BSDF"].inputs["Normal"])
    return m


def where_on_picture(point, size):
    """The pixel, as two floats, where the camera sees a point of the world."""
    from bpy_extras.object_utils import world_to_camera_view
    from mathutils import Vector
    scene = bpy.context.scene
    scene.render.resolution_x, scene.render.resolution_y = size
    bpy.context.view_layer.update()
    at = world_to_camera_view(scene, scene.camera, Vector(point))
    return at.x * size[0], (1 - at.y) * size[1]


class Model:
    """A low-poly model under construction: parts are added, then build() makes one mesh with soft edges.

    Every part takes the palette name of its colour, and a turn: a function from point to point, or none.
    """

    def __init__(self, name, seed=1):
        self.name, self.points, self.faces, self.colours = name, [], [], []
        self.random = random.Random(f"{name}/{seed}")

    def add(self, points, faces, colour, turn=None):
        """Any part: points, faces as tuples of their indices, one colour or one for each face."""
        first = len(self.points)
        self.points += [tuple(turn(p)) if turn else tuple(p) for p in points]
        self.faces += [tuple(first + i for i in f) for f in faces]
        self.colours += list(colour) if isinstance(colour, (list, tuple)) else [colour] * len(faces)
        return self

    def box(self, at, size, colour, turn=None):
        """A box by its centre and size, turned about the centre by the Euler angles of turn (x, y, z)."""
        corners = [(x * size[0] / 2, y * size[1] / 2, z * size[2] / 2)
                   for z in (-1, 1) for y in (-1, 1) for x in (-1, 1)]
        faces = [(0, 2, 3, 1), (4, 5, 7, 6), (0, 1, 5, 4), (2, 6, 7, 3), (0, 4, 6, 2), (1, 3, 7, 5)]
        return self.add([_moved(_turned(c, turn), at) for c in corners], faces, colour)

    def prism(self, at, low, high, height, sides, colour, turn=None, spin=0.0):
        """A prism or cone on its base centre; low and high are the radii, turn tilts it about the base."""
        ring = [(math.cos(spin + 2 * math.pi * i / sides), math.sin(spin + 2 * math.pi * i / sides))
                for i in range(sides)]
        points = [(c * low, s * low, 0) for c, s in ring] + [(c * high, s * high, height) for c, s in ring]
        faces = [(i, (i + 1) % sides, sides + (i + 1) % sides, sides + i) for i in range(sides)]
        faces += [tuple(reversed(range(sides))), tuple(range(sides, 2 * sides))]
        return self.add([_moved(_turned(p, turn), at) for p in points], faces, colour)

    def blob(self, at, radius, colour, rough=0.12, squash=1.0, fine=1):
        """A lumpy ball: foliage, stones, sacks. radius is a number or one for each axis."""
        bpy.ops.mesh.primitive_ico_sphere_add(subdivisions=fine + 1, radius=1)
        o = bpy.context.object
        radii = radius if isinstance(radius, tuple) else (radius, radius, radius * squash)
        points = []
        for v in o.data.vertices:
            k = 1 + self.random.uniform(-rough, rough)
            points.append(tuple(at[i] + v.co[i] * radii[i] * k for i in range(3)))
        faces = [tuple(p.vertices) for p in o.data.polygons]
        bpy.data.objects.remove(o, do_unlink=True)
        return self.add(points, faces, colour)

    def gable(self, at, size, colour, overhang=0.25, hip=0.0, wall=None):
        """A roof with its ridge along x on a house of size (w, d); at is the middle of the eaves' height.

        size's third number is the roof's height; hip draws the ridge's ends in (0: upright gables of
        the wall colour).
        """
        w, d, h = size[0] / 2 + overhang, size[1] / 2 + overhang, size[2]
        t = 0.14
        for side in (-1, 1):
            slope = [(-w, side * d, 0), (w, side * d, 0), (w - hip * w, 0, h), (-w + hip * w, 0, h)]
            up = [(x, y, z + t) for x, y, z in slope]
            f = [(0, 1, 2, 3), (7, 6, 5, 4), (0, 4, 5, 1), (1, 5, 6, 2), (2, 6, 7, 3), (3, 7, 4, 0)]
            f = f if side > 0 else [tuple(reversed(q)) for q in f]
            self.add([_moved(p, at) for p in slope + up], f, colour)
        ends = overhang if wall else 0
        for side in (-1, 1):
            x, tip = side * (w - ends), side * (w - ends - hip * w)
            tri = [(x, -d + ends, 0), (x, d - ends, 0), (tip, 0, h - ends * h / d)]
            self.add([_moved(p, at) for p in tri], [(0, 1, 2) if side > 0 else (2, 1, 0)], wall or colour)
        return self

    def wheel(self, at, radius, colour, rim=0.10, width=0.12, spokes=8, across="y", hub="iron", sides=0, spin=0.0):
        """An upright spoked wheel about its centre; across is the axis of its axle, sides the rim's (0: two a spoke), spin how far its
        spokes are turned, radians."""
        def lay(p):
            q = (p[0], p[2], p[1]) if across == "y" else (p[2], p[0], p[1])
            return _moved(q, at)
        n = sides or spokes * 2
        ring = []
        for i in range(n):
            c, s = math.cos(2 * math.pi * i / n), math.sin(2 * math.pi * i / n)
            ring += [(c * r, s * r, z) for r in (radius - rim, radius) for z in (-width / 2, width / 2)]
        faces = []
        for i in range(n):
            a, b = 4 * i, 4 * ((i + 1) % n)
            faces += [(a + 2, b + 2, b + 3, a + 3), (a, a + 1, b + 1, b), (a, b, b + 2, a + 2), (a + 1, a + 3, b + 3, b + 1)]
        self.add(ring, faces, colour, lay)
        for i in range(spokes):
            angle = 2 * math.pi * i / spokes + spin
            r, t = (radius - rim) / 2, rim * 0.4
            bar = [(x, y, z) for z in (-t, t) for y in (-t, t) for x in (0, 2 * r)]
            turned = [(x * math.cos(angle) - y * math.sin(angle), x * math.sin(angle) + y * math.cos(angle), z)
                      for x, y, z in bar]
            self.add(turned, [(0, 2, 3, 1), (4, 5, 7, 6), (0, 1, 5, 4), (2, 6, 7, 3), (0, 4, 6, 2), (1, 3, 7, 5)],
                     colour, lay)
        n = 8
        ends = [(math.cos(2 * math.pi * i / n) * rim * 1.4, math.sin(2 * math.pi * i / n) * rim * 1.4, z)
                for z in (-width * 0.8, width * 0.8) for i in range(n)]
        faces = [(i, (i + 1) % n, n + (i + 1) % n, n + i) for i in range(n)] + [tuple(reversed(range(n))), tuple(range(n, 2 * n))]
        return self.add(ends, faces, hub, lay)

    def build(self, bevel=0.0):
        """The mesh, shared by all its placements. bevel is the width of the softened edges."""
        mesh = bpy.data.meshes.new(self.name)
        mesh.from_pydata(self.points, [], self.faces)
        names = sorted(set(self.colours))
        for name in names:
            mesh.materials.append(material(name))
        mesh.polygons.foreach_set("material_index", [names.index(c) for c in self.colours])
        mesh.update()
        _orient(mesh)
        mesh["bevel"] = bevel
        return mesh


def _orient(mesh):
    """Turns all faces outward, part by part."""
    import bmesh
    b = bmesh.new()
    b.from_mesh(mesh)
    bmesh.ops.recalc_face_normals(b, faces=b.faces)
    b.to_mesh(mesh)
    b.free()


def _turned(p, turn):
    if not turn:
        return p
    x, y, z = p
    a, b, c = turn
    y, z = y * math.cos(a) - z * math.sin(a), y * math.sin(a) + z * math.cos(a)
    x, z = x * math.cos(b) + z * math.sin(b), -x * math.sin(b) + z * math.cos(b)
    x, y = x * math.cos(c) - y * math.sin(c), x * math.sin(c) + y * math.cos(c)
    return (x, y, z)


def _moved(p, at):
    return (p[0] + at[0], p[1] + at[1], p[2] + at[2])


def place(mesh, at=(0, 0, 0), turn=0.0, scale=1.0, tilt=(0.0, 0.0)):
    """Puts a built mesh into the scene; many placements share one mesh. turn is about the upright axis."""
    o = bpy.data.objects.new(mesh.name, mesh)
    o.location, o.rotation_euler = at, (tilt[0], tilt[1], turn)
    o.scale = (scale, scale, scale)
    if mesh.get("bevel"):
        mod = o.modifiers.new("bevel", "BEVEL")
        mod.width, mod.segments, mod.limit_method, mod.angle_limit = mesh["bevel"], 1, "ANGLE", math.radians(35)
    bpy.context.scene.collection.objects.link(o)
    return o


def map_camera(centre, width):
    """The camera of everything that stands on the map: orthographic, MAP_PITCH, width metres across."""
    return _camera(centre, width, MAP_PITCH)


def on_map(x, y, z=0.0):
    """The place of the world that the map shows at x, y; z metres above the ground there."""
    return (x / MAP_UNITS, -y / MAP_UNITS / math.cos(MAP_PITCH), z)


def map_camera_on(size, foot):
    """The map's camera for a picture of `size` units in which the world's origin lies at the place `foot`, y down."""
    right, up = (size[0] / 2 - foot[0]) / MAP_UNITS, (foot[1] - size[1] / 2) / MAP_UNITS
    return map_camera((right, 0, up / math.sin(MAP_PITCH)), max(size) / MAP_UNITS)


def top_camera(centre, width):
    """From straight above, for what is turned on the map's plane: tiles of roads, birds."""
    return _camera(centre, width, 0.0)


def front_camera(centre, width):
    """Straight from the front, for signs and plates."""
    return _camera(centre, width, math.pi / 2)


def _camera(centre, width, pitch):
    data = bpy.data.cameras.new("camera")
    data.type, data.ortho_scale = "ORTHO", width
    o = bpy.data.objects.new("camera", data)
    o.location = (centre[0], centre[1] - 60 * math.sin(pitch), centre[2] + 60 * math.cos(pitch))
    o.rotation_euler = (pitch, 0, 0)
    bpy.context.scene.collection.objects.link(o)
    bpy.context.scene.camera = o
    return o


def vista_camera(at, down, lens=40.0):
    """A view into the land, horizon and all, for the title pictures; down is the angle below level."""
    data = bpy.data.cameras.new("camera")
    data.lens, data.clip_end = lens, 2000
    o = bpy.data.objects.new("camera", data)
    o.location, o.rotation_euler = at, (math.pi / 2 - down, 0, 0)
    bpy.context.scene.collection.objects.link(o)
    bpy.context.scene.camera = o
    return o


def render(path, size, samples, window=None):
    """Renders to a PNG with a transparent ground.

    window: the part of the picture to render, (left, top, right, bottom) in its pixels; the file then has
    the window's size.
    """
    scene = bpy.context.scene
    scene.render.engine = "CYCLES"
    scene.cycles.device = "CPU"
    scene.cycles.samples, scene.cycles.seed = samples, 7
    scene.cycles.use_denoising = False  # not in this build
    scene.cycles.use_adaptive_sampling = False
    scene.cycles.max_bounces, scene.cycles.diffuse_bounces, scene.cycles.glossy_bounces = 4, 2, 2
    scene.cycles.sample_clamp_indirect = 3.0
    scene.render.film_transparent = True
    scene.render.use_persistent_data = True
    scene.view_settings.view_transform = "Standard"
    scene.render.resolution_x, scene.render.resolution_y = size
    scene.render.image_settings.color_mode = "RGBA"
    scene.render.use_border = scene.render.use_crop_to_border = window is not None
    if window:
        left, top, right, bottom = window
        scene.render.border_min_x, scene.render.border_max_x = left / size[0], right / size[0]
        scene.render.border_min_y, scene.render.border_max_y = 1 - bottom / size[1], 1 - top / size[1]
    scene.render.filepath = path
    bpy.ops.render.render(write_still=True)
