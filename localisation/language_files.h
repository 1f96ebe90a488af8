// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The names of language files and the places they are looked for. "English.Captoria.exe.xml" is the file of the base
// name "English.Captoria.exe", which is the language "English"; with ".New" behind, it is loaded in the other's place.
//
// Places, first to last: the user's data folder, the program's folder, the shipped "languages". A file hides one of
// the same name in a later place.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "platform/program_folder.h"

namespace captoria {

// Stays the same whatever the executable is called.
inline constexpr const char* kInitialLanguage = "English.Captoria.exe";

struct LanguageFile {
  std::string name;  // in the menu: the file name less a character and "Captoria.exe.xml"; may be empty
  std::string base;  // what choosing that name loads
  std::string path;
};

// "English" -> "English.Captoria.exe".
std::string LanguageBase(std::string_view name);

// The text before the first ".": "English.Captoria.exe" -> "English".
std::string LanguageName(std::string_view base);

// The files "*Captoria.exe.xml" of all places, sorted by the bytes of the file name. A file whose name holds a control
// character is left out: no setting can keep it.
std::vector<LanguageFile> ListLanguages(const ProgramFolders& folders);

// Those of ListLanguages that the language editor works on: with a "." before "Captoria.exe.xml".
std::vector<LanguageFile> ListEditableLanguages(const ProgramFolders& folders);

// The file to load for `base`: base + ".xml.New", else base + ".xml", of the first place that has one of the two. The
// exact name goes before one that differs in case. Nothing for a base with a path separator in it.
std::optional<std::string> FindLanguageFile(const ProgramFolders& folders, std::string_view base);

// Why a language cannot be created under a name.
enum class NewLanguageRefusal {
  Blank,       // nothing but blanks, which is how a person takes a question back
  BadName,     // "/", "." or a control character: no file could have it, or the language would not be found again
  Exists,      // in one of the places
  NoOriginal,  // there is nothing to copy
};

// The file that the language called `answer`, trimmed, is to have in the user's data folder. Nothing is written.
tl::expected<LanguageFile, NewLanguageRefusal> NameNewLanguage(const ProgramFolders& folders, std::string_view answer,
                                                               std::string_view original_path);

// Writes the file, byte for byte the original. TooLarge when that is none that could be loaded.
Result<void> CreateLanguage(const LanguageFile& created, const std::string& original_path);

}  // namespace captoria
