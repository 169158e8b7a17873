# SPDX-License-Identifier: MIT
"""An independent implementation of the calculator's language, for writing tests only.

It shares nothing with the program but the C library's mathematical functions. It is written the plain way round
(exceptions for failures, one small method a grammar row) and is slow. make_goldens.py writes the golden table with it.
"""
import math

from c_numbers import divide, libm, low_word, signed_word, truncated

FUNCTIONS = ("ABS SQRT LOG INVLOG LN INVLN SIN COS TAN INVSIN INVCOS INVTAN SH CH TH INVSH INVCH INVTH MMTOI ITOMM "
             "INTEGRAL INT ZERO").split()
CONSTANTS = "ACC PI MMPERI IPERMM".split()
LOGIC = "OR XOR AND NOT".split()
KEYWORDS = [("function", k) for k in FUNCTIONS] + [("constant", k) for k in CONSTANTS] + [("logic", k) for k in LOGIC]
DELIMITERS = ";:=+-*/%^!()"
LONGEST = 255
KEPT_DIGITS = 33
PI = 3.141592653589793  # twice the arc sine of 1, which every C library rounds to this double


class CompileError(Exception):
    """The text is refused; position is the failing place."""

    def __init__(self, position):
        super().__init__(position)
        self.position = position


class DomainError(Exception):
    """The evaluation failed."""


# ---- text to tokens: (kind, value, position)


def scan(text):
    if len(text) > LONGEST:
        raise CompileError(LONGEST)
    upper = "".join(c.upper() if c.isascii() else c for c in text)
    tokens, at = [], 0
    while at < len(upper):
        kind, value, end = scan_number(upper, at) or scan_word(upper, at) or (None, None, at + 1)
        if kind:
            tokens.append((kind, value, at))
        elif upper[at] != " ":
            raise CompileError(at)
        at = end
    tokens.append(("end", None, len(text)))
    return tokens


def digits(text, at, allowed, kept):
    """The digits from there on: those that are kept, and where they end."""
    end = at
    while end < len(text) and text[end] in allowed:
        end += 1
    return text[at:end][:kept], end


DECIMAL = "0123456789"


def scan_number(text, start):
    if text[start] in "$B":
        base, allowed, kept = (16, DECIMAL + "ABCDEF", 8) if text[start] == "$" else (2, "01", 32)
        found, end = digits(text, start + 1, allowed, kept)
        return ("number", float(int(found, base)), end) if found else None
    seeded = text[start] == "."
    whole, at = digits(text, start + seeded, DECIMAL, KEPT_DIGITS)
    if not whole:
        return None
    no_value = ("number", None, at)
    value = ("0." if seeded else "") + whole
    if text[at:at + 1] == ".":
        fraction, after = digits(text, at + 1, DECIMAL, KEPT_DIGITS)
        if not fraction:
            return no_value
        at = after
        no_value = ("number", None, at)
        # Behind a leading point a second one ends what counts, yet its digits are consumed.
        value += "" if seeded else "." + fraction
        point_twice = seeded
    else:
        point_twice = False
    if text[at:at + 1] == "E" and text[at + 1:at + 2] != "" and text[at + 1] in "+-" + DECIMAL:
        sign = text[at + 1] if text[at + 1] in "+-" else ""
        kept = KEPT_DIGITS - (sign == "-")
        exponent, end = digits(text, at + 1 + len(sign), DECIMAL, kept)
        if not exponent:
            return no_value
        value += "" if point_twice else "E" + sign + exponent
        at = end
    return ("number", float(value), at)


def scan_word(text, at):
    for kind, word in KEYWORDS:
        if text.startswith(word, at):
            return (kind, word, at + len(word))
    if "A" <= text[at] <= "Z":
        return ("variable", text[at], at + 1)
    if text[at] in DELIMITERS:
        return ("delimiter", text[at], at + 1)
    return None


# ---- tokens to a tree: (kind, value, left, right)


