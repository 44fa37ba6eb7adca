// The program compiler: statements from tokens, and program files of
// `function` definitions.
#include "lang/program.h"

#include <fstream>

#include "lang/appstate.h"
#include "lang/functions.h"
#include "lang/keywords.h"

namespace quorvel {

namespace {

// The first node of a compiled expression; the other nodes are dropped.
std::optional<ExprNode> firstNode(ExprList nodes) {
    if (nodes.empty()) return std::nullopt;
    return std::move(nodes.front());
}

std::optional<ExprNode> compileFirst(AppState& app, TokenReader& reader) {
    return firstNode(CompileExpression(app, reader));
}

std::unique_ptr<Statement> compileOne(AppState& app, TokenReader& reader) {
    return std::make_unique<Statement>(CompileStatement(app, reader, false));
}

bool isKeyword(const std::optional<Item>& token, uint32_t tokenId) {
    return token && token->type == ItemType::Keyword && token->asKeyword().tokenId == tokenId;
}

// Reads the name after `function` and compiles the definition. The name is
// made known before the body is compiled, so the body can call itself. A
// token that is no name is handed back (inside a body it starts the next
// statement) or dropped by the caller.
std::optional<Item> compileDefinition(AppState& app, TokenReader& reader) {
    std::optional<Item> name = reader.next(app);
    if (!name || name->type != ItemType::VariableRef) return name;
    Statement& definition = DefineFunction(app, name->asText());
    std::unique_ptr<Statement> body = compileOne(app, reader);
    definition.body = std::move(body);   // a later definition replaces the body
    return std::nullopt;
}

}  // namespace

Statement CompileStatement(AppState& app, TokenReader& reader, bool blockMode) {
    Statement block;
    bool braceOpened = false;
    // In block mode every statement becomes a new child of `block`; otherwise
    // the one statement is the result.
    auto place = [&](Statement made) -> bool {
        if (!blockMode) {
            block = std::move(made);
            return true;   // done
        }
        block.children.push_back(std::move(made));
        return false;
    };

    while (auto token = reader.next(app)) {
        Statement made;
        switch (token->type) {
            case ItemType::Integer:
            case ItemType::ReservedNumeric:
            case ItemType::Real:
            case ItemType::Complex:
            case ItemType::String:
            case ItemType::VariableRef:
                reader.putBack(std::move(*token));
                made.kind = StatementKind::Expression;
                made.expression = compileFirst(app, reader);
                if (place(std::move(made))) return block;
                continue;
            case ItemType::Character:
                switch (token->asCharacter()) {
                    case u'(': {
                        // The group keeps the returned order here, unlike a
                        // group inside an expression.
                        ExprNode group{std::move(*token), CompileExpression(app, reader)};
                        made.kind = StatementKind::Expression;
                        made.expression = std::move(group);
                        if (place(std::move(made))) return block;
                        continue;
                    }
                    case u')':
                    case u'}':
                        return block;
                    case u'{':
                        if (!braceOpened) {
                            braceOpened = true;
                            blockMode = true;   // this call now compiles the braced block
                        } else {
                            block.kind = StatementKind::Block;
                            block.children.push_back(CompileStatement(app, reader, true));
                        }
                        continue;
                    default:
                        continue;   // ';', ',' and other characters are skipped
                }
                continue;
            case ItemType::Keyword:
                break;
            case ItemType::Null:
            case ItemType::Block:
            case ItemType::FunctionCall:
            case ItemType::Comment:
                continue;
        }

        // A keyword.
        switch (token->asKeyword().tokenId) {
            case TokenDo: {
                made.kind = StatementKind::Do;
                made.body = compileOne(app, reader);
                std::optional<Item> next = reader.next(app);
                if (isKeyword(next, TokenWhile)) {
                    made.expression = compileFirst(app, reader);
                } else if (next) {
                    reader.putBack(std::move(*next));   // a `do` without condition
                }
                break;
            }
            case TokenFunction:
                // A definition is no statement of its own: compiling goes on.
                if (std::optional<Item> notName = compileDefinition(app, reader)) reader.putBack(std::move(*notName));
                continue;
            case TokenIf: {
                made.kind = StatementKind::If;
                made.expression = compileFirst(app, reader);
                made.body = compileOne(app, reader);
                std::optional<Item> next = reader.next(app);
                if (isKeyword(next, TokenElse)) {
                    made.elsePart = compileOne(app, reader);
                } else if (next) {
                    reader.putBack(std::move(*next));
                }
                break;
            }
            case TokenReturn:
                made.kind = StatementKind::Return;
                break;
            case TokenWhile:
                made.kind = StatementKind::While;
                made.expression = compileFirst(app, reader);
                made.body = compileOne(app, reader);
                break;
            default:
                reader.putBack(std::move(*token));
                made.kind = StatementKind::Expression;
                made.expression = compileFirst(app, reader);
                break;
        }
        if (place(std::move(made))) return block;
    }
    return block;
}

void LoadProgram(AppState& app, LineSource& source) {
    TokenReader reader;
    reader.file = &source;
    // Only `function` definitions count; every other token is dropped unread,
    // and so is a token after `function` that is no name.
    while (auto token = reader.next(app)) {
        if (isKeyword(token, TokenFunction)) compileDefinition(app, reader);
    }
}

bool LoadProgramFile(AppState& app, const std::filesystem::path& path) {
    std::ifstream file(path);
    if (!file) return false;
    StreamLineSource source(file);
    LoadProgram(app, source);
    return true;
}

}  // namespace quorvel
