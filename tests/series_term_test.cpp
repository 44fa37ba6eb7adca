// A series term divided only as far as the sum reads it: adding it must give
// the same sum, and the term the same exponent and sign (the stopping rule),
// as the whole small-divisor division, for any gap between the two; and the
// arc tangent and logarithm series summed with it must equal, byte for byte,
// the same series summed with whole terms.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>

#include "bignum_testing.h"
#include "numeric/bignum.h"
#include "numeric/elementary.h"
#include "numeric/elementary_detail.h"
#include "numeric/mathcontext.h"

namespace quorvel {
namespace {

using elementary_detail::divideBySmall;
using elementary_detail::divideBySmallForSum;
using elementary_detail::negated;
using elementary_detail::termIsNegligible;

BigNum randomValue(std::mt19937_64& rng, int32_t length, int32_t exponent) {
    BigNum a = makeZero(length);
    const int pattern = static_cast<int>(rng() % 4);
    for (int32_t i = 0; i < length; ++i) {
        int d = static_cast<int>(rng() % 100);
        if (pattern == 1 && i < length / 2) d = 0;    // a short value: exact quotients
        if (pattern == 2 && i < length - 2) d = 99;   // runs of nines
        a.digits[static_cast<std::size_t>(i)] = static_cast<uint8_t>(d);
    }
    if (a.digits[static_cast<std::size_t>(length - 1)] < 10) a.digits[static_cast<std::size_t>(length - 1)] += 10;
    a.sign = (rng() % 2 != 0) ? 1 : -1;
    a.exponent = exponent;
    return a;
}

int32_t randomDivisor(std::mt19937_64& rng) {
    switch (rng() % 4) {
        case 0: return 3 + 2 * static_cast<int32_t>(rng() % 4000);
        case 1: return 1 + static_cast<int32_t>(rng() % 100);
        case 2: return (1 + static_cast<int32_t>(rng() % 9)) * 1000;
        default: return 1 + static_cast<int32_t>(rng() % 2147483646);
    }
}

// Returns whether the term was cut short (its low digits differ).
bool expectSameForTheSum(const BigNum& a, int32_t v, const BigNum& sum) {
    const BigNum whole = divideBySmall(a, v);
    const BigNum term = divideBySmallForSum(a, v, sum);
    EXPECT_EQ(add(sum, term), add(sum, whole)) << test::describe(a) << " / " << v << " + " << test::describe(sum);
    EXPECT_EQ(term.exponent, whole.exponent) << test::describe(a) << " / " << v;
    EXPECT_EQ(term.sign, whole.sign) << test::describe(a) << " / " << v;
    EXPECT_EQ(term.kind, whole.kind);
    for (int32_t bound : {-(2 * a.length() + 1), -40, 0}) EXPECT_EQ(termIsNegligible(term, bound), termIsNegligible(whole, bound));
    return term != whole;
}

TEST(SeriesTerm, AddsLikeTheWholeQuotientAtEveryGap) {
    std::mt19937_64 rng(2024);
    int cutShort = 0;
    for (int32_t length : {20, 48, 508}) {
        for (int i = 0; i < 1500; ++i) {
            const int32_t gap = static_cast<int32_t>(rng() % static_cast<uint64_t>(2 * length + 40)) - 10;
            const BigNum sum = randomValue(rng, length, static_cast<int32_t>(rng() % 11) - 5);
            const BigNum a = randomValue(rng, length, sum.exponent - gap);
            cutShort += expectSameForTheSum(a, randomDivisor(rng), sum) ? 1 : 0;
            if (HasFailure()) return;   // one case reported, not thousands
        }
    }
    EXPECT_GT(cutShort, 2000);   // the short division was taken, not only the whole one
}

TEST(SeriesTerm, ExactQuotientsAndOtherLengthsTakeTheWholeDivision) {
    // 7 x 10^k / 7 leaves no remainder: the digits below could carry, so the
    // whole division answers; so it does for a sum of another length.
    const BigNum sum = test::bigNumFromText(508, "1.5e0");
    const BigNum a = multiply(fromInt(508, 7), test::bigNumFromText(508, "1e-300"));
    EXPECT_EQ(divideBySmallForSum(a, 7, sum), divideBySmall(a, 7));
    const BigNum shortSum = test::bigNumFromText(200, "1.5e0");
    const BigNum b = test::bigNumFromText(508, "1.234567e-300");
    EXPECT_EQ(divideBySmallForSum(b, 7, shortSum), divideBySmall(b, 7));
}

// The two series as numeric/atan.cpp and numeric/log.cpp sum them, each term
// a whole quotient.
BigNum atanSeriesWithWholeTerms(const BigNum& y) {
    const int32_t bound = -(2 * y.length() + 1);
    const BigNum minusYSquared = negated(multiply(y, y));
    BigNum power = y;
    BigNum sum = y;
    for (int32_t denominator = 3;; denominator += 2) {
        power = multiply(power, minusYSquared);
        const BigNum term = divideBySmall(power, denominator);
        sum = add(sum, term);
        if (termIsNegligible(term, bound)) break;
    }
    return sum;
}

BigNum lnSeriesWithWholeTerms(const BigNum& x) {
    const int32_t P = x.length();
    const int32_t bound = -(2 * P + 1);
    const BigNum one = fromInt(P, 1);
    const BigNum z = divide(subtract(x, one), add(x, one));
    const BigNum zSquared = multiply(z, z);
    BigNum power = z;
    BigNum sum = z;
    for (int32_t denominator = 3;; denominator += 2) {
        power = multiply(power, zSquared);
        const BigNum term = divideBySmall(power, denominator);
        sum = add(sum, term);
        if (termIsNegligible(term, bound)) break;
    }
    return multiply(sum, fromInt(P, 2));
}

TEST(SeriesTerm, ArcTangentAndLogarithmSeriesUnchanged) {
    MathContext math;
    std::mt19937_64 rng(75);
    for (int32_t length : {48, 210, 508}) {
        for (int i = 0; i < 6; ++i) {
            // Arguments below 0.75, as Atan hands them over, and near 1 for
            // the logarithm.
            BigNum y = randomValue(rng, length, -1 - static_cast<int32_t>(rng() % 3));
            y.sign = 1;
            if (y.exponent == -1 && y.digits[static_cast<std::size_t>(length - 1)] >= 75) y.digits[static_cast<std::size_t>(length - 1)] = 74;
            BigNum series = y;
            AtanSeries(math, series);
            ASSERT_EQ(series, atanSeriesWithWholeTerms(y)) << test::describe(y);

            BigNum x = add(fromInt(length, 1), randomValue(rng, length, -1 - static_cast<int32_t>(rng() % 3)));
            x.sign = 1;
            BigNum logarithm = x;
            LnSeries(math, logarithm);
            ASSERT_EQ(logarithm, lnSeriesWithWholeTerms(x)) << test::describe(x);
        }
    }
}

}  // namespace
}  // namespace quorvel
