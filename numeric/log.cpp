// The natural logarithm: its series core, the reduction to a mantissa in
// [1, 10), and the base-10 and base-2 logarithms built on it.
#include <cstdint>

#include "numeric/elementary.h"
#include "numeric/elementary_detail.h"

namespace quorvel {

using elementary_detail::constant;
using elementary_detail::divideByInt;
using elementary_detail::divideBySmallForSum;
using elementary_detail::multiplyByInt;
using elementary_detail::termIsNegligible;

void LnSeries(MathContext& math, BigNum& x) {
    const int32_t P = x.length();
    const int32_t bound = -(2 * P + 1);
    const BigNum one = fromInt(P, 1);
    const BigNum z = divide(subtract(x, one), add(x, one));
    const BigNum zSquared = multiply(z, z);
    BigNum power = z;
    BigNum sum = z;
    for (int32_t denominator = 3;; denominator += 2) {
        power = multiply(power, zSquared);
        const BigNum term = divideBySmallForSum(power, denominator, sum);
        sum = add(sum, term);
        if (math.PollAbort() || termIsNegligible(term, bound)) break;
    }
    assign(x, multiplyByInt(sum, 2));
}

BigNum Ln(MathContext& math, const BigNum& x) {
    const int32_t L = x.length();
    if (x.isNaN() || x.sign < 0) return makeNaN();
    if (x.isInfinite()) return makeInfinity(L, 1);
    if (x.isZero()) return makeInfinity(L, -1);

    const int32_t work = L + 4;
    BigNum m = resized(x, work);
    const int32_t E = m.exponent;
    m.exponent = 0;
    if (m.digits[work - 1] < 32) {
        LnSeries(math, m);
    } else {
        m = squareRoot(m);
        LnSeries(math, m);
        m = multiplyByInt(m, 2);
    }
    if (E != 0) m = add(m, multiply(fromInt(work, E), constant(math, work, 'l')));
    return resized(m, L);
}

BigNum Log10(MathContext& math, const BigNum& x) {
    const int32_t L = x.length();
    const BigNum ln = Ln(math, resized(x, L + 2));
    if (ln.isNaN()) return ln;
    if (ln.isInfinite()) return makeInfinity(L, ln.sign);
    return resized(divide(ln, constant(math, L + 2, 'l')), L);
}

BigNum Log2(MathContext& math, const BigNum& x) {
    const int32_t L = x.length();
    const BigNum ln = Ln(math, resized(x, L + 2));
    if (ln.isNaN()) return ln;
    if (ln.isInfinite()) return makeInfinity(L, ln.sign);
    return resized(divide(ln, constant(math, L + 2, '2')), L);
}

}  // namespace quorvel
