// The constant table and `const`: every constant's value, dimension and
// display text against tests/data/constants.txt (made with mpmath by
// tests/tools/gen_constants.py), at the default precision and at 1000 digits.
#include <fstream>
#include <sstream>

#include "tests/langtext.h"
#include "tests/units_testing.h"
#include "units/constants.h"

namespace quorvel::test {
namespace {

struct ConstCase {
    std::string symbol;
    bool exact = false;       // a decimal product: must come out exactly
    std::string value;        // 1020 significant digits
    UnitVector units{};
    std::string display;      // 10 significant digits, default display units
};

void PrintTo(const ConstCase& c, std::ostream* os) { *os << c.symbol; }

std::vector<ConstCase> loadConstCases() {
    std::vector<ConstCase> cases;
    std::ifstream in(std::string(QUORVEL_TEST_DATA) + "/constants.txt");
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::vector<std::string> f;
        std::stringstream fields(line);
        for (std::string field; std::getline(fields, field, '\t');) f.push_back(field);
        if (f.size() == 4) f.push_back("");   // no unit text and a trailing tab dropped
        if (f.size() != 5) continue;
        ConstCase c{f[0], f[1] == "exact", f[2], {}, f[4]};
        std::istringstream exponents(f[3]);
        for (int32_t& e : c.units) exponents >> e;
        cases.push_back(std::move(c));
    }
    return cases;
}

std::u16string wideText(const std::string& text) { return std::u16string(text.begin(), text.end()); }

// The reference value of a constant from the data file.
std::string FindCase(std::u16string_view symbol) {
    for (const ConstCase& c : loadConstCases())
        if (wideText(c.symbol) == symbol) return c.value;
    return "0";
}

// A reference "d.ddd...E+x" cut to `digits` significant digits (truncated),
// so that the number parser still reads its exponent.
std::string fitted(const std::string& reference, int32_t digits) {
    const size_t e = reference.find('E');
    const std::string mantissa = reference.substr(0, e);
    const size_t signAndPoint = (mantissa[0] == '-' ? 1 : 0) + 1;
    return mantissa.substr(0, static_cast<size_t>(digits) + signAndPoint) + reference.substr(e);
}

class ConstantsTest : public UnitsTest {
protected:
    // Runs `const('symbol')` in algebraic entry.
    void constant(std::u16string_view symbol) { alg(u"const('" + std::u16string(symbol) + u"')"); }

