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
