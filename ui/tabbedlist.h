// A list of text lines with tab stops, as the stack list and the dialogs'
// lists show them ("x :<TAB>value", "c<TAB>c<TAB>Speed of Light").
#pragma once

#include <QList>
#include <QListWidget>
#include <QStringList>
#include <QStyledItemDelegate>
#include <memory>

namespace quorvel::ui {

class TabbedList : public QListWidget {
    Q_OBJECT

public:
    // Tab stops in pixels from the left edge; `extent` is the scrollable
    // width in pixels (0: as wide as the widest line).
    TabbedList(const QList<int>& tabStops, int extent, QWidget* parent = nullptr);
    ~TabbedList() override;

    // Replaces every line.
    void setLines(const QStringList& lines);
    // The lines, top first.
    QStringList lines() const;
    // The text of the selected line, or empty when none is selected.
    QString selectedLine() const;

    const QList<int>& tabStops() const { return tabStops_; }
    int extent() const { return extent_; }

private:
    QList<int> tabStops_;
    int extent_;
    std::unique_ptr<QStyledItemDelegate> delegate_;
};

}  // namespace quorvel::ui
