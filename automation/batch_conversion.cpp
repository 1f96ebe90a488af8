// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "automation/batch_conversion.h"

namespace captoria {
namespace {

std::string Line(const char* what, const std::string& path) { return what + ("\"" + path + "\"\r\n"); }

}  // namespace

std::string ConvertList(std::span<const std::string> videos, BatchSteps& steps) {
  std::string report;
  for (const std::string& video : videos) {
    steps.CloseAllTracks();
    if (!steps.OpenVideo(video)) {
      report += Line("Error opening file ", video);
    } else if (!steps.HasSubtitles()) {
      report += Line("Can not find any subtitles for ", video);
    } else if (!steps.MakeDivX() && !steps.Stopped()) {
      report += Line("Convert failed with file ", video);
    }
    if (steps.Stopped()) break;
  }
  steps.CloseAllTracks();
  return report;
}

std::string BatchResult(const std::string& report) { return report.empty() ? "All seems to be ok" : report; }

}  // namespace captoria
