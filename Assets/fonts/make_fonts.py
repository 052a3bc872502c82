#!/usr/bin/python3
"""Makes the fonts of Brindle: for each an atlas of letters and the table that tells where they lie.

    make_fonts.py [NAME...]     all of FONTS, or only these, into Data/Fonts/

The table (".fnt", little-endian): 74 6E 6F 66, number of ranges, per range first and last character and the index of
its first glyph (16 bits each), number of glyphs, per glyph left, top, right, bottom and advance as 32-bit floats:
fractions of the atlas, top and bottom counted from its lower edge.

The game puts the middle of a letter's quad at half its advance and on the line's middle. So every quad is as high as
the font (all letters stand on one base line) and reaches equally far beyond both ends of its advance. The format has no
pairs, so each advance carries half of what the face's own kerning takes off on average at either side of the letter.
"""
import os
import struct
import sys

import numpy
from PIL import Image, ImageDraw, ImageFilter, ImageFont

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.dirname(HERE))
sys.dont_write_bytecode = True
import palette
import picture

FACES = "/usr/share/fonts/truetype/vollkorn/Vollkorn-%s.ttf"
FINE = 4  # letters are drawn this many times larger and shrunk, which keeps their shapes
FIGURES = ["lnum", "tnum"]  # digits as high as capitals and all equally wide: a number that counts doesn't tremble
GAP = 2   # texels between two letters of an atlas

LETTERS = [(0x21, 0x7E), (0xA1, 0x17F), (0x384, 0x3CE), (0x400, 0x45F), (0x490, 0x491), (0x1E9E, 0x1E9E),
           (0x2010, 0x2015), (0x2018, 0x201E), (0x2020, 0x2022), (0x2026, 0x2026), (0x2030, 0x2030), (0x2032, 0x2033),
           (0x2039, 0x203A), (0x20AC, 0x20AC), (0x2116, 0x2116), (0x2122, 0x2122), (0x2190, 0x2193), (0x2212, 0x2212)]
DIGITS = [(0x21, 0x3A), (0x78, 0x78), (0xD7, 0xD7), (0x2212, 0x2212)]

FONTS = {  # name: face, height of its em in pixels, outline in pixels, shadow in pixels, characters
    "Title": ("Black", 46, 2.6, 2, LETTERS),
    "Button": ("Bold", 26, 1.6, 1, LETTERS),
    "Text": ("SemiBold", 21, 0, 0, LETTERS),
    "Small": ("SemiBold", 17, 0, 0, LETTERS),
    "Number": ("Bold", 19, 1.4, 0, DIGITS),
}

PAIRS = {"latin": "etaoinshrdlucmfwypvgbkETAOINSHRDLUC", "greek": "αοιετσνηυρπκμλΑΟΙΕΤΣΝ", "cyrillic": "оеаинтсрвлкмдпуОЕАИНТСРВ"}


class Face:
    """One TrueType face at FINE times its size."""

    def __init__(self, name, size):
        path = FACES % name
        self.font = ImageFont.truetype(path, size * FINE, layout_engine=ImageFont.Layout.RAQM)
        self.ascent, self.descent = self.font.getmetrics()
        from fontTools.ttLib import TTFont
        self.known = set(TTFont(path).getBestCmap())

    def advance(self, text):
        return self.font.getlength(text, features=FIGURES)

    def mean_kerning(self, character):
        """What pairs with common letters of its script take off, half of it at either side."""
        script = "cyrillic" if 0x400 <= ord(character) < 0x530 else "greek" if 0x370 <= ord(character) < 0x400 else "latin"
        own = self.advance(character)
        if not character.isalpha():
            return 0.0
        total = sum(self.advance(character + o) + self.advance(o + character) - 2 * (own + self.advance(o))
                    for o in PAIRS[script])
        return total / len(PAIRS[script]) / 2


