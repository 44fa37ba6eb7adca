// Number text: ParseReal, ParseInteger, FormatReal in its three modes with every
// flag, FormatInteger, ToSuperscript, BigNumToDouble and UTF-8; then the
// vectors of gen_numtext_vectors.py.
#include <gtest/gtest.h>

#include <cmath>

#include "numeric/numtext.h"
#include "numeric_vectors.h"

namespace quorvel {
namespace {

using testvectors::mantissaDigits;
using testvectors::VectorCase;

constexpr int32_t Plain = fmt::PlainText;
constexpr int32_t FixedMode = fmt::Fixed;
constexpr int32_t SciMode = fmt::Scientific;

BigNum num(std::u16string_view text, int32_t length = 48) { return ParseReal(length, text); }

// FormatReal of a parsed text, as UTF-8 for readable failures.
std::string show(std::u16string_view text, int32_t digits, int32_t flags, int32_t length = 48) {
    return toUtf8(FormatReal(num(text, length), digits, flags));
}

std::string showInt(int32_t value, int16_t base, int32_t flags) {
    return toUtf8(FormatInteger(bigIntFromI32(value), base, flags));
}

// --- Edge cases --------------------------------------------------------------

TEST(NumTextEdge, StandardTwelveDigitsThousandthStaysPositional) {
    EXPECT_EQ(show(u"0.001", 12, 0), "0.001");
}

TEST(NumTextEdge, StandardTwelveDigitsTenThousandthTakesExponentForm) {
    EXPECT_EQ(show(u"0.0001", 12, 0), "1\u00B710\u207B\u2074");
    EXPECT_EQ(show(u"0.0001", 12, Plain), "1E-4");
}

TEST(NumTextEdge, StandardTwelveDigitsExponentNineStaysPositional) {
    EXPECT_EQ(show(u"1234567890", 12, 0), "1234567890.");
}

TEST(NumTextEdge, StandardTwelveDigitsExponentTenTakesExponentForm) {
    EXPECT_EQ(show(u"12345678901", 12, 0), "1.2345678901\u00B710\u00B9\u2070");
    EXPECT_EQ(show(u"12345678901", 12, Plain), "1.2345678901E+10");
}

TEST(NumTextEdge, StandardFormIsChosenBeforeRounding) {
    // E = 0 before rounding; the rounded copy 10.00 is written positionally.
    EXPECT_EQ(show(u"9.9996", 4, 0), "10.");
}

TEST(NumTextEdge, FixedTwoDecimalsOfATinyValueIsZero) {
    EXPECT_EQ(show(u"0.000123", 2, FixedMode), "0.00");
}

TEST(NumTextEdge, FixedNegativeRoundedToZeroKeepsItsMinus) {
    EXPECT_EQ(show(u"-0.001", 2, FixedMode), "\u22120.00");
    EXPECT_EQ(show(u"-0.001", 2, FixedMode | Plain), "-0.00");
}

TEST(NumTextEdge, FixedPositiveInfinityAlwaysGetsAPlus) {
    const BigNum inf = makeInfinity(10, 1);
    EXPECT_EQ(toUtf8(FormatReal(inf, 2, FixedMode)), "+\u221E");
    EXPECT_EQ(toUtf8(FormatReal(inf, 2, FixedMode | fmt::PlusSign)), "+\u221E");
    EXPECT_EQ(toUtf8(FormatReal(inf, 2, FixedMode | Plain)), "+inf");
}

TEST(NumTextEdge, ScientificNoDigitsOfFiveThousand) {
    EXPECT_EQ(show(u"5000", 0, SciMode), "5.\u00B710\u00B3");
    EXPECT_EQ(show(u"5000", 0, SciMode | Plain), "5.E+3");
}

TEST(NumTextEdge, ParseIntegerLowerCaseHexStopsAtOnce) {
    const BigInt n = ParseInteger(u"ff", 16);
    EXPECT_TRUE(n.isZero());
    EXPECT_EQ(n.sign, 0);
}

TEST(NumTextEdge, FormatIntegerOfZeroIsOneDigit) {
    EXPECT_EQ(toUtf8(FormatInteger(BigInt{}, 10, 0)), "0");
    EXPECT_EQ(toUtf8(FormatInteger(BigInt{}, 16, fmt::ZeroPad)), "0");
}

// --- The table of display examples, Unicode and plain text ----------------------

struct ExampleRow {
    const char16_t* value;
    int32_t digits;
    int32_t flags;
    const char* text;
};

TEST(NumTextExamples, RealTableInUnicodeAndPlainText) {
    const ExampleRow rows[] = {
        {u"2", 12, 0, "2."},
        {u"1500", 12, 0, "1500."},
        {u"0.5", 12, 0, "0.5"},
        {u"1234", 3, fmt::Grouping, "1,230."},
        {u"1234", 3, 0, "1230."},
        {u"0.000123", 2, FixedMode, "0.00"},
    };
    for (const ExampleRow& row : rows) {
        EXPECT_EQ(show(row.value, row.digits, row.flags), row.text) << toUtf8(row.value);
        EXPECT_EQ(show(row.value, row.digits, row.flags | Plain), row.text) << toUtf8(row.value);
    }
}

TEST(NumTextExamples, IntegerBaseSixteenInUnicodeAndPlainText) {
    EXPECT_EQ(showInt(255, 16, 0), "0FF");
    EXPECT_EQ(showInt(255, 16, Plain), "0FF");
}

// --- Flags ------------------------------------------------------------------

TEST(NumTextFlags, PlusSignOnPositiveValuesInEveryMode) {
    EXPECT_EQ(show(u"2", 12, fmt::PlusSign), "+2.");
    EXPECT_EQ(show(u"2", 2, fmt::PlusSign | FixedMode), "+2.00");
    EXPECT_EQ(show(u"2", 2, fmt::PlusSign | SciMode), "+2.00\u00B710\u2070");
    EXPECT_EQ(show(u"-2", 12, fmt::PlusSign), "\u22122.");
    EXPECT_EQ(show(u"0", 12, fmt::PlusSign), "0.");   // zero is not positive
    EXPECT_EQ(showInt(5, 10, fmt::PlusSign), "+5");
    EXPECT_EQ(showInt(-5, 10, fmt::PlusSign), "\u22125");
    EXPECT_EQ(showInt(0, 10, fmt::PlusSign), "+0");   // integers: '+' for all but negatives
}

TEST(NumTextFlags, ZeroPadChangesNothing) {
    for (int32_t mode : {0, FixedMode, SciMode}) {
        EXPECT_EQ(show(u"-12.5", 3, mode | fmt::ZeroPad), show(u"-12.5", 3, mode));
    }
    EXPECT_EQ(showInt(-42, 10, fmt::ZeroPad), showInt(-42, 10, 0));
    EXPECT_EQ(showInt(7, 2, fmt::ZeroPad), "111");
}

TEST(NumTextFlags, GroupingPutsACommaAfterEveryThirdIntegerDigit) {
    EXPECT_EQ(show(u"1234567", 12, fmt::Grouping), "1,234,567.");
    EXPECT_EQ(show(u"1000", 12, fmt::Grouping), "1,000.");
    EXPECT_EQ(show(u"999.25", 12, fmt::Grouping), "999.25");
    EXPECT_EQ(show(u"1234567.891", 2, FixedMode | fmt::Grouping), "1,234,567.89");
    EXPECT_EQ(show(u"123456", 0, FixedMode | fmt::Grouping), "123,456.");
    EXPECT_EQ(show(u"1234567", 3, SciMode | fmt::Grouping), "1.235\u00B710\u2076");
    EXPECT_EQ(showInt(1234567, 10, fmt::Grouping), "1,234,567");
    EXPECT_EQ(showInt(-123456, 10, fmt::Grouping | Plain), "-123,456");
    EXPECT_EQ(showInt(0xFFFF, 16, fmt::Grouping), "0F,FFF");
}

TEST(NumTextFlags, BracketsInScientificBothSides) {
    EXPECT_EQ(show(u"1.5E10", 2, SciMode | fmt::Brackets), "[1.50\u00B710\u00B9\u2070]");
    EXPECT_EQ(show(u"-1.5E10", 2, SciMode | fmt::Brackets | Plain), "[-1.50E+10]");
}

TEST(NumTextFlags, BracketsInStandardExponentFormWriteOnlyTheClosingHalf) {
    EXPECT_EQ(show(u"1.5E10", 12, fmt::Brackets), "1.5\u00B710\u00B9\u2070]");
    EXPECT_EQ(show(u"1.5E10", 12, fmt::Brackets | Plain), "1.5E+10]");
    EXPECT_EQ(show(u"0.00002", 12, fmt::Brackets | Plain), "2E-5]");
}

TEST(NumTextFlags, BracketsLeavePositionalAndFixedTextAlone) {
    EXPECT_EQ(show(u"2", 12, fmt::Brackets), "2.");
    EXPECT_EQ(show(u"2", 2, FixedMode | fmt::Brackets), "2.00");
}

TEST(NumTextFlags, PlainTextUsesHyphenLetterEAndInf) {
    EXPECT_EQ(show(u"-1.5E-20", 12, Plain), "-1.5E-20");
    EXPECT_EQ(show(u"-1.5E-20", 12, 0), "\u22121.5\u00B710\u207B\u00B2\u2070");
    EXPECT_EQ(show(u"3E100", 2, SciMode | Plain), "3.00E+100");
    EXPECT_EQ(show(u"3", 2, SciMode | Plain), "3.00E+0");
    EXPECT_EQ(toUtf8(FormatReal(makeInfinity(4, -1), 12, Plain)), "-inf");
    EXPECT_EQ(showInt(-9, 10, Plain), "-9");
    EXPECT_EQ(showInt(-9, 10, 0), "\u22129");
}

TEST(NumTextFlags, UnicodeExponentIsMiddleDotTenAndSuperscriptWithoutPlus) {
    EXPECT_EQ(show(u"5E3", 0, SciMode), "5.\u00B710\u00B3");
    EXPECT_EQ(show(u"6.02214076E23", 12, 0), "6.02214076\u00B710\u00B2\u00B3");
    EXPECT_EQ(show(u"1E-100", 12, 0), "1\u00B710\u207B\u00B9\u2070\u2070");
}

TEST(NumTextFlags, FixedIsTestedBeforeScientific) {
    EXPECT_EQ(show(u"1234.5", 1, FixedMode | SciMode), "1234.5");
    // The display's long-integer flags 0x48 under Fixed: Fixed text, no brackets.
    EXPECT_EQ(show(u"1234.5", 1, FixedMode | SciMode | fmt::Brackets), "1234.5");
}

// --- Infinity and NaN ------------------------------------------------------

TEST(NumTextSpecial, NaNIsTheSameTextEverywhere) {
    for (int32_t flags : {0, fmt::PlusSign, Plain, FixedMode, SciMode | fmt::Brackets, 0xFF}) {
        EXPECT_EQ(toUtf8(FormatReal(makeNaN(), 12, flags)), "NaN") << flags;
    }
}

TEST(NumTextSpecial, InfinityInStandardAndScientificGetsPlusOnlyWithTheFlag) {
    const BigNum inf = makeInfinity(10, 1);
    const BigNum negInf = makeInfinity(10, -1);
    for (int32_t mode : {0, SciMode}) {
        EXPECT_EQ(toUtf8(FormatReal(inf, 12, mode)), "\u221E");
        EXPECT_EQ(toUtf8(FormatReal(inf, 12, mode | fmt::PlusSign)), "+\u221E");
        EXPECT_EQ(toUtf8(FormatReal(inf, 12, mode | Plain)), "inf");
        EXPECT_EQ(toUtf8(FormatReal(inf, 12, mode | Plain | fmt::PlusSign)), "+inf");
        EXPECT_EQ(toUtf8(FormatReal(negInf, 12, mode)), "\u2212\u221E");
        EXPECT_EQ(toUtf8(FormatReal(negInf, 12, mode | Plain | fmt::PlusSign)), "-inf");
    }
    EXPECT_EQ(toUtf8(FormatReal(negInf, 2, FixedMode)), "\u2212\u221E");
}

// --- Formatting details -------------------------------------------------------

TEST(NumTextFormat, ZeroInEachMode) {
    EXPECT_EQ(show(u"0", 12, 0), "0.");
    EXPECT_EQ(show(u"0", 2, FixedMode), "0.00");
    EXPECT_EQ(show(u"0", 2, SciMode), "0.00\u00B710\u2070");
}

TEST(NumTextFormat, StandardDigitsZeroMeansTheWholeMantissa) {
    EXPECT_EQ(show(u"0.33333333", 0, 0, 2), "0.3333");
    EXPECT_EQ(show(u"2.5", 0, 0, 2), "2.5");
}

TEST(NumTextFormat, StandardRoundingCarryAddsAnIntegerPlace) {
    EXPECT_EQ(show(u"9996", 3, 0), "10000.");
    EXPECT_EQ(show(u"9996", 3, fmt::Grouping), "10,000.");
    EXPECT_EQ(show(u"0.99996", 4, 0), "1.");
}

TEST(NumTextFormat, StandardExponentFormStripsZerosAndThePoint) {
    EXPECT_EQ(show(u"1E10", 12, Plain), "1E+10");
    EXPECT_EQ(show(u"1.25E-7", 12, Plain), "1.25E-7");
    EXPECT_EQ(show(u"1.99999E20", 3, Plain), "2E+20");
}

TEST(NumTextFormat, StandardExponentAboveDigitsTakesExponentForm) {
    EXPECT_EQ(show(u"12345", 3, Plain), "1.23E+4");
    EXPECT_EQ(show(u"1234", 3, Plain), "1230.");
}

TEST(NumTextFormat, FixedNoDecimalsEndsInABarePoint) {
    EXPECT_EQ(show(u"1234.5", 0, FixedMode), "1235.");
    EXPECT_EQ(show(u"0.3", 0, FixedMode), "0.");
    EXPECT_EQ(show(u"0.7", 0, FixedMode), "1.");
}

TEST(NumTextFormat, FixedRoundingDigitAboveTheLeadingDigit) {
    EXPECT_EQ(show(u"0.005", 2, FixedMode), "0.01");
    EXPECT_EQ(show(u"0.004", 2, FixedMode), "0.00");
    EXPECT_EQ(show(u"0.0095", 3, FixedMode), "0.010");
}

TEST(NumTextFormat, FixedPadsDecimalsAndIntegerPlacesBeyondTheMantissa) {
    EXPECT_EQ(show(u"1.5", 4, FixedMode), "1.5000");
    EXPECT_EQ(show(u"1.234E12", 1, FixedMode | fmt::Grouping, 2), "1,234,000,000,000.0");
    EXPECT_EQ(show(u"9.996", 2, FixedMode), "10.00");
}

TEST(NumTextFormat, ScientificKeepsTrailingZerosAndRoundsAtDigitN) {
    EXPECT_EQ(show(u"1.5", 3, SciMode | Plain), "1.500E+0");
    EXPECT_EQ(show(u"9.9996", 3, SciMode | Plain), "1.000E+1");
    EXPECT_EQ(show(u"-0.012345", 3, SciMode | Plain), "-1.235E-2");
}

TEST(NumTextFormat, ToSuperscriptMapsDigitsAndSignsInPlace) {
    std::u16string text = u"+-0123456789x.";
    ToSuperscript(text);
    EXPECT_EQ(text, u"\u207A\u207B\u2070\u00B9\u00B2\u00B3\u2074\u2075\u2076\u2077\u2078\u2079x.");
}

// --- ParseReal ----------------------------------------------------------------

TEST(ParseReal, MantissaLayoutExponentAndSign) {
    BigNum x = ParseReal(3, u"-12.345");
    EXPECT_EQ(x.length(), 3);
    EXPECT_EQ(mantissaDigits(x), "123450");
    EXPECT_EQ(x.exponent, 1);
    EXPECT_EQ(x.sign, -1);
    EXPECT_EQ(x.kind, NumKind::Finite);
}

TEST(ParseReal, SignsRepeatAndEachMinusFlips) {
    EXPECT_EQ(num(u"--5").sign, 1);
    EXPECT_EQ(num(u"-+-5").sign, 1);
    EXPECT_EQ(num(u"---5").sign, -1);
    EXPECT_EQ(num(u"+5"), num(u"5"));
}

TEST(ParseReal, ZerosAfterThePointLowerTheExponent) {
    BigNum x = ParseReal(2, u"0.00123");
    EXPECT_EQ(mantissaDigits(x), "1230");
    EXPECT_EQ(x.exponent, -3);
    EXPECT_EQ(ParseReal(2, u"000120").exponent, 2);
}

TEST(ParseReal, OnlyTheOneNextCharacterRounds) {
    EXPECT_EQ(mantissaDigits(ParseReal(2, u"1.23449")), "1234");
    EXPECT_EQ(mantissaDigits(ParseReal(2, u"1.23451")), "1235");
    // The point after the kept digits decides nothing.
    BigNum x = ParseReal(2, u"1234.9");
    EXPECT_EQ(mantissaDigits(x), "1234");
    EXPECT_EQ(x.exponent, 3);
}

TEST(ParseReal, LongIntegerPartGetsTooSmallAnExponent) {
    BigNum x = ParseReal(2, u"123456");
    EXPECT_EQ(mantissaDigits(x), "1235");
    EXPECT_EQ(x.exponent, 3);   // the digits after the kept ones are not counted
}

TEST(ParseReal, ExponentAfterOverlongDigitsIsNotRead) {
    BigNum x = ParseReal(2, u"1.23456E5");
    EXPECT_EQ(mantissaDigits(x), "1235");
    EXPECT_EQ(x.exponent, 0);
}

TEST(ParseReal, RoundingCarryRaisesTheExponent) {
    BigNum x = ParseReal(2, u"9.99995");
    EXPECT_EQ(mantissaDigits(x), "1000");
    EXPECT_EQ(x.exponent, 1);
    BigNum y = ParseReal(2, u"0.99999");
    EXPECT_EQ(mantissaDigits(y), "1000");
    EXPECT_EQ(y.exponent, 0);
}

TEST(ParseReal, ExponentPart) {
    EXPECT_EQ(num(u"1.5e3"), num(u"1500"));
    EXPECT_EQ(num(u"1.5E+3"), num(u"1500"));
    EXPECT_EQ(num(u"1.5E-3"), num(u"0.0015"));
    EXPECT_EQ(num(u"15E-1"), num(u"1.5"));
    EXPECT_EQ(num(u"1.5e"), num(u"1.5"));
    EXPECT_EQ(num(u"1.5E+"), num(u"1.5"));
    EXPECT_EQ(num(u"1.5x7"), num(u"1.5"));
}

TEST(ParseReal, OverlongExponentWrapsInThirtyTwoBits) {
    EXPECT_EQ(num(u"1E4294967297").exponent, 1);
    EXPECT_EQ(num(u"1E-4294967297").exponent, -1);
    EXPECT_EQ(num(u"1E2147483648").exponent, INT32_MIN);
}

TEST(ParseReal, NothingSignificantIsZeroAndTheExponentIsIgnored) {
    for (const char16_t* text : {u"", u".", u"abc", u"+-", u"0", u"-0.000", u"0E5", u"-.E7"}) {
        BigNum x = ParseReal(4, text);
        EXPECT_EQ(x, makeZero(4)) << toUtf8(text);
    }
}

TEST(ParseReal, LengthIsRaisedToTwoBytes) {
    BigNum x = ParseReal(1, u"7");
    EXPECT_EQ(x.length(), 2);
    EXPECT_EQ(mantissaDigits(x), "7000");
}

// --- ParseInteger and FormatInteger -----------------------------------------------

TEST(ParseInteger, DigitsSignsAndStop) {
    EXPECT_EQ(ParseInteger(u"12345", 10), bigIntFromI32(12345));
    EXPECT_EQ(ParseInteger(u"--+7", 10), bigIntFromI32(7));
    EXPECT_EQ(ParseInteger(u"-FF", 16), bigIntFromI32(-255));
    EXPECT_EQ(ParseInteger(u"1012", 2), bigIntFromI32(5));   // '2' is not below the base
    EXPECT_EQ(ParseInteger(u"12.9", 10), bigIntFromI32(12));
    EXPECT_EQ(ParseInteger(u"-", 10).sign, 0);
    EXPECT_EQ(ParseInteger(u"-000", 10).sign, 0);
    EXPECT_EQ(ParseInteger(u"ZZ", 36), bigIntFromI32(35 * 36 + 35));
}

TEST(ParseInteger, CharactersBetweenNineAndATakeThreeToNine) {
    EXPECT_EQ(ParseInteger(u":", 16), bigIntFromI32(3));
    EXPECT_EQ(ParseInteger(u"@", 16), bigIntFromI32(9));
    EXPECT_EQ(ParseInteger(u"1;", 10), bigIntFromI32(14));   // ';' reads as 4
    EXPECT_EQ(ParseInteger(u"1?", 8), bigIntFromI32(1));     // '?' is 8: not below 8
}

TEST(ParseInteger, LowerCaseIsADigitOnlyInVeryLargeBases) {
    EXPECT_EQ(ParseInteger(u"a", 64), bigIntFromI32(42));
    EXPECT_TRUE(ParseInteger(u"a", 36).isZero());
}

TEST(FormatInteger, BasesAndLeadingZeroBeforeALetter) {
    EXPECT_EQ(showInt(255, 2, 0), "11111111");
    EXPECT_EQ(showInt(-255, 16, Plain), "-0FF");
    EXPECT_EQ(showInt(0x1F, 16, 0), "1F");
    EXPECT_EQ(showInt(35, 36, 0), "0Z");
    EXPECT_EQ(showInt(INT32_MIN, 10, Plain), "-2147483648");
    EXPECT_EQ(showInt(1234, 1, 0), "1234");   // a base below 2 counts as 10
}

// --- BigNumToDouble and UTF-8 -----------------------------------------------------

TEST(BigNumToDouble, ConvertsOrdinaryValues) {
    double out = 0;
    ASSERT_TRUE(BigNumToDouble(num(u"1.5"), out));
    EXPECT_EQ(out, 1.5);
    ASSERT_TRUE(BigNumToDouble(num(u"-2.5"), out));
    EXPECT_EQ(out, -2.5);
    ASSERT_TRUE(BigNumToDouble(num(u"3.14159265358979323846"), out));
    EXPECT_NEAR(out, 3.141592653589793, 1e-15);
    ASSERT_TRUE(BigNumToDouble(num(u"0"), out));
    EXPECT_EQ(out, 0.0);
}

TEST(BigNumToDouble, NaNGivesNaN) {
    double out = 0;
    EXPECT_TRUE(BigNumToDouble(makeNaN(), out));
    EXPECT_TRUE(std::isnan(out));
}

TEST(BigNumToDouble, ExponentAbove307IsTooLarge) {
    double out = 7;
    EXPECT_TRUE(BigNumToDouble(num(u"1E307"), out));
    EXPECT_NEAR(out / 1e307, 1.0, 1e-12);
    EXPECT_TRUE(BigNumToDouble(num(u"9.9E307"), out));
    EXPECT_TRUE(std::isfinite(out));
    EXPECT_NEAR(out / 9.9e307, 1.0, 1e-12);
    EXPECT_FALSE(BigNumToDouble(num(u"1E308"), out));
    EXPECT_FALSE(BigNumToDouble(makeInfinity(4, 1), out));
}

TEST(BigNumToDouble, BelowTenToMinus308IsZeroWithTheSign) {
    double out = 7;
    ASSERT_TRUE(BigNumToDouble(num(u"1E-308"), out));
    EXPECT_GT(out, 0.0);
    ASSERT_TRUE(BigNumToDouble(num(u"5E-309"), out));
    EXPECT_EQ(out, 0.0);
    ASSERT_TRUE(BigNumToDouble(num(u"-5E-309"), out));
    EXPECT_EQ(out, 0.0);
    EXPECT_TRUE(std::signbit(out));
}

TEST(Utf8, RoundTripsDisplayCharactersAndSurrogates) {
    const std::u16string text = u"\u22121.5\u00B710\u207B\u2074 \u221E \U0001F600";
    EXPECT_EQ(fromUtf8(toUtf8(text)), text);
    EXPECT_EQ(toUtf8(u"\u2212"), "\xE2\x88\x92");
    EXPECT_EQ(fromUtf8("abc"), u"abc");
}

TEST(Utf8, InvalidInputBecomesReplacementCharacters) {
    EXPECT_EQ(fromUtf8("a\xFF" "b"), u"a\uFFFDb");
    EXPECT_EQ(fromUtf8("\xE2\x88"), u"\uFFFD");
    EXPECT_EQ(toUtf8(std::u16string(1, u'\xD800')), "\xEF\xBF\xBD");
}

// --- Vectors from tests/tools/gen_numtext_vectors.py ----------------------------

class NumTextVectors : public ::testing::TestWithParam<VectorCase> {};

int32_t modeBits(const std::string& mode) {
    if (mode == "F") return FixedMode;
    if (mode == "X") return SciMode;
    return 0;
}

TEST_P(NumTextVectors, MatchesTheDecimalOracle) {
    const VectorCase& c = GetParam();
    if (c.op == "parse") {
        ASSERT_EQ(c.args.size(), 2u);
        ASSERT_EQ(c.expected.size(), 3u);
        const BigNum x = ParseReal(std::stoi(c.args[0]), fromUtf8(c.args[1]));
        EXPECT_EQ(testvectors::signText(x.sign), c.expected[0]);
        EXPECT_EQ(x.exponent, std::stoi(c.expected[1]));
        EXPECT_EQ(mantissaDigits(x), c.expected[2]);
    } else {
        ASSERT_EQ(c.args.size(), 7u);
        ASSERT_EQ(c.expected.size(), 1u);
        const BigNum x = testvectors::bigNumFromFields(c.args[3], c.args[4], c.args[5], c.args[6]);
        const int32_t flags = static_cast<int32_t>(std::stoi(c.args[2], nullptr, 16)) | modeBits(c.args[0]);
        EXPECT_EQ(toUtf8(FormatReal(x, std::stoi(c.args[1]), flags)), c.expected[0]);
    }
}

const std::vector<VectorCase> textCases = testvectors::loadVectorCases("numtext_vectors.txt");

INSTANTIATE_TEST_SUITE_P(File, NumTextVectors, ::testing::ValuesIn(textCases),
                         [](const auto& info) { return testvectors::vectorCaseName(info.param); });

TEST(NumTextVectorFile, HoldsEveryModeAndParsing) {
    std::set<std::string> kinds;
    for (const auto& c : textCases) kinds.insert(c.op == "parse" ? c.op : c.op + " " + c.args[0]);
    EXPECT_EQ(kinds, (std::set<std::string>{"parse", "format S", "format F", "format X"}));
    EXPECT_GT(textCases.size(), 3000u);
}

}  // namespace
}  // namespace quorvel
