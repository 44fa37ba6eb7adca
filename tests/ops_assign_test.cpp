// Assignments = += -= *= /= and the variable commands push and pop.
#include "lang/variables.h"
#include "tests/ops_testing.h"

namespace quorvel::test {
namespace {

using Assign = HandlerTest;
using CompoundAssign = HandlerTest;
using PushPop = HandlerTest;

// --- = ----------------------------------------------------------------------

TEST_F(Assign, StoresTheTopInTheSecondAndPushesNothing) {
    pushInt(9);
    pushVar(u"a");
    pushInt(5);
    opAssign(app, app.stack);
    EXPECT_EQ(app.stack.count(), 1);
    EXPECT_TRUE(topIsInteger(9));
    const Variable* a = app.variables.FindExisting(u"a");
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->value->type, ItemType::Integer);
    EXPECT_EQ(a->value->asInteger(), bigIntFromI32(5));
    EXPECT_EQ(host.messages.size(), 0u);   // a new target is not "undefined"
}

TEST_F(Assign, KeepsUnitsAndType) {
    pushVar(u"d");
    pushReal(u"2.5", metres());
    opAssign(app, app.stack);
    const Item& d = *app.variables.FindExisting(u"d")->value;
    EXPECT_EQ(d.type, ItemType::Real);
    EXPECT_EQ(d.units, metres());
    EXPECT_EQ(compare(d.asReal(), number(u"2.5")), 0);
}

TEST_F(Assign, FiveEqualsThreeIsAnInvalidVariableName) {
    pushInt(5);
    pushInt(3);
    EXPECT_TRUE(refuses(opAssign, u"Invalid Variable Name"));
    EXPECT_TRUE(topIsInteger(3));
    EXPECT_EQ(app.stack.count(), 2);
}

TEST_F(Assign, MissingOperand) {
    pushVar(u"a");
    EXPECT_TRUE(refuses(opAssign, u"Missing Operand"));
    EXPECT_EQ(app.variables.FindExisting(u"a"), nullptr);
}

TEST_F(Assign, ValueReferenceIsResolvedAndCopied) {
    app.variables.FindVariable(u"a", true)->value->assignFrom(integer(4));
    pushVar(u"b");
    pushVar(u"a");
    opAssign(app, app.stack);
    EXPECT_EQ(app.variables.FindExisting(u"b")->value->asInteger(), bigIntFromI32(4));
    // A deep copy: changing a later leaves b alone.
    app.variables.FindVariable(u"a", true)->value->assignFrom(integer(7));
    EXPECT_EQ(app.variables.FindExisting(u"b")->value->asInteger(), bigIntFromI32(4));
}

TEST_F(Assign, SelfAssignmentKeepsTheValue) {
    app.variables.FindVariable(u"a", true)->value->assignFrom(integer(4));
    pushVar(u"a");
    pushVar(u"a");
    opAssign(app, app.stack);
    EXPECT_EQ(app.variables.FindExisting(u"a")->value->asInteger(), bigIntFromI32(4));
    EXPECT_EQ(app.stack.count(), 0);
}

TEST_F(Assign, InsideAFunctionAssignmentMakesALocalAndReadingFindsTheGlobal) {
    app.variables.FindVariable(u"a", true)->value->assignFrom(integer(10));
    app.variables.PushFrame();   // a function call's frame
    pushVar(u"a");
    opPush(app, app.stack);      // reading "a" before any assignment: the global
    EXPECT_TRUE(topIsInteger(10));
    app.stack.freeAll();
    pushVar(u"a");
    pushInt(1);
    opAssign(app, app.stack);    // "a = 1" makes a local
    pushVar(u"a");
    opPush(app, app.stack);
    EXPECT_TRUE(topIsInteger(1));
    app.variables.PopFrame();    // the call returns
    EXPECT_EQ(app.variables.FindExisting(u"a")->value->asInteger(), bigIntFromI32(10));
}

TEST_F(Assign, ReadingAnUnknownNameReportsAndWorksOnAnEmptyValue) {
    pushVar(u"q");
    opPush(app, app.stack);
    EXPECT_TRUE(shows(u"Undefined Variable Referenced"));
    ASSERT_EQ(app.stack.count(), 1);
    EXPECT_EQ(app.stack.at(0)->type, ItemType::Null);
    ASSERT_NE(app.variables.FindExisting(u"q"), nullptr);   // made by the reading
}

TEST_F(Assign, NamesDifferingInCaseAreDifferentVariables) {
    pushVar(u"abc");
    pushInt(1);
    opAssign(app, app.stack);
    pushVar(u"ABC");
    pushInt(2);
    opAssign(app, app.stack);
    EXPECT_EQ(app.variables.FindExisting(u"abc")->value->asInteger(), bigIntFromI32(1));
    EXPECT_EQ(app.variables.FindExisting(u"ABC")->value->asInteger(), bigIntFromI32(2));
    EXPECT_EQ(app.variables.FindExisting(u"Abc"), nullptr);
}

// --- += -= *= /= ------------------------------------------------------------

class CompoundAssignWithA : public HandlerTest {
protected:
    CompoundAssignWithA() { app.variables.FindVariable(u"a", true)->value->assignFrom(integer(5)); }
    const Item& a() { return *app.variables.FindExisting(u"a")->value; }
    void run(Handler handler, Item value) {
        pushVar(u"a");
        push(std::move(value));
        handler(app, app.stack);
    }
};

TEST_F(CompoundAssignWithA, AddAssignStoresTheSumAndPushesNothing) {
    run(opAddAssign, integer(3));
    EXPECT_EQ(app.stack.count(), 0);
    EXPECT_EQ(a().asInteger(), bigIntFromI32(8));
}

TEST_F(CompoundAssignWithA, SubAssign) {
    run(opSubAssign, integer(7));
    EXPECT_EQ(a().asInteger(), bigIntFromI32(-2));
}

TEST_F(CompoundAssignWithA, MulAssign) {
    run(opMulAssign, integer(4));
    EXPECT_EQ(a().asInteger(), bigIntFromI32(20));
}

TEST_F(CompoundAssignWithA, DivAssignFollowsDivision) {
    run(opDivAssign, integer(2));
    ASSERT_EQ(a().type, ItemType::Real);
    EXPECT_EQ(compare(a().asReal(), number(u"2.5")), 0);
}

TEST_F(CompoundAssignWithA, MulAssignCombinesUnits) {
    run(opMulAssign, integer(2, metres()));
    EXPECT_EQ(a().units, metres());
}

TEST_F(CompoundAssignWithA, ValueReferenceIsResolved) {
    run(opAddAssign, Item::variableRef(u"a"));
    EXPECT_EQ(a().asInteger(), bigIntFromI32(10));
}

TEST_F(CompoundAssignWithA, IncompatibleUnitsLeaveVariableAndStack) {
    pushVar(u"a");
    pushInt(1, metres());
    EXPECT_TRUE(refuses(opAddAssign, u"Incompatible Units"));
    EXPECT_EQ(a().asInteger(), bigIntFromI32(5));
}

TEST_F(CompoundAssignWithA, InvalidDataTypeLeavesVariableAndStack) {
    pushVar(u"a");
    push(Item::string(u"x"));
    EXPECT_TRUE(refuses(opSubAssign, u"Invalid Data Type"));
    EXPECT_EQ(a().asInteger(), bigIntFromI32(5));
}

TEST_F(CompoundAssign, TargetNotAVariableForEveryOperator) {
    for (Handler handler : {opAddAssign, opSubAssign, opMulAssign, opDivAssign}) {
        app.stack.freeAll();
        app.keptSeverity = 0;
        pushInt(5);
        pushInt(3);
        EXPECT_TRUE(refuses(handler, u"Invalid Variable Name"));
    }
}

TEST_F(CompoundAssign, MissingOperandForEveryOperator) {
    for (Handler handler : {opAddAssign, opSubAssign, opMulAssign, opDivAssign}) {
        app.stack.freeAll();
        app.keptSeverity = 0;
        pushVar(u"a");
        EXPECT_TRUE(refuses(handler, u"Missing Operand"));
    }
}

TEST_F(CompoundAssign, StoresBackIntoTheVariableItWasReadFrom) {
    app.variables.FindVariable(u"g", true)->value->assignFrom(integer(1));
    app.variables.PushFrame();
    pushVar(u"g");
    pushInt(1);
    opAddAssign(app, app.stack);
    app.variables.PopFrame();
    EXPECT_EQ(app.variables.FindExisting(u"g")->value->asInteger(), bigIntFromI32(2));
}

TEST_F(CompoundAssign, UnknownTargetIsReportedAndRefused) {
    pushVar(u"nothing");
    pushInt(3);
    const auto before = snapshot();
    opAddAssign(app, app.stack);
    EXPECT_TRUE(shows(u"Undefined Variable Referenced"));
    EXPECT_TRUE(stackIs(before));   // Null + 3 is refused; the operands go back
}

// --- push and pop -----------------------------------------------------------

TEST_F(PushPop, PushReplacesAReferenceByACopyOfItsValue) {
    app.variables.FindVariable(u"a", true)->value->assignFrom(integer(4, metres()));
    pushVar(u"a");
    opPush(app, app.stack);
    EXPECT_EQ(app.stack.count(), 1);
    EXPECT_TRUE(topIsInteger(4, metres()));
}

TEST_F(PushPop, PushOfAValueIsItsCopy) {
    pushReal(u"1.25");
    opPush(app, app.stack);
    EXPECT_EQ(app.stack.count(), 1);
    EXPECT_TRUE(topIsReal(u"1.25"));
}

TEST_F(PushPop, PushMissingOperand) { EXPECT_TRUE(refuses(opPush, u"Missing Operand")); }

TEST_F(PushPop, FiveAPopStoresFiveInA) {
    pushInt(5);
    pushVar(u"a");
    opPop(app, app.stack);
    EXPECT_EQ(app.stack.count(), 0);
    EXPECT_EQ(app.variables.FindExisting(u"a")->value->asInteger(), bigIntFromI32(5));
}

TEST_F(PushPop, PopResolvesAReferenceValue) {
    app.variables.FindVariable(u"b", true)->value->assignFrom(integer(6));
    pushVar(u"b");
    pushVar(u"a");
    opPop(app, app.stack);
    EXPECT_EQ(app.variables.FindExisting(u"a")->value->asInteger(), bigIntFromI32(6));
}

TEST_F(PushPop, PopIntoANonVariableIsRefused) {
    pushInt(5);
    pushInt(6);
    EXPECT_TRUE(refuses(opPop, u"Invalid Variable Name"));
}

TEST_F(PushPop, PopMissingOperand) {
    pushVar(u"a");
    EXPECT_TRUE(refuses(opPop, u"Missing Operand"));
}

}  // namespace
}  // namespace quorvel::test
