"""What floats over buildings, drawn without Blender: buttons, bars, marks of work under way, the tip, the bomb.

    build.py marks

Wood, parchment and light are those of widgets.py. Sizes are the screen's; a button's four looks lie side by side.
"""
import math

from PIL import Image, ImageChops, ImageDraw

import effects
import palette
import picture
import widgets

K = widgets.SCALE
STEPS = 4  # looks of the unload button beyond the empty one


def _save(image, name):
    picture.save(picture.shrink(image, K), f"Marks/{name}.png")


def _blank(size):
    return Image.new("RGBA", (size[0] * K, size[1] * K), (*palette.rgb("ink"), 0))


def _mask(size, paint):
    """@param paint  draws with a Pillow brush; places are the screen's times K"""
    mask = Image.new("L", (size[0] * K, size[1] * K), 0)
    paint(ImageDraw.Draw(mask))
    return picture.blurred(mask, 0.6)


def _polygon(size, points):
    return _mask(size, lambda d: d.polygon([(x * K, y * K) for x, y in points], fill=255))


def _disc(size, at, radius):
    return _mask(size, lambda d: d.ellipse([(at[0] - radius) * K, (at[1] - radius) * K, (at[0] + radius) * K, (at[1] + radius) * K], fill=255))


def _looks(image, name):
    picture.save(picture.row_of([picture.shrink(look, K) for look in widgets.looks_of(image, 0.94)], 4), f"Marks/{name}.png")


# The right side of a building: to raise it a level --------------------------------------------------------------------

BUTTON = 44


def _medal(name):
    """A wooden disc with a golden rim, dark within."""
    size, c = (BUTTON, BUTTON), BUTTON / 2
    outer = _disc(size, (c, c), c - widgets.MARGIN)
    out = widgets.wooden(name, (BUTTON * K, BUTTON * K), outer, 3, ("plank_dark", "plank", "plank_light"))
    ring = ImageChops.subtract(_disc(size, (c, c), c - widgets.MARGIN - 1.6), _disc(size, (c, c), c - widgets.MARGIN - 4))
    return picture.fill(out, ring, "furrow", 0.85)


def _arrow():
    """Two chevrons, one above the other."""
    c, full = BUTTON / 2, (BUTTON, BUTTON)
    mask = Image.new("L", (BUTTON * K, BUTTON * K), 0)
    for y in (-6.6, 1.2):
        points = [(c, c + y), (c + 9, c + y + 7.4), (c + 9, c + y + 11.6), (c, c + y + 5.0), (c - 9, c + y + 11.6), (c - 9, c + y + 7.4)]
        mask = ImageChops.lighter(mask, _polygon(full, [(x, v - 1.6) for x, v in points]))
    return mask


def _gilded(ground, mask, rows):
    """Gold paint in a dark rim."""
    ground = picture.fill(ground, picture.grown(mask, K), "ink", 0.85)
    ground = picture.fill_shaded(ground, mask, "glow", "gold", [v * K for v in rows])
    lit = ImageChops.subtract(mask, picture.shifted(mask, 1, 2))
    return picture.fill(ground, lit, "flower_white", 0.8)


