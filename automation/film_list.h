// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The videos of a batch conversion, in the order they were added. Paths are bytes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace captoria {

class FilmList {
 public:
  const std::vector<std::string>& Files() const { return files_; }

  // At the end, unless the list holds the path already, in whatever case of ASCII letters.
  void AddFile(const std::string& path);

  // Every "*.avi" of the folder, by the bytes of their names; also what the list holds already.
  void AddFolder(const std::string& folder);

  // What was dropped: a video, or a folder for the videos in it. What is listed already, or is no video, is left out.
  void AddDropped(const std::string& path);

  void Remove(std::size_t index) { files_.erase(files_.begin() + static_cast<std::ptrdiff_t>(index)); }
  void Clear() { files_.clear(); }

 private:
  std::vector<std::string> files_;
};

}  // namespace captoria
