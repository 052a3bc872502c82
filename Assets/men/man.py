"""The man of the roads: a mesh with bones and what he does, written to Data/Men/.

    blender -b --python-exit-code 1 -P Assets/men/man.py -- FOLDER

He stands at the origin, looks along -y, and is 1.75 high, hat and all. In the game that is 56 logical units.
"""
import math
import os
import sys

import bpy

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path[:0] = [HERE, os.path.dirname(HERE)]
sys.dont_write_bytecode = True
import export_unit
import palette
from figure import FPS, NEAR, Figure, make_actions, make_armature

SCALE = 32.0  # logical units in a metre
BONES = {  # name: (parent, head, tail)
    "hips": (None, (0, 0, 0.62), (0, 0, 0.74)),
    "spine": ("hips", (0, 0, 0.74), (0, 0, 0.92)),
    "chest": ("spine", (0, 0, 0.92), (0, 0, 1.14)),
    "head": ("chest", (0, 0, 1.14), (0, 0, 1.5)),
    "hat": ("head", (0, 0, 1.5), (0, 0, 1.75)),
}
for side, x in (("left", 1), ("right", -1)):  # his own left: the viewer's right
    BONES.update({
        f"shoulder_{side}": ("chest", (x * 0.10, 0, 1.08), (x * 0.29, 0, 1.07)),
        f"arm_{side}": (f"shoulder_{side}", (x * 0.29, 0, 1.07), (x * 0.31, 0, 0.82)),
        f"forearm_{side}": (f"arm_{side}", (x * 0.31, 0, 0.82), (x * 0.32, 0, 0.60)),
        f"hand_{side}": (f"forearm_{side}", (x * 0.32, 0, 0.60), (x * 0.32, 0, 0.48)),
        f"thigh_{side}": ("hips", (x * 0.13, 0, 0.62), (x * 0.14, 0, 0.36)),
        f"shin_{side}": (f"thigh_{side}", (x * 0.14, 0, 0.36), (x * 0.14, 0, 0.10)),
        f"foot_{side}": (f"shin_{side}", (x * 0.14, 0, 0.10), (x * 0.14, -0.16, 0.05)),
    })


ENEMY_DRESS = {"shirt_red": "enemy_shirt", "plank_dark": "ink", "hat": "log", "paint_red": "enemy_red", "cream": "enemy_red", "timber": "enemy_red",
               "trunk": "ink", "log": "ink"}


# The body -----------------------------------------------------------------------------------------------------------

def between(z, lower, upper, low, high):
    """Weights of a point at height z: all of the lower bone up to low, all of the upper one from high on."""
    part = min(max((z - low) / (high - low), 0.0), 1.0)
    return [(lower, 1 - part), (upper, part)]


def follow_trunk(p):
    return between(p[2], "hips", "spine", 0.66, 0.80) if p[2] < 0.85 else between(p[2], "spine", "chest", 0.88, 1.0)


def add_trunk(f, shirt):
    rings = [((0, 0, 0.53), 0.15, 0.13, "plank_dark"), ((0, 0, 0.58), 0.235, 0.19, "plank_dark", NEAR),
             ((0, 0, 0.68), 0.25, 0.205, "timber"), ((0, 0, 0.735), 0.255, 0.21, shirt),
             ((0, -0.01, 0.84), 0.275, 0.235, shirt), ((0, 0, 0.97), 0.275, 0.22, shirt, NEAR),
             ((0, 0.01, 1.07), 0.245, 0.185, shirt), ((0, 0.01, 1.14), 0.15, 0.13, shirt, NEAR),
             ((0, 0, 1.18), 0.09, 0.09, shirt)]
    f.loft(rings, 10, follow_trunk, spin=math.pi / 10)
    f.ball((0, -0.215, 0.71), (0.05, 0.02, 0.035), "gold", "hips", 6, 3)  # the buckle
    for x in (-0.13, 0.13):
        add_brace(f, x)
    scarf = [((0, -0.005, 1.10), 0.185, 0.165, "cream"), ((0, -0.01, 1.135), 0.205, 0.18, "cream"),
             ((0, 0, 1.18), 0.165, 0.15, "cream", NEAR), ((0, 0, 1.19), 0.10, 0.10, "cream")]
    f.loft(scarf, 9, "chest")
    f.ball((0.02, -0.19, 1.09), (0.045, 0.03, 0.055), "cream", "chest", 6, 3)


