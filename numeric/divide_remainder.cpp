// The long division's remainder with deferred borrows: see divide_remainder.h.
//
// Bounds. Carried limbs lie in 0..10^16 with the sign of S (all of them <= 0
// for a negative S). Every step moves each limb by less than 10^17, so
// after k steps every limb below the top two is under (10 k + 1) x 10^16 in
// magnitude and their sum under 10 k + 2 units of the limb below the top,
// u = 10^(16 (top - 1)). The top two limbs give S / u to within those
// units; when both ends of that range have the same sign, the same number
// of digits and the same three leading digits, so has S.
#include "numeric/divide_remainder.h"
#include "numeric/wide_integer.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <utility>

namespace quorvel::bignum_detail {

namespace {

constexpr int64_t Base = 10000000000000000;   // 10^16


// Steps between carries: limbs stay far inside 64 bits (the top one,
// folded from two, below 10^18 + 10 x MaxDrift x 10^16).
constexpr int64_t MaxDrift = 64;

// What k steps can have moved the limbs below the top two, in units of the
// lower of the two.
int64_t slackAfter(int64_t steps) { return 10 * steps + 2; }

// Decimal digits of 0 < x < 10^38, from its bit length.
int digitCount(Wide x) {
    const auto high = static_cast<uint64_t>(static_cast<WideUnsigned>(x) >> 64);
    const int bits = high != 0 ? 128 - std::countl_zero(high) : 64 - std::countl_zero(static_cast<uint64_t>(x));
    const int below = (bits * 1233) >> 12;   // floor(log10(2^bits)), one short at most
    return below + (x >= WidePow10[static_cast<std::size_t>(below)] ? 1 : 0);
}

constexpr std::array<double, 40> DoublePow10 = [] {
    std::array<double, 40> table{};
    double p = 1;
    for (double& entry : table) {
        entry = p;
        p *= 10;
    }
    return table;
}();

// 10^-k, k = 0..39 (each within an ulp or two).
const std::array<double, 40> InversePow10 = [] {
    std::array<double, 40> table{};
    for (std::size_t k = 0; k < table.size(); ++k) table[k] = 1 / DoublePow10[k];
    return table;
}();

constexpr std::array<int64_t, 19> Pow10 = [] {
    std::array<int64_t, 19> table{};
    table[0] = 1;
    for (std::size_t k = 1; k < table.size(); ++k) table[k] = table[k - 1] * 10;
    return table;
}();

// Decimal digits of 1 <= x < 2^63.
int digitCount(int64_t x) {
    const int bits = 64 - std::countl_zero(static_cast<uint64_t>(x));
    const int below = (bits * 1233) >> 12;   // floor(log10(2^bits)), one short at most
    return below + (below < 19 && x >= Pow10[static_cast<std::size_t>(below)] ? 1 : 0);
}

// floor(x / 10^k) for 0 <= x < 10^38 whose quotient is below 1000: a double
// estimate corrected exactly (a 128-bit division is a library call).
int64_t topDigits(Wide x, int k) {
    const Wide p = WidePow10[static_cast<std::size_t>(k)];
    const auto approximate = [](Wide w) {
        return static_cast<double>(static_cast<uint64_t>(w >> 64)) * 18446744073709551616.0 + static_cast<double>(static_cast<uint64_t>(w));
    };
    auto q = static_cast<int64_t>(approximate(x) / approximate(p));
    while (q > 0 && q * p > x) --q;
    while ((q + 1) * p <= x) ++q;
    return q;
}

int64_t floorDiv(int64_t v, int64_t d) { return v / d - ((v % d != 0) && (v < 0) ? 1 : 0); }

}  // namespace

LazyRemainder::LazyRemainder(std::vector<int64_t> limbs)
    : limbs_(std::move(limbs)), top_(static_cast<int32_t>(limbs_.size()) - 1) {
    while (zeroBelow_ < top_ && limbs_[static_cast<std::size_t>(zeroBelow_)] == 0) ++zeroBelow_;
}

void LazyRemainder::subtract(const int64_t* m, int32_t low, int32_t high, int64_t offset, int sign, int64_t carryIn) {
    int64_t* l = limbs_.data();
    const int64_t* from = m - offset;
    if (sign > 0) {
        for (int32_t idx = low; idx <= high; ++idx) l[idx] -= from[idx];
        l[0] -= carryIn;
    } else {
        for (int32_t idx = low; idx <= high; ++idx) l[idx] += from[idx];
        l[0] += carryIn;
    }
    if (carryIn != 0) low = 0;
    if (high > top_) top_ = high;
    if (low < zeroBelow_) zeroBelow_ = low;
    ++drift_;
}

void LazyRemainder::carryAll() {
    const auto count = static_cast<int32_t>(limbs_.size());
    // Limbs from the lowest nonzero one up to top_ into 0..10^16 (-10^16..0
    // when direction is -1); the carry left over goes to the zero limb above
    // (or, at the end, into the last limb). Returns the highest limb written.
    const auto carryUp = [&](int direction) {
        int64_t carry = 0;
        for (int32_t i = zeroBelow_; i + 1 < count; ++i) {
            if (i > top_) {
                limbs_[static_cast<std::size_t>(i)] = carry * direction;
                return i;
            }
            const int64_t v = limbs_[static_cast<std::size_t>(i)] * direction + carry;
            carry = floorDiv(v, Base);
            limbs_[static_cast<std::size_t>(i)] = (v - carry * Base) * direction;
        }
        limbs_[static_cast<std::size_t>(count) - 1] += carry * direction;
        return count - 1;
    };
    // The top limb then has S's sign; for a negative S its magnitude is
    // carried again and the sign given back to every limb.
    top_ = std::max(top_, carryUp(1));
    while (top_ >= 0 && limbs_[static_cast<std::size_t>(top_)] == 0) --top_;
    if (top_ >= 0 && limbs_[static_cast<std::size_t>(top_)] < 0) top_ = std::max(top_, carryUp(-1));
    drift_ = 0;
}

int64_t LazyRemainder::carryInto(int32_t i, int direction) const {
    // The carry into a limb is within -bound..bound - 1, so a limb whose
    // residue lies at least `bound` inside 0..10^16 passes on its own carry
    // whatever comes from below: the walk down starts there, or at the
    // bottom. On the way down each limb is split into carry and residue
    // once; on the way up each then takes its carry with an addition and a
    // comparison (a remainder such as 1000...0001 walks far).
    const int64_t bound = slackAfter(drift_);
    walked_.clear();
    int64_t carry = 0;
    for (int32_t j = i - 1; j >= zeroBelow_; --j) {
        const int64_t x = limbs_[static_cast<std::size_t>(j)] * direction;
        const int64_t c = floorDiv(x, Base);
        const int64_t residue = x - c * Base;
        if (residue >= bound && residue < Base - bound) {
            carry = c;
            break;
        }
        walked_.push_back({c, residue});
    }
    for (auto it = walked_.rbegin(); it != walked_.rend(); ++it) {
        const int64_t v = it->residue + carry;   // the carry is far smaller than 10^16
        carry = it->carry + (v >= Base ? 1 : 0) - (v < 0 ? 1 : 0);
    }
    return carry;
}

LazyRemainder::Lead LazyRemainder::read() {
    if (drift_ >= MaxDrift) carryAll();   // keeps every limb far inside 64 bits
    for (;;) {
        while (top_ >= 0 && limbs_[static_cast<std::size_t>(top_)] == 0) --top_;
        if (top_ < 0) return {};
        const int64_t upper = limbs_[static_cast<std::size_t>(top_)];
        const int64_t lower = top_ > 0 ? limbs_[static_cast<std::size_t>(top_) - 1] : 0;
        const int64_t unitPosition = top_ > 0 ? 16 * static_cast<int64_t>(top_ - 1) : 0;
        // The top two limbs in a double (within a few parts in 10^16).
        const double v = static_cast<double>(upper) * static_cast<double>(Base) + static_cast<double>(lower);
        const double magnitude = v < 0 ? -v : v;
        if (top_ >= 2 && magnitude < 1e18) {
            // Fold the top limb into the one below (the value fits 64 bits):
            // the leading digits then sit in the top two limbs again.
            limbs_[static_cast<std::size_t>(top_) - 1] = static_cast<int64_t>(static_cast<Wide>(upper) * Base + lower);
            limbs_[static_cast<std::size_t>(top_)] = 0;
            --top_;
            continue;
        }
        if (top_ >= 2) {
            // Nearly always: the digits read from the double when neither its
            // rounding nor the limbs below can move them.
            // The digits of V: those of the top limb and sixteen more (one
            // fewer or more where the limb below carries across).
            int digits = digitCount(upper < 0 ? -upper : upper) + 16;
            // |S| / 10^(unitPosition + digits - 3) lies within `spread` of y.
            double y = magnitude * InversePow10[static_cast<std::size_t>(digits - 3)];
            if (y >= 1000) {
                ++digits;
                y = magnitude * InversePow10[static_cast<std::size_t>(digits - 3)];
            } else if (y < 100) {
                --digits;
                y = magnitude * InversePow10[static_cast<std::size_t>(digits - 3)];
            }
            const double spread = static_cast<double>(slackAfter(drift_)) * InversePow10[static_cast<std::size_t>(digits - 3)] + y * 1e-13;
            // Truncation is the floor here: both ends are positive.
            const auto least = static_cast<int64_t>(y - spread);
            if (least >= 100 && least == static_cast<int64_t>(y + spread) && y + spread < 1000) {
                return {v > 0 ? 1 : -1, unitPosition + digits - 1, static_cast<int>(least)};
            }
        }
        const Wide exactTop = top_ > 0 ? static_cast<Wide>(upper) * Base + lower : upper;
        // Exact, for a value at a digit boundary such as 75000...: the top two
        // limbs with the carry from all below, which leaves 0..u below them
        // (u the unit of the lower one), on S or, when S is negative, on -S.
        Wide exact = exactTop;
        int sign = 1;
        if (top_ >= 2) {
            exact += carryInto(top_ - 1, 1);   // the top two are near 10^18 or more: the sign is that of exactTop
            if (exact < 0) {
                sign = -1;
                exact = -exactTop + carryInto(top_ - 1, -1);
            }
        } else if (exact < 0) {
            sign = -1;
            exact = -exact;
        }
        if (exact == 0) return {};   // only with top_ <= 1: nothing below
        const int digits = digitCount(exact);
        const int leading = digits >= 3 ? static_cast<int>(topDigits(exact, digits - 3))
                                        : static_cast<int>(exact * static_cast<Wide>(digits == 1 ? 100 : 10));
        return {sign, unitPosition + digits - 1, leading};
    }
}

}  // namespace quorvel::bignum_detail
