// The power series of the Fresnel integrals, for a real and a complex
// argument, and the estimates that choose between it and the asymptotic
// series of the auxiliary functions.
#include <cmath>
#include <cstdint>
#include <utility>

#include "numeric/elementary_detail.h"
#include "numeric/special_detail.h"

namespace quorvel::special_detail {

using elementary_detail::constant;
using elementary_detail::divideBySmall;
using elementary_detail::termIsNegligible;

namespace {

constexpr double Ln10 = 2.302585092994045684;
constexpr double Pi = 3.141592653589793238;

// Divides by the two consecutive integers m and m + 1.
BigNum overTwo(const BigNum& a, int32_t m) { return divideBySmall(divideBySmall(a, m), m + 1); }

ComplexNum overTwo(const ComplexNum& a, int32_t m) { return complexDivideBySmall(complexDivideBySmall(a, m), m + 1); }

}  // namespace

// C = sum (-1)^n u_n / (4n + 1), u_n = (pi/2)^(2n) x^(4n+1) / (2n)!, and
// S = sum (-1)^n v_n / (4n + 3), v_n = (pi/2)^(2n+1) x^(4n+3) / (2n+1)!: each
// of u and v is multiplied by q^2 = ((pi/2) x^2)^2 and divided by its next two
// integers per step.
FresnelSums FresnelSeries(MathContext& math, const BigNum& x) {
    const int32_t P = x.length();
    const int32_t bound = -2 * (P + 2);
    const BigNum q = multiply(divideBySmall(constant(math, P, 'p'), 2), multiply(x, x));
    const BigNum qSquared = multiply(q, q);
    BigNum u = x;
    BigNum v = multiply(q, x);
    FresnelSums sums{u, divideBySmall(v, 3)};
    for (int32_t n = 1;; ++n) {
        u = overTwo(multiply(u, qSquared), 2 * n - 1);
        v = overTwo(multiply(v, qSquared), 2 * n);
        const BigNum c = divideBySmall(u, 4 * n + 1);
        const BigNum s = divideBySmall(v, 4 * n + 3);
        if (n % 2 == 1) {
            sums.c = subtract(sums.c, c);
            sums.s = subtract(sums.s, s);
        } else {
            sums.c = add(sums.c, c);
            sums.s = add(sums.s, s);
        }
        if (math.PollAbort() || (termIsNegligible(c, bound) && termIsNegligible(s, bound))) break;
    }
    return sums;
}

ComplexFresnelSums FresnelSeries(MathContext& math, const ComplexNum& z) {
    const int32_t P = z.re.length();
    const int32_t bound = -2 * (P + 2);
    const ComplexNum q = complexScale(divideBySmall(constant(math, P, 'p'), 2), multiply(z, z));
    const ComplexNum qSquared = multiply(q, q);
    ComplexNum u = z;
    ComplexNum v = multiply(q, z);
    ComplexFresnelSums sums{u, complexDivideBySmall(v, 3)};
    for (int32_t n = 1;; ++n) {
        u = overTwo(multiply(u, qSquared), 2 * n - 1);
        v = overTwo(multiply(v, qSquared), 2 * n);
        const ComplexNum c = complexDivideBySmall(u, 4 * n + 1);
        const ComplexNum s = complexDivideBySmall(v, 4 * n + 3);
        if (n % 2 == 1) {
            sums.c = subtract(sums.c, c);
            sums.s = subtract(sums.s, s);
        } else {
            sums.c = add(sums.c, c);
            sums.s = add(sums.s, s);
        }
        if (math.PollAbort() || (complexTermIsNegligible(c, bound) && complexTermIsNegligible(s, bound))) break;
    }
    return sums;
}

bool FresnelAsymptoticSuffices(double modulus, int32_t P) {
    // The terms (2j-1)!! / (pi x^2)^j fall to about sqrt 2 e^-t, t = pi x^2 / 2,
    // at j = t before they grow again.
    const double t = Pi * modulus * modulus / 2.0;
    return t > (2.0 * P + 4.0) * Ln10;
}

int32_t FresnelSeriesExtraBytes(double modulus, double imaginaryPart) {
    const double t = Pi * modulus * modulus / 2.0 + imaginaryPart;
    return static_cast<int32_t>(std::ceil(t / (2.0 * Ln10) + std::log10(modulus + 1.0) / 2.0)) + 3;
}

void FresnelAuxByFraction(MathContext& math, const BigNum& x, BigNum& f, BigNum& g) {
    const int32_t P = f.length();
    const int32_t work = P + 2;
    const BigNum xw = resized(x, work);
    const BigNum pi = constant(math, work, 'p');
    // With z = s (1 - i), s = sqrt(pi) x / 2, the convergents A_n / B_n of
    // 1/(z + (1/2)/(z + 1/(z + (3/2)/(z + ...)))) follow
    // A_n = z A_(n-1) + a_n A_(n-2), a_1 = 1, a_n = (n - 1)/2. Scaled by s^n:
    // A_n = (1 - i) A_(n-1) + a_n r A_(n-2), r = 1/s^2 = 4/(pi x^2).
    const BigNum r = divide(fromInt(work, 4), multiply(pi, multiply(xw, xw)));
    const BigNum halfR = divideBySmall(r, 2);
    const auto timesOneMinusI = [](const ComplexNum& a) { return ComplexNum{add(a.re, a.im), subtract(a.im, a.re)}; };
    ComplexNum aBefore = complexFromInt(work, 1);
    ComplexNum a = complexZero(work);
    ComplexNum bBefore = complexZero(work);
    ComplexNum b = complexFromInt(work, 1);
    ComplexNum last = complexZero(work);
    const int32_t bound = 2 * P + 2;
    for (int32_t n = 1;; ++n) {
        const BigNum coefficient = n == 1 ? r : multiply(halfR, fromInt(work, n - 1));
        ComplexNum nextA = add(timesOneMinusI(a), complexScale(coefficient, aBefore));
        ComplexNum nextB = add(timesOneMinusI(b), complexScale(coefficient, bBefore));
        aBefore = std::move(a);
        a = std::move(nextA);
        bBefore = std::move(b);
        b = std::move(nextB);
        if (math.PollAbort()) break;
        if (n % 32 != 0) continue;
        ComplexNum h = divide(a, b);
        const ComplexNum change = subtract(h, last);
        last = std::move(h);
        const int32_t scale = last.re.exponent > last.im.exponent ? last.re.exponent : last.im.exponent;
        if (complexTermIsNegligible(change, scale - bound)) break;
    }
    // The scaling by s^n starts A from s A_(-1): the fraction is s h. Then
    // g + i f = (1 + i)/2 s h / sqrt(pi) = (1 + i) x h / 4 for h = p + iq:
    // g = (p - q) x / 4, f = (p + q) x / 4.
    const BigNum quarterX = divideBySmall(xw, 4);
    assign(f, resized(multiply(add(last.re, last.im), quarterX), P));
    assign(g, resized(multiply(subtract(last.re, last.im), quarterX), P));
}

bool FresnelFractionIsCheaper(double modulus, int32_t P) {
    const double t = Pi * modulus * modulus / 2.0;
    const double digits = (2.0 * P + 2.0) * Ln10;
    const double fractionTerms = 1.3 * std::pow(digits / (2.0 * std::sqrt(t)), 2.0) + 64.0;
    // The series at W bytes needs the n at which t^(2n) / (2n)! falls below
    // 10^-2W; each step costs two multiplications at W bytes.
    const double W = P + FresnelSeriesExtraBytes(modulus, 0.0);
    double n = 1.0;
    while (2.0 * n * std::log(t) - std::lgamma(2.0 * n + 1.0) > -2.0 * W * Ln10 && n < 1e7) n += 1.0;
    const double seriesCost = 2.0 * n * (W / P) * (W / P);
    return 4.0 * fractionTerms < seriesCost;
}

}  // namespace quorvel::special_detail
