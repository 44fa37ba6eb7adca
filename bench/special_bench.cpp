// Timing of the special functions at 80 and 1000 digits (the working length
// Digits / 2 + 8), with the constants cached beforehand as in a session.
// Every call of a gamma-based function computes Spouge's coefficients anew.
#include <benchmark/benchmark.h>

#include <string>

#include "numeric/complex.h"
#include "numeric/mathcontext.h"
#include "numeric/numtext.h"
#include "numeric/special.h"

namespace {

using namespace quorvel;

int32_t workingLength(int32_t digits) { return digits / 2 + 8; }

MathContext& context() {
    static MathContext math;
    static const bool filled = [] {
        for (char key : {'2', 'd', 'e', 'g', 'l', 'p'}) math.GetConstant(workingLength(1000) + 40, key);
        return true;
    }();
    (void)filled;
    return math;
}

BigNum value(int32_t digits, std::u16string_view text) { return ParseReal(workingLength(digits), text); }

using Unary = BigNum (*)(MathContext&, const BigNum&);

template <Unary f>
void unary(benchmark::State& state, std::u16string_view argument) {
    MathContext& m = context();
    const BigNum x = value(static_cast<int32_t>(state.range(0)), argument);
    for (auto _ : state) benchmark::DoNotOptimize(f(m, x));
}

void BM_Gamma(benchmark::State& s) { unary<Gamma>(s, u"7.25"); }
void BM_GammaReflected(benchmark::State& s) { unary<Gamma>(s, u"-3.7"); }
void BM_Factorial(benchmark::State& s) { unary<Factorial>(s, u"100.5"); }
void BM_Erf(benchmark::State& s) { unary<Erf>(s, u"1.5"); }
void BM_ErfLarge(benchmark::State& s) { unary<Erf>(s, u"6.5"); }
void BM_FresnelC(benchmark::State& s) { unary<FresnelC>(s, u"2.5"); }
void BM_FresnelCLarge(benchmark::State& s) { unary<FresnelC>(s, u"60.5"); }
void BM_AiryAi(benchmark::State& s) { unary<AiryAi>(s, u"-3.5"); }
void BM_AiryBi(benchmark::State& s) { unary<AiryBi>(s, u"2.5"); }

void BM_Bernoulli(benchmark::State& state) {
    MathContext& m = context();
    const int32_t length = workingLength(static_cast<int32_t>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(BernoulliNumber(m, 200, length));
}

void BM_EulerNumber(benchmark::State& state) {
    MathContext& m = context();
    const int32_t length = workingLength(static_cast<int32_t>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(EulerNumber(m, 200, length));
}

void BM_FactorialInt(benchmark::State& state) {
    MathContext& m = context();
    const BigInt n = bigIntFromI32(static_cast<int32_t>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(FactorialInt(m, n));
}

void BM_ComplexGamma(benchmark::State& state) {
    MathContext& m = context();
    const int32_t digits = static_cast<int32_t>(state.range(0));
    const ComplexNum z{value(digits, u"2.5"), value(digits, u"1.5")};
    for (auto _ : state) benchmark::DoNotOptimize(Gamma(m, z));
}

void BM_ComplexErf(benchmark::State& state) {
    MathContext& m = context();
    const int32_t digits = static_cast<int32_t>(state.range(0));
    const ComplexNum z{value(digits, u"1.25"), value(digits, u"-0.75")};
    for (auto _ : state) benchmark::DoNotOptimize(Erf(m, z));
}

}  // namespace

#define QUORVEL_SPECIAL_AT_80_AND_1000(name) BENCHMARK(name)->Arg(80)->Arg(1000)->Unit(benchmark::kMillisecond)

QUORVEL_SPECIAL_AT_80_AND_1000(BM_Gamma);
QUORVEL_SPECIAL_AT_80_AND_1000(BM_GammaReflected);
QUORVEL_SPECIAL_AT_80_AND_1000(BM_Factorial);
QUORVEL_SPECIAL_AT_80_AND_1000(BM_Erf);
QUORVEL_SPECIAL_AT_80_AND_1000(BM_ErfLarge);
QUORVEL_SPECIAL_AT_80_AND_1000(BM_FresnelC);
QUORVEL_SPECIAL_AT_80_AND_1000(BM_FresnelCLarge);
QUORVEL_SPECIAL_AT_80_AND_1000(BM_AiryAi);
QUORVEL_SPECIAL_AT_80_AND_1000(BM_AiryBi);
QUORVEL_SPECIAL_AT_80_AND_1000(BM_Bernoulli);
QUORVEL_SPECIAL_AT_80_AND_1000(BM_EulerNumber);
QUORVEL_SPECIAL_AT_80_AND_1000(BM_ComplexGamma);
QUORVEL_SPECIAL_AT_80_AND_1000(BM_ComplexErf);
BENCHMARK(BM_FactorialInt)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
