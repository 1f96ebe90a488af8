// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The entry "Create .divx with subs" in the context menu of AVI files: the file manager starts the program, which runs
// unattended.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "platform/desktop_entry.h"
#include "platform/registry.h"

namespace captoria {

// Whether the verb is registered for the class that ".avi" names, or for ".avi" itself if it names no class. False if
// the named class does not exist.
bool IsAtRightClick(const RegistryClass& registry);

// Adds or removes the verb, so that IsAtRightClick equals `add`. The command starts `executable`, an absolute path.
// Does nothing if they are already equal, whatever program the command starts, or if the named class does not exist.
// Creates ".avi" for the verb if needed. Failures are not reported; IsAtRightClick shows the outcome.
void PutAtRightClick(RegistryClass& registry, const std::string& executable, bool add);

// The program to start in `folder`: "/opt/captoria/Captoria", "C:\Tools\Captoria.exe".
std::string VerbProgram(std::string_view folder);

// The entry on systems where the registry is a file of the program, which no file manager reads. It counts as
// registered if both the registry and the desktop entry name this program. An entry of another copy, such as one that
// was moved, does not count, and Register replaces it.
class ContextMenuEntry {
 public:
  // `registry` must outlive this object. `executable` is an absolute path.
  ContextMenuEntry(RegistryClass& registry, FileActions actions, std::string executable)
      : registry_(registry), actions_(std::move(actions)), executable_(std::move(executable)) {}

  bool IsRegistered() const;

  // Writes nothing if already registered. If the registry or the desktop fails, nothing stays registered.
  Result<void> Register();

  // Removes the entries of any copy of the program, as far as possible.
  Result<void> Unregister();

 private:
  RegistryClass& registry_;
  FileActions actions_;
  std::string executable_;
};

}  // namespace captoria
