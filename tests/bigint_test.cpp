// Multi-precision integers: construction, trimming, arithmetic, division and
// comparison, then the integer vectors (arithmetic and text in a base) checked
// against exact integers.
#include <gtest/gtest.h>

#include <climits>

#include "numeric/bigint.h"
#include "numeric/numtext.h"
#include "numeric_vectors.h"

namespace quorvel {
namespace {

using testvectors::bigIntFromHex;
using testvectors::bigIntToHex;
using testvectors::VectorCase;

BigInt I(int32_t v) { return bigIntFromI32(v); }

int32_t toInt(const BigInt& n) {
    int32_t out = 0;
    EXPECT_TRUE(BigIntToInt32(n, out)) << bigIntToHex(n);
    return out;
}

TEST(BigInt, DefaultIsZeroWithOneLimbAndSignZero) {
    BigInt n;
    EXPECT_EQ(n.count(), 1);
    EXPECT_EQ(n.limbs[0], 0);
    EXPECT_EQ(n.sign, 0);
    EXPECT_TRUE(n.isZero());
}

TEST(BigInt, FromU32SplitsIntoLimbsAndReservesCapacity) {
    BigInt small = bigIntFromU32(5, 10);
    EXPECT_EQ(small.count(), 1);
    EXPECT_EQ(small.sign, 1);
    EXPECT_GE(small.limbs.capacity(), 10u);
    BigInt two = bigIntFromU32(0x12345678);
    ASSERT_EQ(two.count(), 2);
    EXPECT_EQ(two.limbs[0], 0x5678);
    EXPECT_EQ(two.limbs[1], 0x1234);
    EXPECT_GE(two.limbs.capacity(), 2u);
    BigInt zero = bigIntFromU32(0);
    EXPECT_EQ(zero.count(), 1);
    EXPECT_EQ(zero.sign, 0);
}

TEST(BigInt, FromI32CoversTheWholeRange) {
    EXPECT_EQ(bigIntToHex(I(INT32_MIN)), "-80000000");
    EXPECT_EQ(bigIntToHex(I(INT32_MAX)), "7FFFFFFF");
    EXPECT_EQ(bigIntToHex(I(-1)), "-1");
    EXPECT_EQ(I(0).sign, 0);
}

TEST(BigInt, CopyCapacityEqualsSourceCount) {
    BigInt n = bigIntFromU32(7, 40);
    BigInt copy = n;
    EXPECT_EQ(copy.limbs.capacity(), static_cast<size_t>(copy.count()));
    EXPECT_EQ(copy, n);
}

TEST(BigInt, TrimDropsLeadingZeroLimbsAndZeroGetsSignZero) {
    BigInt n;
    n.limbs = {5, 0, 0};
    n.sign = -1;
    trim(n);
    EXPECT_EQ(n.count(), 1);
    EXPECT_EQ(n.sign, -1);
    n.limbs = {0, 0, 0};
    trim(n);
    EXPECT_EQ(n.count(), 1);
    EXPECT_EQ(n.sign, 0);
}

TEST(BigInt, AddAndSubtractHandleSignsAndCancelToZero) {
    EXPECT_EQ(toInt(add(I(5), I(-7))), -2);
    EXPECT_EQ(toInt(add(I(-5), I(7))), 2);
    EXPECT_EQ(toInt(add(I(-5), I(-7))), -12);
    EXPECT_EQ(toInt(subtract(I(5), I(7))), -2);
    EXPECT_EQ(toInt(subtract(I(-5), I(-7))), 2);
    BigInt zero = add(I(123456789), I(-123456789));
    EXPECT_EQ(zero.sign, 0);
    EXPECT_EQ(zero.count(), 1);
    EXPECT_EQ(toInt(add(I(0), I(-3))), -3);
    EXPECT_EQ(toInt(subtract(I(0), I(-3))), 3);
}

TEST(BigInt, AddCarriesIntoANewLimb) {
    BigInt n = add(bigIntFromU32(0xFFFFFFFF), I(1));
    EXPECT_EQ(n.count(), 3);
    EXPECT_EQ(bigIntToHex(n), "100000000");
    EXPECT_EQ(subtract(n, I(1)).count(), 2);
}

TEST(BigInt, MultiplySignsAndZero) {
    EXPECT_EQ(toInt(multiply(I(-6), I(7))), -42);
    EXPECT_EQ(toInt(multiply(I(-6), I(-7))), 42);
    BigInt zero = multiply(I(0), I(-7));
    EXPECT_EQ(zero.sign, 0);
    EXPECT_EQ(bigIntToHex(multiply(bigIntFromU32(0xFFFFFFFF), bigIntFromU32(0xFFFFFFFF))), "FFFFFFFE00000001");
}

TEST(BigInt, DivisionTruncatesAndRemainderTakesDividendSign) {
    struct Row { int32_t a, b, q, r; };
    for (const Row& row : {Row{7, 2, 3, 1}, Row{-7, 2, -3, -1}, Row{7, -2, -3, 1}, Row{-7, -2, 3, -1},
                           Row{6, 3, 2, 0}, Row{2, 5, 0, 2}, Row{-2, 5, 0, -2}, Row{0, 5, 0, 0}}) {
        auto d = divideWithRemainder(I(row.a), I(row.b));
        ASSERT_TRUE(d);
        EXPECT_EQ(toInt(d->quotient), row.q) << row.a << "/" << row.b;
        EXPECT_EQ(toInt(d->remainder), row.r) << row.a << "%" << row.b;
    }
}

TEST(BigInt, DivisionByZeroGivesNothing) {
    EXPECT_FALSE(divideWithRemainder(I(5), I(0)));
    EXPECT_FALSE(divideWithRemainder(I(0), I(0)));
}

TEST(BigInt, DivideSmallInPlaceReturnsRemainderOfMagnitude) {
    BigInt n = I(-1234567);
    EXPECT_EQ(divideSmallInPlace(n, 1000), 567u);
    EXPECT_EQ(toInt(n), -1234);
    BigInt small = I(-5);
    EXPECT_EQ(divideSmallInPlace(small, 10), 5u);
    EXPECT_EQ(small.sign, 0);   // quotient zero: sign 0
    BigInt big = bigIntFromU32(0xFFFFFFFF);
    EXPECT_EQ(divideSmallInPlace(big, 65535), 0u);
    EXPECT_EQ(bigIntToHex(big), "10001");
    BigInt same = I(9);
    EXPECT_EQ(divideSmallInPlace(same, 0), 0u);
    EXPECT_EQ(toInt(same), 9);
}

TEST(BigInt, MultiplySmallAddInPlaceGrowsAndSetsSign) {
    BigInt n;
    multiplySmallAddInPlace(n, 10, 7);
    EXPECT_EQ(toInt(n), 7);
    EXPECT_EQ(n.sign, 1);
    BigInt neg = I(-3);
    multiplySmallAddInPlace(neg, 65536, 1);   // magnitudes: 3*65536 + 1
    EXPECT_EQ(toInt(neg), -(3 * 65536 + 1));
    BigInt zero = I(-3);
    multiplySmallAddInPlace(zero, 0, 0);
    EXPECT_EQ(zero.sign, 0);
}

TEST(BigInt, CompareOrdersBySignThenMagnitude) {
    EXPECT_EQ(compare(I(-5), I(3)), -1);
    EXPECT_EQ(compare(I(3), I(-5)), 1);
    EXPECT_EQ(compare(I(-5), I(-3)), -1);
    EXPECT_EQ(compare(I(0), I(-3)), 1);
    EXPECT_EQ(compare(I(0), I(0)), 0);
    EXPECT_EQ(compare(bigIntFromU32(0x10000), I(65535)), 1);
    EXPECT_EQ(compareMagnitude(I(-5), I(3)), 1);
    EXPECT_EQ(compareMagnitude(I(-5), I(5)), 0);
}

TEST(BigInt, AddSmallSubtractSmallNegatedAbsolute) {
    EXPECT_EQ(toInt(addSmall(I(-1), 1)), 0);
    EXPECT_EQ(addSmall(I(-1), 1).sign, 0);
    EXPECT_EQ(toInt(subtractSmall(I(0), 1)), -1);
    EXPECT_EQ(bigIntToHex(subtractSmall(I(0), INT32_MIN)), "80000000");
    EXPECT_EQ(toInt(negated(I(4))), -4);
    EXPECT_EQ(negated(I(0)).sign, 0);
    EXPECT_EQ(toInt(absolute(I(-4))), 4);
}

TEST(BigInt, ToInt32FitsOnlyBelowThreeLimbsAndUpperLimbAtMost32767) {
    int32_t out = 99;
    EXPECT_TRUE(BigIntToInt32(I(INT32_MAX), out));
    EXPECT_EQ(out, INT32_MAX);
    EXPECT_TRUE(BigIntToInt32(I(-INT32_MAX), out));
    EXPECT_EQ(out, -INT32_MAX);
    EXPECT_FALSE(BigIntToInt32(I(INT32_MIN), out));   // upper limb 32768
    EXPECT_EQ(out, 0);
    EXPECT_FALSE(BigIntToInt32(bigIntFromU32(0x80000000u), out));
    EXPECT_EQ(out, 0);
    EXPECT_FALSE(BigIntToInt32(add(bigIntFromU32(0xFFFFFFFF), I(1)), out));
    EXPECT_TRUE(BigIntToInt32(I(-65536), out));
    EXPECT_EQ(out, -65536);
    EXPECT_TRUE(BigIntToInt32(I(0), out));
    EXPECT_EQ(out, 0);
}

TEST(BigInt, LargeDivisionRecoversTheFactors) {
    // Numbers of about 12000 and 9500 decimal digits: (a*b + r) / b gives a and r.
    BigInt a = I(1), b = I(1);
    for (int i = 0; i < 2500; ++i) {
        multiplySmallAddInPlace(a, 65521, static_cast<uint32_t>(i));
        if (i < 2000) multiplySmallAddInPlace(b, 40503, static_cast<uint32_t>(7 * i));
    }
    BigInt r = subtractSmall(b, 12345);
    BigInt product = add(multiply(a, b), r);
    auto d = divideWithRemainder(product, b);
    ASSERT_TRUE(d);
    EXPECT_EQ(d->quotient, a);
    EXPECT_EQ(d->remainder, r);
    auto negative = divideWithRemainder(negated(product), b);
    ASSERT_TRUE(negative);
    EXPECT_EQ(negative->quotient, negated(a));
    EXPECT_EQ(negative->remainder, negated(r));
}

// --- Vectors from tests/tools/gen_bigint_vectors.py --------------------------

class BigIntVectors : public ::testing::TestWithParam<VectorCase> {};

TEST_P(BigIntVectors, MatchesExactIntegers) {
    const VectorCase& c = GetParam();
    if (c.op == "add" || c.op == "sub" || c.op == "mul") {
        ASSERT_EQ(c.args.size(), 2u);
        ASSERT_EQ(c.expected.size(), 1u);
        const BigInt a = bigIntFromHex(c.args[0]), b = bigIntFromHex(c.args[1]);
        const BigInt r = c.op == "add" ? add(a, b) : c.op == "sub" ? subtract(a, b) : multiply(a, b);
        EXPECT_EQ(bigIntToHex(r), c.expected[0]);
        EXPECT_EQ(r, bigIntFromHex(c.expected[0]));   // also trimmed and signed the same way
    } else if (c.op == "divmod") {
        ASSERT_EQ(c.expected.size(), 2u);
        auto d = divideWithRemainder(bigIntFromHex(c.args[0]), bigIntFromHex(c.args[1]));
        ASSERT_TRUE(d);
        EXPECT_EQ(bigIntToHex(d->quotient), c.expected[0]);
        EXPECT_EQ(bigIntToHex(d->remainder), c.expected[1]);
        EXPECT_EQ(d->quotient, bigIntFromHex(c.expected[0]));
        EXPECT_EQ(d->remainder, bigIntFromHex(c.expected[1]));
    } else if (c.op == "parse") {
        const BigInt n = ParseInteger(fromUtf8(c.args[1]), static_cast<int16_t>(std::stoi(c.args[0])));
        EXPECT_EQ(bigIntToHex(n), c.expected[0]);
        EXPECT_EQ(n, bigIntFromHex(c.expected[0]));
    } else if (c.op == "format") {
        const auto base = static_cast<int16_t>(std::stoi(c.args[0]));
        const auto flags = static_cast<int32_t>(std::stoi(c.args[1], nullptr, 16));
        EXPECT_EQ(toUtf8(FormatInteger(bigIntFromHex(c.args[2]), base, flags)), c.expected[0]);
    } else {
        FAIL() << "unknown operation " << c.op;
    }
}

const std::vector<VectorCase> integerCases =
    testvectors::loadVectorCases("bigint_vectors.txt", {"add", "sub", "mul", "divmod", "parse", "format"});

INSTANTIATE_TEST_SUITE_P(File, BigIntVectors, ::testing::ValuesIn(integerCases),
                         [](const auto& info) { return testvectors::vectorCaseName(info.param); });

TEST(BigIntVectorFile, HoldsEveryOperation) {
    std::set<std::string> ops;
    for (const auto& c : integerCases) ops.insert(c.op);
    EXPECT_EQ(ops, (std::set<std::string>{"add", "sub", "mul", "divmod", "parse", "format"}));
    EXPECT_GT(integerCases.size(), 3000u);
}

}  // namespace
}  // namespace quorvel
