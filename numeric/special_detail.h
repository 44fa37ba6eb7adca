// Internal helpers shared by the special-function files (not a public API).
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "numeric/bigint.h"
#include "numeric/bignum.h"
#include "numeric/complex.h"
#include "numeric/mathcontext.h"

namespace quorvel::special_detail {

// --- Spouge's sum (numeric/spouge.cpp) ---------------------------------------------

// The coefficients of Spouge's sum at P bytes: a = trunc((4P + 4) / 3),
// c0 = sqrt(2 pi) and c[k] for k = 1 .. a - 1 (c[0] unused),
// c_k = (-1)^(k-1) / (k-1)! (a-k)^(k-1/2) e^(a-k). Polled once per k.
struct SpougeCoefficients {
    int32_t length = 0;   // P
    int32_t a = 0;
    BigNum c0;
    std::vector<BigNum> c;
};
SpougeCoefficients ComputeSpougeCoefficients(MathContext& math, int32_t P);

// The coefficients for one working length, computed on first use: the gammas
// of one computation (comb, perm, the Airy constants) share them.
class SpougeCache {
public:
    const SpougeCoefficients& get(MathContext& math, int32_t P) {
        if (!coefficients_ || coefficients_->length != P) coefficients_ = ComputeSpougeCoefficients(math, P);
        return *coefficients_;
    }

private:
    std::optional<SpougeCoefficients> coefficients_;
};

// Gamma and GammaSpouge with a shared coefficient cache (numeric/gamma.cpp,
// numeric/complex_gamma.cpp).
BigNum GammaWith(MathContext& math, const BigNum& x, SpougeCache& cache);
void GammaSpougeWith(MathContext& math, BigNum& y, SpougeCache& cache);
ComplexNum GammaWith(MathContext& math, const ComplexNum& z, SpougeCache& cache);
// True for a zero or a negative integer: the poles of Gamma.
bool isGammaPole(const BigNum& x);

// PowerInt(e, m) for every m = 0 .. count - 1 (index m), with the same
// multiplications in the same order as PowerInt, so each value is identical to
// PowerInt's; the multiplications that several exponents share are done once.
std::vector<BigNum> PowersLikePowerInt(MathContext& math, const BigNum& e, int32_t count);

// sqrt m for a small positive integer m at `length` bytes: Newton's iteration
// from a four-digit start, doubling the length each step, and a last step one
// byte wider; within a unit of the last pair.
BigNum SquareRootOfSmall(int32_t m, int32_t length);

// The working length of Spouge's sum for an argument of `length` bytes.
inline int32_t SpougeLength(int32_t length) { return length + 8; }

// --- Fresnel series (numeric/fresnel_series.cpp) ---------------------------------

struct FresnelSums {
    BigNum c;
    BigNum s;
};
// C(x) and S(x) by their power series at x's own length P, each term carried
// from the last (x^4 (pi/2)^2 over the next two integers), stopped when both
// terms reach a decimal exponent <= -2(P + 2); polled per term.
FresnelSums FresnelSeries(MathContext& math, const BigNum& x);

struct ComplexFresnelSums {
    ComplexNum c;
    ComplexNum s;
};
// The same series with complex terms at the length of z's parts.
ComplexFresnelSums FresnelSeries(MathContext& math, const ComplexNum& z);

// True when the asymptotic series of f and g reaches a relative error below
// 10^-(2P + 2) at |x| (its smallest term is about e^(-pi |x|^2 / 2)).
bool FresnelAsymptoticSuffices(double modulus, int32_t P);
// Extra bytes that C and S by the power series, and f and g solved from them,
// need at |x| = modulus for their cancellation: the terms grow to about e^|t|
// (t = pi x^2 / 2), and for a complex x the sine and cosine of t reach
// e^|Im t| against f and g of about 1/|pi x|. imaginaryPart: |Im t|.
int32_t FresnelSeriesExtraBytes(double modulus, double imaginaryPart);

// f(x) and g(x) for a real x > 8 at the length of f by the continued fraction
// of e^(z^2) erfc(z), z = (1 - i) sqrt(pi) x / 2: g + i f = (1 + i)/2 e^(z^2)
// erfc(z). Worked two bytes wider, its convergents compared every 32 terms
// until two agree to the last digit; polled per term.
void FresnelAuxByFraction(MathContext& math, const BigNum& x, BigNum& f, BigNum& g);
// True when, at |x| = modulus and P bytes, the continued fraction is expected
// to cost fewer multiplications than the widened power series.
bool FresnelFractionIsCheaper(double modulus, int32_t P);

// --- Airy (numeric/airy.cpp) -------------------------------------------------------

// The guard bytes of the Airy series for |x| = a: trunc(q / 2 + 8) with the
// cubic guard polynomial q(a), taken as 0 when negative.
int32_t AiryGuardBytes(double a);

// --- Bernoulli and Euler sums (numeric/bernoulli.cpp) -------------------------------

// For k = 0 .. n: sum_(j=0..k) (-1)^j C(k, j) (offset + step j)^n, exactly
// (0^0 = 1), term by term: the binomial coefficient carried along j times the
// precomputed power. Polled per term.
std::vector<BigInt> AlternatingBinomialSumsDirect(MathContext& math, int32_t n, uint32_t step, uint32_t offset);
// The same sums, identical, from the forward-difference table of the powers
// (n^2 / 2 subtractions instead of n^2 / 2 products). Polled per row.
std::vector<BigInt> AlternatingBinomialSums(MathContext& math, int32_t n, uint32_t step, uint32_t offset);

// --- Small helpers -------------------------------------------------------------------

// True when both parts of a complex term have reached a decimal exponent
// <= bound or are zero (a non-finite part also stops the sum).
bool complexTermIsNegligible(const ComplexNum& t, int32_t bound);
// z / v and z * v for a small positive integer v, part by part.
ComplexNum complexDivideBySmall(const ComplexNum& z, int32_t v);
// x * z for a real x.
ComplexNum complexScale(const BigNum& x, const ComplexNum& z);
// -z.
ComplexNum complexNegated(const ComplexNum& z);
// True when either part is NaN or infinite.
bool complexIsNonFinite(const ComplexNum& z);
// Both parts NaN.
ComplexNum complexNaN();
// |z| as a double (false when it does not fit; NaN parts give false too).
bool complexModulusAsDouble(const ComplexNum& z, double& out);

}  // namespace quorvel::special_detail
