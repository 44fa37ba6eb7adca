// Assignments and the variable stack commands: `=`, `+=`, `-=`, `*=`, `/=`,
// `push` and `pop`. A target must be a Variable reference, else "Invalid
// Variable Name" and the operands go back.
#include "lang/handlers.h"
#include "lang/ops_values.h"
#include "lang/variables.h"

namespace quorvel {

namespace {

// Stores a deep copy of `value` in the variable `name`, found or made in the
// newest frame. The copy is made first, so "a = a" keeps a's value.
Outcome storeInVariable(AppState& app, const std::u16string& name, const Item& value) {
    Item copy = value.duplicate();
    Variable* variable = app.variables.FindVariable(name, true);
    if (variable == nullptr) return Refusal{InvalidVariableName};   // no frame at all
    *variable->value = std::move(copy);
    return NoResult{};
}

// "a op= v": the operation is applied to the variable's current value (found
// in any frame, created with "Undefined Variable Referenced" when unknown) and
// the result is stored back into that same variable; nothing is pushed. A
// refusal of the operation itself ("Invalid Data Type", "Incompatible Units")
// leaves the variable and the stack as they were.
template <Outcome (*F)(const AppState&, const Item&, const Item&)>
void compoundAssign(AppState& app, ItemList& list) {
    RunHandlerUnresolved<2>(app, list, [](AppState& a, Item& x, Item& target) -> Outcome {
        const Item& value = Resolve(a, x);
        if (target.type != ItemType::VariableRef) return Refusal{InvalidVariableName};
        Item& current = Resolve(a, target);
        Outcome result = F(a, current, value);
        if (auto* item = std::get_if<Item>(&result)) {
            current = std::move(*item);
            return NoResult{};
        }
        return result;
    });
}

}  // namespace

// `=`: the value is on top, the target second ("a 5 =" and algebraic "a = 5").
void opAssign(AppState& app, ItemList& list) {
    RunHandlerUnresolved<2>(app, list, [](AppState& a, Item& x, Item& target) -> Outcome {
        const Item& value = Resolve(a, x);
        if (target.type != ItemType::VariableRef) return Refusal{InvalidVariableName};
        return storeInVariable(a, target.asText(), value);
    });
}

void opAddAssign(AppState& app, ItemList& list) { compoundAssign<AddValues>(app, list); }
void opSubAssign(AppState& app, ItemList& list) { compoundAssign<SubtractValues>(app, list); }
void opMulAssign(AppState& app, ItemList& list) { compoundAssign<MultiplyValues>(app, list); }
void opDivAssign(AppState& app, ItemList& list) { compoundAssign<DivideValues>(app, list); }

// `push`: x is replaced by a copy of its value (a reference by a copy of its
// variable's value).
void opPush(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState&, const Item& x) -> Outcome { return x.duplicate(); });
}

// `pop`: the target is on top and the value second ("5 a pop" stores 5 in a),
// the other way round from `=`.
void opPop(AppState& app, ItemList& list) {
    RunHandlerUnresolved<2>(app, list, [](AppState& a, Item& target, Item& y) -> Outcome {
        if (target.type != ItemType::VariableRef) return Refusal{InvalidVariableName};
        return storeInVariable(a, target.asText(), Resolve(a, y));
    });
}

}  // namespace quorvel
