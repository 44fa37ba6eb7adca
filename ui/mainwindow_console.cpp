// The host's side on the UI thread: messages, the console window and the
// questions a command asks while it runs.
#include <QApplication>
#include <QMessageBox>

#include "lang/appstate.h"
#include "lang/report.h"
#include "ui/consolewindow.h"
#include "ui/mainwindow.h"
#include "ui/memorydialog.h"
#include "ui/messagestrip.h"
#include "ui/qtext.h"
#include "ui/windowhost.h"

namespace quorvel::ui {
namespace {

const QString ReadyPrompt = QStringLiteral(">");

// While a question is open over a running command, the pointer is an arrow.
class ArrowCursor {
public:
    ArrowCursor() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~ArrowCursor() { QApplication::restoreOverrideCursor(); }
    ArrowCursor(const ArrowCursor&) = delete;
    ArrowCursor& operator=(const ArrowCursor&) = delete;
};

}  // namespace

void MainWindow::showMessage(const QString& text, int severity) { strip_->showMessage(text, severity); }

void MainWindow::clearMessage() { strip_->clearMessage(); }

void MainWindow::openConsole() {
    if (console_ != nullptr) {
        console_->raise();
        return;
    }
    console_ = std::make_unique<ConsoleWindow>();
    connect(console_.get(), &ConsoleWindow::lineEntered, this, &MainWindow::consoleLine);
    connect(console_.get(), &ConsoleWindow::userBreak, this, &MainWindow::consoleBreak);
    connect(console_.get(), &ConsoleWindow::closedByUser, this, &MainWindow::consoleClosedByUser);
    console_->write(QStringLiteral("Quorvel Console"));
    console_->setPrompt(consoleCommand_ ? QString() : ReadyPrompt);
    console_->show();
}

void MainWindow::finishConsoleSession() {
    host_.cancelConsoleRead();
    if (console_ == nullptr) return;
    console_->disconnect(this);
    console_->hide();
    // The window may be inside one of its own handlers: Qt deletes it later.
    console_.release()->deleteLater();
}

void MainWindow::closeConsole() { finishConsoleSession(); }

void MainWindow::consoleClosedByUser() {
    finishConsoleSession();
    whenIdle([this] { app_.consoleOpen = false; });
}

void MainWindow::consoleWrite(const QString& line) {
    if (console_ == nullptr) openConsole();
    console_->write(line);
}

void MainWindow::beginConsoleRead(const QString& prompt) {
    if (console_ == nullptr) openConsole();
    console_->setPrompt(prompt);
    console_->raise();
    console_->activateWindow();
}

void MainWindow::endConsoleRead() {
    if (console_ != nullptr) console_->setPrompt(consoleCommand_ ? QString() : ReadyPrompt);
}

void MainWindow::consoleLine(const QString& line) {
    const std::u16string text = ToU16(line);
    if (host_.deliverConsoleLine(text)) return;
    whenIdle([this, text] { startConsoleLine(text); });
}

void MainWindow::consoleBreak() {
    if (console_ != nullptr) console_->cancelInput();
    if (busy_) {
        deferred_.clear();
        host_.requestAbort();
        return;
    }
    ReportError(app_, {}, Clear);
    ReportError(app_, u"User Break", Error);
}

bool MainWindow::askConfirm(const QString& title, const QString& question) {
    ArrowCursor arrow;
    QMessageBox box(QMessageBox::Question, title, question, QMessageBox::Yes | QMessageBox::No, this);
    box.setDefaultButton(QMessageBox::Yes);
    return box.exec() == QMessageBox::Yes;
}

int32_t MainWindow::askMemory(const std::vector<MemoryChoice>& choices) {
    ArrowCursor arrow;
    MemoryDialog dialog(choices, this);
    return dialog.exec();
}

}  // namespace quorvel::ui
