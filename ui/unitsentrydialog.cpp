#include "ui/unitsentrydialog.h"

#include "ui/dialoglines.h"
#include "ui/fonts.h"
#include "ui/qtext.h"
#include "ui/tabbedlist.h"
#include "units/unittables.h"

namespace quorvel::ui {
namespace {

constexpr int SymbolLimit = 32;

bool isAsciiLetter(QChar c) { return (c >= QLatin1Char('a') && c <= QLatin1Char('z')) || (c >= QLatin1Char('A') && c <= QLatin1Char('Z')); }
bool isDigit(QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); }

}  // namespace

UnitsEntryDialog::UnitsEntryDialog(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Units Entry"));
    layout_ = std::make_unique<QVBoxLayout>(this);
    text_ = std::make_unique<QLineEdit>(this);
    text_->setReadOnly(true);
    text_->setFont(CambriaFont(24, false));
    layout_->addWidget(text_.get());

    list_ = MakeTableList(this);
    for (const UnitDef& row : BaseUnits()) list_->addItem(TableLine(row.symbol, row.display, row.name));
    for (const DerivedUnitDef& row : DerivedUnits()) list_->addItem(TableLine(row.symbol, row.display, row.name));
    connect(list_.get(), &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* item) { chooseLine(list_->row(item)); });
    layout_->addWidget(list_.get());

    keyLayout_ = std::make_unique<QGridLayout>();
    const QFont keyFont = CambriaFont(20, true);
    for (int digit = 1; digit <= 9; ++digit) {
        auto& key = keys_[static_cast<std::size_t>(digit - 1)];
        key = std::make_unique<QPushButton>(QString::number(digit), this);
        connect(key.get(), &QPushButton::clicked, this, [this, digit] { appendExponent(digit); });
    }
    keys_[9] = std::make_unique<QPushButton>(QStringLiteral("*"), this);
    connect(keys_[9].get(), &QPushButton::clicked, this, [this] { appendOperator(QLatin1Char('*')); });
    keys_[10] = std::make_unique<QPushButton>(QStringLiteral("Back"), this);
    connect(keys_[10].get(), &QPushButton::clicked, this, &UnitsEntryDialog::deleteBack);
    keys_[11] = std::make_unique<QPushButton>(QStringLiteral("/"), this);
    connect(keys_[11].get(), &QPushButton::clicked, this, [this] { appendOperator(QLatin1Char('/')); });
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        keys_[i]->setFont(keyFont);
        keys_[i]->setAutoDefault(false);
        keyLayout_->addWidget(keys_[i].get(), static_cast<int>(i) / 6, static_cast<int>(i) % 6);
    }
    layout_->addLayout(keyLayout_.get());

    buttons_ = std::make_unique<QDialogButtonBox>(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons_->button(QDialogButtonBox::Ok), &QPushButton::clicked, this, &UnitsEntryDialog::pressOk);
    connect(buttons_->button(QDialogButtonBox::Cancel), &QPushButton::clicked, this, &UnitsEntryDialog::reject);
    layout_->addWidget(buttons_.get());
}

UnitsEntryDialog::~UnitsEntryDialog() {
    // The key grid belongs to the outer layout; take it out before both go.
    layout_->removeItem(keyLayout_.get());
}

void UnitsEntryDialog::setText(const QString& text) {
    if (text.size() <= TextLimit) text_->setText(text);
}

void UnitsEntryDialog::chooseLine(int row) {
    QListWidgetItem* item = list_->item(row);
    if (item == nullptr) return;
    list_->setCurrentItem(item);
    const QString symbol = FirstWord(item->text(), SymbolLimit);
    QString text = unitText();
    if (!text.isEmpty() && (isAsciiLetter(text.back()) || isDigit(text.back()))) text += QLatin1Char('*');
    setText(text + symbol);
}

void UnitsEntryDialog::appendOperator(QChar op) {
    QString text = unitText();
    if (text.isEmpty()) {
        if (op == QLatin1Char('/')) setText(op);
        return;
    }
    if (text.back() == QLatin1Char('*') || text.back() == QLatin1Char('/')) text.chop(1);
    setText(text + op);
}

void UnitsEntryDialog::appendExponent(int digit) {
    const QString text = unitText();
    if (text.isEmpty()) return;
    if (isAsciiLetter(text.back())) setText(text + QLatin1Char('^') + QString::number(digit));
    else if (isDigit(text.back())) setText(text + QString::number(digit));
}

void UnitsEntryDialog::deleteBack() {
    QString text = unitText();
    if (text.isEmpty()) return;
    if (isDigit(text.back())) {
        while (!text.isEmpty() && isDigit(text.back())) text.chop(1);
        if (!text.isEmpty() && text.back() == QLatin1Char('^')) text.chop(1);
    } else if (isAsciiLetter(text.back())) {
        while (!text.isEmpty() && isAsciiLetter(text.back())) text.chop(1);
    } else {
        text.chop(1);
    }
    setText(text);
}

}  // namespace quorvel::ui
