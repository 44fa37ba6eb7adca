#include "ui/memorydialog.h"

#include <QPushButton>
#include <cstdlib>

#include "ui/fonts.h"
#include "ui/qtext.h"
#include "ui/tabbedlist.h"

namespace quorvel::ui {
namespace {

constexpr int DefaultTabStop = 64;   // the list has no tab stop of its own
constexpr int ListExtent = 5120;

}  // namespace

MemoryDialog::MemoryDialog(const std::vector<MemoryChoice>& choices, QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Recall Memory"));
    layout_ = std::make_unique<QVBoxLayout>(this);
    list_ = std::make_unique<TabbedList>(QList<int>{DefaultTabStop}, ListExtent, this);
    list_->setFont(CambriaFont(20, false));
    list_->setMinimumSize(520, 260);
    for (const MemoryChoice& choice : choices) list_->addItem(LineText(choice));
    connect(list_.get(), &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* item) { chooseLine(list_->row(item)); });

    layout_->addWidget(list_.get());
    buttons_ = std::make_unique<QDialogButtonBox>(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons_->button(QDialogButtonBox::Ok), &QPushButton::clicked, this, &MemoryDialog::pressOk);
    connect(buttons_->button(QDialogButtonBox::Cancel), &QPushButton::clicked, this, &MemoryDialog::pressCancel);
    layout_->addWidget(buttons_.get());
}

MemoryDialog::~MemoryDialog() = default;

QString MemoryDialog::LineText(const MemoryChoice& choice) {
    return ToQString(choice.text).left(LineLimit);
}

int32_t MemoryDialog::leadingNumber(const QString& line) {
    const QByteArray text = line.toLatin1();
    return static_cast<int32_t>(std::strtol(text.constData(), nullptr, 10));
}

void MemoryDialog::chooseLine(int row) {
    QListWidgetItem* item = list_->item(row);
    if (item == nullptr) return;
    list_->setCurrentItem(item);
    done(leadingNumber(item->text()));
}

void MemoryDialog::pressOk() {
    const QString line = list_->selectedLine();
    if (!line.isEmpty()) done(leadingNumber(line));
    // Ended again with 0: the later result stands, so OK recalls nothing.
    done(0);
}

}  // namespace quorvel::ui
