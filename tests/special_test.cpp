// Named cases of the special functions: the special arguments, the kept
// quirks (C(inf) = inf, the Airy cut-off), the thresholds between methods,
// the exact integer paths, the identities the fast paths must keep, and abort
// polling. The accuracy over each function's domain is checked by
// special_vectors_test.cpp.
#include <gtest/gtest.h>

#include <string>

#include "abort_testing.h"
#include "elementary_testing.h"
#include "numeric/elementary.h"
#include "numeric/mathcontext.h"
#include "numeric/numtext.h"
#include "numeric/special.h"
#include "numeric/special_detail.h"

namespace quorvel {
namespace {

using test::CountingPoller;

constexpr int32_t L = 14;   // the working length of Digits 12

BigNum real(std::u16string_view text, int32_t length = L) { return ParseReal(length, text); }

// The value as the display shows it at `digits` significant digits, in ASCII.
std::string shown(const BigNum& x, int32_t digits = 12) { return toUtf8(FormatReal(x, digits, fmt::PlainText)); }

// The value rounded half up to `digits` significant digits, as the display
// rounds, against a reference text "[-]d.ddd...e<exp>".
::testing::AssertionResult shows(const BigNum& x, const std::string& reference, int digits = 12) {
    if (!x.isFinite()) return ::testing::AssertionFailure() << "not finite";
    const test::RoundedDigits a = test::roundBigNum(x, digits);
    const test::RoundedDigits b = test::roundReference(reference, digits);
    if (a == b) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << a.digits << "e" << a.exponent << " (sign " << a.sign << ") not "
                                         << b.digits << "e" << b.exponent;
}

BigNum sqrtPi(MathContext& m, int32_t length = L) { return squareRoot(*m.GetConstant(length, 'p')); }

BigInt integer(int32_t v) { return bigIntFromI32(v); }

// Decimal text of an exact integer.
std::string decimal(const BigInt& n) { return toUtf8(FormatInteger(n, 10, fmt::PlainText)); }

// --- Gamma and factorial -------------------------------------------------------------

TEST(Gamma, OfZeroIsNaN) {
    MathContext m;
    EXPECT_TRUE(Gamma(m, makeZero(L)).isNaN());
}

TEST(Gamma, OfOneAndTwoIsOne) {
    MathContext m;
    EXPECT_EQ(shown(Gamma(m, real(u"1"))), "1.");
    EXPECT_EQ(shown(Gamma(m, real(u"2"))), "1.");
    EXPECT_EQ(shown(Gamma(m, real(u"1", 48)), 80), "1.");
}

TEST(Gamma, OfOneHalfIsTheRootOfPi) {
    MathContext m;
    EXPECT_EQ(shown(Gamma(m, real(u"0.5"))), shown(sqrtPi(m)));
    EXPECT_EQ(shown(Gamma(m, real(u"0.5", 48)), 80), shown(sqrtPi(m, 48), 80));
}

TEST(Factorial, OfFiveIs120) {
    MathContext m;
    EXPECT_EQ(shown(Factorial(m, real(u"5"))), "120.");
    EXPECT_EQ(shown(Factorial(m, real(u"0"))), "1.");
}

TEST(Gamma, OfMinusOneHalfGoesThroughTheReflectionToMinusTwoRootPi) {
    MathContext m;
    const BigNum expected = multiply(fromInt(L, -2), sqrtPi(m));
    EXPECT_EQ(shown(Gamma(m, real(u"-0.5"))), shown(expected));
    // The reflection reaches Gamma(1.5) = sqrt(pi) / 2 through a recursive call.
    EXPECT_EQ(shown(Gamma(m, real(u"1.5"))), shown(multiply(real(u"0.5"), sqrtPi(m))));
}

TEST(Gamma, NegativeIntegersArePolesOfPositiveInfinity) {
    MathContext m;
    for (const char16_t* x : {u"-1", u"-3", u"-70"}) {
        const BigNum g = Gamma(m, real(x));
        EXPECT_TRUE(g.isInfinite()) << toUtf8(x);
        EXPECT_EQ(g.sign, 1) << toUtf8(x);
    }
    // Next to a pole the value is large and finite, with the sign of its side.
    const BigNum left = Gamma(m, real(u"-3.0000001"));
    EXPECT_TRUE(left.isFinite());
    EXPECT_EQ(left.sign, 1);
    EXPECT_EQ(Gamma(m, real(u"-2.9999999")).sign, -1);
}

TEST(Gamma, SpecialValues) {
    MathContext m;
    EXPECT_TRUE(Gamma(m, makeNaN()).isNaN());
    EXPECT_TRUE(Gamma(m, makeInfinity(L, 1)).isInfinite());
    EXPECT_TRUE(Gamma(m, makeInfinity(L, -1)).isNaN());
    // An overflowing product ends the unit steps: Gamma of 10^9 is past the
    // exponent range (it would need 8.5e9 digits).
    CountingPoller poller;
    MathContext counted(poller);
    const BigNum huge = Gamma(counted, real(u"1e300"));
    EXPECT_TRUE(huge.isInfinite());
}

TEST(Gamma, SmallArgumentsGoThroughGammaOfXPlusOneOverX) {
    MathContext m;
    // Gamma(x) = Gamma(x + 1) / x: about 1/x - gamma for a tiny x.
    EXPECT_TRUE(shows(Gamma(m, real(u"1e-20")), "1.0e20"));
    EXPECT_TRUE(shows(Gamma(m, real(u"0.25")), "3.62560990822e0"));
}

TEST(GammaSpouge, ReplacesAnArgumentInOneToTwoByItsGamma) {
    MathContext m;
    BigNum y = real(u"1.5");
    GammaSpouge(m, y);
    EXPECT_EQ(y.length(), L);
    EXPECT_EQ(shown(y), shown(multiply(real(u"0.5"), sqrtPi(m))));
}

TEST(GammaSpouge, ParameterIsFourThirdsOfTheWorkingBytesPlusOne) {
    MathContext m;
    // P = L + 8 bytes, a = trunc((4P + 4) / 3).
    const int32_t P = special_detail::SpougeLength(L);
    EXPECT_EQ(P, L + 8);
    const special_detail::SpougeCoefficients s = special_detail::ComputeSpougeCoefficients(m, P);
    EXPECT_EQ(s.a, (4 * P + 4) / 3);
    EXPECT_EQ(s.c.size(), static_cast<std::size_t>(s.a));
    // c_1 = (a - 1)^(1/2) e^(a - 1) > 0, c_2 = -(a - 2)^(3/2) e^(a - 2) < 0.
    EXPECT_EQ(s.c[1].sign, 1);
    EXPECT_EQ(s.c[2].sign, -1);
    const BigNum c1 = multiply(squareRoot(fromInt(P, s.a - 1)), PowerInt(m, *m.GetConstant(P, 'e'), integer(s.a - 1)));
    EXPECT_EQ(shown(s.c[1], 30), shown(c1, 30));
}

TEST(GammaSpouge, PowersOfEAreThoseOfPowerInt) {
    MathContext m;
    const BigNum e = *m.GetConstant(30, 'e');
    const std::vector<BigNum> powers = special_detail::PowersLikePowerInt(m, e, 130);
    for (int32_t n = 0; n < 130; ++n) EXPECT_EQ(powers[static_cast<std::size_t>(n)], PowerInt(m, e, integer(n))) << n;
}

TEST(GammaSpouge, SquareRootsOfSmallIntegersAreWithinAUnitOfTheLastPair) {
    for (int32_t m : {2, 3, 10, 99, 677}) {
        for (int32_t length : {6, 30, 100, 517}) {
            const BigNum root = special_detail::SquareRootOfSmall(m, length);
            const BigNum reference = squareRoot(fromInt(length, m));
            const int c = compare(root, reference);
            EXPECT_TRUE(c >= -1 && c <= 1) << m << " at " << length << ": " << c;
        }
    }
}

TEST(Gamma, OfTenToTheSixStopsSoonWhenAborted) {
    CountingPoller poller(100);
    MathContext m(poller);
    Gamma(m, real(u"1e6"));
    EXPECT_TRUE(poller.aborted());
    EXPECT_LE(poller.polls, 101);
}

TEST(Gamma, OfTenToTheSixIsOneMultiplicationPerUnit) {
    // Unaborted, the walk down polls once per unit of x.
    CountingPoller poller;
    MathContext m(poller);
    Gamma(m, real(u"1000.5"));
    EXPECT_GE(poller.polls, 999);
    EXPECT_FALSE(poller.aborted());
}

// --- Combinations and permutations ------------------------------------------------------

TEST(FactorialInt, ExactProducts) {
    MathContext m;
    EXPECT_EQ(decimal(*FactorialInt(m, integer(0))), "1");
    EXPECT_EQ(decimal(*FactorialInt(m, integer(5))), "120");
    EXPECT_EQ(decimal(*FactorialInt(m, integer(25))), "15511210043330985984000000");
    EXPECT_FALSE(FactorialInt(m, integer(-1)).has_value());
    BigInt big = bigIntFromU32(1);
    multiplySmallAddInPlace(big, 65536, 0);
    multiplySmallAddInPlace(big, 65536, 0);   // 2^32: three limbs
    EXPECT_FALSE(FactorialInt(m, big).has_value());
}

TEST(FactorialInt, StopsWhenAborted) {
    CountingPoller poller(50);
    MathContext m(poller);
    ASSERT_TRUE(FactorialInt(m, integer(1000000)).has_value());
    EXPECT_TRUE(poller.aborted());
    EXPECT_LE(poller.polls, 51);
}

TEST(CombInt, ExactBinomials) {
    MathContext m;
    EXPECT_EQ(decimal(*CombInt(m, integer(5), integer(2))), "10");
    EXPECT_EQ(decimal(*CombInt(m, integer(52), integer(5))), "2598960");
    EXPECT_EQ(decimal(*CombInt(m, integer(10), integer(11))), "0");
    EXPECT_EQ(decimal(*CombInt(m, integer(10), integer(-1))), "0");
    EXPECT_EQ(decimal(*CombInt(m, integer(10), integer(10))), "1");
    // A negative n: (-1)^k C(k - n - 1, k).
    EXPECT_EQ(decimal(*CombInt(m, integer(-3), integer(2))), "6");
    EXPECT_EQ(decimal(*CombInt(m, integer(-5), integer(3))), "-35");
}

TEST(PermInt, ExactFallingFactorials) {
    MathContext m;
    EXPECT_EQ(decimal(*PermInt(m, integer(5), integer(2))), "20");
    EXPECT_EQ(decimal(*PermInt(m, integer(10), integer(0))), "1");
    EXPECT_EQ(decimal(*PermInt(m, integer(10), integer(11))), "0");
    EXPECT_EQ(decimal(*PermInt(m, integer(-3), integer(2))), "12");
    EXPECT_FALSE(PermInt(m, integer(10), integer(-1)).has_value());
}

TEST(Comb, RealArgumentsThroughGamma) {
    MathContext m;
    EXPECT_EQ(shown(Comb(m, real(u"5"), real(u"2"))), "10.");
    EXPECT_EQ(shown(Perm(m, real(u"5"), real(u"2"))), "20.");
    // comb(4.5, 2) = 4.5 * 3.5 / 2.
    EXPECT_TRUE(shows(Comb(m, real(u"4.5"), real(u"2")), "7.875e0"));
    // A pole in the denominator is a zero reciprocal; on top, an infinity.
    EXPECT_TRUE(Comb(m, real(u"2.5"), real(u"-1")).isZero());
    EXPECT_TRUE(Perm(m, real(u"-3"), real(u"1.5")).isInfinite());
    EXPECT_TRUE(Comb(m, real(u"-3"), real(u"2")).isNaN());
}

// --- Error function -------------------------------------------------------------------------

TEST(Erf, OfMinusInfinityIsMinusOneAndOfInfinityIsOne) {
    MathContext m;
    EXPECT_EQ(Erf(m, makeInfinity(L, -1)), fromInt(L, -1));
    EXPECT_EQ(Erf(m, makeInfinity(L, 1)), fromInt(L, 1));
}

TEST(Erf, ZeroNaNAndOddness) {
    MathContext m;
    EXPECT_TRUE(Erf(m, makeZero(L)).isZero());
    EXPECT_TRUE(Erf(m, makeNaN()).isNaN());
    EXPECT_TRUE(shows(Erf(m, real(u"0.5")), "5.20499877813e-1"));
    EXPECT_TRUE(shows(Erf(m, real(u"-0.5")), "-5.20499877813e-1"));
}

TEST(Erf, SaturatesToOneWithoutTheSeriesPastTheLastDigit) {
    CountingPoller poller;
    MathContext m(poller);
    m.GetConstant(L, 'l');   // the threshold's ln 10, cached first
    m.GetConstant(L, 'p');
    poller.polls = 0;
    // x^2 >= (2L + 4) ln 10: 1 - erf x is below the last working digit.
    EXPECT_EQ(Erf(m, real(u"1e300")), fromInt(L, 1));
    EXPECT_EQ(Erf(m, real(u"-9")), fromInt(L, -1));
    EXPECT_EQ(poller.polls, 0);
    // Just below the threshold the series runs.
    EXPECT_EQ(shown(Erf(m, real(u"7"))), "1.");
    EXPECT_GT(poller.polls, 0);
}

TEST(Erf, SeriesStopsWhenAborted) {
    CountingPoller poller(5);
    MathContext m(poller);
    Erf(m, real(u"6", 508));
    EXPECT_TRUE(poller.aborted());
    EXPECT_LE(poller.polls, 6);
}

// --- Fresnel integrals ----------------------------------------------------------------------

TEST(Fresnel, CAtEightUsesTheSeriesAndJustAboveTheLargeArgumentFormBothNearOneHalf) {
    MathContext m;
    const BigNum at8 = FresnelC(m, real(u"8"));
    const BigNum above = FresnelC(m, real(u"8.0001"));
    // The series at L + 22 bytes gives C(8) = 0.4998...; the other side is
    // 1/2 + f sin t - g cos t with f and g from FresnelAux, formed here by hand.
    EXPECT_TRUE(shows(at8, "4.99802180377e-1"));
    BigNum seriesSide = special_detail::FresnelSeries(m, real(u"8", L + 22)).c;
    EXPECT_EQ(shown(at8), shown(seriesSide));

    const int32_t work = L + 3;
    const BigNum x = real(u"8.0001", work);
    BigNum f = makeZero(work);
    BigNum g = makeZero(work);
    FresnelAux(m, x, f, g);
    const BigNum t = multiply(multiply(multiply(*m.GetConstant(work, 'p'), real(u"0.5", work)), x), x);
    const BigNum largeSide = subtract(add(real(u"0.5", work), multiply(f, Sin(m, t))), multiply(g, Cos(m, t)));
    EXPECT_EQ(shown(above), shown(largeSide));
    EXPECT_TRUE(shows(above, "4.99902180272e-1"));
    // Both lie within 1/(8 pi) of 1/2 and within a small step of each other.
    EXPECT_LT(std::abs(std::stod(shown(at8)) - 0.5), 1.0 / (8 * 3.14159));
    EXPECT_LT(std::abs(std::stod(shown(above)) - std::stod(shown(at8))), 0.001);
}

TEST(Fresnel, NonFiniteArgumentIsReturnedAsItIs) {
    MathContext m;
    // C(inf) is shown as inf, not 1/2: kept.
    const BigNum c = FresnelC(m, makeInfinity(L, 1));
    EXPECT_TRUE(c.isInfinite());
    EXPECT_EQ(c.sign, 1);
    const BigNum s = FresnelS(m, makeInfinity(L, -1));
    EXPECT_TRUE(s.isInfinite());
    EXPECT_EQ(s.sign, -1);
    EXPECT_TRUE(FresnelC(m, makeNaN()).isNaN());
    EXPECT_TRUE(FresnelC(m, makeZero(L)).isZero());
    EXPECT_TRUE(FresnelS(m, makeZero(L)).isZero());
}

TEST(Fresnel, PairIsOneHalfMinusEach) {
    MathContext m;
    for (const char16_t* x : {u"1", u"-2.5", u"7.9", u"12", u"-12", u"100.25"}) {
        const FresnelValues v = FresnelPair(m, real(x));
        EXPECT_EQ(shown(v.c), shown(subtract(real(u"0.5"), FresnelC(m, real(x))))) << toUtf8(x);
        EXPECT_EQ(shown(v.s), shown(subtract(real(u"0.5"), FresnelS(m, real(x))))) << toUtf8(x);
    }
    // Far out the pair keeps its own digits: at x = 10^10 the angle is a
    // multiple of 2 pi and 1/2 - C is g alone, about 1/(pi^2 x^3).
    EXPECT_TRUE(shows(FresnelPair(m, real(u"1e10")).c, "1.01321183642e-31"));
    EXPECT_TRUE(shows(FresnelPair(m, real(u"1.5e10")).s, "2.12206590789e-11"));
}

TEST(Fresnel, HugeArgumentsGiveOneHalf) {
    MathContext m;
    EXPECT_EQ(shown(FresnelC(m, real(u"1e40"))), "0.5");
    EXPECT_EQ(shown(FresnelS(m, real(u"-1e40"))), "-0.5");
}

TEST(Fresnel, AuxiliaryFunctionsBetweenEightAndTheAsymptoticRangeComeFromTheWidenedSeries) {
    MathContext m;
    // At 80 digits the asymptotic series reaches the last digit only from
    // about x = 12.5; at 9 the pair comes from C and S. Both ways agree where
    // both work (20 digits at x = 13).
    EXPECT_FALSE(special_detail::FresnelAsymptoticSuffices(9.0, 51));
    EXPECT_TRUE(special_detail::FresnelAsymptoticSuffices(13.0, 51));
    EXPECT_TRUE(special_detail::FresnelAsymptoticSuffices(9.0, 18));
    const BigNum x = real(u"9", 51);
    BigNum f = makeZero(51);
    BigNum g = makeZero(51);
    FresnelAux(m, x, f, g);
    // f ~ 1/(pi x) (1 - 3/(pi x^2)^2 ...), g ~ 1/(pi^2 x^3).
    EXPECT_TRUE(shows(f, "3.5366127468119852551e-2", 20));
    EXPECT_TRUE(shows(g, "1.3895437031507013829e-4", 20));
}

TEST(Fresnel, SeriesStopsWhenAborted) {
    CountingPoller poller(3);
    MathContext m(poller);
    FresnelC(m, real(u"7.5", 200));
    EXPECT_TRUE(poller.aborted());
    EXPECT_LE(poller.polls, 4);
}

// --- Airy functions -------------------------------------------------------------------------

TEST(Airy, AiOfThreeHundredIsZeroAndBiOfMinusThreeHundredIsInfinity) {
    MathContext m;
    EXPECT_TRUE(AiryAi(m, real(u"300")).isZero());
    const BigNum bi = AiryBi(m, real(u"-300"));
    EXPECT_TRUE(bi.isInfinite());
    EXPECT_EQ(bi.sign, 1);
}

TEST(Airy, CutOffIgnoresTheSignAndFailedConversions) {
    MathContext m;
    // Deliberate: past |x| = 250 Ai is 0 and Bi +inf on both sides.
    EXPECT_TRUE(AiryAi(m, real(u"-300")).isZero());
    EXPECT_TRUE(AiryBi(m, real(u"300")).isInfinite());
    EXPECT_TRUE(AiryAi(m, real(u"250.0001")).isZero());
    // A value no double holds, and the infinities, fail the conversion.
    EXPECT_TRUE(AiryAi(m, real(u"-1e400")).isZero());
    EXPECT_TRUE(AiryBi(m, real(u"1e400")).isInfinite());
    EXPECT_TRUE(AiryAi(m, makeInfinity(L, -1)).isZero());
    EXPECT_TRUE(AiryBi(m, makeInfinity(L, -1)).isInfinite());
    EXPECT_TRUE(AiryAi(m, makeNaN()).isNaN());
}

TEST(Airy, GuardBytesFollowTheCubic) {
    // q(0) < 0 counts as 0: 8 bytes; q(250) = 1140.6: 578 bytes.
    EXPECT_EQ(special_detail::AiryGuardBytes(0.0), 8);
    EXPECT_EQ(special_detail::AiryGuardBytes(250.0), 578);
    EXPECT_EQ(special_detail::AiryGuardBytes(10.0), 12);
    EXPECT_EQ(special_detail::AiryGuardBytes(100.0), 150);
}

TEST(Airy, SeriesAtZeroStopsAtOnce) {
    CountingPoller poller;
    MathContext m(poller);
    BigNum f = makeZero(30);
    BigNum g = makeZero(30);
    AirySeries(m, makeZero(L), f, g);
    EXPECT_EQ(f, fromInt(30, 1));
    EXPECT_TRUE(g.isZero());
    EXPECT_EQ(poller.polls, 1);
    // Ai(0) = c1, Bi(0) = sqrt 3 c1.
    EXPECT_TRUE(shows(AiryAi(m, makeZero(L)), "3.55028053888e-1"));
    EXPECT_TRUE(shows(AiryBi(m, makeZero(L)), "6.14926627446e-1"));
}

TEST(Airy, ValuesOnBothSides) {
    MathContext m;
    EXPECT_TRUE(shows(AiryAi(m, real(u"1")), "1.35292416313e-1"));
    EXPECT_TRUE(shows(AiryBi(m, real(u"-1")), "1.03997389497e-1"));
    EXPECT_TRUE(shows(AiryAi(m, real(u"-100")), "1.7675339324e-1"));
}

TEST(Airy, SeriesStopsWhenAborted) {
    CountingPoller poller(4);
    MathContext m(poller);
    AiryBi(m, real(u"-200"));
    EXPECT_TRUE(poller.aborted());
}

// --- Bernoulli and Euler numbers -----------------------------------------------------------

TEST(Bernoulli, OfOneIsMinusOneHalfAndOfTwoIsOneSixth) {
    MathContext m;
    EXPECT_EQ(Bernoulli(m, 1, L), real(u"-0.5"));
    EXPECT_TRUE(shows(Bernoulli(m, 2, L), "1.66666666667e-1"));
    EXPECT_EQ(shown(Bernoulli(m, 0, L)), "1.");
}

TEST(Bernoulli, OddIndicesFromThreeAreExactlyZero) {
    MathContext m;
    for (int32_t n : {3, 5, 21, 99, 151}) EXPECT_TRUE(BernoulliNumber(m, n, L).isZero()) << n;
    EXPECT_TRUE(Bernoulli(m, -1, L).isNaN());
}

TEST(Bernoulli, WorkBytesHoldTheLargestTerm) {
    // B_100 is about -2.8e78, the terms reach about 1e174.
    EXPECT_GE(BernoulliWorkBytes(100, L), L + 87);
    MathContext m;
    EXPECT_TRUE(shows(BernoulliNumber(m, 100, L), "-2.83822495707e78"));
}

TEST(Bernoulli, InnerSumsFromTheDifferenceTableEqualTheTermByTermSums) {
    MathContext m;
    for (int32_t n : {0, 1, 2, 7, 30, 64}) {
        EXPECT_EQ(special_detail::AlternatingBinomialSums(m, n, 1, 0),
                  special_detail::AlternatingBinomialSumsDirect(m, n, 1, 0)) << n;
        EXPECT_EQ(special_detail::AlternatingBinomialSums(m, n, 2, 1),
                  special_detail::AlternatingBinomialSumsDirect(m, n, 2, 1)) << n;
    }
}

TEST(Bernoulli, LongIndexStopsSoonWhenAborted) {
    CountingPoller poller(20);
    MathContext m(poller);
    BernoulliNumber(m, 5000, L);
    EXPECT_TRUE(poller.aborted());
    EXPECT_LE(poller.polls, 21);
}

TEST(EulerNumber, SmallIndices) {
    MathContext m;
    EXPECT_EQ(shown(EulerNumber(m, 0, L)), "1.");
    EXPECT_EQ(shown(EulerNumber(m, 2, L)), "-1.");
    EXPECT_EQ(shown(EulerNumber(m, 8, L)), "1385.");
    EXPECT_TRUE(EulerNumber(m, 7, L).isZero());
    EXPECT_TRUE(EulerNumber(m, -2, L).isNaN());
    EXPECT_EQ(decimal(*EulerNumberInt(m, 10)), "-50521");
    EXPECT_EQ(decimal(*EulerNumberInt(m, 9)), "0");
}

// --- Complex forms ----------------------------------------------------------------------------

ComplexNum cx(std::u16string_view re, std::u16string_view im) { return ComplexNum{real(re), real(im)}; }

BigNum elementaryNegate(BigNum x) {
    x.sign = static_cast<int8_t>(-x.sign);
    return x;
}

TEST(ComplexSpecial, ZeroImaginaryPartTakesTheRealFunction) {
    MathContext m;
    const ComplexNum z = cx(u"2.5", u"0");
    EXPECT_EQ(Gamma(m, z).re, Gamma(m, z.re));
    EXPECT_TRUE(Gamma(m, z).im.isZero());
    EXPECT_EQ(Erf(m, z).re, Erf(m, z.re));
    EXPECT_EQ(FresnelC(m, z).re, FresnelC(m, z.re));
    EXPECT_EQ(AiryAi(m, z).re, AiryAi(m, z.re));
    EXPECT_TRUE(Gamma(m, cx(u"-2", u"0")).re.isInfinite());
}

TEST(ComplexSpecial, GammaOfIAndItsReflection) {
    MathContext m;
    // Gamma(i) = -0.154949828302 - 0.498015668118 i.
    const ComplexNum g = Gamma(m, cx(u"0", u"1"));
    EXPECT_TRUE(shows(g.re, "-1.54949828302e-1"));
    EXPECT_TRUE(shows(g.im, "-4.98015668118e-1"));
    // Gamma(-1 + i) = Gamma(i) / (-1 + i).
    const ComplexNum r = Gamma(m, cx(u"-1", u"1"));
    const ComplexNum expected = divide(g, cx(u"-1", u"1"));
    EXPECT_EQ(shown(r.re), shown(expected.re));
    EXPECT_EQ(shown(r.im), shown(expected.im));
}

TEST(ComplexSpecial, NonFinitePartsGiveNaN) {
    MathContext m;
    const ComplexNum z{makeInfinity(L, 1), real(u"1")};
    EXPECT_TRUE(Gamma(m, z).re.isNaN());
    EXPECT_TRUE(Erf(m, z).re.isNaN());
    EXPECT_TRUE(FresnelC(m, z).re.isNaN());
    EXPECT_TRUE(AiryAi(m, z).re.isNaN());
}

TEST(ComplexSpecial, FresnelSymmetriesAcrossTheSectors) {
    MathContext m;
    // C(iz) = iC(z), S(iz) = -iS(z), and both are odd: z = 9 + 2i in the
    // right sector, iz = -2 + 9i above it.
    const ComplexNum z = cx(u"9", u"2");
    const ComplexNum iz = cx(u"-2", u"9");
    const ComplexNum c = FresnelC(m, z);
    const ComplexNum ci = FresnelC(m, iz);
    EXPECT_EQ(shown(ci.re), shown(elementaryNegate(c.im)));
    EXPECT_EQ(shown(ci.im), shown(c.re));
    const ComplexNum s = FresnelS(m, z);
    const ComplexNum si = FresnelS(m, iz);
    EXPECT_EQ(shown(si.re), shown(s.im));
    EXPECT_EQ(shown(si.im), shown(elementaryNegate(s.re)));
}

TEST(ComplexSpecial, AiryCutOffOnTheModulus) {
    MathContext m;
    EXPECT_TRUE(AiryAi(m, cx(u"200", u"200")).re.isZero());
    EXPECT_TRUE(AiryBi(m, cx(u"-200", u"200")).re.isInfinite());
    EXPECT_TRUE(AiryBi(m, cx(u"-200", u"200")).im.isZero());
}

TEST(ComplexSpecial, ErfSeriesStopsWhenAborted) {
    CountingPoller poller(7);
    MathContext m(poller);
    Erf(m, cx(u"30", u"30"));
    EXPECT_TRUE(poller.aborted());
    EXPECT_LE(poller.polls, 8);
}

TEST(ComplexSpecial, GammaOfLargeRealPartStopsWhenAborted) {
    CountingPoller poller(30);
    MathContext m(poller);
    Gamma(m, cx(u"1e6", u"1"));
    EXPECT_TRUE(poller.aborted());
    EXPECT_LE(poller.polls, 31);
}

}  // namespace
}  // namespace quorvel
