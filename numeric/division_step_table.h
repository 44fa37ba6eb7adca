// The quotient digit each step of the long division takes (internal to the
// division files).
#pragma once

#include <array>
#include <cstdint>

namespace quorvel::bignum_detail {

// The estimate from a leading remainder value r and the divisor's top pair
// d: the mean of the upper bound (r + 1) div d + 1 and the lower bound
// r div (d + 1).
constexpr int estimateDigit(int r, int d) { return ((r + 1) / d + 1 + r / (d + 1)) / 2; }

// For the three leading digits r of the remainder (0..999) and the top pair
// of a normalised divisor: the estimate from the first two digits, or, when
// that is below 1, from all three one place lower (flag 16); clamped to 1..9.
using StepRow = std::array<uint8_t, 1000>;
constexpr int OneLowerFlag = 16;

// The row of divisor top pair d (10..99).
const StepRow& stepRow(int d);

}  // namespace quorvel::bignum_detail
