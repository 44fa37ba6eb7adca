// The display-units dialog: eight report lines (one per dimension) over the
// list of every base unit. A double-click makes that unit the pending choice
// of its own dimension; OK stores the pending choices, Cancel nothing.
#pragma once

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>
#include <array>
#include <memory>

#include "units/unittables.h"

namespace quorvel {
struct AppState;
}

namespace quorvel::ui {

class TabbedList;

class DisplayUnitsDialog : public QDialog {
    Q_OBJECT

public:
    static constexpr int Stored = 1;
    static constexpr int Cancelled = 2;

    explicit DisplayUnitsDialog(AppState& app, QWidget* parent = nullptr);
    ~DisplayUnitsDialog() override;

    TabbedList* list() { return list_.get(); }
    // The report line of dimension 0..7 as shown now.
    QString reportLine(int dimension) const;

    // A double-click on line `row`.
    void chooseLine(int row);
    // OK: each pending unit's symbol becomes its dimension's display unit.
    void pressOk();
    // Cancel (also Escape): nothing changes.
    void reject() override { done(Cancelled); }

private:
    void showReport();

    AppState& app_;
    std::array<const UnitDef*, DimensionCount> pending_{};
    std::unique_ptr<QVBoxLayout> layout_;
    std::array<std::unique_ptr<QLabel>, DimensionCount> report_;
    std::unique_ptr<TabbedList> list_;
    std::unique_ptr<QDialogButtonBox> buttons_;
};

}  // namespace quorvel::ui
