#!/usr/bin/env python3
"""Draws the view's panel icons into src/xqtgl/resources as 40x40 PNG pictures.

The icons are plain geometry (filled polygons and stroked lines, antialiased by supersampling),
so this script is their source: change a shape here and run it again. It needs only the
Python standard library.
"""
import math
import pathlib
import struct
import zlib

SIZE = 40
SAMPLES = 4  # per axis, for antialiasing
OUT = pathlib.Path(__file__).resolve().parent.parent / "src" / "xqtgl" / "resources"


def inside(poly, x, y):
    hit = False
    for i in range(len(poly)):
        (x1, y1), (x2, y2) = poly[i], poly[(i + 1) % len(poly)]
        if (y1 > y) != (y2 > y) and x < x1 + (y - y1) * (x2 - x1) / (y2 - y1):
            hit = not hit
    return hit


def near_segment(a, b, width, x, y):
    (ax, ay), (bx, by) = a, b
    dx, dy = bx - ax, by - ay
    t = max(0.0, min(1.0, ((x - ax) * dx + (y - ay) * dy) / (dx * dx + dy * dy)))
    return math.hypot(x - ax - t * dx, y - ay - t * dy) <= width / 2


def render(layers):
    """layers: (kind, shape, rgba) painted in order; kind 'fill' (polygon) or 'line' (a, b, width)."""
    pixels = bytearray()
    for py in range(SIZE):
        pixels.append(0)  # PNG filter byte
        for px in range(SIZE):
            acc = [0.0, 0.0, 0.0, 0.0]
            for sy in range(SAMPLES):
                for sx in range(SAMPLES):
                    x, y = px + (sx + 0.5) / SAMPLES, py + (sy + 0.5) / SAMPLES
                    r = g = b = a = 0.0
                    for kind, shape, (cr, cg, cb, ca) in layers:
                        covered = inside(shape, x, y) if kind == "fill" else near_segment(*shape, x, y)
                        if covered:  # source over destination, premultiplied
                            r, g, b = cr * ca + r * (1 - ca), cg * ca + g * (1 - ca), cb * ca + b * (1 - ca)
                            a = ca + a * (1 - ca)
                    for i, v in enumerate((r, g, b, a)):
                        acc[i] += v / (SAMPLES * SAMPLES)
            alpha = acc[3]
            colour = [acc[i] / alpha if alpha > 0 else 0.0 for i in range(3)]
            pixels.extend(int(round(255 * min(1.0, v))) for v in colour + [alpha])
    return bytes(pixels)


def write_png(path, raw):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data) & 0xFFFFFFFF)
    header = struct.pack(">IIBBBBB", SIZE, SIZE, 8, 6, 0, 0, 0)
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(raw, 9)) +
                     chunk(b"IEND", b""))


# An isometric box: the outline and the three edges meeting at the front corner.
TOP, LEFT, RIGHT, BOTTOM = (20, 4), (5, 12), (35, 12), (20, 36)
FRONT = (20, 20)
BOX_EDGES = [(TOP, LEFT), (TOP, RIGHT), (LEFT, (5, 28)), (RIGHT, (35, 28)), ((5, 28), BOTTOM), ((35, 28), BOTTOM),
             (LEFT, FRONT), (RIGHT, FRONT), (FRONT, BOTTOM)]
INK = (0.12, 0.16, 0.22, 1.0)


def box(width):
    return [("line", (a, b, width), INK) for a, b in BOX_EDGES]


def clipping_icon():
    # A horizontal cutting plane through the middle of the box, the part above drawn faint.
    plane = [(1, 20), (20, 10.5), (39, 20), (20, 29.5)]
    cut = [(5, 20), (20, 12.5), (35, 20), (20, 27.5)]
    faint = [("line", (a, b, 1.6), (0.12, 0.16, 0.22, 0.3)) for a, b in BOX_EDGES]
    lower = [("line", (a, b, 2.2), INK) for a, b in
             [((5, 20), (5, 28)), ((35, 20), (35, 28)), ((5, 28), BOTTOM), ((35, 28), BOTTOM), ((20, 27.5), BOTTOM)]]
    return faint + [("fill", plane, (0.95, 0.45, 0.1, 0.45)), ("fill", cut, (0.95, 0.45, 0.1, 0.85))] + lower + \
        [("line", (a, b, 1.4), (0.6, 0.25, 0.0, 1.0)) for a, b in zip(cut, cut[1:] + cut[:1])]


def boundingbox_icon():
    # A wire box with its eight corners marked.
    corners = [TOP, LEFT, RIGHT, FRONT, (5, 28), (35, 28), BOTTOM, (20, 12)]
    hidden = [("line", ((20, 12), TOP, 1.2), (0.12, 0.16, 0.22, 0.35))]
    dots = [("fill", [(x - 2, y - 2), (x + 2, y - 2), (x + 2, y + 2), (x - 2, y + 2)], (0.1, 0.45, 0.85, 1.0))
            for x, y in corners[:7]]
    return hidden + box(2.0) + dots


if __name__ == "__main__":
    write_png(OUT / "Fnera_on_40x40.png", render(clipping_icon()))
    write_png(OUT / "boundingbox.png", render(boundingbox_icon()))
