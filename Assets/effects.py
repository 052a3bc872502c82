"""The pictures of the small effects over a level, drawn without Blender: puffs of dust, a blast, sparkles, the goods.

    build.py small_effects

An effect is a sheet of frames, row by row, that is run through once or over and over. Nothing has an outline: all edges
fade, since these pictures lie over whatever is there. Drawn SCALE times larger and shrunk. Chance is seeded by names.
"""
import math
import zlib

import numpy
from PIL import Image, ImageChops, ImageDraw

import palette
import picture

SCALE = 4
FRAMES, COLUMNS = 16, 4


def _random(name):
    return numpy.random.RandomState(zlib.crc32(name.encode("ascii")))


class Canvas:
    """Colours and their cover, painted from the back to the front; places in the picture's own pixels."""

    def __init__(self, size):
        self.size = size
        self.y, self.x = numpy.mgrid[0:size[1] * 2, 0:size[0] * 2] / 2.0 + 0.25  # two samples a pixel
        self.rgb = numpy.zeros((*self.x.shape, 3))
        self.alpha = numpy.zeros(self.x.shape)

    def lay(self, colour, cover):
        """Paints a colour, a name or an array of them, with a cover of 0 to 1 for each sample."""
        c = numpy.array(palette.rgb(colour), dtype=numpy.float64) if isinstance(colour, str) else colour
        cover = numpy.clip(cover, 0, 1)
        out = cover + self.alpha * (1 - cover)
        share = numpy.where(out > 0, cover / numpy.maximum(out, 1e-9), 0)[..., None]
        self.rgb = self.rgb + (c - self.rgb) * share
        self.alpha = out

    def ball(self, at, radius, colour, shade, strength, softness=0.45):
        """A puff, lit from the upper left."""
        dx, dy = (self.x - at[0]) / radius, (self.y - at[1]) / radius
        far = numpy.hypot(dx, dy)
        light = numpy.clip(0.5 - 0.55 * (dx * 0.5 + dy * 0.85), 0, 1)[..., None]
        a, b = (numpy.array(palette.rgb(c), dtype=numpy.float64) for c in (shade, colour))
        self.lay(a + (b - a) * light, strength * numpy.clip((1 - far) / softness, 0, 1) ** 1.5)

    def puff(self, at, radius, colour, shade, strength, turn):
        """A billow: a few balls about a place, turned by an angle, the lit ones last."""
        for i, (far, large) in enumerate(((0.42, 0.66), (0.46, 0.6), (0.38, 0.7), (0.48, 0.56), (0.0, 0.78))):
            angle = turn + i * 1.7
            place = (at[0] + radius * far * math.cos(angle), at[1] + radius * far * 0.7 * math.sin(angle))
            self.ball(place, radius * large, colour, shade, strength * 0.62, 0.75)

    def glow(self, at, radius, colour, strength):
        far = numpy.hypot(self.x - at[0], self.y - at[1]) / radius
        self.lay(colour, strength * numpy.exp(-(far * 2.2) ** 2) * (far < 1))

    def star(self, at, radius, colour, strength, turn=0.0):
        """A sparkle: a bright middle with four thin rays."""
        c, s = math.cos(turn), math.sin(turn)
        dx, dy = self.x - at[0], self.y - at[1]
        u, v = numpy.abs(dx * c + dy * s) / radius, numpy.abs(dy * c - dx * s) / radius
        rays = numpy.exp(-(u * v * 90) ** 0.5 * 1.9) * numpy.clip(1 - numpy.maximum(u, v), 0, 1)
        self.glow(at, radius * 0.75, colour, strength * 0.5)
        self.lay("cream", strength * rays * 1.3)

    def image(self):
        a = numpy.concatenate([self.rgb, self.alpha[..., None] * 255], axis=2)
        return picture.shrink(Image.fromarray(numpy.rint(numpy.clip(a, 0, 255)).astype(numpy.uint8), "RGBA"), 2)


def _sheet(name, size, paint):
    """@param paint  function of a canvas and the part of the run, from 0 to below 1"""
    frames = []
    for i in range(FRAMES):
        canvas = Canvas(size)
        paint(canvas, i / FRAMES)
        frames.append(canvas.image())
    picture.save(picture.row_of(frames, COLUMNS), f"Effects/{name}.png")


def _puffs(name, count, size):
    """Puffs that rise one after the other over the middle of the ground and start again: an endless run."""
    r = _random(name)
    return [(r.uniform(0, 1), r.uniform(-0.5, 0.5), r.uniform(0.7, 1.15), r.choice([-1, 1])) for _ in range(count)]


