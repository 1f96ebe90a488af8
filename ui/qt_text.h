// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Our texts are UTF-8, Qt's are UTF-16.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace captoria {

// What is no UTF-8 becomes U+FFFD.
inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQt(const QString& text) { return text.toStdString(); }

}  // namespace captoria
