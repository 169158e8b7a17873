# SPDX-License-Identifier: MIT
"""Which sources can be compiled as one unit: most of the compiler's time goes into what they all include.

    python3 unit_groups.py MOST FILE...

prints a line for each file, its group's number and its path. A group has at most MOST files. What a file has of its own (in
its unnamed namespaces, static functions, macros) is named nowhere in another file of its group: there it would clash,
or mean something else.
"""

import pathlib
import re
import sys

DECLARED = re.compile(r"^(?!return|using|namespace|template|public|private|protected|//|#|\}|\s)[\w:<>&*,\s\[\]]*?\b(\w+)\s*(?:\(|=|\{|;|\[)")
TYPE = re.compile(r"^(?:class|struct|union|enum(?: class)?) (\w+)")
MACRO = re.compile(r"^#define (\w+)", re.M)
NOT_CODE = re.compile(r'//[^\n]*|/\*.*?\*/|R"\((?:.|\n)*?\)"|"(?:\\.|[^"\\\n])*"|#include[^\n]*', re.S)


def own_names(text):
    """What a source declares for itself."""
    names = set(MACRO.findall(text))
    inside = False
    for line in text.split("\n"):
        if re.match(r"namespace \{", line):
            inside = True
        elif re.match(r"\}  // namespace$", line):
            inside = False
        elif inside or line.startswith("static "):
            match = TYPE.match(line) or DECLARED.match(line)
            if match:
                names.add(match.group(1))
    return names


def groups_of(files, most):
    """Lists of paths, greedily: each file goes into the first group that takes it."""
    groups = []
    for file in files:
        text = pathlib.Path(file).read_text(encoding="utf-8")
        own = own_names(text)
        words = set(re.findall(r"\w+", NOT_CODE.sub(" ", text)))
        for group in groups:
            if len(group["files"]) < most and not own & group["words"] and not group["own"] & words:
                break
        else:
            group = {"files": [], "own": set(), "words": set()}
            groups.append(group)
        group["files"].append(file)
        group["own"] |= own
        group["words"] |= words
    return [group["files"] for group in groups]


def main(most, files):
    for number, group in enumerate(groups_of(files, most)):
        for file in group:
            print(number, file)


if __name__ == "__main__":
    main(int(sys.argv[1]), sys.argv[2:])
