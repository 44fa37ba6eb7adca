// The column sums of add, subtract and the single-pair multiply, eight
// columns to a word, against the plain loop that carries pair by pair: long
// runs of 99 (carries rippling across words), sums of exactly 99 and 100,
// every length around the word size, both directions and both carries in.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "numeric/bignum_detail.h"

namespace quorvel {
namespace {

using bignum_detail::addPairColumns;

int plainColumns(const std::vector<uint8_t>& x, const std::vector<uint8_t>& y, bool complementY, int carry,
                 std::vector<uint8_t>& out) {
    for (std::size_t k = 0; k < x.size(); ++k) {
        const int sum = x[k] + (complementY ? 99 - y[k] : y[k]) + carry;
        carry = sum / 100;
        out[k] = static_cast<uint8_t>(sum % 100);
    }
    return carry;
}

// Pairs drawn so that column sums of 99 and 100 and runs of them are common.
std::vector<uint8_t> pairs(std::mt19937_64& rng, std::size_t count, int pattern) {
    std::vector<uint8_t> v(count);
    for (uint8_t& p : v) {
        switch (pattern) {
            case 0: p = static_cast<uint8_t>(rng() % 100); break;
            case 1: p = static_cast<uint8_t>(rng() % 8 == 0 ? rng() % 100 : 99); break;
            case 2: p = static_cast<uint8_t>(rng() % 8 == 0 ? rng() % 100 : 0); break;
            default: p = static_cast<uint8_t>(49 + rng() % 3); break;   // sums near 99 and 100
        }
    }
    return v;
}

TEST(PairColumns, SameAsCarryingPairByPair) {
    std::mt19937_64 rng(99);
    for (std::size_t count = 0; count <= 70; ++count) {
        for (int round = 0; round < 300; ++round) {
            const std::vector<uint8_t> x = pairs(rng, count, static_cast<int>(rng() % 4));
            const std::vector<uint8_t> y = pairs(rng, count, static_cast<int>(rng() % 4));
            const bool complementY = rng() % 2 != 0;
            const int carryIn = static_cast<int>(rng() % 2);
            std::vector<uint8_t> expected(count);
            std::vector<uint8_t> actual(count);
            const int expectedCarry = plainColumns(x, y, complementY, carryIn, expected);
            const int actualCarry = addPairColumns(x.data(), y.data(), complementY, carryIn, actual.data(), count);
            ASSERT_EQ(actual, expected) << "count " << count << " round " << round;
            ASSERT_EQ(actualCarry, expectedCarry) << "count " << count << " round " << round;
        }
    }
}

TEST(PairColumns, CarryRipplesThroughAWholeRunOfNinetyNines) {
    // 99...99 + 0...01: every column receives the carry, the top passes it on.
    const std::size_t count = 40;
    std::vector<uint8_t> x(count, 99);
    std::vector<uint8_t> y(count, 0);
    y[0] = 1;
    std::vector<uint8_t> out(count, 7);
    EXPECT_EQ(addPairColumns(x.data(), y.data(), false, 0, out.data(), count), 1);
    EXPECT_EQ(out, std::vector<uint8_t>(count, 0));
    // The same through the carry in alone, and as x - 0 with the borrow's +1.
    EXPECT_EQ(addPairColumns(x.data(), std::vector<uint8_t>(count, 0).data(), false, 1, out.data(), count), 1);
    EXPECT_EQ(out, std::vector<uint8_t>(count, 0));
    EXPECT_EQ(addPairColumns(x.data(), std::vector<uint8_t>(count, 0).data(), true, 1, out.data(), count), 1);
    EXPECT_EQ(out, x);
}

TEST(PairColumns, SubtractsWithTheNinesComplement) {
    // 1 00 00 ... 00 - 1 = 0 99 99 ... 99: the borrow runs to the top.
    const std::size_t count = 25;
    std::vector<uint8_t> x(count, 0);
    x[count - 1] = 1;
    std::vector<uint8_t> y(count, 0);
    y[0] = 1;
    std::vector<uint8_t> out(count);
    EXPECT_EQ(addPairColumns(x.data(), y.data(), true, 1, out.data(), count), 1);   // no borrow out
    std::vector<uint8_t> expected(count, 99);
    expected[count - 1] = 0;
    EXPECT_EQ(out, expected);
}

TEST(PairColumns, WritesInPlace) {
    std::mt19937_64 rng(8);
    std::vector<uint8_t> x = pairs(rng, 33, 0);
    const std::vector<uint8_t> y = pairs(rng, 33, 1);
    std::vector<uint8_t> expected(x.size());
    const int carry = plainColumns(x, y, false, 0, expected);
    EXPECT_EQ(addPairColumns(x.data(), y.data(), false, 0, x.data(), x.size()), carry);
    EXPECT_EQ(x, expected);
}

}  // namespace
}  // namespace quorvel
