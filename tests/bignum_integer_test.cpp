// Conversions between BigNum and BigInt: truncation, floor, ceiling, rounding
// with halves away from zero, in-place truncation, the fraction part and the
// integer turned into decimal pairs; then the vectors of gen_bigint_vectors.py.
#include <gtest/gtest.h>

#include "numeric/bigint.h"
#include "numeric/bignum.h"
#include "numeric/numtext.h"
#include "numeric_vectors.h"

namespace quorvel {
namespace {

using testvectors::bigIntFromHex;
using testvectors::bigIntToHex;
using testvectors::mantissaDigits;
using testvectors::VectorCase;

BigNum num(std::u16string_view text, int32_t length = 5) { return ParseReal(length, text); }

std::string dec(const BigInt& n) { return toUtf8(FormatInteger(n, 10, fmt::PlainText)); }

TEST(ToInteger, TruncatesTowardZero) {
    EXPECT_EQ(dec(toInteger(num(u"3.7"))), "3");
    EXPECT_EQ(dec(toInteger(num(u"-3.7"))), "-3");
    EXPECT_EQ(dec(toInteger(num(u"0.5"))), "0");
    EXPECT_EQ(dec(toInteger(num(u"-0.5"))), "0");
    EXPECT_EQ(toInteger(num(u"-0.5")).sign, 0);
    EXPECT_EQ(dec(toInteger(num(u"0"))), "0");
    EXPECT_EQ(dec(toInteger(num(u"123456789.99", 8))), "123456789");
}

TEST(ToInteger, ExponentBeyondTheMantissaAppendsZeros) {
    EXPECT_EQ(dec(toInteger(num(u"1.25E30", 2))), "1250000000000000000000000000000");
    EXPECT_EQ(dec(toInteger(num(u"-9E20", 2))), "-900000000000000000000");
}

TEST(ToInteger, SmallNumberGivesZeroWithTwoLimbsReserved) {
    BigInt n = toInteger(num(u"0.001"));
    EXPECT_EQ(n.sign, 0);
    EXPECT_EQ(n.count(), 1);
    EXPECT_GE(n.limbs.capacity(), 2u);
}

TEST(ToInteger, NonFiniteGivesZero) {
    EXPECT_TRUE(toInteger(makeInfinity(5, 1)).isZero());
    EXPECT_TRUE(toInteger(makeNaN()).isZero());
}

TEST(FloorToInteger, NegativeFractionsGoDown) {
    EXPECT_EQ(dec(floorToInteger(num(u"3.7"))), "3");
    EXPECT_EQ(dec(floorToInteger(num(u"-3.2"))), "-4");
    EXPECT_EQ(dec(floorToInteger(num(u"-3"))), "-3");
    EXPECT_EQ(dec(floorToInteger(num(u"-0.5"))), "-1");
    EXPECT_EQ(dec(floorToInteger(num(u"-0.0001"))), "-1");
    EXPECT_EQ(dec(floorToInteger(num(u"0.5"))), "0");
    EXPECT_EQ(dec(floorToInteger(num(u"-65535.5"))), "-65536");
}

TEST(CeilToInteger, PositiveFractionsGoUp) {
    EXPECT_EQ(dec(ceilToInteger(num(u"3.2"))), "4");
    EXPECT_EQ(dec(ceilToInteger(num(u"3"))), "3");
    EXPECT_EQ(dec(ceilToInteger(num(u"0.5"))), "1");
    EXPECT_EQ(dec(ceilToInteger(num(u"0.0001"))), "1");
    EXPECT_EQ(dec(ceilToInteger(num(u"-3.7"))), "-3");
    EXPECT_EQ(dec(ceilToInteger(num(u"-0.5"))), "0");
    EXPECT_EQ(dec(ceilToInteger(num(u"0"))), "0");
}

TEST(RoundToInteger, HalvesGoAwayFromZero) {
    EXPECT_EQ(dec(roundToInteger(num(u"2.5"))), "3");
    EXPECT_EQ(dec(roundToInteger(num(u"-2.5"))), "-3");
    EXPECT_EQ(dec(roundToInteger(num(u"2.4999"))), "2");
    EXPECT_EQ(dec(roundToInteger(num(u"0.5"))), "1");
    EXPECT_EQ(dec(roundToInteger(num(u"-0.5"))), "-1");
    EXPECT_EQ(dec(roundToInteger(num(u"0.49"))), "0");
    EXPECT_EQ(dec(roundToInteger(num(u"0.07"))), "0");   // exponent -2: always 0
    EXPECT_EQ(dec(roundToInteger(num(u"99.5"))), "100");
    EXPECT_EQ(dec(roundToInteger(num(u"0"))), "0");
}

TEST(TruncateInPlace, ClearsFractionDigits) {
    BigNum a = num(u"123.456");
    truncateInPlace(a);
    EXPECT_EQ(a, num(u"123"));
    BigNum b = num(u"-7.9");
    truncateInPlace(b);
    EXPECT_EQ(b, num(u"-7"));
}

TEST(TruncateInPlace, BoundaryInsideAByteClearsOnlyItsUnitsDigit) {
    BigNum a = num(u"1.2345");   // top byte 12: the units digit 2 is a fraction digit
    truncateInPlace(a);
    EXPECT_EQ(mantissaDigits(a), "1000000000");
    EXPECT_EQ(a.exponent, 0);
    BigNum b = num(u"12.345");   // boundary between bytes
    truncateInPlace(b);
    EXPECT_EQ(mantissaDigits(b), "1200000000");
}

TEST(TruncateInPlace, BelowOneBecomesZeroOfTheSameLength) {
    BigNum a = num(u"-0.75", 7);
    truncateInPlace(a);
    EXPECT_EQ(a, makeZero(7));
}

TEST(TruncateInPlace, LargeExponentsAndSpecialValuesStay) {
    BigNum big = num(u"1.234E40", 2);
    const BigNum before = big;
    truncateInPlace(big);
    EXPECT_EQ(big, before);
    BigNum inf = makeInfinity(4, -1);
    truncateInPlace(inf);
    EXPECT_EQ(inf, makeInfinity(4, -1));
}

TEST(FractionPart, KeepsDigitsAfterThePointWithTheSign) {
    EXPECT_EQ(fractionPart(num(u"123.456")), num(u"0.456"));
    EXPECT_EQ(fractionPart(num(u"-1.25")), num(u"-0.25"));
    EXPECT_EQ(fractionPart(num(u"0.5")), num(u"0.5"));   // below one: unchanged copy
    EXPECT_EQ(fractionPart(num(u"5")), makeZero(5));
    EXPECT_EQ(fractionPart(num(u"0")), makeZero(5));
}

TEST(FractionPart, ExponentBeyondTheMantissaGivesZero) {
    EXPECT_EQ(fractionPart(num(u"1.5E30", 2)), makeZero(2));
}

TEST(FractionPart, InfinityGivesZeroAndNaNGivesNaNWithZeroMantissa) {
    EXPECT_EQ(fractionPart(makeInfinity(6, 1)), makeZero(6));
    BigNum nan = makeNaN();
    nan.digits = {12, 34, 56};
    BigNum f = fractionPart(nan);
    EXPECT_TRUE(f.isNaN());
    EXPECT_EQ(mantissaDigits(f), "000000");
}

TEST(FromInteger, ExactSmallValuesAtLengthPlusFive) {
    BigNum x = fromInteger(bigIntFromI32(-12345), 3);
    EXPECT_EQ(x.length(), 8);
    EXPECT_EQ(x.sign, -1);
    EXPECT_EQ(x.exponent, 4);
    EXPECT_EQ(mantissaDigits(x), "1234500000000000");
    EXPECT_EQ(fromInteger(BigInt{}, 3), makeZero(8));
}

BigInt powerOfTen(int count) {
    BigInt n = bigIntFromI32(1);
    for (int i = 0; i < count; ++i) multiplySmallAddInPlace(n, 10, 0);
    return n;
}

TEST(FromInteger, LongIntegerRoundsOnTheGuardPair) {
    // 5*10^33 - 1 has 7 limbs and 34 digits: 17 pairs, the top 7 kept at 2 + 5
    // bytes, the next pair (99) is the guard and rounds up.
    BigInt n = subtractSmall(multiply(powerOfTen(33), bigIntFromI32(5)), 1);
    ASSERT_EQ(n.count(), 7);
    BigNum x = fromInteger(n, 2);
    EXPECT_EQ(x.exponent, 33);
    EXPECT_EQ(mantissaDigits(x), "50000000000000");
}

TEST(FromInteger, LeadingZeroPairsShiftInTheGuardWithoutRounding) {
    // 10^30 - 1 also has 7 limbs, so 17 pairs are produced for 30 digits: four
    // leading zero digits are shifted out, the guard's digits come in, then zeros.
    BigInt n = subtractSmall(powerOfTen(30), 1);
    BigNum x = fromInteger(n, 2);
    EXPECT_EQ(x.exponent, 29);
    EXPECT_EQ(mantissaDigits(x), "99999999999900");
}

TEST(FromInteger, RoundTripsThroughToInteger) {
    BigInt n = bigIntFromI32(1);
    for (int i = 0; i < 40; ++i) multiplySmallAddInPlace(n, 65521, static_cast<uint32_t>(i));
    BigNum x = fromInteger(n, 200);
    EXPECT_EQ(toInteger(x), n);
}

// --- Vectors from tests/tools/gen_bigint_vectors.py --------------------------

class IntegerConversionVectors : public ::testing::TestWithParam<VectorCase> {};

TEST_P(IntegerConversionVectors, MatchesExactArithmetic) {
    const VectorCase& c = GetParam();
    if (c.op == "toint") {
        ASSERT_EQ(c.args.size(), 5u);
        const BigNum x = testvectors::bigNumFromFields(c.args[1], c.args[2], c.args[3], c.args[4]);
        const std::string& mode = c.args[0];
        const BigInt n = mode == "trunc"   ? toInteger(x)
                         : mode == "floor" ? floorToInteger(x)
                         : mode == "ceil"  ? ceilToInteger(x)
                                           : roundToInteger(x);
        EXPECT_EQ(bigIntToHex(n), c.expected[0]);
        EXPECT_EQ(n, bigIntFromHex(c.expected[0]));
    } else {
        ASSERT_EQ(c.expected.size(), 3u);
        const BigNum x = fromInteger(bigIntFromHex(c.args[1]), std::stoi(c.args[0]));
        EXPECT_EQ(x.length(), std::stoi(c.args[0]) + 5);
        EXPECT_EQ(testvectors::signText(x.sign), c.expected[0]);
        EXPECT_EQ(x.exponent, std::stoi(c.expected[1]));
        EXPECT_EQ(mantissaDigits(x), c.expected[2]);
    }
}

INSTANTIATE_TEST_SUITE_P(File, IntegerConversionVectors,
                         ::testing::ValuesIn(testvectors::loadVectorCases("bigint_vectors.txt", {"toint", "fromint"})),
                         [](const auto& info) { return testvectors::vectorCaseName(info.param); });

}  // namespace
}  // namespace quorvel
