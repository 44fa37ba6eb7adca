// BigNum construction, length changes, addition and subtraction.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "numeric/bignum.h"
#include "numeric/bignum_detail.h"

namespace quorvel {

using bignum_detail::addPairColumns;
using bignum_detail::incrementExponent;

namespace {

int32_t atLeastTwo(int32_t length) { return length < 2 ? 2 : length; }

int32_t maxLength(const BigNum& a, const BigNum& b) {
    return a.length() > b.length() ? a.length() : b.length();
}

// Operand x's pairs as a sum or difference at `length` bytes reads them:
// out[i + 1] is the pair at decimal offset 2i + shift from x's bottom
// (pairFromBottom), for result bytes i = -1 (the guard) to length - 1. An
// even shift lines whole bytes up; an odd one joins the units digit of one
// byte to the tens digit of the byte below.
std::vector<uint8_t> alignedPairs(const BigNum& x, int64_t shift, int32_t length) {
    std::vector<uint8_t> out(static_cast<std::size_t>(length) + 1, 0);
    const int64_t n = x.length();
    const uint8_t* d = x.digits.data();
    const int64_t count = static_cast<int64_t>(length) + 1;
    if (shift % 2 == 0) {
        // out[k] = x's byte k - 1 + h where that byte exists.
        const int64_t h = shift / 2;
        const int64_t first = std::max<int64_t>(0, 1 - h);
        const int64_t last = std::min<int64_t>(count - 1, n - h);   // inclusive
        if (first <= last) std::copy(d + (first - 1 + h), d + (last + h), out.begin() + first);
    } else {
        // out[k] = units of byte k - 1 + g, then tens of byte k - 2 + g: both
        // bytes exist for k in first..last, one of them at k = 1 - g and at
        // k = n + 1 - g, neither elsewhere (those pairs stay 0).
        const int64_t g = (shift + 1) / 2;
        const auto byteAt = [&](int64_t k) -> int { return (k >= 0 && k < n) ? d[k] : 0; };
        const auto edge = [&](int64_t k) {
            if (k >= 0 && k < count) {
                out[static_cast<std::size_t>(k)] = static_cast<uint8_t>((byteAt(k - 1 + g) % 10) * 10 + byteAt(k - 2 + g) / 10);
            }
        };
        edge(1 - g);
        edge(n + 1 - g);
        const int64_t first = std::max<int64_t>(0, 2 - g);
        const int64_t last = std::min<int64_t>(count - 1, n - g);   // inclusive
        if (first <= last) {
            // Plain pointers, which the compiler turns into vector code.
            const uint8_t* upper = d + (first - 1 + g);
            const uint8_t* lower = d + (first - 2 + g);
            uint8_t* target = out.data() + first;
            const int64_t run = last - first + 1;
            for (int64_t k = 0; k < run; ++k) target[k] = static_cast<uint8_t>((upper[k] % 10) * 10 + lower[k] / 10);
        }
    }
    return out;
}

// |a| + |b| at `length` bytes with one guard pair, given the result sign.
// Both operands are finite and nonzero.
BigNum addMagnitudes(const BigNum& a, const BigNum& b, int32_t length, int8_t sign) {
    const int32_t exponent = a.exponent > b.exponent ? a.exponent : b.exponent;
    // Operand x's pair under result byte i starts at decimal offset 2i + shift(x)
    // from x's bottom, which aligns the operands to a single decimal digit.
    const auto shiftOf = [&](const BigNum& x) {
        return static_cast<int64_t>(exponent) - x.exponent - 2 * static_cast<int64_t>(length - x.length());
    };
    std::vector<uint8_t> pa = alignedPairs(a, shiftOf(a), length);
    const std::vector<uint8_t> pb = alignedPairs(b, shiftOf(b), length);
    // Index 0 is the guard pair, index i + 1 result byte i.
    const int carry = addPairColumns(pa.data(), pb.data(), false, 0, pa.data(), pa.size());
    BigNum r = makeZero(length);
    r.exponent = exponent;
    r.sign = sign;
    int guard = pa[0];
    std::copy(pa.begin() + 1, pa.end(), r.digits.begin());
    if (carry != 0) {
        guard = (r.digits[0] % 10) * 10;
        shiftRightOneDigit(r, carry);
        if (!incrementExponent(r)) return r;
    }
    normalize(r, guard);   // no leading zero here: rounds half up on the guard
    return r;
}

// Orders |a| against |b| for equal exponents: mantissas aligned at the top.
int compareMantissas(const BigNum& a, const BigNum& b) {
    const int32_t na = a.length();
    const int32_t nb = b.length();
    const int32_t n = na > nb ? na : nb;
    for (int32_t i = 0; i < n; ++i) {
        const int pa = (i < na) ? a.digits[na - 1 - i] : 0;
        const int pb = (i < nb) ? b.digits[nb - 1 - i] : 0;
        if (pa != pb) return pa > pb ? 1 : -1;
    }
    return 0;
}

// sign x (|a| - |b|) at `length` bytes with one guard pair; the larger magnitude
// becomes the minuend and the sign is negated when the operands swap. Both
// operands are finite and nonzero.
BigNum subtractMagnitudes(const BigNum& a, const BigNum& b, int32_t length, int8_t sign) {
    int order = 0;
    if (a.exponent != b.exponent) {
        order = a.exponent > b.exponent ? 1 : -1;
    } else {
        order = compareMantissas(a, b);
    }
    if (order == 0) return makeZero(length);
    const BigNum& minuend = order > 0 ? a : b;
    const BigNum& subtrahend = order > 0 ? b : a;
    const int32_t exponent = minuend.exponent;
    const auto shiftOf = [&](const BigNum& x) {
        return static_cast<int64_t>(exponent) - x.exponent - 2 * static_cast<int64_t>(length - x.length());
    };
    std::vector<uint8_t> pm = alignedPairs(minuend, shiftOf(minuend), length);
    const std::vector<uint8_t> ps = alignedPairs(subtrahend, shiftOf(subtrahend), length);
    // Index 0 is the guard pair, index i + 1 result byte i. The difference is
    // the minuend plus the nines' complement of the subtrahend plus one, its
    // carry out of the top dropped: the same pairs as borrowing down the line.
    addPairColumns(pm.data(), ps.data(), true, 1, pm.data(), pm.size());
    BigNum r = makeZero(length);
    r.exponent = exponent;
    r.sign = static_cast<int8_t>(order > 0 ? sign : -sign);
    std::copy(pm.begin() + 1, pm.end(), r.digits.begin());
    normalize(r, pm[0]);
    return r;
}

}  // namespace

// --- Construction -----------------------------------------------------------

BigNum makeZero(int32_t length) {
    BigNum r;
    r.digits.assign(static_cast<std::size_t>(atLeastTwo(length)), 0);
    return r;
}

BigNum makeNaN() {
    BigNum r = makeZero(2);
    r.kind = NumKind::NaN;
    return r;
}

BigNum makeInfinity(int32_t length, int8_t sign) {
    BigNum r = makeZero(length);
    r.sign = sign;
    r.kind = NumKind::Infinite;
    return r;
}

BigNum fromInt(int32_t length, int32_t value) {
    if (value == 0) return makeZero(length);
    uint64_t magnitude = value < 0 ? static_cast<uint64_t>(-static_cast<int64_t>(value))
                                   : static_cast<uint64_t>(value);
    int decimal[12];
    int n = 0;
    for (uint64_t m = magnitude; m != 0; m /= 10) decimal[n++] = static_cast<int>(m % 10);
    const int32_t wanted = n / 2 + 1;
    BigNum r = makeZero(length > wanted ? length : wanted);
    r.sign = value < 0 ? -1 : 1;
    r.exponent = n - 1;
    // Leading digit first: digit number k (0 = d1) goes to the tens or units of
    // byte length-1-k/2.
    const int32_t top = r.length() - 1;
    for (int k = 0; k < n; ++k) {
        const int digit = decimal[n - 1 - k];
        uint8_t& byte = r.digits[top - k / 2];
        byte = static_cast<uint8_t>(byte + ((k % 2 == 0) ? digit * 10 : digit));
    }
    return r;
}

BigNum resized(const BigNum& a, int32_t newLength) {
    const int32_t length = atLeastTwo(newLength);
    BigNum r;
    r.digits.assign(static_cast<std::size_t>(length), 0);
    r.exponent = a.exponent;
    r.sign = a.sign;
    r.kind = a.kind;
    const int32_t old = a.length();
    if (length >= old) {
        for (int32_t i = 0; i < old; ++i) r.digits[length - old + i] = a.digits[i];
        return r;
    }
    const int32_t dropped = old - length;
    for (int32_t i = 0; i < length; ++i) r.digits[i] = a.digits[dropped + i];
    // Rounds up only above 50: a first dropped pair of exactly 50 rounds down.
    if (r.isFinite() && a.digits[dropped - 1] > 50) addAtDigit(r, 1, 0);
    return r;
}

void assign(BigNum& target, const BigNum& source) {
    if (&target == &source) return;
    target.digits = source.digits;   // reuses the array when the lengths agree
    target.exponent = source.exponent;
    target.sign = source.sign;
    target.kind = source.kind;
}

void assignResized(BigNum& target, const BigNum& source, int32_t length) {
    BigNum r = resized(source, length);
    assign(target, r);
}

// --- Addition and subtraction -------------------------------------------------

BigNum add(const BigNum& a, const BigNum& b) {
    const int32_t length = maxLength(a, b);
    if (a.isNaN() || b.isNaN()) return makeNaN();
    if (a.isInfinite()) {
        if (b.isInfinite() && b.sign != a.sign) return makeNaN();
        return makeInfinity(length, a.sign);
    }
    if (b.isInfinite()) return makeInfinity(length, b.sign);
    if (b.isZero()) return resized(a, length);
    if (a.isZero()) return resized(b, length);
    // Different signs: a + b = sign(a) x (|a| - |b|).
    if (a.sign != b.sign) return subtractMagnitudes(a, b, length, a.sign);
    return addMagnitudes(a, b, length, a.sign);
}

BigNum subtract(const BigNum& a, const BigNum& b) {
    const int32_t length = maxLength(a, b);
    if (a.isNaN() || b.isNaN()) return makeNaN();
    if (a.isInfinite()) {
        if (b.isInfinite() && b.sign == a.sign) return makeNaN();
        return makeInfinity(length, a.sign);
    }
    if (b.isInfinite()) return makeInfinity(length, static_cast<int8_t>(-b.sign));
    if (b.isZero()) return resized(a, length);
    if (a.isZero()) {
        BigNum r = resized(b, length);
        r.sign = static_cast<int8_t>(-r.sign);
        return r;
    }
    // Different signs: a - b = sign(a) x (|a| + |b|).
    if (a.sign != b.sign) return addMagnitudes(a, b, length, a.sign);
    return subtractMagnitudes(a, b, length, a.sign);
}

void addInPlace(BigNum& a, const BigNum& b) {
    BigNum r = add(a, b);
    assign(a, r);
}

}  // namespace quorvel
