// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The folder that holds everything a conversion makes on the way: bitmaps, lists, packets, the script and the tools.
// One conversion has it for itself.
#pragma once

#include <string>

#include "platform/folder_lock.h"
#include "platform/result.h"

namespace captoria {

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

  // Where the script's output goes; locked by what runs it.
  static constexpr const char* kLogName = "divxmux.log";

  const std::string& Path() const { return path_; }
  std::string File(std::string_view name) const;

  // Deletes files, never folders. What cannot be deleted stays.
  void Clean(const CleanUp& wanted) const;

 private:
  TempFolder(std::string path, FolderLock lock) : path_(std::move(path)), lock_(std::move(lock)) {}

  std::string path_;
  FolderLock lock_;
};

}  // namespace captoria
