// Items: construction, the cleared state, the copy rules of each type, and
// the list operations.
#include <gtest/gtest.h>

#include "lang/item.h"
#include "lang/keywords.h"

namespace quorvel {
namespace {

BigInt smallInteger(uint16_t value, int8_t sign) {
    BigInt n;
    n.limbs = {value};
    n.sign = value == 0 ? 0 : sign;
    return n;
}

// 1.5 as a two-byte BigNum: d1 = 1, pairs 15 00.
BigNum oneAndAHalf() {
    BigNum x;
    x.digits = {0, 15};
    x.exponent = 0;
    x.sign = 1;
    return x;
}

bool hasNoValue(const Item& item) { return std::holds_alternative<std::monostate>(item.value); }

TEST(ItemTest, FreshItemIsNullWithNoUnitsAndNoValue) {
    Item item;
    EXPECT_EQ(item.type, ItemType::Null);
    EXPECT_EQ(item.units, NoUnits);
    EXPECT_TRUE(hasNoValue(item));
}

TEST(ItemTest, FactoriesSetTypeValueAndUnits) {
    UnitVector metres{};
    metres[Length] = 1;
    Item n = Item::integer(smallInteger(7, 1), metres);
    EXPECT_EQ(n.type, ItemType::Integer);
    EXPECT_EQ(n.asInteger(), smallInteger(7, 1));
    EXPECT_EQ(n.units, metres);

    Item x = Item::real(oneAndAHalf());
    EXPECT_EQ(x.type, ItemType::Real);
    EXPECT_EQ(x.asReal(), oneAndAHalf());

    Item z = Item::complex({oneAndAHalf(), oneAndAHalf()});
    EXPECT_EQ(z.type, ItemType::Complex);

    EXPECT_EQ(Item::string(u"m/s^2").type, ItemType::String);
    EXPECT_EQ(Item::variableRef(u"a").type, ItemType::VariableRef);
    EXPECT_EQ(Item::functionCall(u"f").type, ItemType::FunctionCall);
    EXPECT_EQ(Item::comment(u"// note").asText(), u"// note");
    EXPECT_EQ(Item::character(u'(').asCharacter(), u'(');
    const KeywordEntry& sin = KeywordRow(u"sin");
    EXPECT_EQ(&Item::keyword(sin).asKeyword(), &sin);
}

TEST(ItemTest, NumericTypesIncludeTheReservedOne) {
    Item reserved;
    reserved.type = ItemType::ReservedNumeric;
    EXPECT_TRUE(reserved.isNumeric());
    EXPECT_TRUE(Item::integer(smallInteger(1, 1)).isNumeric());
    EXPECT_FALSE(Item::string(u"x").isNumeric());
}

TEST(ItemTest, AfterClearValueTheItemIsCharacterZero) {
    UnitVector speed{};
    speed[Length] = 1;
    speed[Time] = -1;
    Item item = Item::integer(smallInteger(42, -1), speed);
    item.clearValue();
    EXPECT_EQ(item.type, ItemType::Character);
    EXPECT_EQ(item.asCharacter(), u'\0');
    EXPECT_EQ(item.units, NoUnits);
}

TEST(ItemTest, ClearValueReleasesTextsAndBlocks) {
    Item text = Item::string(u"kg");
    text.clearValue();
    EXPECT_EQ(text.type, ItemType::Character);
    EXPECT_EQ(text.asCharacter(), u'\0');

    Item block;
    block.type = ItemType::Block;
    auto contents = std::make_unique<Block>();
    contents->items.push_back(Item::string(u"inside"));
    block.value = std::move(contents);
    block.clearValue();
    EXPECT_EQ(block.type, ItemType::Character);
    EXPECT_EQ(block.asCharacter(), u'\0');
}

TEST(ItemTest, DuplicateCopiesNumbersDeeply) {
    UnitVector mass{};
    mass[Mass] = 1;
    Item original = Item::integer(smallInteger(5, -1), mass);
    Item copy = original.duplicate();
    EXPECT_EQ(copy.type, ItemType::Integer);
    EXPECT_EQ(copy.units, mass);
    EXPECT_EQ(copy.asInteger(), original.asInteger());
    std::get<BigInt>(copy.value).limbs[0] = 9;
    EXPECT_EQ(original.asInteger(), smallInteger(5, -1));

    Item real = Item::real(oneAndAHalf());
    EXPECT_EQ(real.duplicate().asReal(), oneAndAHalf());
    Item complex = Item::complex({oneAndAHalf(), BigNum{}});
    EXPECT_EQ(complex.duplicate().asComplex(), complex.asComplex());
}

TEST(ItemTest, DuplicateCopiesTextsAndCharacters) {
    std::vector<Item> originals;
    originals.push_back(Item::string(u"m"));
    originals.push_back(Item::variableRef(u"a"));
    originals.push_back(Item::comment(u"// c"));
    for (const Item& original : originals) {
        Item copy = original.duplicate();
        EXPECT_EQ(copy.type, original.type);
        EXPECT_EQ(copy.asText(), original.asText());
        std::get<std::u16string>(copy.value) += u"!";
        EXPECT_NE(copy.asText(), original.asText());
    }
    EXPECT_EQ(Item::character(u';').duplicate().asCharacter(), u';');
}

TEST(ItemTest, DuplicatingAKeywordSharesTheRow) {
    const KeywordEntry& row = KeywordRow(u"swap");
    Item original = Item::keyword(row);
    Item copy = original.duplicate();
    EXPECT_EQ(copy.type, ItemType::Keyword);
    EXPECT_EQ(&copy.asKeyword(), &row);
}

TEST(ItemTest, DuplicatingABlockGivesAnEmptyValue) {
    Item block;
    block.type = ItemType::Block;
    auto contents = std::make_unique<Block>();
    contents->items.push_back(Item::string(u"inside"));
    block.value = std::move(contents);
    Item copy = block.duplicate();
    EXPECT_EQ(copy.type, ItemType::Block);
    EXPECT_TRUE(hasNoValue(copy));
}

TEST(ItemTest, DuplicatingAFunctionCallGivesAnEmptyValue) {
    Item call = Item::functionCall(u"area");
    Item copy = call.duplicate();
    EXPECT_EQ(copy.type, ItemType::FunctionCall);
    EXPECT_TRUE(hasNoValue(copy));
    EXPECT_EQ(call.asText(), u"area");
}

TEST(ItemTest, DuplicatingNullOrReservedGivesAnEmptyValue) {
    Item null;
    EXPECT_TRUE(hasNoValue(null.duplicate()));
    Item reserved;
    reserved.type = ItemType::ReservedNumeric;
    Item copy = reserved.duplicate();
    EXPECT_EQ(copy.type, ItemType::ReservedNumeric);
    EXPECT_TRUE(hasNoValue(copy));
}

TEST(ItemTest, AssignFromReplacesTypeUnitsAndValue) {
    UnitVector time{};
    time[Time] = 1;
    Item target = Item::string(u"old");
    Item source = Item::integer(smallInteger(3, 1), time);
    target.assignFrom(source);
    EXPECT_EQ(target.type, ItemType::Integer);
    EXPECT_EQ(target.units, time);
    EXPECT_EQ(target.asInteger(), smallInteger(3, 1));
    EXPECT_EQ(source.asInteger(), smallInteger(3, 1));
}

TEST(ItemTest, AssignFromAFunctionCallGivesAnEmptyValue) {
    Item target = Item::integer(smallInteger(3, 1));
    target.assignFrom(Item::functionCall(u"f"));
    EXPECT_EQ(target.type, ItemType::FunctionCall);
    EXPECT_TRUE(hasNoValue(target));
}

TEST(ItemTest, AssignFromItselfKeepsTheValue) {
    Item item = Item::string(u"same");
    item.assignFrom(item);
    EXPECT_EQ(item.type, ItemType::String);
    EXPECT_EQ(item.asText(), u"same");
}

// --- ItemList ----------------------------------------------------------------

std::vector<char16_t> characters(const ItemList& list) {
    std::vector<char16_t> out;
    for (const Item& item : list) out.push_back(item.asCharacter());
    return out;
}

TEST(ItemListTest, PushPutsTheItemAtTheHead) {
    ItemList list;
    list.push(Item::character(u'a'));
    list.push(Item::character(u'b'));
    EXPECT_EQ(list.count(), 2);
    EXPECT_EQ(list.head()->asCharacter(), u'b');
    EXPECT_EQ(list.tail()->asCharacter(), u'a');
}

TEST(ItemListTest, PopTakesTheHead) {
    ItemList list;
    list.push(Item::character(u'a'));
    list.push(Item::character(u'b'));
    auto top = list.pop();
    ASSERT_TRUE(top.has_value());
    EXPECT_EQ(top->asCharacter(), u'b');
    EXPECT_EQ(characters(list), std::vector<char16_t>{u'a'});
}

TEST(ItemListTest, PopOnAnEmptyListGivesNone) {
    ItemList list;
    EXPECT_FALSE(list.pop().has_value());
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.head(), nullptr);
    EXPECT_EQ(list.tail(), nullptr);
}

TEST(ItemListTest, UnlinkingAnItemInNoListDoesNothing) {
    ItemList list;
    list.push(Item::character(u'a'));
    EXPECT_FALSE(list.unlink(1).has_value());   // past the end: no element of this list
    EXPECT_EQ(characters(list), std::vector<char16_t>{u'a'});
    ItemList empty;
    EXPECT_FALSE(empty.unlink(0).has_value());
    EXPECT_EQ(empty.count(), 0);
}

TEST(ItemListTest, UnlinkingTheOnlyElementLeavesAnEmptyList) {
    ItemList list;
    list.push(Item::character(u'a'));
    auto item = list.unlink(0);
    ASSERT_TRUE(item.has_value());
    EXPECT_EQ(item->asCharacter(), u'a');
    EXPECT_EQ(list.count(), 0);
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.head(), nullptr);
    EXPECT_EQ(list.tail(), nullptr);
}

