# SPDX-License-Identifier: MIT
"""The expressions of the golden table, by section: what is written and over which store, never what comes out.

Each section is a generator of cases: a text alone, or with the variables set before it ("A=1 N=0"), or with these and
the angle unit. In place of a text stands a list of texts where the first whose answer is firm is to be taken.
"""
import itertools

from oracle import CONSTANTS, FUNCTIONS, LOGIC

CIRCLE = "SIN COS TAN INVSIN INVCOS INVTAN".split()
SOLVERS = ("INTEGRAL", "ZERO")


def numbers():
    yield from "0 1 7 42 1.5 3.25 0.1 .1 .5 .05 00012 0.0 .0 1234567890 0.30000000000000004 9007199254740993".split()
    yield from "1E3 1e3 1.5E-3 1E+3 .5E1 .5E-1 1E0 1E00 1E-0 2E-14 1E-14 1E-15 9.9E-15 1E308 1E309 1E999".split()
    yield from "1E-308 1E-320 1E-400 1.7976931348623157E308 1.7976931348623159E308 4.9E-324 12.34E+05 1E5E2".split()
    yield from "1E 1E+ 1E- 1EE 1EX 1E+- 1E-+ 1E--5 1E+-5 1E(2) 1E*2 1E=2 1E$2 1EB1 1.5E 1.5E+ 1.5E- .5E .5E+".split()
    yield from "1E+X 1E-X 2E+E 2.5E-.5 1E.5 1E3.5 1E3.5.5 1E3E3 1e+ 5. 5.. 5.E3 5.X . .. ..5 .E5 .X -. .-5".split()
    yield from ".5.25 .5.25E1 .5.25E .5.25.5 .5. .5.X .5..5 1.2.3 1.5.25 1..5 0.5.25 .5.25+1 2*.5.25".split()
    yield from "$ff $FF $0 $10 $7FFFFFFF $80000000 $FFFFFFFF $FFFFFFFF12 $123456789 $000000001 $AbCdEf $1E3".split()
    yield from "$ $G $$1 $.5 $F.5 $FF.5 1$F $FG $ABCDEFG $-1 -$F $E $A+$B $A=1 $B1 $1E+1 2^$A $10% $3! ($F)".split()
    yield from "B0 B1 B101 b101 B2 B B3 BB BE B1E3 B101B B1011 B12 B1.5 B1A B0=1 B=1 B1=1 -B11 B11! B11^B10 2*B11".split()
    yield from ("B" + "1" * n for n in (31, 32, 33, 40))
    yield from ("B" + "0" * 31 + "1", "B" + "0" * 32 + "1", "$" + "F" * 200, "B" + "10" * 100)
    yield from ("1" * n for n in (32, 33, 34, 40, 100, 255))
    yield from ("0." + "0" * n + "1" for n in (31, 32, 33, 40))
    yield from ("1." + "1" * n for n in (32, 33, 34, 60))
    yield from ("." + "3" * n for n in (32, 33, 34, 60))
    yield from ("9" * 33 + "." + "9" * 33 + "E-30", "9" * 34 + "." + "9" * 34 + "E-30", "0" * 33 + "5", "0" * 32 + "5")
    yield from ("1E" + "0" * n + "5" for n in (31, 32, 33, 34))
    yield from ("1E-" + "0" * n + "5" for n in (31, 32, 33, 34))
    yield from ("1E+" + "0" * n + "5" for n in (31, 32, 33, 34))
    yield from ("." + "0" * 40 + "1", ".5." + "0" * 40, "1." + "0" * 40 + "E2", "1E" + "9" * 40, "0E" + "9" * 40)


