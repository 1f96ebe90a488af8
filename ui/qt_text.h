// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Our texts are UTF-8, Qt's are UTF-16. Paths are bytes, in the encoding that the system's names have.
#pragma once

#include <QFile>
#include <QString>
#include <string>
#include <string_view>

namespace captoria {

// What is no UTF-8 becomes U+FFFD.
inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQt(const QString& text) { return text.toStdString(); }

inline QString PathToQt(const std::string& path) { return QFile::decodeName(QByteArray::fromStdString(path)); }

inline std::string PathFromQt(const QString& path) { return QFile::encodeName(path).toStdString(); }

}  // namespace captoria
