// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "settings/settings_file.h"

#include "platform/files.h"
#include "settings/ini_store.h"

namespace captoria {
namespace {

// Ends the search for a free name. Long before, somebody will have looked at what keeps damaging the file.
constexpr int kMostSetAside = 1000;

Result<std::string> SetAside(const std::string& path) {
  if (FolderExists(path)) return Failure(ErrorKind::Unwritable, path + ": is a folder");
  const std::string first = path + ".damaged";
  std::string aside = first;
  for (int number = 2; number <= kMostSetAside && (FileExists(aside) || FolderExists(aside)); ++number) {
    aside = first + "-" + std::to_string(number);
  }
  const auto renamed = RenameWithoutReplacing(path, aside);
  if (!renamed) return tl::unexpected(renamed.error());
  return aside;
}

}  // namespace

OpenedSettings OpenSettingsFile(const std::string& path) {
  auto document = ReadIniFile(path);
  if (document) return {*std::move(document), std::nullopt};

  std::string report = document.error().message;
  if (const auto aside = SetAside(path)) {
    report += ". The file was renamed to " + *aside + ". The default settings apply.";
  } else {
    report += ". The default settings apply. Settings cannot be saved because the file could not be renamed (" +
              aside.error().message + ").";
  }
  return {{}, std::move(report)};
}

}  // namespace captoria
