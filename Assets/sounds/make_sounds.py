#!/usr/bin/python3
"""Makes one sound of Data/: make_sounds.py FOLDER NAME..., FOLDER being Data's; a name is an effect's or a piece's."""
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
sys.dont_write_bytecode = True

import effects  # noqa: E402
import encode  # noqa: E402
import music  # noqa: E402
import work  # noqa: E402


def main(folder, names):
    for serial, name in enumerate(sorted(effects.EFFECTS), 1):
        if name in names:
            encode.write_ogg(os.path.join(folder, "Sounds", name + ".ogg"), effects.make(name), 4, serial)
    for serial, name in enumerate(work.WORK, 201):
        if name in names:
            encode.write_ogg(os.path.join(folder, "Sounds", name + ".ogg"), work.make(name), 4, serial)
    for serial, (name, (file, _)) in enumerate(music.PIECES.items(), 101):
        if name in names:
            encode.write_ogg(os.path.join(folder, "Music", file + ".ogg"), music.make(name), 4, serial)


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2:])
