// The special functions, real, complex and exact integer, against mpmath's
// values (tests/data/special_vectors.txt, written by
// tests/tools/gen_special_vectors.py). Each real or complex case is computed
// at the working length Digits/2 + 8 and must show the reference's digits when
// both are rounded half up to Digits significant digits; integer cases must
// match exactly. Cases where the algorithm used cannot reach that are
// listed in tests/data/special_known_limits.txt with a measured bound in units
// of the last shown digit and the reason, which is then asserted instead.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "bignum_testing.h"
#include "elementary_testing.h"
#include "numeric/complex.h"
#include "numeric/mathcontext.h"
#include "numeric/special.h"
#include "numeric_vectors.h"

namespace quorvel {
namespace {

using test::bigNumFromText;
using test::describe;
using testvectors::VectorCase;

using SpecialCase = testvectors::DigitsCase;
using testvectors::caseKey;

std::vector<SpecialCase> loadCases() { return testvectors::loadDigitsCases("special_vectors.txt"); }

const std::map<std::string, double>& knownLimits() {
    static const std::map<std::string, double> limits = testvectors::loadKnownLimits("special_known_limits.txt");
    return limits;
}

BigInt integerFromDecimal(const std::string& text) {
    BigInt n;
    const bool negative = !text.empty() && text[0] == '-';
    for (std::size_t i = negative ? 1 : 0; i < text.size(); ++i) {
        multiplySmallAddInPlace(n, 10, static_cast<uint32_t>(text[i] - '0'));
    }
    return negative ? negated(n) : n;
}

// Computes a real or complex case at `length` bytes; real results have one
// value, complex two per value.
std::vector<BigNum> compute(MathContext& m, const SpecialCase& e, int32_t length) {
    const std::string& op = e.c.op;
    const auto arg = [&](std::size_t i) { return bigNumFromText(length, e.args.at(i)); };
    const auto z = [&](std::size_t i) { return ComplexNum{arg(i), arg(i + 1)}; };
    const auto parts = [](const ComplexNum& w) { return std::vector<BigNum>{w.re, w.im}; };

    using Unary = BigNum (*)(MathContext&, const BigNum&);
    static const std::map<std::string, Unary> unary{{"gamma", Gamma},       {"fact", Factorial}, {"erf", Erf},
                                                    {"fresnelc", FresnelC}, {"fresnels", FresnelS},
                                                    {"ai", AiryAi},         {"bi", AiryBi}};
    if (auto f = unary.find(op); f != unary.end()) return {f->second(m, arg(0))};
    if (op == "fresnel") {
        const FresnelValues v = FresnelPair(m, arg(0));
        return {v.c, v.s};
    }
    if (op == "comb") return {Comb(m, arg(0), arg(1))};
    if (op == "perm") return {Perm(m, arg(0), arg(1))};
    if (op == "bern") return {BernoulliNumber(m, std::stoi(e.args.at(0)), length)};
    if (op == "euler") return {EulerNumber(m, std::stoi(e.args.at(0)), length)};

    using ComplexUnary = ComplexNum (*)(MathContext&, const ComplexNum&);
    static const std::map<std::string, ComplexUnary> complexUnary{
        {"cgamma", Gamma},        {"cfact", Factorial}, {"cerf", Erf}, {"cfresnelc", FresnelC},
        {"cfresnels", FresnelS}, {"cai", AiryAi},      {"cbi", AiryBi}};
    if (auto f = complexUnary.find(op); f != complexUnary.end()) return parts(f->second(m, z(0)));
    if (op == "cfresnel") {
        const ComplexFresnelValues v = FresnelPair(m, z(0));
        return {v.c.re, v.c.im, v.s.re, v.s.im};
    }
    if (op == "ccomb") return parts(Comb(m, z(0), z(2)));
    if (op == "cperm") return parts(Perm(m, z(0), z(2)));
    ADD_FAILURE() << "unknown operation " << op;
    return {};
}

std::optional<BigInt> computeInteger(MathContext& m, const SpecialCase& e) {
    const std::string& op = e.c.op;
    const auto arg = [&](std::size_t i) { return integerFromDecimal(e.args.at(i)); };
    if (op == "factint") return FactorialInt(m, arg(0));
    if (op == "combint") return CombInt(m, arg(0), arg(1));
    if (op == "permint") return PermInt(m, arg(0), arg(1));
    if (op == "eulerint") return EulerNumberInt(m, std::stoi(e.args.at(0)));
    ADD_FAILURE() << "unknown integer operation " << op;
    return std::nullopt;
}

class SpecialVectors : public ::testing::TestWithParam<SpecialCase> {};

TEST_P(SpecialVectors, ShowsTheReferenceDigits) {
    const SpecialCase& e = GetParam();
    // One context for all cases, as the calculator has: its constants fill once.
    static MathContext shared;
    if (e.digits == 0) {
        const std::optional<BigInt> r = computeInteger(shared, e);
        ASSERT_TRUE(r.has_value()) << caseKey(e);
        EXPECT_EQ(testvectors::bigIntToHex(*r), e.c.expected.at(0)) << caseKey(e);
        return;
    }
    const int D = e.digits;
    const int32_t length = D / 2 + 8;
    const std::vector<BigNum> results = compute(shared, e, length);
    ASSERT_EQ(results.size(), e.c.expected.size()) << caseKey(e);

    // A part whose reference is zero is measured in the last shown digit of
    // the largest reference part of its value (re/im pairs share a scale).
    const std::size_t group = e.c.op[0] == 'c' && e.c.op != "comb" ? 2 : 1;
    double worst = 0.0;
    std::string failures;
    for (std::size_t i = 0; i < results.size(); ++i) {
        const BigNum& x = results[i];
        const std::string& ref = e.c.expected[i];
        SCOPED_TRACE("part " + std::to_string(i) + " = " + describe(x) + ", reference " + ref);
        if (ref == "nan") {
            EXPECT_TRUE(x.isNaN()) << caseKey(e);
            continue;
        }
        if (ref == "inf" || ref == "-inf") {
            EXPECT_TRUE(x.isInfinite()) << caseKey(e);
            EXPECT_EQ(x.sign, ref == "inf" ? 1 : -1) << caseKey(e);
            continue;
        }
        if (!x.isFinite()) {
            worst = 1e300;
            failures += " part " + std::to_string(i) + " not finite: " + describe(x);
            continue;
        }
        if (ref == "0") {
            if (x.isZero()) continue;
            int64_t scale = INT64_MIN;
            const std::size_t first = i - i % group;
            for (std::size_t j = first; j < first + group; ++j) {
                const std::string& other = e.c.expected[j];
                if (other != "0" && other != "nan" && other != "inf" && other != "-inf") {
                    scale = std::max(scale, test::referenceExponent(other));
                }
            }
            const double err = scale == INT64_MIN ? 1e300 : test::errorInUnits(x, "0", scale - D + 1);
            worst = std::max(worst, err);
            failures += " part " + std::to_string(i) + " not zero: " + describe(x);
            continue;
        }
        const test::RoundedDigits shown = test::roundBigNum(x, D);
        const test::RoundedDigits expected = test::roundReference(ref, D);
        const double err = test::errorInUnits(x, ref, test::referenceExponent(ref) - D + 1);
        const bool tie = test::nearRoundingTie(ref, D) && err <= 1.0;
        if (shown != expected && !tie) {
            worst = std::max(worst, err);
            failures += " part " + std::to_string(i) + " shows " + shown.digits + "e" +
                        std::to_string(shown.exponent) + " not " + expected.digits + "e" +
                        std::to_string(expected.exponent);
        }
    }
    if (failures.empty()) return;
    const auto known = knownLimits().find(caseKey(e));
    if (known != knownLimits().end()) {
        EXPECT_LE(worst, known->second) << caseKey(e) << " measured " << worst;
        return;
    }
    ADD_FAILURE() << caseKey(e) << " ->" << failures << "; error " << worst << " units of the last shown digit"
                  << "\nUNLISTED " << caseKey(e) << " | measured " << worst;
}

INSTANTIATE_TEST_SUITE_P(Mpmath, SpecialVectors, ::testing::ValuesIn(loadCases()),
                         [](const ::testing::TestParamInfo<SpecialCase>& info) {
                             return info.param.c.op + "_D" + std::to_string(info.param.digits) + "_line" +
                                    std::to_string(info.param.c.line);
                         });

TEST(SpecialVectorsFile, CoversEveryFunctionAndDigitsSetting) {
    std::map<int, int> perDigits;
    std::map<std::string, int> perOp;
    for (const SpecialCase& e : loadCases()) {
        ++perDigits[e.digits];
        ++perOp[e.c.op];
    }
    for (int D : {0, 1, 12, 20, 80, 300, 1000}) EXPECT_GT(perDigits[D], 0) << "Digits " << D;
    for (const char* op : {"gamma", "fact", "erf", "fresnelc", "fresnels", "fresnel", "ai", "bi", "comb", "perm",
                           "bern", "euler", "cgamma", "cfact", "cerf", "cfresnelc", "cfresnels", "cfresnel", "cai",
                           "cbi", "ccomb", "cperm", "factint", "combint", "permint", "eulerint"}) {
        EXPECT_GT(perOp[op], 0) << op;
    }
}

TEST(SpecialKnownLimits, EveryListedCaseIsInTheVectors) {
    std::map<std::string, bool> keys;
    for (const SpecialCase& e : loadCases()) keys[caseKey(e)] = true;
    for (const auto& [key, bound] : knownLimits()) {
        EXPECT_TRUE(keys.count(key)) << "stale known limit: " << key;
        EXPECT_GT(bound, 0.0) << key;
    }
}

}  // namespace
}  // namespace quorvel
