// The arithmetic handlers `+ - * /`, `inv` and `sqr` on integers and reals.
#include "lang/ops_values.h"
#include "tests/ops_testing.h"

namespace quorvel::test {
namespace {

using ArithAdd = HandlerTest;
using ArithSub = HandlerTest;
using ArithMul = HandlerTest;
using ArithDiv = HandlerTest;
using ArithInv = HandlerTest;
using ArithSqr = HandlerTest;

// --- + ----------------------------------------------------------------------

TEST_F(ArithAdd, TwoIntegersGiveAnExactInteger) {
    pushInt(2);
    pushInt(3);
    opAdd(app, app.stack);
    EXPECT_EQ(app.stack.count(), 1);
    EXPECT_TRUE(topIsInteger(5));
    EXPECT_EQ(host.messages.size(), 0u);
}

TEST_F(ArithAdd, LargeIntegersStayExact) {
    push(Item::integer(ParseInteger(u"123456789012345678901234567890", 10)));
    push(Item::integer(ParseInteger(u"987654321098765432109876543210", 10)));
    opAdd(app, app.stack);
    ASSERT_EQ(app.stack.at(0)->type, ItemType::Integer);
    EXPECT_EQ(app.stack.at(0)->asInteger(), ParseInteger(u"1111111110111111111011111111100", 10));
}

TEST_F(ArithAdd, IntegerAndRealGiveAReal) {
    pushInt(2);
    pushReal(u"0.5");
    opAdd(app, app.stack);
    EXPECT_TRUE(topIsReal(u"2.5"));
}

TEST_F(ArithAdd, RealAndIntegerGiveAReal) {
    pushReal(u"0.25");
    pushInt(-1);
    opAdd(app, app.stack);
    EXPECT_TRUE(topIsReal(u"-0.75"));
}

TEST_F(ArithAdd, IntegerConvertedAtTheWorkingLength) {
    pushInt(1);
    pushReal(u"0.5");
    opAdd(app, app.stack);
    ASSERT_EQ(app.stack.at(0)->type, ItemType::Real);
    EXPECT_EQ(app.stack.at(0)->asReal().length(), app.workingLength);
}

TEST_F(ArithAdd, EqualUnitsAreKept) {
    pushInt(2, metres());
    pushInt(3, metres());
    opAdd(app, app.stack);
    EXPECT_TRUE(topIsInteger(5, metres()));
}

TEST_F(ArithAdd, DifferentUnitsAreIncompatibleAndTheStackIsKept) {
    pushInt(2, metres());
    pushInt(3, seconds());
    EXPECT_TRUE(refuses(opAdd, u"Incompatible Units"));
}

TEST_F(ArithAdd, UnitsAgainstNoUnitsAreIncompatible) {
    pushInt(2, metres());
    pushInt(3);
    EXPECT_TRUE(refuses(opAdd, u"Incompatible Units"));
}

TEST_F(ArithAdd, AnAnglePlusAPlainNumberIsAPlainNumber) {
    pushReal(u"1.5", radians());
    pushInt(1);
    opAdd(app, app.stack);
    EXPECT_TRUE(topIsReal(u"2.5", NoUnits));
}

TEST_F(ArithAdd, TwoAnglesStayAnAngle) {
    pushInt(1, radians());
    pushInt(2, radians());
    opAdd(app, app.stack);
    EXPECT_TRUE(topIsInteger(3, radians()));
}

TEST_F(ArithAdd, AStringIsAnInvalidDataType) {
    pushInt(1);
    push(Item::string(u"abc"));
    EXPECT_TRUE(refuses(opAdd, u"Invalid Data Type"));
}

TEST_F(ArithAdd, TypeIsCheckedBeforeUnits) {
    pushInt(1, metres());
    push(Item::string(u"abc"));
    EXPECT_TRUE(refuses(opAdd, u"Invalid Data Type"));
}

// A Complex operand makes the sum Complex; the Integer takes the real part.
TEST_F(ArithAdd, AComplexOperandGivesAComplexSum) {
    pushInt(1);
    push(Item::complex(ComplexNum{number(u"1"), number(u"2")}));
    opAdd(app, app.stack);
    ASSERT_EQ(app.stack.count(), 1);
    const Item& top = *app.stack.at(0);
    ASSERT_EQ(top.type, ItemType::Complex);
    EXPECT_EQ(compare(top.asComplex().re, number(u"2")), 0);
    EXPECT_EQ(compare(top.asComplex().im, number(u"2")), 0);
}

TEST_F(ArithAdd, EmptyStackIsAMissingOperand) {
    EXPECT_TRUE(refuses(opAdd, u"Missing Operand"));
    EXPECT_EQ(app.stack.count(), 0);
}

TEST_F(ArithAdd, OneEntryIsAMissingOperandAndStays) {
    pushInt(7);
    EXPECT_TRUE(refuses(opAdd, u"Missing Operand"));
}

TEST_F(ArithAdd, VariableOperandsAreResolved) {
    app.variables.FindVariable(u"a", true)->value->assignFrom(integer(4));
    pushVar(u"a");
    pushInt(1);
    opAdd(app, app.stack);
    EXPECT_TRUE(topIsInteger(5));
    EXPECT_EQ(app.variables.FindExisting(u"a")->value->asInteger(), bigIntFromI32(4));
}

TEST_F(ArithAdd, InfinityPlusMinusInfinityIsNaN) {
    push(Item::real(makeInfinity(app.workingLength, 1)));
    push(Item::real(makeInfinity(app.workingLength, -1)));
    opAdd(app, app.stack);
    EXPECT_TRUE(topIsNaN());
}

TEST_F(ArithAdd, WordSizeReducesAnIntegerSum) {
    app.wsize = 8;
    pushInt(250);
    pushInt(10);
    opAdd(app, app.stack);
    EXPECT_TRUE(topIsInteger(4));
}

TEST_F(ArithAdd, WordSizeLeavesRealsAlone) {
    app.wsize = 8;
    pushInt(250);
    pushReal(u"10.5");
    opAdd(app, app.stack);
    EXPECT_TRUE(topIsReal(u"260.5"));
}

// --- - ----------------------------------------------------------------------

TEST_F(ArithSub, SubtractsTheTopFromTheSecond) {
    pushInt(5);
    pushInt(3);
    opSub(app, app.stack);
    EXPECT_TRUE(topIsInteger(2));
}

TEST_F(ArithSub, RealDifference) {
    pushReal(u"1");
    pushReal(u"0.125");
    opSub(app, app.stack);
    EXPECT_TRUE(topIsReal(u"0.875"));
}

TEST_F(ArithSub, WordSize8Makes5Minus7Into254) {
    app.wsize = 8;
    pushInt(5);
    pushInt(7);
    opSub(app, app.stack);
    EXPECT_TRUE(topIsInteger(254));
}

TEST_F(ArithSub, WordSize17KeepsSeventeenBits) {
    app.wsize = 17;
    pushInt(0);
    pushInt(1);
    opSub(app, app.stack);
    EXPECT_TRUE(topIsInteger(131071));
}

TEST_F(ArithSub, NegativeWordSizeReducesNothing) {
    app.wsize = -8;
    pushInt(5);
    pushInt(7);
    opSub(app, app.stack);
    EXPECT_TRUE(topIsInteger(-2));
}

TEST_F(ArithSub, IncompatibleUnits) {
    pushReal(u"1", metres());
    pushReal(u"1", seconds());
    EXPECT_TRUE(refuses(opSub, u"Incompatible Units"));
}

TEST_F(ArithSub, InvalidDataType) {
    push(Item::string(u"m"));
    pushInt(1);
    EXPECT_TRUE(refuses(opSub, u"Invalid Data Type"));
}

TEST_F(ArithSub, MissingOperand) {
    pushInt(1);
    EXPECT_TRUE(refuses(opSub, u"Missing Operand"));
}

// --- * ----------------------------------------------------------------------

TEST_F(ArithMul, IntegerProduct) {
    pushInt(-6);
    pushInt(7);
    opMul(app, app.stack);
    EXPECT_TRUE(topIsInteger(-42));
}

TEST_F(ArithMul, MixedProductIsReal) {
    pushInt(3);
    pushReal(u"0.5");
    opMul(app, app.stack);
    EXPECT_TRUE(topIsReal(u"1.5"));
}

TEST_F(ArithMul, ExponentsAreAdded) {
    pushInt(2, metres());
    pushInt(3, UnitVector{1, 0, -1, 0, 0, 0, 0, 0});
    opMul(app, app.stack);
    EXPECT_TRUE(topIsInteger(6, UnitVector{2, 0, -1, 0, 0, 0, 0, 0}));
}

TEST_F(ArithMul, WordSizeReducesTheProduct) {
    app.wsize = 8;
    pushInt(16);
    pushInt(17);
    opMul(app, app.stack);
    EXPECT_TRUE(topIsInteger(16));
}

TEST_F(ArithMul, InvalidDataType) {
    pushInt(1);
    push(Item::variableRef(u"undefinedname"));
    const auto before = snapshot();
    opMul(app, app.stack);
    // The unknown name is reported first and made; the refusal keeps the stack.
    EXPECT_TRUE(shows(u"Undefined Variable Referenced"));
    EXPECT_TRUE(stackIs(before));
}

TEST_F(ArithMul, InvalidDataTypeForAString) {
    pushInt(1);
    push(Item::string(u"x"));
    EXPECT_TRUE(refuses(opMul, u"Invalid Data Type"));
}

TEST_F(ArithMul, MissingOperand) { EXPECT_TRUE(refuses(opMul, u"Missing Operand")); }

// --- / ----------------------------------------------------------------------

TEST_F(ArithDiv, ExactIntegerQuotientStaysAnInteger) {
    pushInt(12);
    pushInt(4);
    opDiv(app, app.stack);
    EXPECT_TRUE(topIsInteger(3));
}

TEST_F(ArithDiv, InexactIntegerQuotientBecomesAReal) {
    pushInt(7);
    pushInt(2);
    opDiv(app, app.stack);
    EXPECT_TRUE(topIsReal(u"3.5"));
}

TEST_F(ArithDiv, OneThirdIsARealAtTheWorkingLength) {
    pushInt(1);
    pushInt(3);
    opDiv(app, app.stack);
    ASSERT_EQ(app.stack.at(0)->type, ItemType::Real);
    EXPECT_EQ(app.stack.at(0)->asReal().length(), app.workingLength);
    EXPECT_EQ(compare(app.stack.at(0)->asReal(), divide(fromInt(app.workingLength, 1), fromInt(app.workingLength, 3))),
              0);
}

TEST_F(ArithDiv, WithAWordSizeTheQuotientIsTruncated) {
    app.wsize = 16;
    pushInt(7);
    pushInt(2);
    opDiv(app, app.stack);
    EXPECT_TRUE(topIsInteger(3));
}

TEST_F(ArithDiv, WithAWordSizeANegativeQuotientIsReduced) {
    app.wsize = 8;
    pushInt(-7);
    pushInt(2);
    opDiv(app, app.stack);
    EXPECT_TRUE(topIsInteger(253));   // -3 in an 8-bit word
}

// A zero divisor has no integer quotient: it takes the real path and gives
// NaN, with or without a word size.
TEST_F(ArithDiv, IntegerByZeroIsNaN) {
    pushInt(5);
    pushInt(0);
    opDiv(app, app.stack);
    EXPECT_TRUE(topIsNaN());
}

TEST_F(ArithDiv, IntegerByZeroWithAWordSizeIsNaN) {
    app.wsize = 8;
    pushInt(5);
    pushInt(0);
    opDiv(app, app.stack);
    EXPECT_TRUE(topIsNaN());
}

TEST_F(ArithDiv, RealQuotient) {
    pushReal(u"1");
    pushReal(u"8");
    opDiv(app, app.stack);
    EXPECT_TRUE(topIsReal(u"0.125"));
}

TEST_F(ArithDiv, ExponentsAreSubtracted) {
    pushInt(10, metres());
    pushInt(2, seconds());
    opDiv(app, app.stack);
    EXPECT_TRUE(topIsInteger(5, UnitVector{1, 0, -1, 0, 0, 0, 0, 0}));
}

TEST_F(ArithDiv, InvalidDataType) {
    pushInt(1);
    push(Item::string(u"x"));
    EXPECT_TRUE(refuses(opDiv, u"Invalid Data Type"));
}

TEST_F(ArithDiv, MissingOperand) {
    pushInt(1);
    EXPECT_TRUE(refuses(opDiv, u"Missing Operand"));
}

// --- inv --------------------------------------------------------------------

TEST_F(ArithInv, IntegerGivesAReal) {
    pushInt(4);
    opInv(app, app.stack);
    EXPECT_TRUE(topIsReal(u"0.25"));
}

TEST_F(ArithInv, OneGivesARealOne) {
    pushInt(1);
    opInv(app, app.stack);
    EXPECT_TRUE(topIsReal(u"1"));
}

TEST_F(ArithInv, ExponentsChangeSign) {
    pushReal(u"2", UnitVector{0, 0, 1, 0, 0, 0, 0, 0});
    opInv(app, app.stack);
    EXPECT_TRUE(topIsReal(u"0.5", UnitVector{0, 0, -1, 0, 0, 0, 0, 0}));
}

TEST_F(ArithInv, ZeroIsNaN) {
    pushInt(0);
    opInv(app, app.stack);
    EXPECT_TRUE(topIsNaN());
}

TEST_F(ArithInv, InvalidDataType) {
    push(Item::string(u"x"));
    EXPECT_TRUE(refuses(opInv, u"Invalid Data Type"));
}

TEST_F(ArithInv, MissingOperand) { EXPECT_TRUE(refuses(opInv, u"Missing Operand")); }

// --- sqr --------------------------------------------------------------------

TEST_F(ArithSqr, IntegerSquare) {
    pushInt(-12);
    opSqr(app, app.stack);
    EXPECT_TRUE(topIsInteger(144));
}

TEST_F(ArithSqr, RealSquareWithDoubledExponents) {
    pushReal(u"1.5", metres());
    opSqr(app, app.stack);
    EXPECT_TRUE(topIsReal(u"2.25", UnitVector{2, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(ArithSqr, WordSizeReducesTheSquare) {
    app.wsize = 8;
    pushInt(16);
    opSqr(app, app.stack);
    EXPECT_TRUE(topIsInteger(0));
}

TEST_F(ArithSqr, InvalidDataType) {
    push(Item::string(u"x"));
    EXPECT_TRUE(refuses(opSqr, u"Invalid Data Type"));
}

TEST_F(ArithSqr, MissingOperand) { EXPECT_TRUE(refuses(opSqr, u"Missing Operand")); }

}  // namespace
}  // namespace quorvel::test

namespace quorvel::test {
namespace {

// --- word-size reduction of integer results ---------------------------------

BigInt big(std::u16string_view text) { return ParseInteger(text, 10); }

TEST(WordSizeReduction, MinusOneInEightBitsIs255) {
    EXPECT_EQ(ReduceToWordSize(bigIntFromI32(-1), 8), bigIntFromI32(255));
}

TEST(WordSizeReduction, SeventeenBitsKeepOneBitOfTheTopLimb) {
    EXPECT_EQ(ReduceToWordSize(big(u"262143"), 17), bigIntFromI32(131071));   // 2^18 - 1
    EXPECT_EQ(ReduceToWordSize(bigIntFromI32(-1), 17), bigIntFromI32(131071));
}

TEST(WordSizeReduction, ValuesThatFitAreKept) {
    EXPECT_EQ(ReduceToWordSize(bigIntFromI32(200), 8), bigIntFromI32(200));
    EXPECT_EQ(ReduceToWordSize(bigIntFromI32(0), 8), bigIntFromI32(0));
    EXPECT_EQ(ReduceToWordSize(big(u"65535"), 16), big(u"65535"));
}

TEST(WordSizeReduction, HighBitsAreDropped) {
    EXPECT_EQ(ReduceToWordSize(big(u"65536"), 16), bigIntFromI32(0));
    EXPECT_EQ(ReduceToWordSize(big(u"18446744073709551617"), 64), bigIntFromI32(1));   // 2^64 + 1
}

TEST(WordSizeReduction, NegativeValuesTakeTwosComplement) {
    EXPECT_EQ(ReduceToWordSize(bigIntFromI32(-2), 32), big(u"4294967294"));
    EXPECT_EQ(ReduceToWordSize(big(u"-18446744073709551616"), 64), bigIntFromI32(0));   // -2^64
    EXPECT_EQ(ReduceToWordSize(big(u"-65537"), 16), big(u"65535"));
}

TEST(WordSizeReduction, ZeroResultHasSignZero) {
    EXPECT_EQ(ReduceToWordSize(bigIntFromI32(256), 8).sign, 0);
}

}  // namespace
}  // namespace quorvel::test
