// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Finds out the encoding of text files, which rarely name it, and decodes them to UTF-8, the encoding of all text in
// memory. Each reader of a file format combines these steps in its own order.
//
// Encodings are named as iconv and uchardet spell them, in capitals: "UTF-8", "UTF-16LE", "WINDOWS-1251", "CP932".
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/result.h"

namespace captoria {

// The Unicode encoding of `bytes`, if it is certain: the bytes begin with a byte-order mark, are valid UTF-8, are UTF-8
// with a few damaged bytes (at most one for every twenty characters beyond ASCII), or are UTF-16 without a mark, which
// "-->" in two-byte units gives away.
std::optional<std::string> UnicodeEncodingOf(std::string_view bytes);

// The code page of a font's character set (161 is Greek, 204 Cyrillic...); nothing for sets that stand for no script.
std::optional<std::string> EncodingOfCharset(int charset);

// The encoding that a statistical detector recognises in `sample`, if any. A small standard is replaced by the larger
// code page that people use in practice (ISO-8859-1 by WINDOWS-1252, SHIFT_JIS by CP932).
std::optional<std::string> DetectEncoding(std::string_view sample);

// Whether Decode supports `encoding`.
bool IsKnownEncoding(std::string_view encoding);

struct DecodedText {
  std::string text;  // UTF-8, without a byte-order mark
  std::string encoding;
  std::size_t undecodable = 0;  // bytes that did not decode; each became U+FFFD
};

// Unsupported if the encoding is unknown.
Result<DecodedText> Decode(std::string bytes, std::string_view encoding);

}  // namespace captoria
