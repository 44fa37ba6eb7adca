#!/usr/bin/env python3
"""Writes tests/data/elementary_vectors.txt: reference values of the elementary
functions, the constants and the complex functions, computed with mpmath.

Run from anywhere:  python3 tests/tools/gen_elementary_vectors.py
Deterministic (fixed seed); mpmath only, no floating point in the values.

One case a line, fields separated by blanks, '#' starts a comment:

    <op> D=<digits> <arg> [<arg> ...] -> <value> [<value>]

  op      exp ln log10 log2 sqrt sin cos tan sinc asin acos atan atan2 sinh
          cosh tanh asinh acosh atanh pow powint; the constants pi e gamma ln2
          ln10 deg (180/pi) with no argument; the complex operations cadd csub
          cmul cdiv cabs csqrt cexp cln csin ccos ctan csinh ccosh ctanh casin
          cacos catan cpow (complex exponent) cpowr (real exponent) cpowint
          (integer exponent). A complex argument is two fields (re im); a
          complex result is two values.
  D       the Digits setting: the test computes at the working length D/2 + 8
          bytes and shows D significant digits.
  arg     an exact decimal "[-]d.ddd...e<exp>" of at most D significant digits
          (so exact at the working length), or an integer for powint/cpowint.
  value   the exact result to D + 25 significant digits, rounded to nearest,
          as "[-]d.ddd...e<exp>"; or 0, nan, inf, -inf.

The test rounds its result half up to D significant digits, as the display
does, and requires the same digits as the reference rounded the same way.
Where the algorithm used cannot reach that (cancellation it does not
avoid), tests/data/elementary_known_limits.txt lists the case with its measured
error; the test then asserts that bound instead.
"""
import os
import random

import mpmath
from mpmath import mp, mpf, mpc

SEED = 20240702
EXTRA = 25
OUT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "data", "elementary_vectors.txt")

rng = random.Random(SEED)


# --- values and their text ------------------------------------------------------

def dec_text(x, digits):
    """x (an mpf, exact or not) rounded to `digits` significant digits as
    "[-]d.ddde<exp>"; 0 for zero."""
    if x == 0:
        return "0"
    s = mpmath.nstr(x, digits, min_fixed=1, max_fixed=0, strip_zeros=False)
    # nstr gives "d.ddde+N" / "d.ddde-N"; make the exponent plain.
    mant, _, exp = s.partition("e")
    exp = int(exp) if exp else 0
    mant = mant.rstrip("0").rstrip(".") if "." in mant else mant
    return "%se%d" % (mant, exp)


def value_text(x, digits):
    if isinstance(x, mpc):
        return value_text(x.real, digits) + " " + value_text(x.imag, digits)
    if mpmath.isnan(x):
        return "nan"
    if mpmath.isinf(x):
        return "inf" if x > 0 else "-inf"
    return dec_text(x, digits + EXTRA)


def exact(text):
    """The exact value of an argument text (mpmath at the current precision,
    which is always far above the argument's digits)."""
    return mpf(text)


# --- argument generators ----------------------------------------------------------

def digits_for(D):
    """Significant digits of a random argument: usually all D (exact at the
    working length), sometimes fewer."""
    if D <= 20:
        return D
    return rng.choice([D, D, min(D, 30), min(D, 12)])


def uniform(lo, hi, D):
    with mp.workdps(D + 40):
        x = mpf(lo) + (mpf(hi) - mpf(lo)) * mpf(rng.random())
        return dec_text(x, digits_for(D))


def logrand(lo_exp, hi_exp, D, sign=1):
    with mp.workdps(D + 40):
        e = lo_exp + (hi_exp - lo_exp) * rng.random()
        x = mpf(10) ** mpf(e)
        if sign < 0 or (sign == 0 and rng.random() < 0.5):
            x = -x
        return dec_text(x, digits_for(D))


def one_plus(lo_exp, hi_exp, D, sign=1):
    """1 + sign * 10^u, u in [lo_exp, hi_exp], kept exact in D digits when it fits."""
    with mp.workdps(D + 40):
        e = lo_exp + (hi_exp - lo_exp) * rng.random()
        d = mpf(10) ** mpf(e)
        return dec_text(1 + sign * d, D)


