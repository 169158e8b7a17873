# SPDX-License-Identifier: MIT
"""Fails when an include crosses a wall of the house.

Floors, from the ground up: base, window, facade, host and controls, a tool's logic, a tool's windows, the panel. An
include points to a lower floor, or stays in its own room. Tools never include each other. What is linked into pnl_core
sees no Qt. The panel sees the library through its public headers alone. Files named *_entry put the library together
and may see everything in src.
"""

import pathlib
import re
import sys

FLOORS = {"base": 0, "window": 1, "facade": 2, "host": 3, "controls": 3}
TOOLS = {"mdi", "calc", "zmc", "errors", "help", "explorer"}
QT_FILE = re.compile(r"_(window|widget|dialog|entry|list_view)\.(h|cpp)$")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)
QT_HEADER = re.compile(r"^(Q[A-Z][A-Za-z]*|Qt[A-Z][A-Za-z]*/.*|q[a-z]+\.h)$")


def may_see_qt(path):
    """Windows and controls live under names and folders that say so."""
    return path.startswith(("src/window/qt/", "src/controls/")) or bool(QT_FILE.search(path))


def room_of(path):
    """The first folder below src: 'facade' for 'facade/sim/machine.h'."""
    return path.split("/")[0]


def floor_of(path):
    """The floor of a path below src."""
    room = room_of(path)
    if room in FLOORS:
        return FLOORS[room]
    return 5 if may_see_qt("src/" + path) else 4


def check_src(path, includes):
    """Findings for one file below src/; path begins with 'src/'."""
    inner = path.removeprefix("src/")
    room = room_of(inner)
    for kind, name in includes:
        if QT_HEADER.match(name):
            if not may_see_qt(path):
                yield f"{path}: Qt header <{name}> in the core"
            continue
        if kind == "<":
            continue
        target = room_of(name)
        if target not in FLOORS and target not in TOOLS:
            yield f'{path}: "{name}" is in no room of src'
        elif path.endswith(("_entry.cpp", "_entry.h")):
            continue
        elif may_see_qt("src/" + name) and not may_see_qt(path):
            yield f'{path}: the core includes the window "{name}"'
        elif target == room:
            continue
        elif target in TOOLS and room in TOOLS:
            yield f'{path}: a tool includes another tool\'s "{name}"'
        elif floor_of(name) >= floor_of(inner):
            yield f'{path}: "{name}" does not lie below'


def check_panel(path, includes, own):
    """The panel: Qt, the standard library, public headers and its own."""
    for kind, name in includes:
        if kind == "<" and "/" in name and not name.startswith(("pnltools/", "Qt", "sys/", "gtest/", "gmock/")):
            yield f"{path}: <{name}> is no public header"
        if name.startswith("pnltools/") and name not in ("pnltools/pnltools.h", "pnltools/rig.h"):
            yield f"{path}: <{name}> is not for a host"
        if kind == '"' and name not in own:
            yield f'{path}: "{name}" is not the panel\'s own'


def check_public(path, includes):
    """Public headers see the standard library and each other."""
    for _, name in includes:
        if QT_HEADER.match(name) or ("/" in name and not name.startswith("pnltools/")):
            yield f"{path}: public header includes {name}"


def check(files):
    """All findings of a tree given as {path: text}."""
    own = {p.removeprefix("panel/") for p in files if p.startswith("panel/")}
    findings = []
    for path, text in sorted(files.items()):
        includes = INCLUDE.findall(text)
        if path.startswith("src/"):
            findings += check_src(path, includes)
        elif path.startswith("panel/"):
            findings += check_panel(path, includes, own)
        elif path.startswith("include/"):
            findings += check_public(path, includes)
    return findings


# Each row breaks one wall; the check is worth nothing unless it sees every one of them.
BREACHES = [
    ("src/base/text.h", '#include "window/window.h"'),
    ("src/window/menu.h", '#include "facade/kernel.h"'),
    ("src/facade/kernel.h", '#include "host/host_api.h"'),
    ("src/host/language.cpp", '#include "mdi/mdi_view.h"'),
    ("src/host/language.cpp", "#include <QString>"),
    ("src/base/text.cpp", "#include <QtCore/QString>"),
    ("src/mdi/mdi_execution.cpp", '#include "mdi/mdi_window.h"'),
    ("src/mdi/mdi_execution.cpp", "#include <QWidget>"),
    ("src/mdi/mdi_window.cpp", '#include "calc/calc_window.h"'),
    ("src/mdi/mdi_view.h", '#include "controls/zwc_static.h"'),
    ("src/controls/zwc_static.cpp", '#include "mdi/mdi_view.h"'),
    ("src/facade/sim/machine.cpp", '#include "remote/trace.h"'),
    ("panel/main.cpp", '#include "host/language.h"'),
    ("panel/main.cpp", "#include <pnltools/backend/facade/kernel.h>"),
    ("include/pnltools/pnltools.h", "#include <QWidget>"),
]
SOUND = {
    "src/mdi/mdi_window.cpp": '#include "mdi/mdi_view.h"\n#include "controls/zwc_static.h"\n#include <QWidget>',
    "src/host/tool_factory_entry.cpp": '#include "mdi/mdi_window.h"',
    "src/facade/sim/machine.cpp": '#include "facade/sim/machine.h"\n#include <vector>',
    "panel/main.cpp": '#include "ui/panel_window.h"\n#include <pnltools/rig.h>',
    "panel/ui/panel_window.h": "#include <QWidget>",
}


def self_test():
    """What the check itself gets wrong."""
    wrong = [f"sound tree: {finding}" for finding in check(SOUND)]
    for path, text in BREACHES:
        if not check({path: text}):
            wrong.append(f"not seen: {text} in {path}")
    return wrong


def main(root):
    files = {}
    for folder in ("src", "panel", "include"):
        for file in (pathlib.Path(root) / folder).rglob("*"):
            if file.suffix in (".h", ".cpp"):
                files[file.relative_to(root).as_posix()] = file.read_text(encoding="utf-8")
    findings = self_test() + check(files)
    print("\n".join(findings) or f"{len(files)} files, no wall crossed")
    return 1 if findings or not files else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
