// The memory list of `0 rcl`: one line per memory holding a value; a
// double-click recalls that memory. OK returns 0 just like Cancel.
#pragma once

#include <QDialog>
#include <QDialogButtonBox>
#include <QVBoxLayout>
#include <memory>
#include <vector>

#include "lang/host.h"

namespace quorvel::ui {

class TabbedList;

class MemoryDialog : public QDialog {
    Q_OBJECT

public:
    // Lines longer than this are cut.
    static constexpr int LineLimit = 128;

    MemoryDialog(const std::vector<MemoryChoice>& choices, QWidget* parent = nullptr);
    ~MemoryDialog() override;

    TabbedList* list() { return list_.get(); }
    // The shown line of a memory: its text ("%03ld:\t%s", made by the
    // memory list), cut to LineLimit characters.
    static QString LineText(const MemoryChoice& choice);

    // A double-click on line `row`: ends the dialog with that memory's number.
    void chooseLine(int row);
    // OK: ends with the selected number and then again with 0; 0 stands.
    void pressOk();
    // Cancel: ends with 0.
    void pressCancel() { done(0); }

private:
    // The leading number of a line, as "%ld" reads it (0 when none).
    static int32_t leadingNumber(const QString& line);

    std::unique_ptr<QVBoxLayout> layout_;
    std::unique_ptr<TabbedList> list_;
    std::unique_ptr<QDialogButtonBox> buttons_;
};

}  // namespace quorvel::ui
