// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Walks through the chunks of an AVI file by the bytes at each position and ignores the sizes of lists and the indices.
// So wrong sizes, continuation RIFFs and groups of chunks need no special care, and after damage the walk searches for
// the next chunk.
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