def add_brace(f, x):
    """A strap over one shoulder, a little outside the shirt."""
    line = [(-0.200, 0.74), (-0.234, 0.84), (-0.215, 0.97), (-0.165, 1.075), (-0.06, 1.135),
            (0.10, 1.13), (0.185, 1.06), (0.215, 0.97), (0.215, 0.84), (0.195, 0.74)]
    points, faces = [], []
    if not f.near:
        line = line[::3]
    for i, (y, z) in enumerate(line):
        k = 0.92 if 0 < i < len(line) - 1 else 1.0
        out = 0.018 * (1 if y > 0 else -1)
        lift = 0.03 if z > 1.1 else 0.0
        points += [(x * k - 0.033, y + out, z + lift), (x * k + 0.033, y + out, z + lift)]
    for i in range(len(line) - 1):
        faces.append((2 * i, 2 * i + 2, 2 * i + 3, 2 * i + 1))
    f.add(points, [tuple(reversed(face)) for face in faces], "timber", follow_trunk)


def add_head(f):
    f.ball((0, 0, 1.36), (0.225, 0.22, 0.23), "skin", "head", 10, 6)
    f.ball((0, 0.04, 1.37), (0.235, 0.21, 0.22), "trunk", "head", 10, 5)  # hair, behind the face
    for x in (-1, 1):
        f.ball((x * 0.228, -0.01, 1.34), (0.035, 0.05, 0.062), "skin", "head", 6, 3)
        f.ball((x * 0.085, -0.196, 1.395), (0.032, 0.024, 0.045), "ink", "head", 6, 3)
        f.ball((x * 0.066, -0.214, 1.29), (0.09, 0.036, 0.038), "trunk", "head", 6, 4, tilt=0.1)  # moustache
    f.ball((0, -0.238, 1.35), (0.05, 0.056, 0.048), "skin", "head", 6, 4)
    add_hat(f)


def add_hat(f):
    """Straw, worn a little towards the back of the head, so that the face is seen from above too."""
    rings = [(0.20, 1.475, "hat"), (0.335, 1.46, "hat", NEAR), (0.385, 1.468, "hat"), (0.388, 1.49, "hat", NEAR),
             (0.30, 1.505, "hat", NEAR), (0.240, 1.52, "paint_red"), (0.230, 1.585, "hat"), (0.205, 1.67, "hat", NEAR),
             (0.15, 1.725, "hat"), (0.06, 1.75, "hat")]
    shape = Figure(f.near)
    shape.loft([((0, 0, z), r, r * 1.03, *rest) for r, z, *rest in rings], 12, "hat", ends_show=True)
    lean = math.radians(-13)
    points = []
    for x, y, z in shape.points:
        y, z = y * math.cos(lean) - (z - 1.48) * math.sin(lean), y * math.sin(lean) + (z - 1.48) * math.cos(lean)
        points.append((x, y + 0.035, z + 1.485))
    f.add(points, shape.faces, shape.colours, "hat")


def add_arm(f, side, x, shirt):
    def follows(p):
        if p[2] > 0.98:
            return between(p[2], f"arm_{side}", f"shoulder_{side}", 1.04, 1.14)
        return between(p[2], f"forearm_{side}", f"arm_{side}", 0.78, 0.86)
    sleeve = [((x * 0.312, 0, 0.765), 0.088, 0.088, shirt), ((x * 0.312, 0, 0.785), 0.112, 0.112, shirt, NEAR),
              ((x * 0.310, 0, 0.835), 0.112, 0.112, shirt), ((x * 0.308, 0, 0.86), 0.100, 0.100, shirt, NEAR),
              ((x * 0.300, 0, 0.96), 0.112, 0.118, shirt), ((x * 0.285, 0, 1.05), 0.115, 0.125, shirt),
              ((x * 0.255, 0, 1.11), 0.085, 0.095, shirt, NEAR), ((x * 0.22, 0, 1.13), 0.03, 0.03, shirt)]
    f.loft(sleeve, 7, follows)
    forearm = [((x * 0.32, 0, 0.575), 0.066, 0.066, "skin"), ((x * 0.318, 0, 0.66), 0.080, 0.080, "skin", NEAR),
               ((x * 0.312, 0, 0.775), 0.084, 0.084, "skin")]
    f.loft(forearm, 7, f"forearm_{side}")
    f.ball((x * 0.322, -0.008, 0.525), (0.075, 0.088, 0.092), "skin", f"hand_{side}", 7, 4)
    f.ball((x * 0.275, -0.065, 0.555), (0.034, 0.036, 0.055), "skin", f"hand_{side}", 6, 3, tilt=0.5)  # thumb


