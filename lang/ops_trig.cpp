// The circular functions `sin`, `cos`, `tan`, `sinc`, their inverses `asin`,
// `acos`, `atan`, `atan2`, and the angle conversions `deg` and `rad`.
//
// Arguments: a value with Angle 1 is in radians and used as it is; a plain
// Integer or Real (Angle 0) is in the unit of the trig mode: degrees when
// TrigMode is 1, radians otherwise. A Complex argument is never converted.
// Every other exponent must be 0 and Angle 0 or 1, else "Invalid Units".
//
// Degrees are reduced modulo 360 exactly (decimal arithmetic holds any whole
// or fractional number of degrees without error) before they are turned into
// radians, so huge arguments lose nothing, and the angles whose values are
// decimals give them exactly: sin 180 = 0, sin 30 = 0.5, cos 90 = 0,
// tan 45 = 1, tan 90 = +inf and tan 270 = -inf (a zero cosine gives an
// infinity with the sign of the sine).
//
// Results: the circular functions give a Real without units (Complex for a
// Complex argument); the inverses give a Real angle in radians (Angle 1), and
// `asin`/`acos` of a Real beyond +-1 the Complex value, without units.
#include <cstdint>
#include <optional>

#include "lang/handlers.h"
#include "lang/ops_math.h"
#include "lang/ops_values.h"
#include "numeric/elementary.h"
#include "units/unitrules.h"

