// Texts between the program (UTF-8) and the toolkit.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace vistaplot {

inline QString QtText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string PlainUtf8(const QString& text) {
  return text.toStdString();
}

/// A caption as it is read out: without the "&" that marks the access key, without a colon at the
/// end, and with one blank between words.
QString SpokenText(std::string_view caption);

}  // namespace vistaplot
