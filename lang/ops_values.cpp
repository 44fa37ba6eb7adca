// Conversions, integer results and unit-vector rules shared by the
// numeric handlers.
#include "lang/ops_values.h"

namespace quorvel {

bool IsIntegerOrReal(const Item& item) {
    return item.type == ItemType::Integer || item.type == ItemType::Real;
}

bool IsNumber(const Item& item) { return IsIntegerOrReal(item) || item.type == ItemType::Complex; }

BigNum RealOf(const AppState& app, const Item& item) {
    if (item.type == ItemType::Real) return item.asReal();
    // fromInteger carries five extra bytes; the result is cut back to the
    // working length like every new real.
    return resized(fromInteger(item.asInteger(), app.workingLength), app.workingLength);
}

ComplexNum ComplexOf(const AppState& app, const Item& item) {
    if (item.type == ItemType::Complex) return item.asComplex();
    return complexFromParts(RealOf(app, item));
}

Item IntegerResult(const AppState& app, BigInt value, const UnitVector& units) {
    // A negative word size is stored by `wsize` but makes no word.
    if (app.wsize > 0) value = ReduceToWordSize(value, app.wsize);
    return Item::integer(std::move(value), units);
}

std::optional<UnitVector> AdditiveUnits(const UnitVector& a, const UnitVector& b) {
    for (int d = Length; d < Angle; ++d)
        if (a[d] != b[d]) return std::nullopt;
    UnitVector result = a;
    if (a[Angle] != b[Angle]) result[Angle] = 0;   // an angle plus a plain number is a plain number
    return result;
}

UnitVector ProductUnits(const UnitVector& a, const UnitVector& b) {
    UnitVector result{};
    for (int d = 0; d < DimensionCount; ++d) result[d] = a[d] + b[d];
    return result;
}

UnitVector QuotientUnits(const UnitVector& a, const UnitVector& b) {
    UnitVector result{};
    for (int d = 0; d < DimensionCount; ++d) result[d] = a[d] - b[d];
    return result;
}

UnitVector ScaledUnits(const UnitVector& u, int32_t factor) {
    UnitVector result{};
    for (int d = 0; d < DimensionCount; ++d) result[d] = u[d] * factor;
    return result;
}

}  // namespace quorvel
