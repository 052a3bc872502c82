#!/usr/bin/python3
"""Makes the pictures of this folder again: docs/pictures/make.py [BUILD], BUILD being build/release where it isn't told.

Every level that Tests/Play/winN.script wins, at three moments of that game, and the screens around them from the tour.
Needs python3-pil and the built programs `tour` and `simulate`.
"""
import glob
import json
import os
import re
import subprocess
import sys
import tempfile

from PIL import Image

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(os.path.dirname(HERE))
SIZE = (640, 480)
MOMENTS = {"begin": 0.10, "middle": 0.50, "end": 0.90}  # parts of the time up to the way out; a shot takes a frame, which may end a game a little earlier
SCREENS = {  # picture of the tour: its name here
    "18-main-menu-again": "start-screen", "13-players": "players", "24-map-of-levels": "map-of-levels", "23-level2-menu": "menu",
}


def save(picture, name):
    image = Image.open(picture).convert("RGB").resize(SIZE, Image.LANCZOS)
    image.save(os.path.join(HERE, name + ".jpg"), quality=84, optimize=True)
    print(f"{name}.jpg")


def play(build, level, script, *more):
    """Plays a level by a script; gives the report. more: further words for simulate."""
    with tempfile.NamedTemporaryFile("r", suffix=".json") as report:
        subprocess.run([os.path.join(build, "Tools", "simulate"), "--data", os.path.join(ROOT, "Data"), "--level", level, "--until", "3000",
                        "--script", script, "--report", report.name, *more], check=True)
        return json.load(report)


def take_level(build, level, script, folder):
    """Plays the level once for how long it takes, and once more with its pictures taken on the way."""
    left_at = play(build, level, script)["time"]
    shots = {name: part * left_at for name, part in MOMENTS.items()}
    with open(script) as file:
        lines = [line for line in file if line.strip() and not line.startswith("#")]
    lines += [f"{at:.2f} shot {folder}/{name}.png\n" for name, at in shots.items()]
    with_shots = os.path.join(folder, "with_shots.script")
    with open(with_shots, "w") as file:
        file.writelines(sorted(lines, key=lambda line: float(line.split()[0])))
    play(build, level, with_shots, "--draw")
    for name in shots:
        taken = os.path.join(folder, name + ".png")
        save(taken, f"level{int(level) + 1}-{name}")
        os.remove(taken)  # one that is missed is not taken from another level


def take_market(build, folder):
    """The window of the third level's market."""
    script = os.path.join(folder, "market.script")
    with open(script, "w") as file:
        file.write(f"2.0 click building 17 0\n3.5 shot {folder}/market.png\n")
    play(build, "2", script, "--draw", "--until", "4")
    save(os.path.join(folder, "market.png"), "market")


def main(build):
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([os.path.join(build, "tour"), folder], check=True, stdout=subprocess.DEVNULL)
        for picture, name in SCREENS.items():
            save(os.path.join(folder, picture + ".png"), name)
        take_market(build, folder)
        for script in sorted(glob.glob(os.path.join(ROOT, "Tests", "Play", "win*.script"))):
            take_level(build, re.search(r"win(\d+)", script)[1], script, folder)


if __name__ == "__main__":
    main(os.path.abspath(sys.argv[1]) if len(sys.argv) > 1 else os.path.join(ROOT, "build", "release"))
