// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// One INI file and one of its sections, bound together: values by key, read anew from the file and written to it at
// once, whole and synced. It starts with the program's own file, `<program folder>/Captoria.ini`, section "General".
//
// An operation on the section needs its name: with a blank one it tells the user so in a box and gives "", 0 or false.
// A file that cannot be read gives the defaults, and Put is false rather than write over it.
//
// The file of profile texts that belongs to the system is not offered: the systems we run on have none.
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

  // Removes the section's keys. The next operation on a section needs SetSectionName first.
  bool DeleteSection();

  // Each entry as key, "=", value and a zero byte; or taken apart.
  std::string GetSectEntries() const;
  std::vector<IniEntry> GetSectEntriesEx() const;

  bool SectExist(std::string_view name) const;

  // The names of all sections, each followed by a zero byte, and one more (two when there are none); or one by one.
  std::string GetSections() const;
  std::vector<std::string> GetSectionsEx() const;

  // Whether such a file is there; a name without a point may have any extension.
  static bool Exists(const std::string& name);

  // Every Put is on the disk when it returns, so nothing is left to do here.
  void FlushCache() const {}

  // The whole file at one moment, for whoever wants many values.
  Result<IniDocument> Load() const;

  // Many changes, all or none of them written.
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
