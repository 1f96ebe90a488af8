// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The headers of a new XSUB stream in an AVI file.
#pragma once

#include <string>

#include "media/avi/avi_file.h"
#include "media/avi/divx_mux.h"
#include "media/xsub/subtitle_source.h"

namespace captoria {

// For a stream of `count` packets that were placed on `frame`. The buffer size is left 0.
AviStream XsubStream(Size frame, std::size_t count, const std::string& name, PlayerProfile profile);

// Whether the index marks the chunks of such a stream as key frames.
bool XsubChunksAreKeys(PlayerProfile profile);

}  // namespace captoria
