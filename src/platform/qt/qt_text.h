// Conversions between the logic's UTF-8 texts and Qt's strings, used at the widget boundary.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace kxc::qt {

inline QString toQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string fromQString(const QString& text) { return text.toUtf8().toStdString(); }

}  // namespace kxc::qt
