// The gamma function of a complex argument, in the shape of the real one:
// reflection with the complex sine, unit steps down to 1 <= Re y < 2, and
// Spouge's sum with the real coefficients; factorial, combinations and
// permutations built on it.
#include <cstdint>

#include "numeric/complex.h"
#include "numeric/elementary_detail.h"
#include "numeric/special.h"
#include "numeric/special_detail.h"

namespace quorvel {

using elementary_detail::constant;
using elementary_detail::divideBySmall;
using special_detail::complexScale;
using special_detail::GammaWith;
using special_detail::isGammaPole;
using special_detail::SpougeCache;
using special_detail::SpougeCoefficients;

namespace {

// c / w for a real c.
ComplexNum realOver(const BigNum& c, const ComplexNum& w) {
    const BigNum norm = add(multiply(w.re, w.re), multiply(w.im, w.im));
    const BigNum scale = divide(c, norm);
    return ComplexNum{multiply(scale, w.re), elementary_detail::negated(multiply(scale, w.im))};
}

// Gamma(y) for 1 <= Re y < 2 by Spouge's sum at L + 8 bytes.
ComplexNum spouge(MathContext& math, const ComplexNum& y, SpougeCache& cache) {
    const int32_t L = y.re.length();
    const int32_t P = special_detail::SpougeLength(L);
    const SpougeCoefficients& s = cache.get(math, P);
    const ComplexNum z = subtract(resized(y, P), complexFromInt(P, 1));
    ComplexNum sum = complexFromParts(s.c0);
    for (int32_t k = 1; k < s.a && !math.aborted(); ++k) {
        sum = add(sum, realOver(s.c[static_cast<std::size_t>(k)], add(z, complexFromInt(P, k))));
    }
    const ComplexNum zPlusA = add(z, complexFromInt(P, s.a));
    const ComplexNum zPlusHalf = add(z, complexFromParts(divideBySmall(fromInt(P, 1), 2)));
    const ComplexNum power = Exp(math, subtract(multiply(zPlusHalf, Ln(math, zPlusA)), zPlusA));
    return resized(multiply(power, sum), L);
}

bool isPole(const ComplexNum& w) { return w.im.isZero() && isGammaPole(w.re); }

}  // namespace

namespace special_detail {

ComplexNum GammaWith(MathContext& math, const ComplexNum& z, SpougeCache& cache) {
    const int32_t L = z.re.length();
    if (z.im.isZero()) return complexFromParts(GammaWith(math, z.re, cache), makeZero(L));
    if (complexIsNonFinite(z)) return complexNaN();
    const ComplexNum one = complexFromInt(L, 1);

    if (z.re.sign < 0) {
        // Gamma(z) = (pi / sin(pi z)) / Gamma(1 - z).
        const BigNum pi = constant(math, L, 'p');
        const ComplexNum sine = Sin(math, complexScale(pi, z));
        return divide(divide(complexFromParts(pi), sine), GammaWith(math, subtract(one, z), cache));
    }
    if (compare(z.re, one.re) < 0) return divide(GammaWith(math, add(z, one), cache), z);

    const BigNum two = fromInt(L, 2);
    ComplexNum y = z;
    ComplexNum p = one;
    while (compare(y.re, two) >= 0) {
        y = subtract(y, one);
        p = multiply(p, y);
        if (math.PollAbort() || complexIsNonFinite(p)) break;
    }
    if (complexIsNonFinite(p)) return p;
    if (math.aborted()) return p;
    return multiply(p, spouge(math, y, cache));
}

}  // namespace special_detail

ComplexNum Gamma(MathContext& math, const ComplexNum& z) {
    SpougeCache cache;
    return GammaWith(math, z, cache);
}

ComplexNum Factorial(MathContext& math, const ComplexNum& z) {
    if (z.im.isZero()) return complexFromParts(Factorial(math, z.re), makeZero(z.re.length()));
    return Gamma(math, add(z, complexFromInt(z.re.length(), 1)));
}

namespace {

// The complex counterpart of the real gamma quotient: at L + 2 bytes, one
// coefficient cache, a pole in the denominator a zero reciprocal.
ComplexNum gammaQuotient(MathContext& math, const ComplexNum& n, const ComplexNum& k, bool withK) {
    const int32_t L = n.re.length();
    if (n.im.isZero() && k.im.isZero()) {
        const BigNum r = withK ? Comb(math, n.re, k.re) : Perm(math, n.re, k.re);
        return complexFromParts(r, makeZero(L));
    }
    if (special_detail::complexIsNonFinite(n) || special_detail::complexIsNonFinite(k)) {
        return special_detail::complexNaN();
    }
    const int32_t work = L + 2;
    const ComplexNum one = complexFromInt(work, 1);
    const ComplexNum top = add(resized(n, work), one);
    const ComplexNum kPlusOne = add(resized(k, work), one);
    const ComplexNum rest = subtract(top, resized(k, work));
    const bool denominatorPole = isPole(rest) || (withK && isPole(kPlusOne));
    if (isPole(top)) {
        return denominatorPole ? special_detail::complexNaN() : complexFromParts(makeInfinity(L, 1), makeZero(L));
    }
    if (denominatorPole) return complexZero(L);

    SpougeCache cache;
    ComplexNum r = GammaWith(math, top, cache);
    ComplexNum denominator = GammaWith(math, rest, cache);
    if (withK) denominator = multiply(denominator, GammaWith(math, kPlusOne, cache));
    return resized(divide(r, denominator), L);
}

}  // namespace

ComplexNum Comb(MathContext& math, const ComplexNum& n, const ComplexNum& k) { return gammaQuotient(math, n, k, true); }

ComplexNum Perm(MathContext& math, const ComplexNum& n, const ComplexNum& k) { return gammaQuotient(math, n, k, false); }

}  // namespace quorvel
