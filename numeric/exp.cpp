// The exponential: its series core and the reduction by multiples of ln 10.
#include <cstdint>
#include <limits>

#include "numeric/elementary.h"
#include "numeric/elementary_detail.h"

namespace quorvel {

using elementary_detail::constant;
using elementary_detail::divideByInt;
using elementary_detail::termIsNegligible;

void ExpSeries(MathContext& math, BigNum& r) {
    const int32_t P = r.length();
    const int32_t bound = -(2 * P + 2);
    BigNum sum = add(fromInt(P, 1), r);
    BigNum term = r;
    for (int32_t n = 2;; ++n) {
        term = divideByInt(multiply(term, r), n);
        sum = add(sum, term);
        if (math.PollAbort() || termIsNegligible(term, bound)) break;
    }
    assign(r, sum);
}

BigNum Exp(MathContext& math, const BigNum& x) {
    const int32_t L = x.length();
    if (x.isNaN()) return makeNaN();
    if (x.isInfinite() || x.exponent >= 12) return x.sign > 0 ? makeInfinity(L, 1) : makeZero(L);
    if (x.isZero()) return fromInt(L, 1);

    const int32_t work = L + 4;
    const BigNum wide = resized(x, work);
    const BigNum ln10 = constant(math, work, 'l');
    // k = x / ln 10 truncated toward zero; it must fit 32 bits.
    int32_t k = 0;
    if (!BigIntToInt32(toInteger(divide(wide, ln10)), k)) {
        return x.sign > 0 ? makeInfinity(L, 1) : makeZero(L);
    }
    // x = k ln 10 + 16 r: e^x = (e^r)^16 * 10^k.
    BigNum r = divideByInt(subtract(wide, multiply(fromInt(work, k), ln10)), 16);
    ExpSeries(math, r);
    for (int square = 0; square < 4; ++square) r = multiply(r, r);

    const int64_t exponent = static_cast<int64_t>(r.exponent) + k;
    if (exponent > std::numeric_limits<int32_t>::max()) return makeInfinity(L, 1);
    if (exponent < std::numeric_limits<int32_t>::min()) return makeZero(L);
    r.exponent = static_cast<int32_t>(exponent);
    return resized(r, L);
}

}  // namespace quorvel
