#include "ui/constantsdialog.h"

#include <QPushButton>

#include "lang/appstate.h"
#include "lang/evaluator.h"
#include "ui/dialoglines.h"
#include "ui/qtext.h"
#include "ui/tabbedlist.h"
#include "units/constants.h"

namespace quorvel::ui {
namespace {

constexpr int SymbolLimit = 16;
constexpr std::size_t ValueLimit = 256;

const ConstDef* selectedConstant(const TabbedList& list) {
    const QString line = list.selectedLine();
    if (line.isEmpty()) return nullptr;
    return FindConst(ToU16(FirstWord(line, SymbolLimit)));
}

// Evaluates the row's value text and pushes the value; false when it left nothing.
bool pushValue(AppState& app, const ConstDef& row) {
    const std::u16string_view text = std::u16string_view(row.value).substr(0, ValueLimit);
    std::optional<Item> value = EvaluateText(app, text);
    if (!value) return false;
    app.stack.push(std::move(*value));
    return true;
}

}  // namespace

ConstantsDialog::ConstantsDialog(AppState& app, QWidget* parent) : QDialog(parent), app_(app) {
    setWindowTitle(QStringLiteral("Constants"));
    layout_ = std::make_unique<QVBoxLayout>(this);
    list_ = MakeTableList(this);
    for (const ConstDef& row : Constants()) list_->addItem(TableLine(row.symbol, row.display, row.name));
    connect(list_.get(), &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        list_->setCurrentItem(item);
        chooseWithDoubleClick();
    });
    layout_->addWidget(list_.get());
    buttons_ = std::make_unique<QDialogButtonBox>(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons_->button(QDialogButtonBox::Ok), &QPushButton::clicked, this, &ConstantsDialog::chooseWithOk);
    connect(buttons_->button(QDialogButtonBox::Cancel), &QPushButton::clicked, this, &ConstantsDialog::reject);
    layout_->addWidget(buttons_.get());
}

ConstantsDialog::~ConstantsDialog() = default;

void ConstantsDialog::chooseWithOk() {
    const ConstDef* row = selectedConstant(*list_);
    if (row == nullptr || !pushValue(app_, *row)) {
        done(Cancelled);
        return;
    }
    done(Pushed);
}

void ConstantsDialog::chooseWithDoubleClick() {
    const ConstDef* row = selectedConstant(*list_);
    if (row == nullptr) return;
    pushValue(app_, *row);
    done(Pushed);
}

}  // namespace quorvel::ui
