// The keyword table: every row against the reference data, the stored order,
// the handler sharing of aliases and both lookups.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "lang/handlers.h"
#include "lang/keywords.h"

namespace quorvel {
namespace {

// The table and its reference data are ASCII.
std::u16string fromUtf8(const std::string& text) { return std::u16string(text.begin(), text.end()); }
std::string toUtf8(std::u16string_view text) {
    std::string out;
    for (char16_t c : text) out += c < 0x80 ? static_cast<char>(c) : '?';
    return out;
}

struct ExpectedRow {
    std::u16string name;
    uint32_t tokenId = 0;
    int precedence = 0;
    int operands = 0;
    std::vector<std::u16string> sameHandlerAs;
};

std::vector<ExpectedRow> readExpectedRows() {
    std::ifstream file(std::string(QUORVEL_TEST_DATA) + "/keyword_table.txt");
    std::vector<ExpectedRow> rows;
    std::string line;
    while (std::getline(file, line)) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream fields(line);
        std::string name, aliases;
        ExpectedRow row;
        fields >> name >> row.tokenId >> row.precedence >> row.operands >> aliases;
        row.name = fromUtf8(name);
        if (aliases != "-") {
            std::istringstream list(aliases);
            std::string alias;
            while (std::getline(list, alias, ',')) row.sameHandlerAs.push_back(fromUtf8(alias));
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

bool isOperator(std::u16string_view name) {
    const char16_t c = name.front();
    return !((c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'));
}

TEST(KeywordTableTest, HasOneHundredTwentySevenRows) {
    EXPECT_EQ(KeywordRows().size(), 127u);
    EXPECT_EQ(KeywordCount, 127);
}

TEST(KeywordTableTest, EveryRowMatchesTheReferenceDataInStoredOrder) {
    const std::vector<ExpectedRow> expected = readExpectedRows();
    const auto rows = KeywordRows();
    ASSERT_EQ(expected.size(), rows.size());
    for (size_t i = 0; i < rows.size(); ++i) {
        SCOPED_TRACE(toUtf8(expected[i].name));
        EXPECT_EQ(std::u16string_view(rows[i].name), expected[i].name);
        EXPECT_EQ(rows[i].tokenId, expected[i].tokenId);
        EXPECT_EQ(rows[i].precedence(), expected[i].precedence);
        EXPECT_EQ(rows[i].operandCount(), expected[i].operands);
    }
}

TEST(KeywordTableTest, NamesSharingAHandlerInTheReferenceDataShareIt) {
    for (const ExpectedRow& row : readExpectedRows()) {
        SCOPED_TRACE(toUtf8(row.name));
        const Handler handler = KeywordRow(row.name).handler;
        for (const std::u16string& alias : row.sameHandlerAs)
            EXPECT_EQ(KeywordRow(alias).handler, handler) << toUtf8(alias);
    }
}

// A handler is shared only by names the data relates: those a row lists, and
// those listing it (the data names `sub` under `-` but not `-` under `sub`).
TEST(KeywordTableTest, OnlyRelatedNamesShareAHandler) {
    const std::vector<ExpectedRow> expected = readExpectedRows();
    for (const ExpectedRow& row : expected) {
        std::vector<std::u16string> related = row.sameHandlerAs;
        for (const ExpectedRow& other : expected)
            for (const std::u16string& alias : other.sameHandlerAs)
                if (alias == row.name && std::find(related.begin(), related.end(), other.name) == related.end())
                    related.push_back(other.name);
        int sharing = 0;
        for (const KeywordEntry& other : KeywordRows())
            sharing += other.handler == KeywordRow(row.name).handler;
        EXPECT_EQ(sharing, 1 + static_cast<int>(related.size())) << toUtf8(row.name);
    }
}

TEST(KeywordTableTest, EveryRowIsFoundByItsOwnLookup) {
    for (const KeywordEntry& row : KeywordRows()) {
        const std::u16string_view name = row.name;
        const KeywordEntry* found = isOperator(name) ? FindOperator(name) : FindWord(name);
        EXPECT_EQ(found, &row) << toUtf8(name);
    }
}

TEST(KeywordTableTest, FlagsHoldClassInTheLowByteAndOperandsInTheSecond) {
    EXPECT_EQ(KeywordRow(u"applyunits").flags, 0x020Au);
    EXPECT_EQ(KeywordRow(u"=").flags, 0x0201u);
    EXPECT_EQ(KeywordRow(u"pi").flags, 0x000Bu);
}

TEST(KeywordTableTest, OperatorsAreStoredLongestMatchFirst) {
    std::vector<std::u16string> symbols;
    for (const KeywordEntry& row : KeywordRows())
        if (isOperator(row.name)) symbols.emplace_back(row.name);
    const std::vector<std::u16string> expected{u"+=", u"-=", u"+",  u"-",  u"*=", u"/=",
                                               u"//", u"==", u"!=", u">=", u"<=", u">",
                                               u"<",  u"*",  u"/",  u"^",  u"!",  u"="};
    EXPECT_EQ(symbols, expected);
}

TEST(KeywordTableTest, TheTokenIdsComparedOutsideTheHandlersNameTheirRows) {
    EXPECT_EQ(FindOperator(u"+")->tokenId, TokenAdd);
    EXPECT_EQ(FindWord(u"add")->tokenId, TokenAdd);
    EXPECT_EQ(FindOperator(u"-")->tokenId, TokenSub);
    EXPECT_EQ(FindWord(u"sub")->tokenId, TokenSub);
    EXPECT_EQ(FindOperator(u"//")->tokenId, TokenComment);
}

TEST(KeywordTableTest, LogAndLog10AreOneOperation) {
    // The numeric agreement (both give 2 for 100) is checked with the
    // logarithm itself; here: one handler and one token id for the three names.
    const KeywordEntry* log = FindWord(u"log");
    const KeywordEntry* log10 = FindWord(u"log10");
    const KeywordEntry* ln10 = FindWord(u"ln10");
    ASSERT_NE(log, nullptr);
    ASSERT_NE(log10, nullptr);
    ASSERT_NE(ln10, nullptr);
    EXPECT_EQ(log->handler, log10->handler);
    EXPECT_EQ(log->handler, ln10->handler);
    EXPECT_EQ(log->handler, &opLog10);
    EXPECT_EQ(log->tokenId, 66u);
    EXPECT_EQ(log10->tokenId, 66u);
    EXPECT_EQ(FindWord(u"log2")->handler, FindWord(u"ln2")->handler);
    EXPECT_NE(FindWord(u"ln")->handler, log->handler);
}

TEST(KeywordTableTest, AddAndPlusDifferOnlyInClass) {
    EXPECT_EQ(FindWord(u"add")->handler, FindOperator(u"+")->handler);
    EXPECT_EQ(FindWord(u"add")->precedence(), 9);
    EXPECT_EQ(FindOperator(u"+")->precedence(), 5);
    EXPECT_EQ(FindWord(u"sub")->precedence(), 5);
}

TEST(KeywordTableTest, ControlWordsShareTheDoNothingHandler) {
    for (std::u16string_view word : {u"if", u"else", u"return", u"while", u"do", u"function"})
        EXPECT_EQ(FindWord(word)->handler, &opNothing) << toUtf8(word);
    EXPECT_EQ(FindOperator(u"//")->handler, &opNothing);
}

TEST(KeywordTableTest, KeywordRowFindsPrimaryNames) {
    EXPECT_EQ(KeywordRow(u"neg").tokenId, 74u);
    EXPECT_EQ(KeywordRow(u"applyunits").tokenId, 8u);
    EXPECT_EQ(&KeywordRow(u"=="), FindOperator(u"=="));
}

// --- Word lookup ---------------------------------------------------------------

TEST(FindWordTest, SinIsFoundButSinCapitalisedIsAVariable) {
    const KeywordEntry* sin = FindWord(u"sin");
    ASSERT_NE(sin, nullptr);
    EXPECT_EQ(sin->tokenId, 99u);
    EXPECT_EQ(FindWord(u"Sin"), nullptr);
    EXPECT_EQ(FindWord(u"SIN"), nullptr);
    EXPECT_EQ(FindWord(u"sIn"), nullptr);
}

TEST(FindWordTest, TheWholeNameMustMatch) {
    EXPECT_EQ(FindWord(u"si"), nullptr);
    EXPECT_EQ(FindWord(u"sinx"), nullptr);
    EXPECT_EQ(FindWord(u"sinh")->tokenId, 101u);
    EXPECT_EQ(FindWord(u"exp10")->tokenId, 46u);
}

TEST(FindWordTest, NamesBeginningWithUnderscoreOrDollarAreNeverKeywords) {
    for (std::u16string_view name : {u"_", u"_sin", u"_abs", u"$", u"$pi", u"$x1"})
        EXPECT_EQ(FindWord(name), nullptr) << toUtf8(name);
}

TEST(FindWordTest, NamesInTheEmptyLetterBucketsAreAlwaysVariables) {
    for (std::u16string_view name :
         {u"j", u"k", u"q", u"v", u"J", u"K", u"Q", u"V", u"jsin", u"kelvin", u"quit", u"var", u"value"})
        EXPECT_EQ(FindWord(name), nullptr) << toUtf8(name);
}

TEST(FindWordTest, OtherFirstCharactersFindNothing) {
    EXPECT_EQ(FindWord(u""), nullptr);
    EXPECT_EQ(FindWord(u"1sin"), nullptr);
    EXPECT_EQ(FindWord(u"\u00E9t\u00E9"), nullptr);
    EXPECT_EQ(FindWord(u"\uFFFF"), nullptr);
}

TEST(FindWordTest, SingleLetterKeywords) {
    EXPECT_EQ(FindWord(u"e")->tokenId, 37u);
    EXPECT_EQ(FindWord(u"i")->tokenId, 58u);
    EXPECT_EQ(FindWord(u"x")->handler, FindWord(u"dup")->handler);
    EXPECT_EQ(FindWord(u"y")->tokenId, 118u);
    EXPECT_EQ(FindWord(u"z")->tokenId, 119u);
    EXPECT_EQ(FindWord(u"a"), nullptr);
}

// --- Operator lookup -------------------------------------------------------------

TEST(FindOperatorTest, PlusAssignIsOneOperator) {
    // "a+=b": at the operator the text is "+=b".
    const KeywordEntry* op = FindOperator(u"+=b");
    ASSERT_NE(op, nullptr);
    EXPECT_EQ(std::u16string_view(op->name), u"+=");
    EXPECT_EQ(op->tokenId, 5u);
}

TEST(FindOperatorTest, DoubleEqualsIsOneOperator) {
    const KeywordEntry* op = FindOperator(u"==b");
    ASSERT_NE(op, nullptr);
    EXPECT_EQ(std::u16string_view(op->name), u"==");
    EXPECT_EQ(op->tokenId, 39u);
}

TEST(FindOperatorTest, DoubleSlashIsTheCommentMarker) {
    const KeywordEntry* op = FindOperator(u"//b");
    ASSERT_NE(op, nullptr);
    EXPECT_EQ(op->tokenId, TokenComment);
    EXPECT_EQ(FindOperator(u"/b")->tokenId, 32u);
    EXPECT_EQ(FindOperator(u"/=b")->tokenId, 33u);
}

TEST(FindOperatorTest, EveryTwoCharacterOperatorBeatsItsPrefix) {
    const std::vector<std::pair<std::u16string_view, uint32_t>> cases{
        {u"-=1", 107}, {u"*=2", 72}, {u"!=c", 75}, {u">=d", 55}, {u"<=e", 68},
        {u"-1", 106},  {u"*2", 71},  {u"!c", 47},  {u">d", 56},  {u"<e", 69},
        {u"=f", 11},   {u"^2", 84},  {u"+x", 4}};
    for (const auto& [text, id] : cases) {
        const KeywordEntry* op = FindOperator(text);
        ASSERT_NE(op, nullptr) << toUtf8(text);
        EXPECT_EQ(op->tokenId, id) << toUtf8(text);
    }
}

TEST(FindOperatorTest, TextShorterThanASymbolDoesNotMatchIt) {
    EXPECT_EQ(std::u16string_view(FindOperator(u"+")->name), u"+");
    EXPECT_EQ(std::u16string_view(FindOperator(u"=")->name), u"=");
}

TEST(FindOperatorTest, NoOperatorGivesNone) {
    EXPECT_EQ(FindOperator(u""), nullptr);
    EXPECT_EQ(FindOperator(u"(1)"), nullptr);
    EXPECT_EQ(FindOperator(u"abs"), nullptr);
    EXPECT_EQ(FindOperator(u",;"), nullptr);
}

}  // namespace
}  // namespace quorvel
