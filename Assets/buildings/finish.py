"""From the renders of what stands on the maps to its pictures: the thing itself, and the ground under it with its shadow."""
import os

import numpy
from PIL import Image, ImageChops, ImageFilter

import life
import looks
import palette
import picture
import signs


PLOTS = ("FoodMill", "Warehouse", "WoodMill", "StoneMill", "IronMill")  # roped off at level 0


def pictures(renders, name):
    """Writes Data/Buildings/FILE.png and, with trodden ground, FILE_base.png for every state; FILE_turning.png of what moves.

    What moves has a picture of it at rest as FILE.png, for the hit mask.
    """
    look = looks.LOOKS[name]
    for state in look.states:
        file = looks.file_name(name, state)
        if looks.is_moving(name, state):
            frames = [shrunk(f"{renders}/{file}_{i:02}.png", look.size) for i in range(look.frames)]
            picture.save(frames[0], f"Buildings/{file}.png")
            picture.save(picture.row_of(frames, 4), f"Buildings/{file}{looks.TURNING}.png")
        else:
            still(shrunk(f"{renders}/{file}.png", look.size), name, file)
        if look.trodden:
            picture.save(base(f"{renders}/{file}_shadow.png", look, file), f"Buildings/{file}_base.png")
    if name in PLOTS:
        masks(name)


def masks(name):
    """Writes FILE_mask.png for every level of a plot, from its pictures: what is hit is the thing and the whole plot that it stands on.

    So a place that was clicked to build is clicked to work, though a gap may be in the picture there.
    """
    def opened(state):
        return Image.open(os.path.join(picture.DATA, "Buildings", looks.file_name(name, state) + ".png")).convert("RGBA")
    levels = [state for state in looks.LOOKS[name].states if state[-1].isdigit()]
    plot = filled(opened(levels[0])).getchannel("A")
    for state in levels:
        if state != levels[0]:
            plot.paste(0, (0, 0, plot.width, signs.lower_edge(looks.LOOKS[name].foot)))  # its sign is gone
        mask = Image.new("RGBA", plot.size, (*palette.rgb("ink"), 0))
        mask.putalpha(ImageChops.lighter(plot, opened(state).getchannel("A").point(lambda a: 255 * (a > 40))))
        picture.save(mask, f"Buildings/{looks.file_name(name, state)}_mask.png")


def still(image, name, file):
    """What stands: with a sign on it where it is a plot, and again in motion where a flag or a fire is on it."""
    if name in PLOTS and file.endswith("_0"):
        image = signs.put_up(image, name, looks.LOOKS[name].foot)
    picture.save(image, f"Buildings/{file}.png")
    frames = life.frames(file, image)
    if frames:
        picture.save(picture.row_of(frames, 4), f"Buildings/{file}{looks.TURNING}.png")


def filled(image):
    """What is hit of a plot: the ground within its ropes, too, where the picture is clear."""
    alpha = numpy.asarray(image.getchannel("A").filter(ImageFilter.MaxFilter(3))) > 40
    def spans(a):
        """All from the first to the last in each row."""
        return numpy.logical_or.accumulate(a, axis=1) & numpy.logical_or.accumulate(a[:, ::-1], axis=1)[:, ::-1]
    inside = spans(alpha) & spans(alpha.T).T
    out = Image.new("RGBA", image.size, (*palette.rgb("ink"), 0))
    out.putalpha(Image.fromarray((inside * 255).astype(numpy.uint8), "L"))
    return out


def shrunk(path, size):
    render = picture.open_render(path)
    return picture.shrink(render, render.width // size[0])


def base(shadow_file, look, seed):
    """Trodden ground under the thing, its shadow over it."""
    foot, trodden = look.foot, look.trodden
    shadow = picture.open_render(shadow_file).getchannel("A")
    h, w = shadow.height, shadow.width
    r = numpy.random.default_rng(sum(seed.encode()))
    grain = [numpy.asarray(Image.fromarray(r.uniform(0, 1, (h // c + 2, w // c + 2)).astype(numpy.float32), "F").resize((w, h), Image.BICUBIC)) for c in (12, 4)]
    y, x = numpy.mgrid[0:h, 0:w].astype(numpy.float64)
    d = numpy.hypot((x - foot[0]) / trodden[0], (y - foot[1]) / trodden[1]) + 0.34 * (grain[0] - 0.5) + 0.10 * (grain[1] - 0.5)
    t = numpy.clip((1.0 - d) / 0.5, 0, 1)
    alpha = t * t * (3 - 2 * t) * 0.82
    soil = numpy.array(palette.rgb(look.soil), dtype=numpy.float64) * (0.80 + 0.22 * grain[1] + 0.08 * grain[0])[..., None]
    dark = numpy.array(palette.rgb("hedge_deep"), dtype=numpy.float64)
    shade = numpy.asarray(picture.blurred(shadow, 0.7), dtype=numpy.float64) / 255
    shade = numpy.clip(shade * 0.95, 0, 0.62) * fade_to_edges(w, h)
    out = shade + alpha * (1 - shade)
    rgb = (dark * shade[..., None] + soil * (alpha * (1 - shade))[..., None]) / numpy.maximum(out, 1e-6)[..., None]
    return Image.fromarray(numpy.rint(numpy.concatenate([rgb, 255 * out[..., None]], axis=2)).clip(0, 255).astype(numpy.uint8), "RGBA")


def fade_to_edges(w, h):
    """1 within, down to 0 along the border and farther to the right, so that no long shadow ends in a line or lies on water."""
    y, x = numpy.mgrid[0:h, 0:w].astype(numpy.float64)
    d = numpy.minimum(numpy.minimum(x, w - 1 - x), numpy.minimum(y, h - 1 - y))
    return numpy.clip(d / 10, 0, 1) * numpy.clip((w - 1 - x) / 50, 0, 1)
