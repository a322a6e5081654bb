# SPDX-License-Identifier: BSD-3-Clause
"""Draws what surrounds the views: frame, title block, lists, notes and the strip to check a plot with."""

SIZE = (420, 297)
FRAME = ((20, 10), (410, 287))
BAND = 5  # around the frame, for the marks of the fields
FIELD = 50
TITLE_BLOCK = ((230, 10), (410, 58))
TITLE_COLUMNS = (290, 372)
ITEM_COLUMNS = (230, 242, 254, 318, 374, 410)
ITEM_ROW = 6.5
ITEMS = (
    ("1", "1", "Bearing cover", "HD-2041-07-1", "EN-GJS-400-15"),
    ("2", "1", "Gasket, 0.5 thick", "HD-2041-07-2", "Aramid fibre"),
    ("3", "6", "Socket screw M8 × 30", "ISO 4762", "8.8, zinc plated"),
    ("4", "1", "Shaft seal 45 × 62 × 10", "ISO 6194-1", "NBR"),
)
NAMES = (
    ("Deutsch", "Lagerdeckel"),
    ("Français", "Couvercle de palier"),
    ("Čeština", "Víko ložiska"),
    ("Tiếng Việt", "Nắp ổ trục"),
    ("Türkçe", "Yatak kapağı"),
    ("Ελληνικά", "Κάλυμμα εδράνου"),
    ("Русский", "Крышка подшипника"),
    ("中文", "轴承盖"),
    ("日本語", "軸受カバー"),
    ("ქართული", "საკისრის ხუფი"),
    ("العربية", "غطاء المحمل"),
    ("עברית", "מכסה מסב"),
)
NOTES = (
    r"Outer edges {\H0.7x;\S-0.1^ -0.3;} to ISO 13715; chamfers 1 × 45°, fillet of the boss R2.",
    r"Fill {\S1#3;} of the free space with grease of class NLGI 2.",
    r"Limits: %%c85 f7 {\H0.7x;\S-0.036^ -0.071;}, seal seat %%c62 H8 {\H0.7x;\S+0.046^ 0;}, 11 deep.",
    r"{\C1;Tighten the screws crosswise in two steps,} 12 and 25 N·m; {\Lnever\l} use the gasket (2) again.",
    r"Paint {\c9195039;\fDejaVu Sans|b1;blue}, 60 µm, but not the faces marked with a roughness.",
)


SIGNATURES = (
    ("", "Name", "Date"),
    ("Drawn", "Å. Nyström", "2025-03-03"),
    ("Checked", "Zoë Okafor", "2025-03-10"),
    ("Approved", "J. Dvořák", "2025-03-14"),
    ("Released", "Κ. Ιωάννου", "2025-03-14"),
)


def draw_frame(model):
    (left, bottom), (right, top) = FRAME
    model.rectangle("FRAME", *FRAME)
    model.rectangle("GRID", (left - BAND, bottom - BAND), (right + BAND, top + BAND))
    width, height = SIZE
    for x, y, sx, sy in ((0, 0, 1, 1), (width, 0, -1, 1), (width, height, -1, -1), (0, height, 1, -1)):
        corner = [(0, 0), (6, 0), (6, 2), (2, 2), (2, 6), (0, 6)]
        model.hatch("GRID", [(x + sx * u, y + sy * v) for u, v in corner])
    for y in (bottom - BAND, top):
        model.insert("0", "FIELDS_ACROSS", (0, y))
    for x in (left - BAND, right):
        model.insert("0", "FIELDS_UP", (x, 0))
    x, y = width / 2, height / 2
    model.line("FRAME", (x, bottom - BAND), (x, bottom + 4))
    model.line("FRAME", (x, top - 4), (x, top + BAND))
    model.line("FRAME", (left - BAND, y), (left + 4, y))
    model.line("FRAME", (right - 4, y), (right + BAND, y))


def add_fields(drawing):
    """Numbers along the frame and letters up it, each for fifty millimetres counted from the middle."""
    across, up = drawing.add_block("FIELDS_ACROSS"), drawing.add_block("FIELDS_UP")
    for start, middle, name in fields("12345678", FRAME[0][0], FRAME[1][0], SIZE[0] / 2):
        across.text("GRID", (middle, BAND / 2), 2.5, name, align="middle")
        if start > FRAME[0][0]:
            across.line("GRID", (start, 0), (start, BAND))
    for start, middle, name in fields("FEDCBA", FRAME[0][1], FRAME[1][1], SIZE[1] / 2):
        up.text("GRID", (BAND / 2, middle), 2.5, name, align="middle")
        if start > FRAME[0][1]:
            up.line("GRID", (0, start), (BAND, start))


