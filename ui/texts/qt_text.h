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

// For a place where text runs the other way: set apart from what is around it, or marks at its ends would go to the
// wrong one.
inline QString Isolated(const QString& text) { return QChar(0x2068) + text + QChar(0x2069); }

// Lines one behind the other, with a sign where each ended.
inline QString OneLine(std::string_view text) {
  const QString sign = QStringLiteral(" \u23CE ");
  return ToQt(text).replace(QLatin1String("\r\n"), sign).replace(u'\n', sign).replace(u'\r', sign);
}

}  // namespace captoria
