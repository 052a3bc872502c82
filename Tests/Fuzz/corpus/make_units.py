#!/usr/bin/python3
"""Writes the seeds of the mesh and animation fuzzers into the folders beside this file."""
import os
import struct

HERE = os.path.dirname(os.path.abspath(__file__))
MARK = b"qorv"
IDENTITY = struct.pack("<16f", *[float(i % 5 == 0) for i in range(16)])


def write(folder, name, data):
    os.makedirs(os.path.join(HERE, folder), exist_ok=True)
    with open(os.path.join(HERE, folder, name), "wb") as out:
        out.write(data)


def mesh(number, size):
    data = MARK + struct.pack("<3I", number, 3, 3) + MARK + bytes(3 * size) + MARK
    data += struct.pack("<3H", 0, 1, 2) + MARK
    return data + struct.pack("<I", 2) + 2 * IDENTITY + MARK if number == 4380 else data


def animation(length, parents, keys):
    data = MARK + struct.pack("<If", len(parents), length)
    for parent in parents:
        data += struct.pack("<2I", keys, parent)
        for key in range(keys):
            data += IDENTITY + struct.pack("<f", key * length / max(keys - 1, 1))
        data += MARK
    return data


for number, size in ((18, 24), (258, 20), (274, 32), (4380, 48)):
    write("mesh", f"{number}.mesh", mesh(number, size))
write("mesh", "empty.mesh", MARK + struct.pack("<3I", 274, 0, 0) + 3 * MARK)
write("mesh", "cut.mesh", mesh(4380, 48)[:20 + 3 * 48])
write("anim", "chain.anim", animation(1.0, [1, 2, 0xFFFFFFFF], 3))
write("anim", "loop.anim", animation(1.0, [1, 0], 1))
write("anim", "no_keys.anim", animation(0.5, [0xFFFFFFFF], 0))
