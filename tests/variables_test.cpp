// Variable lookup over frames and resolving Variable reference operands.
#include <gtest/gtest.h>

#include "lang/appstate.h"
#include "lang/handler.h"
#include "lang/variables.h"
#include "tests/testhost.h"

namespace quorvel {
namespace {

BigInt smallInteger(uint16_t value) {
    BigInt n;
    n.limbs = {value};
    n.sign = value == 0 ? 0 : 1;
    return n;
}

TEST(VariableStoreTest, WithNoFrameNothingIsFoundOrMade) {
    VariableStore store;
    EXPECT_EQ(store.FindVariable(u"a", false), nullptr);
    EXPECT_EQ(store.FindVariable(u"a", true), nullptr);
}

TEST(VariableStoreTest, AnUnknownNameWithoutCreateIsNone) {
    VariableStore store;
    store.PushFrame();
    EXPECT_EQ(store.FindVariable(u"a", false), nullptr);
}

TEST(VariableStoreTest, CreateMakesAVariableWithANullValue) {
    VariableStore store;
    store.PushFrame();
    Variable* a = store.FindVariable(u"a", true);
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->name, u"a");
    ASSERT_NE(a->value, nullptr);
    EXPECT_EQ(a->value->type, ItemType::Null);
    EXPECT_EQ(store.FindVariable(u"a", false), a);
}

TEST(VariableStoreTest, FindingAnExistingNameWithCreateReturnsIt) {
    VariableStore store;
    store.PushFrame();
    Variable* a = store.FindVariable(u"a", true);
    const Item* value = a->value.get();
    EXPECT_EQ(store.FindVariable(u"a", true)->value.get(), value);
}

TEST(VariableStoreTest, InsideAFunctionCreationMakesALocalEvenWhenAGlobalExists) {
    VariableStore store;
    store.PushFrame();
    store.FindVariable(u"a", true)->value->assignFrom(Item::integer(smallInteger(1)));
    const Item* global = store.FindVariable(u"a", false)->value.get();

    store.PushFrame();   // a function call
    Variable* local = store.FindVariable(u"a", true);
    ASSERT_NE(local, nullptr);
    EXPECT_NE(local->value.get(), global);
    EXPECT_EQ(local->value->type, ItemType::Null);
    local->value->assignFrom(Item::integer(smallInteger(2)));
    EXPECT_EQ(store.FindVariable(u"a", false)->value.get(), local->value.get());

    store.PopFrame();    // the call returns: the local is gone
    const Variable* after = store.FindVariable(u"a", false);
    ASSERT_NE(after, nullptr);
    EXPECT_EQ(after->value.get(), global);
    EXPECT_EQ(after->value->asInteger(), smallInteger(1));
}

TEST(VariableStoreTest, InsideAFunctionReadingBeforeAssignmentFindsTheGlobal) {
    VariableStore store;
    store.PushFrame();
    Variable* global = store.FindVariable(u"a", true);
    store.PushFrame();
    EXPECT_EQ(store.FindVariable(u"a", false), global);
    store.PopFrame();
}

TEST(VariableStoreTest, VariablesMadeInAFunctionVanishWhenItReturns) {
    VariableStore store;
    store.PushFrame();
    store.PushFrame();
    ASSERT_NE(store.FindVariable(u"t", true), nullptr);
    store.PopFrame();
    EXPECT_EQ(store.FindVariable(u"t", false), nullptr);
    EXPECT_EQ(store.frameCount(), 1u);
}

TEST(VariableStoreTest, NamesDifferingOnlyInCaseAreDifferentVariables) {
    VariableStore store;
    store.PushFrame();
    Variable* lower = store.FindVariable(u"a", true);
    const Item* lowerValue = lower->value.get();
    Variable* upper = store.FindVariable(u"A", true);
    ASSERT_NE(upper, nullptr);
    EXPECT_NE(upper->value.get(), lowerValue);
    EXPECT_EQ(store.FindVariable(u"A", false)->name, u"A");
    EXPECT_EQ(store.FindVariable(u"a", false)->value.get(), lowerValue);
}

TEST(VariableStoreTest, PopFrameOnNoFrameDoesNothing) {
    VariableStore store;
    store.PopFrame();
    EXPECT_EQ(store.frameCount(), 0u);
}

// --- Resolve -------------------------------------------------------------------

class ResolveTest : public ::testing::Test {
protected:
    ResolveTest() { app.host = &host; }
    AppState app;
    test::RecordingHost host;
};

TEST_F(ResolveTest, AKnownVariableResolvesToItsOwnValueItem) {
    Variable* a = app.variables.FindVariable(u"a", true);
    a->value->assignFrom(Item::integer(smallInteger(5)));
    Item reference = Item::variableRef(u"a");
    Item& resolved = Resolve(app, reference);
    EXPECT_EQ(&resolved, app.variables.FindVariable(u"a", false)->value.get());
    EXPECT_EQ(resolved.asInteger(), smallInteger(5));
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(ResolveTest, ReadingAnUnknownVariableReportsAndWorksOnAnEmptyValue) {
    Item reference = Item::variableRef(u"q");
    Item& resolved = Resolve(app, reference);
    EXPECT_EQ(host.shownText(), u"Undefined Variable Referenced");
    EXPECT_EQ(host.shownSeverity(), 4);
    EXPECT_EQ(resolved.type, ItemType::Null);
    const Variable* made = app.variables.FindVariable(u"q", false);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(&resolved, made->value.get());
}

TEST_F(ResolveTest, AnUnknownVariableIsCreatedInTheNewestFrame) {
    app.variables.PushFrame();
    Item reference = Item::variableRef(u"t");
    Resolve(app, reference);
    app.variables.PopFrame();
    EXPECT_EQ(app.variables.FindVariable(u"t", false), nullptr);
}

TEST_F(ResolveTest, OtherItemsResolveToThemselves) {
    Item number = Item::integer(smallInteger(3));
    EXPECT_EQ(&Resolve(app, number), &number);
    Item text = Item::string(u"m");
    EXPECT_EQ(&Resolve(app, text), &text);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(ResolveTest, WithNoFrameAtAllTheReferenceStaysAsItIs) {
    app.variables.PopFrame();
    Item reference = Item::variableRef(u"q");
    EXPECT_EQ(&Resolve(app, reference), &reference);
    EXPECT_EQ(host.shownText(), u"Undefined Variable Referenced");
}

}  // namespace
}  // namespace quorvel
