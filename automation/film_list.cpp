// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "automation/film_list.h"

#include <algorithm>
#include <utility>

#include "base/ascii.h"
#include "base/path_text.h"
#include "pipeline/avi_inspection.h"
#include "platform/files.h"

namespace captoria {
namespace {

std::vector<std::string> VideosOf(const std::string& folder) {
  std::vector<std::string> paths = ListFiles(folder, "*.avi");
  for (std::string& path : paths) path = JoinPath(folder, path);
  return paths;
}

}  // namespace

void FilmList::AddFile(const std::string& path) {
  if (path.empty()) return;
  const bool known = std::ranges::any_of(files_, [&](const auto& file) { return EqualsIgnoringCase(file, path); });
  if (!known) files_.push_back(path);
}

void FilmList::AddFolder(const std::string& folder) {
  for (std::string& path : VideosOf(folder)) files_.push_back(std::move(path));
}

void FilmList::AddDropped(const std::string& path) {
  if (FolderExists(path)) {
    for (const std::string& video : VideosOf(path)) AddFile(video);
  } else if (IsVideoName(path)) {
    AddFile(path);
  }
}

}  // namespace captoria
