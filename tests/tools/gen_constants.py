#!/usr/bin/env python3
"""Writes tests/data/constants.txt: the value, dimension and ten-digit display
text of every physical constant of the calculator, computed with mpmath from
the published values the constant table is built on.

Each data line holds, separated by tabs:
  symbol     the calculator's symbol
  exact      "exact" when the value is a decimal product (no pi), else "approx"
  value      the SI value to 1020 significant digits ("d.ddd...E+x")
  exponents  eight exponents: m kg s mol K A cd rad
  display    the display text with 10 significant digits in the Standard
             format and the default display units (aliases applied)

Run: python3 tests/tools/gen_constants.py > tests/data/constants.txt
"""
import sys
from decimal import Decimal, getcontext

from mpmath import mp, mpf, pi

mp.dps = 1100
getcontext().prec = 1100   # decimal products of the exact rows stay exact


def from_mp(x):
    """An mpmath value as a Decimal of 1060 significant digits."""
    return Decimal(mp.nstr(x, 1060, strip_zeros=False))


def mpf_pi_rows():
    u0 = 4 * pi * mpf("1.000000000449E-7")
    e0 = 1 / u0 / mpf("299792458") ** 2
    return {
        "hbar": from_mp(mpf("6.62607015E-34") / (2 * pi)),
        "ke": from_mp(1 / (4 * pi * e0)),
        "u0": from_mp(u0),
        "e0": from_mp(e0),
    }


PI_ROWS = mpf_pi_rows()
U = Decimal("1.66053906660E-27")   # atomic mass unit in kg

# symbol, value, exact, (m kg s mol K A cd rad), unit text as shown
KG = (0, 1, 0, 0, 0, 0, 0, 0)
MAGNETIC_MOMENT = (2, 2, -4, 0, 0, -1, 0, 0)   # "J/T": J and T both add
ROWS = [
    ("a0", Decimal("5.29177210903E-11"), True, (1, 0, 0, 0, 0, 0, 0, 0), "m"),
    ("amu", Decimal("1.0") * U, True, KG, "kg"),
    ("c", Decimal("299792458.0"), True, (1, 0, -1, 0, 0, 0, 0, 0), "m/s"),
    ("c1", Decimal("3.741771852E-16"), True, (4, 1, -3, 0, 0, 0, 0, 0), "m⁴·kg/s³"),
    ("c2", Decimal("1.438776877E-2"), True, (1, 0, 0, 0, 1, 0, 0, 0), "m·K"),
    ("e", Decimal("1.602176634E-19"), True, (0, 0, 1, 0, 0, 1, 0, 0), "C"),
    ("eV", Decimal("1.602176634E-19"), True, (2, 1, -2, 0, 0, 0, 0, 0), "J"),
    ("G", Decimal("6.67430E-11"), True, (3, -1, -2, 0, 0, 0, 0, 0), "m³/kg·s²"),
    ("g", Decimal("9.80665"), True, (1, 0, -2, 0, 0, 0, 0, 0), "m/s²"),
    ("h", Decimal("6.62607015E-34"), True, (2, 1, -1, 0, 0, 0, 0, 0), "J·s"),
    ("hbar", PI_ROWS["hbar"], False, (2, 1, -1, 0, 0, 0, 0, 0), "J·s"),
    ("k", Decimal("1.380649E-23"), True, (2, 1, -2, 0, -1, 0, 0, 0), "m²·kg/K·s²"),
    ("ke", PI_ROWS["ke"], False, (3, 1, -4, 0, 0, -2, 0, 0), "m³·kg/A²·s⁴"),
    ("ma", Decimal("4.001506179127") * U, True, KG, "kg"),
    ("me", Decimal("5.48579909065E-4") * U, True, KG, "kg"),
    ("mp", Decimal("1.007276466621") * U, True, KG, "kg"),
    ("mn", Decimal("1.00866491595") * U, True, KG, "kg"),
    ("mt", Decimal("1.90754") * U, True, KG, "kg"),
    ("mu", Decimal("0.1134289259") * U, True, KG, "kg"),
    ("NA", Decimal("6.02214076E+23"), True, (0, 0, 0, -1, 0, 0, 0, 0), "mol⁻¹"),
    ("R", Decimal("8.314462618"), True, (2, 1, -2, -1, -1, 0, 0, 0), "m²·kg/mol·K·s²"),
    ("Ryd", Decimal("10973731.568160"), True, (-1, 0, 0, 0, 0, 0, 0, 0), "m⁻¹"),
    ("re", Decimal("2.8179403262E-15"), True, (1, 0, 0, 0, 0, 0, 0, 0), "m"),
    ("alpha", Decimal("7.2973525693E-3"), True, (0, 0, 0, 0, 0, 0, 0, 0), ""),
    ("ue", Decimal("-9.2847647043E-24"), True, MAGNETIC_MOMENT, "m²·kg²/A·s⁴"),
    ("up", Decimal("1.41060679736E-26"), True, MAGNETIC_MOMENT, "m²·kg²/A·s⁴"),
    ("u0", PI_ROWS["u0"], False, (1, 1, -2, 0, 0, -2, 0, 0), "N·A⁻²"),
    ("e0", PI_ROWS["e0"], False, (-3, -1, 4, 0, 0, 2, 0, 0), "s⁴·A²/kg·m³"),
    ("ub", Decimal("9.2740100783E-24"), True, MAGNETIC_MOMENT, "m²·kg²/A·s⁴"),
    ("un", Decimal("5.0507837461E-27"), True, MAGNETIC_MOMENT, "m²·kg²/A·s⁴"),
    ("sigma", Decimal("5.670374419E-8"), True, (0, 1, -3, 0, -4, 0, 0, 0), "kg/s³·K⁴"),
]

