#!/usr/bin/python3
"""Makes the pictures, models and sounds under Data/ from the scripts beside this file.

    python3 Assets/build.py            all of them
    python3 Assets/build.py NAME...    only these; --list tells the names

Needs Blender 3.4 (the Debian package), python3-pil, python3-numpy and the fonts named in README.md; for sounds alone
python3-numpy, vorbis-tools, fluidsynth and fluid-soundfont-gm. Nothing of this is needed to build or play the game.
The same sources give the same bytes.
"""
import importlib
import os
import shutil
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, HERE)
sys.dont_write_bytecode = True

OBJECTS = {  # name: (Blender script, what it shall render, the function of compose.py that finishes it)
    "logo": ("render_logos.py", ["lane"], "studio_logo"),
    "logo2": ("render_logos.py", ["craft"], "craft_logo"),
    "logo3": ("render_logos.py", ["title"], "title_logo"),
    "start": ("render_start.py", ["mill", "sails", "back"], "start_screen"),
    "widgets": ("render_small.py", ["tick"], "widgets"),
    "interface": ("render_interface.py", ["load", "hive", "bees", "help"], "interface"),
    "cloud": ("render_small.py", ["cloud"], "cloud"),
    "trees": ("render_land.py", ["trees"], "trees"),
    "land": ("render_land.py", ["0", "1", "2", "3", "4"], "land"),
    "buildings": ("render_buildings.py", [], "buildings"),
    "roads": ("render_roads.py", [], "roads"),
    "birds": ("render_small.py", ["birds"], "birds"),
    "cursors": ("render_small.py", ["cursors"], "cursors"),
    "icon": ("render_logos.py", ["icon"], "icon"),
}

UNITS = {  # name: (Blender script that writes a mesh, its animations and its texture, the folder under Data/)
    "man": ("men/man.py", "Men"),
    "catapult": ("men/catapult.py", "Catapults"),
}

SOUNDS = {  # name: what sounds/make_sounds.py makes under it
    "effects": ["hover", "click", "check", "slide", "type", "dialog", "denied", "bee"],
    "work": ["building_upgrade", "build_road", "mining_food", "mining_wood", "mining_stone", "mining_iron", "new_resource", "warehouse_full",
             "market_action", "steal_item", "next_level", "destroy", "friend_falls", "caravan_coming", "caravan_load", "silver_fanfar",
             "gold_fanfar", "gold_missed", "silver_missed", "enemy_run", "destroy_road", "enemy_pray", "take_idol", "shot",
             "charged"],
    "music": ["menu", "game", "islands", "meadow", "harbour", "dusk"],
}

DRAWN = {  # name: the module that draws its pictures without Blender
    "small_effects": "effects",
    "marks": "marks",
    "panel": "panel",
    "strategic": "strategic",
    "market": "market",
}

LEVELS = "levels"  # the object that levels/make_levels.py makes
FONTS = "fonts"  # the object that fonts/make_fonts.py makes


def missing_sound_tools():
    packages = {"oggenc": "vorbis-tools", "fluidsynth": "fluidsynth fluid-soundfont-gm"}
    return [f"{tool} (apt-get install {package})" for tool, package in packages.items() if not shutil.which(tool)]


def missing_tools(names):
    """What has to be installed first to make these, as a list of sentences."""
    missing = missing_sound_tools() if any(name in SOUNDS for name in names) else []
    if all(name in SOUNDS for name in names):
        return missing
    if not shutil.which("blender"):
        missing.append("blender (apt-get install blender)")
    try:
        import picture
    except ImportError as error:
        return missing + [f"{error.name} (apt-get install python3-pil python3-numpy)"]
    for path in picture.FONTS.values():
        if not os.path.exists(path):
            missing.append(f"{path} (apt-get install fonts-vollkorn fonts-goudybookletter)")
    return missing


def run_blender(script, folder, *wanted):
    """Runs one Blender script; its output is shown only when it fails."""
    command = ["blender", "-b", "--python-exit-code", "1", "-P", os.path.join(HERE, script), "--", folder, *wanted]
    done = subprocess.run(command, capture_output=True, text=True)
    if done.returncode != 0:
        sys.exit(f"{script} failed:\n{done.stdout[-2000:]}{done.stderr[-2000:]}")


def build(name, folder=None):
    """Makes one object; a folder that is given holds its renders already."""
    data = os.path.join(os.path.dirname(HERE), "Data")
    if name in SOUNDS:
        print(name)
        subprocess.run([sys.executable, os.path.join(HERE, "sounds", "make_sounds.py"), data, *SOUNDS[name]],
                       check=True)
        return None
    if name == FONTS:
        print(name)
        return subprocess.run([sys.executable, os.path.join(HERE, "fonts", "make_fonts.py")], check=True)
    if name in DRAWN:
        print(name)
        return importlib.import_module(DRAWN[name]).draw()
    if name == LEVELS:
        print(name)
        return subprocess.run([sys.executable, os.path.join(HERE, "levels", "make_levels.py")], check=True)
    if name in UNITS:
        print(name)
        script, target = UNITS[name]
        return run_blender(script, os.path.join(data, target))
    import compose
    script, wanted, finish = OBJECTS[name]
    print(name)
    with tempfile.TemporaryDirectory() as fresh:
        if not folder:
            run_blender(script, fresh, *wanted)
        getattr(compose, finish)(folder or fresh)


def main(arguments):
    known = [*OBJECTS, *UNITS, *DRAWN, *SOUNDS, FONTS, LEVELS]
    if "--list" in arguments:
        print("\n".join(known))
        return 0
    unknown = [a for a in arguments if a not in known]
    if unknown:
        print(f"build.py: unknown object {unknown[0]}; known are {', '.join(known)}", file=sys.stderr)
        return 2
    missing = missing_tools(arguments or known)
    if missing:
        print("build.py: missing " + ", ".join(missing), file=sys.stderr)
        return 1
    for name in arguments or known:
        build(name)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
