#include "ui/desktop.h"

#include <QApplication>
#include <QDialog>
#include <QPixmap>
#include <cstdlib>
#include <iostream>
#include <memory>

#include "lang/appstate.h"
#include "lang/program.h"
#include "lang/report.h"
#include "store/persistence.h"
#include "ui/appicon.h"
#include "ui/mainwindow.h"
#include "ui/termination.h"
#include "ui/windowhost.h"

namespace quorvel::ui {
namespace {

// The severity the message strip starts with, so that the first clearing
// call paints the empty strip.
constexpr int StartupSeverity = 7;
// A line of a screenshot run may compute for this long.
constexpr int ScreenshotLineTimeoutMs = 10 * 60 * 1000;

bool environmentSet(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && value[0] != '\0';
}

// One desktop run: the state, loaded before the window exists, the host and
// the window. Closing saves the state after the window and the evaluation
// thread are gone, the console closed first.
class DesktopRun {
public:
    explicit DesktopRun(const DesktopOptions& options) : options_(options) {
        app_.host = &host_;
        if (!options_.noState) {
            if (options_.dataDir) app_.dataFolder = *options_.dataDir;
            LoadState(app_);
        }
        for (const std::string& path : options_.programs) {
            if (!LoadProgramFile(app_, path)) {
                std::cerr << "quorvel: cannot read program file " << path << '\n';
                return;
            }
        }
        window_ = std::make_unique<MainWindow>(app_, host_);
        host_.attach(window_.get());
    }

    ~DesktopRun() {
        if (window_ == nullptr) return;
        app_.consoleOpen = false;
        window_->closeConsole();
        host_.attach(nullptr);
        window_.reset();
        if (!options_.noState) SaveState(app_);
        app_.host = nullptr;
    }

    DesktopRun(const DesktopRun&) = delete;
    DesktopRun& operator=(const DesktopRun&) = delete;

    // False when a program file could not be read (nothing is then saved).
    bool ready() const { return window_ != nullptr; }
    AppState& app() { return app_; }
    MainWindow& window() { return *window_; }

    // Shows the window and paints the empty message strip.
    void show() {
        window_->show();
        app_.keptSeverity = StartupSeverity;
        ClearMessage(app_);
    }

private:
    const DesktopOptions& options_;
    AppState app_;
    WindowHost host_;
    std::unique_ptr<MainWindow> window_;
};

// A termination request answers any open dialog with Cancel first.
void rejectModalDialogs() {
    while (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
        dialog->reject();
        QCoreApplication::processEvents();
        if (QApplication::activeModalWidget() == dialog) break;
    }
}

}  // namespace

bool DisplayAvailable() { return environmentSet("DISPLAY") || environmentSet("WAYLAND_DISPLAY"); }

int RunDesktop(int argc, char** argv, const DesktopOptions& options) {
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    application.setWindowIcon(AppIcon());
    DesktopRun run(options);
    if (!run.ready()) return 2;
    MainWindow& window = run.window();
    TerminationWatcher watcher;
    QObject::connect(&watcher, &TerminationWatcher::terminationRequested, &window, [&window] {
        rejectModalDialogs();
        window.close();
    });
    QObject::connect(&window, &MainWindow::closed, &application, &QCoreApplication::quit, Qt::QueuedConnection);
    run.show();
    return application.exec();
}

int RunScreenshot(int argc, char** argv, const DesktopOptions& options) {
    if (!DisplayAvailable() && !environmentSet("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication application(argc, argv);
    application.setWindowIcon(AppIcon());
    DesktopRun run(options);
    if (!run.ready()) return 2;
    MainWindow& window = run.window();
    run.show();
    const int entryMode = options.entryMode.value_or(run.app().entryMode);
    for (const std::string& line : options.lines) {
        window.runLine(QString::fromStdString(line), entryMode);
        window.waitUntilIdle(ScreenshotLineTimeoutMs);
        if (run.app().exitRequested) break;
    }
    QCoreApplication::processEvents();
    const QPixmap picture = window.grab();
    if (!picture.save(QString::fromStdString(options.screenshot), "PNG")) {
        std::cerr << "quorvel: cannot write " << options.screenshot << '\n';
        return 1;
    }
    return 0;
}

}  // namespace quorvel::ui
