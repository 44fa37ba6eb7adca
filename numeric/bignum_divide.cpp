// BigNum division: non-restoring long division, one decimal quotient digit per
// step, estimated from the leading digits of the remainder and the divisor.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "numeric/bignum.h"
#include "numeric/bignum_detail.h"
#include "numeric/divide_remainder.h"
#include "numeric/division_step_table.h"

namespace quorvel {

using bignum_detail::digitFromBottom;
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

using bignum_detail::estimateDigit;

// The long division's steps on the window of bytes: fills the quotient
// (length + 1 bytes) and the correction pair.
void stepsOnBytes(const BigNum& a, const BigNum& b, int32_t length, std::vector<uint8_t>& quotient, int& correction) {
    // The running remainder: the dividend's magnitude in a window of length + 2
    // bytes topped by one headroom byte (index n). Window digit t counted from
    // the top (0 = the dividend's d1) is bottom position 2n - 1 - t.
    const int32_t n = length + 2;
    const int32_t la = a.length();
    std::vector<uint8_t> rem(static_cast<std::size_t>(n) + 1, 0);
    for (int32_t k = 0; k < la; ++k) rem[n - 1 - k] = a.digits[la - 1 - k];
    const auto remDigit = [&](int64_t t) {
        return digitFromBottom(rem.data(), n + 1, 2 * static_cast<int64_t>(n) - 1 - t);
    };

    // q x divisor for q = 1..9, as is and times ten (for odd alignments), each
    // in lb + 1 bytes. The divisor's low zero bytes are left out: they change
    // nothing but the work per step (dividing by a small integer stays cheap).
    int32_t lowZeros = 0;
    while (b.digits[lowZeros] == 0) ++lowZeros;   // stops: the top byte is nonzero
    const uint8_t* divisor = b.digits.data() + lowZeros;
    const int32_t lb = b.length() - lowZeros;
    const int32_t width = lb + 1;
    std::vector<uint8_t> multiples(static_cast<std::size_t>(18) * width, 0);
    for (int q = 1; q <= 9; ++q) {
        uint8_t* m = &multiples[static_cast<std::size_t>(q - 1) * width];
        uint8_t* m10 = &multiples[static_cast<std::size_t>(q + 8) * width];
        int carry = 0;
        for (int32_t k = 0; k < width; ++k) {
            const int v = (k < lb ? divisor[k] * q : 0) + carry;
            m[k] = static_cast<uint8_t>(v % 100);
            carry = v / 100;
        }
        for (int32_t k = 0; k < width; ++k) {
            m10[k] = static_cast<uint8_t>((m[k] % 10) * 10 + (k > 0 ? m[k - 1] / 10 : 0));
        }
    }
    const int divisorTop = divisor[lb - 1];

    // The quotient in length bytes plus one overflow byte above d1; quotient
    // digit s counted from the top is bottom position 2 * length - 1 - s.
    // Digits s = 2L and 2L + 1 go to the correction pair instead.
    const int64_t lastDigit = 2 * static_cast<int64_t>(length) - 1;
    int remSign = 1;
    int32_t topIndex = n;
    // Each step gains about a digit; the bound only guards against a stall.
    const int64_t stepLimit = 20 * (2 * static_cast<int64_t>(n) + 10);
    for (int64_t step = 0; step < stepLimit; ++step) {
        while (topIndex >= 0 && rem[topIndex] == 0) --topIndex;
        if (topIndex < 0) break;   // exact
        const int64_t t = 2 * static_cast<int64_t>(n - 1 - topIndex) + (rem[topIndex] < 10 ? 1 : 0);
        if (t > lastDigit + 1) break;   // more than 2L digits below the start
        const int lead = remDigit(t) * 10 + remDigit(t + 1);
        int q = estimateDigit(lead, divisorTop);
        int64_t s = t;
        if (q < 1) {
            q = estimateDigit(lead * 10 + remDigit(t + 2), divisorTop);
            if (q < 1) q = 1;
            if (q > 9) q = 9;
            s = t + 1;
        } else if (q > 9) {
            q = 9;
        }
        // Subtract q x divisor with its d1 at window digit s from the magnitude.
        const int64_t shift = 2 * static_cast<int64_t>(n) - 2 * static_cast<int64_t>(lb) - s;
        const bool odd = (shift % 2) != 0;
        const int64_t offset = (odd ? shift - 1 : shift) / 2;   // exact division
        const uint8_t* m = &multiples[static_cast<std::size_t>(odd ? q + 8 : q - 1) * width];
        const int32_t low = offset < 0 ? 0 : static_cast<int32_t>(offset);
        const int64_t top = offset + width - 1;   // the multiple's top byte in the window
        const int32_t high = top < n ? static_cast<int32_t>(top) : n;
        uint8_t* window = rem.data();
        // Which is larger, the remainder's magnitude or q x divisor? Decided
        // from the top, nearly always within a byte or two.
        int order = 0;
        for (int32_t idx = topIndex > high ? topIndex : high; idx >= low; --idx) {
            const int w = window[idx];
            const int t = idx <= high ? m[idx - offset] : 0;
            if (w != t) {
                order = w > t ? 1 : -1;
                break;
            }
        }
        for (int32_t idx = 0; order == 0 && idx < low; ++idx) {
            if (window[idx] != 0) order = 1;
        }
        const int before = remSign;
        int borrow = 0;
        if (order >= 0) {
            for (int32_t idx = low; idx <= high; ++idx) {
                const int v = window[idx] - m[idx - offset] - borrow;
                borrow = v < 0 ? 1 : 0;
                window[idx] = static_cast<uint8_t>(v + 100 * borrow);
            }
            for (int32_t idx = high + 1; borrow != 0 && idx <= n; ++idx) {
                const int v = window[idx] - 1;
                borrow = v < 0 ? 1 : 0;
                window[idx] = static_cast<uint8_t>(v + 100 * borrow);
            }
        } else {
            // The difference crosses zero: the new magnitude is q x divisor minus
            // the remainder (the window holds nothing above `high` here), and the
            // remainder's sign flips.
            for (int32_t idx = 0; idx <= high; ++idx) {
                const int t = idx >= low ? m[idx - offset] : 0;
                const int v = t - window[idx] - borrow;
                borrow = v < 0 ? 1 : 0;
                window[idx] = static_cast<uint8_t>(v + 100 * borrow);
            }
            remSign = -remSign;
        }
        if (s <= lastDigit) {
            addSignedAt(quotient, q, lastDigit - s, before);
        } else {
            correction += before * q * (s == lastDigit + 1 ? 10 : 1);
        }
    }

}

// The same steps on limbs of sixteen decimal digits (base 10^16): the
// window's decimal position x is digit x mod 16 of limb x / 16, so a multiple
// of the divisor at any decimal shift is one of sixteen pre-shifted copies
// placed at a whole limb. Subtracting then walks an eighth as many places,
// on a signed remainder whose borrows wait (numeric/divide_remainder.h), and
// the values subtracted, the estimates and the quotient digits are those of
// the byte steps, so the quotient is identical.
constexpr int32_t DigitsPerLimb = 16;
constexpr int64_t LimbBase = 10000000000000000;
constexpr uint64_t Pow10u[] = {1,
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
                               10000000000000000};

void stepsOnLimbs(const BigNum& a, const BigNum& b, int32_t length, std::vector<uint8_t>& quotient, int& correction) {
    // The window of the byte steps: n + 1 bytes, decimal positions 0..2n + 1.
    const int32_t n = length + 2;
    const int32_t la = a.length();
    const int32_t nl = (2 * (n + 1) + DigitsPerLimb - 1) / DigitsPerLimb;
    std::vector<int64_t> rem(static_cast<std::size_t>(nl), 0);
    for (int32_t k = 0; k < la; ++k) {
        const int32_t position = 2 * (n - 1 - k);   // the byte's units digit
        rem[static_cast<std::size_t>(position / DigitsPerLimb)] +=
            static_cast<int64_t>(a.digits[static_cast<std::size_t>(la - 1 - k)] * Pow10u[position % DigitsPerLimb]);
    }

    // The divisor without its low zero bytes, shifted up by r = 0..15 digits,
    // and q x that for q = 1..9, each in wl limbs.
    int32_t lowZeros = 0;
    while (b.digits[lowZeros] == 0) ++lowZeros;   // stops: the top byte is nonzero
    const int32_t lb = b.length() - lowZeros;
    const int divisorTop = b.digits[lowZeros + lb - 1];
    const int32_t wl = (2 * lb + DigitsPerLimb - 1) / DigitsPerLimb + 1;
    std::vector<int64_t> shifted(static_cast<std::size_t>(DigitsPerLimb) * wl, 0);
    for (int32_t k = 0; k < lb; ++k) {
        const int32_t position = 2 * k;
        shifted[static_cast<std::size_t>(position / DigitsPerLimb)] +=
            static_cast<int64_t>(b.digits[static_cast<std::size_t>(lowZeros + k)] * Pow10u[position % DigitsPerLimb]);
    }
    for (int r = 1; r < DigitsPerLimb; ++r) {
        const int64_t* from = &shifted[static_cast<std::size_t>(r - 1) * wl];
        int64_t* to = &shifted[static_cast<std::size_t>(r) * wl];
        int64_t carry = 0;
        for (int32_t k = 0; k < wl; ++k) {
            const int64_t v = from[k] * 10 + carry;   // below 10^17
            to[k] = v % LimbBase;
            carry = v / LimbBase;
        }
    }
    // q x each shifted divisor, q = 1..9, limb by limb without carries (each
    // limb below 9 x 10^16): the remainder's limbs take any values.
    std::vector<int64_t> multiples(static_cast<std::size_t>(9 * DigitsPerLimb) * wl, 0);
    std::copy(shifted.begin(), shifted.end(), multiples.begin());
    for (std::size_t q = 1; q < 9; ++q) {
        const int64_t* previous = &multiples[(q - 1) * DigitsPerLimb * wl];
        int64_t* m = &multiples[q * DigitsPerLimb * wl];
        for (std::size_t k = 0; k < static_cast<std::size_t>(DigitsPerLimb) * wl; ++k) m[k] = previous[k] + shifted[k];
    }
    // The carry the limbs of q x (shifted divisor r) below limb j pass into
    // limb j when carried: where those limbs fall below the window, the byte
    // steps drop them carried, so that carry still counts. It lies in 0..q-1,
    // and a limb whose product leaves at least q - 1 below the next multiple
    // of 10^16 decides it whatever comes from below.
    std::vector<std::pair<uint64_t, uint64_t>> walked;   // limbs split on the way down
    const auto droppedCarry = [&](int q, int64_t r, int64_t j) {
        const int64_t* divisorLimbs = &shifted[static_cast<std::size_t>(r) * wl];
        walked.clear();
        uint64_t carry = 0;
        for (int64_t k = j - 1; k >= 0; --k) {
            const auto product = static_cast<uint64_t>(q * divisorLimbs[k]);   // unsigned: cheaper division
            const uint64_t c = product / LimbBase;
            const uint64_t residue = product - c * LimbBase;
            if (residue <= static_cast<uint64_t>(LimbBase - q)) {
                carry = c;
                break;
            }
            walked.emplace_back(c, residue);
        }
        // Back up, each limb taking the carry from below (below q).
        for (auto it = walked.rbegin(); it != walked.rend(); ++it) carry = it->first + (it->second + carry >= static_cast<uint64_t>(LimbBase) ? 1 : 0);
        return static_cast<int64_t>(carry);
    };

    const int64_t lastDigit = 2 * static_cast<int64_t>(length) - 1;
    // Signed quotient digits from the bottom (digit s from the top at
    // lastDigit - s), carried once at the end.
    std::vector<int32_t> digits(2 * quotient.size(), 0);
    bignum_detail::LazyRemainder remainder(std::move(rem));
    const bignum_detail::StepRow& steps = bignum_detail::stepRow(divisorTop);
    const int64_t stepLimit = 20 * (2 * static_cast<int64_t>(n) + 10);
    for (int64_t step = 0; step < stepLimit; ++step) {
        const bignum_detail::LazyRemainder::Lead lead = remainder.read();
        if (lead.sign == 0) break;   // exact
        const int64_t t = 2 * static_cast<int64_t>(n) - 1 - lead.position;
        if (t > lastDigit + 1) break;   // more than 2L digits below the start
        const int entry = steps[static_cast<std::size_t>(lead.leading)];
        const int q = entry % bignum_detail::OneLowerFlag;
        const int64_t s = t + (entry / bignum_detail::OneLowerFlag);
        // The remainder's magnitude less q x divisor with its lowest digit at
        // decimal position `shift` (limbs below the window dropped, as the
        // byte steps drop those bytes): on the signed remainder, q x divisor
        // taken from it with its own sign, which flips the sign exactly when
        // the magnitude was the smaller.
        const int64_t shift = 2 * static_cast<int64_t>(n) - 2 * static_cast<int64_t>(lb) - s;
        const int64_t r = ((shift % DigitsPerLimb) + DigitsPerLimb) % DigitsPerLimb;
        const int64_t offset = (shift - r) / DigitsPerLimb;
        const int64_t* m = &multiples[static_cast<std::size_t>((q - 1) * DigitsPerLimb + r) * wl];
        const int32_t low = offset < 0 ? 0 : static_cast<int32_t>(offset);
        const int64_t top = offset + wl - 1;
        const int32_t high = top < nl - 1 ? static_cast<int32_t>(top) : nl - 1;
        const int64_t carryIn = offset < 0 ? droppedCarry(q, r, -offset) : 0;
        remainder.subtract(m, low, high, offset, lead.sign, carryIn);
        if (s <= lastDigit) {
            digits[static_cast<std::size_t>(lastDigit - s)] += lead.sign * q;
        } else {
            correction += lead.sign * q * (s == lastDigit + 1 ? 10 : 1);
        }
    }
    // The signed digits carried into the quotient's bytes, modulo their range
    // (the byte steps' additions drop what leaves the top): the same bytes.
    int32_t carry = 0;
    for (std::size_t byte = 0; byte < quotient.size(); ++byte) {
        // A pair of signed digits and the carry; the floor division by 100
        // keeps the pair in 0..99 for negative values too.
        const int32_t value = digits[2 * byte] + 10 * digits[2 * byte + 1] + carry;
        const int32_t pair = ((value % 100) + 100) % 100;
        carry = (value - pair) / 100;
        quotient[byte] = static_cast<uint8_t>(pair);
    }
}

}  // namespace

