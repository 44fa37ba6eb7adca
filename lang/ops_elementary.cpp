// Square root, exponentials, logarithms and the hyperbolic functions with
// their inverses.
//
// Integer operands are converted to Reals at the working length; Reals and
// Complex values are computed at their own length. Except for `sqrt`, which
// halves the exponents, every operand must be dimensionless and every result
// has no units. Where the real function has no real value the result is the
// Complex one: the square root and logarithms of a negative number, `acosh`
// below 1 and `atanh` beyond +-1. `exp2` and `exp10` of an Integer give an
// exact Integer (see ops_power.h).
#include <cstdint>

#include "lang/handlers.h"
#include "lang/ops_math.h"
#include "lang/ops_power.h"
#include "lang/ops_values.h"
#include "numeric/elementary.h"
#include "units/unitrules.h"

namespace quorvel {

namespace {

// A constant of the cache at `bytes` bytes ('2' ln 2, 'l' ln 10, ...).
BigNum constantAt(MathContext& math, int32_t bytes, char key) { return *math.GetConstant(bytes, key); }

// --- Logarithms -----------------------------------------------------------------

// ln z / ln(base) for a logarithm to the base whose natural logarithm is the
// constant `key`, two bytes wider and rounded back.
ComplexNum complexLogarithm(MathContext& math, const ComplexNum& z, char key) {
    const int32_t L = z.re.length();
    const ComplexNum wide = resized(z, L + 2);
    return resized(DividedBy(Ln(math, wide), constantAt(math, L + 2, key)), L);
}

// The exponent k of an exact power of ten 10^k (mantissa 1 followed by zeros).
bool isPowerOfTen(const BigNum& x, int32_t& k) {
    if (!x.isFinite() || x.sign <= 0) return false;
    if (x.digits.back() != 10) return false;
    for (int32_t i = 0; i + 1 < x.length(); ++i)
        if (x.digits[i] != 0) return false;
    k = x.exponent;
    return true;
}

// The exponent k of an integer 2^k (k >= 0); false for anything else.
bool integerIsPowerOfTwo(const BigInt& n, int64_t& k) {
    if (n.sign <= 0) return false;
    int64_t found = -1;
    for (int32_t i = 0; i < n.count(); ++i) {
        const uint16_t limb = n.limbs[i];
        if (limb == 0) continue;
        if ((limb & (limb - 1)) != 0 || found >= 0) return false;
        int bit = 0;
        while ((limb >> bit) != 1) ++bit;
        found = int64_t{i} * 16 + bit;
    }
    k = found;
    return found >= 0;
}

// The exponent k of a real 2^k (k of either sign): an integral value, or one
// whose reciprocal is exactly an integral power of two.
bool realIsPowerOfTwo(const BigNum& x, int64_t& k) {
    if (!x.isFinite() || x.sign <= 0) return false;
    const int32_t L = x.length();
    const int32_t maxExponent = 2 * L;   // integral values with no more digits than the mantissa
    auto integral = [&](const BigNum& v, int64_t& bits) {
        if (v.exponent < 0 || v.exponent > maxExponent || !fractionPart(v).isZero()) return false;
        return integerIsPowerOfTwo(toInteger(v), bits);
    };
    if (x.exponent >= 0) return integral(x, k);
    const BigNum inverse = divide(fromInt(L, 1), x);
    int64_t bits = 0;
    if (!integral(inverse, bits) || compare(multiply(inverse, x), fromInt(L, 1)) != 0) return false;
    k = -bits;
    return true;
}

// pi / ln(base) (key '2' or 'l') or pi (key '\0') at L bytes: the imaginary
// part of the logarithm of a negative number.
BigNum piOverLogBase(MathContext& math, int32_t L, char key) {
    const BigNum pi = constantAt(math, L + 2, 'p');
    if (key == '\0') return resized(pi, L);
    return resized(divide(pi, constantAt(math, L + 2, key)), L);
}

// A logarithm handler: a non-negative Integer or Real gives a Real (through
// `exact` first, then `real`); a negative one gives the Complex value
// log|x| + i pi / ln(base), its real part computed like a positive operand's;
// a Complex gives the Complex logarithm to the base of constant `key`
// ('\0': the natural logarithm).
template <class Exact>
void logarithm(AppState& app, ItemList& list, RealFunction real, char key, Exact exact) {
    UnaryHandler(app, list, [=](AppState& a, const Item& x) -> Outcome {
        if (!IsNumber(x)) return Refusal{InvalidDataType};
        if (!IsDimensionless(x.units)) return Refusal{InvalidUnits};
        if (x.type == ItemType::Complex) {
            const ComplexNum& z = x.asComplex();
            ComplexNum result = key == '\0' ? Ln(a.math, z) : complexLogarithm(a.math, z, key);
            return UnlessAborted(a, Item::complex(std::move(result)));
        }
        BigNum v = RealOf(a, x);
        const bool negative = v.sign < 0;
        v.sign = negative ? 1 : v.sign;
        BigNum logarithm;
        if (auto found = exact(a, x, v)) {
            logarithm = std::move(*found);
        } else {
            logarithm = real(a.math, v);
        }
        if (!negative) return UnlessAborted(a, Item::real(std::move(logarithm)));
        const BigNum im = piOverLogBase(a.math, v.length(), key);
        return UnlessAborted(a, Item::complex(ComplexNum{std::move(logarithm), im}));
    });
}

std::optional<BigNum> noExactValue(const AppState&, const Item&, const BigNum&) { return std::nullopt; }

// log10 of 10^k is exactly k.
std::optional<BigNum> exactLog10(const AppState&, const Item&, const BigNum& v) {
    int32_t k = 0;
    if (!isPowerOfTen(v, k)) return std::nullopt;
    return fromInt(v.length(), k);
}

// log2 of 2^k is exactly k (an Integer operand is tested before conversion).
std::optional<BigNum> exactLog2(const AppState&, const Item& x, const BigNum& v) {
    int64_t k = 0;
    const bool found = x.type == ItemType::Integer ? integerIsPowerOfTwo(absolute(x.asInteger()), k) : realIsPowerOfTwo(v, k);
    if (!found || k > INT32_MAX || k < INT32_MIN) return std::nullopt;
    return fromInt(v.length(), static_cast<int32_t>(k));
}

// --- Exponentials ------------------------------------------------------------------

// base^x = e^(x ln base) for the constant ln base `key`: the product is
// formed six bytes wider so that its absolute error stays below the last
// digit of the result even for large x.
BigNum realExponential(MathContext& math, const BigNum& x, char key) {
    const int32_t L = x.length();
    const int32_t work = L + 6;
    const BigNum product = multiply(resized(x, work), constantAt(math, work, key));
    return resized(Exp(math, product), L);
}

ComplexNum complexExponential(MathContext& math, const ComplexNum& z, char key) {
    const int32_t L = z.re.length();
    const int32_t work = L + 6;
    const ComplexNum product = ScaledBy(resized(z, work), constantAt(math, work, key));
    return resized(Exp(math, product), L);
}

// `exp2` (base 2, key '2') and `exp10` (base 10, key 'l'): an Integer gives
// the exact power (ExactPowerOf; a negative or very large exponent gives a
// Real), an integral Real the correctly rounded power, anything else e^(x ln b).
void exponential(AppState& app, ItemList& list, int32_t base, char key) {
    UnaryHandler(app, list, [=](AppState& a, const Item& x) -> Outcome {
        if (!IsNumber(x)) return Refusal{InvalidDataType};
        if (!IsDimensionless(x.units)) return Refusal{InvalidUnits};
        if (x.type == ItemType::Complex)
            return UnlessAborted(a, Item::complex(complexExponential(a.math, x.asComplex(), key)));
        if (x.type == ItemType::Integer) {
            if (auto exact = ExactPowerOf(a, bigIntFromI32(base), x.asInteger()))
                return UnlessAborted(a, IntegerResult(a, std::move(*exact), NoUnits));
        }
        const BigNum v = RealOf(a, x);
        if (auto rounded = RoundedPowerOf(base, v)) return Item::real(std::move(*rounded));
        return UnlessAborted(a, Item::real(realExponential(a.math, v, key)));
    });
}

// --- Hyperbolic inverses of complex values ----------------------------------------------

// Runs `f` two bytes wider than z and rounds back.
template <class F>
ComplexNum widenedComplex(const ComplexNum& z, F f) {
    const int32_t L = z.re.length();
    return resized(f(resized(z, L + 2)), L);
}

// asinh z = -i asin(iz).
ComplexNum complexAsinh(MathContext& math, const ComplexNum& z) {
    return widenedComplex(z, [&](const ComplexNum& w) { return TimesMinusI(Asin(math, TimesI(w))); });
}

// acosh z = +-i acos z, the sign chosen so that the real part is not negative
// (i acos z when the imaginary part of acos z is not positive).
ComplexNum complexAcosh(MathContext& math, const ComplexNum& z) {
    return widenedComplex(z, [&](const ComplexNum& w) {
        const ComplexNum a = Acos(math, w);
        return a.im.sign > 0 ? TimesMinusI(a) : TimesI(a);
    });
}

// atanh z: on the real axis (|x| > 1 there) (ln(1 + x) - ln(1 - x)) / 2,
// which gives -pi/2 i above 1 and +pi/2 i below -1; elsewhere -i atan(iz).
ComplexNum complexAtanh(MathContext& math, const ComplexNum& z) {
    return widenedComplex(z, [&](const ComplexNum& w) {
        if (!w.im.isZero()) return TimesMinusI(Atan(math, TimesI(w)));
        const ComplexNum one = complexFromInt(w.re.length(), 1);
        const ComplexNum difference = subtract(Ln(math, add(one, w)), Ln(math, subtract(one, w)));
        return DividedBy(difference, fromInt(w.re.length(), 2));
    });
}

}  // namespace

// `sqrt`: every exponent even, the result's halved. A non-negative Integer or
// Real gives a Real, a negative one the Complex root (-4 gives 2i).
void opSqrt(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (!IsNumber(x)) return Refusal{InvalidDataType};
        const auto units = SquareRootUnits(x.units);
        if (!units) return Refusal{InvalidUnits};
        if (x.type == ItemType::Complex) return UnlessAborted(a, Item::complex(squareRoot(a.math, x.asComplex()), *units));
        const BigNum v = RealOf(a, x);
        if (v.sign < 0 && v.isFinite())
            return UnlessAborted(a, Item::complex(squareRoot(a.math, complexFromParts(v)), *units));
        return Item::real(squareRoot(v), *units);
    });
}

