# SPDX-License-Identifier: BSD-3-Clause
"""Dimensions: each measures what it is put at, and has a block of its own that draws it."""

import math

from .dxf import number, on_circle, point

LAYER = "DIM"
ARROW = 3.0
ARROW_SLOPE = 1 / 6  # half its width to its length
GAP = 1.0  # from an edge to the line that extends it
OVERSHOOT = 1.5
TEXT_HEIGHT = 3.0
LIFT = 1.0  # of a text above its line


def moved(start, towards, length):
    """The point that lies `length` from `start` on the way to `towards`."""
    distance = math.dist(start, towards)
    return tuple(a + (b - a) * length / distance for a, b in zip(start, towards))


class Dimensions:
    def __init__(self, drawing):
        self.drawing = drawing
        self.count = 0

    def _block(self):
        self.count += 1
        return self.drawing.add_block(f"*D{self.count}")

    def _entity(self, block, kind, place, text_place, text, classes):
        groups = [(2, block.name), *point(10, place), *point(11, text_place), (70, 32 + kind), (71, 5), (1, text)]
        self.drawing.model.add("DIMENSION", LAYER, [("AcDbDimension", [*groups, (3, "SHEET")]), *classes])

    def _arrow(self, block, tip, away):
        """An arrow head whose body lies `away` from its tip."""
        base = moved(tip, away, ARROW)
        across = ((tip[1] - base[1]) * ARROW_SLOPE, (base[0] - tip[0]) * ARROW_SLOPE)
        left, right = (tuple(b + sign * a for a, b in zip(across, base)) for sign in (1, -1))
        block.solid(LAYER, tip, left, right)

    def _line_with_arrows(self, block, start, end):
        """Arrow heads stand outside where there is no room between the ends."""
        if math.dist(start, end) > 3 * ARROW:
            block.line(LAYER, moved(start, end, ARROW), moved(end, start, ARROW))
            self._arrow(block, start, end)
            self._arrow(block, end, start)
        else:
            before, behind = moved(start, end, -2 * ARROW), moved(end, start, -2 * ARROW)
            block.line(LAYER, before, behind)
            self._arrow(block, start, before)
            self._arrow(block, end, behind)

    def _extend(self, block, edge, end):
        if math.dist(edge, end) > GAP:
            block.line(LAYER, moved(edge, end, GAP), moved(end, edge, -OVERSHOOT))

    def linear(self, start, end, at, upright=False, text="{}"):
        """Measures along x, or along y where `upright`; the line lies at this y or x. `text` has the size for {}."""
        block = self._block()
        first, second = ((at, start[1]), (at, end[1])) if upright else ((start[0], at), (end[0], at))
        self._extend(block, start, first)
        self._extend(block, end, second)
        self._line_with_arrows(block, first, second)
        middle = ((first[0] + second[0]) / 2, (first[1] + second[1]) / 2)
        place = (at - LIFT, middle[1]) if upright else (middle[0], at + LIFT)
        text = text.format(number(math.dist(first, second)))
        rotation = 90 if upright else 0
        block.mtext("TEXT", place, TEXT_HEIGHT, text, attachment=8, rotation=rotation)
        aligned = ("AcDbAlignedDimension", [*point(13, start), *point(14, end)])
        self._entity(block, 0, second, place, text, [aligned, ("AcDbRotatedDimension", [(50, rotation)])])

    def diameter(self, centre, size, degrees, text="%%c{}", shift=0):
        """A line through the whole circle, with its text along it."""
        block = self._block()
        far, near = on_circle(centre, size / 2, degrees), on_circle(centre, size / 2, degrees + 180)
        self._line_with_arrows(block, near, far)
        place = on_circle(on_circle(centre, shift, degrees), LIFT, degrees + 90)
        text = text.format(number(size))
        block.mtext("TEXT", place, TEXT_HEIGHT, text, attachment=8, rotation=degrees)
        self._entity(block, 3, far, place, text, [("AcDbDiametricDimension", [*point(15, near), (40, 0)])])

    def angle(self, centre, radii, first, second, at):
        """Measures counter-clockwise between points at these radii; the arc has the radius `at`."""
        block = self._block()
        ends = []
        for radius, degrees in zip(radii, (first, second)):
            ends.append(on_circle(centre, radius, degrees))
            self._extend(block, ends[-1], on_circle(centre, at, degrees))
        turn = math.degrees(ARROW / at)
        block.arc(LAYER, centre, at, first + turn, second - turn)
        for degrees, away in ((first, turn), (second, -turn)):
            self._arrow(block, on_circle(centre, at, degrees), on_circle(centre, at, degrees + away))
        middle = (first + second) / 2
        place = on_circle(centre, at - LIFT, middle)
        text = f"{number(second - first)}%%d"
        block.mtext("TEXT", place, TEXT_HEIGHT, text, attachment=8, rotation=middle + 90)
        corners = [*point(13, ends[0]), *point(14, ends[1]), *point(15, centre)]
        place_on_arc = on_circle(centre, at, middle)
        self._entity(block, 5, place_on_arc, place, text, [("AcDb3PointAngularDimension", corners)])
