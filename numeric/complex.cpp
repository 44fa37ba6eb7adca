// Complex construction, arithmetic, modulus and the integer power.
#include "numeric/complex.h"

#include <algorithm>
#include <optional>

#include "numeric/elementary.h"
#include "numeric/mathcontext.h"

namespace quorvel {

ComplexNum complexZero(int32_t length) { return ComplexNum{makeZero(length), makeZero(length)}; }

ComplexNum complexFromInt(int32_t length, int32_t k) { return ComplexNum{fromInt(length, k), makeZero(length)}; }

ComplexNum complexFromParts(const BigNum& re) { return ComplexNum{re, makeZero(re.length())}; }

ComplexNum complexFromParts(const BigNum& re, const BigNum& im) { return ComplexNum{re, im}; }

ComplexNum resized(const ComplexNum& z, int32_t length) {
    return ComplexNum{resized(z.re, length), resized(z.im, length)};
}

ComplexNum add(const ComplexNum& a, const ComplexNum& b) { return ComplexNum{add(a.re, b.re), add(a.im, b.im)}; }

ComplexNum subtract(const ComplexNum& a, const ComplexNum& b) {
    return ComplexNum{subtract(a.re, b.re), subtract(a.im, b.im)};
}

ComplexNum multiply(const ComplexNum& a, const ComplexNum& b) {
    const BigNum ac = multiply(a.re, b.re);
    const BigNum bd = multiply(a.im, b.im);
    const BigNum ad = multiply(a.re, b.im);
    const BigNum bc = multiply(a.im, b.re);
    return ComplexNum{subtract(ac, bd), add(ad, bc)};
}

ComplexNum divide(const ComplexNum& a, const ComplexNum& b) {
    const BigNum n = add(multiply(b.re, b.re), multiply(b.im, b.im));
    const BigNum re = add(multiply(a.re, b.re), multiply(a.im, b.im));
    const BigNum im = subtract(multiply(a.im, b.re), multiply(a.re, b.im));
    return ComplexNum{divide(re, n), divide(im, n)};
}

void addInPlace(ComplexNum& a, const ComplexNum& b) { a = add(a, b); }

void subtractInPlace(ComplexNum& a, const ComplexNum& b) { a = subtract(a, b); }

void multiplyInPlace(ComplexNum& a, const ComplexNum& b) { a = multiply(a, b); }

void divideInPlace(ComplexNum& a, const ComplexNum& b) { a = divide(a, b); }

BigNum complexModulus(const ComplexNum& z) {
    const int32_t length = std::max(z.re.length(), z.im.length());
    const BigNum re = resized(z.re, length + 2);
    const BigNum im = resized(z.im, length + 2);
    const BigNum root = squareRoot(add(multiply(re, re), multiply(im, im)));
    if (root.isNaN()) return root;
    return resized(root, length);
}

ComplexNum PowerInt(MathContext& math, const ComplexNum& z, const BigInt& n) {
    const int32_t L = z.re.length();
    if (n.isZero()) return complexFromInt(L, 1);
    if (n.count() >= 2) {
        // |n| of 65536 or more: exp(n ln z), n taken at L + 5 bytes.
        const BigNum exponent = fromInteger(n, L);
        const ComplexNum ln = Ln(math, resized(z, L + 5));
        return resized(Exp(math, ComplexNum{multiply(exponent, ln.re), multiply(exponent, ln.im)}), L);
    }

    // Binary powering: |n| is halved each round and the running square joins
    // the product whenever the halving leaves a remainder of 1.
    uint32_t rest = n.limbs[0];
    std::optional<ComplexNum> product;
    if (rest == 1) {
        product = z;
    } else {
        ComplexNum square = z;
        while (true) {
            if (rest % 2 == 1) product = product ? multiply(*product, square) : square;
            rest /= 2;
            if (rest == 0 || math.aborted()) break;
            square = multiply(square, square);
            if (math.PollAbort()) break;
        }
        // Stopped before the first factor joined: the partial product is 1.
        if (!product) product = complexFromInt(L, 1);
    }
    if (n.sign < 0) return divide(complexFromInt(L, 1), *product);
    return *product;
}

}  // namespace quorvel