def letters():
    store = " ".join(f"{chr(65 + i)}={i + 1}.5" for i in range(26))
    for letter in map(chr, range(65, 91)):
        yield letter, store
        yield letter.lower() + "+1", store
        yield f"{letter}={ord(letter) - 60}"
        yield f"{letter}={letter}+1:{letter}^2", store
        yield f"{letter}2", store
    yield from (("ACC", "ACC=3.5"), ("ACC=1", "ACC=3.5"), ("ACC+ACC", "ACC=3.5"), ("-ACC", "ACC=-2"), ("ACC!", "ACC=4"),
                ("ACC^ACC", "ACC=3"), ("acc", "ACC=1E-15"), ("1/ACC", "ACC=0"), ("1/ACC", "ACC=8"), ("A=ACC", "ACC=7"))
    yield from "PI -PI PI^2 2*PI PI! PI% PI=3 pi PIE E*PI MMPERI IPERMM MMPERI*IPERMM MMPERI=1 1/IPERMM".split()
    yield from "PIPI PI2 2PI PIPERI MMPER IPER IPERM MMPERIIPERMM ACCACC AC ACB ACCB NOTPI PIANDPI PIORPI -IPERMM".split()


def keyword_pairs():
    # Operands for those that need one; of several the first whose answer hangs on no function's last place is taken.
    everything = FUNCTIONS + CONSTANTS + LOGIC
    for first, second in itertools.product(everything, everything):
        before = "1" if first in LOGIC[:3] else ""
        operands = ("",) if second in CONSTANTS else (".5", "1", "0", "2", ".25", "X")
        yield [before + first + second + operand for operand in operands], "A=1 B=2 N=2 X=.125 ACC=2"
    yield from FUNCTIONS + LOGIC
    for word in everything:
        # Cut by a letter or a blank, or with a letter behind, a word becomes something else.
        yield word[:-1], "X=1"
        yield word[:1] + " " + word[1:] + " 1", "X=1 A=1"
        yield word[:-1] + "Q" + word[-1:], "X=1"
        yield word + "X", "X=.5 A=1 B=2 N=1"
        yield "X" + word + "1", "X=6"
        yield "1 " + word + " 2", "A=1 B=2"
        yield word.lower() + "(" + "1)", "A=1 B=2"
    yield from "COSH SINH TANH COSHX SINHX INVSINH LNX LOGX LOGLN THE CHEX SHE ASH ACH ATH SHIP CHIP TOR FOR XORX".split()
    yield from "NOR NAND NOTX XNOT INTX INTE INTEGRA INTEGRALX INTEGRALINT MINT ZER ZEROX AXOR BAND BOR BXOR ABSX".split()


def functions():
    arguments = ("0 -0 1E-10 -1E-10 1 -1 .5 -.5 2 -2 30 -45.5 90 180 720 1000 -1000 1E10 1E300 -1E300 1E-320 (-8)^.4 "
                 "0^-1 -(0^-1) X").split()
    for function in FUNCTIONS:
        if function not in SOLVERS:
            for argument in arguments:
                yield f"{function} {argument}", "X=-1.000000000001"
    for function in CIRCLE:
        for argument in arguments:
            yield f"{function} {argument}", "X=.75", "rad"
        yield from ((f"{function}(PI/6)", "", "rad"), (f"{function} 1E22", "", "rad"), (f"{function} -PI", "", "rad"))
    yield from (f"{f}(X)" for f in "INVSIN INVCOS INVTH INVCH SQRT LN LOG".split())
    for value in "1.0000000000000002 -1.0000000000000002 .9999999999999999 1E-320 0 -0".split():
        yield from (f"{f} {value}" for f in "INVSIN INVCOS INVTH INVCH SQRT LN LOG".split())
    for value in "1.9 -1.9 2147483647 2147483647.9 2147483648 -2147483648 -2147483648.9 -2147483649 1E10 -1E10".split():
        yield f"INT {value}"
        yield f"INT({value})+.5"
    yield from ("SIN 30+1", "SIN 2^3", "SIN(30)^2", "SIN 30*2", "SIN COS 0", "SIN-30", "SIN--30", "SIN(-30)", "-SIN 30",
                "SIN 30!", "SIN 3!", "SQRT 16^.5", "SQRT-4", "SQRT 2*8", "ABS-3+1", "ABS ABS-3", "INT LOG 150", "LN-1",
                "2^SIN 30", "2*SIN 30", "2^-SQRT 4", "INVLOG LOG 5", "LN INVLN 2", "LOG 1000", "INVLOG 3", "INVLOG-3",
                "INVSIN SIN 30", "INVTAN TAN 30", "MMTOI ITOMM 3", "ITOMM 1", "MMTOI 25.4", "INVSH SH 1", "INVCH CH 1",
                "INVTH TH .5", "SIN 180", "COS 90", "TAN 45", "SIN 360", "COS 60", "TAN 90", "INVSIN 1", "INVCOS 0",
                "ABS(0/1)", "SQRT(1/0)", "LN 0+1/0", "1+SQRT(-1)+(A=5)", "(A=5)+SQRT(-1)", "SIN", "SIN)", "SIN()",
                "SIN*2", "SIN=2", "SIN+2", "SIN;2", "SIN!", "2 SIN 30", "SIN 30 40", "SIN(30", "SIN NOT 1", "SIN 1,2")


