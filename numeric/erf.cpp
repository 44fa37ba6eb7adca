// The error function of a real and of a complex argument, by the series of
// positive terms erf x = (2/sqrt pi) e^(-x^2) sum x (2x^2)^n / (1 3 ... (2n+1)).
#include <cstdint>

#include "numeric/complex.h"
#include "numeric/elementary.h"
#include "numeric/elementary_detail.h"
#include "numeric/special.h"
#include "numeric/special_detail.h"

namespace quorvel {

using elementary_detail::constant;
using elementary_detail::divideBySmall;
using elementary_detail::magnitude;
using elementary_detail::negated;
using elementary_detail::termIsNegligible;
using special_detail::complexDivideBySmall;
using special_detail::complexTermIsNegligible;

namespace {

// True once x^2 >= (2L + 4) ln 10: then e^(-x^2) / (x sqrt pi), which bounds
// 1 - erf x, is below 10^-(2L + 4) and the result is 1 at every working digit.
bool saturates(MathContext& math, const BigNum& xSquared, int32_t L) {
    const BigNum bound = multiply(fromInt(L, 2 * L + 4), constant(math, L, 'l'));
    return compare(xSquared, bound) >= 0;
}

}  // namespace

BigNum Erf(MathContext& math, const BigNum& x) {
    const int32_t L = x.length();
    if (x.isNaN()) return makeNaN();
    if (x.isInfinite()) return fromInt(L, x.sign);
    if (x.isZero()) return makeZero(L);

    const BigNum ax = magnitude(x);
    const BigNum xSquared = multiply(ax, ax);
    if (!xSquared.isFinite() || saturates(math, xSquared, L)) return fromInt(L, x.sign);

    const int32_t bound = -2 * (L + 2);
    const BigNum twoXSquared = multiply(fromInt(L, 2), xSquared);
    BigNum term = ax;
    BigNum sum = ax;
    for (int32_t d = 3;; d += 2) {
        term = divideBySmall(multiply(term, twoXSquared), d);
        sum = add(sum, term);
        if (math.PollAbort() || termIsNegligible(term, bound)) break;
    }
    const BigNum sqrtPi = squareRoot(constant(math, L, 'p'));
    BigNum result = multiply(divide(multiply(fromInt(L, 2), sum), sqrtPi), Exp(math, negated(xSquared)));
    if (x.sign < 0) result = negated(result);
    return result;
}

ComplexNum Erf(MathContext& math, const ComplexNum& z) {
    const int32_t L = z.re.length();
    if (special_detail::complexIsNonFinite(z)) {
        if (z.im.isZero()) return complexFromParts(Erf(math, z.re), makeZero(L));
        return special_detail::complexNaN();
    }
    if (z.im.isZero()) return complexFromParts(Erf(math, z.re), makeZero(L));
    if (z.re.isZero() && z.im.isZero()) return complexZero(L);

    const int32_t bound = -2 * (L + 2);
    const ComplexNum zSquared = multiply(z, z);
    const ComplexNum twoZSquared = special_detail::complexScale(fromInt(L, 2), zSquared);
    ComplexNum term = z;
    ComplexNum sum = z;
    for (int32_t d = 3;; d += 2) {
        term = complexDivideBySmall(multiply(term, twoZSquared), d);
        sum = add(sum, term);
        if (math.PollAbort() || complexTermIsNegligible(term, bound)) break;
    }
    if (special_detail::complexIsNonFinite(sum)) return special_detail::complexNaN();
    const BigNum twoOverSqrtPi = divide(fromInt(L, 2), squareRoot(constant(math, L, 'p')));
    const ComplexNum scaled = special_detail::complexScale(twoOverSqrtPi, sum);
    return multiply(scaled, Exp(math, special_detail::complexNegated(zSquared)));
}

}  // namespace quorvel
