// The desktop side of the host: messages go to the message strip, console
// lines to the console window, questions to dialogs, and the abort request
// comes from Escape (or Ctrl+C in the console). Calls may come from the
// evaluation thread; everything that touches a widget is carried over to the
// UI thread, waiting for the answer where there is one.
#pragma once

#include <QThread>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>

#include "lang/host.h"

namespace quorvel::ui {

class MainWindow;

class WindowHost final : public Host {
public:
    WindowHost() = default;

    // The window that shows everything; set once it exists (UI thread).
    void attach(MainWindow* window) { window_ = window; }

    void showMessage(std::u16string_view text, int severity) override;
    void clearMessage() override;
    bool onConsoleThread() const override;
    void openConsole() override;
    void closeConsole() override;
    void consoleWrite(std::u16string_view line) override;
    // Shows `prompt` in the console window (opening it when closed) and waits
    // for the next line typed there; none when the wait is aborted or the
    // console is closed meanwhile.
    std::optional<std::u16string> consoleRead(std::u16string_view prompt) override;
    bool confirm(std::u16string_view title, std::u16string_view question) override;
    int32_t pickMemory(const std::vector<MemoryChoice>& choices) override;
    // True from the user's stop request (Escape, Ctrl+C) until the next
    // command starts. Cheap: long loops ask it on every step.
    bool abortRequested() override { return abortRequest_.load(std::memory_order_relaxed); }

    // UI thread: the user asks to stop the running computation.
    void requestAbort();
    // At the start of every command: forget an old stop request.
    void clearAbortRequest() { abortRequest_.store(false); }

    // The evaluation thread, and whether the command it runs now came from
    // the console (its messages then become console lines).
    void setEvaluationThread(QThread* thread) { evaluationThread_ = thread; }
    void setConsoleCommand(bool console) { consoleCommand_.store(console); }

    // UI thread: a line typed in the console; true when a waiting read took
    // it, false when it is a new command line.
    bool deliverConsoleLine(const std::u16string& line);
    // True while a read waits for a console line.
    bool readPending() const;
    // UI thread: the console closed; a waiting read ends with none.
    void cancelConsoleRead();

private:
    // Runs `job(window)` on the UI thread, waiting for it when `wait`.
    template <typename Job>
    void onUi(Job job, bool wait);
    bool onUiThread() const;

    std::atomic<MainWindow*> window_{nullptr};   // not owned
    QThread* evaluationThread_ = nullptr;
    std::atomic<bool> consoleCommand_{false};
    std::atomic<bool> abortRequest_{false};

    mutable std::mutex readMutex_;
    std::condition_variable readDone_;
    bool readPending_ = false;
    bool readCancelled_ = false;
    std::optional<std::u16string> readLine_;
};

}  // namespace quorvel::ui
