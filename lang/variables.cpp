// Variable lookup over the frames, newest first.
#include "lang/variables.h"

namespace quorvel {

namespace {

Variable* findInFrame(VarFrame& frame, std::u16string_view name) {
    for (Variable& variable : frame.variables)
        if (variable.name == name) return &variable;
    return nullptr;
}

}  // namespace

Variable* VariableStore::FindVariable(std::u16string_view name, bool create) {
    for (auto frame = frames_.rbegin(); frame != frames_.rend(); ++frame) {
        if (Variable* found = findInFrame(*frame, name)) return found;
        if (create) {
            // Creation never looks at older frames: the name becomes a local
            // of the newest frame even when a global of that name exists.
            Variable& made = frame->variables.emplace_back();
            made.name = std::u16string(name);
            return &made;
        }
    }
    return nullptr;
}

}  // namespace quorvel
