// The keyword table: every built-in word and operator of the command language,
// one row each, and the two lookups the scanner uses.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace quorvel {

struct AppState;
class ItemList;

// A keyword's operation: works on `list` (usually the main stack) and leaves
// its result there.
using Handler = void (*)(AppState& app, ItemList& list);

struct KeywordEntry {
    const char16_t* name;
    Handler handler;
    uint32_t tokenId;
    uint32_t flags;   // low byte: precedence class; second byte: operand count

    constexpr int precedence() const { return static_cast<int>(flags & 0xFF); }
    constexpr int operandCount() const { return static_cast<int>((flags >> 8) & 0xFF); }
};

// Token ids compared outside the handlers.
inline constexpr uint32_t TokenAdd = 4;        // `+`, `add`
inline constexpr uint32_t TokenComment = 24;   // `//`
inline constexpr uint32_t TokenSub = 106;      // `-`, `sub`

// Exact, case-sensitive lookup of a whole word in its first-letter bucket;
// nullptr when the word is not a keyword (then it is a variable name).
const KeywordEntry* FindWord(std::u16string_view name);
// First operator row, in stored order, whose symbol is a prefix of `text`
// (case ignored); nullptr when none matches.
const KeywordEntry* FindOperator(std::u16string_view text);
// Number of rows in the table (terminators not counted).
inline constexpr int KeywordCount = 127;

// Every row in stored order, bucket by bucket (the operator bucket in its
// longest-match order). Never reports.
std::span<const KeywordEntry> KeywordRows();

// The row of a primary name (first match in any bucket); for code that needs a
// particular row, such as `neg` or `applyunits`. A name that is no row is a
// programming error and aborts.
const KeywordEntry& KeywordRow(std::u16string_view name);

}  // namespace quorvel
