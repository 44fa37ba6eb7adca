// The sign operations: absolute value and negation.
#include <algorithm>

#include "lang/handler.h"
#include "lang/handlers.h"
#include "lang/ops_values.h"

namespace quorvel {

namespace {

// |re + im·i| at the parts' length, worked two bytes wider.
BigNum modulus(const ComplexNum& z) {
    const int32_t length = std::max(z.re.length(), z.im.length());
    const BigNum re = resized(z.re, length + 2);
    const BigNum im = resized(z.im, length + 2);
    return resized(squareRoot(add(multiply(re, re), multiply(im, im))), length);
}

template <class Number>
Number withNonNegativeSign(Number n) {
    if (n.sign < 0) n.sign = 1;
    return n;
}

template <class Number>
Number withSignChanged(Number n) {
    n.sign = static_cast<int8_t>(-n.sign);
    return n;
}

}  // namespace

void opAbs(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState&, const Item& x) -> Outcome {
        switch (x.type) {
            case ItemType::Integer:
                return Item::integer(withNonNegativeSign(x.asInteger()), x.units);
            case ItemType::Real:
                return Item::real(withNonNegativeSign(x.asReal()), x.units);
            case ItemType::Complex:
                return Item::real(modulus(x.asComplex()), x.units);
            default:
                return Refusal{InvalidDataType};
        }
    });
}

void opNeg(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& state, const Item& x) -> Outcome {
        switch (x.type) {
            case ItemType::Integer:
                return IntegerResult(state, withSignChanged(x.asInteger()), x.units);
            case ItemType::Real:
                return Item::real(withSignChanged(x.asReal()), x.units);
            case ItemType::Complex: {
                const ComplexNum& z = x.asComplex();
                return Item::complex({withSignChanged(z.re), withSignChanged(z.im)}, x.units);
            }
            default:
                return Refusal{InvalidDataType};
        }
    });
}

}  // namespace quorvel
