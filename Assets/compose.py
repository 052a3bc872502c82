"""From renders to finished pictures: one function for each object that build.py knows.

Each takes the folder with the renders of its Blender script and writes its files under Data/.
"""
import json
import os
import sys

import numpy
from PIL import Image, ImageChops, ImageDraw

import palette
import picture
import roads as road_tiles
import widgets as wood

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path += [os.path.join(HERE, "levels"), os.path.join(HERE, "buildings")]
import finish
import land as lands
import looks
import shape

SCREEN = (800, 600)
LOOKS = ("normal", "hover", "pressed", "disabled")  # the order of the frames in a button's atlas


def studio_logo(renders):
    """Hedgerow Lane: the lane at sunset in a golden ring, the name beneath."""
    ground = Image.new("RGBA", SCREEN, (*palette.rgb("hedge"), 255))
    ground = picture.fill(ground, _disc(SCREEN, (400, 232), 330, 150), "leaf", 0.35)
    scene = picture.sky((360, 360), 118)
    scene = picture.fill(scene, _disc((360, 360), (150, 92), 30, 3), "glow")
    scene.alpha_composite(picture.shrink(picture.open_render(f"{renders}/lane.png"), 2))
    scene = picture.graded(scene)
    centre, radius = (400, 232), 168
    ground = picture.fill(ground, _disc(SCREEN, (404, 240), radius + 12, 12), "hedge_deep", 0.8)
    for extra, colour in ((13, "gold"), (10, "hedge_deep"), (5, "cream")):
        ground = picture.fill(ground, _disc(SCREEN, centre, radius + extra, 0.7), colour)
    layer = Image.new("RGBA", SCREEN, (0, 0, 0, 0))
    layer.paste(scene, (centre[0] - 180, centre[1] - 180))
    layer.putalpha(ImageChops.multiply(layer.getchannel("A"), _disc(SCREEN, centre, radius, 0.7)))
    ground = Image.alpha_composite(ground, layer)
    name = picture.text_mask(SCREEN, "Hedgerow Lane", picture.font("book", 76), (400, 498), 2.0)
    ground = picture.fill(ground, picture.blurred(picture.shifted(name, 2, 4), 3), "hedge_deep", 0.9)
    ground = picture.fill_shaded(ground, name, "cream", "gold", (440, 515))
    ground = _flourish(ground, 400, 540, 150, "gold")
    picture.save(picture.vignette(ground, 0.55, "hedge_deep"), "Logo.jpg")


def craft_logo(renders):
    """The made-with plate: wheel and quill on a wall of planks."""
    ground = picture.shrink(picture.open_render(f"{renders}/craft.png"), 2)
    ground = picture.vignette(picture.graded(ground), 0.85)
    big = picture.text_mask(SCREEN, "Built by hand", picture.font("display", 68), (400, 482), 1.5)
    small = picture.text_mask(SCREEN, "roads, wheels and words", picture.font("italic", 33), (400, 556), 1.0)
    ground = picture.fill(ground, picture.blurred(picture.grown(ImageChops.lighter(big, small), 3), 7), "ink", 0.8)
    ground = picture.carved(ground, big, 2, "cream")
    ground = picture.fill(ground, small, "gold")
    ground = _flourish(ground, 400, 517, 150, "gold")
    picture.save(ground, "Logo/Logo2.jpg", picture.LOGOS)