class Parser:
    def __init__(self, tokens):
        self.tokens = tokens
        self.at = 0

    def peek(self, ahead=0):
        return self.tokens[min(self.at + ahead, len(self.tokens) - 1)][:2]

    def refuse(self):
        raise CompileError(self.tokens[self.at][2])

    def take(self):
        token = self.peek()
        self.at += 1
        return token

    def is_one(self, kind, values):
        return self.peek()[0] == kind and self.peek()[1] in values

    def parse(self):
        tree = self.sequence()
        if self.peek()[0] != "end":
            self.refuse()
        return tree

    def chain(self, operand, kind, values):
        tree = operand()
        while self.is_one(kind, values):
            token = self.take()
            tree = (*token, tree, operand())
        return tree

    def sequence(self):
        return self.chain(self.assignment, "delimiter", ";:")

    def assignment(self):
        if self.peek()[0] == "variable" and self.peek(1) == ("delimiter", "="):
            leaf = (*self.take(), None, None)
            return (*self.take(), leaf, self.assignment())
        return self.logical_or()

    def logical_or(self):
        return self.chain(self.logical_xor, "logic", ["OR"])

    def logical_xor(self):
        return self.chain(self.logical_and, "logic", ["XOR"])

    def logical_and(self):
        return self.chain(self.additive, "logic", ["AND"])

    def additive(self):
        return self.chain(self.multiplicative, "delimiter", "+-")

    def multiplicative(self):
        return self.chain(self.logical_not, "delimiter", "*/%")

    def logical_not(self):
        if self.is_one("logic", ["NOT"]):
            return (*self.take(), self.logical_not(), None)
        return self.prefix()

    def prefix(self):
        if self.peek()[0] == "function" or self.is_one("delimiter", "-"):
            return (*self.take(), self.prefix(), None)
        return self.power()

    def power(self):
        tree = self.postfix()
        if self.is_one("delimiter", "^"):
            token = self.take()
            tree = (*token, tree, self.prefix())
        return tree

    def postfix(self):
        tree = self.primary()
        while self.is_one("delimiter", "!"):
            tree = (*self.take(), tree, None)
        return tree

    def primary(self):
        if self.is_one("delimiter", "("):
            self.take()
            tree = self.assignment()
            if not self.is_one("delimiter", ")"):
                self.refuse()
            self.take()
            return tree
        if self.peek()[0] in ("variable", "number", "constant"):
            return (*self.take(), None, None)
        return self.refuse()


def compile_text(text):
    tokens = scan(text)
    if sum(value in ("INTEGRAL", "ZERO") for _, value, _ in tokens) > 1:
        raise CompileError(len(text))
    return Parser(tokens).parse()


def describe(tree):
    if tree is None:
        return ""
    kind, value, left, right = tree
    if kind == "function":
        return value + describe(left)
    if kind == "delimiter":
        if value == "-" and right is None:
            return "(-" + describe(left) + ")"
        return "(" + describe(left) + value + describe(right) + ")"
    if kind == "variable":
        return value
    return "%g" % value if kind == "number" else "(Error!)"


# ---- a tree's value


