// The random generator: its recurrence and lazy clock seeding, the 24-bit
// draw, uniform and normal reals, random words, the vectors of
// tests/tools/gen_random_vectors.py and distribution sanity checks.
#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
#include <sstream>
#include <string>
#include <vector>

#include "numeric/numtext.h"
#include "numeric/random.h"
#include "tests/numeric_vectors.h"

namespace quorvel {
namespace {

uint64_t hex64(const std::string& text) { return std::stoull(text, nullptr, 16); }

constexpr uint64_t FixedClockSeconds = 1700000000;
uint64_t fixedClock() { return FixedClockSeconds; }

// A generator seeded with `seed` whose clock, if ever read, is fixed.
RandomState seeded(uint64_t seed) {
    RandomState state(fixedClock);
    state.seed(seed);
    return state;
}

double toDouble(const BigNum& x) {
    double d = 0;
    EXPECT_TRUE(BigNumToDouble(x, d));
    return d;
}

// --- The edge cases of the generator ----------------------------------------------

TEST(RandomEdge, StateOneStepsToMultiplierPlusIncrementAndDrawsItsBits40To63) {
    RandomState state = seeded(1);
    const uint32_t r = RandomBits24(state);
    const uint64_t expected = 0x38F4FD9CACD95503ULL + 0x52EE806FF379ULL;
    EXPECT_EQ(state.value(), expected);
    EXPECT_EQ(r, static_cast<uint32_t>((expected >> 40) & 0xFFFFFF));
    EXPECT_EQ(r, 0x38F550u);
}

TEST(RandomEdge, UniformOfOneByteIsAlwaysOneHalf) {
    RandomState state = seeded(99);
    const BigNum half = ParseReal(2, u"0.5");
    for (int i = 0; i < 5; ++i) {
        const BigNum x = RandomUniform(state, 1);
        EXPECT_EQ(compare(x, half), 0);
        EXPECT_EQ(x.exponent, -1);
        EXPECT_EQ(x.digits.back(), 50);
    }
    EXPECT_EQ(state.value(), 99u);   // no generator step is taken
}

TEST(RandomEdge, DrawZeroGivesPairZero) { EXPECT_EQ(PairFromDraw(0), 0); }

TEST(RandomEdge, DrawTwoToThe24MinusOneGivesPair99) { EXPECT_EQ(PairFromDraw((1u << 24) - 1), 99); }

TEST(RandomEdge, GaussNeverReturnsAValueOutsideMinusTwelveToTwelve) {
    RandomState state = seeded(2024);
    const BigNum low = ParseReal(6, u"-12");
    const BigNum high = ParseReal(6, u"12");
    for (int i = 0; i < 20000; ++i) {
        const BigNum g = RandomGauss(state, 6);
        ASSERT_TRUE(g.isFinite());
        ASSERT_GT(compare(g, low), 0);
        ASSERT_LT(compare(g, high), 0);
    }
    // The bound also holds at the longest working length.
    for (int i = 0; i < 20; ++i) {
        const BigNum g = RandomGauss(state, 508);
        EXPECT_GT(compare(g, ParseReal(508, u"-12")), 0);
        EXPECT_LT(compare(g, ParseReal(508, u"12")), 0);
    }
}

// --- Generator and seeding -----------------------------------------------------------

TEST(Random, PairMappingIsMonotonicAndEven) {
    std::vector<int> counts(100, 0);
    int previous = 0;
    for (uint32_t r = 0; r < (1u << 24); r += 97) {
        const int pair = PairFromDraw(r);
        EXPECT_GE(pair, previous);
        previous = pair;
        ++counts[pair];
    }
    for (int count : counts) EXPECT_NEAR(count, 1729.7, 2.0);   // 2^24 / 97 / 100
}

TEST(Random, ZeroStateIsSeededFromTheClockOnTheFirstDraw) {
    RandomState state(fixedClock);
    EXPECT_EQ(state.value(), 0u);
    RandomBits24(state);
    EXPECT_EQ(state.value(), FixedClockSeconds * RandomState::Multiplier + RandomState::Increment);
}

TEST(Random, StateThatReachesZeroIsSeededAgain) {
    const auto cases = testvectors::loadVectorCases("random_vectors.txt", {"tozero"});
    ASSERT_EQ(cases.size(), 1u);
    RandomState state = seeded(hex64(cases[0].args[0]));
    RandomBits24(state);
    EXPECT_EQ(state.value(), 0u);
    RandomBits24(state);
    EXPECT_EQ(state.value(), FixedClockSeconds * RandomState::Multiplier + RandomState::Increment);
}

TEST(Random, SameSecondGivesTheSameSequence) {
    RandomState a(fixedClock);
    RandomState b(fixedClock);
    for (int i = 0; i < 10; ++i) EXPECT_EQ(RandomBits24(a), RandomBits24(b));
}

TEST(Random, CalendarClockCountsSecondsSince1970) {
    const auto now = static_cast<uint64_t>(std::time(nullptr));
    const uint64_t seconds = CalendarSeconds();
    EXPECT_LE(seconds > now ? seconds - now : now - seconds, 2u);
}

TEST(Random, DefaultGeneratorStartsUnseededAndSeedsItself) {
    RandomState state;
    EXPECT_EQ(state.value(), 0u);
    RandomBits24(state);
    EXPECT_NE(state.value(), 0u);
}

TEST(Random, DrawsAreTwentyFourBits) {
    RandomState state = seeded(5);
    for (int i = 0; i < 1000; ++i) EXPECT_LT(RandomBits24(state), 1u << 24);
}

// --- Uniform, gauss and words -------------------------------------------------------

TEST(Random, UniformTakesOneStepPerByteAboveTheLowest) {
    RandomState state = seeded(1);
    RandomUniform(state, 10);
    RandomState reference = seeded(1);
    for (int i = 0; i < 9; ++i) RandomBits24(reference);
    EXPECT_EQ(state.value(), reference.value());
}

TEST(Random, UniformIsInsideTheOpenInterval) {
    RandomState state = seeded(77);
    const BigNum one = fromInt(10, 1);
    for (int i = 0; i < 2000; ++i) {
        const BigNum x = RandomUniform(state, 10);
        ASSERT_EQ(x.length(), 10);
        ASSERT_EQ(x.sign, 1);
        ASSERT_LT(compare(x, one), 0);
        ASSERT_GE(x.digits.back(), 10);   // normalised: first digit not 0
    }
}

// The central-limit method written out with BigNum operations: a zero of
// `length` bytes, 48 RandomUniform draws of length - 1 bytes added, 24
// subtracted, the sum halved.
BigNum gaussByBigNumAdditions(RandomState& state, int32_t length) {
    BigNum sum = makeZero(length);
    for (int i = 0; i < 48; ++i) addInPlace(sum, RandomUniform(state, length - 1));
    return divide(subtract(sum, fromInt(length, 24)), fromInt(length, 2));
}

TEST(Random, GaussEqualsTheSumOfBigNumDrawsExactly) {
    int negatives = 0;
    for (int32_t length : {2, 3, 4, 5, 8, 13, 48, 100, 508}) {
        for (uint64_t seed = 1; seed <= (length < 100 ? 300u : 20u); ++seed) {
            RandomState fast = seeded(seed * 0x9E3779B97F4A7C15ULL);
            RandomState reference = fast;
            const BigNum g = RandomGauss(fast, length);
            const BigNum expected = gaussByBigNumAdditions(reference, length);
            ASSERT_EQ(g, expected) << "length " << length << " seed " << seed << ": "
                                   << toUtf8(FormatReal(g, 0, 0x80)) << " vs " << toUtf8(FormatReal(expected, 0, 0x80));
            EXPECT_EQ(fast.value(), reference.value());
            negatives += g.sign < 0;
        }
    }
    EXPECT_GT(negatives, 500);   // both signs were exercised
}

TEST(Random, GaussAtTwoBytesIsZero) {
    // One-byte draws are all 0.5: 48 halves less 24 is 0.
    RandomState state = seeded(3);
    EXPECT_TRUE(RandomGauss(state, 2).isZero());
}

TEST(Random, WordTakesOneDrawPerTwentyFourBits) {
    for (int32_t bits : {1, 24, 25, 48, 49, 100}) {
        RandomState state = seeded(11);
        const BinWord word = RandomWord(state, bits);
        EXPECT_EQ(word.bits, bits);
        RandomState reference = seeded(11);
        for (int32_t i = 0; i < (bits + 23) / 24; ++i) RandomBits24(reference);
        EXPECT_EQ(state.value(), reference.value()) << bits;
        EXPECT_EQ(word.limbs.back() & ~TopLimbMask(bits), 0);
    }
}

// --- Oracle vectors -------------------------------------------------------------------

TEST(RandomVectors, SequencesFromFixedSeeds) {
    const auto cases = testvectors::loadVectorCases("random_vectors.txt", {"seq"});
    ASSERT_GE(cases.size(), 10u);
    for (const auto& c : cases) {
        RandomState state = seeded(hex64(c.args[0]));
        const int n = std::stoi(c.args[1]);
        ASSERT_EQ(c.expected.size(), static_cast<size_t>(n + 1));
        for (int i = 0; i < n; ++i) EXPECT_EQ(RandomBits24(state), std::stoul(c.expected[i + 1])) << c.line;
        EXPECT_EQ(state.value(), hex64(c.expected[0])) << c.line;
    }
}

TEST(RandomVectors, UniformDigits) {
    const auto cases = testvectors::loadVectorCases("random_vectors.txt", {"uniform"});
    ASSERT_GE(cases.size(), 100u);
    for (const auto& c : cases) {
        RandomState state = seeded(hex64(c.args[0]));
        const BigNum x = RandomUniform(state, std::stoi(c.args[1]));
        const BigNum expected = testvectors::bigNumFromFields(c.expected[0], c.expected[1], c.expected[2], c.expected[3]);
        EXPECT_EQ(x, expected) << "line " << c.line << ": " << testvectors::mantissaDigits(x) << " e" << x.exponent;
        EXPECT_EQ(state.value(), hex64(c.expected[4])) << c.line;
    }
}

TEST(RandomVectors, GaussValues) {
    const auto cases = testvectors::loadVectorCases("random_vectors.txt", {"gauss"});
    ASSERT_GE(cases.size(), 30u);
    for (const auto& c : cases) {
        RandomState state = seeded(hex64(c.args[0]));
        const int32_t length = std::stoi(c.args[1]);
        const BigNum g = RandomGauss(state, length);
        EXPECT_EQ(g.length(), length);
        // The sum of the draws is exact; halving may need one digit more
        // than the length holds, so the last pair may differ by one unit.
        const std::u16string text = fromUtf8(c.expected[0]);
        EXPECT_LE(std::abs(compare(g, ParseReal(length, text))), 1)
            << "line " << c.line << ": " << toUtf8(FormatReal(g, 0, 0x80)) << " vs " << c.expected[0];
        EXPECT_EQ(state.value(), hex64(c.expected[1])) << c.line;
    }
}

TEST(RandomVectors, RandomWords) {
    const auto cases = testvectors::loadVectorCases("random_vectors.txt", {"word"});
    ASSERT_GE(cases.size(), 50u);
    for (const auto& c : cases) {
        RandomState state = seeded(hex64(c.args[0]));
        const BigInt got = integerFromWord(RandomWord(state, std::stoi(c.args[1])));
        EXPECT_EQ(got, testvectors::bigIntFromHex(c.expected[0])) << c.line;
        EXPECT_EQ(state.value(), hex64(c.expected[1])) << c.line;
    }
}

// --- Distribution sanity (fixed seeds; bounds about five standard errors) ---------------

constexpr int Samples = 100000;

struct Moments {
    double mean = 0;
    double variance = 0;
};

template <class Draw>
Moments momentsOf(Draw draw) {
    double sum = 0, sumSquares = 0;
    for (int i = 0; i < Samples; ++i) {
        const double v = draw();
        sum += v;
        sumSquares += v * v;
    }
    const double mean = sum / Samples;
    return {mean, sumSquares / Samples - mean * mean};
}

TEST(RandomDistribution, UniformMeanAndVariance) {
    RandomState state = seeded(0x1234567);
    const Moments m = momentsOf([&] { return toDouble(RandomUniform(state, 8)); });
    // Mean 1/2 (standard error 0.0009), variance 1/12 (standard error 0.00024).
    EXPECT_NEAR(m.mean, 0.5, 0.005);
    EXPECT_NEAR(m.variance, 1.0 / 12, 0.0015);
}

TEST(RandomDistribution, GaussMeanAndVariance) {
    RandomState state = seeded(0xABCDEF);
    double beyondTwo = 0;
    const Moments m = momentsOf([&] {
        const double g = toDouble(RandomGauss(state, 4));
        if (std::fabs(g) > 2) ++beyondTwo;
        return g;
    });
    // Mean 0 (standard error 0.0032), variance 1 (standard error 0.0045).
    EXPECT_NEAR(m.mean, 0.0, 0.016);
    EXPECT_NEAR(m.variance, 1.0, 0.025);
    // About 4.55 % of a normal distribution lies beyond two standard deviations.
    EXPECT_NEAR(beyondTwo / Samples, 0.0455, 0.004);
}

TEST(RandomDistribution, DrawsMeanAndVariance) {
    RandomState state = seeded(0x55AA55AA);
    const double range = 1u << 24;
    const Moments m = momentsOf([&] { return RandomBits24(state) / range; });
    EXPECT_NEAR(m.mean, 0.5, 0.005);
    EXPECT_NEAR(m.variance, 1.0 / 12, 0.0015);
}

TEST(RandomDistribution, EveryBitOfARandomWordIsSetAboutHalfTheTime) {
    RandomState state = seeded(0xC0FFEE);
    constexpr int32_t Bits = 100;
    constexpr int Words = Samples / 10;
    std::vector<int> ones(Bits, 0);
    for (int i = 0; i < Words; ++i) {
        const BinWord word = RandomWord(state, Bits);
        for (int32_t b = 0; b < Bits; ++b) ones[b] += (word.limbs[b / 16] >> (b % 16)) & 1;
    }
    // Standard error of each count: sqrt(10^4 / 4) = 50.
    for (int32_t b = 0; b < Bits; ++b) EXPECT_NEAR(ones[b], Words / 2, 250) << "bit " << b;
}

}  // namespace
}  // namespace quorvel
