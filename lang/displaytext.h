// The text a value shows as: in the stack list, on the clipboard, in the
// console and in the memory list.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quorvel {

struct AppState;
struct Item;

// The display text of `item` with the number formatted in the current base
// and format (`digits` significant digits; `flags` added to DspFlags, 0x80 for
// plain text) followed by its unit text. None for types without a display
// text (reserved numeric, Block, Character and above). Never changes the item.
std::optional<std::u16string> DisplayText(const AppState& app, const Item& item, int32_t digits, int32_t flags);

// The stack-list lines, deepest item first and x last: "x :\t...", "y :\t...",
// "z :\t...", "4 :\t..." onwards, texts over 450 characters continued on lines
// "\t..."; padded with empty lines at the top to four lines when `pad`.
std::vector<std::u16string> StackListLines(const AppState& app, int32_t flags, bool pad);

}  // namespace quorvel
