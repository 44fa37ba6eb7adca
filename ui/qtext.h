// Text crossing between the core (UTF-16 std::u16string) and Qt (QString).
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace quorvel::ui {

// The same UTF-16 text as a QString.
inline QString ToQString(std::u16string_view text) {
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

// The same UTF-16 text as a std::u16string.
inline std::u16string ToU16(const QString& text) {
    return std::u16string(reinterpret_cast<const char16_t*>(text.utf16()), static_cast<size_t>(text.size()));
}

}  // namespace quorvel::ui
