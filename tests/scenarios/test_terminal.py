#!/usr/bin/env python3
"""Tests of the terminal as a program: exit statuses, pipes, and running without a display.

    test_terminal.py TERMINAL
"""

import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

TERMINAL = os.path.abspath(sys.argv.pop(1))
PNG = b"\x89PNG\r\n\x1a\n"


def run(*arguments, script=None, folder=None):
    """Runs the terminal where there is no display."""
    environment = {name: value for name, value in os.environ.items()
                   if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
    return subprocess.run([TERMINAL, *arguments], env=environment, input=script, cwd=folder,
                          capture_output=True, encoding="utf-8", timeout=60, check=False)


class StatusTest(unittest.TestCase):
    def test_script_that_is_all_ok(self):
        result = run("--script", "-", script='# nothing\n\n{"do":"open"}\n')
        self.assertEqual((result.returncode, result.stdout), (0, '{"ok":true,"view":1}\n'))

    def test_script_with_a_refusal_goes_on_and_fails(self):
        result = run("--script", "-", script='{"do":"fly"}\n{"do":"open"}\n')
        answers = [json.loads(line) for line in result.stdout.splitlines()]
        self.assertEqual(result.returncode, 1)
        self.assertEqual([answer["ok"] for answer in answers], [False, True])

    def test_script_that_cannot_be_read(self):
        for name in ("/nowhere/script.jsonl", "/tmp"):
            result = run("--script", name)
            self.assertEqual((result.returncode, result.stdout), (2, ""))
            self.assertEqual(result.stderr, f"The script {name} cannot be read.\n")

    def test_standard_input_that_cannot_be_read(self):
        for redirection in ("<&-", "< /tmp"):
            result = subprocess.run(f'"{TERMINAL}" --script - {redirection}', shell=True,
                                    capture_output=True, encoding="utf-8", timeout=60, check=False)
            self.assertEqual((result.returncode, result.stdout), (2, ""), redirection)
            self.assertEqual(result.stderr, "The script - cannot be read.\n")

    def test_typed_control_characters_do_no_harm(self):
        result = run("--script", "-", script='{"do":"record","symbol":"7"}\n{"do":"open"}\n'
                     '{"do":"type","view":1,"text":"7\\n\\u0001"}\n')
        self.assertEqual(result.returncode, 0)
        self.assertEqual(len(result.stdout.splitlines()), 3)

    def test_unknown_option(self):
        result = run("--fly")
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertEqual(len(result.stderr.splitlines()), 1)

    def test_package_that_is_none(self):
        result = run("--package", "/nowhere/price.so", "--script", "-", script='{"do":"open"}\n')
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertEqual(result.stderr, "There is no package /nowhere/price.so.\n")


class PipeTest(unittest.TestCase):
    def test_each_answer_comes_before_the_next_line_is_read(self):
        with subprocess.Popen([TERMINAL, "--script", "-"], stdin=subprocess.PIPE,
                              stdout=subprocess.PIPE, encoding="utf-8", bufsize=1) as terminal:
            for number in (1, 2, 3):
                terminal.stdin.write('{"do":"open"}\n')
                terminal.stdin.flush()
                self.assertEqual(json.loads(terminal.stdout.readline()),
                                 {"ok": True, "view": number})
            terminal.stdin.close()
            self.assertEqual(terminal.wait(timeout=30), 0)


class DisplayTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def test_without_a_display_the_view_is_a_table_and_a_picture(self):
        result = run("--seconds", "1", folder=self.folder)
        self.assertEqual(result.returncode, 0)
        self.assertEqual(result.stderr,
                         "There is no display, so the terminal runs without windows.\n")
        lines = result.stdout.splitlines()
        self.assertIn("SIMULATED", lines[0])
        self.assertTrue(any("Nominal" in line for line in lines))
        picture = self.folder / "quorterminal.png"
        self.assertEqual(lines[-1], f"Picture of the view: {picture.resolve()}")
        self.assertEqual(picture.read_bytes()[:8], PNG)
        self.assertNotIn("\x1b", result.stdout)

    def test_snapshot_shows_the_recording_that_was_asked_for(self):
        recording = self.folder / "market.jsonl"
        recording.write_text('{"t":"09:30:00","s":"ABC","f":{"1":"5","3":"5"}}\n')
        picture = self.folder / "view.png"
        result = run("--replay", str(recording), "--snapshot", str(picture))
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))
        self.assertEqual(picture.read_bytes()[:8], PNG)

    def test_record_writes_a_market_that_can_be_played(self):
        recording = self.folder / "day.jsonl"
        result = run("--record", str(recording), "--start", "09:30:00", "--seconds", "2")
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))
        header, first = map(json.loads, recording.read_text(encoding="utf-8").splitlines()[:2])
        self.assertTrue(header["simulated"])
        self.assertEqual(first["t"], "09:30:00.000000")
        result = run("--replay", str(recording), "--seconds", "1", folder=self.folder)
        self.assertEqual(result.returncode, 0)
        self.assertIn("SIMULATED", result.stdout.splitlines()[0])

    def test_record_writes_the_recording_that_was_asked_for(self):
        lines = ['{"t":"09:30:00.000000","s":"ABC","f":{"1":"5"}}\n',
                 '{"t":"09:30:01.000000","s":"ABC","f":{"1":"6"}}\n',
                 '{"t":"09:30:01.500000","s":"ABC","f":{"1":"7"}}\n']
        recording, copy = self.folder / "market.jsonl", self.folder / "copy.jsonl"
        recording.write_text("".join(lines), encoding="utf-8")
        result = run("--replay", str(recording), "--record", str(copy), "--seconds", "1")
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))
        self.assertEqual(copy.read_text(encoding="utf-8").splitlines(True)[1:], lines[:2])
        result = run("--replay", "/nowhere.jsonl", "--record", str(copy))
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertEqual(result.stderr, "/nowhere.jsonl: The file does not exist.\n")

    def test_recording_that_is_not_there(self):
        result = run("--replay", "/nowhere.jsonl", "--snapshot", str(self.folder / "view.png"))
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertEqual(result.stderr, "/nowhere.jsonl: The file does not exist.\n")


if __name__ == "__main__":
    unittest.main()