def title_logo(renders):
    """BRINDLE over its valley."""
    ground = picture.sky(SCREEN, 330)
    ground.alpha_composite(picture.shrink(picture.open_render(f"{renders}/title.png"), 2))
    ground = picture.vignette(picture.graded(ground), 0.45)
    face = picture.font("display", 146)
    name = picture.text_mask(SCREEN, "BRINDLE", face, (400, 158), 7)
    rim = picture.grown(name, 5)
    ground = picture.fill(ground, picture.blurred(picture.shifted(rim, 4, 9), 7), "ink", 0.55)
    ground = picture.fill(ground, picture.shifted(rim, 0, 4), "ink")
    ground = picture.fill(ground, rim, "timber")
    ground = picture.fill_shaded(ground, name, "cream", "gold", (58, 165))
    lit = ImageChops.subtract(name, picture.shifted(name, 2, 2))
    ground = picture.fill(ground, picture.blurred(lit, 0.6), "flower_white", 0.9)
    dark = ImageChops.subtract(name, picture.shifted(name, -2, -2))
    ground = picture.fill(ground, picture.blurred(dark, 0.7), "soil", 0.65)
    words = "roads, caravans, mills - and an enemy that bites back"
    line = picture.text_mask(SCREEN, words, picture.font("italic", 31), (400, 212), 0.3)
    ground = picture.fill(ground, picture.blurred(picture.grown(line, 3), 2.2), "ink", 0.95)
    ground = picture.fill(ground, line, "cream")
    picture.save(ground, "Logo/Logo3.jpg", picture.LOGOS)


def start_screen(renders):
    """The valley, the mill's tower and its turning wheel."""
    layout = json.load(open(f"{renders}/layout.json", encoding="ascii"))
    back = picture.sky(SCREEN, 140)
    back.alpha_composite(picture.shrink(picture.open_render(f"{renders}/back.png"), layout["scale"]))
    picture.save(picture.vignette(picture.graded(back), 0.40), "UI/FixedBack/back.jpg")

    mill = picture.shrink(picture.open_render(f"{renders}/mill.png"), layout["scale"])
    left, top, right, bottom = mill.getchannel("A").point(lambda v: 255 if v > 2 else 0).getbbox()
    right, bottom = right + (right - left) % 2, bottom + (bottom - top) % 2
    mill = _graded_sprite(mill.crop((left, top, right, bottom)))
    picture.save(mill, "UI/FixedBack/mill.png")

    frames = [picture.open_render(f"{renders}/sails_{i:02}.png") for i in range(layout["frames"])]
    frames = [_graded_sprite(picture.shrink(f, layout["scale"])) for f in frames]
    picture.save(picture.row_of(frames, 8), "UI/FixedBack/sails.png")
    x, y = layout["mill"][0] + left + mill.width / 2, layout["mill"][1] + top + mill.height / 2
    print(f"  mill: centre {x:g},{y:g} size {mill.width},{mill.height}; sails: centre {layout['hub'][0]},{layout['hub'][1]}")


def _graded_sprite(image):
    """As the valley is graded, so that a sprite on it does not stand out; alpha stays."""
    out = picture.graded(image)
    out.putalpha(image.getchannel("A"))
    return out


def cloud(renders):
    """A cloud with soft edges that thins out at its base."""
    image = picture.open_render(f"{renders}/cloud.png")
    alpha = numpy.asarray(picture.blurred(image.getchannel("A"), 5), dtype=numpy.float64)
    y = numpy.linspace(0, 1, image.height)[:, None]
    alpha = alpha * numpy.clip(1.25 - 0.75 * y, 0, 1) * 0.92
    filled = Image.alpha_composite(Image.new("RGBA", image.size, (*palette.rgb("cloud"), 255)), image)
    filled = picture.blurred(filled, 2.2)
    filled.putalpha(Image.fromarray(numpy.rint(alpha).astype(numpy.uint8), "L"))
    picture.save(picture.shrink(filled, 2), "UI/FixedBack/cloud.png")


def trees(renders):
    """The trees that men walk behind."""
    for kind in lands.TREES:
        picture.save(picture.shrink(picture.open_render(f"{renders}/tree_{kind}.png"), 4), f"Land/tree_{kind}.png")


def land(renders):
    """The tiles of all levels and the water round them."""
    for number in range(shape.LEVELS):
        lands.cut(number, *lands.layers(number, picture.open_render(f"{renders}/land_{number}.png")))
    picture.save(lands.deep_water(), "Land/deep_water.png")
    picture.save(lands.nearshore_water(), "Land/nearshore.png")
    for i, size in enumerate(((340, 200), (260, 150), (200, 120))):
        picture.save(lands.cloud(size, 40 + i), f"Clouds/cloud{i}.png")


def buildings(renders):
    for name in looks.LOOKS:
        finish.pictures(renders, name)


def roads(renders):
    road_tiles.roads(renders)
    road_tiles.marks(renders)
    road_tiles.signs()


