// What pressing a keypad button does, decided from its row alone: the text
// typed at the caret, whether the line then runs, and any special action.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "ui/keypad_table.h"

namespace quorvel::ui {

enum class SpecialAction { None, DisplayUnits, Constants, Clipboard, Console, LoadProgram, UnitsEntry };

struct SpecialActionName {
    std::u16string_view name;   // the command text of the row
    SpecialAction action;
};

inline constexpr std::array<SpecialActionName, 6> SpecialActionNames{{
    {u"unit", SpecialAction::DisplayUnits},
    {u"const", SpecialAction::Constants},
    {u"clip", SpecialAction::Clipboard},
    {u"cmd", SpecialAction::Console},
    {u"load", SpecialAction::LoadProgram},
    {u"entry", SpecialAction::UnitsEntry},
}};

// The special action named `name`; None for any other text.
constexpr SpecialAction FindSpecialAction(std::u16string_view name) {
    for (const SpecialActionName& entry : SpecialActionNames)
        if (entry.name == name) return entry.action;
    return SpecialAction::None;
}

struct KeyAction {
    std::u16string typed;                          // typed at the caret, in order
    bool execute = false;                          // then the entry line runs
    SpecialAction special = SpecialAction::None;   // or this action runs
    bool repaint = false;                          // the whole window repaints afterwards
};

// The action of `row` with the current Base and EntryMode (0 RPN, 1 algebraic):
// an entry character (hex digits only above base 10), a literal character
// (some only in algebraic entry), a command typed and run at once in RPN or
// when the row says so ("(" appended in algebraic entry when asked), Enter,
// or a special action. An empty row does nothing.
KeyAction DecideKeyAction(const ButtonDef& row, int base, int entryMode);

}  // namespace quorvel::ui
