// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "base/text_encoding.h"

#include <iconv.h>
#include <uchardet.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include "base/ascii.h"
#include "base/utf8.h"

namespace captoria {
namespace {

using NamePair = std::pair<std::string_view, std::string_view>;

constexpr std::array<NamePair, 3> kMarks{{
    {"\xEF\xBB\xBF", "UTF-8"},
    {"\xFF\xFE", "UTF-16LE"},
    {"\xFE\xFF", "UTF-16BE"},
}};

// Charset numbers: Microsoft, "[MS-WMF] CharacterSet enumeration". 0 (ANSI) and 1 (default) stand for no script.
constexpr std::array<std::pair<int, std::string_view>, 12> kCharsets{{
    {128, "CP932"},
    {129, "CP949"},
    {134, "GB18030"},
    {136, "BIG5"},
    {161, "WINDOWS-1253"},
    {162, "WINDOWS-1254"},
    {177, "WINDOWS-1255"},
    {178, "WINDOWS-1256"},
    {186, "WINDOWS-1257"},
    {204, "WINDOWS-1251"},
    {222, "CP874"},
    {238, "WINDOWS-1250"},
}};

// The right encoding decodes every text of the left one to the same characters. It also defines bytes that the left one
// leaves undefined but Windows programs use.
constexpr std::array<NamePair, 9> kLargerPages{{
    {"ASCII", "UTF-8"},
    {"EUC-KR", "CP949"},
    {"GB2312", "GB18030"},
    {"GBK", "GB18030"},
    {"ISO-8859-1", "WINDOWS-1252"},
    {"ISO-8859-9", "WINDOWS-1254"},
    {"SHIFT_JIS", "CP932"},
    {"TIS-620", "CP874"},
    {"UHC", "CP949"},
}};

std::string Canonical(std::string_view name) {
  std::string capitals{name};
  std::ranges::transform(capitals, capitals.begin(), [](char c) { return UpperAscii(c); });
  for (const auto& [small, large] : kLargerPages) {
    if (capitals == small) return std::string{large};
  }
  return capitals;
}

// An iconv conversion to UTF-8, closed at the end of its scope.
class Converter {
 public:
  explicit Converter(const std::string& encoding) : handle_(::iconv_open("UTF-8", encoding.c_str())) {}
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  ~Converter() {
    if (Valid()) ::iconv_close(handle_);
  }

  // iconv_open returns (iconv_t)-1 on failure.
  bool Valid() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }

  // Decodes all of `bytes`; every byte that does not decode becomes one replacement character and is counted. In
  // encodings with wider units a whole unit is skipped, otherwise all units after it would be misaligned.
  DecodedText Run(std::string_view bytes, std::size_t unit) {
    DecodedText result;
    // iconv does not write through the input pointer; it lacks `const` for historical reasons.
    char* in = const_cast<char*>(bytes.data());
    std::size_t left = bytes.size();
    while (left > 0) {
      if (Step(&in, &left, result.text)) continue;
      for (std::size_t skipped = std::min(unit, left); skipped > 0; --skipped, ++in, --left) {
        result.text += kReplacementCharacter;
        ++result.undecodable;
      }
    }
    Step(nullptr, nullptr, result.text);  // some code pages hold a letter back because an accent may follow
    return result;
  }

 private:
  // Converts as much as fits the buffer; false at a byte that does not decode.
  bool Step(char** in, std::size_t* left, std::string& text) {
    char* out = buffer_.data();
    std::size_t room = buffer_.size();
    const bool failed = ::iconv(handle_, in, left, &out, &room) == static_cast<std::size_t>(-1);
    const int code = errno;
    text.append(buffer_.data(), buffer_.size() - room);
    return !failed || code == E2BIG;
  }

  iconv_t handle_;
  std::array<char, 1 << 14> buffer_;
};

// Replaces the invalid bytes of UTF-8. Text without invalid bytes is moved, not copied.
DecodedText RepairUtf8(std::string bytes) {
  DecodedText result;
  result.undecodable = TakeUtf8Census(bytes).invalid;
  if (result.undecodable == 0) {
    result.text = std::move(bytes);
    return result;
  }
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t length = Utf8CharacterLength(bytes, at);
    if (length == 0) {
      result.text += kReplacementCharacter;
    } else {
      result.text.append(bytes, at, length);
    }
    at += std::max<std::size_t>(length, 1);
  }
  return result;
}

bool LooksLikeUtf16(std::string_view bytes, bool little_endian) {
  constexpr std::string_view kArrowLe{"-\0-\0>\0", 6};
  constexpr std::string_view kArrowBe{"\0-\0-\0>", 6};
  const auto at = bytes.find(little_endian ? kArrowLe : kArrowBe);
  return at != bytes.npos && at % 2 == 0;
}

}  // namespace

std::optional<std::string> UnicodeEncodingOf(std::string_view bytes) {
  for (const auto& [mark, encoding] : kMarks) {
    if (bytes.starts_with(mark)) return std::string{encoding};
  }
  if (bytes.find('\0') != bytes.npos) {
    if (LooksLikeUtf16(bytes, true)) return "UTF-16LE";
    if (LooksLikeUtf16(bytes, false)) return "UTF-16BE";
  }
  // Text in a code page rarely contains valid sequences by chance, so a few stray bytes do not rule out UTF-8.
  constexpr std::size_t kGoodPerBad = 20;
  const Utf8Census census = TakeUtf8Census(bytes);
  if (census.invalid * kGoodPerBad <= census.multibyte) return "UTF-8";
  return std::nullopt;
}

std::optional<std::string> EncodingOfCharset(int charset) {
  for (const auto& [number, encoding] : kCharsets) {
    if (number == charset) return std::string{encoding};
  }
  return std::nullopt;
}

std::optional<std::string> DetectEncoding(std::string_view sample) {
  const uchardet_t detector = uchardet_new();
  if (detector == nullptr) return std::nullopt;
  std::string name;
  if (uchardet_handle_data(detector, sample.data(), sample.size()) == 0) {
    uchardet_data_end(detector);
    name = Canonical(uchardet_get_charset(detector));
  }
  uchardet_delete(detector);
  if (name.empty() || !Converter(name).Valid()) return std::nullopt;
  return name;
}

bool IsKnownEncoding(std::string_view encoding) { return Converter(Canonical(encoding)).Valid(); }

Result<DecodedText> Decode(std::string bytes, std::string_view encoding) {
  const std::string name = Canonical(encoding);
  const auto mark = std::ranges::find_if(kMarks, [&](const NamePair& pair) {
    return pair.second == name && std::string_view{bytes}.starts_with(pair.first);
  });
  if (mark != kMarks.end()) bytes.erase(0, mark->first.size());

  if (name == "UTF-8" || name == "UTF8") {
    DecodedText result = RepairUtf8(std::move(bytes));
    result.encoding = "UTF-8";
    return result;
  }
  Converter converter(name);
  if (!converter.Valid()) return Failure(ErrorKind::Unsupported, "unknown encoding \"" + std::string{encoding} + "\"");
  DecodedText result = converter.Run(bytes, name.starts_with("UTF-16") ? 2 : name.starts_with("UTF-32") ? 4 : 1);
  result.encoding = name;
  return result;
}

}  // namespace captoria
