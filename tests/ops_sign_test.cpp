// Absolute value and negation, and through them the shape every handler
// follows: missing operands, refusals that restore the list, resolving.
#include <gtest/gtest.h>

#include "lang/appstate.h"
#include "lang/handlers.h"
#include "lang/variables.h"
#include "numeric/bigint.h"
#include "numeric/bignum.h"
#include "tests/testhost.h"

namespace quorvel {
namespace {

class SignTest : public ::testing::Test {
protected:
    SignTest() { app.host = &host; }
    BigNum real(int32_t value) const { return fromInt(app.workingLength, value); }

    AppState app;
    test::RecordingHost host;
};

UnitVector metres() {
    UnitVector u{};
    u[Length] = 1;
    return u;
}

TEST_F(SignTest, AHandlerOnAnEmptyListReportsMissingOperandAndLeavesItEmpty) {
    opAbs(app, app.stack);
    EXPECT_TRUE(app.stack.empty());
    EXPECT_EQ(host.shownText(), u"Missing Operand");
    EXPECT_EQ(host.shownSeverity(), 4);
}

TEST_F(SignTest, AbsRefusesAStringLeavingTheStackUnchangedInRed) {
    app.stack.push(Item::integer(bigIntFromI32(1)));
    app.stack.push(Item::string(u"m"));
    opAbs(app, app.stack);
    ASSERT_EQ(app.stack.count(), 2);
    EXPECT_EQ(app.stack.at(0)->type, ItemType::String);
    EXPECT_EQ(app.stack.at(0)->asText(), u"m");
    EXPECT_EQ(app.stack.at(1)->asInteger(), bigIntFromI32(1));
    EXPECT_EQ(host.shownText(), u"Invalid Data Type");
    EXPECT_EQ(host.shownSeverity(), 4);   // red
}

TEST_F(SignTest, AbsOfANegativeIntegerIsAnIntegerWithItsUnits) {
    app.stack.push(Item::integer(bigIntFromI32(-42), metres()));
    opAbs(app, app.stack);
    ASSERT_EQ(app.stack.count(), 1);
    const Item& x = *app.stack.head();
    EXPECT_EQ(x.type, ItemType::Integer);
    EXPECT_EQ(x.asInteger(), bigIntFromI32(42));
    EXPECT_EQ(x.units, metres());
}

TEST_F(SignTest, AbsOfANonNegativeIntegerIsUnchanged) {
    app.stack.push(Item::integer(bigIntFromI32(0)));
    opAbs(app, app.stack);
    EXPECT_EQ(app.stack.head()->asInteger(), bigIntFromI32(0));
    app.stack.push(Item::integer(bigIntFromI32(7)));
    opAbs(app, app.stack);
    EXPECT_EQ(app.stack.head()->asInteger(), bigIntFromI32(7));
}

TEST_F(SignTest, AbsOfANegativeRealIsAReal) {
    app.stack.push(Item::real(real(-25), metres()));
    opAbs(app, app.stack);
    const Item& x = *app.stack.head();
    EXPECT_EQ(x.type, ItemType::Real);
    EXPECT_EQ(x.asReal(), real(25));
    EXPECT_EQ(x.units, metres());
}

TEST_F(SignTest, AbsOfNegativeInfinityIsPositiveInfinity) {
    app.stack.push(Item::real(makeInfinity(app.workingLength, -1)));
    opAbs(app, app.stack);
    EXPECT_EQ(app.stack.head()->asReal(), makeInfinity(app.workingLength, 1));
}

TEST_F(SignTest, AbsOfAComplexIsARealModulusWithTheUnits) {
    app.stack.push(Item::complex({real(3), real(-4)}, metres()));
    opAbs(app, app.stack);
    const Item& x = *app.stack.head();
    ASSERT_EQ(x.type, ItemType::Real);
    EXPECT_EQ(x.units, metres());
    EXPECT_EQ(x.asReal().length(), app.workingLength);
    EXPECT_EQ(compare(x.asReal(), real(5)), 0);
}

TEST_F(SignTest, AbsOfAVariableWorksOnItsValueAndLeavesTheVariableAlone) {
    app.variables.FindVariable(u"a", true)->value->assignFrom(Item::integer(bigIntFromI32(-5)));
    app.stack.push(Item::variableRef(u"a"));
    opAbs(app, app.stack);
    ASSERT_EQ(app.stack.count(), 1);
    EXPECT_EQ(app.stack.head()->asInteger(), bigIntFromI32(5));
    EXPECT_EQ(app.variables.FindVariable(u"a", false)->value->asInteger(), bigIntFromI32(-5));
}

TEST_F(SignTest, AbsOfAnUnknownVariableReportsItAndPushesTheReferenceBack) {
    app.stack.push(Item::variableRef(u"q"));
    opAbs(app, app.stack);
    ASSERT_EQ(app.stack.count(), 1);
    EXPECT_EQ(app.stack.head()->type, ItemType::VariableRef);
    EXPECT_EQ(host.shownText(), u"Undefined Variable Referenced");   // the first error stays
    EXPECT_NE(app.variables.FindVariable(u"q", false), nullptr);
}

TEST_F(SignTest, NegChangesTheSignOfAnInteger) {
    app.stack.push(Item::integer(bigIntFromI32(5), metres()));
    opNeg(app, app.stack);
    EXPECT_EQ(app.stack.head()->asInteger(), bigIntFromI32(-5));
    EXPECT_EQ(app.stack.head()->units, metres());
    opNeg(app, app.stack);
    EXPECT_EQ(app.stack.head()->asInteger(), bigIntFromI32(5));
}

TEST_F(SignTest, NegOfZeroIsZero) {
    app.stack.push(Item::integer(bigIntFromI32(0)));
    opNeg(app, app.stack);
    EXPECT_EQ(app.stack.head()->asInteger(), bigIntFromI32(0));
    app.stack.push(Item::real(real(0)));
    opNeg(app, app.stack);
    EXPECT_TRUE(app.stack.head()->asReal().isZero());
}

TEST_F(SignTest, NegChangesTheSignOfARealAndBothPartsOfAComplex) {
    app.stack.push(Item::real(real(12)));
    opNeg(app, app.stack);
    EXPECT_EQ(app.stack.head()->asReal(), real(-12));
    app.stack.push(Item::complex({real(1), real(-2)}));
    opNeg(app, app.stack);
    const Item& z = *app.stack.head();
    EXPECT_EQ(z.type, ItemType::Complex);
    EXPECT_EQ(z.asComplex().re, real(-1));
    EXPECT_EQ(z.asComplex().im, real(2));
}

TEST_F(SignTest, NegOfAnIntegerIsReducedToTheWordSize) {
    app.wsize = 8;
    app.stack.push(Item::integer(bigIntFromI32(5)));
    opNeg(app, app.stack);
    EXPECT_EQ(app.stack.head()->asInteger(), bigIntFromI32(251));
}

TEST_F(SignTest, NegOfARealIsNotReducedToTheWordSize) {
    app.wsize = 8;
    app.stack.push(Item::real(real(5)));
    opNeg(app, app.stack);
    EXPECT_EQ(app.stack.head()->asReal(), real(-5));
}

TEST_F(SignTest, NegRefusesAKeywordOrCharacter) {
    app.stack.push(Item::character(u'('));
    opNeg(app, app.stack);
    ASSERT_EQ(app.stack.count(), 1);
    EXPECT_EQ(app.stack.head()->asCharacter(), u'(');
    EXPECT_EQ(host.shownText(), u"Invalid Data Type");
}

}  // namespace
}  // namespace quorvel
