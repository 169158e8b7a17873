# SPDX-License-Identifier: MIT
"""Fails when a header doesn't compile alone: every header is compiled as a source of its own.

Reading the system's headers takes nearly all of the time, so they are precompiled in a few sets. A header is compiled
behind a set only when it includes every header of the set itself, directly or through ours: the set gives it nothing
that it doesn't ask for. The Qt and pugixml include paths come from the build's own compile commands.
"""

import concurrent.futures
import functools
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

# The cheapest first; the last one that fits is taken.
PRECOMPILED = [
    ["string"],
    ["string", "vector"],
    ["string", "vector", "optional", "memory"],
    ["string", "vector", "optional", "memory", "map", "functional"],
    ["QString"],
    ["QObject"],
    ["QWidget"],
    ["QWidget", "map", "functional"],
]
# What the framework's own headers include for sure.
BRINGS = {"QWidget": ["QAbstractButton", "QLineEdit", "QListView", "QMenuBar", "QPlainTextEdit", "QTableView", "QTreeView",
                      "QTreeWidget"],
          "QObject": ["QAbstractListModel", "QAbstractTableModel", "QWidget"],
          "QString": ["QFont", "QJsonValue", "QKeySequence", "QObject", "QPixmap", "QStringList"]}
CXX = ["g++", "-std=c++20", "-Wall", "-Wextra", "-Werror", "-Wno-pragma-once-outside-header", "-fPIC"]
C = ["gcc", "-x", "c", "-std=c11", "-Wall", "-Wextra", "-Werror"]

def include_flags(commands):
    """Every include path that some unit of the build uses."""
    flags = {}
    for entry in json.loads(pathlib.Path(commands).read_text(encoding="utf-8")):
        words = shlex.split(entry["command"])
        for i, word in enumerate(words):
            if word == "-isystem":
                flags[f"-isystem {words[i + 1]}"] = ["-isystem", words[i + 1]]
            elif re.match(r"-[ID].", word):
                flags[word] = [word]
    return [word for pair in flags.values() for word in pair]


@functools.lru_cache(maxsize=None)
def system_includes(root, header):
    """The system's headers that a header of ours includes, directly or through ours. Modules of Qt are left out of
    the names."""
    names = set()
    for mark, name in re.findall(r'^#include ([<"])([^>"]+)', pathlib.Path(header).read_text(encoding="utf-8"), re.M):
        if mark == "<":
            names.add(re.sub(r"^Qt[A-Z]\w*/", "", name))
            continue
        for folder in (pathlib.Path(header).parent, *(pathlib.Path(root) / f for f in ("src", "panel", "include"))):
            if (folder / name).is_file():
                names |= system_includes(root, str(folder / name))
                break
    for brought, by in BRINGS.items():
        if names.intersection(by):
            names.add(brought)
    return frozenset(names)


def compile_alone(command, header):
    """The compiler's complaint, or nothing."""
    done = subprocess.run([*command, "-fsyntax-only", "-include", header, os.devnull], capture_output=True, text=True,
                          check=False)
    return f"{header}:\n{done.stderr}" if done.returncode else ""


def precompile(folder, number, flags):
    """Makes a set's precompiled header; the set's name to include."""
    name = pathlib.Path(folder) / f"set_{number}.h"
    name.write_text("".join(f"#include <{h}>\n" for h in PRECOMPILED[number]), encoding="utf-8")
    subprocess.run([*CXX, *flags, "-x", "c++-header", str(name), "-o", f"{name}.gch"], check=True)
    return str(name)


def main(root, commands):
    headers = sorted(str(p) for folder in ("src", "panel", "include") for p in (pathlib.Path(root) / folder).rglob("*.h"))
    flags = [f"-I{root}/src", f"-I{root}/include", f"-I{root}/panel", *include_flags(commands)]

    def command_for(header, sets):
        # The public header must compile as C without any of the paths.
        if header.endswith("pnltools.h"):
            return [*C, f"-I{root}/include"]
        fitting = [s for s, names in zip(sets, PRECOMPILED) if system_includes(root, header).issuperset(names)]
        return [*CXX, "-x", "c++", *flags, *(["-Winvalid-pch", "-include", fitting[-1]] if fitting else [])]

    with tempfile.TemporaryDirectory() as folder, concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        sets = list(pool.map(lambda number: precompile(folder, number, flags), range(len(PRECOMPILED))))
        findings = [f for f in pool.map(lambda h: compile_alone(command_for(h, sets), h), headers) if f]
    print("\n".join(findings) or f"{len(headers)} headers compile alone")
    return 1 if findings or not headers else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2]))
