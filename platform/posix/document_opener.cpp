// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/document_opener.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/files.h"
#include "platform/process.h"

namespace captoria {
namespace {

// An absolute path is taken neither for an option, as "-a.divx" would be, nor for an address, as "part 1: a.divx"
// might.
std::string WithoutMisunderstanding(const std::string& path_or_address) {
  const bool is_path = FileExists(path_or_address) || FolderExists(path_or_address);
  if (!is_path && !path_or_address.starts_with('-')) return path_or_address;
  std::error_code gone;  // our own folder
  const auto path = std::filesystem::absolute(path_or_address, gone);
  return gone ? "./" + path_or_address : path.string();
}

}  // namespace

Result<void> DesktopOpener::Open(const std::string& path_or_address) {
  const auto opener = FindOnPath("xdg-open", ProcessEnvironment());
  if (!opener) {
    return Failure(ErrorKind::Unsupported,
                   path_or_address + ": cannot be opened: xdg-open is not installed (package xdg-utils)");
  }
  auto process = Process::Start({.program = *opener,
                                 .arguments = {WithoutMisunderstanding(path_or_address)},
                                 .folder{},
                                 .environment{},
                                 .log_file{},
                                 .shows_output = false});
  if (!process) return tl::unexpected(process.error());
  std::move(*process).LeaveRunning();
  return {};
}

}  // namespace captoria
