// BigNum arithmetic against the vectors of tests/data/bignum_vectors.txt
// (written by tests/tools/gen_bignum_vectors.py, which documents each check).
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "numeric/bignum.h"
#include "tests/bignum_testing.h"

namespace quorvel {
namespace {

using test::bigNumFromText;
using test::describe;

struct BigNumVector {
    int index = 0;
    int line = 0;
    std::string op;
    int32_t lengthA = 0;
    int32_t lengthB = 0;
    std::vector<std::string> operands;
    std::string expected;
    std::string check;   // "=" or "~1"
};

std::vector<BigNumVector> loadVectors() {
    std::vector<BigNumVector> cases;
    std::ifstream in(std::string(QUORVEL_TEST_DATA) + "/bignum_vectors.txt");
    std::string text;
    int line = 0;
    while (std::getline(in, text)) {
        ++line;
        if (text.empty() || text[0] == '#') continue;
        std::istringstream words(text);
        BigNumVector c;
        c.line = line;
        std::string lengths;
        words >> c.op >> lengths;
        const std::size_t slash = lengths.find('/');
        c.lengthA = std::atoi(lengths.c_str() + 2);
        c.lengthB = slash == std::string::npos ? c.lengthA : std::atoi(lengths.c_str() + slash + 1);
        for (std::string w; words >> w && w != "->";) c.operands.push_back(w);
        words >> c.expected >> c.check;
        c.index = static_cast<int>(cases.size());
        cases.push_back(std::move(c));
    }
    return cases;
}

std::string caseName(const testing::TestParamInfo<BigNumVector>& info) {
    std::string number = std::to_string(info.param.index);
    while (number.size() < 4) number.insert(number.begin(), '0');
    return "c" + number + "_" + info.param.op;
}

// Whether x lies within one unit of the last digit of expected. compare's graded
// result decides, except across a power of ten (9.99..9 against 1.00..0e+1),
// where it reports an exponent difference and the difference itself is measured.
bool withinOneUnit(const BigNum& x, const BigNum& expected) {
    const int c = compare(x, expected);
    if (c >= -1 && c <= 1) return true;
    if (!x.isFinite() || !expected.isFinite() || x.sign != expected.sign) return false;
    const int32_t low = x.exponent < expected.exponent ? x.exponent : expected.exponent;
    BigNum diff = subtract(x, expected);
    diff.sign = diff.sign < 0 ? static_cast<int8_t>(1) : diff.sign;
    BigNum unit = fromInt(2, 1);
    unit.exponent = low - 2 * expected.length() + 1;
    return compare(diff, unit) <= 0;
}

class BigNumVectors : public testing::TestWithParam<BigNumVector> {};

TEST_P(BigNumVectors, MatchesOracle) {
    const BigNumVector& c = GetParam();
    SCOPED_TRACE("line " + std::to_string(c.line));
    const int32_t length = c.lengthA > c.lengthB ? c.lengthA : c.lengthB;
    const BigNum a = bigNumFromText(c.lengthA, c.operands.at(0));
    if (c.op == "cmp") {
        const BigNum b = bigNumFromText(c.lengthB, c.operands.at(1));
        EXPECT_EQ(compare(a, b), std::atoi(c.expected.c_str())) << describe(a) << " vs " << describe(b);
        return;
    }
    BigNum result;
    if (c.op == "sqrt") {
        result = squareRoot(a);
    } else {
        const BigNum b = bigNumFromText(c.lengthB, c.operands.at(1));
        if (c.op == "add") result = add(a, b);
        else if (c.op == "sub") result = subtract(a, b);
        else if (c.op == "mul") result = multiply(a, b);
        else if (c.op == "div") result = divide(a, b);
        else FAIL() << "unknown operation " << c.op;
    }
    const BigNum expected = bigNumFromText(length, c.expected);
    ASSERT_EQ(result.length(), length) << describe(result);
    if (c.check == "=") {
        EXPECT_EQ(result, expected) << "got      " << describe(result) << "\nexpected " << describe(expected);
    } else {
        ASSERT_EQ(c.check, "~1");
        EXPECT_TRUE(withinOneUnit(result, expected))
            << "got      " << describe(result) << "\nexpected " << describe(expected) << "\ncompare "
            << compare(result, expected);
    }
}

INSTANTIATE_TEST_SUITE_P(Generated, BigNumVectors, testing::ValuesIn(loadVectors()), caseName);

TEST(BigNumVectorFile, HasEveryOperation) {
    const std::vector<BigNumVector> cases = loadVectors();
    ASSERT_GT(cases.size(), 3000u);
    for (const char* op : {"add", "sub", "mul", "div", "sqrt", "cmp"}) {
        int count = 0;
        bool longest = false;
        for (const BigNumVector& c : cases) {
            if (c.op != op) continue;
            ++count;
            longest = longest || c.lengthA == 508;
        }
        EXPECT_GT(count, 100) << op;
        EXPECT_TRUE(longest) << op << " has no case at 508 bytes";
    }
}

}  // namespace
}  // namespace quorvel
