// The mathematical constants pi, e and Euler's gamma, computed from scratch.
//
// Each routine works at M + 5 bytes, sums its series until a term's decimal
// exponent is at most -(2(M + 5)) - 1, and returns the constant rounded to M
// bytes. The constant cache (MathContext::GetConstant) calls them with M =
// the requested length + 2 and keeps the results.
#pragma once

#include <cstdint>

#include "numeric/bignum.h"

namespace quorvel {

class MathContext;

// pi by Ramanujan's series 1/pi = (2 sqrt 2 / 9801) sum (4k)!(1103 + 26390k) /
// ((k!)^4 396^(4k)), returned at M bytes (at least 2). Never polls, never reports.
BigNum ComputePi(int32_t M);
// e = 2 + 1/2! + 1/3! + ..., returned at M bytes (at least 2). Never polls,
// never reports.
BigNum ComputeE(int32_t M);
// Euler's constant by the Brent-McMillan iteration with n = (M + 7) * 1.15,
// returned at M bytes (at least 2). The loop itself does not poll; the ln n it
// starts from is summed with the context's abort polling.
BigNum ComputeEulerGamma(MathContext& math, int32_t M);

}  // namespace quorvel
