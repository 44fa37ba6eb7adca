// Values typed back into the entry line as text the command language reads
// again: a number with its unit string, or a unit string alone.
#pragma once

#include <string>

namespace quorvel {
struct AppState;
struct Item;
}

namespace quorvel::ui {

// The value of `item` as the entry line takes it: converted to the display
// units and shown as in the stack list but in plain text (reals and complex
// values with the current Digits, integers in the current Base, very long
// integers as reals), followed, when it has units, by a blank and the plain
// unit text in double quotes: 1.0545718176461565E-34 "m^2*kg/s".
std::u16string ValueLiteral(AppState& app, const Item& item);

// A unit string as the entry line takes it: in single quotes.
std::u16string UnitLiteral(const std::u16string& unitText);

}  // namespace quorvel::ui
