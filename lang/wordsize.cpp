// Reduction of integers to the unsigned word of the current word size.
#include "lang/wordsize.h"

#include <vector>

#include "lang/appstate.h"
#include "lang/item.h"

namespace quorvel {

BigInt ReduceToWordSize(const BigInt& n, int32_t bits) {
    if (bits <= 0) return n;
    // A non-negative value that already fits the word is its own reduction.
    if (n.sign >= 0 && static_cast<int64_t>(n.count()) * 16 <= bits) return n;
    const int32_t limbCount = bits / 16 + (bits % 16 != 0 ? 1 : 0);
    const uint16_t topMask =
        bits % 16 != 0 ? static_cast<uint16_t>((1u << (bits % 16)) - 1) : uint16_t{0xFFFF};

    // The magnitude's low limbs, missing limbs reading as zero.
    std::vector<uint16_t> word(static_cast<size_t>(limbCount), 0);
    for (int32_t i = 0; i < limbCount && i < n.count(); ++i) word[i] = n.limbs[i];

    if (n.sign < 0) {
        // Two's complement: invert every limb, then add one with carry.
        for (uint16_t& limb : word) limb = static_cast<uint16_t>(~limb);
        for (uint16_t& limb : word) {
            limb = static_cast<uint16_t>(limb + 1);
            if (limb != 0) break;
        }
    }
    word.back() &= topMask;

    while (word.size() > 1 && word.back() == 0) word.pop_back();
    BigInt result;
    result.limbs = std::move(word);
    result.sign = (result.limbs.size() == 1 && result.limbs[0] == 0) ? 0 : 1;
    return result;
}

void ReduceIntegerResult(const AppState& app, Item& item) {
    if (item.type != ItemType::Integer || app.wsize <= 0) return;
    item.value = ReduceToWordSize(item.asInteger(), app.wsize);
}

}  // namespace quorvel
