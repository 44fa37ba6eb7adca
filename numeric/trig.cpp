// Sine and cosine: the series cores, the octant reduction, and tan and sinc.
#include <cstdint>

#include "numeric/elementary.h"
#include "numeric/elementary_detail.h"

namespace quorvel {

using elementary_detail::constant;
using elementary_detail::divideByInt;
using elementary_detail::multiplyByInt;
using elementary_detail::negated;
using elementary_detail::OctantReduction;
using elementary_detail::termIsNegligible;

namespace {

// Sums power/factorial for the sine (first = 1: r, r^3/3!, ...) or the cosine
// (first = 0: 1, r^2/2!, ...) series, the power multiplied by -r^2 and the
// factorial by the next two integers each step.
void sumCircularSeries(MathContext& math, BigNum& r, int first) {
    const int32_t P = r.length();
    const int32_t bound = -(2 * P + 1);
    const BigNum minusRSquared = negated(multiply(r, r));
    BigNum power = first == 1 ? r : fromInt(P, 1);
    BigNum factorial = fromInt(P, 1);
    BigNum sum = power;
    for (int32_t k = first + 1;; k += 2) {
        power = multiply(power, minusRSquared);
        factorial = multiplyByInt(factorial, k * (k + 1));
        const BigNum term = divide(power, factorial);
        sum = add(sum, term);
        if (math.PollAbort() || termIsNegligible(term, bound)) break;
    }
    assign(r, sum);
}

enum class Circular { Sine, Cosine };

// The shared body of Sin and Cos: the octant picks a core and its argument.
BigNum circular(MathContext& math, const BigNum& x, Circular which) {
    const int32_t L = x.length();
    if (!x.isFinite()) return makeNaN();
    if (x.isZero()) return which == Circular::Sine ? makeZero(L) : fromInt(L, 1);

    const OctantReduction reduced = elementary_detail::reduceOctant(math, x);
    const int32_t work = L + 2;
    const BigNum pi = resized(constant(math, L, 'p'), work);
    const BigNum halfPi = divideByInt(pi, 2);
    const BigNum r = resized(reduced.r, work);

    // Which core, on what, negated or not; Cos swaps the cores of Sin.
    BigNum argument;
    bool sineCore = true;
    bool negate = false;
    switch (reduced.octant) {
        case 0:
        case 7:
            argument = r;
            break;
        case 1:
        case 2:
            argument = subtract(halfPi, r);
            sineCore = false;
            break;
        case 3:
            argument = subtract(r, pi);
            negate = true;
            break;
        case 4:
            argument = add(r, pi);
            negate = true;
            break;
        default:   // 5, 6
            argument = add(halfPi, r);
            sineCore = false;
            negate = which == Circular::Sine;
            break;
    }
    if (which == Circular::Cosine) sineCore = !sineCore;
    if (sineCore) {
        SinSeries(math, argument);
    } else {
        CosSeries(math, argument);
    }
    if (negate) argument = negated(argument);
    return resized(argument, L);
}

}  // namespace

namespace elementary_detail {

OctantReduction reduceOctant(MathContext& math, const BigNum& x) {
    const int32_t L = x.length();
    const BigNum twoPi = multiplyByInt(constant(math, L, 'p'), 2);
    // The turn fraction, truncated toward zero: it keeps x's sign.
    const BigNum q = fractionPart(divide(x, twoPi));
    BigNum t = multiplyByInt(q, 8);
    if (q.sign < 0) t = add(t, fromInt(L, 8));
    int32_t octant = 0;
    BigIntToInt32(toInteger(t), octant);
    // 8q + 8 of a tiny negative q can round up to 8 itself: the last octant.
    if (octant > 7) octant = 7;
    if (octant < 0) octant = 0;
    OctantReduction reduced;
    reduced.octant = octant;
    reduced.r = multiply(q, twoPi);
    // For negative q this moves r further from zero, not closer: the cores
    // then see arguments up to about 2pi, which their identities allow.
    if (octant > 3) reduced.r = subtract(reduced.r, twoPi);
    return reduced;
}

}  // namespace elementary_detail

void SinSeries(MathContext& math, BigNum& r) { sumCircularSeries(math, r, 1); }

void CosSeries(MathContext& math, BigNum& r) { sumCircularSeries(math, r, 0); }

BigNum Sin(MathContext& math, const BigNum& x) { return circular(math, x, Circular::Sine); }

BigNum Cos(MathContext& math, const BigNum& x) { return circular(math, x, Circular::Cosine); }

BigNum Tan(MathContext& math, const BigNum& x) {
    BigNum s = Sin(math, x);
    const BigNum c = Cos(math, x);
    if (c.isZero() && s.isFinite()) {
        // An exact zero cosine: the sine's value, turned infinite.
        s.kind = NumKind::Infinite;
        return s;
    }
    return divide(s, c);
}

BigNum Sinc(MathContext& math, const BigNum& x) {
    if (x.isZero()) return fromInt(x.length(), 1);
    return divide(Sin(math, x), x);
}

}  // namespace quorvel
