// The numbered memories and their commands `sto`, `rcl` and `clrmem`.
#include "lang/memories.h"

#include <algorithm>

#include "lang/displaytext.h"
#include "lang/handlers.h"
#include "lang/ops_values.h"
#include "lang/variables.h"

namespace quorvel {

namespace {

constexpr std::u16string_view InvalidMemoryId = u"Invalid Memory Id";
constexpr std::u16string_view MemoryUndefined = u"Memory Undefined";
constexpr std::u16string_view MemoryOutOfRange = u"Memory Number Out of Range";
constexpr size_t MemoryLineLimit = 128;

bool inRange(int32_t number) { return number >= FirstMemory && number <= LastMemory; }

// The id as a signed 32-bit value; 0 when it is too large to read.
int32_t memoryNumber(const Item& id) {
    int32_t number = 0;
    BigIntToInt32(id.asInteger(), number);
    return number;
}

// "%03ld" of a memory number (1..999).
std::u16string threeDigits(int32_t number) {
    std::u16string text;
    for (int32_t scale = 100; scale > 0; scale /= 10) text.push_back(static_cast<char16_t>(u'0' + number / scale % 10));
    return text;
}

}  // namespace

Memory* FindMemory(AppState& app, int32_t number, bool create) {
    auto found = std::find_if(app.memories.begin(), app.memories.end(),
                              [number](const Memory& m) { return m.number == number; });
    if (found != app.memories.end()) return &*found;
    if (!create) return nullptr;
    Memory& made = app.memories.emplace_back();
    made.number = static_cast<int16_t>(number);
    return &made;
}

std::vector<MemoryChoice> MemoryListLines(const AppState& app) {
    std::vector<MemoryChoice> lines;
    for (const Memory& memory : app.memories) {
        if (memory.value->type == ItemType::Null) continue;
        std::u16string line = threeDigits(memory.number) + u":\t" +
                              DisplayText(app, *memory.value, app.digits, 0).value_or(u"");
        if (line.size() > MemoryLineLimit) line.resize(MemoryLineLimit);
        lines.push_back({memory.number, std::move(line)});
    }
    return lines;
}

// `sto`: y (second) is the value, x (top) the memory number or a variable.
// A numbered memory refuses a value with units (the check is on the value,
// not the id); a variable takes anything.
void opSto(AppState& app, ItemList& list) {
    RunHandlerUnresolved<2>(app, list, [](AppState& a, Item& x, Item& y) -> Outcome {
        Item copy = Resolve(a, y).duplicate();
        Item* target = nullptr;
        if (x.type == ItemType::VariableRef) {
            Variable* variable = a.variables.FindVariable(x.asText(), true);
            if (variable == nullptr) return Refusal{InvalidVariableName};   // no frame at all
            target = variable->value.get();
        } else {
            if (x.type != ItemType::Integer) return Refusal{InvalidMemoryId};
            if (hasUnits(copy.units)) return Refusal{InvalidUnits};
            const int32_t number = memoryNumber(x);
            if (!inRange(number)) {
                // The first error stays showing; "Invalid Memory Id" is only kept.
                ReportError(a, MemoryOutOfRange, Error);
                return Refusal{InvalidMemoryId};
            }
            target = FindMemory(a, number, true)->value.get();
        }
        *target = std::move(copy);
        ReportError(a, u"Copied to Memory", Confirmation);
        return NoResult{};
    });
}

// `rcl`: pushes a copy of a memory's value, or of a variable's. The number 0
// (or one too large to read) offers the memory list; cancelling it consumes
// the id silently. Recalling a number never stored leaves an empty memory.
void opRcl(AppState& app, ItemList& list) {
    RunHandlerUnresolved<1>(app, list, [](AppState& a, Item& x) -> Outcome {
        if (x.type == ItemType::VariableRef) {
            const Variable* variable = a.variables.FindExisting(x.asText());
            if (variable == nullptr || variable->value->type == ItemType::Null) return Refusal{MemoryUndefined};
            return variable->value->duplicate();
        }
        if (x.type != ItemType::Integer) return Refusal{InvalidMemoryId};
        if (hasUnits(x.units)) return Refusal{InvalidUnits};
        int32_t number = memoryNumber(x);
        if (number == 0) {
            number = a.host != nullptr ? a.host->pickMemory(MemoryListLines(a)) : 0;
            if (number == 0) return NoResult{};
        }
        if (!inRange(number)) {
            ReportError(a, MemoryOutOfRange, Error);
            return Refusal{MemoryUndefined};
        }
        const Memory* memory = FindMemory(a, number, true);
        if (memory->value->type == ItemType::Null) return Refusal{MemoryUndefined};
        return memory->value->duplicate();
    });
}

// `clrmem`: after a Yes to "Clear All Memories" every memory goes; variables
// stay. Without a host there is nobody to answer, which counts as No.
void opClrmem(AppState& app, ItemList&) {
    if (app.host != nullptr && app.host->confirm(u"Confirm", u"Clear All Memories")) app.memories.clear();
}

}  // namespace quorvel
