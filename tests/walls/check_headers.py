# SPDX-License-Identifier: MIT
"""Fails when a header doesn't compile alone: every header is compiled as a source of its own, without precompiled ones.

The Qt and pugixml include paths come from the build's own compile commands.
"""

import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys


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


def compile_alone(root, header, flags):
    """The compiler's complaint, or nothing."""
    language = ["-x", "c", "-std=c11"] if header.endswith("pnltools.h") else ["-x", "c++", "-std=c++20"]
    command = ["g++" if "c++" in language else "gcc", *language, "-fsyntax-only", "-Wall", "-Wextra", "-Werror",
               "-Wno-pragma-once-outside-header", "-fPIC", *flags, "-include", header, os.devnull]
    done = subprocess.run(command, cwd=root, capture_output=True, text=True, check=False)
    return f"{header}:\n{done.stderr}" if done.returncode else ""


def main(root, commands):
    headers = sorted(str(p) for folder in ("src", "panel", "include") for p in (pathlib.Path(root) / folder).rglob("*.h"))
    flags = [f"-I{root}/src", f"-I{root}/include", f"-I{root}/panel", *include_flags(commands)]
    # The public header must compile as C without any of these.
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        findings = [f for f in pool.map(
            lambda h: compile_alone(root, h, [f"-I{root}/include"] if h.endswith("pnltools.h") else flags), headers) if f]
    print("\n".join(findings) or f"{len(headers)} headers compile alone")
    return 1 if findings or not headers else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2]))
