# SPDX-License-Identifier: BSD-3-Clause
"""The tables of docs/performance.md, by section and in the order of that page."""
from paired import Goal, Growth, Pairs
from programs import DrawingGoal, Drawings, Frames

BY_HAND = {"ours": "ours", "hand": "by hand"}
SETTINGS = {"ours": "ours", "qsettings": "QSettings", "gkeyfile": "GKeyFile"}
ENGINES = {"ours": "ours", "clipper": "Clipper", "boost": "Boost.Geometry"}

SECTIONS = {
    "The renderer against hand-written painter code": [
        Pairs("renderer", "render_benchmark", "Polyline|Polygon|Points|Arc|Style", BY_HAND,
              first="picture, device, points", counts_allocations=True,
              goals=(Goal(1.10, rows="/counting"), Goal(1.02, rows="/raster"))),
        Pairs("long-lines", "render_benchmark", "LongLines", BY_HAND, first="device, lines",
              counts_allocations=True, goals=(Goal(1.02),)),
        Pairs("clips", "render_benchmark", "ClipList",
              {"ours": "ours", "united": "united by hand", "winding": "one path, not evaluated"},
              first="device, contours",
              goals=(Goal(1.10, "united", "/counting"), Goal(1.02, "united", "/raster"))),
    ],
    "kelplot against parsing alone, and against others": [
        Drawings("kelplot", growth_at_most=1.2, growth_formats="^kelplot", goals=(
            DrawingGoal("mixed", 100000, "reading", "ratio", 1.6),
            DrawingGoal("mixed", 100000, "kelplot to PDF, fonts", "ratio", 2.0),
            DrawingGoal("mixed", 100000, "SVG", "ratio", 2.5),
            DrawingGoal("mixed", 100000, "PNG", "ratio", 5),
            DrawingGoal("mixed", 100000, "kelplot to PDF", "memory", 80),
            DrawingGoal("mixed", 100000, "reading|SVG|PNG", "memory", 100),
            DrawingGoal("mixed", 1000000, "^kelplot", "memory", 500),
            DrawingGoal("references", 100000, "kelplot to PDF", "output", 2),
        )),
    ],
    "Regions": [
        Pairs("regions", "clipper_benchmark", ".", ENGINES, first="operation, outlines, vertices", repetitions=3,
              goals=(Goal(1.7, "clipper", "/(100|1000|10000)$"), Goal(1.15, "clipper", "/100000$"))),
        Pairs("combined-regions", "region_benchmark", "Combine|Circles", {"ours": "ours", "clip": "the clipper alone"},
              first="operation, vertices", repetitions=5, goals=(Goal(1.15, rows="Combine/|Circles"),)),
        Pairs("region-lists", "region_benchmark", "Evaluate", {"ours": "ours", "clipper": "Clipper"},
              first="contours", repetitions=5, goals=(Goal(1.7),)),
    ],
    "Images and palette": [
        Pairs("pixels", "image_benchmark", "Transparency|AddAlpha",
              {"ours": "ours", "pixels": "single pixels", "rows": "rows"},
              goals=(Goal(1 / 6, "pixels"), Goal(1.10, "rows"))),
        Pairs("drawn-images", "image_benchmark", "Draw", {"ours": "ours", "copy": "a copy"},
              goals=(Goal(1.3, rows="Translucent|Turned"), Goal(0.01, rows="Opaque"))),
        Pairs("palette", "palette_benchmark", ".", {"ours": "ours", "hand": "all entries"}, goals=(Goal(0.25),)),
    ],
    "Settings, papers and formatting": [
        Pairs("settings", "ini_benchmark", ".", SETTINGS,
              goals=(Goal(1, "qsettings", "all keys|Save|WriteKey"), Goal(1, "gkeyfile"))),
        Pairs("papers", "paper_benchmark", ".", {"ours": "ours", "bare": "the bare file"},
              goals=(Goal(3, rows="Query"), Goal(20, rows="Write"))),
        Pairs("formats", "format_benchmark", ".", {"ours": "ours", "platform": "the platform's"}, first="format",
              goals=(Goal(3),), is_code=True),
    ],
    "Text and transforms": [
        Pairs("texts", "text_benchmark", "DrawText/", BY_HAND, first="text", goals=(Goal(1.1),)),
        Pairs("texts-again", "text_benchmark", "DrawTextAgain|DrawNumbers", BY_HAND, goals=(Goal(1),)),
        Pairs("transforms", "matrix_benchmark", ".", {"ours": "CUCS33", "qtransform": "QTransform"}),
    ],
    "Polylines clipped to a region": [
        Growth("clipped-lines", "clip_line_benchmark", "ClipLine", at_most=12, first="line, contours"),
        Pairs("clipped-at-teeth", "clip_line_benchmark", "ClipTeeth", {"lying": "lying", "standing": "standing"},
              first="points", repetitions=5, goals=(Goal(1.5),)),
    ],
    "The preview while it moves": [Frames("preview", milliseconds=16.7)],
}
