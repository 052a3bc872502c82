"""The wood and the parchment that the game's screens are made of, drawn without Blender.

Every function returns a picture at SCALE times its size on the screen; compose.py shrinks and saves it. The light comes
from the upper left as everywhere. Chance is seeded by names, so that the same call gives the same picture.
"""
import zlib

import numpy
from PIL import Image, ImageChops, ImageDraw

import palette
import picture

SCALE = 3
MARGIN = 6  # of the screen's pixels around a board, for its shadow and its glow


def _noise(name, size, cells):
    """Smooth noise about 0, with so many cells across and down."""
    r = numpy.random.RandomState(zlib.crc32(name.encode("ascii")))
    grid = r.normal(0, 1, (max(2, cells[1]), max(2, cells[0]))).astype(numpy.float32)
    return numpy.asarray(Image.fromarray(grid, "F").resize(size, Image.BICUBIC), dtype=numpy.float64)


def _between(stops, t):
    """Colours along a row of palette names, t from 0 to 1."""
    colours = numpy.array([palette.rgb(c) for c in stops], dtype=numpy.float64)
    at = numpy.clip(t, 0, 1) * (len(stops) - 1)
    low = numpy.minimum(at.astype(int), len(stops) - 2)
    return colours[low] + (colours[low + 1] - colours[low]) * (at - low)[..., None]


def _image(rgb, mask):
    out = Image.fromarray(numpy.rint(numpy.clip(rgb, 0, 255)).astype(numpy.uint8), "RGB").convert("RGBA")
    out.putalpha(mask)
    return out


