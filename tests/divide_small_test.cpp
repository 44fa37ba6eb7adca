// Division by a small integer must give exactly what the general long
// division gives for the same divisor: every byte, the exponent and the sign.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>

#include "bignum_testing.h"
#include "numeric/bignum.h"
#include "numeric/elementary_detail.h"

namespace quorvel {
namespace {

using elementary_detail::divideBySmall;

// A random dividend of `length` bytes in one of several digit patterns:
// random, mostly zero bytes, runs of 99, or a few nonzero bytes.
BigNum randomDividend(std::mt19937_64& rng, int32_t length) {
    BigNum a = makeZero(length);
    const int pattern = static_cast<int>(rng() % 4);
    for (int32_t i = 0; i < length; ++i) {
        int d = static_cast<int>(rng() % 100);
        if (pattern == 1 && rng() % 3 != 0) d = 0;
        if (pattern == 2 && rng() % 2 != 0) d = 99;
        if (pattern == 3) d = (rng() % 5 == 0) ? d : 0;
        a.digits[static_cast<std::size_t>(i)] = static_cast<uint8_t>(d);
    }
    if (a.digits[static_cast<std::size_t>(length - 1)] < 10) a.digits[static_cast<std::size_t>(length - 1)] += 10;
    a.sign = (rng() % 2 != 0) ? 1 : -1;
    a.exponent = static_cast<int32_t>(rng() % 41) - 20;
    return a;
}

int32_t randomDivisor(std::mt19937_64& rng) {
    switch (rng() % 5) {
        case 0: return 1 + static_cast<int32_t>(rng() % 10);
        case 1: return 1 + static_cast<int32_t>(rng() % 100);
        case 2: return 1 + static_cast<int32_t>(rng() % 10000);
        case 3: return 1 + static_cast<int32_t>(rng() % 2000000);
        default: return 1 + static_cast<int32_t>(rng() % 2147483646);
    }
}

TEST(DivideBySmall, IdenticalToTheGeneralDivideOnRandomCases) {
    std::mt19937_64 rng(20240702);
    for (int i = 0; i < 20000; ++i) {
        const int32_t length = 2 + static_cast<int32_t>(rng() % 40);
        const BigNum a = randomDividend(rng, length);
        const int32_t v = randomDivisor(rng);
        const BigNum expected = divide(a, fromInt(length, v));
        ASSERT_EQ(divideBySmall(a, v), expected) << test::describe(a) << " / " << v;
    }
}

TEST(DivideBySmall, IdenticalOnLongDividends) {
    std::mt19937_64 rng(7);
    for (int i = 0; i < 60; ++i) {
        const int32_t length = 100 + static_cast<int32_t>(rng() % 420);
        const BigNum a = randomDividend(rng, length);
        const int32_t v = randomDivisor(rng);
        ASSERT_EQ(divideBySmall(a, v), divide(a, fromInt(length, v))) << test::describe(a) << " / " << v;
    }
}

TEST(DivideBySmall, ExactQuotientsAndSpecialValues) {
    for (int32_t v : {1, 2, 3, 7, 16, 99, 100, 101, 65536, 2147483647}) {
        for (int32_t length : {2, 5, 14, 48}) {
            for (int32_t k : {0, 1, 6, 1000000, -36}) {
                const BigNum a = fromInt(length, k);
                ASSERT_EQ(divideBySmall(a, v), divide(a, fromInt(length, v))) << k << " / " << v;
            }
        }
    }
    EXPECT_TRUE(divideBySmall(makeNaN(), 3).isNaN());
    EXPECT_TRUE(divideBySmall(makeInfinity(10, -1), 3).isInfinite());
    EXPECT_TRUE(divideBySmall(fromInt(10, 5), 0).isNaN());
}

}  // namespace
}  // namespace quorvel
