// Named cases of the elementary functions: special arguments, the kept
// argument reductions, the series cores and abort polling. The accuracy over
// each function's domain is checked by elementary_vectors_test.cpp.
#include <gtest/gtest.h>

#include <string>

#include "abort_testing.h"
#include "numeric/elementary.h"
#include "numeric/elementary_detail.h"
#include "numeric/mathcontext.h"
#include "numeric/numtext.h"

namespace quorvel {
namespace {

using test::CountingPoller;

constexpr int32_t L = 14;   // the working length of Digits 12

BigNum real(std::u16string_view text, int32_t length = L) { return ParseReal(length, text); }

// The value as the display shows it at `digits` significant digits, in ASCII.
std::string shown(const BigNum& x, int32_t digits = 12) { return toUtf8(FormatReal(x, digits, fmt::PlainText)); }

BigNum pi(MathContext& m, int32_t length = L) { return *m.GetConstant(length, 'p'); }

// --- Exp ---------------------------------------------------------------------------

TEST(Exp, OfTenToTheTwelveIsInfinityAndOfMinusTenToTheTwelveIsZero) {
    MathContext m;
    const BigNum big = Exp(m, real(u"1e12"));
    EXPECT_TRUE(big.isInfinite());
    EXPECT_EQ(big.sign, 1);
    EXPECT_TRUE(Exp(m, real(u"-1e12")).isZero());
}

TEST(Exp, QuotientByLnTenBeyondThirtyTwoBitsOverflows) {
    MathContext m;
    // 5e9 / ln 10 is about 2.2e9, past the signed 32-bit range.
    EXPECT_TRUE(Exp(m, real(u"5e9")).isInfinite());
    EXPECT_TRUE(Exp(m, real(u"-5e9")).isZero());
    // 4.9e9 / ln 10 still fits: a finite value near 10^2128042961.
    const BigNum large = Exp(m, real(u"4.9e9"));
    EXPECT_TRUE(large.isFinite());
    EXPECT_EQ(large.exponent, 2128042961);
}

TEST(Exp, OfZeroIsExactlyOne) {
    MathContext m;
    EXPECT_EQ(Exp(m, makeZero(L)), fromInt(L, 1));
}

TEST(Exp, NaNAndInfinities) {
    MathContext m;
    EXPECT_TRUE(Exp(m, makeNaN()).isNaN());
    EXPECT_TRUE(Exp(m, makeInfinity(L, 1)).isInfinite());
    EXPECT_TRUE(Exp(m, makeInfinity(L, -1)).isZero());
}

TEST(Exp, ResultHasTheArgumentsLength) {
    MathContext m;
    EXPECT_EQ(Exp(m, real(u"1.5", 9)).length(), 9);
    EXPECT_EQ(shown(Exp(m, real(u"1"))), "2.71828182846");
}

// --- Ln, Log10, Log2 ------------------------------------------------------------------

TEST(Ln, OfZeroIsMinusInfinity) {
    MathContext m;
    const BigNum r = Ln(m, makeZero(L));
    EXPECT_TRUE(r.isInfinite());
    EXPECT_EQ(r.sign, -1);
}

TEST(Ln, OfMinusOneIsNaN) {
    MathContext m;
    EXPECT_TRUE(Ln(m, real(u"-1")).isNaN());
}

TEST(Ln, OfOneIsExactlyZeroAndOfInfinityIsInfinity) {
    MathContext m;
    EXPECT_TRUE(Ln(m, real(u"1")).isZero());
    EXPECT_TRUE(Ln(m, makeInfinity(L, 1)).isInfinite());
}

TEST(Ln, MantissasEitherSideOfThreePointTwo) {
    MathContext m;
    // Below 3.2 the series runs on the mantissa, from 3.2 on on its root.
    EXPECT_EQ(shown(Ln(m, real(u"3.1999"))), "1.16311955932");
    EXPECT_EQ(shown(Ln(m, real(u"3.2"))), "1.16315080981");
    EXPECT_EQ(shown(Ln(m, real(u"3.2e-7"))), "-14.9549448412");
}

TEST(Log10, OfAThousandShowsThreeAndLogTwoOf1024ShowsTen) {
    MathContext m;
    EXPECT_EQ(shown(Log10(m, real(u"1000"))), "3.");
    EXPECT_EQ(shown(Log2(m, real(u"1024"))), "10.");
    EXPECT_TRUE(Log10(m, makeZero(L)).isInfinite());
    EXPECT_TRUE(Log2(m, real(u"-2")).isNaN());
}

// --- Powers ----------------------------------------------------------------------------

TEST(Power, ZeroBaseAndNegativeBase) {
    MathContext m;
    EXPECT_TRUE(Power(m, makeZero(L), real(u"2")).isZero());
    EXPECT_EQ(shown(Power(m, makeZero(L), makeZero(L))), "1.");
    EXPECT_TRUE(Power(m, makeZero(L), real(u"-2")).isInfinite());
    EXPECT_TRUE(Power(m, real(u"-2"), real(u"0.5")).isNaN());
    EXPECT_EQ(shown(Power(m, real(u"4"), real(u"0.5"))), "2.");
}

TEST(PowerInt, ZeroOneAndMinusOne) {
    MathContext m;
    const BigNum x = real(u"1.5");
    EXPECT_EQ(PowerInt(m, x, bigIntFromI32(0)), fromInt(L, 1));
    EXPECT_EQ(PowerInt(m, x, bigIntFromI32(1)), x);
    EXPECT_EQ(PowerInt(m, x, bigIntFromI32(-1)), divide(fromInt(L, 1), x));
    EXPECT_TRUE(PowerInt(m, makeZero(L), bigIntFromI32(-2)).isNaN());
}

TEST(PowerInt, SmallExponentsAreExact) {
    MathContext m;
    EXPECT_EQ(shown(PowerInt(m, real(u"2"), bigIntFromI32(10))), "1024.");
    EXPECT_EQ(shown(PowerInt(m, real(u"-3"), bigIntFromI32(5))), "-243.");
    EXPECT_EQ(shown(PowerInt(m, real(u"2"), bigIntFromI32(-2))), "0.25");
}

TEST(PowerInt, TwoLimbExponentGoesThroughPower) {
    MathContext m;
    BigInt n = bigIntFromI32(65536);
    EXPECT_EQ(shown(PowerInt(m, real(u"1.00001"), n)), shown(Power(m, real(u"1.00001"), real(u"65536"))));
    // Power takes the logarithm of the base, so a negative base gives NaN here.
    EXPECT_TRUE(PowerInt(m, real(u"-2"), n).isNaN());
}

TEST(PowerInt, PrimeExponent65521TakesItsMultiplicationsAndStaysAbortable) {
    const BigNum x = real(u"1.00001");
    const BigInt n = bigIntFromI32(65521);

    // Unstopped: one poll for each of the 6541 primes the divisor passes
    // before reaching 65521, one for each of the 65520 multiplications and
    // one for the last round.
    CountingPoller counter;
    MathContext m(counter);
    const BigNum full = PowerInt(m, x, n);
    EXPECT_EQ(counter.polls, 6541 + 65520 + 1);
    EXPECT_EQ(shown(full), "1.92554053162");

    // Stopped after ten multiplications: the partial power x^11, the very
    // value the same multiplications give for the prime 11.
    CountingPoller stopper(6541 + 10);
    MathContext stopped(stopper);
    const BigNum partial = PowerInt(stopped, x, n);
    EXPECT_TRUE(stopper.aborted());
    MathContext plain;
    EXPECT_EQ(partial, PowerInt(plain, x, bigIntFromI32(11)));
}

// --- Sin, Cos, Tan, Sinc ---------------------------------------------------------------

TEST(Sin, ZeroAndNonFinite) {
    MathContext m;
    EXPECT_TRUE(Sin(m, makeZero(L)).isZero());
    EXPECT_EQ(Cos(m, makeZero(L)), fromInt(L, 1));
    EXPECT_TRUE(Sin(m, makeInfinity(L, 1)).isNaN());
    EXPECT_TRUE(Cos(m, makeNaN()).isNaN());
}

TEST(Sin, EveryOctantOfBothSigns) {
    MathContext m;
    // Angles in each eighth of a turn, positive and negative.
    EXPECT_EQ(shown(Sin(m, real(u"0.5"))), "0.479425538604");
    EXPECT_EQ(shown(Sin(m, real(u"1.2"))), "0.932039085967");
    EXPECT_EQ(shown(Sin(m, real(u"2"))), "0.909297426826");
    EXPECT_EQ(shown(Sin(m, real(u"2.8"))), "0.334988150156");
    EXPECT_EQ(shown(Sin(m, real(u"3.5"))), "-0.35078322769");
    EXPECT_EQ(shown(Sin(m, real(u"4.5"))), "-0.977530117665");
    EXPECT_EQ(shown(Sin(m, real(u"5"))), "-0.958924274663");
    EXPECT_EQ(shown(Sin(m, real(u"6"))), "-0.279415498199");
    EXPECT_EQ(shown(Sin(m, real(u"-0.5"))), "-0.479425538604");
    EXPECT_EQ(shown(Sin(m, real(u"-2"))), "-0.909297426826");
    EXPECT_EQ(shown(Sin(m, real(u"-4.5"))), "0.977530117665");
    EXPECT_EQ(shown(Cos(m, real(u"-2.8"))), "-0.942222340669");
    EXPECT_EQ(shown(Cos(m, real(u"5"))), "0.283662185463");
}

TEST(Sin, OfPiAtTheWorkingLengthIsExactlyZero) {
    MathContext m;
    // The reduction divides by the same pi it is given, so the turn fraction
    // is exactly one half and the reduced argument exactly zero.
    EXPECT_TRUE(Sin(m, pi(m)).isZero());
    EXPECT_TRUE(Sin(m, pi(m, 48)).isZero());
}

TEST(OctantReduction, PositiveArgumentsStayWithinPiOfZero) {
    MathContext m;
    const auto small = elementary_detail::reduceOctant(m, real(u"0.1"));
    EXPECT_EQ(small.octant, 0);
    EXPECT_EQ(shown(small.r), "0.1");
    const auto four = elementary_detail::reduceOctant(m, real(u"4"));
    EXPECT_EQ(four.octant, 5);
    EXPECT_EQ(shown(four.r), "-2.28318530718");   // 4 - 2pi
}

TEST(OctantReduction, NegativeTurnFractionShiftsTheOtherWay) {
    MathContext m;
    // -0.1 lies in octant 7 and its r = -0.1 is moved by a further -2pi.
    const auto reduced = elementary_detail::reduceOctant(m, real(u"-0.1"));
    EXPECT_EQ(reduced.octant, 7);
    EXPECT_EQ(shown(reduced.r), "-6.38318530718");
    // -2 lies in octant 5 (8q + 8 = 5.45): r = -2 - 2pi.
    const auto two = elementary_detail::reduceOctant(m, real(u"-2"));
    EXPECT_EQ(two.octant, 5);
    EXPECT_EQ(shown(two.r), "-8.28318530718");
    // -4 lies in octant 2 (8q + 8 = 2.91) and is not shifted.
    const auto four = elementary_detail::reduceOctant(m, real(u"-4"));
    EXPECT_EQ(four.octant, 2);
    EXPECT_EQ(shown(four.r), "-4.");
}

TEST(OctantReduction, TinyNegativeArgumentRoundsIntoTheLastOctant) {
    MathContext m;
    // 8q + 8 rounds to 8 itself at the working length.
    const auto reduced = elementary_detail::reduceOctant(m, real(u"-1e-40"));
    EXPECT_EQ(reduced.octant, 7);
}

TEST(Sin, OfATinyNegativeNumberCarriesTheRoundingOfTwoPi) {
    MathContext m;
    // The kept reduction hands the core about -2pi - 1e-30, which the working
    // length cannot hold: the result is the rounding noise of 2pi, far from
    // -1e-30 (a known limit), while the positive side is exact.
    EXPECT_EQ(shown(Sin(m, real(u"1e-30"))), "1E-30");
    const BigNum negative = Sin(m, real(u"-1e-30"));
    EXPECT_GT(negative.exponent, -29);
}

TEST(Tan, OfHalfPiAtWorkingPrecisionGivesALargeFiniteValue) {
    MathContext m;
    // At 14 bytes the halved pi leaves a cosine of about 5e-28.
    const BigNum t = Tan(m, divide(pi(m), fromInt(L, 2)));
    EXPECT_TRUE(t.isFinite());
    EXPECT_GE(t.exponent, 27);
}

TEST(Tan, ExactZeroCosineGivesAnInfinity) {
    MathContext m;
    // At 48 bytes the halved pi reduces to exactly a quarter turn.
    const BigNum x = divide(pi(m, 48), fromInt(48, 2));
    EXPECT_TRUE(Cos(m, x).isZero());
    const BigNum t = Tan(m, x);
    EXPECT_TRUE(t.isInfinite());
    EXPECT_EQ(t.sign, 1);
}

TEST(Sinc, OfZeroIsOne) {
    MathContext m;
    EXPECT_EQ(Sinc(m, makeZero(L)), fromInt(L, 1));
    EXPECT_EQ(shown(Sinc(m, real(u"0.5"))), "0.958851077208");
}

// --- Inverse circular functions -----------------------------------------------------

TEST(Atan2, ZeroOverMinusOneIsPlusPi) {
    MathContext m;
    const BigNum r = Atan2(m, makeZero(L), real(u"-1"));
    EXPECT_EQ(r, pi(m));
    EXPECT_EQ(r.sign, 1);
}

TEST(Atan2, MinusOneOverZeroIsMinusHalfPi) {
    MathContext m;
    const BigNum r = Atan2(m, real(u"-1"), makeZero(L));
    EXPECT_EQ(shown(r), "-1.57079632679");
}

TEST(Atan2, ZeroOverZeroIsZero) {
    MathContext m;
    EXPECT_TRUE(Atan2(m, makeZero(L), makeZero(L)).isZero());
}

TEST(Atan2, QuadrantsTakeTheSignOfY) {
    MathContext m;
    EXPECT_EQ(shown(Atan2(m, real(u"1"), real(u"1"))), "0.785398163397");
    EXPECT_EQ(shown(Atan2(m, real(u"1"), real(u"-1"))), "2.35619449019");
    EXPECT_EQ(shown(Atan2(m, real(u"-1"), real(u"-1"))), "-2.35619449019");
    EXPECT_EQ(shown(Atan2(m, real(u"-1"), real(u"1"))), "-0.785398163397");
    EXPECT_TRUE(Atan2(m, makeZero(L), real(u"2")).isZero());
}

TEST(Atan, SpecialArguments) {
    MathContext m;
    EXPECT_TRUE(Atan(m, makeZero(L)).isZero());
    EXPECT_TRUE(Atan(m, makeNaN()).isNaN());
    EXPECT_EQ(shown(Atan(m, makeInfinity(L, -1))), "-1.57079632679");
    EXPECT_EQ(shown(Atan(m, real(u"1"))), "0.785398163397");
    // Either side of 0.75, where the half-angle form takes over.
    EXPECT_EQ(shown(Atan(m, real(u"0.7499"))), "0.643437105721");
    EXPECT_EQ(shown(Atan(m, real(u"0.75"))), "0.643501108793");
    EXPECT_EQ(shown(Atan(m, real(u"-40"))), "-1.54580153318");
}

TEST(Asin, EndsOfTheDomainAndBeyond) {
    MathContext m;
    EXPECT_EQ(shown(Asin(m, real(u"1"))), "1.57079632679");
    EXPECT_EQ(shown(Asin(m, real(u"-1"))), "-1.57079632679");
    EXPECT_TRUE(Asin(m, real(u"1.5")).isNaN());
    EXPECT_TRUE(Asin(m, makeZero(L)).isZero());
}

TEST(Acos, ZeroOneMinusOneAndBeyond) {
    MathContext m;
    EXPECT_EQ(shown(Acos(m, makeZero(L))), "1.57079632679");
    EXPECT_TRUE(Acos(m, real(u"1")).isZero());
    EXPECT_EQ(shown(Acos(m, real(u"-1"))), "3.14159265359");
    EXPECT_EQ(shown(Acos(m, real(u"-0.5"))), "2.09439510239");
    EXPECT_TRUE(Acos(m, real(u"-1.0001")).isNaN());
}

// --- Hyperbolic functions -----------------------------------------------------------

TEST(Atanh, OfOneAndMinusOneIsNaN) {
    MathContext m;
    EXPECT_TRUE(Atanh(m, real(u"1")).isNaN());
    EXPECT_TRUE(Atanh(m, real(u"-1")).isNaN());
    EXPECT_EQ(shown(Atanh(m, real(u"0.5"))), "0.549306144334");
}

TEST(Acosh, OfOneHalfIsNaN) {
    MathContext m;
    EXPECT_TRUE(Acosh(m, real(u"0.5")).isNaN());
    EXPECT_TRUE(Acosh(m, real(u"-2")).isNaN());
    EXPECT_TRUE(Acosh(m, real(u"1")).isZero());
}

TEST(Hyperbolic, BeyondTheExponentialsRangeGiveTheLimits) {
    MathContext m;
    // e^x is infinite or zero here; the formulas would divide infinities.
    EXPECT_TRUE(Sinh(m, real(u"-6e9")).isInfinite());
    EXPECT_EQ(Sinh(m, real(u"-6e9")).sign, -1);
    EXPECT_TRUE(Cosh(m, real(u"-6e9")).isInfinite());
    EXPECT_EQ(Cosh(m, real(u"-6e9")).sign, 1);
    EXPECT_EQ(Tanh(m, real(u"6e9")), fromInt(L, 1));
    EXPECT_EQ(Tanh(m, real(u"-6e9")), fromInt(L, -1));
    EXPECT_EQ(shown(Tanh(m, real(u"3000"))), "1.");
    EXPECT_TRUE(Asinh(m, makeInfinity(L, -1)).isInfinite());
    EXPECT_EQ(Asinh(m, makeInfinity(L, -1)).sign, -1);
}

TEST(Hyperbolic, ValuesAtOne) {
    MathContext m;
    EXPECT_EQ(shown(Sinh(m, real(u"1"))), "1.17520119364");
    EXPECT_EQ(shown(Cosh(m, real(u"1"))), "1.54308063482");
    EXPECT_EQ(shown(Tanh(m, real(u"1"))), "0.761594155956");
    EXPECT_EQ(shown(Asinh(m, real(u"1"))), "0.88137358702");
    EXPECT_EQ(shown(Acosh(m, real(u"2"))), "1.31695789692");
}

// --- Series cores ----------------------------------------------------------------------

TEST(SeriesCores, StopWhenTheirTermsBecomeExactlyZero) {
    // A zero term has exponent 0, above every stopping bound: the loops must
    // stop on the zero itself.
    CountingPoller counter;
    MathContext m(counter);
    BigNum x = makeZero(L);
    ExpSeries(m, x);
    EXPECT_EQ(x, fromInt(L, 1));
    x = fromInt(L, 1);
    LnSeries(m, x);
    EXPECT_TRUE(x.isZero());
    x = makeZero(L);
    SinSeries(m, x);
    EXPECT_TRUE(x.isZero());
    x = makeZero(L);
    CosSeries(m, x);
    EXPECT_EQ(x, fromInt(L, 1));
    x = makeZero(L);
    AtanSeries(m, x);
    EXPECT_TRUE(x.isZero());
    EXPECT_EQ(counter.polls, 5);   // one term each
}

TEST(SeriesCores, WorkAtTheArgumentsOwnLength) {
    MathContext m;
    BigNum r = real(u"0.1", 20);
    ExpSeries(m, r);
    EXPECT_EQ(r.length(), 20);
    EXPECT_EQ(shown(r, 30), "1.10517091807564762481170782649");
    BigNum y = real(u"0.9", 20);
    AtanHalfAngle(m, y);
    EXPECT_EQ(shown(y, 30), "0.732815101786506591640792072734");
}

// --- Abort polling -----------------------------------------------------------------------

TEST(Abort, APollerThatStopsEndsALongSeriesAtOnce) {
    // Ln at 1000 digits sums about a thousand terms; stopped at the third
    // poll it returns after three terms, and every later loop of the same
    // computation sees the flag before polling again.
    CountingPoller stopper(3);
    MathContext m(stopper);
    const BigNum partial = Ln(m, real(u"2", 508));
    EXPECT_TRUE(stopper.aborted());
    EXPECT_EQ(stopper.polls, 3);
    EXPECT_TRUE(partial.isFinite());
}

TEST(Abort, ASetFlagStopsEveryLoopWithoutPolling) {
    CountingPoller stopper(1);
    stopper.poll();   // the command was already stopped
    MathContext m(stopper);
    for (auto f : {Exp, Ln, Sin, Atan, Sinh}) f(m, real(u"0.5", 508));
    EXPECT_EQ(stopper.polls, 1);
}

TEST(Abort, EveryLongLoopPolls) {
    CountingPoller counter;
    MathContext m(counter);
    m.GetConstant(L + 10, 'p');
    m.GetConstant(L + 10, 'l');
    for (auto f : {Exp, Ln, Sin, Cos, Atan, Asin, Acos, Sinh, Asinh, Atanh}) {
        const int64_t before = counter.polls;
        f(m, real(u"0.3"));
        EXPECT_GT(counter.polls, before + 5);
    }
}

TEST(Abort, AbortedConstantIsNotKept) {
    CountingPoller stopper(2);
    MathContext m(stopper);
    const BigNum wrong = *m.GetConstant(L, '2');
    EXPECT_TRUE(stopper.aborted());
    stopper.reset();
    MathContext fresh;
    const BigNum right = *fresh.GetConstant(L, '2');
    EXPECT_NE(wrong, right);
    EXPECT_EQ(*m.GetConstant(L, '2'), right);
}

}  // namespace
}  // namespace quorvel
