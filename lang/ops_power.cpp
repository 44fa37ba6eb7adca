// `^` and `pow`: y (second) raised to x (the top).
//
// Units: the exponent must be dimensionless; the base may carry units only
// under an Integer exponent, whose value then multiplies them.
//
// Types: Integer ^ non-negative Integer is exact (ExactPowerOf) and reduced
// to the word size like every Integer result; when too large it is computed
// as a Real. A Real base with an Integer exponent uses the repeated
// multiplication of PowerInt, polled for abort, so "2 65521 ^" at 1000 digits
// is long but can be stopped. A Real exponent uses e^(x ln y); a negative
// base with an integral Real exponent gives the real power with the sign of
// its parity, with any other Real exponent the principal Complex power. Any
// Complex operand gives a Complex power. 0 raised to a negative power is NaN,
// like 1/0; anything raised to 0 is 1.
#include "lang/ops_power.h"

#include <cmath>

#include "lang/handlers.h"
#include "lang/ops_math.h"
#include "lang/ops_values.h"
#include "numeric/binword.h"
#include "numeric/elementary.h"
#include "units/unitrules.h"

namespace quorvel {

namespace {

// Exponents of the squaring path of the complex integer power.
constexpr int32_t SquaringLimit = 65535;
// Largest |k| for which RoundedPowerOf forms 2^k or 5^|k| exactly.
constexpr int32_t MaxExactBinaryExponent = 33219;   // 2^k has 10000 digits

// log10 |n| for a nonzero n, from its top limbs.
double log10Magnitude(const BigInt& n) {
    const int32_t count = n.count();
    double top = 0;
    const int32_t used = count < 3 ? count : 3;
    for (int32_t i = 0; i < used; ++i) top = top * 65536.0 + n.limbs[count - 1 - i];
    return std::log10(top) + (count - used) * 16 * std::log10(2.0);
}

// The value of a non-negative n of at most two limbs.
uint64_t smallMagnitude(const BigInt& n) {
    uint64_t value = 0;
    for (int32_t i = n.count(); i-- > 0;) value = (value << 16) | n.limbs[i];
    return value;
}

bool isOdd(const BigInt& n) { return (n.limbs[0] & 1) != 0; }

// base^n within a word of `bits` bits: square and multiply from the top bit
// of n down, reducing after each product, polled for abort once per bit.
BigInt wordPower(MathContext& math, const BigInt& base, const BigInt& n, int32_t bits) {
    const BigInt b = ReduceToWordSize(base, bits);
    BigInt result = bigIntFromI32(1);
    for (int32_t limb = n.count(); limb-- > 0;) {
        for (int bit = 15; bit >= 0; --bit) {
            result = ReduceToWordSize(multiply(result, result), bits);
            if ((n.limbs[limb] >> bit) & 1) result = ReduceToWordSize(multiply(result, b), bits);
            if (math.PollAbort()) return result;
        }
    }
    return result;
}

// |base| <= 1: 0^0 = 1, 0^n = 0, 1^n = 1, (-1)^n = +-1.
std::optional<BigInt> trivialPower(const BigInt& base, const BigInt& n) {
    if (n.isZero()) return bigIntFromI32(1);
    if (base.isZero()) return BigInt{};
    if (base.count() == 1 && base.limbs[0] == 1) return bigIntFromI32(base.sign < 0 && isOdd(n) ? -1 : 1);
    return std::nullopt;
}

// Parity of an integral finite real: true when odd.
bool integralIsOdd(const BigNum& p) {
    if (p.isZero() || p.exponent >= 2 * p.length()) return false;   // ends in a zero digit
    return isOdd(toInteger(p));
}

bool isIntegral(const BigNum& p) { return p.isFinite() && fractionPart(p).isZero(); }

// y^p for a Real base and a Real exponent (see the file comment).
Outcome realPower(AppState& app, const BigNum& y, const BigNum& p) {
    const int32_t L = y.length() > p.length() ? y.length() : p.length();
    if (p.isZero()) return Item::real(fromInt(L, 1));
    if (y.isZero() && p.isFinite()) return Item::real(p.sign > 0 ? makeZero(L) : makeNaN());
    if (y.sign < 0 && y.isFinite() && p.isFinite()) {
        if (!isIntegral(p)) {
            return UnlessAborted(app, Item::complex(Power(app.math, complexFromParts(resized(y, L)), resized(p, L))));
        }
        BigNum magnitude = y;
        magnitude.sign = 1;
        BigNum result = resized(Power(app.math, resized(magnitude, L + 2), resized(p, L + 2)), L);
        if (integralIsOdd(p)) result.sign = static_cast<int8_t>(-result.sign);
        return UnlessAborted(app, Item::real(std::move(result)));
    }
    return UnlessAborted(app, Item::real(resized(Power(app.math, resized(y, L + 2), resized(p, L + 2)), L)));
}

Outcome powerValues(AppState& app, const Item& y, const Item& x) {
    if (!IsNumber(y) || !IsNumber(x)) return Refusal{InvalidDataType};
    const bool integerExponent = x.type == ItemType::Integer;
    if (!PowerOperandsAcceptable(y.units, x.units, integerExponent)) return Refusal{InvalidUnits};

    if (integerExponent) {
        const BigInt& n = x.asInteger();
        const auto units = IntegerPowerUnits(y.units, n);
        if (!units) return Refusal{InvalidUnits};
        if (y.type == ItemType::Complex)
            return UnlessAborted(app, Item::complex(PowerInt(app.math, y.asComplex(), n), *units));
        if (y.type == ItemType::Integer) {
            if (auto exact = ExactPowerOf(app, y.asInteger(), n))
                return UnlessAborted(app, IntegerResult(app, std::move(*exact), *units));
        }
        return UnlessAborted(app, Item::real(PowerInt(app.math, RealOf(app, y), n), *units));
    }

    if (y.type == ItemType::Complex || x.type == ItemType::Complex) {
        const ComplexNum z = ComplexOf(app, y);
        if (x.type == ItemType::Complex) return UnlessAborted(app, Item::complex(Power(app.math, z, x.asComplex())));
        const BigNum p = RealOf(app, x);
        int32_t k = 0;
        if (IsSmallIntegral(p, k) && k >= -SquaringLimit && k <= SquaringLimit)
            return UnlessAborted(app, Item::complex(PowerInt(app.math, z, bigIntFromI32(k))));
        return UnlessAborted(app, Item::complex(Power(app.math, z, p)));
    }
    return realPower(app, RealOf(app, y), RealOf(app, x));
}

}  // namespace

std::optional<BigInt> ExactPowerOf(AppState& app, const BigInt& base, const BigInt& n) {
    if (n.sign < 0) return std::nullopt;
    if (app.wsize > 0) return wordPower(app.math, base, n, app.wsize);
    if (auto trivial = trivialPower(base, n)) return trivial;
    if (n.count() > 2) return std::nullopt;   // 2^32 or more: far past the limit
    const uint64_t e = smallMagnitude(n);
    if (e == 1) return base;
    if (static_cast<double>(e) * log10Magnitude(base) > static_cast<double>(MaxExactDigits)) return std::nullopt;
    BigInt result = bigIntFromI32(1);
    BigInt square = base;
    for (uint64_t rest = e; rest != 0; rest >>= 1) {
        if (rest & 1) result = multiply(result, square);
        if (rest > 1) square = multiply(square, square);
    }
    return result;
}

std::optional<BigNum> RoundedPowerOf(int32_t base, const BigNum& v) {
    int32_t k = 0;
    if (!IsSmallIntegral(v, k)) return std::nullopt;
    const int32_t L = v.length();
    if (base == 10) {
        BigNum result = fromInt(L, 1);
        result.exponent = k;
        return result;
    }
    if (base != 2 || k > MaxExactBinaryExponent || k < -MaxExactBinaryExponent) return std::nullopt;
    // 2^k exactly, or 2^-k = 5^k / 10^k with the exact 5^k: one rounding.
    BigInt power = bigIntFromI32(1);
    BigInt factor = bigIntFromI32(k >= 0 ? 2 : 5);
    for (int32_t rest = k >= 0 ? k : -k; rest != 0; rest >>= 1) {
        if (rest & 1) power = multiply(power, factor);
        if (rest > 1) factor = multiply(factor, factor);
    }
    BigNum result = resized(fromInteger(power, L), L);
    if (k < 0) result.exponent += k;
    return result;
}

void opPow(AppState& app, ItemList& list) {
    BinaryHandler(app, list, [](AppState& a, const Item& x, const Item& y) { return powerValues(a, y, x); });
}

}  // namespace quorvel
