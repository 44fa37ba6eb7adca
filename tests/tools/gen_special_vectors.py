#!/usr/bin/env python3
"""Writes tests/data/special_vectors.txt: reference values of the special
functions (gamma, factorial, comb, perm, erf, the Fresnel integrals, the Airy
functions, Bernoulli and Euler numbers), real and complex, and of the exact
integer paths, computed with mpmath and Python integers.

Run from anywhere:  python3 tests/tools/gen_special_vectors.py
Deterministic (fixed seed); mpmath only, no floating point in the values.

One case a line, fields separated by blanks, '#' starts a comment:

    <op> D=<digits> <arg> [<arg> ...] -> <value> [<value> ...]

  op      real (one value): gamma fact erf fresnelc fresnels ai bi comb perm
          bern euler (an integer argument n); fresnel (two values: 1/2 - C and
          1/2 - S).
          complex (arguments as re im pairs, values as re im pairs): cgamma
          cfact cerf cfresnelc cfresnels cfresnel (two complex values) cai cbi
          ccomb cperm.
          exact integers (D=0, integer arguments, hexadecimal value with an
          optional '-'): factint combint permint eulerint.
  D       the Digits setting: the test computes at the working length
          D/2 + 8 bytes and shows D significant digits.
  arg     an exact decimal "[-]d.ddd...e<exp>" of at most D significant digits
          (exact at the working length), or an integer.
  value   the exact result to D + 25 significant digits, rounded to nearest,
          as "[-]d.ddd...e<exp>"; or 0, nan, inf, -inf.

The Fresnel integrals are C(x) = int_0^x cos(pi t^2 / 2) dt and S likewise with
the sine: mpmath's fresnelc and fresnels use the same normalisation. Poles of
the gamma function are +inf (the calculator's convention for the division by
a zero sine); Gamma(0) is nan. The Airy cut-off (|x| > 250: Ai 0, Bi +inf)
is the calculator's, written here as such.

The test rounds its result half up to D significant digits, as the display
does, and requires the same digits as the reference rounded the same way.
Where the algorithm used cannot reach that, tests/data/
special_known_limits.txt lists the case with its measured error and reason;
the test then asserts that bound instead.
"""
import os
import random

import mpmath
from mpmath import mp, mpf, mpc

SEED = 20240917
EXTRA = 25
OUT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "data", "special_vectors.txt")

rng = random.Random(SEED)


# --- values and their text ------------------------------------------------------

def dec_text(x, digits):
    """x rounded to `digits` significant digits as "[-]d.ddde<exp>"; 0 for zero."""
    if x == 0:
        return "0"
    s = mpmath.nstr(x, digits, min_fixed=1, max_fixed=0, strip_zeros=False)
    mant, _, exp = s.partition("e")
    exp = int(exp) if exp else 0
    mant = mant.rstrip("0").rstrip(".") if "." in mant else mant
    return "%se%d" % (mant, exp)


def value_text(x, digits):
    if isinstance(x, mpc):
        return value_text(x.real, digits) + " " + value_text(x.imag, digits)
    if isinstance(x, str):
        return x
    if mpmath.isnan(x):
        return "nan"
    if mpmath.isinf(x):
        return "inf" if x > 0 else "-inf"
    return dec_text(x, digits + EXTRA)


def hex_text(n):
    return ("-" if n < 0 else "") + "%X" % abs(n)


# --- argument generators ----------------------------------------------------------

def digits_for(D):
    if D <= 20:
        return D
    return rng.choice([D, D, min(D, 30), min(D, 12)])


def uniform(lo, hi, D):
    with mp.workdps(D + 40):
        x = mpf(lo) + (mpf(hi) - mpf(lo)) * mpf(rng.random())
        return dec_text(x, digits_for(D))


def logrand(lo_exp, hi_exp, D, sign=1):
    with mp.workdps(D + 40):
        x = mpf(10) ** (lo_exp + (hi_exp - lo_exp) * mpf(rng.random()))
        if sign < 0 or (sign == 0 and rng.random() < 0.5):
            x = -x
        return dec_text(x, digits_for(D))


def near(value, rel_exp, D):
    with mp.workdps(D + 60):
        return dec_text(value + (mpf(10) ** rel_exp) * (rng.random() - 0.5), D)


def exact(text):
    return mpf(text)


# --- the real functions -------------------------------------------------------------

def is_pole(x):
    return x <= 0 and x == int(x)


def gamma_ref(x):
    if x == 0:
        return mpmath.nan
    if is_pole(x):
        return mpmath.inf
    return mpmath.gamma(x)


