// The expression compiler: node trees for precedence, grouping, unary signs,
// groups, commas, strings, user functions and where an expression ends.
#include <gtest/gtest.h>

#include "lang/appstate.h"
#include "lang/exprcompiler.h"
#include "lang/functions.h"
#include "langtext.h"
#include "testhost.h"

namespace quorvel::test {
namespace {

class ExprCompilerTest : public ::testing::Test {
protected:
    ExprCompilerTest() { app.host = &host; }

    // Compiles one expression from `text`; the tokens it leaves stay in
    // `left` (the reader's pending list followed by the unread lines).
    std::string compile(std::string_view text) {
        TextLineSource source(wide(text));
        TokenReader reader;
        reader.file = &source;
        const std::string tree = describe(CompileExpression(app, reader));
        ItemList rest;
        while (auto token = reader.next(app)) rest.append(std::move(*token));
        left = describe(rest);
        return tree;
    }

    RecordingHost host;
    AppState app;
    std::string left;
};

TEST_F(ExprCompilerTest, MultiplicationBindsTighterThanAddition) {
    EXPECT_EQ(compile("1+2*3"), "+(1, *(2, 3))");
}

TEST_F(ExprCompilerTest, ParenthesesMakeAGroup) {
    EXPECT_EQ(compile("(1+2)*3"), "*(group(+(1, 2)), 3)");
}

TEST_F(ExprCompilerTest, GroupChildrenStandLastFirst) {
    EXPECT_EQ(compile("(1, 2)"), "group(2, 1)");
    EXPECT_EQ(compile("(1, 2, 3)"), "group(3, 2, 1)");
}

TEST_F(ExprCompilerTest, PowersGroupFromTheLeft) {
    EXPECT_EQ(compile("2^3^2"), "^(^(2, 3), 2)");
}

TEST_F(ExprCompilerTest, EqualClassesGroupFromTheLeft) {
    EXPECT_EQ(compile("a-b-c"), "-(-(@a, @b), @c)");
    EXPECT_EQ(compile("a=b=c"), "=(=(@a, @b), @c)");
}

TEST_F(ExprCompilerTest, UnaryMinusBindsTighterThanPower) {
    EXPECT_EQ(compile("-2^2"), "^(neg(2), 2)");
    EXPECT_EQ(compile("2^-1"), "^(2, neg(1))");
}

TEST_F(ExprCompilerTest, AssignmentBindsLoosest) {
    EXPECT_EQ(compile("a = 3 + 4"), "=(@a, +(3, 4))");
}

TEST_F(ExprCompilerTest, UnaryPlusIsDropped) {
    EXPECT_EQ(compile("+5"), "5");
    EXPECT_EQ(compile("add 5"), "5");   // `add` shares the unary rule with `+`
}

TEST_F(ExprCompilerTest, SubWhereAnOperandMayComeIsNegation) {
    EXPECT_EQ(compile("sub 5"), "neg(5)");
}

TEST_F(ExprCompilerTest, EmptyGroupGivesNothing) {
    EXPECT_EQ(compile("()"), "");
}

TEST_F(ExprCompilerTest, JuxtaposedOperandsEndTheExpression) {
    EXPECT_EQ(compile("3 4"), "3");
    EXPECT_EQ(left, "4");
    EXPECT_EQ(compile("a = 1 b = 2"), "=(@a, 1)");
    EXPECT_EQ(left, "@b | = | 2");
}

TEST_F(ExprCompilerTest, UserFunctionCallTakesTheGroup) {
    DefineFunction(app, u"f");
    EXPECT_EQ(compile("f(2)"), "f(group(2))");
}

TEST_F(ExprCompilerTest, UserFunctionNeedsNoParentheses) {
    DefineFunction(app, u"f");
    EXPECT_EQ(compile("f 2 + 1"), "+(f(2), 1)");
}

TEST_F(ExprCompilerTest, UserFunctionNamesAreCaseSensitive) {
    DefineFunction(app, u"f");
    EXPECT_EQ(compile("F(2)"), "@F ; group(2)");
}

TEST_F(ExprCompilerTest, UnknownCharacterIsDropped) {
    EXPECT_EQ(compile("x ? 1"), "1 ; x");
    EXPECT_EQ(compile("1 + ? 2"), "+(1, 2)");
}

TEST_F(ExprCompilerTest, ValueWordLeavesTheOperandFlagSet) {
    EXPECT_EQ(compile("pi-1"), "pi ; neg(1)");
    // The dropped unary plus leaves `pi` pending until the end: it comes last.
    EXPECT_EQ(compile("pi+1"), "1 ; pi");
}

TEST_F(ExprCompilerTest, ValueWordBeforeABinaryOperatorIsItsOperand) {
    EXPECT_EQ(compile("pi*2"), "*(pi, 2)");
}

TEST_F(ExprCompilerTest, FunctionNeedsNoParentheses) {
    EXPECT_EQ(compile("sin 1 + 2"), "+(sin(1), 2)");
}

TEST_F(ExprCompilerTest, CommaReducesTheWholeOperatorStack) {
    EXPECT_EQ(compile("atan2(1, 2)"), "atan2(group(2, 1))");
    EXPECT_EQ(compile("(1 + 2, 3 * 4)"), "group(*(3, 4), +(1, 2))");
}

TEST_F(ExprCompilerTest, StringBringsApplyUnits) {
    EXPECT_EQ(compile("5 'm'"), "applyunits(5, \"m\")");
    EXPECT_EQ(compile("5 'm' + 3"), "+(applyunits(5, \"m\"), 3)");
}

TEST_F(ExprCompilerTest, StringAloneStillBringsApplyUnits) {
    EXPECT_EQ(compile("'m'"), "applyunits(\"m\")");
}

TEST_F(ExprCompilerTest, SemicolonEndsTheExpressionAndIsConsumed) {
    EXPECT_EQ(compile("1+2; 3"), "+(1, 2)");
    EXPECT_EQ(left, "3");
}

TEST_F(ExprCompilerTest, ClosingParenthesisEndsTheExpressionAndIsConsumed) {
    EXPECT_EQ(compile("1) 2"), "1");
    EXPECT_EQ(left, "2");
}

TEST_F(ExprCompilerTest, BracesArePutBack) {
    EXPECT_EQ(compile("1 + 2 { 3"), "+(1, 2)");
    EXPECT_EQ(left, "'{' | 3");
    EXPECT_EQ(compile("} 4"), "");
    EXPECT_EQ(left, "'}' | 4");
}

TEST_F(ExprCompilerTest, OperatorAdoptsWhatThereIs) {
    EXPECT_EQ(compile("* 3"), "*(3)");
}

TEST_F(ExprCompilerTest, CommentsAreDropped) {
    EXPECT_EQ(compile("1 + // note\n2"), "+(1, 2)");
}

TEST_F(ExprCompilerTest, GroupAfterAnOperandIsStillAppended) {
    EXPECT_EQ(compile("2 (3)"), "2 ; group(3)");
}

TEST_F(ExprCompilerTest, ControlWordsArePendingOperatorsToo) {
    // A class-0 word reduces everything and waits with no operands.
    EXPECT_EQ(compile("a = 1 return"), "=(@a, 1) ; return");
}

TEST_F(ExprCompilerTest, NestedGroups) {
    EXPECT_EQ(compile("((1, 2), 3)"), "group(3, group(2, 1))");
}

}  // namespace
}  // namespace quorvel::test
