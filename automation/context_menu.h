// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// "Create .divx with subs" at the right click on an AVI file: the file manager starts the program unattended.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "platform/desktop_entry.h"
#include "platform/registry.h"

namespace captoria {

// Whether the verb is registered for the class that ".avi" names, or for ".avi" where it names none. False when the
// class named is not there.
bool IsAtRightClick(const RegistryClass& registry);

// Makes IsAtRightClick equal `add`, with a command that starts `executable`, a whole path. Does nothing when it is
// equal already, whatever program the command there starts, nor when the class named is not there. A failure is not
// told: IsAtRightClick tells what came of it. Where ".avi" is not there either, it is made for the verb.
void PutAtRightClick(RegistryClass& registry, const std::string& executable, bool add);

// The program to start in `folder`: "/opt/captoria/Captoria", "C:\Tools\Captoria.exe".
std::string VerbProgram(std::string_view folder);

// The verb where the registry is the program's own and no file manager reads it: registered there and offered on the
// desktop, both for this program. What names another copy, such as one that was moved since, is not registered and
// does not hinder Register.
class ContextMenuEntry {
 public:
  // `registry` has to outlive it. `executable` is a whole path.
  ContextMenuEntry(RegistryClass& registry, FileActions actions, std::string executable)
      : registry_(registry), actions_(std::move(actions)), executable_(std::move(executable)) {}

  bool IsRegistered() const;

  // Nothing is written when it is registered. Fails as the registry and the desktop do, and then it is not.
  Result<void> Register();

  // Also what names another copy. Whatever can be removed is.
  Result<void> Unregister();

 private:
  RegistryClass& registry_;
  FileActions actions_;
  std::string executable_;
};

}  // namespace captoria
