// Exact factorials, binomial coefficients and falling factorials of integers.
#include <cstdint>
#include <optional>

#include "numeric/bigint.h"
#include "numeric/special.h"

namespace quorvel {

namespace {

// The value of a non-negative integer of at most two limbs, or nothing.
std::optional<uint32_t> smallCount(const BigInt& n) {
    if (n.sign < 0 || n.count() > 2) return std::nullopt;
    uint32_t v = n.limbs[0];
    if (n.count() == 2) v |= static_cast<uint32_t>(n.limbs[1]) << 16;
    return v;
}

// r * t, with the short product when t fits 32 bits.
void multiplyBy(BigInt& r, const BigInt& t) {
    if (t.isZero()) {
        r = BigInt{};
        return;
    }
    if (const std::optional<uint32_t> small = smallCount(absolute(t))) {
        const int8_t sign = static_cast<int8_t>(r.sign * t.sign);
        multiplySmallAddInPlace(r, *small, 0);
        if (!r.isZero()) r.sign = sign;
        return;
    }
    r = multiply(r, t);
}

// C(top, m) for top >= m >= 0: the product of top - m + i over i, divided by
// i at each step (every partial quotient is a binomial coefficient, so exact).
BigInt binomial(MathContext& math, const BigInt& top, uint32_t m) {
    BigInt r = bigIntFromU32(1);
    BigInt factor = subtract(top, bigIntFromU32(m));
    for (uint32_t i = 1; i <= m && i != 0; ++i) {
        factor = addSmall(factor, 1);
        multiplyBy(r, factor);
        divideSmallInPlace(r, i);
        if (math.PollAbort()) break;
    }
    return r;
}

}  // namespace

std::optional<BigInt> FactorialInt(MathContext& math, const BigInt& n) {
    const std::optional<uint32_t> count = smallCount(n);
    if (!count) return std::nullopt;
    BigInt r = bigIntFromU32(1);
    for (uint32_t i = 2; i <= *count && i != 0; ++i) {
        multiplySmallAddInPlace(r, i, 0);
        if (math.PollAbort()) break;
    }
    return r;
}

std::optional<BigInt> CombInt(MathContext& math, const BigInt& n, const BigInt& k) {
    if (k.sign < 0) return BigInt{};
    if (n.sign >= 0) {
        if (compare(k, n) > 0) return BigInt{};
        // C(n, k) = C(n, n - k): the fewer factors.
        const BigInt other = subtract(n, k);
        const std::optional<uint32_t> m = smallCount(compare(k, other) <= 0 ? k : other);
        if (!m) return std::nullopt;
        return binomial(math, n, *m);
    }
    // C(n, k) = (-1)^k C(k - n - 1, k) for a negative n; the top is at least k.
    const BigInt top = subtractSmall(subtract(k, n), 1);
    const BigInt other = subtract(top, k);
    const std::optional<uint32_t> m = smallCount(compare(k, other) <= 0 ? k : other);
    if (!m) return std::nullopt;
    BigInt r = binomial(math, top, *m);
    if ((k.limbs[0] & 1) != 0) r = negated(r);
    return r;
}

std::optional<BigInt> PermInt(MathContext& math, const BigInt& n, const BigInt& k) {
    const std::optional<uint32_t> count = smallCount(k);
    if (!count) return std::nullopt;
    if (n.sign >= 0 && compare(k, n) > 0) return BigInt{};   // a factor 0 on the way
    BigInt r = bigIntFromU32(1);
    BigInt factor = n;
    for (uint32_t i = 0; i < *count; ++i) {
        multiplyBy(r, factor);
        factor = subtractSmall(factor, 1);
        if (math.PollAbort()) break;
    }
    return r;
}

}  // namespace quorvel
