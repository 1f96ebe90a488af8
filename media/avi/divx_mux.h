// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Puts a film together: streams of an AVI file, byte for byte, and new XSUB streams.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/finding.h"
#include "base/job_progress.h"
#include "base/result.h"
#include "media/avi/avi_file.h"
#include "media/xsub/subtitle_source.h"

namespace captoria {

// How the headers of new XSUB streams are written.
enum class PlayerProfile {
  Readers,   // for software players: a time base of microseconds, handler DXSB, stream enabled
  Hardware,  // for hardware players: handler divx, stream disabled by default, no time base
};

// One stream of the result.
struct MuxStream {
  int source_stream = -1;                    // index in the streams of the source; or -1, and
  std::shared_ptr<SubtitleSource> subtitle;  // packets of a new XSUB stream
  std::string title;                         // the stream's name; if empty, a source stream keeps its own
};

struct MuxJob {
  const AviFile& source;
  std::vector<MuxStream> streams;  // in the order of the result; at most 100
  std::string output;
  PlayerProfile profile = PlayerProfile::Readers;

  // A film smaller than this many bytes becomes a plain AVI file; a larger film OpenDML, in RIFFs of this size.
  std::uint64_t riff_limit = std::uint64_t{1} << 30;
};

struct MuxReport {
  std::uint64_t size = 0;  // of the result
  Findings findings;       // about the source and the result
};

// Writes the film. If it fails, or `progress` (in KiB of the source) asks to stop, no file with the name of the output
// appears or changes. The source is never written to; an output that is the source itself is refused. Damaged if no
// frame of the video, or no chunk of any of the streams, could be copied.
Result<MuxReport> Mux(const MuxJob& job, JobProgress& progress);

}  // namespace captoria
