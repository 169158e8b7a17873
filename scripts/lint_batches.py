# SPDX-License-Identifier: MIT
"""Puts units that can share one run of clang-tidy into batches: most of a run goes into the headers, not into the unit.

    python3 lint_batches.py BUILD OUT MOST UNIT...

Writes OUT/batch_<n>.cpp, which includes its units, and OUT/compile_commands.json with the batches and the single units,
and prints the batches' names. A batch has at most MOST units, all compiled with the same flags, and no two that give
the same name to something of their own. OUT/batch_<n>.txt lists the units, for a run one by one.
"""

import json
import pathlib
import re
import sys

OWN = re.compile(r"^(?!return|using|namespace|template|public|private|//|#|\}|\s)[\w:<>&*,\s\[\]]*?\b(\w+)\s*(?:\(|=|\{|;|\[|:\s)")
PRECOMPILED = re.compile(r"-Winvalid-pch|-include \S*cmake_pch\.hxx")


def own_names(text):
    """What a unit declares in its unnamed namespaces, and its static functions."""
    names = set()
    inside = False
    for line in text.split("\n"):
        if re.match(r"namespace \{", line):
            inside = True
        elif re.match(r"\}  // namespace$", line):
            inside = False
        elif inside or line.startswith("static "):
            match = OWN.match(line)
            if match:
                names.add(match.group(1))
    return names


def batches_of(entries, most):
    """Lists of entries, greedily: each unit goes into the first batch with its flags that takes it."""
    groups = {}
    for entry in entries:
        path = pathlib.Path(entry["file"])
        flags = re.sub(r" -o \S+| -c \S+", "", entry["command"])
        own = own_names(path.read_text(encoding="utf-8"))
        for batch, names in groups.setdefault(flags, []):
            if len(batch) < most and not names & own:
                batch.append(entry)
                names |= own
                break
        else:
            groups[flags].append(([entry], set(own)))
    return [batch for group in groups.values() for batch, _ in group]


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
