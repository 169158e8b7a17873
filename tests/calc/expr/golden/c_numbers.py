# SPDX-License-Identifier: MIT
"""Doubles as the program's machine has them: the C library's functions through ctypes, so that infinities and NaN come
out as they do there, and divisions and conversions that raise nothing."""
import ctypes
import ctypes.util
import math
import random
from fractions import Fraction


class Libm:
    """The C library's functions. They note whether a result may differ in its last place on another machine, and with
    nudge set they make it differ, which shows how far an answer depends on those places."""

    def __init__(self):
        self.libm = ctypes.CDLL(ctypes.util.find_library("m"))
        self.nudge = False
        self.rounded = False
        self.random = random.Random(7)

    def __call__(self, name, *arguments):
        function = getattr(self.libm, name)
        function.restype = ctypes.c_double
        function.argtypes = [ctypes.c_double] * len(arguments)
        result = function(*arguments)
        if self.is_exact(name, arguments, result):
            return result
        self.rounded = True
        if self.nudge:
            result = math.nextafter(result, self.random.choice((-math.inf, result, math.inf)))
        return result

    @staticmethod
    def is_exact(name, arguments, result):
        if not all(map(math.isfinite, (result, *arguments))) or result == 0 or arguments[0] == 0:
            return True
        if name != "pow":
            return False
        base, exponent = arguments
        if exponent == 0 or base == 1:
            return True
        return (exponent == int(exponent) and abs(exponent) < 1100 and abs(math.log2(abs(base)) * exponent) < 1100
                and Fraction(base) ** int(exponent) == Fraction(result))


libm = Libm()


def divide(a, b):
    if b != 0:
        return a / b
    if a == 0 or math.isnan(a):
        return math.nan
    return math.copysign(math.inf, a) * math.copysign(1.0, b)


def truncated(x, bits):
    """Conversion to a signed integer as the processor does it: the lowest value for whatever doesn't fit."""
    lowest = -(1 << (bits - 1))
    if math.isnan(x) or math.isinf(x):
        return lowest
    n = int(x)
    return n if lowest <= n < -lowest else lowest


def low_word(x):
    return truncated(x, 64) & 0xFFFFFFFF


def signed_word(n):
    n &= 0xFFFFFFFF
    return n - (1 << 32) if n >> 31 else n
