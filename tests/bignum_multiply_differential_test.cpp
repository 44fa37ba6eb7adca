// The limb product of multiply against the pair-by-pair schoolbook product:
// both sum the same truncated set of pair products, so every byte, the
// exponent and the sign must agree, at every pair of lengths.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>

#include "bignum_testing.h"
#include "numeric/bignum.h"
#include "numeric/bignum_detail.h"

namespace quorvel {
namespace {

using bignum_detail::multiplyWith;

// A random normalised operand of `length` bytes: random pairs, runs of 99,
// mostly zero pairs, or all 99 (the largest column sums and carries).
BigNum randomOperand(std::mt19937_64& rng, int32_t length) {
    BigNum a = makeZero(length);
    const int pattern = static_cast<int>(rng() % 4);
    for (int32_t i = 0; i < length; ++i) {
        int d = static_cast<int>(rng() % 100);
        if (pattern == 1 && rng() % 2 != 0) d = 99;
        if (pattern == 2 && rng() % 4 != 0) d = 0;
        if (pattern == 3) d = 99;
        a.digits[static_cast<std::size_t>(i)] = static_cast<uint8_t>(d);
    }
    if (a.digits[static_cast<std::size_t>(length - 1)] < 10) a.digits[static_cast<std::size_t>(length - 1)] += 10;
    a.sign = (rng() % 2 != 0) ? 1 : -1;
    a.exponent = static_cast<int32_t>(rng() % 201) - 100;
    return a;
}

void expectSameProduct(const BigNum& a, const BigNum& b) {
    const BigNum bytewise = multiplyWith(a, b, false);
    ASSERT_EQ(multiplyWith(a, b, true), bytewise) << test::describe(a) << " * " << test::describe(b);
    ASSERT_EQ(multiply(a, b), bytewise) << test::describe(a) << " * " << test::describe(b);
}

TEST(BigNumMultiplyDifferential, LimbsMatchPairsOnShortOperands) {
    std::mt19937_64 rng(31);
    for (int i = 0; i < 20000; ++i) {
        const int32_t la = 2 + static_cast<int32_t>(rng() % 30);
        const int32_t lb = 2 + static_cast<int32_t>(rng() % 30);
        expectSameProduct(randomOperand(rng, la), randomOperand(rng, lb));
    }
}

TEST(BigNumMultiplyDifferential, LimbsMatchPairsAtTheWorkingLengths) {
    std::mt19937_64 rng(48);
    // 48 and 508 are the working lengths of 80 and 1000 digits; the others
    // are the wider lengths of the functions and every residue modulo 4.
    for (int32_t length : {8, 9, 10, 11, 48, 50, 52, 55, 100, 257, 508, 510, 512, 515, 520}) {
        for (int i = 0; i < 40; ++i) expectSameProduct(randomOperand(rng, length), randomOperand(rng, length));
    }
}

TEST(BigNumMultiplyDifferential, LimbsMatchPairsOnMixedLengths) {
    std::mt19937_64 rng(1000);
    for (int i = 0; i < 400; ++i) {
        const int32_t la = 2 + static_cast<int32_t>(rng() % 600);
        const int32_t lb = 2 + static_cast<int32_t>(rng() % 600);
        expectSameProduct(randomOperand(rng, la), randomOperand(rng, lb));
    }
}

TEST(BigNumMultiplyDifferential, SmallIntegerFactorsAndSquares) {
    std::mt19937_64 rng(5);
    for (int32_t length : {48, 508, 512}) {
        for (int i = 0; i < 30; ++i) {
            const BigNum a = randomOperand(rng, length);
            expectSameProduct(a, a);
            expectSameProduct(a, fromInt(length, 1 + static_cast<int32_t>(rng() % 1000000)));
        }
    }
}

// A factor with one nonzero pair (0.49, 3, 0.25, 7 x 10^-40) takes its own
// one-pass route in multiply; the product must not change.
TEST(BigNumMultiplyDifferential, OnePairFactors) {
    std::mt19937_64 rng(49);
    for (int i = 0; i < 3000; ++i) {
        const int32_t la = 2 + static_cast<int32_t>(rng() % 60);
        const int32_t lb = (i % 3 == 0) ? la : 2 + static_cast<int32_t>(rng() % 60);
        BigNum b = makeZero(lb);
        b.digits[static_cast<std::size_t>(lb - 1)] = static_cast<uint8_t>(1 + rng() % 99);
        b.sign = (rng() % 2 != 0) ? 1 : -1;
        b.exponent = static_cast<int32_t>(rng() % 81) - 40;
        const BigNum a = randomOperand(rng, la);
        expectSameProduct(a, b);
        expectSameProduct(b, a);
        expectSameProduct(b, b);
    }
    for (int32_t length : {48, 508, 510}) {
        for (int i = 0; i < 20; ++i) {
            const BigNum a = randomOperand(rng, length);
            expectSameProduct(a, fromInt(length, 1 + static_cast<int32_t>(rng() % 99)));
            expectSameProduct(fromInt(length, (1 + static_cast<int32_t>(rng() % 9)) * 100), a);
        }
    }
}

}  // namespace
}  // namespace quorvel
