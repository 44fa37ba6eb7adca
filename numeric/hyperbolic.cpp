// Hyperbolic functions through the exponential, their inverses through the
// logarithm, each worked two bytes wider than the argument.
#include <cstdint>

#include "numeric/elementary.h"
#include "numeric/elementary_detail.h"

namespace quorvel {

using elementary_detail::divideByInt;

namespace {

enum class Hyperbolic { Sine, Cosine, Tangent };

// e^x and 1/e^x at x's length + 2 bytes combined into sinh, cosh or tanh.
// When e^x itself is infinite or zero (|x| beyond about 4.9e9) the formulas
// would give NaN for an infinity over an infinity or a division by zero; the
// limits are returned instead: sinh +-inf, cosh +inf, tanh +-1.
BigNum hyperbolic(MathContext& math, const BigNum& x, Hyperbolic which) {
    const int32_t L = x.length();
    if (x.isNaN()) return makeNaN();
    const int32_t work = L + 2;
    const BigNum e = Exp(math, resized(x, work));
    if (e.isInfinite() || e.isZero()) {
        const int8_t sign = e.isZero() ? -1 : 1;
        switch (which) {
            case Hyperbolic::Sine: return makeInfinity(L, sign);
            case Hyperbolic::Cosine: return makeInfinity(L, 1);
            case Hyperbolic::Tangent: return fromInt(L, sign);
        }
    }
    const BigNum inverse = divide(fromInt(work, 1), e);
    const BigNum sinh2 = subtract(e, inverse);   // 2 sinh x
    const BigNum cosh2 = add(e, inverse);        // 2 cosh x
    switch (which) {
        case Hyperbolic::Sine: return resized(divideByInt(sinh2, 2), L);
        case Hyperbolic::Cosine: return resized(divideByInt(cosh2, 2), L);
        case Hyperbolic::Tangent: break;
    }
    return resized(divide(sinh2, cosh2), L);
}

}  // namespace

BigNum Sinh(MathContext& math, const BigNum& x) { return hyperbolic(math, x, Hyperbolic::Sine); }

BigNum Cosh(MathContext& math, const BigNum& x) { return hyperbolic(math, x, Hyperbolic::Cosine); }

BigNum Tanh(MathContext& math, const BigNum& x) { return hyperbolic(math, x, Hyperbolic::Tangent); }

BigNum Asinh(MathContext& math, const BigNum& x) {
    const int32_t L = x.length();
    if (x.isNaN()) return makeNaN();
    if (x.isInfinite()) return makeInfinity(L, x.sign);
    const int32_t work = L + 2;
    const BigNum w = resized(x, work);
    const BigNum root = squareRoot(add(multiply(w, w), fromInt(work, 1)));
    const BigNum ln = Ln(math, add(w, root));
    if (ln.isNaN()) return ln;
    return resized(ln, L);
}

BigNum Acosh(MathContext& math, const BigNum& x) {
    const int32_t L = x.length();
    if (x.isNaN() || x.sign < 0 || compareWithDigit(x, 1) < 0) return makeNaN();
    if (x.isInfinite()) return makeInfinity(L, 1);
    const int32_t work = L + 2;
    const BigNum w = resized(x, work);
    const BigNum root = squareRoot(subtract(multiply(w, w), fromInt(work, 1)));
    return resized(Ln(math, add(w, root)), L);
}

BigNum Atanh(MathContext& math, const BigNum& x) {
    const int32_t L = x.length();
    if (!x.isFinite() || compareWithDigit(x, 1) >= 0) return makeNaN();
    const int32_t work = L + 2;
    const BigNum w = resized(x, work);
    const BigNum one = fromInt(work, 1);
    const BigNum ln = Ln(math, divide(add(one, w), subtract(one, w)));
    return resized(divideByInt(ln, 2), L);
}

}  // namespace quorvel
