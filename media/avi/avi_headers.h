// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What an AVI file says of itself before and behind its chunks.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "media/avi/avi_file.h"

namespace captoria {

// The data of a piece: where it begins and how much of it is in the file.
struct AviSpan {
  std::uint64_t position = 0;
  std::uint64_t size = 0;
};

// Where in the file the parts lie that a walk over the chunks needs.
struct AviPlaces {
  std::uint64_t movi = 0;      // of the letters "movi"; 0 when there are no chunks
  std::uint64_t riff_end = 0;  // of the first RIFF; 0 when what it says cannot be
  std::optional<AviSpan> idx1;
  std::vector<std::optional<AviSpan>> indx;  // one a stream
};

struct AviHeaders {
  AviMainHeader main;
  std::vector<AviStream> streams;
  std::vector<RiffPiece> extras;
  std::uint32_t total_frames = 0;
  AviPlaces places;
};

using AviWarnings = std::vector<std::string>;

// Adds `text` unless it has been said.
void Warn(AviWarnings& warnings, const std::string& text);

// Says so when a RIFF's end, as its header has it, lies beyond the file of `size` bytes.
void WarnIfBrokenOff(std::uint64_t riff_end, std::uint64_t size, AviWarnings& warnings);

// Keeps a few MiB at most, whatever the sizes in the file.
Result<AviHeaders> ReadAviHeaders(const InputFile& file, AviWarnings& warnings);

}  // namespace captoria