def quotient_ref(n, k, with_k):
    """Gamma(n+1) / (Gamma(k+1) Gamma(n-k+1)) with the calculator's rules: a
    pole in the denominator is a zero reciprocal; a pole on top over a finite
    denominator +inf, over a pole nan."""
    top, kk, rest = n + 1, k + 1, n - k + 1
    den_pole = is_pole(rest) or (with_k and is_pole(kk))
    if is_pole(top):
        return mpmath.nan if den_pole else mpmath.inf
    if den_pole:
        return mpf(0)
    den = mpmath.gamma(rest) * (mpmath.gamma(kk) if with_k else 1)
    return mpmath.gamma(top) / den


def airy_ref(fn, cut, x):
    if abs(x) > 250:
        return cut
    return fn(x)


REAL = {
    "gamma": (1, gamma_ref),
    "fact": (1, lambda x: gamma_ref(x + 1)),
    "erf": (1, mpmath.erf),
    "fresnelc": (1, mpmath.fresnelc),
    "fresnels": (1, mpmath.fresnels),
    "fresnel": (1, lambda x: (mpf(1) / 2 - mpmath.fresnelc(x), mpf(1) / 2 - mpmath.fresnels(x))),
    "ai": (1, lambda x: airy_ref(mpmath.airyai, mpf(0), x)),
    "bi": (1, lambda x: airy_ref(mpmath.airybi, mpmath.inf, x)),
    "comb": (2, lambda n, k: quotient_ref(n, k, True)),
    "perm": (2, lambda n, k: quotient_ref(n, k, False)),
}


def real_arguments(op, D):
    r = rng.random()
    big = D >= 300
    if op in ("gamma", "fact"):
        if r < 0.2: return (uniform(0, 2, D),)
        if r < 0.35: return (logrand(-12, -1, D),)
        if r < 0.55: return (uniform(2, 40, D),)
        if r < 0.65: return (uniform(40, 60 if big else 400, D),)
        if r < 0.85: return (uniform(-25, 0, D),)
        return (near(mpf(-rng.randint(1, 12)), -rng.randint(2, 8), D),)
    if op == "erf":
        if r < 0.3: return (uniform(-2, 2, D),)
        if r < 0.5: return (logrand(-30, -1, D, 0),)
        if r < 0.85: return (uniform(-7, 7, D),)
        return (uniform(7, 25 if big else 45, D),)
    if op in ("fresnelc", "fresnels", "fresnel"):
        if r < 0.35: return (uniform(-8, 8, D),)
        if r < 0.5: return (logrand(-20, 0, D, 0),)
        if r < 0.75: return (uniform(8, 11 if big else 14, D) if rng.random() < 0.7 else uniform(-14, -8, D),)
        return (logrand(1.3, 3 if big else 8, D, 0),)
    if op in ("ai", "bi"):
        if r < 0.35: return (uniform(-3, 3, D),)
        if r < 0.6: return (uniform(-20 if big else -60, 0, D),)
        if r < 0.85: return (uniform(0, 6 if big else 12, D),)
        return (logrand(-15, -1, D, 0),)
    if op in ("comb", "perm"):
        return (uniform(-12, 40, D), uniform(-6, 12, D))
    raise ValueError(op)


def fixed_real_cases(D):
    cases = [
        ("gamma", ("0",)), ("gamma", ("1e0",)), ("gamma", ("2e0",)), ("gamma", ("5e-1",)), ("gamma", ("-5e-1",)),
        ("gamma", ("-3e0",)), ("gamma", ("1.5e0",)), ("gamma", ("1.0e2",)), ("gamma", ("1.999e0",)),
        ("fact", ("5e0",)), ("fact", ("0",)), ("fact", ("-1e0",)), ("fact", ("2.5e0",)),
        ("erf", ("0",)), ("erf", ("1e0",)), ("erf", ("-1e0",)), ("erf", ("5e-1",)),
        ("fresnelc", ("0",)), ("fresnelc", ("8e0",)), ("fresnelc", ("8.0001e0",)), ("fresnels", ("8e0",)),
        ("fresnels", ("8.0001e0",)), ("fresnelc", ("-8.0001e0",)), ("fresnelc", ("1e0",)), ("fresnels", ("1e0",)),
        ("fresnelc", ("1e6",)), ("fresnels", ("-1e6",)), ("fresnel", ("1e0",)), ("fresnel", ("2e1",)),
        ("fresnel", ("-2e1",)), ("fresnel", ("0",)),
        ("ai", ("0",)), ("bi", ("0",)), ("ai", ("1e0",)), ("bi", ("-1e0",)), ("ai", ("3e2",)), ("bi", ("-3e2",)),
        ("ai", ("-3e2",)), ("bi", ("3e2",)), ("ai", ("2.5001e2",)),
        ("comb", ("5e0", "2e0")), ("perm", ("5e0", "2e0")), ("comb", ("2.5e0", "-1e0")), ("perm", ("-3e0", "1.5e0")),
        ("comb", ("1e1", "3.5e0")), ("perm", ("7.5e0", "7.5e0")),
    ]
    if D <= 20:
        cases += [("gamma", ("1.0005e3",)), ("erf", ("4e1",))]
    if D in (12, 80):
        # Ai decays for positive x while the guard bytes only cover the growth
        # of the series terms: known limits.
        cases += [("ai", ("2e1",)), ("ai", ("3e1",)), ("ai", ("1e2",)), ("bi", ("1e2",)), ("ai", ("-1e2",))]
    if D == 1:
        # Next to the cut-off the guard bytes reach 556: one case of each
        # (seconds each at -O0).
        cases += [("ai", ("-2.4e2",)), ("bi", ("2.4e2",))]
    return cases


