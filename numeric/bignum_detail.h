// Internal helpers shared by the BigNum implementation files (not a public API).
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

#include "numeric/bignum.h"

namespace quorvel::bignum_detail {

// Turns a into the infinity of its sign and length: zero mantissa, exponent 0.
inline void overflowToInfinity(BigNum& a) {
    for (uint8_t& byte : a.digits) byte = 0;
    a.exponent = 0;
    a.kind = NumKind::Infinite;
}

// Raises the exponent by one; past INT32_MAX the number becomes infinite.
// Returns false when that happened.
inline bool incrementExponent(BigNum& a) {
    if (a.exponent == std::numeric_limits<int32_t>::max()) {
        overflowToInfinity(a);
        return false;
    }
    ++a.exponent;
    return true;
}

// True when v lies outside the signed 32-bit range.
inline bool wrapsInt32(int64_t v) {
    return v > std::numeric_limits<int32_t>::max() || v < std::numeric_limits<int32_t>::min();
}

// Decimal digit at `position` counted from the bottom of a mantissa of
// `length` bytes (0 = units digit of byte 0); outside reads 0.
inline int digitFromBottom(const uint8_t* bytes, int32_t length, int64_t position) {
    if (position < 0 || position >= 2 * static_cast<int64_t>(length)) return 0;
    const int byte = bytes[position / 2];
    return (position % 2 == 0) ? byte % 10 : byte / 10;
}

// Two-digit value whose units digit is at `offset` from the bottom.
inline int pairFromBottom(const uint8_t* bytes, int32_t length, int64_t offset) {
    if (offset % 2 == 0) {
        if (offset >= 0 && offset < 2 * static_cast<int64_t>(length)) return bytes[offset / 2];
        return 0;
    }
    return digitFromBottom(bytes, length, offset + 1) * 10 + digitFromBottom(bytes, length, offset);
}

// out[k], k < count: the base-100 pairs of x + y + carryIn, or of
// x + (99 - y) + carryIn when complementY (x - y, with carryIn 1); the
// pairs of x and y are at most 99, carryIn 0 or 1. Returns the carry out of
// the top column. out may be x or y.
int addPairColumns(const uint8_t* x, const uint8_t* y, bool complementY, int carryIn, uint8_t* out, std::size_t count);

// The truncated product of multiply, its columns summed pair by pair
// (byLimbs false) or on limbs of four pairs (byLimbs true, operands of at
// most 4000 bytes); both give the identical result. multiply picks one.
BigNum multiplyWith(const BigNum& a, const BigNum& b, bool byLimbs);

// The long division of divide, its steps on bytes (byLimbs false) or on
// limbs of sixteen digits (byLimbs true); both give the identical result.
BigNum divideWith(const BigNum& a, const BigNum& b, bool byLimbs);

}  // namespace quorvel::bignum_detail
