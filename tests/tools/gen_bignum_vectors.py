#!/usr/bin/env python3
"""Generates tests/data/bignum_vectors.txt: BigNum add, sub, mul, div, sqrt and
cmp cases checked by tests/bignum_vectors_test.cpp.

Run from the repository root:  python3 tests/tools/gen_bignum_vectors.py
The output is deterministic (fixed seed). Everything is computed with exact
Python integers and fractions; no floating point is involved.

Line format (one case a line, '#' starts a comment):

    <op> L=<la>[/<lb>] <a> [<b>] -> <expected> <check>

  op        add, sub, mul, div, sqrt or cmp
  L=        byte length of the operands (a at la, b at lb; one value = both);
            results have max(la, lb) bytes
  a, b      exact operands: [-]d[.ddd]e<exp>, with at most 2 * length digits
  expected  the result in the same form ('0' for zero) or, for cmp, an integer
  check     '=' the result must be exactly this number at the result length
                (same mantissa bytes, exponent and sign)
            '~1' the result may differ from this number by at most one unit
                of the last pair (compare's graded result within -1..1)

Which check applies to which operation:

  add   '=' The exact sum rounded half up to 2L digits. The operand with the
            larger exponent has no digits below the guard pair, so truncating
            the other below the guard loses nothing the rounding could see.
            The generator models the digit-pair algorithm and asserts that it
            agrees with the correctly rounded sum on every case.
  sub   '=' Digit-pair model of the rule: the subtrahend is read down to the
            guard pair only (lower digits dropped), the difference is
            normalised with the guard fed in and rounded half up on it. When no
            digits are dropped this is the correctly rounded difference
            (asserted); when some are, it is never more than one unit away from
            it (asserted).
  mul   '=' Digit-pair model of the truncated schoolbook product: the pair
            products a_i * b_j whose position falls below the two columns under
            the guard pair are dropped whole, the rest summed exactly; those two
            columns give only their carry; the sum is normalised and
            rounded half up on the guard. This equals the correctly rounded
            product whenever no pair product is dropped (asserted); otherwise
            it is within one unit of the last pair of it (asserted).
  div   '~1' The correctly rounded (half up) quotient. The long division stops
            two digits below the last one and rounds up only above 50, so the
            last digit may be one off (ties round down on purpose).
  sqrt  '~1' The correctly rounded (half up) square root.
  cmp   '=' compare's graded result, from the exact difference of the
            mantissas in units of the last pair: +-20 for a sign or exponent
            difference, the difference clamped to -10..10 otherwise.
"""

import math
import os
import random
import sys
from fractions import Fraction

SEED = 20240611
OUT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "data", "bignum_vectors.txt")


# A number: (sign, m, e, L). m is the 2L-digit integer mantissa (d1 at
# 10^(2L-1)); the value is sign * m * 10^(e - 2L + 1). Zero is (0, 0, 0, L).

def value(x):
    """Exact value as (N, X): sign * m * 10^(e - 2L + 1) = N * 10^X."""
    s, m, e, L = x
    return (s * m, e - 2 * L + 1)


def exact_sum(x, y, negate_y=False):
    (nx, ex), (ny, ey) = value(x), value(y)
    if negate_y:
        ny = -ny
    low = min(ex, ey)
    return (nx * 10 ** (ex - low) + ny * 10 ** (ey - low), low)


def text(x):
    s, m, e, L = x
    if s == 0:
        return "0"
    digits = str(m).rstrip("0")
    body = digits[0] + ("." + digits[1:] if len(digits) > 1 else "")
    return ("-" if s < 0 else "") + body + "e" + str(e)


def round_up_mantissa(m, e, L):
    """Adds one unit to the last digit; a carry out of the top shifts right."""
    m += 1
    if m == 10 ** (2 * L):
        m //= 10
        e += 1
    return m, e


def correctly_rounded(num, den, X, L):
    """num / den * 10^X (den > 0) rounded half up (away from zero) to 2L digits."""
    if num == 0:
        return (0, 0, 0, L)
    s = 1 if num > 0 else -1
    num = abs(num)
    e = len(str(num)) - len(str(den))      # 10^e <= num/den < 10^(e+1) after fixing
    while (num * 10 ** -e if e < 0 else num) < (den * 10 ** e if e > 0 else den):
        e -= 1
    while (num * 10 ** (-e - 1) if e + 1 < 0 else num) >= (den * 10 ** (e + 1) if e + 1 > 0 else den):
        e += 1
    shift = 2 * L - 1 - e
    n, d = (num * 10 ** shift, den) if shift >= 0 else (num, den * 10 ** -shift)
    m, rem = divmod(n, d)
    e += X
    if 2 * rem >= d:
        m, e = round_up_mantissa(m, e, L)
    return (s, m, e, L)