BERN_N = {1: [0, 1, 2, 3, 20], 12: [0, 1, 2, 3, 4, 6, 10, 11, 20, 31, 50, 100, 151, 200, 300],
          20: [2, 8, 40, 60, 99, 120], 80: [0, 1, 2, 3, 5, 12, 24, 50, 77, 100, 150, 250],
          300: [2, 30, 90, 200], 1000: [4, 60]}
EULER_N = {1: [0, 2, 6], 12: [0, 1, 2, 3, 4, 10, 21, 40, 100, 200], 20: [6, 30, 51, 80],
           80: [0, 2, 8, 20, 35, 60, 100, 150], 300: [10, 80, 160], 1000: [50]}


# --- the complex functions -------------------------------------------------------

def cquotient(n, k, with_k):
    top, kk, rest = n + 1, k + 1, n - k + 1
    den = mpmath.gamma(rest) * (mpmath.gamma(kk) if with_k else 1)
    return mpmath.gamma(top) / den


def cairy(fn, cut, z):
    if abs(z) > 250:
        return mpc(cut, 0)
    return fn(z)


COMPLEX = {
    "cgamma": (1, mpmath.gamma),
    "cfact": (1, lambda z: mpmath.gamma(z + 1)),
    "cerf": (1, mpmath.erf),
    "cfresnelc": (1, mpmath.fresnelc),
    "cfresnels": (1, mpmath.fresnels),
    "cfresnel": (1, lambda z: (mpf(1) / 2 - mpmath.fresnelc(z), mpf(1) / 2 - mpmath.fresnels(z))),
    "cai": (1, lambda z: cairy(mpmath.airyai, 0, z)),
    "cbi": (1, lambda z: cairy(mpmath.airybi, mpmath.inf, z)),
    "ccomb": (2, lambda n, k: cquotient(n, k, True)),
    "cperm": (2, lambda n, k: cquotient(n, k, False)),
}


def complex_arguments(op, D):
    big = D >= 300

    def part(lo, hi):
        return uniform(lo, hi, D)

    if op in ("cgamma", "cfact"):
        if rng.random() < 0.7:
            return (part(-6, 12), part(-6, 6))
        return (part(-15, 30), part(-20, 20))
    if op == "cerf":
        return (part(-3, 3), part(-2.5, 2.5)) if rng.random() < 0.7 else (part(-6, 6), part(-4, 4))
    if op in ("cfresnelc", "cfresnels", "cfresnel"):
        if rng.random() < 0.6:
            return (part(-5, 5), part(-5, 5))
        lo, hi = (8, 10) if big else (8, 16)
        with mp.workdps(D + 40):
            r = mpf(lo) + (hi - lo) * mpf(rng.random())
            a = 2 * mpmath.pi * mpf(rng.random())
            return (dec_text(r * mpmath.cos(a), min(D, 20)), dec_text(r * mpmath.sin(a), min(D, 20)))
    if op in ("cai", "cbi"):
        return (part(-6, 6), part(-6, 6)) if rng.random() < 0.7 else (part(-25, 10), part(-15, 15))
    if op in ("ccomb", "cperm"):
        return (part(-5, 20), part(-4, 4), part(-3, 8), part(-3, 3))
    raise ValueError(op)


def fixed_complex_cases(D):
    return [
        ("cgamma", ("1e0", "1e0")), ("cgamma", ("-2.5e0", "5e-1")), ("cgamma", ("5e-1", "-3e0")),
        ("cgamma", ("3e0", "0")), ("cfact", ("2e0", "1e0")),
        ("cerf", ("1e0", "1e0")), ("cerf", ("0", "1e0")), ("cerf", ("2e0", "0")),
        ("cfresnelc", ("1e0", "1e0")), ("cfresnels", ("9e0", "1e0")), ("cfresnelc", ("-2e0", "9e0")),
        ("cfresnel", ("9e0", "2e0")), ("cfresnel", ("2e0", "-3e0")),
        ("cai", ("1e0", "1e0")), ("cbi", ("-2e0", "3e0")), ("cai", ("0", "2e0")),
        ("ccomb", ("5e0", "1e0", "2e0", "0")), ("cperm", ("4e0", "5e-1", "2e0", "5e-1")),
        ("cai", ("2e2", "2e2")), ("cbi", ("-2e2", "2e2")),
    ]


