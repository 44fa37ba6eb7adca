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
#include <array>
#include <bit>
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

constexpr int estimateDigit(int r, int d) { return ((r + 1) / d + 1 + r / (d + 1)) / 2; }

// The digit each step takes, for every three leading digits r of the
// remainder and every top pair d (10..99) of a normalised divisor: the
// estimate from the first two digits, or, when that is below 1, from all
// three one place lower (flag 16); clamped to 1..9.
using StepRow = std::array<uint8_t, 1000>;
constexpr std::array<StepRow, 90> StepTable = [] {
    std::array<StepRow, 90> table{};
    for (int d = 10; d < 100; ++d) {
        for (int r = 0; r < 1000; ++r) {
            const int fromTwo = estimateDigit(r / 10, d);
            const bool oneLower = fromTwo < 1;
            int q = oneLower ? estimateDigit(r, d) : fromTwo;
            q = q < 1 ? 1 : (q > 9 ? 9 : q);
            table[static_cast<std::size_t>(d - 10)][static_cast<std::size_t>(r)] = static_cast<uint8_t>(q | (oneLower ? 16 : 0));
        }
    }
    return table;
}();

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
                             100000000000000000,
                             1000000000000000000};

constexpr double InversePow10[] = {1e0,   1e-1,  1e-2,  1e-3,  1e-4,  1e-5,  1e-6,  1e-7,  1e-8,  1e-9,
                                   1e-10, 1e-11, 1e-12, 1e-13, 1e-14, 1e-15, 1e-16, 1e-17, 1e-18};

// Number of decimal digits of 1 <= m < 10^18.
int digitCount(int64_t m) {
    const int bits = 64 - std::countl_zero(static_cast<uint64_t>(m));
    const int below = (bits * 1233) >> 12;   // floor(log10(2^bits)), one short at most
    return below + (m >= Pow10[below] ? 1 : 0);
}

// floor(m / 10^k) for 0 <= m < 2^52 and k <= 18: a double estimate, then
// corrected by one either way (a variable 64-bit division costs more than the
// rest of a step).
int64_t dividedByPow10(int64_t m, int k) {
    int64_t q = static_cast<int64_t>(static_cast<double>(m) * InversePow10[k]);
    if (q * Pow10[k] > m) --q;
    if ((q + 1) * Pow10[k] <= m) ++q;
    return q;
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
    const StepRow& stepOf = StepTable[static_cast<std::size_t>(b.digits[lowZeros + lb - 1] - 10)];

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
        // |W| x 10^p, less the dividend's nonzero digits below p when W < 0.
        const int64_t lead3 = (W > 0 ? W : -W) - ((W < 0) & (p > lowestNonzero));
        // Nearly always four digits here (the loop above stops at the fourth).
        const int count = (lead3 >= 1000 && lead3 < 10000) ? 4 : digitCount(lead3);
        // |W| stays within about 2 x lb + 6 digits; should it ever grow past
        // what 64 bits hold safely, the general division takes over.
        if (count > 15) return divide(a, b);
        const int64_t top = static_cast<int64_t>(p) + count - 1;   // position of the leading digit
        const int64_t t = 2 * static_cast<int64_t>(n) - 1 - top;   // as a window digit from the top
        if (t > lastDigit + 1) break;   // more than 2L digits below the start
        // The leading three digits (a shorter |W| at p = 0 reads zeros below).
        int64_t leading;
        if (count == 4) {
            leading = lead3 / 10;
        } else {
            leading = count >= 3 ? dividedByPow10(lead3, count - 3) : lead3 * Pow10[3 - count];
        }
        const int entry = stepOf[static_cast<std::size_t>(leading)];
        const int q = entry & 15;
        const int64_t s = t + (entry >> 4);
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
    int32_t carry = 0;
    for (std::size_t byte = 0; byte < quotient.size(); ++byte) {
        // A pair of signed digits and the carry; the floor division by 100
        // keeps the pair in 0..99 for negative values too.
        const int32_t value = quotientDigits[2 * byte] + 10 * quotientDigits[2 * byte + 1] + carry;
        const int32_t pair = ((value % 100) + 100) % 100;
        carry = (value - pair) / 100;
        quotient[byte] = static_cast<uint8_t>(pair);
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
