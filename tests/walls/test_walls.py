#!/usr/bin/env python3
"""test_walls.py COMPILER: the checks find what they are there for, in a small tree of three folders
of which `top` includes `middle`, and `middle` includes `ground`."""

import contextlib
import io
import pathlib
import sys
import tempfile
import unittest

import check_drawing
import check_headers
import check_walls
import house

COMPILER = sys.argv.pop()

DRAWING = '''```mermaid
flowchart TD
  t["top"]
  m["middle"]
  g["ground"]
  t --> m --> g
```
'''


class TestWalls(unittest.TestCase):
    def setUp(self):
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        self.root = pathlib.Path(place.name)
        self.write("ground/Ground.h", "#include <string>\ninline std::string Name;\n")
        self.write("middle/Middle.h", '#include "ground/Ground.h"\n')
        self.write("top/Top.h", '#include "middle/Middle.h"\n#include "ground/Ground.h"\n')
        self.write(house.DRAWING, DRAWING)
        self.layers = {}
        self.link("ground", "ground")
        self.link("middle", "middle", "ground")
        self.link("top", "top", "middle", "ground")

    def write(self, name, text):
        file = self.root / name
        file.parent.mkdir(exist_ok=True)
        once = "#pragma once\n" if file.suffix == ".h" else ""
        file.write_text(once + text, encoding="utf-8")

    def link(self, folder, *seen):
        """Gives `folder` the include roots of those that it is linked to."""
        roots = [self.root / "build" / "layers" / name for name in seen]
        for name, root in zip(seen, roots):
            root.mkdir(parents=True, exist_ok=True)
            if not (root / name).exists():
                (root / name).symlink_to(self.root / name)
        self.layers[folder] = house.Layer(f"{folder}|{';'.join(map(str, roots))}|")

    def drawing(self):
        return list(check_drawing.check(self.root, self.layers))

    def wall(self, folder):
        return "\n".join(check_walls.check(self.root, self.layers, COMPILER, folder))

    def headers(self, remembered=()):
        with contextlib.redirect_stdout(io.StringIO()) as said:
            messages = check_headers.check(self.root, self.layers, COMPILER, remembered)
        return messages, said.getvalue()

    def test_the_tree_as_drawn_passes(self):
        self.assertEqual(self.drawing(), [])
        self.assertEqual([self.wall(folder) for folder in self.layers], ["", "", ""])

    def test_an_arrow_that_is_not_drawn(self):
        self.write(house.DRAWING, DRAWING.replace("t --> m --> g", "m --> g"))
        self.assertEqual(self.drawing(), ["The arrow from top to middle is missing."])

    def test_an_arrow_without_an_include(self):
        self.write("middle/Middle.h", "")
        self.assertEqual(self.drawing(), ["The arrow from top to ground is missing.",
                                          "The arrow from middle to ground is one too many."])

    def test_an_arrow_that_follows_from_others(self):
        self.write(house.DRAWING, DRAWING.replace("t --> m", "t --> g\n  t --> m"))
        self.assertEqual(self.drawing(), ["The arrow from top to ground is one too many."])

    def test_an_arrow_back_up(self):
        self.write("ground/Back.cpp", '#include "top/Top.h"\n')
        self.assertEqual(self.drawing(),
                         [f"{room} includes itself by way of others."
                          for room in ("ground", "middle", "top")])

    def test_a_folder_without_target_and_drawing(self):
        self.write("loft/Loft.cpp", "")
        self.assertEqual(self.drawing(), ["loft has no target.", "loft is not drawn."])

    def test_rooms_that_may_never_meet(self):
        self.write("model/Model.h", "#include <QString>\n")
        self.assertIn("model must never see Qt.", self.drawing())

    def test_a_link_that_is_not_drawn(self):
        self.link("ground", "ground", "top")
        self.assertIn("ground should not see top, but finds top/Top.h.", self.wall("ground"))

    def test_a_link_that_is_missing(self):
        self.link("top", "top", "middle")
        self.assertIn("top should see ground, middle, but:", self.wall("top"))

    def test_headers_that_stand_alone_are_remembered(self):
        messages, said = self.headers()
        self.assertEqual(set(messages.values()), {""})
        self.assertIn("3 of them anew", said)
        self.assertIn("0 of them anew", self.headers(messages)[1])
        self.write("middle/Middle.h", '#include "ground/Ground.h"\ninline int Changed;\n')
        self.assertIn("2 of them anew", self.headers(messages)[1])

    def test_headers_that_bring_one_another_are_checked_together(self):
        self.write("ground/More.h", '#include "ground/Ground.h"\n')
        self.assertIn("4 headers in 3 chains", self.headers()[1])
        self.write("ground/Ground.h", "inline std::string Name;\n")
        self.assertIn("ground/Ground.h", "".join(self.headers()[0].values()))

    def test_a_header_that_needs_another_before_it(self):
        self.write("middle/Middle.h", "inline std::string Other;\n")
        self.assertIn("middle/Middle.h", "".join(self.headers()[0].values()))


if __name__ == "__main__":
    unittest.main()