def _dust(name, size, count, colours, rise, strength):
    """Dust that is kicked up at the lower edge, over and over."""
    w, h = size
    puffs = _puffs(name, count, size)

    def paint(canvas, t):
        for begin, side, large, way in sorted(puffs, key=lambda p: (t - p[0]) % 1, reverse=True):
            age = (t - begin) % 1
            radius = large * h * (0.10 + 0.17 * age ** 0.6)
            x = w * (0.5 + side * 0.52 + way * 0.10 * age)
            y = h * 0.80 - h * rise * age ** 0.8
            canvas.puff((x, y), radius * 1.15, *colours, strength * min(1, age * 7) * (1 - age) ** 1.3, begin * 20 + age)
    _sheet(name, size, paint)


def _upgrade():
    """Dust around the foot of a building in work, chips thrown up out of it, and sparks where hammers strike."""
    w, h = 144, 96
    puffs = _puffs("upgrade", 14, (w, h))
    r = _random("chips")
    chips = [(r.uniform(0, 1), r.uniform(-0.34, 0.34), r.uniform(-0.22, 0.22), r.uniform(0.5, 0.85), r.randint(2)) for _ in range(9)]
    strikes = [(i / 4 + 0.03, r.uniform(-0.30, 0.30), r.uniform(0.40, 0.66), [(r.uniform(-1, 1), r.uniform(0.5, 1.1)) for _ in range(6)]) for i in range(4)]

    def chip(canvas, place, turn, colour, fade):
        dx, dy = canvas.x - place[0], canvas.y - place[1]
        u, v = dx * math.cos(turn) + dy * math.sin(turn), dy * math.cos(turn) - dx * math.sin(turn)
        for wider, shown in ((0.6, "timber"), (0.0, colour)):
            canvas.lay(shown, fade * numpy.clip(numpy.minimum(2.7 + wider - numpy.abs(u), 1.2 + wider - numpy.abs(v)), 0, 1))

    def strike(canvas, place, age, sparks):
        canvas.star(place, 20 * (1 - age * 0.5), "gold", max(0, 1 - age * 2.2), 0.4)
        for side, speed in sparks:
            at = (place[0] + side * 34 * age * speed, place[1] - speed * 46 * age + 60 * age * age)
            canvas.glow(at, 4.6, "fire", 1.1 * (1 - age))
            canvas.glow(at, 2.2, "cream", 1.4 * (1 - age))

    def paint(canvas, t):
        for begin, side, large, way in sorted(puffs, key=lambda p: (t - p[0]) % 1, reverse=True):
            age = (t - begin) % 1
            canvas.puff((w * (0.5 + side * 0.72 + way * 0.06 * age), h * (0.82 - 0.24 * age)), large * h * (0.14 + 0.15 * age),
                        "cream", "haze", 0.9 * min(1, age * 6) * (1 - age), begin * 20 + way * age)
        for begin, x, drift, high, kind in chips:
            age = (t - begin) % 1
            place = (w * (0.5 + x + drift * age), h * (0.80 - high * 2.8 * age * (1 - age)))
            chip(canvas, place, age * 9 + x * 20, ("wheat", "plank_light")[kind], min(1, age * 8) * min(1, (1 - age) * 4))
        for begin, x, y, sparks in strikes:
            age = ((t - begin) % 1) / 0.42
            if age < 1:
                strike(canvas, (w * (0.5 + x), h * y), age, sparks)
    _sheet("upgrade", (w, h), paint)


def _explosion():
    """A flash, fire that rolls outwards, smoke that rises from it, and splinters."""
    size = 144
    r = _random("explosion")
    fire = [(r.uniform(0, 2 * math.pi), r.uniform(0.1, 1), r.uniform(0.7, 1.2)) for _ in range(20)]
    bits = [(r.uniform(0, 2 * math.pi), r.uniform(0.7, 1.25)) for _ in range(16)]
    middle = (size * 0.5, size * 0.56)

    def at(angle, far):
        return (middle[0] + math.cos(angle) * far, middle[1] + math.sin(angle) * far * 0.8)

    def paint(canvas, t):
        for angle, far, large in fire:  # smoke
            x, y = at(angle, size * 0.30 * far * t ** 0.5)
            canvas.ball((x, y - size * 0.16 * t), large * size * (0.06 + 0.11 * t ** 0.5), "stone", "rock_dark", 0.75 * min(1, t * 3) * (1 - t) ** 1.1)
        heat = (1 - t / 0.62)
        if heat > 0:
            for i, (angle, far, large) in enumerate(fire):
                x, y = at(angle, size * 0.27 * far * t ** 0.45)
                canvas.ball((x, y - size * 0.05 * t), large * size * (0.05 + 0.07 * heat), "gold" if i % 2 else "fire", "paint_red" if t > 0.2 else "fire", min(1, heat * 1.5), 0.8)
            canvas.glow(middle, size * (0.2 + 0.32 * heat), "glow", heat ** 1.5)
        for angle, speed in bits:
            x, y = at(angle, size * 0.46 * speed * t ** 0.6)
            y += size * 0.3 * t * t - size * 0.1 * t
            if max(abs(x - size / 2), abs(y - size / 2)) < size / 2 - 3:
                canvas.glow((x, y), 5.0, "gold" if t < 0.4 else "plank_dark", 1.1 * (1 - t))
    _sheet("explosion", (size, size), paint)