def add_leg(f, side, x):
    def follows(p):
        if p[2] > 0.5:
            return between(p[2], f"thigh_{side}", "hips", 0.54, 0.66)
        return between(p[2], f"shin_{side}", f"thigh_{side}", 0.31, 0.41)
    leg = [((x * 0.14, 0, 0.165), 0.118, 0.118, "plank_dark"), ((x * 0.14, 0, 0.21), 0.128, 0.128, "plank_dark", NEAR),
           ((x * 0.14, 0, 0.34), 0.122, 0.124, "plank_dark"), ((x * 0.14, 0, 0.40), 0.126, 0.132, "plank_dark", NEAR),
           ((x * 0.13, 0, 0.54), 0.135, 0.155, "plank_dark"), ((x * 0.11, 0, 0.63), 0.10, 0.13, "plank_dark")]
    f.loft(leg, 7, follows)
    shaft = [((x * 0.14, 0, 0.07), 0.10, 0.105, "log"), ((x * 0.14, 0, 0.19), 0.104, 0.104, "log")]
    f.loft(shaft, 7, f"shin_{side}", closed=(False, False))
    boot = [((x * 0.145, -0.05, 0.0), 0.105, 0.185, "ink"), ((x * 0.145, -0.05, 0.035), 0.118, 0.20, "log", NEAR),
            ((x * 0.145, -0.05, 0.085), 0.112, 0.185, "log"), ((x * 0.143, -0.025, 0.13), 0.095, 0.12, "log", NEAR),
            ((x * 0.14, 0, 0.16), 0.06, 0.07, "log")]
    f.loft(boot, 8, f"foot_{side}", ends_show=True)


def make_figure(shirt, near):
    f = Figure(near)
    add_trunk(f, shirt)
    add_head(f)
    for side, x in (("left", 1), ("right", -1)):
        add_arm(f, side, x, shirt)
        add_leg(f, side, x)
    return f


# What he does -------------------------------------------------------------------------------------------------------
# A pose is {bone: (x, y, z)}, turns in degrees about the axes of the scene as they lie in the bone's parent, and "lift",
# how far the hips rise. A limb that hangs swings forward with a negative turn about x; the right arm goes out with a
# positive one about y, the left arm with a negative one.

def both(pose, name, x, y=0.0, z=0.0):
    """The same for both sides, mirrored."""
    pose[f"{name}_left"], pose[f"{name}_right"] = (x, -y, -z), (x, y, z)


def standing(t, breath=1.0):
    """Weight on both feet; t runs from 0 to 1 through a breath."""
    swell = breath * math.sin(2 * math.pi * t)
    pose = {"lift": 0.006 * swell, "spine": (1.2 * swell, 0, 0), "chest": (1.5 * swell - 1, 0, 0), "head": (-2 * swell, 0, 0)}
    both(pose, "shoulder", 0, 2 * swell)
    both(pose, "arm", -4, 11 + 1.5 * swell)
    both(pose, "forearm", -16 - 2 * swell, 4)
    both(pose, "thigh", -2 - 0.5 * swell, 4)
    both(pose, "shin", 4 + swell, 0)
    both(pose, "foot", -2 - 0.5 * swell, -4)
    return pose


def idle(t):
    """Three breaths; he looks left and right and shifts his weight."""
    pose = standing((3 * t) % 1)
    sway, look = math.sin(2 * math.pi * t), math.sin(2 * math.pi * t) + 0.35 * math.sin(4 * math.pi * t)
    pose["hips"] = (0, 2.2 * sway, 0)
    pose["spine"] = (pose["spine"][0], -2.6 * sway, 3 * look)
    pose["head"] = (pose["head"][0] + 2, -2 * sway, 19 * look)
    for side in ("left", "right"):
        x, y, z = pose[f"thigh_{side}"]
        pose[f"thigh_{side}"] = (x, y - 2.2 * sway, z)
    return pose


def wave(t):
    """Raises the right arm, waves three times, lets it sink."""
    pose = standing((2 * t) % 1)
    up = smooth(t / 0.2) * smooth((1 - t) / 0.22)
    swing = up * math.sin(2 * math.pi * (t - 0.2) / 0.6 * 3) if 0.2 < t < 0.8 else 0.0
    lerp = lambda a, b: tuple(p + (q - p) * up for p, q in zip(a, b))
    pose["shoulder_right"] = lerp(pose["shoulder_right"], (0, 18, 0))
    pose["arm_right"] = lerp(pose["arm_right"], (-16, 112, 0))
    x, y, z = lerp(pose["forearm_right"], (-6, 40, 0))
    pose["forearm_right"] = (x, y + 27 * swing, z)
    pose["hand_right"] = (0, 14 * swing, 0)
    pose["hips"] = (0, 2.5 * up, 0)
    pose["spine"] = (pose["spine"][0] - 1.5 * up, 4 * up, 0)
    pose["chest"] = (pose["chest"][0] - 2 * up, 3 * up + 1.5 * swing, -4 * up)
    pose["head"] = (pose["head"][0] - 5 * up, -6 * up, 5 * up)
    pose["lift"] += 0.012 * up
    return pose


