// The shape every operation handler follows: pop the operands, resolve
// variable references, check, and either push one result or restore the list
// exactly as it was and report why.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <tuple>
#include <utility>
#include <variant>

#include "lang/appstate.h"
#include "lang/item.h"
#include "lang/report.h"

namespace quorvel {

// The handler refuses its operands: `message` is reported at severity 4 and
// the operands go back on the list in their old order.
struct Refusal {
    std::u16string_view message;
};
// The handler succeeded and pushes nothing (assignments, `sto`).
struct NoResult {};

using Outcome = std::variant<Item, Refusal, NoResult>;

inline constexpr std::u16string_view MissingOperand = u"Missing Operand";
inline constexpr std::u16string_view InvalidDataType = u"Invalid Data Type";
inline constexpr std::u16string_view InvalidWordSize = u"Invalid Word Size";

// Resolves a Variable reference to the variable's own value Item (not a copy);
// an unknown name reports "Undefined Variable Referenced" and is created with
// a Null value. Any other Item is returned as it is.
Item& Resolve(AppState& app, Item& item);

// Pops N Items from `list` into `popped` (popped[0] = the top). With fewer
// than N entries the ones taken go back, `message` is reported at `severity`
// and false is returned: the list is as it was. Resolves nothing.
template <std::size_t N>
bool PopOperands(AppState& app, ItemList& list, std::array<Item, N>& popped,
                 std::u16string_view message = MissingOperand, int severity = Error) {
    for (std::size_t i = 0; i < N; ++i) {
        auto item = list.pop();
        if (!item) {
            while (i > 0) list.push(std::move(popped[--i]));
            ReportError(app, message, severity);
            return false;
        }
        popped[i] = std::move(*item);
    }
    return true;
}

// Pushes operands taken by PopOperands back in reverse order of popping, so
// the list is exactly as it was before.
template <std::size_t N>
void PushBack(ItemList& list, std::array<Item, N>& popped) {
    for (std::size_t i = N; i > 0; --i) list.push(std::move(popped[i - 1]));
}

// The last step of every handler: a Refusal is reported at severity 4 and the
// popped operands go back in their old order; an Item result is pushed (the
// operands are destroyed); NoResult pushes nothing.
template <std::size_t N>
void FinishHandler(AppState& app, ItemList& list, std::array<Item, N>& popped, Outcome outcome) {
    if (auto* refusal = std::get_if<Refusal>(&outcome)) {
        ReportError(app, refusal->message, Error);
        PushBack(list, popped);
        return;
    }
    if (auto* result = std::get_if<Item>(&outcome)) list.push(std::move(*result));
}

// Pops N operands from `list` (operands[0] = the top, x), resolves each and
// calls compute(app, operands) with const Item& references in stack order
// (x first). Missing operands report "Missing Operand" and leave the list as
// it was.
template <std::size_t N, class Compute>
void RunHandler(AppState& app, ItemList& list, Compute&& compute) {
    static_assert(N >= 1 && N <= 3);
    std::array<Item, N> popped;
    if (!PopOperands(app, list, popped)) return;
    Outcome outcome = [&]() -> Outcome {
        if constexpr (N == 1) {
            return compute(app, std::as_const(Resolve(app, popped[0])));
        } else if constexpr (N == 2) {
            Item& x = Resolve(app, popped[0]);
            Item& y = Resolve(app, popped[1]);
            return compute(app, std::as_const(x), std::as_const(y));
        } else {
            Item& x = Resolve(app, popped[0]);
            Item& y = Resolve(app, popped[1]);
            Item& z = Resolve(app, popped[2]);
            return compute(app, std::as_const(x), std::as_const(y), std::as_const(z));
        }
    }();
    FinishHandler(app, list, popped, std::move(outcome));
}

// Pops N operands from `list` (the top first) and calls compute(app, x[, y[, z]])
// with the popped Items as they are (Item&, Variable references unresolved),
// for handlers that treat a reference as a name (assignments, `pop`, `sto`,
// `rcl`, `print`, `input`); compute resolves what it reads with Resolve().
// Missing operands, refusals and results are handled as by RunHandler.
template <std::size_t N, class Compute>
void RunHandlerUnresolved(AppState& app, ItemList& list, Compute&& compute) {
    static_assert(N >= 1 && N <= 3);
    std::array<Item, N> popped;
    if (!PopOperands(app, list, popped)) return;
    Outcome outcome = std::apply([&](auto&... operands) -> Outcome { return compute(app, operands...); }, popped);
    FinishHandler(app, list, popped, std::move(outcome));
}

// One operand x: compute(app, x) -> Outcome.
template <class Compute>
void UnaryHandler(AppState& app, ItemList& list, Compute&& compute) {
    RunHandler<1>(app, list, std::forward<Compute>(compute));
}
// Two operands x (top) and y (second): compute(app, x, y) -> Outcome.
template <class Compute>
void BinaryHandler(AppState& app, ItemList& list, Compute&& compute) {
    RunHandler<2>(app, list, std::forward<Compute>(compute));
}

}  // namespace quorvel
