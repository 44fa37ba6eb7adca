#!/usr/bin/env python3
"""Reference values for the mathematical handlers reached through command lines.

Writes tests/data/math_handler_vectors.txt: one case per line,
    digits <TAB> trigmode <TAB> command line <TAB> real part <TAB> imaginary part
where the imaginary part is "-" for a Real result. Values are given with
digits + 25 significant digits, computed by mpmath at far higher precision.
Arguments are decimal texts, read exactly by both sides.
"""
import os
import mpmath as mp

DIGITS = [12, 20, 80, 300, 1000]


def D(text):
    return mp.mpf(text)


def deg(text):
    return D(text) * mp.pi / 180


# (line, trig mode, function of nothing giving the value)
CASES = []


def case(line, value, trigmode=0, every=True):
    CASES.append((line, trigmode, value, every))


for a in ["2", "0.5", "12345.678", "1E-7"]:
    case(f"{a} sqrt", lambda a=a: mp.sqrt(D(a)))
for a in ["1", "-2.5", "100", "0.001"]:
    case(f"{a} exp", lambda a=a: mp.exp(D(a)))
for a in ["0.5", "-3.3", "100.25"]:
    case(f"{a} exp2", lambda a=a: mp.power(2, D(a)))
for a in ["0.5", "-1.25", "7.3"]:
    case(f"{a} exp10", lambda a=a: mp.power(10, D(a)))
for a in ["2", "0.1", "1E50", "7.5"]:
    case(f"{a} ln", lambda a=a: mp.log(D(a)))
for a in ["2", "0.37", "12345"]:
    case(f"{a} log", lambda a=a: mp.log10(D(a)))
for a in ["3", "0.7", "1000"]:
    case(f"{a} log2", lambda a=a: mp.log(D(a), 2))
for f, g in [("sin", mp.sin), ("cos", mp.cos), ("tan", mp.tan)]:
    for a in ["0.5", "2", "-3", "100", "0.001"]:
        case(f"{a} {f}", lambda a=a, g=g: g(D(a)))
    for a in ["1", "30.5", "45.25", "123.456", "-200", "1E20", "89.99"]:
        case(f"{a} {f}", lambda a=a, g=g: g(deg(a)), trigmode=1)
for a in ["0.5", "-7.25"]:
    case(f"{a} sinc", lambda a=a: mp.sin(D(a)) / D(a))
    case(f"{a} sinc", lambda a=a: mp.sin(deg(a)) / deg(a), trigmode=1)
for a in ["0.3", "-0.9"]:
    case(f"{a} asin", lambda a=a: mp.asin(D(a)))
    case(f"{a} acos", lambda a=a: mp.acos(D(a)))
for a in ["0.5", "-7", "1E10"]:
    case(f"{a} atan", lambda a=a: mp.atan(D(a)))
for y, x in [("1", "2"), ("-3", "-0.5"), ("0.25", "-4")]:
    case(f"{y} {x} atan2", lambda y=y, x=x: mp.atan2(D(y), D(x)))
for f, g in [("sinh", mp.sinh), ("cosh", mp.cosh), ("tanh", mp.tanh)]:
    for a in ["0.5", "-3", "20"]:
        case(f"{a} {f}", lambda a=a, g=g: g(D(a)))
for a in ["0.5", "-10"]:
    case(f"{a} asinh", lambda a=a: mp.asinh(D(a)))
for a in ["1.5", "10"]:
    case(f"{a} acosh", lambda a=a: mp.acosh(D(a)))
for a in ["0.5", "-0.99"]:
    case(f"{a} atanh", lambda a=a: mp.atanh(D(a)))
for y, x in [("2", "0.5"), ("1.5", "2.5"), ("10", "-1.5"), ("2.5", "7"), ("-8", "3.0"), ("3", "-2")]:
    case(f"{y} {x} ^", lambda y=y, x=x: mp.power(D(y), D(x)))
case("1 deg", lambda: 180 / mp.pi)
case("30 rad", lambda: mp.pi / 6)
# Complex results.
case("-4 sqrt", lambda: mp.sqrt(D("-4")))
case("-2 ln", lambda: mp.log(D("-2")))
case("-100 log", lambda: mp.log10(D("-100")))
case("2 asin", lambda: mp.asin(D("2")))
case("-2 acos", lambda: mp.acos(D("-2")))
case("0.5 acosh", lambda: mp.acosh(D("0.5")))
case("-2 acosh", lambda: mp.acosh(D("-2")))
case("2 atanh", lambda: mp.atanh(D("2")))
case("-2 atanh", lambda: mp.atanh(D("-2")))
case("-8 0.25 ^", lambda: mp.power(D("-8"), D("0.25")))
Z = "1.5 0.5 i * +"        # 1.5 + 0.5i


def z():
    return mp.mpc(D("1.5"), D("0.5"))


for f, g in [("sqrt", mp.sqrt), ("exp", mp.exp), ("ln", mp.log), ("sin", mp.sin), ("cos", mp.cos),
             ("tan", mp.tan), ("sinh", mp.sinh), ("cosh", mp.cosh), ("tanh", mp.tanh), ("asin", mp.asin),
             ("acos", mp.acos), ("atan", mp.atan), ("asinh", mp.asinh), ("acosh", mp.acosh), ("atanh", mp.atanh)]:
    case(f"{Z} {f}", lambda g=g: g(z()))
case(f"{Z} exp2", lambda: mp.power(2, z()))
case(f"{Z} log", lambda: mp.log10(z()))
case(f"{Z} 3 ^", lambda: mp.power(z(), 3))
case(f"{Z} 0.5 ^", lambda: mp.power(z(), D("0.5")))
case(f"2 {Z} ^", lambda: mp.power(2, z()))
case(f"{Z} 1.5 i * 2 - /", lambda: z() / mp.mpc(-2, D("1.5")))
case(f"{Z} sinc", lambda: mp.sin(z()) / z())
case(f"{Z} acosh neg", lambda: -mp.acosh(z()))
case(f"{Z} conj acosh", lambda: mp.acosh(mp.conj(z())))
case(f"{Z} neg acosh", lambda: mp.acosh(-z()))


def text(x, digits):
    if x == 0:
        return "0"
    return mp.nstr(x, digits + 25, min_fixed=1, max_fixed=0, strip_zeros=False).replace("e+", "e")


def main():
    out = os.path.join(os.path.dirname(__file__), "..", "data", "math_handler_vectors.txt")
    lines = ["# digits\ttrigmode\tline\treal\timaginary ('-' for a Real result); mpmath references"]
    for index, (line, trigmode, value, every) in enumerate(CASES):
        for digits in DIGITS:
            if digits == 1000 and index % 3 != 0:
                continue
            mp.mp.dps = digits + 60
            v = value()
            if isinstance(v, mp.mpc):
                re, im = text(v.real, digits), text(v.imag, digits)
            else:
                re, im = text(v, digits), "-"
            lines.append(f"{digits}\t{trigmode}\t{line}\t{re}\t{im}")
    with open(out, "w") as f:
        f.write("\n".join(lines) + "\n")
    print(len(lines) - 1, "cases")


if __name__ == "__main__":
    main()
