// Bernoulli and Euler numbers from exact sums of binomial coefficients and
// integer powers.
#include <cmath>
#include <cstdint>
#include <vector>

#include "numeric/bigint.h"
#include "numeric/elementary_detail.h"
#include "numeric/special.h"
#include "numeric/special_detail.h"

namespace quorvel {

using elementary_detail::divideBySmall;

namespace {

// The exact sums hold n + 1 powers of about n log2 n bits each: past this
// index they would take hundreds of megabytes.
constexpr int32_t MaxIndex = 10000;

}  // namespace

namespace special_detail {

namespace {

// (offset + step j)^n exactly for j = 0 .. n (0^0 = 1), polled per value.
std::vector<BigInt> integerPowers(MathContext& math, int32_t n, uint32_t step, uint32_t offset) {
    std::vector<BigInt> powers;
    powers.reserve(static_cast<std::size_t>(n) + 1);
    for (int32_t j = 0; j <= n; ++j) {
        const uint32_t base = offset + step * static_cast<uint32_t>(j);
        BigInt p = bigIntFromU32(1);
        for (int32_t i = 0; i < n && !p.isZero(); ++i) {
            multiplySmallAddInPlace(p, base, 0);
            if (i % 64 == 63 && math.PollAbort()) break;
        }
        powers.push_back(std::move(p));
        if (math.PollAbort()) break;
    }
    powers.resize(static_cast<std::size_t>(n) + 1);
    return powers;
}

}  // namespace

std::vector<BigInt> AlternatingBinomialSumsDirect(MathContext& math, int32_t n, uint32_t step, uint32_t offset) {
    const std::vector<BigInt> powers = integerPowers(math, n, step, offset);
    std::vector<BigInt> sums(static_cast<std::size_t>(n) + 1);
    for (int32_t k = 0; k <= n && !math.aborted(); ++k) {
        BigInt binomial = bigIntFromU32(1);   // C(k, j), carried along j
        BigInt sum;
        for (int32_t j = 0; j <= k; ++j) {
            if (j > 0) {
                multiplySmallAddInPlace(binomial, static_cast<uint32_t>(k - j + 1), 0);
                divideSmallInPlace(binomial, static_cast<uint32_t>(j));
            }
            const BigInt term = multiply(binomial, powers[static_cast<std::size_t>(j)]);
            sum = j % 2 == 0 ? add(sum, term) : subtract(sum, term);
            if (math.PollAbort()) break;
        }
        sums[static_cast<std::size_t>(k)] = std::move(sum);
    }
    return sums;
}

std::vector<BigInt> AlternatingBinomialSums(MathContext& math, int32_t n, uint32_t step, uint32_t offset) {
    // sum_j (-1)^j C(k, j) f(j) is (-1)^k times the k-th forward difference
    // of f at 0: the first entry of row k of the difference table, built in
    // place with additions only.
    std::vector<BigInt> row = integerPowers(math, n, step, offset);
    std::vector<BigInt> sums(static_cast<std::size_t>(n) + 1);
    sums[0] = row[0];
    for (int32_t k = 1; k <= n && !math.aborted(); ++k) {
        for (int32_t i = 0; i + k <= n; ++i) {
            row[static_cast<std::size_t>(i)] = subtract(row[static_cast<std::size_t>(i) + 1], row[static_cast<std::size_t>(i)]);
        }
        sums[static_cast<std::size_t>(k)] = k % 2 == 0 ? row[0] : negated(row[0]);
        if (math.PollAbort()) break;
    }
    return sums;
}

}  // namespace special_detail

BigNum Bernoulli(MathContext& math, int32_t n, int32_t bytes) {
    if (n < 0 || n > MaxIndex) return makeNaN();
    const std::vector<BigInt> sums = special_detail::AlternatingBinomialSums(math, n, 1, 0);
    BigNum total = makeZero(bytes + 5);
    for (int32_t k = 0; k <= n && !math.aborted(); ++k) {
        // The sum and k + 1 as BigNums of `bytes` bytes, divided (k + 1 is a
        // small integer: the short division gives the same quotient).
        const BigNum quotient = divideBySmall(fromInteger(sums[static_cast<std::size_t>(k)], bytes), k + 1);
        total = add(total, quotient);
        if (math.PollAbort()) break;
    }
    return resized(total, bytes);
}

int32_t BernoulliWorkBytes(int32_t n, int32_t length) {
    if (n < 2) return length + 2;
    // The terms are bounded by the ordered Bell number n! / (2 (ln 2)^(n+1)):
    // its digits, held whole, plus the result's own length.
    const double ln10 = std::log(10.0);
    const double digits = std::lgamma(static_cast<double>(n) + 1.0) / ln10 -
                          (static_cast<double>(n) + 1.0) * std::log10(std::log(2.0)) - std::log10(2.0);
    return length + static_cast<int32_t>(std::ceil(digits / 2.0)) + 3;
}

BigNum BernoulliNumber(MathContext& math, int32_t n, int32_t length) {
    const BigNum b = Bernoulli(math, n, BernoulliWorkBytes(n, length));
    return b.isFinite() ? resized(b, length) : b;
}

namespace {

// N = sum_k 2^(n-k) sum_j (-1)^j C(k, j) (2j + 1)^n, so that E_n = N / 2^n.
BigInt eulerNumerator(MathContext& math, int32_t n) {
    const std::vector<BigInt> sums = special_detail::AlternatingBinomialSums(math, n, 2, 1);
    BigInt numerator;
    for (const BigInt& s : sums) {   // Horner's rule in powers of 2
        numerator = add(numerator, numerator);
        numerator = add(numerator, s);
    }
    return numerator;
}

BigInt powerOfTwo(int32_t n) {
    BigInt p = bigIntFromU32(1);
    for (; n >= 16; n -= 16) multiplySmallAddInPlace(p, 65536, 0);
    multiplySmallAddInPlace(p, 1u << n, 0);
    return p;
}

}  // namespace

BigNum EulerNumber(MathContext& math, int32_t n, int32_t bytes) {
    if (n < 0 || n > MaxIndex) return makeNaN();
    const BigInt numerator = eulerNumerator(math, n);
    const BigNum r = divide(fromInteger(numerator, bytes), fromInteger(powerOfTwo(n), bytes));
    return resized(r, bytes);
}

std::optional<BigInt> EulerNumberInt(MathContext& math, int32_t n) {
    if (n < 0 || n > MaxIndex) return std::nullopt;
    BigInt numerator = eulerNumerator(math, n);
    if (math.aborted()) return std::nullopt;
    int32_t rest = n;
    for (; rest >= 16; rest -= 16) divideSmallInPlace(numerator, 65536);
    if (rest > 0) divideSmallInPlace(numerator, 1u << rest);
    return numerator;
}

}  // namespace quorvel