def near(value, rel_exp, D):
    """value perturbed by 10^rel_exp, as D digits."""
    with mp.workdps(D + 60):
        return dec_text(value + (mpf(10) ** rel_exp) * (rng.random() - 0.5), D)


# --- the functions ---------------------------------------------------------------

def real_functions():
    """op -> (arity, function of mpf arguments)."""
    return {
        "exp": (1, mpmath.exp),
        "ln": (1, lambda x: mpmath.log(x) if x > 0 else (mpmath.ninf if x == 0 else mpmath.nan)),
        "log10": (1, lambda x: mpmath.log10(x) if x > 0 else (mpmath.ninf if x == 0 else mpmath.nan)),
        "log2": (1, lambda x: mpmath.log(x, 2) if x > 0 else (mpmath.ninf if x == 0 else mpmath.nan)),
        "sqrt": (1, lambda x: mpmath.sqrt(x) if x >= 0 else mpmath.nan),
        "sin": (1, mpmath.sin),
        "cos": (1, mpmath.cos),
        "tan": (1, mpmath.tan),
        "sinc": (1, lambda x: mpmath.sin(x) / x if x != 0 else mpf(1)),
        "asin": (1, lambda x: mpmath.asin(x) if abs(x) <= 1 else mpmath.nan),
        "acos": (1, lambda x: mpmath.acos(x) if abs(x) <= 1 else mpmath.nan),
        "atan": (1, mpmath.atan),
        "atan2": (2, lambda y, x: mpmath.atan2(y, x) if (x != 0 or y != 0) else mpf(0)),
        "sinh": (1, mpmath.sinh),
        "cosh": (1, mpmath.cosh),
        "tanh": (1, mpmath.tanh),
        "asinh": (1, mpmath.asinh),
        "acosh": (1, lambda x: mpmath.acosh(x) if x >= 1 else mpmath.nan),
        "atanh": (1, lambda x: mpmath.atanh(x) if abs(x) < 1 else mpmath.nan),
        "pow": (2, lambda x, y: mpmath.power(x, y) if x > 0 else (mpf(0) if y > 0 else (mpf(1) if y == 0 else mpmath.inf)) if x == 0 else mpmath.nan),
        "powint": (2, lambda x, n: mpmath.power(x, int(n))),
    }


