"""What moves of buildings that stand still: flags in the wind, smoke of chimneys, fires. Drawn on finished pictures.

Everything goes round in FRAMES pictures. The wind blows to the right, as it does on every flag of the game.
"""
import collections
import math

import numpy
from PIL import Image

import palette

FRAMES = 16

Flag = collections.namedtuple("Flag", "box colour")  # left, top, right, bottom; its pole is left of it
Smoke = collections.namedtuple("Smoke", "at size dark")  # the mouth of the chimney; how large a puff grows; 0 to 1
Fire = collections.namedtuple("Fire", "at size")  # the middle of its foot

LIFE = {  # file of the picture: what moves on it, in its pixels
    "StartPoint": [Smoke((91, 104), 5, 0.1), Fire((91, 112), 7), Flag((63, 16, 84, 31), "paint_red")],
    "Bunker": [Flag((41, 22, 66, 39), "enemy_red"), Flag((97, 43, 122, 60), "enemy_red")],
    "Shop": [Flag((66, 17, 86, 30), "gold")],
    "Port": [Flag((98, 24, 119, 39), "cobalt")],
    "Warehouse_3": [Flag((111, 23, 131, 39), "cobalt")],
    "Bridge_1": [Flag((80, 10, 101, 25), "paint_red"), Flag((80, 47, 101, 62), "paint_red")],
    "Bridge_2": [Flag((80, 10, 101, 25), "gold"), Flag((80, 47, 101, 62), "gold")],
    "IronMill_1": [Smoke((62, 63), 9, 0.15)],
    "IronMill_2": [Smoke((55, 52), 11, 0.2)],
    "IronMill_3": [Smoke((51, 39), 10.5, 0.25), Smoke((84, 50), 7, 0.2)],
}


def frames(file, image):
    """The pictures of one round, or none for what nothing moves on."""
    if file not in LIFE:
        return []
    return [_frame(image, LIFE[file], i / FRAMES) for i in range(FRAMES)]


def _frame(image, things, part):
    layers = _Layers(image)
    for thing in things:
        if isinstance(thing, Flag):
            _wave(layers, thing, part)
        elif isinstance(thing, Smoke):
            _smoke(layers, thing, part)
        else:
            _burn(layers, thing, part)
    return layers.image()


class _Layers:
    """A picture whose colours are multiplied with their cover, so that things can be laid over it."""

    def __init__(self, image):
        a = numpy.asarray(image.convert("RGBA"), dtype=numpy.float64) / 255
        self.alpha = a[..., 3].copy()
        self.rgb = a[..., :3] * a[..., 3:]
        self.y, self.x = numpy.mgrid[0:image.height, 0:image.width] + 0.5

    def lay(self, colour, cover):
        """colour: three numbers of 0 to 1, or an array of them; cover: 0 to 1 for each pixel."""
        self.rgb = self.rgb * (1 - cover[..., None]) + numpy.asarray(colour) * cover[..., None]
        self.alpha = self.alpha * (1 - cover) + cover

    def image(self):
        rgb = numpy.where(self.alpha[..., None] > 0, self.rgb / numpy.maximum(self.alpha, 1e-9)[..., None], 0)
        both = numpy.concatenate([rgb, self.alpha[..., None]], axis=2)
        return Image.fromarray(numpy.rint(both.clip(0, 1) * 255).astype(numpy.uint8), "RGBA")


def _unit(name):
    return numpy.array(palette.rgb(name), dtype=numpy.float64) / 255


def _is_cloth(rgb, alpha, colour):
    """Where a pixel has the flag's hue, whatever the light on it."""
    def hue(c):
        grey = c.mean(axis=-1, keepdims=True)
        off = c - grey
        return off / numpy.maximum(numpy.linalg.norm(off, axis=-1, keepdims=True), 1e-6)
    colours = rgb / numpy.maximum(alpha, 1e-6)[..., None]
    strong = numpy.abs(colours - colours.mean(axis=-1, keepdims=True)).max(axis=-1) > 0.05
    return (alpha > 0.05) & strong & ((hue(colours) * hue(_unit(colour))).sum(axis=-1) > 0.90)


