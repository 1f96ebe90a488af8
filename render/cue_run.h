// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Draws many cues into bitmap files on several threads. The files do not depend on the number of threads.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "base/geometry.h"
#include "base/job_progress.h"
#include "base/result.h"
#include "render/subtitle_bitmap.h"
#include "subtitles/cue.h"

namespace captoria {

struct CueRun {
  std::span<const SubtitleCue> cues;
  TrackStyle style;  // of their track; the tag of a cue overrides it for that cue
  BitmapFrame frame;
  std::function<std::string(std::size_t index)> path_of;  // the file for a cue; called from any thread
};

struct RenderedRun {
  std::vector<Size> sizes;  // in the order of the cues
  FontReport fonts;
};

// "bmp", the track's index and the cue's number with at least four digits: "bmp00001.bmp" for the first cue of the
// first track.
std::string BitmapFileName(int track, std::size_t cue_number);

// Draws and saves every cue on `threads` threads, at least 1. After an error, or if `progress` asks to stop
// (Cancelled), an unspecified part of the files has been written and is not removed.
Result<RenderedRun> RenderCues(const std::shared_ptr<FontCollection>& fonts, const CueRun& batch, unsigned threads,
                               JobProgress& progress);

}  // namespace captoria
