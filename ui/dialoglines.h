// What the table dialogs have in common: their list lines "%s\t%s\t%s"
// (symbol, display form, long name), the first word of a chosen line, and
// the list with the window's Cambria 20 font and tab stops at 80 and 128
// pixels.
#pragma once

#include <QString>
#include <QWidget>
#include <memory>

namespace quorvel::ui {

class TabbedList;

// Lines of the table dialogs hold at most this many characters.
inline constexpr int TableLineLimit = 128;

// "symbol<TAB>display<TAB>name", cut to TableLineLimit characters.
QString TableLine(const char16_t* symbol, const char16_t* display, const char16_t* name);

// The text of `line` up to its first blank or tab, at most `limit` characters.
QString FirstWord(const QString& line, int limit);

// A list for a table dialog, parented to `parent`.
std::unique_ptr<TabbedList> MakeTableList(QWidget* parent);

}  // namespace quorvel::ui
