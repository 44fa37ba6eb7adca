// The stack commands on the main stack, and the copies `x`, `dup`, `y`, `z`
// push onto the list they are given.
#include <gtest/gtest.h>

#include "lang/appstate.h"
#include "lang/handlers.h"
#include "lang/keywords.h"
#include "tests/testhost.h"

namespace quorvel {
namespace {

class StackCommandTest : public ::testing::Test {
protected:
    StackCommandTest() { app.host = &host; }

    // Pushes characters so that the last one given is the top (x).
    void push(std::initializer_list<char16_t> entries) {
        for (char16_t c : entries) app.stack.push(Item::character(c));
    }
    // The main stack from the top down.
    static std::u16string contents(const ItemList& list) {
        std::u16string out;
        for (const Item& item : list) out += item.asCharacter();
        return out;
    }
    std::u16string stack() const { return contents(app.stack); }
    // Runs the keyword's handler as the command runner does, on the main stack.
    void run(std::u16string_view word) { FindWord(word)->handler(app, app.stack); }

    AppState app;
    test::RecordingHost host;
};

TEST_F(StackCommandTest, SwapExchangesTheTopTwoEntries) {
    push({u'c', u'b', u'a'});
    run(u"swap");
    EXPECT_EQ(stack(), u"bac");
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(StackCommandTest, SwapWorksOnTheMainStackWhateverListItIsGiven) {
    push({u'b', u'a'});
    ItemList other;
    other.push(Item::character(u'z'));
    other.push(Item::character(u'y'));
    opSwap(app, other);
    EXPECT_EQ(stack(), u"ba");
    EXPECT_EQ(contents(other), u"yz");
}

TEST_F(StackCommandTest, SwapOnAStackOfOneEntryPushesItBackAndReportsMissingOperand) {
    push({u'a'});
    run(u"swap");
    EXPECT_EQ(stack(), u"a");
    EXPECT_EQ(host.shownText(), u"Missing Operand");
    EXPECT_EQ(host.shownSeverity(), 4);
}

TEST_F(StackCommandTest, SwapOnAnEmptyStackReportsMissingOperand) {
    run(u"swap");
    EXPECT_TRUE(app.stack.empty());
    EXPECT_EQ(host.shownText(), u"Missing Operand");
}

TEST_F(StackCommandTest, DropDestroysTheTopEntry) {
    push({u'b', u'a'});
    run(u"drop");
    EXPECT_EQ(stack(), u"b");
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(StackCommandTest, DropOnAnEmptyStackWarnsStackEmpty) {
    run(u"drop");
    EXPECT_TRUE(app.stack.empty());
    EXPECT_EQ(host.shownText(), u"Stack Empty");
    EXPECT_EQ(host.shownSeverity(), 3);
}

TEST_F(StackCommandTest, DropWorksOnTheMainStackWhateverListItIsGiven) {
    push({u'a'});
    ItemList other;
    other.push(Item::character(u'y'));
    opDrop(app, other);
    EXPECT_TRUE(app.stack.empty());
    EXPECT_EQ(contents(other), u"y");
}

TEST_F(StackCommandTest, ClearDestroysEveryEntryAndReportsNothing) {
    push({u'c', u'b', u'a'});
    run(u"clear");
    EXPECT_TRUE(app.stack.empty());
    run(u"clear");
    EXPECT_TRUE(app.stack.empty());
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(StackCommandTest, RollMovesTheThirdEntryToTheTop) {
    push({u'd', u'z', u'y', u'x'});
    run(u"roll");
    EXPECT_EQ(stack(), u"zxyd");   // z to x, x to y, y to z
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(StackCommandTest, RollWithTwoEntriesReportsValueNotFoundAndChangesNothing) {
    push({u'y', u'x'});
    run(u"roll");
    EXPECT_EQ(stack(), u"xy");
    EXPECT_EQ(host.shownText(), u"Value Not Found");
    EXPECT_EQ(host.shownSeverity(), 4);
}

TEST_F(StackCommandTest, DupPushesACopyOfTheFirstEntry) {
    app.stack.push(Item::string(u"m"));
    run(u"dup");
    ASSERT_EQ(app.stack.count(), 2);
    EXPECT_EQ(app.stack.at(0)->asText(), u"m");
    EXPECT_EQ(app.stack.at(1)->asText(), u"m");
    std::get<std::u16string>(app.stack.at(0)->value) = u"changed";
    EXPECT_EQ(app.stack.at(1)->asText(), u"m");
}

TEST_F(StackCommandTest, XAndDupAreTheSameOperation) {
    push({u'a'});
    run(u"x");
    EXPECT_EQ(stack(), u"aa");
    EXPECT_EQ(FindWord(u"x")->handler, FindWord(u"dup")->handler);
}

TEST_F(StackCommandTest, DupCopiesFromTheMainStackOntoTheListItIsGiven) {
    push({u'b', u'a'});
    ItemList operands;
    opDup(app, operands);
    opY(app, operands);
    EXPECT_EQ(contents(operands), u"ba");
    EXPECT_EQ(stack(), u"ab");
}

TEST_F(StackCommandTest, DupOnAnEmptyStackReportsValueNotFound) {
    ItemList operands;
    opDup(app, operands);
    EXPECT_TRUE(operands.empty());
    EXPECT_EQ(host.shownText(), u"Value Not Found");
    EXPECT_EQ(host.shownSeverity(), 4);
}

TEST_F(StackCommandTest, YCopiesTheSecondEntry) {
    push({u'y', u'x'});
    run(u"y");
    EXPECT_EQ(stack(), u"yxy");
}

TEST_F(StackCommandTest, YOnAStackOfOneEntryReportsValueNotFound) {
    push({u'x'});
    run(u"y");
    EXPECT_EQ(stack(), u"x");
    EXPECT_EQ(host.shownText(), u"Value Not Found");
    EXPECT_EQ(host.shownSeverity(), 4);
}

TEST_F(StackCommandTest, ZCopiesTheThirdEntry) {
    push({u'z', u'y', u'x'});
    run(u"z");
    EXPECT_EQ(stack(), u"zxyz");
}

TEST_F(StackCommandTest, ZOnAStackOfTwoEntriesReportsValueNotFound) {
    push({u'y', u'x'});
    run(u"z");
    EXPECT_EQ(stack(), u"xy");
    EXPECT_EQ(host.shownText(), u"Value Not Found");
}

TEST_F(StackCommandTest, CopiesOfVariableReferencesStayReferences) {
    app.stack.push(Item::variableRef(u"a"));
    run(u"dup");
    ASSERT_EQ(app.stack.count(), 2);
    EXPECT_EQ(app.stack.at(0)->type, ItemType::VariableRef);
    EXPECT_EQ(app.stack.at(0)->asText(), u"a");
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(StackCommandTest, ControlWordsDoNothing) {
    push({u'b', u'a'});
    for (std::u16string_view word : {u"if", u"else", u"while", u"do", u"function", u"return"}) run(word);
    FindOperator(u"//")->handler(app, app.stack);
    EXPECT_EQ(stack(), u"ab");
    EXPECT_TRUE(host.messages.empty());
}

}  // namespace
}  // namespace quorvel
