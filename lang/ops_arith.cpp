// The four arithmetic operations, the reciprocal and the square.
//
// Integer with Integer stays exact; any Real operand makes the result a Real,
// an Integer operand being converted at the working length first; any Complex
// operand makes the result a Complex, an Integer or Real taking the real
// part. The unit rules: sums and differences need equal exponents (Angle
// apart), products add exponents, quotients subtract them.
#include "lang/handlers.h"
#include "lang/ops_values.h"

namespace quorvel {

namespace {

enum class Additive { Sum, Difference };

bool eitherComplex(const Item& y, const Item& x) {
    return y.type == ItemType::Complex || x.type == ItemType::Complex;
}

Outcome additive(const AppState& app, const Item& y, const Item& x, Additive kind) {
    if (!IsNumber(y) || !IsNumber(x)) return Refusal{InvalidDataType};
    const auto units = AdditiveUnits(y.units, x.units);
    if (!units) return Refusal{IncompatibleUnits};
    if (eitherComplex(y, x)) {
        const ComplexNum a = ComplexOf(app, y);
        const ComplexNum b = ComplexOf(app, x);
        return Item::complex(kind == Additive::Sum ? add(a, b) : subtract(a, b), *units);
    }
    if (y.type == ItemType::Integer && x.type == ItemType::Integer) {
        const BigInt& a = y.asInteger();
        const BigInt& b = x.asInteger();
        return IntegerResult(app, kind == Additive::Sum ? add(a, b) : subtract(a, b), *units);
    }
    const BigNum a = RealOf(app, y);
    const BigNum b = RealOf(app, x);
    return Item::real(kind == Additive::Sum ? add(a, b) : subtract(a, b), *units);
}

// A handler body for a value operation written as f(app, y, x).
template <Outcome (*F)(const AppState&, const Item&, const Item&)>
void binaryValues(AppState& app, ItemList& list) {
    BinaryHandler(app, list, [](AppState& a, const Item& x, const Item& y) { return F(a, y, x); });
}

}  // namespace

Outcome AddValues(const AppState& app, const Item& y, const Item& x) {
    return additive(app, y, x, Additive::Sum);
}

Outcome SubtractValues(const AppState& app, const Item& y, const Item& x) {
    return additive(app, y, x, Additive::Difference);
}

Outcome MultiplyValues(const AppState& app, const Item& y, const Item& x) {
    if (!IsNumber(y) || !IsNumber(x)) return Refusal{InvalidDataType};
    const UnitVector units = ProductUnits(y.units, x.units);
    if (eitherComplex(y, x)) return Item::complex(multiply(ComplexOf(app, y), ComplexOf(app, x)), units);
    if (y.type == ItemType::Integer && x.type == ItemType::Integer)
        return IntegerResult(app, multiply(y.asInteger(), x.asInteger()), units);
    return Item::real(multiply(RealOf(app, y), RealOf(app, x)), units);
}

// Integer by Integer: with a word size the truncated quotient (remainder
// dropped); without one an exact quotient stays an Integer and anything else
// is divided as reals. A zero divisor always takes the real path and gives
// NaN, with or without a word size: there is no integer quotient to keep.
// A Complex divisor of zero gives NaN parts.
Outcome DivideValues(const AppState& app, const Item& y, const Item& x) {
    if (!IsNumber(y) || !IsNumber(x)) return Refusal{InvalidDataType};
    const UnitVector units = QuotientUnits(y.units, x.units);
    if (eitherComplex(y, x)) return Item::complex(divide(ComplexOf(app, y), ComplexOf(app, x)), units);
    if (y.type == ItemType::Integer && x.type == ItemType::Integer) {
        auto division = divideWithRemainder(y.asInteger(), x.asInteger());
        if (division && (app.wsize != 0 || division->remainder.isZero()))
            return IntegerResult(app, std::move(division->quotient), units);
    }
    return Item::real(divide(RealOf(app, y), RealOf(app, x)), units);
}

void opAdd(AppState& app, ItemList& list) { binaryValues<AddValues>(app, list); }
void opSub(AppState& app, ItemList& list) { binaryValues<SubtractValues>(app, list); }
void opMul(AppState& app, ItemList& list) { binaryValues<MultiplyValues>(app, list); }
void opDiv(AppState& app, ItemList& list) { binaryValues<DivideValues>(app, list); }

// 1 / x. Only 1 and -1 have an integer reciprocal, so an Integer always gives
// a Real (1/0 is NaN); a Complex gives a Complex; the exponents change sign.
void opInv(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (!IsNumber(x)) return Refusal{InvalidDataType};
        if (x.type == ItemType::Complex) {
            const ComplexNum& z = x.asComplex();
            return Item::complex(divide(complexFromInt(z.re.length(), 1), z), ScaledUnits(x.units, -1));
        }
        return Item::real(divide(fromInt(a.workingLength, 1), RealOf(a, x)), ScaledUnits(x.units, -1));
    });
}

// x * x; the exponents double.
void opSqr(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (!IsNumber(x)) return Refusal{InvalidDataType};
        const UnitVector units = ScaledUnits(x.units, 2);
        if (x.type == ItemType::Complex) return Item::complex(multiply(x.asComplex(), x.asComplex()), units);
        if (x.type == ItemType::Integer) return IntegerResult(a, multiply(x.asInteger(), x.asInteger()), units);
        return Item::real(multiply(x.asReal(), x.asReal()), units);
    });
}

}  // namespace quorvel
