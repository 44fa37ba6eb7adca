// The mathematical handlers reached through typed command lines, against
// mpmath's values (tests/data/math_handler_vectors.txt, written by
// tests/tools/gen_math_handler_vectors.py): each line runs at its Digits
// (set as `std` sets it) and trig mode, and the value left on the stack must
// agree with the reference within one unit of the last digit shown. For a
// Complex result the unit is that of the larger part.
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/langtext.h"
#include "tests/math_testing.h"

namespace quorvel::test {
namespace {

struct LineCase {
    int digits = 0;
    int trigMode = 0;
    std::string line;
    std::string re;
    std::string im;   // "-" for a Real result
    int fileLine = 0;
};

void PrintTo(const LineCase& c, std::ostream* os) {
    *os << "D=" << c.digits << " mode " << c.trigMode << " \"" << c.line << "\" (line " << c.fileLine << ")";
}

std::vector<LineCase> loadCases() {
    std::vector<LineCase> cases;
    std::ifstream in(std::string(QUORVEL_TEST_DATA) + "/math_handler_vectors.txt");
    std::string text;
    int number = 0;
    while (std::getline(in, text)) {
        ++number;
        if (text.empty() || text[0] == '#') continue;
        std::vector<std::string> fields;
        std::istringstream split(text);
        std::string field;
        while (std::getline(split, field, '\t')) fields.push_back(field);
        if (fields.size() != 5) continue;
        cases.push_back(LineCase{std::stoi(fields[0]), std::stoi(fields[1]), fields[2], fields[3], fields[4], number});
    }
    return cases;
}

class MathVectors : public MathTest, public ::testing::WithParamInterface<LineCase> {};

TEST_P(MathVectors, AgreesWithTheReference) {
    const LineCase& c = GetParam();
    SetDigits(app, c.digits);
    app.trigMode = static_cast<int16_t>(c.trigMode);
    rpn(wide(c.line));
    EXPECT_EQ(host.shownText(), u"");
    ASSERT_EQ(app.stack.count(), 1);
    if (c.im == "-") {
        EXPECT_TRUE(topRealNear(c.re, app.stack.at(0)->units));
    } else {
        EXPECT_TRUE(topComplexNear(c.re, c.im));
    }
}

INSTANTIATE_TEST_SUITE_P(Lines, MathVectors, ::testing::ValuesIn(loadCases()));

TEST(MathVectorsFile, HoldsTheCases) { EXPECT_GE(loadCases().size(), 500u); }

}  // namespace
}  // namespace quorvel::test
