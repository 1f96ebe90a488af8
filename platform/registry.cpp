// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/registry.h"

#include <algorithm>
#include <optional>

#include "base/ascii.h"
#include "base/path_text.h"
#include "platform/files.h"

namespace captoria {
namespace {

constexpr std::size_t kLongestName = 1024;
constexpr std::size_t kLargestFile = std::size_t{64} << 10;

constexpr std::string_view kNewlyInstalled = "[.avi]\n@=\"AVIFile\"\n\n[AVIFile]\n";

bool IsName(std::string_view name) { return name.size() <= kLongestName && std::ranges::none_of(name, IsControl); }

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '\\' || c == '"') quoted += '\\';
    if (c == '\n') {
      quoted += "\\n";
    } else if (c == '\r') {
      quoted += "\\r";
    } else {
      quoted += c;
    }
  }
  return quoted + '"';
}

// Takes a text in quotation marks off the front of `line`.
std::optional<std::string> TakeQuoted(std::string_view& line) {
  if (!line.starts_with('"')) return std::nullopt;
  std::string text;
  for (std::size_t i = 1; i < line.size(); ++i) {
    if (line[i] == '"') {
      line.remove_prefix(i + 1);
      return text;
    }
    char c = line[i];
    if (c == '\\') {
      if (++i == line.size()) break;
      c = line[i] == 'n' ? '\n' : line[i] == 'r' ? '\r' : line[i];
    }
    text += c;
  }
  return std::nullopt;
}

struct NamedValue {
  std::string name, text;
};

std::optional<NamedValue> ReadValueLine(std::string_view line) {
  std::optional<std::string> name;
  if (line.starts_with('@')) {
    name.emplace();
    line.remove_prefix(1);
  } else {
    name = TakeQuoted(line);
  }
  if (!name || !IsName(*name) || !line.starts_with('=')) return std::nullopt;
  line.remove_prefix(1);
  auto text = TakeQuoted(line);
  if (!text || !line.empty()) return std::nullopt;
  return NamedValue{std::move(*name), std::move(*text)};
}

}  // namespace

bool FileRegistry::IgnoringCase::operator()(std::string_view a, std::string_view b) const {
  const auto lower = [](char c) { return LowerAscii(c); };
  return std::ranges::lexicographical_compare(a, b, {}, lower, lower);
}

// Adds the parents too, so that every key has them, whatever the file contains.
FileRegistry::Values& FileRegistry::Add(Keys& keys, std::string_view key) {
  for (auto at = key.find('\\'); at != key.npos; at = key.find('\\', at + 1))
    keys.try_emplace(std::string{key.substr(0, at)});
  return keys[std::string{key}];
}

FileRegistry::Keys FileRegistry::Parse(std::string_view text) {
  Keys keys;
  Values* values = nullptr;
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    line = Trim(line);
    if (line.starts_with('[')) {
      const std::string_view key = line.substr(1, line.size() - 2);
      const bool damaged = !line.ends_with(']') || key.empty() || !IsName(key);
      values = damaged ? nullptr : &Add(keys, key);
    } else if (auto value = ReadValueLine(line); value && values != nullptr) {
      (*values)[value->name] = value->text;
    }
  }
  return keys;
}

std::string FileRegistry::Text(const Keys& keys) {
  std::string text = "; What Captoria has told the system about kinds of files\n";
  for (const auto& [key, values] : keys) {
    text += "\n[" + key + "]\n";
    for (const auto& [name, value] : values) text += (name.empty() ? "@" : Quoted(name)) + "=" + Quoted(value) + "\n";
  }
  return text;
}

Result<FileRegistry::Keys> FileRegistry::Load() const {
  const auto text = ReadWholeFile(path_, kLargestFile);
  if (text) return Parse(*text);
  if (text.error().kind == ErrorKind::NotFound) return Parse(kNewlyInstalled);
  return tl::unexpected(text.error());
}

Result<void> FileRegistry::Change(const std::string& key, const std::function<Result<void>(Keys&)>& change) {
  if (key.empty()) return Failure(ErrorKind::Unsupported, "Invalid KeyName value");
  if (!IsName(key)) return Failure(ErrorKind::Unsupported, path_ + ": cannot hold a key of this name: " + key);
  auto keys = Load();
  if (!keys) return tl::unexpected(keys.error());
  if (auto changed = change(*keys); !changed) return changed;
  const std::string text = Text(*keys);
  if (text.size() > kLargestFile) return Failure(ErrorKind::TooLarge, path_ + ": cannot hold more keys");
  if (auto made = CreateFolder(FolderOf(path_)); !made) return made;
  return WriteWholeFile(path_, text);
}

bool FileRegistry::KeyExists(const std::string& key) const {
  const auto keys = Load();
  return keys && keys->contains(key);
}

std::string FileRegistry::ReadValue(const std::string& key, const std::string& name) const {
  const auto keys = Load();
  if (!keys) return {};
  const auto values = keys->find(key);
  if (values == keys->end()) return {};
  const auto value = values->second.find(name);
  return value == values->second.end() ? "" : value->second;
}

Result<void> FileRegistry::CreateKey(const std::string& key) {
  return Change(key, [&](Keys& keys) -> Result<void> {
    Add(keys, key);
    return {};
  });
}

Result<void> FileRegistry::SetValue(const std::string& key, const std::string& name, const std::string& text) {
  return Change(key, [&](Keys& keys) -> Result<void> {
    const auto values = keys.find(key);
    if (values == keys.end()) return Failure(ErrorKind::NotFound, path_ + ": has no key " + key);
    if (!IsName(name)) return Failure(ErrorKind::Unsupported, path_ + ": cannot hold a value of this name: " + name);
    values->second[name] = text;
    return {};
  });
}

Result<void> FileRegistry::DeleteKey(const std::string& key) {
  return Change(key, [&](Keys& keys) -> Result<void> {
    const auto found = keys.find(key);
    if (found == keys.end()) return Failure(ErrorKind::NotFound, path_ + ": has no key " + key);
    const std::string below = key + "\\";
    const auto next = keys.lower_bound(below);
    if (next != keys.end() && EqualsIgnoringCase(std::string_view{next->first}.substr(0, below.size()), below)) {
      return Failure(ErrorKind::Unsupported, path_ + ": the key " + key + " has keys below it");
    }
    keys.erase(found);
    return {};
  });
}

}  // namespace captoria