def operators():
    binary = "+ - * / % ^ OR XOR AND = ; :".split()
    for a, b in itertools.product(binary, binary):
        yield f"7{a}3{b}2"
        yield f"A{a}B {b}C", "A=2.5 B=-1.25 C=4"
        yield f"(A{a}B){b}C", "A=2.5 B=-1.25 C=4"
        yield f"A{a}(B{b}C)", "A=-6 B=3 C=.5"
    for a in binary:
        for before, behind, second, last in itertools.product(("", "-", "NOT "), ("", "!"), ("", "-", "NOT "), ("", "!")):
            yield f"{before}3{behind} {a} {second}2{last}"
    for a in binary:
        for text in ("{}", "{}1", "1{}", "1{0}{0}1", "({})", "(1{})", "({}1)", "1{})", "1{}(2", "1{}#", "A{}", "{}A"):
            yield text.format(a), "A=2"
    for a, b, c in (("+", "*", "^"), ("-", "/", "%"), ("OR", "+", "AND"), ("^", "-", "XOR"), ("=", "=", "+")):
        for order in itertools.permutations((a, b, c)):
            yield "A {} B {} C {} D".format(*order), "A=9 B=4 C=2.5 D=3"
    yield from ("-2^2", "(-2)^2", "2^3^2", "(2^3)^2", "2^-1", "2^-2^2", "2*-3", "2--3", "2---3", "--3", "---3", "2+-3",
                "2-+3", "-3!", "(-3)!", "3!!", "2^3!", "(2^3)!", "3!^2", "-3!^2", "2!3", "!3", "3 !", "3! !", "10-4-3",
                "10-(4-3)", "100/10/5", "100/(10/5)", "200%5", "200%5%50", "-200%5", "5%", "%5", "200%5+1", "2*3%50", "8/2*4",
                "8/(2*4)", "8%2/4", "7-2+3", "1+2*3-4/5", "1+2*3^2", "(1+2)*3", "((((7))))", "-(-(-(7)))", "-0", "0-0", "-0+0",
                "1E308*10", "-1E308*10", "1E308*10-1E308*10", "0*(0^-1)", "1E-200*1E-200", ".1+.2", ".1+.2-.3", "1/3",
                "1/3*3", "4/0", "0/0", "4/-0", "4/(1-1)", "0/4", "1/(0^-1)", "1/((-8)^.4)", "2/3/0", "0/(2/0)", "5/1E-320",
                "NOT NOT 1", "NOT 1*2", "2*NOT 1", "-NOT 1", "2^NOT 1", "NOT-1", "NOT 1!", "NOT 2^3", "NOT 1+1", "NOT 1 AND 3",
                "2 NOT 1", "NOT", "NOT)", "NOT(1)", "NOT NOT NOT 0", "2+NOT 1", "2-NOT 1", "2/NOT 1", "2%NOT 1", "1/NOT-1")


