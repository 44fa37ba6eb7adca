// The Fresnel integrals of a complex argument: the power series for
// |z| <= 8; beyond it z is turned into the sector |arg| <= pi/4, where the
// auxiliary functions f and g, computed as a pair, are combined with the
// complex sine and cosine of t = pi z^2 / 2.
#include <cmath>
#include <cstdint>

#include "numeric/complex.h"
#include "numeric/elementary_detail.h"
#include "numeric/numtext.h"
#include "numeric/special.h"
#include "numeric/special_detail.h"

namespace quorvel {

using elementary_detail::constant;
using elementary_detail::divideBySmall;
using elementary_detail::magnitude;
using elementary_detail::negated;
using special_detail::complexNaN;
using special_detail::complexNegated;
using special_detail::complexScale;
using special_detail::ComplexFresnelSums;

namespace {

constexpr int32_t SeriesSpareBytes = 22;
// Beyond this many integer digits of |z| the phase of t is not formed.
constexpr int32_t MaxExtraBytes = 1000;

ComplexNum half(int32_t length) { return complexFromParts(divideBySmall(fromInt(length, 1), 2)); }

// i w and -i w.
ComplexNum timesI(const ComplexNum& w) { return ComplexNum{negated(w.im), w.re}; }
ComplexNum timesMinusI(const ComplexNum& w) { return ComplexNum{w.im, negated(w.re)}; }

// How z = r(w) is turned into w with |arg w| <= pi/4: z = w, z = i w, z = -w
// or z = -i w.
enum class Turn { None, ByI, ByMinusOne, ByMinusI };

struct Sector {
    Turn turn = Turn::None;
    ComplexNum w;
};
Sector toSector(const ComplexNum& z) {
    const int c = compare(magnitude(z.im), magnitude(z.re));
    if (c <= 0) return z.re.sign > 0 ? Sector{Turn::None, z} : Sector{Turn::ByMinusOne, complexNegated(z)};
    return z.im.sign > 0 ? Sector{Turn::ByI, timesMinusI(z)} : Sector{Turn::ByMinusI, timesI(z)};
}

// C(z) and S(z) from C(w) and S(w): C(iw) = iC(w), S(iw) = -iS(w), both odd.
ComplexFresnelSums turnBack(const ComplexFresnelSums& v, Turn turn) {
    switch (turn) {
        case Turn::ByI: return ComplexFresnelSums{timesI(v.c), timesMinusI(v.s)};
        case Turn::ByMinusOne: return ComplexFresnelSums{complexNegated(v.c), complexNegated(v.s)};
        case Turn::ByMinusI: return ComplexFresnelSums{timesMinusI(v.c), timesI(v.s)};
        case Turn::None: break;
    }
    return v;
}

// The pieces of the large-modulus form for w in the sector, at L + 2 bytes
// plus the integer digits of t.
struct LargeArgument {
    bool ok = false;
    int32_t work = 0;
    ComplexNum f;
    ComplexNum g;
    ComplexNum sine;
    ComplexNum cosine;
};
LargeArgument largeArgument(MathContext& math, const ComplexNum& w, int32_t L) {
    LargeArgument r;
    const int32_t exponent = w.re.exponent > w.im.exponent || w.im.isZero() ? w.re.exponent : w.im.exponent;
    const int32_t integerBytes = exponent + 1;
    if (integerBytes > 2 * L + MaxExtraBytes) return r;
    r.ok = true;
    r.work = L + 2 + (integerBytes > 0 ? integerBytes : 0);
    const ComplexNum x = resized(w, r.work);
    r.f = complexZero(r.work);
    r.g = complexZero(r.work);
    FresnelAux(math, x, r.f, r.g);
    const ComplexNum t = complexScale(divideBySmall(constant(math, r.work, 'p'), 2), multiply(x, x));
    r.sine = Sin(math, t);
    r.cosine = Cos(math, t);
    return r;
}

bool usesSeries(const ComplexNum& z) {
    return compare(complexModulus(z), fromInt(z.re.length(), 8)) <= 0;
}

ComplexFresnelSums seriesAtL(MathContext& math, const ComplexNum& z) {
    const int32_t L = z.re.length();
    const ComplexFresnelSums s = special_detail::FresnelSeries(math, resized(z, L + SeriesSpareBytes));
    return ComplexFresnelSums{resized(s.c, L), resized(s.s, L)};
}

// C(z) and S(z) together; nothing when the phase cannot be formed.
std::optional<ComplexFresnelSums> fresnelBoth(MathContext& math, const ComplexNum& z) {
    const int32_t L = z.re.length();
    if (usesSeries(z)) return seriesAtL(math, z);
    const Sector sector = toSector(z);
    const LargeArgument a = largeArgument(math, sector.w, L);
    if (!a.ok) return std::nullopt;
    const ComplexNum h = half(a.work);
    const ComplexNum c = subtract(add(h, multiply(a.f, a.sine)), multiply(a.g, a.cosine));
    const ComplexNum s = subtract(subtract(h, multiply(a.f, a.cosine)), multiply(a.g, a.sine));
    return turnBack(ComplexFresnelSums{resized(c, L), resized(s, L)}, sector.turn);
}

}  // namespace

ComplexNum FresnelC(MathContext& math, const ComplexNum& z) {
    const int32_t L = z.re.length();
    if (z.im.isZero()) return complexFromParts(FresnelC(math, z.re), makeZero(L));
    if (special_detail::complexIsNonFinite(z)) return complexNaN();
    const std::optional<ComplexFresnelSums> v = fresnelBoth(math, z);
    return v ? v->c : complexNaN();
}

ComplexNum FresnelS(MathContext& math, const ComplexNum& z) {
    const int32_t L = z.re.length();
    if (z.im.isZero()) return complexFromParts(FresnelS(math, z.re), makeZero(L));
    if (special_detail::complexIsNonFinite(z)) return complexNaN();
    const std::optional<ComplexFresnelSums> v = fresnelBoth(math, z);
    return v ? v->s : complexNaN();
}

ComplexFresnelValues FresnelPair(MathContext& math, const ComplexNum& z) {
    const int32_t L = z.re.length();
    if (z.im.isZero()) {
        const FresnelValues v = FresnelPair(math, z.re);
        return ComplexFresnelValues{complexFromParts(v.c, makeZero(L)), complexFromParts(v.s, makeZero(L))};
    }
    if (special_detail::complexIsNonFinite(z)) return ComplexFresnelValues{complexNaN(), complexNaN()};
    if (!usesSeries(z) && toSector(z).turn == Turn::None) {
        // 1/2 - C = g cos t - f sin t, 1/2 - S = f cos t + g sin t.
        const LargeArgument a = largeArgument(math, z, L);
        if (!a.ok) return ComplexFresnelValues{complexNaN(), complexNaN()};
        const ComplexNum c = subtract(multiply(a.g, a.cosine), multiply(a.f, a.sine));
        const ComplexNum s = add(multiply(a.f, a.cosine), multiply(a.g, a.sine));
        return ComplexFresnelValues{resized(c, L), resized(s, L)};
    }
    const std::optional<ComplexFresnelSums> v = fresnelBoth(math, z);
    if (!v) return ComplexFresnelValues{complexNaN(), complexNaN()};
    return ComplexFresnelValues{subtract(half(L), v->c), subtract(half(L), v->s)};
}

void FresnelAux(MathContext& math, const ComplexNum& z, ComplexNum& f, ComplexNum& g) {
    const int32_t P = f.re.length();
    const ComplexNum x = resized(z, P);
    double d = 0.0;
    const bool fits = special_detail::complexModulusAsDouble(x, d);
    if (!fits || special_detail::FresnelAsymptoticSuffices(d, P)) {
        // The real asymptotic series with w = 1/(pi z^2) complex.
        const int32_t bound = -2 * P - 2;
        const ComplexNum piZ = complexScale(constant(math, P, 'p'), x);
        const ComplexNum w = divide(complexFromInt(P, 1), multiply(piZ, x));
        ComplexNum a = complexFromInt(P, 1);
        ComplexNum fs = a;
        ComplexNum gs = complexZero(P);
        for (int32_t j = 1;; ++j) {
            a = complexScale(fromInt(P, 2 * j - 1), multiply(a, w));
            ComplexNum& target = j % 2 == 0 ? fs : gs;
            target = ((j / 2) % 2 == 0) ? add(target, a) : subtract(target, a);
            if (math.PollAbort() || special_detail::complexTermIsNegligible(a, bound)) break;
        }
        f = divide(fs, piZ);
        g = divide(gs, piZ);
        return;
    }
    // From C and S by the widened power series, as for a real argument.
    double re = 0.0;
    double im = 0.0;
    BigNumToDouble(x.re, re);
    BigNumToDouble(x.im, im);
    const int32_t W = P + special_detail::FresnelSeriesExtraBytes(d, 3.141592653589793 * std::fabs(re * im));
    const ComplexNum xw = resized(x, W);
    const ComplexFresnelSums s = special_detail::FresnelSeries(math, xw);
    const ComplexNum t = complexScale(divideBySmall(constant(math, W, 'p'), 2), multiply(xw, xw));
    const ComplexNum sine = Sin(math, t);
    const ComplexNum cosine = Cos(math, t);
    const ComplexNum h = half(W);
    const ComplexNum halfMinusC = subtract(h, s.c);
    const ComplexNum halfMinusS = subtract(h, s.s);
    f = resized(subtract(multiply(halfMinusS, cosine), multiply(halfMinusC, sine)), P);
    g = resized(add(multiply(halfMinusC, cosine), multiply(halfMinusS, sine)), P);
}

}  // namespace quorvel
