// The random handlers `uniform`, `gauss` and `brnd`, and typed lines using them.
#include "lang/evaluator.h"
#include "numeric/random.h"
#include "tests/ops_testing.h"

namespace quorvel::test {
namespace {

class RandomOps : public HandlerTest {
protected:
    RandomOps() { app.random.seed(42); }

    // The generator the handler will use, as it is now.
    RandomState reference() const {
        RandomState copy = app.random;
        return copy;
    }
};

TEST_F(RandomOps, TheCalculatorsGeneratorStartsUnseeded) {
    AppState fresh;
    EXPECT_EQ(fresh.random.value(), 0u);
}

TEST_F(RandomOps, UniformPushesARealOfTheWorkingLengthBetweenZeroAndOne) {
    RandomState expected = reference();
    opUniform(app, app.stack);
    ASSERT_EQ(app.stack.count(), 1);
    const Item& top = *app.stack.head();
    EXPECT_EQ(top.type, ItemType::Real);
    EXPECT_EQ(top.units, NoUnits);
    EXPECT_EQ(top.asReal(), RandomUniform(expected, app.workingLength));
    EXPECT_EQ(top.asReal().length(), app.workingLength);
    EXPECT_GT(compare(top.asReal(), makeZero(2)), 0);
    EXPECT_LT(compare(top.asReal(), fromInt(2, 1)), 0);
    EXPECT_EQ(app.keptSeverity, 0);
}

TEST_F(RandomOps, UniformFollowsTheDigitSetting) {
    SetDigits(app, 1000);
    opUniform(app, app.stack);
    EXPECT_EQ(app.stack.head()->asReal().length(), 508);
}

TEST_F(RandomOps, GaussPushesTheCentralLimitValueAtTheWorkingLength) {
    RandomState expected = reference();
    opGauss(app, app.stack);
    ASSERT_EQ(app.stack.count(), 1);
    const Item& top = *app.stack.head();
    EXPECT_EQ(top.type, ItemType::Real);
    EXPECT_EQ(top.units, NoUnits);
    EXPECT_EQ(top.asReal(), RandomGauss(expected, app.workingLength));
}

TEST_F(RandomOps, BrndWithoutAWordSizeReportsInvalidWordSize) {
    app.wsize = 0;
    pushInt(7);
    EXPECT_TRUE(refuses(opBrnd, u"Invalid Word Size"));
    app.wsize = -16;
    ClearMessage(app);
    EXPECT_TRUE(refuses(opBrnd, u"Invalid Word Size"));
    EXPECT_EQ(app.random.value(), 42u);   // no draw was made
}

TEST_F(RandomOps, BrndFillsAWordOfTheWordSize) {
    for (int32_t bits : {1, 8, 17, 24, 64, 300}) {
        app.wsize = bits;
        RandomState expected = reference();
        opBrnd(app, app.stack);
        const Item& top = *app.stack.head();
        EXPECT_EQ(top.type, ItemType::Integer);
        EXPECT_EQ(top.units, NoUnits);
        EXPECT_EQ(top.asInteger(), integerFromWord(RandomWord(expected, bits))) << bits;
        EXPECT_GE(top.asInteger().sign, 0);
    }
    EXPECT_EQ(app.stack.count(), 6);
}

TEST_F(RandomOps, BrndValuesStayBelowTwoToTheWordSize) {
    app.wsize = 5;
    std::vector<int> seen(32, 0);
    for (int i = 0; i < 2000; ++i) {
        opBrnd(app, app.stack);
        const Item top = std::move(*app.stack.pop());
        const BigInt& n = top.asInteger();
        ASSERT_EQ(n.count(), 1);
        ASSERT_LT(n.limbs[0], 32);
        ++seen[n.limbs[0]];
    }
    for (int count : seen) EXPECT_GT(count, 20);   // every 5-bit value turns up
}

TEST_F(RandomOps, TypedLinesPushRandomValues) {
    RunCommandLine(app, u"uniform gauss 12 wsize brnd", 0);
    ASSERT_EQ(app.stack.count(), 3);
    EXPECT_EQ(app.stack.at(2)->type, ItemType::Real);
    EXPECT_EQ(app.stack.at(1)->type, ItemType::Real);
    EXPECT_EQ(app.stack.at(0)->type, ItemType::Integer);
    EXPECT_LT(app.stack.at(0)->asInteger().limbs[0], 4096);
    EXPECT_EQ(app.keptSeverity, 0);
}

TEST_F(RandomOps, AlgebraicUniformInAnExpression) {
    RunCommandLine(app, u"uniform * 0 + 1", 1);
    ASSERT_EQ(app.stack.count(), 1);
    EXPECT_TRUE(topIsReal(u"1"));
}

}  // namespace
}  // namespace quorvel::test
