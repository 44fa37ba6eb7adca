// Shared pieces of the mathematical handlers: the messages they give, the
// operand conversions, the abort rule and the one-operand shape that sends a
// Real to the real function and a Complex to the complex one.
#pragma once

#include <string_view>

#include "lang/appstate.h"
#include "lang/handler.h"
#include "lang/item.h"
#include "numeric/bignum.h"
#include "numeric/complex.h"
#include "numeric/mathcontext.h"
#include "units/unitvector.h"

namespace quorvel {

inline constexpr std::u16string_view ArgumentOutsideOfRange = u"Argument Outside of Range";
inline constexpr std::u16string_view ArgumentConvertedToNearestInteger = u"Argument Converted to Nearest Integer";
inline constexpr std::u16string_view Aborted = u"Aborted";

// Integer results of `^`, `exp2`, `exp10`, `!`, `comb` and `perm` are exact
// up to this many decimal digits; a larger result is computed as a Real.
inline constexpr int64_t MaxExactDigits = 10000;

// The result of a computation that may have polled for abort: when the
// command was stopped meanwhile the partial value is dropped and the operands
// go back ("Aborted" has been reported already; the refusal repeats it).
Outcome UnlessAborted(const AppState& app, Outcome result);

// One operand, dimensionless, Integer/Real to `real` (an Integer converted at
// the working length) and Complex to `complex`; the result has no units.
// "Invalid Data Type" for other types, "Invalid Units" for any exponent.
using RealFunction = BigNum (*)(MathContext&, const BigNum&);
using ComplexFunction = ComplexNum (*)(MathContext&, const ComplexNum&);
void DimensionlessFunction(AppState& app, ItemList& list, RealFunction real, ComplexFunction complex);

// A real value `x` widened by `extra` bytes (for work that is rounded back).
BigNum Widened(const BigNum& x, int32_t extra);

// -i z and i z: the parts exchanged, one sign changed.
ComplexNum TimesMinusI(const ComplexNum& z);
ComplexNum TimesI(const ComplexNum& z);
// Both parts multiplied by (or divided by) the real x.
ComplexNum ScaledBy(const ComplexNum& z, const BigNum& x);
ComplexNum DividedBy(const ComplexNum& z, const BigNum& x);

// The real value is an exact integer that fits a signed 32-bit integer.
bool IsSmallIntegral(const BigNum& x, int32_t& out);

}  // namespace quorvel