# --- exact integers ----------------------------------------------------------------

def integer_cases():
    out = []
    for n in [0, 1, 2, 5, 10, 20, 34, 35, 100, 170, 171, 300, 1000]:
        out.append("factint D=0 %d -> %s" % (n, hex_text(_fact(n))))
    pairs = [(5, 2), (10, 0), (10, 10), (10, 11), (10, -1), (52, 5), (100, 50), (1000, 3), (1000, 997), (70000, 2),
             (4294967295, 2), (-3, 2), (-5, 3), (-1, 7), (-10, 0), (-4, -2), (0, 0), (123456789012345678901234567890, 4)]
    for n, k in pairs:
        out.append("combint D=0 %d %d -> %s" % (n, k, hex_text(_comb(n, k))))
    perms = [(5, 2), (10, 0), (10, 10), (10, 11), (52, 5), (100, 50), (-3, 2), (-5, 3), (0, 0), (0, 3),
             (123456789012345678901234567890, 3), (65537, 2)]
    for n, k in perms:
        out.append("permint D=0 %d %d -> %s" % (n, k, hex_text(_perm(n, k))))
    for n in [0, 1, 2, 3, 4, 10, 11, 30, 100, 250]:
        out.append("eulerint D=0 %d -> %s" % (n, hex_text(int(mpmath.eulernum(n, exact=True)))))
    return out


def _fact(n):
    r = 1
    for i in range(2, n + 1):
        r *= i
    return r


def _comb(n, k):
    if k < 0:
        return 0
    if n >= 0:
        if k > n:
            return 0
        r = 1
        for i in range(1, k + 1):
            r = r * (n - k + i) // i
        return r
    return (-1) ** k * _comb(k - n - 1, k)


def _perm(n, k):
    r = 1
    for i in range(k):
        r *= n - i
    return r


# --- the file ------------------------------------------------------------------------

PLAN = {   # Digits -> (random cases per real function, per complex function)
    1: (4, 1),
    12: (26, 8),
    20: (10, 3),
    80: (18, 5),
    300: (3, 1),
    1000: (1, 0),
}
THOUSAND_REAL = ["gamma", "erf", "fresnelc", "fresnels", "ai", "bi"]


def work_dps(D):
    return D + EXTRA + 40


def real_value(op, args):
    fn = REAL[op][1]
    return fn(*[exact(t) for t in args])


def complex_value(op, args):
    fn = COMPLEX[op][1]
    a = [exact(t) for t in args]
    z = [mpc(a[i], a[i + 1]) for i in range(0, len(a), 2)]
    return fn(*z)


def value_field(v, D):
    if isinstance(v, tuple):
        return " ".join(value_text(x, D) for x in v)
    return value_text(v, D)


def main():
    lines = [
        "# Special functions: reference values by mpmath %s, generated by" % mpmath.__version__,
        "# tests/tools/gen_special_vectors.py (seed %d). Format and checks are described in that script." % SEED,
    ]
    for D, (real_count, complex_count) in PLAN.items():
        lines.append("# --- Digits %d" % D)
        cases = []
        for op in REAL:
            if D == 1000 and op not in THOUSAND_REAL:
                continue
            with mp.workdps(D + 60):
                cases += [(op, real_arguments(op, D)) for _ in range(real_count)]
        if D <= 80:
            cases += fixed_real_cases(D)
        for op, args in cases:
            with mp.workdps(work_dps(D)):
                lines.append("%s D=%d %s -> %s" % (op, D, " ".join(args), value_field(real_value(op, args), D)))
        for n in BERN_N[D]:
            with mp.workdps(work_dps(D)):
                lines.append("bern D=%d %d -> %s" % (D, n, value_text(mpmath.bernoulli(n), D)))
        for n in EULER_N[D]:
            with mp.workdps(work_dps(D)):
                lines.append("euler D=%d %d -> %s" % (D, n, value_text(mpf(mpmath.eulernum(n, exact=True)), D)))
        ccases = []
        if complex_count:
            for op in COMPLEX:
                with mp.workdps(D + 60):
                    ccases += [(op, complex_arguments(op, D)) for _ in range(complex_count)]
        if D in (12, 80):
            ccases += fixed_complex_cases(D)
        for op, args in ccases:
            with mp.workdps(work_dps(D)):
                lines.append("%s D=%d %s -> %s" % (op, D, " ".join(args), value_field(complex_value(op, args), D)))
    lines.append("# --- Exact integers")
    lines += integer_cases()
    with open(OUT, "w") as f:
        f.write("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
