#include "ui/keypad.h"

namespace quorvel::ui {
namespace {

constexpr bool specialRowsNamed() {
    for (const ButtonDef& row : ButtonTable) {
        if ((row.flags & ButtonFlag::Special) && FindSpecialAction(row.command) == SpecialAction::None) return false;
    }
    return true;
}
static_assert(specialRowsNamed(), "every special-action key names a known action");

bool has(uint16_t flags, uint16_t bit) { return (flags & bit) != 0; }

}  // namespace

KeyAction DecideKeyAction(const ButtonDef& row, int base, int entryMode) {
    KeyAction action;
    if (row.label == nullptr) return action;
    const uint16_t f = row.flags;
    const bool algebraic = entryMode != 0;
    if (has(f, ButtonFlag::EntryChar)) {
        const char16_t* source = row.command != nullptr ? row.command : row.label;
        if (!has(f, ButtonFlag::HexDigit) || base > 10) action.typed.push_back(source[0]);
    } else if (has(f, ButtonFlag::Literal)) {
        if (!has(f, ButtonFlag::AlgebraicOnly) || algebraic) action.typed.push_back(row.label[0]);
    } else if (has(f, ButtonFlag::Command)) {
        action.typed = row.command;
        if (algebraic && has(f, ButtonFlag::OpenParen)) action.typed.push_back(u'(');
        action.execute = !algebraic || has(f, ButtonFlag::RunAtOnce);
    } else if (has(f, ButtonFlag::Enter)) {
        action.execute = true;
    } else if (has(f, ButtonFlag::Special)) {
        action.special = FindSpecialAction(row.command);
    }
    action.repaint = has(f, ButtonFlag::Repaint);
    return action;
}

}  // namespace quorvel::ui
