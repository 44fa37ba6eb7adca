// Named variables in frames: the oldest frame holds the globals, each user
// function call adds one for its locals. Names compare exactly, with case.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "lang/item.h"

namespace quorvel {

struct Variable {
    std::u16string name;
    std::unique_ptr<Item> value = std::make_unique<Item>();   // Null until assigned
};

struct VarFrame {
    std::vector<Variable> variables;   // in order of creation
};

class VariableStore {
public:
    // Searches from the newest frame to the oldest. With `create`, a name not
    // in the newest frame is made there (a local) before older frames are
    // looked at; returns nullptr only without `create` when nothing is found
    // (or with no frame at all). The Variable pointer is valid until another
    // variable is made in its frame; its value Item stays put until PopFrame.
    Variable* FindVariable(std::u16string_view name, bool create);
    // Looks a name up from the newest frame to the oldest without creating it.
    const Variable* FindExisting(std::u16string_view name) const {
        for (auto frame = frames_.rbegin(); frame != frames_.rend(); ++frame)
            for (const Variable& variable : frame->variables)
                if (variable.name == name) return &variable;
        return nullptr;
    }
    // Appends a new empty frame (the newest).
    void PushFrame() { frames_.emplace_back(); }
    // Removes and destroys the newest frame, if any.
    void PopFrame() {
        if (!frames_.empty()) frames_.pop_back();
    }
    size_t frameCount() const { return frames_.size(); }

private:
    std::vector<VarFrame> frames_;
};

}  // namespace quorvel
