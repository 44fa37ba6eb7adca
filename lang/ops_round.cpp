// Integer and fraction parts: `ceil`, `floor`, `ip` (toward zero), `nint`
// (nearest, halves away from zero) and `fp` (the fraction with the operand's
// sign). No unit check; the units are kept.
//
// A finite Real gives an exact Integer for the four rounding operations (the
// value is integral, so nothing is lost), reduced to the word size like every
// Integer result; an Integer is its own ceiling, floor, integer part and
// nearest integer. An infinite or NaN Real has no integer: it comes back as
// it is. `fp` keeps the type: a Real gives a Real fraction (0 for infinity,
// NaN for NaN), an Integer gives the Integer 0.
#include "lang/handlers.h"
#include "lang/ops_values.h"

namespace quorvel {

namespace {

template <BigInt (*ToInteger)(const BigNum&)>
void rounding(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (!IsIntegerOrReal(x)) return Refusal{InvalidDataType};
        if (x.type == ItemType::Integer) return IntegerResult(a, x.asInteger(), x.units);
        if (!x.asReal().isFinite()) return x.duplicate();
        return IntegerResult(a, ToInteger(x.asReal()), x.units);
    });
}

}  // namespace

void opCeil(AppState& app, ItemList& list) { rounding<ceilToInteger>(app, list); }
void opFloor(AppState& app, ItemList& list) { rounding<floorToInteger>(app, list); }
void opIp(AppState& app, ItemList& list) { rounding<toInteger>(app, list); }
void opNint(AppState& app, ItemList& list) { rounding<roundToInteger>(app, list); }

void opFp(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState&, const Item& x) -> Outcome {
        if (!IsIntegerOrReal(x)) return Refusal{InvalidDataType};
        if (x.type == ItemType::Integer) return Item::integer(BigInt{}, x.units);
        return Item::real(fractionPart(x.asReal()), x.units);
    });
}

}  // namespace quorvel