namespace quorvel {

namespace {

enum class Circular { Sin, Cos, Tan, Sinc };

constexpr int16_t DegreesMode = 1;

// 10^s mod 360 for s >= 0.
uint64_t powerOfTenModulo360(int64_t s) {
    uint64_t result = 1;
    uint64_t square = 10;
    for (; s != 0; s >>= 1) {
        if (s & 1) result = result * square % 360;
        square = square * square % 360;
    }
    return result;
}

// x mod 360 with x's sign (|r| < 360), exact, at x's length + 2 bytes; x finite.
BigNum degreesModulo360(const BigNum& x) {
    const int32_t L = x.length();
    const int32_t work = L + 2;
    if (x.isZero()) return makeZero(work);
    BigNum magnitude = x;
    magnitude.sign = 1;
    const int32_t mantissaDigits = 2 * L;
    uint64_t whole = 0;
    BigNum fraction = makeZero(work);
    if (x.exponent < mantissaDigits) {
        // At most 2L digits before the point: the integer part is small.
        BigInt integral = toInteger(magnitude);
        whole = divideSmallInPlace(integral, 360);
        fraction = resized(fractionPart(magnitude), work);
    } else {
        // x = M * 10^s with the whole mantissa M as an integer and s >= 1.
        BigNum mantissa = magnitude;
        mantissa.exponent = mantissaDigits - 1;
        BigInt m = toInteger(mantissa);
        const uint64_t rest = divideSmallInPlace(m, 360);
        whole = rest * powerOfTenModulo360(int64_t{x.exponent} - (mantissaDigits - 1)) % 360;
    }
    BigNum r = add(fromInt(work, static_cast<int32_t>(whole)), fraction);
    if (!r.isZero()) r.sign = x.sign;
    return r;
}

// pi/180 at `bytes` bytes.
BigNum radiansPerDegree(MathContext& math, int32_t bytes) {
    return divide(*math.GetConstant(bytes, 'p'), fromInt(bytes, 180));
}

// A number of degrees made ready for the circular functions: the whole
// number of degrees in [0, 360) when the reduced angle is whole (else -1),
// and the reduced angle in radians at L + 2 bytes.
struct DegreeArgument {
    int32_t wholeDegrees = -1;
    BigNum radians;
};

DegreeArgument fromDegrees(MathContext& math, const BigNum& x) {
    const BigNum r = degreesModulo360(x);
    DegreeArgument argument;
    int32_t k = 0;
    if (IsSmallIntegral(r, k)) argument.wholeDegrees = (k % 360 + 360) % 360;
    argument.radians = multiply(r, radiansPerDegree(math, r.length()));
    return argument;
}

// Twice the exact value of a function at a whole number of degrees in
// [0, 360), where that value is a decimal: 0, +-1/2 or +-1 (sine and cosine
// at the multiples of 30 and 90 degrees, tangent at the multiples of 45).
// Infinite tangents are +-3 here. None where the value is irrational.
std::optional<int> twiceExactValue(Circular f, int32_t degrees) {
    struct Row {
        int32_t degrees;
        int sine;      // twice the sine
        int cosine;    // twice the cosine
    };
    static constexpr Row Rows[] = {{0, 0, 2},    {30, 1, 99},   {60, 99, 1},   {90, 2, 0},   {120, 99, -1},
                                   {150, 1, 99}, {180, 0, -2},  {210, -1, 99}, {240, 99, -1}, {270, -2, 0},
                                   {300, 99, 1}, {330, -1, 99}};
    if (f == Circular::Tan) {
        switch (degrees) {
            case 0: case 180: return 0;
            case 45: case 225: return 2;
            case 135: case 315: return -2;
            case 90: return 3;
            case 270: return -3;
            default: return std::nullopt;
        }
    }
    for (const Row& row : Rows) {
        if (row.degrees != degrees) continue;
        const int value = f == Circular::Cos ? row.cosine : row.sine;
        if (value == 99) return std::nullopt;
        return value;
    }
    return std::nullopt;
}

// The exact value at L bytes from twiceExactValue.
BigNum exactValue(int twice, int32_t L) {
    if (twice == 0) return makeZero(L);
    if (twice == 3 || twice == -3) return makeInfinity(L, static_cast<int8_t>(twice > 0 ? 1 : -1));
    if (twice == 2 || twice == -2) return fromInt(L, twice / 2);
    return divide(fromInt(L, twice), fromInt(L, 2));
}

BigNum realCircular(MathContext& math, Circular f, const BigNum& x) {
    switch (f) {
        case Circular::Sin: return Sin(math, x);
        case Circular::Cos: return Cos(math, x);
        case Circular::Tan: return Tan(math, x);
        case Circular::Sinc: return Sinc(math, x);
    }
    return makeNaN();
}

// The function of a finite number of degrees (see the file comment).
BigNum circularOfDegrees(MathContext& math, Circular f, const BigNum& x) {
    const int32_t L = x.length();
    const DegreeArgument argument = fromDegrees(math, x);
    const Circular exactFunction = f == Circular::Sinc ? Circular::Sin : f;
    const std::optional<int> exact =
        argument.wholeDegrees >= 0 ? twiceExactValue(exactFunction, argument.wholeDegrees) : std::nullopt;
    if (f != Circular::Sinc) {
        if (exact) return exactValue(*exact, L);
        return resized(realCircular(math, f, argument.radians), L);
    }
    // sinc: the sine of the reduced angle over the whole angle in radians.
    if (x.isZero()) return fromInt(L, 1);
    const int32_t work = L + 2;
    const BigNum sine = exact ? exactValue(*exact, work) : Sin(math, argument.radians);
    const BigNum whole = multiply(resized(x, work), radiansPerDegree(math, work));
    return resized(divide(sine, whole), L);
}

ComplexNum complexCircular(MathContext& math, Circular f, const ComplexNum& z) {
    switch (f) {
        case Circular::Sin: return Sin(math, z);
        case Circular::Cos: return Cos(math, z);
        case Circular::Tan: return Tan(math, z);
        case Circular::Sinc: break;
    }
    if (z.re.isZero() && z.im.isZero()) return complexFromInt(z.re.length(), 1);
    return divide(Sin(math, z), z);
}

template <Circular F>
void circular(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (!IsNumber(x)) return Refusal{InvalidDataType};
        if (!IsTrigArgument(x.units)) return Refusal{InvalidUnits};
        if (x.type == ItemType::Complex) return UnlessAborted(a, Item::complex(complexCircular(a.math, F, x.asComplex())));
        const BigNum v = RealOf(a, x);
        if (!IsInRadians(x.units) && a.trigMode == DegreesMode && v.isFinite())
            return UnlessAborted(a, Item::real(circularOfDegrees(a.math, F, v)));
        return UnlessAborted(a, Item::real(realCircular(a.math, F, v)));
    });
}

// asin and acos of a real x with |x| > 1, from acosh |x|:
// asin x = sign(x) (pi/2 - i acosh|x|); acos x = i acosh x above 1 and
// pi - i acosh|x| below -1.
ComplexNum asinBeyondOne(MathContext& math, const BigNum& x) {
    BigNum magnitude = x;
    magnitude.sign = 1;
    BigNum im = Acosh(math, magnitude);
    im.sign = static_cast<int8_t>(-x.sign * im.sign);
    BigNum re = divide(*math.GetConstant(x.length(), 'p'), fromInt(x.length(), 2));
    re.sign = x.sign;
    return ComplexNum{std::move(re), std::move(im)};
}

ComplexNum acosBeyondOne(MathContext& math, const BigNum& x) {
    BigNum magnitude = x;
    magnitude.sign = 1;
    BigNum im = Acosh(math, magnitude);
    if (x.sign > 0) return ComplexNum{makeZero(x.length()), std::move(im)};
    im.sign = static_cast<int8_t>(-im.sign);
    return ComplexNum{*math.GetConstant(x.length(), 'p'), std::move(im)};
}

