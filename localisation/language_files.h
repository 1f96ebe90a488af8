// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Names and locations of language files. "English.Captoria.exe.xml" has the base name "English.Captoria.exe" and is the
// language "English". If "English.Captoria.exe.xml.New" exists, it is loaded instead.
//
// Folders are searched in this order: the user's data folder, the program's folder, the shipped "languages". A file
// hides files of the same name in later folders.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "platform/program_folder.h"

namespace captoria {

// The base name of English. Does not depend on the name of the executable.
inline constexpr const char* kInitialLanguage = "English.Captoria.exe";

struct LanguageFile {
  std::string name;  // in the menu: file name without "Captoria.exe.xml" and the character before it; may be empty
  std::string base;  // base name that the menu entry loads
  std::string path;
};

// "English" -> "English.Captoria.exe".
std::string LanguageBase(std::string_view name);

// The text before the first ".": "English.Captoria.exe" -> "English".
std::string LanguageName(std::string_view base);

// The files "*Captoria.exe.xml" in all folders, sorted by the bytes of their names. File names with control characters
// are left out, because the settings file cannot hold them.
std::vector<LanguageFile> ListLanguages(const ProgramFolders& folders);

// The files of ListLanguages that the language editor can edit: those with a "." before "Captoria.exe.xml".
std::vector<LanguageFile> ListEditableLanguages(const ProgramFolders& folders);

// The file to load for `base`, from the first folder that has one: base + ".xml.New", otherwise base + ".xml". An exact
// name wins over a name that differs in case. Nothing if `base` contains a path separator.
std::optional<std::string> FindLanguageFile(const ProgramFolders& folders, std::string_view base);

// Why a new language cannot have a certain name.
enum class NewLanguageRefusal {
  Blank,       // only blanks; the user changed his mind
  BadName,     // contains "/", "." or a control character: no valid file name, or not found again later
  Exists,      // in one of the folders
  NoOriginal,  // no file to copy
};

// The file in the user's data folder for a new language called `answer`, which is trimmed. Writes nothing.
tl::expected<LanguageFile, NewLanguageRefusal> NameNewLanguage(const ProgramFolders& folders, std::string_view answer,
                                                               std::string_view original_path);

// Creates the file as an exact copy of the original. TooLarge if the original is too big to load.
Result<void> CreateLanguage(const LanguageFile& created, const std::string& original_path);

}  // namespace captoria
