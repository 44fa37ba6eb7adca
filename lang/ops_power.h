// Powers shared by `^`/`pow`, `exp2` and `exp10`: the exact integer power and
// the correctly rounded power of a small integer base.
#pragma once

#include <cstdint>
#include <optional>

#include "lang/appstate.h"
#include "numeric/bigint.h"
#include "numeric/bignum.h"

namespace quorvel {

// base^n exactly for n >= 0. With a word size the power is taken within the
// word (modular squaring, polled for abort) and is always given; without one
// it is given when it has at most MaxExactDigits digits, otherwise none (the
// caller computes a Real). None for n < 0.
std::optional<BigInt> ExactPowerOf(AppState& app, const BigInt& base, const BigInt& n);

// base^v for base 2 or 10 and an integral Real v of moderate size, rounded
// once to v's length: 10^k exactly, 2^k from the exact 2^k or 5^-k. None for
// other v (the caller uses e^(v ln base)).
std::optional<BigNum> RoundedPowerOf(int32_t base, const BigNum& v);

}  // namespace quorvel
