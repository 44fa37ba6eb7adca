// The command runner in RPN and algebraic entry, EvaluateText, the node
// runner, the statement runner, the truth test and the user break.
#include <gtest/gtest.h>

#include "lang/appstate.h"
#include "lang/evaluator.h"
#include "lang/exprcompiler.h"
#include "lang/functions.h"
#include "lang/keywords.h"
#include "lang/program.h"
#include "lang/report.h"
#include "lang/variables.h"
#include "langtext.h"
#include "numeric/bigint.h"
#include "numeric/numtext.h"
#include "testhost.h"

namespace quorvel::test {
namespace {

constexpr int Rpn = 0;
constexpr int Algebraic = 1;

class EvaluatorTest : public ::testing::Test {
protected:
    EvaluatorTest() { app.host = &host; }

    // Runs a typed line and returns the stack from the top down.
    std::string run(std::string_view line, int mode) {
        RunCommandLine(app, wide(line), mode);
        return describe(app.stack);
    }
    std::string shown() const { return ascii(host.shownText()); }
    void load(std::string_view program) {
        TextLineSource source(wide(program));
        LoadProgram(app, source);
    }
    RecordingHost host;
    AppState app;
};

// --- RPN entry ---------------------------------------------------------------

TEST_F(EvaluatorTest, RpnTwoThreePlusLeavesFive) {
    EXPECT_EQ(run("2 3 +", Rpn), "5");
    EXPECT_EQ(shown(), "");
}

TEST_F(EvaluatorTest, RpnNegativeNumberIsOneToken) {
    EXPECT_EQ(run("3 -2 -", Rpn), "5");
}

TEST_F(EvaluatorTest, RpnStringAppliesUnitsAtOnce) {
    run("5 'm'", Rpn);
    ASSERT_EQ(app.stack.count(), 1);
    EXPECT_EQ(app.stack.head()->type, ItemType::Integer);
    EXPECT_EQ(app.stack.head()->units[Length], 1);
}

TEST_F(EvaluatorTest, RpnCommaIsDropped) {
    EXPECT_EQ(run("1 2 ,", Rpn), "2 | 1");
}

TEST_F(EvaluatorTest, RpnVariableReferenceIsPushed) {
    EXPECT_EQ(run("a", Rpn), "@a");
}

TEST_F(EvaluatorTest, RpnDoesNotStopAfterAnError) {
    EXPECT_EQ(run("+ 2 3 *", Rpn), "6");
    EXPECT_EQ(shown(), "Missing Operand");
    EXPECT_EQ(host.shownSeverity(), Error);
}

TEST_F(EvaluatorTest, RpnKeepsTheFirstErrorVisible) {
    run("= +", Rpn);
    EXPECT_EQ(shown(), "Missing Operand");
    EXPECT_EQ(host.messages.size(), 1u);   // the second one is not shown
}

TEST_F(EvaluatorTest, RpnLineStartsWithAFreshSeverity) {
    run("+", Rpn);
    EXPECT_EQ(shown(), "Missing Operand");
    run("+", Rpn);
    EXPECT_EQ(host.messages.size(), 2u);   // the new line shows its own error
}

TEST_F(EvaluatorTest, RpnUserFunctionRunsOnTheMainStack) {
    load("function sq { pop(n); n * n }");
    EXPECT_EQ(run("7 sq 1 +", Rpn), "50");
}

TEST_F(EvaluatorTest, RpnUserFunctionLocalsVanishAfterTheCall) {
    load("function f { q = 1 }");
    run("f", Rpn);
    EXPECT_EQ(app.variables.frameCount(), 1u);
    EXPECT_EQ(app.variables.FindExisting(u"q"), nullptr);
}

// --- Algebraic entry ---------------------------------------------------------

TEST_F(EvaluatorTest, AlgebraicParenthesesGroup) {
    EXPECT_EQ(run("2*(3+4)", Algebraic), "14");
}

TEST_F(EvaluatorTest, AlgebraicPrecedenceAndLeftGrouping) {
    EXPECT_EQ(run("1+2*3", Algebraic), "7");
    EXPECT_EQ(run("10-3-2", Algebraic), "5 | 7");
}

TEST_F(EvaluatorTest, AlgebraicUnaryMinus) {
    EXPECT_EQ(run("-2*3", Algebraic), "-6");
    EXPECT_EQ(run("2--3", Algebraic), "5 | -6");
}

TEST_F(EvaluatorTest, AlgebraicUnaryPlusIsDropped) {
    EXPECT_EQ(run("+4", Algebraic), "4");
}

TEST_F(EvaluatorTest, AlgebraicValueWordMinusOneLeavesOneValue) {
    // A value word runs at once and clears the operand flag, so the '-' after
    // it is a subtraction. `x` stands in here for `pi`, which comes with the
    // elementary functions.
    app.stack.push(Item::integer(bigIntFromI32(5)));
    EXPECT_EQ(run("x-1", Algebraic), "4 | 5");
}

TEST_F(EvaluatorTest, AlgebraicPiMinusOneLeavesOneValue) {
    run("pi-1", Algebraic);
    ASSERT_EQ(app.stack.count(), 1);
    EXPECT_EQ(app.stack.head()->type, ItemType::Real);
    EXPECT_EQ(shown(), "");
}

TEST_F(EvaluatorTest, AlgebraicArgumentsArePushedFirstArgumentFirst) {
    EXPECT_EQ(run("(1, 2)", Algebraic), "2 | 1");
    app.stack.freeAll();
    // atan2(1, 2) therefore runs on the same stack as RPN "1 2 atan2".
    run("atan2(1, 2)", Algebraic);
    const std::string algebraic = describe(app.stack);
    const std::string message = shown();
    app.stack.freeAll();
    run("1 2 atan2", Rpn);
    EXPECT_EQ(describe(app.stack), algebraic);
    EXPECT_EQ(shown(), message);
}

TEST_F(EvaluatorTest, AlgebraicStringAfterAnOperandAppliesUnits) {
    run("5 'm'", Algebraic);
    ASSERT_EQ(app.stack.count(), 1);
    EXPECT_EQ(app.stack.head()->units[Length], 1);
}

TEST_F(EvaluatorTest, AlgebraicStringAloneIsJustAValue) {
    EXPECT_EQ(run("'m'", Algebraic), "\"m\"");
    EXPECT_EQ(shown(), "");
}

TEST_F(EvaluatorTest, AlgebraicAssignment) {
    run("a = 3 + 4", Algebraic);
    EXPECT_EQ(app.stack.count(), 0);
    const Variable* a = app.variables.FindExisting(u"a");
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(describe(*a->value), "7");
    EXPECT_EQ(run("a * 2", Algebraic), "14");
}

TEST_F(EvaluatorTest, AlgebraicDoesNotStopAfterAnError) {
    EXPECT_EQ(run("5 = 3; 2 * 4", Algebraic), "8 | 3 | 5");
    EXPECT_EQ(shown(), "Invalid Variable Name");
}

TEST_F(EvaluatorTest, AlgebraicUserFunctionIsAOneOperandOperator) {
    load("function sq { pop(n); n * n }");
    EXPECT_EQ(run("sq(3) + 1", Algebraic), "10");
    EXPECT_EQ(run("2 * sq 3", Algebraic), "18 | 10");
}

TEST_F(EvaluatorTest, EmptyLineDoesNothingAndClearsTheStrip) {
    app.stack.push(Item::integer(bigIntFromI32(9)));
    run("+ +", Rpn);   // leaves "Missing Operand" showing
    ASSERT_EQ(shown(), "Missing Operand");
    EXPECT_EQ(run("", Rpn), "9");
    EXPECT_EQ(shown(), "");
    EXPECT_EQ(app.keptSeverity, 0);
    run("+", Rpn);
    EXPECT_EQ(run("", Algebraic), "9");
    EXPECT_EQ(shown(), "");
}

TEST_F(EvaluatorTest, GroupResetsTheKeptSeverityOfItsLine) {
    // Each nested evaluation starts with a fresh kept severity, so an error
    // inside a group replaces one shown before it.
    run("y + (2 = 1)", Algebraic);
    ASSERT_EQ(host.messages.size(), 2u);
    EXPECT_EQ(ascii(host.messages[0].text), "Value Not Found");
    EXPECT_EQ(shown(), "Invalid Variable Name");
}

// --- EvaluateText --------------------------------------------------------------

TEST_F(EvaluatorTest, EvaluateTextReturnsTheValueAndLeavesTheStack) {
    app.stack.push(Item::integer(bigIntFromI32(1)));
    std::optional<Item> value = EvaluateText(app, u"2*3-1");
    ASSERT_TRUE(value);
    EXPECT_EQ(describe(*value), "5");
    EXPECT_EQ(describe(app.stack), "1");
}

TEST_F(EvaluatorTest, EvaluateTextUsesSeparateSigns) {
    std::optional<Item> value = EvaluateText(app, u"7 -2");
    ASSERT_TRUE(value);
    EXPECT_EQ(describe(*value), "5");
}

TEST_F(EvaluatorTest, EvaluateTextOfNothingOnAnEmptyStackIsNone) {
    EXPECT_FALSE(EvaluateText(app, u""));
}

TEST_F(EvaluatorTest, EvaluateTextResetsTheKeptSeverity) {
    app.keptSeverity = Error;
    EvaluateText(app, u"1");
    EXPECT_EQ(app.keptSeverity, 0);
}

// --- RunNode -------------------------------------------------------------------

TEST_F(EvaluatorTest, RunNodeRunsChildrenThenItsOwnItem) {
    ExprNode node{Item::keyword(KeywordRow(u"-")), {}};
    node.children.push_back(ExprNode{Item::integer(bigIntFromI32(10)), {}});
    node.children.push_back(ExprNode{Item::integer(bigIntFromI32(4)), {}});
    RunNode(app, node, app.stack);
    EXPECT_EQ(describe(app.stack), "6");
}

TEST_F(EvaluatorTest, RunNodeCopiesOperandsAndKeepsReferences) {
    ExprNode node{Item::variableRef(u"v"), {}};
    RunNode(app, node, app.stack);
    RunNode(app, node, app.stack);
    EXPECT_EQ(describe(app.stack), "@v | @v");
    EXPECT_EQ(describe(node.item), "@v");
}

TEST_F(EvaluatorTest, RunNodeGroupPushesLastArgumentFirst) {
    ExprNode group{Item::character(u'('), {}};
    group.children.push_back(ExprNode{Item::integer(bigIntFromI32(2)), {}});
    group.children.push_back(ExprNode{Item::integer(bigIntFromI32(1)), {}});
    RunNode(app, group, app.stack);
    EXPECT_EQ(describe(app.stack), "1 | 2");
}

TEST_F(EvaluatorTest, RunNodeCallsAUserFunctionByName) {
    load("function twice { pop(n); n + n }");
    ExprNode call{Item::functionCall(u"twice"), {}};
    call.children.push_back(ExprNode{Item::integer(bigIntFromI32(21)), {}});
    RunNode(app, call, app.stack);
    EXPECT_EQ(describe(app.stack), "42");
}

TEST_F(EvaluatorTest, RunNodeOfAnUnknownFunctionDoesNothing) {
    ExprNode call{Item::functionCall(u"nothing"), {}};
    RunNode(app, call, app.stack);
    EXPECT_EQ(app.stack.count(), 0);
    EXPECT_EQ(shown(), "");
}

// --- PopTruth ------------------------------------------------------------------

TEST_F(EvaluatorTest, PopTruthOfIntegers) {
    app.stack.push(Item::integer(bigIntFromI32(0)));
    app.stack.push(Item::integer(bigIntFromI32(-3)));
    EXPECT_TRUE(PopTruth(app, app.stack));
    EXPECT_FALSE(PopTruth(app, app.stack));
    EXPECT_EQ(app.stack.count(), 0);
}

TEST_F(EvaluatorTest, PopTruthOfReals) {
    app.stack.push(Item::real(ParseReal(app.workingLength, u"0.0")));
    app.stack.push(Item::real(ParseReal(app.workingLength, u"0.25")));
    EXPECT_TRUE(PopTruth(app, app.stack));
    EXPECT_FALSE(PopTruth(app, app.stack));
}

TEST_F(EvaluatorTest, PopTruthOfOtherTypesIsFalse) {
    app.stack.push(Item::complex(ComplexNum{ParseReal(8, u"1"), ParseReal(8, u"1")}));
    app.stack.push(Item::string(u"yes"));
    EXPECT_FALSE(PopTruth(app, app.stack));
    EXPECT_FALSE(PopTruth(app, app.stack));
    EXPECT_FALSE(PopTruth(app, app.stack));   // empty stack
}

TEST_F(EvaluatorTest, PopTruthResolvesVariables) {
    run("t = 2", Algebraic);
    app.stack.push(Item::variableRef(u"t"));
    EXPECT_TRUE(PopTruth(app, app.stack));
    EXPECT_EQ(shown(), "");
}

TEST_F(EvaluatorTest, PopTruthOfAnUnknownVariableReportsAndIsFalse) {
    app.stack.push(Item::variableRef(u"unknown"));
    EXPECT_FALSE(PopTruth(app, app.stack));
    EXPECT_EQ(shown(), "Undefined Variable Referenced");
    EXPECT_NE(app.variables.FindExisting(u"unknown"), nullptr);
}

// --- RunStatement ----------------------------------------------------------------

TEST_F(EvaluatorTest, WhileEndsAfterThePassWhoseBodyReportsAnError) {
    // The body counts, then fails; the loop stops after that first pass.
    load("function f { k = 0; while (k < 5) { k = k + 1; 1 = 2 } }");
    run("f", Rpn);
    EXPECT_EQ(shown(), "Invalid Variable Name");
    EXPECT_EQ(describe(app.stack), "2 | 1");
}

TEST_F(EvaluatorTest, BlockStopsAfterAFailingStatement) {
    load("function f { 1 = 2; 7; 8 }");
    EXPECT_EQ(run("f", Rpn), "2 | 1");
}

TEST_F(EvaluatorTest, WarningsDoNotStopABlock) {
    load("function f { drop; 7 }");
    EXPECT_EQ(run("f", Rpn), "7");
    EXPECT_EQ(shown(), "Stack Empty");
    EXPECT_EQ(host.shownSeverity(), Warning);
}

TEST_F(EvaluatorTest, DoRunsItsBodyBeforeTheCondition) {
    load("function f { k = 10; do { k = k + 1 } while (k < 5); push(k) }");
    EXPECT_EQ(run("f", Rpn), "11");
}

TEST_F(EvaluatorTest, DoWithoutConditionRunsOnce) {
    load("function f { do { 3 } }");
    EXPECT_EQ(run("f", Rpn), "3");
}

TEST_F(EvaluatorTest, IfWithoutElseDoesNothingWhenFalse) {
    load("function f { if (0) { 1 } 2 }");
    EXPECT_EQ(run("f", Rpn), "2");
}

TEST_F(EvaluatorTest, ReturnEndsEveryEnclosingLoop) {
    load("function f { k = 0; while (1) { k = k + 1; if (k == 3) { push(k); return } } 99 }");
    EXPECT_EQ(run("f", Rpn), "3");
    EXPECT_EQ(app.variables.frameCount(), 1u);
}

TEST_F(EvaluatorTest, StatementOfAnotherKindDoesNothing) {
    Statement odd;
    odd.kind = static_cast<StatementKind>(42);
    EXPECT_EQ(RunStatement(app, odd, app.stack), 0);
    EXPECT_EQ(app.stack.count(), 0);
}

TEST_F(EvaluatorTest, ReturnStatementReturnsOne) {
    Statement stop;
    stop.kind = StatementKind::Return;
    EXPECT_EQ(RunStatement(app, stop, app.stack), 1);
    Statement block;
    block.children.push_back(std::move(stop));
    EXPECT_EQ(RunStatement(app, block, app.stack), 1);
}

// --- User break and runaway recursion ----------------------------------------------

TEST_F(EvaluatorTest, EndlessLoopStopsOnUserBreak) {
    load("function spin { while (1) { } }");
    host.abortNow = true;
    run("spin 5", Rpn);
    EXPECT_EQ(shown(), "User Break");
    EXPECT_EQ(host.shownSeverity(), Error);
    EXPECT_TRUE(app.abortFlag);
    EXPECT_EQ(describe(app.stack), "5");   // the rest of the line still runs
}

TEST_F(EvaluatorTest, DoLoopStopsOnUserBreak) {
    load("function spin { do { } while (1) }");
    host.abortNow = true;
    run("spin", Rpn);
    EXPECT_EQ(shown(), "User Break");
}

TEST_F(EvaluatorTest, CommandLineClearsTheBreakFlag) {
    app.abortFlag = true;
    EXPECT_EQ(run("1 2 +", Rpn), "3");
    EXPECT_FALSE(app.abortFlag);
}

TEST_F(EvaluatorTest, AfterABreakFurtherCallsDoNothing) {
    load("function spin { while (1) { } } function one { 1 }");
    host.abortNow = true;
    EXPECT_EQ(run("spin one 5", Rpn), "5");
}

TEST_F(EvaluatorTest, RunawayRecursionIsStopped) {
    load("function r { r }");
    run("r", Rpn);
    EXPECT_EQ(shown(), "Recursion Too Deep");
    EXPECT_EQ(app.variables.frameCount(), 1u);
    EXPECT_EQ(app.functions.activeCalls, 0);
}

}  // namespace
}  // namespace quorvel::test
