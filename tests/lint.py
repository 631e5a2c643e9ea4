#!/usr/bin/env python3
"""lint.py BUILD [COMMIT]: layout of all files, every header alone, and static analysis of the
product's sources as BUILD is configured to compile them; with COMMIT only of those that have changed
since, the most changed first, for as long as CHANGED_SECONDS allow. What is left then is said, and no
failure.

The sources are compiled without precompiled headers here, so that an include that these hide is
missed. A header is looked at through one of the sources that include it."""

import concurrent.futures
import json
import os
import pathlib
import re
import subprocess
import sys
import time

SKIPPED = ("tests", "bench")
RULES = ".clang-tidy"
CHANGED_SECONDS = 300
# The compiler of the build has warnings of its own.
IGNORED = "--extra-arg=-Wno-unknown-warning-option"
INCLUDE = re.compile(r'^#include "([^"]+)"', re.MULTILINE)


def git(*arguments):
    done = subprocess.run(["git", *arguments], text=True, stdout=subprocess.PIPE, check=True)
    return done.stdout.splitlines()


def product_files():
    return [file for file in git("ls-files", "*.h", "*.cpp")
            if pathlib.PurePath(file).parts[0] not in SKIPPED]


def source_for(header, includers):
    """The source of the same name where that includes it; otherwise the nearest, or None."""
    seen, waiting = {header}, [header]
    for name in waiting:
        found = sorted(includers.get(name, ()), key=lambda file: file[:-4] != header[:-2])
        sources = [file for file in found if file.endswith(".cpp")]
        if sources:
            return sources[0]
        waiting += [file for file in found if file not in seen]
        seen.update(found)
    return None


def sources_of(files):
    """What to compile in order to look at `files`, in their order."""
    includers = {}
    for file in product_files():
        for header in INCLUDE.findall(pathlib.Path(file).read_text(encoding="utf-8")):
            includers.setdefault(header, []).append(file)
    sources = (file if file.endswith(".cpp") else source_for(file, includers) for file in files)
    return [str(pathlib.Path(source).absolute()) for source in dict.fromkeys(sources) if source]


def changed_since(commit):
    """The most changed first."""
    lines = [line.split("\t") for line in git("diff", "--numstat", "--no-renames", commit)]
    changed = {file: int(added) + int(removed) for added, removed, file in lines if added != "-"}
    files = product_files()
    if RULES in changed:
        return files
    return sorted((file for file in files if file in changed), key=lambda file: -changed[file])


def check_layout():
    files = git("ls-files", "*.h", "*.cpp")
    return subprocess.run(["clang-format", "--dry-run", "--Werror", *files], check=False).returncode


def check_headers(build):
    walls = build / "tests" / "walls"
    entries = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    compiler = next(word for word in entries[0]["command"].split() if "ccache" not in word)
    return subprocess.run([sys.executable, "tests/walls/check_headers.py", os.getcwd(),
                           walls / "layers.txt", compiler, walls / "headers.txt"],
                          check=False).returncode


def analyse(build, sources, seconds):
    entries = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    chosen = [entry for entry in entries if entry["file"] in sources]
    for entry in chosen:
        entry["command"] = re.sub(r" -Winvalid-pch -include \S+", "", entry["command"])
    folder = build / "lint"
    folder.mkdir(exist_ok=True)
    (folder / "compile_commands.json").write_text(json.dumps(chosen), encoding="utf-8")
    compiled = {entry["file"] for entry in chosen}
    waiting = [source for source in sources if source in compiled]
    print(f"Analysing {len(waiting)} sources", flush=True)
    end = time.monotonic() + seconds

    def status(source):
        """None where the time is over."""
        if time.monotonic() > end:
            return None
        done = subprocess.run(["clang-tidy", "-quiet", "-p", folder, IGNORED, source], text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False)
        if done.returncode:
            print(done.stdout, flush=True)
        return done.returncode

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        found = list(pool.map(status, waiting))
    if None in found:
        print(f"Out of time: {found.count(None)} sources were not analysed")
    return int(any(found))


def main():
    build = pathlib.Path(sys.argv[1])
    changed = len(sys.argv) > 2
    files = changed_since(sys.argv[2]) if changed else product_files()
    seconds = CHANGED_SECONDS if changed else float("inf")
    return check_layout() or check_headers(build) or analyse(build, sources_of(files), seconds)


if __name__ == "__main__":
    sys.exit(main())
