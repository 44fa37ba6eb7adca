// The constant routines ComputePi, ComputeE and ComputeEulerGamma and the
// constant cache of MathContext.
#include <gtest/gtest.h>

#include <string>

#include "abort_testing.h"
#include "elementary_testing.h"
#include "numeric/constants.h"
#include "numeric/elementary.h"
#include "numeric/mathcontext.h"
#include "numeric_vectors.h"

namespace quorvel {
namespace {

using test::CountingPoller;

// The 1025-digit reference of a constant from the mpmath vectors (its
// Digits 1000 line).
std::string reference(const std::string& name) {
    for (const auto& c : testvectors::loadVectorCases("elementary_vectors.txt", {name})) {
        if (c.args.size() == 1 && c.args[0] == "D=1000") return c.expected.at(0);
    }
    ADD_FAILURE() << "no reference for " << name;
    return "0";
}

// An M-byte result must lie within one unit of its last digit of the
// reference: the routines work five bytes wider and round back once.
void expectDigitsOf(const BigNum& value, const std::string& ref, int32_t M) {
    ASSERT_EQ(value.length(), M);
    const int64_t lastDigit = test::referenceExponent(ref) - (2 * M - 1);
    EXPECT_LE(test::errorInUnits(value, ref, lastDigit), 1.0) << "M = " << M;
}

TEST(ComputePi, RightAtEveryLengthUpTo510Bytes) {
    const std::string ref = reference("pi");
    for (int32_t M = 2; M <= 70; ++M) expectDigitsOf(ComputePi(M), ref, M);
    for (int32_t M : {158, 300, 510}) expectDigitsOf(ComputePi(M), ref, M);
}

TEST(ComputeE, RightAtEveryLengthUpTo510Bytes) {
    const std::string ref = reference("e");
    for (int32_t M = 2; M <= 70; ++M) expectDigitsOf(ComputeE(M), ref, M);
    for (int32_t M : {158, 300, 510}) expectDigitsOf(ComputeE(M), ref, M);
}

TEST(ComputeEulerGamma, RightAtManyLengths) {
    const std::string ref = reference("gamma");
    MathContext m;
    for (int32_t M = 2; M <= 40; ++M) expectDigitsOf(ComputeEulerGamma(m, M), ref, M);
    expectDigitsOf(ComputeEulerGamma(m, 160), ref, 160);
}

TEST(ComputePi, DoesNotPoll) {
    CountingPoller counter;
    MathContext m(counter);
    m.GetConstant(100, 'p');
    m.GetConstant(100, 'e');
    EXPECT_EQ(counter.polls, 0);
}

TEST(GetConstant, UnknownKeyGivesNothing) {
    MathContext m;
    for (char key : {'a', 'x', '1', '3', 'P', 'z', '\0'}) EXPECT_FALSE(m.GetConstant(10, key).has_value()) << key;
    for (char key : {'2', 'd', 'e', 'g', 'l', 'p'}) EXPECT_TRUE(m.GetConstant(10, key).has_value()) << key;
}

TEST(GetConstant, ReturnsACopyAtTheAskedLength) {
    MathContext m;
    for (int32_t bytes : {2, 7, 30}) {
        const BigNum pi = *m.GetConstant(bytes, 'p');
        EXPECT_EQ(pi.length(), bytes);
    }
    // A copy: changing it leaves the cache alone.
    BigNum pi = *m.GetConstant(10, 'p');
    pi.digits[0] = 0;
    EXPECT_NE(*m.GetConstant(10, 'p'), pi);
}

TEST(GetConstant, KeepsTheValueUntilMorePrecisionIsAsked) {
    // ln 2 is summed by the polling series, so polls show when it is computed.
    CountingPoller counter;
    MathContext m(counter);
    m.GetConstant(20, '2');
    const int64_t first = counter.polls;
    EXPECT_GT(first, 0);
    m.GetConstant(20, '2');
    m.GetConstant(5, '2');
    m.GetConstant(25, '2');   // computed at 27 bytes: holds 25 + 2
    EXPECT_EQ(counter.polls, first);
    m.GetConstant(26, '2');   // needs 28 bytes: computed again
    EXPECT_GT(counter.polls, first);
}

TEST(GetConstant, SmallerRequestsAreTheLargerValueRounded) {
    MathContext m;
    const BigNum wide = *m.GetConstant(60, 'g');
    EXPECT_EQ(*m.GetConstant(12, 'g'), resized(wide, 12));
}

TEST(GetConstant, DegreesPerRadianAndTheLogarithms) {
    MathContext m;
    const int32_t L = 30;
    const BigNum pi = *m.GetConstant(L + 2, 'p');
    EXPECT_EQ(test::roundBigNum(*m.GetConstant(L, 'd'), 56),
              test::roundBigNum(divide(fromInt(L + 2, 180), pi), 56));
    EXPECT_EQ(test::roundBigNum(*m.GetConstant(L, 'l'), 56), test::roundBigNum(Ln(m, fromInt(L, 10)), 56));
    EXPECT_EQ(test::roundBigNum(*m.GetConstant(L, '2'), 56), test::roundBigNum(Ln(m, fromInt(L, 2)), 56));
    EXPECT_EQ(test::roundBigNum(*m.GetConstant(L, 'e'), 56), test::roundBigNum(Exp(m, fromInt(L, 1)), 56));
}

}  // namespace
}  // namespace quorvel
