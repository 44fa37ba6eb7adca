// BigNum multiplication: the truncated schoolbook product with one guard pair.
//
// The product keeps every pair product a_i b_j whose byte index i + j reaches
// the lowest summed column and drops the rest. Two ways compute that same
// truncated sum: byte by byte (columnsBytewise), and on limbs of four pairs
// (columnsByLimbs), where the limb products that straddle the lowest column
// are taken apart pair by pair. Both yield the same integer, so the rounded
// result is identical (tests/bignum_multiply_differential_test.cpp).
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include "numeric/bignum.h"
#include "numeric/bignum_detail.h"

namespace quorvel {

using bignum_detail::incrementExponent;
using bignum_detail::wrapsInt32;

namespace {

// Summed columns under the guard pair: kept for their carry into the guard,
// so that at 508 bytes the dropped products stay far below one unit of the
// last pair.
constexpr int32_t Below = 2;

// Limbs of four base-100 pairs (base 10^8).
constexpr int32_t PairsPerLimb = 4;
constexpr uint64_t LimbBase = 100000000;
constexpr uint64_t PairScale[PairsPerLimb] = {1, 100, 10000, 1000000};   // 100^k
// Up to this many limbs per operand a column of limb products (each below
// 10^16) cannot overflow 64 bits.
constexpr int32_t MaxLimbs = 1000;

// Base-100 columns 0..width-1 of the truncated sum: column k holds the pair
// products with i + j - lowest = k, carried into base 100 (returns the carry
// out of the top column, which normalised-length operands never produce).
uint64_t columnsBytewise(const BigNum& a, const BigNum& b, int32_t lowest, std::vector<uint8_t>& out) {
    const int32_t la = a.length();
    const int32_t lb = b.length();
    const std::size_t width = out.size();
    std::vector<uint32_t> columns(width, 0);
    const uint8_t* ad = a.digits.data();
    uint32_t* col = columns.data();
    for (int32_t j = 0; j < lb; ++j) {
        const uint32_t bj = b.digits[j];
        if (bj == 0) continue;
        const int32_t base = j - lowest;   // column of a's byte 0
        const int32_t first = base < 0 ? -base : 0;
        int32_t last = static_cast<int32_t>(width) - base;   // columns above the top are not needed
        if (last > la) last = la;
        for (int32_t i = first; i < last; ++i) col[base + i] += ad[i] * bj;
    }
    uint64_t carry = 0;
    for (std::size_t k = 0; k < width; ++k) {
        const uint64_t v = columns[k] + carry;
        carry = v / 100;
        out[k] = static_cast<uint8_t>(v % 100);
    }
    return carry;
}

// x's pairs in limbs of four (base 10^8), least significant first; 32 bits
// each, so that the compiler can use widening 32 x 32 -> 64 multiplies.
std::vector<uint32_t> toLimbs(const BigNum& x) {
    const int32_t length = x.length();
    const int32_t count = (length + PairsPerLimb - 1) / PairsPerLimb;
    std::vector<uint32_t> limbs(static_cast<std::size_t>(count), 0);
    const uint8_t* d = x.digits.data();
    const int32_t whole = length / PairsPerLimb;
    for (int32_t i = 0; i < whole; ++i) {
        const uint8_t* p = d + PairsPerLimb * i;
        limbs[static_cast<std::size_t>(i)] = p[0] + 100u * p[1] + 10000u * p[2] + 1000000u * p[3];
    }
    for (int32_t i = length - 1; i >= PairsPerLimb * whole; --i) {
        uint32_t& limb = limbs[static_cast<std::size_t>(whole)];
        limb = limb * 100 + d[i];
    }
    return limbs;
}

// The same columns as columnsBytewise, from products of base-10^8 limbs.
uint64_t columnsByLimbs(const BigNum& a, const BigNum& b, int32_t lowest, std::vector<uint8_t>& out) {
    std::vector<uint32_t> A = toLimbs(a);
    std::vector<uint32_t> B = toLimbs(b);
    // The kept products are the same with the operands swapped (i + j is
    // symmetric): rows are taken from the operand with more zero limbs, which
    // are skipped (a short factor such as 0.49 or a small integer costs one
    // row or two).
    const auto zeros = [](const std::vector<uint32_t>& limbs) {
        std::size_t count = 0;
        for (uint32_t limb : limbs) count += limb == 0 ? 1 : 0;
        return count;
    };
    if (zeros(A) > zeros(B)) std::swap(A, B);
    const int32_t na = static_cast<int32_t>(A.size());
    const int32_t nb = static_cast<int32_t>(B.size());
    // sum[c]: limb products of limb index c (byte index 4c), not yet carried.
    std::vector<uint64_t> sum(static_cast<std::size_t>(na + nb) + 1, 0);
    // Limb pairs I + J >= full lie wholly at or above the lowest column; the
    // pairs just below reach it with some of their pair products only.
    const int32_t full = lowest <= 0 ? 0 : (lowest + PairsPerLimb - 1) / PairsPerLimb;
    constexpr int32_t Reach = 2 * (PairsPerLimb - 1);   // highest pair offset inside a limb product
    const uint32_t* a32 = A.data();
    const auto startOf = [&](int32_t J) { return full - J > 0 ? full - J : 0; };
    for (int32_t J = 0; J < nb; ++J) {
        const uint32_t bJ = B[static_cast<std::size_t>(J)];
        if (bJ == 0) continue;
        uint64_t* s = sum.data() + J;
        for (int32_t i = startOf(J); i < na; ++i) s[i] += static_cast<uint64_t>(a32[i]) * bJ;
    }
    // Straddling limb pairs: only the pair products a_r b_u with byte index
    // 4(i + J) + r + u >= lowest count, that is a_r times b_J's pairs from
    // lowest - 4(i + J) - r up: b_J with its lower pairs cleared.
    for (int32_t J = 0; J < nb; ++J) {
        const uint64_t bJ = B[static_cast<std::size_t>(J)];
        if (bJ == 0) continue;
        uint64_t* s = sum.data() + J;
        for (int32_t i = startOf(J) - 1; i >= 0 && PairsPerLimb * (i + J) + Reach >= lowest; --i) {
            const int32_t missing = lowest - PairsPerLimb * (i + J);   // 1..Reach
            uint64_t a = A[static_cast<std::size_t>(i)];
            uint64_t weight = 1;
            for (int32_t r = 0; r < PairsPerLimb; ++r, weight *= 100, a /= 100) {
                const int32_t cleared = missing - r;   // lower pairs of b_J to leave out
                if (cleared >= PairsPerLimb) continue;
                const uint64_t high = cleared <= 0 ? bJ : bJ - bJ % PairScale[cleared];
                s[i] += (a % 100) * weight * high;
            }
        }
    }
    // Carry into base 10^8 and read the pairs from byte index `lowest` up; the
    // pairs below it are zero, as every kept product lies at or above it.
    // Limb index c holds products of byte index 4c to 4c + 2 Reach, so the
    // limbs below firstColumn hold nothing (and carry nothing).
    const std::size_t width = out.size();
    const std::size_t firstColumn = lowest > 2 * Reach ? static_cast<std::size_t>((lowest - 2 * Reach) / PairsPerLimb) : 0;
    std::size_t k = 0;
    uint64_t carry = 0;
    uint64_t rest = 0;   // what lies above the top column
    uint64_t restScale = 1;
    for (std::size_t c = firstColumn; c < sum.size(); ++c) {
        const uint64_t v = sum[c] + carry;
        carry = v / LimbBase;
        const uint32_t limb = static_cast<uint32_t>(v % LimbBase);
        const uint32_t high = limb / 10000;
        const uint32_t low = limb % 10000;
        const uint32_t pairs[PairsPerLimb] = {low % 100, low / 100, high % 100, high / 100};
        const int64_t base = static_cast<int64_t>(c) * PairsPerLimb - lowest;   // index of pairs[0]
        if (base >= 0 && static_cast<std::size_t>(base) + PairsPerLimb <= width) {
            for (int32_t r = 0; r < PairsPerLimb; ++r) out[static_cast<std::size_t>(base + r)] = static_cast<uint8_t>(pairs[r]);
            k = static_cast<std::size_t>(base) + PairsPerLimb;
            continue;
        }
        for (int32_t r = 0; r < PairsPerLimb; ++r) {
            const int64_t index = static_cast<int64_t>(c) * PairsPerLimb + r - lowest;
            if (index < 0) continue;
            if (static_cast<std::size_t>(index) < width) {
                out[static_cast<std::size_t>(index)] = static_cast<uint8_t>(pairs[r]);
                k = static_cast<std::size_t>(index) + 1;
            } else if (restScale < 100000000) {
                rest += pairs[r] * restScale;
                restScale *= 100;
            }
        }
    }
    for (; k < width; ++k) out[k] = 0;
    return rest + carry * restScale;
}

// The position and value of x's only nonzero pair, or value 0 when it has
// more than one (the top pair of a finite nonzero x is never zero).
struct OnlyPair {
    int32_t index = 0;
    uint32_t value = 0;
};
OnlyPair onlyPair(const BigNum& x) {
    const int32_t top = x.length() - 1;
    // Whole words of eight pairs first: a long operand with a nonzero low
    // pair is told apart at once.
    const uint8_t* d = x.digits.data();
    int32_t i = 0;
    for (; i + 8 <= top; i += 8) {
        uint64_t word;
        std::memcpy(&word, d + i, sizeof word);
        if (word != 0) return {};
    }
    for (; i < top; ++i) {
        if (d[i] != 0) return {};
    }
    return {top, d[top]};
}

// The same columns as columnsBytewise when b's only nonzero pair is v at
// byte jb: one pass over a, carrying as it goes.
uint64_t columnsByOnePair(const BigNum& a, int32_t jb, uint32_t v, int32_t lowest, std::vector<uint8_t>& out) {
    const int32_t la = a.length();
    const int32_t width = static_cast<int32_t>(out.size());
    const int32_t base = jb - lowest;   // column of a's byte 0
    const int32_t first = base < 0 ? -base : 0;
    const int32_t last = std::min(la, width - base);   // a's bytes up to the top column
    // Each product a_i v < 100^2 splits into a low and a high pair without
    // waiting for a carry (a loop the compiler runs on vectors); then the
    // columns low_i + high_(i-1) are summed with their carries.
    const uint8_t* ad = a.digits.data();
    const int32_t count = last > first ? last - first : 0;
    std::vector<uint8_t> low(static_cast<std::size_t>(count));
    std::vector<uint8_t> high(static_cast<std::size_t>(count) + 1);   // high[i + 1] from a_i
    for (int32_t i = 0; i < count; ++i) {
        const uint16_t t = static_cast<uint16_t>(ad[first + i] * v);
        const uint16_t h = static_cast<uint16_t>(t / 100);
        low[static_cast<std::size_t>(i)] = static_cast<uint8_t>(t - 100 * h);
        high[static_cast<std::size_t>(i) + 1] = static_cast<uint8_t>(h);
    }
    uint64_t carry = high[static_cast<std::size_t>(count)];
    if (count > 0) {
        carry += static_cast<uint64_t>(bignum_detail::addPairColumns(low.data(), high.data(), false, 0, out.data() + base + first,
                                                                      static_cast<std::size_t>(count)));
    }
    for (int32_t k = std::max(0, base + std::max(first, last)); k < width; ++k) {
        out[static_cast<std::size_t>(k)] = static_cast<uint8_t>(carry % 100);
        carry /= 100;
    }
    return carry;
}

enum class Columns { Pairs, Limbs, OnePair };

// The truncated product with its columns summed the given way (OnePair:
// b's only nonzero pair is `only`).
BigNum product(const BigNum& a, const BigNum& b, Columns how, OnlyPair only = {}) {
    const int32_t length = a.length() > b.length() ? a.length() : b.length();
    if (a.isNaN() || b.isNaN()) return makeNaN();
    // A zero operand is tested before infinity, so zero times infinity is zero.
    if (a.isZero() || b.isZero()) return makeZero(length);
    const int8_t sign = static_cast<int8_t>(a.sign * b.sign);
    if (a.isInfinite() || b.isInfinite()) return makeInfinity(length, sign);
    const int64_t exponent = static_cast<int64_t>(a.exponent) + b.exponent + 1;
    if (wrapsInt32(exponent)) return makeInfinity(length, sign);

    // Full-product byte index i + j lands on result byte i + j - drop. Result
    // bytes 0..length-1, the guard pair (byte -1) and the Below columns under
    // it are summed; lower products are dropped.
    const int32_t drop = a.length() + b.length() - length;
    const int32_t lowest = drop - Below - 1;
    // [0..Below-1] the columns under the guard, [Below] the guard, then the result bytes.
    std::vector<uint8_t> columns(static_cast<std::size_t>(length) + Below + 1, 0);
    uint64_t carry = 0;
    switch (how) {
        case Columns::Pairs: carry = columnsBytewise(a, b, lowest, columns); break;
        case Columns::Limbs: carry = columnsByLimbs(a, b, lowest, columns); break;
        case Columns::OnePair: carry = columnsByOnePair(a, only.index, only.value, lowest, columns); break;
    }

    BigNum r = makeZero(length);
    r.exponent = static_cast<int32_t>(exponent);
    r.sign = sign;
    const int guard = columns[Below];
    std::copy(columns.begin() + Below + 1, columns.begin() + Below + 1 + length, r.digits.begin());
    // A carry out of the top is shifted in digit by digit (it cannot arise from
    // normalised operands, whose mantissa product stays below 100).
    int g = guard;
    while (carry != 0) {
        g = (r.digits[0] % 10) * 10 + g / 10;
        shiftRightOneDigit(r, static_cast<int>(carry % 10));
        if (!incrementExponent(r)) return r;
        carry /= 10;
    }
    normalize(r, g);
    return r;
}

}  // namespace

BigNum bignum_detail::multiplyWith(const BigNum& a, const BigNum& b, bool byLimbs) {
    return product(a, b, byLimbs ? Columns::Limbs : Columns::Pairs);
}

BigNum multiply(const BigNum& a, const BigNum& b) {
    // A factor of a single pair (0.49, 3, 1/4 = 0.25) takes one pass over the
    // other operand; the columns, and so the product, are the same.
    if (a.isFinite() && b.isFinite() && !a.isZero() && !b.isZero()) {
        if (const OnlyPair only = onlyPair(b); only.value != 0) return product(a, b, Columns::OnePair, only);
        if (const OnlyPair only = onlyPair(a); only.value != 0) return product(b, a, Columns::OnePair, only);
    }
    // Short operands gain nothing from limbs; very long ones could overflow
    // the 64-bit limb columns.
    const bool byLimbs = a.length() >= 8 && b.length() >= 8 && a.length() <= PairsPerLimb * MaxLimbs &&
                         b.length() <= PairsPerLimb * MaxLimbs;
    return bignum_detail::multiplyWith(a, b, byLimbs);
}

void multiplyInPlace(BigNum& a, const BigNum& b) {
    BigNum r = multiply(a, b);
    assign(a, r);
}

}  // namespace quorvel
