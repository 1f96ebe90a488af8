// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Everything that one conversion needs, by value: a worker thread gets the plan and touches nothing else of the
// program. Making a plan draws and writes nothing, so it can be shown.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/finding.h"
#include "pipeline/avi_inspection.h"
#include "pipeline/temp_folder.h"
#include "pipeline/tool_copies.h"
#include "render/subtitle_bitmap.h"
#include "script/list_text.h"
#include "script/script_runner.h"
#include "subtitles/subtitle_track.h"

namespace captoria {

struct ConversionPlan {
  std::string video;                  // path of the source
  StreamTable streams;                // of the source; the film does not get those of an unknown type
  std::vector<SubtitleTrack> tracks;  // in tab order; a track without a file becomes no stream

  bool replace = false;  // a film of the same name; otherwise the film gets the next free name
  ListForm form = ListForm::Converter;
  BitmapFrame bitmap;
  int frame_height = 0;                    // pixels, of the frame the cues stand on
  VideoSystem system = VideoSystem::Ntsc;  // for the lists
  bool pal_mode1 = false;

  std::string program_folder;  // holds the temporary folder
  ToolPlaces muxer, converter;
  unsigned threads = 1;
  ShowStyle show = ShowStyle::Hidden;  // of the script's window
  bool pause = false;                  // the script waits for a key at its end
  bool waits = true;                   // for the script to end
  CleanUp clean_up;                    // afterwards

  Findings findings;  // what is known before anything is drawn
};

// The name that the film would get now; another one if that name is taken until then.
std::string ProposedResult(const ConversionPlan& plan);

// Whether the film will contain that stream of the source.
inline bool IsKept(const StreamRow& row) { return row.type != StreamType::Unknown; }

}  // namespace captoria
