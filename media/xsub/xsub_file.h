// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// An .xsub file passes the packets of one subtitle stream from the bitmap converter to the muxer. Integers are
// little-endian.
//
//   0  "CapXsub" and the byte 1, the version
//   8  u16 width and height of the frame the cues were placed on
//  12  u32 number of packets
//  16  the packets, in order of their show times: u32 show time, u32 hide time (milliseconds), u32 size, the packet's
//  bytes
#pragma once

#include <memory>
#include <string>

#include "base/job_progress.h"
#include "base/result.h"
#include "media/xsub/subtitle_source.h"

namespace captoria {

// Writes all packets of `source`. If writing fails, or `progress` (in packets) asks to stop, no file of that name
// appears or changes.
Result<void> WriteXsubFile(const std::string& path, const SubtitleSource& source, JobProgress& progress);

// The packets of a file. Each is read when it is needed; until then it takes 16 bytes of memory. Damaged if the file is
// not an .xsub file or its size does not match its packets, Unsupported for a later version.
Result<std::shared_ptr<SubtitleSource>> OpenXsubFile(const std::string& path);

}  // namespace captoria
