// The numbered memories 1..999 kept in AppState, in order of creation.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "lang/appstate.h"
#include "lang/host.h"

namespace quorvel {

inline constexpr int32_t FirstMemory = 1;
inline constexpr int32_t LastMemory = 999;

// The memory numbered `number`, searched from the oldest; when absent and
// `create` is set a new one with a Null value is appended. Never reports.
Memory* FindMemory(AppState& app, int32_t number, bool create);

// The lines of the memory list: one per memory with a value, oldest first,
// "%03ld:\t%s" with the value's display text at the current Digits, cut to 128
// characters.
std::vector<MemoryChoice> MemoryListLines(const AppState& app);

}  // namespace quorvel