def logic():
    values = ("0 1 -1 1.9 -1.9 255 2147483648 4294967295 4294967296 1E18 -1E18 9.3E18 -9.3E18 9223372036854775808 "
              "-9223372036854775808 0^-1 -(0^-1) (-8)^.4 1E300").split()
    for value in values:
        yield from (f"NOT {value}", f"{value} OR 0", f"$F0F0F0F0 XOR {value}", f"{value} AND $FFFF")
        yield f"X AND {value}", "X=-2"
    yield from ("1 OR 2 XOR 3 AND 4", "1 OR(2 XOR(3 AND 4))", "((1 OR 2)XOR 3)AND 4", "12 AND 10", "12 OR 10", "12 XOR 10",
                "-1 AND 255", "-1 OR 0", "-1 XOR-1", "1OR2", "1AND3", "6XOR3", "1 OR", "OR 1", "1 OR OR 2", "1 AND NOT 0",
                "NOT 1 OR 1", "1+2 OR 4+8", "15 AND 3+4", "2*3 XOR 1", "A=1 OR 2", "(A=1)OR(A=2)", "1 OR A=2", "2.5 AND 3.5",
                "NOT 4294967295", "NOT NOT 5.7", "B1100 AND B1010", "$FF XOR B1111", "(A=6)AND(A=A-4)AND A", "1/(0 AND 1)",
                "0 OR 1/0", "(B=3)OR(1/0)OR(C=2)")


def powers():
    for base in ("8", "0", "-0", "1", ".5", "-1", "-8", "-.5", "-27", "0^-1", "-(0^-1)", "(-8)^.4"):
        for exponent in ("0", "1", "-1", "2", "3", "-3", ".5", "-.5", "(1/3)", "(-1/3)", ".2", ".4", ".9", "(1/7)", "2.5",
                         "1E-9", "(0^-1)", "X"):
            yield f"({base})^{exponent}", "X=.3333333"
    # Around the edge of what counts as the reciprocal of an odd number: 1/3 with a relative distance of about 3E-7.
    for exponent in (".33333322222", ".33333322223", ".3333334444", ".3333334446", ".333333", ".33333333", "-.3333334444"):
        yield f"(-8)^{exponent}"
    for exponent in (".6666", ".6667", ".99999", ".999999999", ".4000001", ".3999999", "1E-8", "4.656612874E-10", "1E-10",
                     ".000099990001", ".0001", ".142857142857", "1.0000001", ".9999999999999999"):
        yield f"(-3)^{exponent}"
    yield from (f"{n}!" for n in "0 1 2 3 5 10 20 170 171 172 1000 2147483647 2147483648 1E10 2.9 .5 .999".split())
    yield from (f"({n})!" for n in "-1 -.5 -.999 -1.5 -0 0^-1 (-8)^.4 -2147483648 -(0^-1) 1E999 3!".split())
    yield from ("20!/18!", "171!-171!", "1/171!", "5!%10", "2000000000!", "-2000000000!", "(A=3)!", "A!=3", "3!=A", "(3!)!")


def store_and_order():
    yield from ("A=5", "A=B=3", "A=B=C=D=4", "A=1;B=2;A+B", "A=1:B=2:A-B", "A=1;B=2:C=3;A+B+C", "A=A+1", "(A=2)+1",
                "1+(A=2)", "(A=2)*(B=3)", "(A=1)+(A=2)+A", "A+(A=2)", "(A=2)+A", "(A=2)-(A=5)", "(A=2)/(A=5)", "A/(A=5)",
                "(A=5)/A", "(A=4)%(A=25)", "(A=2)^(A=3)", "A^(A=2)", "(A=2)^A", "(A=6)OR(A=1)", "A OR(A=1)", "(A=6)XOR A",
                "(A=6)AND(A=3)", "-(A=4)", "NOT(A=4)", "(A=4)!", "SIN(A=30)", "SQRT(A=-4)", "A=SQRT-4", "A=1/0", "A=5;1/0",
                "A=5;1/0;A=6", "A=5;B=1/0", "X=1/(A=0)", "(A=7)/0", "0/(A=0)", "(A=1)/(B=0)/(C=2)", "(C=2)/((A=1)/(B=0))",
                "A=1;2", "2;A=1", "1;2;3", "1:2:3", "A;B;C", "A=(B=2;3)", "A=(B=2)", "A=((2))", "A=-B", "A=B;B=A",
                "A=1E-15", "A=1E-15;A", "A=1E-15;A*1E15", "A=-0", "A=-0;1/A", "A=0;1/A", "A=171!", "A=(-8)^.4", "A=NOT A",
                "A=A=2", "A=A", "A=B=1/0", "A=(B=1)/0", "(A=3)=4", "A+B=3", "-A=3", "2=3", "(A)=3", "A==3", "A=", "=", "=3",
                "A=;", "A;=3", "A!=2", "A2=3", "AB=3", "A =3", "A= 3", " A = 3 ", "A=3)", "(A=3", "A=(3", "PI=3", "SIN=3",
                "A=SIN=3", "A=1;B=2;", ";A=1", "A=1;;B=2", "A=1:;2", ";", ":", ";;", "(A=2;B=3)", "(1;2)", "(1:2)", "1;(2",
                "A=ACC", "ACC;A=2;ACC", "A=2;ACC=3", "(A=2)(B=3)", "A=2 B=3", "A=1 OR B=2", "NOT A=1", "A=NOT 1", "2*A=3",
                "A=5;(A=6)/(B=0);A=7", "A=5;LN(A-5);B=1", "(A=1)+(B=LN 0)+(C=3)", "A=(B=LN 0)")
    for text in ("A=A+1;A", "A=B;B=C;C=A", "A*B-C", "A=-A;B=-B", "A=ACC;B=A/2", "X=X+A;Y=X*2;X/Y", "A=B=C", "A/C", "C/A"):
        yield text, "A=1.5 B=-2 C=0 X=8 ACC=.75"
    yield from ((a + op + b, "A=2 B=3") for op in "+-*/%^" for a in ("(A=B)", "(B=A+1)") for b in ("(B=5)", "A", "(A=B)"))


