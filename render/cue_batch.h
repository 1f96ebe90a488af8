// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Many cues to bitmap files, on all cores. Every file is the same whatever the number of cores.
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

struct CueBatch {
  std::span<const SubtitleCue> cues;
  TrackStyle style;  // of their track; each cue's tag is heeded
  BitmapFrame frame;
  std::function<std::string(std::size_t index)> path_of;  // of the file for a cue; called from any thread
};

struct RenderedBatch {
  std::vector<Size> sizes;  // in the order of the cues
  FontReport fonts;
};

// "bmp" and the track's index, then the cue's number with at least four digits: the first cue of the first track is
// "bmp00001.bmp".
std::string BitmapFileName(int track, std::size_t cue_number);

// Draws and saves every cue. On an error or when `progress` says stop (Cancelled), files already written stay, and
// which those are is not defined. `threads` is at least 1.
Result<RenderedBatch> RenderCues(const std::shared_ptr<FontCollection>& fonts, const CueBatch& batch, unsigned threads,
                                 JobProgress& progress);

}  // namespace captoria
