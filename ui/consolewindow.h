// The console window: a line-oriented terminal in a window of its own. Lines
// typed after the prompt are handed on when Enter is pressed; results and
// messages are written above the prompt line; Ctrl+C asks for a user break.
#pragma once

#include <QPlainTextEdit>
#include <QString>

namespace quorvel::ui {

class ConsoleWindow : public QPlainTextEdit {
    Q_OBJECT

public:
    // Longest line handed on at once; a longer line goes on as further lines.
    static constexpr int LineCapacity = 1023;

    explicit ConsoleWindow(QWidget* parent = nullptr);

    // Writes `line` and a line end above the prompt line.
    void write(const QString& line);
    // Shows `prompt` at the start of the line being typed (">" or "x = ? ";
    // empty while a command runs).
    void setPrompt(const QString& prompt);
    QString prompt() const { return prompt_; }
    // Ctrl+C: the prompt line so far goes into the history marked "^C" and
    // the typed text is dropped.
    void cancelInput();
    // The text typed after the prompt so far.
    QString pendingInput() const;
    // Everything shown, history and prompt line.
    QString transcript() const { return toPlainText(); }

signals:
    // Enter was pressed: the typed line (at most LineCapacity characters).
    void lineEntered(const QString& line);
    // Ctrl+C was pressed.
    void userBreak();
    // The user closed the window.
    void closedByUser();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    int inputStart() const { return promptStart_ + static_cast<int>(prompt_.size()); }
    // Puts the caret at the end when it (or the selection) reaches into the history.
    void keepCaretInInput();
    void submitInput();

    int promptStart_ = 0;
    QString prompt_;
};

}  // namespace quorvel::ui
