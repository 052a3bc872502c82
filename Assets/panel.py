"""The pictures of the control panel, drawn without Blender: a beam with sunken fields, round buttons, icons, its tips.

    build.py panel

The icon of the idol is the idol itself, as render_buildings.py has made it.
"""
import os

import numpy
from PIL import Image, ImageChops, ImageDraw

import palette
import picture
import widgets as wood
from effects import Icon

SCREEN_WIDTH = 800
BEAM_HEIGHT = 44
BUTTON = 48  # with its margin; the wood is 36 across


def _put(image, name):
    picture.save(picture.shrink(image, wood.SCALE), f"GameUI/Panel/{name}.png")


def _beam(fields):
    """A beam across the whole screen with a field let in for each (left, right)."""
    k = wood.SCALE
    full = (SCREEN_WIDTH * k, (BEAM_HEIGHT + 6) * k)
    mask = Image.new("L", full, 0)
    ImageDraw.Draw(mask).rectangle([0, 0, full[0], BEAM_HEIGHT * k], fill=255)
    wide = Image.new("L", (full[0] + 40 * k, full[1] + 20 * k), 0)  # its ends and its top lie outside of the screen
    ImageDraw.Draw(wide).rectangle([0, 0, wide.width, (BEAM_HEIGHT + 20) * k], fill=255)
    body = wood.raised(wood.grain("beam", wide.size), wide, 5)
    inside = (20 * k, 20 * k, 20 * k + full[0], 20 * k + full[1])
    out = wood._image(body[inside[1]:inside[3], inside[0]:inside[2]], mask)
    for left, right in fields:
        out.alpha_composite(wood.sunken(f"field{left}", (right - left, 32), "wood", 2), (left * k, 6 * k))
    shade = picture.shifted(picture.blurred(mask, 2 * k), 0, 3 * k)
    ground = picture.fill(Image.new("RGBA", full, (*palette.rgb("ink"), 0)), shade, "ink", 0.5)
    return Image.alpha_composite(ground, out)


# Icons: 28 pixels, like the goods ---------------------------------------------------------------------------------------

def _man():
    icon = Icon()
    icon.polygon([(4.5, 27), (5.4, 22), (9.4, 19.4), (18.6, 19.4), (22.6, 22), (23.5, 27)], "shirt_red", "paint_red")
    icon.line([(10.4, 20), (10.4, 27)], 1.9, "trousers")
    icon.line([(17.6, 20), (17.6, 27)], 1.9, "trousers")
    icon.ellipse((8.8, 8.4, 19.2, 21.2), "skin", "bank")
    icon.ellipse((11.0, 14.0, 12.7, 15.9), "ink", "ink")
    icon.ellipse((15.3, 14.0, 17.0, 15.9), "ink", "ink")
    icon.line([(11.8, 18.2), (14, 18.8), (16.2, 18.2)], 0.9, "soil")
    icon.ellipse((2.6, 7.6, 25.4, 13.6), "wheat", "furrow")
    icon.ellipse((3.4, 7.4, 24.6, 12.2), "glow", "hat")
    icon.polygon([(8.6, 9.8), (9.6, 4.2), (12.2, 2.4), (15.8, 2.4), (18.4, 4.2), (19.4, 9.8), (14, 11.0)], "glow", "hat", (0, 11))
    icon.line([(8.8, 8.4), (14, 9.6), (19.2, 8.4)], 1.7, "paint_red")
    return icon


