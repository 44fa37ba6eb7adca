// The unit tables: base units (one dimension each), derived units (a full
// unit vector) and display aliases.
#pragma once

#include <cstdint>
#include <string_view>

#include "units/unitvector.h"

namespace quorvel {

struct UnitDef {
    const char16_t* symbol;    // ASCII form typed by the user ("um")
    const char16_t* display;   // display form ("μm")
    const char16_t* name;      // long name ("micrometer")
    const char16_t* factor;    // size in the SI base unit as an expression; nullptr = exactly 1
    int32_t dimension;         // the one dimension this unit raises by 1
};

// The base-unit row with exactly this symbol (with case); nullptr if none.
const UnitDef* FindUnit(std::u16string_view symbol);

}  // namespace quorvel
