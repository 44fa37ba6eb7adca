// The manual's Units and Physical constants chapters: their examples are run
// as typed, and their tables list every unit and constant as the tables in
// the program hold them.
#include <fstream>

#include "tests/units_testing.h"
#include "units/constants.h"

namespace quorvel::test {
namespace {

std::vector<std::string> manualLines() {
    std::vector<std::string> lines;
    std::ifstream in(std::string(QUORVEL_TEST_DATA) + "/../../docs/manual.md");
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

std::string trim(const std::string& text) {
    const size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) return "";
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// The cells of a table row "| a | b |", without the backquotes of code cells.
std::vector<std::string> cells(const std::string& row) {
    std::vector<std::string> out;
    size_t start = 1;
    for (size_t bar = row.find('|', start); bar != std::string::npos; bar = row.find('|', start)) {
        std::string cell = trim(row.substr(start, bar - start));
        if (cell.size() >= 2 && cell.front() == '`' && cell.back() == '`') cell = cell.substr(1, cell.size() - 2);
        out.push_back(cell);
        start = bar + 1;
    }
    return out;
}

// The table rows under the heading `heading` (up to the next heading).
std::vector<std::vector<std::string>> tableRows(const std::string& heading) {
    std::vector<std::vector<std::string>> rows;
    bool inside = false;
    for (const std::string& line : manualLines()) {
        if (line.rfind("#", 0) == 0) {
            inside = line == heading;
            continue;
        }
        if (inside && line.rfind("| `", 0) == 0) rows.push_back(cells(line));
    }
    return rows;
}

struct Example {
    std::string mode;       // "rpn" or "alg", or "!" for a message
    std::string text;       // the typed line, or the message
    std::string expected;   // what the top shows after it, or empty
};

std::vector<std::vector<Example>> exampleBlocks() {
    std::vector<std::vector<Example>> blocks;
    bool inside = false;
    for (const std::string& line : manualLines()) {
        if (line == "```units-example") {
            inside = true;
            blocks.emplace_back();
            continue;
        }
        if (line == "```") inside = false;
        if (!inside || line.empty()) continue;
        Example example;
        example.mode = line.substr(0, line.find(' '));
        std::string rest = line.substr(example.mode.size());
        const size_t arrow = rest.find("=>");
        if (arrow != std::string::npos) {
            example.expected = trim(rest.substr(arrow + 2));
            rest = rest.substr(0, arrow);
        }
        example.text = trim(rest);
        blocks.back().push_back(std::move(example));
    }
    return blocks;
}

class UnitsManualExamples : public UnitsTest {};

TEST_F(UnitsManualExamples, RunAsWritten) {
    const auto blocks = exampleBlocks();
    ASSERT_GE(blocks.size(), 6u);
    for (const auto& block : blocks) {
        AppState fresh;
        RecordingHost freshHost;
        fresh.host = &freshHost;
        for (const Example& example : block) {
            SCOPED_TRACE(example.mode + " " + example.text);
            if (example.mode == "!") {
                EXPECT_EQ(toUtf8(freshHost.shownText()), example.text);
                continue;
            }
            ASSERT_TRUE(example.mode == "rpn" || example.mode == "alg");
            RunCommandLine(fresh, fromUtf8(example.text), example.mode == "rpn" ? 0 : 1);
            if (example.expected.empty()) continue;
            ASSERT_FALSE(fresh.stack.empty());
            EXPECT_EQ(toUtf8(DisplayText(fresh, *fresh.stack.at(0), fresh.digits, 0).value_or(u"")), example.expected);
        }
    }
}

std::string text(const char16_t* t) { return t == nullptr ? "1" : toUtf8(t); }

TEST(UnitsManualTables, BaseUnitsListedAsHeld) {
    const auto rows = tableRows("### Base units");
    ASSERT_EQ(rows.size(), BaseUnits().size());
    for (size_t i = 0; i < rows.size(); ++i) {
        const UnitDef& unit = BaseUnits()[i];
        ASSERT_EQ(rows[i].size(), 5u);
        EXPECT_EQ(rows[i][0], text(unit.symbol));
        EXPECT_EQ(rows[i][2], text(unit.name));
        EXPECT_EQ(rows[i][3], text(unit.factor));
        EXPECT_EQ(rows[i][4], toUtf8(DimensionLabel(unit.dimension)));
    }
}

TEST(UnitsManualTables, DerivedUnitsListedAsHeld) {
    const char* symbols[] = {"m", "kg", "s", "mol", "K", "A", "cd", "rad"};
    const auto rows = tableRows("### Derived units");
    ASSERT_EQ(rows.size(), DerivedUnits().size());
    for (size_t i = 0; i < rows.size(); ++i) {
        const DerivedUnitDef& unit = DerivedUnits()[i];
        ASSERT_EQ(rows[i].size(), 5u);
        EXPECT_EQ(rows[i][0], text(unit.symbol));
        EXPECT_EQ(rows[i][1], text(unit.display));
        EXPECT_EQ(rows[i][2], text(unit.name));
        EXPECT_EQ(rows[i][3], text(unit.factor));
        std::string exponents;
        for (int d = 0; d < DimensionCount; ++d) {
            if (unit.units[d] == 0) continue;
            if (!exponents.empty()) exponents += ' ';
            exponents += symbols[d];
            if (unit.units[d] != 1) exponents += "^" + std::to_string(unit.units[d]);
        }
        EXPECT_EQ(rows[i][4], exponents);
    }
}

TEST(UnitsManualTables, ConstantsListedAsHeld) {
    const auto rows = tableRows("## Physical constants");
    ASSERT_EQ(rows.size(), Constants().size());
    for (size_t i = 0; i < rows.size(); ++i) {
        const ConstDef& c = Constants()[i];
        ASSERT_EQ(rows[i].size(), 5u);
        EXPECT_EQ(rows[i][0], text(c.symbol));
        EXPECT_EQ(rows[i][1], text(c.display));
        EXPECT_EQ(rows[i][2], text(c.name));
        EXPECT_EQ(rows[i][3], text(c.value));
    }
}

}  // namespace
}  // namespace quorvel::test
