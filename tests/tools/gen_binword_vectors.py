#!/usr/bin/env python3
"""Writes tests/data/binword_vectors.txt: binary-word cases computed with
Python integers, written from the word rules below rather than from limbs.

The rules, as the calculator applies them to a word of `bits` bits:

  * Limbs.  A word has L = ceil(bits / 16) limbs of 16 bits; the full width
    of those limbs is W = 16 * L bits.  Only the low `bits` bits are ever
    kept (the top limb is masked at the end of every operation).
  * Conversion.  An integer n becomes n mod 2^bits: a non-negative one keeps
    its low bits, a negative one its two's complement (-1 is all ones).  A
    word reads back as the non-negative integer of its bits.
  * and, or, xor act bit by bit on the two words; nand, nor, xnor are the
    same followed by not; not is 2^bits - 1 - w.
  * rot by r.  m = |r| mod L -- reduced by the number of LIMBS, not bits
    (a 32-bit word rotated by 3 moves by 1, by 2 not at all; kept on
    purpose).  The word is rotated by m bits across the full width W, toward
    the more significant end for r > 0 and the less significant end for
    r < 0, and then masked to `bits` bits: in a word that is not a multiple
    of 16 bits, what passes through the unused top of the last limb is lost
    there and zeros come out of it.
  * shift by s.  Whole limbs: 16 * (|s| div 16) bits.  The remaining
    |s| mod 16 bits are shifted only when |s| < L (compared with the number
    of limbs; kept on purpose: a 64-bit word shifted by 4..15 is unchanged,
    by 17 it moves 16 bits).  Toward the more significant end for s > 0
    (bits leaving the word are lost), a logical shift toward the less
    significant end for s < 0 (zeros enter).  A count of 0 leaves the word.

Line formats (numbers in upper-case hexadecimal, counts in decimal):

  word  BITS N            -> W        conversion and read-back
  not   BITS Y            -> W
  and   BITS Y X          -> W        (also or xor nand nor xnor)
  shift BITS Y COUNT      -> W
  rot   BITS Y COUNT      -> W

Word sizes 1..256 (every size, so every remainder mod 16) and a few above
256, where whole-limb rotation and shifts with both parts occur.  Run from
the repository root; the output is deterministic.
"""

import random

SEED = 20240602
EXTRA_SIZES = [257, 272, 300, 320, 333, 512, 1000, 1024]
BASE_OP = {"and": "and", "nand": "and", "or": "or", "nor": "or", "xor": "xor", "xnor": "xor"}


def limbs(bits):
    return (bits + 15) // 16


def word(n, bits):
    return n % (1 << bits)


def mask(bits):
    return (1 << bits) - 1


def rot(y, r, bits):
    w = word(y, bits)
    L = limbs(bits)
    width = 16 * L
    if r == 0:
        return w
    m = abs(r) % L
    full = (1 << width) - 1
    if r > 0:
        moved = ((w << m) | (w >> (width - m))) & full
    else:
        moved = ((w >> m) | (w << (width - m))) & full
    return moved & mask(bits)


def shift(y, s, bits):
    w = word(y, bits)
    L = limbs(bits)
    if s == 0:
        return w
    a = abs(s)
    amount = 16 * (a // 16)
    if a % 16 != 0 and a < L:
        amount += a % 16
    if s > 0:
        return (w << amount) & mask(bits)
    return w >> amount


def hexs(n):
    return ("-" if n < 0 else "") + format(abs(n), "X")


def operand(rng, bits):
    """A value to convert: in range, wider than the word, or negative."""
    kind = rng.randrange(6)
    if kind == 0:
        return rng.getrandbits(bits)
    if kind == 1:
        return rng.getrandbits(bits + rng.randrange(1, 40))
    if kind == 2:
        return -rng.getrandbits(bits + rng.randrange(0, 40)) - 1
    if kind == 3:
        return -rng.randrange(1, 70000)
    if kind == 4:
        return mask(bits) if rng.randrange(2) else 1 << (bits - 1)
    return rng.randrange(0, 1 << min(bits, 20))


def counts(rng, bits):
    L = limbs(bits)
    base = {1, 2, 3, L - 1, L, L + 1, 15, 16, 17, 31, 32, 33, bits - 1, bits,
            bits + 1, 2 * bits, 1000, 65535, 65536, 123456789, 2**31 - 1}
    base |= {rng.randrange(1, 20) for _ in range(3)}
    chosen = sorted(c for c in base if c > 0)
    rng.shuffle(chosen)
    picked = chosen[:8]
    return [c if rng.randrange(2) else -c for c in picked] + [0]


def main():
    rng = random.Random(SEED)
    lines = [
        "# Binary-word cases from tests/tools/gen_binword_vectors.py (Python",
        "# integers, written from the word rules).  Hexadecimal values, decimal",
        "# counts.  op BITS operands -> result",
    ]
    for bits in list(range(1, 257)) + EXTRA_SIZES:
        for n in [0, -1, 1 << bits, -(1 << bits), -(1 << bits) - 1] + [operand(rng, bits) for _ in range(3)]:
            lines.append(f"word {bits} {hexs(n)} -> {hexs(word(n, bits))}")
        y = operand(rng, bits)
        lines.append(f"not {bits} {hexs(y)} -> {hexs(mask(bits) - word(y, bits))}")
        for op in ["and", "or", "xor", "nand", "nor", "xnor"]:
            y, x = operand(rng, bits), operand(rng, bits)
            a, b = word(y, bits), word(x, bits)
            r = {"and": a & b, "or": a | b, "xor": a ^ b}[BASE_OP[op]]
            if op != BASE_OP[op]:
                r = mask(bits) - r  # the inverted forms
            lines.append(f"{op} {bits} {hexs(y)} {hexs(x)} -> {hexs(r)}")
        for c in counts(rng, bits):
            y = operand(rng, bits)
            lines.append(f"shift {bits} {hexs(y)} {c} -> {hexs(shift(y, c, bits))}")
        for c in counts(rng, bits):
            y = operand(rng, bits)
            lines.append(f"rot {bits} {hexs(y)} {c} -> {hexs(rot(y, c, bits))}")
    with open("tests/data/binword_vectors.txt", "w") as out:
        out.write("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