def real_arguments(op, D, count):
    """`count` argument tuples spread over the domain of op, plus fixed cases."""
    pi = mpmath.pi
    out = []

    def gen():
        r = rng.random()
        if op == "exp":
            if r < 0.35: return (uniform(-10, 10, D),)
            if r < 0.55: return (uniform(-1000, 1000, D),)
            if r < 0.75: return (logrand(-30, -1, D, 0),)
            if r < 0.9: return (logrand(3, 9.5, D, 0),)
            return (near(mpmath.log(10) * rng.randint(-50, 50), -3, D),)
        if op in ("ln", "log10", "log2"):
            if r < 0.3: return (uniform(0.1, 10, D),)
            if r < 0.55: return (logrand(-300, 300, D),)
            if r < 0.7: return (logrand(-100000, 100000, D),)
            if r < 0.85: return (one_plus(-min(D, 30), -1, D, rng.choice([1, -1])),)
            return (near(mpf("3.2"), -rng.randint(2, 10), D),)
        if op == "sqrt":
            if r < 0.6: return (logrand(-300, 300, D),)
            return (uniform(0, 100, D),)
        if op in ("sin", "cos", "tan", "sinc"):
            if r < 0.35: return (uniform(-7, 7, D),)
            if r < 0.5: return (logrand(-30, 0, D, 0),)
            if r < 0.7: return (uniform(-1000, 1000, D),)
            if r < 0.8: return (logrand(3, 8, D, 0),)
            return (near(pi / 4 * rng.randint(-12, 12), -rng.randint(1, 5), D),)
        if op in ("asin", "acos"):
            if r < 0.6: return (uniform(-1, 1, D),)
            if r < 0.8: return (logrand(-30, -1, D, 0),)
            return (one_plus(-min(D, 12), -1, D, -1) if rng.random() < 0.5 else "-" + one_plus(-min(D, 12), -1, D, -1),)
        if op == "atan":
            if r < 0.4: return (uniform(-3, 3, D),)
            if r < 0.7: return (logrand(-30, 30, D, 0),)
            return (near(mpf("0.75") * rng.choice([1, -1]), -rng.randint(2, 8), D),)
        if op == "atan2":
            return (uniform(-10, 10, D), uniform(-10, 10, D)) if r < 0.7 else (logrand(-20, 20, D, 0), logrand(-20, 20, D, 0))
        if op in ("sinh", "cosh", "tanh"):
            if r < 0.5: return (uniform(-10, 10, D),)
            if r < 0.75: return (uniform(-5000, 5000, D),)
            return (logrand(-3, 0, D, 0),)
        if op == "asinh":
            if r < 0.5: return (uniform(-10, 10, D),)
            if r < 0.8: return (logrand(-3, 30, D, 1),)
            return (logrand(-3, 3, D, -1),)
        if op == "acosh":
            if r < 0.5: return (uniform(1, 10, D),)
            if r < 0.8: return (logrand(1, 30, D),)
            return (one_plus(-min(D, 10), 0, D, 1),)
        if op == "atanh":
            if r < 0.6: return (uniform(-0.99, 0.99, D),)
            if r < 0.8: return (logrand(-3, -0.01, D, 0),)
            s = one_plus(-min(D, 10), -1, D, -1)
            return (s if rng.random() < 0.5 else "-" + s,)
        if op == "pow":
            if r < 0.5: return (logrand(-3, 3, D), uniform(-30, 30, D))
            if r < 0.8: return (uniform(0.5, 2, D), uniform(-300, 300, D))
            return (logrand(-50, 50, D), uniform(-5, 5, D))
        if op == "powint":
            n = rng.choice([rng.randint(2, 40), rng.randint(41, 2000), rng.choice([97, 101, 1009, 2003])])
            if rng.random() < 0.3: n = -n
            return (uniform(0.5, 2, D) if rng.random() < 0.7 else uniform(-2, -0.5, D), str(n))
        raise ValueError(op)

    for _ in range(count):
        out.append(gen())
    return out


def fixed_real_cases(D):
    """Special arguments checked at every Digits."""
    cases = [
        ("exp", ("0",)), ("exp", ("1e0",)), ("exp", ("-1e0",)), ("exp", ("2.3e3",)), ("exp", ("-2.3e3",)),
        ("ln", ("1e0",)), ("ln", ("1e1",)), ("ln", ("0",)), ("ln", ("-1e0",)), ("ln", ("3.2e0",)),
        ("log10", ("1e3",)), ("log10", ("1e2",)), ("log2", ("1.024e3",)),
        ("sqrt", ("4e0",)), ("sqrt", ("2e0",)),
        ("sin", ("0",)), ("cos", ("0",)), ("sin", ("1e0",)), ("cos", ("-1e0",)), ("tan", ("1e0",)),
        ("sinc", ("0",)), ("asin", ("1e0",)), ("asin", ("-1e0",)), ("asin", ("5e-1",)), ("asin", ("1.5e0",)),
        ("acos", ("0",)), ("acos", ("-1e0",)), ("acos", ("1e0",)), ("acos", ("-5e-1",)),
        ("atan", ("1e0",)), ("atan", ("-1e0",)), ("atan", ("7.5e-1",)), ("atan", ("0",)),
        ("atan2", ("0", "-1e0")), ("atan2", ("-1e0", "0")), ("atan2", ("0", "0")), ("atan2", ("1e0", "1e0")),
        ("atan2", ("-1e0", "-1e0")), ("atan2", ("0", "2e0")),
        ("sinh", ("1e0",)), ("cosh", ("0",)), ("tanh", ("-2e0",)), ("asinh", ("1e0",)), ("acosh", ("1e0",)),
        ("acosh", ("5e-1",)), ("atanh", ("5e-1",)), ("atanh", ("1e0",)), ("atanh", ("-1e0",)),
        ("pow", ("4e0", "5e-1")), ("pow", ("2e0", "1e1")), ("pow", ("0", "2e0")), ("pow", ("-2e0", "5e-1")),
        ("powint", ("2e0", "10")), ("powint", ("1.5e0", "-3")), ("powint", ("3e0", "0")), ("powint", ("-1.1e0", "1")),
        ("powint", ("1.0001e0", "70000")),
    ]
    if D <= 20:
        cases.append(("powint", ("1.00001e0", "65521")))
    return cases