def walk(t):
    """One step with each foot."""
    a = 2 * math.pi * t
    pose = {"lift": -0.022 + 0.03 * math.cos(2 * a), "hips": (3, 3 * math.sin(a), 7 * math.sin(a)),
            "spine": (3, -2.5 * math.sin(a), -7 * math.sin(a)), "chest": (1, 0, -9 * math.sin(a)),
            "head": (-4 + 2 * math.cos(2 * a), 0, 9 * math.sin(a)), "hat": (1.5 * math.sin(2 * a), 0, 0)}
    for side, phase, out in (("left", a, -1), ("right", a + math.pi, 1)):
        step = math.sin(phase)  # 1: this foot is furthest back
        lifted = max(0.0, -math.cos(phase))  # on its way forward
        pose[f"thigh_{side}"] = (34 * step - 10 * lifted - 4, 2 * out, 0)
        pose[f"shin_{side}"] = (10 + 54 * lifted + 10 * max(0.0, step), 0, 0)
        pose[f"foot_{side}"] = (-16 * lifted - 6 + (20 * step if step > 0 else 14 * step), 0, 0)
        pose[f"arm_{side}"] = (-36 * step - 2, 10 * out, 0)
        pose[f"forearm_{side}"] = (-34 + 18 * step, 4 * out, 0)
    return pose


def carry(t):
    """Walks with both arms up, a load on his head."""
    pose = walk(t)
    a = 2 * math.pi * t
    for side in ("left", "right"):
        pose[f"shoulder_{side}"] = (0, 0, 0)
    both(pose, "shoulder", 0, 16)
    both(pose, "arm", -6 + 2 * math.cos(2 * a), 138)
    both(pose, "forearm", -4, 22)
    both(pose, "hand", 0, 10)
    pose["head"] = (2 + 1.5 * math.cos(2 * a), 0, 3 * math.sin(a))
    pose["chest"] = (-3, 0, -3 * math.sin(a))
    pose["hat"] = (8, 0, 0)
    return pose


def fall(t):
    """Topples over on his back, kicks twice, gets up again."""
    down = smooth(t / 0.14) * smooth((1 - t) / 0.24)
    lie = smooth((t - 0.12) / 0.1) * smooth((0.78 - t) / 0.1)
    kick = lie * math.sin(2 * math.pi * (t - 0.2) / 0.2)
    bounce = 0.05 * math.exp(-14 * max(t - 0.14, 0)) * abs(math.sin(26 * max(t - 0.14, 0)))
    pose = standing(0.0)
    pose["move"] = (0, 0.30 * down, -0.42 * down + bounce)
    pose["hips"] = (-86 * down, 0, 0)
    pose["spine"] = (10 * lie, 0, 0)
    pose["head"] = (26 * lie, 0, 14 * kick)
    both(pose, "arm", -10 - 30 * (down - lie), 11 + 62 * down)
    both(pose, "forearm", -16 - 30 * down, 4)
    for side, sign in (("left", 1), ("right", -1)):
        pose[f"thigh_{side}"] = (-38 * lie - 16 * sign * kick, 4 * sign, 0)
        pose[f"shin_{side}"] = (48 * lie + 14 * sign * kick, 0, 0)
    return pose


def hammer(t):
    """Lifts the hammer over his shoulder and strikes what stands before him."""
    up = smooth(t / 0.52) * (1 - smooth((t - 0.56) / 0.14))
    hit = math.exp(-((t - 0.74) / 0.09) ** 2)
    pose = standing(0.0)
    pose["hips"] = (6 - 6 * up, 0, 0)
    pose["spine"] = (10 - 14 * up + 8 * hit, 0, 8 * up)
    pose["chest"] = (6 - 8 * up + 8 * hit, 0, 10 * up)
    pose["head"] = (6 + 6 * up - 4 * hit, 0, -10 * up)
    pose["arm_right"] = (-44 - 108 * up + 6 * hit, 8 + 10 * up, 0)
    pose["forearm_right"] = (-24 - 46 * up, 0, 0)
    pose["hand_right"] = (44 - 64 * up, 0, 0)
    pose["arm_left"] = (-34, -14, 0)
    pose["forearm_left"] = (-58, 0, 0)
    pose["thigh_left"], pose["shin_left"] = (-22, -6, 0), (20, 0, 0)
    pose["thigh_right"], pose["shin_right"] = (10, 6, 0), (12, 0, 0)
    pose["lift"] = -0.03 - 0.02 * hit
    return pose