SUPERSCRIPT = str.maketrans("0123456789+-", "⁰¹²³⁴⁵⁶⁷⁸⁹⁺⁻")


def digits_and_exponent(x, count):
    """The first `count` significant digits of |x| (truncated, padded with
    zeros) and the decimal exponent of the first digit."""
    t = abs(x).normalize().as_tuple()
    digits = "".join(str(d) for d in t.digits)
    exponent = len(t.digits) - 1 + t.exponent
    return (digits + "0" * count)[:count], exponent


def standard_format(x, n):
    """The Standard display format with n significant digits: round half up
    on digit n, positional form unless E < -3, E > n or E > 9."""
    if x == 0:
        return "0."
    raw, e = digits_and_exponent(x, n + 1)
    digits = int(raw[:n]) + (1 if int(raw[n]) >= 5 else 0)
    text = str(digits)
    exponent_form = e < -3 or e > n or e > 9
    if len(text) > n:          # the rounding carried into a new digit
        text = text[:n]
        e += 1
    sign = "\u2212" if x < 0 else ""
    if exponent_form:
        body = text[0] + "." + text[1:]
        body = body.rstrip("0").rstrip(".")
        return sign + body + "\u00b7" + "10" + str(e).translate(SUPERSCRIPT)
    if e < 0:
        body = "0." + "0" * (-e - 1) + text
    else:
        body = text[: e + 1] + "." + text[e + 1:] if len(text) > e + 1 else text + "0" * (e + 1 - len(text)) + "."
    if "." in body:
        body = body.rstrip("0")
    return sign + body


def main():
    print("# Generated by tests/tools/gen_constants.py with mpmath. Do not edit.")
    print("# symbol\texact\tvalue\tm kg s mol K A cd rad\tdisplay (10 digits)")
    for symbol, value, exact, exponents, unit_text in ROWS:
        digits, e = digits_and_exponent(value, 1020)
        digits = digits.rstrip("0") or "0"
        sign = "-" if value < 0 else ""
        number = f"{sign}{digits[0]}.{digits[1:] or '0'}E{e:+d}"
        shown = standard_format(value, 10) + (" " + unit_text if unit_text else "")
        print("\t".join([symbol, "exact" if exact else "approx", number,
                         " ".join(str(x) for x in exponents), shown]))


if __name__ == "__main__":
    sys.exit(main())
