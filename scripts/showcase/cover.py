# SPDX-License-Identifier: BSD-3-Clause
"""Draws the views of the bearing cover: from the front, in section, and its gasket."""

import math

from . import part
from .dxf import QUARTER_BULGE, on_circle

FRONT = (98, 198)  # the centre of the view from the front
SECTION_X = 258  # of the face of the flange
AXIS = FRONT[1]


def full_circle(radius, centre=(0, 0)):
    """A circle as the loop of two arcs."""
    return [(centre[0] - radius, centre[1], 1), (centre[0] + radius, centre[1], 1)]


def flattened_disc(diameter, flats):
    """A disc with a flat at its left and at its right."""
    x = flats / 2
    y = math.sqrt((diameter / 2) ** 2 - x**2)
    bulge = math.tan((math.pi / 2 - math.atan2(y, x)) / 2)
    return [(x, -y), (x, y, bulge), (-x, y), (-x, -y, bulge)]


def shifted(loop, by):
    return [(x + by[0], y + by[1], *bulge) for x, y, *bulge in loop]


def add_screw_head(drawing):
    """The head of a screw in its counterbore, from above."""
    block = drawing.add_block("SCREW_TOP")
    block.circle("OUTLINE", (0, 0), part.COUNTERBORE / 2)
    block.circle("OUTLINE", (0, 0), part.SCREW_HEAD / 2)
    corner = part.SOCKET / math.sqrt(3)
    block.polyline("EDGE", [on_circle((0, 0), corner, 60 * i) for i in range(6)])
    block.line("CENTRE", (-10, 0), (10, 0))


def add_screw_side(drawing):
    """The screw from the side; its axis runs along x from the face of the flange on."""
    block = drawing.add_block("SCREW_SIDE")
    head, shank, length = part.SCREW_HEAD / 2, 4, 30
    seat = -part.COUNTERBORE_DEPTH
    end = seat - length
    block.polyline("OUTLINE", [(seat, -head), (seat + 7.3, -head), (seat + 8, -head + 0.7), (seat + 8, head - 0.7),
                               (seat + 7.3, head), (seat, head)])
    block.lines("OUTLINE", (seat, shank), (end + 0.7, shank), (end, shank - 0.7), (end, 0.7 - shank),
                (end + 0.7, -shank), (seat, -shank))
    for side in (1, -1):
        block.line("EDGE", (seat - 8, side * 3.3), (end + 0.3, side * 3.3))
    block.line("OUTLINE", (seat - 8, shank), (seat - 8, -shank))
    block.line("CENTRE", (3, 0), (end - 3, 0))


def add_seal(drawing):
    """Half of a shaft seal as drawn in short; x runs from the face of the flange, y from the axis."""
    block = drawing.add_block("SEAL")
    low, high = (part.BOSS_HEIGHT - part.SEAL_DEPTH, part.SHAFT / 2), (part.BOSS_HEIGHT - 1, part.SEAL / 2)
    block.rectangle("OUTLINE", low, high)
    block.hatch("RUBBER", [low, (high[0], low[1]), high, (low[0], high[1])])
    block.line("EDGE", (low[0] + 1, low[1] + 1), (high[0] - 1, high[1] - 1))
    block.line("EDGE", (low[0] + 1, high[1] - 1), (high[0] - 1, low[1] + 1))


def add_gasket(drawing):
    block = drawing.add_block("GASKET")
    holes = [full_circle(part.BOLT_HOLE / 2, centre) for centre in part.bolt_centres()]
    outline = flattened_disc(part.FLANGE, part.FLATS)
    block.hatch("GASKET", outline, full_circle(part.SPIGOT / 2 + 0.5), *holes)
    block.polyline("OUTLINE", outline)
    block.circle("OUTLINE", (0, 0), part.SPIGOT / 2 + 0.5)
    for centre in part.bolt_centres():
        block.circle("OUTLINE", centre, part.BOLT_HOLE / 2)
    block.circle("CENTRE", (0, 0), part.BOLT_CIRCLE / 2)


def draw_front(model):
    model.polyline("OUTLINE", shifted(flattened_disc(part.FLANGE, part.FLATS), FRONT))
    for diameter in (part.BOSS, part.SEAL, part.BORE):
        model.circle("OUTLINE", FRONT, diameter / 2)
    model.circle("EDGE", FRONT, part.BOSS / 2 - 1)
    model.circle("HIDDEN", FRONT, part.SPIGOT / 2)
    model.circle("CENTRE", FRONT, part.BOLT_CIRCLE / 2)
    for centre, angle in zip(part.bolt_centres(FRONT), part.BOLT_ANGLES):
        model.insert("0", "SCREW_TOP", centre, rotation=angle)
    model.line("CENTRE", (FRONT[0] - 71, FRONT[1]), (FRONT[0] + 71, FRONT[1]))
    model.line("CENTRE", (FRONT[0], FRONT[1] - 75), (FRONT[0], FRONT[1] + 75))


