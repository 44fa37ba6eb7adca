#include "ui/tabbedlist.h"

#include <QPainter>
#include <QStyledItemDelegate>
#include <QTextOption>
#include <vector>

namespace quorvel::ui {
namespace {

constexpr int Margin = 3;

// Draws a line's text with its tabs at the list's stops; past the last stop
// a tab advances by the last stop's width.
class TabDelegate : public QStyledItemDelegate {
public:
    explicit TabDelegate(TabbedList* list) : QStyledItemDelegate(list), list_(list) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        painter->save();
        const bool selected = option.state & QStyle::State_Selected;
        if (selected) painter->fillRect(option.rect, option.palette.highlight());
        painter->setPen(selected ? option.palette.highlightedText().color() : option.palette.text().color());
        painter->setFont(option.font);
        const QString text = index.data(Qt::DisplayRole).toString();
        painter->drawText(QRectF(option.rect.adjusted(Margin, 0, 0, 0)), text, textOption());
        painter->restore();
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QFontMetrics metrics(option.font);
        int width = list_->extent();
        if (width == 0) {
            const QString text = index.data(Qt::DisplayRole).toString();
            width = metrics.size(Qt::TextExpandTabs | Qt::TextSingleLine, text, 0, tabArray()).width() + 2 * Margin;
        }
        return {width, metrics.height() + 2};
    }

private:
    QTextOption textOption() const {
        QTextOption option(Qt::AlignLeft | Qt::AlignVCenter);
        option.setWrapMode(QTextOption::NoWrap);
        QList<QTextOption::Tab> tabs;
        for (int stop : list_->tabStops()) tabs.append(QTextOption::Tab(stop - Margin, QTextOption::LeftTab));
        option.setTabs(tabs);
        if (!list_->tabStops().isEmpty()) option.setTabStopDistance(list_->tabStops().back());
        return option;
    }

    int* tabArray() const {
        tabArray_.clear();
        for (int stop : list_->tabStops()) tabArray_.push_back(stop - Margin);
        tabArray_.push_back(0);
        return tabArray_.data();
    }

    TabbedList* list_;
    mutable std::vector<int> tabArray_;
};

}  // namespace

TabbedList::TabbedList(const QList<int>& tabStops, int extent, QWidget* parent)
    : QListWidget(parent), tabStops_(tabStops), extent_(extent) {
    delegate_ = std::make_unique<TabDelegate>(this);
    setItemDelegate(delegate_.get());
    setSelectionMode(QAbstractItemView::SingleSelection);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setUniformItemSizes(extent != 0);
    if (extent != 0) setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

TabbedList::~TabbedList() {
    setItemDelegate(nullptr);
}

void TabbedList::setLines(const QStringList& lines) {
    clear();
    addItems(lines);
}

QStringList TabbedList::lines() const {
    QStringList out;
    for (int i = 0; i < count(); ++i) out.append(item(i)->text());
    return out;
}

QString TabbedList::selectedLine() const {
    const QList<QListWidgetItem*> chosen = selectedItems();
    return chosen.isEmpty() ? QString() : chosen.front()->text();
}

}  // namespace quorvel::ui
