// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "subtitles/srt_reader.h"
#include "subtitles/subtitle_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text{reinterpret_cast<const char*>(data), size};
  const captoria::SrtReading reading = captoria::ReadSrt(text);
  for (std::size_t i = 0; i < reading.cues.size(); ++i) {
    const captoria::SubtitleCue& cue = reading.cues[i];
    if (cue.Number != std::to_string(i + 1) || cue.Text.empty() || cue.Show.size() < 12 || cue.Hide.size() < 12) {
      std::abort();
    }
  }
  if (reading.problem && reading.problem->line == 0) std::abort();
  if (captoria::DialogueSample(text).size() > size + 1) std::abort();
  return 0;
}
