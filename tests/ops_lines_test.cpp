// The arithmetic, assignment, memory and mode handlers reached through typed
// command lines, in RPN and algebraic entry.
#include "lang/evaluator.h"
#include "lang/memories.h"
#include "lang/variables.h"
#include "tests/ops_testing.h"

namespace quorvel::test {
namespace {

class Lines : public HandlerTest {
protected:
    void rpn(std::u16string_view line) { RunCommandLine(app, line, 0); }
    void alg(std::u16string_view line) { RunCommandLine(app, line, 1); }
};

TEST_F(Lines, RpnSum) {
    rpn(u"2 3 +");
    EXPECT_EQ(app.stack.count(), 1);
    EXPECT_TRUE(topIsInteger(5));
}

TEST_F(Lines, RpnOperandOrderForSubtractionDivisionAndComparison) {
    rpn(u"10 4 -");
    EXPECT_TRUE(topIsInteger(6));
    rpn(u"7 2 /");
    EXPECT_TRUE(topIsReal(u"3.5"));
    rpn(u"5 3 >");
    EXPECT_TRUE(topIsInteger(1));
    rpn(u"-7 3 mod");
    EXPECT_TRUE(topIsInteger(2));
}

TEST_F(Lines, AlgebraicPrecedenceOfModAndComparison) {
    alg(u"1 + 7 mod 4 == 4");
    EXPECT_EQ(app.stack.count(), 1);
    EXPECT_TRUE(topIsInteger(1));
}

TEST_F(Lines, WordSizeFromTheCommandLine) {
    rpn(u"8 wsize 5 7 -");
    EXPECT_EQ(app.wsize, 8);
    EXPECT_EQ(app.stack.count(), 1);
    EXPECT_TRUE(topIsInteger(254));
}

TEST_F(Lines, AlgebraicAssignmentAndCompoundAssignment) {
    alg(u"a = 5");
    alg(u"a += 2");
    alg(u"a *= 3");
    EXPECT_EQ(app.stack.count(), 0);
    EXPECT_EQ(app.variables.FindExisting(u"a")->value->asInteger(), bigIntFromI32(21));
    alg(u"a - 1");
    EXPECT_TRUE(topIsInteger(20));
}

TEST_F(Lines, AlgebraicFiveEqualsThree) {
    alg(u"5 = 3");
    EXPECT_TRUE(shows(u"Invalid Variable Name"));
    EXPECT_EQ(app.stack.count(), 2);
    EXPECT_TRUE(topIsInteger(3));
}

TEST_F(Lines, RpnPopStoresIntoAVariable) {
    rpn(u"5 a pop");
    EXPECT_EQ(app.stack.count(), 0);
    EXPECT_EQ(app.variables.FindExisting(u"a")->value->asInteger(), bigIntFromI32(5));
}

TEST_F(Lines, StoreAndRecall) {
    rpn(u"5 3 sto");
    EXPECT_TRUE(shows(u"Copied to Memory", Confirmation));
    EXPECT_EQ(app.stack.count(), 0);
    rpn(u"3 rcl");
    EXPECT_TRUE(topIsInteger(5));
}

TEST_F(Lines, StoreOutOfRangeKeepsTheStack) {
    rpn(u"4 1000 sto");
    EXPECT_TRUE(shows(u"Memory Number Out of Range"));
    EXPECT_EQ(app.stack.count(), 2);
    EXPECT_TRUE(topIsInteger(1000));
}

TEST_F(Lines, RecallNeverStored) {
    rpn(u"7 rcl");
    EXPECT_TRUE(shows(u"Memory Undefined"));
    EXPECT_TRUE(topIsInteger(7));
    ASSERT_NE(FindMemory(app, 7, false), nullptr);
}

TEST_F(Lines, StdFiveThousand) {
    rpn(u"5000 std");
    EXPECT_EQ(app.digits, 1000);
    EXPECT_TRUE(shows(u"Digits Limited to 1000", Warning));
    EXPECT_EQ(app.stack.count(), 0);
}

TEST_F(Lines, BaseThirtySeven) {
    rpn(u"37 base");
    EXPECT_TRUE(shows(u"Base Outside Range"));
    EXPECT_TRUE(topIsInteger(37));
}

TEST_F(Lines, HexThenDec) {
    rpn(u"hex");
    EXPECT_EQ(app.base, 16);
    rpn(u"dec");
    EXPECT_EQ(app.base, 10);
}

TEST_F(Lines, AlgebraicRoundingFunctions) {
    alg(u"floor(2.5) + ceil(2.5) + nint(2.5) + ip(-2.5)");
    EXPECT_TRUE(topIsInteger(2 + 3 + 3 - 2));
    alg(u"fp(2.25)");
    EXPECT_TRUE(topIsReal(u"0.25"));
}

TEST_F(Lines, AlgebraicInvAndSqr) {
    alg(u"inv(4) + sqr(3)");
    EXPECT_TRUE(topIsReal(u"9.25"));
}

}  // namespace
}  // namespace quorvel::test
