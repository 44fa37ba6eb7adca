// The long division on limbs of sixteen digits, its borrows deferred,
// against the same steps on bytes: every step subtracts the same value, so
// every byte of the quotient, the exponent and the sign must agree, for any
// pair of lengths. Remainders at a digit boundary (75000..., 1000...0001,
// runs of nines) are where the limbs must be read exactly; repeating digits
// and the iterates of the square root make them.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>

#include "bignum_testing.h"
#include "numeric/bignum.h"
#include "numeric/bignum_detail.h"

namespace quorvel {
namespace {

using bignum_detail::divideWith;

// Random pairs, runs of 99 or of 0, a few leading pairs only (a short value
// at a long length), or 1.000...0001-like values next to a power of ten.
BigNum randomOperand(std::mt19937_64& rng, int32_t length) {
    BigNum a = makeZero(length);
    const int pattern = static_cast<int>(rng() % 5);
    const int32_t cut = static_cast<int32_t>(rng() % static_cast<uint64_t>(length));
    for (int32_t i = 0; i < length; ++i) {
        int d = static_cast<int>(rng() % 100);
        if (pattern == 1 && i < cut) d = 99;
        if (pattern == 2 && i < cut) d = 0;
        if (pattern == 3 && i < length - 3) d = 0;
        if (pattern == 4) d = (i == 0) ? 1 : 0;
        a.digits[static_cast<std::size_t>(i)] = static_cast<uint8_t>(d);
    }
    if (a.digits[static_cast<std::size_t>(length - 1)] < 10) a.digits[static_cast<std::size_t>(length - 1)] += 10;
    a.sign = (rng() % 2 != 0) ? 1 : -1;
    a.exponent = static_cast<int32_t>(rng() % 401) - 200;
    return a;
}

void expectSameQuotient(const BigNum& a, const BigNum& b) {
    const BigNum bytes = divideWith(a, b, false);
    ASSERT_EQ(divideWith(a, b, true), bytes) << test::describe(a) << " / " << test::describe(b);
    ASSERT_EQ(divide(a, b), bytes) << test::describe(a) << " / " << test::describe(b);
}

TEST(BigNumDivideDifferential, LimbsMatchBytesOnShortOperands) {
    std::mt19937_64 rng(17);
    for (int i = 0; i < 20000; ++i) {
        const int32_t la = 2 + static_cast<int32_t>(rng() % 30);
        const int32_t lb = 2 + static_cast<int32_t>(rng() % 30);
        expectSameQuotient(randomOperand(rng, la), randomOperand(rng, lb));
    }
}

TEST(BigNumDivideDifferential, LimbsMatchBytesAtTheWorkingLengths) {
    std::mt19937_64 rng(508);
    for (int32_t length : {8, 9, 11, 48, 50, 52, 55, 257, 508, 509, 510, 512, 515}) {
        for (int i = 0; i < 25; ++i) expectSameQuotient(randomOperand(rng, length), randomOperand(rng, length));
    }
}

TEST(BigNumDivideDifferential, LimbsMatchBytesOnMixedLengths) {
    std::mt19937_64 rng(99);
    for (int i = 0; i < 200; ++i) {
        const int32_t la = 2 + static_cast<int32_t>(rng() % 520);
        const int32_t lb = 2 + static_cast<int32_t>(rng() % 520);
        expectSameQuotient(randomOperand(rng, la), randomOperand(rng, lb));
    }
}

TEST(BigNumDivideDifferential, SquaresRootsAndSmallIntegers) {
    std::mt19937_64 rng(2);
    for (int32_t length : {48, 509}) {
        for (int i = 0; i < 20; ++i) {
            const BigNum a = randomOperand(rng, length);
            expectSameQuotient(a, a);
            expectSameQuotient(fromInt(length, 1), a);
            expectSameQuotient(a, fromInt(length, 1 + static_cast<int32_t>(rng() % 2147483646)));
            expectSameQuotient(fromInt(length, 9801), a);
        }
    }
}

// A short random period repeated over the whole mantissa, its last pair
// rounded up now and then (as 17/12 = 1.41666...67).
BigNum repeatingOperand(std::mt19937_64& rng, int32_t length) {
    BigNum a = makeZero(length);
    const int32_t period = 1 + static_cast<int32_t>(rng() % 4);
    uint8_t pattern[4];
    for (uint8_t& p : pattern) p = static_cast<uint8_t>(rng() % 100);
    for (int32_t i = 0; i < length; ++i) a.digits[static_cast<std::size_t>(i)] = pattern[i % period];
    if (rng() % 2 == 0) a.digits[0] = static_cast<uint8_t>((a.digits[0] + 1) % 100);
    if (a.digits[static_cast<std::size_t>(length - 1)] < 10) a.digits[static_cast<std::size_t>(length - 1)] += 10;
    a.sign = (rng() % 2 != 0) ? 1 : -1;
    a.exponent = static_cast<int32_t>(rng() % 21) - 10;
    return a;
}

TEST(BigNumDivideDifferential, RepeatingDigits) {
    std::mt19937_64 rng(1712);
    for (int32_t length : {9, 50, 257, 509}) {
        for (int i = 0; i < 60; ++i) {
            const BigNum a = repeatingOperand(rng, length);
            const BigNum b = repeatingOperand(rng, length);
            expectSameQuotient(a, b);
            expectSameQuotient(fromInt(length, 2 + static_cast<int32_t>(rng() % 98)), b);
            expectSameQuotient(randomOperand(rng, length), b);
        }
    }
}

// Every division of the square root's iteration x' = (a / x + x) x 0.5 from
// x = a x 0.5 (its exponent halved): 2 / 1.5, then 2 / 1.41666...67, ...
TEST(BigNumDivideDifferential, SquareRootIterates) {
    BigNum half = makeZero(2);
    half.digits[1] = 50;
    half.exponent = -1;
    half.sign = 1;
    for (int32_t length : {50, 509}) {
        for (int32_t n : {2, 3, 5, 7, 10, 99, 1000, 123456}) {
            const BigNum a = fromInt(length, n);
            BigNum x = multiply(a, half);
            x.exponent /= 2;
            for (int iteration = 0; iteration < 40; ++iteration) {
                expectSameQuotient(a, x);
                const BigNum next = multiply(add(divideWith(a, x, false), x), half);
                const int c = compare(next, x);
                x = next;
                if (c >= -9 && c <= 9) break;
            }
        }
    }
}

}  // namespace
}  // namespace quorvel
