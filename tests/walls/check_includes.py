# SPDX-License-Identifier: MIT
"""Fails when an include crosses a wall of the house.

src/rooms.txt lists the rooms from the ground up. An include points to a room above in that list, or stays in its own
room; tools never include each other. Qt is seen only in folders named qt and in the rooms marked so, and the core
includes none of these. The folder of a module or program is included by itself alone. The panel sees the library through its public headers alone; its rooms include each other in one
direction. No header or source includes itself through others. No two headers define classes of one name: a program
that links both would run the code of either for both.
"""

import pathlib
import re
import sys

PANEL_FLOORS = {"common": 0, "host": 1, "remote": 2, "ui": 3, "guided": 4}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)
# A folder that is linked into a module or program of its own, and the header that only it includes.
MODULES = {"places/shares/": "libsmbclient.h", "controls/video/": "QMediaPlayer", "help/manual/chm/": "chm_lib.h"}
CLASS = re.compile(r"^(?:class|struct|enum class) (\w+)[^;{]*\{", re.MULTILINE)
QT_HEADER = re.compile(r"^(Q[A-Z][A-Za-z]*|Qt[A-Z][A-Za-z]*/.*|q[a-z]+\.h)$")


def read_rooms(text):
    """{room: (floor, kind)} of the list of rooms."""
    rows = [line.split() for line in text.split("\n") if re.match(r"[a-z]", line)]
    return {room: (floor, kind) for floor, (room, kind) in enumerate(rows)}


class House:
    """Where a path below src/ belongs."""

    def __init__(self, rooms):
        self.rooms = rooms

    def room_of(self, path):
        """The innermost room: 'facade/sim' for 'facade/sim/sim_kernel.h'; nothing for a path in none."""
        folders = path.split("/")[:-1]
        while folders and "/".join(folders) not in self.rooms:
            folders.pop()
        return "/".join(folders) or None

    def may_see_qt(self, path):
        """Windows lie in folders named qt, or in a room of nothing else."""
        room = self.room_of(path)
        return room is not None and (self.rooms[room][1] == "qt" or path.startswith(room + "/qt/"))

    def check(self, path, includes):
        """Findings for one file; path begins below src/."""
        room = self.room_of(path)
        if room is None:
            yield f"src/{path}: is in no room of src"
            return
        floor, kind = self.rooms[room]
        for mark, name in includes:
            for folder, header in MODULES.items():
                if (name.startswith(folder) or name == header) and not path.startswith(folder):
                    yield f"src/{path}: {name} belongs to the module {folder}"
            if QT_HEADER.match(name):
                if not self.may_see_qt(path):
                    yield f"src/{path}: Qt header <{name}> in the core"
                continue
            if mark == "<":
                continue
            target = self.room_of(name)
            if target is None:
                yield f'src/{path}: "{name}" is in no room of src'
            elif self.may_see_qt(name) and not self.may_see_qt(path):
                yield f'src/{path}: the core includes the window "{name}"'
            elif target == room:
                continue
            elif kind == "tool" and self.rooms[target][1] == "tool":
                yield f'src/{path}: a tool includes another tool\'s "{name}"'
            elif self.rooms[target][0] > floor:
                yield f'src/{path}: "{name}" does not lie below'


def circles(includes):
    """Findings: every group of modules, a header with its source, that include each other in a ring."""
    modules = {}
    for path, names in includes.items():
        own = path.rsplit(".", 1)[0]
        modules.setdefault(own, set()).update(n.rsplit(".", 1)[0] for n in names if n in includes)
        modules[own].discard(own)
    reached = {}
    for module in modules:
        seen, left = set(), [module]
        while left:
            for target in modules.get(left.pop(), ()):
                if target not in seen:
                    seen.add(target)
                    left.append(target)
        reached[module] = seen
    rings = {frozenset(other for other in seen if module in reached.get(other, ()))
             for module, seen in reached.items() if module in seen}
    return [f"in a ring: {', '.join(sorted(ring))}" for ring in sorted(rings, key=sorted)]


def check_panel(path, includes, own):
    """The panel: Qt, the standard library, public headers and its own."""
    for kind, name in includes:
        if kind == "<" and "/" in name and not name.startswith(("pnltools/", "Qt", "sys/", "gtest/", "gmock/")):
            yield f"{path}: <{name}> is no public header"
        if name.startswith("pnltools/") and name not in ("pnltools/pnltools.h", "pnltools/rig.h"):
            yield f"{path}: <{name}> is not for a host"
        if kind == '"' and name not in own:
            yield f'{path}: "{name}" is not the panel\'s own'
        room, target = path.split("/")[1], name.split("/")[0]
        if PANEL_FLOORS.get(target, -1) > PANEL_FLOORS.get(room, len(PANEL_FLOORS)):
            yield f'{path}: "{name}" does not lie below'


def check_public(path, includes):
    """Public headers see the standard library and each other."""
    for _, name in includes:
        if QT_HEADER.match(name) or ("/" in name and not name.startswith("pnltools/")):
            yield f"{path}: public header includes {name}"


def twins(files):
    """A finding for each header that defines a class which an earlier one defines too."""
    first = {}
    for path, text in sorted(files.items()):
        folder = path.split("/")[0]
        if folder not in ("src", "panel") or not path.endswith(".h"):
            continue
        for name in CLASS.findall(text):
            earlier = first.setdefault((folder, name), path)
            if earlier != path:
                yield f"{path}: {earlier} has a class {name} too"


