"""Writes a unit of the game from a Blender scene: one mesh (.mesh) and one file for each of its actions (.anim).

From a script inside Blender:     import export_unit; export_unit.mesh(...); export_unit.animation(...)
From the command line:            blender -b MAN.blend --python-exit-code 1 -P Assets/export_unit.py -- FOLDER NAME SCALE

The second takes the scene's only armature and the mesh that it moves (or, without one, the scene's only mesh) and
writes NAME.mesh and, for each action, NAME_<action>.anim. SCALE is the number of logical units in a Blender unit.

A model stands with z up and looks along -y, its origin between its feet. In the game x goes right, y to the front and
z up, and a face is seen from where its corners go round clockwise; what is written here is turned accordingly. Colours
come from the texture that the control names: the mesh carries the coordinates of its active UV layer.

A vertex follows at most four bones, those with the largest weights. Places of bones are sampled: STEP keys a frame.
"""
import os
import struct
import sys

import bpy
from mathutils import Matrix

MARK = b"qorv"
STATIC, SKINNED = 274, 4380  # vertex formats: position, normal, uv; the same with three weights and four bones
STEP = 2  # frames between two keys
NO_PARENT = 0xFFFFFFFF
MOST_BONES, MOST_VERTICES = 256, 65536
FLIP = Matrix.Diagonal((1, -1, 1, 1))  # Blender's y goes away from the viewer, the game's towards him


def _game_matrix(matrix, scale):
    """A place in Blender's space as sixteen floats of the game, row vectors, row by row."""
    turned = FLIP @ matrix @ FLIP
    turned.translation *= scale
    return [turned[row][column] for column in range(4) for row in range(4)]


def _weights(vertex, bone_of_group):
    """Up to four (bone, weight), the largest first, their sum 1; a vertex without any follows bone 0."""
    known = [(bone_of_group[g.group], g.weight) for g in vertex.groups if g.group in bone_of_group and g.weight > 0]
    known = sorted(known, key=lambda entry: (-entry[1], entry[0]))[:4]
    total = sum(weight for _, weight in known)
    known = [(bone, weight / total) for bone, weight in known] or [(0, 1.0)]
    return known + [(0, 0.0)] * (4 - len(known))


def _pack_vertex(place, normal, uv, weights):
    parts = struct.pack("<3f", *place)
    if weights:
        parts += struct.pack("<3f", *[weight for _, weight in weights[:3]])
        parts += struct.pack("<4B", *[bone for bone, _ in weights])
    return parts + struct.pack("<3f2f", *normal, *uv)


def mesh(path, model, armature, scale):
    """Writes the mesh of an object as it is without its pose; armature may be None. Returns (vertices, triangles)."""
    data = model.data.copy()
    to_space = armature.matrix_world.inverted() @ model.matrix_world if armature else model.matrix_world
    data.transform(to_space)
    data.calc_loop_triangles()
    data.calc_normals_split()
    bones = [bone.name for bone in armature.data.bones] if armature else []
    if len(bones) > MOST_BONES:
        raise SystemExit(f"export_unit: {len(bones)} bones; a mesh has at most {MOST_BONES}")
    bone_of_group = {group.index: bones.index(group.name) for group in model.vertex_groups if group.name in bones}
    layer = data.uv_layers.active

    vertices, indices = {}, []
    for triangle in data.loop_triangles:
        for loop, vertex in zip(reversed(triangle.loops), reversed(triangle.vertices)):
            v = data.vertices[vertex]
            place = (v.co.x * scale, -v.co.y * scale, v.co.z * scale)
            n = data.loops[loop].normal
            uv = layer.data[loop].uv if layer else (0.0, 0.0)
            packed = _pack_vertex(place, (n.x, -n.y, n.z), (uv[0], 1 - uv[1]), bones and _weights(v, bone_of_group))
            indices.append(vertices.setdefault(packed, len(vertices)))
    if len(vertices) > MOST_VERTICES:
        raise SystemExit(f"export_unit: {len(vertices)} vertices; a mesh has at most {MOST_VERTICES}")

    with open(path, "wb") as out:
        out.write(MARK + struct.pack("<3I", SKINNED if bones else STATIC, len(vertices), len(indices)) + MARK)
        out.write(b"".join(vertices) + MARK)
        out.write(struct.pack(f"<{len(indices)}H", *indices) + MARK)
        if bones:
            out.write(struct.pack("<I", len(bones)))
            for bone in armature.data.bones:
                out.write(struct.pack("<16f", *_game_matrix(bone.matrix_local, scale)))
            out.write(MARK)
    bpy.data.meshes.remove(data)
    return len(vertices), len(indices) // 3


def _local_places(armature, scale):
    """Where each bone lies in its parent now."""
    places = []
    for bone in armature.data.bones:
        pose = armature.pose.bones[bone.name]
        place = pose.parent.matrix.inverted() @ pose.matrix if pose.parent else pose.matrix
        places.append(_game_matrix(place, scale))
    return places


def animation(path, armature, action, scale):
    """Writes an action, from its first frame to its last. Returns its length in seconds."""
    scene = bpy.context.scene
    fps = scene.render.fps / scene.render.fps_base
    first, last = (round(frame) for frame in action.frame_range)
    armature.animation_data_create().action = action
    frames = [*range(first, last, STEP), last]
    keys = []
    for frame in frames:
        scene.frame_set(frame)
        bpy.context.view_layer.update()
        keys.append(_local_places(armature, scale))
    length = (last - first) / fps

    names = [bone.name for bone in armature.data.bones]
    with open(path, "wb") as out:
        out.write(MARK + struct.pack("<If", len(names), length))
        for i, bone in enumerate(armature.data.bones):
            parent = names.index(bone.parent.name) if bone.parent else NO_PARENT
            out.write(struct.pack("<2I", len(frames), parent))
            for frame, places in zip(frames, keys):
                out.write(struct.pack("<17f", *places[i], (frame - first) / fps))
            out.write(MARK)
    return length


def _only(objects, what):
    if len(objects) != 1:
        raise SystemExit(f"export_unit: the scene has {len(objects)} {what}; one is needed")
    return objects[0]


def unit(folder, name, scale):
    """All of the scene: its mesh and every action."""
    objects = bpy.context.scene.objects
    armatures = [o for o in objects if o.type == "ARMATURE"]
    armature = _only(armatures, "armatures") if armatures else None
    meshes = [o for o in objects if o.type == "MESH" and (not armature or o.find_armature() == armature)]
    os.makedirs(folder, exist_ok=True)
    vertices, triangles = mesh(os.path.join(folder, f"{name}.mesh"), _only(meshes, "meshes"), armature, scale)
    bones = len(armature.data.bones) if armature else 0
    print(f"{name}: {vertices} vertices, {triangles} triangles, {bones} bones")
    for action in bpy.data.actions if armature else []:
        length = animation(os.path.join(folder, f"{name}_{action.name}.anim"), armature, action, scale)
        print(f"{name}_{action.name}: {length:.2f} s")


if __name__ == "__main__":
    given = sys.argv[sys.argv.index("--") + 1:] if "--" in sys.argv else []
    if len(given) != 3:
        raise SystemExit("usage: blender -b FILE.blend -P export_unit.py -- FOLDER NAME SCALE")
    unit(given[0], given[1], float(given[2]))
