// `^` and `pow`: exact integer powers, word-size powers, real and complex
// powers, the unit rule of powers and the messages with the stack unchanged.
#include "tests/math_testing.h"

namespace quorvel::test {
namespace {

class PowerHandler : public MathTest {
protected:
    std::string topIntegerText() const {
        const Item* top = app.stack.at(0);
        if (top == nullptr || top->type != ItemType::Integer) return "<not an integer>";
        return integerText(top->asInteger());
    }
};

TEST_F(PowerHandler, IntegerPowersAreExactIntegers) {
    rpn(u"2 10 ^");
    EXPECT_TRUE(topIsInteger(1024));
    rpn(u"2 100 pow");
    EXPECT_EQ(topIntegerText(), "1267650600228229401496703205376");
    rpn(u"-3 3 ^");
    EXPECT_TRUE(topIsInteger(-27));
    rpn(u"0 0 ^");
    EXPECT_TRUE(topIsInteger(1));
    rpn(u"-1 1000001 ^");
    EXPECT_TRUE(topIsInteger(-1));
}

TEST_F(PowerHandler, AnIntegerPowerBeyondTenThousandDigitsIsAReal) {
    rpn(u"10 9999 ^");
    EXPECT_EQ(app.stack.at(0)->type, ItemType::Integer);
    rpn(u"10 10001 ^");
    ASSERT_EQ(app.stack.at(0)->type, ItemType::Real);
    EXPECT_TRUE(topIsReal(u"1E10001"));
}

TEST_F(PowerHandler, ANegativeIntegerExponentGivesAReal) {
    rpn(u"2 -3 ^");
    EXPECT_TRUE(topIsReal(u"0.125"));
    rpn(u"0 -1 ^");
    EXPECT_TRUE(topIsNaN());
}

TEST_F(PowerHandler, WordSizePowersAreTakenWithinTheWord) {
    app.wsize = 64;
    rpn(u"3 1000000 ^");
    EXPECT_EQ(topIntegerText(), "7682401271709541633");
    app.wsize = 8;
    rpn(u"-3 5 ^");
    EXPECT_TRUE(topIsInteger(13));   // -243 in two's complement
    app.wsize = 32;
    rpn(u"7 10 100 ^ ^");
    EXPECT_TRUE(topIsInteger(1));
}

TEST_F(PowerHandler, RealBaseWithIntegerExponent) {
    rpn(u"2.5 -3 ^");
    EXPECT_TRUE(topIsReal(u"0.064"));
    rpn(u"1.5 0 ^");
    EXPECT_TRUE(topIsReal(u"1"));
}

TEST_F(PowerHandler, RealExponents) {
    rpn(u"2 0.5 ^");
    EXPECT_TRUE(topRealNear("1.414213562373095048801688724209698078569671875376948073176679737990732478462107038850387534327641573"));
    rpn(u"1.5 2.5 ^");
    EXPECT_TRUE(topRealNear("2.755675960631075360471944584044127815961690915738753894486779138157330424639479404857341862242720264"));
    rpn(u"10 -1.5 ^");
    EXPECT_TRUE(topRealNear("3.162277660168379331998893544432718533719555139325216826857504852792594438639238221344248108379300295e-2"));
}

TEST_F(PowerHandler, ZeroBaseWithRealExponents) {
    rpn(u"0 2.5 ^");
    EXPECT_TRUE(topIsReal(u"0"));
    rpn(u"0 -2.5 ^");
    EXPECT_TRUE(topIsNaN());
    rpn(u"0 0.0 ^");
    EXPECT_TRUE(topIsReal(u"1"));
}

TEST_F(PowerHandler, NegativeBaseWithAnIntegralRealExponentIsReal) {
    rpn(u"-8 3.0 ^");
    EXPECT_TRUE(topRealNear("-512"));
    rpn(u"-2 4.0 ^");
    EXPECT_TRUE(topRealNear("16"));
}

TEST_F(PowerHandler, NegativeBaseWithAFractionalExponentIsTheComplexPrincipalValue) {
    rpn(u"-8 1 3 / ^");
    EXPECT_TRUE(topComplexNear("1", "1.732050807568877293527446341505872366942805253810380628055806979451933016908800037081146186757248576"));
}

TEST_F(PowerHandler, ComplexPowers) {
    rpn(u"1 2 i * + 10 ^");
    EXPECT_TRUE(topComplexIs(u"237", u"-3116"));
    rpn(u"1 2 i * + -2 ^");
    EXPECT_TRUE(topComplexNear("-1.2e-1", "-1.6e-1"));
    rpn(u"i 2.0 ^");
    EXPECT_TRUE(topComplexIs(u"-1", u"0"));
    rpn(u"i i ^");
    EXPECT_TRUE(topComplexNear("2.078795763507619085469556198349787700338778416317696080751358830554198772854821397886002778654260353e-1", "0"));
    rpn(u"1 2 i * + 0.5 ^");
    EXPECT_TRUE(topComplexNear("1.272019649514068964252422461737491491715608041840096248616640382539297575536068011830384214988460259",
                               "7.861513777574232860695585858429589295231220578377232376649019701011820476223109137119128891585081356e-1"));
}

TEST_F(PowerHandler, AnIntegerExponentMultipliesTheUnits) {
    pushInt(3, metres());
    pushInt(2);
    opPow(app, app.stack);
    EXPECT_TRUE(topIsInteger(9, UnitVector{2, 0, 0, 0, 0, 0, 0, 0}));
    pushReal(u"2", seconds());
    pushInt(-1);
    opPow(app, app.stack);
    EXPECT_TRUE(topIsReal(u"0.5", UnitVector{0, 0, -1, 0, 0, 0, 0, 0}));
}

TEST_F(PowerHandler, ABaseWithUnitsNeedsAnIntegerExponent) {
    pushInt(3, metres());
    pushReal(u"2");
    EXPECT_TRUE(refuses(opPow, u"Invalid Units"));
}

TEST_F(PowerHandler, TheExponentMustBeDimensionless) {
    pushInt(3);
    pushInt(2, metres());
    EXPECT_TRUE(refuses(opPow, u"Invalid Units"));
}

TEST_F(PowerHandler, AHugeExponentOfABaseWithUnitsIsInvalidUnits) {
    pushInt(3, metres());
    rpn(u"2 40 ^");
    EXPECT_TRUE(refuses(opPow, u"Invalid Units"));
}

TEST_F(PowerHandler, TypesAndMissingOperands) {
    pushInt(3);
    push(Item::string(u"2"));
    EXPECT_TRUE(refuses(opPow, u"Invalid Data Type"));
    app.stack.freeAll();
    pushInt(3);
    EXPECT_TRUE(refusesAgain(opPow, u"Missing Operand"));
}

TEST_F(PowerHandler, AlgebraicPowerIsRightOfTheProduct) {
    alg(u"2 * 3 ^ 2");
    EXPECT_TRUE(topIsInteger(18));
}

}  // namespace
}  // namespace quorvel::test
