// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Going through the chunks of an AVI file by what lies at each place, not by what lists and indices promise: so wrong
// sizes of lists, continuation RIFFs and groups of chunks cost nothing, and behind damage the next chunks are looked
// for.
#pragma once

#include <memory>
#include <span>

#include "base/finding.h"
#include "media/avi/avi_file.h"
#include "media/avi/avi_headers.h"
#include "platform/input_file.h"

namespace captoria {

std::unique_ptr<AviChunkWalk> WalkAviChunks(const InputFile& file, std::span<const AviStream> streams,
                                            const AviPlaces& places, std::shared_ptr<Findings> findings);

}  // namespace captoria