def birds(renders):
    """Two kinds of birds from above, their wings in eight places, and the shadow of both."""
    for name in ("gull", "swallow"):
        frames = [picture.shrink(picture.open_render(f"{renders}/{name}_{i}.png"), 3) for i in range(8)]
        picture.save(picture.row_of(frames, 4), f"Clouds/{name}.png")
    shape = picture.blurred(picture.shrink(picture.open_render(f"{renders}/gull_0.png"), 3).getchannel("A"), 1.2)
    shadow = Image.new("RGBA", shape.size, (*palette.rgb("hedge_deep"), 0))
    shadow.putalpha(shape)
    picture.save(shadow, "Clouds/bird_shadow.png")


def cursors(renders):
    """The idol and the catapult as the pointer carries them, on a soft light rim."""
    for name in ("idol", "catapult"):
        image = picture.halo(picture.open_render(f"{renders}/{name}_cursor.png"), 5, "glow", 0.9)
        picture.save(picture.shrink(image, 3), f"Points/{name}_cursor.png")


def icon(renders):
    """The mill on a disc of sky."""
    ground = Image.new("RGBA", (512, 512), (0, 0, 0, 0))
    air = picture.sky((512, 512), 460)
    air.putalpha(_disc((512, 512), (256, 262), 240, 1.5))
    ground = Image.alpha_composite(picture.fill(ground, _disc((512, 512), (256, 262), 250, 1.5), "timber"), air)
    mill = picture.open_render(f"{renders}/icon.png")
    inside = _disc((512, 512), (256, 262), 240, 1.5)
    inside.paste(255, (0, 0, 512, 262))  # only the sails may stand out of the disc
    mill.putalpha(ImageChops.multiply(mill.getchannel("A"), inside))
    ground.alpha_composite(mill)
    picture.save(picture.shrink(ground, 8), "sys/icon.png")


def _disc(size, centre, radius, soft):
    """A mask with a disc whose edge fades over about `soft` pixels."""
    y, x = numpy.mgrid[0:size[1], 0:size[0]].astype(numpy.float64)
    d = numpy.hypot(x + 0.5 - centre[0], y + 0.5 - centre[1])
    return Image.fromarray(numpy.rint(numpy.clip((radius - d) / (2 * soft) + 0.5, 0, 1) * 255).astype(numpy.uint8), "L")


def _flourish(ground, x, y, half, colour):
    """A thin rule that tapers to both sides of a lozenge."""
    k = 4
    mask = Image.new("L", (ground.width * k, ground.height * k), 0)
    draw = ImageDraw.Draw(mask)
    for side in (-1, 1):
        draw.polygon([((x + side * 14) * k, (y - 1.1) * k), ((x + side * half) * k, y * k), ((x + side * 14) * k, (y + 1.1) * k)], fill=255)
    draw.polygon([((x - 7) * k, y * k), (x * k, (y - 4.5) * k), ((x + 7) * k, y * k), (x * k, (y + 4.5) * k)], fill=255)
    return picture.fill(ground, mask.resize(ground.size, Image.LANCZOS), colour)


