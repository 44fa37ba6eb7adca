// The gamma function of a real argument: reflection, the unit steps down to
// [1, 2), Spouge's approximation there; the factorial, combinations and
// permutations built on it.
#include <cstdint>

#include "numeric/elementary.h"
#include "numeric/elementary_detail.h"
#include "numeric/special.h"
#include "numeric/special_detail.h"

namespace quorvel {

using elementary_detail::constant;
using elementary_detail::negated;
using special_detail::GammaWith;
using special_detail::isGammaPole;
using special_detail::SpougeCache;
using special_detail::SpougeCoefficients;
using special_detail::SpougeLength;

namespace special_detail {

bool isGammaPole(const BigNum& x) { return x.isFinite() && x.sign <= 0 && fractionPart(x).isZero(); }

void GammaSpougeWith(MathContext& math, BigNum& y, SpougeCache& cache) {
    const int32_t L = y.length();
    const int32_t P = SpougeLength(L);
    const SpougeCoefficients& s = cache.get(math, P);

    // Gamma(z + 1) = (z + a)^(z + 1/2) e^-(z + a) (c0 + sum c_k / (z + k)).
    const BigNum z = subtract(resized(y, P), fromInt(P, 1));
    BigNum sum = s.c0;
    for (int32_t k = 1; k < s.a && !math.aborted(); ++k) {
        sum = add(sum, divide(s.c[static_cast<std::size_t>(k)], add(z, fromInt(P, k))));
    }
    const BigNum zPlusA = add(z, fromInt(P, s.a));
    const BigNum zPlusHalf = add(z, elementary_detail::divideBySmall(fromInt(P, 1), 2));
    // The power (z + a)^(z + 1/2) as exp((z + 1/2) ln(z + a)), with the factor
    // e^-(z + a) taken into the same exponential.
    const BigNum power = Exp(math, subtract(multiply(zPlusHalf, Ln(math, zPlusA)), zPlusA));
    assign(y, resized(multiply(power, sum), L));
}

BigNum GammaWith(MathContext& math, const BigNum& x, SpougeCache& cache) {
    const int32_t L = x.length();
    if (x.isNaN()) return makeNaN();
    if (x.isInfinite()) return x.sign > 0 ? makeInfinity(L, 1) : makeNaN();
    if (x.isZero()) return makeNaN();
    const BigNum one = fromInt(L, 1);

    if (x.sign < 0) {
        // Reflection: Gamma(x) = (pi / sin(pi x)) / Gamma(1 - x). At a negative
        // integer the sine is zero: a pole.
        if (fractionPart(x).isZero()) return makeInfinity(L, 1);
        const BigNum pi = constant(math, L, 'p');
        const BigNum sine = Sin(math, multiply(pi, x));
        if (sine.isZero()) return makeInfinity(L, 1);
        return divide(divide(pi, sine), GammaWith(math, subtract(one, x), cache));
    }
    if (compare(x, one) < 0) return divide(GammaWith(math, add(x, one), cache), x);

    // Down to [1, 2) in unit steps: Gamma(x) = (x-1)(x-2)...(y) Gamma(y). One
    // multiplication per unit, polled; an overflowing product ends the walk.
    const BigNum two = fromInt(L, 2);
    BigNum y = x;
    BigNum p = one;
    while (compare(y, two) >= 0) {
        y = subtract(y, one);
        p = multiply(p, y);
        if (math.PollAbort() || !p.isFinite()) break;
    }
    if (!p.isFinite()) return p;
    if (math.aborted()) return resized(p, L);
    GammaSpougeWith(math, y, cache);
    return multiply(p, y);
}

}  // namespace special_detail

void GammaSpouge(MathContext& math, BigNum& y) {
    SpougeCache cache;
    special_detail::GammaSpougeWith(math, y, cache);
}

BigNum Gamma(MathContext& math, const BigNum& x) {
    SpougeCache cache;
    return GammaWith(math, x, cache);
}

BigNum Factorial(MathContext& math, const BigNum& x) {
    if (!x.isFinite()) return Gamma(math, x);
    return Gamma(math, add(x, fromInt(x.length(), 1)));
}

namespace {

// n! / (k! (n - k)!) (withK) or n! / (n - k)! at L + 2 bytes, the gammas
// sharing one coefficient cache. A pole in the denominator makes its
// reciprocal zero; a pole of n! over a finite denominator is +inf, over
// another pole it has no value (NaN).
BigNum gammaQuotient(MathContext& math, const BigNum& n, const BigNum& k, bool withK) {
    const int32_t L = n.length();
    if (!n.isFinite() || !k.isFinite()) return makeNaN();
    const int32_t work = L + 2;
    const BigNum one = fromInt(work, 1);
    const BigNum top = add(resized(n, work), one);
    const BigNum kPlusOne = add(resized(k, work), one);
    const BigNum rest = subtract(top, resized(k, work));
    const bool denominatorPole = isGammaPole(rest) || (withK && isGammaPole(kPlusOne));
    if (isGammaPole(top)) return denominatorPole ? makeNaN() : makeInfinity(L, 1);
    if (denominatorPole) return makeZero(L);

    SpougeCache cache;
    BigNum r = GammaWith(math, top, cache);
    BigNum denominator = GammaWith(math, rest, cache);
    if (withK) denominator = multiply(denominator, GammaWith(math, kPlusOne, cache));
    r = divide(r, denominator);
    return r.isFinite() ? resized(r, L) : r;
}

}  // namespace

BigNum Comb(MathContext& math, const BigNum& n, const BigNum& k) { return gammaQuotient(math, n, k, true); }

BigNum Perm(MathContext& math, const BigNum& n, const BigNum& k) { return gammaQuotient(math, n, k, false); }

}  // namespace quorvel
