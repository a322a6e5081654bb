# SPDX-License-Identifier: BSD-3-Clause
"""Draws the cover in space and writes it as a small PNG file with a palette and a transparent ground."""

import math
import struct
import zlib

from . import part

SIDE = 400  # pixels
FINER = 2  # rays along the side of a pixel
MILLIMETRES = 150.0  # along the side of the picture
SHADES = 24
RAMPS = {"iron": ((38, 52, 70), (214, 226, 238)), "steel": ((30, 30, 32), (176, 176, 180))}
EDGE = (24, 30, 40)
LIGHT = (-0.45, 0.55, 0.70)


class Cylinder:
    """About an axis along z, as all of the part is."""

    def __init__(self, radius, back, front, centre=(0.0, 0.0), material="iron", half_width=math.inf):
        self.radius = radius
        self.ends = (back, front)
        self.centre = centre
        self.material = material
        self.half_width = half_width  # where flats cut it

    def pierced(self, origin, direction):
        """Where a ray enters and leaves, each as (distance, normal); nothing where it misses."""
        x, y = origin[0] - self.centre[0], origin[1] - self.centre[1]
        a = direction[0] ** 2 + direction[1] ** 2
        b = x * direction[0] + y * direction[1]
        discriminant = b * b - a * (x * x + y * y - self.radius**2)
        if discriminant <= 0:
            return None
        root = math.sqrt(discriminant)
        walls = [((sign * root - b) / a, "wall") for sign in (-1, 1)]
        caps = sorted(((end - origin[2]) / direction[2], "cap") for end in self.ends)
        flats = sorted(((side * self.half_width - origin[0]) / direction[0], "flat") for side in (-1, 1))
        enters = max(walls[0], caps[0], flats[0])
        leaves = min(walls[1], caps[1], flats[1])
        return (enters, leaves) if enters[0] < leaves[0] else None

    def normal(self, spot, face):
        if face == "wall":
            return (spot[0] - self.centre[0]) / self.radius, (spot[1] - self.centre[1]) / self.radius, 0.0
        if face == "flat":
            return math.copysign(1.0, spot[0]), 0.0, 0.0
        return 0.0, 0.0, math.copysign(1.0, spot[2] - sum(self.ends) / 2)


def bodies_and_holes():
    """What the cover with its screws is made of, and what is cut out of it; z is 0 at the face of the flange."""
    bodies = [
        Cylinder(part.FLANGE / 2, -part.THICKNESS, 0, half_width=part.FLATS / 2),
        Cylinder(part.BOSS / 2, 0, part.BOSS_HEIGHT),
        Cylinder(part.SPIGOT / 2, -part.THICKNESS - part.SPIGOT_LENGTH, -part.THICKNESS),
    ]
    holes = [
        Cylinder(part.SEAL / 2, part.BOSS_HEIGHT - part.SEAL_DEPTH, 100),
        Cylinder(part.BORE / 2, -100, 100),
        Cylinder(part.POCKET / 2, -100, -part.WEB_BACK),
    ]
    screws, sockets = [], []
    for centre in part.bolt_centres():
        holes.append(Cylinder(part.COUNTERBORE / 2, -part.COUNTERBORE_DEPTH, 100, centre))
        screws.append(Cylinder(part.SCREW_HEAD / 2, -part.COUNTERBORE_DEPTH, -1, centre, "steel"))
        sockets.append(Cylinder(part.SOCKET / math.sqrt(3), -5, 100, centre, "steel"))
    return [(bodies, holes), (screws, sockets)]


def first_hit(groups, origin, direction):
    """The nearest surface on a ray as (distance, solid, face, whether it is a hole's); nothing where there is none."""
    hits = []
    for bodies, holes in groups:
        added = [(solid, cut) for solid in bodies if (cut := solid.pierced(origin, direction))]
        if not added:
            continue
        removed = [(solid, cut) for solid in holes if (cut := solid.pierced(origin, direction))]
        entries = [(cut[0], solid, False) for solid, cut in added] + [(cut[1], solid, True) for solid, cut in removed]
        for (distance, face), solid, is_hole in sorted(entries, key=lambda entry: entry[0][0]):
            beyond = distance + 1e-6
            inside = any(cut[0][0] < beyond < cut[1][0] for _, cut in added)
            if inside and not any(cut[0][0] < beyond < cut[1][0] for _, cut in removed):
                hits.append((distance, solid, face, is_hole))
                break
    return min(hits, key=lambda hit: hit[0], default=None)


