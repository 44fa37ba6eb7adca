// Special functions: gamma and factorial, combinations and permutations, the
// error function, the Fresnel integrals, the Airy functions, and the Bernoulli
// and Euler numbers; for real BigNums, exact BigInts and complex values.
//
// Real and complex functions return a new value at the argument's length L
// (two-operand functions: the first operand's length) and work wider where
// each contract says. NaN in gives NaN; a pole gives +inf. Nothing here
// reports except "Aborted", through the context's poller: every long loop
// polls once per step and, when stopped, returns its partial result (the
// caller's command sees the abort flag).
#pragma once

#include <cstdint>
#include <optional>

#include "numeric/bigint.h"
#include "numeric/bignum.h"
#include "numeric/complex.h"
#include "numeric/mathcontext.h"

namespace quorvel {

// --- Gamma and factorial ----------------------------------------------------------

// Gamma function at L bytes. 0 gives NaN; negative x by reflection
// pi / sin(pi x) / Gamma(1 - x) with pi at L bytes (negative integers are poles:
// +inf); 0 < x < 1 as Gamma(x + 1) / x; x >= 1 by y = x, p = 1, while y >= 2:
// y -= 1, p *= y (polled; one multiplication per unit of x, ending early once
// p overflows), then p * GammaSpouge(y). +inf gives +inf, -inf NaN.
// Accuracy is bounded by Spouge's sum: about 1.79 (L + 8) significant digits.
BigNum Gamma(MathContext& math, const BigNum& x);
// Replaces y, 1 <= y < 2, by Gamma(y): Spouge's sum with a = trunc((4P + 4)/3)
// at P = L + 8 bytes, e^(a-k) as PowerInt of the cached e, rounded back to L.
void GammaSpouge(MathContext& math, BigNum& y);
// Gamma(x + 1), x + 1 formed at L bytes.
BigNum Factorial(MathContext& math, const BigNum& x);

// --- Exact integer paths (the integer operands of fact, comb and perm) ------------

// n! exactly, polled once per factor (an aborted run returns the partial
// product). Nothing for n < 0 or n of more than two 16-bit limbs.
std::optional<BigInt> FactorialInt(MathContext& math, const BigInt& n);
// The binomial coefficient C(n, k) exactly: 0 for k < 0, and for 0 <= n < k;
// a negative n gives (-1)^k C(k - n - 1, k). Nothing when the number of
// factors, min(k, n - k) (or k for a negative n), exceeds two 16-bit limbs.
std::optional<BigInt> CombInt(MathContext& math, const BigInt& n, const BigInt& k);
// n (n - 1) ... (n - k + 1) exactly (k factors; 0 for 0 <= n < k, 1 for k = 0);
// negative n works the same way. Nothing for k < 0 or k of more than two limbs.
std::optional<BigInt> PermInt(MathContext& math, const BigInt& n, const BigInt& k);

// --- Real and complex combinations and permutations --------------------------------

// Gamma(n + 1) / (Gamma(k + 1) Gamma(n - k + 1)), the three gammas at L + 2
// bytes, rounded to n's length. Poles give +inf or NaN (inf / inf) as they fall.
BigNum Comb(MathContext& math, const BigNum& n, const BigNum& k);
// Gamma(n + 1) / Gamma(n - k + 1) at L + 2 bytes, rounded to n's length.
BigNum Perm(MathContext& math, const BigNum& n, const BigNum& k);

// --- Error function ---------------------------------------------------------------

// erf x = (2/sqrt pi) e^(-x^2) sum x (2x^2)^n / (1 3 5 ... (2n+1)), a series of
// positive terms on |x| at L bytes, stopped at a term of decimal exponent
// <= -2(L + 2); the sign of x restored. 0 gives 0, +-inf +-1. Once x^2 exceeds
// (2L + 4) ln 10, 1 - |erf x| is below the last working digit and the result
// is +-1 without the (then very long) series.
BigNum Erf(MathContext& math, const BigNum& x);

// --- Fresnel integrals: C(x) = int_0^x cos(pi t^2 / 2) dt, S with the sine -----------

// C(x). A non-finite x gives a copy of x (C(inf) shows inf, kept); 0 gives 0.
// |x| <= 8: the power series at L + 22 bytes, stopped at a term of decimal
// exponent <= -2(L + 24). |x| > 8: 1/2 + f sin t - g cos t on |x|, t = pi x^2 / 2
// formed as (pi / 2) x x at L + 2 bytes plus the integer digits of t; the sign
// of x restored. Beyond |x| >= 10^(2L + 2) the result is +-1/2.
BigNum FresnelC(MathContext& math, const BigNum& x);
// S(x), in the shape of C: the series at L + 22 bytes, or 1/2 - f cos t - g sin t.
BigNum FresnelS(MathContext& math, const BigNum& x);
// The two values 1/2 - C(x) and 1/2 - S(x) at L bytes. For x > 8 they are formed
// from f and g directly (g cos t - f sin t, f cos t + g sin t), so they keep
// their digits as they fall like 1/(pi x); NaN beyond x >= 10^(2L + 1000).
struct FresnelValues {
    BigNum c;   // 1/2 - C(x)
    BigNum s;   // 1/2 - S(x)
};
FresnelValues FresnelPair(MathContext& math, const BigNum& x);
// Fills the auxiliary functions f(x) and g(x) (x > 8) at the length of f, so
// that C = 1/2 + f sin t - g cos t and S = 1/2 - f cos t - g sin t. The
// asymptotic series 1/(pi x) sum (-1)^m (4m-1)!!/(pi x^2)^(2m) (g: (4m+1)!!,
// one power more) when its terms fall below the last digit; otherwise the
// continued fraction of e^(z^2) erfc z or, where cheaper, C and S by the power
// series widened by its cancellation (about t / ln 100 bytes) solved for f, g.
void FresnelAux(MathContext& math, const BigNum& x, BigNum& f, BigNum& g);

// --- Airy functions ---------------------------------------------------------------

// Ai(x). x converted to a double d: a failed conversion or |d| > 250 gives 0
// (deliberate cut-off, either sign). Otherwise the two Maclaurin series at
// P = L + extra bytes, extra from the guard polynomial in |d|, and
// Ai = c1 f - c2 g with c1 = 1/(3^(2/3) Gamma(2/3)), c2 = 1/(3^(1/3) Gamma(1/3)).
// For large positive x the guard covers only the growth of the terms, not the
// decay of Ai: there the digits run out (about 0.58 x^1.5 of them are lost).
BigNum AiryAi(MathContext& math, const BigNum& x);
// Bi(x): +inf past the cut-off (either sign); otherwise
// f / (3^(1/6) Gamma(2/3)) + g 3^(1/6) / Gamma(1/3) at P bytes.
BigNum AiryBi(MathContext& math, const BigNum& x);
// Fills f = sum f_k, f_0 = 1, f_(k+1) = f_k x^3 / ((3k+2)(3k+3)) and
// g = sum g_k, g_0 = x, g_(k+1) = g_k x^3 / ((3k+3)(3k+4)) at the length of f,
// stopping once both terms reach a decimal exponent <= -2(P + 1) or zero.
void AirySeries(MathContext& math, const BigNum& x, BigNum& f, BigNum& g);

// --- Bernoulli and Euler numbers ---------------------------------------------------

// B_n = sum_(k=0..n) 1/(k+1) sum_(j=0..k) (-1)^j C(k, j) j^n: each inner sum
// exact in BigInt, converted with k + 1 at `bytes` bytes, divided and added.
// B_1 = -1/2. Result at `bytes` bytes; NaN for n < 0 or n > 10000. The terms
// reach about 0.96 n digits more than B_n: pass BernoulliWorkBytes to keep
// them. Costs about n^3 log n bit operations; polled within every loop.
BigNum Bernoulli(MathContext& math, int32_t n, int32_t bytes);
// A byte count for Bernoulli at which the largest term is held whole (so odd
// n >= 3 give exactly 0) with `length` bytes to spare for the result.
int32_t BernoulliWorkBytes(int32_t n, int32_t length);
// Bernoulli(n, BernoulliWorkBytes(n, length)) rounded to `length` bytes.
BigNum BernoulliNumber(MathContext& math, int32_t n, int32_t length);
// E_n from the exact sum N = sum_(k=0..n) 2^(n-k) sum_(j=0..k) (-1)^j C(k, j)
// (2j+1)^n, as N / 2^n divided at `bytes` bytes. E_odd = 0, E_2 = -1. NaN for
// n < 0 or n > 10000.
BigNum EulerNumber(MathContext& math, int32_t n, int32_t bytes);
// E_n as an exact integer (the same sum, divided exactly); nothing for n < 0,
// n > 10000 or when aborted.
std::optional<BigInt> EulerNumberInt(MathContext& math, int32_t n);

// --- Complex forms: the real algorithms on complex operations ---------------------
// A complex argument with a zero imaginary part takes the real function (the
// result's imaginary part zero); a non-finite part gives NaN parts. Working
// lengths, series bounds and polling are the real function's.

// Gamma(z): reflection for Re z < 0 with the complex sine, Gamma(z + 1)/z for
// 0 <= Re z < 1, the unit steps down to 1 <= Re y < 2 and Spouge's sum at L + 8.
// Large |Im z| costs digits in Spouge's sum: about |Im z| / 5 of them.
ComplexNum Gamma(MathContext& math, const ComplexNum& z);
// Gamma(z + 1).
ComplexNum Factorial(MathContext& math, const ComplexNum& z);
// Gamma(n + 1) / (Gamma(k + 1) Gamma(n - k + 1)) at L + 2 bytes.
ComplexNum Comb(MathContext& math, const ComplexNum& n, const ComplexNum& k);
// Gamma(n + 1) / Gamma(n - k + 1) at L + 2 bytes.
ComplexNum Perm(MathContext& math, const ComplexNum& n, const ComplexNum& k);
// erf z by the real series with complex terms at L bytes (polled), stopped when
// both parts of a term reach a decimal exponent <= -2(L + 2). The terms grow
// to about e^(|z|^2) against a sum near e^(Re z^2): about Im(z)^2 / ln 10
// digits cancel.
// A sum that overflows gives NaN.
ComplexNum Erf(MathContext& math, const ComplexNum& z);
// C(z): |z| <= 8 the power series at L + 22 bytes; otherwise z is turned into
// the sector |arg| <= pi/4 (C(-z) = -C(z), C(iz) = iC(z)) and
// 1/2 + f sin t - g cos t formed there with the complex sine and cosine.
ComplexNum FresnelC(MathContext& math, const ComplexNum& z);
// S(z) likewise (S(iz) = -iS(z)).
ComplexNum FresnelS(MathContext& math, const ComplexNum& z);
// 1/2 - C(z) and 1/2 - S(z); formed from f and g directly for |z| > 8 in the
// sector |arg z| <= pi/4.
struct ComplexFresnelValues {
    ComplexNum c;
    ComplexNum s;
};
ComplexFresnelValues FresnelPair(MathContext& math, const ComplexNum& z);
// f(z) and g(z) for |z| > 8 with |arg z| <= pi/4, at the length of f's parts,
// computed as a pair in the way of the real FresnelAux.
void FresnelAux(MathContext& math, const ComplexNum& z, ComplexNum& f, ComplexNum& g);
// Ai(z): the cut-off and the guard polynomial on |z| (Ai 0 past 250), the
// shared complex series, c1 f - c2 g.
ComplexNum AiryAi(MathContext& math, const ComplexNum& z);
// Bi(z): +inf (real) past the cut-off; otherwise as the real Bi.
ComplexNum AiryBi(MathContext& math, const ComplexNum& z);
// The two Maclaurin series of the real AirySeries with complex terms, at the
// length of f's parts.
void AirySeries(MathContext& math, const ComplexNum& z, ComplexNum& f, ComplexNum& g);

}  // namespace quorvel
