// The binary item record: byte-exact files for every saved type, records
// without a payload, records no save could have made, and random round trips.
#include "store/item_record.h"

#include <random>

#include "tests/persistence_testing.h"

namespace quorvel::test {
namespace {

// The stack of tests/data/stack_each_type.hex, pushed from the bottom up.
ItemList stackOfEachType() {
    ItemList stack;
    stack.push(Item::integer(integerFromLimbs({0x1170, 0x0001}, -1), unitsOf(1, 0, -2, 0, 0, 0, 0, 0)));
    stack.push(Item::real(realFromPairs({12, 50, 0}, -2, -1)));
    stack.push(Item::real(realFromPairs({0, 0}, 0, 1, NumKind::Infinite), unitsOf(0, 1, 0, 0, 0, 0, 0, 0)));
    stack.push(Item::complex(ComplexNum{realFromPairs({30, 0}, 0, 1), realFromPairs({50, 0}, -1, -1)},
                             unitsOf(0, 0, 0, 0, 0, 1, 0, 0)));
    stack.push(Item::string(u"\u03A9/m"));
    stack.push(Item::variableRef(u"x1"));
    return stack;
}

// The memories of tests/data/memories_3_17.hex, oldest first.
std::vector<Memory> memories3And17() {
    std::vector<Memory> memories;
    addMemory(memories, 17, Item::real(realFromPairs({25, 0}, 0, 1)));
    addMemory(memories, 7, Item());   // Null: not saved
    addMemory(memories, 3, Item::integer(bigIntFromI32(5)));
    return memories;
}

std::string header(int32_t type) {
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8) bytes.push_back(static_cast<char>(static_cast<uint32_t>(type) >> shift));
    return bytes + std::string(32, '\0');
}

std::string le32(int32_t value) { return header(value).substr(0, 4); }

// Bytes given one by one (a string literal would stop at the first zero).
std::string raw(std::initializer_list<int> bytes) {
    std::string out;
    for (int b : bytes) out.push_back(static_cast<char>(b));
    return out;
}

// One real part: length, mantissa bytes, exponent, sign and state.
std::string realPart(int32_t length, const std::string& mantissa, int32_t exponent, int sign, int state) {
    return le32(length) + mantissa + le32(exponent) + raw({sign, state});
}

std::optional<Item> readOne(const std::string& bytes) {
    std::istringstream in(bytes, std::ios::binary);
    return ReadItem(in);
}

ItemList readStack(const std::string& bytes) {
    std::istringstream in(bytes, std::ios::binary);
    ItemList stack;
    ReadStack(in, stack);
    return stack;
}

// --- Byte-exact files ----------------------------------------------------------

TEST(ItemRecord, StackOfEachTypeIsWrittenByteForByte) {
    EXPECT_EQ(stackBytes(stackOfEachType()), hexDataFile("stack_each_type.hex"));
}

TEST(ItemRecord, StackOfEachTypeIsReadBackFromTheFile) {
    EXPECT_TRUE(sameStack(readStack(hexDataFile("stack_each_type.hex")), stackOfEachType()));
}

TEST(ItemRecord, Memories3And17AreWrittenByteForByte) {
    EXPECT_EQ(memoryBytes(memories3And17()), hexDataFile("memories_3_17.hex"));
}

TEST(ItemRecord, Memories3And17AreReadBackUnderTheirNumbers) {
    std::istringstream in(hexDataFile("memories_3_17.hex"), std::ios::binary);
    std::vector<Memory> loaded;
    ReadMemories(in, loaded);
    std::vector<Memory> expected;
    addMemory(expected, 17, Item::real(realFromPairs({25, 0}, 0, 1)));
    addMemory(expected, 3, Item::integer(bigIntFromI32(5)));
    EXPECT_TRUE(sameMemories(loaded, expected));
}

TEST(ItemRecord, EmptyStackWritesNoBytes) { EXPECT_EQ(stackBytes(ItemList()), ""); }

TEST(ItemRecord, EmptyTextIsWrittenWithItsTerminatingZero) {
    ItemList stack;
    stack.push(Item::string(u""));
    EXPECT_EQ(stackBytes(stack), header(6) + le32(1) + std::string(2, '\0'));
}

// --- Records without a payload ------------------------------------------------

TEST(ItemRecord, TypesWithoutPayloadAreWrittenAsTypeAndUnitsOnly) {
    for (ItemType type : {ItemType::Null, ItemType::Character, ItemType::Comment}) {
        Item item;
        item.type = type;
        item.units = unitsOf(0, 0, 0, 0, 0, 0, 0, 3);
        std::ostringstream out(std::ios::binary);
        WriteItem(out, item);
        EXPECT_EQ(out.str(), le32(static_cast<int32_t>(type)) + std::string(28, '\0') + le32(3));
    }
}

TEST(ItemRecord, TypesWithoutPayloadAreReadWithAnEmptyValueAndReadingGoesOn) {
    std::string bytes;
    for (int32_t type : {0, 2, 5, 8, 9, 10, 11}) bytes += header(type);
    bytes += header(1) + le32(1) + raw({7, 0, 1});
    ItemList stack = readStack(bytes);
    ASSERT_EQ(stack.count(), 8);
    EXPECT_TRUE(sameItem(*stack.at(0), Item::integer(bigIntFromI32(7))));
    EXPECT_EQ(stack.at(7)->type, ItemType::Null);
    EXPECT_EQ(stack.at(4)->type, ItemType::Character);
    EXPECT_EQ(stack.at(4)->asCharacter(), u'\0');
    EXPECT_EQ(stack.at(1)->asText(), u"");   // Comment
    EXPECT_EQ(stack.at(2)->asText(), u"");   // Function call
}

// --- Impossible and cut records ------------------------------------------------

TEST(ItemRecord, EndOfFileAtTheTypeIsNoItem) {
    EXPECT_FALSE(readOne(""));
    EXPECT_FALSE(readOne(raw({1, 0})));
}

TEST(ItemRecord, RecordCutInsideTheUnitsIsNoItem) { EXPECT_FALSE(readOne(header(0).substr(0, 20))); }

TEST(ItemRecord, TypeOutsideTheKnownCodesIsNoItem) {
    EXPECT_FALSE(readOne(header(12)));
    EXPECT_FALSE(readOne(header(-1)));
    EXPECT_FALSE(readOne(header(0x7FFFFFFF)));
}

TEST(ItemRecord, NegativeLimbCountIsNoItem) { EXPECT_FALSE(readOne(header(1) + le32(-1) + raw({1}))); }

TEST(ItemRecord, LimbCountLongerThanTheFileIsNoItem) {
    EXPECT_FALSE(readOne(header(1) + le32(0x7FFFFFFF) + std::string(10, '\x11')));
}

TEST(ItemRecord, LimbCountOfZeroReadsAsZero) {
    auto item = readOne(header(1) + le32(0) + raw({1}));
    ASSERT_TRUE(item);
    EXPECT_EQ(item->asInteger(), BigInt{});
}

TEST(ItemRecord, IntegerIsReadTrimmedWithAPlainSign) {
    auto item = readOne(header(1) + le32(3) + raw({5, 0, 0, 0, 0, 0, 0x80}));
    ASSERT_TRUE(item);
    EXPECT_EQ(item->asInteger(), bigIntFromI32(-5));
}

TEST(ItemRecord, MantissaLongerThanAnyPrecisionIsNoItem) {
    const int32_t tooLong = MaxRecordMantissaBytes + 1;
    EXPECT_FALSE(readOne(header(3) + realPart(tooLong, std::string(static_cast<size_t>(tooLong), 10), 0, 1, 0)));
    EXPECT_FALSE(readOne(header(3) + le32(0x7FFFFFFF) + std::string(100, 10)));
    EXPECT_FALSE(readOne(header(3) + realPart(-2, "", 0, 1, 0)));
}

TEST(ItemRecord, LongestAllowedMantissaIsRead) {
    std::vector<uint8_t> pairs(MaxRecordMantissaBytes, 99);
    Item item = Item::real(realFromPairs(pairs, 5, 1));
    std::ostringstream out(std::ios::binary);
    WriteItem(out, item);
    auto back = readOne(out.str());
    ASSERT_TRUE(back);
    EXPECT_TRUE(sameItem(*back, item));
}

TEST(ItemRecord, WellFormedRealPartIsRead) {
    auto item = readOne(header(3) + realPart(2, raw({0, 10}), 0, 1, 0));
    ASSERT_TRUE(item);
    EXPECT_EQ(item->asReal(), realFromPairs({10, 0}, 0, 1));
}

TEST(ItemRecord, MantissaShorterThanTwoBytesIsNoItem) {
    EXPECT_FALSE(readOne(header(3) + realPart(1, raw({10}), 0, 1, 0)));
    EXPECT_FALSE(readOne(header(3) + realPart(0, "", 0, 1, 0)));
}

TEST(ItemRecord, DigitPairAbove99IsNoItem) {
    EXPECT_FALSE(readOne(header(3) + realPart(2, raw({0, 100}), 0, 1, 0)));
    EXPECT_FALSE(readOne(header(3) + realPart(2, raw({255, 10}), 0, 1, 0)));
}

TEST(ItemRecord, UnknownSignOrStateIsNoItem) {
    EXPECT_FALSE(readOne(header(3) + realPart(2, raw({0, 10}), 0, 2, 0)));
    EXPECT_FALSE(readOne(header(3) + realPart(2, raw({0, 10}), 0, 0xFE, 0)));
    EXPECT_FALSE(readOne(header(3) + realPart(2, raw({0, 10}), 0, 1, 3)));
}

TEST(ItemRecord, RealCutBeforeItsStateByteIsNoItem) {
    const std::string whole = header(3) + realPart(2, raw({0, 10}), 0, 1, 0);
    EXPECT_FALSE(readOne(whole.substr(0, whole.size() - 1)));
}

TEST(ItemRecord, LeadingZeroDigitsOfANonzeroRealAreShiftedOut) {
    // 0.05 written with a leading zero digit: pairs 05, 00 and exponent -1.
    auto item = readOne(header(3) + realPart(2, raw({0, 5}), -1, 1, 0));
    ASSERT_TRUE(item);
    EXPECT_EQ(item->asReal(), realFromPairs({50, 0}, -2, 1));
}

TEST(ItemRecord, ComplexCutInItsImaginaryPartIsNoItem) {
    const std::string part = realPart(2, raw({0, 10}), 0, 1, 0);
    EXPECT_TRUE(readOne(header(4) + part + part));
    EXPECT_FALSE(readOne(header(4) + part + part.substr(0, 7)));
}

TEST(ItemRecord, NegativeTextCountIsNoItem) { EXPECT_FALSE(readOne(header(6) + le32(-5))); }

TEST(ItemRecord, TextCountLongerThanTheFileIsNoItem) {
    EXPECT_FALSE(readOne(header(7) + le32(0x40000000) + raw({'a', 0, 'b', 0})));
}

TEST(ItemRecord, TextEndsAtItsFirstZeroUnit) {
    auto item = readOne(header(6) + le32(4) + raw({'a', 0, 0, 0, 'b', 0, 0, 0}));
    ASSERT_TRUE(item);
    EXPECT_EQ(item->asText(), u"a");
}

TEST(ItemRecord, TextCountOfZeroReadsAsEmptyText) {
    auto item = readOne(header(7) + le32(0));
    ASSERT_TRUE(item);
    EXPECT_EQ(item->asText(), u"");
}

TEST(ItemRecord, ReadingStopsAtTheFirstBadRecordKeepingTheOnesBefore) {
    std::string bytes = stackBytes(stackOfEachType());
    bytes += header(1) + le32(-3);   // impossible
    bytes += header(0);              // would be readable, but comes after
    EXPECT_TRUE(sameStack(readStack(bytes), stackOfEachType()));
}

TEST(ItemRecord, MemoryNumberWithoutARecordEndsTheMemories) {
    std::string bytes = hexDataFile("memories_3_17.hex") + raw({5, 0});
    std::istringstream in(bytes, std::ios::binary);
    std::vector<Memory> loaded;
    ReadMemories(in, loaded);
    EXPECT_EQ(loaded.size(), 2u);
}

TEST(ItemRecord, HalfAMemoryNumberEndsTheMemories) {
    std::string bytes = hexDataFile("memories_3_17.hex") + raw({5});
    std::istringstream in(bytes, std::ios::binary);
    std::vector<Memory> loaded;
    ReadMemories(in, loaded);
    EXPECT_EQ(loaded.size(), 2u);
}

TEST(ItemRecord, MemoryNumbersAreKeptAsRead) {
    std::string bytes = raw({0x00, 0x80}) + header(0) + raw({3, 0}) + header(0) + raw({3, 0}) + header(0);
    std::istringstream in(bytes, std::ios::binary);
    std::vector<Memory> loaded;
    ReadMemories(in, loaded);
    ASSERT_EQ(loaded.size(), 3u);
    EXPECT_EQ(loaded[0].number, -32768);
    EXPECT_EQ(loaded[1].number, 3);
    EXPECT_EQ(loaded[2].number, 3);
}

// --- Random round trips ----------------------------------------------------------

class RandomItems {
public:
    explicit RandomItems(uint32_t seed) : random_(seed) {}

