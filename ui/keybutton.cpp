#include "ui/keybutton.h"

#include <QMouseEvent>
#include <QPainter>

#include "ui/fonts.h"

namespace quorvel::ui {
namespace {

constexpr int Frame = 1;
constexpr int Bevel = 2;

QColor mix(const QColor& a, const QColor& b, double towardB) {
    auto channel = [&](int x, int y) { return static_cast<int>(x + (y - x) * towardB + 0.5); };
    return QColor(channel(a.red(), b.red()), channel(a.green(), b.green()), channel(a.blue(), b.blue()));
}

QColor lightEdge(const QColor& face) { return mix(face, Qt::white, 0.6); }
QColor darkEdge(const QColor& face) { return mix(face, Qt::black, 0.45); }

}  // namespace

KeyButton::KeyButton(const QString& label, const QString& description, const QColor& face, const QFont& font,
                     QWidget* parent)
    : QAbstractButton(parent), description_(description), face_(face) {
    setObjectName(QStringLiteral("QuorvelButton"));
    setText(label);
    setFocusPolicy(Qt::NoFocus);
    setMouseTracking(true);
    setCursor(Qt::ArrowCursor);
    setFont(FittedFont(font, label, 80 - 2 * (Frame + Bevel) - 4));
}

QColor KeyButton::labelColor() const {
    const double luminance = 0.299 * face_.red() + 0.587 * face_.green() + 0.114 * face_.blue();
    return luminance < 110 ? QColor(Qt::white) : QColor(Qt::black);
}

QColor KeyButton::topLeftEdge() const { return isDown() ? darkEdge(face_) : lightEdge(face_); }

QColor KeyButton::bottomRightEdge() const { return isDown() ? lightEdge(face_) : darkEdge(face_); }

void KeyButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect all = rect();
    painter.fillRect(all, face_);

    // Bevel: two one-pixel rings inside the frame.
    const QColor topLeft = topLeftEdge();
    const QColor bottomRight = bottomRightEdge();
    for (int ring = 0; ring < Bevel; ++ring) {
        const QRect r = all.adjusted(Frame + ring, Frame + ring, -(Frame + ring), -(Frame + ring));
        painter.setPen(topLeft);
        painter.drawLine(r.topLeft(), r.topRight());
        painter.drawLine(r.topLeft(), r.bottomLeft());
        painter.setPen(bottomRight);
        painter.drawLine(r.bottomLeft(), r.bottomRight());
        painter.drawLine(r.topRight(), r.bottomRight());
    }
    painter.setPen(Qt::black);
    painter.drawRect(all.adjusted(0, 0, -1, -1));

    painter.setPen(labelColor());
    painter.setFont(font());
    const int shift = isDown() ? 1 : 0;
    painter.drawText(all.translated(shift, shift), Qt::AlignCenter, text());
}

void KeyButton::mouseMoveEvent(QMouseEvent* event) {
    emit hovered(description_);
    QAbstractButton::mouseMoveEvent(event);
    // Handled here: the window behind, which clears the hover line on its
    // own mouse moves, must not see it.
    event->accept();
}

}  // namespace quorvel::ui
