// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "settings/settings_file.h"

#include "platform/files.h"
#include "settings/ini_store.h"

namespace captoria {
namespace {

// Somebody has to look at what keeps breaking the file long before there are so many.
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
    report += ". It was put aside as " + *aside + "; the default settings apply.";
  } else {
    report += ". The default settings apply and cannot be saved, as the file could not be put aside (" +
              aside.error().message + ").";
  }
  return {{}, std::move(report)};
}

}  // namespace captoria