def fields(names, low, high, centre):
    """Where each field begins, its middle and its name; the outer ones end at the frame."""
    for i, name in enumerate(names):
        start = centre + (i - len(names) / 2) * FIELD
        yield start, (max(start, low) + min(start + FIELD, high)) / 2, name


def cell(model, x, y, caption, value, height=2.5, layer="TEXT"):
    """A caption in small letters at the upper left corner (x, y), with its value below."""
    model.text("LABEL", (x + 1.2, y - 2.9), 1.7, caption)
    model.text(layer, (x + 1.2, y - 7 - (height - 2.5)), height, value)


def add_projection_sign(drawing):
    """The sign of first-angle projection."""
    block = drawing.add_block("FIRST_ANGLE")
    block.polyline("EDGE", [(-9, -1.5), (-1, -3), (-1, 3), (-9, 1.5)])
    block.circle("EDGE", (6, 0), 3)
    block.circle("EDGE", (6, 0), 1.5)
    block.line("CENTRE", (-11, 0), (1, 0), line_type="Continuous")
    block.line("CENTRE", (1.5, 0), (10.5, 0), line_type="Continuous")
    block.line("CENTRE", (6, -4.5), (6, 4.5), line_type="Continuous")


def draw_title_block(model):
    (left, bottom), (right, top) = TITLE_BLOCK
    first, second = TITLE_COLUMNS
    model.rectangle("FRAME", *TITLE_BLOCK)
    for x in TITLE_COLUMNS:
        model.line("EDGE", (x, bottom), (x, top))
    for y in (46, 34, 22):
        model.line("EDGE", (second, y), (right, y))
    model.line("EDGE", (left, 19), (first, 19))
    model.line("EDGE", (260, 28), (260, bottom))
    model.line("EDGE", (first, 46), (second, 46))
    model.line("EDGE", (first, 22), (second, 22))
    for y, row in zip((52, 46, 40, 34, 28), SIGNATURES):
        for x, value in zip((left, 247, 269.2), row):
            if value:
                model.text("LABEL" if y == 52 else "TEXT", (x + 1.2, y + 1.9), 2.2, value)
        model.line("GRID", (left, y), (first, y))
    cell(model, left, 28, "General tolerances", "ISO 2768-mK")
    cell(model, 260, 28, "Surfaces", "ISO 21920")
    cell(model, left, 19, "Mass", "1.7 kg")
    cell(model, 260, 19, "Units", "mm")
    model.insert("0", "FIRST_ANGLE", ((second + right) / 2, 52))
    cell(model, second, 46, "Scale", "1:1  (1:2)", 3.5)
    cell(model, second, 34, "Date", "2025-03-14", 3.5)
    cell(model, second, 22, "Sheet", "1 / 1   A3", 3.5)
    draw_logo(model, (298, 52))
    model.text("TITLE", (306, 50.2), 4, "Haldenrud Drives", style="BOLD")
    model.text("LABEL", (first + 1.2, 43.1), 1.7, "Title")
    model.text("TITLE", (first + 2, 34), 6, "Bearing cover", style="BOLD")
    model.text("TEXT", (first + 2, 26), 2.5, "Lagerdeckel · Крышка · 軸受カバー")
    model.text("LABEL", (first + 1.2, 19.1), 1.7, "Drawing number")
    model.text("TITLE", (first + 2, 12.3), 5, "HD-2041-07")
    model.line("EDGE", (second - 14, 22), (second - 14, bottom))
    cell(model, second - 14, 22, "Revision", "C", 3.5)


def draw_logo(model, centre):
    """A ring with a bite, of a polyline that is wider where it ends."""
    x, y = centre
    model.circle("GASKET", centre, 2.2, weight=0.5)
    model.polyline("DIM", [(x + 2.6, y + 2.6, 1), (x - 2.6, y - 2.6, 0.5), (x + 1.5, y - 3.4)], closed=False, width=1.1)


