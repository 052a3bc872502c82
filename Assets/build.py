#!/usr/bin/python3
"""Makes the pictures and models under Data/ from the scripts beside this file.

    python3 Assets/build.py            all of them
    python3 Assets/build.py NAME...    only these; --list tells the names

Needs Blender 3.4 (the Debian package), python3-pil, python3-numpy and the fonts named in README.md; nothing of
this is needed to build or play the game. The same sources give the same bytes.
"""
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
    "signs": ("render_signs.py", ["leave", "fullscreen", "tick"], "signs"),
    "cloud": ("render_signs.py", ["cloud"], "cloud"),
    "icon": ("render_logos.py", ["icon"], "icon"),
}

UNITS = {  # name: (Blender script that writes a mesh, its animations and its texture, the folder under Data/)
    "man": ("men/man.py", "Men"),
}


def missing_tools():
    """What has to be installed first, as a list of sentences."""
    missing = []
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
    import compose
    if name in UNITS:
        print(name)
        script, target = UNITS[name]
        return run_blender(script, os.path.join(os.path.dirname(HERE), "Data", target))
    script, wanted, finish = OBJECTS[name]
    print(name)
    with tempfile.TemporaryDirectory() as fresh:
        if not folder:
            run_blender(script, fresh, *wanted)
        getattr(compose, finish)(folder or fresh)


def main(arguments):
    known = [*OBJECTS, *UNITS]
    if "--list" in arguments:
        print("\n".join(known))
        return 0
    unknown = [a for a in arguments if a not in known]
    if unknown:
        print(f"build.py: unknown object {unknown[0]}; known are {', '.join(known)}", file=sys.stderr)
        return 2
    missing = missing_tools()
    if missing:
        print("build.py: missing " + ", ".join(missing), file=sys.stderr)
        return 1
    for name in arguments or known:
        build(name)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
