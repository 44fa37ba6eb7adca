// The comparisons == != < <= > >= of the second entry against the top.
#include "tests/ops_testing.h"

namespace quorvel::test {
namespace {

using Compare = HandlerTest;

struct RelationCase {
    Handler handler;
    const char* name;
    bool less, equal, greater;   // result when y < x, y == x, y > x
};

const RelationCase relations[] = {
    {opEqual, "==", false, true, false},      {opNotEqual, "!=", true, false, true},
    {opLess, "<", true, false, false},        {opLessEqual, "<=", true, true, false},
    {opGreater, ">", false, false, true},     {opGreaterEqual, ">=", false, true, true},
};

TEST_F(Compare, IntegersForEveryRelation) {
    for (const RelationCase& c : relations) {
        for (int32_t y : {2, 3, 4}) {
            app.stack.freeAll();
            pushInt(y);
            pushInt(3);
            c.handler(app, app.stack);
            const bool expected = y < 3 ? c.less : y == 3 ? c.equal : c.greater;
            EXPECT_EQ(app.stack.count(), 1);
            EXPECT_TRUE(topIsInteger(expected ? 1 : 0)) << y << ' ' << c.name << " 3";
        }
    }
}

TEST_F(Compare, RealsForEveryRelation) {
    for (const RelationCase& c : relations) {
        for (const char16_t* y : {u"2.75", u"3", u"3.25"}) {
            app.stack.freeAll();
            pushReal(y);
            pushReal(u"3.0");
            c.handler(app, app.stack);
            const int order = compare(number(y), number(u"3"));
            const bool expected = order < 0 ? c.less : order == 0 ? c.equal : c.greater;
            EXPECT_TRUE(topIsInteger(expected ? 1 : 0)) << toUtf8(y) << ' ' << c.name << " 3";
        }
    }
}

TEST_F(Compare, IntegerAgainstRealComparesAsReals) {
    pushInt(3);
    pushReal(u"3.0");
    opEqual(app, app.stack);
    EXPECT_TRUE(topIsInteger(1));
    app.stack.freeAll();
    pushReal(u"2.5");
    pushInt(3);
    opLess(app, app.stack);
    EXPECT_TRUE(topIsInteger(1));
}

TEST_F(Compare, LargeIntegersCompareExactly) {
    push(Item::integer(ParseInteger(u"100000000000000000000000000000000000001", 10)));
    push(Item::integer(ParseInteger(u"100000000000000000000000000000000000000", 10)));
    opGreater(app, app.stack);
    EXPECT_TRUE(topIsInteger(1));
}

TEST_F(Compare, ResultHasNoUnits) {
    pushInt(3, metres());
    pushInt(3, metres());
    opEqual(app, app.stack);
    EXPECT_TRUE(topIsInteger(1, NoUnits));
}

TEST_F(Compare, AngleIsNotCompared) {
    pushInt(3, radians());
    pushInt(3);
    opEqual(app, app.stack);
    EXPECT_TRUE(topIsInteger(1));
}

TEST_F(Compare, IncompatibleUnitsForEveryRelation) {
    for (const RelationCase& c : relations) {
        app.stack.freeAll();
        app.keptSeverity = 0;
        pushInt(3, metres());
        pushInt(3, seconds());
        EXPECT_TRUE(refuses(c.handler, u"Incompatible Units")) << c.name;
    }
}

TEST_F(Compare, InvalidDataTypeForEveryRelation) {
    for (const RelationCase& c : relations) {
        app.stack.freeAll();
        app.keptSeverity = 0;
        pushInt(3);
        push(Item::string(u"3"));
        EXPECT_TRUE(refuses(c.handler, u"Invalid Data Type")) << c.name;
    }
}

TEST_F(Compare, MissingOperandForEveryRelation) {
    for (const RelationCase& c : relations) {
        app.stack.freeAll();
        app.keptSeverity = 0;
        pushInt(3);
        EXPECT_TRUE(refuses(c.handler, u"Missing Operand")) << c.name;
    }
}

// NaN is unordered: only != holds.
TEST_F(Compare, NaNIsUnordered) {
    for (const RelationCase& c : relations) {
        app.stack.freeAll();
        push(Item::real(makeNaN()));
        pushInt(5);
        c.handler(app, app.stack);
        EXPECT_TRUE(topIsInteger(c.handler == opNotEqual ? 1 : 0)) << "NaN " << c.name << " 5";
    }
}

TEST_F(Compare, InfinitiesAreOrdered) {
    push(Item::real(makeInfinity(app.workingLength, 1)));
    pushReal(u"1E100");
    opGreater(app, app.stack);
    EXPECT_TRUE(topIsInteger(1));
}

}  // namespace
}  // namespace quorvel::test
