// The power series of the Fresnel integrals, for a real and a complex
// argument, and the estimates that choose between it and the asymptotic
// series of the auxiliary functions.
#include <cmath>
#include <cstdint>

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

}  // namespace quorvel::special_detail
