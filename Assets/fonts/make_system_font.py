#!/usr/bin/env python3
"""Makes Engine/graphics/SystemFont.cpp: the printable ASCII characters of DejaVu Sans Mono Bold as one-bit cells.

Run from the repository's root with the font of Debian's package fonts-dejavu-core installed:
    python3 Assets/fonts/make_system_font.py
"""

import pathlib

from PIL import Image, ImageDraw, ImageFont

FONT = "/usr/share/fonts/truetype/dejavu/DejaVuSansMono-Bold.ttf"
SIZE = 13  # pixels; gives an advance of 8 and fits a line of 16
CELL = (8, 16)
TARGET = pathlib.Path("Engine/graphics/SystemFont.cpp")


def rows(font, character):
    image = Image.new("1", CELL)
    ImageDraw.Draw(image).text((0, 0), character, font=font, fill=1)
    return [sum(bool(image.getpixel((x, y))) << (7 - x) for x in range(CELL[0])) for y in range(CELL[1])]


def name(character):
    return "backslash" if character == "\\" else character


def main():
    font = ImageFont.truetype(FONT, SIZE)
    lines = []
    for code in range(32, 127):
        cells = ", ".join(f"0x{row:02X}" for row in rows(font, chr(code)))
        lines.append(f"    {{{cells}}},  // {name(chr(code))}".rstrip())
    TARGET.write_text(
        '#include "Engine/graphics/SystemFont.h"\n\n'
        "// Made by Assets/fonts/make_system_font.py from DejaVu Sans Mono Bold; not edited by hand.\n"
        "// clang-format off\n"
        "namespace Engine::SystemFont {\n\n"
        "const std::uint8_t glyphs[glyph_count][glyph_height] = {\n"
        + "\n".join(lines)
        + "\n};\n\n}  // namespace Engine::SystemFont\n"
    )


main()
