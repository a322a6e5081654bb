# SPDX-License-Identifier: BSD-3-Clause
"""Writes at the views what they do not show by themselves: sizes, tolerances, surfaces and items."""

import math

from . import part
from .cover import AXIS, FRONT, SECTION_X
from .dimensions import ARROW
from .dxf import on_circle

BALLOON = 4  # its radius
BACK = SECTION_X - part.THICKNESS
END = BACK - part.SPIGOT_LENGTH
TOP = SECTION_X + part.BOSS_HEIGHT
RIM, SPIGOT, BOSS, SEAL = (size / 2 for size in (part.FLANGE, part.SPIGOT, part.BOSS, part.SEAL))


def dimension_front(dimensions):
    x, y = FRONT
    flat = part.FLATS / 2
    flat_end = y - math.sqrt(RIM**2 - flat**2)
    dimensions.diameter(FRONT, part.BORE, 40, shift=-11)
    dimensions.linear((x - flat, flat_end), (x + flat, flat_end), 109)
    dimensions.angle(FRONT, (part.BOLT_CIRCLE / 2 + 10,) * 2, -30, 30, 79)


def dimension_section(dimensions):
    below = AXIS - RIM + 1
    boss = (TOP, AXIS - BOSS + 1)
    dimensions.linear((END, AXIS - SPIGOT + 1), (BACK, below), 119)
    dimensions.linear((BACK, below), (SECTION_X, below), 119)
    dimensions.linear((SECTION_X, below), boss, 119)
    dimensions.linear((END, AXIS - SPIGOT + 1), boss, 109)
    depth = AXIS + part.BORE / 2 + 5  # where the pocket leaves room
    dimensions.linear((END, depth), (SECTION_X - part.WEB_BACK, depth), depth)
    for x, at, radius, text in (
        (END, 211, part.POCKET / 2, "%%c{}"),
        (END + 1, 202, SPIGOT, "%%c{} f7"),
        (TOP, 283, SEAL, "%%c{} H8"),
        (TOP - 1, 292, BOSS, "%%c{}"),
        (SECTION_X - 1, 301, RIM, "%%c{}"),
    ):
        dimensions.linear((x, AXIS - radius), (x, AXIS + radius), at, upright=True, text=text)


def add_balloon(drawing):
    """A disc for the number of an item; it covers what lies below."""
    block = drawing.add_block("BALLOON")
    block.wipeout("DIM", (0, 0), BALLOON)
    block.circle("DIM", (0, 0), BALLOON, weight=0.35)


def draw_item(model, number, place, target):
    model.leader("DIM", target, place)
    model.insert("0", "BALLOON", place, attributes=[("ITEM", place, 3.5, number)])


def draw_items(model):
    bolt = part.BOLT_CIRCLE / 2
    draw_item(model, "1", (282, 259), (SECTION_X, AXIS + 47))
    draw_item(model, "2", (227, 279), (BACK - 0.3, AXIS + 66))
    draw_item(model, "3", (209, 274), (BACK - 18, AXIS + bolt + 2))
    draw_item(model, "4", (275, 247), (SECTION_X + 3, AXIS + 28))
    model.text("TITLE", (247, 277), 5, "A – A", align="center")
    model.text("TEXT", (62, 15.5), 3, "Item 2, scale 1:2", align="center")


def draw_frame_of_tolerance(model, low, cells):
    """A row of cells, each (width, style, text)."""
    height = 6
    x, y = low
    total = sum(width for width, _, _ in cells)
    model.rectangle("DIM", low, (x + total, y + height))
    for width, style, value in cells:
        model.text("TEXT", (x + width / 2, y + height / 2), 2.7, value, align="middle", style=style)
        x += width
        if x < low[0] + total:
            model.line("DIM", (x, y), (x, y + height))


def draw_tolerances(model):
    x, y = 283, AXIS - SEAL
    model.leader("DIM", (x, y), (x, 144))
    draw_frame_of_tolerance(model, (271, 138), [(7, "SIGNS", "r"), (14, "Standard", "%%c0.03"), (7, "Standard", "A")])
    hole = on_circle(on_circle(FRONT, part.BOLT_CIRCLE / 2, 30), part.COUNTERBORE / 2, 70)
    model.leader("DIM", hole, (164, 275), (167, 275))
    model.mtext("TEXT", (168, 275), 3, "6 × %%c9 on %%c116\\P%%c15 ↧ 9", attachment=4)
    draw_datum(model, (202, AXIS - SPIGOT), "A")


def draw_datum(model, tip, name):
    x, y = tip
    model.solid("DIM", (x, y), (x - ARROW / 1.6, y - ARROW), (x + ARROW / 1.6, y - ARROW))
    model.line("DIM", (x, y - ARROW), (x, y - 8))
    model.rectangle("DIM", (x - 3, y - 14), (x + 3, y - 8))
    model.text("TEXT", (x, y - 11), 3, name, align="middle")


def add_surface_sign(drawing):
    """Stands on the surface that it is about."""
    block = drawing.add_block("SURFACE")
    block.lines("DIM", (-1.75, 3), (0, 0), (3.5, 6), (13, 6))


def draw_surfaces(model):
    for (x, y), roughness in (
        ((END + 3.5, AXIS + SPIGOT), "Ra 1.6"),
        ((SECTION_X - 9, AXIS + RIM), "Ra 3.2"),
        ((352, 93), "Ra 6.3"),
    ):
        model.insert("0", "SURFACE", (x, y), attributes=[("ROUGHNESS", (x + 8.3, y + 4), 2.2, roughness)])
    model.text("TEXT", (367, 95), 3, "(", align="left")
    model.insert("0", "SURFACE", (371, 94), scale=(0.6, 0.6))
    model.text("TEXT", (380, 95), 3, ")", align="left")
