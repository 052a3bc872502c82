"""The tiles of roads and the marks of points, from their renders. A tile's right edge goes on at its left one."""
import math

import numpy
from PIL import Image, ImageFilter

import palette
import picture

TILE, SHARP = (48, 26), 2  # units; pixels to a unit


def ring_noise(w, h, cells, seed):
    """Soft noise, 0 to 1, that goes on round the edge from right to left; cells lumps across the width."""
    r = numpy.random.default_rng(seed)
    y, x = numpy.mgrid[0:h, 0:w] / w * 2 * math.pi
    out = numpy.zeros((h, w))
    for _ in range(12):
        kx, ky = int(r.integers(1, cells + 1)), r.uniform(0.3, cells)
        out += numpy.sin(kx * x + r.choice((-1, 1)) * ky * y + r.uniform(0, 6.28)) / 12
    return numpy.clip(out * 1.4 + 0.5, 0, 1)


def strip(half, soft, strength, light, colour, seed, grain=12):
    """A strip of ground along the tile with edges that wander a little; grain is how many lumps it has."""
    w, h = TILE[0] * SHARP, TILE[1] * SHARP
    y = (numpy.mgrid[0:h, 0:w][0] + 0.5) / SHARP - TILE[1] / 2
    away = half + 2.2 * (ring_noise(w, h, 4, seed) - 0.5) - abs(y)
    t = numpy.clip(away / soft + 0.5, 0, 1)
    alpha = t * t * (3 - 2 * t) * strength * (0.92 + 0.16 * ring_noise(w, h, grain, seed + 1))
    rgb = numpy.array(palette.rgb(colour), dtype=numpy.float64) * (light + 0.22 * (ring_noise(w, h, grain + 4, seed + 2) - 0.5))[..., None]
    out = numpy.concatenate([rgb, 255 * numpy.clip(alpha, 0, 1)[..., None]], axis=2)
    return Image.fromarray(numpy.rint(out).clip(0, 255).astype(numpy.uint8), "RGBA")


