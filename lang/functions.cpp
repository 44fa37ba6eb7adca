// The user-function list.
#include "lang/functions.h"

#include "lang/appstate.h"
#include "lang/program.h"

namespace quorvel {

FunctionStore::FunctionStore() = default;
FunctionStore::~FunctionStore() = default;
FunctionStore::FunctionStore(FunctionStore&&) noexcept = default;
FunctionStore& FunctionStore::operator=(FunctionStore&&) noexcept = default;

const Statement* FunctionStore::find(std::u16string_view name) const {
    for (const auto& definition : definitions_)
        if (definition->name.asText() == name) return definition.get();
    return nullptr;
}

Statement* FunctionStore::find(std::u16string_view name, bool create) {
    for (const auto& definition : definitions_)
        if (definition->name.asText() == name) return definition.get();
    if (!create) return nullptr;
    auto made = std::make_unique<Statement>();
    made->kind = StatementKind::Function;
    made->name = Item::variableRef(std::u16string(name));
    definitions_.push_back(std::move(made));
    return definitions_.back().get();
}

const Statement* FindFunction(const AppState& app, std::u16string_view name) { return app.functions.find(name); }

Statement& DefineFunction(AppState& app, std::u16string_view name) { return *app.functions.find(name, true); }

}  // namespace quorvel
