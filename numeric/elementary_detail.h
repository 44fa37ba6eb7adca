// Internal helpers shared by the elementary-function files (not a public API).
#pragma once

#include <cstdint>

#include "numeric/bignum.h"
#include "numeric/mathcontext.h"

namespace quorvel::elementary_detail {

// a / v for a small positive integer v at a's length: the same long division
// as divide(a, fromInt(a.length(), v)), with an identical result, in time
// linear in the length (numeric/divide_small.cpp).
BigNum divideBySmall(const BigNum& a, int32_t v);
// The same with the tail shortcut on (fromTail, what divideBySmall does) or
// off (the whole division replayed step by step): identical results.
BigNum divideBySmallWith(const BigNum& a, int32_t v, bool fromTail);

// a / v as a series term added to `sum`: the digits add(sum, term) reads,
// the exponent and the sign are those of divideBySmall(a, v); digits below
// what the sum reads may be left zero (the division then stops where the
// sum's guard ends, and its tail is not replayed). divideBySmall itself
// where that cannot be made sure.
BigNum divideBySmallForSum(const BigNum& a, int32_t v, const BigNum& sum);

// a / v for a small positive integer v, at a's length.
inline BigNum divideByInt(const BigNum& a, int32_t v) { return divideBySmall(a, v); }

// a * v for a small integer v, at a's length (the general multiply).
inline BigNum multiplyByInt(const BigNum& a, int32_t v) { return multiply(a, fromInt(a.length(), v)); }

// A finite value flipped to the other sign (zero stays zero).
inline BigNum negated(BigNum a) {
    a.sign = static_cast<int8_t>(-a.sign);
    return a;
}

// |a| (infinities keep their kind).
inline BigNum magnitude(BigNum a) {
    if (a.sign < 0) a.sign = 1;
    return a;
}

// The stopping rule of a series at P working bytes: a term stops the sum when
// its decimal exponent is at most `bound` or it is exactly zero.
inline bool termIsNegligible(const BigNum& term, int32_t bound) {
    return term.isZero() || !term.isFinite() || term.exponent <= bound;
}

// A constant from the context's cache at `bytes` bytes; every key used here
// is in the table, so a value is always there.
inline BigNum constant(MathContext& math, int32_t bytes, char key) { return *math.GetConstant(bytes, key); }

// The sine/cosine argument reduction: the octant 0..7 of x within a turn and
// the reduced argument r (|r| up to about 2pi, see Sin).
struct OctantReduction {
    int octant = 0;
    BigNum r;
};
// Reduces finite nonzero x with pi at x's length: q = fractionPart(x / 2pi),
// octant = integer part of 8q (+8 for negative q), r = 2pi q, less 2pi for
// octants 4 to 7.
OctantReduction reduceOctant(MathContext& math, const BigNum& x);

}  // namespace quorvel::elementary_detail
