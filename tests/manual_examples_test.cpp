// The manual's command-language chapters: every "```example" block runs as
// written, every keyword has its row in the keyword reference, and the
// examples and their programs use every keyword at least once.
#include <algorithm>
#include <set>
#include <string>

#include "lang/keywords.h"
#include "tests/manual_testing.h"

namespace quorvel::test {
namespace {

constexpr const char* Reference = "## Keyword reference";

std::string name(const KeywordEntry& row) { return toUtf8(row.name); }

TEST(ManualExamples, RunAsWritten) {
    const auto blocks = exampleBlocks("example");
    ASSERT_GE(blocks.size(), 35u);
    for (const auto& block : blocks) runExampleBlock(block);
}

TEST(ManualExamples, EveryProgramBelongsToAnExample) {
    int programs = 0;
    for (const std::string& line : manualLines()) programs += line == "```program";
    int loaded = 0;
    for (const auto& block : exampleBlocks("example")) loaded += !block.program.empty();
    EXPECT_GT(programs, 0);
    EXPECT_EQ(loaded, programs);
}

TEST(ManualExamples, EveryKeywordHasAReferenceRow) {
    const auto firsts = chapterFirstCells(Reference);
    for (const KeywordEntry& row : KeywordRows())
        EXPECT_NE(std::find(firsts.begin(), firsts.end(), name(row)), firsts.end()) << name(row);
}

TEST(ManualExamples, ReferenceRowsNameKeywordsOnce) {
    std::set<std::string> keywords;
    for (const KeywordEntry& row : KeywordRows()) keywords.insert(name(row));
    std::set<std::string> seen;
    for (const std::string& first : chapterFirstCells(Reference)) {
        EXPECT_TRUE(keywords.count(first)) << first << " is not a keyword";
        EXPECT_TRUE(seen.insert(first).second) << first << " has two rows";
    }
    EXPECT_EQ(seen.size(), static_cast<size_t>(KeywordCount));
}

// The keywords that the example lines and their programs contain, found by
// the scanner itself ("//" comes out as a comment token).
std::set<std::string> keywordsInExamples() {
    AppState app;
    RecordingHost host;
    app.host = &host;
    std::set<std::string> used;
    auto scan = [&](const std::string& text, bool signsSeparate) {
        ItemList tokens;
        TokenizeLine(app, fromUtf8(text), tokens, signsSeparate);
        for (const Item& token : tokens) {
            if (token.type == ItemType::Keyword) used.insert(name(token.asKeyword()));
            if (token.type == ItemType::Comment) used.insert("//");
        }
    };
    for (const auto& block : exampleBlocks("example")) {
        for (size_t start = 0, end; start < block.program.size(); start = end + 1) {
            end = block.program.find('\n', start);
            scan(block.program.substr(start, end - start), true);
        }
        for (const Example& example : block.examples)
            if (example.mode == "rpn" || example.mode == "alg") scan(example.text, example.mode == "alg");
    }
    return used;
}

TEST(ManualExamples, EveryKeywordIsUsedInAnExample) {
    const auto used = keywordsInExamples();
    for (const KeywordEntry& row : KeywordRows()) EXPECT_TRUE(used.count(name(row))) << name(row);
}

}  // namespace
}  // namespace quorvel::test