def draw(face, character, outline, shadow):
    """One letter: its quad as a picture, and its advance in pixels."""
    advance = (face.advance(character) + face.mean_kerning(character)) / FINE
    left, _, right, _ = face.font.getbbox(character, anchor="ls", features=FIGURES)
    edge = outline + shadow + 0.5
    beyond = int(numpy.ceil(max(-left / FINE, right / FINE - advance, 0) + edge))
    width = int(numpy.ceil(advance)) + 2 * beyond
    height = cell_height(face, outline, shadow)
    mask = Image.new("L", (width * FINE, height * FINE), 0)
    pen = ((width - advance) / 2 * FINE, face.ascent + int(numpy.ceil(edge)) * FINE)
    ImageDraw.Draw(mask).text(pen, character, 255, font=face.font, anchor="ls", features=FIGURES)
    if not outline:
        alpha = mask.resize((width, height), Image.BOX)
        return Image.merge("RGBA", [Image.new("L", alpha.size, 255)] * 3 + [alpha]), advance
    rim = mask.filter(ImageFilter.MaxFilter(2 * round(outline * FINE / 2) + 1)).filter(ImageFilter.GaussianBlur(outline * FINE * 0.35))
    rim = rim.point(lambda v: min(255, v * 2))
    return layered(mask, rim, shadow).resize((width, height), Image.BOX), advance


def layered(mask, rim, shadow):
    """The letter on its dark rim, on a soft shadow below it."""
    ink = palette.rgb("ink")
    res = Image.new("RGBA", mask.size, ink + (0,))
    if shadow:
        soft = picture.shifted(rim, 0, shadow * FINE).filter(ImageFilter.GaussianBlur(FINE))
        res.putalpha(soft.point(lambda v: round(v * 0.55)))
    res.alpha_composite(Image.merge("RGBA", [Image.new("L", mask.size, c) for c in ink] + [rim]))
    res.alpha_composite(Image.merge("RGBA", [Image.new("L", mask.size, 255)] * 3 + [mask]))
    return res


def cell_height(face, outline, shadow):
    return int(numpy.ceil((face.ascent + face.descent) / FINE + 2 * numpy.ceil(outline + shadow + 0.5)))


def ranges_of(characters):
    """Runs of neighbouring codes: first, last, index of the first."""
    runs = []
    for index, code in enumerate(characters):
        if runs and runs[-1][1] == code - 1:
            runs[-1][1] = code
        else:
            runs.append([code, code, index])
    return runs


def pack(glyphs, width):
    """Places on shelves, in order; gives them and the atlas' height, a power of two."""
    x, y, places = GAP, GAP, []
    height = glyphs[0].height
    for glyph in glyphs:
        if x + glyph.width + GAP > width:
            x, y = GAP, y + height + GAP
        places.append((x, y))
        x += glyph.width + GAP
    rows = 1
    while rows < y + height + GAP:
        rows *= 2
    return places, rows


def make(name):
    face_name, size, outline, shadow, wanted = FONTS[name]
    face = Face(face_name, size)
    codes = [c for first, last in wanted for c in range(first, last + 1) if c in face.known]
    drawn = [draw(face, chr(c), outline, shadow) for c in codes]
    width = 1024 if sum(g.width for g, _ in drawn) * drawn[0][0].height > 400 * 1000 else 512
    if len(codes) < 60:
        width = 256
    places, height = pack([g for g, _ in drawn], width)
    atlas = Image.new("RGBA", (width, height), (255, 255, 255, 0) if not outline else palette.rgb("ink") + (0,))
    table = b""
    for (glyph, advance), (x, y) in zip(drawn, places):
        atlas.paste(glyph, (x, y))
        table += struct.pack("<5f", x / width, 1 - y / height, (x + glyph.width) / width,
                             1 - (y + glyph.height) / height, advance / width)
    runs = ranges_of(codes)
    data = struct.pack("<II", 0x666F6E74, len(runs)) + b"".join(struct.pack("<3H", *r) for r in runs)
    data += struct.pack("<I", len(codes)) + table
    folder = os.path.join(picture.DATA, "Fonts")
    picture.save(atlas, f"Fonts/{name}.png")
    with open(os.path.join(folder, f"{name}.fnt"), "wb") as file:
        file.write(data)
    print(f"  Data/Fonts/{name}.fnt  {len(codes)} letters of {drawn[0][0].height} pixels")


if __name__ == "__main__":
    for font_name in sys.argv[1:] or FONTS:
        make(font_name)
