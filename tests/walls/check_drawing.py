#!/usr/bin/env python3
"""check_drawing.py ROOT LAYERS: the drawing of the house has the rooms and the arrows of the tree, no
more and no fewer. An arrow that follows from others is left out of it."""

import fnmatch
import sys

import house

PACKAGE = ("model", "view", "preferences", "plugin")
MARKETS = ("market", "feed", "feed/*")
# What no new arrow may ever bring about: rooms, and those that they never reach.
NEVER = [
    (("terminal/*",), PACKAGE),
    (PACKAGE, ("terminal/*", *MARKETS)),
    (("text", "data", "host", "model", *MARKETS), (house.QT,)),
]


def matching(rooms, patterns):
    return sorted(room for room in rooms if any(fnmatch.fnmatch(room, p) for p in patterns))


def check(root, layers):
    """What is wrong, a sentence each."""
    rooms = house.rooms_of_tree(root)
    drawn_rooms, drawn, _ = house.read_drawing(root)
    arrows = house.arrows_of_tree(root, rooms)
    reached = house.reached(arrows)
    yield from (f"{room} has no target." for room in sorted(rooms - set(layers)))
    yield from (f"{room} is not drawn." for room in sorted(rooms - drawn_rooms))
    yield from (f"{room} is drawn, but there is no such folder."
                for room in sorted(drawn_rooms - rooms - {house.QT}))
    back = sorted(room for room in reached if room in reached[room])
    yield from (f"{room} includes itself by way of others." for room in back)
    for froms, tos in NEVER:
        yield from (f"{room} must never see {to}." for room in matching(reached, froms)
                    for to in matching(reached[room], tos))
    if not back:
        needed = house.without_detours(arrows)
        yield from (f"The arrow from {room} to {to} is missing."
                    for room, to in sorted(needed - drawn))
        yield from (f"The arrow from {room} to {to} is one too many."
                    for room, to in sorted(drawn - needed))


def main():
    problems = list(check(sys.argv[1], house.read_layers(sys.argv[2])))
    if problems:
        print(f"{house.DRAWING} or the tree is wrong:", *problems, sep="\n")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
