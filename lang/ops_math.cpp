// Shared pieces of the mathematical handlers.
#include "lang/ops_math.h"

#include "lang/ops_values.h"
#include "units/unitrules.h"

namespace quorvel {

Outcome UnlessAborted(const AppState& app, Outcome result) {
    if (app.abortFlag.load(std::memory_order_relaxed)) return Refusal{Aborted};
    return result;
}

void DimensionlessFunction(AppState& app, ItemList& list, RealFunction real, ComplexFunction complex) {
    UnaryHandler(app, list, [real, complex](AppState& a, const Item& x) -> Outcome {
        if (!IsNumber(x)) return Refusal{InvalidDataType};
        if (!IsDimensionless(x.units)) return Refusal{InvalidUnits};
        if (x.type == ItemType::Complex) return UnlessAborted(a, Item::complex(complex(a.math, x.asComplex())));
        return UnlessAborted(a, Item::real(real(a.math, RealOf(a, x))));
    });
}

BigNum Widened(const BigNum& x, int32_t extra) { return resized(x, x.length() + extra); }

ComplexNum TimesMinusI(const ComplexNum& z) {
    BigNum im = z.re;
    im.sign = static_cast<int8_t>(-im.sign);
    return ComplexNum{z.im, im};
}

ComplexNum TimesI(const ComplexNum& z) {
    BigNum re = z.im;
    re.sign = static_cast<int8_t>(-re.sign);
    return ComplexNum{re, z.re};
}

ComplexNum ScaledBy(const ComplexNum& z, const BigNum& x) {
    return ComplexNum{multiply(z.re, x), multiply(z.im, x)};
}

ComplexNum DividedBy(const ComplexNum& z, const BigNum& x) {
    return ComplexNum{divide(z.re, x), divide(z.im, x)};
}

bool IsSmallIntegral(const BigNum& x, int32_t& out) {
    if (!x.isFinite()) return false;
    if (x.isZero()) {
        out = 0;
        return true;
    }
    if (x.exponent > 9) return false;   // ten digits or more before the point
    if (!fractionPart(x).isZero()) return false;
    return BigIntToInt32(toInteger(x), out);
}

}  // namespace quorvel
