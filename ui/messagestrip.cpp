#include "ui/messagestrip.h"

#include <QPainter>

#include "ui/fonts.h"

namespace quorvel::ui {

MessageStrip::MessageStrip(QWidget* parent) : QWidget(parent) {
    setFont(CambriaFont(20, true));
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void MessageStrip::showMessage(const QString& text, int severity) {
    text_ = text;
    severity_ = severity;
    update();
}

void MessageStrip::clearMessage() {
    text_.clear();
    severity_ = 0;
    update();
}

QColor MessageStrip::severityColor(int severity) {
    switch (severity) {
    case 1: return {0, 255, 0};
    case 2: return {0, 255, 255};
    case 3: return {255, 255, 0};
    case 4: return {255, 0, 0};
    default: return {0, 0, 0};
    }
}

void MessageStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), fillColor());
    painter.setPen(Qt::black);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (text_.isEmpty()) return;
    painter.setPen(severityColor(severity_));
    painter.setFont(font());
    painter.drawText(rect().adjusted(2, 2, -2, 0), Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, text_);
}

}  // namespace quorvel::ui