def check(files, house):
    """All findings of a tree given as {path: text}."""
    own = {p.removeprefix("panel/") for p in files if p.startswith("panel/")}
    findings = []
    included = {"src/": {}, "panel/": {}}
    for path, text in sorted(files.items()):
        includes = INCLUDE.findall(text)
        for folder, paths in included.items():
            if path.startswith(folder):
                paths[path.removeprefix(folder)] = [name for kind, name in includes if kind == '"']
        if path.startswith("src/"):
            findings += house.check(path.removeprefix("src/"), includes)
        elif path.startswith("panel/"):
            findings += check_panel(path, includes, own)
        elif path.startswith("include/"):
            findings += check_public(path, includes)
    findings += twins(files)
    return findings + [finding for paths in included.values() for finding in circles(paths)]


# Each row breaks one wall; the check is worth nothing unless it sees every one of them.
BREACHES = [
    ("src/base/text.h", '#include "window/window.h"'),
    ("src/window/menu.h", '#include "facade/kernel.h"'),
    ("src/facade/kernel.h", '#include "host/host_api.h"'),
    ("src/host/language.cpp", '#include "mdi/mdi_view.h"'),
    ("src/host/language.cpp", "#include <QString>"),
    ("src/base/text.cpp", "#include <QtCore/QString>"),
    ("src/mdi/mdi_session.cpp", '#include "mdi/qt/mdi_window.h"'),
    ("src/mdi/mdi_session.cpp", "#include <QWidget>"),
    ("src/mdi/mdi_window.cpp", '#include "calc/qt/calc_window.h"'),
    ("src/places/share_module.cpp", '#include "places/shares/smb_client.h"'),
    ("src/places/qt/mount_watch.cpp", "#include <libsmbclient.h>"),
    ("src/controls/c_avi_ctrl.cpp", '#include "controls/video/media_player.h"'),
    ("src/controls/c_avi_ctrl.cpp", "#include <QMediaPlayer>"),
    ("src/help/manual/manual_cache.cpp", '#include "help/manual/chm/unpack.h"'),
    ("src/help/manual/manual.cpp", "#include <chm_lib.h>"),
    ("src/mdi/mdi_view.h", '#include "controls/zwc_static.h"'),
    ("src/controls/zwc_static.cpp", '#include "mdi/mdi_view.h"'),
    ("src/facade/mill/machine.cpp", '#include "remote/trace.h"'),
    ("panel/main.cpp", '#include "host/language.h"'),
    ("panel/host/operator.cpp", '#include "ui/panel_window.h"'),
    ("panel/main.cpp", "#include <pnltools/backend/facade/kernel.h>"),
    ("include/pnltools/pnltools.h", "#include <QWidget>"),
]
RINGS = [
    {"src/mdi/mdi_menus.h": '#include "mdi/mdi_list.h"', "src/mdi/mdi_list.cpp": '#include "mdi/mdi_menus.h"',
     "src/mdi/mdi_list.h": ""},
    {"panel/ui/a.h": '#include "ui/b.h"', "panel/ui/b.h": '#include "ui/c.h"', "panel/ui/c.h": '#include "ui/a.h"'},
]
TWINS = {"src/mdi/mdi_menus.h": "class Menus final : public Menu {\n};", "src/zmc/zmc_menus.h": "struct Menus {\n};"}
SOUND = {
    "src/mdi/qt/mdi_window.cpp": '#include "mdi/mdi_view.h"\n#include "controls/zwc_static.h"\n#include <QWidget>',
    "src/library/tool_factory.cpp": '#include "mdi/qt/mdi_window.h"',
    "src/facade/mill/machine.cpp": '#include "facade/mill/machine.h"\n#include "facade/sim/machine_seam.h"\n#include <vector>',
    "src/facade/mill/machine.h": "",
    "src/places/shares/smb_client.cpp": '#include "places/shares/smb_client.h"\n#include "places/share_client.h"\n#include <libsmbclient.h>',
    "src/places/shares/smb_client.h": "",
    "src/controls/video/media_player.h": "#include <QMediaPlayer>\nclass Named {\n};",
    "src/controls/video/other.h": "class Named;",
    "panel/main.cpp": '#include "ui/panel_window.h"\n#include <pnltools/rig.h>',
    "panel/ui/panel_window.h": '#include <QWidget>\n#include "host/operator.h"',
    "panel/host/operator.h": "",
}


def self_test(house):
    """What the check itself gets wrong."""
    wrong = [f"sound tree: {finding}" for finding in check(SOUND, house)]
    for path, text in BREACHES:
        if not check({path: text}, house):
            wrong.append(f"not seen: {text} in {path}")
    wrong += [f"not seen: {ring}" for ring in RINGS if not any("ring" in f for f in check(ring, house))]
    if not check(TWINS, house):
        wrong.append("not seen: two classes of one name")
    return wrong


def main(root):
    house = House(read_rooms((pathlib.Path(root) / "src/rooms.txt").read_text(encoding="utf-8")))
    files = {}
    for folder in ("src", "panel", "include"):
        for file in (pathlib.Path(root) / folder).rglob("*"):
            if file.suffix in (".h", ".inc", ".cpp"):
                files[file.relative_to(root).as_posix()] = file.read_text(encoding="utf-8")
    findings = self_test(house) + check(files, house)
    print("\n".join(findings) or f"{len(files)} files, no wall crossed")
    return 1 if findings or not files else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
