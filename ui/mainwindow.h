// The calculator window: stack list, entry field, message strip, mode check
// boxes, status texts, the keypad and the hover line, at fixed positions in
// a 1012 x 655 client area. Widgets hold no calculator state: they show
// AppState and hand lines to the evaluation thread, one command at a time.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QThread>
#include <QWidget>
#include <array>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "lang/host.h"
#include "ui/keypad.h"

namespace quorvel {
struct AppState;
}

namespace quorvel::ui {

class ConsoleWindow;
class EvaluationWorker;
class KeyButton;
class MessageStrip;
class TabbedList;
class WindowHost;

enum class ModeButton { Bin, Oct, Dec, Hex, Degrees, Radians, Grouping, PlusSign, Rpn, Alg };

class MainWindow : public QWidget {
    Q_OBJECT

public:
    static constexpr int ClientWidth = 1012;
    static constexpr int ClientHeight = 655;
    static constexpr int EntryCapacity = 512;

    MainWindow(AppState& app, WindowHost& host, QWidget* parent = nullptr);
    ~MainWindow() override;

    // The parts, for the desktop start-up and for tests.
    QLineEdit* entry() { return entry_.get(); }
    TabbedList* stackList() { return stackList_.get(); }
    MessageStrip* messageStrip() { return strip_.get(); }
    QLabel* hoverLine() { return hover_.get(); }
    QLabel* bitsText() { return bits_.get(); }
    QLabel* digitsText() { return digits_.get(); }
    QCheckBox* modeBox(ModeButton which);
    // The key of ButtonTable[index]; nullptr for an empty position.
    KeyButton* key(std::size_t index);
    KeyButton* helpButton() { return help_.get(); }
    KeyButton* deleteButton() { return delete_.get(); }
    // The console window while it is open, else nullptr.
    ConsoleWindow* console() { return console_.get(); }

    // True while a command runs on the evaluation thread.
    bool isBusy() const { return busy_; }
    // Runs `text` as a typed line in `entryMode` (after the running command).
    void runLine(const QString& text, int entryMode);
    // Processes events until no command runs and none waits; false when
    // `timeoutMs` passed first.
    bool waitUntilIdle(int timeoutMs);
    // Runs the entry line (Enter): nothing when it is empty.
    void executeEntryLine();
    // The action of the keypad row `index`, as when its key is released.
    void pressKey(std::size_t index);
    // Escape: stop the running computation.
    void abortComputation();
    // Rebuilds the stack list and the status texts and check boxes.
    void refresh();
    // The help file opener; returns false when no viewer took the file (the
    // window then shows the manual itself). Replaceable for tests.
    void setExternalOpener(std::function<bool(const QString& path)> opener) { openExternal_ = std::move(opener); }
    // The built-in help window once shown.
    QWidget* helpWindow() { return helpWindow_.get(); }

    // The host's side on the UI thread.
    void showMessage(const QString& text, int severity);
    void clearMessage();
    void openConsole();
    void closeConsole();
    void consoleWrite(const QString& line);
    void beginConsoleRead(const QString& prompt);
    void endConsoleRead();
    bool askConfirm(const QString& title, const QString& question);
    int32_t askMemory(const std::vector<MemoryChoice>& choices);

signals:
    // A command ended and nothing else waits.
    void becameIdle();
    // The window accepted a close request (the user, or `exit`).
    void closed();
    // A line was handed to the evaluation thread (console lines with mode -1).
    void lineStarted(const QString& text, int entryMode);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void buildControls();
    void buildKeypad();
    // Runs `action` now, or after the running command when busy.
    void whenIdle(std::function<void()> action);
    // The start of every button action: the abort flag and warnings cleared.
    void beginAction();
    void startLine(const std::u16string& text, int entryMode);
    void startConsoleLine(const std::u16string& text);
    void commandFinished();
    void typeText(const std::u16string& text);
    void keyReleased(std::size_t index);
    void modeClicked(ModeButton which);
    void runSpecial(SpecialAction action);
    void copyToClipboard();
    void chooseConstant();
    void chooseDisplayUnits();
    void enterUnits();
    void loadProgram();
    void openHelp();
    void consoleLine(const QString& line);
    void consoleBreak();
    void consoleClosedByUser();
    void finishConsoleSession();

    AppState& app_;
    WindowHost& host_;
    std::unique_ptr<TabbedList> stackList_;
    std::unique_ptr<QLineEdit> entry_;
    std::unique_ptr<MessageStrip> strip_;
    std::array<std::unique_ptr<QCheckBox>, 10> modes_;
    std::unique_ptr<QLabel> bits_;
    std::unique_ptr<QLabel> digits_;
    std::unique_ptr<KeyButton> help_;
    std::unique_ptr<KeyButton> delete_;
    std::vector<std::unique_ptr<KeyButton>> keys_;   // one per table row, null where empty
    std::unique_ptr<QLabel> hover_;
    std::unique_ptr<ConsoleWindow> console_;
    std::unique_ptr<QWidget> helpWindow_;

    QThread evaluationThread_;
    std::unique_ptr<EvaluationWorker> worker_;
    bool busy_ = false;
    bool closePending_ = false;
    bool consoleCommand_ = false;
    std::deque<std::function<void()>> deferred_;
    QString programPath_ = QStringLiteral("*.txt");
    std::function<bool(const QString&)> openExternal_;
};

}  // namespace quorvel::ui