def solvers():
    for n in ("0", "1", "2", "3", "50", "-1", "-7", ".9", "1.9", "2147483648", "1073741824", "1073741825", "4294967297",
              "8589934595", "-2147483647", "-2147483648", "1E19", "-1E19"):
        yield "INTEGRAL X", f"A=0 B=1 N={n}"
        yield "INTEGRAL(X^2)", f"A=-1 B=2 N={n}"
        yield "ZERO(X^2-2)", f"A=1 N={n} E=1E-9"
        yield "ZERO(X+1)", f"A=1 N={n}"
    for text in ("1", "X", "X^2", "(X^2)", "(X^3-X)", "SIN X", "(X^2*SIN X)", "INVLN-X", "(1/X)", "SQRT X", "LN X", "(A*X+B)",
                 "(C=C+1)", "(C=X)", "(A=9)", "(B=A)", "(N=1)", "(X=2)", "(X=X+1)", "((X=X+1)*0)", "(C=C+X)", "-X", "X!",
                 "(X+1)!", "NOT X", "(NOT X)", "X+1", "X*2", "2+X", "ACC", "(ACC=1)", "(X AND 3)", "INT X", "(1/(X-1))",
                 "SQRT(X-1)", "(C=X;1)", "X;C", "(C=C+1)+C", "(C=1/X)", "((C=X)+SQRT(1.5-X))", "(-8)^X", "ABS(X-1)"):
        yield "INTEGRAL " + text, "A=0 B=2 C=0 N=4 X=7"
        yield "ZERO " + text, "A=.5 B=2 C=0 N=4 E=1E-6 X=7"
    for text in ("INTEGRAL X", "INTEGRAL(1/X)", "INTEGRAL(C=5)", "INTEGRAL(1/0)"):
        yield from ((text, s) for s in ("A=3 B=3 N=4 X=7", "A=2 B=1 N=4 X=7", "A=-1 B=1 N=1 X=7", "A=1E-320 B=0 N=9 X=7"))
    for text in ("ZERO(X^2-2)", "ZERO(X^3-8)", "ZERO(X-3)", "ZERO COS X", "ZERO(X^2+1)", "ZERO(LN X)", "ZERO SQRT X", "ZERO 5",
                 "ZERO(INVLN X-3)", "ZERO X", "ZERO(X^2-2)+1", "ZERO X^2-2", "2*ZERO(X-3)", "-ZERO(X-3)", "C=ZERO(X-3)"):
        for store in ("A=1 N=0 E=1E-9", "A=2.5 N=3 E=0", "A=-4 N=50 E=-1E-6", "A=0 N=2 E=100", "A=1 N=5 E=1E-12 X=2"):
            yield text, store
    yield from (("ZERO 1/X", "A=1"), ("ZERO(1/X)", "A=1"), ("ZERO(1/X)", "A=1 X=2 N=3"), ("ZERO SQRT X", "A=1 X=-1"),
                ("ZERO(SQRT(X-1))", "A=1 X=2 N=5"), ("ZERO(C=C+1)", "A=1 X=2 N=3"), ("ZERO(X=5)", "A=1 X=2 N=1"),
                ("ZERO((A=4)+X)", "A=1 X=2 N=2"), ("ZERO((E=9)+X)", "A=1 X=2 N=2"), ("ZERO((N=1)*X)", "A=1 N=9 X=1"),
                ("ZERO((C=C+1)*0+X-1)", "A=1"), ("ZERO((-8)^.4)", "A=1 X=2"), ("ZERO(0^-1)", "A=1 N=2"),
                ("(X=3)+ZERO(X-1)", "A=1"), ("ZERO(X-1)+X", "A=1 X=4"), ("INTEGRAL(X)+X", "B=1 N=1 X=4"),
                ("A=0;B=1;N=2;INTEGRAL X", ""), ("A=2;N=9;E=1E-9;ZERO(X^2-2)", ""), ("A=0:B=PI:N=9:INTEGRAL SIN X", ""),
                ("INTEGRAL X/(A=1)", "B=4 N=1"), ("(A=1)/INTEGRAL X", "B=4 N=1"), ("A=INTEGRAL X", "B=4 N=1"),
                ("INTEGRAL X", "A=0 B=1E999 N=1"), ("INTEGRAL(X^2)", "B=1 N=2000"), ("INTEGRAL X", "B=1 N=250000"))
    # Long enough for any way of taking places together, and failing or ending just before and behind round numbers.
    for n in (15, 16, 17, 31, 32, 33, 63, 64, 65, 127, 128, 129, 500, 1023):
        for text in ("(X*X+1/(X+1))", "(X*X*X-X/3%7)", "SQRT X", "SQRT(2.5-X)", "(C=C+X*X)", "X+X", "(1/(X-C))", "(ABS(X-1)!)",
                     "(X XOR 5)", "(X+ACC)*(X+1)", "INT(3*X)", "(A+B*N)", "(D=D+1/(C-X))"):
            yield "INTEGRAL " + text, f"A=.25 B=3 C=1.5 N={n} X=7 ACC=.125"
    for text in ("A=0:B=PI:N=20:INTEGRAL SIN X", "A=1;INTEGRAL(X*COS X)", "INTEGRAL TAN(X/4)", "ZERO(COS X-X)", "ZERO(SIN X)"):
        yield text, "A=2.5 B=3 N=30 E=1E-9", "rad"
    yield from ("INTEGRAL", "ZERO", "INTEGRAL)", "INTEGRALINTEGRAL", "INTEGRAL INTEGRAL X", "ZERO ZERO X", "ZEROINTEGRALX",
                "INTEGRAL X+ZERO X", "INTEGRAL X;INTEGRAL X", "INTEGRAL X;INTEGRAL X ", ")INTEGRAL ZERO", "INTEGRAL ZERO#",
                "#INTEGRAL ZERO", "INTEGRALZERO +", "INT INTEGRAL X", "INTEGRAL INT X", "INTINT X", "ZERO=1", "INTEGRAL=1",
                "NOT INTEGRAL X", "INTEGRAL NOT X", "2^INTEGRAL X", "INTEGRAL X!", "ZERO X!", "ZEROZEROZERO", "INTEGRAL()")


