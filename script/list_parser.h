// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The text of the two forms of list files, taken apart as it stands: cues in the order of their lines, times as
// written.
#pragma once

#include <string>
#include <string_view>

#include "base/result.h"
#include "script/subtitle_list.h"

namespace captoria {

// Damaged, with the line, for whatever is not of the form. `path` stands in the messages.
Result<SubtitleList> ParseConverterList(std::string_view text, const std::string& path);

// The same; the frame is 640 x 480, whatever height the cues imply.
Result<SubtitleList> ParseMuxList(std::string_view text, const std::string& path);

}  // namespace captoria
