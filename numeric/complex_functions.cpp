// Elementary functions of a complex argument, built on the complex
// arithmetic and the real exponential, logarithm and circular functions.
// Each works two bytes wider than the argument's real part and rounds back.
#include <cstdint>

#include "numeric/complex.h"
#include "numeric/elementary.h"
#include "numeric/mathcontext.h"

namespace quorvel {

namespace {

int32_t workLength(const ComplexNum& z) { return z.re.length() + 2; }

// The argument at the work length.
ComplexNum widened(const ComplexNum& z) { return resized(z, workLength(z)); }

// iz: the parts exchanged and the new real part negated.
ComplexNum timesI(const ComplexNum& z) {
    BigNum re = z.im;
    re.sign = static_cast<int8_t>(-re.sign);
    return ComplexNum{re, z.re};
}

// -iz.
ComplexNum timesMinusI(const ComplexNum& z) {
    BigNum im = z.re;
    im.sign = static_cast<int8_t>(-im.sign);
    return ComplexNum{z.im, im};
}

ComplexNum halved(const ComplexNum& z) {
    const BigNum two = fromInt(z.re.length(), 2);
    return ComplexNum{divide(z.re, two), divide(z.im, two)};
}

ComplexNum scaledBy(const BigNum& x, const ComplexNum& z) { return ComplexNum{multiply(x, z.re), multiply(x, z.im)}; }

// e^z at z's own length (no widening; the callers have widened).
ComplexNum expAt(MathContext& math, const ComplexNum& z) {
    const BigNum magnitude = Exp(math, z.re);
    return ComplexNum{multiply(magnitude, Cos(math, z.im)), multiply(magnitude, Sin(math, z.im))};
}

// ln z at z's own length.
ComplexNum lnAt(MathContext& math, const ComplexNum& z) {
    return ComplexNum{Ln(math, complexModulus(z)), Atan2(math, z.im, z.re)};
}

// sqrt z at z's own length.
ComplexNum sqrtAt(MathContext& math, const ComplexNum& z) {
    const int32_t L = z.re.length();
    if (z.im.isZero() && z.re.isFinite()) {
        // A real argument: its root is exact; the polar form would leave a
        // rounding residue in the part that must be zero.
        if (z.re.sign >= 0) return ComplexNum{squareRoot(z.re), makeZero(L)};
        BigNum positive = z.re;
        positive.sign = 1;
        return ComplexNum{makeZero(L), squareRoot(positive)};
    }
    const BigNum r = squareRoot(complexModulus(z));
    const BigNum t = divide(Atan2(math, z.im, z.re), fromInt(L, 2));
    return ComplexNum{multiply(r, Cos(math, t)), multiply(r, Sin(math, t))};
}

// The two exponentials e^(iz) and e^(-iz) of Sin and Cos.
struct ExpPair {
    ComplexNum plus;
    ComplexNum minus;
};
ExpPair expOfIz(MathContext& math, const ComplexNum& z) {
    return ExpPair{expAt(math, timesI(z)), expAt(math, timesMinusI(z))};
}

// e^z and 1/e^z of the hyperbolic functions.
ExpPair expAndInverse(MathContext& math, const ComplexNum& z) {
    ComplexNum e = expAt(math, z);
    ComplexNum inverse = divide(complexFromInt(z.re.length(), 1), e);
    return ExpPair{e, inverse};
}

ComplexNum sinAt(MathContext& math, const ComplexNum& z) {
    const ExpPair e = expOfIz(math, z);
    const ComplexNum twoI{makeZero(z.re.length()), fromInt(z.re.length(), 2)};
    return divide(subtract(e.plus, e.minus), twoI);
}

ComplexNum cosAt(MathContext& math, const ComplexNum& z) {
    const ExpPair e = expOfIz(math, z);
    return halved(add(e.plus, e.minus));
}

ComplexNum asinAt(MathContext& math, const ComplexNum& z) {
    const ComplexNum one = complexFromInt(z.re.length(), 1);
    const ComplexNum root = sqrtAt(math, subtract(one, multiply(z, z)));
    return timesMinusI(lnAt(math, add(timesI(z), root)));
}

ComplexNum back(const ComplexNum& result, const ComplexNum& z) { return resized(result, z.re.length()); }

}  // namespace

ComplexNum squareRoot(MathContext& math, const ComplexNum& z) { return back(sqrtAt(math, widened(z)), z); }

ComplexNum Exp(MathContext& math, const ComplexNum& z) { return back(expAt(math, widened(z)), z); }

ComplexNum Ln(MathContext& math, const ComplexNum& z) { return back(lnAt(math, widened(z)), z); }

ComplexNum Cos(MathContext& math, const ComplexNum& z) { return back(cosAt(math, widened(z)), z); }

ComplexNum Sin(MathContext& math, const ComplexNum& z) { return back(sinAt(math, widened(z)), z); }

ComplexNum Tan(MathContext& math, const ComplexNum& z) {
    const ComplexNum w = widened(z);
    return back(divide(sinAt(math, w), cosAt(math, w)), z);
}

ComplexNum Sinh(MathContext& math, const ComplexNum& z) {
    const ExpPair e = expAndInverse(math, widened(z));
    return back(halved(subtract(e.plus, e.minus)), z);
}

ComplexNum Cosh(MathContext& math, const ComplexNum& z) {
    const ExpPair e = expAndInverse(math, widened(z));
    return back(halved(add(e.plus, e.minus)), z);
}

ComplexNum Tanh(MathContext& math, const ComplexNum& z) {
    const ExpPair e = expAndInverse(math, widened(z));
    return back(divide(subtract(e.plus, e.minus), add(e.plus, e.minus)), z);
}

ComplexNum Asin(MathContext& math, const ComplexNum& z) { return back(asinAt(math, widened(z)), z); }

ComplexNum Acos(MathContext& math, const ComplexNum& z) {
    const ComplexNum w = widened(z);
    const int32_t work = w.re.length();
    const BigNum halfPi = divide(*math.GetConstant(work, 'p'), fromInt(work, 2));
    return back(subtract(complexFromParts(halfPi), asinAt(math, w)), z);
}

ComplexNum Atan(MathContext& math, const ComplexNum& z) {
    const ComplexNum w = widened(z);
    const int32_t work = w.re.length();
    const BigNum& a = w.re;
    const BigNum& b = w.im;
    const BigNum one = fromInt(work, 1);
    const BigNum aSquared = multiply(a, a);
    const BigNum re = Atan2(math, multiply(fromInt(work, 2), a), subtract(subtract(one, aSquared), multiply(b, b)));
    const BigNum bPlus = add(b, one);
    const BigNum bMinus = subtract(b, one);
    const BigNum ratio = divide(add(multiply(bPlus, bPlus), aSquared), add(multiply(bMinus, bMinus), aSquared));
    const BigNum im = divide(Ln(math, ratio), fromInt(work, 4));
    return back(ComplexNum{divide(re, fromInt(work, 2)), im}, z);
}

ComplexNum Power(MathContext& math, const ComplexNum& z, const ComplexNum& w) {
    const ComplexNum wide = widened(z);
    const ComplexNum exponent = resized(w, wide.re.length());
    return back(expAt(math, multiply(exponent, lnAt(math, wide))), z);
}

ComplexNum Power(MathContext& math, const ComplexNum& z, const BigNum& x) {
    const ComplexNum wide = widened(z);
    return back(expAt(math, scaledBy(resized(x, wide.re.length()), lnAt(math, wide))), z);
}

}  // namespace quorvel
