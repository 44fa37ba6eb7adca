#include "ui/appicon.h"

#include <QPainter>
#include <QPixmap>

namespace quorvel::ui {
namespace {

QPixmap drawIcon(int size) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal unit = size / 16.0;
    painter.setPen(QPen(Qt::black, unit * 0.5));
    painter.setBrush(QColor(128, 128, 128));
    painter.drawRoundedRect(QRectF(unit, 0.5 * unit, 14 * unit, 15 * unit), unit, unit);
    painter.setBrush(Qt::white);
    painter.drawRect(QRectF(2.5 * unit, 2 * unit, 11 * unit, 3.5 * unit));
    const QColor keys[3][3] = {{{80, 255, 255}, {0, 255, 0}, {255, 255, 0}},
                               {{255, 255, 255}, {255, 255, 255}, {80, 255, 255}},
                               {{255, 255, 255}, {255, 255, 255}, {160, 160, 160}}};
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 3; ++c) {
            painter.setBrush(keys[r][c]);
            painter.drawRect(QRectF((2.5 + 3.8 * c) * unit, (6.5 + 2.9 * r) * unit, 3.2 * unit, 2.2 * unit));
        }
    }
    return picture;
}

}  // namespace

QIcon AppIcon() {
    QIcon icon;
    for (int size : {16, 32, 48, 64}) icon.addPixmap(drawIcon(size));
    return icon;
}

}  // namespace quorvel::ui
