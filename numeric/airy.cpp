// The Airy functions Ai and Bi of a real and of a complex argument, from the
// two Maclaurin series of the Airy equation, with guard bytes for their
// cancellation and a cut-off at |x| > 250.
#include <cmath>
#include <cstdint>

#include "numeric/elementary.h"
#include "numeric/elementary_detail.h"
#include "numeric/numtext.h"
#include "numeric/special.h"
#include "numeric/special_detail.h"

namespace quorvel {

using elementary_detail::divideBySmall;
using elementary_detail::termIsNegligible;
using special_detail::complexDivideBySmall;
using special_detail::complexScale;
using special_detail::complexTermIsNegligible;

namespace special_detail {

int32_t AiryGuardBytes(double a) {
    // The digits the cancellation between the two series costs, fitted as a
    // cubic in |x| and evaluated in double precision.
    double q = (((a * 5.749351148e-8 - 4.920254349e-5) * a + 0.02280240286) * a + 1.056602314) * a - 4.497972952;
    if (q < 0.0) q = 0.0;
    return static_cast<int32_t>(q * 0.5 + 8.0);
}

}  // namespace special_detail

namespace {

constexpr double CutOff = 250.0;

// The constants that combine the series at P bytes:
// Ai = c1 f - c2 g, Bi = b1 f + b2 g, with c1 = 1/(3^(2/3) Gamma(2/3)),
// c2 = 1/(3^(1/3) Gamma(1/3)), and sqrt 3 c1 = 1/(3^(1/6) Gamma(2/3)),
// sqrt 3 c2 = 3^(1/6) / Gamma(1/3) through the power 3^(1/6).
struct AiryConstants {
    BigNum c1;
    BigNum c2;
    BigNum b1;
    BigNum b2;
};
AiryConstants airyConstants(MathContext& math, int32_t P) {
    const BigNum one = fromInt(P, 1);
    const BigNum three = fromInt(P, 3);
    const BigNum oneThird = divideBySmall(one, 3);
    const BigNum twoThirds = divideBySmall(fromInt(P, 2), 3);
    special_detail::SpougeCache cache;
    const BigNum gammaTwoThirds = special_detail::GammaWith(math, twoThirds, cache);
    const BigNum gammaOneThird = special_detail::GammaWith(math, oneThird, cache);
    const BigNum sixthRoot = Power(math, three, divideBySmall(one, 6));
    AiryConstants k;
    k.c1 = divide(one, multiply(Power(math, three, twoThirds), gammaTwoThirds));
    k.c2 = divide(one, multiply(Power(math, three, oneThird), gammaOneThird));
    k.b1 = divide(one, multiply(sixthRoot, gammaTwoThirds));
    k.b2 = divide(sixthRoot, gammaOneThird);
    return k;
}

enum class Which { Ai, Bi };

// The working length for |x| = d, or 0 past the cut-off (or when x does not
// convert to a double).
int32_t airyLength(bool converted, double d, int32_t L) {
    if (!converted || !(std::fabs(d) <= CutOff)) return 0;
    return L + special_detail::AiryGuardBytes(std::fabs(d));
}

BigNum airy(MathContext& math, const BigNum& x, Which which) {
    const int32_t L = x.length();
    if (x.isNaN()) return makeNaN();
    double d = 0.0;
    const bool converted = BigNumToDouble(x, d);
    const int32_t P = airyLength(converted, d, L);
    if (P == 0) return which == Which::Ai ? makeZero(L) : makeInfinity(L, 1);
    BigNum f = makeZero(P);
    BigNum g = makeZero(P);
    AirySeries(math, x, f, g);
    const AiryConstants k = airyConstants(math, P);
    const BigNum r = which == Which::Ai ? subtract(multiply(k.c1, f), multiply(k.c2, g))
                                        : add(multiply(k.b1, f), multiply(k.b2, g));
    return resized(r, L);
}

ComplexNum airy(MathContext& math, const ComplexNum& z, Which which) {
    const int32_t L = z.re.length();
    if (z.im.isZero() && !z.re.isNaN()) return complexFromParts(airy(math, z.re, which), makeZero(L));
    if (special_detail::complexIsNonFinite(z)) return special_detail::complexNaN();
    double d = 0.0;
    const bool converted = special_detail::complexModulusAsDouble(z, d);
    const int32_t P = airyLength(converted, d, L);
    if (P == 0) return complexFromParts(which == Which::Ai ? makeZero(L) : makeInfinity(L, 1), makeZero(L));
    ComplexNum f = complexZero(P);
    ComplexNum g = complexZero(P);
    AirySeries(math, z, f, g);
    const AiryConstants k = airyConstants(math, P);
    const ComplexNum r = which == Which::Ai ? subtract(complexScale(k.c1, f), complexScale(k.c2, g))
                                            : add(complexScale(k.b1, f), complexScale(k.b2, g));
    return resized(r, L);
}

}  // namespace

void AirySeries(MathContext& math, const BigNum& x, BigNum& f, BigNum& g) {
    const int32_t P = f.length();
    const int32_t bound = -2 * (P + 1);
    const BigNum xw = resized(x, P);
    const BigNum cube = multiply(multiply(xw, xw), xw);
    BigNum fk = fromInt(P, 1);
    BigNum gk = xw;
    BigNum fs = fk;
    BigNum gs = gk;
    for (int32_t k = 0;; ++k) {
        fk = divideBySmall(divideBySmall(multiply(fk, cube), 3 * k + 2), 3 * k + 3);
        gk = divideBySmall(divideBySmall(multiply(gk, cube), 3 * k + 3), 3 * k + 4);
        fs = add(fs, fk);
        gs = add(gs, gk);
        if (math.PollAbort() || (termIsNegligible(fk, bound) && termIsNegligible(gk, bound))) break;
    }
    assign(f, fs);
    assign(g, gs);
}

void AirySeries(MathContext& math, const ComplexNum& z, ComplexNum& f, ComplexNum& g) {
    const int32_t P = f.re.length();
    const int32_t bound = -2 * (P + 1);
    const ComplexNum zw = resized(z, P);
    const ComplexNum cube = multiply(multiply(zw, zw), zw);
    ComplexNum fk = complexFromInt(P, 1);
    ComplexNum gk = zw;
    ComplexNum fs = fk;
    ComplexNum gs = gk;
    for (int32_t k = 0;; ++k) {
        fk = complexDivideBySmall(complexDivideBySmall(multiply(fk, cube), 3 * k + 2), 3 * k + 3);
        gk = complexDivideBySmall(complexDivideBySmall(multiply(gk, cube), 3 * k + 3), 3 * k + 4);
        fs = add(fs, fk);
        gs = add(gs, gk);
        if (math.PollAbort() || (complexTermIsNegligible(fk, bound) && complexTermIsNegligible(gk, bound))) break;
    }
    f = fs;
    g = gs;
}

BigNum AiryAi(MathContext& math, const BigNum& x) { return airy(math, x, Which::Ai); }

BigNum AiryBi(MathContext& math, const BigNum& x) { return airy(math, x, Which::Bi); }

ComplexNum AiryAi(MathContext& math, const ComplexNum& z) { return airy(math, z, Which::Ai); }

ComplexNum AiryBi(MathContext& math, const ComplexNum& z) { return airy(math, z, Which::Bi); }

}  // namespace quorvel