def _wave(layers, flag, part):
    """Takes the cloth off its place and lays it back in waves that run from the pole outwards."""
    left, top, right, bottom = flag.box
    rgb, alpha = layers.rgb[top:bottom, left:right], layers.alpha[top:bottom, left:right]
    cloth = _is_cloth(rgb, alpha, flag.colour)
    cloth_rgb, cloth_alpha = rgb * cloth[..., None], alpha * cloth
    rgb[cloth], alpha[cloth] = 0, 0
    high = bottom - top
    rows = numpy.arange(high)
    for column in range(right - left):
        off = column / (right - left)
        turn = 2 * math.pi * (part - 1.1 * off)
        down = 2.0 * off * math.sin(turn)
        light = 1 + 0.16 * off * math.cos(turn)
        at = rows - down
        low = numpy.floor(at).astype(int)
        between = at - low
        def sample(values):
            padded = numpy.concatenate([numpy.zeros_like(values[:1]), values, numpy.zeros_like(values[:1])])
            a, b = (padded[numpy.clip(low + 1 + i, 0, high + 1)] for i in (0, 1))
            weight = between if values.ndim == 1 else between[:, None]
            return a * (1 - weight) + b * weight
        cover = sample(cloth_alpha[:, column])
        rgb[:, column] = rgb[:, column] * (1 - cover)[:, None] + sample(cloth_rgb[:, column]) * light
        alpha[:, column] = alpha[:, column] * (1 - cover) + cover


def _smoke(layers, smoke, part):
    """Puffs that rise and drift, grow and fade, one behind the other."""
    puffs = 6
    light, dark = _unit("cloud"), _unit("log_light")
    for i in range(puffs):
        age = (part + i / puffs) % 1.0
        sway = math.sin(2 * math.pi * (age + i * 0.37))
        x = smoke.at[0] + smoke.size * (1.5 * age * age + 0.16 * sway)
        y = smoke.at[1] - smoke.size * (0.2 + 2.7 * age)
        radius = smoke.size * (0.50 + 0.95 * age)
        far = numpy.hypot(layers.x - x, layers.y - y) / radius
        lit = numpy.clip(0.55 - 0.4 * ((layers.x - x) + (layers.y - y)) / radius / 1.5, 0, 1)[..., None]
        colour = light * (1 - smoke.dark) + dark * smoke.dark
        cover = numpy.clip((1 - far) / 0.55, 0, 1) * min(age / 0.12, 1) * (1 - age) ** 1.1 * 0.92
        layers.lay(colour * (0.74 + 0.30 * lit), cover)


def _burn(layers, fire, part):
    """Three tongues that never stand as high as each other, and their glow."""
    x, y = fire.at
    far = numpy.hypot(layers.x - x, (layers.y - y + fire.size * 0.4) * 1.2) / (fire.size * 1.6)
    flicker = 0.8 + 0.2 * math.sin(2 * math.pi * 3 * part)
    layers.lay(_unit("glow"), numpy.exp(-(far * 1.8) ** 2) * 0.30 * flicker * (far < 1.4))
    for i, (aside, high, colour) in enumerate(((-0.30, 0.9, "roof"), (0.28, 0.8, "fire"), (0.0, 1.15, "fire"), (0.0, 0.6, "glow"))):
        tall = fire.size * high * (0.82 + 0.26 * math.sin(2 * math.pi * (2 * part + 0.31 * i)))
        lean = 0.16 * fire.size * math.sin(2 * math.pi * (part + 0.23 * i))
        up = (y - layers.y) / tall
        wide = fire.size * 0.24 * numpy.clip(1 - up, 0, 1) ** 0.7
        inside = numpy.clip((wide - numpy.abs(layers.x - x - aside * fire.size - lean * numpy.clip(up, 0, 1))) + 0.5, 0, 1) * ((up > -0.15) & (up < 1))
        layers.lay(_unit(colour), inside * 0.92)
