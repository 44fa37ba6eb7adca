// The binary record of one Item, shared by Stack.bin and Memory.bin, and the
// two files made of such records. All integers are little-endian.
//
// Reading never trusts a record further than the bytes that are really there:
// a record that is cut short or that no saved value could have (an unknown
// type, a negative count, a mantissa longer than any precision, a digit pair
// above 99) is no Item, and the file is read no further.
#pragma once

#include <cstdint>
#include <istream>
#include <optional>
#include <ostream>
#include <vector>

#include "lang/appstate.h"
#include "lang/item.h"

namespace quorvel {

// Longest real mantissa a record may hold, in bytes. Precision stops at 1000
// digits (518 working bytes plus a few guard and conversion bytes); this
// leaves generous room and bounds what a damaged length can ask for.
inline constexpr int32_t MaxRecordMantissaBytes = 1024;

// Writes `item` as one record: type, the eight unit exponents, then the
// payload of its type (nothing for types without one).
void WriteItem(std::ostream& out, const Item& item);
// Reads one record; none at the end of the stream or at a record that is cut
// short or impossible. Never allocates much more than the bytes it has read.
std::optional<Item> ReadItem(std::istream& in);

// Stack.bin: the items from the bottom of the stack to the top.
void WriteStack(std::ostream& out, const ItemList& stack);
// Pushes every record read on top of `stack`, so the saved order comes back;
// stops at the first record that cannot be read, keeping those before it.
void ReadStack(std::istream& in, ItemList& stack);

// Memory.bin: for each memory from the oldest whose value is not Null, its
// number (2 bytes) and its value's record.
void WriteMemories(std::ostream& out, const std::vector<Memory>& memories);
// Appends a memory for each number and record read, in file order; stops at
// the first number or record that cannot be read.
void ReadMemories(std::istream& in, std::vector<Memory>& memories);

}  // namespace quorvel
