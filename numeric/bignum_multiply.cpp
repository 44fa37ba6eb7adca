// BigNum multiplication: the truncated schoolbook product with one guard pair.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "numeric/bignum.h"
#include "numeric/bignum_detail.h"

namespace quorvel {

using bignum_detail::incrementExponent;
using bignum_detail::wrapsInt32;

BigNum multiply(const BigNum& a, const BigNum& b) {
    const int32_t length = a.length() > b.length() ? a.length() : b.length();
    if (a.isNaN() || b.isNaN()) return makeNaN();
    // A zero operand is tested before infinity, so zero times infinity is zero.
    if (a.isZero() || b.isZero()) return makeZero(length);
    const int8_t sign = static_cast<int8_t>(a.sign * b.sign);
    if (a.isInfinite() || b.isInfinite()) return makeInfinity(length, sign);
    const int64_t exponent = static_cast<int64_t>(a.exponent) + b.exponent + 1;
    if (wrapsInt32(exponent)) return makeInfinity(length, sign);

    // Full-product byte index i + j lands on result byte i + j - drop. Result
    // bytes 0..length-1 and the guard pair (byte -1) are kept; the two columns
    // below the guard are summed too, only for their carry into the guard, so
    // that at 508 bytes the dropped products stay far below one unit of the
    // last pair. Lower products are dropped. Column sums are kept in 32 bits
    // and carried once at the end.
    const int32_t la = a.length();
    const int32_t lb = b.length();
    const int32_t drop = la + lb - length;
    constexpr int32_t Below = 2;   // summed columns under the guard
    // [0..Below-1] the columns under the guard, [Below] the guard, then the result bytes.
    std::vector<uint32_t> columns(static_cast<std::size_t>(length) + Below + 1, 0);
    const uint8_t* ad = a.digits.data();
    uint32_t* col = columns.data();
    for (int32_t j = 0; j < lb; ++j) {
        const uint32_t bj = b.digits[j];
        if (bj == 0) continue;
        const int32_t base = j - drop + Below + 1;   // column of a's byte 0
        const int32_t first = base < 0 ? -base : 0;
        for (int32_t i = first; i < la; ++i) col[base + i] += ad[i] * bj;
    }

    BigNum r = makeZero(length);
    r.exponent = static_cast<int32_t>(exponent);
    r.sign = sign;
    uint64_t carry = 0;
    int guard = 0;
    for (int32_t k = 0; k <= length + Below; ++k) {
        const uint64_t v = columns[k] + carry;
        carry = v / 100;
        if (k == Below) {
            guard = static_cast<int>(v % 100);
        } else if (k > Below) {
            r.digits[k - Below - 1] = static_cast<uint8_t>(v % 100);
        }
    }
    // A carry out of the top is shifted in digit by digit (it cannot arise from
    // normalised operands, whose mantissa product stays below 100).
    while (carry != 0) {
        guard = (r.digits[0] % 10) * 10 + guard / 10;
        shiftRightOneDigit(r, static_cast<int>(carry % 10));
        if (!incrementExponent(r)) return r;
        carry /= 10;
    }
    normalize(r, guard);
    return r;
}

void multiplyInPlace(BigNum& a, const BigNum& b) {
    BigNum r = multiply(a, b);
    assign(a, r);
}

}  // namespace quorvel
