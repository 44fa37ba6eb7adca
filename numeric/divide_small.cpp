// Division by a small integer for the series: the same long division as
// BigNum divide, step for step, so the result is identical to
// divide(a, fromInt(a.length(), v)) (tests/divide_small_test.cpp compares the
// two on many cases). Only the bookkeeping of the remainder differs.
//
// When a step overshoots, divide replaces the remainder's magnitude by
// q x divisor minus it, which rewrites every byte below the step: with a long
// dividend and a short divisor that is most of the work. Here the bytes below
// the lowest one any step has touched stay "lazy": they are the dividend's
// own bytes, or their hundreds' complement after an odd number of such
// rewrites, and are produced only when a step reaches them. Each step then
// costs a few bytes, as the divisor is short.
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

// The running remainder's magnitude in a window of n + 1 bytes whose bytes
// below `lazyBelow` are not stored yet.
class Remainder {
public:
    Remainder(const BigNum& a, int32_t n) : n_(n), original_(static_cast<std::size_t>(n) + 1, 0),
                                            bytes_(static_cast<std::size_t>(n) + 1, 0), lazyBelow_(n + 1) {
        const int32_t la = a.length();
        for (int32_t k = 0; k < la; ++k) original_[n - 1 - k] = a.digits[la - 1 - k];
        lowestNonzero_ = n + 1;
        for (int32_t i = 0; i <= n; ++i) {
            if (original_[i] != 0) {
                lowestNonzero_ = i;
                break;
            }
        }
    }

    // Byte i, produced first when it is still lazy.
    uint8_t& at(int32_t i) {
        materialize(i);
        return bytes_[static_cast<std::size_t>(i)];
    }

    // Produces every byte from index i upward.
    void materialize(int32_t i) {
        while (lazyBelow_ > i) {
            --lazyBelow_;
            bytes_[lazyBelow_] = lazyByte(lazyBelow_);
        }
    }

    // Decimal digit t counted from the window's top (bottom position 2n - 1 - t).
    int digit(int64_t t) {
        const int64_t position = 2 * static_cast<int64_t>(n_) - 1 - t;
        if (position < 0 || position >= 2 * static_cast<int64_t>(n_ + 1)) return 0;
        const int byte = at(static_cast<int32_t>(position / 2));
        return (position % 2 == 0) ? byte % 10 : byte / 10;
    }

    // True when a byte below index `low` (produced or lazy) is nonzero.
    bool anyNonzeroBelow(int32_t low) const {
        for (int32_t i = lazyBelow_; i < low; ++i) {
            if (bytes_[i] != 0) return true;
        }
        return lowestNonzero_ < lazyBelow_ && lowestNonzero_ < low;
    }

    // Replaces the bytes below index `low` by their hundreds' complement and
    // returns the borrow into byte `low` (1 when they were nonzero). Bytes from
    // `low` up must already be produced.
    int complementBelow(int32_t low) {
        // The lazy part flips between the dividend's bytes and their complement;
        // it borrows from the stored part above it when it is nonzero.
        int borrow = lowestNonzero_ < lazyBelow_ ? 1 : 0;
        complemented_ = !complemented_;
        for (int32_t i = lazyBelow_; i < low; ++i) {
            const int v = -bytes_[i] - borrow;
            borrow = v < 0 ? 1 : 0;
            bytes_[i] = static_cast<uint8_t>(v + 100 * borrow);
        }
        return borrow;
    }

    int32_t lazyBelow() const { return lazyBelow_; }

private:
    // Byte i of the lazy part: the dividend's byte, or the byte of the
    // complement of the dividend's bytes below i + 1.
    uint8_t lazyByte(int32_t i) const {
        const int d = original_[i];
        if (!complemented_) return static_cast<uint8_t>(d);
        if (lowestNonzero_ < i) return static_cast<uint8_t>(99 - d);
        return static_cast<uint8_t>(d == 0 ? 0 : 100 - d);
    }

    int32_t n_;
    std::vector<uint8_t> original_;
    std::vector<uint8_t> bytes_;
    int32_t lazyBelow_;
    int32_t lowestNonzero_;
    bool complemented_ = false;
};

}  // namespace