def widgets(renders):
    """Boards, panels, sliders, fields and bubbles: what all screens are built of."""
    def put(image, name):
        picture.save(picture.shrink(image, wood.SCALE), f"UI/Widgets/{name}.png")

    def button(image, name):
        picture.save(picture.row_of([picture.shrink(look, wood.SCALE) for look in wood.looks_of(image)], 4), f"UI/Widgets/{name}.png")

    def single(image, name):
        for look, shown in zip(LOOKS, wood.looks_of(image)):
            put(shown, name + ("" if look == "normal" else "_" + look))

    boards = (("board_wide", (252, 60), 1), ("board_mid", (212, 56), 1), ("board", (160, 56), 1), ("board_small", (146, 50), 1))
    for name, size, rows in boards:
        button(wood.board(name, size, rows), name)
    for mark in ("up", "down", "left", "right", "cross"):
        button(wood.knob("knob", 44, mark), f"arrow_{mark}" if mark != "cross" else "delete")
    put(wood.panel("panel", (680, 520)), "panel")
    put(wood.panel("dialog", (460, 260), 20), "dialog")
    put(wood.panel("wide", (500, 390), 22), "dialog_tall")
    put(wood.panel("menu", (320, 500), 22), "menu")
    put(wood.panel("players", (560, 430), 22), "players")
    put(wood.sunken("field", (440, 48)), "field")
    put(wood.sunken("list", (392, 186)), "list")
    put(wood.on_shadow(wood.board("plate", (250, 66), 2), 2, 3), "plate")
    picture.save(picture.row_of([picture.shrink(look, wood.SCALE) for look in wood.list_row((370, 34))], 4), "UI/Widgets/list_row.png")
    put(wood.sunken("groove", (280, 18), "wood"), "groove")
    put(wood.bar_fill((272, 10)), "groove_fill")
    single(wood.wheel(44), "wheel")
    single(wood.box_to_tick(48), "tickbox")
    put(wood.sunken("loading", (440, 34), "wood", 4), "bar")
    put(wood.bar_fill((424, 18)), "bar_fill")
    put(wood.rope(360), "rope")
    for corner in ("UpLeft", "UpRight", "DownLeft", "DownRight"):
        put(wood.bubble("tip", (290, 84), corner), f"tip_{corner}")
    picture.save(picture.halo(picture.shrink(picture.open_render(f"{renders}/tick.png"), wood.SCALE), 2, "ink", 0.7), "UI/Widgets/tick.png")
    picture.save(wood.blob_shadow((80, 28)), "UI/FixedBack/shadow.png")
    caret = Image.new("RGBA", (2, 26), (*palette.rgb("ink"), 255))
    picture.save(caret, "UI/Widgets/caret.png")
    picture.save(wood.lettering("Brindle", (460, 150), 108, 2), "UI/Widgets/title.png")


def interface(renders):
    """The loading screen, the bees' meadow and the pictures of the help."""
    back = picture.sky(SCREEN, 175)
    back.alpha_composite(picture.shrink(picture.open_render(f"{renders}/load.png"), 2))
    picture.save(picture.vignette(picture.graded(back), 0.45), "UI/Load/back.jpg")
    picture.save(_framed(_vista(renders, "hive", 62), wood.SCALE), "UI/Exit/meadow.png")
    for mood in range(3):
        bee = picture.shrink(picture.open_render(f"{renders}/bee_{mood}.png"), 2)
        picture.save(picture.halo(bee, 3, "ink", 0.5), f"UI/Exit/bee{mood}.png")
    for page in range(3):
        picture.save(_framed(_vista(renders, f"help_{page}", 70), wood.SCALE), f"UI/Help/page{page + 1}.png")


def _vista(renders, name, horizon):
    """A small render before its sky."""
    land = picture.shrink(picture.open_render(f"{renders}/{name}.png"), 2)
    ground = picture.sky(land.size, horizon)
    ground.alpha_composite(land)
    return picture.vignette(picture.graded(ground), 0.35)


def _framed(image, scale):
    """A picture in a thin wooden frame with round corners, 10 pixels wider on each side."""
    size = (image.width + 20, image.height + 20)
    full = (size[0] * scale, size[1] * scale)
    inside = wood.rounded(full, (10 * scale, 10 * scale, full[0] - 10 * scale, full[1] - 10 * scale), 5 * scale)
    outside = wood.rounded(full, (4 * scale, 4 * scale, full[0] - 4 * scale, full[1] - 4 * scale), 9 * scale)
    frame = Image.new("RGBA", full, (0, 0, 0, 0))
    frame.paste(image.resize((image.width * scale, image.height * scale), Image.LANCZOS), (10 * scale, 10 * scale))
    frame.putalpha(inside)
    ring = wood.wooden("frame", full, ImageChops.subtract(outside, inside))
    shade = picture.shifted(picture.blurred(ring.getchannel("A"), 2 * scale), scale, 2 * scale)
    frame = picture.fill(frame, ImageChops.multiply(shade, inside), "ink", 0.5)
    return picture.shrink(wood.on_shadow(Image.alpha_composite(frame, ring), 1, 2), scale)
