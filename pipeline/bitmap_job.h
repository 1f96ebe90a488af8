// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The cues of all tracks as bitmap files, and for each track the list that says when and where they are shown.
#pragma once

#include <memory>
#include <span>
#include <string>

#include "base/job_progress.h"
#include "base/result.h"
#include "base/video_system.h"
#include "render/cue_run.h"
#include "script/list_text.h"
#include "subtitles/subtitle_track.h"

namespace captoria {

struct BitmapJob {
  std::span<const SubtitleTrack> tracks;  // without a file or with a VobSub index: skipped
  BitmapFrame bitmap;
  // Of the frame the bitmaps stand on, in pixels; its width is `bitmap.width`.
  int frame_height = HeightOf(VideoSystem::Pal);
  ListForm form = ListForm::Converter;
  VideoSystem system = VideoSystem::Pal;  // for the list
  std::string folder;                     // for bitmaps and lists; it exists
  unsigned threads = 1;
};

// "linkerfile0.txt" for the first track.
std::string ListFileName(int track);

// "aXsub0.xsub", which the converter makes from that list.
std::string XsubFileName(int track);

// Writes bitmaps and lists; files with the same names are replaced. `progress` counts the cues of all tracks, and the
// report covers all tracks. After an error or a stop (Cancelled), some files may exist.
Result<FontReport> CreateBitmaps(const std::shared_ptr<FontCollection>& fonts, const BitmapJob& job,
                                 JobProgress& progress);

}  // namespace captoria
