// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "localisation/xml_text.h"

#include <algorithm>

#include "base/ascii.h"
#include "base/text_encoding.h"
#include "base/utf8.h"

namespace captoria {
namespace {

constexpr std::string_view kDeclaration = "<?xml";
constexpr std::string_view kBlanks = " \t\r\n";

std::string Line(std::size_t number) { return "line " + std::to_string(number) + ": "; }

// The characters XML allows in encoding names. Other names are not passed to the system's converter, where slashes and
// commas have a meaning.
bool IsEncodingName(std::string_view name) {
  return !name.empty() && std::ranges::all_of(name, [](char c) {
    return (LowerAscii(c) >= 'a' && LowerAscii(c) <= 'z') || IsDigit(c) || c == '.' || c == '_' || c == '-';
  });
}

std::string EncodingOfXml(std::string_view bytes) {
  using std::string_view_literals::operator""sv;
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("<\0"sv)) return "UTF-16LE";
  if (bytes.starts_with("\xFE\xFF") || bytes.starts_with("\0<"sv)) return "UTF-16BE";
  if (bytes.starts_with("\xEF\xBB\xBF")) return "UTF-8";
  const auto span = DeclaredEncoding(bytes);
  if (!span) return "UTF-8";
  std::string name{bytes.substr(span->at, span->size)};
  // A declaration that is readable byte by byte cannot be UTF-16: the file was converted without changing its first
  // line.
  return LowerAscii(name).starts_with("utf-16") ? "UTF-8" : name;
}

// Scans the tags of a document once, in the same way as the parser.
class TagScanner {
 public:
  TagScanner(std::string_view text, std::size_t most) : text_(text), most_(most) {}

  XmlShape Run() {
    while (shape_.depth <= most_ && (at_ = text_.find('<', at_)) != text_.npos) Tag();
    return shape_;
  }

 private:
  bool Here(std::string_view start) const { return text_.substr(at_).starts_with(start); }

  // Moves after the next `end`, searching from `offset` bytes ahead.
  void SkipTo(std::string_view end, std::size_t offset) {
    const auto found = text_.find(end, std::min(at_ + offset, text_.size()));
    at_ = found == text_.npos ? text_.size() : found + end.size();
  }

  void SkipQuoted() { SkipTo(text_.substr(at_, 1), 1); }

  void Tag() {
    if (Here("<!--")) return SkipTo("-->", 4);
    if (Here("<![CDATA[")) return SkipTo("]]>", 9);
    if (Here("<?")) return SkipTo("?>", 2);
    if (Here("<!")) return SkipDoctype();
    if (Here("</")) return EndTag();
    StartTag();
  }

  void EndTag() {
    if (open_ == 1 && shape_.root_end == 0) shape_.root_end = at_;
    if (open_ > 0) --open_;
    at_ += 2;
  }

  void StartTag() {
    if (++open_ > shape_.depth) {
      shape_.depth = open_;
      shape_.deepest_at = at_;
    }
    while (++at_ < text_.size() && text_[at_] != '>') {
      if (text_[at_] != '"' && text_[at_] != '\'') continue;
      SkipQuoted();
      --at_;
    }
    if (at_ >= text_.size() || text_[at_ - 1] != '/') return;
    if (open_ == 1 && shape_.root_end == 0) {
      shape_.root_end = at_ - 1;
      shape_.root_is_one_tag = true;
    }
    --open_;
  }

  // Declarations can be nested, and quoted texts may contain brackets.
  void SkipDoctype() {
    std::size_t open = 0;
    while (at_ < text_.size()) {
      if (open > 0 && Here("<!--")) {
        SkipTo("-->", 4);
      } else if (open > 0 && Here("<?")) {
        SkipTo("?>", 2);
      } else if (text_[at_] == '"' || text_[at_] == '\'') {
        SkipQuoted();
      } else {
        if (text_[at_] == '<') ++open;
        if (text_[at_++] == '>' && --open == 0) return;
      }
    }
  }

  std::string_view text_;
  std::size_t most_;
  std::size_t at_ = 0;
  std::size_t open_ = 0;  // elements
  XmlShape shape_;
};

}  // namespace

std::size_t LineAt(std::string_view text, std::size_t offset) {
  return 1 + static_cast<std::size_t>(std::ranges::count(text.substr(0, offset), '\n'));
}

Result<std::string> DecodeXml(std::string bytes) {
  const std::string encoding = EncodingOfXml(bytes);
  if (!IsEncodingName(encoding) || !IsKnownEncoding(encoding)) {
    return Failure(ErrorKind::Unsupported,
                   Line(1) + "unknown encoding \"" + encoding.substr(0, 40) + "\"; save the file as UTF-8");
  }
  auto decoded = Decode(std::move(bytes), encoding);
  if (!decoded) return tl::unexpected(decoded.error());
  std::string text = std::move(decoded->text);
  if (const auto nul = text.find('\0'); nul != text.npos)
    return Failure(ErrorKind::Damaged,
                   Line(LineAt(text, nul)) + "the file contains a NUL byte; get a new copy of the file");
  if (decoded->undecodable > 0) {
    const std::size_t line = LineAt(text, text.find(kReplacementCharacter));
    return Failure(
        ErrorKind::Damaged,
        Line(line) + "a character that is not valid in " + decoded->encoding +
            "; save the file as UTF-8 or declare its encoding in the first line, <?xml ... encoding=\"...\"?>");
  }
  return text;
}

std::optional<TextSpan> DeclaredEncoding(std::string_view text) {
  if (!text.starts_with(kDeclaration)) return std::nullopt;
  const std::string_view declaration = text.substr(0, text.find("?>"));
  constexpr std::string_view kKey = "encoding";
  const auto key = declaration.find(kKey);
  if (key == declaration.npos) return std::nullopt;
  const auto equals = declaration.find_first_not_of(kBlanks, key + kKey.size());
  if (equals == declaration.npos || declaration[equals] != '=') return std::nullopt;
  const auto quote = declaration.find_first_not_of(kBlanks, equals + 1);
  if (quote == declaration.npos || (declaration[quote] != '"' && declaration[quote] != '\'')) return std::nullopt;
  const auto end = declaration.find(declaration[quote], quote + 1);
  if (end == declaration.npos) return std::nullopt;
  return TextSpan{quote + 1, end - quote - 1};
}

XmlShape ScanXml(std::string_view text, std::size_t most) { return TagScanner(text, most).Run(); }

bool IsXmlText(std::string_view text) {
  const bool has_controls = std::ranges::any_of(
      text, [](char c) { return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r'; });
  // U+FFFE and U+FFFF are valid in UTF-8 but not in XML.
  const bool has_noncharacters = text.find("\xEF\xBF\xBE") != text.npos || text.find("\xEF\xBF\xBF") != text.npos;
  return !has_controls && !has_noncharacters && TakeUtf8Census(text).invalid == 0;
}

std::string EscapedAttribute(std::string_view text, char quote) {
  std::string escaped;
  escaped.reserve(text.size());
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '\t':
        escaped += "&#9;";
        break;
      case '\n':
        escaped += "&#10;";
        break;
      case '\r':
        escaped += "&#13;";
        break;
      default:
        c == quote ? escaped += (quote == '"' ? "&quot;" : "&apos;") : escaped += c;
    }
  }
  return escaped;
}

}  // namespace captoria
