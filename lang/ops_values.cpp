// Conversions, word-size reduction and unit-vector rules shared by the
// numeric handlers.
#include "lang/ops_values.h"

#include <algorithm>

namespace quorvel {

bool IsIntegerOrReal(const Item& item) {
    return item.type == ItemType::Integer || item.type == ItemType::Real;
}

BigNum RealOf(const AppState& app, const Item& item) {
    if (item.type == ItemType::Real) return item.asReal();
    // fromInteger carries five extra bytes; the result is cut back to the
    // working length like every new real.
    return resized(fromInteger(item.asInteger(), app.workingLength), app.workingLength);
}

BigInt ReduceToWordSize(const BigInt& n, int32_t bits) {
    const int32_t limbCount = bits / 16 + (bits % 16 != 0 ? 1 : 0);
    const uint16_t topMask = bits % 16 != 0 ? static_cast<uint16_t>((1u << (bits % 16)) - 1) : uint16_t{0xFFFF};
    // A non-negative value that already fits is its own word.
    if (n.sign >= 0 && (n.count() < limbCount || (n.count() == limbCount && (n.limbs.back() & ~topMask) == 0)))
        return n;

    BigInt word;
    word.limbs.assign(static_cast<size_t>(limbCount), 0);
    std::copy_n(n.limbs.begin(), std::min(limbCount, n.count()), word.limbs.begin());
    word.limbs.back() &= topMask;
    if (n.sign < 0) {
        // Two's complement inside the word: invert, add one, mask again.
        for (uint16_t& limb : word.limbs) limb = static_cast<uint16_t>(~limb);
        for (uint16_t& limb : word.limbs)
            if (++limb != 0) break;
        word.limbs.back() &= topMask;
    }
    word.sign = 1;
    trim(word);
    return word;
}

Item IntegerResult(const AppState& app, BigInt value, const UnitVector& units) {
    // A negative word size is stored by `wsize` but makes no word.
    if (app.wsize > 0) value = ReduceToWordSize(value, app.wsize);
    return Item::integer(std::move(value), units);
}

std::optional<UnitVector> AdditiveUnits(const UnitVector& a, const UnitVector& b) {
    for (int d = Length; d < Angle; ++d)
        if (a[d] != b[d]) return std::nullopt;
    UnitVector result = a;
    if (a[Angle] != b[Angle]) result[Angle] = 0;   // an angle plus a plain number is a plain number
    return result;
}

UnitVector ProductUnits(const UnitVector& a, const UnitVector& b) {
    UnitVector result{};
    for (int d = 0; d < DimensionCount; ++d) result[d] = a[d] + b[d];
    return result;
}

UnitVector QuotientUnits(const UnitVector& a, const UnitVector& b) {
    UnitVector result{};
    for (int d = 0; d < DimensionCount; ++d) result[d] = a[d] - b[d];
    return result;
}

UnitVector ScaledUnits(const UnitVector& u, int32_t factor) {
    UnitVector result{};
    for (int d = 0; d < DimensionCount; ++d) result[d] = u[d] * factor;
    return result;
}

}  // namespace quorvel
