#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""screen.py FRAMEBUFFER PNG: waits until a screen of Xvfb (an XWD file, 24 bits) shows a window that no longer
changes, and keeps a picture of it."""
import struct
import sys
import time
import zlib

WAIT_SECONDS = 120
LEAST_COLOURS = 20  # an empty window has fewer


def read(path):
    """Width, height and rows of red, green and blue."""
    with open(path, "rb") as file:
        data = file.read()
    header = struct.unpack(">25I", data[:100])
    size, width, height, line, colours = header[0], header[4], header[5], header[12], header[19]
    start = size + 12 * colours
    rows = []
    for row in range(height):
        pixels = data[start + row * line:start + row * line + 4 * width]
        out = bytearray(3 * width)
        out[0::3], out[1::3], out[2::3] = pixels[2::4], pixels[1::4], pixels[0::4]
        rows.append(bytes(out))
    return width, height, rows


def save(path, width, height, rows):
    def chunk(kind, content):
        body = kind + content
        return struct.pack(">I", len(content)) + body + struct.pack(">I", zlib.crc32(body))

    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
                   + chunk(b"IDAT", zlib.compress(b"".join(b"\0" + row for row in rows))) + chunk(b"IEND", b""))


def main():
    framebuffer, picture = sys.argv[1:]
    before, deadline = None, time.monotonic() + WAIT_SECONDS
    while time.monotonic() < deadline:
        time.sleep(3)
        try:
            width, height, rows = read(framebuffer)
        except (OSError, struct.error):
            continue
        colours = {row[at:at + 3] for row in rows[::7] for at in range(0, 3 * width, 21)}
        if len(colours) >= LEAST_COLOURS and rows == before:
            save(picture, width, height, rows)
            return 0
        before = rows
    print("the screen stays empty or never comes to rest", file=sys.stderr)
    if before:
        save(picture, width, height, before)
    return 1


if __name__ == "__main__":
    sys.exit(main())
