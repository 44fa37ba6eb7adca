// Timing of the decimal core and the number text at 80 and 1000 digits.
#include <benchmark/benchmark.h>

#include <random>
#include <string>

#include "numeric/bignum.h"
#include "numeric/numtext.h"

namespace {

using namespace quorvel;

// The working length that Digits gives: Digits / 2 + 8 bytes.
int32_t workingLength(int32_t digits) { return digits / 2 + 8; }

std::u16string randomDigits(int32_t count, unsigned seed) {
    std::mt19937 gen(seed);
    std::uniform_int_distribution<int> digit(0, 9);
    std::u16string text = u"1.";
    for (int32_t i = 1; i < count; ++i) text.push_back(static_cast<char16_t>(u'0' + digit(gen)));
    return text;
}

BigNum operand(int32_t digits, unsigned seed) {
    return ParseReal(workingLength(digits), randomDigits(2 * workingLength(digits), seed));
}

void BM_Add(benchmark::State& state) {
    const auto digits = static_cast<int32_t>(state.range(0));
    BigNum a = operand(digits, 1), b = operand(digits, 2);
    for (auto _ : state) benchmark::DoNotOptimize(add(a, b));
}

void BM_Multiply(benchmark::State& state) {
    const auto digits = static_cast<int32_t>(state.range(0));
    BigNum a = operand(digits, 3), b = operand(digits, 4);
    for (auto _ : state) benchmark::DoNotOptimize(multiply(a, b));
}

void BM_Divide(benchmark::State& state) {
    const auto digits = static_cast<int32_t>(state.range(0));
    BigNum a = operand(digits, 5), b = operand(digits, 6);
    for (auto _ : state) benchmark::DoNotOptimize(divide(a, b));
}

void BM_SquareRoot(benchmark::State& state) {
    const auto digits = static_cast<int32_t>(state.range(0));
    BigNum a = operand(digits, 7);
    for (auto _ : state) benchmark::DoNotOptimize(squareRoot(a));
}

void BM_ParseReal(benchmark::State& state) {
    const auto digits = static_cast<int32_t>(state.range(0));
    std::u16string text = randomDigits(digits, 8);
    for (auto _ : state) benchmark::DoNotOptimize(ParseReal(workingLength(digits), text));
}

void BM_FormatReal(benchmark::State& state) {
    const auto digits = static_cast<int32_t>(state.range(0));
    BigNum a = operand(digits, 9);
    for (auto _ : state) benchmark::DoNotOptimize(FormatReal(a, digits, 0));
}

}  // namespace

BENCHMARK(BM_Add)->Arg(80)->Arg(1000);
BENCHMARK(BM_Multiply)->Arg(80)->Arg(1000);
BENCHMARK(BM_Divide)->Arg(80)->Arg(1000);
BENCHMARK(BM_SquareRoot)->Arg(80)->Arg(1000);
BENCHMARK(BM_ParseReal)->Arg(80)->Arg(1000);
BENCHMARK(BM_FormatReal)->Arg(80)->Arg(1000);
