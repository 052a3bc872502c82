"""From a render of a level's land to its tiles, and the water round it.

Two layers a tile: the top one is the land with the shore as its edge, the bottom one what lies under water and the
cliff that the waves have cut. Between them the game draws the moving water at the shore.
"""
import math
import os
import random

import numpy
from PIL import Image, ImageDraw

import palette
import picture
import shape
from make_levels import SHALLOWS, TILE, land_tiles

TREES = ("leaf", "deep", "fir", "gold", "light", "autumn", "dead")
CLIFF = 11  # units that the land stands above the water


def noise(shape_of, cell, seed):
    """Soft noise, 0 to 1, with lumps of about `cell` pixels."""
    r = numpy.random.default_rng(seed)
    small = r.uniform(0, 1, (shape_of[0] // cell + 3, shape_of[1] // cell + 3)).astype(numpy.float32)
    big = Image.fromarray(small, "F").resize(((shape_of[1] // cell + 3) * cell, (shape_of[0] // cell + 3) * cell), Image.BICUBIC)
    return numpy.asarray(big)[:shape_of[0], :shape_of[1]].astype(numpy.float64)


def step(low, high, v):
    t = numpy.clip((v - low) / (high - low), 0, 1)
    return t * t * (3 - 2 * t)


def colour(name):
    return numpy.array(palette.rgb(name), dtype=numpy.float64)


def over(ground, top, alpha):
    """Straight colours with alpha: top with its alpha over a ground that has its own."""
    rgb, a = ground
    out = alpha + a * (1 - alpha)
    mixed = (top * alpha[..., None] + rgb * (a * (1 - alpha))[..., None]) / numpy.maximum(out, 1e-6)[..., None]
    return mixed, out


def layers(number, render):
    """The two layers of a level as pictures of its size."""
    lv = shape.level(number)
    scale = render.width // lv.SIZE[0]
    h, w = render.height, render.width
    y, x = numpy.mgrid[0:h, 0:w].astype(numpy.float64) / scale + 0.5 / scale
    away = shape.shore(lv, x, y) + 2.2 * (noise((h, w), 14 * scale, number) - 0.5) + 1.1 * (noise((h, w), 5 * scale, number + 9) - 0.5)
    land = numpy.asarray(render.convert("RGB"), dtype=numpy.float64)
    edge = step(-0.6, 0.6, away)
    rim = numpy.exp(-((away - 1.2) / 1.3) ** 2)[..., None] * 0.35  # the turf's bright edge
    land = land + (colour("cream") - land) * rim
    top = numpy.concatenate([land, 255 * edge[..., None]], axis=2)
    bottom = _bottom(away, x, y, scale, lv.LILIES)
    return tuple(picture.shrink(Image.fromarray(numpy.rint(v).clip(0, 255).astype(numpy.uint8), "RGBA"), scale) for v in (top, bottom))


def _bottom(away, x, y, scale, lilies):
    """Shallow water that fades into the deep, a line of foam, and the cliff under the shores that look at the viewer."""
    h, w = away.shape
    lumps = noise((h, w), 22 * scale, 3)
    depth = -away
    shallow = (1 - step(6, SHALLOWS - 8, depth + 16 * (lumps - 0.5))) * 0.8
    near = (1 - step(0, 20, depth + 6 * (lumps - 0.5)))[..., None]
    rgb = colour("water") * 1.12 + (colour("foam") - colour("water")) * 0.25
    rgb = rgb + (colour("bank") * 0.9 + colour("foam") * 0.1 - rgb) * near * 0.55
    ground = (rgb, shallow)
    wall = numpy.zeros((h, w))
    rise = numpy.zeros((h, w))
    for k in range(CLIFF * scale):  # the shore lies straight above at a distance of k pixels
        raised = numpy.roll(away, k, axis=0)
        raised[:k] = -99
        inside = raised > 0
        rise = numpy.where(inside & (wall == 0), k / (CLIFF * scale), rise)
        wall = numpy.maximum(wall, step(-0.6, 0.6, raised))
    cut = _cliff(rise, x, y, scale)
    foam_at = numpy.roll(away, CLIFF * scale, axis=0)
    foam_at[:CLIFF * scale] = -99
    line = numpy.maximum(away, foam_at) + 3.0 * (noise((h, w), 9 * scale, 8) - 0.5)
    foam = numpy.exp(-((line + 3.0) / 1.7) ** 2) * 0.85 + numpy.exp(-((line + 8.5) / 1.5) ** 2) * 0.38
    ground = over(ground, colour("foam"), numpy.clip(foam, 0, 1))
    pads, pad_alpha = _lilies(h, w, scale, lilies)
    ground = over(ground, pads, pad_alpha)
    rgb, a = over(ground, cut, wall)
    return numpy.concatenate([rgb, 255 * a[..., None]], axis=2)


def _lilies(h, w, scale, places):
    """Floating leaves in clumps, a few with a flower."""
    k = 3 * scale
    layer = Image.new("RGBA", (w, h), (*palette.rgb("leaf_dark"), 0))
    for number, (cx, cy) in enumerate(places):
        r = random.Random(f"lilies{cx}{cy}")
        clump = Image.new("RGBA", (90 * k, 70 * k), (*palette.rgb("leaf_dark"), 0))
        draw = ImageDraw.Draw(clump)
        for i in range(11):
            x, y, size = 45 + r.gauss(0, 15), 35 + r.gauss(0, 9), r.uniform(2.6, 4.6)
            notch = r.uniform(0, 360)
            for grown, colour_name, down in ((0.5, "hedge", 0.7), (0.0, r.choice(("leaf_dark", "leaf", "leaf_light")), 0.0)):
                s = size + grown
                draw.pieslice([(x - s) * k, (y - s * 0.64 + down) * k, (x + s) * k, (y + s * 0.64 + down) * k], notch, notch + 325, fill=(*palette.rgb(colour_name), 255))
            if i % 4 == 0:
                for petal in range(5):
                    px, py = x + 1.3 * math.cos(petal * 1.257), y - 0.8 + 0.9 * math.sin(petal * 1.257)
                    draw.ellipse([(px - 1.1) * k, (py - 0.9) * k, (px + 1.1) * k, (py + 0.9) * k], fill=(*palette.rgb("flower_white"), 255))
                draw.ellipse([(x - 0.7) * k, (y - 1.4) * k, (x + 0.7) * k, (y - 0.2) * k], fill=(*palette.rgb("gold"), 255))
        clump = picture.shrink(clump, 3)
        part = Image.new("RGBA", layer.size, (0, 0, 0, 0))
        part.paste(clump, (round((cx - 45) * scale), round((cy - 35) * scale)))
        layer = Image.alpha_composite(layer, part)
    out = numpy.asarray(layer, dtype=numpy.float64)
    return out[..., :3], out[..., 3] / 255


def _cliff(rise, x, y, scale):
    """Earth in layers, darker towards the water."""
    h, w = rise.shape
    streak = noise((h, w), 4 * scale, 5) * 0.7 + noise((h, w), 2 * scale, 6) * 0.3
    strata = 0.5 + 0.5 * numpy.sin(rise * 9 + 3 * noise((h, w), 18 * scale, 4))
    t = numpy.clip(rise + 0.25 * (streak - 0.5), 0, 1)[..., None]
    rgb = colour("bank") * 0.92 + (colour("furrow") * 0.78 - colour("bank") * 0.92) * t
    return rgb * (0.9 + 0.16 * streak + 0.06 * strata)[..., None]


def cut(number, top, bottom):
    lv = shape.level(number)
    for column, row in land_tiles(lv):
        box = (column * TILE, row * TILE, column * TILE + TILE, row * TILE + TILE)
        for prefix, layer in (("top_", top), ("bottom_", bottom)):
            layer.crop(box).save(os.path.join(picture.DATA, "Land", f"{prefix}l{number}_{column}_{row}.png"), optimize=True)


# Water --------------------------------------------------------------------------------------------------------------

FRAMES, COLUMNS = 16, 4


def _swell(frame, size, seed, count, longest):
    """A sum of waves that comes back to itself after the last frame and at the edges of the tile."""
    r = numpy.random.default_rng(seed)
    y, x = numpy.mgrid[0:size, 0:size] / size * 2 * math.pi
    out = numpy.zeros((size, size))
    for _ in range(count):
        kx, ky = int(r.integers(-longest, longest + 1)), int(r.integers(1, longest + 2))
        turns = int(r.choice((-1, 1, 1)))
        out += numpy.sin(kx * x + ky * y * 1.0 + turns * 2 * math.pi * frame / FRAMES + r.uniform(0, 6.28)) / math.sqrt(1 + 0.1 * (kx * kx + ky * ky))
    return out


def _web(frame, size, seed):
    """Soft lines of light as the sun draws them through waves."""
    a, b = _swell(frame, size, seed, 7, 4), _swell(frame, size, seed + 1, 7, 4)
    return numpy.exp(-(numpy.minimum(abs(a + 0.3 * b), abs(b - 0.2 * a)) / 0.42) ** 2)


def _glints(frame, size, seed):
    """Short bright dashes that lie along the waves and come and go."""
    r = numpy.random.default_rng(seed)
    y, x = numpy.mgrid[0:size, 0:size].astype(numpy.float64)
    out = numpy.zeros((size, size))
    for _ in range(54):
        cx, cy, born, long = r.uniform(0, size), r.uniform(0, size), r.uniform(0, FRAMES), r.uniform(3, 7)
        age = ((frame - born) % FRAMES) / FRAMES
        strength = math.sin(math.pi * age) ** 3
        dx = (x - cx - 5 * age + size / 2) % size - size / 2
        dy = (y - cy + size / 2) % size - size / 2 + 0.05 * dx
        out = numpy.maximum(out, strength * numpy.exp(-(dx / long) ** 2 - (dy / 0.9) ** 2))
    return out


def deep_water(size=200):
    frames = []
    for i in range(FRAMES):
        swell, web, glint = _swell(i, size, 11, 9, 3), _web(i, size, 21), _glints(i, size, 31)
        rgb = colour("water") * 0.80 + (colour("cobalt") - colour("water")) * 0.20
        rgb = rgb * (1 + 0.045 * swell)[..., None]
        rgb = rgb + (colour("foam") - rgb) * (web * 0.075 * step(-1.5, 2.0, swell))[..., None]
        rgb = rgb + (colour("glow") - rgb) * (0.5 * glint)[..., None]
        frames.append(Image.fromarray(numpy.rint(rgb).clip(0, 255).astype(numpy.uint8), "RGB"))
    sheet = Image.new("RGB", (size * COLUMNS, size * COLUMNS))
    for i, f in enumerate(frames):
        sheet.paste(f, (i % COLUMNS * size, i // COLUMNS * size))
    return sheet


def nearshore_water(size=200):
    frames = []
    for i in range(FRAMES):
        web, swell = _web(i, size, 41), _swell(i, size, 51, 7, 3)
        alpha = 0.17 * web * step(-1.2, 1.8, swell) + 0.35 * _glints(i, size, 61)
        rgb = numpy.broadcast_to(colour("foam"), (size, size, 3))
        frame = numpy.concatenate([rgb, 255 * alpha[..., None]], axis=2)
        frames.append(Image.fromarray(numpy.rint(frame).clip(0, 255).astype(numpy.uint8), "RGBA"))
    return picture.row_of(frames, COLUMNS)


def cloud(size, seed):
    """A heap of soft billows seen from above, each lit from the upper left, the farthest first."""
    w, h = size
    r = random.Random(seed)
    y, x = numpy.mgrid[0:h, 0:w].astype(numpy.float64)
    balls = []
    for _ in range(54):
        along = r.triangular(-1, 1, 0)
        room = math.sqrt(max(1 - along * along, 0.04))
        radius = h * (0.10 + 0.13 * room) * r.uniform(0.75, 1.15)
        cx = w / 2 + max(min(along, 1), -1) * (w / 2 - radius * 1.35)
        cy = h / 2 + r.gauss(0, 0.30) * room * (h / 2 - radius)
        balls.append((cy, cx, radius))
    rgb, alpha = numpy.zeros((h, w, 3)), numpy.zeros((h, w))
    light, dark = colour("cloud") * 1.03, colour("cloud_shade") * 0.66 + colour("shade_light") * 0.34
    for cy, cx, radius in sorted(balls):
        dx, dy = (x - cx) / radius, (y - cy) / radius
        far = numpy.hypot(dx, dy)
        lit = numpy.clip(0.70 - 0.55 * (dx * 0.55 + dy * 0.85), 0, 1)[..., None]
        cover = numpy.clip((1 - far) / 0.42, 0, 1) ** 1.3 * 0.86
        keep = 1 - cover[..., None]
        rgb = rgb * keep + (dark + (light - dark) * lit) * cover[..., None]  # times its cover
        alpha = alpha + cover - alpha * cover
    edge = numpy.clip(numpy.minimum(numpy.minimum(x, w - 1 - x), numpy.minimum(y, h - 1 - y)) / 8, 0, 1)
    out = numpy.concatenate([rgb / numpy.maximum(alpha, 1e-6)[..., None], 255 * (alpha * edge)[..., None]], axis=2)
    return Image.fromarray(numpy.rint(out).clip(0, 255).astype(numpy.uint8), "RGBA")
