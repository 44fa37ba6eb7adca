// The base-unit, derived-unit and display-alias tables and their lookups.
// Factor texts are expressions of the command language, evaluated at the
// working precision whenever a unit is applied or displayed; the spellings
// of the long names are part of the tables ("femptometer" included).
#include "units/unittables.h"

#include <array>

namespace quorvel {

namespace {

constexpr std::array<UnitDef, BaseUnitCount> BaseUnitTable{{
    // Length
    {u"km", u"km", u"kilometer", u"1000.0", 0},
    {u"m", u"m", u"meter", nullptr, 0},
    {u"cm", u"cm", u"centimeter", u"0.01", 0},
    {u"mm", u"mm", u"millimeter", u"0.001", 0},
    {u"um", u"μm", u"micrometer", u"1.0E-6", 0},
    {u"nm", u"nm", u"nanometer", u"1.0E-9", 0},
    {u"pm", u"pm", u"picometer", u"1.0E-12", 0},
    {u"fm", u"fm", u"femptometer", u"1.0E-15", 0},
    {u"am", u"am", u"attometer", u"1.0E-18", 0},
    // The display form of the angstrom is "A" followed by the combining ring above.
    {u"angstrom", u"A\u030A", u"angstrom", u"1.0E-10", 0},
    {u"yd", u"yd", u"yard", u"0.9144", 0},
    {u"ft", u"ft", u"foot", u"0.3048", 0},
    {u"in", u"in", u"inch", u"0.0254", 0},
    {u"mil", u"mil", u"mil", u"2.54E-5", 0},
    {u"mi", u"mi", u"mile", u"1609.344", 0},
    {u"nmi", u"nmi", u"nautical mile", u"1852.0", 0},
    {u"ua", u"ua", u"astronomical unit", u"1.49597870691E+11", 0},
    {u"pc", u"pc", u"parsec", u"3.08567758128E+16", 0},
    {u"ly", u"ly", u"lightyear", u"9.4607304725808E+15", 0},
    // Mass
    {u"t", u"t", u"metric ton", u"1000.0", 1},
    {u"kg", u"kg", u"kilogram", nullptr, 1},
    {u"g", u"g", u"gram", u"0.001", 1},
    {u"mg", u"mg", u"milligram", u"1.0E-6", 1},
    {u"ug", u"μg", u"microgram", u"1.0E-9", 1},
    {u"ng", u"ng", u"nanogram", u"1.0E-12", 1},
    {u"pg", u"pg", u"picogram", u"1.0E-15", 1},
    {u"u", u"u", u"atomic mass unit", u"1.66053906660E-27", 1},
    {u"gr", u"gr", u"grain", u"6.479891E-5", 1},
    {u"oz", u"oz", u"US ounce", u"0.028349523125", 1},
    {u"lb", u"lb", u"US pound", u"0.45359237", 1},
    {u"ton", u"ton", u"US short ton", u"907.18474", 1},
    {u"lbt", u"lbt", u"troy pound", u"0.3732417216", 1},
    {u"ozt", u"ozt", u"troy ounce", u"0.0311034768", 1},
    {u"ct", u"ct", u"carat", u"0.0002", 1},
    {u"dr", u"dr", u"US dram", u"1.7718451953125E-3", 1},
    {u"drt", u"drt", u"troy dram", u"3.8879346E-3", 1},
    {u"st", u"st", u"stone", u"6.35029318", 1},
    // Time
    {u"s", u"s", u"second", nullptr, 2},
    {u"ms", u"ms", u"millisecond", u"0.001", 2},
    {u"us", u"μs", u"microsecond", u"1.0E-6", 2},
    {u"ns", u"ns", u"nanosecond", u"1.0E-9", 2},
    {u"ps", u"ps", u"picosecond", u"1.0E-12", 2},
    {u"fs", u"fs", u"femptosecond", u"1.0E-15", 2},
    {u"as", u"as", u"attosecond", u"1.0E-18", 2},
    {u"min", u"min", u"minute", u"60.0", 2},
    {u"h", u"h", u"hour", u"3600.0", 2},
    {u"d", u"d", u"day", u"86400.0", 2},
    {u"wk", u"wk", u"week", u"604800.0", 2},
    {u"y", u"y", u"year (Julian)", u"3.15576E+7", 2},
    {u"cy", u"cy", u"century (Julian)", u"3.15576E+9", 2},
    {u"ky", u"ky", u"kiloyear (Julian)", u"3.15576E+10", 2},
    {u"My", u"My", u"megayear (Julian)", u"3.15576E+13", 2},
    {u"Gy", u"Gy", u"gigayear (Julian)", u"3.15576E+16", 2},
    {u"Ty", u"Ty", u"terayear (Julian)", u"3.15576E+19", 2},
    // Amount
    {u"kmol", u"kmol", u"kilomole", u"1000.0", 3},
    {u"mol", u"mol", u"mole", nullptr, 3},
    {u"mmol", u"mmol", u"millimole", u"0.001", 3},
    // Temperature
    {u"K", u"K", u"degree kelvin", nullptr, 4},
    // Current
    {u"A", u"A", u"ampere", nullptr, 5},
    {u"mA", u"mA", u"milliampere", u"0.001", 5},
    {u"uA", u"μA", u"microampere", u"1.0E-6", 5},
    // Luminous Int.
    {u"cd", u"cd", u"candela", nullptr, 6},
    // Angle
    {u"rad", u"rad", u"radian arc", nullptr, 7},
    {u"mrad", u"mrad", u"milliradian arc", u"0.001", 7},
    {u"urad", u"μrad", u"microradian arc", u"1.0E-6", 7},
    {u"deg", u"deg", u"degree arc", u"pi/180.0", 7},
    {u"grad", u"grad", u"gradian arc", u"pi/200.0", 7},
}};

constexpr std::array<DerivedUnitDef, DerivedUnitCount> DerivedUnitTable{{
    // symbol, display, name, factor, exponents of L M T N K A cd rad
    {u"Hz", u"Hz", u"hertz", nullptr, {0, 0, -1, 0, 0, 0, 0, 0}},
    {u"kHz", u"kHz", u"kilohertz", u"1000.0", {0, 0, -1, 0, 0, 0, 0, 0}},
    {u"MHz", u"MHz", u"megahertz", u"1.0E+6", {0, 0, -1, 0, 0, 0, 0, 0}},
    {u"GHz", u"GHz", u"gigahertz", u"1.0E+9", {0, 0, -1, 0, 0, 0, 0, 0}},
    {u"THz", u"THz", u"terahertz", u"1.0E+12", {0, 0, -1, 0, 0, 0, 0, 0}},
    {u"rpm", u"rpm", u"revolutions per minute", u"pi/30.0", {0, 0, -1, 0, 0, 0, 0, 1}},
    {u"N", u"N", u"Newton", nullptr, {1, 1, -2, 0, 0, 0, 0, 0}},
    {u"dyn", u"dyn", u"dyne", u"1.0E-5", {1, 1, -2, 0, 0, 0, 0, 0}},
    {u"lbf", u"lbf", u"pound force", u"4.4482216152605", {1, 1, -2, 0, 0, 0, 0, 0}},
    {u"Pa", u"Pa", u"pascal", nullptr, {-1, 1, -2, 0, 0, 0, 0, 0}},
    {u"kPa", u"kPa", u"kilopascal", u"1000.0", {-1, 1, -2, 0, 0, 0, 0, 0}},
    {u"MPa", u"MPa", u"megapascal", u"1.0E+6", {-1, 1, -2, 0, 0, 0, 0, 0}},
    {u"GPa", u"GPa", u"gigapascal", u"1.0E+9", {-1, 1, -2, 0, 0, 0, 0, 0}},
    {u"TPa", u"TPa", u"terapascal", u"1.0E+12", {-1, 1, -2, 0, 0, 0, 0, 0}},
    {u"atm", u"atm", u"atmosphere", u"101325.0", {-1, 1, -2, 0, 0, 0, 0, 0}},
    {u"bar", u"bar", u"bar", u"100000.0", {-1, 1, -2, 0, 0, 0, 0, 0}},
    {u"mbar", u"mbar", u"millibar", u"100.0", {-1, 1, -2, 0, 0, 0, 0, 0}},
    {u"psi", u"psi", u"pound per square inch", u"6894.7572931683613367", {-1, 1, -2, 0, 0, 0, 0, 0}},
    {u"inHg", u"inHg", u"inch of mercury", u"3386.388640341", {-1, 1, -2, 0, 0, 0, 0, 0}},
    {u"mmHg", u"mmHg", u"millimeter of mercury", u"133.322387415", {-1, 1, -2, 0, 0, 0, 0, 0}},
    {u"torr", u"torr", u"torr", u"101325.0/760.0", {-1, 1, -2, 0, 0, 0, 0, 0}},
    {u"TJ", u"TJ", u"terajoule", u"1.0E+12", {2, 1, -2, 0, 0, 0, 0, 0}},
    {u"GJ", u"GJ", u"gigajoule", u"1.0E+9", {2, 1, -2, 0, 0, 0, 0, 0}},
    {u"MJ", u"MJ", u"megajoule", u"1.0E+6", {2, 1, -2, 0, 0, 0, 0, 0}},
    {u"kJ", u"kJ", u"kilojoule", u"1000.0", {2, 1, -2, 0, 0, 0, 0, 0}},
    {u"J", u"J", u"joule", nullptr, {2, 1, -2, 0, 0, 0, 0, 0}},
    {u"mJ", u"mJ", u"millijoule", u"0.001", {2, 1, -2, 0, 0, 0, 0, 0}},
    {u"uJ", u"μJ", u"microjoule", u"1.0E-6", {2, 1, -2, 0, 0, 0, 0, 0}},
    {u"eV", u"eV", u"electronvolt", u"1.602176634E-19", {2, 1, -2, 0, 0, 0, 0, 0}},
    {u"keV", u"keV", u"kilo-electronvolt", u"1.602176634E-19*1.0E+3", {2, 1, -2, 0, 0, 0, 0, 0}},
    {u"MeV", u"MeV", u"mega-electronvolt", u"1.602176634E-19*1.0E+6", {2, 1, -2, 0, 0, 0, 0, 0}},
    {u"GeV", u"GeV", u"giga-electronvolt", u"1.602176634E-19*1.0E+9", {2, 1, -2, 0, 0, 0, 0, 0}},
    {u"TeV", u"TeV", u"tera-electronvolt", u"1.602176634E-19*1.0E+12", {2, 1, -2, 0, 0, 0, 0, 0}},
    {u"tTNT", u"tTNT", u"ton of TNT", u"4.184E+9", {2, 1, -2, 0, 0, 0, 0, 0}},
    {u"ktTNT", u"ktTNT", u"kiloton of TNT", u"4.184E+12", {2, 1, -2, 0, 0, 0, 0, 0}},
    {u"MtTNT", u"MtTNT", u"megaton of TNT", u"4.184E+15", {2, 1, -2, 0, 0, 0, 0, 0}},
    {u"TW", u"TW", u"terawatt", u"1.0E+12", {2, 1, -3, 0, 0, 0, 0, 0}},
    {u"GW", u"GW", u"gigawatt", u"1.0E+9", {2, 1, -3, 0, 0, 0, 0, 0}},
    {u"MW", u"MW", u"megawatt", u"1.0E+6", {2, 1, -3, 0, 0, 0, 0, 0}},
    {u"kW", u"kW", u"kilowatt", u"1000.0", {2, 1, -3, 0, 0, 0, 0, 0}},
    {u"W", u"W", u"watt", nullptr, {2, 1, -3, 0, 0, 0, 0, 0}},
    {u"mW", u"mW", u"milliwatt", u"0.001", {2, 1, -3, 0, 0, 0, 0, 0}},
    {u"uW", u"μW", u"microwatt", u"1.0E-6", {2, 1, -3, 0, 0, 0, 0, 0}},
    {u"nW", u"nW", u"nanowatt", u"1.0E-9", {2, 1, -3, 0, 0, 0, 0, 0}},
    {u"erg", u"erg", u"erg", u"1.0E-7", {2, 1, -3, 0, 0, 0, 0, 0}},
    {u"hp", u"hp", u"horsepower (mechanical)", u"745.69987158227022", {2, 1, -3, 0, 0, 0, 0, 0}},
    {u"gal", u"gal", u"US fluid gallon", u"3.785411784E-3", {3, 0, 0, 0, 0, 0, 0, 0}},
    {u"qt", u"qt", u"US fluid quart", u"9.46352946E-4", {3, 0, 0, 0, 0, 0, 0, 0}},
    {u"pt", u"pt", u"US fluid pint", u"4.73176473E-4", {3, 0, 0, 0, 0, 0, 0, 0}},
    {u"cup", u"cup", u"US fluid cup", u"2.365882365E-4", {3, 0, 0, 0, 0, 0, 0, 0}},
    {u"floz", u"floz", u"US fluid ounce", u"2.95735295625E-5", {3, 0, 0, 0, 0, 0, 0, 0}},
    {u"tbsp", u"tbsp", u"US fluid tablespoon", u"1.478676478125E-5", {3, 0, 0, 0, 0, 0, 0, 0}},
    {u"tsp", u"tsp", u"US fluid teaspoon", u"4.92892159375E-6", {3, 0, 0, 0, 0, 0, 0, 0}},
    {u"l", u"l", u"liter", u"0.001", {3, 0, 0, 0, 0, 0, 0, 0}},
    {u"ml", u"ml", u"milliliter", u"1.0E-6", {3, 0, 0, 0, 0, 0, 0, 0}},
    {u"b", u"b", u"barn", u"1.0E-28", {2, 0, 0, 0, 0, 0, 0, 0}},
    {u"ac", u"ac", u"acre", u"4046.8564224", {2, 0, 0, 0, 0, 0, 0, 0}},
    {u"ha", u"ha", u"hectare", u"10000.0", {2, 0, 0, 0, 0, 0, 0, 0}},
    {u"knot", u"knot", u"nmi per h", u"1852.0/3600.0", {1, 0, -1, 0, 0, 0, 0, 0}},
    {u"c", u"c", u"speed of light", u"299792458.0", {1, 0, -1, 0, 0, 0, 0, 0}},
    {u"C", u"C", u"coulomb", nullptr, {0, 0, 1, 0, 0, 1, 0, 0}},
    {u"kV", u"kV", u"kilovolt", u"1000.0", {2, 1, -3, 0, 0, -1, 0, 0}},
    {u"V", u"V", u"volt", nullptr, {2, 1, -3, 0, 0, -1, 0, 0}},
    {u"mV", u"mV", u"millivolt", u"0.001", {2, 1, -3, 0, 0, -1, 0, 0}},
    {u"uV", u"μV", u"microvolt", u"1.0E-6", {2, 1, -3, 0, 0, -1, 0, 0}},
    {u"mohm", u"mΩ", u"milli-ohm", u"0.001", {2, 1, -3, 0, 0, -2, 0, 0}},
    {u"ohm", u"Ω", u"ohm", nullptr, {2, 1, -3, 0, 0, -2, 0, 0}},
    {u"kohm", u"kΩ", u"kilo-ohm", u"1000.0", {2, 1, -3, 0, 0, -2, 0, 0}},
    {u"Mohm", u"MΩ", u"mega-ohm", u"1.0E+6", {2, 1, -3, 0, 0, -2, 0, 0}},
    {u"Gohm", u"GΩ", u"giga-ohm", u"1.0E+9", {2, 1, -3, 0, 0, -2, 0, 0}},
    {u"sb", u"sb", u"stilb", u"10000.0", {-2, 0, 0, 0, 0, 0, 1, 0}},
    {u"L", u"L", u"lambert", u"10000.0/pi", {-2, 0, 0, 0, 0, 0, 1, 0}},
    {u"fL", u"fL", u"foot-lambert", u"1.0/0.09290304/pi", {-2, 0, 0, 0, 0, 0, 1, 0}},
    {u"Wb", u"Wb", u"Weber", nullptr, {2, 1, -2, 0, 0, -1, 0, 0}},
    {u"T", u"T", u"Tesla", nullptr, {0, 1, -2, 0, 0, -1, 0, 0}},
    {u"H", u"H", u"Henry", nullptr, {2, 1, -2, 0, 0, -2, 0, 0}},
}};

// Rows 9 and 16 carry a "¹" the unit-text writer never writes, so pascal and
// tesla are never shown by name; row 18 scales only the copy being labelled.
constexpr std::array<UnitAlias, UnitAliasCount> UnitAliasTable{{
    {u"Hz", u"s⁻¹", nullptr},
    {u"N", u"m·kg/s²", nullptr},
    {u"N·A⁻²", u"m·kg/s²·A²", nullptr},
    {u"dyn", u"cm·g/s²", nullptr},
    {u"J", u"m²·kg/s²", nullptr},
    {u"J·s", u"m²·kg/s", nullptr},
    {u"erg", u"cm²·g/s²", nullptr},
    {u"erg·s", u"cm²·g/s", nullptr},
    {u"Pa", u"kg/m¹·s²", nullptr},
    {u"W", u"m²·kg/s³", nullptr},
    {u"erg·s⁻¹", u"cm²·g/s³", nullptr},
    {u"W·m⁻²", u"kg/s³", nullptr},
    {u"C", u"s·A", nullptr},
    {u"V", u"m²·kg/A·s³", nullptr},
    {u"Wb", u"m²·kg/A·s²", nullptr},
    {u"T", u"kg/A¹·s²", nullptr},
    {u"H", u"m²·kg/s²·A²", nullptr},
    {u"sb", u"cd/m²", u"10000.0"},
    {u"sb", u"cd/cm²", nullptr},
}};

constexpr bool sameText(const char16_t* a, const char16_t* b) {
    while (*a != 0 && *a == *b) {
        ++a;
        ++b;
    }
    return *a == *b;
}

// Every symbol of both tables is unique, so "first match wins" never hides a row.
template <class A, class B>
constexpr bool symbolsUnique(const A& first, const B& second) {
    for (size_t i = 0; i < first.size(); ++i) {
        for (size_t j = i + 1; j < first.size(); ++j)
            if (sameText(first[i].symbol, first[j].symbol)) return false;
        for (const auto& row : second)
            if (sameText(first[i].symbol, row.symbol)) return false;
    }
    return true;
}

constexpr bool derivedUnique() {
    for (size_t i = 0; i < DerivedUnitTable.size(); ++i)
        for (size_t j = i + 1; j < DerivedUnitTable.size(); ++j)
            if (sameText(DerivedUnitTable[i].symbol, DerivedUnitTable[j].symbol)) return false;
    return true;
}

// Base rows are grouped by dimension in dimension order, and each dimension
// has exactly one row without a factor (its SI base unit).
constexpr bool baseRowsGrouped() {
    int32_t previous = 0;
    for (const UnitDef& row : BaseUnitTable) {
        if (row.dimension < previous || row.dimension >= DimensionCount) return false;
        previous = row.dimension;
    }
    for (int32_t d = 0; d < DimensionCount; ++d) {
        int count = 0;
        for (const UnitDef& row : BaseUnitTable)
            if (row.dimension == d && row.factor == nullptr) ++count;
        if (count != 1) return false;
    }
    return true;
}

static_assert(BaseUnitTable.size() == 67 && DerivedUnitTable.size() == 76 && UnitAliasTable.size() == 19);
static_assert(symbolsUnique(BaseUnitTable, DerivedUnitTable), "a unit symbol appears twice");
static_assert(derivedUnique(), "a derived unit symbol appears twice");
static_assert(baseRowsGrouped(), "base rows out of dimension order or without one SI row per dimension");

char16_t foldCase(char16_t c) { return (c >= u'A' && c <= u'Z') ? static_cast<char16_t>(c - u'A' + u'a') : c; }

bool equalIgnoringCase(std::u16string_view a, std::u16string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (foldCase(a[i]) != foldCase(b[i])) return false;
    return true;
}

}  // namespace

std::span<const UnitDef> BaseUnits() { return BaseUnitTable; }
std::span<const DerivedUnitDef> DerivedUnits() { return DerivedUnitTable; }
std::span<const UnitAlias> UnitAliases() { return UnitAliasTable; }

const UnitDef* FindUnit(std::u16string_view symbol) {
    for (const UnitDef& row : BaseUnitTable)
        if (symbol == row.symbol) return &row;
    return nullptr;
}

const DerivedUnitDef* FindDerivedUnit(std::u16string_view symbol) {
    for (const DerivedUnitDef& row : DerivedUnitTable)
        if (symbol == row.symbol) return &row;
    return nullptr;
}

const UnitAlias* FindAlias(std::u16string_view unitText) {
    for (const UnitAlias& row : UnitAliasTable)
        if (unitText == row.expansion) return &row;
    return nullptr;
}

const UnitDef& SiBaseUnit(int32_t dimension) {
    for (const UnitDef& row : BaseUnitTable)
        if (row.dimension == dimension && row.factor == nullptr) return row;
    return BaseUnitTable[1];   // unreachable for 0..7: every dimension has its SI row
}

const UnitDef* FindDisplayUnit(int32_t dimension, std::u16string_view symbol) {
    for (const UnitDef& row : BaseUnitTable)
        if (row.dimension == dimension && equalIgnoringCase(symbol, row.symbol)) return &row;
    return nullptr;
}

}  // namespace quorvel
