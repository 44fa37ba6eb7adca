// The table of physical constants. Values are texts of the command language
// ("6.62607015E-34 'J*s'", "const('h')/(2*pi)"), evaluated at the working
// precision every time a constant is used; nothing is cached.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "lang/item.h"

namespace quorvel {

struct AppState;

struct ConstDef {
    const char16_t* symbol;    // ASCII name used with `const` ("hbar")
    const char16_t* display;   // form shown in the constants dialog ("ħ")
    const char16_t* name;      // long name ("Reduced Planck Constant")
    const char16_t* value;     // value expression, unit string included
};

inline constexpr int32_t ConstantCount = 31;

// The whole table in table order.
std::span<const ConstDef> Constants();

// The row with exactly this symbol (with case: "G" and "g" differ); nullptr if none.
const ConstDef* FindConst(std::u16string_view symbol);

// Evaluates the row's value text with EvaluateText on the main stack at the
// working precision; none when the text leaves nothing. Messages come from
// the handlers the text runs.
std::optional<Item> EvaluateConstant(AppState& app, const ConstDef& row);

}  // namespace quorvel
