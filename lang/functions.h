// The user-defined functions: compiled definitions kept by name for the life
// of the calculator. Light on purpose, so AppState can hold the list.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace quorvel {

struct AppState;
struct Statement;

class FunctionStore {
public:
    FunctionStore();
    ~FunctionStore();
    FunctionStore(FunctionStore&&) noexcept;
    FunctionStore& operator=(FunctionStore&&) noexcept;

    // The definition named `name` (exact, case-sensitive). Without it: with
    // `create`, a new function-body statement holding the name is appended;
    // otherwise nullptr. Never reports.
    Statement* find(std::u16string_view name, bool create);
    const Statement* find(std::u16string_view name) const;
    // Number of defined functions.
    std::size_t count() const { return definitions_.size(); }

    // User-function calls now running, nested; guards against runaway recursion.
    int32_t activeCalls = 0;

private:
    std::vector<std::unique_ptr<Statement>> definitions_;   // in order of definition
};

// FindFunction without create: the definition named `name`, or nullptr.
const Statement* FindFunction(const AppState& app, std::u16string_view name);
// FindFunction with create: the definition named `name`, made (empty) when
// missing. A new definition of an existing name reuses its record.
Statement& DefineFunction(AppState& app, std::u16string_view name);

}  // namespace quorvel
