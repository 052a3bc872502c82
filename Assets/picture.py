"""What every finished picture of Brindle passes through: shrinking, skies, letters, saving.

Plain Python with Pillow and numpy; nothing here needs Blender. Pictures are Pillow images in RGBA; the same
input gives the same bytes (fixed encoder settings, no dates inside).
"""
import os

import numpy
from PIL import Image, ImageChops, ImageDraw, ImageFilter, ImageFont

import palette

DATA = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "Data")
LOGOS = os.path.join(os.path.dirname(DATA), "Assets", "packs", "logos")  # what Data/logos.pack is made of
FONTS = {
    "display": "/usr/share/fonts/truetype/vollkorn/Vollkorn-Black.ttf",
    "bold": "/usr/share/fonts/truetype/vollkorn/Vollkorn-Bold.ttf",
    "italic": "/usr/share/fonts/truetype/vollkorn/Vollkorn-SemiBoldItalic.ttf",
    "book": "/usr/share/fonts/opentype/sortsmill/GoudyBookletter1911.otf",
}


def font(name, size):
    return ImageFont.truetype(FONTS[name], size, layout_engine=ImageFont.Layout.BASIC)


def open_render(path):
    return Image.open(path).convert("RGBA")


def shrink(image, factor):
    """Averages factor x factor pixels, colours weighted by their alpha, so that no dark rim appears."""
    a = numpy.asarray(image, dtype=numpy.float64) / 255
    rgb, alpha = a[..., :3] * a[..., 3:], a[..., 3:]
    h, w = a.shape[0] // factor, a.shape[1] // factor

    def mean(v):
        return v[:h * factor, :w * factor].reshape(h, factor, w, factor, -1).mean(axis=(1, 3))
    rgb, alpha = mean(rgb), mean(alpha)
    rgb = numpy.where(alpha > 0, rgb / numpy.maximum(alpha, 1e-9), 0)
    return Image.fromarray(numpy.rint(numpy.concatenate([rgb, alpha], axis=2) * 255).astype(numpy.uint8), "RGBA")


def save(image, name, folder=DATA):
    """Writes a picture into Data/ or another folder: a JPEG flat and crisp (all colour kept), a PNG with its alpha."""
    path = os.path.join(folder, name)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    if name.endswith(".jpg"):
        image.convert("RGB").save(path, quality=91, subsampling=0, optimize=True)
    else:
        image.save(path, optimize=True)
    print(f"  {os.path.relpath(path, os.path.dirname(DATA))}  {image.width} x {image.height}, {os.path.getsize(path) // 1024} KiB")


def mix(a, b, t):
    """Between two colours (names or triples), t from 0 to 1."""
    a, b = (palette.rgb(c) if isinstance(c, str) else c for c in (a, b))
    return tuple(round(p + (q - p) * t) for p, q in zip(a, b))


def sky(size, horizon_row):
    """A late-afternoon sky: blue above, golden at the horizon, brightest at the upper left."""
    w, h = size
    y, x = numpy.mgrid[0:h, 0:w].astype(numpy.float64)
    t = numpy.clip(y / horizon_row, 0, 1)[..., None]
    stops = [numpy.array(palette.rgb(c), dtype=numpy.float64) for c in ("zenith", "sky", "horizon")]
    low = stops[0] + (stops[1] - stops[0]) * numpy.clip(t * 2, 0, 1)
    colour = low + (stops[2] - low) * numpy.clip(t * 1.6 - 0.6, 0, 1)
    far = numpy.hypot((x - 0.16 * w) / w, (y - 0.55 * horizon_row) / w)[..., None]
    glow = numpy.exp(-(far / 0.26) ** 2) * 0.75
    colour += (numpy.array(palette.rgb("glow")) - colour) * glow
    return Image.fromarray(numpy.rint(numpy.clip(colour, 0, 255)).astype(numpy.uint8), "RGB").convert("RGBA")


def paste(ground, image, at, strength=1.0):
    """Lays image over ground with its upper left corner at `at`, which may lie outside."""
    layer = Image.new("RGBA", ground.size, (0, 0, 0, 0))
    if strength != 1.0:
        image = image.copy()
        image.putalpha(image.getchannel("A").point(lambda v: round(v * strength)))
    layer.paste(image, (round(at[0]), round(at[1])))
    return Image.alpha_composite(ground, layer)


def text_mask(size, words, face, at, spacing=0.0, anchor="m", scale=3):
    """An 8-bit mask with words in it; at is (x, baseline), anchor "l", "m" or "r", spacing extra pixels a letter.

    Drawn scale times larger and shrunk, so that the curves are smooth and places may be fractions.
    """
    big = ImageFont.truetype(face.path, face.size * scale, layout_engine=ImageFont.Layout.BASIC)
    pairs = [big.getlength(words[i:i + 2]) - big.getlength(words[i + 1:i + 2]) for i in range(len(words) - 1)]
    steps = [p + spacing * scale for p in pairs] + [big.getlength(words[-1:])]
    x = at[0] * scale - {"l": 0, "m": sum(steps) / 2, "r": sum(steps)}[anchor]
    mask = Image.new("L", (size[0] * scale, size[1] * scale), 0)
    draw = ImageDraw.Draw(mask)
    for letter, step in zip(words, steps):
        draw.text((x, at[1] * scale), letter, font=big, fill=255, anchor="ls")
        x += step
    return mask.resize(size, Image.LANCZOS)


