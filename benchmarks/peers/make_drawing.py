#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Writes a drawing to measure with, the same one every time.

    make_drawing.py mixed 100000 FILE       entities of all common kinds, on layers with colours, widths and dashes
    make_drawing.py references 100000 FILE  references to one block
    make_drawing.py texts 12000 FILE        texts of 250 characters, no two alike
    make_drawing.py mtext 1000000 FILE      one text of so many characters, in paragraphs with changes of format
"""
import argparse
import math
import random

WORDS = ("wall", "door", "Beton C25/30", "DN 110", "EG", "+3.25", "storey", "pipe", "120/80/5", "north elevation")
LINE_TYPES = {"DASHED": (12.7, -6.35), "DASHDOT": (12.7, -6.35, 0.0, -6.35)}
CELL = 10.0


class Writer:
    """Writes groups; a record begins with its type, and an entity has a layer."""

    def __init__(self, stream, seed=1):
        self.stream = stream
        self.random = random.Random(seed)
        self.handle = 0x100

    def groups(self, *pairs):
        self.stream.write("".join(f"{code}\n{value}\n" for code, value in pairs))

    def point(self, x, y, code=10):
        return ((code, f"{x:.4f}"), (code + 10, f"{y:.4f}"), (code + 20, "0.0"))

    def entity(self, kind, *pairs):
        self.handle += 1
        self.groups((0, kind), (5, f"{self.handle:X}"), (8, f"LAYER{self.random.randrange(20)}"), *pairs)


def line(writer, x, y):
    writer.entity("LINE", *writer.point(x, y), *writer.point(x + 8, y + writer.random.uniform(0, 8), 11))


def circle(writer, x, y):
    writer.entity("CIRCLE", *writer.point(x + 4, y + 4), (40, f"{writer.random.uniform(1, 4):.4f}"))


def arc(writer, x, y):
    start = writer.random.uniform(0, 360)
    writer.entity("ARC", *writer.point(x + 4, y + 4), (40, "3.5"), (50, f"{start:.4f}"), (51, f"{start + 120:.4f}"))


def polyline(writer, x, y):
    count = writer.random.randrange(4, 12)
    corners = []
    for i in range(count):
        corners += [(10, f"{x + 8 * i / count:.4f}"), (20, f"{y + writer.random.uniform(0, 8):.4f}")]
        corners += [(42, "0.5")] if i % 3 == 0 else []
    writer.entity("LWPOLYLINE", (90, count), (70, writer.random.randrange(2)), *corners)


def text(writer, x, y):
    words = f"{writer.random.choice(WORDS)} {writer.random.randrange(1000)}"
    writer.entity("TEXT", *writer.point(x, y), (40, "1.5"), (1, words), (50, writer.random.choice((0, 0, 90))))


def ellipse(writer, x, y):
    writer.entity("ELLIPSE", *writer.point(x + 4, y + 4), *writer.point(3.5, 1, 11), (40, "0.5"), (41, "0.0"),
                  (42, f"{2 * math.pi:.6f}"))


def solid(writer, x, y):
    writer.entity("SOLID", *writer.point(x, y), *writer.point(x + 4, y, 11), *writer.point(x, y + 3, 12),
                  *writer.point(x + 4, y + 3, 13))


def hatch(writer, x, y):
    corners = ((x, y), (x + 7, y), (x + 7, y + 5), (x, y + 5))
    writer.entity("HATCH", *writer.point(0, 0), (2, "SOLID"), (70, 1), (71, 0), (91, 1), (92, 2), (72, 0), (73, 1),
                  (93, 4), *((code, f"{v:.4f}") for corner in corners for code, v in zip((10, 20), corner)), (97, 0),
                  (75, 0), (76, 1))


def spline(writer, x, y):
    knots = (0, 0, 0, 0, 1, 2, 2, 2, 2)
    points = [(x + 2 * i, y + writer.random.uniform(0, 8)) for i in range(5)]
    writer.entity("SPLINE", (70, 8), (71, 3), (72, len(knots)), (73, len(points)), (74, 0), *((40, k) for k in knots),
                  *(group for point in points for group in writer.point(*point)))


def reference(writer, x, y):
    writer.entity("INSERT", (2, "SYMBOL"), *writer.point(x + 4, y + 4),
                  (50, f"{writer.random.choice((0, 45, 90)):.1f}"))


# How often each kind comes among twenty entities.
MIX = [line] * 6 + [polyline] * 4 + [text] * 3 + [circle, arc] * 2 + [ellipse, solid, hatch, spline, reference]


def write_header(writer):
    writer.groups((0, "SECTION"), (2, "HEADER"), (9, "$ACADVER"), (1, "AC1021"), (9, "$INSUNITS"), (70, 4))
    writer.groups((0, "ENDSEC"))


def write_tables(writer):
    writer.groups((0, "SECTION"), (2, "TABLES"), (0, "TABLE"), (2, "LTYPE"), (70, len(LINE_TYPES)))
    for name, dashes in LINE_TYPES.items():
        writer.groups((0, "LTYPE"), (2, name), (70, 0), (3, ""), (72, 65), (73, len(dashes)),
                      (40, sum(map(abs, dashes))), *((49, dash) for dash in dashes))
    writer.groups((0, "ENDTAB"), (0, "TABLE"), (2, "LAYER"), (70, 20))
    for number in range(20):
        line_type = ("CONTINUOUS", "CONTINUOUS", "DASHED", "DASHDOT")[number % 4]
        writer.groups((0, "LAYER"), (2, f"LAYER{number}"), (70, 0), (62, number % 7 + 1), (6, line_type),
                      (370, (13, 18, 25, 35, 50)[number % 5]))
    writer.groups((0, "ENDTAB"), (0, "ENDSEC"))


def write_blocks(writer):
    writer.groups((0, "SECTION"), (2, "BLOCKS"), (0, "BLOCK"), (8, "0"), (2, "SYMBOL"), (70, 0), *writer.point(0, 0))
    writer.groups((0, "CIRCLE"), (8, "0"), *writer.point(0, 0), (40, "3.0"))
    for angle in range(0, 360, 45):
        tip = (3 * math.cos(math.radians(angle)), 3 * math.sin(math.radians(angle)))
        writer.groups((0, "LINE"), (8, "0"), *writer.point(0, 0), *writer.point(*tip, 11))
    writer.groups((0, "ENDBLK"), (8, "0"), (0, "ENDSEC"))


def write_mixed(writer, count):
    columns = math.ceil(math.sqrt(count))
    for i in range(count):
        kind = MIX[i % len(MIX)]
        kind(writer, CELL * (i % columns), CELL * (i // columns))


def write_references(writer, count):
    columns = math.ceil(math.sqrt(count))
    for i in range(count):
        reference(writer, CELL * (i % columns), CELL * (i // columns))


def write_texts(writer, count):
    for i in range(count):
        letters = "".join(writer.random.choices("abcdefghijklmnopqrstuvwxyz ABCDEFGHIJ 0123456789", k=250))
        writer.entity("TEXT", *writer.point(0, 4 * i), (40, "2.5"), (1, letters))


def write_mtext(writer, count):
    pieces = []
    length = 0
    while length < count:
        piece = writer.random.choice(WORDS) + " "
        choice = writer.random.randrange(30)
        if choice == 0:
            piece += r"\P"
        elif choice < 4:
            piece = (r"{\fArial|b1|i0;", r"{\C1;", r"{\H1.5x;")[choice - 1] + piece + "}"
        pieces.append(piece)
        length += len(piece)
    markup = "".join(pieces)[:count]
    chunks = [markup[i:i + 250] for i in range(0, len(markup), 250)]
    writer.entity("MTEXT", *writer.point(0, 0), (40, "2.5"), (41, "400.0"), (71, 1),
                  *((3, chunk) for chunk in chunks[:-1]), (1, chunks[-1]))


CONTENTS = {"mixed": write_mixed, "references": write_references, "texts": write_texts, "mtext": write_mtext}


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("content", choices=CONTENTS)
    parser.add_argument("count", type=int)
    parser.add_argument("file")
    options = parser.parse_args()
    with open(options.file, "w", encoding="ascii") as stream:
        writer = Writer(stream)
        write_header(writer)
        write_tables(writer)
        write_blocks(writer)
        writer.groups((0, "SECTION"), (2, "ENTITIES"))
        CONTENTS[options.content](writer, options.count)
        writer.groups((0, "ENDSEC"), (0, "EOF"))


if __name__ == "__main__":
    main()
