#!/usr/bin/env python3
"""Writes tests/data/unit_factors.txt: the SI value and dimension of every
base and derived unit of the calculator, as GNU Units computes them.

GNU Units (Debian package `units`) is the independent reference; this script
only maps each calculator symbol to a GNU Units expression and records what
GNU Units answers. The tests read the data file and never need GNU Units.

Each data line holds, separated by tabs:
  table      "base" or "derived"
  symbol     the calculator's symbol
  gnu        the GNU Units expression asked for
  value      the SI value, GNU Units "%.15g"
  exact      "exact" when that value is a short decimal (fewer than 15
             significant digits, and GNU Units' double within one unit in the
             last place of it), else "approx"
  exponents  eight exponents: m kg s mol K A cd radian
  tolerance  relative difference allowed from the value ("-" = 15-digit match)
  note       why a row differs from GNU Units, or "-"

Run: python3 tests/tools/gen_unit_factors.py > tests/data/unit_factors.txt
"""
import math
import subprocess
import sys
from decimal import Decimal

PRIMITIVES = {"m": 0, "kg": 1, "s": 2, "mol": 3, "K": 4, "A": 5, "cd": 6, "radian": 7}

# Calculator symbol -> GNU Units expression (GNU Units names differ, and its
# "gallon" follows the locale, so the US measures are spelled out).
BASE = [
    ("km", "km"), ("m", "m"), ("cm", "cm"), ("mm", "mm"), ("um", "micrometer"),
    ("nm", "nanometer"), ("pm", "picometer"), ("fm", "femtometer"), ("am", "attometer"),
    ("angstrom", "angstrom"), ("yd", "yard"), ("ft", "foot"), ("in", "inch"), ("mil", "mil"),
    ("mi", "mile"), ("nmi", "nauticalmile"), ("ua", "au"), ("pc", "parsec"), ("ly", "lightyear"),
    ("t", "tonne"), ("kg", "kg"), ("g", "gram"), ("mg", "milligram"), ("ug", "microgram"),
    ("ng", "nanogram"), ("pg", "picogram"), ("u", "u"), ("gr", "grain"), ("oz", "ounce"),
    ("lb", "pound"), ("ton", "shortton"), ("lbt", "troypound"), ("ozt", "troyounce"),
    ("ct", "carat"), ("dr", "dram"), ("drt", "apdram"), ("st", "stone"),
    ("s", "s"), ("ms", "millisecond"), ("us", "microsecond"), ("ns", "nanosecond"),
    ("ps", "picosecond"), ("fs", "femtosecond"), ("as", "attosecond"), ("min", "minute"),
    ("h", "hour"), ("d", "day"), ("wk", "week"), ("y", "julianyear"), ("cy", "100 julianyear"),
    ("ky", "1000 julianyear"), ("My", "1e6 julianyear"), ("Gy", "1e9 julianyear"),
    ("Ty", "1e12 julianyear"),
    ("kmol", "kilomol"), ("mol", "mol"), ("mmol", "millimol"),
    ("K", "K"),
    ("A", "A"), ("mA", "milliampere"), ("uA", "microampere"),
    ("cd", "cd"),
    ("rad", "radian"), ("mrad", "milliradian"), ("urad", "microradian"), ("deg", "degree"),
    ("grad", "gon"),
]

