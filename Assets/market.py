"""The pictures of a market's window, drawn without Blender: its parchment, the cards of plans and trades, the plans.

    build.py market

A plan shows the building as render_buildings.py has made it, on blue paper, with a dot for each level.
"""
import os

from PIL import Image, ImageChops, ImageDraw, ImageFilter

import palette
import picture
import widgets as wood

K = wood.SCALE
M = wood.MARGIN
PANEL = (640, 478)
CARD = 92  # a plan's, with its margin
TRADE = (276, 62)  # a trade's, with its margin
ICON = 64
COLUMNS = 6
# The plans in the order of their numbers, five to a building, from number 1 on; the last one has three.
BUILDINGS = ("StoneMill", "IronMill", "WoodMill", "FoodMill", "Warehouse", "Idol", "catapult")
PRODUCTS = 34


def _save(image, name):
    picture.save(picture.shrink(image, K), f"UI/Market/{name}.png")


def _looks(image, name):
    picture.save(picture.row_of([picture.shrink(look, K) for look in wood.looks_of(image, 0.97)], 4), f"UI/Market/{name}.png")


def _box(size, inset, radius):
    return wood.rounded((size[0] * K, size[1] * K), (inset * K, inset * K, (size[0] - inset) * K, (size[1] - inset) * K), radius * K)


def _card(name, size):
    """A sheet of parchment in a thin wooden frame."""
    out = wood.wooden(name, (size[0] * K, size[1] * K), _box(size, M, 9), 4)
    inside = _box(size, M + 5, 5)
    sheet = Image.fromarray(wood.paper(name, out.size).round().clip(0, 255).astype("uint8"), "RGB").convert("RGBA")
    sheet.putalpha(inside)
    out = Image.alpha_composite(out, sheet)
    shade = picture.shifted(picture.blurred(ImageChops.invert(inside), 1.6 * K), K // 2, K)
    return picture.fill(out, ImageChops.multiply(shade, inside), "ink", 0.5)


def _arrow(size, repeated):
    """From the price to the goods; one that can be had again has a round tail."""
    mask = Image.new("L", (size[0] * K, size[1] * K), 0)
    draw = ImageDraw.Draw(mask)
    x, y = size[0] / 2, size[1] / 2
    if repeated:
        draw.arc([(x - 14) * K, (y - 14) * K, (x + 14) * K, (y + 14) * K], 150, 345, fill=255, width=5 * K)
        draw.polygon([((x + dx) * K, (y + dy) * K) for dx, dy in ((6, -5), (20, -5), (13.5, 6))], fill=255)
        draw.arc([(x - 14) * K, (y - 14) * K, (x + 14) * K, (y + 14) * K], -30 + 0, 165, fill=0, width=0)
        draw.arc([(x - 14) * K, (y - 14) * K, (x + 14) * K, (y + 14) * K], 30, 125, fill=255, width=5 * K)
        draw.polygon([((x + dx) * K, (y + dy) * K) for dx, dy in ((-6, 5), (-20, 5), (-13.5, -6))], fill=255)
    else:
        draw.polygon([((x + dx) * K, (y + dy) * K) for dx, dy in ((-15, -4), (1, -4), (1, -12), (16, 0), (1, 12), (1, 4), (-15, 4))], fill=255)
    return picture.blurred(mask, 0.6)


def _trade(name, repeated):
    out = _card(name, TRADE)
    mask = _arrow(TRADE, repeated)
    out = picture.fill(out, picture.grown(mask, K), "soil", 0.8)
    out = picture.fill_shaded(out, mask, "glow", "gold", ((TRADE[1] / 2 - 14) * K, (TRADE[1] / 2 + 14) * K))
    _looks(out, name)


def _subject(building, level):
    """The picture of a building at the highest level up to that one which has a picture."""
    if building == "catapult":
        return Image.open(os.path.join(picture.DATA, "GameUI", "Panel", "icon_catapult.png")).convert("RGBA")
    for shown in range(level, 0, -1):
        path = os.path.join(picture.DATA, "Buildings", f"{building}_{shown}.png")
        if os.path.exists(path):
            image = Image.open(path).convert("RGBA")
            return image.crop(image.getchannel("A").point(lambda v: 255 if v > 40 else 0).getbbox())
    raise SystemExit(f"market.py: there is no picture of {building}")


def _plan(building, level):
    size = (ICON, ICON)
    paper = _box(size, 3, 4)
    out = picture.fill_shaded(Image.new("RGBA", paper.size, (*palette.rgb("ink"), 0)), paper, "shade_light", "cobalt", (0, ICON * K))
    lines = Image.new("L", paper.size, 0)
    draw = ImageDraw.Draw(lines)
    for at in range(3, ICON, 8):
        draw.line([(at * K, 0), (at * K, paper.height)], fill=90, width=1)
        draw.line([(0, at * K), (paper.width, at * K)], fill=90, width=1)
    out = picture.fill(out, ImageChops.multiply(lines, paper), "flower_white", 0.5)
    subject = _subject(building, level)
    factor = min(52 / subject.width, 42 / subject.height) * K
    subject = subject.resize((round(subject.width * factor), round(subject.height * factor)), Image.LANCZOS)
    subject = wood._tinted(subject, 1.12)
    ground = Image.new("RGBA", paper.size, (0, 0, 0, 0))
    ground.alpha_composite(subject, ((paper.width - subject.width) // 2, (4 + (42 - subject.height // K) // 2) * K))
    out = Image.alpha_composite(out, picture.halo(ground, K, "flower_white", 0.9))
    left = ICON / 2 - (level - 1) * 4.5
    for i in range(level):
        dot = wood._disc(paper.size, ((left + i * 9) * K, 54.5 * K), 3.6 * K)
        out = picture.fill(out, picture.grown(dot, K), "ink", 0.8)
        out = picture.fill_shaded(out, dot, "glow", "gold", (51 * K, 58 * K))
    return picture.shrink(wood.on_shadow(out, 1, 2, 0.4), K)


def _plans():
    """One frame for each product: number 0 is none of the plans, and empty."""
    frames = [Image.new("RGBA", (ICON, ICON), (0, 0, 0, 0))]
    for number in range(1, PRODUCTS):
        frames.append(_plan(BUILDINGS[(number - 1) // 5], (number - 1) % 5 + 1))
    picture.save(picture.row_of(frames, COLUMNS), "UI/Market/plans.png")


def _shop_mask():
    """What of the shop takes the pointer: its stalls with the gap between them."""
    shop = Image.open(os.path.join(picture.DATA, "Buildings", "Shop.png")).convert("RGBA")
    solid = shop.getchannel("A").point(lambda v: 255 if v > 60 else 0)
    closed = solid.filter(ImageFilter.MaxFilter(21)).filter(ImageFilter.MinFilter(21))
    mask = Image.new("RGBA", shop.size, (*palette.rgb("ink"), 0))
    mask.putalpha(closed)
    picture.save(mask, "Buildings/Shop_mask.png")


def draw():
    _shop_mask()
    _save(wood.panel("market", PANEL, 22), "panel")
    _looks(_card("plan", (CARD, CARD)), "plan")
    _trade("trade_many", True)
    _trade("trade_one", False)
    _plans()


if __name__ == "__main__":
    draw()
