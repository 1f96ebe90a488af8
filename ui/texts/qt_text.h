// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Conversions between our UTF-8 and Qt's UTF-16. Paths are bytes in the encoding of the system's file names.
#pragma once

#include <QFile>
#include <QString>
#include <string>
#include <string_view>

namespace captoria {

// Invalid UTF-8 becomes U+FFFD.
inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQt(const QString& text) { return text.toStdString(); }

inline QString PathToQt(const std::string& path) { return QFile::decodeName(QByteArray::fromStdString(path)); }

inline std::string PathFromQt(const QString& path) { return QFile::encodeName(path).toStdString(); }

// Isolates text from a context of the other direction, so that punctuation at its ends stays at the right end.
inline QString Isolated(const QString& text) { return QChar(0x2068) + text + QChar(0x2069); }

// Joins lines with a sign for each line break.
inline QString OneLine(std::string_view text) {
  const QString sign = QStringLiteral(" \u23CE ");
  return ToQt(text).replace(QLatin1String("\r\n"), sign).replace(u'\n', sign).replace(u'\r', sign);
}

}  // namespace captoria
