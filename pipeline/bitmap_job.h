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
  std::span<const SubtitleTrack> tracks;  // those without a file, or of a VobSub index, are passed over
  BitmapFrame bitmap;
  // Of the frame the bitmaps stand on, in pixels; its width is `bitmap.width`.
  int frame_height = HeightOf(VideoSystem::Pal);
  ListForm form = ListForm::Converter;
  VideoSystem system = VideoSystem::Pal;  // for the list
  std::string folder;                     // for bitmaps and lists; it is there
  unsigned threads = 1;
};

// "linkerfile0.txt" for the first track.
std::string ListFileName(int track);

// "aXsub0.xsub", what the converter makes of it.
std::string XsubFileName(int track);

// Makes them, in place of files of the same names. `progress` counts the cues of all tracks. What is told of fonts is
// of all tracks together. On an error or when stopped (Cancelled) some files may have been written.
Result<FontReport> CreateBitmaps(const std::shared_ptr<FontCollection>& fonts, const BitmapJob& job,
                                 JobProgress& progress);

}  // namespace captoria