    int32_t between(int32_t low, int32_t high) { return std::uniform_int_distribution<int32_t>(low, high)(random_); }

    UnitVector units() {
        UnitVector u{};
        if (between(0, 3) == 0) return u;
        for (int32_t& e : u) e = between(0, 2) == 0 ? between(INT32_MIN, INT32_MAX) : between(-4, 4);
        return u;
    }

    // Up to 1000 decimal digits: 208 limbs of 16 bits.
    BigInt integer() {
        if (between(0, 9) == 0) return BigInt{};
        BigInt n;
        n.limbs.resize(static_cast<size_t>(between(1, 208)));
        for (uint16_t& limb : n.limbs) limb = static_cast<uint16_t>(between(0, 0xFFFF));
        n.limbs.back() = static_cast<uint16_t>(between(1, 0xFFFF));
        n.sign = between(0, 1) ? 1 : -1;
        return n;
    }

    // Up to 1000 digits and the guard and conversion bytes beyond them.
    BigNum real() {
        const int32_t length = between(2, 530);
        switch (between(0, 9)) {
        case 0: return makeZero(length);
        case 1: return makeInfinity(length, between(0, 1) ? 1 : -1);
        case 2: return makeNaN();
        default: break;
        }
        BigNum x = makeZero(length);
        for (uint8_t& pair : x.digits) pair = static_cast<uint8_t>(between(0, 99));
        x.digits.back() = static_cast<uint8_t>(between(10, 99));
        x.exponent = between(0, 4) == 0 ? between(INT32_MIN, INT32_MAX) : between(-3000, 3000);
        x.sign = between(0, 1) ? 1 : -1;
        return x;
    }

