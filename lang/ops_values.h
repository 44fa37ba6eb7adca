// Value-level arithmetic on Integer and Real items, shared by the arithmetic
// handlers, the comparisons and the compound assignments. Each operation
// either yields the result Item or a Refusal naming the message; it never
// reports and never changes its operands.
#pragma once

#include <optional>

#include "lang/appstate.h"
#include "lang/handler.h"
#include "lang/item.h"
#include "numeric/bigint.h"
#include "numeric/binword.h"
#include "numeric/bignum.h"
#include "numeric/complex.h"
#include "units/unitvector.h"

namespace quorvel {

inline constexpr std::u16string_view InvalidUnits = u"Invalid Units";
inline constexpr std::u16string_view IncompatibleUnits = u"Incompatible Units";
inline constexpr std::u16string_view InvalidVariableName = u"Invalid Variable Name";

// True for the Integer and Real types.
bool IsIntegerOrReal(const Item& item);
// True for the three number types: Integer, Real and Complex.
bool IsNumber(const Item& item);

// The value of an Integer or Real item as a BigNum: a Real as it is, an
// Integer converted at the working length. Never reports.
BigNum RealOf(const AppState& app, const Item& item);
// The value of an Integer, Real or Complex item as a ComplexNum: a Complex as
// it is, an Integer or Real (as RealOf) with a zero imaginary part.
ComplexNum ComplexOf(const AppState& app, const Item& item);

// An Integer result Item: reduced to the word size when WSize is positive
// (ReduceToWordSize, through a binary word), exact otherwise.
Item IntegerResult(const AppState& app, BigInt value, const UnitVector& units);

// Units of a sum, difference or comparison: none when the first seven
// exponents differ; the Angle exponent survives only when both agree.
std::optional<UnitVector> AdditiveUnits(const UnitVector& a, const UnitVector& b);
// Element-wise sum (product) and difference (quotient) of the exponents.
UnitVector ProductUnits(const UnitVector& a, const UnitVector& b);
UnitVector QuotientUnits(const UnitVector& a, const UnitVector& b);
// Every exponent multiplied by `factor` (an integer power).
UnitVector ScaledUnits(const UnitVector& u, int32_t factor);

// y + x, y - x, y * x, y / x with the type and unit rules of `+`, `-`, `*`
// and `/` ("Invalid Data Type", "Incompatible Units"); Integer results are
// reduced to the word size.
Outcome AddValues(const AppState& app, const Item& y, const Item& x);
Outcome SubtractValues(const AppState& app, const Item& y, const Item& x);
Outcome MultiplyValues(const AppState& app, const Item& y, const Item& x);
Outcome DivideValues(const AppState& app, const Item& y, const Item& x);

}  // namespace quorvel
