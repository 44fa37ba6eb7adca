// Random numbers: one linear congruential generator serving `uniform`,
// `gauss` and `brnd`.
//
// The generator state is a RandomState object; the calculator owns exactly
// one (in AppState) for its whole run, and tests make their own. A zero state
// is seeded from the calendar clock on the next draw, so every run starts from
// the clock and draws made within the same second of two runs repeat. Nothing
// in this file reports a message.
#pragma once

#include <cstdint>

#include "numeric/bignum.h"
#include "numeric/binword.h"

namespace quorvel {

// Seconds since 1970 by the calendar clock.
uint64_t CalendarSeconds();

class RandomState {
public:
    using Clock = uint64_t (*)();

    static constexpr uint64_t Multiplier = 0x38F4FD9CACD95503ULL;   // 4104184009798014211
    static constexpr uint64_t Increment = 0x52EE806FF379ULL;        // 91184310514553

    // A zero (unseeded) state that seeds itself from `clock` when needed.
    explicit RandomState(Clock clock = CalendarSeconds) : clock_(clock) {}

    // One generator step: a zero state is first set from the clock; then
    // state = state * Multiplier + Increment (mod 2^64). Returns bits 40..63
    // of the new state, a 24-bit value.
    uint32_t step();

    // The raw 64-bit state (0 = not seeded).
    uint64_t value() const { return value_; }
    // Sets the raw state; 0 makes the next draw seed from the clock again.
    void seed(uint64_t value) { value_ = value; }

private:
    uint64_t value_ = 0;
    Clock clock_;
};

// Advances the generator once and returns its unsigned 24-bit draw.
uint32_t RandomBits24(RandomState& state);

// The digit pair 0..99 made from a 24-bit draw r: (r * 200 + 100) >> 25 in
// unsigned 32 bits, an even mapping (0 gives 0, 2^24 - 1 gives 99).
uint8_t PairFromDraw(uint32_t r);

// A uniform value in the open interval (0, 1) with a mantissa of `bytes`
// bytes (at least 1): the lowest pair is 50, so the value is never 0 and
// stands at the middle of its cell; the bytes above it come from one
// generator step each, lowest first; the result is normalised. It is stored
// in at least 2 bytes (RandomUniform(1) is 0.5 and takes no step).
BigNum RandomUniform(RandomState& state, int32_t bytes);

// A normally distributed value (mean 0, standard deviation 1) at `length`
// bytes by the central-limit method: the sum of 48 RandomUniform draws of
// length - 1 bytes, less 24, halved. Always within -12 .. 12.
BigNum RandomGauss(RandomState& state, int32_t length);

// A word of `bits` bits (bits > 0) filled with random bits: 24-bit draws laid
// side by side from the least significant bit upward, ceil(bits / 24) draws,
// the bits of the last draw beyond the word size dropped.
BinWord RandomWord(RandomState& state, int32_t bits);

}  // namespace quorvel
