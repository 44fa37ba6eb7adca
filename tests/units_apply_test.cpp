// `applyunits`: a value and a unit string give the value in SI with the
// dimension attached; ScaleItem and the refusals.
#include "tests/units_testing.h"

namespace quorvel::test {
namespace {

class ApplyUnits : public UnitsTest {};

TEST_F(ApplyUnits, KilometresBecomeARealInMetres) {
    apply(integer(5), u"km");
    EXPECT_EQ(app.stack.count(), 1);
    EXPECT_TRUE(topIsReal(u"5000", metres()));
}

TEST_F(ApplyUnits, MetresKeepTheInteger) {
    apply(integer(5), u"m");
    EXPECT_TRUE(topIsInteger(5, metres()));
}

TEST_F(ApplyUnits, MetresPerSecondSquared) {
    apply(integer(1), u"m/s^2");
    EXPECT_TRUE(topIsInteger(1, units(1, 0, -2)));
}

TEST_F(ApplyUnits, JoulePerKelvinPerMole) {
    apply(integer(1), u"J*K^-1*mol^-1");
    EXPECT_TRUE(topIsInteger(1, units(2, 1, -2, -1, -1)));
}

TEST_F(ApplyUnits, DigitExponentEqualsCaretExponent) {
    apply(integer(3), u"m2");
    EXPECT_TRUE(topIsInteger(3, units(2, 0, 0)));
    apply(integer(3), u"m^2");
    EXPECT_TRUE(topIsInteger(3, units(2, 0, 0)));
}

TEST_F(ApplyUnits, SlashPutsKilogramsAndSecondsInTheDenominator) {
    apply(integer(1), u"m^3/kg*s^2");
    EXPECT_TRUE(topIsInteger(1, units(3, -1, -2)));
}

TEST_F(ApplyUnits, UnknownUnitIsAnInvalidUnitString) {
    pushInt(7);
    push(Item::string(u"xyz"));
    EXPECT_TRUE(refuses(opApplyunits, u"Invalid Unit String"));
}

TEST_F(ApplyUnits, UnknownNameInTheMiddleKeepsTheMetresOnly) {
    apply(integer(2), u"m*xyz*s");
    EXPECT_TRUE(topIsInteger(2, metres()));
}

TEST_F(ApplyUnits, CaseMattersForUnitNames) {
    pushInt(1);
    push(Item::string(u"Km"));
    EXPECT_TRUE(refuses(opApplyunits, u"Invalid Unit String"));
}

TEST_F(ApplyUnits, DerivedUnitExponentScalesButCountsOnce) {
    apply(integer(1), u"kHz^2");
    EXPECT_TRUE(topIsReal(u"1000000", units(0, 0, -1)));
}

TEST_F(ApplyUnits, DerivedUnitAfterSlashAddsItsExponentsAsNumerator) {
    apply(integer(1), u"m/N");
    EXPECT_TRUE(topIsInteger(1, units(2, 1, -2)));
    apply(integer(1), u"J/T");
    EXPECT_TRUE(topIsInteger(1, units(2, 2, -4, 0, 0, -1)));
}

TEST_F(ApplyUnits, DerivedUnitAfterSlashStillDividesByItsFactor) {
    apply(integer(1), u"m/kHz");
    EXPECT_TRUE(topIsReal(u"0.001", units(1, 0, -1)));
}

TEST_F(ApplyUnits, BaseUnitsTakeSignedExponents) {
    apply(integer(2), u"km^-2");
    EXPECT_TRUE(topIsReal(u"0.000002", units(-2, 0, 0)));
    apply(integer(1), u"cm^3");
    EXPECT_TRUE(topIsReal(u"0.000001", units(3, 0, 0)));
}

TEST_F(ApplyUnits, UnitsAddToThoseTheValueHas) {
    apply(integer(4, metres()), u"s");
    EXPECT_TRUE(topIsInteger(4, units(1, 0, 1)));
}

TEST_F(ApplyUnits, RealValueIsScaled) {
    apply(real(u"2.5"), u"ft");
    EXPECT_TRUE(topIsReal(u"0.762", metres()));
}

TEST_F(ApplyUnits, ComplexValueHasBothPartsScaled) {
    push(Item::complex(ComplexNum{number(u"1.5"), number(u"-2")}));
    push(Item::string(u"km"));
    opApplyunits(app, app.stack);
    ASSERT_EQ(app.stack.at(0)->type, ItemType::Complex);
    EXPECT_EQ(app.stack.at(0)->units, metres());
    EXPECT_EQ(compare(app.stack.at(0)->asComplex().re, number(u"1500")), 0);
    EXPECT_EQ(compare(app.stack.at(0)->asComplex().im, number(u"-2000")), 0);
}

TEST_F(ApplyUnits, NonNumericValueGetsTheExponentsOnly) {
    apply(Item::string(u"abc"), u"km");
    ASSERT_EQ(app.stack.at(0)->type, ItemType::String);
    EXPECT_EQ(app.stack.at(0)->asText(), u"abc");
    EXPECT_EQ(app.stack.at(0)->units, metres());
}

TEST_F(ApplyUnits, EmptyStackIsMissingOperand) {
    EXPECT_TRUE(refuses(opApplyunits, u"Missing Operand"));
}

TEST_F(ApplyUnits, OneOperandGoesBack) {
    push(Item::string(u"m"));
    EXPECT_TRUE(refuses(opApplyunits, u"Missing Operand"));
}

TEST_F(ApplyUnits, UnitsThatAreNotAStringAreInvalidDataType) {
    pushInt(5);
    pushInt(3);
    EXPECT_TRUE(refuses(opApplyunits, u"Invalid Data Type"));
}

TEST_F(ApplyUnits, VariableReferencesAreResolved) {
    app.variables.FindVariable(u"len", true)->value->assignFrom(integer(3));
    app.variables.FindVariable(u"unit", true)->value->assignFrom(Item::string(u"km"));
    pushVar(u"len");
    pushVar(u"unit");
    opApplyunits(app, app.stack);
    EXPECT_EQ(app.stack.count(), 1);
    EXPECT_TRUE(topIsReal(u"3000", metres()));
    // The variable itself is not changed.
    EXPECT_EQ(app.variables.FindVariable(u"len", false)->value->units, NoUnits);
}

TEST_F(ApplyUnits, UndefinedVariableIsReportedAndCreated) {
    pushVar(u"nothing");
    push(Item::string(u"m"));
    opApplyunits(app, app.stack);
    EXPECT_TRUE(shows(u"Undefined Variable Referenced"));
    EXPECT_NE(app.variables.FindVariable(u"nothing", false), nullptr);
}

TEST_F(ApplyUnits, ExactDecimalFactorsStayExactAtThousandDigits) {
    SetDigits(app, 1000);
    apply(integer(1), u"psi");
    EXPECT_TRUE(topIsReal(u"6894.7572931683613367", units(-1, 1, -2)));
    apply(integer(1), u"hp");
    EXPECT_TRUE(topIsReal(u"745.69987158227022", units(2, 1, -3)));
    apply(integer(3), u"tsp");
    EXPECT_TRUE(topIsReal(u"0.00001478676478125", units(3, 0, 0)));
}

TEST_F(ApplyUnits, QuotientFactorIsRoundedOnceAtTheWorkingLength) {
    apply(integer(1), u"torr");
    const BigNum expected = divide(number(u"101325"), number(u"760"));
    EXPECT_EQ(compare(app.stack.at(0)->asReal(), expected), 0);
}

// ScaleItem on its own.
class ScaleItemTest : public UnitsTest {};

TEST_F(ScaleItemTest, ExponentOneMultiplies) {
    Item item = integer(3, metres());
    ScaleItem(app, item, real(u"0.3048"), 1);
    ASSERT_EQ(item.type, ItemType::Real);
    EXPECT_EQ(compare(item.asReal(), number(u"0.9144")), 0);
    EXPECT_EQ(item.units, metres());   // units are not touched
}

TEST_F(ScaleItemTest, PowersAndReciprocals) {
    Item item = integer(1);
    ScaleItem(app, item, real(u"10"), 3);
    EXPECT_EQ(compare(item.asReal(), number(u"1000")), 0);
    ScaleItem(app, item, real(u"10"), -5);
    EXPECT_EQ(compare(item.asReal(), number(u"0.01")), 0);
    ScaleItem(app, item, real(u"7"), 0);   // factor^0 is 1
    EXPECT_EQ(compare(item.asReal(), number(u"0.01")), 0);
}

TEST_F(ScaleItemTest, IntegerFactorWorksLikeAReal) {
    Item item = real(u"1.5");
    ScaleItem(app, item, integer(4), 2);
    EXPECT_EQ(compare(item.asReal(), number(u"24")), 0);
}

TEST_F(ScaleItemTest, OtherTypesAndFactorsLeaveTheItemAlone) {
    Item text = Item::string(u"abc");
    ScaleItem(app, text, real(u"2"), 1);
    EXPECT_EQ(text.type, ItemType::String);
    Item value = integer(3);
    ScaleItem(app, value, Item::string(u"2"), 1);
    EXPECT_TRUE(value.type == ItemType::Integer && value.asInteger() == bigIntFromI32(3));
}

TEST_F(ScaleItemTest, ApplyUnitFactorsWorksOnACopy) {
    const Item value = integer(2);
    const Item result = ApplyUnitFactors(app, value, ParseUnitString(u"km/h"));
    EXPECT_EQ(value.type, ItemType::Integer);
    EXPECT_EQ(value.units, NoUnits);
    ASSERT_EQ(result.type, ItemType::Real);
    EXPECT_EQ(result.units, units(1, 0, -1));
    // 2 is scaled by 1000, then by the reciprocal of 3600.
    const BigNum perHour = divide(fromInt(app.workingLength, 1), number(u"3600"));
    EXPECT_EQ(compare(result.asReal(), multiply(number(u"2000"), perHour)), 0);
}

}  // namespace
}  // namespace quorvel::test
