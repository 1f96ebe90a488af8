// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What file managers offer to do with files of some kinds, on desktops that keep such offers as desktop entries in the
// user's data folder (freedesktop.org, Desktop Entry 1.5).
#pragma once

#include <string>
#include <utility>

#include "base/result.h"
#include "platform/program_folder.h"

namespace captoria {

struct FileAction {
  std::string id;          // its name among all programs' entries; a file is named by it
  std::string name;        // what the menu shows, one line
  std::string icon;        // a name of the icon theme
  std::string mime_types;  // each followed by ";"
  std::string executable;  // the whole path of the program
  std::string option;      // what it gets before the path of the file, one word of letters and "/" or "-"
};

class FileActions {
 public:
  // Of the user's data folder that `environment` names: $XDG_DATA_HOME, or ~/.local/share.
  explicit FileActions(Environment environment) : environment_(std::move(environment)) {}

  // Whether it is offered and would start just this program: an entry for another copy of it is none of ours.
  bool IsOffered(const FileAction& action) const;

  // Puts the action into "Open with", and, where Dolphin is the file manager, into the menu itself. An entry of the
  // same id is replaced. What a double click on such files starts stays the same. NotFound when the program is not
  // there, Unsupported when an entry cannot hold its path, which has to be UTF-8 without control characters.
  Result<void> Offer(const FileAction& action) const;

  // No error when it is not offered.
  Result<void> Withdraw(const FileAction& action) const;

  // The file that makes an action known.
  std::string EntryFile(const FileAction& action) const;

 private:
  std::string DataFolder() const;
  std::string ServiceMenuFile(const FileAction& action) const;
  void UpdateDatabase() const;

  Environment environment_;
};

}  // namespace captoria
