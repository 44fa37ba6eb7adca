// Conversion between SI values and units: applying a parsed unit string to
// a value, scaling by a unit's factor, converting to the display units with
// the unit text ("m·kg/s²", plain "m*kg/s^2"), and the display-unit report.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lang/item.h"
#include "units/unitstring.h"
#include "units/unittables.h"

namespace quorvel {

struct AppState;

// Unit texts are cut to this many characters.
inline constexpr size_t MaxUnitTextLength = 255;
// A display-unit report line holds at most this many characters.
inline constexpr size_t MaxReportLineLength = 127;

// Evaluates a unit factor text ("0.3048", "pi/180.0") with EvaluateText on
// app's main stack at the working precision; none when it leaves nothing.
std::optional<Item> EvaluateFactor(AppState& app, std::u16string_view text);

// Multiplies item's value by factor^exponent: a factor other than ^1 is
// raised to |exponent| (a few guard bytes wider, rounded back) and inverted
// for a negative exponent. An Integer item becomes a Real of the working
// length, a Real is multiplied, a Complex has both parts multiplied; other
// item types, and a factor that is not an Integer or Real, leave it alone.
// Units are not touched. Never reports.
void ScaleItem(const AppState& app, Item& item, const Item& factor, int32_t exponent);

// A copy of `value` with the parsed unit factors applied in order: a base
// row adds the factor's exponent to its dimension; a derived row adds its own
// eight exponents once, whatever the factor's exponent and sign (which count
// only in the scaling); each row with a factor text then scales the copy by
// factor^exponent. Messages can come only from evaluating the factor texts.
Item ApplyUnitFactors(AppState& app, const Item& value, const std::vector<UnitFactor>& factors);

// Converts `item` in place from SI into app's display units and clears its
// exponents: dimensions are taken by greatest exponent (a tie goes to the
// lower index) and the item is scaled by the display unit's factor^-exponent.
// With `wantText` the unit text is returned (none for no dimension), using
// display forms, "·" and superscripts, or with flags bit 0x80 the ASCII
// symbols, "*" and "^"; at most one "/" is written. Strings and variable
// references are left alone and give none. A display symbol that matches no
// row of its dimension (case ignored) counts as the SI base unit.
std::optional<std::u16string> ToDisplayUnits(AppState& app, Item& item, bool wantText, int32_t flags);

// A state of the calling thread with app's precision, base, modes and display
// units and an empty stack, for evaluating factor texts where app itself must
// stay untouched (the display of values). It reports nowhere and is reused by
// later calls on the same thread, so the constants it caches (pi) are kept.
AppState& EvaluationStateFor(const AppState& app);

// The label of each dimension in the display-unit report: "Length", "Mass",
// "Time", "Amount", "Temperature", "Current", "Luminous Int.", "Angle".
std::u16string_view DimensionLabel(int32_t dimension);

// The base row of each dimension's current display symbol, found exactly
// (FindUnit); nullptr where the symbol names no row.
std::array<const UnitDef*, DimensionCount> DisplayUnitRows(const AppState& app);

// The eight report lines "Length = %s (%s)" ... "Angle = %s (%s)" with the
// display form and long name of each row (empty texts for a missing row),
// each cut to 127 characters.
std::array<std::u16string, DimensionCount> DisplayUnitReport(const std::array<const UnitDef*, DimensionCount>& rows);

}  // namespace quorvel
