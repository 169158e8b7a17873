#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes expressions.txt, the golden table of the calculator's language. Run by hand when cases.py has changed.

The answers come from oracle.py, an independent implementation of the language, and never from the program that the
table checks. Where an answer passes through a function of the C library whose last place may differ between machines,
the case is computed again with those places moved: it enters the table only if the answer stays within the tolerance
that the table's reader allows.
"""
import math
import pathlib
import struct
import sys
import threading

import cases
from c_numbers import libm
from oracle import CompileError, DomainError, Evaluation, compile_text, describe

HEADER = """\
# The calculator's language: one case a line, columns parted by tabs. Written by make_goldens.py; don't edit by hand.
#   1 store before: settings such as A=1 ACC=2 ("-": none; what isn't named is 0)
#   2 angle unit: deg or rad
#   3 expression; \\t \\n \\r \\\\ and \\u00xx (controls) stand for such characters
#   4 answer: "= v"    the value, exactly; "nan" is any NaN
#             "~ v"    the value within 4 units in the last place: a function of the C library is rounded on its way,
#                      which differs in the last place between processors and versions
#             "8 v"    the value to eight digits: an iteration or a difference makes more of such a last place
#             "domain" the evaluation fails
#             "at n"   Compile refuses the text; n is the failing place in UTF-16 units
#   5 store behind: what changed ("-": nothing). ACC isn't listed: it is the value, or as before when there is none
#   6 canonical text of the tree, for whatever compiles; 5 and 6 are absent for "at"
"""
NUDGES = 6


def fresh_store(settings):
    store = {chr(65 + i): 0.0 for i in range(26)} | {"ACC": 0.0}
    for setting in settings.split():
        name, value = setting.split("=")
        store[name] = float(value)
    return store


def evaluate(tree, settings, unit):
    """The value or None for a domain failure, the store's changes, and whether a last place may differ."""
    store = fresh_store(settings)
    before = dict(store)
    libm.rounded = False
    try:
        value = Evaluation(store, unit == "rad").run(tree)
    except DomainError:
        value = None
    changes = {k: v for k, v in store.items() if k != "ACC" and not same(v, before[k])}
    return value, changes, libm.rounded


def ordered(x):
    """The doubles as integers that count their units in the last place."""
    bits = struct.unpack("<q", struct.pack("<d", x))[0]
    return bits if bits >= 0 else -(bits & 0x7FFFFFFFFFFFFFFF)


def same(a, b):
    return math.isnan(a) and math.isnan(b) or struct.pack("<d", a) == struct.pack("<d", b)


def alike(a, b, close):
    if a is None or b is None:
        return a is b
    return same(a, b) or math.isfinite(a) and math.isfinite(b) and close(a, b)


def within_places(a, b):
    return abs(ordered(a) - ordered(b)) <= 4


def within_digits(a, b):
    return abs(a - b) <= 1e-8 * abs(a)


TOLERANCES = (("~", within_places), ("8", within_digits))


def is_stable(tree, settings, unit, close):
    value, changes, _ = evaluate(tree, settings, unit)
    libm.nudge = True
    try:
        for _ in range(NUDGES):
            again, changes_again, _ = evaluate(tree, settings, unit)
            if not alike(value, again, close) or changes.keys() != changes_again.keys():
                return False
            if not all(alike(changes[name], changes_again[name], close) for name in changes):
                return False
        return True
    finally:
        libm.nudge = False


def number(x):
    return repr(int(x)) if x == int(x) and abs(x) < 1e15 and not same(x, -0.0) else repr(x)


def written(x):
    return number(x) if math.isfinite(x) else repr(x).replace("-nan", "nan")


def escaped(text):
    out = text.replace("\\", "\\\\").replace("\t", "\\t").replace("\n", "\\n").replace("\r", "\\r")
    return "".join(c if c >= " " and c != "\x7f" else "\\u%04x" % ord(c) for c in out)


def line_of(text, settings, unit):
    """The table's line, or None when the answer hangs on last places."""
    columns = [settings or "-", unit, escaped(text)]
    try:
        tree = compile_text(text)
    except CompileError as error:
        return "\t".join(columns + [f"at {error.position}"])
    value, changes, rounded = evaluate(tree, settings, unit)
    kind = "="
    if rounded:
        kind = next((k for k, close in TOLERANCES if is_stable(tree, settings, unit, close)), None)
        if kind is None:
            return None
    answer = "domain" if value is None else f"{kind} {written(value)}"
    behind = " ".join(f"{name}={written(x)}" for name, x in sorted(changes.items())) or "-"
    return "\t".join(columns + [answer, behind, describe(tree)])


def section_lines(section, seen):
    for case in section():
        texts, settings, unit = ((case, "", "") if isinstance(case, str) else (*case, "", ""))[:3]
        texts = texts if isinstance(texts, list) else [texts]
        lines = [line for text in texts if (line := line_of(text, settings, unit or "deg"))]
        line = next((line for line in lines if "\t8 " not in line), next(iter(lines), None))
        if line is None:
            print(f"{section.__name__}: left out, as it hangs on last places: {texts[0]}", file=sys.stderr)
        elif line not in seen:
            seen.add(line)
            yield line


def main():
    seen, count = set(), 0
    path = pathlib.Path(__file__).with_name("expressions.txt")
    with open(path, "w", encoding="utf-8", newline="\n") as out:
        out.write(HEADER)
        for section in cases.SECTIONS:
            out.write(f"# {section.__name__.replace('_', ' ')}\n")
            for line in section_lines(section, seen):
                out.write(line + "\n")
                count += 1
    print(f"{count} cases")


if __name__ == "__main__":
    # Nested brackets recurse some twelve calls a level.
    sys.setrecursionlimit(20000)
    threading.stack_size(512 * 1024 * 1024)
    worker = threading.Thread(target=main)
    worker.start()
    worker.join()
