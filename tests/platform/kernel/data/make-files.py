#!/usr/bin/env python3
"""Writes the cursor files (*.cur) and the modules (*.bin) that lie here, all but arrow.cur."""
import struct

HIGH = 0x80000000


def header(width, height, bits):
    """A bitmap's, whose mask is stored under the pixels."""
    return struct.pack("<IiiHHIIiiII", 40, width, height * 2, 1, bits, 0, 0, 0, 0, 0, 0)


def write_cursor(name, bitmap, hot=1):
    with open(name + ".cur", "wb") as file:
        file.write(struct.pack("<HHHBBBBHHII", 0, 2, 1, 0, 0, 0, 0, hot, 0, len(bitmap), 22) + bitmap)


def two_pixels(bits):
    """The first blue 10, green 20, red 30, the second left out by the mask or, at 32 bits, by its alpha."""
    if bits <= 8:
        pixels = b"".join(struct.pack("<I", 0x1E140A if i == 1 else 0xFFFFFF) for i in range(1 << bits))
        pixels += struct.pack("<I", 1 << (8 - bits))
    elif bits == 24:
        pixels = bytes([10, 20, 30, 99, 99, 99, 0, 0])
    else:
        pixels = bytes([10, 20, 30, 255, 0, 0, 0, 0])
    return header(2, 1, bits) + pixels + struct.pack("<I", 0x40)


def write_module(name, types, length, sections):
    """`types` types that all are called the same, with a text of `length` units, and that all hold the same resource
    of that name; `sections` sections stand before the one of the resources."""
    coff, address = 0x44, 0x1000
    optional, optional_size = coff + 20, 240
    section = optional + optional_size + sections * 40
    root = section + 40
    text = 16 + types * 8  # from here on offsets in the directory
    names = text + 2 + length * 2
    languages = names + 24
    data = languages + 24
    file = bytearray(root + data + 16)
    for at, form, *values in [
            (0, "<H", 0x5A4D), (0x3C, "<I", coff - 4), (coff - 4, "<I", 0x4550), (coff + 2, "<H", sections + 1),
            (coff + 16, "<H", optional_size), (optional, "<H", 0x20B), (optional + 108, "<I", 16),
            (optional + 128, "<I", address), (section + 12, "<III", address, data + 16, root),
            (root + 12, "<H", types), (root + text, "<H", length), (root + names + 12, "<H", 1),
            (root + names + 16, "<II", HIGH | text, HIGH | languages), (root + languages + 14, "<H", 1),
            (root + languages + 20, "<I", data), (root + data, "<I", address),
    ] + [(root + 16 + i * 8, "<II", HIGH | text, HIGH | names) for i in range(types)]:
        struct.pack_into(form, file, at, *values)
    with open(name + ".bin", "wb") as out:
        out.write(file)


for depth in (1, 4, 8, 24, 32):
    write_cursor(f"depth-{depth}", two_pixels(depth))
write_cursor("two-rows", header(1, 2, 32) + bytes([1, 0, 0, 255, 2, 0, 0, 255]) + bytes(8), 0)
write_cursor("no-alpha", header(2, 1, 32) + bytes([1, 2, 3, 0, 4, 5, 6, 0, 0x40, 0, 0, 0]), 0)
write_module("modest", 20, 10, 3)
write_module("texts", 20, 60000, 0)
write_module("sections", 800, 1, 2000)
