// Timing of the elementary functions, the constants and the complex
// functions at 80 and 1000 digits (the working length Digits / 2 + 8). The
// constants the functions fetch are cached before timing, as in a session;
// the constant routines themselves are timed uncached.
#include <benchmark/benchmark.h>

#include <string>

#include "numeric/complex.h"
#include "numeric/constants.h"
#include "numeric/elementary.h"
#include "numeric/mathcontext.h"
#include "numeric/numtext.h"

namespace {

using namespace quorvel;

int32_t workingLength(int32_t digits) { return digits / 2 + 8; }

// One context per process, its cache filled up to 1000 digits.
MathContext& context() {
    static MathContext math;
    static const bool filled = [] {
        for (char key : {'2', 'd', 'e', 'g', 'l', 'p'}) math.GetConstant(workingLength(1000) + 8, key);
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

void BM_Exp(benchmark::State& s) { unary<Exp>(s, u"1.5"); }
void BM_Ln(benchmark::State& s) { unary<Ln>(s, u"2"); }
void BM_Log10(benchmark::State& s) { unary<Log10>(s, u"7"); }
void BM_Sin(benchmark::State& s) { unary<Sin>(s, u"1.5"); }
void BM_Cos(benchmark::State& s) { unary<Cos>(s, u"1.5"); }
void BM_Tan(benchmark::State& s) { unary<Tan>(s, u"1.5"); }
void BM_Atan(benchmark::State& s) { unary<Atan>(s, u"0.7"); }
void BM_Asin(benchmark::State& s) { unary<Asin>(s, u"0.5"); }
void BM_Acos(benchmark::State& s) { unary<Acos>(s, u"0.5"); }
void BM_Sinh(benchmark::State& s) { unary<Sinh>(s, u"1.5"); }
void BM_Atanh(benchmark::State& s) { unary<Atanh>(s, u"0.5"); }
void BM_Log2(benchmark::State& s) { unary<Log2>(s, u"7"); }
void BM_Sinc(benchmark::State& s) { unary<Sinc>(s, u"1.5"); }
void BM_Cosh(benchmark::State& s) { unary<Cosh>(s, u"1.5"); }
void BM_Tanh(benchmark::State& s) { unary<Tanh>(s, u"1.5"); }
void BM_Asinh(benchmark::State& s) { unary<Asinh>(s, u"0.5"); }
void BM_Acosh(benchmark::State& s) { unary<Acosh>(s, u"1.5"); }
// The arc tangent's series is longest just below the half-angle switch at
// 0.75 (0.7 above); a small argument and an inverted one for comparison.
void BM_AtanSmall(benchmark::State& s) { unary<Atan>(s, u"0.2"); }
void BM_AtanInverted(benchmark::State& s) { unary<Atan>(s, u"3"); }

void BM_Atan2(benchmark::State& state) {
    MathContext& m = context();
    const int32_t digits = static_cast<int32_t>(state.range(0));
    const BigNum y = value(digits, u"-0.7"), x = value(digits, u"1.1");
    for (auto _ : state) benchmark::DoNotOptimize(Atan2(m, y, x));
}

// ln 10 and ln 2 computed afresh, as the first exp or ln of a run needs them.
void BM_ConstantLn10(benchmark::State& state) {
    const int32_t bytes = workingLength(static_cast<int32_t>(state.range(0))) + 4;
    for (auto _ : state) {
        MathContext fresh;
        benchmark::DoNotOptimize(fresh.GetConstant(bytes, 'l'));
    }
}

void BM_ConstantLn2(benchmark::State& state) {
    const int32_t bytes = workingLength(static_cast<int32_t>(state.range(0))) + 4;
    for (auto _ : state) {
        MathContext fresh;
        benchmark::DoNotOptimize(fresh.GetConstant(bytes, '2'));
    }
}

void BM_Sqrt(benchmark::State& state) {
    const BigNum x = value(static_cast<int32_t>(state.range(0)), u"2");
    for (auto _ : state) benchmark::DoNotOptimize(squareRoot(x));
}

void BM_Power(benchmark::State& state) {
    MathContext& m = context();
    const int32_t digits = static_cast<int32_t>(state.range(0));
    const BigNum x = value(digits, u"2"), y = value(digits, u"0.5");
    for (auto _ : state) benchmark::DoNotOptimize(Power(m, x, y));
}

void BM_PowerInt(benchmark::State& state) {
    MathContext& m = context();
    const BigNum x = value(static_cast<int32_t>(state.range(0)), u"1.0001");
    const BigInt n = bigIntFromI32(1000);
    for (auto _ : state) benchmark::DoNotOptimize(PowerInt(m, x, n));
}

void BM_ComputePi(benchmark::State& state) {
    const int32_t M = workingLength(static_cast<int32_t>(state.range(0))) + 2;
    for (auto _ : state) benchmark::DoNotOptimize(ComputePi(M));
}

void BM_ComputeE(benchmark::State& state) {
    const int32_t M = workingLength(static_cast<int32_t>(state.range(0))) + 2;
    for (auto _ : state) benchmark::DoNotOptimize(ComputeE(M));
}

void BM_ComputeEulerGamma(benchmark::State& state) {
    MathContext& m = context();
    const int32_t M = workingLength(static_cast<int32_t>(state.range(0))) + 2;
    for (auto _ : state) benchmark::DoNotOptimize(ComputeEulerGamma(m, M));
}

void BM_ComplexMultiply(benchmark::State& state) {
    const int32_t digits = static_cast<int32_t>(state.range(0));
    const ComplexNum a{value(digits, u"1.25"), value(digits, u"-0.75")};
    const ComplexNum b{value(digits, u"0.5"), value(digits, u"2.5")};
    for (auto _ : state) benchmark::DoNotOptimize(multiply(a, b));
}

void BM_ComplexExp(benchmark::State& state) {
    MathContext& m = context();
    const int32_t digits = static_cast<int32_t>(state.range(0));
    const ComplexNum z{value(digits, u"1.25"), value(digits, u"-0.75")};
    for (auto _ : state) benchmark::DoNotOptimize(Exp(m, z));
}

}  // namespace

#define QUORVEL_AT_80_AND_1000(name) BENCHMARK(name)->Arg(80)->Arg(1000)->Unit(benchmark::kMillisecond)

QUORVEL_AT_80_AND_1000(BM_Exp);
QUORVEL_AT_80_AND_1000(BM_Ln);
QUORVEL_AT_80_AND_1000(BM_Log10);
QUORVEL_AT_80_AND_1000(BM_Sin);
QUORVEL_AT_80_AND_1000(BM_Cos);
QUORVEL_AT_80_AND_1000(BM_Tan);
QUORVEL_AT_80_AND_1000(BM_Atan);
QUORVEL_AT_80_AND_1000(BM_Asin);
QUORVEL_AT_80_AND_1000(BM_Acos);
QUORVEL_AT_80_AND_1000(BM_Sinh);
QUORVEL_AT_80_AND_1000(BM_Atanh);
QUORVEL_AT_80_AND_1000(BM_Log2);
QUORVEL_AT_80_AND_1000(BM_Sinc);
QUORVEL_AT_80_AND_1000(BM_Cosh);
QUORVEL_AT_80_AND_1000(BM_Tanh);
QUORVEL_AT_80_AND_1000(BM_Asinh);
QUORVEL_AT_80_AND_1000(BM_Acosh);
QUORVEL_AT_80_AND_1000(BM_AtanSmall);
QUORVEL_AT_80_AND_1000(BM_AtanInverted);
QUORVEL_AT_80_AND_1000(BM_Atan2);
QUORVEL_AT_80_AND_1000(BM_ConstantLn10);
QUORVEL_AT_80_AND_1000(BM_ConstantLn2);
QUORVEL_AT_80_AND_1000(BM_Sqrt);
QUORVEL_AT_80_AND_1000(BM_Power);
QUORVEL_AT_80_AND_1000(BM_PowerInt);
QUORVEL_AT_80_AND_1000(BM_ComputePi);
QUORVEL_AT_80_AND_1000(BM_ComputeE);
QUORVEL_AT_80_AND_1000(BM_ComputeEulerGamma);
QUORVEL_AT_80_AND_1000(BM_ComplexMultiply);
QUORVEL_AT_80_AND_1000(BM_ComplexExp);
