// The command runner, the direct algebraic evaluator, the node runner and the
// statement runner.
#include "lang/evaluator.h"

#include <vector>

#include "lang/appstate.h"
#include "lang/exprcompiler.h"
#include "lang/functions.h"
#include "lang/handler.h"
#include "lang/host.h"
#include "lang/keywords.h"
#include "lang/program.h"
#include "lang/report.h"
#include "lang/scanner.h"

namespace quorvel {

namespace {

// Nested user-function calls allowed before a runaway recursion is stopped;
// well inside what the thread's stack holds.
constexpr int32_t MaxCallDepth = 1000;

// Class of the value words, which the direct evaluator runs at once.
constexpr int ValueWordClass = 11;

void runApplyUnits(AppState& app, ItemList& stack) { KeywordRow(u"applyunits").handler(app, stack); }

void runPending(AppState& app, const PendingOperator& op, ItemList& stack) {
    if (op.row != nullptr) {
        op.row->handler(app, stack);
    } else if (op.function != nullptr) {
        RunStatement(app, *op.function, stack);
    }
}

// Runs every pending operator of class `incoming` or higher, most recent first.
void runPendingDownTo(AppState& app, std::vector<PendingOperator>& pending, uint8_t incoming, ItemList& stack) {
    while (!pending.empty() && pending.back().precedence >= incoming) {
        const PendingOperator top = pending.back();
        pending.pop_back();
        runPending(app, top, stack);
    }
}

// Runs a condition and takes its truth; an absent condition is false and
// takes nothing off the stack.
bool conditionHolds(AppState& app, const Statement& statement, ItemList& stack) {
    if (!statement.expression) return false;
    RunNode(app, *statement.expression, stack);
    return PopTruth(app, stack);
}

// Runs an optional part; 1 when it executed a `return`.
int runPart(AppState& app, const std::unique_ptr<Statement>& part, ItemList& stack) {
    return part ? RunStatement(app, *part, stack) : 0;
}

int runFunctionBody(AppState& app, const Statement& function, ItemList& stack) {
    if (UserBreak(app)) return 0;
    if (app.functions.activeCalls >= MaxCallDepth) {
        ReportError(app, u"Recursion Too Deep", Error);
        return 0;
    }
    ++app.functions.activeCalls;
    app.variables.PushFrame();
    runPart(app, function.body, stack);   // a `return` ends the function here
    app.variables.PopFrame();
    --app.functions.activeCalls;
    return 0;
}

}  // namespace

bool UserBreak(AppState& app) {
    if (app.abortFlag) return true;
    if (app.host != nullptr && app.host->abortRequested()) {
        app.abortFlag = true;
        ReportError(app, u"User Break", Error);
        return true;
    }
    return false;
}

void RunCommandLine(AppState& app, std::u16string_view text, int entryMode) {
    app.abortFlag = false;
    ClearMessage(app);
    ItemList tokens;
    TokenizeLine(app, text, tokens, entryMode != 0);
    if (entryMode != 0) {
        EvaluateTokens(app, tokens, app.stack);
        return;   // tokens left over are released with the list
    }

    // RPN entry: every token in turn, with no stop after an error.
    app.keptSeverity = Clear;
    while (auto token = tokens.pop()) {
        switch (token->type) {
            case ItemType::Integer:
            case ItemType::ReservedNumeric:
            case ItemType::Real:
            case ItemType::Complex:
                app.stack.push(std::move(*token));
                break;
            case ItemType::String:
                app.stack.push(std::move(*token));
                runApplyUnits(app, app.stack);
                break;
            case ItemType::VariableRef:
                if (const Statement* function = FindFunction(app, token->asText())) {
                    // One frame around the call, besides the body's own.
                    app.variables.PushFrame();
                    RunStatement(app, *function, app.stack);
                    app.variables.PopFrame();
                } else {
                    app.stack.push(std::move(*token));
                }
                break;
            case ItemType::Keyword:
                token->asKeyword().handler(app, app.stack);
                break;
            case ItemType::Null:
            case ItemType::Block:
            case ItemType::Character:
            case ItemType::FunctionCall:
            case ItemType::Comment:
                break;
        }
    }
}

std::optional<Item> EvaluateText(AppState& app, std::u16string_view text) {
    ItemList tokens;
    TokenizeLine(app, text, tokens, true);
    EvaluateTokens(app, tokens, app.stack);
    return app.stack.pop();
}

void EvaluateTokens(AppState& app, ItemList& tokens, ItemList& stack) {
    app.keptSeverity = Clear;
    std::vector<PendingOperator> pending;
    bool operandExpected = true;

    while (auto token = tokens.pop()) {
        switch (token->type) {
            case ItemType::Integer:
            case ItemType::ReservedNumeric:
            case ItemType::Real:
            case ItemType::Complex:
                stack.push(std::move(*token));
                operandExpected = false;
                break;
            case ItemType::String:
                // Units apply only to a value before the string; where an
                // operand may come the string is just a value.
                stack.push(std::move(*token));
                if (!operandExpected) runApplyUnits(app, stack);
                operandExpected = false;
                break;
            case ItemType::VariableRef:
                if (const Statement* function = FindFunction(app, token->asText())) {
                    runPendingDownTo(app, pending, FunctionClass, stack);
                    pending.push_back(PendingOperator{nullptr, function, FunctionClass});
                    operandExpected = true;
                } else {
                    stack.push(std::move(*token));
                    operandExpected = false;
                }
                break;
            case ItemType::Character: {
                const char16_t c = token->asCharacter();
                if (c == u'(') {
                    EvaluateTokens(app, tokens, stack);
                    operandExpected = false;
                } else if (c == u')') {
                    runPendingDownTo(app, pending, 0, stack);
                    return;
                } else if (c == u',') {
                    operandExpected = true;   // arguments simply pile up on the stack
                }
                break;
            }
            case ItemType::Keyword: {
                const KeywordEntry* row = &token->asKeyword();
                if (row->precedence() == ValueWordClass) {
                    row->handler(app, stack);
                    operandExpected = false;
                    break;
                }
                if (operandExpected && row->tokenId == TokenAdd) break;   // unary plus
                if (operandExpected && row->tokenId == TokenSub) row = &KeywordRow(u"neg");
                const auto precedence = static_cast<uint8_t>(row->precedence());
                runPendingDownTo(app, pending, precedence, stack);
                pending.push_back(PendingOperator{row, nullptr, precedence});
                operandExpected = true;
                break;
            }
            case ItemType::Null:
            case ItemType::Block:
            case ItemType::FunctionCall:
            case ItemType::Comment:
                break;
        }
    }
    runPendingDownTo(app, pending, 0, stack);
}

void RunNode(AppState& app, const ExprNode& node, ItemList& stack) {
    for (const ExprNode& child : node.children) RunNode(app, child, stack);
    const Item& item = node.item;
    switch (item.type) {
        case ItemType::Integer:
        case ItemType::ReservedNumeric:
        case ItemType::Real:
        case ItemType::Complex:
        case ItemType::String:
        case ItemType::VariableRef:
            stack.push(item.duplicate());
            break;
        case ItemType::Keyword:
            item.asKeyword().handler(app, stack);
            break;
        case ItemType::FunctionCall:
            if (const Statement* function = FindFunction(app, item.asText())) RunStatement(app, *function, stack);
            break;
        case ItemType::Null:
        case ItemType::Block:
        case ItemType::Character:
        case ItemType::Comment:
            break;   // a group's '(' and the rest do nothing
    }
}

int RunStatement(AppState& app, const Statement& statement, ItemList& stack) {
    switch (statement.kind) {
        case StatementKind::Block:
            for (const Statement& child : statement.children) {
                if (RunStatement(app, child, stack) == 1) return 1;
                if (app.keptSeverity > Warning) return 0;
            }
            return 0;
        case StatementKind::Expression:
            if (statement.expression) RunNode(app, *statement.expression, stack);
            return 0;
        case StatementKind::Return:
            return 1;
        case StatementKind::Function:
            return runFunctionBody(app, statement, stack);
        case StatementKind::If:
            if (conditionHolds(app, statement, stack)) return runPart(app, statement.body, stack);
            return runPart(app, statement.elsePart, stack);
        case StatementKind::While:
            while (conditionHolds(app, statement, stack)) {
                if (UserBreak(app)) return 0;
                if (runPart(app, statement.body, stack) == 1) return 1;
                if (app.keptSeverity > Warning) return 0;
            }
            return 0;
        case StatementKind::Do:
            do {
                if (UserBreak(app)) return 0;
                if (runPart(app, statement.body, stack) == 1) return 1;
            } while (conditionHolds(app, statement, stack) && app.keptSeverity < Error);
            return 0;
    }
    return 0;   // any other kind does nothing
}

bool PopTruth(AppState& app, ItemList& stack) {
    std::optional<Item> popped = stack.pop();
    if (!popped) return false;
    const Item& value = Resolve(app, *popped);
    switch (value.type) {
        case ItemType::Integer:
            return value.asInteger().sign != 0;
        case ItemType::ReservedNumeric:
            if (const auto* limbs = std::get_if<BigInt>(&value.value)) {
                for (uint16_t limb : limbs->limbs)
                    if (limb != 0) return true;
            }
            return false;
        case ItemType::Real:
            return !value.asReal().isZero();
        default:
            return false;   // also a Complex number
    }
}

}  // namespace quorvel
