// The unit and constant commands: `applyunits` (a value and a unit string
// give the value in SI with the dimension attached), `remunits` (the value as
// displayed, without dimension), `unit` (choose a display unit) and `const`
// (push a physical constant).
#include "lang/handlers.h"

#include <string>

#include "lang/handler.h"
#include "units/constants.h"
#include "units/unitconvert.h"
#include "units/unitstring.h"
#include "units/unittables.h"

namespace quorvel {

namespace {

constexpr std::u16string_view InvalidUnitString = u"Invalid Unit String";
constexpr std::u16string_view InvalidUnitName = u"Invalid Unit Name";
constexpr std::u16string_view InvalidConstantName = u"Invalid Constant Name";

// Display-unit slots hold at most 31 characters and the terminator.
constexpr size_t DisplayUnitSlotLength = 31;

}  // namespace

// y 'units' applyunits: a copy of y converted to SI with the string's
// exponents added; y and x are consumed.
void opApplyunits(AppState& app, ItemList& list) {
    BinaryHandler(app, list, [](AppState& a, const Item& x, const Item& y) -> Outcome {
        if (x.type != ItemType::String) return Refusal{InvalidDataType};
        const std::vector<UnitFactor> factors = ParseUnitString(x.asText());
        if (factors.empty()) return Refusal{InvalidUnitString};
        return ApplyUnitFactors(a, y, factors);
    });
}

// The value converted to the display units, then stripped of its dimension.
void opRemunits(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        Item copy = x.duplicate();
        ToDisplayUnits(a, copy, false, 0);
        copy.units = NoUnits;
        return copy;
    });
}

// 'symbol' unit: the base unit becomes the display unit of its dimension.
// Derived units cannot be display units.
void opUnit(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (x.type != ItemType::String) return Refusal{InvalidDataType};
        const UnitDef* row = FindUnit(x.asText());
        if (row == nullptr) return Refusal{InvalidUnitName};
        a.displayUnits[row->dimension] = std::u16string(row->symbol).substr(0, DisplayUnitSlotLength);
        return NoResult{};
    });
}

// 'symbol' const: the constant's value text evaluated now, at the working
// precision; the symbol is consumed even when the text leaves nothing.
void opConst(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (x.type != ItemType::String) return Refusal{InvalidDataType};
        const ConstDef* row = FindConst(x.asText());
        if (row == nullptr) return Refusal{InvalidConstantName};
        if (auto value = EvaluateConstant(a, *row)) return std::move(*value);
        return NoResult{};
    });
}

}  // namespace quorvel
