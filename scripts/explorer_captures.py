# SPDX-License-Identifier: MIT
# Makes the pictures of the file explorer: drives a panel by its remote control, over folders of its own.
#
#     python3 explorer_captures.py PNLPANEL OUT
import json
import pathlib
import subprocess
import sys
import tempfile

PROGRAM = "; {}\nG90 G17 G40\nT1 D1\nM6\nS2000 M3\nG0 X0 Y0 Z50\nG1 Z-2 F200\nG1 X100 F1000\nG1 Y60\nG1 X0\nG1 Y0\nM30\n"
FILES = ["BRACKET", "COVER_LEFT", "COVER_RIGHT", "FLANGE_120", "HOUSING_A", "PLATE", "POCKET", "POCKET_FINISH"]
FOLDERS = ["FIXTURES", "OLD JOBS", "PARTS", "TESTS"]
FIND, TOGGLE_PIN, MOVE_TO_TREE = 32774, 32791, 32777
TREE = 1106


class Panel:
    """A panel without a display."""

    def __init__(self, program, root):
        command = [program, "--headless", "--rpc", "--root", root, "--size", "800x600"]
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def ask(self, method, **params):
        self.process.stdin.write(json.dumps({"jsonrpc": "2.0", "id": 1, "method": method, "params": params}) + "\n")
        self.process.stdin.flush()
        reply = json.loads(self.process.stdout.readline())
        if "error" in reply:
            raise SystemExit(f"{method}: {reply['error']['message']}")
        return reply["result"]

    def close(self):
        self.process.stdin.close()
        self.process.wait()


def make_files(root):
    programs = root / "CNC" / "PROGRAMS"
    for folder in FOLDERS:
        (programs / folder).mkdir(parents=True)
    for number, name in enumerate(FILES, 1):
        (programs / f"{name}.NC").write_text(PROGRAM.format(name) * number * 9)
    return programs


def network(programs):
    def share(name):
        return {"display": 3, "remote": rf"\\OFFICE\{name}", "dir": str(programs)}

    office = {"display": 2, "remote": r"\\OFFICE", "children": [share("PROGRAMS"), share("ARCHIVE")]}
    store = {"display": 2, "remote": r"\\STORE", "error": 51}
    domain = {"display": 1, "remote": "WORKSHOP", "children": [office, store]}
    return [{"display": 6, "provider": "Network", "comment": "Network", "children": [domain]}]


def open_explorer(panel, file):
    record = {"Owner": 1006, "Title": "Program", "Path": r"C:\CNC\PROGRAMS", "File": file, "Filter": "*", "Flags": 0}
    panel.ask("xplr.publish", record=record)
    return panel.ask("tool.load", tool=5)["window"]


def take(program, out, root):
    programs = make_files(root)
    panel = Panel(program, str(root))
    panel.ask("drive.set", letter="C", dir=str(root), label="MACHINE")
    panel.ask("drive.set", letter="E", dir=str(root), type=2)
    panel.ask("network.set", roots=network(programs))
    window = open_explorer(panel, "POCKET.NC")

    def picture(name):
        panel.ask("ui.capture", file=str(out / f"explorer-{name}.png"))

    picture("1-tree")
    panel.ask("ui.type", window=window, text="pocket_")
    picture("2-typed")
    panel.ask("ui.command", window=window, id=FIND)
    panel.ask("ui.type", window=window, text="cover")
    panel.ask("ui.key", window=window, key="Enter")
    picture("3-find")
    panel.ask("ui.key", window=window, key="Escape")
    panel.ask("ui.command", window=window, id=MOVE_TO_TREE)
    form = panel.ask("ui.window", window=window)["view"]
    path = ["Entire Network", "Network", "WORKSHOP", r"\\OFFICE"]
    for depth in range(1, len(path) + 1):
        panel.ask("ui.tree.expand", window=form, id=TREE, path=path[:depth])
    panel.ask("ui.tree.select", window=form, id=TREE, path=path[:3] + [r"\\STORE"])
    picture("4-network")
    panel.ask("ui.tree.select", window=form, id=TREE, path=["C:  (MACHINE)", "CNC", "PROGRAMS"])
    panel.ask("ui.command", window=window, id=TOGGLE_PIN)
    picture("5-pinned")
    panel.close()


def main():
    program, out = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
    with tempfile.TemporaryDirectory() as root:
        take(program, out, pathlib.Path(root))


main()
