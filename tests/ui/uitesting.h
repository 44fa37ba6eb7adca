// Shared pieces of the desktop window tests: a window over a fresh state
// whose data folder is a throw-away directory, and answering dialogs that a
// command opens while it runs.
#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <functional>
#include <memory>

#include "lang/appstate.h"
#include "ui/mainwindow.h"
#include "ui/windowhost.h"

namespace quorvel::uitest {

class WindowFixture {
public:
    WindowFixture();
    ~WindowFixture();
    WindowFixture(const WindowFixture&) = delete;
    WindowFixture& operator=(const WindowFixture&) = delete;

    AppState& app() { return *app_; }
    ui::MainWindow& window() { return *window_; }
    ui::WindowHost& host() { return host_; }
    QString dataFolder() const { return dir_.path(); }

    // Types `line` into the entry field, presses Enter and waits for the end.
    void enter(const QString& line);
    // Clicks the key of table row `row`, column `column` (both from 1) and
    // waits until nothing runs.
    void click(int row, int column);
    // Waits until nothing runs (fails the test after 20 s).
    void settle();

    QStringList stackLines();
    QString entryText();
    QString message();
    int severity();

private:
    QTemporaryDir dir_;
    std::unique_ptr<AppState> app_;
    ui::WindowHost host_;
    std::unique_ptr<ui::MainWindow> window_;
};

// Calls `answer` with the next modal widget as soon as one shows.
void AnswerNextModal(std::function<void(QWidget*)> answer);

// Points the per-user folders at a throw-away directory for the whole run.
void UseThrowAwayHome();

}  // namespace quorvel::uitest