def draw_cutting_plane(model):
    """Where the section runs, and which way it is looked at."""
    x = FRONT[0]
    for side in (1, -1):
        y = FRONT[1] + side * 78
        model.line("OUTLINE", (x, y - 4), (x, y + 4), weight=0.7)
        model.line("EDGE", (x, y), (x + 9, y), colour="000000")
        model.solid("OUTLINE", (x + 12, y), (x + 8, y + 0.9), (x + 8, y - 0.9))
        model.text("TITLE", (x + 5, y + 1.5), 5, "A", align="center")


def section_loops():
    """What the cut shows above the axis: the rim outside the bolt hole, and the rest."""
    back = -part.THICKNESS
    bolt, wide, narrow = part.BOLT_CIRCLE / 2, part.COUNTERBORE / 2, part.BOLT_HOLE / 2
    seat = -part.COUNTERBORE_DEPTH
    rim = part.FLANGE / 2
    outer = [(0, bolt + wide), (0, rim - 1), (-1, rim), (back + 1, rim), (back, rim - 1), (back, bolt + narrow),
             (seat, bolt + narrow), (seat, bolt + wide)]
    front, boss, seal = part.BOSS_HEIGHT, part.BOSS / 2, part.SEAL / 2
    end, spigot, pocket = back - part.SPIGOT_LENGTH, part.SPIGOT / 2, part.POCKET / 2
    depth, web, bore = front - part.SEAL_DEPTH, -part.WEB_BACK, part.BORE / 2
    inner = [(0, bolt - wide), (0, boss + 2, QUARTER_BULGE), (2, boss), (front - 1, boss), (front, boss - 1),
             (front, seal), (depth, seal), (depth, bore), (web, bore), (web, pocket), (end, pocket),
             (end, spigot - 1), (end + 1, spigot), (back, spigot), (back, bolt - narrow), (seat, bolt - narrow),
             (seat, bolt - wide)]
    return outer, inner


def mirrored(loop):
    return [(x, -y, *(-b for b in bulge)) for x, y, *bulge in loop]


def draw_section(model):
    origin = (SECTION_X, AXIS)
    for loop in section_loops():
        for half in (loop, mirrored(loop)):
            model.hatch("SECTION", shifted(half, origin))
            model.polyline("OUTLINE", shifted(half, origin))
    bolt, shaft = part.BOLT_CIRCLE / 2, part.SHAFT / 2
    back = -part.THICKNESS
    wide, narrow = part.COUNTERBORE / 2, part.BOLT_HOLE / 2
    for side in (1, -1):
        edges = [(0, bolt - wide, bolt + wide), (part.BOSS_HEIGHT, shaft, part.SEAL / 2),
                 (-part.WEB_BACK, shaft, part.BORE / 2), (back - part.SPIGOT_LENGTH, shaft, part.POCKET / 2)]
        for x, low, high in edges:
            model.line("OUTLINE", (SECTION_X + x, AXIS + side * low), (SECTION_X + x, AXIS + side * high))
        model.insert("0", "SCREW_SIDE", (SECTION_X, AXIS + side * bolt), scale=(1, side))
        model.insert("0", "SEAL", origin, scale=(1, side))
        gasket_x = SECTION_X + back - 0.3
        for low, high in ((part.SPIGOT / 2 + 0.5, bolt - narrow), (bolt + narrow, part.FLANGE / 2)):
            model.polyline("GASKET", [(gasket_x, AXIS + side * low), (gasket_x, AXIS + side * high)], closed=False,
                           width=0.6)
    draw_shaft(model)


def draw_shaft(model):
    """The neighbouring shaft, broken off at both ends."""
    radius = part.SHAFT / 2
    left, right = SECTION_X - part.THICKNESS - part.SPIGOT_LENGTH - 6, SECTION_X + part.BOSS_HEIGHT + 7
    for y in (AXIS + radius, AXIS - radius):
        model.line("PHANTOM", (left, y), (right, y))
    for x in (left, right):
        wave = [(x, AXIS + radius), (x + 5, AXIS + radius * 0.8), (x + 3, AXIS + radius * 0.3), (x, AXIS),
                (x - 3, AXIS - radius * 0.3), (x - 5, AXIS - radius * 0.8), (x, AXIS - radius)]
        model.spline("EDGE", wave)
    model.line("CENTRE", (left - 4, AXIS), (right + 4, AXIS))