DERIVED = [
    ("Hz", "Hz"), ("kHz", "kHz"), ("MHz", "MHz"), ("GHz", "GHz"), ("THz", "THz"), ("rpm", "rpm"),
    ("N", "newton"), ("dyn", "dyne"), ("lbf", "lbf"),
    ("Pa", "pascal"), ("kPa", "kilopascal"), ("MPa", "megapascal"), ("GPa", "gigapascal"),
    ("TPa", "terapascal"), ("atm", "atm"), ("bar", "bar"), ("mbar", "millibar"), ("psi", "psi"),
    ("inHg", "inHg"), ("mmHg", "mmHg"), ("torr", "torr"),
    ("TJ", "terajoule"), ("GJ", "gigajoule"), ("MJ", "megajoule"), ("kJ", "kilojoule"),
    ("J", "joule"), ("mJ", "millijoule"), ("uJ", "microjoule"), ("eV", "eV"), ("keV", "keV"),
    ("MeV", "MeV"), ("GeV", "GeV"), ("TeV", "TeV"), ("tTNT", "ton tnt"),
    ("ktTNT", "1000 ton tnt"), ("MtTNT", "1e6 ton tnt"),
    ("TW", "terawatt"), ("GW", "gigawatt"), ("MW", "megawatt"), ("kW", "kilowatt"),
    ("W", "watt"), ("mW", "milliwatt"), ("uW", "microwatt"), ("nW", "nanowatt"),
    ("erg", "erg"), ("hp", "horsepower"),
    ("gal", "usgallon"), ("qt", "usgallon/4"), ("pt", "usgallon/8"), ("cup", "usgallon/16"),
    ("floz", "usgallon/128"), ("tbsp", "usgallon/256"), ("tsp", "usgallon/768"),
    ("l", "liter"), ("ml", "milliliter"),
    ("b", "barn"), ("ac", "acre"), ("ha", "hectare"),
    ("knot", "knot"), ("c", "c"),
    ("C", "coulomb"),
    ("kV", "kilovolt"), ("V", "volt"), ("mV", "millivolt"), ("uV", "microvolt"),
    ("mohm", "milliohm"), ("ohm", "ohm"), ("kohm", "kiloohm"), ("Mohm", "megaohm"),
    ("Gohm", "gigaohm"),
    ("sb", "stilb"), ("L", "lambert"), ("fL", "footlambert"),
    ("Wb", "weber"), ("T", "tesla"), ("H", "henry"),
]

# Rows whose table entry is kept as listed although it differs from GNU Units.
DEVIATIONS = {
    "ua": ("1e-10", "the table keeps the older 1.49597870691E+11 m; GNU Units has the exact IAU 2012 value"),
    "pc": ("1e-10", "the table keeps 3.08567758128E+16 m; GNU Units derives the parsec from the IAU 2012 au"),
    "erg": ("-", "dimension: the table lists the erg with Time -3 and keeps it; GNU Units has an energy, Time -2"),
}


def ask(expression, digits):
    return subprocess.run(["units", "-t", "-o", f"%.{digits}g", expression],
                          capture_output=True, text=True, check=True).stdout.strip()


def value_and_units(answer):
    last = answer.split(" = ")[-1].strip()
    parts = last.split()
    value = parts[0]
    exponents = [0] * 8
    sign = 1
    for token in parts[1:]:
        if token == "/":
            sign = -1
            continue
        name, _, power = token.partition("^")
        if name not in PRIMITIVES:
            raise SystemExit(f"unexpected unit {name!r} in {answer!r}")
        exponents[PRIMITIVES[name]] += sign * (int(power) if power else 1)
    return value, exponents


def significant_digits(text):
    digits = Decimal(text).normalize().as_tuple().digits
    return len(digits)


def main():
    version = subprocess.run(["units", "-V", "-t"], capture_output=True, text=True).stdout.strip()
    print(f"# Generated by tests/tools/gen_unit_factors.py from {version}. Do not edit.")
    print("# table\tsymbol\tgnu\tvalue\texact\tm kg s mol K A cd rad\ttolerance\tnote")
    for table, rows in (("base", BASE), ("derived", DERIVED)):
        for symbol, expression in rows:
            value, exponents = value_and_units(ask(expression, 15))
            wide_value, _ = value_and_units(ask(expression, 17))
            # A value is taken as an exact decimal when its 15-digit form is
            # shorter than 15 digits and GNU Units' double lies within one
            # unit in the last place of that decimal: pi/30 prints as the
            # 14-digit 0.10471975511966 but its double is far from it.
            exact = (significant_digits(value) < 15 and
                     abs(float(wide_value) - float(value)) <= math.ulp(float(value)))
            tolerance, note = DEVIATIONS.get(symbol, ("-", "-"))
            print("\t".join([table, symbol, expression, value, "exact" if exact else "approx",
                             " ".join(str(e) for e in exponents), tolerance, note]))


if __name__ == "__main__":
    sys.exit(main())
