#include "ui/dialoglines.h"

#include <QWidget>
#include <string_view>

#include "ui/fonts.h"
#include "ui/qtext.h"
#include "ui/tabbedlist.h"

namespace quorvel::ui {
namespace {

QString tableText(const char16_t* text) { return text != nullptr ? ToQString(std::u16string_view(text)) : QString(); }

}  // namespace

QString TableLine(const char16_t* symbol, const char16_t* display, const char16_t* name) {
    const QString line = tableText(symbol) + QLatin1Char('\t') + tableText(display) + QLatin1Char('\t') + tableText(name);
    return line.left(TableLineLimit);
}

QString FirstWord(const QString& line, int limit) {
    qsizetype end = 0;
    while (end < line.size() && line[end] != QLatin1Char(' ') && line[end] != QLatin1Char('\t')) ++end;
    return line.left(std::min<qsizetype>(end, limit));
}

std::unique_ptr<TabbedList> MakeTableList(QWidget* parent) {
    auto list = std::make_unique<TabbedList>(QList<int>{80, 128}, 0, parent);
    list->setFont(CambriaFont(20, false));
    list->setMinimumSize(480, 320);
    return list;
}

}  // namespace quorvel::ui
