// Every base and derived unit applied to 1 at 1000 digits, against the SI
// values and dimensions GNU Units gives (tests/data/unit_factors.txt, made
// by tests/tools/gen_unit_factors.py). Exact decimal factors must come out
// exact; the rest must match GNU Units' 15 digits.
#include <fstream>
#include <set>
#include <sstream>

#include "tests/langtext.h"
#include "tests/units_testing.h"

namespace quorvel::test {
namespace {

struct FactorCase {
    std::string table;        // "base" or "derived"
    std::string symbol;
    std::string value;        // GNU Units, 15 significant digits
    bool exact = false;       // the value is an exact short decimal
    UnitVector exponents{};   // GNU Units' dimension (radian as Angle)
    std::string tolerance;    // relative, or "-" for a 15-digit match
    std::string note;         // why the row differs from GNU Units, or "-"
};

std::vector<std::string> splitTabs(const std::string& line) {
    std::vector<std::string> fields;
    std::stringstream in(line);
    for (std::string field; std::getline(in, field, '\t');) fields.push_back(field);
    return fields;
}

std::vector<FactorCase> loadFactorCases() {
    std::vector<FactorCase> cases;
    std::ifstream in(std::string(QUORVEL_TEST_DATA) + "/unit_factors.txt");
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#') continue;
        const auto f = splitTabs(line);
        if (f.size() != 8) continue;
        FactorCase c{f[0], f[1], f[3], f[4] == "exact", {}, f[6], f[7]};
        std::istringstream exponents(f[5]);
        for (int32_t& e : c.exponents) exponents >> e;
        cases.push_back(std::move(c));
    }
    return cases;
}

std::u16string wideText(const std::string& text) { return std::u16string(text.begin(), text.end()); }

// A GNU Units number ("1e-06") as the number parser reads it ("1E-06").
std::u16string numberText(const std::string& text) {
    std::u16string out = wideText(text);
    for (char16_t& ch : out)
        if (ch == u'e') ch = u'E';
    return out;
}

void PrintTo(const FactorCase& c, std::ostream* os) { *os << c.table << " " << c.symbol << " = " << c.value; }

// True when a factor text is one decimal literal ("0.3048", "1.0E-6").
bool isPlainDecimal(const char16_t* text) {
    if (text == nullptr) return false;
    for (const char16_t* p = text; *p != 0; ++p)
        if (!((*p >= u'0' && *p <= u'9') || *p == u'.' || *p == u'E' || *p == u'+' || *p == u'-')) return false;
    return true;
}

BigNum magnitude(BigNum x) {
    if (x.sign < 0) x.sign = 1;
    return x;
}

TEST(UnitFactorData, CoversEveryTableRowOnce) {
    std::multiset<std::string> listed;
    for (const FactorCase& c : loadFactorCases()) listed.insert(c.table + " " + c.symbol);
    std::multiset<std::string> rows;
    for (const UnitDef& row : BaseUnits()) rows.insert("base " + toUtf8(row.symbol));
    for (const DerivedUnitDef& row : DerivedUnits()) rows.insert("derived " + toUtf8(row.symbol));
    EXPECT_EQ(listed, rows);
    EXPECT_EQ(listed.size(), 143u);
}

class UnitFactorVectors : public UnitsTest, public testing::WithParamInterface<FactorCase> {};

TEST_P(UnitFactorVectors, OneUnitInSI) {
    const FactorCase& c = GetParam();
    const std::u16string symbol = wideText(c.symbol);
    const UnitDef* base = c.table == "base" ? FindUnit(symbol) : nullptr;
    const DerivedUnitDef* derived = c.table == "derived" ? FindDerivedUnit(symbol) : nullptr;
    ASSERT_TRUE(base != nullptr || derived != nullptr) << "no row for " << c.symbol;
    const char16_t* factor = base != nullptr ? base->factor : derived->factor;

    SetDigits(app, 1000);
    apply(integer(1), symbol);
    ASSERT_TRUE(host.shownText().empty()) << toUtf8(host.shownText());
    ASSERT_EQ(app.stack.count(), 1);
    const Item& result = *app.stack.at(0);

    // The dimension: the table's, and GNU Units' unless noted otherwise.
    UnitVector tableUnits{};
    if (base != nullptr) tableUnits[base->dimension] = 1;
    else tableUnits = derived->units;
    EXPECT_EQ(result.units, tableUnits);
    if (c.note.rfind("dimension:", 0) == 0) {
        EXPECT_NE(result.units, c.exponents) << "a noted deviation that no longer deviates: " << c.note;
    } else {
        EXPECT_EQ(result.units, c.exponents);
    }

    // The value: an Integer 1 only for rows without a factor.
    if (factor == nullptr) {
        EXPECT_TRUE(topIsInteger(1, tableUnits));
        EXPECT_EQ(c.value, "1");
        return;
    }
    ASSERT_EQ(result.type, ItemType::Real);
    const BigNum& v = result.asReal();
    const BigNum reference = ParseReal(app.workingLength, numberText(c.value));
    const BigNum difference = magnitude(subtract(v, reference));
    if (c.tolerance == "-") {
        // Within half a unit of GNU Units' 15th digit (a hair more for the
        // rounding of its double).
        const BigNum halfUnit = ParseReal(app.workingLength, u"0.51E" + wideText(std::to_string(reference.exponent - 14)));
        EXPECT_LE(compare(difference, halfUnit), 0) << c.symbol << " = " << realText(v) << ", GNU Units " << c.value;
        if (c.exact) {
            EXPECT_EQ(compare(v, reference), 0) << c.symbol << " not exact: " << realText(v);
        }
    } else {
        const BigNum allowed = multiply(ParseReal(app.workingLength, numberText(c.tolerance)), magnitude(reference));
        EXPECT_LE(compare(difference, allowed), 0) << c.symbol << " (" << c.note << ") = " << realText(v);
    }
    // A factor written as one decimal literal arrives with every digit.
    if (isPlainDecimal(factor)) {
        EXPECT_EQ(compare(v, ParseReal(app.workingLength, factor)), 0) << c.symbol;
    }
}

std::string factorCaseName(const testing::TestParamInfo<FactorCase>& info) {
    return info.param.table + "_" + info.param.symbol;
}

INSTANTIATE_TEST_SUITE_P(GnuUnits, UnitFactorVectors, testing::ValuesIn(loadFactorCases()), factorCaseName);

}  // namespace
}  // namespace quorvel::test
