// Elementary functions of real BigNums: exponential, logarithm, powers, the
// circular and hyperbolic functions and their inverses.
//
// Every function takes an argument of L mantissa bytes and returns a new value
// of L bytes (two-argument functions: the larger length); the work is done a
// few bytes wider and rounded back. Angles are in radians. NaN in gives NaN;
// a domain error gives NaN and an overflow an infinity. Nothing here reports
// except "Aborted", through the context's poller: long series poll once per
// term and, when stopped, return their partial result (the caller's command
// sees the abort flag). A series stops after the first term whose decimal
// exponent is not above -(2P + 1) at P working bytes (the exponential core:
// -(2P + 2)), or when a term becomes exactly zero.
#pragma once

#include "numeric/bigint.h"
#include "numeric/bignum.h"
#include "numeric/mathcontext.h"

namespace quorvel {

// --- Series cores: each replaces its argument, at the argument's own length --

// e^r by 1 + r + r^2/2! + ... (r small: |r| below about 0.15 when called by Exp).
void ExpSeries(MathContext& math, BigNum& r);
// ln x by 2 (z + z^3/3 + z^5/5 + ...), z = (x - 1)/(x + 1); x positive.
void LnSeries(MathContext& math, BigNum& x);
// sin r = r - r^3/3! + ..., power and factorial kept apart (|r| up to about 7).
void SinSeries(MathContext& math, BigNum& r);
// cos r = 1 - r^2/2! + ..., the even counterpart of SinSeries.
void CosSeries(MathContext& math, BigNum& r);
// atan y = y - y^3/3 + y^5/5 - ... (for 0 <= y < 0.75).
void AtanSeries(MathContext& math, BigNum& y);
// atan y = 2 atan((sqrt(1 + y^2) - 1) / y), at y's own length (Atan passes
// it L + 2 bytes; for 0.75 <= y <= 1).
void AtanHalfAngle(MathContext& math, BigNum& y);

// --- Exponential, logarithm, powers -------------------------------------------

// e^x at L + 4 bytes: x = k ln 10 + 16 r, e^r by ExpSeries squared four times,
// k added to the exponent. +inf for x >= 10^12 (or k past 32 bits), 0 for the
// negative counterparts; exactly 1 for x = 0.
BigNum Exp(MathContext& math, const BigNum& x);
// Natural logarithm at L + 4 bytes from the mantissa m in [1, 10) (through its
// square root when m >= 3.2) plus E ln 10. ln 0 = -inf, ln(+inf) = +inf,
// negative x gives NaN.
BigNum Ln(MathContext& math, const BigNum& x);
// Base-10 logarithm: Ln(x) divided by ln 10 (cache, L + 2 bytes), at L bytes.
BigNum Log10(MathContext& math, const BigNum& x);
// Base-2 logarithm: Ln(x) divided by ln 2 (cache, L + 2 bytes), at L bytes.
BigNum Log2(MathContext& math, const BigNum& x);
// x^y = Exp(Ln(x) * y) at max(L_x, L_y) bytes; NaN for negative x.
BigNum Power(MathContext& math, const BigNum& x, const BigNum& y);
// x^n: exponents of two or more 16-bit limbs go through Power (n converted at
// L bytes); otherwise repeated multiplication by trial division of |n|
// (a prime q costs q - 1 multiplications, each polled), inverted for n < 0.
// x^0 = 1, x^1 = x, x^-1 = 1/x.
BigNum PowerInt(MathContext& math, const BigNum& x, const BigInt& n);

// --- Circular functions ---------------------------------------------------------

// Sine by the octant reduction of x / 2pi (pi at L bytes) and the series cores
// at L + 2 bytes. Non-finite x gives NaN, sin 0 = 0.
BigNum Sin(MathContext& math, const BigNum& x);
// Cosine by the same reduction with the cores' roles exchanged; cos 0 = 1.
BigNum Cos(MathContext& math, const BigNum& x);
// Sin / Cos; an exactly zero cosine gives the sine's value turned infinite.
BigNum Tan(MathContext& math, const BigNum& x);
// Sin(x) / x, and 1 for x = 0.
BigNum Sinc(MathContext& math, const BigNum& x);

// --- Inverse circular functions -------------------------------------------------

// Arc tangent in (-pi/2, pi/2); +-inf gives +-pi/2, |x| > 1 works on 1/|x|.
BigNum Atan(MathContext& math, const BigNum& x);
// Arc sine: Atan(x / sqrt(1 - x^2)); +-pi/2 for x = +-1, NaN for |x| > 1.
BigNum Asin(MathContext& math, const BigNum& x);
// Arc cosine: Atan(sqrt(1 - x^2) / x), plus pi for negative x, pi/2 for 0;
// NaN for |x| > 1.
BigNum Acos(MathContext& math, const BigNum& x);
// Angle of the point (x, y) in (-pi, pi] at max(L_y, L_x) bytes: y = 0 with
// x < 0 gives +pi, (0, 0) gives 0, x = 0 gives +-pi/2 with the sign of y.
BigNum Atan2(MathContext& math, const BigNum& y, const BigNum& x);

// --- Hyperbolic functions -------------------------------------------------------

// (e^x - 1/e^x) / 2.
BigNum Sinh(MathContext& math, const BigNum& x);
// (e^x + 1/e^x) / 2.
BigNum Cosh(MathContext& math, const BigNum& x);
// Sinh / Cosh.
BigNum Tanh(MathContext& math, const BigNum& x);
// ln(x + sqrt(x^2 + 1)).
BigNum Asinh(MathContext& math, const BigNum& x);
// ln(x + sqrt(x^2 - 1)) for x >= 1, NaN otherwise.
BigNum Acosh(MathContext& math, const BigNum& x);
// ln((1 + x) / (1 - x)) / 2, NaN for |x| >= 1.
BigNum Atanh(MathContext& math, const BigNum& x);

}  // namespace quorvel
