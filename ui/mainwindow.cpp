// The window's construction, layout, refresh and events.
#include "ui/mainwindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>

#include "lang/appstate.h"
#include "lang/displaytext.h"
#include "lang/report.h"
#include "ui/consolewindow.h"
#include "ui/evaluationworker.h"
#include "ui/fonts.h"
#include "ui/keybutton.h"
#include "ui/messagestrip.h"
#include "ui/qtext.h"
#include "ui/tabbedlist.h"
#include "ui/windowhost.h"

namespace quorvel::ui {
namespace {

struct ModeDef {
    const char* label;
    ModeButton which;
    int x, y, width;
};

// The mode check boxes, each 20 pixels high.
constexpr std::array<ModeDef, 10> ModeTable{{
    {"Bin", ModeButton::Bin, 4, 192, 80},
    {"Oct", ModeButton::Oct, 4, 214, 80},
    {"Dec", ModeButton::Dec, 88, 192, 80},
    {"Hex", ModeButton::Hex, 88, 214, 80},
    {"Degrees", ModeButton::Degrees, 424, 192, 100},
    {"Radians", ModeButton::Radians, 424, 214, 100},
    {"99,999", ModeButton::Grouping, 592, 192, 80},
    {"+999", ModeButton::PlusSign, 592, 214, 80},
    {"RPN", ModeButton::Rpn, 760, 192, 80},
    {"Alg", ModeButton::Alg, 760, 214, 80},
}};

constexpr QColor WindowGrey{128, 128, 128};
constexpr QColor HelpFace{255, 255, 160};
constexpr QColor DeleteFace{255, 96, 64};
constexpr int StackTabStop = 40;       // pixels: the list's one tab stop
constexpr int StackExtent = 5120;      // pixels of horizontal scrolling
constexpr int GroupingBit = 0x4;
constexpr int PlusSignBit = 0x1;

std::size_t modeIndex(ModeButton which) { return static_cast<std::size_t>(which); }

}  // namespace

MainWindow::MainWindow(AppState& app, WindowHost& host, QWidget* parent)
    : QWidget(parent), app_(app), host_(host) {
    setObjectName(QStringLiteral("QuorvelWindow"));
    setWindowTitle(QStringLiteral("Quorvel v2.1.8"));
    setFixedSize(ClientWidth, ClientHeight);
    setMouseTracking(true);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, WindowGrey);
    colours.setColor(QPalette::WindowText, Qt::black);
    setPalette(colours);
    setAutoFillBackground(true);
    QFont small = font();
    small.setPixelSize(13);
    setFont(small);

    buildControls();
    buildKeypad();

    worker_ = std::make_unique<EvaluationWorker>(app_, host_);
    worker_->moveToThread(&evaluationThread_);
    connect(worker_.get(), &EvaluationWorker::finished, this, &MainWindow::commandFinished, Qt::QueuedConnection);
    evaluationThread_.setObjectName(QStringLiteral("evaluation"));
    evaluationThread_.start();
    host_.setEvaluationThread(&evaluationThread_);

    refresh();
    entry_->setFocus();
}

MainWindow::~MainWindow() {
    // A command still running is stopped, so the thread can end.
    host_.requestAbort();
    evaluationThread_.quit();
    evaluationThread_.wait();
    worker_.reset();
    host_.setEvaluationThread(nullptr);
}

void MainWindow::buildControls() {
    stackList_ = std::make_unique<TabbedList>(QList<int>{StackTabStop}, StackExtent, this);
    stackList_->setGeometry(4, 4, 1004, 124);
    stackList_->setFont(CambriaFont(24, false));
    stackList_->setFocusPolicy(Qt::NoFocus);
    stackList_->setSelectionMode(QAbstractItemView::NoSelection);

    entry_ = std::make_unique<QLineEdit>(this);
    entry_->setGeometry(4, 132, 1004, 28);
    entry_->setFont(CambriaFont(24, false));
    entry_->setMaxLength(EntryCapacity);
    entry_->setTextMargins(2, 0, 2, 0);
    entry_->installEventFilter(this);

    strip_ = std::make_unique<MessageStrip>(this);
    strip_->setGeometry(4, 164, 1004, 24);

    for (const ModeDef& mode : ModeTable) {
        auto box = std::make_unique<QCheckBox>(QString::fromLatin1(mode.label), this);
        box->setGeometry(mode.x, mode.y, mode.width, 20);
        box->setFocusPolicy(Qt::NoFocus);
        const ModeButton which = mode.which;
        connect(box.get(), &QCheckBox::clicked, this, [this, which] { modeClicked(which); });
        modes_[modeIndex(mode.which)] = std::move(box);
    }

    bits_ = std::make_unique<QLabel>(this);
    bits_->setGeometry(172, 192, 164, 20);
    digits_ = std::make_unique<QLabel>(this);
    digits_->setGeometry(172, 214, 164, 20);

    const QFont keyFont = CambriaFont(20, true);
    help_ = std::make_unique<KeyButton>(QStringLiteral("Help"), QString(), HelpFace, keyFont, this);
    help_->setGeometry(844, 196, 80, 28);
    connect(help_.get(), &KeyButton::clicked, this, &MainWindow::openHelp);
    delete_ = std::make_unique<KeyButton>(QStringLiteral("Del"), QStringLiteral("Delete Character"), DeleteFace,
                                          keyFont, this);
    delete_->setGeometry(928, 196, 80, 28);
    connect(delete_.get(), &KeyButton::hovered, this, [this](const QString& text) { hover_->setText(text); });
    connect(delete_.get(), &KeyButton::clicked, this, [this] {
        entry_->backspace();
        entry_->setFocus();
        whenIdle([this] {
            beginAction();
            refresh();
        });
    });

    hover_ = std::make_unique<QLabel>(this);
    hover_->setGeometry(4, 630, 1004, 20);
}

