// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The folder for everything that a conversion needs while it runs: bitmaps, lists, packets, the script and the tools.
// No two conversions share one.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/result.h"
#include "platform/folder_lock.h"
#include "script/tool_log.h"

namespace captoria {

// Whether another conversion is making a film with the name `path`.
using NameTaken = std::function<bool(const std::string& path)>;

// What to delete after a conversion.
struct CleanUp {
  bool everything = true;
  bool bitmaps = false;
  bool others = false;
};

class TempFolder {
 public:
  // "tmp" in `program_folder`, created if it is missing. If another conversion uses it, or it is not safe to empty,
  // then "tmp-2" and so on. A folder is safe if it has our marker or contains only files that a conversion makes,
  // unless others can change it. A conversion that nobody waits for keeps its folder until its script ends.
  static Result<TempFolder> Open(const std::string& program_folder);

  // The folder that a conversion takes if no other has it.
  static std::string FirstOf(const std::string& program_folder);

  // Where the script's output goes; locked by what runs it.
  static constexpr const char* kLogName = kToolLogName;

  // Settles the name of the film before the film exists. `choose` returns the name and can ask which names other
  // conversions of the same program folder have taken. Unwritable if the name cannot be written down for them.
  Result<std::string> ClaimOutput(const std::function<std::string(const NameTaken& in_making)>& choose) const;

  const std::string& Path() const { return path_; }
  std::string File(std::string_view name) const;

  // Deletes files, never folders or the marker. What cannot be deleted stays.
  void Clean(const CleanUp& wanted) const;

 private:
  TempFolder(std::string program_folder, std::string path, FolderLock lock)
      : program_folder_(std::move(program_folder)), path_(std::move(path)), lock_(std::move(lock)) {}

  std::vector<std::string> OutputsOfOthers() const;

  std::string program_folder_;
  std::string path_;
  FolderLock lock_;
};

}  // namespace captoria