def tile(render):
    return picture.shrink(picture.open_render(render), 6 // SHARP)


def roads(renders):
    road = strip(10.5, 3.5, 0.92, 0.80, "soil", 1)
    road.alpha_composite(tile(f"{renders}/road.png"))
    picture.save(road, "Roads/road.png")
    enemy = strip(10.5, 3.5, 0.9, 0.62, "log", 2)
    enemy.alpha_composite(tile(f"{renders}/enemy.png"))
    picture.save(enemy, "Roads/enemy.png")
    for name in (f"{side}bridge{part}" for side in ("", "enemy_") for part in ("", "_end", "_broken", "_place")):
        picture.save(tile(f"{renders}/{name}.png"), f"Roads/{name}.png")
    picture.save(tile(f"{renders}/bridge_gaps.png"), "Roads/bridge_gaps.png")
    for name in ("gate", "enemy_gate"):
        picture.save(picture.row_of([tile(f"{renders}/{name}_{i:02}.png") for i in range(12)], 4), f"Roads/{name}.png")
    track = strip(7.0, 7.0, 0.46, 0.95, "road_edge", 3, 2)
    w, h = track.size
    y = (numpy.mgrid[0:h, 0:w][0] + 0.5) / SHARP - TILE[1] / 2
    ruts = sum(numpy.exp(-((y - at - 0.7 * (ring_noise(w, h, 2, 7) - 0.5)) / 1.5) ** 2) for at in (-3.2, 3.2)) * 0.7
    layer = Image.new("RGBA", track.size, (*palette.rgb("soil"), 0))
    layer.putalpha(Image.fromarray(numpy.rint(ruts * 95).clip(0, 255).astype(numpy.uint8), "L"))
    track.alpha_composite(layer)
    picture.save(track, "Roads/track.png")


def marks(renders):
    """The discs, and the worn ground under them with their shade."""
    for name in ("neutral", "player", "enemy", "border", "hidden"):
        picture.save(picture.shrink(picture.open_render(f"{renders}/mark_{name}.png"), 6), f"Points/{name}.png")
    w, h = 96, 64
    y, x = numpy.mgrid[0:h, 0:w].astype(numpy.float64)
    d = numpy.hypot((x - 48) / 46, (y - 32) / 30) + 0.22 * (ring_noise(w, h, 6, 4) - 0.5)
    t = numpy.clip((1 - d) / 0.6, 0, 1)
    for name, colour, light, strength in (("neutral", "road_edge", 0.85, 0.55), ("player", "road", 0.92, 0.75), ("enemy", "log", 0.8, 0.75), ("border", "soil", 0.9, 0.75)):
        rgb = numpy.array(palette.rgb(colour), dtype=numpy.float64) * light
        shade = 0.55 * numpy.exp(-((x - 52) / 17) ** 2 - ((y - 32) / 12) ** 2)
        rgb = rgb * (1 - shade * 0.6)[..., None]
        out = numpy.concatenate([rgb, (255 * strength * t * t * (3 - 2 * t))[..., None]], axis=2)
        picture.save(Image.fromarray(numpy.rint(out).clip(0, 255).astype(numpy.uint8), "RGBA"), f"Points/{name}_base.png")
    y, x = numpy.mgrid[0:64, 0:48].astype(numpy.float64)
    near = numpy.hypot((x + 0.5 - 24) / 24, (y + 0.5 - 16) / 16) <= 1
    mask = Image.new("RGBA", (48, 64), (*palette.rgb("stone"), 0))
    mask.putalpha(Image.fromarray((near * 255).astype(numpy.uint8), "L"))
    picture.save(mask, "Points/mask.png")


def signs():
    """The range of a catapult, the mark of what it may hit, and the sign that the enemy is about to strike."""
    size = 400
    y, x = numpy.mgrid[0:size, 0:size].astype(numpy.float64) + 0.5
    d = numpy.hypot(x - size / 2, y - size / 2) / (size / 2)
    ring = numpy.exp(-((d - 0.965) / 0.014) ** 2) * 0.85 + numpy.clip(1 - d, 0, 1) ** 0.2 * (d < 0.97) * 0.14
    dashes = 0.55 + 0.45 * (numpy.sin(numpy.arctan2(y - size / 2, x - size / 2) * 36) > -0.2)
    picture.save(_flat("gold", numpy.where(d > 0.93, ring * dashes, ring)), "Points/range.png")
    size = 44 * 6
    y, x = numpy.mgrid[0:size, 0:size].astype(numpy.float64) + 0.5
    u, v = (x - size / 2) / 6, (y - size / 2) / 6
    d = numpy.hypot(u, v)
    shape = (abs(d - 14) < 2.2) | (d < 3.0) | ((abs(u) < 1.6) & (d > 9) & (d < 20)) | ((abs(v) < 1.6) & (d > 9) & (d < 20))
    picture.save(_sign(shape, "enemy_red", size), "Points/target.png")
    size = 32 * 6
    y, x = numpy.mgrid[0:size, 0:size].astype(numpy.float64) + 0.5
    u, v = (x - size / 2) / 6, (y - size / 2) / 6
    blade = [((abs(u * c + v * s - 1) < 11) & (abs(-u * s + v * c) < 1.9)) | ((abs(u * c + v * s + 6) < 1.4) & (abs(-u * s + v * c) < 4.2))
             for c, s in ((0.7071, -0.7071), (-0.7071, -0.7071))]
    shape = blade[0] | blade[1]
    picture.save(_sign(shape, "enemy_red", size), "Points/attack.png")


def _flat(colour, alpha):
    rgb = numpy.broadcast_to(numpy.array(palette.rgb(colour), dtype=numpy.float64), (*alpha.shape, 3))
    return Image.fromarray(numpy.rint(numpy.concatenate([rgb, 255 * numpy.clip(alpha, 0, 1)[..., None]], axis=2)).astype(numpy.uint8), "RGBA")


def _sign(shape, colour, size):
    """A shape in paint with a cream rim and a dark one round it, shrunk six times."""
    mask = Image.fromarray((shape * 255).astype(numpy.uint8), "L")
    sign = Image.new("RGBA", (size, size), (*palette.rgb("ink"), 0))
    for grown, tint in ((13, "ink"), (7, "cream"), (0, colour)):
        sign = picture.fill(sign, mask.filter(ImageFilter.MaxFilter(2 * grown + 1)) if grown else mask, tint)
    return picture.shrink(sign, 6)
