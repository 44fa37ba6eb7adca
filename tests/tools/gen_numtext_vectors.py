#!/usr/bin/env python3
"""Writes tests/data/numtext_vectors.txt: real-number text cases, parsing and
display text in the Standard, Fixed and Scientific modes.

Usage: gen_numtext_vectors.py > tests/data/numtext_vectors.txt

Deterministic (fixed seed). One case a line, fields separated by blanks; texts
are UTF-8 and never contain blanks. A BigNum is written as
  L SIGN EXP DIGITS
(byte length, + - or 0, decimal exponent of d1, all 2L mantissa digits).

  parse L TEXT -> SIGN EXP DIGITS
      ParseReal at L bytes: 2L digits are kept, the one character after them
      rounds half up, and a longer integer part gets too small an exponent.
  format MODE N FLAGS L SIGN EXP DIGITS -> TEXT
      FormatReal; MODE S (Standard, N significant digits, 0 = all), F (Fixed,
      N decimals) or X (Scientific, N digits after the point); FLAGS in hex
      without the mode bits.

The display texts are derived with the decimal module (rounding half up to the
digit count of the mode) and laid out as the display does. Each plain-text
display without grouping or brackets is parsed back at the same length (a
"parse" line); where the text fits the capacity the generator checks that the
round trip gives the displayed value exactly.
"""
import random
from decimal import Decimal, Context, ROUND_HALF_UP

SEED = 20240618
MINUS = "\u2212"
SUPERSCRIPT = {"+": "\u207A", "-": "\u207B", "0": "\u2070", "1": "\u00B9", "2": "\u00B2",
               "3": "\u00B3", "4": "\u2074", "5": "\u2075", "6": "\u2076", "7": "\u2077",
               "8": "\u2078", "9": "\u2079"}


def wrap32(v):
    v &= 0xFFFFFFFF
    return v - (1 << 32) if v >= (1 << 31) else v


# --- ParseReal ---------------------------------------------------------------

def parse_real(limbs, text):
    """Returns (sign, exponent, digit string of 2L digits)."""
    nd = 2 * max(limbs, 2)
    digits = [0] * nd
    i, sign = 0, 1
    while i < len(text) and text[i] in "+-":
        if text[i] == "-":
            sign = -sign
        i += 1
    pos, running, point, significant = nd - 1, -1, False, False
    while i < len(text) and pos >= 0:
        c = text[i]
        if c == ".":
            point = True
            i += 1
            continue
        if not ("0" <= c <= "9"):
            break
        d = ord(c) - 48
        if not significant and d == 0:
            if point:
                running -= 1
            i += 1
            continue
        significant = True
        digits[nd - 1 - pos] = d
        pos -= 1
        if not point:
            running += 1
        i += 1
    stop = text[i] if i < len(text) else ""
    exponent = 0
    mant = "".join(map(str, digits))
    if stop in "56789" and stop != "":
        m = str(int(mant) + 1)
        if len(m) > nd:   # carry out of the top
            m = m[:nd]
            exponent += 1
        mant = m.zfill(nd)
    if mant[0] == "0":
        return 0, 0, "0" * nd
    if stop in ("E", "e"):
        i += 1
        negative = False
        if i < len(text) and text[i] in "+-":
            negative = text[i] == "-"
            i += 1
        e = 0
        while i < len(text) and "0" <= text[i] <= "9":
            e = (e * 10 + ord(text[i]) - 48) & 0xFFFFFFFF
            i += 1
        if negative:
            e = -e
        exponent += e
    return sign, wrap32(exponent + running), mant


def value_of(sign, exp, digits):
    if sign == 0:
        return Decimal(0)
    return Decimal((0 if sign > 0 else 1, tuple(int(c) for c in digits), exp - len(digits) + 1))


# --- FormatReal ----------------------------------------------------------------

