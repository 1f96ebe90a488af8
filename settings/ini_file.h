// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Access to one section of one INI file. Every read reads the file again; every write replaces the whole file and syncs
// it. An object starts with the program's own file, `<program folder>/Captoria.ini`, section "General".
//
// An operation on the section needs a section name. If the name is blank, the operation shows a message box and returns
// "", 0 or false. If the file cannot be read, Get returns the defaults, and Put returns false and does not overwrite
// it.
//
// A system-wide profile file is not supported: the systems we run on have none.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "platform/prompts.h"
#include "settings/ini_document.h"

namespace captoria {

class clsIniFile {
 public:
  clsIniFile(Prompts& prompts, const std::string& program_folder, std::string_view exe_name);

  const std::string& FullPath() const { return full_path_; }
  const std::string& FilePath() const { return file_path_; }  // the folder
  const std::string& FileName() const { return file_name_; }  // without extension
  const std::string& FileExt() const { return file_ext_; }    // without its point
  const std::string& SectionName() const { return section_name_; }
  void SetFullPath(const std::string& path);
  void SetSectionName(const std::string& name);

  std::string GetString(std::string_view key, std::string_view default_text = "") const;  // at most 254 characters
  int GetInt(std::string_view key, int default_number = 0) const;
  bool GetTF(std::string_view key, bool default_value = false) const;  // on: yes, y, true, t, on, 1, -1
  bool PutString(std::string_view key, std::string_view value);
  bool PutInt(std::string_view key, int value);
  bool PutTF(std::string_view key, bool value);  // "True" or "False"
  bool DeleteStrEntry(std::string_view key);
  bool DeleteNumEntry(std::string_view key) { return DeleteStrEntry(key); }

  // Removes the section's keys. Call SetSectionName before the next operation on a section.
  bool DeleteSection();

  // Each entry as key, "=", value and a zero byte; or as key and value.
  std::string GetSectEntries() const;
  std::vector<IniEntry> GetSectEntriesEx() const;

  bool SectExist(std::string_view name) const;

  // The names of all sections, each followed by a zero byte, and a final zero byte (two if there are none); or as a
  // list.
  std::string GetSections() const;
  std::vector<std::string> GetSectionsEx() const;

  // Whether the file exists. A name without a point stands for a file with any extension.
  static bool Exists(const std::string& name);

  // Does nothing: every Put is on the disk when it returns.
  void FlushCache() const {}

  // The whole file, for callers that want many values of the same moment.
  Result<IniDocument> Load() const;

  // Makes several changes and writes all of them or none.
  Result<void> Update(const std::function<void(IniDocument&)>& edit);

 private:
  bool Registered() const;
  IniDocument DocumentOrEmpty() const { return Load().value_or(IniDocument{}); }

  Prompts& prompts_;
  std::string full_path_;
  std::string file_path_;
  std::string file_name_;
  std::string file_ext_;
  std::string section_name_{"General"};
  bool registered_ = false;
};

}  // namespace captoria
