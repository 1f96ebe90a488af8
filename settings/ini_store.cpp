// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "settings/ini_store.h"

#include <algorithm>
#include <bit>

#include "base/utf8.h"
#include "platform/files.h"
#include "settings/number_text.h"

namespace captoria {
namespace {

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  while (count-- > 0 && end < text.size()) end += std::max<std::size_t>(Utf8CharacterLength(text, end), 1);
  return text.substr(0, end);
}

}  // namespace

Result<IniDocument> ReadIniFile(const std::string& path) {
  const auto content = ReadWholeFile(path, kLargestIniFile);
  if (!content) {
    if (content.error().kind == ErrorKind::NotFound) return IniDocument{};
    return tl::unexpected(content.error());
  }
  auto document = IniDocument::Parse(*content);
  if (!document) return Failure(document.error().kind, path + ": " + document.error().message);
  return document;
}

Result<void> EditIniFile(const std::string& path, const std::function<void(IniDocument&)>& edit) {
  auto document = ReadIniFile(path);
  if (!document) return tl::unexpected(document.error());
  const std::string before = document->Text();
  edit(*document);
  const std::string after = document->Text();
  if (after == before) return {};
  if (after.size() > kLargestIniFile) {
    return Failure(ErrorKind::TooLarge, path + ": would become too large to be read again");
  }
  return WriteWholeFile(path, after, Sync::Yes);
}

std::variant<std::string, int> IniRead(std::string_view section, std::string_view key, std::string_view default_text,
                                       int default_number, bool numeric, const std::string& path) {
  const auto document = ReadIniFile(path);
  const auto value = document ? document->Find(section, key) : std::nullopt;
  if (numeric) return value ? IntegerOfText(*value) : default_number;
  return std::string{FirstCharacters(value.value_or(default_text), kLongestIniValue)};
}

bool IniWrite(std::string_view section, std::string_view key, std::string_view value, const std::string& path) {
  bool accepted = false;
  const auto written = EditIniFile(path, [&](IniDocument& document) { accepted = document.Set(section, key, value); });
  return accepted && written;
}

}  // namespace captoria
