"""The colours of Brindle, each with one name.

Kept as 8-bit sRGB, the way a painter picks them. Pillow takes rgb(), Blender's shaders take linear().
Nothing else under Assets/ holds a colour of its own, so that a change here changes every picture.
"""

COLOURS = {
    # ground
    "meadow": "7fa03a", "meadow_light": "9fb546", "meadow_dark": "668a35", "meadow_dry": "b9ae4c",
    "bank": "b59a63", "soil": "8a6238", "furrow": "74502e", "road": "d0ab72", "road_edge": "b58f58",
    "hill": "7c9443", "far_hill": "7d9358", "rock": "978c7c", "rock_dark": "766c60",
    "water": "4b9690", "foam": "cfe6df",
    # plants
    "leaf": "5b8a2e", "leaf_light": "86a838", "leaf_dark": "3f6c2c", "leaf_autumn": "d08a2c",
    "fir": "35623a", "fir_dark": "2b5234", "trunk": "6b4526", "wheat": "e2b34a", "wheat_dark": "c9953a",
    "flower_red": "cf4a35", "flower_white": "f5ead0",
    # what people build
    "plaster": "eddab4", "timber": "5f3d22", "plank": "a8743f", "plank_light": "c08a4e", "plank_dark": "7d522b",
    "roof": "b5482e", "roof_dark": "94382a", "slate": "6d6f78", "thatch": "c79d52", "stone": "ab9f8c",
    "stone_dark": "867b6c", "canvas": "f2e2bf", "iron": "4d4843", "gold": "e9b440", "fire": "ff9a2e", "window": "f7c964",
    "rope": "c8a566", "silver": "a9bfdc", "cobalt": "3f6390", "paint_red": "a83a2b", "cream": "fff1cf", "ink": "3a2416",
    # living things
    "log": "4f4038", "log_light": "65524a", "enemy_red": "b3222a", "enemy_shirt": "4a3f4c",
    "skin": "dba376", "shirt_red": "c14a34", "shirt_blue": "4a71a0", "shirt_green": "6d8b3d", "trousers": "57402c",
    "hat": "d3a853", "ox": "9b6237", "ox_light": "d9b88b", "horn": "efe2c4", "quill": "f6efe0", "quill_shade": "c9a877",
    # air
    "zenith": "6f9fc0", "sky": "a9c6c9", "horizon": "fbdc9c", "glow": "ffe9b8", "haze": "e9c98e",
    "cloud": "fff4dd", "cloud_shade": "d9b79a", "sun": "ffdca6", "shade_light": "9cb2d6",
    # plates and paper
    "hedge": "24321c", "hedge_deep": "151d10", "parchment": "f3e3bd", "parchment_edge": "d7b67c", "walnut": "6b4222", "walnut_light": "7a4d29",
}


def rgb(name):
    """The colour as three integers 0 to 255 of sRGB."""
    text = COLOURS[name]
    return tuple(int(text[i:i + 2], 16) for i in (0, 2, 4))


def linear(name):
    """The colour as three floats 0 to 1 of linear light, for shaders."""
    def channel(value):
        c = value / 255
        return c / 12.92 if c <= 0.04045 else ((c + 0.055) / 1.055) ** 2.4
    return tuple(channel(v) for v in rgb(name))
