// Binary words: conversions, the logical operations, rotation and shift with
// their limb-count rules, and the oracle vectors of
// tests/tools/gen_binword_vectors.py.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "numeric/bigint.h"
#include "numeric/binword.h"
#include "numeric/numtext.h"
#include "tests/numeric_vectors.h"

namespace quorvel {
namespace {

using testvectors::bigIntFromHex;
using testvectors::bigIntToHex;

BigInt big(int32_t n) { return bigIntFromI32(n); }
BigInt bigText(std::u16string_view text) {
    if (!text.empty() && text[0] == u'-') return negated(ParseInteger(text.substr(1), 10));
    return ParseInteger(text, 10);
}

// The value of a word made from `n` after `apply`.
template <class Apply>
BigInt after(int32_t bits, const BigInt& n, Apply apply) {
    BinWord word = wordFromInteger(n, bits);
    apply(word);
    return integerFromWord(word);
}

BigInt rotated(int32_t bits, const BigInt& n, int32_t count) {
    return after(bits, n, [count](BinWord& w) { rotateWord(w, count); });
}
BigInt shifted(int32_t bits, const BigInt& n, int32_t count) {
    return after(bits, n, [count](BinWord& w) { shiftWord(w, count); });
}

// --- The edge cases of binary words -------------------------------------------

TEST(BinWordEdge, WordSize8NotOfZeroIs255) {
    EXPECT_EQ(after(8, big(0), invertWord), big(255));
}

TEST(BinWordEdge, WordSize8MinusOneConvertsTo255) {
    EXPECT_EQ(integerFromWord(wordFromInteger(big(-1), 8)), big(255));
}

TEST(BinWordEdge, WordSize17HasTwoLimbsAndTheTopLimbKeepsOnlyItsLowestBit) {
    const BinWord word = wordFromInteger(big(-1), 17);
    EXPECT_EQ(word.limbCount(), 2);
    EXPECT_EQ(word.limbs[0], 0xFFFF);
    EXPECT_EQ(word.limbs[1], 0x0001);
    EXPECT_EQ(TopLimbMask(17), 0x0001);
    EXPECT_EQ(integerFromWord(wordFromInteger(bigText(u"262143"), 17)), big(131071));   // 2^18 - 1
}

TEST(BinWordEdge, WordSize32RotateOneByOneGivesTwo) { EXPECT_EQ(rotated(32, big(1), 1), big(2)); }

TEST(BinWordEdge, WordSize32RotateOneByTwoGivesOneAsTheCountIsTakenModuloTwoLimbs) {
    EXPECT_EQ(rotated(32, big(1), 2), big(1));
}

TEST(BinWordEdge, WordSize32RotateOneByMinusOneGivesTheTopBit) {
    EXPECT_EQ(rotated(32, big(1), -1), bigText(u"2147483648"));
}

TEST(BinWordEdge, WordSize64ShiftOneByThreeGivesEight) { EXPECT_EQ(shifted(64, big(1), 3), big(8)); }

TEST(BinWordEdge, WordSize64ShiftOneByFourLeavesOneAsFourIsNotBelowFourLimbs) {
    EXPECT_EQ(shifted(64, big(1), 4), big(1));
    for (int32_t count = 4; count <= 15; ++count) EXPECT_EQ(shifted(64, big(1), count), big(1)) << count;
}

TEST(BinWordEdge, WordSize64ShiftOneBySixteenGives65536) { EXPECT_EQ(shifted(64, big(1), 16), big(65536)); }

TEST(BinWordEdge, WordSize64ShiftOneBySeventeenMovesWholeLimbsOnly) {
    EXPECT_EQ(shifted(64, big(1), 17), big(65536));
}

// The "WSize 0" edge case is a handler matter: see ops_bitwise_test.cpp.

// --- Construction and conversion -------------------------------------------------

TEST(BinWord, MakeWordIsZeroWithTheLimbCountOfItsSize) {
    EXPECT_EQ(makeWord(1).limbCount(), 1);
    EXPECT_EQ(makeWord(16).limbCount(), 1);
    EXPECT_EQ(makeWord(17).limbCount(), 2);
    EXPECT_EQ(makeWord(256).limbCount(), 16);
    const BinWord word = makeWord(40);
    EXPECT_EQ(word.bits, 40);
    for (uint16_t limb : word.limbs) EXPECT_EQ(limb, 0);
}

TEST(BinWord, TopLimbMaskIsAllOnesForMultiplesOfSixteen) {
    EXPECT_EQ(TopLimbMask(16), 0xFFFF);
    EXPECT_EQ(TopLimbMask(64), 0xFFFF);
    EXPECT_EQ(TopLimbMask(1), 0x0001);
    EXPECT_EQ(TopLimbMask(15), 0x7FFF);
}

TEST(BinWord, ZeroWordReadsBackAsZeroWithSignZero) {
    const BigInt n = integerFromWord(makeWord(48));
    EXPECT_EQ(n.sign, 0);
    EXPECT_EQ(n.count(), 1);
    EXPECT_EQ(integerFromWord(wordFromInteger(big(256), 8)).sign, 0);
}

TEST(BinWord, ReadBackDropsLeadingZeroLimbs) {
    const BigInt n = integerFromWord(wordFromInteger(big(5), 128));
    EXPECT_EQ(n.count(), 1);
    EXPECT_EQ(n.sign, 1);
    EXPECT_EQ(n, big(5));
}

TEST(BinWord, MissingLimbsOfASmallIntegerAreZero) {
    const BinWord word = wordFromInteger(big(7), 64);
    EXPECT_EQ(word.limbs, (std::vector<uint16_t>{7, 0, 0, 0}));
}

TEST(BinWord, TwosComplementCarriesAcrossLimbs) {
    // -65536: magnitude limbs 0000 0001; inverted FFFF FFFE; plus one carries
    // out of the low limb.
    const BinWord word = wordFromInteger(bigText(u"-65536"), 32);
    EXPECT_EQ(word.limbs, (std::vector<uint16_t>{0x0000, 0xFFFF}));
    EXPECT_EQ(integerFromWord(wordFromInteger(bigText(u"-18446744073709551616"), 64)), big(0));   // -2^64
}

TEST(BinWord, ReduceToWordSizeMatchesTheWordRoundTrip) {
    for (int32_t bits : {1, 7, 8, 16, 17, 31, 32, 33, 64, 100}) {
        for (const BigInt& n : {big(0), big(1), big(-1), big(255), big(-256), bigText(u"123456789012345678901234567890"),
                                bigText(u"-98765432109876543210")}) {
            EXPECT_EQ(ReduceToWordSize(n, bits), integerFromWord(wordFromInteger(n, bits))) << bits;
        }
    }
}

TEST(BinWord, ReduceToWordSizeKeepsValuesThatFit) {
    EXPECT_EQ(ReduceToWordSize(big(200), 8), big(200));
    EXPECT_EQ(ReduceToWordSize(big(65535), 16), big(65535));
    EXPECT_EQ(ReduceToWordSize(big(65536), 16), big(0));
    EXPECT_EQ(ReduceToWordSize(big(-2), 32), bigText(u"4294967294"));
}

// --- Logical operations -------------------------------------------------------------

TEST(BinWord, LogicalOperationsOnSmallWords) {
    const BinWord a = wordFromInteger(big(0b1100), 4);
    const BinWord b = wordFromInteger(big(0b1010), 4);
    EXPECT_EQ(integerFromWord(andWords(a, b)), big(0b1000));
    EXPECT_EQ(integerFromWord(orWords(a, b)), big(0b1110));
    EXPECT_EQ(integerFromWord(xorWords(a, b)), big(0b0110));
    EXPECT_EQ(integerFromWord(nandWords(a, b)), big(0b0111));
    EXPECT_EQ(integerFromWord(norWords(a, b)), big(0b0001));
    EXPECT_EQ(integerFromWord(xnorWords(a, b)), big(0b1001));
}

TEST(BinWord, InvertedFormsStayInsideTheWordSize) {
    const BinWord zero = makeWord(17);
    EXPECT_EQ(integerFromWord(norWords(zero, zero)), big(131071));
    EXPECT_EQ(integerFromWord(nandWords(zero, zero)), big(131071));
    EXPECT_EQ(integerFromWord(xnorWords(zero, zero)), big(131071));
}

TEST(BinWord, InvertTwiceGivesTheWordBack) {
    BinWord word = wordFromInteger(bigText(u"123456789"), 33);
    const BinWord before = word;
    invertWord(word);
    EXPECT_NE(word, before);
    invertWord(word);
    EXPECT_EQ(word, before);
}

// --- Rotation and shift rules -------------------------------------------------------

TEST(BinWordRotate, CountIsReducedModuloTheLimbCountNotTheBitCount) {
    EXPECT_EQ(rotated(32, big(1), 3), big(2));    // 3 mod 2 limbs = 1
    EXPECT_EQ(rotated(32, big(1), 32), big(1));   // 32 mod 2 = 0
    EXPECT_EQ(rotated(64, big(1), 5), big(2));    // 5 mod 4 = 1
    EXPECT_EQ(rotated(16, big(1), 1), big(1));    // one limb: every count is 0
}

TEST(BinWordRotate, ZeroCountLeavesTheWord) {
    EXPECT_EQ(rotated(32, big(12345), 0), big(12345));
}

TEST(BinWordRotate, BitsPassingTheUnusedTopOfTheLastLimbAreLost) {
    // 17 bits: two limbs, 32 bits of width. Bit 16 rotated up by 1 lands on
    // bit 17, above the word: it is masked away.
    EXPECT_EQ(rotated(17, big(65536), 1), big(0));
    // Rotated down by 1, bit 0 goes to bit 31 of the width and is lost too.
    EXPECT_EQ(rotated(17, big(1), -1), big(0));
    // Within the word bits move normally.
    EXPECT_EQ(rotated(17, big(0x8000), 1), big(65536));
}

TEST(BinWordRotate, WholeLimbsMoveWithWrapAroundInLargeWords) {
    // 320 bits = 20 limbs; a count of 17 moves one whole limb and one bit.
    const BigInt top = bigIntFromHex("8" + std::string(79, '0'));   // 2^319
    EXPECT_EQ(rotated(320, top, 17), big(1 << 16));   // bit 319 -> 336 mod 320 = 16
    EXPECT_EQ(rotated(320, big(1 << 16), -17), top);
    EXPECT_EQ(rotated(320, big(3), 16), big(3 << 16));
}

TEST(BinWordShift, NegativeCountIsALogicalShiftDown) {
    EXPECT_EQ(shifted(32, big(0x8000), -1), big(0x4000));
    EXPECT_EQ(shifted(64, big(65536), -16), big(1));
    EXPECT_EQ(shifted(64, big(8), -3), big(1));
    EXPECT_EQ(shifted(64, big(8), -4), big(8));   // |count| 4 is not below 4 limbs
}

TEST(BinWordShift, BitsLeavingTheWordAreLost) {
    EXPECT_EQ(shifted(17, big(0x10000), 1), big(0));   // 2 limbs: count 1 shifts bit 16 out
    EXPECT_EQ(shifted(48, bigText(u"140737488355328"), 1), big(0));   // 2^47 << 1
}

TEST(BinWordShift, OneLimbWordsNeverShiftByBits) {
    // With one limb no count is below the limb count except 0.
    EXPECT_EQ(shifted(8, big(0x80), 1), big(0x80));
    EXPECT_EQ(shifted(16, big(1), 15), big(1));
    EXPECT_EQ(shifted(16, big(1), 16), big(0));
}

TEST(BinWordShift, CountsOfAWholeWordOrMoreGiveZero) {
    EXPECT_EQ(shifted(64, bigText(u"18446744073709551615"), 64), big(0));
    EXPECT_EQ(shifted(64, bigText(u"18446744073709551615"), -1000), big(0));
    EXPECT_EQ(shifted(64, big(1), 2147483647), big(0));
    EXPECT_EQ(shifted(64, big(1), -2147483647 - 1), big(0));
}

TEST(BinWordShift, LargeWordsShiftByLimbsAndBits) {
    // 320 bits, 20 limbs: a count of 17 is below 20, so both parts apply.
    EXPECT_EQ(shifted(320, big(1), 17), big(1 << 17));
    EXPECT_EQ(shifted(320, big(1 << 17), -17), big(1));
}

// --- Oracle vectors ---------------------------------------------------------------------

class BinWordVectors : public ::testing::TestWithParam<testvectors::VectorCase> {};

TEST_P(BinWordVectors, MatchesTheOracle) {
    const testvectors::VectorCase& c = GetParam();
    ASSERT_GE(c.args.size(), 2u);
    ASSERT_EQ(c.expected.size(), 1u);
    const int32_t bits = std::stoi(c.args[0]);
    const BigInt y = bigIntFromHex(c.args[1]);
    const BigInt expected = bigIntFromHex(c.expected[0]);
    BigInt got;
    if (c.op == "word") {
        got = integerFromWord(wordFromInteger(y, bits));
        EXPECT_EQ(ReduceToWordSize(y, bits), expected);
    } else if (c.op == "not") {
        got = after(bits, y, invertWord);
    } else if (c.op == "shift" || c.op == "rot") {
        const int32_t count = std::stoi(c.args[2]);
        got = c.op == "shift" ? shifted(bits, y, count) : rotated(bits, y, count);
    } else {
        const BinWord a = wordFromInteger(y, bits);
        const BinWord b = wordFromInteger(bigIntFromHex(c.args[2]), bits);
        if (c.op == "and") got = integerFromWord(andWords(a, b));
        else if (c.op == "or") got = integerFromWord(orWords(a, b));
        else if (c.op == "xor") got = integerFromWord(xorWords(a, b));
        else if (c.op == "nand") got = integerFromWord(nandWords(a, b));
        else if (c.op == "nor") got = integerFromWord(norWords(a, b));
        else if (c.op == "xnor") got = integerFromWord(xnorWords(a, b));
        else FAIL() << "unknown operation " << c.op;
    }
    EXPECT_EQ(got, expected) << "got " << bigIntToHex(got) << ", expected " << c.expected[0];
    EXPECT_GE(got.sign, 0);
}

INSTANTIATE_TEST_SUITE_P(Oracle, BinWordVectors, ::testing::ValuesIn(testvectors::loadVectorCases("binword_vectors.txt")),
                         [](const auto& info) { return testvectors::vectorCaseName(info.param); });

TEST(BinWordVectorFile, CoversEveryOperationAndWordSizesOneTo256) {
    const auto cases = testvectors::loadVectorCases("binword_vectors.txt");
    std::set<std::string> ops;
    std::set<int32_t> sizes;
    for (const auto& c : cases) {
        ops.insert(c.op);
        sizes.insert(std::stoi(c.args[0]));
    }
    EXPECT_EQ(ops, (std::set<std::string>{"word", "not", "and", "or", "xor", "nand", "nor", "xnor", "shift", "rot"}));
    for (int32_t bits = 1; bits <= 256; ++bits) EXPECT_TRUE(sizes.count(bits)) << bits;
    EXPECT_GT(cases.size(), 8000u);
}

}  // namespace
}  // namespace quorvel
