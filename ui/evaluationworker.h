// The evaluation thread's worker: runs one command at a time off the UI
// thread, so the window keeps repainting and Escape can stop a long
// computation. The window never starts a second command before `finished`.
#pragma once

#include <QObject>
#include <string>

namespace quorvel {
struct AppState;
}

namespace quorvel::ui {

class WindowHost;

class EvaluationWorker : public QObject {
    Q_OBJECT

public:
    EvaluationWorker(AppState& app, WindowHost& host) : app_(app), host_(host) {}

    // Runs a line typed in the entry field (or by a key) in `entryMode`.
    void runLine(const std::u16string& text, int entryMode);
    // Evaluates a console line, takes the result off the stack and prints its
    // plain-text display text in the console; messages go to the console.
    void runConsoleLine(const std::u16string& text);

signals:
    // The command has ended (in the evaluation thread).
    void finished();

private:
    AppState& app_;
    WindowHost& host_;
};

}  // namespace quorvel::ui
