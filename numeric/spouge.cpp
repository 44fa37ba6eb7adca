// The coefficients of Spouge's approximation to the gamma function, and the
// two building blocks they need many of: the integer powers of e exactly as
// PowerInt forms them, and square roots of small integers.
#include <cmath>
#include <cstdint>
#include <vector>

#include "numeric/bigint.h"
#include "numeric/constants.h"
#include "numeric/elementary.h"
#include "numeric/elementary_detail.h"
#include "numeric/special_detail.h"

namespace quorvel::special_detail {

using elementary_detail::constant;
using elementary_detail::divideBySmall;
using elementary_detail::negated;

namespace {

// The largest prime factor of every m < count (0 and 1 get 1).
std::vector<int32_t> largestPrimeFactors(int32_t count) {
    std::vector<int32_t> largest(static_cast<std::size_t>(count > 2 ? count : 2), 1);
    for (int32_t p = 2; p < count; ++p) {
        if (largest[static_cast<std::size_t>(p)] != 1) continue;   // composite: already marked
        for (int32_t m = p; m < count; m += p) largest[static_cast<std::size_t>(m)] = p;
    }
    return largest;
}

}  // namespace

std::vector<BigNum> PowersLikePowerInt(MathContext& math, const BigNum& e, int32_t count) {
    const int32_t L = e.length();
    const int32_t work = L + 2;
    std::vector<BigNum> result(static_cast<std::size_t>(count), fromInt(L, 1));
    if (count < 2) return result;
    result[1] = e;   // PowerInt returns the base itself for an exponent of 1

    // PowerInt works through the prime factors of m in ascending order, each
    // factor p raising the value reached so far to the power p by p - 1
    // sequential multiplications by that value. So the value for m is the
    // value for m / p (p the largest prime factor of m) carried through p - 1
    // such multiplications, and all m sharing m / p share one chain.
    const std::vector<int32_t> largest = largestPrimeFactors(count);
    const auto isPrime = [&](int32_t p) { return p >= 2 && largest[static_cast<std::size_t>(p)] == p; };
    std::vector<BigNum> reached(static_cast<std::size_t>(count));
    reached[1] = resized(e, work);
    for (int32_t b = 1; b < count; ++b) {
        const int32_t smallest = b == 1 ? 2 : largest[static_cast<std::size_t>(b)];
        int32_t top = (count - 1) / b;
        while (top >= smallest && !isPrime(top)) --top;
        if (top < smallest) continue;
        const BigNum base = reached[static_cast<std::size_t>(b)];
        BigNum value = base;
        for (int32_t t = 2; t <= top; ++t) {
            value = multiply(value, base);
            if (t >= smallest && isPrime(t)) reached[static_cast<std::size_t>(b * t)] = value;
            if (math.PollAbort()) return result;
        }
    }
    for (int32_t m = 2; m < count; ++m) result[static_cast<std::size_t>(m)] = resized(reached[static_cast<std::size_t>(m)], L);
    return result;
}

BigNum SquareRootOfSmall(int32_t m, int32_t length) {
    // Four correct digits to start; each Newton step x = (x + m/x) / 2 doubles
    // them: a step at len bytes (2 len digits) from len correct digits, the
    // length doubling up to one byte over the target.
    BigNum x = fromInt(4, static_cast<int32_t>(std::sqrt(static_cast<double>(m)) * 10000.0));
    x.exponent -= 4;
    const int32_t target = length + 1;
    for (int32_t len = 2;;) {
        const BigNum at = resized(x, len);
        x = divideBySmall(add(at, divide(fromInt(len, m), at)), 2);
        if (len == target) break;
        len = len * 2 < target ? len * 2 : target;
    }
    return resized(x, length);
}

namespace {

// sqrt m for m = 0 .. count - 1 at `length` bytes: the roots of the primes by
// SquareRootOfSmall, every other m as s sqrt(p1 p2 ...) from its square part
// s^2 and the primes of its square-free part.
std::vector<BigNum> squareRootsBelow(int32_t count, int32_t length) {
    std::vector<BigNum> roots(static_cast<std::size_t>(count > 2 ? count : 2), fromInt(length, 1));
    roots[0] = makeZero(length);
    for (int32_t m = 2; m < count; ++m) {
        int32_t rest = m;
        int32_t square = 1;
        std::vector<int32_t> primes;
        for (int32_t p = 2; p * p <= rest; ++p) {
            while (rest % (p * p) == 0) {
                rest /= p * p;
                square *= p;
            }
            if (rest % p == 0) {
                primes.push_back(p);
                rest /= p;
            }
        }
        if (rest > 1) primes.push_back(rest);
        if (primes.size() == 1 && square == 1) {
            roots[static_cast<std::size_t>(m)] = SquareRootOfSmall(m, length);
            continue;
        }
        BigNum r = fromInt(length, square);
        for (int32_t p : primes) r = multiply(r, roots[static_cast<std::size_t>(p)]);
        roots[static_cast<std::size_t>(m)] = r;
    }
    return roots;
}

}  // namespace

SpougeCoefficients ComputeSpougeCoefficients(MathContext& math, int32_t P) {
    SpougeCoefficients s;
    s.length = P;
    s.a = (4 * P + 4) / 3;
    const int32_t a = s.a;
    s.c0 = squareRoot(multiply(fromInt(P, 2), constant(math, P, 'p')));
    s.c.assign(static_cast<std::size_t>(a), makeZero(P));

    const std::vector<BigNum> powersOfE = PowersLikePowerInt(math, constant(math, P, 'e'), a);
    const std::vector<BigNum> roots = squareRootsBelow(a, P);
    BigNum inverseFactorial = fromInt(P, 1);   // 1 / (k - 1)!, carried
    for (int32_t k = 1; k < a && !math.aborted(); ++k) {
        const int32_t m = a - k;
        // (a - k)^(k - 1/2) = (a - k)^(k - 1) sqrt(a - k), the integer power exact.
        BigInt power = bigIntFromU32(1);
        for (int32_t i = 1; i < k; ++i) multiplySmallAddInPlace(power, static_cast<uint32_t>(m), 0);
        BigNum c = multiply(resized(fromInteger(power, P), P), roots[static_cast<std::size_t>(m)]);
        c = multiply(multiply(c, powersOfE[static_cast<std::size_t>(m)]), inverseFactorial);
        s.c[static_cast<std::size_t>(k)] = k % 2 == 0 ? negated(c) : c;
        inverseFactorial = divideBySmall(inverseFactorial, k);
        if (math.PollAbort()) break;
    }
    return s;
}

}  // namespace quorvel::special_detail
