#!/usr/bin/env python3
"""Writes tests/data/bigint_vectors.txt: multi-precision integer cases checked
against Python's exact integers.

Usage: gen_bigint_vectors.py > tests/data/bigint_vectors.txt

Deterministic (fixed seed). One case a line, fields separated by blanks.
Integers are written in hexadecimal with an optional leading '-' so that the
test can build them limb by limb without the parser under test.

  add    A B -> A+B
  sub    A B -> A-B
  mul    A B -> A*B
  divmod A B -> Q R          truncating: A = Q*B + R, R takes A's sign
  parse  BASE TEXT -> VALUE   ParseInteger of TEXT (UTF-8) in BASE
  format BASE FLAGS VALUE -> TEXT   FormatInteger (FLAGS in hex, TEXT in UTF-8)
  toint  MODE L SIGN EXP DIGITS -> VALUE
         BigNum of L bytes (SIGN + - 0, decimal exponent EXP, 2L mantissa
         digits) to an integer; MODE trunc, floor, ceil or round (halves away
         from zero)
  fromint L VALUE -> SIGN EXP DIGITS
         the integer as a BigNum of L+5 bytes, following the documented pair
         placement, guard pair and normalisation
"""
import math
import random
from fractions import Fraction

SEED = 20240617
MINUS = "\u2212"


def hexval(n):
    return ("-" if n < 0 else "") + format(abs(n), "X")


def random_int(rng, digits, signed=True):
    if digits <= 0:
        return 0
    n = rng.randrange(10 ** (digits - 1), 10 ** digits)
    if signed and rng.random() < 0.5:
        n = -n
    return n


def random_size(rng):
    r = rng.random()
    if r < 0.55:
        return rng.randint(1, 40)
    if r < 0.92:
        return rng.randint(41, 400)
    return rng.randint(401, 3000)


def special_values():
    vals = [0, 1, -1, 2, 9, 10, 0xFFFF, 0x10000, 0x10001, 0xFFFFFFFF, 0x100000000,
            0x7FFFFFFF, 0x80000000, 10 ** 9, 10 ** 10, 2 ** 48 - 1, 2 ** 64, 2 ** 64 - 1,
            10 ** 50, 2 ** 160 - 1, 2 ** 160 + 1]
    return vals + [-v for v in vals if v]


def trunc_divmod(a, b):
    q = abs(a) // abs(b)
    if (a < 0) != (b < 0):
        q = -q
    return q, a - q * b


def knuth_hard_pairs(rng):
    """Divisors whose top limbs make the quotient estimate overshoot."""
    pairs = []
    b = 1 << 16
    for _ in range(60):
        n = rng.randint(2, 12)
        m = rng.randint(n, n + 10)
        top = rng.choice([0x8000, 0x8001, 0xFFFF, 0x7FFF, 1, 0x4000])
        v = top * b ** (n - 1) + rng.randrange(b ** (n - 1))
        if rng.random() < 0.5:
            v = top * b ** (n - 1) + (b ** (n - 1) - 1)
        q = rng.choice([b - 1, b - 2, rng.randrange(1, b ** (m - n + 1))])
        u = v * q + rng.randrange(v)
        if rng.random() < 0.3:
            u = b ** m - 1
        pairs.append((u, v))
    # Remainders exactly zero and one short of the divisor.
    for _ in range(20):
        v = random_int(rng, rng.randint(10, 60), False)
        q = random_int(rng, rng.randint(1, 60), False)
        pairs.append((v * q, v))
        pairs.append((v * q + v - 1, v))
    return pairs


# --- Integer text, following the documented digit rule ----------------------

def digit_value(ch):
    low = (ord(ch) - 48) & 0xFFFF
    if low >= 0x8000:
        low -= 0x10000
    return low if low <= 9 else ord(ch) - 55


def parse_integer(text, base):
    i, sign = 0, 1
    while i < len(text) and text[i] in "+-":
        if text[i] == "-":
            sign = -sign
        i += 1
    value = 0
    while i < len(text):
        d = digit_value(text[i])
        if d < 0 or d >= base:
            break
        value = value * base + d
        i += 1
    return sign * value


def digit_char(d):
    return chr(ord("0") + d) if d < 10 else chr(ord("A") + d - 10)


