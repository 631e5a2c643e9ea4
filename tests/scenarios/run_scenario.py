#!/usr/bin/env python3
"""Runs a script through the terminal and compares the answers with those expected.

    run_scenario.py TERMINAL SCENARIO.jsonl [--rebaseline]

The expected answers stand beside the script, in SCENARIO.expected: each command after "> ", then
its answer, a member a line. With --rebaseline, or QUOR_REBASELINE=1 in the environment, they are
written anew instead of compared.

A comment "# show: PATH PATH ..." before a command reduces its answer to those members, dotted:
"# show: caption components.lblDelay.visible". Of a grid, "texts" is its cells' texts, a row a
line, "cells" every cell with its painting, and "row6" those of row 6. Answers that are not reduced must not depend on
fonts, so a dump always says what it shows.
"""

import difflib
import json
import os
import pathlib
import re
import subprocess
import sys


class ScenarioError(Exception):
    """The scenario itself is wrong."""


def is_dump(line):
    """A scenario may hold lines that are no commands, to see them refused."""
    try:
        command = json.loads(line)
    except ValueError:
        return False
    return isinstance(command, dict) and command.get("do") == "dump"


def read_commands(script):
    """Yields each command line with the paths that its answer is reduced to, or None."""
    shown = None
    for line in script.splitlines():
        line = line.strip()
        if line.startswith("# show:"):
            shown = line[len("# show:"):].split()
        elif line and not line.startswith("#"):
            if is_dump(line) and shown is None:
                raise ScenarioError(f"a dump needs a '# show:' comment: {line}")
            yield line, shown
            shown = None


def grid_texts(cells):
    """The texts of the cells that have one, a line a row."""
    rows = {}
    for cell in cells:
        row = rows.setdefault(cell["row"], [])
        if cell["text"].strip():
            row.append(f"{cell['col']}={cell['text']}")
    return [f"{row:>2}: " + " | ".join(texts) for row, texts in sorted(rows.items())]


def painted_cell(cell):
    weight = "bold " if cell["bold"] else ""
    return (f"{cell['row']},{cell['col']} '{cell['text']}' {cell['color']} on {cell['fill']} "
            f"{weight}{cell['align']} by {cell['drawnBy']}")


def value_at(answer, path):
    value = answer
    for name in path.split("."):
        if isinstance(value, dict) and name == "texts" and "cells" in value:
            value = grid_texts(value["cells"])
        elif isinstance(value, dict) and name == "cells" and name in value:
            value = [painted_cell(cell) for cell in value["cells"]]
        elif isinstance(value, dict) and re.fullmatch(r"row\d+", name) and "cells" in value:
            value = [painted_cell(cell) for cell in value["cells"]
                     if cell["row"] == int(name[len("row"):])]
        elif isinstance(value, dict) and name in value:
            value = value[name]
        elif isinstance(value, list) and name.isdigit() and int(name) < len(value):
            value = value[int(name)]
        else:
            return "(absent)"
    return value


def render_value(name, value):
    """A member as lines: a list an element a line."""
    if isinstance(value, list) and value:
        yield f"  {name}:"
        for element in value:
            text = element if isinstance(element, str) else json.dumps(
                element, ensure_ascii=False, sort_keys=True)
            yield f"    {text}".rstrip()
    else:
        yield f"  {name}: {json.dumps(value, ensure_ascii=False, sort_keys=True)}"


def render_answer(answer, shown):
    if not answer.get("ok", False):
        yield f"  refused: {answer.get('error')}"
        return
    paths = shown if shown is not None else sorted(name for name in answer if name != "ok")
    for path in paths:
        yield from render_value(path, value_at(answer, path))


def render(script, answers):
    """The whole run as text."""
    lines = []
    commands = list(read_commands(script))
    for (command, shown), answer in zip(commands, answers):
        lines.append(f"> {command}")
        lines.extend(render_answer(json.loads(answer), shown))
    if len(commands) != len(answers):
        lines.append(f"{len(commands)} commands, but {len(answers)} answers")
    return "\n".join(lines) + "\n"


def run(terminal, scenario):
    script = scenario.read_text(encoding="utf-8")
    list(read_commands(script))
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    result = subprocess.run([terminal, "--script", str(scenario)], env=environment,
                            stdout=subprocess.PIPE, encoding="utf-8", check=False)
    answers = result.stdout.splitlines()
    text = render(script, answers)
    all_ok = all(json.loads(answer).get("ok") for answer in answers)
    if result.returncode != (0 if all_ok else 1):
        text += f"exit status {result.returncode}\n"
    return text


def main(arguments):
    rebaseline = "--rebaseline" in arguments or os.environ.get("QUOR_REBASELINE") == "1"
    terminal, scenario = [a for a in arguments if not a.startswith("--")]
    scenario = pathlib.Path(scenario)
    expected_file = scenario.with_suffix(".expected")
    actual = run(terminal, scenario)
    if rebaseline:
        expected_file.write_text(actual, encoding="utf-8")
        return 0
    expected = expected_file.read_text(encoding="utf-8") if expected_file.exists() else ""
    difference = list(difflib.unified_diff(expected.splitlines(), actual.splitlines(),
                                           str(expected_file), "what the terminal answered",
                                           lineterm="", n=6))
    print("\n".join(difference))
    return 1 if difference else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
