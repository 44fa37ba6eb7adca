// The base-unit, derived-unit and alias tables: sizes, order, the rows whose
// texts are easy to get wrong, and the lookups.
#include <gtest/gtest.h>

#include <string>

#include "numeric/numtext.h"
#include "units/unittables.h"

namespace quorvel {
namespace {

std::string utf8(const char16_t* text) { return text == nullptr ? "<null>" : toUtf8(text); }

TEST(UnitTables, RowCounts) {
    EXPECT_EQ(BaseUnits().size(), 67u);
    EXPECT_EQ(DerivedUnits().size(), 76u);
    EXPECT_EQ(UnitAliases().size(), 19u);
}

TEST(UnitTables, BaseRowsGroupedByDimensionInOrder) {
    int32_t previous = 0;
    for (const UnitDef& row : BaseUnits()) {
        EXPECT_GE(row.dimension, previous) << utf8(row.symbol);
        previous = row.dimension;
    }
    EXPECT_EQ(utf8(BaseUnits().front().symbol), "km");
    EXPECT_EQ(utf8(BaseUnits().back().symbol), "grad");
    EXPECT_EQ(utf8(DerivedUnits().front().symbol), "Hz");
    EXPECT_EQ(utf8(DerivedUnits().back().symbol), "H");
}

TEST(UnitTables, SpellingsKeptAsListed) {
    EXPECT_EQ(utf8(FindUnit(u"fm")->name), "femptometer");
    EXPECT_EQ(utf8(FindUnit(u"fs")->name), "femptosecond");
    EXPECT_EQ(utf8(FindUnit(u"K")->name), "degree kelvin");
    EXPECT_EQ(utf8(FindUnit(u"y")->name), "year (Julian)");
    EXPECT_EQ(utf8(FindDerivedUnit(u"N")->name), "Newton");
    EXPECT_EQ(utf8(FindDerivedUnit(u"knot")->name), "nmi per h");
    EXPECT_EQ(utf8(FindDerivedUnit(u"hp")->name), "horsepower (mechanical)");
    EXPECT_EQ(utf8(FindDerivedUnit(u"keV")->name), "kilo-electronvolt");
}

TEST(UnitTables, DisplayFormsWithGreekAndSymbols) {
    EXPECT_EQ(utf8(FindUnit(u"um")->display), "\u03BCm");
    EXPECT_EQ(utf8(FindUnit(u"urad")->display), "\u03BCrad");
    EXPECT_EQ(utf8(FindUnit(u"angstrom")->display), "A\u030A");
    EXPECT_EQ(utf8(FindDerivedUnit(u"ohm")->display), "\u03A9");
    EXPECT_EQ(utf8(FindDerivedUnit(u"mohm")->display), "m\u03A9");
    EXPECT_EQ(utf8(FindDerivedUnit(u"uV")->display), "\u03BCV");
}

TEST(UnitTables, FactorTextsKeptAsWritten) {
    EXPECT_EQ(FindUnit(u"m")->factor, nullptr);
    EXPECT_EQ(utf8(FindUnit(u"deg")->factor), "pi/180.0");
    EXPECT_EQ(utf8(FindUnit(u"ly")->factor), "9.4607304725808E+15");
    EXPECT_EQ(utf8(FindDerivedUnit(u"torr")->factor), "101325.0/760.0");
    EXPECT_EQ(utf8(FindDerivedUnit(u"psi")->factor), "6894.7572931683613367");
    EXPECT_EQ(utf8(FindDerivedUnit(u"MeV")->factor), "1.602176634E-19*1.0E+6");
    EXPECT_EQ(utf8(FindDerivedUnit(u"fL")->factor), "1.0/0.09290304/pi");
}

TEST(UnitTables, DerivedVectors) {
    EXPECT_EQ(FindDerivedUnit(u"rpm")->units, (UnitVector{0, 0, -1, 0, 0, 0, 0, 1}));
    EXPECT_EQ(FindDerivedUnit(u"V")->units, (UnitVector{2, 1, -3, 0, 0, -1, 0, 0}));
    EXPECT_EQ(FindDerivedUnit(u"C")->units, (UnitVector{0, 0, 1, 0, 0, 1, 0, 0}));
    EXPECT_EQ(FindDerivedUnit(u"fL")->units, (UnitVector{-2, 0, 0, 0, 0, 0, 1, 0}));
    // Listed with the exponents of a power, and kept.
    EXPECT_EQ(FindDerivedUnit(u"erg")->units, (UnitVector{2, 1, -3, 0, 0, 0, 0, 0}));
}

TEST(UnitTables, LookupIsExactWithCase) {
    ASSERT_NE(FindUnit(u"km"), nullptr);
    EXPECT_EQ(FindUnit(u"Km"), nullptr);
    EXPECT_EQ(FindUnit(u"KM"), nullptr);
    EXPECT_EQ(FindUnit(u"N"), nullptr);   // derived, not base
    EXPECT_EQ(FindDerivedUnit(u"km"), nullptr);
    EXPECT_EQ(utf8(FindDerivedUnit(u"C")->name), "coulomb");
    EXPECT_EQ(utf8(FindDerivedUnit(u"c")->name), "speed of light");
    EXPECT_EQ(utf8(FindDerivedUnit(u"L")->name), "lambert");
    EXPECT_EQ(utf8(FindDerivedUnit(u"l")->name), "liter");
    EXPECT_EQ(utf8(FindUnit(u"t")->name), "metric ton");
    EXPECT_EQ(utf8(FindDerivedUnit(u"T")->name), "Tesla");
    EXPECT_EQ(FindUnit(u""), nullptr);
}

TEST(UnitTables, DisplayUnitLookupIgnoresCaseWithinItsDimension) {
    EXPECT_EQ(FindDisplayUnit(Length, u"KM"), FindUnit(u"km"));
    EXPECT_EQ(FindDisplayUnit(Time, u"MY"), FindUnit(u"My"));
    EXPECT_EQ(FindDisplayUnit(Mass, u"km"), nullptr);   // a length is no mass unit
    EXPECT_EQ(FindDisplayUnit(Length, u"furlong"), nullptr);
}

TEST(UnitTables, SiBaseRowOfEachDimension) {
    const char* expected[] = {"m", "kg", "s", "mol", "K", "A", "cd", "rad"};
    for (int32_t d = 0; d < DimensionCount; ++d) {
        EXPECT_EQ(utf8(SiBaseUnit(d).symbol), expected[d]);
        EXPECT_EQ(SiBaseUnit(d).factor, nullptr);
    }
}

TEST(UnitTables, AliasRowsInOrder) {
    EXPECT_EQ(utf8(FindAlias(u"m\u00B7kg/s\u00B2")->alias), "N");
    EXPECT_EQ(utf8(FindAlias(u"s\u207B\u00B9")->alias), "Hz");
    EXPECT_EQ(utf8(FindAlias(u"kg/s\u00B3")->alias), "W\u00B7m\u207B\u00B2");
    EXPECT_EQ(utf8(FindAlias(u"cd/m\u00B2")->factor), "10000.0");
    EXPECT_EQ(FindAlias(u"cd/cm\u00B2")->factor, nullptr);
    // Rows 9 and 16 carry a "¹" the unit text never has, so they match only
    // that exact text: pascal and tesla are never shown by name.
    EXPECT_EQ(FindAlias(u"kg/m\u00B7s\u00B2"), nullptr);
    EXPECT_EQ(FindAlias(u"kg/A\u00B7s\u00B2"), nullptr);
    EXPECT_EQ(utf8(FindAlias(u"kg/m\u00B9\u00B7s\u00B2")->alias), "Pa");
    EXPECT_EQ(FindAlias(u"m*kg/s^2"), nullptr);   // plain text never matches
}

}  // namespace
}  // namespace quorvel
