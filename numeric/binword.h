// Binary words: the working form of an integer during a bitwise operation.
//
// A BinWord is an unsigned word of `bits` bits (bits > 0) held in 16-bit
// limbs, least significant first. It has bits / 16 limbs, plus one when bits
// is not a multiple of 16. Bits at and above `bits` are always zero: every
// operation that could set them masks the top limb at its end. Words never
// live on the stack; a handler converts integers to words, operates and
// converts back. Nothing in this file reports a message.
#pragma once

#include <cstdint>
#include <vector>

#include "numeric/bigint.h"

namespace quorvel {

struct BinWord {
    std::vector<uint16_t> limbs;   // limbCount() limbs, least significant first
    int32_t bits = 0;              // the word size the word was made for

    int32_t limbCount() const { return static_cast<int32_t>(limbs.size()); }

    friend bool operator==(const BinWord&, const BinWord&) = default;
};

// Number of 16-bit limbs of a word of `bits` bits (bits > 0).
int32_t WordLimbCount(int32_t bits);
// Mask of the top limb: the low bits mod 16 bits, or all ones for a multiple of 16.
uint16_t TopLimbMask(int32_t bits);

// A zero word of `bits` bits (bits > 0).
BinWord makeWord(int32_t bits);
// The integer's low limbs (missing limbs 0), masked; a negative integer is
// taken in two's complement within the word (-1 gives all ones).
BinWord wordFromInteger(const BigInt& n, int32_t bits);
// A new non-negative integer with the word's value (sign 0 for a zero word).
BigInt integerFromWord(const BinWord& word);
// `n` reduced into 0 .. 2^bits - 1 through a word of `bits` bits (bits > 0):
// the word-size reduction of integer results and of based entry.
BigInt ReduceToWordSize(const BigInt& n, int32_t bits);

// Every limb inverted, then masked: bitwise "not" within the word size.
void invertWord(BinWord& word);

// Limb-by-limb and, or, xor of two words of the same size, and the same
// followed by invertWord for nand, nor, xnor. The result has a's size;
// limbs b lacks read as 0.
BinWord andWords(const BinWord& a, const BinWord& b);
BinWord orWords(const BinWord& a, const BinWord& b);
BinWord xorWords(const BinWord& a, const BinWord& b);
BinWord nandWords(const BinWord& a, const BinWord& b);
BinWord norWords(const BinWord& a, const BinWord& b);
BinWord xnorWords(const BinWord& a, const BinWord& b);

// Rotates in place by `count` (positive toward the more significant end).
// The count is reduced modulo the number of LIMBS, not bits (a 32-bit word
// rotated by 3 moves by 1, by 2 not at all); the rotation then runs over the
// full limbCount x 16 bits and the top limb is masked, so bits passing the
// unused top of a word that is not a multiple of 16 bits are lost.
void rotateWord(BinWord& word, int32_t count);
// Shifts in place by `count` (positive toward the more significant end,
// negative a logical shift; zeros enter). Whole limbs move by |count| / 16;
// the remaining |count| mod 16 bits are shifted only when |count| is below
// the number of limbs (a 64-bit word shifted by 4..15 stays as it is). The
// top limb is masked.
void shiftWord(BinWord& word, int32_t count);

}  // namespace quorvel