class Evaluation:
    """One evaluation over a store: a dictionary of A to Z and ACC, which it changes."""

    def __init__(self, store, radians):
        self.store = store
        self.scale = 1.0 if radians else 180 / PI

    def run(self, tree):
        result = self.value(tree)
        if abs(result) < 1e-14:
            result = 0.0
        self.store["ACC"] = result
        return result

    def value(self, tree):
        kind, name, left, right = tree
        if kind == "number":
            return name
        if kind == "variable":
            return self.store[name]
        if kind == "constant":
            return {"ACC": self.store["ACC"], "PI": PI, "MMPERI": 25.4, "IPERMM": 0.03937007874015748}[name]
        if kind == "function":
            return self.function(name, left)
        if kind == "logic":
            return self.logic(name, left, right)
        return self.operator(name, left, right)

    def logic(self, name, left, right):
        a = low_word(self.value(left))
        if name == "NOT":
            return float(a ^ 0xFFFFFFFF)
        b = low_word(self.value(right))
        return float({"OR": a | b, "XOR": a ^ b, "AND": a & b}[name])

    def operator(self, name, left, right):
        if name == "=":
            self.store[left[1]] = self.value(right)
            return self.store[left[1]]
        if name == "/":
            b = self.value(right)
            if b == 0:
                raise DomainError
            return self.value(left) / b
        a = self.value(left)
        if right is None:
            return -a if name == "-" else self.factorial(a)
        b = self.value(right)
        if name in ";:":
            return b
        if name == "^":
            return power(a, b)
        return {"+": lambda: a + b, "-": lambda: a - b, "*": lambda: a * b, "%": lambda: a * b / 100}[name]()

    @staticmethod
    def factorial(a):
        n = truncated(a, 32)
        if n < 0:
            raise DomainError
        product = 1.0
        for i in range(2, min(n, 200) + 1):
            product *= float(i)
        return product

    def function(self, name, operand):
        if name == "INTEGRAL":
            return self.integral(operand)
        x = self.value(operand)
        if name == "ZERO":
            return self.zero(operand)
        if (name == "SQRT" and x < 0 or name in ("LOG", "LN") and x <= 0 or name == "INVCH" and x < 1
                or name in ("INVSIN", "INVCOS", "INVTH") and abs(x) > 1):
            raise DomainError
        return {
            "ABS": lambda: abs(x),
            "SQRT": lambda: math.sqrt(x) if not math.isnan(x) else x,
            "LOG": lambda: libm("log10", x),
            "INVLOG": lambda: libm("pow", 10.0, x),
            "LN": lambda: libm("log", x),
            "INVLN": lambda: libm("exp", x),
            "SIN": lambda: libm("sin", x / self.scale),
            "COS": lambda: libm("cos", x / self.scale),
            "TAN": lambda: libm("tan", x / self.scale),
            "INVSIN": lambda: libm("asin", x) * self.scale,
            "INVCOS": lambda: libm("acos", x) * self.scale,
            "INVTAN": lambda: libm("atan", x) * self.scale,
            "SH": lambda: libm("sinh", x),
            "CH": lambda: libm("cosh", x),
            "TH": lambda: libm("tanh", x),
            "INVSH": lambda: libm("log", x + math.sqrt(x * x + 1)),
            "INVCH": lambda: libm("log", x + math.sqrt(x * x - 1)),
            "INVTH": lambda: 0.5 * libm("log", divide(1 + x, 1 - x)),
            "MMTOI": lambda: x / 25.4,
            "ITOMM": lambda: x * 25.4,
            "INT": lambda: float(truncated(x, 32)),
        }[name]()

    def at(self, operand, x):
        self.store["X"] = x
        return self.value(operand)

    def integral(self, operand):
        a, b = self.store["A"], self.store["B"]
        m = signed_word(2 * low_word(self.store["N"]))
        m = 100 if m <= 0 else min(m, 500000)
        h = (b - a) / m
        if h == 0:
            return 0.0
        saved = self.store["X"]
        try:
            total = self.at(operand, a)
            total += self.at(operand, b)
            for i in range(1, m // 2):
                total += 2 * self.at(operand, a + 2 * i * h)
            for i in range(m // 2):
                total += 4 * self.at(operand, a + (2 * i + 1) * h)
        finally:
            self.store["X"] = saved
        return h / 3 * total

    def zero(self, operand):
        x, tolerance = self.store["A"], abs(self.store["E"])
        n = signed_word(low_word(self.store["N"]))
        n = 100 if n <= 0 else min(n, 50000)
        saved = self.store["X"]
        try:
            fx = self.at(operand, x)
            count = 0
            while abs(fx) > tolerance and count < n:
                below = self.at(operand, x - 1e-6)
                above = self.at(operand, x + 1e-6)
                x += divide(fx, (below - above) / (2.0 * 1e-6))
                fx = self.at(operand, x)
                count += 1
        finally:
            self.store["X"] = saved
        return x


def power(a, b):
    if b == 2:
        return a * a
    if a >= 0 or math.isnan(a) or abs(b) >= 1:
        return libm("pow", a, b)
    if math.isnan(b):
        raise AssertionError("a negative base to a power that is no number: not told, so not for the table")
    y = abs(divide(1.0, b))
    n = truncated(y + 0.5, 32)
    if n % 2 == 0:
        raise DomainError
    return -libm("pow", -a, b) if abs(n - y) < 1e-6 else libm("pow", a, b)
