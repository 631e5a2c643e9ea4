#!/usr/bin/env python3
"""Makes the pictures of the documentation anew, all but those of docs/market.

    make_pictures.py [--terminal FILE] [--out FOLDER] [--sheet] [--tour] [--windows]

Takes the terminal of the development build unless told, and makes all three kinds of pictures
unless told which. Needs ImageMagick's convert and montage; pictures of windows need Xvfb and
ImageMagick's import too, and are left out without them.
"""

import argparse
import contextlib
import itertools
import json
import os
import pathlib
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import time

HERE = pathlib.Path(__file__).resolve().parent
BUILT = HERE.parent.parent / "build" / "dev" / "bin" / "quorterminal"
SETTINGS = "TARN_TRADEPLATFORM"
SEED = "972"
LANGUAGES = {1: "Traditional Chinese", 2: "Simplified Chinese", 3: "English"}
SKINS = ["Dark", "Light"]
SCALES = [100, 125, 150]
SHEET_WIDTH = 2000
SHEET_COLOUR = "#9aa0aa"
FULL_SIZE = {(1, "Light", 150): "price-view-zh-light-150.png",
             (2, "Dark", 125): "price-view-cn-dark-125.png"}
WINDOW = "1600x1000"
WINDOW_SECONDS = 30
RECENT_TRADES = 5
SETTLE_MS = 400


def run(*command, **options):
    return subprocess.run([str(part) for part in command], check=True, **options)


def shrink(source, target, *operations):
    """A picture of few colours in an indexed file, which is a third as large."""
    run("convert", source, *operations, "-dither", "None", "-colors", 128, "-strip",
        f"PNG8:{target}")


# What the terminal keeps and where it runs.


class Home:
    """An own store of settings, so that no picture depends on the user's."""

    def __init__(self, terminal, folder):
        self.terminal = terminal
        self.folder = folder

    def environment(self, platform="offscreen", **more):
        own = str(self.folder)
        return {**os.environ, "XDG_DATA_HOME": own, "XDG_RUNTIME_DIR": own,
                "QT_QPA_PLATFORM": platform, **more}

    def run(self, *options):
        run(self.terminal, *options, env=self.environment())

    def snapshot(self, file):
        self.run("--snapshot", file, "--symbol", "700", "--start", "10:30:00", "--seed", SEED,
                 "--seconds", "3")

    def make_store(self, scratch):
        self.snapshot(scratch / "first.png")
        return next(self.folder.rglob("state.sqlite"))

    def set(self, store, values):
        with contextlib.closing(sqlite3.connect(store)) as connection, connection:
            for name, value in values.items():
                connection.execute("replace into config values (?, ?, ?)",
                                   (SETTINGS, name, str(value)))


def new_home(terminal, scratch, name):
    folder = scratch / name
    folder.mkdir(mode=0o700)
    return Home(terminal, folder)


