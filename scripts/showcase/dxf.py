# SPDX-License-Identifier: BSD-3-Clause
"""Writes DXF text files of release AC1021, whose texts are UTF-8."""

import math


def number(value):
    """A whole number as it is, any other to a tenth of a micrometre."""
    return str(value) if isinstance(value, int) else f"{round(value, 4) + 0.0:.4f}".rstrip("0").rstrip(".")


def rgb(colour):
    """The number of a true colour given as six hexadecimal digits."""
    return int(colour, 16)


def opacity(per_cent):
    """The number that states an opacity."""
    return 0x02000000 | round(per_cent * 255 / 100)


def on_circle(centre, radius, degrees):
    angle = math.radians(degrees)
    return centre[0] + radius * math.cos(angle), centre[1] + radius * math.sin(angle)


# Of an arc about a corner.
QUARTER_BULGE = math.tan(math.pi / 8)


# The style of texts that name none.
USUAL_STYLE = "Standard"


def style_group(style):
    return [] if style == USUAL_STYLE else [(7, style)]


class Entities:
    """The entities of model space or of one block, in the order in which they are drawn."""

    def __init__(self, drawing, name):
        self.drawing = drawing
        self.name = name
        self.record = drawing.new_handle()
        self.groups = []

    def add(self, kind, layer, classes, **properties):
        """Starts an entity; `classes` are its subclass markers, each with its groups after it.

        `properties` are those that differ from the layer's: colour, weight, line_type, opacity.
        """
        handle = self.drawing.new_handle()
        self.groups += [(0, kind), (5, handle), (100, "AcDbEntity"), (8, layer)]
        if "line_type" in properties:
            self.groups.append((6, properties["line_type"]))
        if "weight" in properties:
            self.groups.append((370, round(properties["weight"] * 100)))
        if "colour" in properties:
            self.groups.append((420, rgb(properties["colour"])))
        if "opacity" in properties:
            self.groups.append((440, opacity(properties["opacity"])))
        for marker, groups in classes:
            self.groups += [(100, marker), *groups]
        return handle

    def line(self, layer, start, end, **properties):
        self.add("LINE", layer, [("AcDbLine", [*point(10, start), *point(11, end)])], **properties)

    def lines(self, layer, *points, **properties):
        self.polyline(layer, points, closed=False, **properties)

    def circle(self, layer, centre, radius, **properties):
        self.add("CIRCLE", layer, [("AcDbCircle", [*point(10, centre), (40, radius)])], **properties)

    def arc(self, layer, centre, radius, start, end, **properties):
        circle = ("AcDbCircle", [*point(10, centre), (40, radius)])
        self.add("ARC", layer, [circle, ("AcDbArc", [(50, start), (51, end)])], **properties)

    def polyline(self, layer, vertices, closed=True, width=None, **properties):
        """Vertices are (x, y), or (x, y, bulge) where an arc follows."""
        groups = [(90, len(vertices)), (70, int(closed))]
        if width is not None:
            groups.append((43, width))
        for vertex in vertices:
            groups += point(10, vertex)
            if len(vertex) == 3:
                groups.append((42, vertex[2]))
        self.add("LWPOLYLINE", layer, [("AcDbPolyline", groups)], **properties)

    def rectangle(self, layer, low, high, **properties):
        self.polyline(layer, [low, (high[0], low[1]), high, (low[0], high[1])], **properties)

    def spline(self, layer, control_points, **properties):
        """A cubic curve from the first of its control points to the last."""
        degree = 3
        inner = range(1, len(control_points) - degree)
        knots = [0] * (degree + 1) + list(inner) + [len(control_points) - degree] * (degree + 1)
        groups = [(70, 8), (71, degree), (72, len(knots)), (73, len(control_points)), (74, 0)]
        groups += [(40, knot) for knot in knots]
        for control_point in control_points:
            groups += point(10, control_point)
        self.add("SPLINE", layer, [("AcDbSpline", groups)], **properties)

    def solid(self, layer, a, b, c, **properties):
        corners = [group for code, corner in zip((10, 11, 12, 13), (a, b, c, c)) for group in point(code, corner)]
        self.add("SOLID", layer, [("AcDbTrace", corners)], **properties)

    def hatch(self, layer, *loops, **properties):
        """Fills the area within the first loop and outside the others; loops are vertices as of polylines."""
        groups = [*point(10, (0, 0)), (30, 0), (2, "SOLID"), (70, 1), (71, 0), (91, len(loops))]
        for i, loop in enumerate(loops):
            has_bulges = any(len(vertex) == 3 for vertex in loop)
            groups += [(92, 3 if i == 0 else 2), (72, int(has_bulges)), (73, 1), (93, len(loop))]
            for x, y, *bulge in loop:
                groups += [(10, x), (20, y), *([(42, bulge[0] if bulge else 0)] if has_bulges else [])]
            groups.append((97, 0))
        groups += [(75, 0), (76, 1), (98, 0)]
        self.add("HATCH", layer, [("AcDbHatch", groups)], **properties)

    def text(self, layer, position, height, value, align="left", style=USUAL_STYLE, **properties):
        columns = {"left": (0, 0), "center": (1, 0), "right": (2, 0), "middle": (1, 2), "middle left": (0, 2)}
        column, row = columns[align]
        groups = [*point(10, position), (40, height), (1, value), *style_group(style)]
        groups += [(72, column), *point(11, position)] if (column, row) != (0, 0) else []
        self.add("TEXT", layer, [("AcDbText", groups), ("AcDbText", [(73, row)] if row else [])], **properties)

    def mtext(self, layer, position, height, markup, width=0, attachment=1, rotation=0, **properties):
        groups = [*point(10, position), (40, height), (41, width), (71, attachment), *in_chunks(markup)]
        if rotation:
            groups.append((50, rotation))
        self.add("MTEXT", layer, [("AcDbMText", groups)], **properties)

    def insert(self, layer, block, position, scale=(1, 1), rotation=0, attributes=(), **properties):
        """`attributes` are (tag, position, height, value), centred on their positions."""
        groups = [(66, 1)] if attributes else []
        groups += [(2, block), *point(10, position)]
        groups += [(41, scale[0]), (42, scale[1])] if scale != (1, 1) else []
        groups += [(50, rotation)] if rotation else []
        self.add("INSERT", layer, [("AcDbBlockReference", groups)], **properties)
        for tag, place, height, value in attributes:
            text = [*point(10, place), (40, height), (1, value), (72, 1), *point(11, place)]
            self.add("ATTRIB", layer, [("AcDbText", text), ("AcDbAttribute", [(280, 0), (2, tag), (70, 0), (74, 2)])])
        if attributes:
            self.add("SEQEND", layer, [])

    def wipeout(self, layer, centre, radius):
        """Covers a disc with white."""
        side = 2 * radius
        corner = (centre[0] - radius, centre[1] - radius)
        boundary = [on_circle((0, 0), 0.5, 22.5 * step) for step in range(17)]
        groups = [(90, 0), *point(10, corner), *point(11, (side, 0)), *point(12, (0, side)), (13, 1), (23, 1), (70, 7)]
        groups += [(280, 1), (281, 50), (282, 50), (283, 0), (71, 2), (91, len(boundary))]
        groups += [group for x, y in boundary for group in ((14, x), (24, y))]
        self.add("WIPEOUT", layer, [("AcDbWipeout", groups)])

    def image(self, layer, picture, low, millimetres_per_pixel, **properties):
        """Places a picture whose transparent parts show what lies below."""
        side = millimetres_per_pixel
        groups = [(90, 0), *point(10, low), *point(11, (side, 0)), *point(12, (0, side))]
        groups += [(13, picture.width), (23, picture.height), (340, picture.handle), (70, 9), (280, 0)]
        groups += [(281, 50), (282, 50), (283, 0), (71, 1), (91, 2), (14, -0.5), (24, -0.5)]
        groups += [(14, picture.width - 0.5), (24, picture.height - 0.5)]
        self.add("IMAGE", layer, [("AcDbRasterImage", groups)], **properties)

    def leader(self, layer, *points):
        """A line to a note; the arrow head is at its first point."""
        groups = [(3, "SHEET"), (71, 1), (72, 0), (73, 3), (74, 1), (75, 0), (40, 0), (41, 0), (76, len(points))]
        groups += [group for vertex in points for group in point(10, vertex)]
        self.add("LEADER", layer, [("AcDbLeader", groups)])