void opExp(AppState& app, ItemList& list) {
    DimensionlessFunction(
        app, list, [](MathContext& m, const BigNum& x) { return Exp(m, x); },
        [](MathContext& m, const ComplexNum& z) { return Exp(m, z); });
}

void opExp2(AppState& app, ItemList& list) { exponential(app, list, 2, '2'); }
void opExp10(AppState& app, ItemList& list) { exponential(app, list, 10, 'l'); }

// `ln`: ln 0 is -inf; a negative number gives ln|x| + pi i.
void opLn(AppState& app, ItemList& list) {
    logarithm(app, list, [](MathContext& m, const BigNum& x) { return Ln(m, x); }, '\0', noExactValue);
}

// `log`, `log10`, `ln10`: the base-10 logarithm, exact for powers of ten.
void opLog10(AppState& app, ItemList& list) {
    logarithm(app, list, [](MathContext& m, const BigNum& x) { return Log10(m, x); }, 'l', exactLog10);
}

// `log2`, `ln2`: the base-2 logarithm, exact for powers of two.
void opLog2(AppState& app, ItemList& list) {
    logarithm(app, list, [](MathContext& m, const BigNum& x) { return Log2(m, x); }, '2', exactLog2);
}

void opSinh(AppState& app, ItemList& list) {
    DimensionlessFunction(
        app, list, [](MathContext& m, const BigNum& x) { return Sinh(m, x); },
        [](MathContext& m, const ComplexNum& z) { return Sinh(m, z); });
}

