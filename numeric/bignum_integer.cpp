// Conversions between BigNum and BigInt: truncation, floor, ceiling, rounding,
// the fraction part, and a binary integer turned into decimal pairs.
#include <algorithm>
#include <cstdint>

#include "numeric/bigint.h"
#include "numeric/bignum.h"

namespace quorvel {
namespace {

// Decimal digits per 16-bit limb (16 log10 2, rounded up a little).
constexpr double DigitsPerLimb = 4.81648;
// -1 / DigitsPerLimb: limbs per decimal digit, negated.
constexpr double NegativeLimbsPerDigit = -0.20762050725053374;

constexpr uint32_t PowersOfTen[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000, 1000000000};

// |n| + 1 with the given sign.
BigInt magnitudePlusOne(const BigInt& n, int8_t sign) {
    BigInt result = n;
    multiplySmallAddInPlace(result, 1, 1);
    result.sign = sign;
    return result;
}

// Sets decimal digit number `position` (0 = d1) to zero.
void clearDigit(BigNum& a, int32_t position) {
    uint8_t& pair = a.digits[static_cast<std::size_t>(a.length() - 1 - position / 2)];
    pair = position % 2 == 0 ? static_cast<uint8_t>(pair % 10) : static_cast<uint8_t>(pair - pair % 10);
}

}  // namespace

BigInt toInteger(const BigNum& a) {
    BigInt n;
    if (!a.isFinite() || a.sign == 0 || a.exponent < 0) {
        n.limbs.reserve(2);
        return n;
    }
    const int64_t digitCount = int64_t{a.exponent} + 1;
    n.limbs.reserve(static_cast<std::size_t>(2 - static_cast<int64_t>(static_cast<double>(digitCount) * NegativeLimbsPerDigit)));
    // Horner's rule, nine decimal digits per step.
    for (int64_t start = 0; start < digitCount; start += 9) {
        const auto chunk = static_cast<int32_t>(std::min<int64_t>(9, digitCount - start));
        uint32_t value = 0;
        for (int32_t i = 0; i < chunk; ++i)
            value = value * 10 + static_cast<uint32_t>(decimalDigitAt(a, static_cast<int32_t>(start + i)));
        multiplySmallAddInPlace(n, PowersOfTen[chunk], value);
    }
    if (!n.isZero()) n.sign = a.sign;
    return n;
}

BigInt floorToInteger(const BigNum& a) {
    BigInt n = toInteger(a);
    if (!a.isFinite() || a.sign >= 0) return n;
    if (a.exponent < 0) return bigIntFromI32(-1);
    if (!fractionPart(a).isZero()) return magnitudePlusOne(n, -1);
    return n;
}

BigInt ceilToInteger(const BigNum& a) {
    BigInt n = toInteger(a);
    if (!a.isFinite() || a.sign <= 0) return n;
    if (a.exponent < 0) return bigIntFromI32(1);
    if (!fractionPart(a).isZero()) return magnitudePlusOne(n, 1);
    return n;
}

BigInt roundToInteger(const BigNum& a) {
    BigInt n = toInteger(a);
    if (!a.isFinite() || a.sign == 0) return n;
    if (a.exponent >= 0) {
        if (a.exponent < INT32_MAX && decimalDigitAt(a, a.exponent + 1) >= 5) return magnitudePlusOne(n, a.sign);
        return n;
    }
    if (a.exponent == -1 && decimalDigitAt(a, 0) >= 5) return bigIntFromI32(a.sign);
    return n;
}

void truncateInPlace(BigNum& a) {
    if (!a.isFinite()) return;
    if (a.sign == 0 || a.exponent < 0) {
        a = makeZero(a.length());
        return;
    }
    const int32_t digitCount = 2 * a.length();
    if (a.exponent >= digitCount) return;
    for (int32_t position = a.exponent + 1; position < digitCount; ++position) clearDigit(a, position);
}

BigNum fractionPart(const BigNum& a) {
    if (a.isInfinite()) return makeZero(a.length());
    if (a.isNaN()) {
        BigNum nan = makeZero(a.length());
        nan.kind = NumKind::NaN;
        return nan;
    }
    if (a.sign == 0 || a.exponent >= 2 * a.length()) return makeZero(a.length());
    BigNum fraction = a;
    if (a.exponent < 0) return fraction;
    for (int32_t position = 0; position <= a.exponent; ++position) clearDigit(fraction, position);
    normalize(fraction, 0);
    return fraction;
}

BigNum fromInteger(const BigInt& value, int32_t length) {
    // A generous estimate of the decimal digit count, kept negative as computed.
    const auto estimate = static_cast<int32_t>(static_cast<double>(value.count()) * -DigitsPerLimb);
    const int32_t pairs = std::max(1 - estimate / 2, length + 5);
    BigNum result = makeZero(length + 5);
    const int32_t top = result.length();
    result.exponent = 2 * pairs - 1;
    result.sign = value.sign;

    // Pairs come out least significant first; pair i lands at byte top - pairs + i,
    // the one just below the array is the guard, anything lower is dropped.
    BigInt work = absolute(value);
    int guard = 0;
    auto place = [&](int32_t index, uint32_t pair) {
        const int32_t at = top - pairs + index;
        if (at >= 0) result.digits[static_cast<std::size_t>(at)] = static_cast<uint8_t>(pair);
        else if (at == -1) guard = static_cast<int>(pair);
    };
    for (int32_t i = 0; i < pairs && !work.isZero(); i += 2) {
        const uint32_t four = divideSmallInPlace(work, 10000);
        place(i, four % 100);
        if (i + 1 < pairs) place(i + 1, four / 100);
    }
    normalize(result, guard);
    return result;
}

}  // namespace quorvel
