// Digit-level helpers of BigNum: normalisation, adding or subtracting at a
// decimal position, one-digit shifts, digit and pair reads, and comparison.
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

#include "numeric/bignum.h"
#include "numeric/bignum_detail.h"

namespace quorvel {

using bignum_detail::digitFromBottom;
using bignum_detail::incrementExponent;
using bignum_detail::pairFromBottom;

void shiftRightOneDigit(BigNum& a, int incoming) {
    const int32_t n = a.length();
    uint8_t* d = a.digits.data();
    for (int32_t i = 0; i + 1 < n; ++i) {
        d[i] = static_cast<uint8_t>(d[i] / 10 + (d[i + 1] % 10) * 10);
    }
    d[n - 1] = static_cast<uint8_t>((incoming % 10) * 10 + d[n - 1] / 10);
}

void addAtDigit(BigNum& a, int value, int32_t position) {
    if (value < 0) {
        subtractAtDigit(a, -value, position);
        return;
    }
    if (value == 0 || position < 0) return;
    const int32_t n = a.length();
    const int64_t digitCount = 2 * static_cast<int64_t>(n);
    int64_t carry = 0;
    int64_t zerosAbove = 0;   // decimal places between the top digit and the value
    if (position < digitCount) {
        int32_t byte = position / 2;
        carry = static_cast<int64_t>(value) * ((position % 2 == 0) ? 1 : 10);
        while (carry != 0 && byte < n) {
            const int64_t sum = a.digits[byte] + carry;
            a.digits[byte] = static_cast<uint8_t>(sum % 100);
            carry = sum / 100;
            ++byte;
        }
    } else {
        // The value lands above the mantissa: one place above d1 is position 2L.
        carry = value;
        zerosAbove = position - digitCount;
    }
    if (carry == 0) return;
    // Carry out of the top: shift it in digit by digit, raising the exponent.
    if (zerosAbove >= digitCount) {
        // Every old digit would be shifted out: clear them and raise the
        // exponent in one step.
        for (uint8_t& byte : a.digits) byte = 0;
        if (static_cast<int64_t>(a.exponent) + zerosAbove > std::numeric_limits<int32_t>::max()) {
            bignum_detail::overflowToInfinity(a);
            return;
        }
        a.exponent = static_cast<int32_t>(a.exponent + zerosAbove);
        zerosAbove = 0;
    }
    for (int64_t i = 0; i < zerosAbove; ++i) {
        shiftRightOneDigit(a, 0);
        if (!incrementExponent(a)) return;
    }
    while (carry != 0) {
        shiftRightOneDigit(a, static_cast<int>(carry % 10));
        if (!incrementExponent(a)) return;
        carry /= 10;
    }
}

void subtractAtDigit(BigNum& a, int value, int32_t position) {
    if (value < 0) {
        addAtDigit(a, -value, position);
        return;
    }
    const int32_t n = a.length();
    if (value == 0 || position < 0 || position >= 2 * n) return;
    int32_t byte = position / 2;
    int64_t borrow = static_cast<int64_t>(value) * ((position % 2 == 0) ? 1 : 10);
    // A borrow out of the top byte is dropped: callers never take more than the
    // magnitude holds.
    while (borrow != 0 && byte < n) {
        int64_t diff = a.digits[byte] - borrow;
        borrow = 0;
        if (diff < 0) {
            borrow = (-diff + 99) / 100;
            diff += borrow * 100;
        }
        a.digits[byte] = static_cast<uint8_t>(diff);
        ++byte;
    }
}

int decimalDigitAt(const BigNum& a, int32_t position) {
    const int32_t n = a.length();
    if (position < 0 || position >= 2 * n) return 0;
    const int byte = a.digits[n - 1 - position / 2];
    return (position % 2 == 0) ? byte / 10 : byte % 10;
}

int pairAt(const BigNum& a, int32_t offset) {
    return pairFromBottom(a.digits.data(), a.length(), offset);
}

void normalize(BigNum& a, int guard) {
    if (!a.isFinite()) return;
    const int32_t n = a.length();
    const int32_t digitCount = 2 * n;
    int32_t top = n - 1;
    while (top >= 0 && a.digits[top] == 0) --top;
    // Leading zero digits of the mantissa followed by the guard pair. A mantissa
    // that is all zero while the guard is not is shifted up by the guard's
    // digits rather than lost, so a difference below the last pair survives.
    int32_t k = 0;
    if (top >= 0) {
        k = 2 * (n - 1 - top) + (a.digits[top] < 10 ? 1 : 0);
    } else if (guard != 0) {
        k = digitCount + (guard < 10 ? 1 : 0);
    } else {
        k = digitCount + 2;
    }
    const bool allZero = k >= digitCount + 2;
    const bool wraps =
        static_cast<int64_t>(a.exponent) - k < std::numeric_limits<int32_t>::min();
    if (allZero || wraps) {
        for (uint8_t& byte : a.digits) byte = 0;
        a.exponent = 0;
        a.sign = 0;
        return;
    }
    if (k == 0) {
        if (guard >= 50) addAtDigit(a, 1, 0);
        return;
    }
    a.exponent -= k;
    // Extended mantissa: the guard's tens digit sits at position -1, its units at -2.
    const auto extended = [&](int64_t p) -> int {
        if (p >= 0) return digitFromBottom(a.digits.data(), n, p);
        if (p == -1) return guard / 10;
        if (p == -2) return guard % 10;
        return 0;
    };
    if (k % 2 == 0) {
        // Whole bytes up: byte i takes byte i - k/2, the guard lands just
        // below the old bottom, zeros under it.
        const int32_t bytes = k / 2;
        uint8_t* d = a.digits.data();
        if (bytes < n) std::memmove(d + bytes, d, static_cast<std::size_t>(n - bytes));
        const int32_t guardAt = bytes - 1;
        for (int32_t i = 0; i < guardAt && i < n; ++i) d[i] = 0;
        if (guardAt < n) d[guardAt] = static_cast<uint8_t>(guard);
    } else {
        // New byte i takes the digits at 2i+1-k and 2i-k: the units digit of
        // byte i - m and the tens digit of byte i - m - 1 (k = 2m + 1), the
        // guard serving as byte -1. Written to a fresh array, which lets the
        // compiler run the main loop on vectors.
        const int32_t m = (k - 1) / 2;
        const uint8_t* d = a.digits.data();
        std::vector<uint8_t> shifted(static_cast<std::size_t>(n), 0);
        uint8_t* out = shifted.data();
        int32_t i = 0;
        for (; i < n && i - m - 1 < 0; ++i) {
            const int64_t low = 2 * static_cast<int64_t>(i) - k;
            out[i] = static_cast<uint8_t>(extended(low + 1) * 10 + extended(low));
        }
        const uint8_t* upper = d + (i - m);
        const uint8_t* lower = d + (i - m - 1);
        uint8_t* target = out + i;
        const int32_t count = n - i;
        // Sixteen-bit arithmetic: eight lanes to a vector rather than four.
        for (int32_t j = 0; j < count; ++j) {
            const auto high = static_cast<uint16_t>(upper[j]);
            const auto low = static_cast<uint16_t>(lower[j]);
            target[j] = static_cast<uint8_t>(static_cast<uint16_t>(high % 10u) * 10u + low / 10u);
        }
        a.digits.swap(shifted);
    }
    if (k == 1 && guard % 10 >= 5) addAtDigit(a, 1, 0);
}

int compare(const BigNum& a, const BigNum& b) {
    const bool aNaN = a.isNaN();
    const bool bNaN = b.isNaN();
    if (aNaN && bNaN) return 0;
    if (aNaN) return -20 * b.sign;
    if (bNaN) return 20 * a.sign;
    const bool aInf = a.isInfinite();
    const bool bInf = b.isInfinite();
    if (aInf && bInf) return 10 * (a.sign - b.sign);
    if (aInf) return 20 * a.sign;
    if (bInf) return -20 * b.sign;
    if (a.sign == 0 && b.sign == 0) return 0;
    if (a.sign == 0) return -20 * b.sign;
    if (a.sign != b.sign || b.sign == 0) return 20 * a.sign;
    if (a.exponent != b.exponent) return (a.exponent > b.exponent) ? 20 * a.sign : -20 * a.sign;
    // Same sign and exponent: a running base-100 difference from the top pair
    // down. Mantissas of different lengths are aligned at the top; the missing
    // low pairs of the shorter one read 0.
    const int32_t na = a.length();
    const int32_t nb = b.length();
    const int32_t n = na > nb ? na : nb;
    int64_t diff = 0;
    for (int32_t i = 0; i < n; ++i) {
        const int pa = (i < na) ? a.digits[na - 1 - i] : 0;
        const int pb = (i < nb) ? b.digits[nb - 1 - i] : 0;
        diff = diff * 100 + (pa - pb);
        if (diff > 100) return 10 * a.sign;
        if (diff < -100) return -10 * a.sign;
    }
    if (diff > 10) diff = 10;
    if (diff < -10) diff = -10;
    return static_cast<int>(diff) * a.sign;
}

int compareWithDigit(const BigNum& a, int d) {
    // Infinity (and, by the same test on the kind, NaN) counts as larger.
    if (!a.isFinite()) return 1;
    if (a.sign == 0) return -1;
    if (a.exponent > 0) return 1;
    if (a.exponent < 0) return -1;
    const int32_t n = a.length();
    const int topByte = a.digits[n - 1];
    if (topByte > d * 10) return 1;
    if (topByte < d * 10) return -1;
    for (int32_t i = n - 2; i >= 0; --i) {
        if (a.digits[i] != 0) return 1;
    }
    return 0;
}

}  // namespace quorvel
