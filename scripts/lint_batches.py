# SPDX-License-Identifier: MIT
"""Puts units that can share one run of clang-tidy into batches: most of a run goes into the headers, not into the unit.

    python3 lint_batches.py BUILD OUT MOST UNIT...

Writes OUT/batch_<n>.cpp, which includes its units, and OUT/compile_commands.json with the batches and the single units,
and prints the batches' names. A batch has at most MOST units, all compiled with the same flags, that don't clash.
OUT/batch_<n>.txt lists the units, for a run one by one.
"""

import json
import pathlib
import re
import sys

from unit_groups import groups_of

PRECOMPILED = re.compile(r"-Winvalid-pch|-include \S*cmake_pch\.hxx")


def batches_of(entries, most):
    """Lists of entries that can share a run."""
    groups = {}
    for entry in entries:
        flags = re.sub(r" -o \S+| -c \S+", "", entry["command"])
        groups.setdefault(flags, {})[entry["file"]] = entry
    return [[group[file] for file in batch] for group in groups.values() for batch in groups_of(list(group), most)]


def main(build, out, most, units):
    root = pathlib.Path.cwd()
    wanted = {str(root / unit) for unit in units}
    out = (root / out).resolve()
    out.mkdir(parents=True, exist_ok=True)
    for old in out.glob("batch_*"):
        old.unlink()
    entries = {e["file"]: e for e in json.loads((root / build / "compile_commands.json").read_text(encoding="utf-8"))}
    for entry in entries.values():
        # clang can't read the headers that GCC precompiled: every unit includes what it needs itself.
        entry["command"] = PRECOMPILED.sub("", entry["command"])
    unknown = sorted(wanted - entries.keys())
    if unknown:
        sys.exit("The build doesn't compile " + ", ".join(unknown))
    commands = list(entries.values())
    # The longest come first, so that no core waits for one of them at the end.
    chosen = sorted(batches_of([e for f, e in entries.items() if f in wanted], most), key=len, reverse=True)
    for number, batch in enumerate(chosen):
        source = out / f"batch_{number:02}.cpp"
        files = [entry["file"] for entry in batch]
        source.write_text("".join(f'#include "{f}"  // NOLINT(bugprone-suspicious-include)\n' for f in files), "utf-8")
        source.with_suffix(".txt").write_text("\n".join(files) + "\n", "utf-8")
        commands.append({**batch[0], "file": str(source),
                         "command": batch[0]["command"].replace(f" -c {files[0]}", f" -c {source}")})
        print(source)
    (out / "compile_commands.json").write_text(json.dumps(commands), "utf-8")


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2], int(sys.argv[3]), sys.argv[4:])