def _vanish():
    """An enemy ends: a dark puff, and stars that fly off."""
    w, h = 96, 96
    r = _random("vanish")
    puffs = [(r.uniform(0, 2 * math.pi), r.uniform(0.2, 1), r.uniform(0.8, 1.2)) for _ in range(12)]

    def paint(canvas, t):
        for angle, far, large in puffs:
            place = (w * 0.5 + math.cos(angle) * w * 0.26 * far * t ** 0.5, h * (0.6 - 0.12 * t) + math.sin(angle) * h * 0.19 * far * t ** 0.5)
            canvas.ball(place, large * w * (0.10 + 0.07 * t), "cloud_shade", "enemy_shirt", 0.95 * min(1, 0.4 + t * 4) * (1 - t) ** 1.2)
        for i in range(6):
            angle = i * math.pi / 3 + 0.5
            far = w * 0.42 * t ** 0.55
            canvas.star((w * 0.5 + math.cos(angle) * far, h * 0.55 + math.sin(angle) * far * 0.8), 10 * (1 - 0.4 * t), "gold", min(1, t * 8) * (1 - t) ** 0.8, t * 2)
    _sheet("vanish", (w, h), paint)


def _sparkles():
    """Goods have come: sparkles that rise and go out."""
    w, h = 96, 96
    r = _random("sparkles")
    stars = [(r.uniform(0, 0.45), r.uniform(-0.38, 0.38), r.uniform(0.35, 0.82), r.uniform(8, 15)) for _ in range(13)]

    def paint(canvas, t):
        canvas.glow((w * 0.5, h * 0.6), w * 0.48, "glow", 0.5 * math.sin(math.pi * min(1, t * 1.1)) ** 1.5)
        for begin, x, y, large in stars:
            age = (t - begin) / 0.5
            if 0 <= age < 1:
                canvas.star((w * (0.5 + x * (0.7 + 0.3 * age)), h * (y - 0.14 * age)), large * math.sin(math.pi * (0.12 + 0.88 * age)), "gold", math.sin(math.pi * (0.15 + 0.85 * age)), age * 0.8)
    _sheet("sparkles", (w, h), paint)


def _spark():
    """One spark, of which particle effects take many."""
    canvas = Canvas((24, 24))
    canvas.star((12, 12), 11.5, "gold", 1.0)
    picture.save(canvas.image(), "Effects/spark.png")


# The goods ------------------------------------------------------------------------------------------------------------

ICON = 28  # pixels


class Icon:
    """One of the goods in a corner of 28 pixels, its light from the upper left; coordinates in those pixels."""

    def __init__(self):
        side = ICON * SCALE * 2
        self.image = Image.new("RGBA", (side, side), (0, 0, 0, 0))

    def mask(self, draw):
        out = Image.new("L", self.image.size, 0)
        draw(ImageDraw.Draw(out), SCALE * 2)
        return out

    def polygon(self, points, top, bottom, rows=None):
        mask = self.mask(lambda d, k: d.polygon([(x * k, y * k) for x, y in points], fill=255))
        rows = rows or (min(y for _, y in points), max(y for _, y in points))
        self.image = picture.fill_shaded(self.image, mask, top, bottom, [v * SCALE * 2 for v in rows])
        return mask

    def ellipse(self, box, top, bottom):
        mask = self.mask(lambda d, k: d.ellipse([v * k for v in box], fill=255))
        self.image = picture.fill_shaded(self.image, mask, top, bottom, (box[1] * SCALE * 2, box[3] * SCALE * 2))
        return mask

    def arc(self, box, begin, end, width, colour, strength=1.0):
        mask = self.mask(lambda d, k: d.arc([v * k for v in box], begin, end, fill=255, width=round(width * k)))
        self.image = picture.fill(self.image, mask, colour, strength)

    def line(self, points, width, colour, strength=1.0, inside=None):
        mask = self.mask(lambda d, k: d.line([(x * k, y * k) for x, y in points], fill=255, width=round(width * k), joint="curve"))
        if inside:
            mask = ImageChops.multiply(mask, inside)
        self.image = picture.fill(self.image, mask, colour, strength)

    def save(self, name):
        """On a soft dark rim, so that it reads over grass and sand alike."""
        rimmed = picture.halo(self.image, SCALE * 2, "ink", 1.2)
        picture.save(picture.shrink(rimmed, SCALE * 2), f"Effects/icon_{name}.png")


