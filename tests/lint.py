#!/usr/bin/env python3
"""lint.py BUILD [COMMIT]: layout of all files, and static analysis of the product's sources as BUILD
is configured to compile them; with COMMIT only of those that have changed since.

The sources are compiled without precompiled headers here, so that an include that these hide is
missed. A header is looked at through one of the sources that include it."""

import json
import pathlib
import re
import subprocess
import sys

SKIPPED = ("tests", "bench")
RULES = ".clang-tidy"
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
    """What to compile in order to look at `files`."""
    includers = {}
    for file in product_files():
        for header in INCLUDE.findall(pathlib.Path(file).read_text(encoding="utf-8")):
            includers.setdefault(header, []).append(file)
    return {file if file.endswith(".cpp") else source_for(file, includers) for file in files}


def changed_since(commit):
    changed = set(git("diff", "--name-only", commit))
    files = product_files()
    return files if RULES in changed else [file for file in files if file in changed]


def check_layout():
    files = git("ls-files", "*.h", "*.cpp")
    return subprocess.run(["clang-format", "--dry-run", "--Werror", *files], check=False).returncode


def analyse(build, sources):
    entries = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    chosen = [entry for entry in entries if entry["file"] in sources]
    for entry in chosen:
        entry["command"] = re.sub(r" -Winvalid-pch -include \S+", "", entry["command"])
    print(f"Analysing {len(chosen)} sources", flush=True)
    if not chosen:
        return 0
    folder = build / "lint"
    folder.mkdir(exist_ok=True)
    (folder / "compile_commands.json").write_text(json.dumps(chosen), encoding="utf-8")
    return subprocess.run(["run-clang-tidy", "-quiet", "-p", folder], stderr=subprocess.DEVNULL,
                          check=False).returncode


def main():
    build = pathlib.Path(sys.argv[1])
    files = changed_since(sys.argv[2]) if len(sys.argv) > 2 else product_files()
    sources = {str(pathlib.Path(source).absolute()) for source in sources_of(files) - {None}}
    return check_layout() or analyse(build, sources)


if __name__ == "__main__":
    sys.exit(main())
