#!/usr/bin/env python3
"""Makes the seeds of the picture formats' fuzz targets: python3 make_images.py, beside the corpus folders."""

import io
import pathlib
import struct
import zlib

from PIL import Image

HERE = pathlib.Path(__file__).parent


def gradient(mode):
    image = Image.new("RGBA", (9, 6))
    image.putdata([(x * 28, y * 42, 128, 255 - x * y * 5) for y in range(6) for x in range(9)])
    return image.convert(mode)


def save(folder, name, mode, **options):
    (HERE / folder).mkdir(exist_ok=True)
    gradient(mode).save(HERE / folder / name, **options)


def chunk(name, data):
    return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))


def jpeg(mode):
    stream = io.BytesIO()
    gradient(mode).save(stream, "JPEG")
    return stream.getvalue()


def jng(alpha):
    kind = {"": (10, 0, 0), "png": (14, 8, 0), "jpeg": (14, 8, 8)}[alpha]
    head = struct.pack(">II8B", 9, 6, kind[0], 8, 8, 0, kind[1], kind[2], 0, 0)
    body = chunk(b"JHDR", head) + chunk(b"JDAT", jpeg("RGB"))
    if alpha == "jpeg":
        body += chunk(b"JDAA", jpeg("L"))
    if alpha == "png":
        body += chunk(b"IDAT", zlib.compress(b"".join(b"\0" + bytes(range(9)) for _ in range(6))))
    return b"\x8bJNG\r\n\x1a\n" + body + chunk(b"IEND", b"")


def dds(flags, code, bits, masks, data):
    head = b"DDS " + struct.pack("<7I44x", 124, 0x1007, 6, 9, 0, 0, 0)
    head += struct.pack("<II4s5I", 32, flags, code, bits, *masks) + struct.pack("<I16x", 0x1000)
    return head + data


def write(folder, name, data):
    (HERE / folder).mkdir(exist_ok=True)
    (HERE / folder / name).write_bytes(data)


for mode in ("1", "L", "LA", "P", "RGB", "RGBA", "I"):
    save("png", mode.lower() + ".png", mode)
save("jpg", "rgb.jpg", "RGB")
save("jpg", "grey.jpg", "L")
save("jpg", "progressive.jpg", "RGB", progressive=True)
for mode in ("L", "P", "RGB", "RGBA"):
    save("tga", mode.lower() + ".tga", mode)
    save("tga", mode.lower() + "_packed.tga", mode, compression="tga_rle")
for mode in ("1", "L", "P", "RGB", "RGBA"):
    save("bmp", mode.lower() + ".bmp", mode)
for alpha in ("", "png", "jpeg"):
    write("jng", (alpha or "plain") + ".jng", jng(alpha))
BLOCKS = bytes(range(96))
for code in (b"DXT1", b"DXT3", b"DXT5"):
    write("dds", code.decode().lower() + ".dds", dds(4, code, 0, (0, 0, 0, 0), BLOCKS[: 48 if code == b"DXT1" else 96]))
write("dds", "rgba.dds", dds(0x41, b"\0" * 4, 32, (0xFF, 0xFF00, 0xFF0000, 0xFF000000), bytes(216)))
write("dds", "rgb565.dds", dds(0x40, b"\0" * 4, 16, (0xF800, 0x7E0, 0x1F, 0), bytes(108)))
