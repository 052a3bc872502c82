"""The sign on a plot where nothing stands yet: what would be made or kept here, as the goods' own icon on a board."""
import os

from PIL import Image, ImageDraw, ImageFilter

import palette
import picture

SCALE = 4
BOARD = (34, 29)  # units
BEHIND, POLE = 8, 16  # units from the foot of the plot up to the pole's, and from there to the board
ICONS = {  # building: the picture on its board, of `small_effects` and `panel`
    "FoodMill": "Effects/icon_food.png", "WoodMill": "Effects/icon_wood.png", "StoneMill": "Effects/icon_stone.png",
    "IronMill": "Effects/icon_iron.png", "Warehouse": "GameUI/Panel/icon_crate.png",
}


def lower_edge(foot):
    """Of the board, on the picture of a plot with that foot."""
    return foot[1] - BEHIND - POLE


def put_up(image, name, foot):
    """The picture with its sign behind the middle of the plot, whose foot is the middle of the ground."""
    layer = Image.new("RGBA", (image.width * SCALE, image.height * SCALE))
    draw = ImageDraw.Draw(layer)
    x, ground = foot[0], foot[1] - BEHIND
    top = lower_edge(foot) - BOARD[1]

    def box(left, upper, right, lower, colour, round_by=0):
        draw.rounded_rectangle([v * SCALE for v in (left, upper, right)] + [lower * SCALE - 1], round_by * SCALE, fill=palette.rgb(colour))
    draw.ellipse([v * SCALE for v in (x - 3, ground - 2, x + 13, ground + 3)], fill=(*palette.rgb("hedge_deep"), 110))
    layer = layer.filter(ImageFilter.GaussianBlur(SCALE))
    draw = ImageDraw.Draw(layer)
    box(x - 2, top + 4, x + 2, ground, "timber")
    box(x - 2, top + 4, x - 0.6, ground, "plank_dark")
    left, right = x - BOARD[0] / 2, x + BOARD[0] / 2
    box(left, top, right, top + BOARD[1], "timber", 3)
    box(left + 1.2, top + 1.2, right - 1.6, top + BOARD[1] - 2, "plank_light", 2.4)
    box(left + 2.6, top + 2.6, right - 2.6, top + BOARD[1] - 3, "parchment", 2)
    signed = image.copy()
    signed.alpha_composite(picture.shrink(layer, SCALE))
    icon = Image.open(os.path.join(picture.DATA, ICONS[name])).convert("RGBA")
    signed.alpha_composite(icon, (round(x - icon.width / 2), round(top + BOARD[1] / 2 - icon.height / 2)))
    return signed
