// Numbered memories: sto, rcl, clrmem and the memory list.
#include "lang/memories.h"
#include "lang/variables.h"
#include "tests/ops_testing.h"

namespace quorvel::test {
namespace {

using Memories = HandlerTest;

TEST_F(Memories, FiveThreeStoStoresAndThreeRclRecalls) {
    pushInt(1);
    pushInt(5);
    pushInt(3);
    opSto(app, app.stack);
    EXPECT_TRUE(shows(u"Copied to Memory", Confirmation));
    EXPECT_EQ(app.stack.count(), 1);   // two entries shorter
    ASSERT_EQ(app.memories.size(), 1u);
    EXPECT_EQ(app.memories[0].number, 3);

    pushInt(3);
    opRcl(app, app.stack);
    EXPECT_EQ(app.stack.count(), 2);
    EXPECT_TRUE(topIsInteger(5));
}

TEST_F(Memories, StoringAValueWithUnitsIntoAMemoryIsRefused) {
    pushInt(5, metres());
    pushInt(3);
    EXPECT_TRUE(refuses(opSto, u"Invalid Units"));
    EXPECT_TRUE(app.memories.empty());
}

TEST_F(Memories, StoringAValueWithUnitsIntoAVariableKeepsThem) {
    pushInt(5, metres());
    pushVar(u"v");
    opSto(app, app.stack);
    EXPECT_TRUE(shows(u"Copied to Memory", Confirmation));
    EXPECT_EQ(app.stack.count(), 0);
    const Item& v = *app.variables.FindExisting(u"v")->value;
    EXPECT_EQ(v.units, metres());
    EXPECT_EQ(v.asInteger(), bigIntFromI32(5));
}

TEST_F(Memories, StoreNumberAboveRangeLeavesTheStack) {
    pushInt(5);
    pushInt(1000);
    EXPECT_TRUE(refuses(opSto, u"Memory Number Out of Range"));
    // The following "Invalid Memory Id" is kept from showing by the first error.
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_TRUE(app.memories.empty());
}

TEST_F(Memories, StoreNumberZeroAndNegativeAreOutOfRange) {
    for (int32_t n : {0, -1}) {
        app.stack.freeAll();
        app.keptSeverity = 0;
        pushInt(5);
        pushInt(n);
        EXPECT_TRUE(refuses(opSto, u"Memory Number Out of Range")) << n;
    }
}

TEST_F(Memories, StoreIdTooLargeToReadIsOutOfRange) {
    pushInt(5);
    push(Item::integer(ParseInteger(u"100000000000", 10)));
    EXPECT_TRUE(refuses(opSto, u"Memory Number Out of Range"));
}

TEST_F(Memories, StoreIdNotAnIntegerIsAnInvalidMemoryId) {
    pushInt(5);
    pushReal(u"3.5");
    EXPECT_TRUE(refuses(opSto, u"Invalid Memory Id"));
}

TEST_F(Memories, StoreUnitCheckIsOnTheValueNotTheId) {
    pushInt(5);
    pushInt(3, metres());
    opSto(app, app.stack);
    EXPECT_TRUE(shows(u"Copied to Memory", Confirmation));
    EXPECT_EQ(app.stack.count(), 0);
}

TEST_F(Memories, StoreMissingOperand) {
    pushInt(3);
    EXPECT_TRUE(refuses(opSto, u"Missing Operand"));
}

TEST_F(Memories, StoreResolvesAReferenceValue) {
    app.variables.FindVariable(u"a", true)->value->assignFrom(integer(8));
    pushVar(u"a");
    pushInt(2);
    opSto(app, app.stack);
    ASSERT_NE(FindMemory(app, 2, false), nullptr);
    EXPECT_EQ(FindMemory(app, 2, false)->value->asInteger(), bigIntFromI32(8));
}

TEST_F(Memories, StoreOverwritesAndKeepsOneRecord) {
    for (int32_t v : {1, 2}) {
        pushInt(v);
        pushInt(4);
        opSto(app, app.stack);
    }
    ASSERT_EQ(app.memories.size(), 1u);
    EXPECT_EQ(app.memories[0].value->asInteger(), bigIntFromI32(2));
}

TEST_F(Memories, MemoriesAreKeptInOrderOfCreation) {
    for (int32_t n : {9, 2, 5}) {
        pushInt(n);
        pushInt(n);
        opSto(app, app.stack);
    }
    ASSERT_EQ(app.memories.size(), 3u);
    EXPECT_EQ(app.memories[0].number, 9);
    EXPECT_EQ(app.memories[1].number, 2);
    EXPECT_EQ(app.memories[2].number, 5);
}

TEST_F(Memories, RecallKeepsUnitsOfAVariable) {
    app.variables.FindVariable(u"v", true)->value->assignFrom(integer(5, metres()));
    pushVar(u"v");
    opRcl(app, app.stack);
    EXPECT_EQ(app.stack.count(), 1);
    EXPECT_TRUE(topIsInteger(5, metres()));
}

TEST_F(Memories, RecallOfAnUnknownVariableIsUndefinedAndMakesNothing) {
    pushVar(u"nothing");
    EXPECT_TRUE(refuses(opRcl, u"Memory Undefined"));
    EXPECT_EQ(app.variables.FindExisting(u"nothing"), nullptr);
}

TEST_F(Memories, RecallOfAnEmptyVariableIsUndefined) {
    app.variables.FindVariable(u"empty", true);
    pushVar(u"empty");
    EXPECT_TRUE(refuses(opRcl, u"Memory Undefined"));
}

TEST_F(Memories, ZeroRclOpensTheListAndCancelConsumesTheId) {
    pushInt(5);
    pushInt(3);
    opSto(app, app.stack);
    app.keptSeverity = 0;
    host.messages.clear();
    host.current.reset();
    pushInt(1);
    pushInt(0);
    host.pickedMemory = 0;
    opRcl(app, app.stack);
    EXPECT_EQ(app.stack.count(), 1);   // one entry shorter
    EXPECT_TRUE(topIsInteger(1));
    EXPECT_TRUE(host.messages.empty());
    ASSERT_EQ(host.offeredMemories.size(), 1u);
    EXPECT_EQ(host.offeredMemories[0].number, 3);
    EXPECT_EQ(host.offeredMemories[0].text, u"003:\t5");
}

TEST_F(Memories, ZeroRclRecallsTheMemoryPicked) {
    pushInt(42);
    pushInt(12);
    opSto(app, app.stack);
    pushInt(0);
    host.pickedMemory = 12;
    opRcl(app, app.stack);
    EXPECT_EQ(app.stack.count(), 1);
    EXPECT_TRUE(topIsInteger(42));
}

TEST_F(Memories, IdTooLargeToReadAlsoOpensTheList) {
    push(Item::integer(ParseInteger(u"100000000000", 10)));
    host.pickedMemory = 0;
    opRcl(app, app.stack);
    EXPECT_EQ(app.stack.count(), 0);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(Memories, PickedNumberOutOfRange) {
    pushInt(0);
    host.pickedMemory = 1000;
    EXPECT_TRUE(refuses(opRcl, u"Memory Number Out of Range"));
    ASSERT_EQ(host.messages.size(), 1u);   // "Memory Undefined" follows unseen
}

TEST_F(Memories, RecallNumberOutOfRange) {
    pushInt(-4);
    EXPECT_TRUE(refuses(opRcl, u"Memory Number Out of Range"));
}

TEST_F(Memories, SevenRclNeverStoredIsUndefinedButLeavesAnEmptyMemory) {
    pushInt(7);
    EXPECT_TRUE(refuses(opRcl, u"Memory Undefined"));
    ASSERT_EQ(app.memories.size(), 1u);
    EXPECT_EQ(app.memories[0].number, 7);
    EXPECT_EQ(app.memories[0].value->type, ItemType::Null);
    EXPECT_TRUE(MemoryListLines(app).empty());   // not shown in the memory list
}

TEST_F(Memories, RecallIdNotAnIntegerIsAnInvalidMemoryId) {
    push(Item::string(u"3"));
    EXPECT_TRUE(refuses(opRcl, u"Invalid Memory Id"));
}

TEST_F(Memories, RecallIdWithUnitsIsInvalidUnits) {
    pushInt(3, metres());
    EXPECT_TRUE(refuses(opRcl, u"Invalid Units"));
}

TEST_F(Memories, RecallMissingOperand) { EXPECT_TRUE(refuses(opRcl, u"Missing Operand")); }

// Records the question clrmem asks.
class AskingHost : public RecordingHost {
public:
    bool confirm(std::u16string_view t, std::u16string_view q) override {
        title = t;
        question = q;
        return RecordingHost::confirm(t, q);
    }
    std::u16string title, question;
};

TEST_F(Memories, ClearAsksConfirmClearAllMemories) {
    AskingHost asking;
    app.host = &asking;
    asking.confirmAnswer = false;
    opClrmem(app, app.stack);
    EXPECT_EQ(asking.title, u"Confirm");
    EXPECT_EQ(asking.question, u"Clear All Memories");
}

TEST_F(Memories, AnsweringNoKeepsEveryMemory) {
    pushInt(5);
    pushInt(3);
    opSto(app, app.stack);
    host.confirmAnswer = false;
    opClrmem(app, app.stack);
    EXPECT_EQ(host.questions, 1);
    EXPECT_EQ(app.memories.size(), 1u);
}

TEST_F(Memories, AnsweringYesClearsMemoriesButNotVariables) {
    pushInt(5);
    pushInt(3);
    opSto(app, app.stack);
    pushInt(6);
    pushVar(u"v");
    opSto(app, app.stack);
    pushInt(1);
    host.confirmAnswer = true;
    opClrmem(app, app.stack);
    EXPECT_TRUE(app.memories.empty());
    ASSERT_NE(app.variables.FindExisting(u"v"), nullptr);
    EXPECT_EQ(app.stack.count(), 1);   // the stack is not touched
}

TEST_F(Memories, MemoryListLinesAreCutTo128Characters) {
    SetDigits(app, 300);
    std::u16string digits = u"1.";
    for (int i = 0; i < 250; ++i) digits.push_back(static_cast<char16_t>(u'0' + i % 10));
    pushReal(digits);
    pushInt(45);
    opSto(app, app.stack);
    const auto lines = MemoryListLines(app);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].text.size(), 128u);
    EXPECT_EQ(lines[0].text.substr(0, 6), u"045:\t1");
}

TEST_F(Memories, MemoryListSkipsEmptyMemoriesAndKeepsOrder) {
    pushInt(7);
    opRcl(app, app.stack);   // leaves an empty memory 7
    for (int32_t n : {20, 4}) {
        pushInt(n * 10);
        pushInt(n);
        opSto(app, app.stack);
    }
    const auto lines = MemoryListLines(app);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].text, u"020:\t200");
    EXPECT_EQ(lines[1].text, u"004:\t40");
}

}  // namespace
}  // namespace quorvel::test
