// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Entries in the menus of file managers: what the user can do with files of certain types. Desktops read them as
// desktop entries from the user's data folder (freedesktop.org, Desktop Entry 1.5).
#pragma once

#include <string>
#include <utility>

#include "base/result.h"
#include "platform/program_folder.h"

namespace captoria {

struct FileAction {
  std::string id;          // unique among all programs; also the name of its file
  std::string name;        // what the menu shows, one line
  std::string icon;        // a name of the icon theme
  std::string mime_types;  // each followed by ";"
  std::string executable;  // the whole path of the program
  std::string option;      // the argument before the file's path; letters, "/" and "-" only
};

class FileActions {
 public:
  // The user's data folder is $XDG_DATA_HOME of `environment`, or ~/.local/share.
  explicit FileActions(Environment environment) : environment_(std::move(environment)) {}

  // Whether the action is in the menu and starts this very program, not another copy of it.
  bool IsOffered(const FileAction& action) const;

  // Adds the action to "Open with" and, in Dolphin, to the menu itself. Replaces an entry of the same id. A double
  // click on such files still starts the same program as before. NotFound if the program is missing, Unsupported if its
  // path is relative, not UTF-8 or contains control characters.
  Result<void> Offer(const FileAction& action) const;

  // No error if it is not in the menu.
  Result<void> Withdraw(const FileAction& action) const;

  // The desktop entry of an action.
  std::string EntryFile(const FileAction& action) const;

 private:
  std::string DataFolder() const;
  std::string ServiceMenuFile(const FileAction& action) const;
  void UpdateDatabase() const;

  Environment environment_;
};

}  // namespace captoria
