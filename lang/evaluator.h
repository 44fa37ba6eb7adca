// Running the command language: a typed line in RPN or algebraic entry, a
// text evaluated to one value, compiled expressions and compiled statements.
// Everything reports through ReportError only.
#pragma once

#include <optional>
#include <string_view>

#include "lang/item.h"

namespace quorvel {

struct AppState;
struct ExprNode;
struct Statement;

// Runs one typed line on the main stack: clears the message strip and the
// user-break flag, then entry mode 0 takes the tokens in RPN order, any
// other mode evaluates them algebraically. A typed line never stops early.
void RunCommandLine(AppState& app, std::u16string_view text, int entryMode);

// Evaluates `text` algebraically on the main stack and takes the top item off
// as the result (none when the stack is empty); the caller owns it. Leaves the
// user-break flag alone: a caller starting a fresh command clears it first.
std::optional<Item> EvaluateText(AppState& app, std::u16string_view text);

// The direct algebraic evaluator: consumes `tokens` up to their end or the
// ')' that closes this level, running operators by precedence on `stack`.
// Resets the kept severity first; never stops on an error.
void EvaluateTokens(AppState& app, ItemList& tokens, ItemList& stack);

// Runs a compiled expression node on `stack`: its children in order, then its
// own Item (operands are copied and pushed, operators run).
void RunNode(AppState& app, const ExprNode& node, ItemList& stack);

// Runs a compiled statement on `stack`; 1 when a `return` was executed, else
// 0. Blocks and loops stop once the kept severity exceeds 3; loops and
// user-function calls stop on a user break ("User Break") and at a runaway
// recursion 1000 calls deep ("Recursion Too Deep").
int RunStatement(AppState& app, const Statement& statement, ItemList& stack);

// Pops the top item and tells whether it is true: a non-zero Integer or Real
// (a Variable reference by its value). Everything else, also an empty stack
// or a Complex number, is false. Reports only "Undefined Variable Referenced".
bool PopTruth(AppState& app, ItemList& stack);

// True when the running program must stop for a user break: already asked,
// or the host asks now (then "User Break" is reported, severity 4).
bool UserBreak(AppState& app);

}  // namespace quorvel
