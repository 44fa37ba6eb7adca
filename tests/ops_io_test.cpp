// Console commands: print, input, exit.
#include "lang/variables.h"
#include "tests/ops_testing.h"

namespace quorvel::test {
namespace {

// A recording host that also counts console opening and closing.
class ConsoleHost : public RecordingHost {
public:
    void openConsole() override { ++opened; }
    void closeConsole() override { ++closed; }
    std::optional<std::u16string> consoleRead(std::u16string_view prompt) override {
        prompts.emplace_back(prompt);
        return RecordingHost::consoleRead(prompt);
    }
    std::vector<std::u16string> prompts;
    int opened = 0;
    int closed = 0;
};

class ConsoleTest : public HandlerTest {
protected:
    ConsoleTest() {
        app.host = &console;
        watched = &console;
    }
    ConsoleHost console;
};

using Print = ConsoleTest;
using Input = ConsoleTest;
using Exit = ConsoleTest;

TEST_F(Print, WritesTheValueAndOpensTheConsole) {
    pushInt(1);
    pushInt(42);
    opPrint(app, app.stack);
    EXPECT_EQ(console.opened, 1);
    EXPECT_TRUE(app.consoleOpen);
    ASSERT_EQ(console.consoleLines.size(), 1u);
    EXPECT_EQ(console.consoleLines[0], u"42");
    EXPECT_EQ(app.stack.count(), 1);   // x is consumed
}

TEST_F(Print, AnOpenConsoleIsNotOpenedAgain) {
    app.consoleOpen = true;
    pushInt(1);
    opPrint(app, app.stack);
    EXPECT_EQ(console.opened, 0);
}

TEST_F(Print, VariableIsWrittenWithItsName) {
    app.variables.FindVariable(u"a", true)->value->assignFrom(integer(5));
    pushVar(u"a");
    opPrint(app, app.stack);
    ASSERT_EQ(console.consoleLines.size(), 1u);
    EXPECT_EQ(console.consoleLines[0], u"a = 5");
}

TEST_F(Print, UsesPlainTextForMinusAndUnits) {
    pushInt(-3, UnitVector{1, 0, -2, 0, 0, 0, 0, 0});
    opPrint(app, app.stack);
    ASSERT_EQ(console.consoleLines.size(), 1u);
    EXPECT_EQ(console.consoleLines[0].substr(0, 2), u"-3");
}

TEST_F(Print, MissingOperand) { EXPECT_TRUE(refuses(opPrint, u"Missing Operand")); }

TEST_F(Input, PromptsEvaluatesAndStores) {
    console.consoleInput.push_back(u"2+3");
    pushInt(9);
    pushVar(u"n");
    opInput(app, app.stack);
    EXPECT_EQ(console.opened, 1);
    ASSERT_EQ(console.prompts.size(), 1u);
    EXPECT_EQ(console.prompts[0], u"n = ? ");
    ASSERT_NE(app.variables.FindExisting(u"n"), nullptr);
    const Item& n = *app.variables.FindExisting(u"n")->value;
    ASSERT_EQ(n.type, ItemType::Integer);
    EXPECT_EQ(n.asInteger(), bigIntFromI32(5));
    EXPECT_EQ(app.stack.count(), 1);   // x consumed, the rest untouched
    EXPECT_TRUE(topIsInteger(9));
}

TEST_F(Input, NotAVariableIsAnInvalidOperandAndConsumed) {
    pushInt(9);
    pushInt(4);
    opInput(app, app.stack);
    EXPECT_TRUE(shows(u"Invalid Operand"));
    EXPECT_EQ(app.stack.count(), 1);   // unlike other refusals, x is not pushed back
    EXPECT_TRUE(topIsInteger(9));
}

TEST_F(Input, EndOfInputStoresNothing) {
    pushVar(u"n");
    opInput(app, app.stack);
    EXPECT_EQ(app.variables.FindExisting(u"n"), nullptr);
    EXPECT_EQ(app.stack.count(), 0);
}

TEST_F(Input, MissingOperand) { EXPECT_TRUE(refuses(opInput, u"Missing Operand")); }

TEST_F(Exit, WithTheConsoleOpenClosesTheConsoleOnly) {
    app.consoleOpen = true;
    opExit(app, app.stack);
    EXPECT_FALSE(app.consoleOpen);
    EXPECT_EQ(console.closed, 1);
    EXPECT_FALSE(app.exitRequested);
}

TEST_F(Exit, WithoutAConsoleRequestsTheEnd) {
    opExit(app, app.stack);
    EXPECT_TRUE(app.exitRequested);
    EXPECT_EQ(console.closed, 0);
}

}  // namespace
}  // namespace quorvel::test
