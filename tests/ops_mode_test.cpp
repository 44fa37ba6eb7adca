// Mode commands: base bin oct dec hex, std fix sci, wsize.
#include "tests/ops_testing.h"

namespace quorvel::test {
namespace {

using ModeBase = HandlerTest;
using ModeStd = HandlerTest;
using ModeFormat = HandlerTest;
using ModeWsize = HandlerTest;

// --- base -------------------------------------------------------------------

TEST_F(ModeBase, SixteenSetsTheBaseAndConsumesTheOperand) {
    pushInt(16);
    opBase(app, app.stack);
    EXPECT_EQ(app.base, 16);
    EXPECT_EQ(app.stack.count(), 0);
}

TEST_F(ModeBase, LimitsTwoAndThirtySixAreAccepted) {
    for (int32_t b : {2, 36}) {
        pushInt(b);
        opBase(app, app.stack);
        EXPECT_EQ(app.base, b);
    }
}

TEST_F(ModeBase, ThirtySevenIsOutsideRangeAndStays) {
    pushInt(37);
    EXPECT_TRUE(refuses(opBase, u"Base Outside Range"));
    EXPECT_TRUE(topIsInteger(37));
    EXPECT_EQ(app.base, 10);
}

TEST_F(ModeBase, OneAndNegativeAreOutsideRange) {
    for (int32_t b : {1, -16}) {
        app.stack.freeAll();
        app.keptSeverity = 0;
        pushInt(b);
        EXPECT_TRUE(refuses(opBase, u"Base Outside Range")) << b;
    }
}

TEST_F(ModeBase, TooLargeToReadIsOutsideRange) {
    push(Item::integer(ParseInteger(u"4294967312", 10)));   // 2^32 + 16
    EXPECT_TRUE(refuses(opBase, u"Base Outside Range"));
}

TEST_F(ModeBase, RealIsAnInvalidDataType) {
    pushReal(u"16");
    EXPECT_TRUE(refuses(opBase, u"Invalid Data Type"));
}

TEST_F(ModeBase, UnitsAreInvalid) {
    pushInt(16, metres());
    EXPECT_TRUE(refuses(opBase, u"Invalid Units"));
}

TEST_F(ModeBase, MissingOperand) { EXPECT_TRUE(refuses(opBase, u"Missing Operand")); }

TEST_F(ModeBase, VariableOperandIsResolved) {
    app.variables.FindVariable(u"b", true)->value->assignFrom(integer(8));
    pushVar(u"b");
    opBase(app, app.stack);
    EXPECT_EQ(app.base, 8);
}

TEST_F(ModeBase, NamedBasesNeedNoOperand) {
    pushInt(3);
    opBin(app, app.stack);
    EXPECT_EQ(app.base, 2);
    opOct(app, app.stack);
    EXPECT_EQ(app.base, 8);
    opHex(app, app.stack);
    EXPECT_EQ(app.base, 16);
    opDec(app, app.stack);
    EXPECT_EQ(app.base, 10);
    EXPECT_TRUE(topIsInteger(3));
    EXPECT_EQ(app.stack.count(), 1);
}

// --- std --------------------------------------------------------------------

TEST_F(ModeStd, SetsDigitsAndWorkingLength) {
    app.dspFlags = 0x20 | 0x04;
    pushInt(20);
    opStd(app, app.stack);
    EXPECT_EQ(app.digits, 20);
    EXPECT_EQ(app.workingLength, 18);
    EXPECT_EQ(app.dspFlags, 0x04);
    EXPECT_EQ(app.stack.count(), 0);
}

TEST_F(ModeStd, FiveThousandSetsAThousandDigitsWithAWarning) {
    pushInt(5000);
    opStd(app, app.stack);
    EXPECT_EQ(app.digits, 1000);
    EXPECT_EQ(app.workingLength, 508);
    EXPECT_TRUE(shows(u"Digits Limited to 1000", Warning));
    EXPECT_EQ(app.stack.count(), 0);
}

TEST_F(ModeStd, ZeroOnlyReturnsToStandardFormat) {
    app.dspFlags = 0x40 | 0x80 | 0x01;
    pushInt(0);
    opStd(app, app.stack);
    EXPECT_EQ(app.dspFlags, 0x01);
    EXPECT_EQ(app.digits, DefaultDigits);
    EXPECT_EQ(app.workingLength, 48);
    EXPECT_EQ(app.stack.count(), 0);
}

TEST_F(ModeStd, TooLargeToReadOnlyReturnsToStandardFormat) {
    app.dspFlags = 0x20;
    push(Item::integer(ParseInteger(u"99999999999", 10)));
    opStd(app, app.stack);
    EXPECT_EQ(app.dspFlags, 0);
    EXPECT_EQ(app.digits, DefaultDigits);
    EXPECT_EQ(app.stack.count(), 0);
}

TEST_F(ModeStd, NegativeCountIsKept) {
    pushInt(-4);
    opStd(app, app.stack);
    EXPECT_EQ(app.digits, -4);
    EXPECT_EQ(app.workingLength, 6);
}

TEST_F(ModeStd, RealIsAnInvalidDataTypeAndFormatStays) {
    app.dspFlags = 0x20;
    pushReal(u"20");
    EXPECT_TRUE(refuses(opStd, u"Invalid Data Type"));
    EXPECT_EQ(app.dspFlags, 0x20);
}

TEST_F(ModeStd, UnitsAreInvalid) {
    pushInt(20, seconds());
    EXPECT_TRUE(refuses(opStd, u"Invalid Units"));
    EXPECT_EQ(app.digits, DefaultDigits);
}

TEST_F(ModeStd, MissingOperand) { EXPECT_TRUE(refuses(opStd, u"Missing Operand")); }

// --- fix and sci ------------------------------------------------------------

TEST_F(ModeFormat, FixSetsDigitsAndTheFixedBitOnly) {
    app.dspFlags = 0x40 | 0x04;
    pushInt(10);
    opFix(app, app.stack);
    EXPECT_EQ(app.digits, 10);
    EXPECT_EQ(app.workingLength, 48);   // unchanged
    EXPECT_EQ(app.dspFlags, 0x20 | 0x04);
    EXPECT_EQ(app.stack.count(), 0);
}

TEST_F(ModeFormat, SciSetsTheScientificBit) {
    app.dspFlags = 0x20 | 0x80 | 0x08;
    pushInt(5);
    opSci(app, app.stack);
    EXPECT_EQ(app.digits, 5);
    EXPECT_EQ(app.dspFlags, 0x40 | 0x08);
}

TEST_F(ModeFormat, UpperLimitIsTwiceTheWorkingLengthLessTwelve) {
    pushInt(84);
    opFix(app, app.stack);
    EXPECT_EQ(app.digits, 84);
    pushInt(85);
    EXPECT_TRUE(refuses(opFix, u"Digits Outside Range"));
    EXPECT_EQ(app.digits, 84);
}

TEST_F(ModeFormat, ZeroIsAcceptedNegativeIsNot) {
    pushInt(0);
    opSci(app, app.stack);
    EXPECT_EQ(app.digits, 0);
    pushInt(-1);
    EXPECT_TRUE(refuses(opSci, u"Digits Outside Range"));
}

TEST_F(ModeFormat, TooLargeToReadIsOutsideRange) {
    push(Item::integer(ParseInteger(u"99999999999", 10)));
    EXPECT_TRUE(refuses(opFix, u"Digits Outside Range"));
}

TEST_F(ModeFormat, InvalidDataTypeAndUnits) {
    pushReal(u"3");
    EXPECT_TRUE(refuses(opFix, u"Invalid Data Type"));
    app.stack.freeAll();
    app.keptSeverity = 0;
    pushInt(3, metres());
    EXPECT_TRUE(refuses(opSci, u"Invalid Units"));
    EXPECT_EQ(app.dspFlags, 0);
}

TEST_F(ModeFormat, MissingOperand) {
    EXPECT_TRUE(refuses(opFix, u"Missing Operand"));
    app.keptSeverity = 0;
    EXPECT_TRUE(refuses(opSci, u"Missing Operand"));
}

// --- wsize ------------------------------------------------------------------

TEST_F(ModeWsize, SetsTheWordSize) {
    pushInt(32);
    opWsize(app, app.stack);
    EXPECT_EQ(app.wsize, 32);
    EXPECT_EQ(app.stack.count(), 0);
}

TEST_F(ModeWsize, NegativeIsStoredAsItIs) {
    pushInt(-3);
    opWsize(app, app.stack);
    EXPECT_EQ(app.wsize, -3);
}

TEST_F(ModeWsize, TooLargeToReadStoresZero) {
    app.wsize = 16;
    push(Item::integer(ParseInteger(u"99999999999", 10)));
    opWsize(app, app.stack);
    EXPECT_EQ(app.wsize, 0);
}

TEST_F(ModeWsize, InvalidDataTypeAndUnits) {
    pushReal(u"8");
    EXPECT_TRUE(refuses(opWsize, u"Invalid Data Type"));
    app.stack.freeAll();
    app.keptSeverity = 0;
    pushInt(8, metres());
    EXPECT_TRUE(refuses(opWsize, u"Invalid Units"));
    EXPECT_EQ(app.wsize, 0);
}

TEST_F(ModeWsize, MissingOperand) { EXPECT_TRUE(refuses(opWsize, u"Missing Operand")); }

}  // namespace
}  // namespace quorvel::test
