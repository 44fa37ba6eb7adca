// The fonts of the window: Cambria, or the metric-compatible Caladea, or any
// serif, asked for by cell height as the window's layout gives them.
#pragma once

#include <QFont>
#include <QString>

namespace quorvel::ui {

// A Cambria (Caladea, serif) font whose ascent plus descent is about
// `cellHeight` pixels; bold when `bold`.
QFont CambriaFont(int cellHeight, bool bold);

// `font`, made smaller one pixel at a time (not below 8 pixels) until `text`
// is at most `width` pixels wide.
QFont FittedFont(const QFont& font, const QString& text, int width);

}  // namespace quorvel::ui