def grain(name, size, stops=("plank_dark", "plank", "plank_light"), upright=False):
    """Wood: long fibres, slow waves and a knot or two. size is in pixels of the picture."""
    if upright:
        return numpy.swapaxes(grain(name, size[::-1], stops), 0, 1)
    w, h = size
    y = numpy.mgrid[0:h, 0:w][0].astype(numpy.float64)
    wave = _noise(name + "wave", size, (3 + w // 240, 2 + h // 120)) * 9 * SCALE / 3
    rings = 0.5 + 0.5 * numpy.sin((y + wave) * (0.42 / SCALE * 1.6))
    fine = _noise(name + "fine", size, (4 + w // 90, h // 2)) * 0.16
    slow = _noise(name + "slow", size, (2 + w // 200, 3 + h // 50)) * 0.10
    return _between(stops, 0.56 + 0.2 * (rings - 0.5) + fine + slow)


def paper(name, size):
    """Parchment: fibres, faint stains, darker towards its edges."""
    w, h = size
    y, x = numpy.mgrid[0:h, 0:w].astype(numpy.float64)
    inward = numpy.minimum(numpy.minimum(x, w - 1 - x), numpy.minimum(y, h - 1 - y)) / SCALE
    edge = numpy.exp(-inward / 14) * 0.62 + numpy.exp(-inward / 3) * 0.3
    stain = _noise(name + "stain", size, (5, 4)) * 0.07 + _noise(name + "blot", size, (16, 12)) * 0.05
    fibre = _noise(name + "fibre", size, (w // 9, h // 3)) * 0.03
    light = 0.05 * (1 - (x / w + y / h))
    return _between(("cream", "parchment", "parchment_edge"), 0.42 + edge + stain + fibre - light)


def rounded(size, box, radius):
    """A mask with a rounded box; all in pixels of the picture."""
    mask = Image.new("L", size, 0)
    ImageDraw.Draw(mask).rounded_rectangle([box[0], box[1], box[2] - 1, box[3] - 1], radius, fill=255)
    return mask


def _rough(size, box, name, jag):
    """A box whose short ends are worn."""
    r = numpy.random.RandomState(zlib.crc32(name.encode("ascii")))
    left, top, right, bottom = box
    n = 7
    points = [(left + r.uniform(0, jag), top + (bottom - top) * i / n) for i in range(n, -1, -1)]
    points += [(right - r.uniform(0, jag), top + (bottom - top) * i / n) for i in range(n + 1)]
    mask = Image.new("L", size, 0)
    ImageDraw.Draw(mask).polygon(points, fill=255)
    mask = picture.blurred(mask, 1.6 * SCALE)
    return mask.point(lambda v: max(0, min(255, (v - 112) * 8)))


def raised(rgb, mask, round_off, strength=1.0):
    """Light and shade on a body whose edges are rounded off over so many pixels of the screen."""
    high = numpy.asarray(picture.blurred(mask, round_off * SCALE / 2), dtype=numpy.float64) / 255
    high = numpy.clip(high * 2 - 1, 0, 1) ** 0.7
    slope_y, slope_x = numpy.gradient(high)
    light = (slope_x * 0.55 + slope_y * 0.85) * round_off * SCALE
    lit = numpy.clip(light, 0, 1)[..., None] * strength
    dark = numpy.clip(-light, 0, 1)[..., None] * strength
    glow, ink = numpy.array(palette.rgb("glow")), numpy.array(palette.rgb("ink"))
    rgb = rgb + (glow - rgb) * numpy.clip(lit * 0.75, 0, 0.65)
    return rgb + (ink - rgb) * numpy.clip(dark * 0.95, 0, 0.8)


def on_shadow(image, drop=3, soft=3, strength=0.55):
    """The image with a shadow below and to the right."""
    shade = picture.blurred(image.getchannel("A"), soft * SCALE / 2)
    ground = picture.fill(Image.new("RGBA", image.size, (*palette.rgb("ink"), 0)), picture.shifted(shade, drop * SCALE // 2, drop * SCALE), "ink", strength)
    return Image.alpha_composite(ground, image)


def _disc(size, centre, radius):
    mask = Image.new("L", size, 0)
    ImageDraw.Draw(mask).ellipse([centre[0] - radius, centre[1] - radius, centre[0] + radius, centre[1] + radius], fill=255)
    return mask


def wooden(name, size, mask, round_off=3, stops=("plank_dark", "plank", "plank_light")):
    """Wood in the shape of a mask, its edges rounded off; size is in pixels of the picture."""
    return _image(raised(grain(name, size, stops), mask, round_off), mask)


def nail(ground, at, radius=3.0):
    """An iron nail's head, in screen pixels."""
    k = SCALE
    mask = picture.blurred(_disc(ground.size, (at[0] * k, at[1] * k), radius * k), 0.7)
    ground = picture.fill(ground, picture.blurred(picture.shifted(mask, k // 2, k), k * 0.8), "ink", 0.6)
    flat = numpy.broadcast_to(numpy.array(palette.rgb("iron"), dtype=numpy.float64), (*ground.size[::-1], 3))
    return Image.alpha_composite(ground, _image(raised(flat, mask, radius, 1.6), mask))


def _planks(name, size, box, rows, stops):
    """Boards one above the other inside a box of the screen's pixels."""
    k = SCALE
    full = (size[0] * k, size[1] * k)
    out = Image.new("RGBA", full, (0, 0, 0, 0))
    left, top, right, bottom = (v * k for v in box)
    for row in range(rows):
        a, b = top + (bottom - top) * row // rows, top + (bottom - top) * (row + 1) // rows
        if row:
            a += k // 2
        mask = _rough(full, (left, a, right, b), f"{name}{row}", 4 * k)
        wood = grain(f"{name}{row}", full, stops)
        out = Image.alpha_composite(out, _image(raised(wood, mask, 3.2), mask))
    return out


def _tinted(image, factor):
    a = numpy.asarray(image, dtype=numpy.float64).copy()
    a[..., :3] = numpy.clip(a[..., :3] * factor, 0, 255)
    return Image.fromarray(numpy.rint(a).astype(numpy.uint8), "RGBA")


def _grown_to(image, factor):
    """The image scaled about its middle in the same frame."""
    w, h = image.size
    small = image.resize((round(w * factor), round(h * factor)), Image.LANCZOS)
    out = Image.new("RGBA", image.size, (0, 0, 0, 0))
    out.paste(small, ((w - small.width) // 2, (h - small.height) // 2))
    return out


def looks_of(image, grow=0.97):
    """The four looks of a button that is drawn once: normal, hovered, pressed, disabled."""
    hover = picture.halo(_tinted(image, 1.13), 3 * SCALE, "glow", 1.0)
    pressed = on_shadow(_grown_to(_tinted(image, 0.80), grow), 1, 2, 0.5)
    return [on_shadow(image), on_shadow(hover, 3, 3, 0.4), pressed, on_shadow(picture.faded(image, 0.62, 0.92), 2, 2, 0.35)]


def board(name, size, rows=2):
    """A blank board to write on; size counts the margin."""
    box = (MARGIN, MARGIN, size[0] - MARGIN, size[1] - MARGIN)
    out = _planks(name, size, box, rows, ("plank_dark", "plank", "plank_light"))
    nails = (MARGIN + 9, size[0] - MARGIN - 9) if size[0] >= 150 else ()  # a small one has room for its word alone
    for x in nails:
        out = nail(out, (x, size[1] / 2 - 0.5), 2.6)
    return out


def knob(name, size, mark=None):
    """A round wooden button with an arrow cut in: mark is "up", "down", "left", "right" or "cross"."""
    k = SCALE
    full = (size * k, size * k)
    mask = picture.blurred(_disc(full, (full[0] / 2, full[1] / 2), (size / 2 - MARGIN) * k), 0.6)
    out = _image(raised(grain(name, full), mask, 4), mask)
    inner = _disc(full, (full[0] / 2, full[1] / 2), (size / 2 - MARGIN - 4) * k)
    ring = ImageChops.subtract(_disc(full, (full[0] / 2, full[1] / 2), (size / 2 - MARGIN - 3) * k), inner)
    out = picture.fill(out, picture.blurred(ring, k * 0.4), "timber", 0.7)
    return picture.carved(out, _mark(full, mark, (size / 2 - MARGIN) * k), k, "cream") if mark else out


def _mark(full, mark, radius):
    shape = Image.new("L", full, 0)
    draw = ImageDraw.Draw(shape)
    cx, cy, r = full[0] / 2, full[1] / 2, radius * 0.52
    if mark == "cross":
        for s in (-1, 1):
            draw.line([(cx - r * 0.8, cy - s * r * 0.8), (cx + r * 0.8, cy + s * r * 0.8)], fill=255, width=round(r * 0.5))
        return shape
    turn = {"up": 0, "right": 90, "down": 180, "left": 270}[mark]
    points = [(0, -r), (r * 0.95, r * 0.62), (-r * 0.95, r * 0.62)]
    c, s = numpy.cos(numpy.radians(turn)), numpy.sin(numpy.radians(turn))
    draw.polygon([(cx + x * c - y * s, cy + x * s + y * c) for x, y in points], fill=255)
    return shape


def wheel(size):
    """A small cart wheel, the knob of a slider."""
    k = SCALE
    full, c = (size * k, size * k), size * k / 2
    r = (size / 2 - 3) * k
    mask = ImageChops.subtract(_disc(full, (c, c), r), _disc(full, (c, c), r * 0.68))
    draw = ImageDraw.Draw(mask)
    for i in range(4):
        a = numpy.pi * (i + 0.5) / 4
        dx, dy = r * 0.8 * numpy.cos(a), r * 0.8 * numpy.sin(a)
        draw.line([(c - dx, c - dy), (c + dx, c + dy)], fill=255, width=round(r * 0.2))
    mask = picture.blurred(ImageChops.lighter(mask, _disc(full, (c, c), r * 0.34)), 0.7)
    under = picture.fill(Image.new("RGBA", full, (*palette.rgb("ink"), 0)), picture.blurred(_disc(full, (c, c), r * 0.9), k), "ink", 0.75)
    out = Image.alpha_composite(under, _image(raised(grain("wheel", full), mask, 3.4), mask))
    return nail(out, (size / 2, size / 2), size * 0.085)


def sunken(name, size, inside="paper", lip=2):
    """A field let into the wood: dark above and left, a light lip below."""
    k = SCALE
    full = (size[0] * k, size[1] * k)
    radius = 7 * k
    mask = rounded(full, (lip * k, lip * k, full[0] - lip * k, full[1] - lip * k), radius)
    rim = rounded(full, (0, 0, *full), radius + lip * k)
    out = picture.fill(Image.new("RGBA", full, (*palette.rgb("timber"), 0)), rim, "timber", 0.85)
    ground = paper(name, full) if inside == "paper" else grain(name, full, ("ink", "timber", "walnut"))
    out = Image.alpha_composite(out, _image(ground, mask))
    outside = ImageChops.invert(mask)
    shade = picture.shifted(picture.blurred(ImageChops.lighter(outside, picture.shifted(outside, 2 * k, 3 * k)), 2.2 * k), 0, k)
    return picture.fill(out, ImageChops.multiply(shade, mask), "ink", 0.62)


def panel(name, size, thick=24):
    """Parchment in a frame of four planks with nailed corners; size counts the margin."""
    k = SCALE
    full = (size[0] * k, size[1] * k)
    w, h, m = size[0], size[1], MARGIN
    inside = rounded(full, ((m + thick - 5) * k, (m + thick - 5) * k, (w - m - thick + 5) * k, (h - m - thick + 5) * k), 4 * k)
    size_in = ((w - 2 * (m + thick) + 10) * k, (h - 2 * (m + thick) + 10) * k)
    sheet = numpy.zeros((*full[::-1], 3))
    at = (m + thick - 5) * k
    sheet[at:at + size_in[1], at:at + size_in[0]] = paper(name, size_in)
    out = _image(sheet, inside)
    frame = Image.new("RGBA", full, (0, 0, 0, 0))
    stops = ("timber", "plank_dark", "plank")
    for side, box in (("left", (m + 3, m + 4, m + thick + 2, h - m - 4)), ("right", (w - m - thick - 2, m + 4, w - m - 3, h - m - 4))):
        mask = rounded(full, [v * k for v in box], 5 * k)
        frame = Image.alpha_composite(frame, _image(raised(grain(name + side, full, stops, True), mask, 5), mask))
    for side, box in (("top", (m, m, w - m, m + thick)), ("bottom", (m, h - m - thick, w - m, h - m))):
        mask = _rough(full, [v * k for v in box], name + side, 5 * k)
        frame = Image.alpha_composite(frame, on_shadow(_image(raised(grain(name + side, full, stops), mask, 5), mask), 1, 2, 0.5))
    shade = picture.shifted(picture.blurred(frame.getchannel("A"), 4 * k), 2 * k, 4 * k)
    out = picture.fill(out, ImageChops.multiply(shade, inside), "ink", 0.5)
    out = Image.alpha_composite(out, frame)
    for x in (m + thick / 2 + 1, w - m - thick / 2 - 1):
        for y in (m + thick / 2, h - m - thick / 2):
            out = nail(out, (x, y), 4.2)
    return on_shadow(out, 3, 5, 0.6)


def rope(length, width=12):
    """A rope that hangs straight down."""
    k = SCALE
    full = (width * k, length * k)
    y, x = numpy.mgrid[0:full[1], 0:full[0]].astype(numpy.float64)
    u = (x / k - width / 2) / 2.3
    twist = 0.5 + 0.5 * numpy.sin((y / k + 2.6 * u) * 1.15)
    t = 0.72 * twist + 0.35 * (0.3 - u) * 0.6
    mask = Image.fromarray(((numpy.abs(u) < 1) * 255).astype(numpy.uint8), "L")
    return on_shadow(_image(_between(("soil", "rope", "parchment"), t), picture.blurred(mask, 0.8)), 1, 2, 0.4)


def blob_shadow(size):
    """The soft shadow below a man, at its size on the screen."""
    y, x = numpy.mgrid[0:size[1], 0:size[0]].astype(numpy.float64)
    d = numpy.hypot((x + 0.5) / size[0] * 2 - 1, (y + 0.5) / size[1] * 2 - 1)
    out = Image.new("RGBA", size, (*palette.rgb("hedge_deep"), 0))
    out.putalpha(Image.fromarray(numpy.rint(numpy.clip(1 - d, 0, 1) ** 0.8 * 255).astype(numpy.uint8), "L"))
    return out


def box_to_tick(size):
    """The box that a tick is set into."""
    k = SCALE
    full = (size * k, size * k)
    edge = rounded(full, (MARGIN * k, MARGIN * k, (size - MARGIN) * k, (size - MARGIN) * k), 4 * k)
    hole = rounded(full, ((MARGIN + 6) * k, (MARGIN + 6) * k, (size - MARGIN - 6) * k, (size - MARGIN - 6) * k), 2 * k)
    out = _image(numpy.broadcast_to(numpy.array(palette.rgb("timber"), dtype=numpy.float64), (*full[::-1], 3)), hole)
    out = picture.fill(out, hole, "ink", 0.35)
    ring = ImageChops.subtract(edge, hole)
    return Image.alpha_composite(out, _image(raised(grain("tickbox", full), ring, 3), ring))


def bubble(name, size, corner):
    """The parchment of a tip; it points to one corner: "UpLeft" means that the tip lies up and left of its owner."""
    k, m, r, tail = SCALE, 5, 12, 13
    full = (size[0] * k, size[1] * k)
    w, h = size
    body = rounded(full, (m * k, (m + tail) * k, (w - m) * k, (h - m - tail) * k), r * k)
    draw = ImageDraw.Draw(body)
    up, left = corner.startswith("Up"), corner.endswith("Left")
    base_y = h - m - tail - 1 if up else m + tail + 1
    tip_y = h - m if up else m
    xs = (w - m - r - 26, w - m - r - 4, w - m - 7) if left else (m + r + 26, m + r + 4, m + 7)
    draw.polygon([(xs[0] * k, base_y * k), (xs[1] * k, base_y * k), (xs[2] * k, tip_y * k)], fill=255)
    body = picture.blurred(body, k * 0.5)
    rim = picture.grown(body, k + 1)
    out = _image(numpy.broadcast_to(numpy.array(palette.rgb("timber"), dtype=numpy.float64), (*full[::-1], 3)), rim)
    inner = ImageChops.multiply(body, body)
    out = Image.alpha_composite(out, _image(paper(name, full), inner))
    return on_shadow(out, 2, 3, 0.5)


def bar_fill(size):
    """The golden filling of a bar."""
    k = SCALE
    full = (size[0] * k, size[1] * k)
    mask = rounded(full, (0, 0, *full), full[1] // 2)
    rgb = _between(("soil", "wheat_dark", "gold", "wheat"), 0.72 + _noise("fill", full, (full[0] // 30, 3)) * 0.05)
    return _image(raised(rgb, mask, size[1] * 0.4, 0.7), mask)


def list_row(size):
    """Four looks of a list's row: blank, a glow of gold, a darker one, blank."""
    k = SCALE
    full = (size[0] * k, size[1] * k)
    mask = picture.blurred(rounded(full, (4 * k, 3 * k, full[0] - 4 * k, full[1] - 3 * k), 6 * k), 1.5 * k)
    blank = Image.new("RGBA", full, (*palette.rgb("gold"), 0))
    return [blank, picture.fill(blank, mask, "gold", 0.55), picture.fill(blank, mask, "wheat_dark", 0.8), blank]


def lettering(words, size, height, spacing):
    """Golden letters with a wooden rim, as on the title picture."""
    k = 2
    full = (size[0] * k, size[1] * k)
    face = picture.font("display", height * k)
    base = size[1] * k * 0.74
    name = picture.text_mask(full, words, face, (full[0] / 2, base), spacing * k, scale=2)
    rim = picture.grown(name, 5 * k)
    out = Image.new("RGBA", full, (*palette.rgb("ink"), 0))
    out = picture.fill(out, picture.blurred(picture.shifted(rim, 2 * k, 5 * k), 4 * k), "ink", 0.6)
    out = picture.fill(out, picture.shifted(rim, 0, 3 * k), "ink")
    out = Image.alpha_composite(out, _image(raised(grain("title", full, ("timber", "plank_dark", "plank")), rim, 4), rim))
    out = picture.fill(out, picture.blurred(picture.grown(name, k), 0.8), "ink", 0.75)
    out = picture.fill_shaded(out, name, "cream", "gold", (base - height * k * 0.72, base))
    lit = ImageChops.subtract(name, picture.shifted(name, 2 * k // 2, 2 * k // 2))
    out = picture.fill(out, picture.blurred(lit, 0.8), "flower_white", 0.9)
    dark = ImageChops.subtract(name, picture.shifted(name, -k, -k))
    return picture.shrink(picture.fill(out, picture.blurred(dark, 0.9), "soil", 0.65), k)
