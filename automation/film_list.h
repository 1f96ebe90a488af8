// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The films to convert in one run, in the order they were added. Paths are bytes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace captoria {

class FilmList {
 public:
  const std::vector<std::string>& Files() const { return files_; }

  // Appends the path, unless the list already contains it, ignoring ASCII case.
  void AddFile(const std::string& path);

  // Appends every "*.avi" of the folder, sorted by the bytes of the names, even if the list already contains it.
  void AddFolder(const std::string& folder);

  // Appends a dropped video, or the videos in a dropped folder. Ignores other files and videos already in the list.
  void AddDropped(const std::string& path);

  void Remove(std::size_t index) { files_.erase(files_.begin() + static_cast<std::ptrdiff_t>(index)); }
  void Clear() { files_.clear(); }

 private:
  std::vector<std::string> files_;
};

}  // namespace captoria
