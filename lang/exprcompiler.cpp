// The expression compiler: pending operators leave their stack as nodes that
// adopt their operands from the output.
#include "lang/exprcompiler.h"

#include <algorithm>

#include "lang/appstate.h"
#include "lang/functions.h"
#include "lang/keywords.h"
#include "lang/program.h"

namespace quorvel {

namespace {

class ExpressionCompiler {
public:
    ExpressionCompiler(AppState& app, TokenReader& reader) : app_(app), reader_(reader) {}

    ExprList run() {
        while (auto token = reader_.next(app_)) {
            if (!take(*token)) break;
        }
        reduce(0);
        return std::move(output_);
    }

private:
    // Handles one token (taken over from the reader); false when the
    // expression ends with it.
    bool take(Item& token) {
        switch (token.type) {
            case ItemType::Integer:
            case ItemType::ReservedNumeric:
            case ItemType::Real:
            case ItemType::Complex:
                return operand(std::move(token));
            case ItemType::String:
                output_.push_back(ExprNode{std::move(token), {}});
                pushPending(KeywordRow(u"applyunits"));
                operandExpected_ = false;
                return true;
            case ItemType::VariableRef:
                if (const Statement* function = FindFunction(app_, token.asText())) {
                    reduce(FunctionClass);
                    pending_.push_back(PendingOperator{nullptr, function, FunctionClass});
                    operandExpected_ = true;
                    return true;
                }
                return operand(std::move(token));
            case ItemType::Keyword:
                keyword(token.asKeyword());
                return true;
            case ItemType::Character:
                return character(std::move(token));
            case ItemType::Null:
            case ItemType::Block:
            case ItemType::FunctionCall:
            case ItemType::Comment:
                return true;   // dropped
        }
        return true;
    }

    // An operand where one may come becomes a leaf; a second operand in a
    // row is put back and ends the expression.
    bool operand(Item token) {
        if (!operandExpected_) {
            reader_.putBack(std::move(token));
            return false;
        }
        output_.push_back(ExprNode{std::move(token), {}});
        operandExpected_ = false;
        return true;
    }

    void keyword(const KeywordEntry& found) {
        const KeywordEntry* row = &found;
        if (operandExpected_ && row->tokenId == TokenAdd) return;   // unary plus does nothing
        if (operandExpected_ && row->tokenId == TokenSub) row = &KeywordRow(u"neg");
        pushPending(*row);
        operandExpected_ = true;
    }

    bool character(Item token) {
        switch (token.asCharacter()) {
            case u'(': {
                ExprList inner = ExpressionCompiler(app_, reader_).run();
                if (inner.empty()) return true;   // an empty group is dropped
                ExprNode group{std::move(token), {}};
                // Each node taken from the oldest end goes in front of those
                // already moved: the group holds its values last one first.
                for (ExprNode& node : inner) group.children.insert(group.children.begin(), std::move(node));
                output_.push_back(std::move(group));
                operandExpected_ = false;
                return true;
            }
            case u',':
                reduce(0);
                operandExpected_ = true;
                return true;
            case u')':
            case u';':
                return false;
            case u'{':
            case u'}':
                reader_.putBack(std::move(token));
                return false;
            default:
                return true;   // dropped
        }
    }

    void pushPending(const KeywordEntry& row) {
        const auto precedence = static_cast<uint8_t>(row.precedence());
        reduce(precedence);
        pending_.push_back(PendingOperator{&row, nullptr, precedence});
    }

    // Takes every pending operator of class `incoming` or higher off the
    // stack as a node; equal classes too, so operators group from the left.
    void reduce(uint8_t incoming) {
        while (!pending_.empty() && pending_.back().precedence >= incoming) {
            const PendingOperator top = pending_.back();
            pending_.pop_back();
            ExprNode node;
            int operands = 1;
            if (top.row != nullptr) {
                node.item = Item::keyword(*top.row);
                operands = top.row->operandCount();
            } else {
                node.item = Item::functionCall(top.function->name.asText());
            }
            // Operands come from the most recent end of the output and go in
            // front of those already adopted, so they stand in source order.
            for (int i = 0; i < operands && !output_.empty(); ++i) {
                node.children.insert(node.children.begin(), std::move(output_.back()));
                output_.pop_back();
            }
            output_.push_back(std::move(node));
        }
    }

    AppState& app_;
    TokenReader& reader_;
    ExprList output_;
    std::vector<PendingOperator> pending_;
    bool operandExpected_ = true;
};

}  // namespace

ExprList CompileExpression(AppState& app, TokenReader& reader) {
    return ExpressionCompiler(app, reader).run();
}

}  // namespace quorvel
