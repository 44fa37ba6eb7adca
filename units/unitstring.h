// Unit strings such as "m/s^2" or "J*K^-1*mol^-1": the scanner and the
// left-to-right parser that turns one into a list of unit factors.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "units/unittables.h"

namespace quorvel {

// One element of a parsed unit string: exactly one of the two rows is set.
struct UnitFactor {
    const UnitDef* base = nullptr;
    const DerivedUnitDef* derived = nullptr;
    int32_t exponent = 1;

    // The factor text of whichever row is set; nullptr means exactly 1.
    const char16_t* factorText() const { return base != nullptr ? base->factor : derived->factor; }
};

enum class UnitTokenKind { End, Name, Number, Operator };

// One token of a unit string. A Name carries its table row (base table
// first); a Number its value, with a sign in front already applied.
struct UnitToken {
    UnitTokenKind kind = UnitTokenKind::End;
    const UnitDef* base = nullptr;
    const DerivedUnitDef* derived = nullptr;
    int64_t number = 0;      // magnitude saturates just above 2147483647
    char16_t character = 0;  // the operator
};

// Walks a unit string one token at a time. Characters up to code 32 are
// skipped; "-" or "+" right before a digit is a sign; a digit run is a
// number; an ASCII letter run is a name, and a name in neither table ends the
// text; any other character is an operator. Never reports.
class UnitScanner {
public:
    explicit UnitScanner(std::u16string_view text) : text_(text) {}
    // The next token; End at the end of the text or at an unknown name.
    UnitToken next();

private:
    std::u16string_view text_;
    size_t pos_ = 0;
    bool stopped_ = false;
};

// Parses a unit string left to right: each name is a factor with exponent
// +1, or -1 once a "/" has been seen (every later factor is in the
// denominator: "m^3/kg*s^2" is m³·kg⁻¹·s⁻²); a number replaces the last
// factor's exponent by that number times the same sign (a number before any
// name, or above 2147483647 in magnitude, changes nothing); other operators
// are ignored; the first unknown name ends the list ("m/xyz" is "m").
// Possibly empty; never reports.
std::vector<UnitFactor> ParseUnitString(std::u16string_view text);

}  // namespace quorvel