def sign_text(sign, flags):
    if sign < 0:
        return "-" if flags & 0x80 else MINUS
    if sign > 0 and flags & 0x01:
        return "+"
    return ""


def exponent_text(e, flags):
    if flags & 0x80:
        return "E%+d" % e
    return "\u00B710" + "".join(SUPERSCRIPT[c] for c in "%d" % e)


def rounded(v, digits_wanted):
    """|v| rounded half up to digits_wanted significant digits: (digit string
    padded to digits_wanted, adjusted exponent)."""
    if v == 0:
        return "0" * digits_wanted, 0
    ctx = Context(prec=digits_wanted, rounding=ROUND_HALF_UP, Emax=10 ** 9, Emin=-10 ** 9)
    r = ctx.plus(v.copy_abs())
    ds = "".join(map(str, r.as_tuple().digits))
    return (ds + "0" * digits_wanted)[:digits_wanted], r.adjusted()


def standard(sign, exp, digits, n, flags):
    nd = len(digits)
    n = n if n > 0 else nd
    v = value_of(sign, exp, digits)
    rd, e = rounded(v, n)
    out = sign_text(sign, flags)
    if exp < -3 or exp > n or exp > 9:
        body = (rd[0] + "." + rd[1:]).rstrip("0")
        if body.endswith("."):
            body = body[:-1]
        return out + body + exponent_text(e, flags) + ("]" if flags & 0x08 else "")
    if e < 0:
        return out + ("0." + "0" * (-e - 1) + rd).rstrip("0")
    places = e + 1
    whole = rd[:places]
    grouped = ""
    for i, ch in enumerate(whole):
        grouped += ch
        if flags & 0x04 and (e - i) >= 3 and (e - i) % 3 == 0:
            grouped += ","
    grouped += "0" * max(0, places - n)   # integer places beyond the n digits
    frac = rd[places:].rstrip("0")
    return out + grouped + "." + frac


def fixed(sign, exp, digits, n, flags):
    v = value_of(sign, exp, digits).copy_abs()
    ctx = Context(prec=10 ** 6, rounding=ROUND_HALF_UP, Emax=10 ** 9, Emin=-10 ** 9)
    q = v.quantize(Decimal(1).scaleb(-n), context=ctx)
    text = format(q, ",f" if flags & 0x04 else "f")
    if n == 0:
        text += "."
    return sign_text(sign, flags) + text


def scientific(sign, exp, digits, n, flags):
    v = value_of(sign, exp, digits)
    rd, e = rounded(v, n + 1)
    out = "[" if flags & 0x08 else ""
    out += sign_text(sign, flags) + rd[0] + "." + rd[1:]
    out += exponent_text(e, flags)
    return out + ("]" if flags & 0x08 else "")


FORMATTERS = {"S": standard, "F": fixed, "X": scientific}


# --- Case generation ---------------------------------------------------------

def random_bignum(rng, length, exp_range):
    nd = 2 * length
    if rng.random() < 0.04:
        return 0, 0, "0" * nd
    body = [str(rng.randint(0, 9)) for _ in range(nd)]
    body[0] = str(rng.randint(1, 9))
    r = rng.random()
    if r < 0.25:
        cut = rng.randint(1, min(nd, 8))
        body = body[:cut] + ["0"] * (nd - cut)
    elif r < 0.35:   # long runs of 9 make rounding carry
        cut = rng.randint(1, nd)
        body = ["9"] * cut + body[cut:]
    elif r < 0.45:   # a 5 right after a short head: the half-up boundary
        cut = rng.randint(1, min(nd - 1, 14))
        body = body[:cut] + ["5"] + ["0"] * (nd - cut - 1)
    exp = rng.randint(*exp_range)
    return rng.choice([1, -1]), exp, "".join(body)