void MainWindow::buildKeypad() {
    const QFont keyFont = CambriaFont(20, true);
    keys_.resize(ButtonTable.size());
    for (std::size_t index = 0; index < ButtonTable.size(); ++index) {
        const ButtonDef& row = ButtonTable[index];
        if (row.label == nullptr) continue;
        const int r = static_cast<int>(index) / KeypadColumns + 1;
        const int c = static_cast<int>(index) % KeypadColumns + 1;
        auto key = std::make_unique<KeyButton>(ToQString(row.label), ToQString(row.description),
                                               QColor(row.red, row.green, row.blue), keyFont, this);
        key->setGeometry(4 + 84 * (c - 1), 236 + 40 * (r - 1), 80, 28);
        connect(key.get(), &KeyButton::clicked, this, [this, index] { pressKey(index); });
        connect(key.get(), &KeyButton::hovered, this, [this](const QString& text) { hover_->setText(text); });
        keys_[index] = std::move(key);
    }
}

QCheckBox* MainWindow::modeBox(ModeButton which) { return modes_[modeIndex(which)].get(); }

KeyButton* MainWindow::key(std::size_t index) { return index < keys_.size() ? keys_[index].get() : nullptr; }

void MainWindow::refresh() {
    QStringList lines;
    for (const std::u16string& line : StackListLines(app_, 0, true)) lines.append(ToQString(line));
    stackList_->setLines(lines);
    stackList_->doItemsLayout();
    stackList_->scrollToBottom();

    modeBox(ModeButton::Bin)->setChecked(app_.base == 2);
    modeBox(ModeButton::Oct)->setChecked(app_.base == 8);
    modeBox(ModeButton::Dec)->setChecked(app_.base == 10);
    modeBox(ModeButton::Hex)->setChecked(app_.base == 16);
    modeBox(ModeButton::Degrees)->setChecked(app_.trigMode == 1);
    modeBox(ModeButton::Radians)->setChecked(app_.trigMode == 0);
    modeBox(ModeButton::Grouping)->setChecked((app_.dspFlags & GroupingBit) != 0);
    modeBox(ModeButton::PlusSign)->setChecked((app_.dspFlags & PlusSignBit) != 0);
    modeBox(ModeButton::Rpn)->setChecked(app_.entryMode == 0);
    modeBox(ModeButton::Alg)->setChecked(app_.entryMode == 1);
    bits_->setText(app_.wsize != 0 ? QStringLiteral("%1 Bits").arg(app_.wsize) : QString());
    digits_->setText(QStringLiteral("%1 Digits").arg(app_.digits));
}

bool MainWindow::waitUntilIdle(int timeoutMs) {
    QElapsedTimer clock;
    clock.start();
    while (busy_ || !deferred_.empty()) {
        if (clock.elapsed() > timeoutMs) return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
    }
    QCoreApplication::processEvents();
    return true;
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == entry_.get() && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            executeEntryLine();
            return true;
        }
        if (key->key() == Qt::Key_Escape && busy_) {
            abortComputation();
            return true;
        }
        // Typing clears a warning or error, but leaves notes and "Aborted".
        if (!busy_ && !app_.abortFlag) ReportError(app_, {}, Information);
    }
    return QWidget::eventFilter(watched, event);
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && busy_) {
        abortComputation();
        return;
    }
    QWidget::keyPressEvent(event);
}

void MainWindow::mouseMoveEvent(QMouseEvent* event) {
    hover_->clear();
    QWidget::mouseMoveEvent(event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (busy_) {
        // Stop the computation first; the window closes when it has ended.
        closePending_ = true;
        abortComputation();
        event->ignore();
        return;
    }
    event->accept();
    emit closed();
}

}  // namespace quorvel::ui
