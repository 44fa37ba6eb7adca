// The unit-string scanner and the left-to-right parser.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "numeric/numtext.h"
#include "units/unitstring.h"

namespace quorvel {
namespace {

// "symbol^exponent" for each factor, joined with spaces.
std::string describe(const std::vector<UnitFactor>& factors) {
    std::string out;
    for (const UnitFactor& f : factors) {
        if (!out.empty()) out += ' ';
        out += toUtf8(f.base != nullptr ? f.base->symbol : f.derived->symbol);
        out += '^' + std::to_string(f.exponent);
    }
    return out;
}

std::string parsed(std::u16string_view text) { return describe(ParseUnitString(text)); }

TEST(UnitScanner, TokensOfAUnitString) {
    UnitScanner scanner(u" m / s^-2 ");
    UnitToken t = scanner.next();
    EXPECT_EQ(t.kind, UnitTokenKind::Name);
    EXPECT_EQ(t.base, FindUnit(u"m"));
    t = scanner.next();
    EXPECT_EQ(t.kind, UnitTokenKind::Operator);
    EXPECT_EQ(t.character, u'/');
    EXPECT_EQ(scanner.next().base, FindUnit(u"s"));
    EXPECT_EQ(scanner.next().character, u'^');
    t = scanner.next();
    EXPECT_EQ(t.kind, UnitTokenKind::Number);
    EXPECT_EQ(t.number, -2);
    EXPECT_EQ(scanner.next().kind, UnitTokenKind::End);
}

TEST(UnitScanner, NamesPreferTheBaseTable) {
    UnitScanner scanner(u"J");
    const UnitToken t = scanner.next();
    EXPECT_EQ(t.base, nullptr);
    EXPECT_EQ(t.derived, FindDerivedUnit(u"J"));
}

TEST(UnitScanner, UnknownNameEndsTheText) {
    UnitScanner scanner(u"xyz*m");
    EXPECT_EQ(scanner.next().kind, UnitTokenKind::End);
    EXPECT_EQ(scanner.next().kind, UnitTokenKind::End);
}

TEST(UnitScanner, SignOnlyRightBeforeADigit) {
    UnitScanner scanner(u"- 2");
    EXPECT_EQ(scanner.next().character, u'-');
    EXPECT_EQ(scanner.next().number, 2);
}

TEST(UnitParse, MetresPerSecondSquared) { EXPECT_EQ(parsed(u"m/s^2"), "m^1 s^-2"); }

TEST(UnitParse, MolarGasConstantUnits) {
    EXPECT_EQ(parsed(u"J*K^-1*mol^-1"), "J^1 K^-1 mol^-1");
}

TEST(UnitParse, DigitsAfterANameAreItsExponent) {
    EXPECT_EQ(parsed(u"m2"), "m^2");
    EXPECT_EQ(parsed(u"m2"), parsed(u"m^2"));
}

TEST(UnitParse, SlashPutsEverythingAfterItInTheDenominator) {
    EXPECT_EQ(parsed(u"m^3/kg*s^2"), "m^3 kg^-1 s^-2");
    EXPECT_EQ(parsed(u"W/m^2*K^4"), "W^1 m^-2 K^-4");
    EXPECT_EQ(parsed(u"m/s/s"), "m^1 s^-1 s^-1");
}

TEST(UnitParse, NegativeExponentAfterSlashBecomesPositive) { EXPECT_EQ(parsed(u"m/s^-1"), "m^1 s^1"); }

TEST(UnitParse, UnknownNameDropsTheRest) {
    EXPECT_EQ(parsed(u"xyz"), "");
    EXPECT_EQ(parsed(u"m*xyz*s"), "m^1");
    EXPECT_EQ(parsed(u"m/xyz"), "m^1");
}

TEST(UnitParse, CaseMatters) {
    EXPECT_EQ(parsed(u"Km"), "");
    EXPECT_EQ(parsed(u"C"), "C^1");
    EXPECT_EQ(parsed(u"c"), "c^1");
}

TEST(UnitParse, NumberBeforeAnyNameIsIgnored) { EXPECT_EQ(parsed(u"2 m"), "m^1"); }

TEST(UnitParse, SecondNumberReplacesTheFirst) { EXPECT_EQ(parsed(u"m^2^3"), "m^3"); }

TEST(UnitParse, HugeExponentLeavesTheExponentAlone) {
    EXPECT_EQ(parsed(u"m^2147483647"), "m^2147483647");
    EXPECT_EQ(parsed(u"m^2147483648"), "m^1");
    EXPECT_EQ(parsed(u"m^99999999999999999999"), "m^1");
    EXPECT_EQ(parsed(u"m^-2147483648"), "m^1");
}

TEST(UnitParse, OtherOperatorsAreIgnored) {
    EXPECT_EQ(parsed(u"(m*s)"), "m^1 s^1");
    EXPECT_EQ(parsed(u"m.s"), "m^1 s^1");
}

TEST(UnitParse, GreekLetterIsAnOperatorNotPartOfAName) {
    // Only ASCII letters make names: the display form "μm" reads as "m".
    EXPECT_EQ(parsed(u"\u03BCm"), "m^1");
}

TEST(UnitParse, EmptyAndBlankTexts) {
    EXPECT_EQ(parsed(u""), "");
    EXPECT_EQ(parsed(u"  \t "), "");
}

}  // namespace
}  // namespace quorvel