TEST(ItemListTest, UnlinkingAMiddleElementJoinsItsNeighbours) {
    ItemList list;
    for (char16_t c : {u'c', u'b', u'a'}) list.push(Item::character(c));
    auto middle = list.unlink(1);
    ASSERT_TRUE(middle.has_value());
    EXPECT_EQ(middle->asCharacter(), u'b');
    EXPECT_EQ(characters(list), (std::vector<char16_t>{u'a', u'c'}));
}

TEST(ItemListTest, UnlinkingTheTailMovesTheTail) {
    ItemList list;
    for (char16_t c : {u'b', u'a'}) list.push(Item::character(c));
    auto last = list.unlink(1);
    ASSERT_TRUE(last.has_value());
    EXPECT_EQ(last->asCharacter(), u'b');
    EXPECT_EQ(list.tail()->asCharacter(), u'a');
    EXPECT_EQ(list.count(), 1);
}

TEST(ItemListTest, AppendPutsTheItemAtTheTail) {
    ItemList list;
    list.append(Item::character(u'a'));
    list.append(Item::character(u'b'));
    EXPECT_EQ(characters(list), (std::vector<char16_t>{u'a', u'b'}));
}

TEST(ItemListTest, FreeAllDestroysEveryItem) {
    ItemList list;
    for (char16_t c : {u'c', u'b', u'a'}) list.push(Item::character(c));
    list.freeAll();
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.head(), nullptr);
}

}  // namespace
}  // namespace quorvel