    std::u16string text() {
        std::u16string t(static_cast<size_t>(between(0, 300)), u'a');
        for (char16_t& unit : t) unit = static_cast<char16_t>(between(1, 0xFFFF));
        return t;
    }

    Item item() {
        switch (between(0, 5)) {
        case 0: return Item::integer(integer(), units());
        case 1: return Item::real(real(), units());
        case 2: return Item::complex(ComplexNum{real(), real()}, units());
        case 3: { Item s = Item::string(text()); s.units = units(); return s; }
        case 4: return Item::variableRef(text());
        default: { Item n; n.units = units(); return n; }   // Null
        }
    }

private:
    std::mt19937 random_;
};

TEST(ItemRecord, RandomStacksOfEveryTypeRoundTrip) {
    RandomItems random(20240611);
    for (int trial = 0; trial < 60; ++trial) {
        ItemList stack;
        const int32_t count = random.between(0, 25);
        for (int32_t i = 0; i < count; ++i) stack.push(random.item());
        const std::string bytes = stackBytes(stack);
        ItemList back = readStack(bytes);
        ASSERT_TRUE(sameStack(back, stack)) << "trial " << trial;
        EXPECT_EQ(stackBytes(back), bytes);
    }
}

TEST(ItemRecord, RandomMemoriesRoundTripWithoutTheirNullValues) {
    RandomItems random(777);
    for (int trial = 0; trial < 40; ++trial) {
        std::vector<Memory> memories, expected;
        std::vector<int16_t> numbers(999);
        for (int16_t n = 1; n <= 999; ++n) numbers[static_cast<size_t>(n - 1)] = n;
        std::shuffle(numbers.begin(), numbers.end(), std::mt19937(static_cast<uint32_t>(trial)));
        const int32_t count = random.between(0, 20);
        for (int32_t i = 0; i < count; ++i) {
            Item value = random.item();
            if (value.type != ItemType::Null) addMemory(expected, numbers[static_cast<size_t>(i)], value.duplicate());
            addMemory(memories, numbers[static_cast<size_t>(i)], std::move(value));
        }
        std::istringstream in(memoryBytes(memories), std::ios::binary);
        std::vector<Memory> back;
        ReadMemories(in, back);
        ASSERT_TRUE(sameMemories(back, expected)) << "trial " << trial;
    }
}

TEST(ItemRecord, RandomStateRoundTripsThroughTheFiles) {
    RandomItems random(99);
    TempFolder folder;
    for (int trial = 0; trial < 10; ++trial) {
        AppState app;
        app.dataFolder = folder.path().string();
        app.digits = random.between(1, 1000);
        app.base = static_cast<int16_t>(random.between(2, 36));
        for (int32_t i = random.between(0, 30); i > 0; --i) app.stack.push(random.item());
        for (int16_t n = 1; n <= 12; ++n) addMemory(app.memories, static_cast<int16_t>(n * 7), Item::real(random.real()));
        SaveState(app);
        AppState loaded;
        loadFrom(loaded, folder.path());
        EXPECT_EQ(loaded.digits, app.digits);
        EXPECT_EQ(loaded.base, app.base);
        ASSERT_TRUE(sameStack(loaded.stack, app.stack)) << "trial " << trial;
        ASSERT_TRUE(sameMemories(loaded.memories, app.memories)) << "trial " << trial;
    }
}

}  // namespace
}  // namespace quorvel::test
