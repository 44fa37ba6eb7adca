// The expression compiler: an operator-precedence compiler that turns the
// tokens of one algebraic expression into a tree of ExprNodes, driven by the
// class and operand count of each keyword row.
#pragma once

#include <cstdint>
#include <vector>

#include "lang/item.h"
#include "lang/scanner.h"

namespace quorvel {

struct AppState;
struct KeywordEntry;
struct Statement;

// One node of a compiled expression: its own Item (an operand, a Keyword for
// an operator, a Function call for a user function, or the Character '(' for a
// group) and its operands. Operators hold their operands in source order; a
// group holds its values in reverse source order (last one first).
struct ExprNode {
    Item item;
    std::vector<ExprNode> children;
};

using ExprList = std::vector<ExprNode>;

// An operator waiting on the compiler's (or the direct evaluator's) stack:
// a keyword row, or a user function, with its precedence class.
struct PendingOperator {
    const KeywordEntry* row = nullptr;        // none for a user function
    const Statement* function = nullptr;      // none for a keyword
    uint8_t precedence = 0;
};

// Precedence class of a user function and of named functions.
inline constexpr uint8_t FunctionClass = 9;
// Precedence class of `applyunits`, which follows a quoted unit string.
inline constexpr uint8_t ApplyUnitsClass = 10;

// Compiles one expression from the reader's tokens and returns its top-level
// nodes in source order. Stops at the first token that cannot continue the
// expression: two operands in a row, or '{' / '}', are put back; ')' and ';'
// are consumed. Never reports.
ExprList CompileExpression(AppState& app, TokenReader& reader);

}  // namespace quorvel
