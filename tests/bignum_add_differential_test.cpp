// add, subtract and normalize against plain digit-by-digit versions of the
// same rules, written here from the public digit readers: the pairs summed
// from the guard up, each read at its own decimal offset, the carry shifted
// in, and normalize shifting leading zeros out with the guard's digits fed
// in. The library lines the operands up in bulk and shifts on whole arrays;
// every byte, the exponent and the sign must come out the same.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <vector>

#include "bignum_testing.h"
#include "numeric/bignum.h"

namespace quorvel {
namespace {

// Decimal digit `position` places above x's lowest digit (0 outside).
int digitFromBottom(const BigNum& x, int64_t position) {
    const int64_t count = 2 * static_cast<int64_t>(x.length());
    if (position < 0 || position >= count) return 0;
    return decimalDigitAt(x, static_cast<int32_t>(count - 1 - position));
}

int pairFromBottom(const BigNum& x, int64_t offset) {
    return digitFromBottom(x, offset + 1) * 10 + digitFromBottom(x, offset);
}

// normalize, one digit at a time: the mantissa's digits and then the guard's
// two, leading zeros counted and shifted out.
void referenceNormalize(BigNum& a, int guard) {
    const int32_t n = a.length();
    std::vector<int> digits;   // d1 .. d2n, guard tens, guard units
    for (int32_t p = 0; p < 2 * n; ++p) digits.push_back(decimalDigitAt(a, p));
    digits.push_back(guard / 10);
    digits.push_back(guard % 10);
    int32_t k = 0;
    while (k < static_cast<int32_t>(digits.size()) && digits[static_cast<std::size_t>(k)] == 0) ++k;
    if (k == static_cast<int32_t>(digits.size())) {
        a = makeZero(n);
        return;
    }
    if (k == 0) {
        if (guard >= 50) addAtDigit(a, 1, 0);
        return;
    }
    a.exponent -= k;
    for (int32_t p = 0; p < 2 * n; ++p) {
        const std::size_t from = static_cast<std::size_t>(p + k);
        const int d = from < digits.size() ? digits[from] : 0;
        uint8_t& byte = a.digits[static_cast<std::size_t>(n - 1 - p / 2)];
        byte = static_cast<uint8_t>(p % 2 == 0 ? d * 10 + byte % 10 : (byte / 10) * 10 + d);
    }
    if (k == 1 && guard % 10 >= 5) addAtDigit(a, 1, 0);
}

int64_t shiftUnder(const BigNum& x, int32_t exponent, int32_t length) {
    return static_cast<int64_t>(exponent) - x.exponent - 2 * static_cast<int64_t>(length - x.length());
}

BigNum referenceAddMagnitudes(const BigNum& a, const BigNum& b, int32_t length, int8_t sign) {
    const int32_t exponent = a.exponent > b.exponent ? a.exponent : b.exponent;
    BigNum r = makeZero(length);
    r.exponent = exponent;
    r.sign = sign;
    int carry = 0;
    int guard = 0;
    for (int32_t i = -1; i < length; ++i) {
        const int64_t off = 2 * static_cast<int64_t>(i);
        const int sum = pairFromBottom(a, off + shiftUnder(a, exponent, length)) +
                        pairFromBottom(b, off + shiftUnder(b, exponent, length)) + carry;
        carry = sum >= 100 ? 1 : 0;
        if (i < 0) {
            guard = sum - 100 * carry;
        } else {
            r.digits[static_cast<std::size_t>(i)] = static_cast<uint8_t>(sum - 100 * carry);
        }
    }
    if (carry != 0) {
        guard = (r.digits[0] % 10) * 10;
        shiftRightOneDigit(r, carry);
        ++r.exponent;
    }
    referenceNormalize(r, guard);
    return r;
}

BigNum referenceSubtractMagnitudes(const BigNum& a, const BigNum& b, int32_t length, int8_t sign) {
    int order = 0;
    if (a.exponent != b.exponent) {
        order = a.exponent > b.exponent ? 1 : -1;
    } else {
        // Mantissas aligned at the top, the shorter one read as zeros below.
        for (int32_t p = 0; p < 2 * std::max(a.length(), b.length()) && order == 0; ++p) {
            const int da = p < 2 * a.length() ? decimalDigitAt(a, p) : 0;
            const int db = p < 2 * b.length() ? decimalDigitAt(b, p) : 0;
            if (da != db) order = da > db ? 1 : -1;
        }
    }
    if (order == 0) return makeZero(length);
    const BigNum& minuend = order > 0 ? a : b;
    const BigNum& subtrahend = order > 0 ? b : a;
    const int32_t exponent = minuend.exponent;
    BigNum r = makeZero(length);
    r.exponent = exponent;
    r.sign = static_cast<int8_t>(order > 0 ? sign : -sign);
    int borrow = 0;
    int guard = 0;
    for (int32_t i = -1; i < length; ++i) {
        const int64_t off = 2 * static_cast<int64_t>(i);
        int diff = pairFromBottom(minuend, off + shiftUnder(minuend, exponent, length)) -
                   pairFromBottom(subtrahend, off + shiftUnder(subtrahend, exponent, length)) - borrow;
        borrow = diff < 0 ? 1 : 0;
        diff += 100 * borrow;
        if (i < 0) {
            guard = diff;
        } else {
            r.digits[static_cast<std::size_t>(i)] = static_cast<uint8_t>(diff);
        }
    }
    referenceNormalize(r, guard);
    return r;
}

BigNum referenceAdd(const BigNum& a, const BigNum& b) {
    const int32_t length = std::max(a.length(), b.length());
    if (a.sign != b.sign) return referenceSubtractMagnitudes(a, b, length, a.sign);
    return referenceAddMagnitudes(a, b, length, a.sign);
}

BigNum referenceSubtract(const BigNum& a, const BigNum& b) {
    const int32_t length = std::max(a.length(), b.length());
    if (a.sign != b.sign) return referenceAddMagnitudes(a, b, length, a.sign);
    return referenceSubtractMagnitudes(a, b, length, a.sign);
}

// A finite nonzero operand: random pairs, runs of 99 or of 0, or a short
// value; a normalised top byte.
BigNum randomOperand(std::mt19937_64& rng, int32_t length, int32_t exponent) {
    BigNum x = makeZero(length);
    const int pattern = static_cast<int>(rng() % 4);
    for (int32_t i = 0; i < length; ++i) {
        int d = static_cast<int>(rng() % 100);
        if (pattern == 1 && rng() % 2 == 0) d = 99;
        if (pattern == 2 && rng() % 2 == 0) d = 0;
        if (pattern == 3 && i < length - 2) d = 0;
        x.digits[static_cast<std::size_t>(i)] = static_cast<uint8_t>(d);
    }
    if (x.digits[static_cast<std::size_t>(length - 1)] < 10) x.digits[static_cast<std::size_t>(length - 1)] += 10;
    x.exponent = exponent;
    x.sign = (rng() % 2 == 0) ? 1 : -1;
    return x;
}

void expectSameSumAndDifference(const BigNum& a, const BigNum& b) {
    ASSERT_EQ(add(a, b), referenceAdd(a, b)) << test::describe(a) << " + " << test::describe(b);
    ASSERT_EQ(subtract(a, b), referenceSubtract(a, b)) << test::describe(a) << " - " << test::describe(b);
}

TEST(BigNumAddDifferential, OperandsOfEveryAlignment) {
    std::mt19937_64 rng(2026);
    for (int i = 0; i < 6000; ++i) {
        const int32_t la = 2 + static_cast<int32_t>(rng() % 30);
        const int32_t lb = (rng() % 2 == 0) ? la : 2 + static_cast<int32_t>(rng() % 30);
        const int32_t ea = static_cast<int32_t>(rng() % 41) - 20;
        // Exponent gaps of both parities, up to beyond the longer operand.
        const int32_t gap = static_cast<int32_t>(rng() % static_cast<uint64_t>(2 * std::max(la, lb) + 6));
        const int32_t eb = (rng() % 2 == 0) ? ea - gap : ea + gap;
        expectSameSumAndDifference(randomOperand(rng, la, ea), randomOperand(rng, lb, eb));
    }
}

TEST(BigNumAddDifferential, NearlyEqualOperandsCancel) {
    std::mt19937_64 rng(99);
    for (int i = 0; i < 3000; ++i) {
        const int32_t length = 2 + static_cast<int32_t>(rng() % 40);
        BigNum a = randomOperand(rng, length, static_cast<int32_t>(rng() % 21) - 10);
        BigNum b = a;
        // Change a few low bytes, so that the difference has many leading zeros.
        const int changes = 1 + static_cast<int>(rng() % 3);
        for (int c = 0; c < changes; ++c) {
            const std::size_t at = static_cast<std::size_t>(rng() % static_cast<uint64_t>(length));
            b.digits[at] = static_cast<uint8_t>(rng() % 100);
        }
        if (b.digits[static_cast<std::size_t>(length - 1)] < 10) b.digits[static_cast<std::size_t>(length - 1)] += 10;
        expectSameSumAndDifference(a, b);
        b.sign = static_cast<int8_t>(-b.sign);
        expectSameSumAndDifference(a, b);
    }
}

TEST(BigNumAddDifferential, WorkingLengthsOfAThousandDigits) {
    std::mt19937_64 rng(1000);
    for (int i = 0; i < 300; ++i) {
        const int32_t length = 500 + static_cast<int32_t>(rng() % 20);
        const int32_t gap = static_cast<int32_t>(rng() % 40);
        expectSameSumAndDifference(randomOperand(rng, length, 3), randomOperand(rng, length, 3 - gap));
    }
}

TEST(BigNumAddDifferential, NormalizeShiftsLikeTheDigitByDigitRule) {
    std::mt19937_64 rng(7);
    for (int i = 0; i < 5000; ++i) {
        const int32_t length = 2 + static_cast<int32_t>(rng() % 60);
        BigNum a = randomOperand(rng, length, static_cast<int32_t>(rng() % 201) - 100);
        // Clear a random number of leading digits (sometimes all of them).
        const int32_t cleared = static_cast<int32_t>(rng() % static_cast<uint64_t>(2 * length + 1));
        for (int32_t p = 0; p < cleared; ++p) {
            uint8_t& byte = a.digits[static_cast<std::size_t>(length - 1 - p / 2)];
            byte = static_cast<uint8_t>(p % 2 == 0 ? byte % 10 : (byte / 10) * 10);
        }
        const int guard = static_cast<int>(rng() % 100);
        BigNum expected = a;
        referenceNormalize(expected, guard);
        normalize(a, guard);
        ASSERT_EQ(a, expected) << "cleared " << cleared << " guard " << guard;
    }
}

}  // namespace
}  // namespace quorvel
