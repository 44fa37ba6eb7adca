// The scanner: token kinds, the number state machine, based entry, strings,
// operators, comments, and the program-file token reader.
#include <gtest/gtest.h>

#include <sstream>

#include "lang/appstate.h"
#include "lang/scanner.h"
#include "langtext.h"
#include "testhost.h"

namespace quorvel::test {
namespace {

class ScannerTest : public ::testing::Test {
protected:
    ScannerTest() { app.host = &host; }

    std::string tokens(std::string_view line, bool signsSeparate) {
        ItemList list;
        TokenizeLine(app, wide(line), list, signsSeparate);
        return describe(list);
    }
    std::string rpn(std::string_view line) { return tokens(line, false); }
    std::string algebraic(std::string_view line) { return tokens(line, true); }

    RecordingHost host;
    AppState app;
};

TEST_F(ScannerTest, MinusTwoIsANumberInRpnAndAnOperatorInAlgebraic) {
    EXPECT_EQ(rpn("3 -2"), "3 | -2");
    EXPECT_EQ(algebraic("3 -2"), "3 | - | 2");
}

TEST_F(ScannerTest, PlusSignBeforeDigitIsPartOfNumberInRpn) {
    EXPECT_EQ(rpn("+7 -.5"), "7 | r-5E-1");
    EXPECT_EQ(algebraic("+7"), "+ | 7");
}

TEST_F(ScannerTest, SignNotFollowedByDigitIsAnOperator) {
    EXPECT_EQ(rpn("- x"), "- | x");
    EXPECT_EQ(rpn("3-2"), "3 | -2");   // the sign belongs to the number in RPN entry
}

TEST_F(ScannerTest, BasedEntryReadsDigitsOfTheCurrentBase) {
    app.base = 16;
    EXPECT_EQ(rpn("#1A"), "26");
}

TEST_F(ScannerTest, BasedEntryStopsAtALetterOutsideTheBase) {
    app.base = 10;
    EXPECT_EQ(rpn("#1A"), "1 | @A");
}

TEST_F(ScannerTest, HashBeforeALetterIsNotBasedEntry) {
    app.base = 16;
    EXPECT_EQ(rpn("#FF"), "'#' | @FF");
    EXPECT_EQ(rpn("#0FF"), "255");
}

TEST_F(ScannerTest, BasedLettersAreTakenInEitherCase) {
    app.base = 16;
    EXPECT_EQ(rpn("#0ff"), "255");
    EXPECT_EQ(rpn("#1E"), "30");   // in based entry 'E' is a digit, not an exponent
}

TEST_F(ScannerTest, BasedEntryTakesDecimalDigitsWhateverTheBase) {
    app.base = 8;
    // "19" is one number text; the parser stops at the 9, which is no octal digit.
    EXPECT_EQ(rpn("#19 5"), "1 | 5");
}

TEST_F(ScannerTest, UnbasedIntegersIgnoreTheBase) {
    app.base = 16;
    EXPECT_EQ(rpn("10"), "10");
}

TEST_F(ScannerTest, BasedNegativeNumberInRpn) {
    app.base = 16;
    EXPECT_EQ(rpn("#-1A"), "-26");
}

TEST_F(ScannerTest, BasedSignWithSignsSeparateIsAnOperator) {
    EXPECT_EQ(algebraic("#-5"), "- | 5");
}

TEST_F(ScannerTest, BasedIntegerIsReducedToTheWordSize) {
    app.wsize = 8;
    EXPECT_EQ(rpn("#300"), "44");
    EXPECT_EQ(rpn("#-1"), "255");
    EXPECT_EQ(rpn("#-256"), "0");
    EXPECT_EQ(rpn("300"), "300");   // only based entry is reduced
}

TEST_F(ScannerTest, WordSizeReductionAcrossLimbs) {
    app.wsize = 17;
    EXPECT_EQ(rpn("#-1"), "131071");
    EXPECT_EQ(rpn("#131073"), "1");
    app.wsize = 32;
    EXPECT_EQ(rpn("#-2"), "4294967294");
}

TEST_F(ScannerTest, ZeroWordSizeLeavesBasedIntegersAlone) {
    app.wsize = 0;
    EXPECT_EQ(rpn("#-1"), "-1");
}

TEST_F(ScannerTest, AssignmentOperatorsTakeTheLongestMatch) {
    EXPECT_EQ(algebraic("a+=1"), "@a | += | 1");
    EXPECT_EQ(algebraic("a==b"), "@a | == | @b");
}

TEST_F(ScannerTest, CommentTakesTheRestOfTheLine) {
    EXPECT_EQ(algebraic("x//note"), "x | //note");
    EXPECT_EQ(rpn("1 // two 3"), "1 | // two 3");
}

TEST_F(ScannerTest, SingleAndDoubleQuotesBothMakeAString) {
    EXPECT_EQ(rpn("'m/s'"), "\"m/s\"");
    EXPECT_EQ(rpn("\"m/s\""), "\"m/s\"");
}

TEST_F(ScannerTest, TheOtherQuoteMayStandInsideAString) {
    ItemList list;
    TokenizeLine(app, u"'say \"hi\"' 2", list, false);
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(list.head()->type, ItemType::String);
    EXPECT_EQ(list.head()->asText(), u"say \"hi\"");
}

TEST_F(ScannerTest, UnclosedStringRunsToTheEndOfTheLine) {
    EXPECT_EQ(rpn("5 'kg m"), "5 | \"kg m\"");
}

TEST_F(ScannerTest, NamesAreCaseSensitive) {
    EXPECT_EQ(algebraic("Sin(1)"), "@Sin | '(' | 1 | ')'");
    EXPECT_EQ(algebraic("sin(1)"), "sin | '(' | 1 | ')'");
}

TEST_F(ScannerTest, NamesTakeDigitsUnderscoreAndDollar) {
    EXPECT_EQ(algebraic("_a1 $b x2"), "@_a1 | @$b | @x2");
}

TEST_F(ScannerTest, ExponentSignsAnywhereKeepOneNumberText) {
    ItemList list;
    TokenizeLine(app, u"1e5+3", list, true);
    ASSERT_EQ(list.count(), 1);
    EXPECT_EQ(list.head()->type, ItemType::Real);
    // The number text "1E5+3" reads as 1E5: the parser stops after the exponent.
    EXPECT_EQ(describe(list), "r1E5");
    EXPECT_EQ(algebraic("1e5-3"), "r1E5");
}

TEST_F(ScannerTest, ExponentNeedsADigitOrSignAfterIt) {
    EXPECT_EQ(algebraic("2e"), "2 | e");
    EXPECT_EQ(algebraic("2ex"), "2 | @ex");
    EXPECT_EQ(algebraic("2e3"), "r2E3");
    EXPECT_EQ(algebraic("2.5E-1"), "r2.5E-1");
}

TEST_F(ScannerTest, ExponentIsTakenOnlyOnce) {
    EXPECT_EQ(algebraic("1e5e3"), "r1E5 | @e3");
}

TEST_F(ScannerTest, SecondPointStartsTheNextNumber) {
    EXPECT_EQ(algebraic("1.2.3"), "r1.2E0 | r3E-1");
    EXPECT_EQ(algebraic("1e2.5"), "r1E2 | r5E-1");
}

TEST_F(ScannerTest, PointAloneIsARealZero) {
    ItemList list;
    TokenizeLine(app, u".", list, true);
    ASSERT_EQ(list.count(), 1);
    EXPECT_EQ(list.head()->type, ItemType::Real);
    EXPECT_TRUE(list.head()->asReal().isZero());
}

TEST_F(ScannerTest, RealsParseAtTheWorkingLength) {
    app.workingLength = 10;
    ItemList list;
    TokenizeLine(app, u"1.5", list, true);
    ASSERT_EQ(list.count(), 1);
    EXPECT_EQ(list.head()->asReal().length(), 10);
}

TEST_F(ScannerTest, PunctuationBecomesCharacters) {
    EXPECT_EQ(algebraic("(),;{}?"), "'(' | ')' | ',' | ';' | '{' | '}' | '?'");
}

TEST_F(ScannerTest, ControlCharactersAndBlanksSeparateTokens) {
    EXPECT_EQ(rpn("\t1\r\n2  "), "1 | 2");
}

TEST_F(ScannerTest, EmptyLineGivesNoTokens) {
    EXPECT_EQ(rpn(""), "");
    EXPECT_EQ(rpn("   "), "");
}

TEST_F(ScannerTest, TokensHaveNoUnits) {
    ItemList list;
    TokenizeLine(app, u"5 'm' a sin", list, false);
    for (const Item& item : list) EXPECT_FALSE(hasUnits(item.units));
}

TEST_F(ScannerTest, ScanTokenAdvancesPastEachToken) {
    std::size_t pos = 0;
    const std::u16string line = u"12 + ab";
    auto first = ScanToken(app, line, pos, true);
    ASSERT_TRUE(first);
    EXPECT_EQ(pos, 2u);
    auto second = ScanToken(app, line, pos, true);
    ASSERT_TRUE(second);
    EXPECT_EQ(describe(*second), "+");
    auto third = ScanToken(app, line, pos, true);
    ASSERT_TRUE(third);
    EXPECT_EQ(describe(*third), "@ab");
    EXPECT_FALSE(ScanToken(app, line, pos, true));
}

TEST_F(ScannerTest, FileTokensSkipBlankLinesAndKeepSignsSeparate) {
    std::istringstream file("\n   \n3 -2\n\n// only a comment\nend\n");
    StreamLineSource source(file);
    ItemList pending;
    std::vector<std::string> seen;
    while (auto token = ReadFileToken(app, pending, &source)) seen.push_back(describe(*token));
    EXPECT_EQ(seen, (std::vector<std::string>{"3", "-", "2", "// only a comment", "@end"}));
}

TEST_F(ScannerTest, FileTokensComeFromThePendingListFirst) {
    std::istringstream file("2\n");
    StreamLineSource source(file);
    ItemList pending;
    pending.append(Item::variableRef(u"a"));
    auto first = ReadFileToken(app, pending, &source);
    ASSERT_TRUE(first);
    EXPECT_EQ(describe(*first), "@a");
    auto second = ReadFileToken(app, pending, &source);
    ASSERT_TRUE(second);
    EXPECT_EQ(describe(*second), "2");
    EXPECT_FALSE(ReadFileToken(app, pending, &source));
}

TEST_F(ScannerTest, FileTokensWithoutAFileComeOnlyFromPending) {
    ItemList pending;
    EXPECT_FALSE(ReadFileToken(app, pending, nullptr));
}

TEST_F(ScannerTest, LongFileLinesAreReadInPiecesOf1024) {
    std::string line(1030, ' ');
    line[1022] = '1';
    line[1023] = '2';   // the piece ends here; "34" comes with the next read
    line[1024] = '3';
    line[1025] = '4';
    std::istringstream file(line + "\n");
    StreamLineSource source(file);
    auto piece = source.readLine();
    ASSERT_TRUE(piece);
    EXPECT_EQ(piece->size(), MaxLineChars);
    ItemList pending;
    std::vector<std::string> seen;
    while (auto token = ReadFileToken(app, pending, &source)) seen.push_back(describe(*token));
    EXPECT_EQ(seen, (std::vector<std::string>{"34"}));
}

TEST_F(ScannerTest, FileLinesLoseTheirCarriageReturn) {
    std::istringstream file("a // x\r\n");
    StreamLineSource source(file);
    ItemList pending;
    std::vector<std::string> seen;
    while (auto token = ReadFileToken(app, pending, &source)) seen.push_back(describe(*token));
    EXPECT_EQ(seen, (std::vector<std::string>{"@a", "// x"}));
}

}  // namespace
}  // namespace quorvel::test
