#include "ui/windowhost.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <chrono>

#include "ui/mainwindow.h"
#include "ui/qtext.h"

namespace quorvel::ui {

bool WindowHost::onUiThread() const {
    return QThread::currentThread() == QCoreApplication::instance()->thread();
}

template <typename Job>
void WindowHost::onUi(Job job, bool wait) {
    // The window is taken now: a job still queued when it goes is dropped with it.
    MainWindow* window = window_;
    if (window == nullptr) return;
    if (onUiThread()) {
        job(*window);
        return;
    }
    QMetaObject::invokeMethod(
        window, [window, job = std::move(job)]() mutable { job(*window); },
        wait ? Qt::BlockingQueuedConnection : Qt::QueuedConnection);
}

void WindowHost::showMessage(std::u16string_view text, int severity) {
    QString shown = ToQString(text);
    onUi([shown, severity](MainWindow& w) { w.showMessage(shown, severity); }, false);
}

void WindowHost::clearMessage() {
    onUi([](MainWindow& w) { w.clearMessage(); }, false);
}

bool WindowHost::onConsoleThread() const {
    return consoleCommand_.load() && evaluationThread_ != nullptr && QThread::currentThread() == evaluationThread_;
}

void WindowHost::openConsole() {
    onUi([](MainWindow& w) { w.openConsole(); }, true);
}

void WindowHost::closeConsole() {
    onUi([](MainWindow& w) { w.closeConsole(); }, false);
}

void WindowHost::consoleWrite(std::u16string_view line) {
    QString text = ToQString(line);
    onUi([text](MainWindow& w) { w.consoleWrite(text); }, false);
}

std::optional<std::u16string> WindowHost::consoleRead(std::u16string_view prompt) {
    if (window_ == nullptr) return std::nullopt;
    {
        std::lock_guard lock(readMutex_);
        readPending_ = true;
        readCancelled_ = false;
        readLine_.reset();
    }
    QString shown = ToQString(prompt);
    onUi([shown](MainWindow& w) { w.beginConsoleRead(shown); }, true);

    std::unique_lock lock(readMutex_);
    while (!readLine_ && !readCancelled_ && !abortRequested()) {
        if (onUiThread()) {
            lock.unlock();
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 50);
            lock.lock();
        } else {
            readDone_.wait_for(lock, std::chrono::milliseconds(50));
        }
    }
    std::optional<std::u16string> line = std::move(readLine_);
    readLine_.reset();
    readPending_ = false;
    lock.unlock();
    onUi([](MainWindow& w) { w.endConsoleRead(); }, false);
    return line;
}

bool WindowHost::confirm(std::u16string_view title, std::u16string_view question) {
    bool answer = false;
    QString shownTitle = ToQString(title);
    QString shownQuestion = ToQString(question);
    onUi([&](MainWindow& w) { answer = w.askConfirm(shownTitle, shownQuestion); }, true);
    return answer;
}

int32_t WindowHost::pickMemory(const std::vector<MemoryChoice>& choices) {
    int32_t number = 0;
    onUi([&](MainWindow& w) { number = w.askMemory(choices); }, true);
    return number;
}

void WindowHost::requestAbort() {
    abortRequest_.store(true);
    readDone_.notify_all();
}

bool WindowHost::deliverConsoleLine(const std::u16string& line) {
    {
        std::lock_guard lock(readMutex_);
        if (!readPending_ || readLine_) return false;
        readLine_ = line;
    }
    readDone_.notify_all();
    return true;
}

bool WindowHost::readPending() const {
    std::lock_guard lock(readMutex_);
    return readPending_;
}

void WindowHost::cancelConsoleRead() {
    {
        std::lock_guard lock(readMutex_);
        readCancelled_ = true;
    }
    readDone_.notify_all();
}

}  // namespace quorvel::ui
