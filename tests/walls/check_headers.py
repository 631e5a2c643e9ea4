#!/usr/bin/env python3
"""check_headers.py ROOT LAYERS COMPILER MEMORY: every header compiles alone. The file MEMORY keeps which
did, until they change.

Precompiled headers hide in the build what a header forgot to include. Here only that stands before a
header which it brings by itself, and which can therefore hide nothing: another header that it
includes, so that one run of the compiler checks both, and the costly header of Qt or of the standard
library among those that it brings, which is precompiled for this."""

import concurrent.futures
import functools
import hashlib
import os
import pathlib
import subprocess
import sys
import tempfile

import house

FLAGS = ["-w", "-Werror=invalid-pch"]
# Headers worth precompiling, the one that brings most first.
COMMON = ["qwidget.h", "qstring.h", "functional", "string"]


class Tree:
    """The headers, and what each brings."""

    def __init__(self, root, layers):
        self.folders = list(dict.fromkeys(i for layer in layers.values() for i in layer.includes))
        self.layer_of = {header: layer for layer in layers.values()
                         for header in house.headers(root, layer.folder)}

    @functools.lru_cache(maxsize=None)
    def find(self, name):
        """The file; None for headers of the compiler and the system."""
        return next((folder / name for folder in self.folders if (folder / name).is_file()), None)

    @functools.lru_cache(maxsize=None)
    def direct(self, name):
        file = self.find(name)
        return house.included_by(file) if file else ()

    @functools.lru_cache(maxsize=None)
    def brings(self, header):
        """The names of all headers that come with it, without itself."""
        seen, waiting = set(), list(self.direct(header))
        while waiting:
            name = waiting.pop()
            if name not in seen:
                seen.add(name)
                waiting += self.direct(name)
        return seen

    def common(self, header):
        brought = {pathlib.PurePath(name).name for name in self.brings(header)}
        return next((name for name in COMMON if name in brought), None)


class Chain:
    """Headers of one layer, each bringing the one before."""

    def __init__(self, tree, header):
        self.headers = [header]
        self.layer = tree.layer_of[header]
        self.common = tree.common(header)

    def can_end_with(self, tree, header):
        return (tree.layer_of[header] == self.layer and tree.common(header) == self.common
                and self.headers[-1] in tree.brings(header))

    def digest(self, tree):
        """Of all that decides whether it compiles, but for compiler and libraries."""
        files = {tree.find(name) for name in tree.brings(self.headers[-1]) | set(self.headers)
                 if name in tree.layer_of}
        contents = [file.read_bytes() for file in sorted(files)]
        words = " ".join(self.headers + self.layer.flags + FLAGS).encode()
        return hashlib.sha256(b"\0".join([words, *contents])).hexdigest()


def chains(tree):
    result = []
    for header in sorted(tree.layer_of, key=lambda header: len(tree.brings(header))):
        fitting = [chain for chain in result if chain.can_end_with(tree, header)]
        if fitting:
            fitting[-1].headers.append(header)
        else:
            result.append(Chain(tree, header))
    return result


class Compiling:
    """Runs the compiler; `folder` takes what is precompiled."""

    def __init__(self, compiler, folder, layers):
        self.compiler, self.folder, self.layers = compiler, folder, layers.values()

    def precompile(self, name):
        """For all layers, so with the flags of the lowest one that finds it."""
        header = self.folder / f"common-{name}"
        header.write_text(f"#include <{name}>\n")
        for layer in self.layers:
            done = subprocess.run([self.compiler, *layer.flags, *FLAGS, "-x", "c++-header", header,
                                   "-o", f"{header}.gch"], capture_output=True, check=False)
            if done.returncode == 0:
                break

    def compile(self, chain):
        """The compiler's message; empty when all is well."""
        text = "".join(f'#include "{header}"\n' for header in chain.headers)
        common = ["-include", self.folder / f"common-{chain.common}"] if chain.common else []
        return subprocess.run(
            [self.compiler, *chain.layer.flags, *FLAGS, *common, "-fsyntax-only", "-x", "c++", "-"], input=text,
            text=True, capture_output=True, check=False).stderr


def check(root, layers, compiler, remembered):
    """The compiler's message by the digest of each chain; empty for those that are well."""
    tree = Tree(root, layers)
    digests = {chain.digest(tree): chain for chain in chains(tree)}
    due = {digest: chain for digest, chain in digests.items() if digest not in remembered}
    with tempfile.TemporaryDirectory() as folder, \
            concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as threads:
        compiling = Compiling(compiler, pathlib.Path(folder), layers)
        list(threads.map(compiling.precompile, {chain.common for chain in due.values()} - {None}))
        messages = dict(zip(due, threads.map(compiling.compile, due.values())))
    print(f"{len(tree.layer_of)} headers in {len(digests)} chains, {len(due)} of them anew")
    return {digest: messages.get(digest, "") for digest in digests}


def main():
    root, layers_file, compiler, memory = sys.argv[1:]
    memory = pathlib.Path(memory)
    remembered = memory.read_text(encoding="ascii").split() if memory.exists() else []
    messages = check(root, house.read_layers(layers_file), compiler, remembered)
    well = [digest for digest, message in messages.items() if not message]
    memory.write_text("\n".join(well), encoding="ascii")
    print(*filter(None, messages.values()), sep="\n")
    return 0 if len(well) == len(messages) else 1


if __name__ == "__main__":
    sys.exit(main())
