// The physical dimension of a value: eight exponents of the SI base
// dimensions plus the angle. Values are held in SI base units.
#pragma once

#include <array>
#include <cstdint>

namespace quorvel {

enum Dimension : int { Length = 0, Mass, Time, Amount, Temperature, Current, LuminousIntensity, Angle };
inline constexpr int DimensionCount = 8;

using UnitVector = std::array<int32_t, DimensionCount>;

inline constexpr UnitVector NoUnits{};

inline bool hasUnits(const UnitVector& u) {
    for (int32_t e : u)
        if (e != 0) return true;
    return false;
}

}  // namespace quorvel