def random_number_text(rng, nd):
    parts = []
    signs = rng.choice(["", "", "", "-", "+", "--", "-+-", "+-"])
    lead = "0" * rng.choice([0, 0, 1, 2, 4])
    int_len = rng.choice([0, 1, 2, 3, rng.randint(0, nd + 3), nd, nd + 1])
    frac_len = rng.choice([0, 1, 2, rng.randint(0, nd + 3)])
    int_part = "".join(str(rng.randint(0, 9)) for _ in range(int_len))
    if int_part:
        int_part = str(rng.randint(1, 9)) + int_part[1:]
    frac_zeros = "0" * rng.choice([0, 0, 1, 3, 6]) if not int_part else ""
    frac = frac_zeros + "".join(str(rng.randint(0, 9)) for _ in range(frac_len))
    if rng.random() < 0.2 and frac:
        frac = frac[:-1] + rng.choice("56789")
    if rng.random() < 0.1:
        int_part, frac = "9" * rng.randint(1, nd), "9" * rng.randint(0, 4)
    parts.append(signs + lead + int_part)
    if frac or rng.random() < 0.3:
        parts.append("." + frac)
    text = "".join(parts)
    r = rng.random()
    if r < 0.3:
        text += rng.choice("eE") + rng.choice(["", "+", "-"]) + str(rng.randint(0, 400))
    elif r < 0.35:
        text += "E" + str(rng.randint(10 ** 9, 10 ** 11))   # wraps in 32 bits
    elif r < 0.45:
        text += rng.choice(["x", ",5", "/7", "'", ")", "e", "E-"])
    return text if text else "0"


def bignum_fields(length, sign, exp, digits):
    return "%d %s %d %s" % (length, "+" if sign > 0 else "-" if sign < 0 else "0", exp, digits)


def parse_line(length, text):
    sign, exp, digits = parse_real(length, text)
    return "parse %d %s -> %s %d %s" % (length, text, "+" if sign > 0 else "-" if sign < 0 else "0",
                                        exp, digits)


def main():
    rng = random.Random(SEED)
    out = []
    lengths = [2, 3, 5, 9, 48]

    for _ in range(700):
        length = rng.choice(lengths + [13, 508] if rng.random() < 0.1 else lengths)
        out.append(parse_line(length, random_number_text(rng, 2 * length)))

    checked = 0
    for _ in range(2400):
        length = rng.choice(lengths)
        mode = rng.choice("SSFFX")
        if mode == "F":
            sign, exp, digits = random_bignum(rng, length, (-14, 24))
            n = rng.choice([0, 1, 2, 3, 4, 6, 10, 15])
        else:
            sign, exp, digits = random_bignum(rng, length, rng.choice([(-6, 14), (-400, 400)]))
            choices = [0, 1, 2, 3, 4, 5, 8, 12, 2 * length - 1, 2 * length, 2 * length + 4]
            n = rng.choice(choices) if mode == "S" else rng.choice([0, 1, 2, 3, 5, 12, 2 * length])
        flags = 0
        for bit in (0x01, 0x02, 0x04, 0x08):
            if rng.random() < 0.25:
                flags |= bit
        if rng.random() < 0.5:
            flags |= 0x80
        text = FORMATTERS[mode](sign, exp, digits, n, flags)
        out.append("format %s %d %X %s -> %s" % (mode, n, flags, bignum_fields(length, sign, exp, digits), text))

        if flags & 0x80 and not flags & 0x0C:
            out.append(parse_line(length, text))
            back = value_of(*parse_real(length, text))
            shown = Decimal(text.replace("E", "e"))
            # every written digit from the first nonzero one must fit the capacity
            written = text.split("E")[0].lstrip("+-").replace(".", "").lstrip("0")
            fits = shown == 0 or len(written) <= 2 * length
            if fits:
                assert back == shown, (text, back)
                checked += 1

    assert checked > 500, checked
    print("# Real-number text cases; see tests/tools/gen_numtext_vectors.py")
    for line in out:
        print(line)


if __name__ == "__main__":
    main()
