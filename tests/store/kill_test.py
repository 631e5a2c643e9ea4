#!/usr/bin/env python3
"""What the terminal keeps when it is killed at any moment, when two of them run at once, and when
the file of its layouts and settings is no good.

    kill_test.py TERMINAL RESTLESS_PACKAGE STORE_WRITER [--kills N]

With --kills, each of the two kill tests kills N times instead of a few, and says what it saw.
"""

import os
import pathlib
import queue
import random
import shutil
import signal
import sqlite3
import subprocess
import sys
import tempfile
import threading
import time
import unittest

KILLS = int(sys.argv[sys.argv.index("--kills") + 1]) if "--kills" in sys.argv else 0
TERMINAL, PACKAGE, WRITER = (os.path.abspath(name) for name in sys.argv[1:4])
START_SECONDS = 60


class Process:
    """A program whose lines on standard output are collected as they come."""

    def __init__(self, *command, home):
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", HOME=str(home),
                           XDG_DATA_HOME=str(home), XDG_RUNTIME_DIR=str(home))
        self.lines = []
        self._new = queue.Queue()
        self._process = subprocess.Popen(command, env=environment, stdout=subprocess.PIPE,
                                         stderr=subprocess.PIPE, encoding="utf-8")
        self._errors = []
        self._threads = [threading.Thread(target=self._read),
                         threading.Thread(target=self._read_errors)]
        for thread in self._threads:
            thread.start()

    def _read(self):
        for line in self._process.stdout:
            if line.endswith("\n"):  # a kill may cut the last one
                self.lines.append(line.split())
                self._new.put(line.split()[0])

    def _read_errors(self):
        # The platform without a display says what it cannot do.
        self._errors.extend(line for line in self._process.stderr
                            if not line.startswith("This plugin does not support"))

    def wait_for(self, word):
        end = time.monotonic() + START_SECONDS
        while time.monotonic() < end:
            try:
                if self._new.get(timeout=0.1) == word:
                    return
            except queue.Empty:
                if self._process.poll() is not None:
                    break
        raise AssertionError(f"no {word}: {self.lines[-5:]} {self._errors}")

    def end(self):
        self._process.kill()
        self._process.wait()
        for thread in self._threads:
            thread.join()
        self._process.stdout.close()
        self._process.stderr.close()

    def kill(self):
        """Ends the process and gives what it said on standard error. It must still have been
        running."""
        self.end()
        if self._process.returncode != -signal.SIGKILL:
            raise AssertionError(f"ended with {self._process.returncode}: {self._errors}")
        return self._errors

    def last(self, word):
        """The number that the last line of that word says; 0 when there is none."""
        return next((int(line[1]) for line in reversed(self.lines) if line[0] == word), 0)

    def all(self, word):
        return [int(line[1]) for line in self.lines if line[0] == word]


class StoreTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.store = self.folder / "quorterminal" / "state.sqlite"

    def ask(self, *statements):
        """The answers of a copy of the store: what a kill left is not touched by looking at it."""
        with tempfile.TemporaryDirectory() as folder:
            copy = pathlib.Path(folder) / self.store.name
            for part in ("", "-wal"):
                if pathlib.Path(f"{self.store}{part}").exists():
                    shutil.copy(f"{self.store}{part}", f"{copy}{part}")
            database = sqlite3.connect(copy)
            try:
                self.assertEqual(database.execute("pragma integrity_check").fetchall(), [("ok",)])
                tables = database.execute("select name from sqlite_schema where type = 'table'")
                if not tables.fetchall():
                    return [[] for _ in statements]
                return [database.execute(statement).fetchall() for statement in statements]
            finally:
                database.close()

    def start(self, *command):
        process = Process(*command, home=self.folder)
        self.addCleanup(process.end)
        return process

    def terminal(self):
        return self.start(TERMINAL, "--package", PACKAGE)

    def one(self, values, what):
        """The one value that all are; 0 when there are none."""
        values = set(values)
        self.assertLessEqual(len(values), 1, what)
        return values.pop() if values else 0


