// Division by a small integer for the series: the same long division as
// BigNum divide, step for step, so the result is identical to
// divide(a, fromInt(a.length(), v)) (tests/divide_small_test.cpp compares the
// two on many cases). Only the bookkeeping of the remainder differs.
//
// divide keeps the running remainder's magnitude in a window of bytes and
// subtracts q x divisor from it at each step. With a short divisor the
// remainder is, at every step, a short signed integer W over the dividend's
// own digits still below some decimal position p:
//     remainder = W x 10^p + (the dividend's digits below p),
// which is exact for either sign of W. A step subtracts (or, for a negative
// remainder, adds) q x divisor x 10^shift from W once p has been lowered to
// the shift, and the quotient digit goes to a signed digit array that is
// carried once at the end. The leading digits the estimates read are those of
// |W| (less one when W is negative and the dividend digits below p are not
// all zero: the magnitude is then |W| x 10^p minus them). So every step costs
// a few machine operations.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "numeric/bignum.h"
#include "numeric/bignum_detail.h"
#include "numeric/elementary_detail.h"

namespace quorvel::elementary_detail {

using bignum_detail::incrementExponent;
using bignum_detail::wrapsInt32;

namespace {

// Adds (sign > 0) or subtracts value x 10^position (from the bottom) in a byte
// array, carrying or borrowing upward; nothing leaves the top.
void addSignedAt(std::vector<uint8_t>& bytes, int value, int64_t position, int sign) {
    std::size_t i = static_cast<std::size_t>(position / 2);
    int delta = value * ((position % 2 == 0) ? 1 : 10);
    while (delta != 0 && i < bytes.size()) {
        int v = bytes[i] + (sign > 0 ? delta : -delta);
        delta = 0;
        if (v >= 100) {
            delta = v / 100;
            v %= 100;
        } else if (v < 0) {
            delta = (-v + 99) / 100;
            v += delta * 100;
        }
        bytes[i] = static_cast<uint8_t>(v);
        ++i;
    }
}

int estimateDigit(int r, int d) { return ((r + 1) / d + 1 + r / (d + 1)) / 2; }

constexpr int64_t Pow10[] = {1,
                             10,
                             100,
                             1000,
                             10000,
                             100000,
                             1000000,
                             10000000,
                             100000000,
                             1000000000,
                             10000000000,
                             100000000000,
                             1000000000000,
                             10000000000000,
                             100000000000000,
                             1000000000000000,
                             10000000000000000,
                             100000000000000000};

// Number of decimal digits of m >= 1.
int digitCount(int64_t m) {
    int count = 1;
    while (count < 18 && m >= Pow10[count]) ++count;
    return count;
}

// m / 10^k for k in 0..15, by constant divisors (a variable 64-bit division
// costs more than the rest of a step).
int64_t dividedByPow10(int64_t m, int k) {
    switch (k) {
        case 0: return m;
        case 1: return m / 10;
        case 2: return m / 100;
        case 3: return m / 1000;
        case 4: return m / 10000;
        case 5: return m / 100000;
        case 6: return m / 1000000;
        case 7: return m / 10000000;
        case 8: return m / 100000000;
        case 9: return m / 1000000000;
        case 10: return m / 10000000000;
        case 11: return m / 100000000000;
        case 12: return m / 1000000000000;
        case 13: return m / 10000000000000;
        case 14: return m / 100000000000000;
        default: return m / Pow10[k];
    }
}

}  // namespace

BigNum divideBySmall(const BigNum& a, int32_t v) {
    const int32_t length = a.length();
    const BigNum b = fromInt(length, v);
    if (v <= 0 || b.length() != length || !a.isFinite() || a.isZero()) return divide(a, b);
    const int8_t sign = static_cast<int8_t>(a.sign * b.sign);
    const int64_t exponent = static_cast<int64_t>(a.exponent) - b.exponent;
    if (wrapsInt32(exponent)) return makeInfinity(length, sign);

    // The window of divide: n + 1 bytes, the dividend in bytes n - 1 down to
    // n - length (= 2), decimal positions counted from the window's bottom.
    const int32_t n = length + 2;
    std::vector<int8_t> dividendDigits(static_cast<std::size_t>(2 * (n + 1)), 0);
    for (int32_t k = 0; k < length; ++k) {
        const int pair = a.digits[static_cast<std::size_t>(k)];
        const std::size_t byte = static_cast<std::size_t>(k + n - length);
        dividendDigits[2 * byte] = static_cast<int8_t>(pair % 10);
        dividendDigits[2 * byte + 1] = static_cast<int8_t>(pair / 10);
    }
    // The dividend's digits below p are all zero exactly when p <= lowestNonzero.
    int32_t lowestNonzero = 2 * (n + 1);
    for (int32_t position = 0; position < 2 * (n + 1); ++position) {
        if (dividendDigits[static_cast<std::size_t>(position)] != 0) {
            lowestNonzero = position;
            break;
        }
    }

    // The divisor without its low zero bytes: its integer value and top pair.
    int32_t lowZeros = 0;
    while (b.digits[lowZeros] == 0) ++lowZeros;
    const int32_t lb = b.length() - lowZeros;
    int64_t divisorValue = 0;
    for (int32_t k = lb - 1; k >= 0; --k) divisorValue = divisorValue * 100 + b.digits[lowZeros + k];
    const int divisorTop = b.digits[lowZeros + lb - 1];
    int estimateOfLead[100];
    for (int lead = 0; lead < 100; ++lead) estimateOfLead[lead] = estimateDigit(lead, divisorTop);

    int32_t p = 2 * (n + 1);   // nothing of the dividend taken into W yet
    int64_t W = 0;
    const auto lower = [&] {
        --p;
        W = W * 10 + dividendDigits[static_cast<std::size_t>(p)];
    };

    // Signed quotient digits at decimal positions from the bottom of the
    // quotient (digit s from the top lands at lastDigit - s).
    const int64_t lastDigit = 2 * static_cast<int64_t>(length) - 1;
    std::vector<int32_t> quotientDigits(static_cast<std::size_t>(2 * length + 2), 0);
    int correction = 0;
    const int64_t stepLimit = 20 * (2 * static_cast<int64_t>(n) + 10);
    for (int64_t step = 0; step < stepLimit; ++step) {
        // Enough of the remainder in W to read its three leading digits.
        while (p > 0 && W > -1001 && W < 1001) lower();
        if (W == 0) break;   // exact
        int64_t lead3 = W > 0 ? W : -W;
        if (W < 0 && p > lowestNonzero) --lead3;   // |W| x 10^p less the nonzero digits below
        const int count = digitCount(lead3);
        // |W| stays within about 2 x lb + 6 digits; should it ever grow past
        // what 64 bits hold safely, the general division takes over.
        if (count > 15) return divide(a, b);
        const int64_t top = static_cast<int64_t>(p) + count - 1;   // position of the leading digit
        const int64_t t = 2 * static_cast<int64_t>(n) - 1 - top;   // as a window digit from the top
        if (t > lastDigit + 1) break;   // more than 2L digits below the start
        // The leading three digits (a shorter |W| at p = 0 reads zeros below).
        const int64_t leading = count >= 3 ? dividedByPow10(lead3, count - 3) : lead3 * Pow10[3 - count];
        const int lead = static_cast<int>(leading / 10);
        int q = estimateOfLead[lead];
        int64_t s = t;
        if (q < 1) {
            q = estimateDigit(static_cast<int>(leading), divisorTop);
            if (q < 1) q = 1;
            if (q > 9) q = 9;
            s = t + 1;
        } else if (q > 9) {
            q = 9;
        }
        // q x divisor with its lowest digit at `shift`; below the window's
        // bottom its digits are dropped, as divide drops them.
        const int64_t shift = 2 * static_cast<int64_t>(n) - 2 * static_cast<int64_t>(lb) - s;
        int64_t subtrahend = q * divisorValue;
        if (shift >= 0) {
            while (p > shift) lower();
            subtrahend *= Pow10[shift - p];
        } else {
            while (p > 0) lower();
            subtrahend = dividedByPow10(subtrahend, static_cast<int>(-shift));
        }
        const int before = W > 0 ? 1 : -1;
        W -= before * subtrahend;
        if (s <= lastDigit) {
            quotientDigits[static_cast<std::size_t>(lastDigit - s)] += before * q;
        } else {
            correction += before * q * (s == lastDigit + 1 ? 10 : 1);
        }
    }

    // The signed digits carried into length + 1 bytes (modulo their range, as
    // divide's byte additions drop what leaves the top).
    std::vector<uint8_t> quotient(static_cast<std::size_t>(length) + 1, 0);
    int64_t carry = 0;
    for (std::size_t position = 0; position < quotientDigits.size(); ++position) {
        const int64_t value = quotientDigits[position] + carry;
        int64_t digit = value % 10;
        if (digit < 0) digit += 10;
        carry = (value - digit) / 10;
        quotient[position / 2] = static_cast<uint8_t>(quotient[position / 2] + (position % 2 == 0 ? digit : 10 * digit));
    }
    while (correction < 0) {
        addSignedAt(quotient, 1, 0, -1);
        correction += 100;
    }
    while (correction >= 100) {
        addSignedAt(quotient, 1, 0, 1);
        correction -= 100;
    }
    BigNum r = makeZero(length);
    for (int32_t k = 0; k < length; ++k) r.digits[k] = quotient[k];
    r.exponent = static_cast<int32_t>(exponent);
    r.sign = sign;
    int overflow = quotient[length];
    if (overflow != 0) {
        int guard = correction;
        while (overflow != 0) {
            guard = (r.digits[0] % 10) * 10 + guard / 10;
            shiftRightOneDigit(r, overflow % 10);
            if (!incrementExponent(r)) return r;
            overflow /= 10;
        }
        normalize(r, guard);
    } else if (r.digits[length - 1] < 10) {
        normalize(r, correction);
    } else if (correction > 50) {
        addAtDigit(r, 1, 0);
    }
    return r;
}

}  // namespace quorvel::elementary_detail
