// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The bytes of an XML file before they are parsed, and texts on their way into one. The parser knows Unicode and
// Latin-1 only and takes any depth; language files come in every code page and from anywhere.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/result.h"

namespace captoria {

// The line that the byte `offset` is in, counted from 1.
std::size_t LineAt(std::string_view text, std::size_t offset);

// `bytes` as UTF-8 without a byte-order mark. The encoding is that of the mark or of a "<" of two bytes, else the one
// the XML declaration names, else UTF-8. Unsupported when the declaration names none we know, Damaged when the bytes
// are not in that encoding or hold a NUL; the message begins with "line N: ".
Result<std::string> DecodeXml(std::string bytes);

// A part of a text.
struct TextSpan {
  std::size_t at = 0;
  std::size_t size = 0;
};

// Where the value stands that the XML declaration of `text` gives as its encoding.
std::optional<TextSpan> DeclaredEncoding(std::string_view text);

struct XmlShape {
  std::size_t depth = 0;         // of the deepest element; the root's is 1
  std::size_t deepest_at = 0;    // the "<" of the first element of that depth
  std::size_t root_end = 0;      // the "</" of the root's end tag, or the "/>" of a root that is one tag
  bool root_is_one_tag = false;  // "<Language/>"
};

// The shape of a UTF-8 document, found without a tree and in constant space; the scan ends at an element deeper than
// `most`. Means something only for a text that the parser then accepts.
XmlShape ScanXml(std::string_view text, std::size_t most);

// Whether XML 1.0 can hold the text: well-formed UTF-8, and no control character but tab, line feed and return.
bool IsXmlText(std::string_view text);

// `text` as it stands between two `quote` marks in a start tag. Line ends and tabs are written as references, as a
// parser reads plain ones as blanks.
std::string EscapedAttribute(std::string_view text, char quote = '"');

}  // namespace captoria