def dot(a, b):
    return sum(p * q for p, q in zip(a, b))


def view(yaw=-34.0, pitch=24.0):
    """The directions to the right, upward and into the picture, of a viewer to the left of the part and above it."""
    cy, sy = math.cos(math.radians(yaw)), math.sin(math.radians(yaw))
    cp, sp = math.cos(math.radians(pitch)), math.sin(math.radians(pitch))
    return (cy, 0.0, -sy), (-sp * sy, cp, -sp * cy), (-sy * cp, -sp, -cy * cp)


def traced():
    """Rows of what the rays meet: (face, shade) with a face's name that its neighbours share, or None."""
    groups = bodies_and_holes()
    right, up, into = view()
    middle = (0.0, 0.0, -part.THICKNESS / 2)
    count = SIDE * FINER
    step = MILLIMETRES / count
    length = math.sqrt(dot(LIGHT, LIGHT))
    rows = []
    for row in range(count):
        v = (count / 2 - row - 0.5) * step
        line = []
        for column in range(count):
            u = (column + 0.5 - count / 2) * step
            origin = tuple(m + r * u + p * v for m, r, p in zip(middle, right, up))
            hit = first_hit(groups, origin, into)
            if hit is None:
                line.append(None)
                continue
            distance, solid, face, is_hole = hit
            normal = solid.normal([o + distance * d for o, d in zip(origin, into)], face)
            lit = dot(normal, LIGHT) / length * (-1 if is_hole else 1)
            shade = 0.22 + 0.78 * max(0.0, 0.5 + 0.5 * lit) ** 1.5
            line.append(((id(solid), face), solid.material, min(SHADES - 1, int(shade * SHADES))))
        rows.append(line)
    return rows


def is_edge(rows, row, column):
    face = rows[row][column] and rows[row][column][0]
    neighbours = ((row + 1, column), (row, column + 1), (row - 1, column), (row, column - 1))
    return any((rows[r][c] and rows[r][c][0]) != face for r, c in neighbours)


def palette():
    """Colours with opacities: steps of an edge to the ground, then the shades of each material."""
    colours = [(*EDGE, round(255 * step / FINER**2)) for step in range(FINER**2 + 1)]
    for dark, light in RAMPS.values():
        for shade in range(SHADES):
            share = shade / (SHADES - 1)
            colours.append((*(round(d + (b - d) * share) for d, b in zip(dark, light)), 255))
    return colours


def pixel(rows, row, column, colours):
    """The entry of the palette for one pixel, nearest to the mean of its rays."""
    spots = [(row * FINER + i, column * FINER + j) for i in range(FINER) for j in range(FINER)]
    met = [(r, c) for r, c in spots if rows[r][c]]
    if len(met) < len(spots):
        return len(met)
    shades = []
    for r, c in met:
        _, material, shade = rows[r][c]
        first = FINER**2 + 1 + list(RAMPS).index(material) * SHADES
        shades.append(EDGE if is_edge(rows, r, c) else colours[first + shade][:3])
    mean = [sum(part) / len(shades) for part in zip(*shades)]
    opaque = range(FINER**2, len(colours))
    return min(opaque, key=lambda entry: sum((a - b) ** 2 for a, b in zip(colours[entry], mean)))


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def write(path):
    """Writes the picture and returns its size in pixels."""
    rows = traced()
    colours = palette()
    lines = [bytes([0, *(pixel(rows, row, column, colours) for column in range(SIDE))]) for row in range(SIDE)]
    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n")
        file.write(chunk(b"IHDR", struct.pack(">IIBBBBB", SIDE, SIDE, 8, 3, 0, 0, 0)))
        file.write(chunk(b"PLTE", b"".join(bytes(colour[:3]) for colour in colours)))
        file.write(chunk(b"tRNS", bytes(colour[3] for colour in colours)))
        file.write(chunk(b"IDAT", zlib.compress(b"".join(lines), 9)))
        file.write(chunk(b"IEND", b""))
    return SIDE, SIDE
