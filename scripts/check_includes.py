#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Checks that includes run one way through the folders, and prints who includes whom.

A file may include headers of its own room and of rooms that stand before it in the list of its tree; the public
headers of the library are open to all, and kelplot knows nothing else of it. No file includes itself by a detour.
Exits with 1 when an include breaks that, or a file is in no room.
"""
import pathlib
import re
import sys

# The rooms of each tree from the bottom up. The decoders in reader's inner rooms and the router that chooses among
# them count as one room.
TREES = {
    "src": ["port", "geometry", "region", "settings", "image", "paper", "render"],
    "kelplot": ["base", "geometry", "drawing", "page", "print", "device", "settings", "reader", "plot/pen", "plot/shape",
                "plot/picture", "plot/text", "plot/annotation", "plot/entity", "plot", "cli/console", "cli/options",
                "cli/job", "cli/listing", "cli", "preview"],
}
PUBLIC = ("keldriver/", "gpc.h", "imgo.h")


def room_of(name, rooms):
    folder = str(pathlib.PurePath(name).parent)
    return max((room for room in rooms if folder == room or folder.startswith(room + "/")), key=len, default=None)


def includes(path):
    return re.findall(r'^#include "([^"]+)"', path.read_text(), re.M)


def find_circle(graph):
    state = {}

    def visit(node, path):
        state[node] = "open"
        for other in graph.get(node, ()):
            if state.get(other) == "open":
                return path[path.index(other):] + [other]
            if other not in state and (circle := visit(other, path + [other])):
                return circle
        state[node] = "done"
        return None

    for node in graph:
        if node not in state and (circle := visit(node, [node])):
            return circle
    return None


def check(tree, rooms):
    faults, graph, arrows = [], {}, {}
    for path in sorted(pathlib.Path(tree).rglob("*.[ch]*")):
        name = str(path.relative_to(tree))
        room = room_of(name, rooms)
        if path.suffix not in (".h", ".cpp") or path.parent == pathlib.Path(tree):
            continue
        if room is None:
            faults.append(f"{path}: in no room")
            continue
        for header in includes(path):
            if header.startswith(PUBLIC):
                continue
            other = room_of(header, rooms)
            if other is None or rooms.index(other) > rooms.index(room):
                faults.append(f"{path}: includes {header}, which is not below it")
                continue
            graph.setdefault(name, []).append(header)
            if other != room:
                arrows.setdefault(room, set()).add(other)
    if circle := find_circle(graph):
        faults.append(f"{tree}: a circle of includes: " + " -> ".join(circle))
    for room in rooms:
        print(f"{tree}/{room}" + (" -> " + ", ".join(sorted(arrows[room], key=rooms.index)) if room in arrows else ""))
    return faults


faults = [fault for tree, rooms in TREES.items() for fault in check(tree, rooms)]
print("\n".join(faults), file=sys.stderr, end="\n" if faults else "")
sys.exit(1 if faults else 0)