BigNum divideBySmall(const BigNum& a, int32_t v) {
    const int32_t length = a.length();
    const BigNum b = fromInt(length, v);
    if (v <= 0 || b.length() != length || !a.isFinite() || a.isZero()) return divide(a, b);
    const int8_t sign = static_cast<int8_t>(a.sign * b.sign);
    const int64_t exponent = static_cast<int64_t>(a.exponent) - b.exponent;
    if (wrapsInt32(exponent)) return makeInfinity(length, sign);

    const int32_t n = length + 2;
    Remainder rem(a, n);

    int32_t lowZeros = 0;
    while (b.digits[lowZeros] == 0) ++lowZeros;
    const uint8_t* divisor = b.digits.data() + lowZeros;
    const int32_t lb = b.length() - lowZeros;
    const int32_t width = lb + 1;
    std::vector<uint8_t> multiples(static_cast<std::size_t>(18) * width, 0);
    for (int q = 1; q <= 9; ++q) {
        uint8_t* m = &multiples[static_cast<std::size_t>(q - 1) * width];
        uint8_t* m10 = &multiples[static_cast<std::size_t>(q + 8) * width];
        int carry = 0;
        for (int32_t k = 0; k < width; ++k) {
            const int value = (k < lb ? divisor[k] * q : 0) + carry;
            m[k] = static_cast<uint8_t>(value % 100);
            carry = value / 100;
        }
        for (int32_t k = 0; k < width; ++k) {
            m10[k] = static_cast<uint8_t>((m[k] % 10) * 10 + (k > 0 ? m[k - 1] / 10 : 0));
        }
    }
    const int divisorTop = divisor[lb - 1];
    // The estimate from two leading digits, for every value they can take.
    int estimateOfLead[100];
    for (int lead = 0; lead < 100; ++lead) estimateOfLead[lead] = estimateDigit(lead, divisorTop);

    std::vector<uint8_t> quotient(static_cast<std::size_t>(length) + 1, 0);
    const int64_t lastDigit = 2 * static_cast<int64_t>(length) - 1;
    int correction = 0;
    int remSign = 1;
    int32_t topIndex = n;
    const int64_t stepLimit = 20 * (2 * static_cast<int64_t>(n) + 10);
    for (int64_t step = 0; step < stepLimit; ++step) {
        while (topIndex >= 0 && rem.at(topIndex) == 0) --topIndex;
        if (topIndex < 0) break;
        const int64_t t = 2 * static_cast<int64_t>(n - 1 - topIndex) + (rem.at(topIndex) < 10 ? 1 : 0);
        if (t > lastDigit + 1) break;
        const int lead = rem.digit(t) * 10 + rem.digit(t + 1);
        int q = estimateOfLead[lead];
        int64_t s = t;
        if (q < 1) {
            q = estimateDigit(lead * 10 + rem.digit(t + 2), divisorTop);
            if (q < 1) q = 1;
            if (q > 9) q = 9;
            s = t + 1;
        } else if (q > 9) {
            q = 9;
        }
        const int64_t shift = 2 * static_cast<int64_t>(n) - 2 * static_cast<int64_t>(lb) - s;
        const bool odd = (shift % 2) != 0;
        const int64_t offset = (odd ? shift - 1 : shift) / 2;
        const uint8_t* m = &multiples[static_cast<std::size_t>(odd ? q + 8 : q - 1) * width];
        const int32_t low = offset < 0 ? 0 : static_cast<int32_t>(offset);
        const int64_t top = offset + width - 1;
        const int32_t high = top < n ? static_cast<int32_t>(top) : n;
        rem.materialize(low);
        int order = 0;
        for (int32_t idx = topIndex > high ? topIndex : high; idx >= low; --idx) {
            const int w = rem.at(idx);
            const int tm = idx <= high ? m[idx - offset] : 0;
            if (w != tm) {
                order = w > tm ? 1 : -1;
                break;
            }
        }
        if (order == 0 && rem.anyNonzeroBelow(low)) order = 1;
        const int before = remSign;
        int borrow = 0;
        if (order >= 0) {
            for (int32_t idx = low; idx <= high; ++idx) {
                uint8_t& w = rem.at(idx);
                const int value = w - m[idx - offset] - borrow;
                borrow = value < 0 ? 1 : 0;
                w = static_cast<uint8_t>(value + 100 * borrow);
            }
            for (int32_t idx = high + 1; borrow != 0 && idx <= n; ++idx) {
                uint8_t& w = rem.at(idx);
                const int value = w - 1;
                borrow = value < 0 ? 1 : 0;
                w = static_cast<uint8_t>(value + 100 * borrow);
            }
        } else {
            borrow = rem.complementBelow(low);
            for (int32_t idx = low; idx <= high; ++idx) {
                uint8_t& w = rem.at(idx);
                const int value = m[idx - offset] - w - borrow;
                borrow = value < 0 ? 1 : 0;
                w = static_cast<uint8_t>(value + 100 * borrow);
            }
            remSign = -remSign;
        }
        if (s <= lastDigit) {
            addSignedAt(quotient, q, lastDigit - s, before);
        } else {
            correction += before * q * (s == lastDigit + 1 ? 10 : 1);
        }
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
