# SPDX-License-Identifier: BSD-3-Clause
"""The sizes of the bearing cover in millimetres; diameters where nothing else is said."""

from .dxf import on_circle

FLANGE = 140
FLATS = 128  # from one flat of the flange to the other
THICKNESS = 16
BOSS = 78
BOSS_HEIGHT = 8
SPIGOT = 85
SPIGOT_LENGTH = 18
SEAL = 62
SEAL_DEPTH = 11
BORE = 48
POCKET = 70
WEB_BACK = 10  # from the face of the flange to the bottom of the pocket
SHAFT = 45
BOLT_CIRCLE = 116
BOLT_HOLE = 9
COUNTERBORE = 15
COUNTERBORE_DEPTH = 9
SCREW_HEAD = 13
SOCKET = 6  # across flats
BOLT_ANGLES = (30, 90, 150, 210, 270, 330)


def bolt_centres(centre=(0, 0)):
    return [on_circle(centre, BOLT_CIRCLE / 2, angle) for angle in BOLT_ANGLES]
