#!/usr/bin/env python3
"""Writes tests/data/random_vectors.txt: the random generator re-implemented
from its stated recurrence with Python integers and exact fractions.

  state' = state * 0x38F4FD9CACD95503 + 0x52EE806FF379  (mod 2^64)
  draw   = bits 40..63 of state' (a 24-bit value)
  pair   = (draw * 200 + 100) >> 25 (unsigned 32 bits)

  uniform(bytes): pair 0 is 50; pairs 1 .. bytes-1 from one draw each,
    lowest first; the value is 0.p[bytes-1] p[bytes-2] ... p[0].
  gauss(length): (sum of 48 uniform(length - 1)) - 24, halved.
  word(bits): draws of 24 bits laid side by side from bit 0 upward,
    ceil(bits / 24) draws, cut to `bits` bits.

Line formats (states and words in upper-case hexadecimal):

  seq     SEED N        -> STATE_AFTER D1 D2 ... DN   (draws in decimal)
  uniform SEED BYTES    -> LENGTH SIGN EXPONENT DIGITS STATE_AFTER
          (the normalised BigNum: byte length, sign, decimal exponent of
          the first digit, all 2*LENGTH mantissa digits)
  gauss   SEED LENGTH   -> TEXT STATE_AFTER   (exact decimal text)
  word    SEED BITS     -> HEX STATE_AFTER
  tozero  SEED          -> 0                  (one step from SEED gives 0)
"""

from fractions import Fraction
import random

MUL = 0x38F4FD9CACD95503
INC = 0x52EE806FF379
MOD = 1 << 64


class Gen:
    def __init__(self, seed):
        assert seed != 0
        self.state = seed

    def step(self):
        self.state = (self.state * MUL + INC) % MOD
        return self.state >> 40


def pair(r):
    return ((r * 200 + 100) & 0xFFFFFFFF) >> 25


def uniform_pairs(gen, nbytes):
    pairs = [50] + [pair(gen.step()) for _ in range(1, nbytes)]
    return pairs  # least significant first


def uniform_fields(pairs):
    stored = pairs if len(pairs) >= 2 else [0] + pairs
    digits = "".join(f"{p:02d}" for p in reversed(stored))
    lead = len(digits) - len(digits.lstrip("0"))
    digits = digits[lead:] + "0" * lead
    return len(stored), "+", -1 - lead, digits


def uniform_value(pairs):
    m = 0
    for p in reversed(pairs):
        m = m * 100 + p
    return Fraction(m, 100 ** len(pairs))


def exact_decimal(q):
    sign = "-" if q < 0 else ""
    q = abs(q)
    whole = q.numerator // q.denominator
    frac = q - whole
    digits = ""
    while frac:
        frac *= 10
        d = frac.numerator // frac.denominator
        digits += str(d)
        frac -= d
    return sign + str(whole) + ("." + digits if digits else "")


def random_word(gen, bits):
    value = 0
    for k in range((bits + 23) // 24):
        value |= gen.step() << (24 * k)
    return value & ((1 << bits) - 1)


def main():
    rng = random.Random(7)
    seeds = [1, 2, 12345, 1717171717, MOD - 1, 0x8000000000000000] + [rng.getrandbits(64) | 1 for _ in range(6)]
    lines = ["# Random generator cases from tests/tools/gen_random_vectors.py"]
    for s in seeds:
        g = Gen(s)
        draws = [g.step() for _ in range(40)]
        lines.append(f"seq {s:X} 40 -> {g.state:X} " + " ".join(map(str, draws)))
    for s in seeds:
        for nbytes in [1, 2, 3, 5, 10, 47, 48, 100, 508]:
            g = Gen(s)
            pairs = uniform_pairs(g, nbytes)
            length, sign, exponent, digits = uniform_fields(pairs)
            lines.append(f"uniform {s:X} {nbytes} -> {length} {sign} {exponent} {digits} {g.state:X}")
    for s in seeds[:8]:
        for length in [2, 3, 6, 12, 48]:
            g = Gen(s)
            total = sum(uniform_value(uniform_pairs(g, length - 1)) for _ in range(48))
            value = (total - 24) / 2
            lines.append(f"gauss {s:X} {length} -> {exact_decimal(value)} {g.state:X}")
    for s in seeds[:6]:
        for bits in [1, 8, 15, 16, 17, 23, 24, 25, 32, 47, 48, 49, 64, 100, 256, 1000]:
            g = Gen(s)
            lines.append(f"word {s:X} {bits} -> {random_word(g, bits):X} {g.state:X}")
    to_zero = (-INC * pow(MUL, -1, MOD)) % MOD
    assert (to_zero * MUL + INC) % MOD == 0
    lines.append(f"tozero {to_zero:X} -> 0")
    with open("tests/data/random_vectors.txt", "w") as out:
        out.write("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