def refused():
    yield from ("", " ", "     ", "(", ")", "()", "(()", "())", "((", "))", ")(", "(1", "1)", "(1))", "((1)", "(1 2)", "1 2",
                "1 PI", "PI 2", "(1)(2)", "2(3)", "(2)3", "A B", "A 1", "1 A", "2A", "AA", "1+", "1+*2", "*1", "/1", "^1", "+1",
                "+5", "1++1", "1+-+1", "1*/1", "1^^1", "1 + ", "1 + )", "(1+)", "(1+2", "1+(2", "1+(2*", "1+(2*3", "SIN(", "-",
                "--", "-)", "1-", "NOT -", "1!2", "1!A", "1!(2)", "!", "A!!B", "1;", "1; ", "1;;", ";1", "1;)", "(;)", "( )",
                "1 ( 2", "A=(", "A=B=", "A=B=)", "ACC 1", "1 ACC", "PI(", "SIN 30)", "SIN 30 COS 60", "1 OR", "1 AND )", "XOR")
    for bad in ["#", "[", "]", "{", "}", ",", "'", '"', "&", "|", "<", ">", "?", "@", "\\", "_", "`", "~", "$", ".", "\t", "\n",
                "\r", "\u00a0", "\u00e9", "\u00f1", "\u20ac", "\u00b2", "\u2212", "\u00d7", "\u0421", "\U0001f600", "\x7f", "\x01"]:
        yield from (bad, "1+" + bad, "SIN 30 " + bad, "A=" + bad + "1")
    seeds = (["(", "A", "+", "2", ")", "*", "SIN", "30", "^", "2"], ["A", "=", "-", "3", "!", ";", "A", "%", "B"],
             ["NOT", "1", "OR", "$F", "AND", "(", "PI", ")"], ["2", "^", "-", "1", "/", ".5", ":", "X"])
    for seed in seeds:
        for i in range(len(seed)):
            for middle in ([], [seed[i], seed[i]], ["#"], [")"], ["("], ["="], ["7"], ["NOT"], ["+"]):
                yield " ".join(seed[:i] + middle + seed[i + 1:]), "A=3 B=4 X=5"


