#include "ui/fonts.h"

#include <QFontMetricsF>
#include <QStringList>
#include <cmath>

namespace quorvel::ui {

QFont CambriaFont(int cellHeight, bool bold) {
    QFont font;
    font.setFamilies({QStringLiteral("Cambria"), QStringLiteral("Caladea"), QStringLiteral("serif")});
    font.setStyleHint(QFont::Serif);
    font.setWeight(bold ? QFont::Bold : QFont::Normal);
    font.setPixelSize(cellHeight);
    // A cell height counts the whole line; the pixel size is the em. Scale
    // the em so that the line comes out at the asked height.
    const QFontMetricsF metrics(font);
    const qreal line = metrics.ascent() + metrics.descent();
    if (line > 0) {
        const int pixels = static_cast<int>(std::lround(cellHeight * cellHeight / line));
        font.setPixelSize(std::max(6, pixels));
    }
    return font;
}

QFont FittedFont(const QFont& font, const QString& text, int width) {
    QFont fitted = font;
    while (fitted.pixelSize() > 8 && QFontMetricsF(fitted).horizontalAdvance(text) > width)
        fitted.setPixelSize(fitted.pixelSize() - 1);
    return fitted;
}

}  // namespace quorvel::ui