def _hammer(ground, at, length, turn):
    """A hammer with its middle at a place, its head up before it is turned (radians)."""
    size = (ground.width // K, ground.height // K)

    def turned(points):
        c, s = math.cos(turn), math.sin(turn)
        return [(at[0] + (x * c - y * s) * length, at[1] + (x * s + y * c) * length) for x, y in points]
    handle = _polygon(size, turned([(-0.075, -0.25), (0.075, -0.25), (0.085, 0.55), (-0.085, 0.55)]))
    head = _polygon(size, turned([(-0.36, -0.50), (0.22, -0.50), (0.40, -0.40), (0.40, -0.27), (0.22, -0.20), (-0.36, -0.20)]))
    ground = picture.fill(ground, picture.grown(ImageChops.lighter(handle, head), K), "ink", 0.9)
    ground = picture.fill_shaded(ground, handle, "plank_light", "plank", [(at[1] - length / 2) * K, (at[1] + length / 2) * K])
    ground = picture.fill_shaded(ground, head, "cream", "stone_dark", [(at[1] - length * 0.6) * K, (at[1] + length * 0.1) * K])
    lit = ImageChops.subtract(head, picture.shifted(head, 2, 2))
    return picture.fill(ground, lit, "flower_white", 0.9)


def _upgrade():
    _looks(_gilded(_medal("upgrade"), _arrow(), (12, 33)), "upgrade")
    ordered = _medal("ordered")
    ordered = picture.fill(ordered, _disc((BUTTON, BUTTON), (BUTTON / 2, BUTTON / 2), BUTTON / 2 - widgets.MARGIN - 4), "parchment", 0.9)
    _save(widgets.on_shadow(_hammer(ordered, (21.5, 22.5), 21, 0.6), 2, 2), "upgrade_ordered")


def _go_on():
    """Where the way leads on: an arrow to the right on a disc."""
    ground = _gilded(_medal("go_on"), _arrow().transpose(Image.ROTATE_270), (12, 33))
    _save(widgets.on_shadow(ground, 2, 2), "go_on")


# The left side: what a mill has to fetch ------------------------------------------------------------------------------

PLATE = 46
# Of each look: the icon's size, and the places of its middles on the plate, those behind first.
HEAPS = (
    (27, ((23, 22.5),)),
    (27, ((23, 22.5),)),
    (22, ((17.5, 20.5), (28, 24.5))),
    (20, ((23, 17), (16.5, 26), (29.5, 26.5))),
    (18, ((17.5, 17), (28.5, 17), (17.5, 28.5), (28.5, 28.5))),
)


def _plate():
    """A sheet of parchment on a small board."""
    size = (PLATE, PLATE)
    m = widgets.MARGIN
    edge = _mask(size, lambda d: d.rounded_rectangle([m * K, m * K, (PLATE - m) * K - 1, (PLATE - m) * K - 1], 7 * K, fill=255))
    inside = _mask(size, lambda d: d.rounded_rectangle([(m + 3.4) * K, (m + 3.4) * K, (PLATE - m - 3.4) * K, (PLATE - m - 3.4) * K], 4.5 * K, fill=255))
    out = widgets.wooden("plate", (PLATE * K, PLATE * K), edge, 3)
    sheet = Image.fromarray(widgets.paper("unload", out.size).round().clip(0, 255).astype("uint8"), "RGB").convert("RGBA")
    sheet.putalpha(inside)
    out = Image.alpha_composite(out, sheet)
    shade = picture.shifted(picture.blurred(ImageChops.invert(inside), 1.4 * K), K // 2, K)
    return picture.fill(out, ImageChops.multiply(shade, inside), "ink", 0.55)


def _unload():
    """For each of the goods that mills make, the button with nothing on it, and with one piece to four."""
    for name in ("food", "wood", "stone", "iron"):
        icon = effects.GOODS[name]().image
        icon = picture.halo(icon, effects.SCALE, "ink", 1.0)
        for step in range(STEPS + 1):
            side, places = HEAPS[step]
            out = _plate()
            piece = icon.resize((side * K, side * K), Image.LANCZOS)
            if step == 0:
                piece = picture.faded(piece, 1.0, 0.9)
                piece.putalpha(piece.getchannel("A").point(lambda v: v * 45 // 100))
            for x, y in places:
                out = picture.paste(out, piece, ((x - side / 2) * K, (y - side / 2) * K))
            _looks(out, f"unload_{name}_{step}")


# Bars and marks -------------------------------------------------------------------------------------------------------

def _groove(size):
    """A dark groove with a wooden rim, 3 wider on each side than what fills it."""
    rim = _mask(size, lambda d: d.rounded_rectangle([0, 0, size[0] * K - 1, size[1] * K - 1], size[1] * K // 2, fill=255))
    inside = _mask(size, lambda d: d.rounded_rectangle([2 * K, 2 * K, (size[0] - 2) * K - 1, (size[1] - 2) * K - 1], (size[1] // 2 - 2) * K, fill=255))
    out = widgets.wooden("groove", (size[0] * K, size[1] * K), rim, 2, ("timber", "plank_dark", "plank"))
    out = picture.fill(out, inside, "ink", 1.0)
    return picture.fill(out, picture.shifted(ImageChops.multiply(inside, picture.blurred(ImageChops.invert(inside), K)), 0, -K // 2), "plank", 0.35)


def _filling(size, top, bottom):
    mask = _mask(size, lambda d: d.rounded_rectangle([0, 0, size[0] * K - 1, size[1] * K - 1], size[1] * K // 2, fill=255))
    out = picture.fill_shaded(_blank(size), mask, top, bottom, (0, size[1] * K))
    lit = _mask(size, lambda d: d.rounded_rectangle([2 * K, K, (size[0] - 2) * K, size[1] * K * 0.42], K, fill=255))
    return picture.fill(out, lit, "flower_white", 0.45)


def _bars():
    _save(_groove((52, 14)), "bar")
    _save(_filling((46, 8), "wheat", "wheat_dark"), "bar_work")
    store = _filling((38, 8), "shade_light", "cobalt")
    _save(picture.fill(store, ImageChops.subtract(store.getchannel("A"), _mask((38, 8), lambda d: d.rounded_rectangle([1.5 * K, 1.5 * K, 36.5 * K, 6.5 * K], 2.5 * K, fill=255))), "ink", 0.9), "bar_store")
    _save(_filling((46, 8), "fire", "enemy_red"), "bar_bomb")


TICK = 22


def _coin(colour, shade):
    size, c = (TICK, TICK), TICK / 2
    edge = _disc(size, (c, c), 9)
    out = picture.fill(_blank(size), edge, "ink", 0.95)
    return picture.fill_shaded(out, _disc(size, (c, c), 7.8), colour, shade, (3 * K, 19 * K))


def _ticks():
    _save(widgets.on_shadow(_hammer(_coin("parchment", "parchment_edge"), (10.8, 11.2), 12.5, 0.6), 1, 2), "tick_mining")
    out = _coin("leaf_light", "leaf")
    arrow = _polygon((TICK, TICK), [(5, 9), (10.6, 9), (10.6, 5.6), (17, 11), (10.6, 16.4), (10.6, 13), (5, 13)])
    out = picture.fill(out, picture.grown(arrow, K // 2), "ink", 0.75)
    _save(widgets.on_shadow(picture.fill(out, arrow, "cream"), 1, 2), "tick_unload")


# The tip and the price at the pointer ---------------------------------------------------------------------------------

TIP = (362, 98)


def _papers():
    for corner in ("UpLeft", "UpRight", "DownLeft", "DownRight"):
        _save(widgets.bubble("goods", TIP, corner), f"tip_{corner}")
    size = (112, 42)
    m = 4
    edge = _mask(size, lambda d: d.rounded_rectangle([m * K, m * K, (size[0] - m) * K - 1, (size[1] - m) * K - 1], 9 * K, fill=255))
    inside = _mask(size, lambda d: d.rounded_rectangle([(m + 2) * K, (m + 2) * K, (size[0] - m - 2) * K - 1, (size[1] - m - 2) * K - 1], 7 * K, fill=255))
    out = widgets.wooden("price", (size[0] * K, size[1] * K), edge, 2)
    sheet = Image.fromarray(widgets.paper("price", out.size).round().clip(0, 255).astype("uint8"), "RGB").convert("RGBA")
    sheet.putalpha(inside)
    _save(widgets.on_shadow(Image.alpha_composite(out, sheet), 1, 2, 0.45), "price")


# The bomb -------------------------------------------------------------------------------------------------------------

BOMB = (44, 52)


def _bomb():
    """A round black bomb that rocks while its fuse spits sparks: eight frames."""
    frames = []
    for i in range(8):
        t = i / 8
        rock = 0.09 * math.sin(2 * math.pi * t)
        ground = _blank(BOMB)
        ground = picture.fill(ground, picture.blurred(_mask(BOMB, lambda d: d.ellipse([9 * K, 42 * K, 36 * K, 50 * K], fill=255)), K), "ink", 0.55)
        body = _disc(BOMB, (22 + rock * 8, 33), 13.5)
        ground = picture.fill(ground, picture.grown(body, K), "ink", 0.9)
        ground = picture.fill_shaded(ground, body, "slate", "ink", (18 * K, 44 * K))
        shine = picture.blurred(_disc(BOMB, (17.5 + rock * 8, 27.5), 3.6), K)
        ground = picture.fill(ground, shine, "shade_light", 0.85)
        neck = _polygon(BOMB, [(24 + rock * 20, 19), (31 + rock * 20, 22), (29 + rock * 18, 26.4), (22.4 + rock * 18, 23)])
        ground = picture.fill(ground, picture.grown(neck, K // 2), "ink")
        ground = picture.fill(ground, neck, "stone_dark")
        end = (33.5 + rock * 30, 11)
        fuse = _mask(BOMB, lambda d: d.line([(27 * K + rock * 60, 21 * K), (28.6 * K + rock * 75, 15.5 * K), (end[0] * K, end[1] * K)], fill=255, width=2 * K, joint="curve"))
        ground = picture.fill(ground, picture.grown(fuse, 1), "ink", 0.8)
        ground = picture.fill(ground, fuse, "rope")
        frame = picture.shrink(ground, K)
        spark = effects.Canvas(BOMB)
        spark.glow(end, 12 + 2 * math.sin(4 * math.pi * t), "fire", 0.75)
        spark.star(end, 12 + 2.5 * math.cos(6 * math.pi * t), "gold", 1.0, 2 * math.pi * t * 0.5)
        for j in range(4):
            angle, far = j * 1.7 + i * 0.9, 4 + 5 * ((t * 2 + j * 0.27) % 1)
            spark.glow((end[0] + far * math.cos(angle), end[1] + far * math.sin(angle) + 2), 2.6, "glow", 1.0)
        frames.append(Image.alpha_composite(frame, spark.image()))
    picture.save(picture.row_of(frames, 4), "Marks/bomb.png")


def draw():
    _upgrade()
    _go_on()
    _unload()
    _bars()
    _ticks()
    _papers()
    _bomb()


if __name__ == "__main__":
    draw()