def point(code, xy):
    return [(code, xy[0]), (code + 10, xy[1])]


def in_chunks(markup):
    """A text of paragraphs in groups of up to 250 characters."""
    size = 250
    chunks = [markup[i : i + size] for i in range(0, len(markup), size)]
    return [(3, chunk) for chunk in chunks[:-1]] + [(1, chunks[-1])]


class Picture:
    def __init__(self, handle, path, size):
        self.handle = handle
        self.path = path
        self.width, self.height = size


class Drawing:
    def __init__(self):
        self._next_handle = 0x10
        self.line_types = [("ByBlock", "", []), ("ByLayer", "", []), ("Continuous", "Solid line", [])]
        self.layers = [("0", "000000", 0.25, "Continuous", 100)]
        self.styles = []
        self.pictures = []
        self.blocks = []
        self.model = Entities(self, "*Model_Space")
        self.paper = Entities(self, "*Paper_Space")

    def new_handle(self):
        self._next_handle += 1
        return f"{self._next_handle:X}"

    def add_block(self, name):
        block = Entities(self, name)
        self.blocks.append(block)
        return block

    def add_picture(self, path, size):
        picture = Picture(self.new_handle(), path, size)
        self.pictures.append(picture)
        return picture

    def write(self, path, low, high):
        """Writes the file; `low` and `high` are the corners of what it holds."""
        body = [*self._tables(low, high), *self._blocks()]
        body += [*section("ENTITIES", self.model.groups), *self._objects(), (0, "EOF")]
        groups = [(999, "SPDX-License-Identifier: BSD-3-Clause"), *self._header(low, high), *self._classes(), *body]
        with open(path, "w", encoding="utf-8", newline="\n") as file:
            for code, value in groups:
                file.write(f"{code}\n{number(value) if isinstance(value, (int, float)) else value}\n")

    def _header(self, low, high):
        variables = [
            ("$ACADVER", [(1, "AC1021")]),
            ("$DWGCODEPAGE", [(3, "ANSI_1252")]),
            ("$EXTMIN", point(10, low)),
            ("$EXTMAX", point(10, high)),
            ("$HANDSEED", [(5, "FFFF")]),
            ("$INSUNITS", [(70, 4)]),
            ("$LTSCALE", [(40, 1)]),
            ("$MEASUREMENT", [(70, 1)]),
        ]
        return section("HEADER", [group for name, values in variables for group in ((9, name), *values)])

    def _classes(self):
        groups = []
        for name, cpp_name, entity in [
            ("IMAGE", "AcDbRasterImage", 1),
            ("IMAGEDEF", "AcDbRasterImageDef", 0),
            ("RASTERVARIABLES", "AcDbRasterVariables", 0),
            ("WIPEOUT", "AcDbWipeout", 1),
        ]:
            groups += [(0, "CLASS"), (1, name), (2, cpp_name), (3, "ISM"), (90, 0), (91, 1), (280, 0), (281, entity)]
        return section("CLASSES", groups)

    def _tables(self, low, high):
        centre = ((low[0] + high[0]) / 2, (low[1] + high[1]) / 2)
        view = [(2, "*ACTIVE"), (70, 0), *point(10, (0, 0)), (11, 1), (21, 1), (12, centre[0]), (22, centre[1])]
        view += [(16, 0), (26, 0), (36, 1), (40, high[1] - low[1]), (41, 1.5), (42, 50)]
        dimension_style = [(2, "SHEET"), (70, 0), (40, 1), (41, 3), (42, 1), (44, 1.5), (77, 1), (140, 3), (147, 0.8)]
        records = [(block.record, [(2, block.name)]) for block in [self.model, self.paper, *self.blocks]]
        tables = [
            self._table("VPORT", "AcDbViewportTableRecord", [view]),
            self._table("LTYPE", "AcDbLinetypeTableRecord", [line_type(*entry) for entry in self.line_types]),
            self._table("LAYER", "AcDbLayerTableRecord", [layer(*entry) for entry in self.layers]),
            self._table("STYLE", "AcDbTextStyleTableRecord", [text_style(*entry) for entry in self.styles]),
            self._table("VIEW", "", []),
            self._table("UCS", "", []),
            self._table("APPID", "AcDbRegAppTableRecord", [[(2, name), (70, 0)] for name in applications]),
            self._table("DIMSTYLE", "AcDbDimStyleTableRecord", [dimension_style]),
            self._table("BLOCK_RECORD", "AcDbBlockTableRecord", [groups for _, groups in records], records),
        ]
        return section("TABLES", [group for table in tables for group in table])

    def _table(self, kind, marker, entries, records=None):
        table = self.new_handle()
        groups = [(0, "TABLE"), (2, kind), (5, table), (330, "0"), (100, "AcDbSymbolTable"), (70, len(entries))]
        if kind == "DIMSTYLE":
            groups.append((100, "AcDbDimStyleTable"))
        for i, entry in enumerate(entries):
            handle = records[i][0] if records else self.new_handle()
            groups += [(0, kind), (105 if kind == "DIMSTYLE" else 5, handle), (330, table)]
            groups += [(100, "AcDbSymbolTableRecord"), (100, marker), *entry]
        return [*groups, (0, "ENDTAB")]

    def _blocks(self):
        groups = []
        for block in [self.model, self.paper, *self.blocks]:
            flags = 1 if block.name.startswith("*D") else 0
            content = block.groups if block in self.blocks else []
            begin = [(330, block.record), (100, "AcDbEntity"), (8, "0"), (100, "AcDbBlockBegin"), (2, block.name)]
            groups += [(0, "BLOCK"), (5, self.new_handle()), *begin, (70, flags), *point(10, (0, 0)), (3, block.name)]
            groups += [(1, ""), *content, (0, "ENDBLK"), (5, self.new_handle()), (330, block.record)]
            groups += [(100, "AcDbEntity"), (8, "0"), (100, "AcDbBlockEnd")]
        return section("BLOCKS", groups)

    def _objects(self):
        root, groups_dictionary, images, frames = (self.new_handle() for _ in range(4))
        entries = [("ACAD_GROUP", groups_dictionary), ("ACAD_IMAGE_DICT", images), ("ACAD_IMAGE_VARS", frames)]
        groups = dictionary(root, "0", entries)
        groups += [(0, "RASTERVARIABLES"), (5, frames), (330, root), (100, "AcDbRasterVariables"), (90, 0)]
        groups += [(70, 0), (71, 1), (72, 3)]  # no frames about pictures
        groups += dictionary(groups_dictionary, root, [])
        groups += dictionary(images, root, [(picture.path, picture.handle) for picture in self.pictures])
        for picture in self.pictures:
            groups += [(0, "IMAGEDEF"), (5, picture.handle), (330, images), (100, "AcDbRasterImageDef"), (90, 0)]
            groups += [(1, picture.path), *point(10, (picture.width, picture.height)), *point(11, (1, 1))]
            groups += [(280, 1), (281, 0)]
        return section("OBJECTS", groups)


applications = ("ACAD", "AcCmTransparency")


def section(name, groups):
    return [(0, "SECTION"), (2, name), *groups, (0, "ENDSEC")]


def line_type(name, description, pattern):
    """`pattern` holds the millimetres of dashes, gaps as negative numbers."""
    groups = [(2, name), (70, 0), (3, description), (72, 65), (73, len(pattern)), (40, sum(map(abs, pattern)))]
    return groups + [group for length in pattern for group in ((49, length), (74, 0))]


def layer(name, colour, weight, line_type_name, opaque):
    groups = [(2, name), (70, 0), (62, 7), (420, rgb(colour)), (6, line_type_name), (370, round(weight * 100))]
    if opaque < 100:
        groups += [(1001, "AcCmTransparency"), (1071, opacity(opaque))]
    return groups


def text_style(name, font, width_factor, big_font):
    return [(2, name), (70, 0), (40, 0), (41, width_factor), (50, 0), (71, 0), (42, 3), (3, font), (4, big_font)]


def dictionary(handle, owner, entries):
    groups = [(0, "DICTIONARY"), (5, handle), (330, owner), (100, "AcDbDictionary"), (281, 1)]
    return groups + [group for name, entry in entries for group in ((3, name), (350, entry))]
