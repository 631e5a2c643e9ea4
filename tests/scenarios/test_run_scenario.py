#!/usr/bin/env python3
"""Tests of the scenario runner: it notices every kind of difference."""

import json
import pathlib
import tempfile
import unittest

import run_scenario

DUMP = {
    "ok": True,
    "caption": "Price - 700",
    "grids": {"PriceGrid": {"cells": [
        {"row": 1, "col": 2, "text": "318.4", "color": "#ffffff", "fill": "#000000",
         "bold": True, "align": "right", "drawnBy": "frame"},
        {"row": 0, "col": 1, "text": " ", "color": "#ffffff", "fill": "#000000",
         "bold": False, "align": "left", "drawnBy": "grid"}]}},
}


def terminal_that_answers(folder, answers, status=0):
    """A program that answers like a terminal."""
    program = pathlib.Path(folder) / "terminal"
    text = "\n".join(json.dumps(answer) for answer in answers)
    program.write_text(f"#!/bin/sh\ncat <<'END'\n{text}\nEND\nexit {status}\n")
    program.chmod(0o755)
    return str(program)


class RunnerTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.scenario = pathlib.Path(self.folder) / "one.jsonl"
        self.scenario.write_text('# show: caption\n{"do":"dump","view":1}\n{"do":"tick","ms":1}\n')

    def run_with(self, answers, status=0, *options):
        terminal = terminal_that_answers(self.folder, answers, status)
        return run_scenario.main([terminal, str(self.scenario), *options])

    def test_same_answers_pass_and_other_answers_fail(self):
        self.assertEqual(self.run_with([DUMP, {"ok": True}], 0, "--rebaseline"), 0)
        self.assertEqual(self.run_with([DUMP, {"ok": True}]), 0)
        self.assertEqual(self.run_with([dict(DUMP, caption="Price"), {"ok": True}]), 1)
        self.assertEqual(self.run_with([DUMP]), 1)

    def test_refusal_and_status_are_compared(self):
        self.run_with([DUMP, {"ok": True}], 0, "--rebaseline")
        self.assertEqual(self.run_with([DUMP, {"ok": False, "error": "No."}], 1), 1)
        self.assertEqual(self.run_with([DUMP, {"ok": True}], 1), 1)

    def test_missing_expectation_fails(self):
        self.assertEqual(self.run_with([DUMP, {"ok": True}]), 1)

    def test_dump_that_does_not_say_what_it_shows_is_refused(self):
        self.scenario.write_text('{"do":"dump","view":1}\n')
        with self.assertRaises(run_scenario.ScenarioError):
            self.run_with([DUMP])


class RenderTest(unittest.TestCase):
    def test_texts_are_a_line_a_row(self):
        self.assertEqual(run_scenario.value_at(DUMP, "grids.PriceGrid.texts"),
                         [" 0: ", " 1: 2=318.4"])

    def test_cells_tell_their_painting(self):
        self.assertEqual(run_scenario.value_at(DUMP, "grids.PriceGrid.cells")[0],
                         "1,2 '318.4' #ffffff on #000000 bold right by frame")

    def test_row_tells_its_cells_only(self):
        self.assertEqual(run_scenario.value_at(DUMP, "grids.PriceGrid.row0"),
                         ["0,1 ' ' #ffffff on #000000 left by grid"])

    def test_absent_member_is_told(self):
        self.assertEqual(run_scenario.value_at(DUMP, "components.lblDelay"), "(absent)")


if __name__ == "__main__":
    unittest.main()
