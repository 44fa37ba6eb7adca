// 128-bit integers (a gcc and clang extension) for the divisions' exact
// intermediate values, and the powers of ten they need (internal).
#pragma once

#include <array>
#include <cstddef>

namespace quorvel::bignum_detail {

__extension__ using Wide = __int128;
__extension__ using WideUnsigned = unsigned __int128;

// 10^k, k = 0..38 (10^38 is the largest power of ten below 2^127).
inline constexpr std::array<Wide, 39> WidePow10 = [] {
    std::array<Wide, 39> table{};
    table[0] = 1;
    for (std::size_t k = 1; k < table.size(); ++k) table[k] = table[k - 1] * 10;
    return table;
}();

}  // namespace quorvel::bignum_detail
