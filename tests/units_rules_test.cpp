// The unit rules of the operations: the unit-vector helpers, and the checks
// and unit arithmetic of the handlers seen through typed command lines.
#include "tests/units_testing.h"
#include "units/unitrules.h"

namespace quorvel::test {
namespace {

TEST(UnitRules, AddAndSubtractExponents) {
    EXPECT_EQ(AddExponents(units(1, 0, -1), units(0, 1, -1)), units(1, 1, -2));
    EXPECT_EQ(SubtractExponents(units(1, 0, -1), units(1, 0, -2)), units(0, 0, 1));
}

TEST(UnitRules, ExponentsWrapInThirtyTwoBits) {
    const UnitVector big = units(2147483647, 0, 0);
    EXPECT_EQ(AddExponents(big, metres())[Length], -2147483647 - 1);
    EXPECT_EQ(PowerUnits(units(65536, 0, 0), 65536)[Length], 0);
}

TEST(UnitRules, IntegerPowerMultipliesEveryExponent) {
    EXPECT_EQ(PowerUnits(units(1, 0, -2), 3), units(3, 0, -6));
    EXPECT_EQ(PowerUnits(units(1, 0, -2), -1), units(-1, 0, 2));
    EXPECT_EQ(PowerUnits(units(1, 0, -2), 0), NoUnits);
}

TEST(UnitRules, IntegerPowerUnitsOfABigInteger) {
    EXPECT_EQ(IntegerPowerUnits(metres(), bigIntFromI32(-2)), units(-2, 0, 0));
    BigInt huge = bigIntFromU32(4000000000u);
    EXPECT_FALSE(IntegerPowerUnits(metres(), huge).has_value());
    EXPECT_EQ(IntegerPowerUnits(NoUnits, huge), NoUnits);
}

TEST(UnitRules, PowerOperands) {
    EXPECT_TRUE(PowerOperandsAcceptable(metres(), NoUnits, true));
    EXPECT_FALSE(PowerOperandsAcceptable(metres(), NoUnits, false));
    EXPECT_TRUE(PowerOperandsAcceptable(NoUnits, NoUnits, false));
    EXPECT_FALSE(PowerOperandsAcceptable(NoUnits, metres(), true));
}

TEST(UnitRules, SquareRootHalvesEvenExponents) {
    EXPECT_EQ(SquareRootUnits(units(2, 0, -4)), units(1, 0, -2));
    EXPECT_EQ(SquareRootUnits(units(-2, 0, 0)), units(-1, 0, 0));
    EXPECT_FALSE(SquareRootUnits(units(1, 0, 0)).has_value());
    EXPECT_FALSE(SquareRootUnits(units(0, 0, -3)).has_value());
    EXPECT_EQ(SquareRootUnits(NoUnits), NoUnits);
}

TEST(UnitRules, TrigonometricArguments) {
    EXPECT_TRUE(IsTrigArgument(NoUnits));
    EXPECT_TRUE(IsTrigArgument(RadianUnits));
    EXPECT_FALSE(IsTrigArgument(units(0, 0, 0, 0, 0, 0, 0, 2)));
    EXPECT_FALSE(IsTrigArgument(metres()));
    EXPECT_FALSE(IsTrigArgument(units(1, 0, 0, 0, 0, 0, 0, 1)));
    EXPECT_TRUE(IsInRadians(RadianUnits));
    EXPECT_FALSE(IsInRadians(NoUnits));
}

TEST(UnitRules, DimensionlessAndSameUnits) {
    EXPECT_TRUE(IsDimensionless(NoUnits));
    EXPECT_FALSE(IsDimensionless(RadianUnits));
    EXPECT_TRUE(SameUnits(RadianUnits, RadianUnits));
    EXPECT_FALSE(SameUnits(RadianUnits, NoUnits));
}

class HandlerUnits : public UnitsTest {};

TEST_F(HandlerUnits, ProductAddsAndQuotientSubtracts) {
    rpn(u"3 'm' 2 's' *");
    EXPECT_TRUE(topIsInteger(6, units(1, 0, 1)));
    rpn(u"5 'm' 2 's' /");
    EXPECT_TRUE(topIsReal(u"2.5", units(1, 0, -1)));
    EXPECT_EQ(shown(), "2.5 m/s");
}

TEST_F(HandlerUnits, ReciprocalAndSquare) {
    rpn(u"4 's' inv");
    EXPECT_TRUE(topIsReal(u"0.25", units(0, 0, -1)));
    EXPECT_EQ(shown(), "0.25 Hz");
    rpn(u"3 'm' sqr");
    EXPECT_TRUE(topIsInteger(9, units(2, 0, 0)));
}

TEST_F(HandlerUnits, SumOfLengthAndTimeIsRefused) {
    rpn(u"1 'm' 1 's'");
    const auto before = snapshot();
    rpn(u"+");
    EXPECT_TRUE(shows(u"Incompatible Units"));
    EXPECT_TRUE(stackIs(before));
}

TEST_F(HandlerUnits, SumKeepsEqualUnits) {
    rpn(u"1 'km' 300 'm' +");
    EXPECT_TRUE(topIsReal(u"1300", metres()));
}

TEST_F(HandlerUnits, AnglePlusPlainNumberIsAPlainNumber) {
    rpn(u"1 'rad' 2 +");
    EXPECT_TRUE(topIsInteger(3, NoUnits));
    rpn(u"1 'rad' 2 'rad' -");
    EXPECT_TRUE(topIsInteger(-1, RadianUnits));
}

TEST_F(HandlerUnits, ComparisonIgnoresTheAngle) {
    rpn(u"1 'rad' 1 ==");
    EXPECT_TRUE(topIsInteger(1));
    rpn(u"2 'mrad' 1 'urad' >");
    EXPECT_TRUE(topIsInteger(1));
}

TEST_F(HandlerUnits, ComparisonOfDifferentDimensionsIsRefused) {
    rpn(u"1 'm' 1 's'");
    const auto before = snapshot();
    rpn(u"<");
    EXPECT_TRUE(shows(u"Incompatible Units"));
    EXPECT_TRUE(stackIs(before));
}

TEST_F(HandlerUnits, ModAndRedCompareAllEightExponents) {
    for (const char16_t* op : {u"mod", u"red"}) {
        app.stack.freeAll();
        ClearMessage(app);
        rpn(u"5 'rad' 2");
        const auto before = snapshot();
        rpn(op);
        EXPECT_TRUE(shows(u"Incompatible Units")) << toUtf8(op);
        EXPECT_TRUE(stackIs(before)) << toUtf8(op);
    }
    rpn(u"7 'm' 2 'm' mod");
    EXPECT_TRUE(topIsInteger(1, metres()));
}

TEST_F(HandlerUnits, IntegerPowerOfADimensionedBase) {
    rpn(u"2 'm' 3 ^");
    EXPECT_TRUE(topIsInteger(8, units(3, 0, 0)));
    rpn(u"2 's' -2 ^");
    EXPECT_EQ(app.stack.at(0)->units, units(0, 0, -2));
}

TEST_F(HandlerUnits, NonIntegerPowerNeedsADimensionlessBase) {
    rpn(u"4 'm' 0.5");
    const auto before = snapshot();
    rpn(u"^");
    EXPECT_TRUE(shows(u"Invalid Units"));
    EXPECT_TRUE(stackIs(before));
}

TEST_F(HandlerUnits, PowerExponentMustBeDimensionless) {
    rpn(u"2 3 'm'");
    const auto before = snapshot();
    rpn(u"pow");
    EXPECT_TRUE(shows(u"Invalid Units"));
    EXPECT_TRUE(stackIs(before));
}

TEST_F(HandlerUnits, SquareRootHalvesTheExponents) {
    rpn(u"9 'm^2/s^4' sqrt");
    EXPECT_TRUE(topIsReal(u"3", units(1, 0, -2)));
}

TEST_F(HandlerUnits, SquareRootOfAnOddExponentIsRefused) {
    rpn(u"4 'm'");
    const auto before = snapshot();
    rpn(u"sqrt");
    EXPECT_TRUE(shows(u"Invalid Units"));
    EXPECT_TRUE(stackIs(before));
}

TEST_F(HandlerUnits, SineOfALengthIsInvalidUnits) {
    rpn(u"1 'm'");
    const auto before = snapshot();
    rpn(u"sin");
    EXPECT_TRUE(shows(u"Invalid Units"));
    EXPECT_TRUE(stackIs(before));
}

TEST_F(HandlerUnits, SineOfAngleSquaredIsInvalidUnits) {
    rpn(u"1 'rad^2'");
    const auto before = snapshot();
    rpn(u"sin");
    EXPECT_TRUE(shows(u"Invalid Units"));
    EXPECT_TRUE(stackIs(before));
}

TEST_F(HandlerUnits, RadiansAreUsedAsTheyAreInDegreesMode) {
    app.trigMode = 1;
    alg(u"sin(90)");
    EXPECT_TRUE(topIsReal(u"1"));
    alg(u"sin(30 'deg')");   // an angle in radians after applying units
    EXPECT_EQ(shown(0, 0x80).substr(0, 6), "0.5");
    EXPECT_EQ(app.stack.at(0)->units, NoUnits);
}

TEST_F(HandlerUnits, InverseSineGivesRadians) {
    alg(u"asin(1)");
    EXPECT_EQ(app.stack.at(0)->units, RadianUnits);
}

TEST_F(HandlerUnits, LogarithmNeedsADimensionlessOperand) {
    rpn(u"2 'rad'");
    const auto before = snapshot();
    rpn(u"ln");
    EXPECT_TRUE(shows(u"Invalid Units"));
    EXPECT_TRUE(stackIs(before));
}

TEST_F(HandlerUnits, ModeCommandsRefuseUnits) {
    rpn(u"5 'm'");
    const auto before = snapshot();
    rpn(u"fix");
    EXPECT_TRUE(shows(u"Invalid Units"));
    EXPECT_TRUE(stackIs(before));
}

TEST_F(HandlerUnits, AbsAndNegKeepTheUnits) {
    rpn(u"-3 'm' abs");
    EXPECT_TRUE(topIsInteger(3, metres()));
    rpn(u"3 's' neg");
    EXPECT_TRUE(topIsInteger(-3, seconds()));
}

}  // namespace
}  // namespace quorvel::test
