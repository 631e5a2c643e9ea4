#!/usr/bin/env python3
"""check_walls.py ROOT LAYERS COMPILER FOLDER: sources of FOLDER can include the headers of those
folders that the arrows of the drawing lead to, and of no others; a dotted one leads there only from
where it begins."""

import re
import subprocess
import sys

import house

NOT_FOUND = "No such file or directory|file not found"


def compile_includes(compiler, layer, names):
    """The compiler's message; empty when the headers are found."""
    source = "".join(f"#include <{name}>\n" for name in names)
    done = subprocess.run([compiler, *layer.flags, "-E", "-x", "c++", "-", "-o", "/dev/null"],
                          input=source, text=True, capture_output=True, check=False,
                          env={"LC_ALL": "C", "PATH": "/usr/bin:/bin"})
    return done.stderr if done.returncode else ""


def check(root, layers, compiler, folder):
    """What is wrong, a sentence each."""
    _, arrows, dotted = house.read_drawing(root)
    allowed = house.seen_from(folder, arrows, dotted)
    doors = {other: house.headers(root, other)[0] for other in layers if other != folder}
    doors[house.QT] = "QString"
    seen = sorted(allowed & set(doors))
    message = compile_includes(compiler, layers[folder], [doors[other] for other in seen])
    if message:
        yield f"{folder} should see {', '.join(seen)}, but:\n{message}"
    for other in sorted(set(doors) - allowed):
        message = compile_includes(compiler, layers[folder], [doors[other]])
        if not re.search(rf"{doors[other]}('|:) ({NOT_FOUND})", message):
            yield f"{folder} should not see {other}, but finds {doors[other]}. {message}"


def main():
    root, layers_file, compiler, folder = sys.argv[1:]
    problems = list(check(root, house.read_layers(layers_file), compiler, folder))
    print(*problems, sep="\n")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
