// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The folder that holds everything a conversion makes on the way: bitmaps, lists, packets, the script and the tools.
// One conversion has it for itself.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/result.h"
#include "platform/folder_lock.h"
#include "script/tool_log.h"

namespace captoria {

// Whether a film is in the making under the name `path`.
using NameTaken = std::function<bool(const std::string& path)>;

// What to delete when a conversion is over.
struct CleanUp {
  bool everything = true;
  bool bitmaps = false;
  bool others = false;
};

class TempFolder {
 public:
  // "tmp" in `program_folder`, or where another conversion has that, "tmp-2" and so on; made when it is not there. A
  // conversion that nobody waits for has it as long as its script runs.
  static Result<TempFolder> Open(const std::string& program_folder);

  // The folder that a conversion takes if no other has it.
  static std::string FirstOf(const std::string& program_folder);

  // Where the script's output goes; locked by what runs it.
  static constexpr const char* kLogName = kToolLogName;

  // Settles the name of the film that the conversion makes, before it is there to be seen: `choose` gives it, and can
  // ask which names the other conversions of the same program folder have. Unwritable when it cannot be noted down for
  // them.
  Result<std::string> ClaimOutput(const std::function<std::string(const NameTaken& in_making)>& choose) const;

  const std::string& Path() const { return path_; }
  std::string File(std::string_view name) const;

  // Deletes files, never folders. What cannot be deleted stays.
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
