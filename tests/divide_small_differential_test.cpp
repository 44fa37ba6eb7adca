// The small-divisor division of the series against the general long division
// at the lengths the functions really use (80 and 1000 digits and their
// wider working lengths), with the divisors the series divide by: odd
// denominators, factorial steps, powers of ten times a digit, and the largest
// 32-bit values. Every byte, the exponent and the sign must agree.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>

#include "bignum_testing.h"
#include "numeric/bignum.h"
#include "numeric/elementary_detail.h"

namespace quorvel {
namespace {

using elementary_detail::divideBySmall;
using elementary_detail::divideBySmallWith;
using elementary_detail::negated;

// Random pairs, long runs of 99 or of 0 (the remainder's borrows and the
// dividend's zero tail), or a short value padded with zeros.
BigNum seriesDividend(std::mt19937_64& rng, int32_t length) {
    BigNum a = makeZero(length);
    const int pattern = static_cast<int>(rng() % 4);
    const int32_t cut = static_cast<int32_t>(rng() % static_cast<uint64_t>(length));
    for (int32_t i = 0; i < length; ++i) {
        int d = static_cast<int>(rng() % 100);
        if (pattern == 1 && i < cut) d = 99;
        if (pattern == 2 && i < cut) d = 0;
        if (pattern == 3 && i < length - 3) d = 0;
        a.digits[static_cast<std::size_t>(i)] = static_cast<uint8_t>(d);
    }
    if (a.digits[static_cast<std::size_t>(length - 1)] < 10) a.digits[static_cast<std::size_t>(length - 1)] += 10;
    a.sign = (rng() % 2 != 0) ? 1 : -1;
    a.exponent = static_cast<int32_t>(rng() % 2001) - 1000;
    return a;
}

int32_t seriesDivisor(std::mt19937_64& rng) {
    switch (rng() % 6) {
        case 0: return 3 + 2 * static_cast<int32_t>(rng() % 4000);                 // odd denominators
        case 1: {
            const int32_t k = 2 + static_cast<int32_t>(rng() % 3000);
            return k * (k + 1);                                                     // two factorial steps
        }
        case 2: return (1 + static_cast<int32_t>(rng() % 9)) * 1000;              // a digit and zeros
        case 3: return 1 + static_cast<int32_t>(rng() % 100);
        case 4: return 2147483647 - static_cast<int32_t>(rng() % 1000);
        default: return 1 + static_cast<int32_t>(rng() % 2147483646);
    }
}

void expectSameQuotient(const BigNum& a, int32_t v) {
    ASSERT_EQ(divideBySmall(a, v), divide(a, fromInt(a.length(), v))) << test::describe(a) << " / " << v;
}

TEST(DivideBySmallDifferential, WorkingLengthsOfEightyDigits) {
    std::mt19937_64 rng(80);
    for (int32_t length : {48, 50, 52, 55}) {
        for (int i = 0; i < 1500; ++i) expectSameQuotient(seriesDividend(rng, length), seriesDivisor(rng));
    }
}

TEST(DivideBySmallDifferential, WorkingLengthsOfAThousandDigits) {
    std::mt19937_64 rng(1000);
    for (int32_t length : {508, 510, 512, 515}) {
        for (int i = 0; i < 60; ++i) expectSameQuotient(seriesDividend(rng, length), seriesDivisor(rng));
    }
}

// The tail shortcut against the whole replay of the same division, on many
// more thousand-digit dividends than the general division could check, half
// of them terms of a real series (where the candidates' ends differ most).
TEST(DivideBySmallDifferential, TailShortcutMatchesTheWholeReplay) {
    std::mt19937_64 rng(32);
    const BigNum minusSquare = negated(multiply(fromInt(508, 7), fromInt(508, 7)));
    BigNum power = divideBySmallWith(fromInt(508, 7), 10, false);
    for (int i = 0; i < 12000; ++i) {
        const bool fromSeries = i % 2 == 0;
        if (fromSeries) power = divideBySmallWith(multiply(power, minusSquare), 100, false);
        const BigNum a = fromSeries ? power : seriesDividend(rng, 508 + static_cast<int32_t>(rng() % 8));
        if (a.isZero()) break;
        const int32_t v = fromSeries ? 3 + 2 * (i / 2) : seriesDivisor(rng);
        ASSERT_EQ(divideBySmallWith(a, v, true), divideBySmallWith(a, v, false)) << test::describe(a) << " / " << v;
    }
}

TEST(DivideBySmallDifferential, EveryLengthUpToSixtyFour) {
    std::mt19937_64 rng(64);
    for (int32_t length = 2; length <= 64; ++length) {
        for (int i = 0; i < 200; ++i) expectSameQuotient(seriesDividend(rng, length), seriesDivisor(rng));
    }
}

}  // namespace
}  // namespace quorvel
