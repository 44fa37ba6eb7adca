// Running lines on the evaluation thread, the keypad and mode buttons.
#include <QApplication>
#include <QClipboard>

#include "lang/appstate.h"
#include "lang/displaytext.h"
#include "lang/report.h"
#include "ui/consolewindow.h"
#include "ui/evaluationworker.h"
#include "ui/mainwindow.h"
#include "ui/qtext.h"
#include "ui/windowhost.h"

namespace quorvel::ui {
namespace {

constexpr int32_t PlainText = 0x80;
constexpr int GroupingBit = 0x4;
constexpr int PlusSignBit = 0x1;
constexpr std::size_t AngleDimension = 7;

}  // namespace

void MainWindow::whenIdle(std::function<void()> action) {
    if (busy_) {
        deferred_.push_back(std::move(action));
        return;
    }
    action();
}

void MainWindow::beginAction() {
    app_.abortFlag = false;
    host_.clearAbortRequest();
    ReportError(app_, {}, Information);
}

void MainWindow::executeEntryLine() {
    whenIdle([this] {
        const QString text = entry_->text();
        if (text.isEmpty()) return;
        entry_->clear();
        startLine(ToU16(text), app_.entryMode);
    });
}

void MainWindow::runLine(const QString& text, int entryMode) {
    whenIdle([this, text, entryMode] { startLine(ToU16(text), entryMode); });
}

void MainWindow::startLine(const std::u16string& text, int entryMode) {
    busy_ = true;
    consoleCommand_ = false;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    app_.abortFlag = false;
    host_.clearAbortRequest();
    EvaluationWorker* worker = worker_.get();
    QMetaObject::invokeMethod(worker, [worker, text, entryMode] { worker->runLine(text, entryMode); },
                              Qt::QueuedConnection);
    emit lineStarted(ToQString(text), entryMode);
}

void MainWindow::startConsoleLine(const std::u16string& text) {
    busy_ = true;
    consoleCommand_ = true;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    host_.clearAbortRequest();
    EvaluationWorker* worker = worker_.get();
    QMetaObject::invokeMethod(worker, [worker, text] { worker->runConsoleLine(text); }, Qt::QueuedConnection);
    emit lineStarted(ToQString(text), -1);
}

void MainWindow::commandFinished() {
    refresh();
    QApplication::restoreOverrideCursor();
    busy_ = false;
    if (consoleCommand_ && console_ != nullptr) console_->setPrompt(QStringLiteral(">"));
    consoleCommand_ = false;
    entry_->setFocus();
    if (app_.exitRequested) {
        deferred_.clear();
        close();
        return;
    }
    while (!busy_ && !deferred_.empty()) {
        std::function<void()> action = std::move(deferred_.front());
        deferred_.pop_front();
        action();
    }
    if (busy_) return;
    if (closePending_) {
        closePending_ = false;
        close();
        return;
    }
    emit becameIdle();
}

void MainWindow::abortComputation() {
    if (!busy_) return;
    deferred_.clear();
    host_.requestAbort();
}

void MainWindow::typeText(const std::u16string& text) {
    if (!text.empty()) entry_->insert(ToQString(text));
}

void MainWindow::pressKey(std::size_t index) {
    if (index >= ButtonTable.size() || ButtonTable[index].label == nullptr) return;
    whenIdle([this, index] {
        beginAction();
        const KeyAction action = DecideKeyAction(ButtonTable[index], app_.base, app_.entryMode);
        typeText(action.typed);
        if (action.special != SpecialAction::None) runSpecial(action.special);
        entry_->setFocus();
        if (action.repaint) update();
        if (action.execute) executeEntryLine();
    });
}

void MainWindow::modeClicked(ModeButton which) {
    whenIdle([this, which] {
        beginAction();
        switch (which) {
        case ModeButton::Bin: app_.base = 2; break;
        case ModeButton::Oct: app_.base = 8; break;
        case ModeButton::Dec: app_.base = 10; break;
        case ModeButton::Hex: app_.base = 16; break;
        case ModeButton::Degrees:
            app_.trigMode = 1;
            app_.displayUnits[AngleDimension] = u"deg";
            break;
        case ModeButton::Radians:
            app_.trigMode = 0;
            app_.displayUnits[AngleDimension] = u"rad";
            break;
        case ModeButton::Grouping: app_.dspFlags ^= GroupingBit; break;
        case ModeButton::PlusSign: app_.dspFlags ^= PlusSignBit; break;
        case ModeButton::Rpn: app_.entryMode = 0; break;
        case ModeButton::Alg: app_.entryMode = 1; break;
        }
        refresh();
        update();
        entry_->setFocus();
    });
}

void MainWindow::runSpecial(SpecialAction action) {
    switch (action) {
    case SpecialAction::DisplayUnits: chooseDisplayUnits(); break;
    case SpecialAction::Constants: chooseConstant(); break;
    case SpecialAction::Clipboard: copyToClipboard(); break;
    case SpecialAction::Console:
        if (!app_.consoleOpen) {
            openConsole();
            app_.consoleOpen = true;
        }
        break;
    case SpecialAction::LoadProgram: loadProgram(); break;
    case SpecialAction::UnitsEntry: enterUnits(); break;
    case SpecialAction::None: break;
    }
}

void MainWindow::copyToClipboard() {
    const Item* top = app_.stack.head();
    if (top == nullptr) {
        ReportError(app_, u"Empty Stack", Warning);
        return;
    }
    if (std::optional<std::u16string> text = DisplayText(app_, *top, app_.digits, PlainText))
        QGuiApplication::clipboard()->setText(ToQString(*text));
    ReportError(app_, u"Text Copied", Information);
}

}  // namespace quorvel::ui