// `asin` and `acos`: a Real within +-1 gives a Real angle, beyond it the
// Complex value.
template <BigNum (*RealF)(MathContext&, const BigNum&), ComplexNum (*Beyond)(MathContext&, const BigNum&),
          ComplexNum (*ComplexF)(MathContext&, const ComplexNum&)>
void inverseSine(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (!IsNumber(x)) return Refusal{InvalidDataType};
        if (!IsDimensionless(x.units)) return Refusal{InvalidUnits};
        if (x.type == ItemType::Complex) return UnlessAborted(a, Item::complex(ComplexF(a.math, x.asComplex())));
        const BigNum v = RealOf(a, x);
        if (!v.isFinite() || compareWithDigit(v, 1) <= 0) return UnlessAborted(a, Item::real(RealF(a.math, v), RadianUnits));
        return UnlessAborted(a, Item::complex(Beyond(a.math, v)));
    });
}

BigNum realAsin(MathContext& m, const BigNum& x) { return Asin(m, x); }
BigNum realAcos(MathContext& m, const BigNum& x) { return Acos(m, x); }
ComplexNum complexAsin(MathContext& m, const ComplexNum& z) { return Asin(m, z); }
ComplexNum complexAcos(MathContext& m, const ComplexNum& z) { return Acos(m, z); }

// The Integer or Real value of a `deg`/`rad` operand, or the refusal.
Outcome angleOperand(const Item& x) {
    if (!IsIntegerOrReal(x)) return Refusal{InvalidDataType};
    if (!IsTrigArgument(x.units)) return Refusal{InvalidUnits};
    return NoResult{};
}

}  // namespace

void opSin(AppState& app, ItemList& list) { circular<Circular::Sin>(app, list); }
void opCos(AppState& app, ItemList& list) { circular<Circular::Cos>(app, list); }
void opTan(AppState& app, ItemList& list) { circular<Circular::Tan>(app, list); }
void opSinc(AppState& app, ItemList& list) { circular<Circular::Sinc>(app, list); }

void opAsin(AppState& app, ItemList& list) { inverseSine<realAsin, asinBeyondOne, complexAsin>(app, list); }
void opAcos(AppState& app, ItemList& list) { inverseSine<realAcos, acosBeyondOne, complexAcos>(app, list); }

void opAtan(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (!IsNumber(x)) return Refusal{InvalidDataType};
        if (!IsDimensionless(x.units)) return Refusal{InvalidUnits};
        if (x.type == ItemType::Complex) return UnlessAborted(a, Item::complex(Atan(a.math, x.asComplex())));
        return UnlessAborted(a, Item::real(Atan(a.math, RealOf(a, x)), RadianUnits));
    });
}

// `atan2`: the angle of the point (x, y), y the second operand and x the top,
// in (-pi, pi]; both need equal units (Angle as for `+`).
void opAtan2(AppState& app, ItemList& list) {
    BinaryHandler(app, list, [](AppState& a, const Item& x, const Item& y) -> Outcome {
        if (!IsIntegerOrReal(y) || !IsIntegerOrReal(x)) return Refusal{InvalidDataType};
        if (!AdditiveUnits(y.units, x.units)) return Refusal{IncompatibleUnits};
        return UnlessAborted(a, Item::real(Atan2(a.math, RealOf(a, y), RealOf(a, x)), RadianUnits));
    });
}

// `deg`: an angle in radians (a plain number or Angle 1) as a plain number of
// degrees, x * 180/pi; the result has no units, so in degrees mode it feeds
// `sin` and the others directly.
void opDeg(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (Outcome refused = angleOperand(x); std::holds_alternative<Refusal>(refused)) return refused;
        const BigNum v = RealOf(a, x);
        const int32_t work = v.length() + 2;
        return UnlessAborted(a, Item::real(resized(multiply(resized(v, work), *a.math.GetConstant(work, 'd')), v.length())));
    });
}

// `rad`: a plain number of degrees as an angle in radians, x * pi/180, with
// Angle 1 (so it is used as radians whatever the trig mode). A value that
// already has Angle 1 is an angle in radians and comes back as it is.
void opRad(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (Outcome refused = angleOperand(x); std::holds_alternative<Refusal>(refused)) return refused;
        const BigNum v = RealOf(a, x);
        if (IsInRadians(x.units)) return Item::real(v, RadianUnits);
        const int32_t work = v.length() + 2;
        return UnlessAborted(a, Item::real(resized(multiply(resized(v, work), radiansPerDegree(a.math, work)), v.length()),
                                           RadianUnits));
    });
}

}  // namespace quorvel
