// Complex values: a real and an imaginary part, each a BigNum.
// The complex arithmetic and functions are added with the mathematics library.
#pragma once

#include "numeric/bignum.h"

namespace quorvel {

struct ComplexNum {
    BigNum re;
    BigNum im;

    friend bool operator==(const ComplexNum&, const ComplexNum&) = default;
};

}  // namespace quorvel

#include <cstdint>
#include <string>

namespace quorvel {

// Display text of a complex value: each part by FormatReal with `digits` and
// `flags`; 0x80 selects ASCII, 0x10 shows both parts even when one is zero.
// Forms: "0.", "i", "−i", "(2·i)", "(3 + 2·i)", "(3 − i)".
std::u16string formatComplex(const ComplexNum& z, int32_t digits, int32_t flags);

}  // namespace quorvel
