// The elementary functions, constants and complex functions against mpmath's
// values (tests/data/elementary_vectors.txt, written by
// tests/tools/gen_elementary_vectors.py). Each case is computed at the working
// length Digits/2 + 8 and must show the reference's digits when both are
// rounded half up to Digits significant digits. Cases where the algorithm
// used cannot reach that are listed in
// tests/data/elementary_known_limits.txt with a measured bound in units of the
// last shown digit, which is then asserted instead.
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "bignum_testing.h"
#include "elementary_testing.h"
#include "numeric/complex.h"
#include "numeric/elementary.h"
#include "numeric/mathcontext.h"
#include "numeric_vectors.h"

namespace quorvel {
namespace {

using test::bigNumFromText;
using test::describe;
using testvectors::VectorCase;

using ElementaryCase = testvectors::DigitsCase;
using testvectors::caseKey;

std::vector<ElementaryCase> loadCases() { return testvectors::loadDigitsCases("elementary_vectors.txt"); }

const std::map<std::string, double>& knownLimits() {
    static const std::map<std::string, double> limits = testvectors::loadKnownLimits("elementary_known_limits.txt");
    return limits;
}

BigInt integerArg(const std::string& text) { return bigIntFromI32(std::stoi(text)); }

// Computes a case at `length` bytes; real results have one value, complex two.
std::vector<BigNum> compute(MathContext& m, const ElementaryCase& e, int32_t length) {
    const std::string& op = e.c.op;
    const auto arg = [&](std::size_t i) { return bigNumFromText(length, e.args.at(i)); };
    const auto z = [&](std::size_t i) { return ComplexNum{arg(i), arg(i + 1)}; };
    const auto parts = [](const ComplexNum& w) { return std::vector<BigNum>{w.re, w.im}; };

    static const std::map<std::string, char> constants{{"pi", 'p'}, {"e", 'e'}, {"gamma", 'g'},
                                                       {"ln2", '2'}, {"ln10", 'l'}, {"deg", 'd'}};
    if (auto k = constants.find(op); k != constants.end()) return {*m.GetConstant(length, k->second)};

    using Unary = BigNum (*)(MathContext&, const BigNum&);
    static const std::map<std::string, Unary> unary{
        {"exp", Exp},   {"ln", Ln},     {"log10", Log10}, {"log2", Log2},   {"sin", Sin},     {"cos", Cos},
        {"tan", Tan},   {"sinc", Sinc}, {"asin", Asin},   {"acos", Acos},   {"atan", Atan},   {"sinh", Sinh},
        {"cosh", Cosh}, {"tanh", Tanh}, {"asinh", Asinh}, {"acosh", Acosh}, {"atanh", Atanh}};
    if (auto f = unary.find(op); f != unary.end()) return {f->second(m, arg(0))};
    if (op == "sqrt") return {squareRoot(arg(0))};
    if (op == "atan2") return {Atan2(m, arg(0), arg(1))};
    if (op == "pow") return {Power(m, arg(0), arg(1))};
    if (op == "powint") return {PowerInt(m, arg(0), integerArg(e.args.at(1)))};

    using ComplexUnary = ComplexNum (*)(MathContext&, const ComplexNum&);
    static const std::map<std::string, ComplexUnary> complexUnary{
        {"csqrt", squareRoot}, {"cexp", Exp},   {"cln", Ln},     {"csin", Sin},   {"ccos", Cos},
        {"ctan", Tan},         {"csinh", Sinh}, {"ccosh", Cosh}, {"ctanh", Tanh}, {"casin", Asin},
        {"cacos", Acos},       {"catan", Atan}};
    if (auto f = complexUnary.find(op); f != complexUnary.end()) return parts(f->second(m, z(0)));
    if (op == "cadd") return parts(add(z(0), z(2)));
    if (op == "csub") return parts(subtract(z(0), z(2)));
    if (op == "cmul") return parts(multiply(z(0), z(2)));
    if (op == "cdiv") return parts(divide(z(0), z(2)));
    if (op == "cabs") return {complexModulus(z(0))};
    if (op == "cpow") return parts(Power(m, z(0), z(2)));
    if (op == "cpowr") return parts(Power(m, z(0), arg(2)));
    if (op == "cpowint") return parts(PowerInt(m, z(0), integerArg(e.args.at(2))));
    ADD_FAILURE() << "unknown operation " << op;
    return {};
}

class ElementaryVectors : public ::testing::TestWithParam<ElementaryCase> {};

TEST_P(ElementaryVectors, ShowsTheReferenceDigits) {
    const ElementaryCase& e = GetParam();
    const int D = e.digits;
    const int32_t length = D / 2 + 8;
    // The constants are computed afresh at each Digits; everything else
    // shares one context, as the calculator does, so its cache fills once.
    static MathContext shared;
    MathContext fresh;
    const bool constant = e.args.empty();
    const std::vector<BigNum> results = compute(constant ? fresh : shared, e, length);
    ASSERT_EQ(results.size(), e.c.expected.size()) << caseKey(e);

    // The unit for a part whose reference is zero: the last shown digit of
    // the largest reference part (the value's own scale).
    int64_t scale = INT64_MIN;
    for (const std::string& ref : e.c.expected) {
        if (ref != "0" && ref != "nan" && ref != "inf" && ref != "-inf") {
            scale = std::max(scale, test::referenceExponent(ref));
        }
    }

    double worst = 0.0;   // error in units of the last shown digit
    std::string failures;
    for (std::size_t i = 0; i < results.size(); ++i) {
        const BigNum& x = results[i];
        const std::string& ref = e.c.expected[i];
        SCOPED_TRACE("part " + std::to_string(i) + " = " + describe(x) + ", reference " + ref);
        if (ref == "nan") {
            EXPECT_TRUE(x.isNaN());
            continue;
        }
        if (ref == "inf" || ref == "-inf") {
            EXPECT_TRUE(x.isInfinite());
            EXPECT_EQ(x.sign, ref == "inf" ? 1 : -1);
            continue;
        }
        ASSERT_TRUE(x.isFinite()) << caseKey(e);
        if (ref == "0") {
            if (!x.isZero()) {
                const double err = scale == INT64_MIN ? 1e300 : test::errorInUnits(x, "0", scale - D + 1);
                worst = std::max(worst, err);
                failures += " part " + std::to_string(i) + " not zero: " + describe(x);
            }
            continue;
        }
        const test::RoundedDigits shown = test::roundBigNum(x, D);
        const test::RoundedDigits expected = test::roundReference(ref, D);
        const double err = test::errorInUnits(x, ref, test::referenceExponent(ref) - D + 1);
        // A reference within a hair of a rounding tie may show either neighbour.
        const bool tie = test::nearRoundingTie(ref, D) && err <= 1.0;
        if (shown != expected && !tie) {
            worst = std::max(worst, err);
            failures += " part " + std::to_string(i) + " shows " + shown.digits + "e" + std::to_string(shown.exponent) +
                        " not " + expected.digits + "e" + std::to_string(expected.exponent);
        }
    }
    if (failures.empty()) return;
    const auto known = knownLimits().find(caseKey(e));
    if (known != knownLimits().end()) {
        EXPECT_LE(worst, known->second) << caseKey(e) << " measured " << worst;
        return;
    }
    ADD_FAILURE() << caseKey(e) << " ->" << failures << "; error " << worst << " units of the last shown digit";
}

INSTANTIATE_TEST_SUITE_P(Mpmath, ElementaryVectors, ::testing::ValuesIn(loadCases()),
                         [](const ::testing::TestParamInfo<ElementaryCase>& info) {
                             return info.param.c.op + "_D" + std::to_string(info.param.digits) + "_line" +
                                    std::to_string(info.param.c.line);
                         });

TEST(ElementaryVectorsFile, HasCasesAtEveryDigitsSetting) {
    std::map<int, int> perDigits;
    for (const ElementaryCase& e : loadCases()) ++perDigits[e.digits];
    for (int D : {1, 12, 20, 80, 300, 1000}) EXPECT_GT(perDigits[D], 0) << "Digits " << D;
    int total = 0;
    for (const auto& [D, n] : perDigits) total += n;
    EXPECT_GE(total, 2000);
}

}  // namespace
}  // namespace quorvel
