// The unit tables: base units (one dimension each), derived units (a full
// unit vector) and display aliases.
#pragma once

#include <cstdint>
#include <span>
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

struct DerivedUnitDef {
    const char16_t* symbol;    // ASCII form typed by the user ("kHz")
    const char16_t* display;   // display form ("μJ")
    const char16_t* name;      // long name ("kilohertz")
    const char16_t* factor;    // size in SI base units as an expression; nullptr = exactly 1
    UnitVector units;          // the exponents the unit carries
};

struct UnitAlias {
    const char16_t* alias;       // named-unit text shown instead ("N")
    const char16_t* expansion;   // unit text as the unit-text writer makes it ("m·kg/s²")
    const char16_t* factor;      // scale of the named unit, or nullptr
};

inline constexpr int32_t BaseUnitCount = 67;
inline constexpr int32_t DerivedUnitCount = 76;
inline constexpr int32_t UnitAliasCount = 19;

// The whole tables in table order (base rows grouped by dimension).
std::span<const UnitDef> BaseUnits();
std::span<const DerivedUnitDef> DerivedUnits();
std::span<const UnitAlias> UnitAliases();

// The base-unit row with exactly this symbol (with case); nullptr if none.
const UnitDef* FindUnit(std::u16string_view symbol);

// The derived-unit row with exactly this symbol (with case); nullptr if none.
const DerivedUnitDef* FindDerivedUnit(std::u16string_view symbol);

// The first alias row whose expansion equals `unitText` exactly; nullptr if none.
const UnitAlias* FindAlias(std::u16string_view unitText);

// The row of `dimension` (0..7) that is its SI base unit: "m", "kg", "s",
// "mol", "K", "A", "cd", "rad".
const UnitDef& SiBaseUnit(int32_t dimension);

// The first base row of `dimension` whose symbol equals `symbol` ignoring the
// case of ASCII letters ("KM" finds "km"); nullptr if none.
const UnitDef* FindDisplayUnit(int32_t dimension, std::u16string_view symbol);

}  // namespace quorvel
