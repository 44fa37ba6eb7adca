// Word-size reduction of integer results: with a word size set, integer
// results of the arithmetic handlers are read back as unsigned words.
#pragma once

#include <cstdint>

#include "numeric/bigint.h"

namespace quorvel {

struct AppState;
struct Item;

// The value of `n` as an unsigned word of `bits` bits: the low bits of |n|,
// a negative n in two's complement, read back as a non-negative integer
// (-1 with 8 bits gives 255). A `bits` of 0 or less returns n unchanged.
// Never reports.
BigInt ReduceToWordSize(const BigInt& n, int32_t bits);

// Applies ReduceToWordSize with the state's WSize to an Integer item in
// place; other types, and a WSize of 0, leave the item alone. Never reports.
void ReduceIntegerResult(const AppState& app, Item& item);

}  // namespace quorvel
