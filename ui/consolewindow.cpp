#include "ui/consolewindow.h"

#include <QCloseEvent>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextCursor>

namespace quorvel::ui {

ConsoleWindow::ConsoleWindow(QWidget* parent) : QPlainTextEdit(parent) {
    setWindowTitle(QStringLiteral("Quorvel Console"));
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setUndoRedoEnabled(false);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    QPalette colours = palette();
    colours.setColor(QPalette::Base, Qt::black);
    colours.setColor(QPalette::Text, QColor(192, 192, 192));
    setPalette(colours);
    resize(760, 420);
}

void ConsoleWindow::write(const QString& line) {
    QTextCursor cursor(document());
    cursor.setPosition(promptStart_);
    cursor.insertText(line + QLatin1Char('\n'));
    promptStart_ += static_cast<int>(line.size()) + 1;
    ensureCursorVisible();
}

void ConsoleWindow::setPrompt(const QString& prompt) {
    QTextCursor cursor(document());
    cursor.setPosition(promptStart_);
    cursor.setPosition(inputStart(), QTextCursor::KeepAnchor);
    cursor.insertText(prompt);
    prompt_ = prompt;
    if (textCursor().position() < inputStart()) moveCursor(QTextCursor::End);
    ensureCursorVisible();
}

void ConsoleWindow::cancelInput() {
    const QString shown = prompt_ + pendingInput() + QStringLiteral("^C");
    QTextCursor cursor(document());
    cursor.setPosition(inputStart());
    cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    write(shown);
}

QString ConsoleWindow::pendingInput() const {
    QTextCursor cursor(document());
    cursor.setPosition(inputStart());
    cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    return cursor.selectedText();
}

void ConsoleWindow::keepCaretInInput() {
    QTextCursor cursor = textCursor();
    if (cursor.position() < inputStart() || cursor.anchor() < inputStart()) {
        cursor.movePosition(QTextCursor::End);
        setTextCursor(cursor);
    }
}

void ConsoleWindow::submitInput() {
    QString line = pendingInput();
    moveCursor(QTextCursor::End);
    textCursor().insertText(QStringLiteral("\n"));
    promptStart_ = document()->characterCount() - 1;
    prompt_.clear();
    // A line longer than the buffer goes on as the next line.
    do {
        emit lineEntered(line.left(LineCapacity));
        line.remove(0, LineCapacity);
    } while (!line.isEmpty());
}

void ConsoleWindow::keyPressEvent(QKeyEvent* event) {
    const bool control = event->modifiers() & Qt::ControlModifier;
    if (control && event->key() == Qt::Key_C) {
        emit userBreak();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        submitInput();
        return;
    case Qt::Key_Backspace:
    case Qt::Key_Left:
        keepCaretInInput();
        if (textCursor().position() <= inputStart() && !textCursor().hasSelection()) return;
        break;
    case Qt::Key_Home: {
        QTextCursor cursor = textCursor();
        cursor.setPosition(inputStart(),
                           (event->modifiers() & Qt::ShiftModifier) ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor);
        setTextCursor(cursor);
        return;
    }
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QPlainTextEdit::keyPressEvent(event);
        return;
    default:
        break;
    }
    const bool edits = !event->text().isEmpty() || event->key() == Qt::Key_Delete ||
                       event->matches(QKeySequence::Paste) || event->matches(QKeySequence::Cut);
    if (edits) keepCaretInInput();
    QPlainTextEdit::keyPressEvent(event);
}

void ConsoleWindow::insertFromMimeData(const QMimeData* source) {
    keepCaretInInput();
    // Pasted line ends do not run anything: they become blanks.
    QString text = source->text();
    text.replace(QLatin1Char('\r'), QLatin1Char(' ')).replace(QLatin1Char('\n'), QLatin1Char(' '));
    textCursor().insertText(text);
}

void ConsoleWindow::closeEvent(QCloseEvent* event) {
    emit closedByUser();
    event->accept();
}

}  // namespace quorvel::ui
