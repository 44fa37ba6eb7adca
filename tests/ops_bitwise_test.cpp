// The bitwise handlers `and`, `nand`, `or`, `nor`, `xor`, `xnor`, `not`,
// `shift`, `rot`, the word size they read, and typed lines using them.
#include "lang/evaluator.h"
#include "tests/ops_testing.h"

namespace quorvel::test {
namespace {

class Bitwise : public HandlerTest {
protected:
    Bitwise() { app.wsize = 16; }

    Item integerText(std::u16string_view text) {
        const bool negative = !text.empty() && text[0] == u'-';
        BigInt n = ParseInteger(negative ? text.substr(1) : text, 10);
        return Item::integer(negative ? negated(std::move(n)) : std::move(n));
    }
    ::testing::AssertionResult topIsIntegerText(std::u16string_view text) {
        const Item* top = app.stack.at(0);
        if (top == nullptr || top->type != ItemType::Integer) return ::testing::AssertionFailure() << "no Integer on top";
        if (!(top->asInteger() == integerText(text).asInteger()))
            return ::testing::AssertionFailure() << "value " << toUtf8(FormatInteger(top->asInteger(), 10, 0));
        return ::testing::AssertionSuccess();
    }

    // y op x with both operands integers.
    void binary(Handler handler, int32_t y, int32_t x) {
        pushInt(y);
        pushInt(x);
        handler(app, app.stack);
    }
};

class BitwiseLines : public Bitwise {
protected:
    void rpn(std::u16string_view line) { RunCommandLine(app, line, 0); }
    void alg(std::u16string_view line) { RunCommandLine(app, line, 1); }
};

constexpr Handler TwoOperandOps[] = {opAnd, opNand, opOr, opNor, opXor, opXnor, opShift, opRot};

// --- The word-size edge case ----------------------------------------------------

TEST_F(Bitwise, WordSizeZeroEveryBitwiseOperationReportsInvalidWordSize) {
    app.wsize = 0;
    for (Handler handler : TwoOperandOps) {
        app.stack.freeAll();
        pushInt(12);
        pushInt(10);
        ClearMessage(app);
        EXPECT_TRUE(refuses(handler, u"Invalid Word Size"));
    }
    app.stack.freeAll();
    pushInt(12);
    ClearMessage(app);
    EXPECT_TRUE(refuses(opNot, u"Invalid Word Size"));
}

TEST_F(Bitwise, NegativeWordSizeMakesNoWord) {
    app.wsize = -8;
    pushInt(12);
    pushInt(10);
    EXPECT_TRUE(refuses(opAnd, u"Invalid Word Size"));
}

// --- Results -------------------------------------------------------------------------

TEST_F(Bitwise, LogicalOperationsOfTwelveAndTen) {
    app.wsize = 4;
    const std::pair<Handler, int32_t> cases[] = {{opAnd, 8},  {opOr, 14},  {opXor, 6},
                                                 {opNand, 7}, {opNor, 1}, {opXnor, 9}};
    for (const auto& [handler, expected] : cases) {
        app.stack.freeAll();
        binary(handler, 12, 10);
        EXPECT_EQ(app.stack.count(), 1);
        EXPECT_TRUE(topIsInteger(expected));
    }
}

TEST_F(Bitwise, OperandsAreTakenAsWordsFirst) {
    app.wsize = 8;
    binary(opAnd, -1, 0x1FF);   // 255 and 255
    EXPECT_TRUE(topIsInteger(255));
    binary(opOr, 256, 0);   // 256 reduces to 0
    EXPECT_TRUE(topIsInteger(0));
}

TEST_F(Bitwise, NotOfZeroWithWordSize8Is255) {
    app.wsize = 8;
    pushInt(0);
    opNot(app, app.stack);
    EXPECT_TRUE(topIsInteger(255));
}

TEST_F(Bitwise, NotOfMinusOneIsZeroWithSignZero) {
    app.wsize = 64;
    pushInt(-1);
    opNot(app, app.stack);
    EXPECT_TRUE(topIsInteger(0));
    EXPECT_EQ(app.stack.head()->asInteger().sign, 0);
}

TEST_F(Bitwise, ResultsAreNonNegativeAndWithinTheWordSize) {
    app.wsize = 40;
    // -5 is ...11111011 in two's complement; and-ed with 3 it gives 3, so
    // nand gives 2^40 - 1 - 3.
    binary(opNand, -5, 3);
    EXPECT_TRUE(topIsIntegerText(u"1099511627772"));
    EXPECT_EQ(app.stack.head()->asInteger().sign, 1);
}

TEST_F(Bitwise, ShiftAndRotateTakeTheCountOnTop) {
    app.wsize = 32;
    binary(opShift, 1, 1);
    EXPECT_TRUE(topIsInteger(2));
    binary(opRot, 1, -1);
    EXPECT_TRUE(topIsIntegerText(u"2147483648"));
    binary(opRot, 1, 2);   // 2 mod 2 limbs = 0
    EXPECT_TRUE(topIsInteger(1));
    EXPECT_EQ(app.stack.count(), 3);
}

TEST_F(Bitwise, ShiftWithWordSize64FollowsTheLimbCountRule) {
    app.wsize = 64;
    const std::pair<int32_t, int32_t> cases[] = {{3, 8}, {4, 1}, {16, 65536}, {17, 65536}, {-1, 0}};
    for (const auto& [count, expected] : cases) {
        app.stack.freeAll();
        binary(opShift, 1, count);
        EXPECT_TRUE(topIsInteger(expected)) << count;
    }
}

TEST_F(Bitwise, ZeroCountReturnsTheOperandItselfUnreduced) {
    app.wsize = 8;
    binary(opShift, 300, 0);
    EXPECT_TRUE(topIsInteger(300));
    binary(opRot, -1, 0);
    EXPECT_TRUE(topIsInteger(-1));
    EXPECT_EQ(app.stack.count(), 2);
}

TEST_F(Bitwise, CountTooLargeToReadReturnsTheOperandItself) {
    app.wsize = 16;
    pushInt(5);
    push(integerText(u"2147483648"));   // needs 32 bits: more than 31
    opShift(app, app.stack);
    EXPECT_EQ(app.stack.count(), 1);
    EXPECT_TRUE(topIsInteger(5));
    push(integerText(u"-4294967296"));
    opRot(app, app.stack);
    EXPECT_TRUE(topIsInteger(5));
    EXPECT_EQ(app.keptSeverity, 0);
}

TEST_F(Bitwise, LargestReadableCountShiftsEverythingOut) {
    app.wsize = 16;
    pushInt(5);
    push(integerText(u"2147483647"));
    opShift(app, app.stack);
    EXPECT_TRUE(topIsInteger(0));
}

TEST_F(Bitwise, ResolvesVariableOperands) {
    app.wsize = 8;
    RunCommandLine(app, u"a = 12", 1);
    app.stack.freeAll();
    pushVar(u"a");
    pushInt(10);
    opAnd(app, app.stack);
    EXPECT_TRUE(topIsInteger(8));
}

// --- Refusals ---------------------------------------------------------------------------

TEST_F(Bitwise, RealOperandIsInvalidDataType) {
    pushReal(u"1.5");
    pushInt(3);
    EXPECT_TRUE(refuses(opAnd, u"Invalid Data Type"));
    app.stack.freeAll();
    ClearMessage(app);
    pushInt(3);
    pushReal(u"2");
    EXPECT_TRUE(refuses(opShift, u"Invalid Data Type"));
    app.stack.freeAll();
    ClearMessage(app);
    pushReal(u"2");
    EXPECT_TRUE(refuses(opNot, u"Invalid Data Type"));
}

TEST_F(Bitwise, StringOperandIsInvalidDataType) {
    pushInt(3);
    push(Item::string(u"m"));
    EXPECT_TRUE(refuses(opXor, u"Invalid Data Type"));
}

TEST_F(Bitwise, OperandWithUnitsIsInvalidUnits) {
    pushInt(3, metres());
    pushInt(1);
    EXPECT_TRUE(refuses(opOr, u"Invalid Units"));
    app.stack.freeAll();
    ClearMessage(app);
    pushInt(3);
    pushInt(1, radians());
    EXPECT_TRUE(refuses(opRot, u"Invalid Units"));
    app.stack.freeAll();
    ClearMessage(app);
    pushInt(3, seconds());
    EXPECT_TRUE(refuses(opNot, u"Invalid Units"));
}

TEST_F(Bitwise, TypeIsCheckedBeforeTheWordSize) {
    app.wsize = 0;
    pushReal(u"1.5");
    pushInt(3);
    EXPECT_TRUE(refuses(opAnd, u"Invalid Data Type"));
}

TEST_F(Bitwise, MissingOperand) {
    pushInt(3);
    EXPECT_TRUE(refuses(opAnd, u"Missing Operand"));
    app.stack.freeAll();
    ClearMessage(app);
    EXPECT_TRUE(refuses(opNot, u"Missing Operand"));
}

// --- Typed lines -----------------------------------------------------------------------

TEST_F(BitwiseLines, HexEntryAndWithWordSize16) {
    // The whole line is scanned before it runs, so the base is set on a line
    // of its own before the based entries are read.
    rpn(u"hex");
    rpn(u"16 wsize #0FF #0F0F and");
    EXPECT_EQ(app.stack.count(), 1);
    EXPECT_TRUE(topIsInteger(0x0F));
}

TEST_F(BitwiseLines, NotAndBasedEntryReduceToTheWordSize) {
    rpn(u"8 wsize 0 not");
    EXPECT_TRUE(topIsInteger(255));
    rpn(u"#-1");
    EXPECT_TRUE(topIsInteger(255));
    rpn(u"#300");
    EXPECT_TRUE(topIsInteger(44));
}

TEST_F(BitwiseLines, RotateAndShiftFromTheCommandLine) {
    rpn(u"32 wsize 1 -1 rot");
    EXPECT_TRUE(topIsIntegerText(u"2147483648"));
    rpn(u"64 wsize 1 17 shift");
    EXPECT_TRUE(topIsInteger(65536));
}

TEST_F(BitwiseLines, AlgebraicBitwiseOperators) {
    rpn(u"8 wsize");
    alg(u"12 and 10");
    EXPECT_TRUE(topIsInteger(8));
    alg(u"12 xor 10");
    EXPECT_TRUE(topIsInteger(6));
}

TEST_F(BitwiseLines, AlgebraicNotIsPrefixAndShiftAndRotAreFunctions) {
    rpn(u"64 wsize");
    alg(u"not 0");
    EXPECT_TRUE(topIsIntegerText(u"18446744073709551615"));
    alg(u"shift(1, 3)");
    EXPECT_TRUE(topIsInteger(8));
    alg(u"rot(1, 5)");   // 5 mod 4 limbs = 1
    EXPECT_TRUE(topIsInteger(2));
}

TEST_F(BitwiseLines, AlgebraicMinusBeforeACountIsANegationReducedToTheWordSize) {
    // -1 typed in algebraic entry is `neg` of 1, reduced to 2^64 - 1: too
    // large a count, so the operand comes back unchanged. In RPN entry -1 is
    // a number and rotates right.
    rpn(u"64 wsize");
    alg(u"rot(1, -1)");
    EXPECT_TRUE(topIsInteger(1));
    rpn(u"1 -1 rot");
    EXPECT_TRUE(topIsIntegerText(u"9223372036854775808"));
}

TEST_F(BitwiseLines, WithoutAWordSizeTheLineReportsAndKeepsTheOperands) {
    app.wsize = 0;
    rpn(u"12 10 or");
    EXPECT_TRUE(shows(u"Invalid Word Size"));
    EXPECT_EQ(app.stack.count(), 2);
}

TEST_F(BitwiseLines, WordSizeReadsTheLowBitsOfSmallIntegersOnly) {
    rpn(u"24 wsize");
    EXPECT_EQ(app.wsize, 24);
    rpn(u"4294967296 wsize");   // three limbs: too large, stores 0
    EXPECT_EQ(app.wsize, 0);
    rpn(u"24 wsize 2147483648 wsize");   // two limbs, the upper one above 32767
    EXPECT_EQ(app.wsize, 0);
    rpn(u"-8 wsize");
    EXPECT_EQ(app.wsize, -8);
}

}  // namespace
}  // namespace quorvel::test
