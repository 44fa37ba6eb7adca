// BigNum square root by Newton's iteration.
#include <cstdint>
#include <utility>

#include "numeric/bignum.h"

namespace quorvel {

BigNum squareRoot(const BigNum& a) {
    if (a.isNaN()) return makeNaN();
    if (a.isZero()) return makeZero(a.length());
    if (a.sign < 0) return makeNaN();
    if (a.isInfinite()) return makeInfinity(a.length(), 1);

    // The iteration runs one byte wider than a and is rounded back at the end:
    // at a's own length the halving of a sum of two or more loses the last
    // digit, which would leave the root several units off in the last pair.
    const int32_t wide = a.length() + 1;
    const BigNum value = resized(a, wide);
    BigNum half = makeZero(2);   // the constant 5 x 10^-1
    half.digits[1] = 50;
    half.exponent = -1;
    half.sign = 1;

    BigNum x = multiply(value, half);
    // At the smallest exponents a x 0.5 underflows to zero; a itself then
    // serves as the start.
    if (x.isZero()) x = value;
    x.exponent /= 2;   // halved toward zero
    // Converges quadratically from this start; the bound only guards against a
    // pair of iterates that keep disagreeing by more than 9 units.
    for (int iteration = 0; iteration < 400; ++iteration) {
        BigNum next = multiply(add(divide(value, x), x), half);
        const int c = compare(next, x);
        x = std::move(next);
        if (c >= -9 && c <= 9) break;
    }
    return resized(x, a.length());
}

}  // namespace quorvel
