// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "script/list_parser.h"

namespace {

using namespace captoria;

void Check(const Result<SubtitleList>& list) {
  if (!list) {
    if (!list.error().message.starts_with("fuzz.txt: line ")) __builtin_trap();
    return;
  }
  for (const ListedCue& cue : list->cues) {
    const bool inside =
        cue.x >= 0 && cue.y >= 0 && cue.width > 0 && cue.height > 0 && cue.x + cue.width <= list->frame.width;
    if (!inside || cue.file.find_first_of("/\\") != std::string::npos || cue.file == "..") __builtin_trap();
    if (cue.times.show < 0 || cue.times.show >= kLatestXsubTime) __builtin_trap();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text{reinterpret_cast<const char*>(data), size};
  Check(ParseConverterList(text, "fuzz.txt"));
  Check(ParseMuxList(text, "fuzz.txt"));
  return 0;
}