class KillTest(StoreTest):
    def test_writer_loses_nothing_that_it_reported(self):
        kills = KILLS or 12
        settings = layout = stored = 0
        for kill in range(kills):
            writer = self.start(WRITER, str(self.store))
            writer.wait_for("found")
            self.assertEqual([int(number) for number in writer.lines[0][1:3]], [settings, layout])
            self.assertEqual(int(writer.lines[0][3]), 1 + layout % 7 if layout else 0)
            time.sleep(random.uniform(0, 0.2))
            writer.kill()
            values, views, windows = self.ask(
                "select value from config", "select layout from views",
                "select geometry, docks from windows")
            self.assertIn(len(values), (0, 3))
            settings = int(self.one((value for value, in values), "settings"))
            self.assertGreaterEqual(settings, writer.last("settings"), kill)
            layout = int(self.one((view for view, in views), "views"))
            self.assertGreaterEqual(layout, writer.last("layout"), kill)
            self.assertEqual(windows,
                             [(str(layout).encode(), str(layout).encode())] if layout else [])
            stored += len(writer.all("layout"))
        self.assertGreater(layout, kills)
        if KILLS:
            print(f"writer: {kills} kills, {stored} saves reported, none lost, none in parts")

    def test_terminal_comes_up_with_its_last_complete_state(self):
        kills = KILLS or 4
        starts = early = 0
        ages, counts = [], set()
        views, setting = [], 0
        for kill in range(kills + 1):
            terminal = self.terminal()
            if kill < kills and kill % 5 == 4:  # while it starts
                time.sleep(random.uniform(0, 0.8))
                early += not any(line[0] == "ready" for line in terminal.lines)
            else:
                terminal.wait_for("ready")
                starts += 1
                time.sleep(random.uniform(0, 1.5))
            seen = self.look() if kill % 2 else 0
            self.assertEqual(terminal.kill(), [])
            if any(line[0] == "ready" for line in terminal.lines):
                self.check_restored(terminal, views, setting)
            views, setting = self.stored()
            self.assertGreaterEqual(setting, terminal.last("stored"), kill)
            if views:
                self.assertGreaterEqual(views[0], seen, kill)
                counts.add(len(views))
                ages.append(max(setting, terminal.last("stored")) - views[0])
        self.assertGreater(len(counts), 1 if KILLS else 0)
        if KILLS:
            print(f"terminal: {kills} kills, {early} of them while it started, {starts} starts "
                  f"looked at; last generation {setting}; the layouts were at most {max(ages)} "
                  f"generations of 7 ms behind the settings; numbers of views {sorted(counts)}")

    def look(self):
        """The generation of the layouts that another process reads now."""
        try:
            database = sqlite3.connect(f"file:{self.store}?mode=ro", uri=True, timeout=5)
            try:
                rows = database.execute("select layout from views").fetchall()
            finally:
                database.close()
        except sqlite3.OperationalError:
            return 0  # there is none yet
        return self.one((generation_of(row) for row, in rows), "views read")

    def stored(self):
        """The generations of all views, and of the settings."""
        views, windows, settings = self.ask(
            "select layout from views order by position", "select geometry, docks from windows",
            "select value from config where section = 'Restless'")
        generations = [generation_of(layout) for layout, in views]
        self.one(generations, "views")
        self.assertEqual(len(windows), 1 if views else 0)
        return generations, int(settings[0][0]) if settings else 0

    def check_restored(self, terminal, views, setting):
        """The start shows what the kill before it left."""
        ready = [line[0] for line in terminal.lines].index("ready")
        restored = [int(line[1]) for line in terminal.lines[:ready] if line[0] == "view"]
        self.assertEqual(restored, views or [0])
        self.assertEqual(terminal.lines[ready - 1], ["setting", str(setting)])
        self.assertEqual(terminal.lines[ready], ["ready", str(len(restored))])


def generation_of(layout):
    """What is not of the restless package is what a view opens with first: no generation."""
    return int(layout.partition("Generation=")[2] or 0)


class StartTest(StoreTest):
    def start_and_kill(self):
        terminal = self.terminal()
        terminal.wait_for("ready")
        return terminal, terminal.kill()

    def set_aside(self, reason):
        names = [name for name in self.store.parent.iterdir()
                 if name.name.startswith(f"state.sqlite.{reason}-")
                 and not name.name.endswith(("-wal", "-shm"))]
        self.assertEqual(len(names), 1)
        return names[0]

    def test_damaged_store_is_set_aside(self):
        self.store.parent.mkdir()
        self.store.write_bytes(b"no database " * 1000)
        terminal, errors = self.start_and_kill()
        aside = self.set_aside("damaged")
        self.assertEqual(errors, [
            f"The layouts and settings in {self.store} are damaged; the file is kept as {aside} "
            "and the terminal starts with its defaults.\n"])
        self.assertEqual(aside.read_bytes(), b"no database " * 1000)
        self.assertEqual(terminal.all("ready"), [1])
        self.assertEqual(self.start_and_kill()[1], [])

    def test_newer_store_is_set_aside(self):
        self.store.parent.mkdir()
        database = sqlite3.connect(self.store)
        database.executescript("pragma user_version = 7; create table later (what text);")
        database.close()
        errors = self.start_and_kill()[1]
        aside = self.set_aside("newer")
        self.assertEqual(errors, [
            f"{self.store} was written by a newer version; it is kept as {aside} and the terminal "
            "starts with its defaults.\n"])
        self.assertEqual(sqlite3.connect(aside).execute("select * from later").fetchall(), [])

    def test_second_terminal_says_that_the_store_is_in_use(self):
        first = self.terminal()
        first.wait_for("stored")
        second = self.terminal()
        second.wait_for("stored")
        self.assertEqual(second.kill(), [
            f"{self.store} is in use by another terminal, so this one works with the settings "
            "stored there and keeps no changes.\n"])
        self.assertEqual(first.kill(), [])
        setting = self.ask("select value from config where section = 'Restless'")[0][0][0]
        # The kill may have come between the storing of a setting and the word of it.
        self.assertIn(int(setting), (first.last("stored"), first.last("stored") + 5))
        self.assertEqual(self.start_and_kill()[1], [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
