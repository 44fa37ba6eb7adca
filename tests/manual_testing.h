// Reading docs/manual.md in tests: its lines, the rows of its tables, and
// its example blocks, which are run as typed on a fresh calculator.
//
// An example block is a fenced block ("```example", "```units-example") of
// lines, one a line:
//   rpn LINE => TEXT   runs LINE in RPN entry; the top of the stack then
//                      shows TEXT ("=> TEXT" may be left out)
//   alg LINE => TEXT   the same in algebraic entry
//   => (empty)         after a line: the stack is empty
//   ! MESSAGE          the message strip shows MESSAGE
//   > TEXT             the next line written to the console is TEXT
//   < TEXT             a line typed on the console when `input` asks
// A "```program" block just before an example block is a program file that
// is loaded into that block's calculator first.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "lang/appstate.h"
#include "lang/displaytext.h"
#include "lang/evaluator.h"
#include "lang/program.h"
#include "lang/scanner.h"
#include "numeric/numtext.h"
#include "tests/testhost.h"

namespace quorvel::test {

// Every line of docs/manual.md, without line ends.
inline std::vector<std::string> manualLines() {
    std::vector<std::string> lines;
    std::ifstream in(std::string(QUORVEL_TEST_DATA) + "/../../docs/manual.md");
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

// `text` without leading and trailing spaces.
inline std::string trim(const std::string& text) {
    const size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) return "";
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// The cells of a table row "| a | b |", without the backquotes of code cells.
inline std::vector<std::string> cells(const std::string& row) {
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

// The table rows whose first cell is code, under the heading `heading` (up to
// the next heading of any level).
inline std::vector<std::vector<std::string>> tableRows(const std::string& heading) {
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

// The first cells (code, backquotes removed) of every table row in the
// chapter that starts with the heading `chapter` ("## ..."), down to the
// next chapter of the same level.
inline std::vector<std::string> chapterFirstCells(const std::string& chapter) {
    std::vector<std::string> firsts;
    bool inside = false;
    for (const std::string& line : manualLines()) {
        if (line.rfind("## ", 0) == 0) inside = line == chapter;
        if (inside && line.rfind("| `", 0) == 0) firsts.push_back(cells(line).front());
    }
    return firsts;
}

struct Example {
    std::string mode;       // "rpn", "alg", "!", ">", "<" or "=>"
    std::string text;       // the typed line, the message or the console text
    std::string expected;   // what the top shows after it, or empty
};

struct ExampleBlock {
    int line = 0;              // line number of the opening fence
    std::string program;       // the program loaded first, or empty
    std::vector<Example> examples;
};

// The blocks fenced with "```" + `fence`, in manual order.
inline std::vector<ExampleBlock> exampleBlocks(const std::string& fence) {
    std::vector<ExampleBlock> blocks;
    enum class In { Text, Example, Program, Other } in = In::Text;
    std::string program;
    int number = 0;
    for (const std::string& line : manualLines()) {
        ++number;
        if (in == In::Text) {
            if (line == "```" + fence) {
                blocks.push_back({number, program, {}});
                program.clear();
                in = In::Example;
            } else if (line == "```program") {
                program.clear();
                in = In::Program;
            } else if (line.rfind("```", 0) == 0) {
                in = In::Other;
            } else if (!trim(line).empty()) {
                program.clear();   // a program only belongs to the block right after it
            }
            continue;
        }
        if (line == "```") {
            in = In::Text;
            continue;
        }
        if (in == In::Program) program += line + "\n";
        if (in != In::Example || line.empty()) continue;
        Example example;
        example.mode = line.substr(0, line.find(' '));
        std::string rest = line.substr(example.mode.size());
        const size_t arrow = rest.find("=>");
        if (example.mode != "=>" && arrow != std::string::npos && (example.mode == "rpn" || example.mode == "alg")) {
            example.expected = trim(rest.substr(arrow + 2));
            rest = rest.substr(0, arrow);
        }
        example.text = trim(rest);
        blocks.back().examples.push_back(std::move(example));
    }
    return blocks;
}

// Runs one block on a fresh calculator with a recording host whose questions
// are answered yes, checking every expectation as it comes.
inline void runExampleBlock(const ExampleBlock& block) {
    SCOPED_TRACE("block at manual line " + std::to_string(block.line));
    AppState app;
    RecordingHost host;
    app.host = &host;
    if (!block.program.empty()) {
        TextLineSource source(fromUtf8(block.program));
        LoadProgram(app, source);
    }
    size_t consoleSeen = 0;
    auto checkTop = [&](const std::string& expected) {
        if (expected == "(empty)") {
            EXPECT_TRUE(app.stack.empty());
            return;
        }
        ASSERT_FALSE(app.stack.empty());
        EXPECT_EQ(toUtf8(DisplayText(app, *app.stack.at(0), app.digits, 0).value_or(u"")), expected);
    };
    for (const Example& example : block.examples) {
        SCOPED_TRACE(example.mode + " " + example.text);
        if (example.mode == "!") {
            EXPECT_EQ(toUtf8(host.shownText()), example.text);
        } else if (example.mode == ">") {
            ASSERT_LT(consoleSeen, host.consoleLines.size());
            EXPECT_EQ(toUtf8(host.consoleLines[consoleSeen++]), example.text);
        } else if (example.mode == "<") {
            host.consoleInput.push_back(fromUtf8(example.text));
        } else if (example.mode == "=>") {
            checkTop(example.text);
        } else {
            ASSERT_TRUE(example.mode == "rpn" || example.mode == "alg") << "unknown line kind";
            RunCommandLine(app, fromUtf8(example.text), example.mode == "rpn" ? 0 : 1);
            if (!example.expected.empty()) checkTop(example.expected);
        }
    }
}

}  // namespace quorvel::test
