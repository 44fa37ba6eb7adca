// BigNum construction, digit helpers, rounding rules, arithmetic and the
// special values. Values are built digit by digit (no parser involved).
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "numeric/bignum.h"
#include "tests/bignum_testing.h"

namespace quorvel {
namespace {

using test::bigNumFromDigits;
using test::describe;

constexpr int32_t kMaxExponent = std::numeric_limits<int32_t>::max();
constexpr int32_t kMinExponent = std::numeric_limits<int32_t>::min();

// A finite number of `length` bytes: sign x d1.d2d3... x 10^exponent.
BigNum num(int32_t length, const std::string& digits, int32_t exponent, int sign = 1) {
    return bigNumFromDigits(length, digits, exponent, sign);
}

// A mantissa exactly as given, leading zeros allowed (not normalised).
BigNum raw(int32_t length, const std::string& digits, int32_t exponent, int8_t sign = 1) {
    BigNum x = makeZero(length);
    for (int32_t k = 0; k < static_cast<int32_t>(digits.size()); ++k) {
        const int d = digits[static_cast<std::size_t>(k)] - '0';
        uint8_t& byte = x.digits[static_cast<std::size_t>(length - 1 - k / 2)];
        byte = static_cast<uint8_t>(byte + (k % 2 == 0 ? d * 10 : d));
    }
    x.exponent = exponent;
    x.sign = sign;
    return x;
}

// Exact equality of every field, with both values spelled out on failure.
testing::AssertionResult same(const BigNum& actual, const BigNum& expected) {
    if (actual == expected) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "got      " << describe(actual) << "\nexpected " << describe(expected);
}

void expectCanonicalNaN(const BigNum& x) {
    EXPECT_TRUE(x.isNaN());
    EXPECT_EQ(x.length(), 2);
    EXPECT_EQ(x.sign, 0);
    EXPECT_EQ(x.exponent, 0);
    EXPECT_EQ(x.digits[0], 0);
    EXPECT_EQ(x.digits[1], 0);
}

void expectInfinity(const BigNum& x, int32_t length, int sign) {
    EXPECT_TRUE(x.isInfinite()) << describe(x);
    EXPECT_EQ(x.length(), length);
    EXPECT_EQ(x.sign, sign);
}

// --- Construction -------------------------------------------------------------

TEST(BigNumConstruction, MakeZeroRaisesLengthToTwo) {
    const BigNum z = makeZero(0);
    EXPECT_EQ(z.length(), 2);
    EXPECT_TRUE(z.isZero());
    EXPECT_EQ(z.exponent, 0);
    EXPECT_EQ(makeZero(7).length(), 7);
}

TEST(BigNumConstruction, MakeNaNIsCanonical) { expectCanonicalNaN(makeNaN()); }

TEST(BigNumConstruction, MakeInfinityHasZeroMantissa) {
    const BigNum x = makeInfinity(5, -1);
    expectInfinity(x, 5, -1);
    EXPECT_EQ(x.exponent, 0);
    for (uint8_t byte : x.digits) EXPECT_EQ(byte, 0);
}

TEST(BigNumConstruction, FromIntOddDigitCountStoresLastDigitAlone) {
    const BigNum x = fromInt(2, 123);
    EXPECT_EQ(x.length(), 2);
    EXPECT_EQ(x.digits[1], 12);
    EXPECT_EQ(x.digits[0], 30);
    EXPECT_EQ(x.exponent, 2);
    EXPECT_EQ(x.sign, 1);
}

TEST(BigNumConstruction, FromIntWidensToDigitCountOverTwoPlusOne) {
    // Four digits need 4/2 + 1 = 3 bytes.
    EXPECT_TRUE(same(fromInt(2, 1234), num(3, "1234", 3)));
    EXPECT_TRUE(same(fromInt(2, -2147483647 - 1), num(6, "2147483648", 9, -1)));
    EXPECT_TRUE(same(fromInt(10, 5), num(10, "5", 0)));
    EXPECT_TRUE(same(fromInt(4, -70), num(4, "7", 1, -1)));
}

TEST(BigNumConstruction, FromIntZeroIsZeroOfTheGivenLength) { EXPECT_TRUE(same(fromInt(7, 0), makeZero(7))); }

// --- Resizing -------------------------------------------------------------------

TEST(BigNumResize, DroppedPairOfExactly50RoundsDown) {
    EXPECT_TRUE(same(resized(num(3, "123450", 2), 2), num(2, "1234", 2)));
}

TEST(BigNumResize, DroppedPairOf51RoundsUp) {
    EXPECT_TRUE(same(resized(num(3, "123451", 2), 2), num(2, "1235", 2)));
}

TEST(BigNumResize, OnlyTheFirstDroppedPairDecides) {
    // 50 followed by 99: still rounded down.
    EXPECT_TRUE(same(resized(num(4, "12345099", 0, -1), 2), num(2, "1234", 0, -1)));
}

TEST(BigNumResize, RoundingCarriesOutOfTheTop) {
    EXPECT_TRUE(same(resized(num(3, "999999", 5), 2), num(2, "1", 6)));
}

TEST(BigNumResize, RoundingPastTheLargestExponentGivesInfinity) {
    expectInfinity(resized(num(3, "999999", kMaxExponent, -1), 2), 2, -1);
}

TEST(BigNumResize, LongerPadsWithZeros) {
    EXPECT_TRUE(same(resized(num(2, "1234", -7), 4), num(4, "1234", -7)));
}

TEST(BigNumResize, LengthIsRaisedToTwo) { EXPECT_EQ(resized(num(3, "1", 0), 1).length(), 2); }

TEST(BigNumResize, SpecialValuesKeepTheirKind) {
    expectInfinity(resized(makeInfinity(3, -1), 2), 2, -1);
    EXPECT_TRUE(resized(makeNaN(), 6).isNaN());
}

TEST(BigNumResize, AssignCopiesLengthBytesExponentSignAndKind) {
    BigNum target = num(5, "42", 3);
    const BigNum source = num(3, "987654", -2, -1);
    assign(target, source);
    EXPECT_TRUE(same(target, source));
    assign(target, makeInfinity(4, 1));
    expectInfinity(target, 4, 1);
}

TEST(BigNumResize, AssignResizedRoundsLikeResized) {
    BigNum target = makeZero(9);
    assignResized(target, num(3, "123451", 0), 2);
    EXPECT_TRUE(same(target, num(2, "1235", 0)));
    assignResized(target, num(3, "123450", 0), 1);
    EXPECT_TRUE(same(target, num(2, "1234", 0)));
}

// --- Digit helpers ----------------------------------------------------------------

TEST(BigNumDigits, ShiftRightOneDigitEntersAtTheTop) {
    BigNum x = num(2, "1234", 3);
    shiftRightOneDigit(x, 7);
    EXPECT_TRUE(same(x, num(2, "7123", 3)));
}

TEST(BigNumDigits, DecimalDigitAtCountsFromTheLeadingDigit) {
    const BigNum x = num(2, "1234", 0);
    EXPECT_EQ(decimalDigitAt(x, 0), 1);
    EXPECT_EQ(decimalDigitAt(x, 1), 2);
    EXPECT_EQ(decimalDigitAt(x, 2), 3);
    EXPECT_EQ(decimalDigitAt(x, 3), 4);
    EXPECT_EQ(decimalDigitAt(x, 4), 0);
    EXPECT_EQ(decimalDigitAt(x, -1), 0);
}

TEST(BigNumDigits, PairAtReadsAnyDecimalOffsetFromTheBottom) {
    const BigNum x = num(3, "123456", 0);
    EXPECT_EQ(pairAt(x, 0), 56);
    EXPECT_EQ(pairAt(x, 1), 45);
    EXPECT_EQ(pairAt(x, 2), 34);
    EXPECT_EQ(pairAt(x, 4), 12);
    EXPECT_EQ(pairAt(x, 5), 1);    // the digit above the top reads 0
    EXPECT_EQ(pairAt(x, -1), 60);  // the lowest digit x 10
    EXPECT_EQ(pairAt(x, -2), 0);
    EXPECT_EQ(pairAt(x, 6), 0);
}

TEST(BigNumDigits, AddAtDigitCarriesUpward) {
    BigNum x = num(2, "1299", 3);
    addAtDigit(x, 1, 0);
    EXPECT_TRUE(same(x, num(2, "13", 3)));
}

TEST(BigNumDigits, AddAtDigitOddPositionAddsToTheTensDigit) {
    BigNum x = num(2, "12", 0);
    addAtDigit(x, 3, 1);
    EXPECT_TRUE(same(x, num(2, "123", 0)));
}

TEST(BigNumDigits, AddAtDigitCarryOutOfTheTopShiftsRightAndRaisesExponent) {
    BigNum x = num(2, "9999", 4);
    addAtDigit(x, 1, 0);
    EXPECT_TRUE(same(x, num(2, "1", 5)));
}

TEST(BigNumDigits, AddAtDigitOnePlaceAboveTheLeadingDigit) {
    // 0.005 plus one unit in the place above its leading digit is 0.015.
    BigNum x = num(2, "5", -3);
    addAtDigit(x, 1, 4);
    EXPECT_TRUE(same(x, num(2, "15", -2)));
}

TEST(BigNumDigits, AddAtDigitFarAboveTheTopReplacesTheMantissa) {
    // 1.234 + 7e10: every digit of 1.234 falls below the last place.
    BigNum x = num(2, "1234", 0);
    addAtDigit(x, 7, 13);
    EXPECT_TRUE(same(x, num(2, "7", 10)));
}

TEST(BigNumDigits, AddAtDigitPastTheLargestExponentGivesInfinity) {
    BigNum x = num(2, "9999", kMaxExponent, -1);
    addAtDigit(x, 1, 0);
    expectInfinity(x, 2, -1);
}

TEST(BigNumDigits, SubtractAtDigitBorrows) {
    BigNum x = num(2, "13", 3);
    subtractAtDigit(x, 1, 0);
    EXPECT_TRUE(same(x, num(2, "1299", 3)));
    BigNum y = num(2, "13", 3);
    subtractAtDigit(y, 1, 1);
    EXPECT_TRUE(same(y, num(2, "129", 3)));
}

TEST(BigNumNormalize, RoundsHalfUpOnTheGuardWithoutShift) {
    BigNum x = num(2, "1234", 0);
    normalize(x, 50);
    EXPECT_TRUE(same(x, num(2, "1235", 0)));
    BigNum y = num(2, "1234", 0);
    normalize(y, 49);
    EXPECT_TRUE(same(y, num(2, "1234", 0)));
}

TEST(BigNumNormalize, OneDigitShiftRoundsOnTheRemainingGuardDigit) {
    BigNum x = raw(2, "0123", 5);
    normalize(x, 47);
    EXPECT_TRUE(same(x, num(2, "1235", 4)));
    BigNum y = raw(2, "0123", 5);
    normalize(y, 44);
    EXPECT_TRUE(same(y, num(2, "1234", 4)));
}

TEST(BigNumNormalize, TwoDigitShiftFeedsTheWholeGuard) {
    BigNum x = raw(2, "0012", 5, -1);
    normalize(x, 39);
    EXPECT_TRUE(same(x, num(2, "1239", 3, -1)));
}

TEST(BigNumNormalize, OddShiftFeedsGuardDigitsThenZeros) {
    BigNum x = raw(2, "0001", 0);
    normalize(x, 23);
    EXPECT_TRUE(same(x, num(2, "123", -3)));
}

TEST(BigNumNormalize, AllZeroBecomesZero) {
    BigNum x = raw(3, "000000", 7, -1);
    normalize(x, 0);
    EXPECT_TRUE(same(x, makeZero(3)));
}

TEST(BigNumNormalize, GuardAloneSurvivesACancelledMantissa) {
    BigNum x = raw(2, "0000", 0);
    normalize(x, 50);
    EXPECT_TRUE(same(x, num(2, "5", -4)));
}

TEST(BigNumNormalize, ExponentWrapBelowTheMinimumGivesZero) {
    BigNum x = raw(2, "0123", kMinExponent);
    normalize(x, 0);
    EXPECT_TRUE(same(x, makeZero(2)));
}

TEST(BigNumNormalize, LeavesSpecialValuesAlone) {
    BigNum x = makeInfinity(3, 1);
    normalize(x, 99);
    expectInfinity(x, 3, 1);
}

// --- Comparison -----------------------------------------------------------------

TEST(BigNumCompare, DifferingByThreeUnitsInTheLastPairGivesThree) {
    const BigNum a = num(3, "123456", 2);
    const BigNum b = num(3, "123453", 2);
    EXPECT_EQ(compare(a, b), 3);
    EXPECT_EQ(compare(b, a), -3);
    EXPECT_EQ(compare(num(3, "123456", 2, -1), num(3, "123453", 2, -1)), -3);
}

TEST(BigNumCompare, GradedResults) {
    EXPECT_EQ(compare(num(2, "1", 0), num(2, "1", 0, -1)), 20);
    EXPECT_EQ(compare(num(2, "1", 0, -1), num(2, "1", 0)), -20);
    EXPECT_EQ(compare(num(2, "1", 1), num(2, "9", 0)), 20);
    EXPECT_EQ(compare(num(2, "1", 1, -1), num(2, "9", 0, -1)), -20);
    EXPECT_EQ(compare(num(3, "124456", 0), num(3, "123456", 0)), 10);    // before the last pair
    EXPECT_EQ(compare(num(3, "123460", 0), num(3, "123445", 0)), 10);    // 15 units, clamped
    EXPECT_EQ(compare(num(3, "123500", 0), num(3, "123499", 0)), 1);     // across a pair boundary
    EXPECT_EQ(compare(num(3, "123456", 0), num(3, "123456", 0)), 0);
}

TEST(BigNumCompare, DifferentLengthsAlignAtTheTop) {
    EXPECT_EQ(compare(num(2, "1234", 0), num(3, "1234", 0)), 0);
    EXPECT_EQ(compare(num(2, "1234", 0), num(3, "123401", 0)), -1);
}

TEST(BigNumCompare, SpecialValuesAndZero) {
    const BigNum one = num(2, "1", 0);
    const BigNum minusOne = num(2, "1", 0, -1);
    const BigNum zero = makeZero(2);
    EXPECT_EQ(compare(makeNaN(), makeNaN()), 0);
    EXPECT_EQ(compare(makeNaN(), one), -20);
    EXPECT_EQ(compare(makeNaN(), minusOne), 20);
    EXPECT_EQ(compare(one, makeNaN()), 20);
    EXPECT_EQ(compare(minusOne, makeNaN()), -20);
    EXPECT_EQ(compare(makeInfinity(2, 1), one), 20);
    EXPECT_EQ(compare(makeInfinity(2, -1), one), -20);
    EXPECT_EQ(compare(one, makeInfinity(2, 1)), -20);
    EXPECT_EQ(compare(one, makeInfinity(2, -1)), 20);
    EXPECT_EQ(compare(makeInfinity(2, 1), makeInfinity(2, 1)), 0);
    EXPECT_EQ(compare(makeInfinity(2, 1), makeInfinity(2, -1)), 20);
    EXPECT_EQ(compare(zero, one), -20);
    EXPECT_EQ(compare(zero, minusOne), 20);
    EXPECT_EQ(compare(one, zero), 20);
    EXPECT_EQ(compare(minusOne, zero), -20);
    EXPECT_EQ(compare(zero, makeZero(5)), 0);
}

TEST(BigNumCompare, CompareWithDigitUsesTheMagnitude) {
    EXPECT_EQ(compareWithDigit(makeInfinity(2, -1), 9), 1);
    EXPECT_EQ(compareWithDigit(makeZero(2), 0), -1);
    EXPECT_EQ(compareWithDigit(num(2, "5", -1), 1), -1);
    EXPECT_EQ(compareWithDigit(num(2, "12", 1), 9), 1);
    EXPECT_EQ(compareWithDigit(num(3, "3", 0), 3), 0);
    EXPECT_EQ(compareWithDigit(num(3, "3", 0, -1), 3), 0);
    EXPECT_EQ(compareWithDigit(num(3, "300001", 0), 3), 1);
    EXPECT_EQ(compareWithDigit(num(3, "35", 0), 3), 1);
    EXPECT_EQ(compareWithDigit(num(3, "29", 0), 3), -1);
}

// --- Addition and subtraction ---------------------------------------------------

TEST(BigNumAdd, OddExponentDifferenceAlignsBySingleDigits) {
    // 1.234 + 0.005678 = 1.239678, six digits: 1.23968.
    EXPECT_TRUE(same(add(num(3, "1234", 0), num(3, "5678", -3)), num(3, "123968", 0)));
    // 12.34 + 0.5678 = 12.9078.
    EXPECT_TRUE(same(add(num(3, "1234", 1), num(3, "5678", -1)), num(3, "129078", 1)));
}

TEST(BigNumAdd, CarryOutOfTheTopGivesLeadingOneAndExponentPlusOne) {
    EXPECT_TRUE(same(add(num(2, "9999", 1), num(2, "1", -2)), num(2, "1", 2)));
    const std::string nines(96, '9');
    EXPECT_TRUE(same(add(num(48, nines, 1), num(48, "1", -94)), num(48, "1", 2)));
}

TEST(BigNumAdd, CarryRoundsOnTheShiftedOutDigit) {
    // 9.999 + 0.006 = 10.005 -> 1.001e1 (half up); 9.999 + 0.0015 = 10.0005 -> 1.000e1.
    EXPECT_TRUE(same(add(num(2, "9999", 0), num(2, "6", -3)), num(2, "1001", 1)));
    EXPECT_TRUE(same(add(num(2, "9999", 0), num(2, "15", -3)), num(2, "1", 1)));
}

TEST(BigNumAdd, RoundsHalfUpOnTheGuard) {
    EXPECT_TRUE(same(add(num(2, "1", 0), num(2, "5", -4)), num(2, "1001", 0)));
    EXPECT_TRUE(same(add(num(2, "1", 0), num(2, "4999", -4)), num(2, "1", 0)));
    EXPECT_TRUE(same(add(num(2, "1", 0, -1), num(2, "5", -4, -1)), num(2, "1001", 0, -1)));
}

TEST(BigNumAdd, DifferentSignsSubtract) {
    EXPECT_TRUE(same(add(fromInt(2, 5), fromInt(2, -7)), num(2, "2", 0, -1)));
    EXPECT_TRUE(same(add(fromInt(2, -5), fromInt(2, 7)), num(2, "2", 0)));
    EXPECT_TRUE(same(add(fromInt(2, -5), fromInt(2, 5)), makeZero(2)));
}

TEST(BigNumAdd, ResultTakesTheLargerLength) {
    EXPECT_TRUE(same(add(num(2, "15", 0), num(5, "25", 0)), num(5, "4", 0)));
    EXPECT_TRUE(same(add(num(5, "15", 0), makeZero(2)), num(5, "15", 0)));
    EXPECT_TRUE(same(add(makeZero(6), num(3, "15", 0, -1)), num(6, "15", 0, -1)));
}

TEST(BigNumAdd, InfinityPlusMinusInfinityIsNaN) {
    expectCanonicalNaN(add(makeInfinity(3, 1), makeInfinity(3, -1)));
    expectCanonicalNaN(add(makeInfinity(3, -1), makeInfinity(3, 1)));
}

TEST(BigNumAdd, SpecialValues) {
    expectCanonicalNaN(add(makeNaN(), fromInt(4, 1)));
    expectCanonicalNaN(add(fromInt(4, 1), makeNaN()));
    expectInfinity(add(makeInfinity(3, 1), makeInfinity(3, 1)), 3, 1);
    expectInfinity(add(makeInfinity(2, -1), fromInt(4, 5)), 4, -1);
    expectInfinity(add(fromInt(4, 5), makeInfinity(2, -1)), 4, -1);
}

TEST(BigNumAdd, ExponentOverflowGivesInfinity) {
    expectInfinity(add(num(2, "99", kMaxExponent), num(2, "99", kMaxExponent)), 2, 1);
}

TEST(BigNumSubtract, InfinityMinusInfinityIsNaN) {
    expectCanonicalNaN(subtract(makeInfinity(3, 1), makeInfinity(3, 1)));
    expectCanonicalNaN(subtract(makeInfinity(3, -1), makeInfinity(3, -1)));
}

TEST(BigNumSubtract, SpecialValues) {
    expectCanonicalNaN(subtract(makeNaN(), fromInt(2, 1)));
    expectInfinity(subtract(makeInfinity(3, 1), makeInfinity(3, -1)), 3, 1);
    expectInfinity(subtract(makeInfinity(3, -1), fromInt(3, 5)), 3, -1);
    expectInfinity(subtract(fromInt(3, 5), makeInfinity(3, 1)), 3, -1);
    expectInfinity(subtract(fromInt(3, 5), makeInfinity(3, -1)), 3, 1);
}

TEST(BigNumSubtract, ZeroOperands) {
    EXPECT_TRUE(same(subtract(num(3, "25", 0), makeZero(2)), num(3, "25", 0)));
    EXPECT_TRUE(same(subtract(makeZero(2), num(3, "25", 0)), num(3, "25", 0, -1)));
    EXPECT_TRUE(same(subtract(makeZero(4), num(3, "25", 0, -1)), num(4, "25", 0)));
}

TEST(BigNumSubtract, LargerSubtrahendNegatesTheResult) {
    EXPECT_TRUE(same(subtract(fromInt(2, 3), fromInt(2, 5)), num(2, "2", 0, -1)));
    EXPECT_TRUE(same(subtract(fromInt(2, -3), fromInt(2, -5)), num(2, "2", 0)));
    EXPECT_TRUE(same(subtract(fromInt(2, 3), fromInt(2, -5)), num(2, "8", 0)));
    EXPECT_TRUE(same(subtract(fromInt(2, 7), fromInt(2, 7)), makeZero(2)));
}

TEST(BigNumSubtract, CancellationNormalisesWithTheGuard) {
    // 1.000 - 0.01235 = 0.98765: one-digit shift, rounded on the guard's 5.
    EXPECT_TRUE(same(subtract(num(2, "1", 0), num(2, "1235", -2)), num(2, "9877", -1)));
    // 1.000 - 0.9995 = 0.0005 lies wholly in the guard.
    EXPECT_TRUE(same(subtract(num(2, "1", 0), num(2, "9995", -1)), num(2, "5", -4)));
    // 1.2345678 - 1.2345600 = 7.8e-6.
    EXPECT_TRUE(same(subtract(num(4, "12345678", 0), num(4, "123456", 0)), num(4, "78", -6)));
}

TEST(BigNumSubtract, DropsSubtrahendDigitsBelowTheGuard) {
    // 5 - 0.0005001 = 4.9994999, but the subtrahend is read only down to the
    // guard pair (0.00050), so the guard is 50 and the result rounds to 5.000.
    EXPECT_TRUE(same(subtract(num(2, "5", 0), num(2, "5001", -4)), num(2, "5", 0)));
}

// --- Multiplication -------------------------------------------------------------

TEST(BigNumMultiply, ExactProducts) {
    EXPECT_TRUE(same(multiply(fromInt(2, 12), fromInt(2, 12)), num(2, "144", 2)));
    EXPECT_TRUE(same(multiply(fromInt(3, -25), fromInt(3, 4)), num(3, "1", 2, -1)));
    EXPECT_TRUE(same(multiply(num(4, "15", -3), num(4, "15", 5)), num(4, "225", 2)));
}

TEST(BigNumMultiply, OneDigitNormalisationRoundsOnTheGuard) {
    // 2.223 x 2.2 = 4.8906 -> 4.891 (exponent 0 + 0 + 1, shifted by one).
    EXPECT_TRUE(same(multiply(num(2, "2223", 0), num(2, "22", 0)), num(2, "4891", 0)));
}

TEST(BigNumMultiply, ColumnsUnderTheGuardCarryIntoIt) {
    // 9.999 x 9.999 = 99.980001: the lowest pair product 99 x 99 lies under the
    // guard; its carry still reaches the guard, so the result is 99.98, not 99.97.
    EXPECT_TRUE(same(multiply(num(2, "9999", 0), num(2, "9999", 0)), num(2, "9998", 1)));
    // 1.999 x 4.999 = 9.993001 keeps its last digit through the normalising shift.
    EXPECT_TRUE(same(multiply(num(2, "1999", 0), num(2, "4999", 0)), num(2, "9993", 0)));
}

TEST(BigNumMultiply, SpecialValues) {
    expectCanonicalNaN(multiply(makeNaN(), fromInt(2, 3)));
    EXPECT_TRUE(same(multiply(makeZero(3), makeInfinity(4, 1)), makeZero(4)));   // zero is tested first
    expectInfinity(multiply(makeInfinity(2, 1), fromInt(3, -2)), 3, -1);
    expectInfinity(multiply(makeInfinity(2, -1), makeInfinity(2, -1)), 2, 1);
}

TEST(BigNumMultiply, ExponentWrapGivesInfinity) {
    const BigNum big = multiply(num(2, "2", kMaxExponent), num(2, "3", 1, -1));
    expectInfinity(big, 2, -1);
    EXPECT_EQ(big.exponent, 0);
    expectInfinity(multiply(num(2, "2", kMinExponent), num(2, "3", -5)), 2, 1);
}

TEST(BigNumMultiply, InPlace) {
    BigNum a = fromInt(3, 7);
    multiplyInPlace(a, fromInt(3, 6));
    EXPECT_TRUE(same(a, num(3, "42", 1)));
}

// --- Division -------------------------------------------------------------------

TEST(BigNumDivide, FiveDividedByZeroIsNaN) {
    const BigNum r = divide(fromInt(3, 5), makeZero(2));
    EXPECT_TRUE(r.isNaN());
    EXPECT_EQ(r.length(), 3);
    EXPECT_EQ(r.sign, 0);
    for (uint8_t byte : r.digits) EXPECT_EQ(byte, 0);
}

TEST(BigNumDivide, ZeroDividedByZeroIsNaNWithMantissaOne) {
    const BigNum r = divide(makeZero(4), makeZero(2));
    EXPECT_TRUE(r.isNaN());
    EXPECT_EQ(r.length(), 4);
    EXPECT_EQ(r.sign, 1);
    EXPECT_EQ(r.exponent, 0);
    EXPECT_EQ(decimalDigitAt(r, 0), 1);
    for (int32_t k = 1; k < 8; ++k) EXPECT_EQ(decimalDigitAt(r, k), 0);
}

TEST(BigNumDivide, ExactQuotients) {
    EXPECT_TRUE(same(divide(fromInt(2, 10), fromInt(2, 4)), num(2, "25", 0)));
    EXPECT_TRUE(same(divide(fromInt(2, 1), fromInt(2, 8)), num(2, "125", -1)));
    EXPECT_TRUE(same(divide(fromInt(2, 144), fromInt(2, 12)), num(2, "12", 1)));
    EXPECT_TRUE(same(divide(fromInt(2, -6), fromInt(2, 3)), num(2, "2", 0, -1)));
    EXPECT_TRUE(same(divide(fromInt(4, 9999), fromInt(4, -9)), num(4, "1111", 3, -1)));
    EXPECT_TRUE(same(divide(num(48, "1", 0), num(48, "25", -3)), num(48, "4", 2)));
}

TEST(BigNumDivide, RoundsUpOnlyWhenTheRemainderPairExceeds50) {
    // 2.001 / 2 = 1.0005: the final pair is exactly 50 and does not round.
    EXPECT_TRUE(same(divide(num(2, "2001", 0), fromInt(2, 2)), num(2, "1", 0)));
    // 8 / 3 = 2.6666...: the final pair 66 rounds up.
    EXPECT_TRUE(same(divide(fromInt(2, 8), fromInt(2, 3)), num(2, "2667", 0)));
    // 7 / 3 = 2.3333...: 33 does not.
    EXPECT_TRUE(same(divide(fromInt(2, 7), fromInt(2, 3)), num(2, "2333", 0)));
}

TEST(BigNumDivide, NormalisedQuotientTakesTheCorrectionDigits) {
    // 1.001 / 2 = 0.5005: the leading zero is shifted out and the correction's
    // digits complete the mantissa.
    EXPECT_TRUE(same(divide(num(2, "1001", 0), fromInt(2, 2)), num(2, "5005", -1)));
    EXPECT_TRUE(same(divide(fromInt(2, 1), fromInt(2, 3)), num(2, "3333", -1)));
    EXPECT_TRUE(same(divide(fromInt(2, 2), fromInt(2, 3)), num(2, "6667", -1)));
}

TEST(BigNumDivide, LongQuotientWithinOneUnit) {
    const std::string sevenths = [] {
        std::string s;
        for (int i = 0; i < 16; ++i) s += "142857";
        return s;
    }();
    const BigNum q = divide(fromInt(48, 1), fromInt(48, 7));
    const int c = compare(q, num(48, sevenths, -1));
    EXPECT_TRUE(c >= -1 && c <= 1) << describe(q);
}

TEST(BigNumDivide, ResultTakesTheLargerLength) {
    const BigNum q = divide(fromInt(2, 1), fromInt(5, 4));
    EXPECT_TRUE(same(q, num(5, "25", -1)));
}

TEST(BigNumDivide, SpecialValues) {
    expectCanonicalNaN(divide(makeNaN(), fromInt(2, 1)));
    expectCanonicalNaN(divide(fromInt(2, 1), makeNaN()));
    expectInfinity(divide(makeInfinity(3, 1), fromInt(3, -2)), 3, -1);
    expectCanonicalNaN(divide(makeInfinity(3, 1), makeInfinity(3, 1)));
    EXPECT_TRUE(same(divide(fromInt(3, 2), makeInfinity(3, 1)), makeZero(3)));
    EXPECT_TRUE(same(divide(makeZero(3), fromInt(4, 5)), makeZero(4)));
    EXPECT_TRUE(divide(makeInfinity(3, 1), makeZero(3)).isNaN());
}

TEST(BigNumDivide, ExponentWrapGivesInfinity) {
    expectInfinity(divide(num(2, "2", kMaxExponent), num(2, "3", -1)), 2, 1);
    expectInfinity(divide(num(2, "2", kMinExponent, -1), num(2, "3", 2)), 2, -1);
}

TEST(BigNumDivide, InPlace) {
    BigNum a = fromInt(3, 42);
    divideInPlace(a, fromInt(3, 6));
    EXPECT_TRUE(same(a, num(3, "7", 0)));
    BigNum b = fromInt(3, 40);
    addInPlace(b, fromInt(3, 2));
    EXPECT_TRUE(same(b, num(3, "42", 1)));
}

// --- Square root ------------------------------------------------------------------

TEST(BigNumSquareRoot, SpecialValues) {
    expectCanonicalNaN(squareRoot(makeNaN()));
    EXPECT_TRUE(same(squareRoot(makeZero(5)), makeZero(5)));
    expectCanonicalNaN(squareRoot(fromInt(6, -4)));
    expectInfinity(squareRoot(makeInfinity(4, 1)), 4, 1);
}

TEST(BigNumSquareRoot, PerfectSquaresAreExact) {
    EXPECT_TRUE(same(squareRoot(fromInt(10, 16)), num(10, "4", 0)));
    EXPECT_TRUE(same(squareRoot(fromInt(10, 144)), num(10, "12", 1)));
    EXPECT_TRUE(same(squareRoot(num(10, "25", -1)), num(10, "5", -1)));
    EXPECT_TRUE(same(squareRoot(num(48, "1", 10)), num(48, "1", 5)));
    EXPECT_TRUE(same(squareRoot(num(48, "9", -10)), num(48, "3", -5)));
    EXPECT_TRUE(same(squareRoot(num(2, "1", 2000000000)), num(2, "1", 1000000000)));
}

TEST(BigNumSquareRoot, SmallestExponentStillConverges) {
    EXPECT_TRUE(same(squareRoot(num(6, "1", kMinExponent)), num(6, "1", kMinExponent / 2)));
    EXPECT_TRUE(same(squareRoot(num(6, "4", kMaxExponent - 1)), num(6, "2", (kMaxExponent - 1) / 2)));
}

TEST(BigNumSquareRoot, SquareRootOfTwoWithinOneUnit) {
    // The first 96 digits of sqrt 2 (the 97th is 1, so they are also the
    // rounded value).
    const std::string root2 =
        "141421356237309504880168872420969807856967187537694807317667973799073247846210703885038753432764";
    const BigNum r = squareRoot(fromInt(48, 2));
    const int c = compare(r, num(48, root2, 0));
    EXPECT_TRUE(c >= -1 && c <= 1) << describe(r);
}

}  // namespace
}  // namespace quorvel
