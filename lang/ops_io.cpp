// Console commands: `print`, `input` and `exit`.
#include "lang/displaytext.h"
#include "lang/evaluator.h"
#include "lang/handlers.h"
#include "lang/host.h"
#include "lang/ops_values.h"
#include "lang/variables.h"

namespace quorvel {

namespace {

constexpr int32_t PlainText = 0x80;
constexpr size_t InputLineLimit = 512;

void openConsole(AppState& app) {
    if (app.consoleOpen) return;
    if (app.host != nullptr) app.host->openConsole();
    app.consoleOpen = true;
}

}  // namespace

// `print`: writes x's display text (plain text, current Digits) as a console
// line; a Variable reference is written as "name = value". x is consumed.
void opPrint(AppState& app, ItemList& list) {
    RunHandlerUnresolved<1>(app, list, [](AppState& a, Item& x) -> Outcome {
        openConsole(a);
        std::u16string line;
        if (x.type == ItemType::VariableRef) line = x.asText() + u" = ";
        line += DisplayText(a, Resolve(a, x), a.digits, PlainText).value_or(u"");
        if (a.host != nullptr) a.host->consoleWrite(line);
        return NoResult{};
    });
}

// `input`: asks "name = ? " on the console, evaluates the line (at most 512
// characters) and stores the value in the variable. Anything but a Variable
// reference is refused with "Invalid Operand" and, unlike other refusals,
// consumed. A line that yields no value (or the end of input) stores nothing.
void opInput(AppState& app, ItemList& list) {
    RunHandlerUnresolved<1>(app, list, [](AppState& a, Item& x) -> Outcome {
        openConsole(a);
        if (x.type != ItemType::VariableRef) {
            ReportError(a, u"Invalid Operand", Error);
            return NoResult{};
        }
        const std::u16string name = x.asText();
        std::u16string line;
        if (a.host != nullptr) line = a.host->consoleRead(name + u" = ? ").value_or(u"");
        if (line.size() > InputLineLimit) line.resize(InputLineLimit);
        std::optional<Item> value = EvaluateText(a, line);
        if (!value) return NoResult{};
        if (Variable* variable = a.variables.FindVariable(name, true)) *variable->value = std::move(*value);
        return NoResult{};
    });
}

// `exit`: ends the console session when the console is open, else asks the
// program to end.
void opExit(AppState& app, ItemList&) {
    if (app.consoleOpen) {
        app.consoleOpen = false;
        if (app.host != nullptr) app.host->closeConsole();
    } else {
        app.exitRequested = true;
    }
}

}  // namespace quorvel
