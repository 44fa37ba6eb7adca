// The constants pi, e and Euler's gamma, and the constant cache.
#include "numeric/constants.h"

#include <utility>

#include "numeric/elementary.h"
#include "numeric/elementary_detail.h"
#include "numeric/mathcontext.h"

namespace quorvel {

using elementary_detail::divideByInt;
using elementary_detail::multiplyByInt;
using elementary_detail::negated;

namespace {

int32_t atLeastTwo(int32_t length) { return length < 2 ? 2 : length; }

// The stopping bound of the constant series at M + 5 working bytes.
int32_t constantBound(int32_t M) { return -(2 * (M + 5)) - 1; }

}  // namespace

BigNum ComputeE(int32_t M) {
    M = atLeastTwo(M);
    const int32_t work = M + 5;
    const int32_t bound = constantBound(M);
    BigNum sum = fromInt(work, 2);
    BigNum term = divideByInt(fromInt(work, 1), 2);   // 1/2!
    int32_t k = 2;
    do {
        sum = add(sum, term);
        ++k;
        term = divideByInt(term, k);
    } while (!term.isZero() && term.exponent > bound);
    return resized(sum, M);
}

BigNum ComputePi(int32_t M) {
    M = atLeastTwo(M);
    const int32_t work = M + 5;
    const int32_t bound = constantBound(M);
    // a_k = (4k)! / ((k!)^4 396^(4k)) by its ratio to a_(k-1); the sum collects
    // a_k (1103 + 26390 k). Every factor stays within 32 bits for the
    // thousands of terms any supported length needs.
    BigNum a = fromInt(work, 1);
    BigNum sum = fromInt(work, 1103);
    for (int32_t k = 1;; ++k) {
        a = multiplyByInt(a, (4 * k - 3) * (4 * k - 2));
        a = multiplyByInt(a, (4 * k - 1) * (4 * k));
        a = divideByInt(a, k * k);
        a = divideByInt(a, k * k);
        a = divideByInt(a, 396 * 396);
        a = divideByInt(a, 396 * 396);
        const BigNum term = multiplyByInt(a, 1103 + 26390 * k);
        sum = add(sum, term);
        if (term.isZero() || term.exponent <= bound) break;
    }
    // pi = 9801 / (2 sqrt 2 * sum)
    const BigNum root2 = squareRoot(fromInt(work, 2));
    const BigNum scaled = multiplyByInt(multiply(root2, sum), 2);
    return resized(divide(fromInt(work, 9801), scaled), M);
}

BigNum ComputeEulerGamma(MathContext& math, int32_t M) {
    M = atLeastTwo(M);
    const int32_t work = M + 5;
    const int32_t bound = constantBound(M);
    const int32_t n = static_cast<int32_t>((M + 7) * 1.15);
    const int32_t nSquared = n * n;
    BigNum A = negated(Ln(math, fromInt(work, n)));
    BigNum B = fromInt(work, 1);
    BigNum U = A;
    BigNum V = B;
    for (int32_t k = 1;; ++k) {
        B = divideByInt(multiplyByInt(B, nSquared), k);
        B = divideByInt(B, k);
        A = divideByInt(add(divideByInt(multiplyByInt(A, nSquared), k), B), k);
        U = add(U, A);
        V = add(V, B);
        const bool aDone = A.isZero() || static_cast<int64_t>(A.exponent) - U.exponent < bound;
        const bool bDone = B.isZero() || static_cast<int64_t>(B.exponent) - V.exponent < bound;
        if (aDone && bDone) break;
    }
    return resized(divide(U, V), M);
}

// --- The constant cache -----------------------------------------------------

int MathContext::slotOf(char key) {
    switch (key) {
        case '2': return 0;
        case 'd': return 1;
        case 'e': return 2;
        case 'g': return 3;
        case 'l': return 4;
        case 'p': return 5;
        default: return -1;
    }
}

std::optional<BigNum> MathContext::GetConstant(int32_t bytes, char key) {
    const int slot = slotOf(key);
    if (slot < 0) return std::nullopt;
    if (cache_[slot] && cache_[slot]->length() >= bytes + 2) return resized(*cache_[slot], bytes);
    cache_[slot].reset();

    BigNum value;
    switch (key) {
        case '2':
            value = fromInt(bytes + 7, 2);
            LnSeries(*this, value);
            break;
        case 'd':
            value = divide(fromInt(bytes + 2, 180), *GetConstant(bytes + 2, 'p'));
            break;
        case 'e':
            value = ComputeE(bytes + 2);
            break;
        case 'g':
            value = ComputeEulerGamma(*this, bytes + 2);
            break;
        case 'l':
            value = squareRoot(fromInt(bytes + 7, 10));
            LnSeries(*this, value);
            value = multiplyByInt(value, 2);
            break;
        default:   // 'p'
            value = ComputePi(bytes + 2);
            break;
    }
    // A series cut short by an abort leaves a wrong value: hand it back to the
    // stopped command, but never keep it.
    if (!aborted()) cache_[slot] = value;
    return resized(value, bytes);
}

}  // namespace quorvel