def format_integer(n, base, flags):
    mag = abs(n)
    digits = []
    while True:
        mag, d = divmod(mag, base)
        digits.append(digit_char(d))
        if mag == 0:
            break
    text = digits[::-1]
    if flags & 0x04:
        groups = []
        while text:
            groups.insert(0, "".join(text[-3:]))
            text = text[:-3]
        body = ",".join(groups)
    else:
        body = "".join(text)
    if body[0] >= "A":
        body = "0" + body
    if n < 0:
        body = ("-" if flags & 0x80 else MINUS) + body
    elif flags & 0x01:
        body = "+" + body
    return body


def integer_text(n, base):
    """Digits of |n| in base, upper case, as ParseInteger reads them."""
    mag = abs(n)
    out = []
    while True:
        mag, d = divmod(mag, base)
        out.append(digit_char(d))
        if mag == 0:
            break
    return "".join(reversed(out))


# --- BigNum <-> integer -------------------------------------------------------

def bignum_value(sign, exp, digits):
    """Exact value as a Fraction."""
    shift = exp - len(digits) + 1
    m = sign * int(digits)
    return Fraction(m * 10 ** shift) if shift >= 0 else Fraction(m, 10 ** -shift)


def to_integer(mode, sign, exp, digits):
    v = bignum_value(sign, exp, digits)
    if mode == "trunc":
        return math.trunc(v)
    if mode == "floor":
        return math.floor(v)
    if mode == "ceil":
        return math.ceil(v)
    half = math.floor(abs(v) + Fraction(1, 2))   # halves away from zero
    return half if v >= 0 else -half


def normalize(mant, exp, guard, length):
    """Shift out leading zero digits of a 2*length-digit mantissa string, feeding
    the guard pair in; round as documented. Returns (zero?, mant, exp)."""
    nd = 2 * length
    k = len(mant) - len(mant.lstrip("0"))
    if k == nd:
        return True, "0" * nd, 0
    if k > 0:
        feed = "%02d" % guard + "0" * nd
        mant = mant[k:] + feed[:k]
        exp -= k
        round_up = k == 1 and guard % 10 >= 5
    else:
        round_up = guard >= 50
    if round_up:
        m = int(mant) + 1
        s = str(m)
        if len(s) > nd:
            s = s[:nd]
            exp += 1
        mant = s.zfill(nd)
    return False, mant, exp


