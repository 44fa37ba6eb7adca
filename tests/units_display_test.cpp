// Conversion to display units, the unit text, aliases in the display text,
// `remunits`, `unit` and the display-unit report lines.
#include "tests/units_testing.h"

namespace quorvel::test {
namespace {

constexpr int32_t Plain = 0x80;

class UnitText : public UnitsTest {};

TEST_F(UnitText, NoDimensionGivesNoText) {
    Item item = integer(5);
    EXPECT_FALSE(ToDisplayUnits(app, item, true, 0).has_value());
}

TEST_F(UnitText, LengthBeforeMassOnATie) { EXPECT_EQ(unitText(units(1, 1, -2)), "m·kg/s²"); }

TEST_F(UnitText, OnlyNegativeExponentsWriteNoSlash) {
    EXPECT_EQ(unitText(units(0, 0, -1)), "s⁻¹");
    EXPECT_EQ(unitText(units(0, 0, -1, 0, 0, -1)), "s⁻¹·A⁻¹");
}

TEST_F(UnitText, HenryAndVolt) {
    EXPECT_EQ(unitText(units(2, 1, -2, 0, 0, -2)), "m²·kg/s²·A²");
    // Current -1 sorts before Time -3.
    EXPECT_EQ(unitText(units(2, 1, -3, 0, 0, -1)), "m²·kg/A·s³");
}

TEST_F(UnitText, OnlyOneSlash) { EXPECT_EQ(unitText(units(-1, 1, -2)), "kg/m·s²"); }

TEST_F(UnitText, AllDimensionsInTheirSymbols) {
    EXPECT_EQ(unitText(units(1, 1, 1, 1, 1, 1, 1, 1)), "m·kg·s·mol·K·A·cd·rad");
}

TEST_F(UnitText, ManyDigitExponentsAsSuperscripts) {
    EXPECT_EQ(unitText(units(12, 0, -10)), "m¹²/s¹⁰");
    EXPECT_EQ(unitText(units(0, 0, 0, 0, 0, 0, 0, -30)), "rad⁻³⁰");
}

TEST_F(UnitText, PlainTextUsesAsciiStarAndCaret) {
    EXPECT_EQ(unitText(units(1, 1, -2), Plain), "m*kg/s^2");
    EXPECT_EQ(unitText(units(0, 0, -1), Plain), "s^-1");
    EXPECT_EQ(unitText(units(2, 1, -3, 0, 0, -1), Plain), "m^2*kg/A*s^3");
}

TEST_F(UnitText, DisplayFormsAndSymbols) {
    app.displayUnits[Length] = u"um";
    EXPECT_EQ(unitText(units(1, 0, -1)), "μm/s");
    EXPECT_EQ(unitText(units(1, 0, -1), Plain), "um/s");
}

TEST_F(UnitText, ConversionClearsTheExponents) {
    Item item = integer(3, units(1, 0, -1));
    ToDisplayUnits(app, item, false, 0);
    EXPECT_EQ(item.units, NoUnits);
    EXPECT_TRUE(item.type == ItemType::Integer && item.asInteger() == bigIntFromI32(3));
}

TEST_F(UnitText, StringsAndReferencesAreLeftAlone) {
    Item text = Item::string(u"abc");
    text.units = metres();
    EXPECT_FALSE(ToDisplayUnits(app, text, true, 0).has_value());
    EXPECT_EQ(text.units, metres());
}

class DisplayUnits : public UnitsTest {};

TEST_F(DisplayUnits, KilometresShowScaledValues) {
    app.displayUnits[Length] = u"km";
    pushInt(1500, metres());
    EXPECT_EQ(shown(), "1.5 km");
}

TEST_F(DisplayUnits, StoredSymbolMatchesWithoutCase) {
    app.displayUnits[Length] = u"KM";
    pushInt(1500, metres());
    EXPECT_EQ(shown(), "1.5 km");
}

TEST_F(DisplayUnits, UnknownStoredSymbolCountsAsTheSIUnit) {
    app.displayUnits[Length] = u"furlong";
    pushInt(5, metres());
    EXPECT_EQ(shown(), "5 m");
}

TEST_F(DisplayUnits, ExponentScalesTheDisplayFactor) {
    app.displayUnits[Length] = u"cm";
    pushInt(2, units(2, 0, 0));
    EXPECT_EQ(shown(), "20000. cm²");
    app.displayUnits[Time] = u"h";
    pushReal(u"10", units(1, 0, -1));
    EXPECT_EQ(shown(), "3600000. cm/h");
}

TEST_F(DisplayUnits, RemunitsGivesTheShownNumberWithoutUnits) {
    app.displayUnits[Length] = u"km";
    pushInt(1500, metres());
    opRemunits(app, app.stack);
    EXPECT_TRUE(topIsReal(u"1.5"));
    EXPECT_EQ(shown(), "1.5");
}

TEST_F(DisplayUnits, RemunitsKeepsAnIntegerInSIUnits) {
    pushInt(7, units(1, 0, -1));
    opRemunits(app, app.stack);
    EXPECT_TRUE(topIsInteger(7));
}

TEST_F(DisplayUnits, RemunitsOnAnEmptyStack) { EXPECT_TRUE(refuses(opRemunits, u"Missing Operand")); }

TEST_F(DisplayUnits, RemunitsResolvesAVariable) {
    app.variables.FindVariable(u"d", true)->value->assignFrom(integer(2500, metres()));
    app.displayUnits[Length] = u"km";
    pushVar(u"d");
    opRemunits(app, app.stack);
    EXPECT_TRUE(topIsReal(u"2.5"));
}

TEST_F(DisplayUnits, MassPerTimeSquaredIsNotWattPerSquareMetre) {
    pushInt(1, units(0, 1, -2));
    EXPECT_EQ(shown(), "1 kg/s²");
    pushInt(1, units(0, 1, -3));
    EXPECT_EQ(shown(), "1 W·m⁻²");
}

TEST_F(DisplayUnits, NewtonByAlias) {
    pushInt(1, units(1, 1, -2));
    EXPECT_EQ(shown(), "1 N");
}

TEST_F(DisplayUnits, PlainTextShowsNoAlias) {
    pushInt(1, units(1, 1, -2));
    EXPECT_EQ(shown(0, Plain), "1 m*kg/s^2");
}

TEST_F(DisplayUnits, NamedUnitsOfTheAliasTable) {
    pushInt(1, units(0, 0, -1));
    EXPECT_EQ(shown(), "1 Hz");
    pushInt(1, units(2, 1, -2));
    EXPECT_EQ(shown(), "1 J");
    pushInt(1, units(2, 1, -3, 0, 0, -1));
    EXPECT_EQ(shown(), "1 V");
    pushInt(1, units(2, 1, -2, 0, 0, -2));
    EXPECT_EQ(shown(), "1 H");
    pushInt(1, units(0, 0, 1, 0, 0, 1));
    EXPECT_EQ(shown(), "1 C");
    pushInt(1, units(1, 1, -2, 0, 0, -2));
    EXPECT_EQ(shown(), "1 N·A⁻²");
}

TEST_F(DisplayUnits, PascalAndTeslaAreNeverNamed) {
    pushInt(1, units(-1, 1, -2));
    EXPECT_EQ(shown(), "1 kg/m·s²");
    pushInt(1, units(0, 1, -2, 0, 0, -1));
    EXPECT_EQ(shown(), "1 kg/A·s²");
}

TEST_F(DisplayUnits, CgsAliasesFollowTheDisplayUnits) {
    app.displayUnits[Length] = u"cm";
    app.displayUnits[Mass] = u"g";
    pushReal(u"0.00001", units(1, 1, -2));
    EXPECT_EQ(shown(), "1. dyn");
}

TEST_F(DisplayUnits, StilbAliasDoesNotRescaleTheNumber) {
    pushInt(3, units(-2, 0, 0, 0, 0, 0, 1));
    EXPECT_EQ(shown(), "3 sb");
    app.displayUnits[Length] = u"cm";
    EXPECT_EQ(shown(), "3·10⁻⁴ sb");
}

TEST_F(DisplayUnits, StringsShowWithoutUnits) {
    apply(Item::string(u"abc"), u"m");
    EXPECT_EQ(shown(), "'abc'");
}

TEST_F(DisplayUnits, VariableReferenceShowsItsValueWithUnits) {
    app.variables.FindVariable(u"q", true)->value->assignFrom(integer(5, metres()));
    pushVar(u"q");
    EXPECT_EQ(shown(), "q = 5 m");
}

TEST_F(DisplayUnits, ShowingAValueChangesNothing) {
    app.displayUnits[Length] = u"km";
    pushInt(9);
    pushInt(1500, metres());
    const auto before = snapshot();
    app.keptSeverity = Error;
    EXPECT_EQ(shown(), "1.5 km");
    EXPECT_TRUE(stackIs(before));
    EXPECT_EQ(app.keptSeverity, Error);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(DisplayUnits, EvaluationStateIsReusedAndFollowsTheSettings) {
    AppState& first = EvaluationStateFor(app);
    first.stack.push(integer(1));   // left over by an earlier evaluation
    app.displayUnits[Time] = u"h";
    SetDigits(app, 300);
    AppState& second = EvaluationStateFor(app);
    EXPECT_EQ(&first, &second);
    EXPECT_TRUE(second.stack.empty());
    EXPECT_EQ(second.workingLength, app.workingLength);
    EXPECT_EQ(second.displayUnits[Time], u"h");
    EXPECT_EQ(second.host, nullptr);
}

TEST_F(DisplayUnits, DegreesNeedPi) {
    app.displayUnits[Angle] = u"deg";
    apply(integer(90), u"deg");
    EXPECT_EQ(shown(), "90. deg");
}

class UnitCommand : public UnitsTest {};

TEST_F(UnitCommand, SetsTheDisplayUnitOfTheRowsDimension) {
    push(Item::string(u"ft"));
    opUnit(app, app.stack);
    EXPECT_EQ(app.stack.count(), 0);
    EXPECT_EQ(app.displayUnits[Length], u"ft");
    push(Item::string(u"mrad"));
    opUnit(app, app.stack);
    EXPECT_EQ(app.displayUnits[Angle], u"mrad");
    EXPECT_EQ(app.displayUnits[Length], u"ft");
}

TEST_F(UnitCommand, DerivedUnitsCannotBeDisplayUnits) {
    push(Item::string(u"N"));
    EXPECT_TRUE(refuses(opUnit, u"Invalid Unit Name"));
}

TEST_F(UnitCommand, UnknownOrMiscasedSymbol) {
    push(Item::string(u"KM"));
    EXPECT_TRUE(refuses(opUnit, u"Invalid Unit Name"));
    EXPECT_EQ(app.displayUnits[Length], u"m");
}

TEST_F(UnitCommand, NotAString) {
    pushInt(3);
    EXPECT_TRUE(refuses(opUnit, u"Invalid Data Type"));
}

TEST_F(UnitCommand, EmptyStack) { EXPECT_TRUE(refuses(opUnit, u"Missing Operand")); }

class UnitReport : public UnitsTest {};

TEST_F(UnitReport, DefaultDisplayUnits) {
    const auto lines = DisplayUnitReport(DisplayUnitRows(app));
    const char* expected[] = {"Length = m (meter)",           "Mass = kg (kilogram)",
                              "Time = s (second)",            "Amount = mol (mole)",
                              "Temperature = K (degree kelvin)", "Current = A (ampere)",
                              "Luminous Int. = cd (candela)", "Angle = rad (radian arc)"};
    for (int d = 0; d < DimensionCount; ++d) EXPECT_EQ(toUtf8(lines[d]), expected[d]);
}

TEST_F(UnitReport, ChosenUnitsShowDisplayFormAndName) {
    app.displayUnits[Length] = u"um";
    app.displayUnits[Time] = u"y";
    const auto lines = DisplayUnitReport(DisplayUnitRows(app));
    EXPECT_EQ(toUtf8(lines[Length]), "Length = μm (micrometer)");
    EXPECT_EQ(toUtf8(lines[Time]), "Time = y (year (Julian))");
}

TEST_F(UnitReport, SymbolWithoutARowShowsEmptyParts) {
    app.displayUnits[Mass] = u"KG";   // found without case when converting, but not here
    const auto rows = DisplayUnitRows(app);
    EXPECT_EQ(rows[Mass], nullptr);
    EXPECT_EQ(toUtf8(DisplayUnitReport(rows)[Mass]), "Mass =  ()");
}

TEST_F(UnitReport, DimensionLabels) {
    EXPECT_EQ(toUtf8(DimensionLabel(LuminousIntensity)), "Luminous Int.");
    EXPECT_TRUE(DimensionLabel(8).empty());
}

}  // namespace
}  // namespace quorvel::test
