// Unit-vector rules of the operations: products, quotients and integer
// powers combine exponents, square roots halve them, functions of pure
// numbers need none, trigonometric functions take plain numbers or radians.
// The sum and comparison rule (Angle kept only when both agree) is
// AdditiveUnits in lang/ops_values.h. Nothing here reports; the handlers turn
// a refusal into "Invalid Units" or "Incompatible Units".
#pragma once

#include <cstdint>
#include <optional>

#include "numeric/bigint.h"
#include "units/unitvector.h"

namespace quorvel {

// The units of an angle in radians: Angle 1, everything else 0.
inline constexpr UnitVector RadianUnits{0, 0, 0, 0, 0, 0, 0, 1};

// True when all eight exponents are 0 (`ln`, `exp`, `gamma`, bitwise words...).
inline bool IsDimensionless(const UnitVector& u) { return !hasUnits(u); }

// True when all eight exponents agree, Angle included (`mod`, `red`).
inline bool SameUnits(const UnitVector& a, const UnitVector& b) { return a == b; }

// Exponent sum a + b and difference a - b, each wrapping in 32 bits like the
// exponents themselves.
UnitVector AddExponents(const UnitVector& a, const UnitVector& b);
UnitVector SubtractExponents(const UnitVector& a, const UnitVector& b);

// Units of base^n for an integer power n: every exponent times n (wrapping
// in 32 bits).
UnitVector PowerUnits(const UnitVector& base, int32_t n);

// Units of base^n when n is an Integer operand: none when the base carries
// units and n does not fit a signed 32-bit integer (the caller refuses with
// "Invalid Units"); a dimensionless base always gives no units.
std::optional<UnitVector> IntegerPowerUnits(const UnitVector& base, const BigInt& n);

// Whether `^`/`pow` accepts its operands' units: the exponent must be
// dimensionless; the base may carry units only when the exponent is an Integer.
bool PowerOperandsAcceptable(const UnitVector& base, const UnitVector& exponent, bool exponentIsInteger);

// Units of a square root: every exponent halved; none when one is odd.
std::optional<UnitVector> SquareRootUnits(const UnitVector& u);

// Whether a trigonometric function (`sin`, `cos`, `tan`, `sinc`) accepts the
// argument: Angle 0 or 1 and every other exponent 0.
bool IsTrigArgument(const UnitVector& u);

// True for an argument already in radians (Angle 1): used as it is, without
// the TrigMode conversion a plain number gets.
inline bool IsInRadians(const UnitVector& u) { return u[Angle] == 1; }

}  // namespace quorvel
