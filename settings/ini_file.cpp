// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "settings/ini_file.h"

#include <algorithm>
#include <array>

#include "base/ascii.h"
#include "base/path_text.h"
#include "platform/files.h"
#include "settings/ini_path.h"
#include "settings/ini_store.h"

namespace captoria {
namespace {

constexpr std::array<std::string_view, 7> kOnWords{"yes", "y", "true", "t", "on", "1", "-1"};

std::string_view WordOf(bool value) { return value ? "True" : "False"; }

std::string InTitleCase(std::string_view name) {
  std::string title = LowerAscii(Trim(name));
  for (std::size_t i = 0; i < title.size(); ++i) {
    if (i == 0 || IsBlank(title[i - 1])) title[i] = UpperAscii(title[i]);
  }
  return title;
}

}  // namespace

clsIniFile::clsIniFile(Prompts& prompts, const std::string& program_folder, std::string_view exe_name)
    : prompts_(prompts) {
  SetFullPath(JoinPath(program_folder, InTitleCase(exe_name) + ".ini"));
}

void clsIniFile::SetFullPath(const std::string& path) {
  full_path_ = path;
  file_path_ = ExtractPath(path);
  file_name_ = ExtractName(path, 1);
  file_ext_ = ExtractName(path, 2);
  SetSectionName(section_name_);
}

void clsIniFile::SetSectionName(const std::string& name) {
  section_name_ = name;
  registered_ = !Trim(section_name_).empty();
}

bool clsIniFile::Registered() const {
  if (!registered_) {
    prompts_.ShowMessage("IniFile Logic Error", "[Section] and FileName Not Registered in Private.Ini!");
  }
  return registered_;
}

std::string clsIniFile::GetString(std::string_view key, std::string_view default_text) const {
  if (!Registered()) return {};
  return std::get<std::string>(IniRead(section_name_, key, default_text, 0, false, full_path_));
}

int clsIniFile::GetInt(std::string_view key, int default_number) const {
  if (!Registered()) return 0;
  return std::get<int>(IniRead(section_name_, key, "", default_number, true, full_path_));
}

bool clsIniFile::GetTF(std::string_view key, bool default_value) const {
  if (!Registered()) return false;
  const std::string word = LowerAscii(Trim(GetString(key, WordOf(default_value))));
  return std::ranges::find(kOnWords, word) != kOnWords.end();
}

bool clsIniFile::PutString(std::string_view key, std::string_view value) {
  return Registered() && IniWrite(section_name_, key, value, full_path_);
}

bool clsIniFile::PutInt(std::string_view key, int value) { return PutString(key, std::to_string(value)); }

bool clsIniFile::PutTF(std::string_view key, bool value) { return PutString(key, WordOf(value)); }

bool clsIniFile::DeleteStrEntry(std::string_view key) {
  return Registered() && Update([&](IniDocument& document) { document.Erase(section_name_, key); });
}

bool clsIniFile::DeleteSection() {
  if (!Registered()) return false;
  registered_ = false;
  return Update([&](IniDocument& document) { document.EraseKeys(section_name_); }).has_value();
}

std::string clsIniFile::GetSectEntries() const {
  std::string joined;
  for (const auto& [key, value] : GetSectEntriesEx()) joined.append(key).append("=").append(value).push_back('\0');
  return joined;
}

std::vector<IniEntry> clsIniFile::GetSectEntriesEx() const {
  if (!Registered()) return {};
  return DocumentOrEmpty().Entries(section_name_);
}

bool clsIniFile::SectExist(std::string_view name) const {
  if (!Registered()) return false;
  return std::ranges::any_of(GetSectionsEx(),
                             [&](const std::string& section) { return EqualsIgnoringCase(Trim(section), Trim(name)); });
}

std::string clsIniFile::GetSections() const {
  std::string joined;
  for (const std::string& name : GetSectionsEx()) joined.append(name).push_back('\0');
  if (joined.empty()) joined.push_back('\0');
  joined.push_back('\0');
  return joined;
}

std::vector<std::string> clsIniFile::GetSectionsEx() const { return DocumentOrEmpty().Sections(); }

bool clsIniFile::Exists(const std::string& name) {
  if (FileExists(name)) return true;
  const std::string file = ExtractName(name);
  if (file.empty() || file.find('.') != file.npos) return false;
  return !ListFiles(ExtractPath(name), file + ".*").empty();
}

Result<IniDocument> clsIniFile::Load() const { return ReadIniFile(full_path_); }

Result<void> clsIniFile::Update(const std::function<void(IniDocument&)>& edit) { return EditIniFile(full_path_, edit); }

}  // namespace captoria