def from_integer(value, length):
    count = max(1, (abs(value).bit_length() + 15) // 16)
    estimate = int(count * -4.81648)
    half = -((-estimate) // 2)   # C division truncates toward zero
    pairs = max(1 - half, length + 5)
    size = length + 5
    mant = [0] * size
    guard = 0
    work = abs(value)
    for i in range(pairs):
        work, pair = divmod(work, 100)
        at = size - pairs + i
        if at >= 0:
            mant[at] = pair
        elif at == -1:
            guard = pair
    assert work == 0
    text = "".join("%02d" % mant[i] for i in reversed(range(size)))
    zero, text, exp = normalize(text, 2 * pairs - 1, guard, size)
    if zero or value == 0:
        return 0, 0, "0" * (2 * size)
    return (1 if value > 0 else -1), exp, text


def sign_char(s):
    return "+" if s > 0 else "-" if s < 0 else "0"


def random_bignum(rng, length):
    nd = 2 * length
    body = [str(rng.randint(0, 9)) for _ in range(nd)]
    body[0] = str(rng.randint(1, 9))
    r = rng.random()
    if r < 0.2:   # short mantissa, zeros after
        cut = rng.randint(1, nd)
        body = body[:cut] + ["0"] * (nd - cut)
    elif r < 0.3:
        body = ["9"] * nd
    exp = rng.choice([rng.randint(-3, 3), rng.randint(-3, 40), rng.randint(0, 3 * nd),
                      rng.randint(-20, 20), rng.randint(0, 2000)])
    sign = rng.choice([1, -1])
    return sign, exp, "".join(body)


def main():
    rng = random.Random(SEED)
    out = []
    specials = special_values()

    def operand_pair():
        if rng.random() < 0.15:
            return rng.choice(specials), random_int(rng, random_size(rng))
        if rng.random() < 0.1:
            a = random_int(rng, random_size(rng))
            return a, (a if rng.random() < 0.5 else -a)
        return random_int(rng, random_size(rng)), random_int(rng, random_size(rng))

    for _ in range(500):
        a, b = operand_pair()
        out.append("add %s %s -> %s" % (hexval(a), hexval(b), hexval(a + b)))
    for _ in range(500):
        a, b = operand_pair()
        out.append("sub %s %s -> %s" % (hexval(a), hexval(b), hexval(a - b)))
    for a in specials[:10]:
        for b in specials[10:20]:
            out.append("mul %s %s -> %s" % (hexval(a), hexval(b), hexval(a * b)))
    for _ in range(400):
        a, b = operand_pair()
        out.append("mul %s %s -> %s" % (hexval(a), hexval(b), hexval(a * b)))
    divisions = knuth_hard_pairs(rng)
    for _ in range(500):
        a = random_int(rng, random_size(rng))
        b = random_int(rng, rng.choice([rng.randint(1, 10), random_size(rng)]))
        if b == 0:
            b = 7
        divisions.append((a, b))
    for a in specials:
        for b in [1, -1, 3, 0xFFFF, 0x10000, -0x10001, 10 ** 9]:
            divisions.append((a, b))
    for a, b in divisions:
        if rng.random() < 0.3:
            a = -a
        if rng.random() < 0.3:
            b = -b
        q, r = trunc_divmod(a, b)
        assert a == q * b + r and abs(r) < abs(b)
        out.append("divmod %s %s -> %s %s" % (hexval(a), hexval(b), hexval(q), hexval(r)))

    junk = ["x", ".", "/", "g", "z", "#", "(", "a", "f", "_", "~"]
    for _ in range(500):
        base = rng.choice([2, 3, 8, 10, 10, 10, 16, 16, 7, 12, 20, 36, 37, 40, 64])
        value = random_int(rng, rng.choice([rng.randint(1, 30), random_size(rng)]))
        text = integer_text(value, base)
        if rng.random() < 0.2:
            text = "0" * rng.randint(1, 3) + text
        signs = ""
        if value < 0:
            signs = rng.choice(["-", "-", "+-", "-+", "---"])
        elif rng.random() < 0.3:
            signs = rng.choice(["+", "--", "+-+-", "++"])
        text = signs + text
        if rng.random() < 0.4:
            text += rng.choice(junk) + integer_text(rng.randint(0, 999), base)
        if base >= 10 and rng.random() < 0.15:
            # the characters between '9' and 'A' read as 3..9
            text += rng.choice(":;<=>?@") + integer_text(rng.randint(0, 99), base)
        expected = parse_integer(text, base)
        out.append("parse %d %s -> %s" % (base, text, hexval(expected)))

    for _ in range(500):
        base = rng.choice([2, 8, 10, 10, 10, 16, 16, 3, 5, 12, 36, 40])
        flags = rng.choice([0, 0, 0x01, 0x04, 0x80, 0x81, 0x84, 0x85, 0x02, 0x06])
        value = rng.choice(specials) if rng.random() < 0.1 else \
            random_int(rng, rng.choice([rng.randint(1, 30), random_size(rng)]))
        out.append("format %d %X %s -> %s" % (base, flags, hexval(value),
                                               format_integer(value, base, flags)))

    for _ in range(300):
        length = rng.choice([2, 3, 5, 8, 20, 48])
        sign, exp, digits = random_bignum(rng, length)
        if rng.random() < 0.1:
            exp = rng.choice([-1, -2, 0])
        mode = rng.choice(["trunc", "floor", "ceil", "round"])
        value = to_integer(mode, sign, exp, digits)
        out.append("toint %s %d %s %d %s -> %s" % (mode, length, sign_char(sign), exp, digits,
                                                  hexval(value)))

    for _ in range(300):
        length = rng.choice([2, 3, 4, 8, 20, 48, 100])
        r = rng.random()
        if r < 0.1:
            value = rng.choice(specials)
        elif r < 0.2:
            value = rng.choice([1, -1]) * (10 ** rng.randint(1, 300) - rng.randint(0, 2))
        else:
            value = random_int(rng, rng.choice([rng.randint(1, 40), random_size(rng)]))
        sign, exp, digits = from_integer(value, length)
        if value:
            approx = bignum_value(sign, exp, digits)
            err = abs(approx - value) / abs(value)
            assert err < Fraction(1, 10 ** (2 * length + 5)), (value, length)
        out.append("fromint %d %s -> %s %d %s" % (length, hexval(value), sign_char(sign), exp, digits))

    print("# Multi-precision integer cases; see tests/tools/gen_bigint_vectors.py")
    for line in out:
        print(line)


if __name__ == "__main__":
    main()