    // The top is a Real within `digits` significant digits of `reference`
    // (exactly equal when `exact`).
    ::testing::AssertionResult topNear(const std::string& reference, bool exact, int32_t digits) {
        const Item* top = app.stack.at(0);
        if (top == nullptr || top->type != ItemType::Real) return ::testing::AssertionFailure() << "top is no Real";
        const BigNum expected = ParseReal(app.workingLength, wideText(fitted(reference, 2 * app.workingLength)));
        const BigNum& got = top->asReal();
        if (exact) {
            if (compare(got, expected) == 0) return ::testing::AssertionSuccess();
            return ::testing::AssertionFailure() << realText(got) << " is not exactly " << reference.substr(0, 40);
        }
        BigNum difference = subtract(got, expected);
        if (difference.sign < 0) difference.sign = 1;
        BigNum scale = expected;
        if (scale.sign < 0) scale.sign = 1;
        const BigNum bound = multiply(scale, ParseReal(app.workingLength, u"1E-" + wideText(std::to_string(digits))));
        if (compare(difference, bound) <= 0) return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "off by " << realText(difference);
    }
};

TEST_F(ConstantsTest, TableHasThirtyOneRowsInOrder) {
    ASSERT_EQ(Constants().size(), 31u);
    EXPECT_EQ(toUtf8(Constants().front().symbol), "a0");
    EXPECT_EQ(toUtf8(Constants().back().symbol), "sigma");
    EXPECT_EQ(loadConstCases().size(), 31u);
}

TEST_F(ConstantsTest, DisplayFormsAndNames) {
    EXPECT_EQ(toUtf8(FindConst(u"a0")->display), "a₀");
    EXPECT_EQ(toUtf8(FindConst(u"hbar")->display), "ħ");
    EXPECT_EQ(toUtf8(FindConst(u"Ryd")->display), "R∞");
    EXPECT_EQ(toUtf8(FindConst(u"e0")->display), "ε₀");
    EXPECT_EQ(toUtf8(FindConst(u"mp")->display), "mp");   // no subscript, as written
    EXPECT_EQ(toUtf8(FindConst(u"u0")->name), "Magnetic Constant (Vacuum Permeability)");
    EXPECT_EQ(toUtf8(FindConst(u"ke")->name), "Coulomb's Constant");
    EXPECT_EQ(toUtf8(FindConst(u"ue")->value), "-9.2847647043E-24 'J/T'");
}

TEST_F(ConstantsTest, LookupIsExactWithCase) {
    EXPECT_EQ(toUtf8(FindConst(u"G")->name), "Newtonian Gravitational Constant");
    EXPECT_EQ(toUtf8(FindConst(u"g")->name), "Standard Earth Gravity");
    EXPECT_EQ(toUtf8(FindConst(u"e")->name), "Elementary Charge");
    EXPECT_EQ(toUtf8(FindConst(u"e0")->name), "Electric Constant (Vacuum Permittivity)");
    EXPECT_EQ(FindConst(u"HBAR"), nullptr);
    EXPECT_EQ(FindConst(u""), nullptr);
}

TEST_F(ConstantsTest, SpeedOfLightInDisplayUnits) {
    constant(u"c");
    EXPECT_TRUE(topIsReal(u"299792458", units(1, 0, -1)));
    EXPECT_EQ(shown(), "299792458. m/s");
    alg(u"unit('km')");
    EXPECT_EQ(shown(), "299792.458 km/s");
}

TEST_F(ConstantsTest, HbarIsPlanckOverTwoPiAtTheCurrentPrecision) {
    constant(u"hbar");
    auto direct = EvaluateText(app, u"6.62607015E-34/(2*pi)");
    ASSERT_TRUE(direct.has_value());
    EXPECT_EQ(app.stack.at(0)->asReal(), direct->asReal());
    EXPECT_EQ(app.stack.at(0)->units, units(2, 1, -1));
}

TEST_F(ConstantsTest, HbarGainsDigitsWhenDigitsRise) {
    const std::string reference = FindCase(u"hbar");
    constant(u"hbar");
    const int32_t shortLength = app.stack.at(0)->asReal().length();
    EXPECT_TRUE(topNear(reference, false, 90));
    EXPECT_FALSE(topNear(reference, false, 200));
    SetDigits(app, 1000);
    constant(u"hbar");
    EXPECT_GT(app.stack.at(0)->asReal().length(), shortLength);
    EXPECT_TRUE(topNear(reference, false, 1000));
}

TEST_F(ConstantsTest, AlphaIsDimensionless) {
    constant(u"alpha");
    EXPECT_TRUE(topIsReal(u"0.0072973525693", Dimensionless));
}

TEST_F(ConstantsTest, NestedConstantsLeaveTheStackOneDeeper) {
    pushInt(7);
    pushReal(u"2.5", metres());
    for (const char16_t* symbol : {u"ke", u"e0"}) {
        const auto before = snapshot();
        constant(symbol);
        EXPECT_EQ(app.stack.count(), static_cast<int32_t>(before.size()) + 1) << toUtf8(symbol);
        EXPECT_TRUE(host.shownText().empty()) << toUtf8(host.shownText());
        auto top = app.stack.pop();
        EXPECT_TRUE(stackIs(before)) << toUtf8(symbol);
    }
}

TEST_F(ConstantsTest, MiscasedSymbolsAreInvalidConstantNames) {
    for (const char16_t* symbol : {u"HBAR", u"Hbar"}) {
        app.stack.freeAll();
        push(Item::string(symbol));
        EXPECT_TRUE(refuses(opConst, u"Invalid Constant Name")) << toUtf8(symbol);
        ClearMessage(app);
    }
}

TEST_F(ConstantsTest, MiscasedSymbolThroughACommandLine) {
    alg(u"const('HBAR')");
    EXPECT_TRUE(shows(u"Invalid Constant Name"));
    ASSERT_EQ(app.stack.count(), 1);
    EXPECT_EQ(app.stack.at(0)->asText(), u"HBAR");
}

TEST_F(ConstantsTest, EmptyStackIsMissingOperand) { EXPECT_TRUE(refuses(opConst, u"Missing Operand")); }

TEST_F(ConstantsTest, SymbolMustBeAString) {
    pushInt(3);
    EXPECT_TRUE(refuses(opConst, u"Invalid Data Type"));
}

TEST_F(ConstantsTest, VariableHoldingTheSymbol) {
    app.variables.FindVariable(u"which", true)->value->assignFrom(Item::string(u"g"));
    pushVar(u"which");
    opConst(app, app.stack);
    EXPECT_EQ(app.stack.count(), 1);
    EXPECT_TRUE(topIsReal(u"9.80665", units(1, 0, -2)));
}

TEST_F(ConstantsTest, UndefinedVariableIsReportedAndGoesBack) {
    pushVar(u"nothing");
    opConst(app, app.stack);
    EXPECT_TRUE(shows(u"Undefined Variable Referenced"));
    ASSERT_EQ(app.stack.count(), 1);
    EXPECT_EQ(app.stack.at(0)->type, ItemType::VariableRef);
}

TEST_F(ConstantsTest, ValueTextsAreEvaluatedEachTime) {
    constant(u"c");
    const int32_t before = app.stack.at(0)->asReal().length();
    SetDigits(app, 300);
    constant(u"c");
    EXPECT_EQ(app.stack.at(0)->asReal().length(), app.workingLength);
    EXPECT_NE(app.stack.at(0)->asReal().length(), before);
}

TEST_F(ConstantsTest, MagneticMomentsCarryBothJouleAndTesla) {
    constant(u"ub");
    EXPECT_EQ(app.stack.at(0)->units, units(2, 2, -4, 0, 0, -1));
}

class ConstantValues : public ConstantsTest, public testing::WithParamInterface<ConstCase> {
protected:
    void check(int32_t digits, int32_t accuracy) {
        const ConstCase& c = GetParam();
        SetDigits(app, digits);
        pushInt(42);
        constant(wideText(c.symbol));
        EXPECT_TRUE(host.shownText().empty()) << toUtf8(host.shownText());
        ASSERT_EQ(app.stack.count(), 2);
        EXPECT_TRUE(topNear(c.value, c.exact, accuracy));
        EXPECT_EQ(app.stack.at(0)->units, c.units);
        EXPECT_TRUE(app.stack.at(1)->type == ItemType::Integer && app.stack.at(1)->asInteger() == bigIntFromI32(42));
    }
};

TEST_P(ConstantValues, AtDefaultDigits) {
    check(DefaultDigits, 90);
    EXPECT_EQ(toUtf8(DisplayText(app, *app.stack.at(0), 10, 0).value_or(u"")), GetParam().display);
}

TEST_P(ConstantValues, AtThousandDigits) { check(1000, 1005); }

INSTANTIATE_TEST_SUITE_P(Table, ConstantValues, testing::ValuesIn(loadConstCases()),
                         [](const testing::TestParamInfo<ConstCase>& info) { return info.param.symbol; });

}  // namespace
}  // namespace quorvel::test
