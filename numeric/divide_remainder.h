// The running remainder of the long division on limbs of sixteen digits,
// with its borrows left for later (internal to numeric/bignum_divide.cpp).
#pragma once

#include <cstdint>
#include <vector>

namespace quorvel::bignum_detail {

// A signed remainder S = sum of l_i x 10^(16 i). A step subtracts a multiple
// of the divisor limb by limb, each limb on its own (no borrow waits for the
// one below, so the loop runs on vectors), and the limbs drift out of
// 0..10^16, each by less than 10^17 a step. What a step needs, the sign of S
// and the position and three leading digits of |S|, is read from the top
// two limbs as long as the drift below them cannot change it; otherwise the
// carry the limbs below pass up is worked out exactly. Every so many steps
// the limbs are carried in one pass, which keeps them far inside 64 bits.
class LazyRemainder {
public:
    // The magnitude of the dividend, limbs in 0..10^16.
    explicit LazyRemainder(std::vector<int64_t> limbs);

    struct Lead {
        int sign = 0;            // 0 when S is zero
        int64_t position = 0;    // decimal position of |S|'s leading digit
        int leading = 0;         // the digits at position, position - 1, position - 2 (0 below the bottom)
    };
    Lead read();

    // S -= sign x (m[idx - offset] x 10^(16 idx) for idx = low..high, and
    // carryIn more at limb 0), every m and carryIn below 9 x 10^16.
    void subtract(const int64_t* m, int32_t low, int32_t high, int64_t offset, int sign, int64_t carryIn);

private:
    // The carry into limb i from the limbs below it, with their residue
    // left in 0..10^16 (direction 1), or the same on -S (direction -1).
    int64_t carryInto(int32_t i, int direction) const;

    // Carries every limb into 0..10^16 with S's sign (-10^16..0 for a
    // negative S); S stays the same.
    void carryAll();

    std::vector<int64_t> limbs_;
    int32_t top_;             // no nonzero limb above
    int64_t drift_ = 0;       // steps since the limbs were last carried
    int32_t zeroBelow_ = 0;   // every limb below this one is zero
    struct Split {
        int64_t carry;
        int64_t residue;
    };
    mutable std::vector<Split> walked_;   // carryInto's limbs on the way down
};

}  // namespace quorvel::bignum_detail
