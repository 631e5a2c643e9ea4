"""The house as it is built: its rooms are the folders, and an arrow leads from a room to one whose
headers it includes. Qt counts as a room too."""

import pathlib
import re

QT = "Qt"
DRAWING = "docs/architecture.md"
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*[<"]([^>"]+)[>"]', re.MULTILINE)


class Layer:
    """What the sources of a folder are compiled with."""

    def __init__(self, line):
        self.folder, includes, definitions = line.split("|")
        # The compiler looks through /usr/include anyway, and minds the order.
        self.includes = [pathlib.Path(include) for include in dict.fromkeys(includes.split(";"))
                         if include not in ("", "/usr/include")]
        self.flags = [("-I" if include.parent.name == "layers" else "-isystem") + str(include)
                      for include in self.includes]
        self.flags += [f"-D{definition}" for definition in definitions.split(";") if definition]
        self.flags += ["-std=c++20", "-fPIC"]


def read_layers(file):
    """The layers by folder, each below those that are linked to it."""
    layers = map(Layer, pathlib.Path(file).read_text().splitlines())
    return {layer.folder: layer for layer in layers}


def headers(root, folder):
    return sorted(f"{folder}/{file.name}" for file in pathlib.Path(root, folder).glob("*.h"))


def included_by(file):
    return INCLUDE.findall(file.read_text(encoding="utf-8", errors="replace"))


def rooms_of_tree(root):
    """Every folder with headers or sources of the product."""
    skipped = ("build", "tests", "bench")
    files = [file for top in pathlib.Path(root).iterdir()
             if top.is_dir() and not top.name.startswith((".",) + skipped)
             for file in top.rglob("*") if file.suffix in (".h", ".cpp")]
    return {file.parent.relative_to(root).as_posix() for file in files}


def arrows_of_tree(root, rooms):
    """All includes of one room by another."""
    arrows = set()
    for room in rooms:
        for file in pathlib.Path(root, room).iterdir():
            if file.suffix in (".h", ".cpp"):
                for name in included_by(file):
                    to = QT if re.match(r"Q\w+(/\w+)?$", name) else name.rpartition("/")[0]
                    if to == QT or to in rooms and to != room:
                        arrows.add((room, to))
    return arrows


def reached(arrows):
    """By room, all the rooms that its arrows lead to, directly or through others."""
    direct = {}
    for room, to in arrows:
        direct.setdefault(room, set()).add(to)
        direct.setdefault(to, set())
    result = {}
    for room in direct:
        seen, waiting = set(), list(direct[room])
        while waiting:
            to = waiting.pop()
            if to not in seen:
                seen.add(to)
                waiting += direct[to]
        result[room] = seen
    return result


def without_detours(arrows):
    """The arrows that do not follow from others, for arrows that never lead back."""
    result = set()
    for room, to in arrows:
        others = reached(arrows - {(room, to)})
        if to not in others.get(room, ()):
            result.add((room, to))
    return result


def seen_from(folder, arrows, dotted):
    """What `folder` sees: all that it reaches, but for what lies behind a dotted arrow of others."""
    solid = reached(arrows - dotted)
    direct = {to for room, to in arrows if room == folder}
    return direct.union(*(solid.get(to, ()) for to in direct))


def read_drawing(root):
    """Rooms, arrows and those of them that are dotted, of the graph in the page, by the names that
    stand in its boxes."""
    text = pathlib.Path(root, DRAWING).read_text(encoding="utf-8")
    graph = re.search(r"```mermaid\n(.*?)```", text, re.DOTALL)[1]
    names = dict(re.findall(r'^ *(\w+)[(\[]+"([^"<]+)', graph, re.MULTILINE))
    arrows, dotted = set(), set()
    for line in graph.splitlines():
        arrow = "-.->" if "-.->" in line else "-->"
        if arrow in line:
            steps = [step.split("&") for step in line.split(arrow)]
            for froms, tos in zip(steps, steps[1:]):
                arrows |= {(names[a.strip()], names[b.strip()]) for a in froms for b in tos}
                if arrow == "-.->":
                    dotted |= {(names[a.strip()], names[b.strip()]) for a in froms for b in tos}
    return set(names.values()), arrows, dotted
