// Arc tangent with its series cores, and arc sine, arc cosine and atan2 built
// on it.
#include <cstdint>

#include "numeric/elementary.h"
#include "numeric/elementary_detail.h"

namespace quorvel {

using elementary_detail::constant;
using elementary_detail::divideByInt;
using elementary_detail::divideBySmallForSum;
using elementary_detail::magnitude;
using elementary_detail::multiplyByInt;
using elementary_detail::negated;
using elementary_detail::termIsNegligible;

namespace {

// pi/2 at `length` bytes with the given sign.
BigNum halfPi(MathContext& math, int32_t length, int8_t sign) {
    BigNum h = divideByInt(constant(math, length + 1, 'p'), 2);
    h = resized(h, length);
    h.sign = sign;
    return h;
}

// At least 0.75: exponent 0, or exponent -1 with a top byte of 75 or more.
bool atLeastThreeQuarters(const BigNum& y) {
    return y.exponent == 0 || (y.exponent == -1 && y.digits[y.length() - 1] >= 75);
}

// sqrt(1 - x^2) at x's length (x finite, |x| <= 1).
BigNum cosineOf(const BigNum& x) { return squareRoot(subtract(fromInt(x.length(), 1), multiply(x, x))); }

}  // namespace

void AtanSeries(MathContext& math, BigNum& y) {
    const int32_t P = y.length();
    const int32_t bound = -(2 * P + 1);
    const BigNum minusYSquared = negated(multiply(y, y));
    BigNum power = y;
    BigNum sum = y;
    for (int32_t denominator = 3;; denominator += 2) {
        power = multiply(power, minusYSquared);
        const BigNum term = divideBySmallForSum(power, denominator, sum);
        sum = add(sum, term);
        if (math.PollAbort() || termIsNegligible(term, bound)) break;
    }
    assign(y, sum);
}

void AtanHalfAngle(MathContext& math, BigNum& y) {
    const int32_t P = y.length();
    const BigNum one = fromInt(P, 1);
    BigNum t = divide(subtract(squareRoot(add(one, multiply(y, y))), one), y);
    AtanSeries(math, t);
    assign(y, multiplyByInt(t, 2));
}

BigNum Atan(MathContext& math, const BigNum& x) {
    const int32_t L = x.length();
    if (x.isNaN()) return makeNaN();
    if (x.isInfinite()) return halfPi(math, L, x.sign);
    if (x.isZero()) return makeZero(L);

    const int32_t work = L + 2;
    const bool inverted = compareWithDigit(x, 1) >= 0;
    BigNum y = resized(magnitude(x), work);
    if (inverted) y = divide(fromInt(work, 1), y);
    if (atLeastThreeQuarters(y)) {
        AtanHalfAngle(math, y);
    } else {
        AtanSeries(math, y);
    }
    if (inverted) y = subtract(halfPi(math, work, 1), y);
    y.sign = x.sign;
    return resized(y, L);
}

BigNum Asin(MathContext& math, const BigNum& x) {
    const int32_t L = x.length();
    if (!x.isFinite()) return makeNaN();
    const int unit = compareWithDigit(x, 1);
    if (unit > 0) return makeNaN();
    if (unit == 0) return halfPi(math, L, x.sign);
    if (x.isZero()) return makeZero(L);
    const BigNum wide = resized(x, L + 2);
    return resized(Atan(math, divide(wide, cosineOf(wide))), L);
}

BigNum Acos(MathContext& math, const BigNum& x) {
    const int32_t L = x.length();
    if (!x.isFinite()) return makeNaN();
    if (compareWithDigit(x, 1) > 0) return makeNaN();
    if (x.isZero()) return halfPi(math, L, 1);
    const int32_t work = L + 2;
    const BigNum wide = resized(x, work);
    BigNum angle = Atan(math, divide(cosineOf(wide), wide));
    if (x.sign < 0) angle = add(angle, constant(math, work, 'p'));
    return resized(angle, L);
}

BigNum Atan2(MathContext& math, const BigNum& y, const BigNum& x) {
    const int32_t L = y.length() > x.length() ? y.length() : x.length();
    if (y.isNaN() || x.isNaN()) return makeNaN();
    if (x.isZero()) {
        if (y.isZero()) return makeZero(L);
        return halfPi(math, L, y.sign);
    }
    const BigNum ratio = magnitude(divide(y, x));
    if (ratio.isNaN()) return ratio;   // both infinite
    BigNum angle = Atan(math, resized(ratio, L));
    if (x.sign < 0) angle = subtract(constant(math, L, 'p'), angle);
    if (angle.isZero() || y.isZero()) return angle;
    angle.sign = y.sign;
    return angle;
}

}  // namespace quorvel