def draw_items(model):
    """The list of parts, read upward from the title block."""
    bottom = TITLE_BLOCK[1][1]
    top = bottom + ITEM_ROW * (len(ITEMS) + 1)
    left, right = ITEM_COLUMNS[0], ITEM_COLUMNS[-1]
    model.hatch("TINT", [(left, bottom), (right, bottom), (right, bottom + ITEM_ROW), (left, bottom + ITEM_ROW)])
    model.rectangle("FRAME", (left, bottom), (right, top))
    for x in ITEM_COLUMNS[1:-1]:
        model.line("GRID", (x, bottom), (x, top))
    rows = (("Item", "Qty", "Name", "Standard, drawing", "Material"), *ITEMS)
    for i, row in enumerate(rows):
        y = bottom + ITEM_ROW * i
        if i > 0:
            model.line("EDGE" if i == 1 else "GRID", (left, y), (right, y))
        for x, after, value in zip(ITEM_COLUMNS, ITEM_COLUMNS[1:], row):
            centred = after - x < 15
            place = ((x + after) / 2 if centred else x + 1.5, y + ITEM_ROW / 2)
            model.text("TEXT", place, 2.3, value, align="middle" if centred else "middle left")


def draw_names(model, left=312, top=186, width=96, row=6.2):
    """The name of the part in the languages of those who are to make it."""
    bottom = top - row * (len(NAMES) + 1)
    model.hatch("TINT", [(left, top - row), (left + width, top - row), (left + width, top), (left, top)])
    model.rectangle("EDGE", (left, bottom), (left + width, top))
    model.line("GRID", (left + 30, top), (left + 30, bottom))
    model.text("TEXT", (left + 1.5, top - row / 2), 2.5, "Language", align="middle left")
    model.text("TEXT", (left + 31.5, top - row / 2), 2.5, "Name of the part", align="middle left")
    for i, (language, name) in enumerate(NAMES, start=1):
        y = top - row * i
        model.line("GRID", (left, y), (left + width, y))
        model.text("LABEL", (left + 1.5, y - row / 2), 2.3, language, align="middle left")
        model.text("TEXT", (left + 31.5, y - row / 2), 2.8, name, align="middle left")


def draw_notes(model, left=104, top=101, width=120):
    lines = [r"\A1;{\fDejaVu Sans|b1;\H1.25x;Notes}"]
    lines += [rf"\pi-2,l2,t2;{i}.^I{note}" for i, note in enumerate(NOTES, start=1)]
    model.mtext("TEXT", (left, top), 2.7, "\\P".join(lines), width=width)


def draw_check_strip(model, left=104, bottom=17):
    """What shows whether a plotter keeps lengths, line weights and opacities."""
    model.text("LABEL", (left, bottom + 32.5), 2, "Plot check: line weights in mm, opacity in %, a length of 100 mm")
    for i, weight in enumerate((0.13, 0.18, 0.25, 0.35, 0.5, 0.7, 1.0, 1.4)):
        x = left + i * 6
        model.line("EDGE", (x + 1, bottom + 14), (x + 1, bottom + 30), weight=weight, colour="000000")
        model.text("LABEL", (x + 1, bottom + 10.5), 1.6, f"{weight:.2f}", align="center")
    start = left + 54
    model.line("EDGE", (start, bottom + 22), (left + 100, bottom + 22), weight=1.4, colour="000000")
    for i, share in enumerate((15, 30, 50, 75, 100)):
        x = start + i * 9.4
        patch = [(x, bottom + 15), (x + 8, bottom + 15), (x + 8, bottom + 29), (x, bottom + 29)]
        model.hatch("GASKET", patch, opacity=share)
        model.text("LABEL", (x + 4, bottom + 10.5), 1.6, f"{share}", align="center")
    for i in range(10):
        low, high = (left + 10 * i, bottom + 3), (left + 10 * (i + 1), bottom + 6)
        if i % 2 == 0:
            model.hatch("EDGE", [low, (high[0], low[1]), high, (low[0], high[1])], colour="000000")
    model.rectangle("EDGE", (left, bottom + 3), (left + 100, bottom + 6))
    for length in (0, 50, 100):
        model.text("LABEL", (left + length, bottom - 0.5), 1.6, str(length), align="center")
