// Unit-vector rules of the operations.
#include "units/unitrules.h"

namespace quorvel {

namespace {

// Exponents wrap in 32 bits instead of overflowing.
int32_t wrap(int64_t value) { return static_cast<int32_t>(static_cast<uint32_t>(static_cast<uint64_t>(value))); }

}  // namespace

UnitVector AddExponents(const UnitVector& a, const UnitVector& b) {
    UnitVector result{};
    for (int d = 0; d < DimensionCount; ++d) result[d] = wrap(int64_t{a[d]} + b[d]);
    return result;
}

UnitVector SubtractExponents(const UnitVector& a, const UnitVector& b) {
    UnitVector result{};
    for (int d = 0; d < DimensionCount; ++d) result[d] = wrap(int64_t{a[d]} - b[d]);
    return result;
}

UnitVector PowerUnits(const UnitVector& base, int32_t n) {
    UnitVector result{};
    for (int d = 0; d < DimensionCount; ++d) result[d] = wrap(int64_t{base[d]} * n);
    return result;
}

std::optional<UnitVector> IntegerPowerUnits(const UnitVector& base, const BigInt& n) {
    if (IsDimensionless(base)) return UnitVector{};
    int32_t power = 0;
    if (!BigIntToInt32(n, power)) return std::nullopt;
    return PowerUnits(base, power);
}

bool PowerOperandsAcceptable(const UnitVector& base, const UnitVector& exponent, bool exponentIsInteger) {
    if (!IsDimensionless(exponent)) return false;
    return exponentIsInteger || IsDimensionless(base);
}

std::optional<UnitVector> SquareRootUnits(const UnitVector& u) {
    UnitVector result{};
    for (int d = 0; d < DimensionCount; ++d) {
        if (u[d] % 2 != 0) return std::nullopt;
        result[d] = u[d] / 2;
    }
    return result;
}

bool IsTrigArgument(const UnitVector& u) {
    for (int d = 0; d < Angle; ++d)
        if (u[d] != 0) return false;
    return u[Angle] == 0 || u[Angle] == 1;
}

}  // namespace quorvel