def _idol():
    icon = Icon()
    path = os.path.join(picture.DATA, "Buildings", "Idol_1.png")
    idol = Image.open(path).convert("RGBA")
    idol = idol.crop(idol.getchannel("A").point(lambda v: 255 if v > 40 else 0).getbbox())
    side = icon.image.width
    factor = side * 0.98 / max(idol.size)
    idol = idol.resize((round(idol.width * factor), round(idol.height * factor)), Image.LANCZOS)
    idol = wood._tinted(idol, 1.25)  # it is seen small, and greyed out
    icon.image.alpha_composite(idol, ((side - idol.width) // 2, (side - idol.height) // 2))
    return icon


def _catapult():
    icon = Icon()
    icon.line([(7.5, 20), (15.5, 9.4), (19.5, 20)], 2.2, "plank_dark")
    icon.line([(20.8, 21.6), (6.0, 7.2)], 2.6, "plank_light")
    icon.line([(21.0, 20.7), (6.6, 6.6)], 0.8, "cream", 0.6)
    icon.polygon([(2.5, 18.4), (25.5, 18.4), (25.5, 22), (2.5, 22)], "plank_light", "plank_dark")
    for x in (7.5, 20.5):
        icon.ellipse((x - 4.4, 17.4, x + 4.4, 26.2), "plank", "furrow")
        icon.ellipse((x - 2.7, 19.1, x + 2.7, 24.5), "horn", "rope")
        icon.line([(x - 2.7, 21.8), (x + 2.7, 21.8)], 1.1, "plank_dark")
        icon.line([(x, 19.1), (x, 24.5)], 1.1, "plank_dark")
        icon.ellipse((x - 1.1, 20.7, x + 1.1, 22.9), "iron", "ink")
    icon.ellipse((1.8, 2.4, 9.4, 9.8), "cream", "rock_dark")
    return icon


def _crate():
    icon = Icon()
    icon.polygon([(3.4, 8.4), (14, 4), (24.6, 8.4), (14, 13)], "wheat", "plank_light")
    icon.polygon([(3.4, 8.4), (14, 13), (14, 25.4), (4.2, 20.6)], "plank_light", "plank_dark")
    icon.polygon([(24.6, 8.4), (14, 13), (14, 25.4), (23.8, 20.6)], "plank_dark", "timber")
    for rise in (4.0, 8.0):
        icon.line([(3.7, 8.4 + rise), (14, 13 + rise)], 0.8, "furrow")
        icon.line([(24.3, 8.4 + rise), (14, 13 + rise)], 0.8, "ink", 0.7)
    icon.line([(3.9, 9.4), (13.4, 24.2)], 1.8, "plank")
    icon.line([(24.0, 9.4), (14.6, 24.2)], 1.8, "trunk")
    icon.line([(3.4, 8.4), (14, 13), (24.6, 8.4)], 1.0, "cream", 0.75)
    icon.line([(14, 13), (14, 25)], 1.1, "furrow")
    return icon


ICONS = {"man": _man, "idol": _idol, "catapult": _catapult, "crate": _crate}


def _rimmed(icon):
    return picture.halo(icon.image, 8, "ink", 1.2)


# Buttons ----------------------------------------------------------------------------------------------------------------

def _bars_mark(full):
    """Three bars: a menu."""
    mask = Image.new("L", full, 0)
    draw = ImageDraw.Draw(mask)
    c, w, h = full[0] / 2, full[0] * 0.17, full[0] * 0.035
    for row in (-1, 0, 1):
        y = c + row * full[0] * 0.115
        draw.rounded_rectangle([c - w, y - h, c + w, y + h], h, fill=255)
    return mask


def _with_icon(icon):
    """A round button with an icon on parchment."""
    k = wood.SCALE
    out = wood.knob("buy", BUTTON)
    full = out.size
    r = (BUTTON / 2 - wood.MARGIN - 4) * k
    mask = picture.blurred(wood._disc(full, (full[0] / 2, full[1] / 2), r), 0.8)
    sheet = Image.new("RGBA", full, (0, 0, 0, 0))
    sheet = picture.fill(sheet, mask, "parchment")
    shade = ImageChops.multiply(mask, ImageChops.invert(picture.shifted(picture.blurred(mask, 3 * k), 2 * k, 3 * k)))
    out = Image.alpha_composite(out, picture.fill(sheet, shade, "soil", 0.8))
    image = _rimmed(icon)
    side = round(28 * k)
    image = image.resize((side, side), Image.LANCZOS)
    out.alpha_composite(image, ((full[0] - side) // 2, (full[1] - side) // 2))
    return out


def _save_button(image, name):
    looks = [picture.shrink(look, wood.SCALE) for look in wood.looks_of(image)]
    picture.save(picture.row_of(looks, 4), f"GameUI/Panel/{name}.png")


def draw():
    goods = [(182 + 73 * i, 251 + 73 * i) for i in range(4)]  # three digits
    _put(_beam([(94, 178), *goods, (476, 574), (578, 660)]), "beam")  # money has four
    for name, make in ICONS.items():
        image = _rimmed(make())
        picture.save(picture.shrink(image, image.width // 28), f"GameUI/Panel/icon_{name}.png")
    for name in ("man", "idol", "catapult"):
        _save_button(_with_icon(ICONS[name]()), f"button_{name}")
    blank = wood.knob("menu", BUTTON)
    _save_button(picture.carved(blank, _bars_mark(blank.size), wood.SCALE, "cream"), "button_menu")
    _save_button(wood.knob("back", BUTTON, "left"), "button_back")
    for corner in ("UpLeft", "UpRight", "DownLeft", "DownRight"):
        _put(wood.bubble("price", (232, 126), corner), f"tip_{corner}")
        _put(wood.bubble("word", (170, 72), corner), f"word_{corner}")


if __name__ == "__main__":
    draw()
