#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Makes examples/drawings/showcase.dxf, a sheet that shows what kelplot plots, and its picture."""

from pathlib import Path

from showcase import cover, picture, remarks, sheet
from showcase.dimensions import Dimensions
from showcase.dxf import QUARTER_BULGE, Drawing

FOLDER = Path(__file__).resolve().parent.parent / "examples" / "drawings"

LINE_TYPES = (
    ("DASHED", "Hidden edges", (4, -1.5)),
    ("CHAIN", "Centre lines", (10, -1.5, 1, -1.5)),
    ("CHAIN2", "Neighbouring parts", (10, -1.5, 1, -1.5, 1, -1.5)),
)

LAYERS = (  # name, colour, line weight, line type, opacity in per cent
    ("FRAME", "000000", 0.7, "Continuous", 100),
    ("GRID", "000000", 0.18, "Continuous", 100),
    ("TINT", "1F5C99", 0.18, "Continuous", 16),
    ("PICTURE", "000000", 0.18, "Continuous", 100),
    ("SECTION", "5B8DB8", 0.18, "Continuous", 55),
    ("RUBBER", "3C3C3C", 0.18, "Continuous", 60),
    ("GASKET", "1B998B", 0.25, "Continuous", 80),
    ("CENTRE", "B3261E", 0.18, "CHAIN", 100),
    ("HIDDEN", "606060", 0.25, "DASHED", 100),
    ("PHANTOM", "7A3E9D", 0.25, "CHAIN2", 100),
    ("EDGE", "303030", 0.25, "Continuous", 100),
    ("OUTLINE", "000000", 0.5, "Continuous", 100),
    ("DIM", "1F4E8C", 0.18, "Continuous", 100),
    ("TEXT", "000000", 0.25, "Continuous", 100),
    ("LABEL", "505050", 0.18, "Continuous", 100),
    ("TITLE", "000000", 0.35, "Continuous", 100),
)

STYLES = (  # name, font, width factor, font for Chinese, Japanese and Korean
    ("Standard", "simplex.shx", 0.88, "extfont2.shx"),
    ("BOLD", "romand.shx", 0.88, "extfont2.shx"),
    ("SIGNS", "gdt.shx", 1, ""),
)


def draw_picture(model, image):
    low, high, radius = (312, 193), (408, 284), 4
    left, right, below, above = low[0] + radius, high[0] - radius, low[1] + radius, high[1] - radius
    rounded = [(left, low[1]), (right, low[1], QUARTER_BULGE), (high[0], below), (high[0], above, QUARTER_BULGE),
               (right, high[1]), (left, high[1], QUARTER_BULGE), (low[0], above), (low[0], below, QUARTER_BULGE)]
    model.hatch("TINT", rounded)
    side = 86
    model.image("PICTURE", image, ((low[0] + high[0] - side) / 2, low[1] + 5), side / image.width)
    model.text("LABEL", (low[0] + 4, low[1] + 3), 2.3, "Item 1 with screws, without seal")


def main():
    drawing = Drawing()
    drawing.line_types += LINE_TYPES
    drawing.layers += LAYERS
    drawing.styles += STYLES
    size = picture.write(FOLDER / "showcase.png")
    image = drawing.add_picture("showcase.png", size)
    for add in (cover.add_screw_head, cover.add_screw_side, cover.add_seal, cover.add_gasket,
                sheet.add_fields, sheet.add_projection_sign, remarks.add_balloon, remarks.add_surface_sign):
        add(drawing)
    model = drawing.model
    sheet.draw_frame(model)
    sheet.draw_title_block(model)
    sheet.draw_items(model)
    sheet.draw_names(model)
    sheet.draw_notes(model)
    sheet.draw_check_strip(model)
    draw_picture(model, image)
    cover.draw_front(model)
    cover.draw_cutting_plane(model)
    cover.draw_section(model)
    model.insert("0", "GASKET", (62, 59), scale=(0.5, 0.5))
    dimensions = Dimensions(drawing)
    remarks.dimension_front(dimensions)
    remarks.dimension_section(dimensions)
    remarks.draw_items(model)
    remarks.draw_tolerances(model)
    remarks.draw_surfaces(model)
    drawing.write(FOLDER / "showcase.dxf", (0, 0), sheet.SIZE)


if __name__ == "__main__":
    main()