# --- Models of the digit-pair algorithms -----------------------------------

def in_units(x, E, L):
    """|x| in units of the guard's last digit of a result with exponent E and
    length L, digits below that position dropped (truncated)."""
    _, m, e, Lx = x
    z = e - E + 2 * (L - Lx) + 2
    return m * 10 ** z if z >= 0 else m // 10 ** (-z)


def finish(D, E, L, sign, field):
    """Normalises D (2L+2 digits: mantissa then guard pair) with exponent E.
    field is the digit count D may use before a carry (2L + 2)."""
    if D == 0:
        return (0, 0, 0, L)
    if D >= 10 ** field:                     # carry out of the top (add)
        guard_digit = (D // 100) % 10
        m = D // 1000
        E += 1
        if guard_digit >= 5:
            m, E = round_up_mantissa(m, E, L)
        return (sign, m, E, L)
    k = field - len(str(D))
    if k == 0:
        m, g = divmod(D, 100)
        if g >= 50:
            m, E = round_up_mantissa(m, E, L)
        return (sign, m, E, L)
    if k == 1:
        m, rest = divmod(D, 10)
        if rest >= 5:
            m, E = round_up_mantissa(m, E - 1, L)
            return (sign, m, E, L)
        return (sign, m, E - 1, L)
    return (sign, D * 10 ** (k - 2), E - k, L)


def model_add_magnitudes(a, b, L, sign):
    E = max(a[2], b[2])
    return finish(in_units(a, E, L) + in_units(b, E, L), E, L, sign, 2 * L + 2)


def magnitude_order(a, b):
    if a[2] != b[2]:
        return 1 if a[2] > b[2] else -1
    ma = a[1] * 10 ** (2 * (max(a[3], b[3]) - a[3]))
    mb = b[1] * 10 ** (2 * (max(a[3], b[3]) - b[3]))
    return (ma > mb) - (ma < mb)


def model_sub_magnitudes(a, b, L, sign):
    order = magnitude_order(a, b)
    if order == 0:
        return (0, 0, 0, L), False
    M, S = (a, b) if order > 0 else (b, a)
    E = M[2]
    z = S[2] - E + 2 * (L - S[3]) + 2      # as in in_units
    dropped = z < 0 and S[1] % 10 ** (-z) != 0
    D = in_units(M, E, L) - in_units(S, E, L)
    return finish(D, E, L, sign if order > 0 else -sign, 2 * L + 2), dropped


def model_add(a, b, L):
    if b[0] == 0:
        return resized(a, L), False
    if a[0] == 0:
        return resized(b, L), False
    if a[0] != b[0]:
        return model_sub_magnitudes(a, b, L, a[0])
    return model_add_magnitudes(a, b, L, a[0]), False


def model_sub(a, b, L):
    if b[0] == 0:
        return resized(a, L), False
    if a[0] == 0:
        r = resized(b, L)
        return (-r[0], r[1], r[2], r[3]), False
    if a[0] != b[0]:
        return model_add_magnitudes(a, b, L, a[0]), False
    return model_sub_magnitudes(a, b, L, a[0])


def resized(x, L):
    s, m, e, Lx = x
    if L >= Lx:
        return (s, m * 10 ** (2 * (L - Lx)), e, L)
    cut = 2 * (Lx - L)
    kept, rest = divmod(m, 10 ** cut)
    if rest // 10 ** (cut - 2) > 50:
        kept, e = round_up_mantissa(kept, e, L)
    return (s, kept, e, L)


def pairs(m, L):
    return [(m // 100 ** i) % 100 for i in range(L)]


def model_mul(a, b, L):
    if a[0] == 0 or b[0] == 0:
        return (0, 0, 0, L), False
    la, lb = a[3], b[3]
    drop = la + lb - L
    T = 0
    dropped = False
    ma = a[1]
    for j, bj in enumerate(pairs(b[1], lb)):
        if bj == 0:
            continue
        k = max(0, drop - 3 - j)           # a's bytes below k fall below the two columns under the guard
        if k > 0 and ma % 100 ** k != 0:
            dropped = True
        T += bj * (ma // 100 ** k) * 100 ** (k + j - drop + 3)
    E = a[2] + b[2] + 1
    # The two columns under the guard only carry into the guard; their own digits go.
    return finish(T // 100 ** 2, E, L, a[0] * b[0], 2 * L + 2), dropped


def oracle_sqrt(a, L):
    s, m, e, La = a
    k = (2 * La - 1 - e + 1) // 2 + 2 * L + 4
    x = e - 2 * La + 1 + 2 * k
    assert x >= 0
    r = math.isqrt(m * 10 ** x)            # floor(sqrt(a) * 10^k)
    d = len(str(r)) - 2 * L
    assert d >= 1
    er = len(str(r)) - 1 - k
    mr = r // 10 ** d
    if r >= mr * 10 ** d + 5 * 10 ** (d - 1):
        mr, er = round_up_mantissa(mr, er, L)
    return (1, mr, er, L)


def graded_compare(a, b):
    sa, sb = a[0], b[0]
    if sa == 0 and sb == 0:
        return 0
    if sa == 0:
        return -20 * sb
    if sa != sb:
        return 20 * sa
    if a[2] != b[2]:
        return 20 * sa if a[2] > b[2] else -20 * sa
    n = max(a[3], b[3])
    diff = a[1] * 10 ** (2 * (n - a[3])) - b[1] * 10 ** (2 * (n - b[3]))
    return max(-10, min(10, diff)) * sa


def ulps_apart(x, y):
    """|x - y| in units of the last digit of the larger-exponent value."""
    if x[0] == 0 and y[0] == 0:
        return 0
    n, X = exact_sum(x, y, negate_y=True)
    unit = max(x[2], y[2]) - 2 * x[3] + 1
    return Fraction(abs(n)) * Fraction(10) ** (X - unit)


# --- Operand generation -------------------------------------------------------

def random_number(rng, L, exponent=None, digits=None, sign=None):
    n = 2 * L
    nd = digits if digits is not None else rng.choice([n, n, n, rng.randint(1, n)])
    style = rng.random()
    if style < 0.08:
        body = "9" * nd
    elif style < 0.14:
        body = "1" + "0" * (nd - 1)
    elif style < 0.22:
        body = str(rng.randint(1, 9)) + "".join(rng.choice("0000000009") for _ in range(nd - 1))
    else:
        body = str(rng.randint(1, 9)) + "".join(rng.choice("0123456789") for _ in range(nd - 1))
    m = int(body) * 10 ** (n - nd)
    e = exponent if exponent is not None else rng.choice(
        [rng.randint(-3, 3), rng.randint(-40, 40), rng.randint(-100000, 100000)])
    s = sign if sign is not None else rng.choice([1, -1])
    return (s, m, e, L)


def near(rng, a, L):
    """A number close to a (same length), for cancellation."""
    s, m, e, La = a
    n = 2 * L
    m2 = m * 10 ** (2 * (L - La)) if L >= La else m // 10 ** (2 * (La - L))
    delta = rng.choice([1, 2, 5, 50, 99, rng.randint(1, 10 ** min(n, 6))])
    m2 = m2 + rng.choice([-1, 1]) * delta
    if m2 <= 0:
        m2 = m2 + 2 * delta
    e2 = e
    while m2 >= 10 ** n:
        m2 //= 10
        e2 += 1
    while m2 < 10 ** (n - 1):
        m2 *= 10
        e2 -= 1
    return (s, m2, e2, L)


def pick_length(rng):
    r = rng.random()
    if r < 0.55:
        return rng.randint(2, 12)
    if r < 0.80:
        return rng.randint(13, 60)
    if r < 0.92:
        return 48
    if r < 0.97:
        return rng.randint(61, 200)
    return 508


def pick_lengths(rng):
    la = pick_length(rng)
    if rng.random() < 0.2 and la < 508:
        lb = rng.randint(2, max(2, min(la + 10, 508)))
        return la, lb
    return la, la


def binary_operands(rng, la, lb, op):
    a = random_number(rng, la)
    gap = rng.choice([0, 0, 1, -1, 2, -2, 3, -3, 5, rng.randint(-2 * la - 6, 2 * la + 6)])
    b = random_number(rng, lb, exponent=a[2] - gap)
    if op in ("add", "sub", "cmp") and rng.random() < 0.3:
        b = near(rng, a, lb)
        if op == "add":
            b = (-b[0], b[1], b[2], b[3]) if rng.random() < 0.7 else b
        elif rng.random() < 0.8:
            b = (a[0], b[1], b[2], b[3])
    if op in ("add", "sub") and rng.random() < 0.03:
        b = (0, 0, 0, lb)
    if op == "div" and rng.random() < 0.3:
        # Divisors with extreme leading pairs, small integers, and dividends
        # that are nearly a multiple of the divisor.
        kind = rng.randint(0, 4)
        if kind == 0:
            b = (rng.choice([1, -1]), 10 ** (2 * lb - 1), rng.randint(-5, 5), lb)
        elif kind == 1:
            b = (rng.choice([1, -1]), 10 ** (2 * lb) - 1, rng.randint(-5, 5), lb)
        elif kind == 2:
            k = rng.randint(1, 99)
            b = (1, k * 10 ** (2 * lb - len(str(k))), len(str(k)) - 1, lb)
        elif kind == 3:
            b = random_number(rng, lb, digits=rng.randint(1, 2 * lb), sign=1)
        else:
            b = random_number(rng, lb, digits=2 * lb)
        if rng.random() < 0.5:
            n, x = value(b)
            n = n * rng.randint(1, 99) + rng.choice([0, 1, -1])
            if n != 0 and len(str(abs(n))) <= 2 * la:
                digits = len(str(abs(n)))
                a = (1 if n > 0 else -1, abs(n) * 10 ** (2 * la - digits), x + digits - 1, la)
    return a, b


def length_field(la, lb):
    return "L=%d" % la if la == lb else "L=%d/%d" % (la, lb)


def main(seed=SEED, out=OUT, scale=1):
    """Writes the vectors; another seed, file and size serve for stress runs."""
    if hasattr(sys, "set_int_max_str_digits"):
        sys.set_int_max_str_digits(0)
    rng = random.Random(seed)
    lines = []
    counts = {}
    stats = {"sub_dropped": 0, "sub_off": 0, "mul_dropped": 0, "mul_off": 0, "mul_max_ulps": 0}
    plan = [("add", 1100), ("sub", 1100), ("mul", 1100), ("div", 900), ("sqrt", 500), ("cmp", 700)]
    for op, count in plan:
        for _ in range(count * scale):
            la, lb = pick_lengths(rng)
            if op == "sqrt":
                lb = la
            L = max(la, lb)
            if op == "sqrt":
                a = random_number(rng, la, sign=1)
                expected = oracle_sqrt(a, la)
                lines.append("sqrt %s %s -> %s ~1" % (length_field(la, la), text(a), text(expected)))
                continue
            a, b = binary_operands(rng, la, lb, op)
            if op == "add" or op == "sub":
                n, X = exact_sum(a, b, negate_y=(op == "sub"))
                correct = correctly_rounded(n, 1, X, L)
                model, dropped = (model_add if op == "add" else model_sub)(a, b, L)
                if not dropped:
                    assert model == correct, (op, a, b, model, correct)
                else:
                    stats["sub_dropped"] += 1
                    if model != correct:
                        stats["sub_off"] += 1
                    assert ulps_apart(model, correct) <= 1, (op, a, b, model, correct)
                lines.append("%s %s %s %s -> %s =" % (op, length_field(la, lb), text(a), text(b), text(model)))
            elif op == "mul":
                (na, xa), (nb, xb) = value(a), value(b)
                correct = correctly_rounded(na * nb, 1, xa + xb, L)
                model, dropped = model_mul(a, b, L)
                if not dropped:
                    assert model == correct, (a, b, model, correct)
                else:
                    stats["mul_dropped"] += 1
                    apart = ulps_apart(model, correct)
                    if model != correct:
                        stats["mul_off"] += 1
                    stats["mul_max_ulps"] = max(stats["mul_max_ulps"], float(apart))
                    # The products below the two columns under the guard lose
                    # far less than a unit of the last pair, even after a
                    # one-digit normalising shift.
                    assert apart <= 1, (a, b, model, correct, apart)
                lines.append("mul %s %s %s -> %s =" % (length_field(la, lb), text(a), text(b), text(model)))
            elif op == "div":
                (na, xa), (nb, xb) = value(a), value(b)
                if nb < 0:
                    na, nb = -na, -nb
                expected = correctly_rounded(na, nb, xa - xb, L)
                lines.append("div %s %s %s -> %s ~1" % (length_field(la, lb), text(a), text(b), text(expected)))
            elif op == "cmp":
                if rng.random() < 0.15:
                    b = a if a[3] == lb else resized(a, lb)
                lines.append("cmp %s %s %s -> %d =" % (length_field(la, lb), text(a), text(b), graded_compare(a, b)))
            counts[op] = counts.get(op, 0) + 1
    header = [
        "# BigNum arithmetic vectors: generated by tests/tools/gen_bignum_vectors.py (seed %d)." % seed,
        "# Format and the check of each operation are described in that script.",
        "# sub cases with dropped subtrahend digits: %d (of which %d differ from the correctly rounded result by one unit)"
        % (stats["sub_dropped"], stats["sub_off"]),
        "# mul cases with dropped pair products: %d (of which %d differ from the correctly rounded product; largest gap %.0f units)"
        % (stats["mul_dropped"], stats["mul_off"], stats["mul_max_ulps"]),
    ]
    with open(out, "w") as f:
        f.write("\n".join(header + lines) + "\n")
    print("wrote %d cases to %s" % (len(lines), os.path.normpath(out)))


if __name__ == "__main__":
    if len(sys.argv) == 4:   # seed, output file, size factor (stress runs)
        main(int(sys.argv[1]), sys.argv[2], int(sys.argv[3]))
    else:
        main()
