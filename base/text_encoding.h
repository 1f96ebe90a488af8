// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Text files come in any encoding and say so seldom; in memory all text is UTF-8. These are the steps of finding out
// and of decoding; which step goes first is for the reader of a kind of file to say.
//
// Encodings are named as iconv and uchardet spell them, in capitals: "UTF-8", "UTF-16LE", "WINDOWS-1251", "CP932".
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/result.h"

namespace captoria {

// The Unicode encoding `bytes` are in beyond doubt: told by a byte-order mark; valid as UTF-8; UTF-8 but for a few
// damaged bytes (at most one to twenty good characters beyond ASCII); or UTF-16 without a mark, known by its "-->" in
// two-byte units.
std::optional<std::string> UnicodeEncodingOf(std::string_view bytes);

// The code page of a font's character set (161 is Greek, 204 Cyrillic...); nothing for the sets that name no script.
std::optional<std::string> EncodingOfCharset(int charset);

// What a statistical detector takes `sample` for; nothing when it cannot tell. A name of a small standard becomes that
// of the larger code page that people really write in (ISO-8859-1 becomes WINDOWS-1252, SHIFT_JIS becomes CP932).
std::optional<std::string> DetectEncoding(std::string_view sample);

// Whether Decode understands `encoding`.
bool IsKnownEncoding(std::string_view encoding);

struct DecodedText {
  std::string text;  // UTF-8, without a byte-order mark
  std::string encoding;
  std::size_t undecodable = 0;  // bytes that meant nothing and became U+FFFD each
};

// Unsupported when no encoding of that name is known.
Result<DecodedText> Decode(std::string bytes, std::string_view encoding);

}  // namespace captoria