BigNum bignum_detail::divideWith(const BigNum& a, const BigNum& b, bool byLimbs) {
    const int32_t length = a.length() > b.length() ? a.length() : b.length();
    if (a.isNaN() || b.isNaN()) return makeNaN();
    if (b.isZero()) {
        BigNum r = makeZero(length);
        r.kind = NumKind::NaN;
        if (a.isZero()) {
            // 0 / 0 keeps a mantissa of 1 (d1 = 1) and sign 1.
            r.digits[length - 1] = 10;
            r.sign = 1;
        }
        return r;
    }
    const int8_t sign = static_cast<int8_t>(a.sign * b.sign);
    if (a.isInfinite()) {
        if (b.isInfinite()) return makeNaN();
        return makeInfinity(length, sign);
    }
    if (b.isInfinite() || a.isZero()) return makeZero(length);
    const int64_t exponent = static_cast<int64_t>(a.exponent) - b.exponent;
    if (wrapsInt32(exponent)) return makeInfinity(length, sign);

    std::vector<uint8_t> quotient(static_cast<std::size_t>(length) + 1, 0);
    int correction = 0;
    if (byLimbs) {
        stepsOnLimbs(a, b, length, quotient, correction);
    } else {
        stepsOnBytes(a, b, length, quotient, correction);
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
        // Not reached for normalised operands (their mantissa ratio is below 10);
        // kept safe by shifting the excess in like a carry out of the top.
        int guard = correction;
        while (overflow != 0) {
            guard = (r.digits[0] % 10) * 10 + guard / 10;
            shiftRightOneDigit(r, overflow % 10);
            if (!incrementExponent(r)) return r;
            overflow /= 10;
        }
        normalize(r, guard);
    } else if (r.digits[length - 1] < 10) {
        // Leading zeros are shifted out with the correction digits fed in
        // (normalize also rounds on the correction's last digit after a
        // one-digit shift); no other rounding then.
        normalize(r, correction);
    } else if (correction > 50) {
        // Rounds up only when the final remainder pair exceeds 50: exactly 50
        // rounds down.
        addAtDigit(r, 1, 0);
    }
    return r;
}

BigNum divide(const BigNum& a, const BigNum& b) {
    // Limbs pay off once the divisor has a few limbs; the steps are the same.
    const bool byLimbs = b.length() >= 8;
    return bignum_detail::divideWith(a, b, byLimbs);
}

void divideInPlace(BigNum& a, const BigNum& b) {
    BigNum r = divide(a, b);
    assign(a, r);
}

}  // namespace quorvel
