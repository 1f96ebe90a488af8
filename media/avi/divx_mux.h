// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Puts a film together: streams of an AVI file, byte for byte, and XSUB streams beside them.
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
  Readers,   // for what plays files: a time base of microseconds, handler DXSB, stream enabled
  Hardware,  // the form a maker's muxer writes: handler divx, disabled by default, no time base
};

// One stream of the result.
struct MuxStream {
  int source_stream = -1;                    // index in the film's streams; or
  std::shared_ptr<SubtitleSource> subtitle;  // packets of a new XSUB stream
  std::string title;                         // becomes the stream's name; empty keeps a source stream's own
};

struct MuxJob {
  const AviFile& film;
  std::vector<MuxStream> streams;  // in the order of the result; at most 100
  std::string output;
  PlayerProfile profile = PlayerProfile::Readers;

  // A film that stays below this many bytes becomes a plain AVI file; a larger one OpenDML, in RIFFs of that size.
  std::uint64_t riff_limit = std::uint64_t{1} << 30;
};

struct MuxReport {
  std::uint64_t size = 0;  // of the result
  Findings findings;       // about the source and the result
};

// Writes the film. On any failure, and when `progress` (in KiB of the source) says stop, no file of the output's name
// appears or changes; the source is never written to, and a result that would be the source is refused.
Result<MuxReport> Mux(const MuxJob& job, JobProgress& progress);

}  // namespace captoria
