// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Reads the text of the two forms of list files. The cues keep the order of their lines and their times.
#pragma once

#include <string>
#include <string_view>

#include "base/result.h"
#include "script/subtitle_list.h"

namespace captoria {

// Damaged, with the line, if the text does not have the form. `path` is used in messages.
Result<SubtitleList> ParseConverterList(std::string_view text, const std::string& path);

// The same for the muxer's form. The frame is always 640 x 480, whatever height the cues imply.
Result<SubtitleList> ParseMuxList(std::string_view text, const std::string& path);

}  // namespace captoria