def shovel(t):
    """Drives the spade in, lifts it and throws to his left."""
    dig = smooth(t / 0.3) * (1 - smooth((t - 0.4) / 0.2))
    throw = math.exp(-((t - 0.68) / 0.13) ** 2)
    pose = standing(0.0)
    pose["hips"] = (10 + 10 * dig, 0, 16 * throw)
    pose["spine"] = (14 + 14 * dig - 8 * throw, 0, 14 * throw)
    pose["chest"] = (8 + 6 * dig, 0, 12 * throw)
    pose["head"] = (-6 - 8 * dig, 0, -14 * throw)
    pose["arm_right"] = (-30 - 10 * dig - 34 * throw, 4, 0)
    pose["forearm_right"] = (-30 + 12 * dig - 14 * throw, 0, 0)
    pose["arm_left"] = (-46 - 8 * dig - 30 * throw, 16, 0)
    pose["forearm_left"] = (-40 + 14 * dig, 18, 0)
    pose["thigh_left"], pose["shin_left"] = (-24, -6, 0), (22, 0, 0)
    pose["thigh_right"], pose["shin_right"] = (8, 6, 0), (14, 0, 0)
    pose["lift"] = -0.04 - 0.05 * dig
    return pose


def pray(t):
    """On his knees, arms up and down again with a deep bow."""
    bow = 0.5 - 0.5 * math.cos(2 * math.pi * t)
    pose = standing(0.0)
    pose["lift"] = -0.27
    both(pose, "thigh", -8, 5)
    both(pose, "shin", 98, 0)
    both(pose, "foot", 30, 0)
    pose["hips"] = (4, 0, 0)
    pose["spine"] = (4 + 34 * bow, 0, 0)
    pose["chest"] = (2 + 22 * bow, 0, 0)
    pose["head"] = (-14 + 22 * bow, 0, 0)
    both(pose, "arm", -150 + 28 * bow, 14)
    both(pose, "forearm", -8, 0)
    return pose


def wade(t):
    """Walks over bare ground: knees high, arms out for balance."""
    a = 2 * math.pi * t
    pose = walk(t)
    pose["spine"] = (9, -3 * math.sin(a), -4 * math.sin(a))
    pose["lift"] -= 0.02
    for side, phase, out in (("left", a, -1), ("right", a + math.pi, 1)):
        lifted = max(0.0, -math.cos(phase))
        x, y, z = pose[f"thigh_{side}"]
        pose[f"thigh_{side}"] = (x - 30 * lifted, 6 * out, z)
        x, y, z = pose[f"shin_{side}"]
        pose[f"shin_{side}"] = (x + 22 * lifted, y, z)
        pose[f"arm_{side}"] = (-18 - 14 * math.sin(phase), 34 * out, 0)
        pose[f"forearm_{side}"] = (-22, 26 * out, 0)
    return pose


def pick(t):
    """Both hands swing a pick from above his head into the ground before him."""
    up = smooth(t / 0.5) * (1 - smooth((t - 0.54) / 0.14))
    hit = math.exp(-((t - 0.72) / 0.09) ** 2)
    pose = standing(0.0)
    pose["hips"] = (16 - 16 * up + 4 * hit, 0, 0)
    pose["spine"] = (16 - 24 * up + 8 * hit, 0, 0)
    pose["chest"] = (12 - 18 * up + 6 * hit, 0, 0)
    pose["head"] = (-10 + 16 * up, 0, 0)
    both(pose, "arm", -54 - 96 * up + 4 * hit, -10)
    both(pose, "forearm", -12 - 46 * up, -12)
    both(pose, "hand", 10 - 20 * up, 0)
    pose["thigh_left"], pose["shin_left"] = (-26, -8, 0), (24, 0, 0)
    pose["thigh_right"], pose["shin_right"] = (8, 8, 0), (16, 0, 0)
    pose["lift"] = -0.05 - 0.03 * hit
    return pose


# What only the enemy does

