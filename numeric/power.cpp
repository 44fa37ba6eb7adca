// Powers: real exponents through the exponential and logarithm, integer
// exponents by repeated multiplication over the prime factors of |n|.
#include <cstdint>

#include "numeric/elementary.h"
#include "numeric/elementary_detail.h"

namespace quorvel {

namespace {

bool isPrime(uint32_t p) {
    if (p < 2) return false;
    for (uint32_t d = 2; d * d <= p; ++d) {
        if (p % d == 0) return false;
    }
    return true;
}

uint32_t nextPrime(uint32_t p) {
    do {
        ++p;
    } while (!isPrime(p));
    return p;
}

}  // namespace

BigNum Power(MathContext& math, const BigNum& x, const BigNum& y) {
    const int32_t L = x.length() > y.length() ? x.length() : y.length();
    const int32_t work = L + 2;
    const BigNum exponent = multiply(Ln(math, resized(x, work)), resized(y, work));
    const BigNum result = Exp(math, exponent);
    if (result.isNaN()) return result;
    return resized(result, L);
}

BigNum PowerInt(MathContext& math, const BigNum& x, const BigInt& n) {
    const int32_t L = x.length();
    if (n.count() >= 2) return Power(math, x, resized(fromInteger(n, L), L));
    if (n.isZero()) return fromInt(L, 1);
    if (n.limbs[0] == 1) return n.sign > 0 ? x : divide(fromInt(L, 1), x);

    // |n| by trial division with a running divisor p: each factor p found
    // raises the value to the power p by p - 1 multiplications by its old
    // value. A prime exponent q thus costs q - 1 multiplications; the plain
    // method is kept as it is.
    const int32_t work = L + 2;
    BigNum value = resized(x, work);
    uint32_t rest = n.limbs[0];
    uint32_t p = 2;
    while (rest >= p && !math.aborted()) {
        if (rest % p == 0) {
            const BigNum base = value;
            for (uint32_t k = 1; k < p; ++k) {
                value = multiply(value, base);
                if (math.PollAbort()) break;
            }
            rest /= p;
        } else {
            p = nextPrime(p);
        }
        if (math.PollAbort()) break;
    }
    if (n.sign < 0) value = divide(fromInt(work, 1), value);
    if (value.isNaN()) return value;
    return resized(value, L);
}

}  // namespace quorvel
