// The window icon: a small calculator drawn in the keypad's colours.
#pragma once

#include <QIcon>

namespace quorvel::ui {

// The application icon, drawn at 16, 32, 48 and 64 pixels.
QIcon AppIcon();

}  // namespace quorvel::ui