def _coin():
    icon = Icon()
    icon.ellipse((4, 6, 25, 26), "wheat_dark", "soil")
    icon.ellipse((3.5, 3, 24.5, 23), "glow", "wheat_dark")
    icon.ellipse((6, 5.2, 22, 20.8), "wheat_dark", "gold")
    icon.ellipse((6.8, 6.2, 22, 20.8), "gold", "wheat")
    for x in (11, 17):  # an ear of wheat, as on the mills' signs
        icon.line([(14, 18.2), (x, 13.5)], 1.6, "furrow", 0.85)
        icon.line([(14, 14.6), (x, 9.8)], 1.6, "furrow", 0.85)
    icon.line([(14, 19), (14, 7.8)], 1.6, "furrow", 0.85)
    icon.arc((4.6, 4, 23.4, 22), 190, 285, 1.1, "cream", 0.9)
    return icon


def _bread():
    icon = Icon()
    loaf = icon.polygon([(3, 17), (4, 11.5), (8, 8), (14, 6), (20, 6.6), (24, 9.4), (25.4, 14), (24.6, 19), (21, 21.6), (7, 22.6), (4, 20.8)], "wheat", "trunk", (5, 25))
    for x in (9, 14, 19):
        icon.line([(x - 2.2, 15.2), (x + 2.4, 8.4)], 2.6, "furrow", 0.7, loaf)
        icon.line([(x - 1.6, 15.0), (x + 2.6, 8.8)], 1.5, "cream", 1.0, loaf)
    icon.line([(5, 20.2), (14, 20.8), (24, 18.6)], 2.2, "trunk", 0.35, loaf)
    return icon


def _log():
    icon = Icon()
    icon.polygon([(8.5, 9.6), (21, 3.6), (24, 4.4), (26, 8), (25.6, 13), (23.6, 16), (11, 23.2)], "plank", "trunk", (6, 21))
    for shift in (3.2, 6.4, 9.4):
        icon.line([(11, 8.4 + shift), (24, 2.4 + shift)], 0.9, "furrow", 0.7)
    icon.ellipse((2.2, 9, 14.4, 24), "trunk", "furrow")
    icon.ellipse((3.2, 10, 13.6, 23), "horn", "wheat")
    icon.arc((5, 12.2, 11.8, 20.8), 0, 360, 0.9, "plank", 0.9)
    icon.arc((6.9, 14.4, 9.9, 18.4), 0, 360, 0.9, "plank", 0.9)
    return icon


def _stone():
    icon = Icon()
    icon.polygon([(3, 10), (13, 4.2), (25, 7.6), (15.4, 14)], "cream", "stone")
    icon.polygon([(3, 10), (15.4, 14), (15.4, 25), (3.4, 20)], "stone", "stone_dark")
    icon.polygon([(15.4, 14), (25, 7.6), (24.6, 17.6), (15.4, 25)], "stone_dark", "rock_dark")
    icon.line([(6, 14.4), (9, 15.6), (10, 18.4)], 0.9, "rock_dark", 0.8)
    icon.line([(19, 16), (20.6, 18)], 0.9, "ink", 0.5)
    icon.line([(3.6, 10.4), (15.4, 14.1), (24.6, 8)], 0.8, "cream", 0.8)
    return icon


def _ingot():
    icon = Icon()
    icon.polygon([(6.8, 9), (18.6, 5.4), (25, 9.6), (12.4, 13.8)], "cream", "shade_light")
    icon.polygon([(6.8, 9), (12.4, 13.8), (10.6, 22.8), (2.6, 16)], "shade_light", "slate")
    icon.polygon([(12.4, 13.8), (25, 9.6), (26, 17), (10.6, 22.8)], "slate", "iron")
    icon.line([(7, 9.2), (12.4, 13.8), (24.6, 9.8)], 0.8, "cream", 0.9)
    icon.line([(14.4, 16.6), (21.6, 14)], 1.4, "shade_light", 0.7)
    return icon


GOODS = {"money": _coin, "food": _bread, "wood": _log, "stone": _stone, "iron": _ingot}


def draw():
    earth, light = ("haze", "road_edge"), ("cloud", "cloud_shade")
    _dust("dust_road", (80, 56), 9, earth, 0.42, 0.75)
    _dust("dust_enemy", (80, 56), 9, ("log_light", "log"), 0.42, 0.8)
    _dust("dust_fence", (96, 72), 11, light, 0.5, 0.7)
    _upgrade()
    _explosion()
    _vanish()
    _sparkles()
    _spark()
    for name, icon in GOODS.items():
        icon().save(name)


if __name__ == "__main__":
    draw()
