// The step table of the long division, built at compile time.
#include "numeric/division_step_table.h"

#include <cstddef>

namespace quorvel::bignum_detail {

namespace {

constexpr std::array<StepRow, 90> StepTable = [] {
    std::array<StepRow, 90> table{};
    for (int d = 10; d < 100; ++d) {
        for (int r = 0; r < 1000; ++r) {
            const int fromTwo = estimateDigit(r / 10, d);
            const bool oneLower = fromTwo < 1;
            int q = oneLower ? estimateDigit(r, d) : fromTwo;
            q = q < 1 ? 1 : (q > 9 ? 9 : q);
            table[static_cast<std::size_t>(d - 10)][static_cast<std::size_t>(r)] = static_cast<uint8_t>(q | (oneLower ? OneLowerFlag : 0));
        }
    }
    return table;
}();

}  // namespace

const StepRow& stepRow(int d) { return StepTable[static_cast<std::size_t>(d - 10)]; }

}  // namespace quorvel::bignum_detail