@contextlib.contextmanager
def display():
    """An own display of a window's size, white where it is empty, as DISPLAY names it."""
    server = subprocess.Popen(
        ["Xvfb", "-displayfd", "1", "-screen", "0", f"{WINDOW}x24", "-wr", "-nolisten", "tcp"],
        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    try:
        yield ":" + server.stdout.readline().strip()
    finally:
        server.terminate()
        server.wait()


def has_display():
    missing = [name for name in ("Xvfb", "import") if not shutil.which(name)]
    if missing:
        print(f"Pictures of windows are left out: {' and '.join(missing)} missing.",
              file=sys.stderr)
    return not missing


# The market that the pictures show: a moment of a recording, as a script's world.


class Moment:
    """The records, recent trades and reference data of a recording up to a moment."""

    def __init__(self, recording, moment):
        self.records = {}
        self.trades = {}
        with open(recording, encoding="utf-8") as lines:
            self.header = json.loads(next(lines))
            for line in map(json.loads, lines):
                if line["t"] > moment:
                    break
                self._merge(line)

    def _merge(self, line):
        record = self.records.setdefault(line["s"], {"fields": {}})
        record.update({key: line[key] for key in ("state", "status") if key in line})
        for number, text in line.get("f", {}).items():
            if text is None:
                record["fields"].pop(number, None)
            else:
                record["fields"][number] = text
        if "trade" in line:
            recent = self.trades.setdefault(line["s"], [])
            self.trades[line["s"]] = [line["trade"], *recent[:RECENT_TRADES - 1]]

    def commands(self):
        for code, table in self.header["spreads"].items():
            yield {"do": "spread-table", "code": code, **table}
        yield {"do": "brokers", "list": self.header["brokers"]}
        for instrument in self.header["instruments"]:
            members = {key: instrument[key] for key in ("symbol", "currency", "name")}
            yield {"do": "instrument", **members}
        for symbol, record in self.records.items():
            yield {"do": "record", "symbol": symbol, **record}
        for symbol, trades in self.trades.items():
            yield {"do": "trades", "symbol": symbol, "list": trades}


class Script:
    """A terminal that is driven through a pipe, in a world of one moment."""

    def __init__(self, home, moment, platform="offscreen", **environment):
        self.process = subprocess.Popen(
            [str(home.terminal), "--script", "-"], stdin=subprocess.PIPE,
            stdout=subprocess.PIPE, text=True, env=home.environment(platform, **environment))
        for command in moment.commands():
            self.do(**command)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.stdin.close()
        self.process.stdout.close()
        self.process.wait()

    def do(self, **command):
        print(json.dumps(command), file=self.process.stdin, flush=True)
        answer = json.loads(self.process.stdout.readline())
        if not answer["ok"]:
            raise RuntimeError(f"{command}: {answer['error']}")
        return answer

    def config(self, key, value, section="current"):
        self.do(do="config", section=section, key=key, value=value)

    def open(self, symbol, levels):
        view = self.do(do="open")["view"]
        self.do(do="type", view=view, text=symbol)
        if levels == 10:
            self.do(do="caption-button", view=view, button="display-mode")
        self.do(do="tick", ms=SETTLE_MS)
        return view

    def picture(self, view, scratch, target):
        self.do(do="tick", ms=SETTLE_MS)
        self.do(do="snapshot", view=view, file=str(scratch / "view.png"))
        shrink(scratch / "view.png", target)


# The contact sheet: a block for each scale, a row for each language, a column for each skin.


def make_sheet(terminal, scratch, out):
    home = new_home(terminal, scratch, "sheet")
    store = home.make_store(scratch)
    blocks = [make_block(home, store, scratch, out, scale) for scale in SCALES]
    run("convert", "-background", SHEET_COLOUR, *blocks, "-append", scratch / "sheet.png")
    shrink(scratch / "sheet.png", out / "contact-sheet.png", "-resize", f"{SHEET_WIDTH}x")


def make_block(home, store, scratch, out, scale):
    labelled = []
    for language, skin in itertools.product(LANGUAGES, SKINS):
        home.set(store, {"Language": language, "Skin": skin, "ScaleSize": scale})
        picture = scratch / f"{language}-{skin}-{scale}.png"
        home.snapshot(picture)
        labelled += ["-label", f"{LANGUAGES[language]}, {skin}, {scale} %", picture]
        if kept := FULL_SIZE.get((language, skin, scale)):
            shrink(picture, out / kept)
    block = scratch / f"block-{scale}.png"
    run("montage", *labelled, "-tile", f"{len(SKINS)}x", "-geometry", "+12+8", "-background",
        SHEET_COLOUR, "-pointsize", "20", block)
    return block


# The tour.


class Tour:
    def __init__(self, terminal, scratch, out):
        self.home = new_home(terminal, scratch, "tour")
        self.scratch = scratch
        self.out = out
        self.morning = self.moment("10:29:00", 63, "10:30:03")

    def moment(self, start, seconds, moment, shows=None):
        """The market at `moment`, `seconds` at most after `start`, which must have the fields
        that `shows` names by symbol."""
        recording = self.scratch / f"{start.replace(':', '')}.jsonl"
        self.home.run("--record", recording, "--seed", SEED, "--start", start, "--seconds",
                      seconds)
        market = Moment(recording, moment)
        for symbol, field in (shows or {}).items():
            if not market.records[symbol]["fields"].get(field):
                raise RuntimeError(f"{symbol} has no field {field} at {moment} of day {SEED}.")
        return market

    def view(self, name, moment, symbol, levels=5, prepare=None, alter=None):
        """`prepare` sets the world before the view is open; `alter` the view."""
        with Script(self.home, moment) as script:
            if prepare:
                prepare(script)
            view = script.open(symbol, levels)
            if alter:
                alter(script, view)
            script.picture(view, self.scratch, self.out / f"tour-{name}.png")

    def with_details(self, name, symbol):
        """A view with its detail pop-up, which is a window of its own."""
        with display() as number, Script(self.home, self.morning, "xcb",
                                         DISPLAY=number) as script:
            view = script.open(symbol, 5)
            script.do(do="press", view=view, component="mDetail")
            script.do(do="tick", ms=SETTLE_MS)
            run("import", "-display", number, "-window", "root", self.scratch / "root.png")
            shrink(self.scratch / "root.png", self.out / f"tour-{name}.png", "-trim", "+repage")

    def make(self):
        morning = self.morning
        self.view("equity-5", morning, "700", 5)
        self.view("equity-10", morning, "700", 10)
        self.view("cbbc", morning, "55321", 10)
        self.view("vcm", self.moment("10:03:00", 60, "10:03:50", {"18": "3503"}), "18")
        self.view("pos", self.moment("09:10:00", 5, "09:10:05", {"1266": "3507"}), "1266")
        self.view("cas", self.moment("16:05:00", 5, "16:05:05", {"700": "3511"}), "700")
        self.view("per-click", morning, "700", prepare=per_click)
        self.view("delayed", morning, "700", 10, prepare=delayed)
        self.view("concealed", morning, "601452", prepare=concealing)
        self.view("brokers", morning, "700", 10, prepare=highlighting)
        self.view("broker-names", morning, "700", 10, alter=naming_brokers)
        if has_display():
            self.with_details("warrant", "14680")


def per_click(script):
    script.do(do="feed-type", value=2)


def delayed(script):
    script.do(do="feed-type", value=3)


def concealing(script):
    script.config("ConcealMktDataByExch", "XCL")


def highlighting(script):
    script.config("SpecBrokerChecked", "Y")
    script.config("DetailSpecialBroker", "4460,6981,3060")
    script.config("DetailSpecialBrokerColor", "$0000d7ff,$00ff80ff,$0080ff00")


def naming_brokers(script, view):
    script.do(do="language", value=1)
    script.do(do="press", view=view, component="mBrokerName")


# Whole windows.


def make_windows(terminal, scratch, out):
    if not has_display():
        return
    make_window(terminal, scratch, out / "terminal.png", {})
    make_window(terminal, scratch, out / "terminal-light-zh.png",
                {"Language": 1, "Skin": "Light", "PriceColours": "RedUp"})


def make_window(terminal, scratch, target, settings):
    home = new_home(terminal, scratch, target.stem)
    home.set(home.make_store(scratch), settings)
    with display() as number:
        window = subprocess.Popen(
            [str(terminal), "--seed", SEED, "--start", "10:03:20"],
            env=home.environment("xcb", DISPLAY=number))
        try:
            time.sleep(WINDOW_SECONDS)
            run("import", "-display", number, "-window", "root", scratch / "root.png")
        finally:
            window.terminate()
            window.wait()
    shrink(scratch / "root.png", target)


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    kinds = {"sheet": make_sheet, "tour": lambda *where: Tour(*where).make(),
             "windows": make_windows}
    for kind in kinds:
        parser.add_argument(f"--{kind}", action="store_true", help=f"makes those of the {kind}")
    parser.add_argument("--terminal", type=pathlib.Path, default=BUILT)
    parser.add_argument("--out", type=pathlib.Path, default=HERE)
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as scratch:
        for kind in [kind for kind in kinds if getattr(arguments, kind)] or kinds:
            kinds[kind](arguments.terminal.resolve(), pathlib.Path(scratch),
                        arguments.out.resolve())


if __name__ == "__main__":
    main()
