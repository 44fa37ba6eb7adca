// The constants dialog: the constant table, one line a row. OK or a
// double-click evaluates the chosen constant and pushes it; the two paths
// differ where something is missing (see chooseWithOk, chooseWithDoubleClick).
#pragma once

#include <QDialog>
#include <QDialogButtonBox>
#include <QVBoxLayout>
#include <memory>

namespace quorvel {
struct AppState;
}

namespace quorvel::ui {

class TabbedList;

class ConstantsDialog : public QDialog {
    Q_OBJECT

public:
    static constexpr int Pushed = 1;      // a constant was pushed (or a double-click found one)
    static constexpr int Cancelled = 2;

    explicit ConstantsDialog(AppState& app, QWidget* parent = nullptr);
    ~ConstantsDialog() override;

    TabbedList* list() { return list_.get(); }

    // OK: no selection, an unknown symbol or a value text that leaves nothing
    // ends with Cancelled; else the value is pushed and the dialog ends Pushed.
    void chooseWithOk();
    // Double-click: no selection or an unknown symbol keeps the dialog open;
    // else the value (if any) is pushed and the dialog ends Pushed.
    void chooseWithDoubleClick();
    // Cancel (also Escape): ends Cancelled.
    void reject() override { done(Cancelled); }

private:
    AppState& app_;
    std::unique_ptr<QVBoxLayout> layout_;
    std::unique_ptr<TabbedList> list_;
    std::unique_ptr<QDialogButtonBox> buttons_;
};

}  // namespace quorvel::ui
