// The message line: a grey strip in a black frame showing one message in
// the colour of its severity (green, cyan, yellow, red).
#pragma once

#include <QColor>
#include <QString>
#include <QWidget>

namespace quorvel::ui {

class MessageStrip : public QWidget {
    Q_OBJECT

public:
    explicit MessageStrip(QWidget* parent = nullptr);

    // Shows `text` at `severity` (1..4).
    void showMessage(const QString& text, int severity);
    // Shows the empty strip.
    void clearMessage();

    QString text() const { return text_; }
    int severity() const { return severity_; }

    // Text colour of a severity: 1 green, 2 cyan, 3 yellow, 4 red, else black.
    static QColor severityColor(int severity);
    // The fill inside the frame.
    static QColor fillColor() { return {160, 160, 160}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString text_;
    int severity_ = 0;
};

}  // namespace quorvel::ui
