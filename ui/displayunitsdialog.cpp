#include "ui/displayunitsdialog.h"

#include <QPushButton>

#include "lang/appstate.h"
#include "ui/dialoglines.h"
#include "ui/fonts.h"
#include "ui/qtext.h"
#include "ui/tabbedlist.h"
#include "units/unitconvert.h"

namespace quorvel::ui {
namespace {

constexpr int SymbolLimit = 32;

}  // namespace

DisplayUnitsDialog::DisplayUnitsDialog(AppState& app, QWidget* parent)
    : QDialog(parent), app_(app), pending_(DisplayUnitRows(app)) {
    setWindowTitle(QStringLiteral("Display Units"));
    layout_ = std::make_unique<QVBoxLayout>(this);
    for (auto& line : report_) {
        line = std::make_unique<QLabel>(this);
        line->setFont(CambriaFont(20, false));
        layout_->addWidget(line.get());
    }
    list_ = MakeTableList(this);
    for (const UnitDef& row : BaseUnits()) list_->addItem(TableLine(row.symbol, row.display, row.name));
    connect(list_.get(), &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* item) { chooseLine(list_->row(item)); });
    layout_->addWidget(list_.get());
    buttons_ = std::make_unique<QDialogButtonBox>(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons_->button(QDialogButtonBox::Ok), &QPushButton::clicked, this, &DisplayUnitsDialog::pressOk);
    connect(buttons_->button(QDialogButtonBox::Cancel), &QPushButton::clicked, this, &DisplayUnitsDialog::reject);
    layout_->addWidget(buttons_.get());
    showReport();
}

DisplayUnitsDialog::~DisplayUnitsDialog() = default;

QString DisplayUnitsDialog::reportLine(int dimension) const {
    return report_[static_cast<std::size_t>(dimension)]->text();
}

void DisplayUnitsDialog::showReport() {
    const auto lines = DisplayUnitReport(pending_);
    for (std::size_t d = 0; d < lines.size(); ++d) report_[d]->setText(ToQString(lines[d]));
}

void DisplayUnitsDialog::chooseLine(int row) {
    QListWidgetItem* item = list_->item(row);
    if (item == nullptr) return;
    list_->setCurrentItem(item);
    const UnitDef* unit = FindUnit(ToU16(FirstWord(item->text(), SymbolLimit)));
    if (unit == nullptr || unit->dimension < 0 || unit->dimension >= DimensionCount) return;
    pending_[static_cast<std::size_t>(unit->dimension)] = unit;
    showReport();
}

void DisplayUnitsDialog::pressOk() {
    for (std::size_t d = 0; d < pending_.size(); ++d) {
        if (pending_[d] != nullptr) app_.displayUnits[d] = std::u16string(pending_[d]->symbol).substr(0, 31);
    }
    done(Stored);
}

}  // namespace quorvel::ui
