// Shared pieces of the unit and constant tests: a handler fixture that runs
// command lines, reads the top entry's display text, and tells whether the
// operations a unit factor or constant text relies on (`pi`, `^`) exist yet.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "lang/displaytext.h"
#include "lang/evaluator.h"
#include "numeric/numtext.h"
#include "tests/ops_testing.h"
#include "units/unitconvert.h"
#include "units/unitstring.h"
#include "units/unittables.h"

namespace quorvel::test {

inline constexpr UnitVector Dimensionless{};

// The exponents in the order Length, Mass, Time, Amount, Temperature,
// Current, Luminous Int., Angle.
inline UnitVector units(int32_t l, int32_t m, int32_t t, int32_t n = 0, int32_t k = 0, int32_t a = 0,
                        int32_t cd = 0, int32_t rad = 0) {
    return UnitVector{l, m, t, n, k, a, cd, rad};
}

class UnitsTest : public HandlerTest {
protected:
    void rpn(std::u16string_view line) { RunCommandLine(app, line, 0); }
    void alg(std::u16string_view line) { RunCommandLine(app, line, 1); }

    // The display text of the entry at `index` (0 = x) as the stack list
    // shows it, or with plain-text units for flags 0x80.
    std::string shown(size_t index = 0, int32_t flags = 0) const {
        const Item* item = app.stack.at(index);
        if (item == nullptr) return "<empty>";
        return toUtf8(DisplayText(app, *item, app.digits, flags).value_or(u"<none>"));
    }

    // Pushes `value` and the unit string, then runs `applyunits`.
    void apply(Item value, std::u16string_view unitText) {
        push(std::move(value));
        push(Item::string(std::u16string(unitText)));
        opApplyunits(app, app.stack);
    }

    // The unit text ToDisplayUnits writes for a value with `u` (none: "").
    std::string unitText(const UnitVector& u, int32_t flags = 0) {
        Item item = Item::integer(bigIntFromI32(1), u);
        return toUtf8(ToDisplayUnits(app, item, true, flags).value_or(u""));
    }
};

}  // namespace quorvel::test
