// ceil floor ip nint fp on integers and reals.
#include "tests/ops_testing.h"

namespace quorvel::test {
namespace {

using Round = HandlerTest;

struct RoundCase {
    const char16_t* value;
    int32_t ceil, floor, ip, nint;
};

const RoundCase cases[] = {
    {u"2.5", 3, 2, 2, 3},     {u"-2.5", -2, -3, -2, -3}, {u"2.4", 3, 2, 2, 2},   {u"-2.6", -2, -3, -2, -3},
    {u"0.3", 1, 0, 0, 0},     {u"-0.3", 0, -1, 0, 0},    {u"0.5", 1, 0, 0, 1},   {u"-0.5", 0, -1, 0, -1},
    {u"7", 7, 7, 7, 7},       {u"0", 0, 0, 0, 0},        {u"123456.999", 123457, 123456, 123456, 123457},
};

TEST_F(Round, RealsGiveExactIntegers) {
    for (const RoundCase& c : cases) {
        const std::pair<Handler, int32_t> runs[] = {{opCeil, c.ceil}, {opFloor, c.floor}, {opIp, c.ip}, {opNint, c.nint}};
        for (const auto& [handler, expected] : runs) {
            app.stack.freeAll();
            pushReal(c.value);
            handler(app, app.stack);
            EXPECT_EQ(app.stack.count(), 1);
            EXPECT_TRUE(topIsInteger(expected)) << toUtf8(c.value);
        }
    }
}

TEST_F(Round, IntegersAreTheirOwnIntegerParts) {
    for (Handler handler : {opCeil, opFloor, opIp, opNint}) {
        app.stack.freeAll();
        pushInt(-17, metres());
        handler(app, app.stack);
        EXPECT_TRUE(topIsInteger(-17, metres()));
    }
}

TEST_F(Round, UnitsAreKept) {
    pushReal(u"2.5", seconds());
    opFloor(app, app.stack);
    EXPECT_TRUE(topIsInteger(2, seconds()));
}

TEST_F(Round, WordSizeReducesTheInteger) {
    app.wsize = 8;
    pushReal(u"-2.5");
    opFloor(app, app.stack);
    EXPECT_TRUE(topIsInteger(253));
}

TEST_F(Round, LargeRealsGiveLargeIntegers) {
    pushReal(u"1.5E40");
    opIp(app, app.stack);
    ASSERT_EQ(app.stack.at(0)->type, ItemType::Integer);
    EXPECT_EQ(app.stack.at(0)->asInteger(), ParseInteger(u"15000000000000000000000000000000000000000", 10));
}

TEST_F(Round, InfinityAndNaNComeBackAsTheyAre) {
    for (Handler handler : {opCeil, opFloor, opIp, opNint}) {
        app.stack.freeAll();
        push(Item::real(makeInfinity(app.workingLength, -1)));
        handler(app, app.stack);
        ASSERT_EQ(app.stack.at(0)->type, ItemType::Real);
        EXPECT_TRUE(app.stack.at(0)->asReal().isInfinite());
        app.stack.freeAll();
        push(Item::real(makeNaN()));
        handler(app, app.stack);
        EXPECT_TRUE(topIsNaN());
    }
}

TEST_F(Round, FractionPartKeepsTheSign) {
    pushReal(u"-2.75", metres());
    opFp(app, app.stack);
    EXPECT_TRUE(topIsReal(u"-0.75", metres()));
}

TEST_F(Round, FractionPartOfAnIntegerIsIntegerZero) {
    pushInt(9, metres());
    opFp(app, app.stack);
    EXPECT_TRUE(topIsInteger(0, metres()));
}

TEST_F(Round, FractionPartOfInfinityIsZeroAndOfNaNIsNaN) {
    push(Item::real(makeInfinity(app.workingLength, 1)));
    opFp(app, app.stack);
    ASSERT_EQ(app.stack.at(0)->type, ItemType::Real);
    EXPECT_TRUE(app.stack.at(0)->asReal().isZero());
    push(Item::real(makeNaN()));
    opFp(app, app.stack);
    EXPECT_TRUE(topIsNaN());
}

TEST_F(Round, InvalidDataTypeForEveryOperation) {
    for (Handler handler : {opCeil, opFloor, opIp, opNint, opFp}) {
        app.stack.freeAll();
        app.keptSeverity = 0;
        push(Item::string(u"2.5"));
        EXPECT_TRUE(refuses(handler, u"Invalid Data Type"));
    }
}

TEST_F(Round, MissingOperandForEveryOperation) {
    for (Handler handler : {opCeil, opFloor, opIp, opNint, opFp}) {
        app.keptSeverity = 0;
        EXPECT_TRUE(refuses(handler, u"Missing Operand"));
    }
}

}  // namespace
}  // namespace quorvel::test
