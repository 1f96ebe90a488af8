// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "automation/context_menu.h"

#include "base/path_text.h"

namespace captoria {
namespace {

constexpr const char* kVerb = "Create .divx with subs";

// The key for the verbs of AVI files. It may not exist yet.
Result<std::string> ShellKey(const RegistryClass& registry) {
  const std::string file_type = registry.ReadValue(".avi", "");
  if (file_type.empty()) return R"(.avi\shell)";
  if (registry.KeyExists(file_type)) return file_type + R"(\shell)";
  return Failure(ErrorKind::NotFound, ".avi files have the type " + file_type + ", which is not registered");
}

Result<std::string> VerbKey(const RegistryClass& registry) {
  return ShellKey(registry).map([](const std::string& shell) { return shell + "\\" + kVerb; });
}

// What the file manager runs. The program takes everything after the switch as the path.
std::string CommandText(const std::string& executable) { return '"' + executable + R"(" /auto %1)"; }

Result<void> AddVerb(RegistryClass& registry, const std::string& executable) {
  const auto verb = VerbKey(registry);
  if (!verb) return tl::unexpected(verb.error());
  const std::string command = *verb + R"(\command)";
  if (auto created = registry.CreateKey(command); !created) return created;
  return registry.SetValue(command, "", CommandText(executable));
}

Result<void> RemoveVerb(RegistryClass& registry) {
  const auto verb = VerbKey(registry);
  if (!verb || !registry.KeyExists(*verb)) return {};
  const std::string command = *verb + R"(\command)";
  if (registry.KeyExists(command)) {
    if (auto deleted = registry.DeleteKey(command); !deleted) return deleted;
  }
  return registry.DeleteKey(*verb);
}

FileAction ActionOf(const std::string& executable) {
  // Named after the program's domain, as all programs of the user share the folder.
  return {.id = "org.captoria.Captoria.Convert",
          .name = kVerb,
          .icon = "org.captoria.Captoria",
          .mime_types = "video/x-msvideo;video/vnd.avi;",
          .executable = executable,
          .option = "/AUTO"};
}

}  // namespace

bool IsAtRightClick(const RegistryClass& registry) {
  const auto verb = VerbKey(registry);
  return verb && registry.KeyExists(*verb);
}

void PutAtRightClick(RegistryClass& registry, const std::string& executable, bool add) {
  if (IsAtRightClick(registry) == add) return;
  static_cast<void>(add ? AddVerb(registry, executable) : RemoveVerb(registry));
}

std::string VerbProgram(std::string_view folder) {
  return JoinPath(folder, PathSeparator(folder) == '\\' ? "Captoria.exe" : "Captoria");
}

bool ContextMenuEntry::IsRegistered() const {
  const auto verb = VerbKey(registry_);
  return verb && registry_.ReadValue(*verb + R"(\command)", "") == CommandText(executable_) &&
         actions_.IsOffered(ActionOf(executable_));
}

Result<void> ContextMenuEntry::Register() {
  if (IsRegistered()) return {};
  auto registered = actions_.Offer(ActionOf(executable_));
  if (!registered) return registered;
  registered = AddVerb(registry_, executable_);
  if (!registered) static_cast<void>(Unregister());
  return registered;
}

Result<void> ContextMenuEntry::Unregister() {
  auto removed = RemoveVerb(registry_);
  auto withdrawn = actions_.Withdraw(ActionOf(executable_));
  return removed ? withdrawn : removed;
}

}  // namespace captoria
