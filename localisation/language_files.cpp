// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "localisation/language_files.h"

#include <algorithm>
#include <map>

#include "base/ascii.h"
#include "base/path_text.h"
#include "localisation/language_document.h"
#include "platform/files.h"

namespace captoria {
namespace {

constexpr std::string_view kExecutable = "Captoria.exe";
constexpr std::string_view kXml = ".xml";
constexpr std::string_view kReplacement = ".xml.New";

std::vector<std::string> Places(const ProgramFolders& folders) {
  return {folders.data, folders.executable, ShippedFolder(folders, "languages")};
}

std::string FilePattern() { return "*" + std::string{kExecutable} + std::string{kXml}; }

bool HasControls(std::string_view name) {
  return std::ranges::any_of(name, [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; });
}

// The character before "Captoria.exe.xml" is cut off, even if it is not a ".".
std::string_view CaptionOf(std::string_view file_name) {
  const std::size_t cut = kExecutable.size() + kXml.size() + 1;
  return file_name.substr(0, file_name.size() - std::min(cut, file_name.size()));
}

// The file `name` in `folder`; otherwise a file whose name differs only in case, as it may come from a system that
// ignores case.
std::optional<std::string> FileNamed(const std::string& folder, const std::string& name) {
  if (std::string exact = JoinPath(folder, name); FileExists(exact)) return exact;
  for (const std::string& other : ListFiles(folder, FilePattern() + "*")) {
    if (EqualsIgnoringCase(other, name)) return JoinPath(folder, other);
  }
  return std::nullopt;
}

}  // namespace

std::string LanguageBase(std::string_view name) { return std::string{name} + "." + std::string{kExecutable}; }

std::string LanguageName(std::string_view base) { return std::string{base.substr(0, base.find('.'))}; }

std::vector<LanguageFile> ListLanguages(const ProgramFolders& folders) {
  std::map<std::string, std::string> paths;  // by file name
  for (const std::string& folder : Places(folders)) {
    for (const std::string& name : ListFiles(folder, FilePattern())) {
      if (!HasControls(name)) paths.try_emplace(name, JoinPath(folder, name));
    }
  }
  std::vector<LanguageFile> files;
  for (const auto& [file_name, path] : paths) {
    const std::string_view caption = CaptionOf(file_name);
    files.push_back({std::string{caption}, LanguageBase(caption), path});
  }
  return files;
}

std::vector<LanguageFile> ListEditableLanguages(const ProgramFolders& folders) {
  std::vector<LanguageFile> files = ListLanguages(folders);
  std::erase_if(files, [](const LanguageFile& file) {
    return !EqualsIgnoringCase(GetFileNameOnly(file.path), file.base + std::string{kXml});
  });
  return files;
}

std::optional<std::string> FindLanguageFile(const ProgramFolders& folders, std::string_view base) {
  if (base.find('/') != base.npos) return std::nullopt;
  for (const std::string& folder : Places(folders)) {
    for (const std::string_view ending : {kReplacement, kXml}) {
      if (auto found = FileNamed(folder, std::string{base} + std::string{ending})) return found;
    }
  }
  return std::nullopt;
}

tl::expected<LanguageFile, NewLanguageRefusal> NameNewLanguage(const ProgramFolders& folders, std::string_view answer,
                                                               std::string_view original_path) {
  using enum NewLanguageRefusal;
  const std::string_view name = Trim(answer);
  if (name.empty()) return tl::unexpected(Blank);
  if (name.find_first_of("/.") != name.npos || HasControls(name)) return tl::unexpected(BadName);
  if (original_path.empty()) return tl::unexpected(NoOriginal);
  LanguageFile file{std::string{name}, LanguageBase(name), {}};
  const std::string file_name = file.base + std::string{kXml};
  for (const std::string& folder : Places(folders)) {
    if (FileNamed(folder, file_name)) return tl::unexpected(Exists);
  }
  file.path = JoinPath(folders.data, file_name);
  return file;
}

Result<void> CreateLanguage(const LanguageFile& created, const std::string& original_path) {
  // Copy the content but not the permissions: the original may be writable only by the administrator.
  const auto content = ReadWholeFile(original_path, kMostLanguageBytes);
  if (!content) return tl::unexpected(content.error());
  if (auto folder = CreateFolder(FolderOf(created.path)); !folder) return folder;
  return WriteWholeFile(created.path, *content);
}

}  // namespace captoria