def hard_cases(D):
    """Arguments where a formula used cancels more digits than the
    working length carries: expected in the known-limits file."""
    half = max(D // 2, 3)
    with mp.workdps(D + 60):
        pi_d = dec_text(+mpmath.pi, D)
        half_pi_d = dec_text(mpmath.pi / 2, D)
        cases = [
            ("sin", (pi_d,)), ("cos", (half_pi_d,)), ("tan", (pi_d,)),
            ("sin", ("1e22",)), ("cos", ("1e22",)),
            ("sin", ("-1e-%d" % (D + 5),)), ("cos", ("-1e-%d" % (D + 5),)),
            ("sinh", ("1e-%d" % half,)), ("tanh", ("-1e-%d" % half,)),
            ("asinh", ("-1e%d" % (half // 2 + 5),)), ("atanh", ("1e-%d" % half,)),
        ]
        if D >= 20:
            cases += [
                ("acos", (dec_text(1 - mpf(10) ** -half, D),)),
                ("acosh", (dec_text(1 + mpf(10) ** -half, D),)),
            ]
    return cases


def complex_functions():
    c = lambda a, b: mpc(a, b)
    return {
        "cadd": (2, lambda z, w: z + w),
        "csub": (2, lambda z, w: z - w),
        "cmul": (2, lambda z, w: z * w),
        "cdiv": (2, lambda z, w: z / w),
        "cabs": (1, lambda z: abs(z)),
        "csqrt": (1, mpmath.sqrt),
        "cexp": (1, mpmath.exp),
        "cln": (1, mpmath.log),
        "csin": (1, mpmath.sin),
        "ccos": (1, mpmath.cos),
        "ctan": (1, mpmath.tan),
        "csinh": (1, mpmath.sinh),
        "ccosh": (1, mpmath.cosh),
        "ctanh": (1, mpmath.tanh),
        "casin": (1, mpmath.asin),
        "cacos": (1, mpmath.acos),
        "catan": (1, mpmath.atan),
        "cpow": (2, lambda z, w: mpmath.exp(w * mpmath.log(z))),
        "cpowr": (2, lambda z, x: mpmath.exp(x * mpmath.log(z))),
        "cpowint": (2, lambda z, n: z ** int(n)),
    }


def complex_arguments(op, D):
    def part(lo=-3, hi=3):
        return uniform(lo, hi, D)

    if op in ("cadd", "csub", "cmul", "cdiv"):
        return (part(-100, 100), part(-100, 100), part(-100, 100), part(-100, 100))
    if op == "cpow":
        return (part(), part(), part(-2, 2), part(-2, 2))
    if op == "cpowr":
        return (part(), part(), uniform(-20, 20, D))
    if op == "cpowint":
        n = rng.choice([rng.randint(2, 30), rng.randint(31, 500)])
        if rng.random() < 0.3: n = -n
        return (part(-1.2, 1.2), part(-1.2, 1.2), str(n))
    if op in ("csin", "ccos", "ctan", "csinh", "ccosh", "ctanh", "cexp"):
        return (part(-4, 4), part(-4, 4))
    return (part(), part())


def fixed_complex_cases():
    return [
        ("csqrt", ("-4e0", "0")), ("csqrt", ("0", "2e0")), ("csqrt", ("3e0", "4e0")),
        ("cexp", ("0", "1e0")), ("cln", ("-1e0", "0")), ("cln", ("0", "1e0")),
        ("casin", ("5e-1", "5e-1")), ("catan", ("5e-1", "5e-1")),
        ("cpowint", ("0", "1e0", "65535")), ("cpowint", ("1e0", "1e0", "-1")), ("cpowint", ("1e0", "1e0", "0")),
        ("cdiv", ("1e0", "0", "0", "1e0")), ("cmul", ("0", "1e0", "0", "1e0")),
    ]


def complex_value(op, args):
    fn = complex_functions()[op][1]
    a = [exact(t) for t in args]
    if op in ("cadd", "csub", "cmul", "cdiv", "cpow"):
        return fn(mpc(a[0], a[1]), mpc(a[2], a[3]))
    if op == "cpowr":
        return fn(mpc(a[0], a[1]), a[2])
    if op == "cpowint":
        return fn(mpc(a[0], a[1]), args[2])
    return fn(mpc(a[0], a[1]))


def real_value(op, args):
    fn = real_functions()[op][1]
    if op == "powint":
        return fn(exact(args[0]), args[1])
    return fn(*[exact(t) for t in args])


def work_dps(D, args):
    """Working precision for the reference: far above D plus the magnitude of
    large arguments (the periodic functions lose that many digits)."""
    extra = 0
    for t in args:
        if "e" in t:
            extra = max(extra, int(t.split("e")[1]))
    return D + EXTRA + 40 + max(0, min(extra, 100))


def line(op, D, args, value):
    return "%s D=%d %s -> %s" % (op, D, " ".join(args), value_text(value, D))


PLAN = {   # Digits -> (random real cases per function, complex cases per op)
    1: (8, 2),
    12: (30, 6),
    20: (12, 3),
    80: (14, 3),
    300: (3, 1),
    1000: (1, 0),
}
THOUSAND_COMPLEX = ["cadd", "cmul", "cdiv", "csqrt", "cexp"]
THOUSAND_SKIP = {"sinc", "log2", "acos", "asinh", "acosh", "atanh", "tanh", "cosh", "atan2"}
CONSTANTS = {
    "pi": lambda: +mpmath.pi, "e": lambda: +mpmath.e, "gamma": lambda: +mpmath.euler,
    "ln2": lambda: +mpmath.ln2, "ln10": lambda: +mpmath.ln10, "deg": lambda: 180 / mpmath.pi,
}


def main():
    lines = [
        "# Elementary functions, constants and complex functions: reference values",
        "# by mpmath %s, generated by tests/tools/gen_elementary_vectors.py (seed %d)." % (mpmath.__version__, SEED),
        "# Format and checks are described in that script.",
    ]
    for D, (real_count, complex_count) in PLAN.items():
        lines.append("# --- Digits %d" % D)
        for name, fn in CONSTANTS.items():
            with mp.workdps(D + EXTRA + 20):
                lines.append("%s D=%d -> %s" % (name, D, value_text(fn(), D)))
        cases = []
        for op in real_functions():
            if D == 1000 and op in THOUSAND_SKIP:
                continue
            with mp.workdps(D + 60):
                cases += [(op, a) for a in real_arguments(op, D, real_count)]
        if D != 1000:
            cases += fixed_real_cases(D)
        if D in (12, 20, 80, 300):
            cases += hard_cases(D)
        else:
            cases += [("exp", ("0",)), ("ln", ("0",)), ("atan2", ("0", "-1e0"))]
        for op, args in cases:
            with mp.workdps(work_dps(D, args)):
                lines.append(line(op, D, args, real_value(op, args)))
        complex_ops = list(complex_functions()) if D != 1000 else THOUSAND_COMPLEX
        ccases = []
        for op in complex_ops:
            count = complex_count if D != 1000 else 1
            with mp.workdps(D + 60):
                ccases += [(op, complex_arguments(op, D)) for _ in range(count)]
        if D <= 80:
            ccases += fixed_complex_cases()
        for op, args in ccases:
            with mp.workdps(work_dps(D, args)):
                lines.append(line(op, D, args, complex_value(op, args)))
    with open(OUT, "w") as f:
        f.write("\n".join(lines) + "\n")
    print("wrote %d cases to %s" % (sum(1 for l in lines if not l.startswith("#")), OUT))


if __name__ == "__main__":
    main()