def sneak(t):
    """Bent low, on his toes, hands before him, looking about."""
    a = 2 * math.pi * t
    pose = walk(t)
    pose["lift"] = -0.10 + 0.02 * math.cos(2 * a)
    pose["hips"] = (16, 2 * math.sin(a), 5 * math.sin(a))
    pose["spine"] = (20, 0, -5 * math.sin(a))
    pose["chest"] = (14, 0, -4 * math.sin(a))
    pose["head"] = (-38, 0, 22 * math.sin(a))
    for side, phase, out in (("left", a, -1), ("right", a + math.pi, 1)):
        x, y, z = pose[f"thigh_{side}"]
        pose[f"thigh_{side}"] = (x - 34, 7 * out, z)
        x, y, z = pose[f"shin_{side}"]
        pose[f"shin_{side}"] = (x + 28, y, z)
        pose[f"arm_{side}"] = (-58 + 10 * math.sin(phase), 12 * out, 0)
        pose[f"forearm_{side}"] = (-62, 0, 0)
        pose[f"hand_{side}"] = (50, 0, 0)
    return pose


def haul(t):
    """A sack over his shoulder, leaning into it."""
    a = 2 * math.pi * t
    pose = walk(t)
    pose["spine"] = (18, -2 * math.sin(a), -4 * math.sin(a))
    pose["chest"] = (12, 0, -4 * math.sin(a))
    pose["head"] = (-22, 0, 6 * math.sin(a))
    pose["arm_right"] = (-96, 18, 0)
    pose["forearm_right"] = (-112, 12, 0)
    pose["arm_left"] = (-40, -14, 0)
    pose["forearm_left"] = (-74, -8, 0)
    return pose


def cradle(t):
    """Carries a bomb before him in both hands, as far away as they reach."""
    a = 2 * math.pi * t
    pose = walk(t)
    pose["spine"] = (-6, -2 * math.sin(a), -3 * math.sin(a))
    pose["chest"] = (-6, 0, -3 * math.sin(a))
    pose["head"] = (4 + 2 * math.cos(2 * a), 0, 3 * math.sin(a))
    both(pose, "arm", -48 + 2 * math.cos(2 * a), 4)
    both(pose, "forearm", -38, 0)
    return pose


def plant(t):
    """Goes down on a knee, sets the bomb down, and is up again."""
    down = smooth(t / 0.3) * smooth((1 - t) / 0.24)
    pose = standing(0.0)
    pose["lift"] = -0.30 * down
    pose["hips"] = (14 * down, 0, 0)
    pose["spine"] = (26 * down, 0, 0)
    pose["chest"] = (16 * down, 0, 0)
    pose["head"] = (-18 * down, 0, 16 * math.sin(2 * math.pi * t) * down)
    both(pose, "arm", -48 - 4 * down, 4)
    both(pose, "forearm", -38 + 24 * down, 0)
    pose["thigh_left"], pose["shin_left"] = (-82 * down, -6, 0), (88 * down, 0, 0)
    pose["thigh_right"], pose["shin_right"] = (-6 * down, 6, 0), (92 * down, 0, 0)
    pose["foot_right"] = (26 * down, 0, 0)
    return pose


def bow(t):
    """Walks with his arms high and bows at every step: what he follows is holy."""
    a = 2 * math.pi * t
    pose = walk(t)
    dip = 0.5 - 0.5 * math.cos(2 * a)
    pose["spine"] = (4 + 14 * dip, 0, 0)
    pose["chest"] = (2 + 10 * dip, 0, 0)
    pose["head"] = (4 + 12 * dip, 0, 0)
    both(pose, "arm", -152 + 22 * dip, 12)
    both(pose, "forearm", -10, 0)
    return pose


def run_flag(t):
    """Runs, a flagstaff held up in his right hand."""
    a = 2 * math.pi * t
    pose = walk(t)
    pose["spine"] = (12, -2 * math.sin(a), -6 * math.sin(a))
    pose["chest"] = (2, 4, -4 * math.sin(a))
    pose["head"] = (-10, 0, 4 * math.sin(a))
    pose["shoulder_right"] = (0, 16, 0)
    pose["arm_right"] = (-30 + 3 * math.cos(2 * a), 96, 0)
    pose["forearm_right"] = (-10, 46, 0)
    for side, phase in (("left", a), ("right", a + math.pi)):
        x, y, z = pose[f"thigh_{side}"]
        pose[f"thigh_{side}"] = (1.25 * x, y, z)
        x, y, z = pose[f"shin_{side}"]
        pose[f"shin_{side}"] = (x + 18 * max(0.0, -math.cos(phase)), y, z)
    return pose


