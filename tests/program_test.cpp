// The program compiler and loader: statement trees of function bodies, what
// a program file defines, and the sample programs run end to end.
#include <gtest/gtest.h>

#include <string>

#include "lang/appstate.h"
#include "lang/evaluator.h"
#include "lang/functions.h"
#include "lang/program.h"
#include "lang/variables.h"
#include "langtext.h"
#include "testhost.h"

namespace quorvel::test {
namespace {

const std::string ProgramsDir = std::string(QUORVEL_TEST_DATA) + "/../programs/";

constexpr int Rpn = 0;
constexpr int Algebraic = 1;

class ProgramTest : public ::testing::Test {
protected:
    ProgramTest() { app.host = &host; }

    void load(std::string_view program) {
        TextLineSource source(wide(program));
        LoadProgram(app, source);
    }
    // The compiled body of function `name`, as text; "undefined" when none.
    std::string body(std::u16string_view name) {
        const Statement* function = FindFunction(app, name);
        if (function == nullptr) return "undefined";
        return function->body ? describe(*function->body) : "none";
    }
    // Compiles `text` as one statement (block mode clear) outside any file.
    std::string statement(std::string_view text, bool blockMode = false) {
        TextLineSource source(wide(text));
        TokenReader reader;
        reader.file = &source;
        return describe(CompileStatement(app, reader, blockMode));
    }
    std::string run(std::string_view line, int mode) {
        RunCommandLine(app, wide(line), mode);
        return describe(app.stack);
    }
    std::string shown() const { return ascii(host.shownText()); }

