// Complex values: a real and an imaginary part, each a BigNum.
//
// Both parts normally have the same byte length L, the working length of the
// computation; results come at the length of the first operand's real part.
// NaN and infinity travel through the parts as in BigNum. Nothing here
// reports except "Aborted", through the MathContext's poller.
#pragma once

#include "numeric/bigint.h"
#include "numeric/bignum.h"

namespace quorvel {

struct ComplexNum {
    BigNum re;
    BigNum im;

    friend bool operator==(const ComplexNum&, const ComplexNum&) = default;
};

class MathContext;

// --- Construction --------------------------------------------------------------

// 0 + 0i, both parts of `length` bytes.
ComplexNum complexZero(int32_t length);
// k + 0i: re = fromInt(length, k), im zero of `length` bytes.
ComplexNum complexFromInt(int32_t length, int32_t k);
// re + 0i: a copy of re, im zero of re's length.
ComplexNum complexFromParts(const BigNum& re);
// re + im i: copies of both parts.
ComplexNum complexFromParts(const BigNum& re, const BigNum& im);
// Both parts resized to `length` (the rounding of BigNum resized).
ComplexNum resized(const ComplexNum& z, int32_t length);

// --- Arithmetic: parts at the operands' lengths, no wider work ------------------

// Parts added pairwise.
ComplexNum add(const ComplexNum& a, const ComplexNum& b);
// Parts subtracted pairwise.
ComplexNum subtract(const ComplexNum& a, const ComplexNum& b);
// (a + bi)(c + di) = (ac - bd) + (ad + bc)i: four products, one subtract, one add.
ComplexNum multiply(const ComplexNum& a, const ComplexNum& b);
// n = c^2 + d^2; ((ac + bd) / n) + ((bc - ad) / n)i; a zero divisor gives NaN parts.
ComplexNum divide(const ComplexNum& a, const ComplexNum& b);
void addInPlace(ComplexNum& a, const ComplexNum& b);
void subtractInPlace(ComplexNum& a, const ComplexNum& b);
void multiplyInPlace(ComplexNum& a, const ComplexNum& b);
void divideInPlace(ComplexNum& a, const ComplexNum& b);
// sqrt(re^2 + im^2) with the BigNum square root, worked two bytes wider, at
// the longer part's length.
BigNum complexModulus(const ComplexNum& z);

// --- Elementary functions: worked two bytes wider, rounded back to re's length --

// sqrt(|z|) (cos t + i sin t), t = atan2(im, re) / 2; a real z gives its exact
// real root (re >= 0) or the imaginary root of -re (re < 0) with a zero other part.
ComplexNum squareRoot(MathContext& math, const ComplexNum& z);
// e^re (cos im + i sin im).
ComplexNum Exp(MathContext& math, const ComplexNum& z);
// ln |z| + i atan2(im, re): the principal branch, imaginary part in (-pi, pi].
ComplexNum Ln(MathContext& math, const ComplexNum& z);
// (e^(iz) + e^(-iz)) / 2.
ComplexNum Cos(MathContext& math, const ComplexNum& z);
// (e^(iz) - e^(-iz)) / 2i.
ComplexNum Sin(MathContext& math, const ComplexNum& z);
// Sin(z) / Cos(z).
ComplexNum Tan(MathContext& math, const ComplexNum& z);
// (e^z - 1/e^z) / 2.
ComplexNum Sinh(MathContext& math, const ComplexNum& z);
// (e^z + 1/e^z) / 2.
ComplexNum Cosh(MathContext& math, const ComplexNum& z);
// Sinh(z) / Cosh(z).
ComplexNum Tanh(MathContext& math, const ComplexNum& z);
// -i ln(iz + sqrt(1 - z^2)).
ComplexNum Asin(MathContext& math, const ComplexNum& z);
// pi/2 - Asin(z).
ComplexNum Acos(MathContext& math, const ComplexNum& z);
// re = atan2(2a, 1 - a^2 - b^2) / 2, im = ln(((b + 1)^2 + a^2) / ((b - 1)^2 + a^2)) / 4
// for z = a + bi.
ComplexNum Atan(MathContext& math, const ComplexNum& z);
// z^w = exp(w ln z).
ComplexNum Power(MathContext& math, const ComplexNum& z, const ComplexNum& w);
// z^x = exp(x ln z) for a real exponent.
ComplexNum Power(MathContext& math, const ComplexNum& z, const BigNum& x);
// z^n at z's length: |n| < 65536 by repeated squaring, polling once per round
// (stopped early it returns the partial product), inverted for n < 0; larger
// |n| as exp(n ln z) with n converted at z's length + 5. z^0 = 1.
ComplexNum PowerInt(MathContext& math, const ComplexNum& z, const BigInt& n);

}  // namespace quorvel

#include <cstdint>
#include <string>

namespace quorvel {

// Display text of a complex value: each part by FormatReal with `digits` and
// `flags`; 0x80 selects ASCII, 0x10 shows both parts even when one is zero.
// Forms: "0.", "i", "−i", "(2·i)", "(3 + 2·i)", "(3 − i)".
std::u16string formatComplex(const ComplexNum& z, int32_t digits, int32_t flags);

}  // namespace quorvel