def smooth(t):
    t = min(max(t, 0.0), 1.0)
    return t * t * (3 - 2 * t)


ACTIONS = {"idle": (idle, 6.0), "wave": (wave, 2.6), "walk": (walk, 0.9), "carry": (carry, 0.9), "fall": (fall, 2.0), "hammer": (hammer, 0.9),
           "shovel": (shovel, 1.4), "pray": (pray, 1.6), "wade": (wade, 0.9), "pick": (pick, 1.1), "sneak": (sneak, 0.9), "haul": (haul, 0.9),
           "cradle": (cradle, 0.9), "plant": (plant, 1.4), "bow": (bow, 0.9), "flag": (run_flag, 0.7)}  # seconds


# What he holds: meshes of their own that follow his bones, so that they move as he does --------------------------------

def box(f, at, size, colour, follows, turn=0.0):
    """A box by its centre, leaned about the x axis through it."""
    points = []
    for z in (-1, 1):
        for y in (-1, 1):
            for x in (-1, 1):
                px, py, pz = x * size[0] / 2, y * size[1] / 2, z * size[2] / 2
                py, pz = py * math.cos(turn) - pz * math.sin(turn), py * math.sin(turn) + pz * math.cos(turn)
                points.append((px + at[0], py + at[1], pz + at[2]))
    f.add(points, [(0, 2, 3, 1), (4, 5, 7, 6), (0, 1, 5, 4), (2, 6, 7, 3), (0, 4, 6, 2), (1, 3, 7, 5)], colour, follows)


ON_HEAD = 1.80


def add_sack(f):
    f.ball((0, 0, ON_HEAD + 0.10), (0.36, 0.25, 0.19), "canvas", "head", 10, 6)
    f.ball((0.36, 0, ON_HEAD + 0.14), (0.09, 0.10, 0.09), "canvas", "head", 7, 4)
    f.ball((0.29, 0, ON_HEAD + 0.13), (0.05, 0.13, 0.12), "rope", "head", 8, 4)


def add_log(f):
    for x, half, radius, colour in ((0, 0.60, 0.15, "trunk"), (0, 0.61, 0.11, "plank_light")):
        points = [(side * half, radius * math.cos(0.7 * i), ON_HEAD + 0.10 + radius * math.sin(0.698 * i)) for side in (-1, 1) for i in range(9)]
        faces = [(i, 9 + i, 9 + (i + 1) % 9, (i + 1) % 9) for i in range(9)] + [tuple(range(9)), tuple(reversed(range(9, 18)))]
        f.add(points, faces, colour, "head")


def add_block(f):
    box(f, (0, 0, ON_HEAD + 0.12), (0.52, 0.40, 0.30), "stone", "head")
    box(f, (0.03, -0.02, ON_HEAD + 0.275), (0.40, 0.30, 0.03), "stone_dark", "head")


def add_ingots(f):
    for x, y, z in ((-0.0, -0.14, 0), (0.0, 0.14, 0), (0, 0, 0.15)):
        box(f, (x, y, ON_HEAD + 0.05 + z), (0.62, 0.22, 0.13), "slate", "head")


def add_chest(f):
    box(f, (0, 0, ON_HEAD + 0.07), (0.46, 0.32, 0.20), "plank", "head")
    box(f, (0, 0, ON_HEAD + 0.20), (0.50, 0.36, 0.06), "timber", "head")
    for x in (-0.12, 0.03, 0.14):
        f.ball((x, 0.03 * (x * 9), ON_HEAD + 0.24), (0.10, 0.09, 0.06), "gold", "head", 8, 4)
    box(f, (0, -0.165, ON_HEAD + 0.10), (0.09, 0.02, 0.09), "gold", "head")


def add_hammer(f):
    hand = "hand_right"
    box(f, (-0.322, -0.20, 0.525), (0.05, 0.56, 0.05), "plank_light", hand)
    box(f, (-0.322, -0.46, 0.525), (0.15, 0.15, 0.32), "iron", hand)


def add_spade(f):
    hand = "hand_right"
    box(f, (-0.30, -0.28, 0.46), (0.05, 1.15, 0.05), "plank_light", hand, 0.75)
    box(f, (-0.30, 0.14, 0.855), (0.22, 0.05, 0.05), "plank", hand, 0.75)
    box(f, (-0.30, -0.74, 0.03), (0.24, 0.34, 0.04), "iron", hand, 0.75)