void opCosh(AppState& app, ItemList& list) {
    DimensionlessFunction(
        app, list, [](MathContext& m, const BigNum& x) { return Cosh(m, x); },
        [](MathContext& m, const ComplexNum& z) { return Cosh(m, z); });
}

void opTanh(AppState& app, ItemList& list) {
    DimensionlessFunction(
        app, list, [](MathContext& m, const BigNum& x) { return Tanh(m, x); },
        [](MathContext& m, const ComplexNum& z) { return Tanh(m, z); });
}

void opAsinh(AppState& app, ItemList& list) {
    DimensionlessFunction(app, list, [](MathContext& m, const BigNum& x) { return Asinh(m, x); }, complexAsinh);
}

// `acosh`: a Real below 1 gives the Complex value: i acos x within [-1, 1)
// (acosh 0.5 = 1.047... i) and acosh|x| + pi i below -1.
void opAcosh(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (!IsNumber(x)) return Refusal{InvalidDataType};
        if (!IsDimensionless(x.units)) return Refusal{InvalidUnits};
        if (x.type == ItemType::Complex) return UnlessAborted(a, Item::complex(complexAcosh(a.math, x.asComplex())));
        BigNum v = RealOf(a, x);
        const int32_t L = v.length();
        if (!v.isFinite() || compare(v, fromInt(L, 1)) >= 0) return UnlessAborted(a, Item::real(Acosh(a.math, v)));
        if (compareWithDigit(v, 1) <= 0) return UnlessAborted(a, Item::complex(ComplexNum{makeZero(L), Acos(a.math, v)}));
        v.sign = 1;
        return UnlessAborted(a, Item::complex(ComplexNum{Acosh(a.math, v), constantAt(a.math, L, 'p')}));
    });
}

// `atanh`: +-1 gives +-inf; a Real beyond +-1 gives the Complex value of
// (ln(1 + x) - ln(1 - x)) / 2, that is ln((x + 1)/(x - 1)) / 2 - sign(x) pi/2 i.
void opAtanh(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (!IsNumber(x)) return Refusal{InvalidDataType};
        if (!IsDimensionless(x.units)) return Refusal{InvalidUnits};
        if (x.type == ItemType::Complex) return UnlessAborted(a, Item::complex(complexAtanh(a.math, x.asComplex())));
        const BigNum v = RealOf(a, x);
        const int32_t L = v.length();
        const int magnitude = compareWithDigit(v, 1);
        if (!v.isFinite() || magnitude < 0) return UnlessAborted(a, Item::real(Atanh(a.math, v)));
        if (magnitude == 0) return Item::real(makeInfinity(L, v.sign));
        const BigNum wide = resized(v, L + 2);
        const BigNum one = fromInt(L + 2, 1);
        const BigNum ratio = divide(add(wide, one), subtract(wide, one));
        const BigNum re = resized(divide(Ln(a.math, ratio), fromInt(L + 2, 2)), L);
        BigNum halfPi = divide(constantAt(a.math, L, 'p'), fromInt(L, 2));
        halfPi.sign = static_cast<int8_t>(-v.sign);
        return UnlessAborted(a, Item::complex(ComplexNum{re, std::move(halfPi)}));
    });
}

}  // namespace quorvel
