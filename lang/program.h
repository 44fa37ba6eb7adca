// Programs: the compiled statement tree, the statement compiler and the
// loader of program files full of `function` definitions.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "lang/exprcompiler.h"
#include "lang/item.h"
#include "lang/scanner.h"

namespace quorvel {

struct AppState;

enum class StatementKind : int32_t {
    Block = 1,        // runs its children in order
    Expression = 2,   // runs its expression
    Return = 3,       // ends the function
    Function = 4,     // a user function: a frame of locals around its body
    If = 5,
    While = 6,
    Do = 7,
};

// Token ids of the control words the program compiler reads.
inline constexpr uint32_t TokenDo = 34;
inline constexpr uint32_t TokenElse = 38;
inline constexpr uint32_t TokenFunction = 52;
inline constexpr uint32_t TokenIf = 59;
inline constexpr uint32_t TokenReturn = 93;
inline constexpr uint32_t TokenWhile = 113;

// One compiled statement. Every part may be absent.
struct Statement {
    StatementKind kind = StatementKind::Block;
    std::vector<Statement> children;          // a block's statements, in source order
    std::unique_ptr<Statement> body;          // then-part, loop body, or a function's body
    std::unique_ptr<Statement> elsePart;      // else-part of `if`
    std::optional<ExprNode> expression;       // expression, or the condition of if/while/do
    Item name;                                // a function's name (Variable reference), kind 4 only
};

// Compiles from the reader's tokens: with `blockMode` clear one statement,
// with it set the statements of one block up to a closing '}' or ')' or the
// end of the input. `function` definitions met on the way are stored in the
// function list. Never reports.
Statement CompileStatement(AppState& app, TokenReader& reader, bool blockMode);

// Compiles every `function` definition of the program text read from
// `source` into the function list; other text has no effect. Never reports.
void LoadProgram(AppState& app, LineSource& source);

// LoadProgram from the text file at `path`; false (and nothing loaded) when
// the file cannot be opened. Never reports.
bool LoadProgramFile(AppState& app, const std::filesystem::path& path);

}  // namespace quorvel