def grown(mask, pixels):
    """The mask made fatter by a number of pixels, edges kept smooth."""
    for _ in range(int(pixels)):
        mask = mask.filter(ImageFilter.MaxFilter(3)).filter(ImageFilter.GaussianBlur(0.45))
    return mask


def fill(ground, mask, colour, strength=1.0):
    """Paints a colour (name or triple) through a mask."""
    c = palette.rgb(colour) if isinstance(colour, str) else colour
    layer = Image.new("RGBA", ground.size, (*c, 255))
    layer.putalpha(mask.point(lambda v: round(v * strength)))
    return Image.alpha_composite(ground, layer)


def fill_shaded(ground, mask, top, bottom, rows):
    """Paints a gradient from the colour top at rows[0] to bottom at rows[1] through a mask."""
    t = numpy.clip((numpy.arange(ground.height) - rows[0]) / (rows[1] - rows[0]), 0, 1)[:, None, None]
    a, b = (numpy.array(palette.rgb(c), dtype=numpy.float64) for c in (top, bottom))
    column = numpy.rint(a + (b - a) * t).astype(numpy.uint8)
    layer = Image.fromarray(numpy.broadcast_to(column, (ground.height, ground.width, 3)).copy(), "RGB").convert("RGBA")
    layer.putalpha(mask)
    return Image.alpha_composite(ground, layer)


def shifted(mask, dx, dy):
    out = Image.new("L", mask.size, 0)
    out.paste(mask, (dx, dy))
    return out


def blurred(mask, radius):
    return mask.filter(ImageFilter.GaussianBlur(radius))


def carved(ground, mask, depth, face="cream", edge="ink"):
    """Words cut `depth` pixels into wood and painted: a dark rim, darkest above, and a light lower lip."""
    rim = grown(mask, depth)
    ground = fill(ground, ImageChops.subtract(shifted(rim, 0, depth), rim), "glow", 0.45)
    ground = fill(ground, rim, edge, 0.9)
    ground = fill(ground, mask, face)
    inner = ImageChops.subtract(mask, shifted(mask, depth, depth))
    return fill(ground, blurred(inner, depth * 0.4), edge, 0.35)


def halo(image, radius, colour, strength):
    """The image on a glow that follows its outline."""
    ground = Image.new("RGBA", image.size, (*palette.rgb(colour), 0))
    glow = blurred(grown(image.getchannel("A"), radius // 2), radius)
    ground.putalpha(glow.point(lambda v: min(255, round(v * strength))))
    return Image.alpha_composite(ground, image)


def faded(image, grey=0.75, light=1.0):
    """Greyed out: colours drawn towards their grey by `grey`, brightness times `light`."""
    a = numpy.asarray(image, dtype=numpy.float64)
    mean = (a[..., :3] * (0.30, 0.59, 0.11)).sum(axis=2, keepdims=True)
    rgb = (mean + (a[..., :3] - mean) * (1 - grey)) * light
    return Image.fromarray(numpy.rint(numpy.clip(numpy.concatenate([rgb, a[..., 3:]], axis=2), 0, 255)).astype(numpy.uint8), "RGBA")


def row_of(frames, columns):
    """An atlas of equal frames, row by row."""
    w, h = frames[0].size
    sheet = Image.new("RGBA", (w * columns, h * -(-len(frames) // columns)), (0, 0, 0, 0))
    for i, frame in enumerate(frames):
        sheet.paste(frame, (i % columns * w, i // columns * h))
    return sheet


def vignette(image, strength=0.28, colour="ink"):
    """Darkens the corners a little."""
    w, h = image.size
    y, x = numpy.mgrid[0:h, 0:w].astype(numpy.float64)
    d = numpy.hypot((x / w - 0.5) * 1.25, (y / h - 0.5) * 1.25)
    a = numpy.clip((d - 0.42) / 0.45, 0, 1) ** 2 * strength * 255
    return fill(image, Image.fromarray(numpy.rint(a).astype(numpy.uint8), "L"), colour)


def graded(image, warmth=1.0, contrast=1.06):
    """The last touch on a vista: a little contrast about the middle, a little more colour."""
    a = numpy.asarray(image.convert("RGB"), dtype=numpy.float64) / 255
    a = numpy.clip((a - 0.5) * contrast + 0.5, 0, 1)
    grey = (a * (0.30, 0.59, 0.11)).sum(axis=2, keepdims=True)
    a = numpy.clip(grey + (a - grey) * 1.08, 0, 1)
    return Image.fromarray(numpy.rint(a * 255).astype(numpy.uint8), "RGB").convert("RGBA")