def spelling():
    yield from ("sin 30", "SIN30", "Sin30", "sIn 30", "SIN  30", " SIN 30 ", "S IN 30", "SI N 30", "sinx", "SINX", "sin x",
                "1 + 2", "1+ 2", " 1+2", "1+2 ", "  1  +  2  ", "1 2 3", "1 .5", "1. 5", "1 E3", "1E 3", "1E3 ", "$ F", "B 1", "b 1",
                "- 2", "- - 2", "2 ^ - 1", "3 !", "3 ! !", "( 1 )", "A = B = 2", "a=b=2", "a=2;A", "A=2;a+1", "inVsIn 1", "InTeGrAl x",
                "Zero(x-1)", "pi", "Pi", "acc", "mmperi", "IperMM", "not 1", "Not Not 1", "1 or 2", "1 oR 2", "1 xor 2", "1aNd3",
                "$aBcD", "$abcdefab", "1e3", "1e-3", "1.5e+3", "b11", "b 11", "MM TOI 1", "MMTO I 1", "mmtoi1", "itomm1",
                "x=1:y=2:x/y", "1or2", "1xor2", "5and3", "notnot5", "sqrt sqrt 16", "sqrtsqrt16", "sinsinsin30", "absint-2.7",
                "12.5+3)*sin 30/4", "(12.5+3)*SIN 30/4", "(12.5+3)*SIN(30)/4", "4*INVTAN 1", "2*PI*40/360", "1000*120/(PI*16)")
    for depth in (10, 60, 126, 127):
        yield "(" * depth + "1" + ")" * depth
        yield "(" * depth + "1" + ")" * (depth - 1)
        yield "(" * depth + ")" * depth
        yield "-" * depth + "1"
        yield "SIN " * (depth // 4) + "X", "X=30"
        yield "NOT " * (depth // 4) + "5"
        yield "3" + "!" * (depth // 10)
        yield "2" + "^1" * depth
        yield "1" + "+2" * depth
        yield "A=" * depth + "4"
        yield "1" + ";2" * depth
        yield "1" + "/2" * depth
        yield "(A=" * (depth // 2) + "1" + ")" * (depth // 2)
    for length in (254, 255, 256, 300):
        yield "1" + "+" * (length % 2 == 0) + "+1" * ((length - 1) // 2)
        yield " " * (length - 1) + "7"
        yield "7" + " " * (length - 1)
        yield "-" * (length - 1) + "3"
        yield "(" * length
        yield "1" * (length - 1) + "#"
        yield "A" * length
        yield "SINX" + "*2" * ((length - 4) // 2), "X=30"
        yield " " * length
        yield "INTEGRAL ZERO" + " " * (length - 13)


SECTIONS = (numbers, letters, keyword_pairs, functions, operators, logic, powers, store_and_order, solvers, refused, spelling)
