// The random generator, its 24-bit draw, uniform and normal reals and random
// binary words.
#include "numeric/random.h"

#include <algorithm>
#include <chrono>
#include <vector>

namespace quorvel {

uint64_t CalendarSeconds() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return static_cast<uint64_t>(std::chrono::duration_cast<std::chrono::seconds>(now).count());
}

uint32_t RandomState::step() {
    if (value_ == 0) value_ = clock_();
    value_ = value_ * Multiplier + Increment;   // wraps modulo 2^64
    return static_cast<uint32_t>(value_ >> 40) & 0xFFFFFFu;
}

uint32_t RandomBits24(RandomState& state) { return state.step(); }

uint8_t PairFromDraw(uint32_t r) { return static_cast<uint8_t>((r * 200u + 100u) >> 25); }

BigNum RandomUniform(RandomState& state, int32_t bytes) {
    bytes = std::max(bytes, 1);
    BigNum x;
    x.digits.assign(static_cast<size_t>(bytes), 0);
    x.digits[0] = 50;
    for (int32_t i = 1; i < bytes; ++i) x.digits[static_cast<size_t>(i)] = PairFromDraw(state.step());
    // A one-byte mantissa is held in two bytes; a zero pair below keeps its value.
    if (bytes < 2) x.digits.insert(x.digits.begin(), uint8_t{0});
    x.exponent = -1;   // reads as 0.d1d2d3...
    x.sign = 1;
    normalize(x, 0);
    return x;
}

BigNum RandomGauss(RandomState& state, int32_t length) {
    // The sum of the 48 draws is exact at `length` bytes (below 48, with the
    // draws' 2 * (length - 1) fraction digits), and so is the sum less 24.
    // Both are therefore formed exactly in base-100 pairs rather than by 48
    // BigNum additions, with the same draws in the same order; a differential
    // test holds the two ways equal. Only the halving rounds.
    constexpr uint32_t Draws = 48;
    length = std::max(length, 2);
    const size_t fractionPairs = static_cast<size_t>(length - 1);   // pairs of one draw
    std::vector<uint32_t> pairs(fractionPairs + 1, 0);              // the sum; the last is the whole part
    for (uint32_t draw = 0; draw < Draws; ++draw) {
        pairs[0] += 50;
        for (size_t i = 1; i < fractionPairs; ++i) pairs[i] += PairFromDraw(state.step());
    }
    for (size_t i = 0; i < fractionPairs; ++i) {
        pairs[i + 1] += pairs[i] / 100;
        pairs[i] %= 100;
    }
    // Less 24: the magnitude and sign of the difference.
    const bool negative = pairs.back() < Draws / 2;
    if (!negative) {
        pairs.back() -= Draws / 2;
    } else {
        uint32_t borrow = 0;
        for (size_t i = 0; i < fractionPairs; ++i) {
            const uint32_t taken = pairs[i] + borrow;
            borrow = taken > 0 ? 1 : 0;
            pairs[i] = taken > 0 ? 100 - taken : 0;
        }
        pairs.back() = Draws / 2 - pairs.back() - borrow;
    }
    BigNum centred;
    centred.digits.assign(pairs.begin(), pairs.end());
    centred.exponent = 1;   // the top pair is the whole part, two digits
    centred.sign = negative ? -1 : 1;
    normalize(centred, 0);
    return divide(centred, fromInt(length, 2));
}

BinWord RandomWord(RandomState& state, int32_t bits) {
    BinWord word = makeWord(bits);
    for (int64_t position = 0; position < bits; position += 24) {
        // Draw number position / 24 covers bits position .. position + 23.
        uint64_t chunk = static_cast<uint64_t>(state.step()) << (position % 16);
        for (size_t i = static_cast<size_t>(position / 16); chunk != 0 && i < word.limbs.size(); ++i) {
            word.limbs[i] = static_cast<uint16_t>(word.limbs[i] | (chunk & 0xFFFFu));
            chunk >>= 16;
        }
    }
    word.limbs.back() &= TopLimbMask(bits);
    return word;
}

}  // namespace quorvel
