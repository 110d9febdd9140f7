#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "model/language.h"

namespace brivane {

/// Program text (UTF-8) as Qt's.
inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Qt's text as the program's (UTF-8).
inline std::string FromQt(const QString& text) {
  const QByteArray bytes = text.toUtf8();
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

}  // namespace brivane