    RecordingHost host;
    AppState app;
};

// --- Statement trees ---------------------------------------------------------

TEST_F(ProgramTest, FileWithoutFunctionLoadsNothing) {
    app.stack.push(Item::variableRef(u"kept"));
    load("a = 5\n1 2 +\nif (a) { b = 1 }\n");
    EXPECT_EQ(app.functions.count(), 0u);
    EXPECT_EQ(app.variables.FindExisting(u"a"), nullptr);
    EXPECT_EQ(describe(app.stack), "@kept");
    EXPECT_EQ(shown(), "");
}

TEST_F(ProgramTest, TextOutsideDefinitionsHasNoEffect) {
    load("a = 5 function f { 1 } 7 f");
    EXPECT_EQ(app.functions.count(), 1u);
    EXPECT_EQ(app.variables.FindExisting(u"a"), nullptr);
    EXPECT_EQ(app.stack.count(), 0);
    EXPECT_EQ(body(u"f"), "block{expr(1)}");
}

TEST_F(ProgramTest, FunctionFollowedByNoNameInAFileDefinesNothing) {
    load("function 5 { 1 }");
    EXPECT_EQ(app.functions.count(), 0u);
    // The token after `function` is dropped: here the second `function`, so
    // the name g after it is no definition either.
    load("function function g { 2 }");
    EXPECT_EQ(app.functions.count(), 0u);
}

TEST_F(ProgramTest, FunctionFollowedByNoNameInABodyStartsTheNextStatement) {
    load("function f { function 5 6 }");
    EXPECT_EQ(body(u"f"), "block{expr(5); expr(6)}");
}

TEST_F(ProgramTest, ReturnInsideBracesIsAStatementOfTheBlock) {
    load("function f { 1; return; 2 }");
    EXPECT_EQ(body(u"f"), "block{expr(1); return; expr(2)}");
    EXPECT_EQ(run("f", Rpn), "1");
}

TEST_F(ProgramTest, ReturnRightAfterAnExpressionIsTakenIntoIt) {
    // Without ';' the expression compiler takes the control word as one of
    // its operators (and the 2 after it as an operand); only the first node
    // is kept as the statement.
    load("function f { a = 1 return 2 }");
    EXPECT_EQ(body(u"f"), "block{expr(=(@a, 1))}");
}

TEST_F(ProgramTest, NestedBracesGiveABlockInABlock) {
    EXPECT_EQ(statement("{ { a = 1 } b = 2 }"), "block{block{expr(=(@a, 1))}; expr(=(@b, 2))}");
}

TEST_F(ProgramTest, SecondDefinitionReplacesTheBody) {
    load("function f { 1 } function f { 2 }");
    EXPECT_EQ(app.functions.count(), 1u);
    EXPECT_EQ(body(u"f"), "block{expr(2)}");
    load("function f { 3 }");
    EXPECT_EQ(app.functions.count(), 1u);
    EXPECT_EQ(run("f", Rpn), "3");
}

TEST_F(ProgramTest, LaterFileAddsNewFunctions) {
    load("function f { 1 }");
    load("function g { 2 }");
    EXPECT_EQ(app.functions.count(), 2u);
    EXPECT_EQ(body(u"f"), "block{expr(1)}");
}

TEST_F(ProgramTest, BlockBodyAndSingleStatementBody) {
    load("function f { a = 2 * a return } function g b = 1");
    EXPECT_EQ(body(u"f"), "block{expr(=(@a, *(2, @a)))}");
    EXPECT_EQ(body(u"g"), "expr(=(@b, 1))");
}

TEST_F(ProgramTest, StatementsNeedNoSeparator) {
    EXPECT_EQ(statement("{ a = 1 b = 2 }"), "block{expr(=(@a, 1)); expr(=(@b, 2))}");
}

TEST_F(ProgramTest, SingleStatementEndsAfterItsExpression) {
    TextLineSource source(u"a = 1 b = 2");
    TokenReader reader;
    reader.file = &source;
    EXPECT_EQ(describe(CompileStatement(app, reader, false)), "expr(=(@a, 1))");
    EXPECT_EQ(describe(CompileStatement(app, reader, false)), "expr(=(@b, 2))");
}

TEST_F(ProgramTest, IfElseWithConditionInParentheses) {
    EXPECT_EQ(statement("if (a > 0) { b = 1 } else { b = 2 }"),
              "if(group(>(@a, 0))) block{expr(=(@b, 1))} else block{expr(=(@b, 2))}");
}

TEST_F(ProgramTest, IfWithoutElsePutsTheNextTokenBack) {
    EXPECT_EQ(statement("{ if (a) b = 1 c = 2 }"), "block{if(group(@a)) expr(=(@b, 1)); expr(=(@c, 2))}");
}

TEST_F(ProgramTest, WhileAndDoStatements) {
    EXPECT_EQ(statement("while (k < 3) { k = k + 1 }"), "while(group(<(@k, 3))) block{expr(=(@k, +(@k, 1)))}");
    EXPECT_EQ(statement("do { k = k + 1 } while (k < 3)"), "do block{expr(=(@k, +(@k, 1)))} while(group(<(@k, 3)))");
}

TEST_F(ProgramTest, DoWithoutWhileHasNoCondition) {
    EXPECT_EQ(statement("{ do k = 1 m = 2 }"), "block{do expr(=(@k, 1)) while(none); expr(=(@m, 2))}");
}

TEST_F(ProgramTest, ControlWordsAtTheEndOfTheFileLeaveEmptyParts) {
    load("function f if");
    EXPECT_EQ(body(u"f"), "if(none) block{}");
    load("function g while");
    EXPECT_EQ(body(u"g"), "while(none) block{}");
    load("function h");
    EXPECT_EQ(body(u"h"), "block{}");
}

TEST_F(ProgramTest, StatementStartingWithAParenthesisKeepsTheOrder) {
    // Unlike a group inside an expression, this group is not reversed.
    EXPECT_EQ(statement("(1, 2) 3"), "expr(group(1, 2))");
    load("function f (1, 2)");
    EXPECT_EQ(run("f", Rpn), "2 | 1");
}

TEST_F(ProgramTest, UnknownCharactersAndCommentsAreSkipped) {
    load("// a header\nfunction f { ? 1 ; , 2 } // trailing\n");
    EXPECT_EQ(body(u"f"), "block{expr(1); expr(2)}");
}

TEST_F(ProgramTest, KeywordStatementCompilesAsAnExpression) {
    EXPECT_EQ(statement("swap"), "expr(swap)");
    EXPECT_EQ(statement("sin 1"), "expr(sin(1))");
}

TEST_F(ProgramTest, DefinitionInsideABodyDefinesAFunction) {
    load("function outer { function inner { 2 } 1 }");
    EXPECT_EQ(body(u"outer"), "block{expr(1)}");
    EXPECT_EQ(body(u"inner"), "block{expr(2)}");
}

TEST_F(ProgramTest, FunctionMayCallItselfInItsOwnBody) {
    load("function f { f(1) }");
    EXPECT_EQ(body(u"f"), "block{expr(f(group(1)))}");
}

TEST_F(ProgramTest, UnreadableFileLoadsNothing) {
    EXPECT_FALSE(LoadProgramFile(app, ProgramsDir + "no-such-program.txt"));
    EXPECT_EQ(app.functions.count(), 0u);
}

// --- Sample programs -----------------------------------------------------------

class SampleProgramTest : public ProgramTest {
protected:
    void loadFile(const char* name) { ASSERT_TRUE(LoadProgramFile(app, ProgramsDir + name)) << name; }
    // Runs a line on an empty stack and returns what it leaves.
    std::string result(std::string_view line, int mode = Rpn) {
        app.stack.freeAll();
        const std::string stack = run(line, mode);
        EXPECT_EQ(shown(), "") << line;
        EXPECT_EQ(app.variables.frameCount(), 1u) << line;
        return stack;
    }
};

TEST_F(SampleProgramTest, LoopsLoadTheirFunctions) {
    loadFile("loops.txt");
    EXPECT_EQ(app.functions.count(), 3u);
}

TEST_F(SampleProgramTest, WhileLoopSums) {
    loadFile("loops.txt");
    EXPECT_EQ(result("100 sumto"), "5050");
    EXPECT_EQ(result("0 sumto"), "0");
    EXPECT_EQ(result("sumto(10) + 1", Algebraic), "56");
}

TEST_F(SampleProgramTest, DoLoopCountsDigits) {
    loadFile("loops.txt");
    EXPECT_EQ(result("12345 digits"), "5");
    EXPECT_EQ(result("0 digits"), "1");
}

TEST_F(SampleProgramTest, LoopPower) {
    loadFile("loops.txt");
    EXPECT_EQ(result("2 10 power"), "1024");
    EXPECT_EQ(result("3 0 power"), "1");
}

TEST_F(SampleProgramTest, RecursiveFactorial) {
    loadFile("recursion.txt");
    EXPECT_EQ(result("10 factorial"), "3628800");
    EXPECT_EQ(result("25 factorial"), "15511210043330985984000000");
    EXPECT_EQ(result("factorial(5) + 1", Algebraic), "121");
}

TEST_F(SampleProgramTest, DoubleRecursionFibonacci) {
    loadFile("recursion.txt");
    EXPECT_EQ(result("15 fib"), "610");
    EXPECT_EQ(result("fib(1)", Algebraic), "1");
}

TEST_F(SampleProgramTest, RecursiveGcd) {
    loadFile("recursion.txt");
    EXPECT_EQ(result("gcd(48, 18)", Algebraic), "6");
    EXPECT_EQ(result("gcd(17, 5)", Algebraic), "1");
}

TEST_F(SampleProgramTest, LocalsShadowGlobals) {
    loadFile("scopes.txt");
    run("a = 10", Algebraic);
    EXPECT_EQ(result("setlocal"), "1");
    EXPECT_EQ(result("readglobal"), "110 | 10");
    const Variable* a = app.variables.FindExisting(u"a");
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(describe(*a->value), "10");
}

TEST_F(SampleProgramTest, InnerCallSeesItsCallersLocals) {
    loadFile("scopes.txt");
    EXPECT_EQ(result("outer"), "2");
    EXPECT_EQ(app.variables.FindExisting(u"depth"), nullptr);
}

TEST_F(SampleProgramTest, ReturnLeavesAnEndlessLoop) {
    loadFile("search.txt");
    EXPECT_EQ(result("50 firstsquare"), "8");
    EXPECT_EQ(result("0 firstsquare"), "1");
}

TEST_F(SampleProgramTest, ReturnLeavesALoopEarly) {
    loadFile("search.txt");
    EXPECT_EQ(result("97 isprime"), "1");
    EXPECT_EQ(result("91 isprime"), "0");
    EXPECT_EQ(result("1 isprime"), "0");
}

TEST_F(SampleProgramTest, FunctionsCallFunctionsInLoops) {
    loadFile("search.txt");
    EXPECT_EQ(result("30 countprimes"), "10");
}

}  // namespace
}  // namespace quorvel::test

namespace quorvel::test {
namespace {

TEST_F(SampleProgramTest, DeepRecursionBelowTheLimit) {
    loadFile("recursion.txt");
    app.stack.freeAll();
    run("990 factorial", Rpn);
    EXPECT_EQ(shown(), "");
    ASSERT_EQ(app.stack.count(), 1);
    EXPECT_EQ(app.stack.head()->type, ItemType::Integer);
    EXPECT_EQ(integerText(app.stack.head()->asInteger()).size(), 2538u);   // 990! has 2538 digits
}

}  // namespace
}  // namespace quorvel::test
