// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Converting many videos in a row, each with the subtitle files that belong to it: one that fails is told at the end
// and keeps nobody from the next.
#pragma once

#include <span>
#include <string>

namespace captoria {

// What the run does with each video; in this order.
class BatchSteps {
 public:
  virtual ~BatchSteps() = default;
  virtual void CloseAllTracks() = 0;
  virtual bool OpenVideo(const std::string& path) = 0;  // and its subtitle files
  virtual bool HasSubtitles() = 0;
  virtual bool MakeDivX() = 0;

  // Asked behind each video: whether the user stopped the run.
  virtual bool Stopped() = 0;
};

// A line, ending in CR LF, for each video that was not converted, in their order. After a stop the rest is not told.
std::string ConvertList(std::span<const std::string> videos, BatchSteps& steps);

// What the user is shown: the report, or that there is nothing to report.
std::string BatchResult(const std::string& report);

}  // namespace captoria
