// Complex values: construction, arithmetic, the elementary functions and the
// integer power with its two paths. Accuracy over the plane is checked by
// elementary_vectors_test.cpp (the c* cases).
#include <gtest/gtest.h>

#include <string>

#include "abort_testing.h"
#include "numeric/complex.h"
#include "numeric/elementary.h"
#include "numeric/mathcontext.h"
#include "numeric/numtext.h"

namespace quorvel {
namespace {

using test::CountingPoller;

constexpr int32_t L = 14;

BigNum real(std::u16string_view text, int32_t length = L) { return ParseReal(length, text); }

ComplexNum z(std::u16string_view re, std::u16string_view im, int32_t length = L) {
    return ComplexNum{real(re, length), real(im, length)};
}

// "re | im", each part as the display shows it at 12 digits, in ASCII.
std::string shown(const ComplexNum& w) {
    return toUtf8(FormatReal(w.re, 12, fmt::PlainText)) + " | " + toUtf8(FormatReal(w.im, 12, fmt::PlainText));
}

// --- Construction ----------------------------------------------------------------

TEST(ComplexConstruction, ZeroFromIntFromPartsAndResized) {
    const ComplexNum zero = complexZero(L);
    EXPECT_TRUE(zero.re.isZero() && zero.im.isZero());
    EXPECT_EQ(zero.re.length(), L);
    EXPECT_EQ(zero.im.length(), L);

    const ComplexNum seven = complexFromInt(L, -7);
    EXPECT_EQ(seven.re, fromInt(L, -7));
    EXPECT_EQ(seven.im, makeZero(L));

    const ComplexNum realOnly = complexFromParts(real(u"2.5", 9));
    EXPECT_EQ(realOnly.im, makeZero(9));
    const ComplexNum both = complexFromParts(real(u"1"), real(u"-2"));
    EXPECT_EQ(shown(both), "1. | -2.");

    const ComplexNum wide = resized(both, 30);
    EXPECT_EQ(wide.re.length(), 30);
    EXPECT_EQ(wide.im.length(), 30);
    EXPECT_EQ(shown(wide), "1. | -2.");
}

// --- Arithmetic ------------------------------------------------------------------

TEST(ComplexArithmetic, AddSubtractMultiplyDivide) {
    const ComplexNum a = z(u"1", u"2");
    const ComplexNum b = z(u"3", u"4");
    EXPECT_EQ(shown(add(a, b)), "4. | 6.");
    EXPECT_EQ(shown(subtract(a, b)), "-2. | -2.");
    EXPECT_EQ(shown(multiply(a, b)), "-5. | 10.");
    EXPECT_EQ(shown(divide(a, b)), "0.44 | 0.08");
}

TEST(ComplexArithmetic, InPlaceFormsAssignTheResult) {
    ComplexNum a = z(u"1", u"2");
    addInPlace(a, z(u"1", u"1"));
    EXPECT_EQ(shown(a), "2. | 3.");
    subtractInPlace(a, z(u"0", u"1"));
    EXPECT_EQ(shown(a), "2. | 2.");
    multiplyInPlace(a, z(u"0", u"1"));
    EXPECT_EQ(shown(a), "-2. | 2.");
    divideInPlace(a, z(u"2", u"0"));
    EXPECT_EQ(shown(a), "-1. | 1.");
}

TEST(ComplexArithmetic, ISquaredIsMinusOne) {
    const ComplexNum i = z(u"0", u"1");
    const ComplexNum square = multiply(i, i);
    EXPECT_EQ(square.re, fromInt(L, -1));
    EXPECT_TRUE(square.im.isZero());
}

TEST(ComplexArithmetic, DivisionByZeroGivesNaNParts) {
    const ComplexNum q = divide(z(u"1", u"1"), complexZero(L));
    EXPECT_TRUE(q.re.isNaN());
    EXPECT_TRUE(q.im.isNaN());
}

TEST(ComplexArithmetic, Modulus) {
    EXPECT_EQ(toUtf8(FormatReal(complexModulus(z(u"3", u"4")), 12, fmt::PlainText)), "5.");
    EXPECT_EQ(complexModulus(z(u"3", u"4")).length(), L);
    EXPECT_TRUE(complexModulus(complexZero(L)).isZero());
}

// --- Functions -------------------------------------------------------------------

TEST(ComplexFunctions, SquareRootOfARealIsExact) {
    MathContext m;
    const ComplexNum minusFour = squareRoot(m, z(u"-4", u"0"));
    EXPECT_TRUE(minusFour.re.isZero());
    EXPECT_EQ(minusFour.im, fromInt(L, 2));
    const ComplexNum four = squareRoot(m, z(u"4", u"0"));
    EXPECT_EQ(four.re, fromInt(L, 2));
    EXPECT_TRUE(four.im.isZero());
}

TEST(ComplexFunctions, SquareRootOffTheRealAxis) {
    MathContext m;
    EXPECT_EQ(shown(squareRoot(m, z(u"3", u"4"))), "2. | 1.");
    EXPECT_EQ(shown(squareRoot(m, z(u"0", u"2"))), "1. | 1.");
    EXPECT_EQ(shown(squareRoot(m, z(u"-3", u"-4"))), "1. | -2.");
}

TEST(ComplexFunctions, ExpAndLn) {
    MathContext m;
    const ComplexNum iPi{makeZero(L), *m.GetConstant(L, 'p')};
    EXPECT_EQ(shown(Exp(m, iPi)).substr(0, 4), "-1. ");
    const ComplexNum lnMinusOne = Ln(m, z(u"-1", u"0"));
    EXPECT_TRUE(lnMinusOne.re.isZero());
    EXPECT_EQ(lnMinusOne.im, *m.GetConstant(L, 'p'));
    EXPECT_EQ(shown(Ln(m, z(u"0", u"1"))), "0. | 1.57079632679");
    const ComplexNum realExp = Exp(m, z(u"1", u"0"));
    EXPECT_TRUE(realExp.im.isZero());
    EXPECT_EQ(shown(realExp), "2.71828182846 | 0.");
}

TEST(ComplexFunctions, CircularAndHyperbolic) {
    MathContext m;
    const ComplexNum w = z(u"1", u"1");
    EXPECT_EQ(shown(Sin(m, w)), "1.29845758142 | 0.634963914785");
    EXPECT_EQ(shown(Cos(m, w)), "0.833730025131 | -0.988897705763");
    EXPECT_EQ(shown(Tan(m, w)), "0.27175258532 | 1.08392332734");
    EXPECT_EQ(shown(Sinh(m, w)), "0.634963914785 | 1.29845758142");
    EXPECT_EQ(shown(Cosh(m, w)), "0.833730025131 | 0.988897705763");
    EXPECT_EQ(shown(Tanh(m, w)), "1.08392332734 | 0.27175258532");
}

TEST(ComplexFunctions, InverseCircular) {
    MathContext m;
    const ComplexNum w = z(u"1", u"1");
    EXPECT_EQ(shown(Asin(m, w)), "0.666239432493 | 1.06127506191");
    EXPECT_EQ(shown(Acos(m, w)), "0.904556894302 | -1.06127506191");
    EXPECT_EQ(shown(Atan(m, w)), "1.0172219679 | 0.402359478109");
    // The inverse undoes the function.
    EXPECT_EQ(shown(Sin(m, Asin(m, z(u"0.3", u"-0.7")))), "0.3 | -0.7");
}

TEST(ComplexFunctions, PowersWithComplexAndRealExponents) {
    MathContext m;
    EXPECT_EQ(shown(Power(m, z(u"0", u"1"), z(u"0", u"1"))), "0.207879576351 | 0.");
    // exp(x ln z) leaves the rounding of cos(pi/2) in a part that should be
    // zero: a residue below the working precision.
    const ComplexNum square = Power(m, z(u"1", u"1"), real(u"2"));
    EXPECT_EQ(toUtf8(FormatReal(square.im, 12, fmt::PlainText)), "2.");
    EXPECT_LT(square.re.exponent, -2 * L + 2);
    const ComplexNum root = Power(m, z(u"-8", u"0"), real(u"0.5"));
    EXPECT_EQ(toUtf8(FormatReal(root.im, 12, fmt::PlainText)), "2.82842712475");
    EXPECT_LT(root.re.exponent, -2 * L + 2);
}

// --- Integer power ------------------------------------------------------------------

TEST(ComplexPowerInt, ZeroOneAndMinusOne) {
    MathContext m;
    const ComplexNum w = z(u"1", u"1");
    EXPECT_EQ(PowerInt(m, w, bigIntFromI32(0)), complexFromInt(L, 1));
    EXPECT_EQ(PowerInt(m, w, bigIntFromI32(1)), w);
    EXPECT_EQ(shown(PowerInt(m, w, bigIntFromI32(-1))), "0.5 | -0.5");
    EXPECT_EQ(shown(PowerInt(m, w, bigIntFromI32(-2))), "0. | -0.5");
}

TEST(ComplexPowerInt, SquaringIsExactOnGaussianIntegers) {
    MathContext m;
    EXPECT_EQ(shown(PowerInt(m, z(u"1", u"1"), bigIntFromI32(10))), "0. | 32.");
    EXPECT_EQ(shown(PowerInt(m, z(u"2", u"-1"), bigIntFromI32(7))), "-278. | 29.");
}

TEST(ComplexPowerInt, Exponent65535GoesThroughRepeatedSquaring) {
    CountingPoller counter;
    MathContext m(counter);
    const ComplexNum result = PowerInt(m, z(u"0", u"1"), bigIntFromI32(65535));
    // i^65535 = -i, exact through the products of units.
    EXPECT_TRUE(result.re.isZero());
    EXPECT_EQ(result.im, fromInt(L, -1));
    // One poll per round of squaring: 65535 has sixteen bits.
    EXPECT_EQ(counter.polls, 15);
}

TEST(ComplexPowerInt, Exponent65536GoesThroughExpOfNLnZ) {
    CountingPoller counter;
    MathContext m(counter);
    // The series of exp, ln, atan2, sin and cos poll far more often than the
    // fifteen rounds of squaring would.
    const ComplexNum unit = PowerInt(m, z(u"0.6", u"0.8"), bigIntFromI32(65536));
    EXPECT_GT(counter.polls, 30);
    EXPECT_EQ(shown(unit), "0.968635737274 | 0.248485026664");
    // i^65536 is 1 only to the working precision along this path.
    const ComplexNum one = PowerInt(m, z(u"0", u"1"), bigIntFromI32(65536));
    EXPECT_EQ(toUtf8(FormatReal(one.re, 12, fmt::PlainText)), "1.");
    EXPECT_LT(one.im.exponent, -2 * L + 2);
    const ComplexNum real = PowerInt(m, z(u"1.0001", u"0"), bigIntFromI32(65536));
    EXPECT_EQ(shown(real), "701.536087702 | 0.");
}

TEST(ComplexPowerInt, AbortStopsTheSquaringWithThePartialProduct) {
    CountingPoller stopper(1);
    MathContext m(stopper);
    const ComplexNum w = z(u"1.5", u"0.5");
    // 65535 is odd: the first round takes z into the product, then squares
    // and polls; stopped there the product is z itself.
    EXPECT_EQ(PowerInt(m, w, bigIntFromI32(65535)), w);
    EXPECT_TRUE(stopper.aborted());
    EXPECT_EQ(stopper.polls, 1);
}

}  // namespace
}  // namespace quorvel