def add_pick(f):
    """A pick; its head stands across the handle, its points bent down."""
    hand = "hand_right"
    box(f, (-0.30, -0.26, 0.525), (0.05, 0.80, 0.05), "plank_light", hand)
    box(f, (-0.30, -0.60, 0.525), (0.09, 0.10, 0.16), "iron", hand)
    for side in (-1, 1):
        box(f, (-0.30, -0.58, 0.525 + side * 0.17), (0.07, 0.08, 0.24), "iron", hand, side * 0.22)
        box(f, (-0.30, -0.52, 0.525 + side * 0.32), (0.05, 0.05, 0.14), "stone", hand, side * 0.5)


def add_axe(f):
    hand = "hand_right"
    box(f, (-0.322, -0.22, 0.525), (0.05, 0.66, 0.05), "plank_light", hand)
    box(f, (-0.322, -0.49, 0.44), (0.07, 0.16, 0.22), "iron", hand)
    box(f, (-0.322, -0.49, 0.32), (0.04, 0.26, 0.06), "stone", hand)


def add_bomb(f):
    """Black and round between his two hands, its fuse alight."""
    hand = "hand_right"
    f.ball((0, -0.06, 0.34), (0.25, 0.25, 0.25), "iron", hand, 9, 6)
    box(f, (0.0, -0.31, 0.36), (0.12, 0.08, 0.12), "stone", hand)
    box(f, (0.0, -0.39, 0.34), (0.04, 0.12, 0.04), "rope", hand, 0.5)
    f.ball((0.0, -0.47, 0.32), (0.10, 0.10, 0.10), "gold", hand, 6, 4)
    f.ball((0.0, -0.50, 0.32), (0.05, 0.07, 0.05), "paint_red", hand, 5, 3)


def add_loot(f):
    """A sack on his back, its neck over the shoulder, with what is not his."""
    f.ball((-0.06, 0.38, 1.06), (0.36, 0.28, 0.34), "canvas", "chest", 10, 6)
    f.ball((-0.16, 0.14, 1.24), (0.09, 0.14, 0.08), "canvas", "chest", 7, 4, 0.6)
    f.ball((-0.14, 0.20, 1.20), (0.11, 0.06, 0.10), "rope", "chest", 8, 4)


TOOLS = {"sack": add_sack, "log": add_log, "block": add_block, "ingots": add_ingots, "chest": add_chest, "hammer": add_hammer, "spade": add_spade,
         "pick": add_pick, "axe": add_axe, "bomb": add_bomb, "loot": add_loot}


def save_shadow(path):
    """A soft stain for the ground below him, twice as wide as high; his control draws it as a picture of its own."""
    from PIL import Image
    size = (64, 32)
    image = Image.new("RGBA", size)
    for y in range(size[1]):
        for x in range(size[0]):
            off = math.hypot((x + 0.5) / size[0] * 2 - 1, (y + 0.5) / size[1] * 2 - 1)
            image.putpixel((x, y), (*palette.rgb("hedge_deep"), round(150 * smooth(1.15 - 1.15 * off))))
    image.save(path, optimize=True)


def make_tools(folder, armature):
    """One mesh each, all with one texture."""
    together = Figure()
    for add in TOOLS.values():
        add(together)
    for name, add in TOOLS.items():
        tool = Figure()
        add(tool)
        model = tool.build(name, armature, math.radians(40), together.sheet())
        export_unit.mesh(os.path.join(folder, f"{name}.mesh"), model, armature, SCALE)
    together.save_texture(os.path.join(folder, "tools.png"))


def make_near_man(folder, armature):
    """The man of the main menu, who stands close by: the same bones and texture."""
    model = make_figure("shirt_red", near=True).build("man_near", armature, math.radians(50))
    export_unit.mesh(os.path.join(folder, "man_near.mesh"), model, armature, SCALE)
    bpy.data.objects.remove(model)


def main(folder):
    bpy.ops.wm.read_factory_settings(use_empty=True)
    bpy.context.scene.render.fps = FPS
    armature = make_armature("man", BONES)
    os.makedirs(folder, exist_ok=True)
    make_near_man(folder, armature)
    figure = make_figure("shirt_red", near=False)
    figure.build("man", armature, math.radians(89))
    make_actions(armature, ACTIONS, "hips")
    export_unit.unit(folder, "man", SCALE)
    make_tools(folder, armature)
    figure.save_texture(os.path.join(folder, "man.png"))
    figure.save_texture(os.path.join(folder, "enemy.png"), ENEMY_DRESS)
    save_shadow(os.path.join(folder, "shadow.png"))


if __name__ == "__main__":
    main(sys.argv[sys.argv.index("--") + 1])
