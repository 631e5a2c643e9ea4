#!/usr/bin/env python3
"""Tests of the terminal in a real window. What the user does there is read from the store of what
the terminal keeps.

    terminal_test.py TERMINAL

Needs Xvfb and xdotool.
"""

import contextlib
import os
import pathlib
import sqlite3
import subprocess
import sys
import tempfile
import time
import unittest

TERMINAL = os.path.abspath(sys.argv.pop(1))
SCREEN = "1400x900x24"
WAIT_SECONDS = 30
CAPTION = (200, 85)  # of the view, and a place in its grid
GRID = (300, 200)
CAPTIONS = "QuorPrcBtnCaption"


class DesktopTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        display = subprocess.Popen(
            ["Xvfb", "-displayfd", "1", "-screen", "0", SCREEN, "-nolisten", "tcp"],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, encoding="utf-8")
        self.addCleanup(self.end, display)
        number = display.stdout.readline().strip()
        self.store = pathlib.Path(folder.name) / "quorterminal" / "state.sqlite"
        self.environment = dict(os.environ, DISPLAY=f":{number}", QT_QPA_PLATFORM="xcb",
                                XDG_DATA_HOME=folder.name, XDG_RUNTIME_DIR=folder.name)
        self.terminal = None
        self.start()

    @staticmethod
    def end(process):
        process.kill()
        process.communicate()

    def start(self):
        """Starts the terminal and waits until it has kept its first layout."""
        self.terminal = subprocess.Popen(
            [TERMINAL, "--symbol", "700", "--start", "10:30:00", "--seed", "1"],
            env=self.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(self.end, self.terminal)
        self.xdo("search", "--sync", "--onlyvisible", "--name", "QuorPrice")
        self.wait(lambda: self.layouts() and "Symbol=700" in self.layouts()[0])
        self.click(*CAPTION)  # nobody but a click activates a window here

    def xdo(self, *arguments):
        subprocess.run(["xdotool", *(str(argument) for argument in arguments)],
                       env=self.environment, stdout=subprocess.DEVNULL, check=True,
                       timeout=WAIT_SECONDS)

    def keys(self, *names):
        for name in names:
            self.xdo("key", name)
            time.sleep(0.3)

    def click(self, x, y, button=1):
        self.xdo("mousemove", x, y, "click", button)
        time.sleep(0.5)

    def ask(self, statement, *values):
        if not self.store.exists():
            return []
        with contextlib.closing(sqlite3.connect(f"file:{self.store}?mode=ro", uri=True)) as store:
            try:
                return [row[0] for row in store.execute(statement, values)]
            except sqlite3.OperationalError:  # it is being made
                return []

    def layouts(self):
        return self.ask("select layout from views order by position")

    def kept(self, section, key):
        return self.ask("select value from config where section = ? and name = ?", section, key)

    def wait(self, condition):
        end = time.monotonic() + WAIT_SECONDS
        while not condition():
            self.assertLess(time.monotonic(), end, self.layouts())
            time.sleep(0.1)

    def kill(self):
        self.terminal.kill()
        self.terminal.wait()


class LayoutTest(DesktopTest):
    def test_broker_names_chosen_from_the_menu_survive_a_kill(self):
        self.click(*GRID, button=3)
        self.keys("Up", "Return")
        time.sleep(1)
        self.kill()
        self.assertIn("ShowBrokerName=-1", self.layouts()[0])


class PreferencesTest(DesktopTest):
    def open_page(self):
        """Leaves the keyboard in the first caption."""
        self.keys("ctrl+comma", "Down", "Tab")

    def test_quantity_buttons_are_there_and_their_captions_can_be_changed(self):
        self.assertIn("QtyButtonState=0", self.layouts()[0])
        self.open_page()
        self.xdo("type", "2,500")
        self.keys("Tab", "BackSpace", "alt+o")
        self.wait(lambda: self.kept(CAPTIONS, "Btn1") == ["2,500"])
        self.assertEqual(self.kept(CAPTIONS, "Btn2"), [""])
        self.kill()
        self.start()
        self.open_page()
        self.keys("Tab")
        self.xdo("type", "7K")
        self.keys("alt+o")
        self.wait(lambda: self.kept(CAPTIONS, "Btn2") == ["7K"])
        self.assertEqual(self.kept(CAPTIONS, "Btn1"), ["2,500"])

    def test_a_key_leads_from_the_symbol_list_into_the_view(self):
        self.keys("ctrl+g", "3")  # in a group it does not follow the symbol list
        self.wait(lambda: self.ask("select linking from views") == ["3"])
        self.keys("ctrl+k", "ctrl+l")
        self.xdo("type", "18")
        self.keys("Return")
        self.wait(lambda: "Symbol=18," in self.layouts()[0])
        self.open_page()
        self.keys(*["Tab"] * 12, "F9", "alt+o")
        self.wait(lambda: self.kept("Shortcuts", "Res_ActiveQuorPrice") == ["F9"])
        self.click(*CAPTION)
        self.keys("ctrl+k", "F9")
        self.xdo("type", "700")
        self.keys("Return")
        self.wait(lambda: "Symbol=700," in self.layouts()[0])


if __name__ == "__main__":
    unittest.main()
