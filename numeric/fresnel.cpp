// The Fresnel integrals of a real argument: the power series up to |x| = 8,
// beyond it the auxiliary functions f and g with the sine and cosine of
// t = pi x^2 / 2.
#include <cmath>
#include <cstdint>

#include "numeric/elementary.h"
#include "numeric/elementary_detail.h"
#include "numeric/numtext.h"
#include "numeric/special.h"
#include "numeric/special_detail.h"

namespace quorvel {

using elementary_detail::constant;
using elementary_detail::divideBySmall;
using elementary_detail::magnitude;
using elementary_detail::negated;
using special_detail::FresnelSums;

namespace {

constexpr int32_t SeriesSpareBytes = 22;

BigNum half(int32_t length) { return divideBySmall(fromInt(length, 1), 2); }

// |x| <= 8: the series side of the threshold.
bool usesSeries(const BigNum& x) { return compare(magnitude(x), fromInt(x.length(), 8)) <= 0; }

// C and S by the series at L + 22 bytes, rounded back to L.
FresnelSums seriesAtL(MathContext& math, const BigNum& x) {
    const int32_t L = x.length();
    FresnelSums s = special_detail::FresnelSeries(math, resized(x, L + SeriesSpareBytes));
    return FresnelSums{resized(s.c, L), resized(s.s, L)};
}

// The large-argument pieces for ax = |x| > 8 at a length that holds the
// integer digits of t = pi x^2 / 2 besides L + 2 bytes: f, g, sin t, cos t.
struct LargeArgument {
    int32_t work = 0;
    BigNum f;
    BigNum g;
    BigNum sine;
    BigNum cosine;
};
LargeArgument largeArgument(MathContext& math, const BigNum& ax, int32_t L) {
    LargeArgument r;
    const int32_t integerBytes = ax.exponent + 1;   // t has about 2 (exponent + 1) integer digits
    r.work = L + 2 + (integerBytes > 0 ? integerBytes : 0);
    const BigNum x = resized(ax, r.work);
    r.f = makeZero(r.work);
    r.g = makeZero(r.work);
    FresnelAux(math, x, r.f, r.g);
    const BigNum t = multiply(multiply(divideBySmall(constant(math, r.work, 'p'), 2), x), x);
    r.sine = Sin(math, t);
    r.cosine = Cos(math, t);
    return r;
}

BigNum withSign(BigNum v, int8_t sign) { return sign < 0 ? negated(v) : v; }

enum class Which { C, S };

BigNum fresnel(MathContext& math, const BigNum& x, Which which) {
    const int32_t L = x.length();
    if (!x.isFinite()) return x;   // C(inf) is shown as inf: kept
    if (x.isZero()) return makeZero(L);
    if (usesSeries(x)) {
        const FresnelSums s = seriesAtL(math, x);
        return which == Which::C ? s.c : s.s;
    }
    const BigNum ax = magnitude(x);
    // f sin t and g cos t are below 1/(pi |x|): past 10^(2L + 2) nothing of
    // them reaches the working digits.
    if (ax.exponent > 2 * L + 2) return withSign(half(L), x.sign);
    const LargeArgument a = largeArgument(math, ax, L);
    const BigNum h = half(a.work);
    BigNum v;
    if (which == Which::C) {
        v = subtract(add(h, multiply(a.f, a.sine)), multiply(a.g, a.cosine));
    } else {
        v = subtract(subtract(h, multiply(a.f, a.cosine)), multiply(a.g, a.sine));
    }
    return withSign(resized(v, L), x.sign);
}

}  // namespace

BigNum FresnelC(MathContext& math, const BigNum& x) { return fresnel(math, x, Which::C); }

BigNum FresnelS(MathContext& math, const BigNum& x) { return fresnel(math, x, Which::S); }

FresnelValues FresnelPair(MathContext& math, const BigNum& x) {
    const int32_t L = x.length();
    if (!x.isFinite() || x.isZero() || usesSeries(x)) {
        FresnelSums s{x, x};
        if (x.isZero()) s = FresnelSums{makeZero(L), makeZero(L)};
        else if (x.isFinite()) s = seriesAtL(math, x);
        return FresnelValues{subtract(half(L), s.c), subtract(half(L), s.s)};
    }
    const BigNum ax = magnitude(x);
    if (x.sign > 0 && ax.exponent > 2 * L + 1000) return FresnelValues{makeNaN(), makeNaN()};
    if (x.sign < 0 && ax.exponent > 2 * L + 2) return FresnelValues{fromInt(L, 1), fromInt(L, 1)};
    // 1/2 - C(|x|) = g cos t - f sin t and 1/2 - S(|x|) = f cos t + g sin t; a
    // negative x gives 1/2 + C(|x|) = 1 - (1/2 - C(|x|)).
    const LargeArgument a = largeArgument(math, ax, L);
    BigNum c = subtract(multiply(a.g, a.cosine), multiply(a.f, a.sine));
    BigNum s = add(multiply(a.f, a.cosine), multiply(a.g, a.sine));
    if (x.sign < 0) {
        const BigNum one = fromInt(a.work, 1);
        c = subtract(one, c);
        s = subtract(one, s);
    }
    return FresnelValues{resized(c, L), resized(s, L)};
}

void FresnelAux(MathContext& math, const BigNum& x, BigNum& f, BigNum& g) {
    const int32_t P = f.length();
    const BigNum ax = magnitude(resized(x, P));
    double d = 0.0;
    const bool fits = BigNumToDouble(ax, d);
    if (!fits || special_detail::FresnelAsymptoticSuffices(d, P)) {
        // f = 1/(pi x) sum (-1)^m a_(2m), g = 1/(pi x) sum (-1)^m a_(2m+1),
        // a_j = (2j - 1)!! w^j, w = 1/(pi x^2); stopped at the last digit.
        const int32_t bound = -2 * P - 2;
        const BigNum pi = constant(math, P, 'p');
        const BigNum piX = multiply(pi, ax);
        const BigNum w = divide(fromInt(P, 1), multiply(piX, ax));
        BigNum a = fromInt(P, 1);
        BigNum fs = a;
        BigNum gs = makeZero(P);
        for (int32_t j = 1;; ++j) {
            a = multiply(multiply(a, w), fromInt(P, 2 * j - 1));
            BigNum& target = j % 2 == 0 ? fs : gs;
            target = ((j / 2) % 2 == 0) ? add(target, a) : subtract(target, a);
            if (math.PollAbort() || elementary_detail::termIsNegligible(a, bound)) break;
        }
        assign(f, divide(fs, piX));
        assign(g, divide(gs, piX));
        return;
    }
    // Too close to 8 for the asymptotic series at this length: the continued
    // fraction, or C and S by the power series widened by its cancellation and
    // f, g solved from them, whichever is expected to be cheaper.
    if (special_detail::FresnelFractionIsCheaper(d, P)) {
        special_detail::FresnelAuxByFraction(math, ax, f, g);
        return;
    }
    const int32_t W = P + special_detail::FresnelSeriesExtraBytes(d, 0.0);
    const BigNum xw = resized(ax, W);
    const FresnelSums s = special_detail::FresnelSeries(math, xw);
    const BigNum t = multiply(multiply(divideBySmall(constant(math, W, 'p'), 2), xw), xw);
    const BigNum sine = Sin(math, t);
    const BigNum cosine = Cos(math, t);
    const BigNum h = half(W);
    const BigNum halfMinusC = subtract(h, s.c);
    const BigNum halfMinusS = subtract(h, s.s);
    assign(f, resized(subtract(multiply(halfMinusS, cosine), multiply(halfMinusC, sine)), P));
    assign(g, resized(add(multiply(halfMinusC, cosine), multiply(halfMinusS, sine)), P));
}

}  // namespace quorvel
