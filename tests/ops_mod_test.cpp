// `mod` and `red`: floored remainder and reduction by the top entry.
#include "tests/ops_testing.h"

namespace quorvel::test {
namespace {

using Mod = HandlerTest;
using Red = HandlerTest;

// Runs `handler` on the Integers y and x alone and takes the result off.
Item runInts(AppState& app, Handler handler, int32_t y, int32_t x) {
    app.stack.freeAll();
    app.stack.push(Item::integer(bigIntFromI32(y)));
    app.stack.push(Item::integer(bigIntFromI32(x)));
    handler(app, app.stack);
    return std::move(*app.stack.pop());
}

int32_t asInt(const Item& item) {
    int32_t value = 0;
    EXPECT_EQ(item.type, ItemType::Integer);
    if (item.type == ItemType::Integer) {
        EXPECT_TRUE(BigIntToInt32(item.asInteger(), value));
    }
    return value;
}

// Floored remainder of machine integers, the oracle for the sweep.
int32_t flooredMod(int32_t y, int32_t x) {
    int32_t r = y % x;
    if (r != 0 && ((r < 0) != (x < 0))) r += x;
    return r;
}

TEST_F(Mod, PositiveOperands) {
    pushInt(7);
    pushInt(3);
    opMod(app, app.stack);
    EXPECT_EQ(app.stack.count(), 1);
    EXPECT_TRUE(topIsInteger(1));
}

TEST_F(Mod, NegativeDividendGivesANonNegativeResult) {
    pushInt(-7);
    pushInt(3);
    opMod(app, app.stack);
    EXPECT_TRUE(topIsInteger(2));
}

TEST_F(Mod, NegativeDivisorGivesTheDivisorsSign) {
    pushInt(7);
    pushInt(-3);
    opMod(app, app.stack);
    EXPECT_TRUE(topIsInteger(-2));
}

TEST_F(Mod, ResultLiesInZeroUpToTheTopForEveryIntegerPair) {
    for (int32_t y = -30; y <= 30; ++y) {
        for (int32_t x = -7; x <= 7; ++x) {
            if (x == 0) continue;
            const int32_t r = asInt(runInts(app, opMod, y, x));
            EXPECT_EQ(r, flooredMod(y, x)) << y << " mod " << x;
            if (x > 0) {
                EXPECT_TRUE(r >= 0 && r < x) << y << " mod " << x;
            } else {
                EXPECT_TRUE(r <= 0 && r > x) << y << " mod " << x;
            }
        }
    }
}

TEST_F(Mod, RealRemainder) {
    pushReal(u"7.5");
    pushInt(2);
    opMod(app, app.stack);
    EXPECT_TRUE(topIsReal(u"1.5"));
}

TEST_F(Mod, NegativeRealDividend) {
    pushReal(u"-0.5");
    pushInt(2);
    opMod(app, app.stack);
    EXPECT_TRUE(topIsReal(u"1.5"));
}

TEST_F(Mod, RealRemainderIsExactForALongQuotient) {
    pushReal(u"1E30");
    pushInt(7);
    opMod(app, app.stack);
    EXPECT_TRUE(topIsReal(u"1"));   // 10^30 = 7 * 142857142857142857142857142857 + 1
}

TEST_F(Mod, RealRemainderKeepsTheFractionDigits) {
    pushReal(u"123456789.125");
    pushReal(u"0.25");
    opMod(app, app.stack);
    EXPECT_TRUE(topIsReal(u"0.125"));
}

TEST_F(Mod, RealDividendSmallerThanTheDivisorIsItself) {
    pushReal(u"0.001");
    pushInt(5);
    opMod(app, app.stack);
    EXPECT_TRUE(topIsReal(u"0.001"));
}

TEST_F(Mod, ExactMultipleGivesZero) {
    pushReal(u"7.5");
    pushReal(u"2.5");
    opMod(app, app.stack);
    EXPECT_TRUE(topIsReal(u"0"));
}

TEST_F(Mod, RealSweepStaysInRange) {
    const char16_t* dividends[] = {u"-10.75", u"-3.3", u"-0.1", u"0", u"0.1", u"3.3", u"10.75", u"99.99"};
    const char16_t* divisors[] = {u"0.3", u"1.1", u"2.5", u"7"};
    for (const char16_t* y : dividends) {
        for (const char16_t* x : divisors) {
            app.stack.freeAll();
            pushReal(y);
            pushReal(x);
            opMod(app, app.stack);
            ASSERT_EQ(app.stack.at(0)->type, ItemType::Real);
            const BigNum& r = app.stack.at(0)->asReal();
            EXPECT_GE(compare(r, makeZero(2)), 0) << toUtf8(y) << " mod " << toUtf8(x);
            EXPECT_LT(compare(r, number(x)), 0) << toUtf8(y) << " mod " << toUtf8(x);
        }
    }
}

// A zero divisor, a non-finite operand or a quotient too long to work out
// gives NaN.
TEST_F(Mod, ZeroDivisorIsNaN) {
    pushInt(5);
    pushInt(0);
    opMod(app, app.stack);
    EXPECT_TRUE(topIsNaN());
}

TEST_F(Mod, InfiniteDividendIsNaN) {
    push(Item::real(makeInfinity(app.workingLength, 1)));
    pushInt(3);
    opMod(app, app.stack);
    EXPECT_TRUE(topIsNaN());
}

TEST_F(Mod, HugeQuotientIsNaN) {
    pushReal(u"1E5000");
    pushInt(7);
    opMod(app, app.stack);
    EXPECT_TRUE(topIsNaN());
}

TEST_F(Mod, EqualUnitsAreKept) {
    pushInt(7, metres());
    pushInt(3, metres());
    opMod(app, app.stack);
    EXPECT_TRUE(topIsInteger(1, metres()));
}

TEST_F(Mod, AllEightExponentsAreCompared) {
    pushInt(7, radians());
    pushInt(3);
    EXPECT_TRUE(refuses(opMod, u"Incompatible Units"));
}

TEST_F(Mod, IncompatibleUnits) {
    pushInt(7, metres());
    pushInt(3, seconds());
    EXPECT_TRUE(refuses(opMod, u"Incompatible Units"));
}

TEST_F(Mod, InvalidDataType) {
    pushInt(7);
    push(Item::string(u"3"));
    EXPECT_TRUE(refuses(opMod, u"Invalid Data Type"));
}

TEST_F(Mod, MissingOperand) {
    pushInt(3);
    EXPECT_TRUE(refuses(opMod, u"Missing Operand"));
}

TEST_F(Mod, WordSizeReducesANegativeResult) {
    app.wsize = 8;
    pushInt(7);
    pushInt(-3);
    opMod(app, app.stack);
    EXPECT_TRUE(topIsInteger(254));
}

// --- red --------------------------------------------------------------------

TEST_F(Red, EvenDivisorRange) {
    // -x/2 <= r < x/2 for x = 4: -2, -1, 0, 1.
    const int32_t expected[] = {0, 1, -2, -1};
    for (int32_t y = 0; y < 12; ++y) EXPECT_EQ(asInt(runInts(app, opRed, y, 4)), expected[y % 4]) << y;
}

TEST_F(Red, OddDivisorRange) {
    // x = 5: -2 .. 2.
    const int32_t expected[] = {0, 1, 2, -2, -1};
    for (int32_t y = -10; y < 10; ++y)
        EXPECT_EQ(asInt(runInts(app, opRed, y, 5)), expected[flooredMod(y, 5)]) << y;
}

TEST_F(Red, ResultLiesInMinusHalfToHalfForEveryIntegerPair) {
    for (int32_t y = -30; y <= 30; ++y) {
        for (int32_t x = -7; x <= 7; ++x) {
            if (x == 0) continue;
            const int32_t r = asInt(runInts(app, opRed, y, x));
            EXPECT_EQ(flooredMod(y - r, x), 0) << y << " red " << x;   // congruent to y
            if (x > 0) {
                EXPECT_TRUE(-x <= 2 * r && 2 * r < x) << y << " red " << x << " = " << r;
            } else {
                EXPECT_TRUE(x < 2 * r && 2 * r <= -x) << y << " red " << x << " = " << r;
            }
        }
    }
}

TEST_F(Red, HalfGoesToTheNegativeSide) {
    pushReal(u"2.5");
    pushInt(5);
    opRed(app, app.stack);
    EXPECT_TRUE(topIsReal(u"-2.5"));
}

TEST_F(Red, RealReduction) {
    pushReal(u"7.25");
    pushInt(2);
    opRed(app, app.stack);
    EXPECT_TRUE(topIsReal(u"-0.75"));
}

TEST_F(Red, RealBelowHalfStays) {
    pushReal(u"6.75");
    pushInt(2);
    opRed(app, app.stack);
    EXPECT_TRUE(topIsReal(u"0.75"));
}

TEST_F(Red, ZeroDivisorIsNaN) {
    pushReal(u"1.5");
    pushReal(u"0");
    opRed(app, app.stack);
    EXPECT_TRUE(topIsNaN());
}

TEST_F(Red, IncompatibleUnits) {
    pushInt(7, metres());
    pushInt(3);
    EXPECT_TRUE(refuses(opRed, u"Incompatible Units"));
}

TEST_F(Red, InvalidDataType) {
    push(Item::string(u"7"));
    pushInt(3);
    EXPECT_TRUE(refuses(opRed, u"Invalid Data Type"));
}

TEST_F(Red, MissingOperand) { EXPECT_TRUE(refuses(opRed, u"Missing Operand")); }

}  // namespace
}  // namespace quorvel::test
