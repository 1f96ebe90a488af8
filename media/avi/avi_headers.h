// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Reads everything in an AVI file before and after its chunks.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/finding.h"
#include "media/avi/avi_file.h"

namespace captoria {

// The position of a piece's data, and how much of it is in the file.
struct AviSpan {
  std::uint64_t position = 0;
  std::uint64_t size = 0;
};

// The positions of the parts that a walk over the chunks needs.
struct AviPlaces {
  std::uint64_t movi = 0;      // of the letters "movi"; 0 if there are no chunks
  std::uint64_t riff_end = 0;  // of the first RIFF; 0 if its size is impossible
  std::optional<AviSpan> idx1;
  std::vector<std::optional<AviSpan>> indx;  // one for each stream
};

struct AviHeaders {
  AviMainHeader main;
  std::vector<AviStream> streams;
  std::vector<RiffPiece> extras;
  AviPlaces places;
};

// Adds a DamagedVideo finding about `file`, unless `findings` already contains it.
void ReportDamage(const InputFile& file, std::string message, Findings& findings);

// Reports that `file` is cut off if it ends before `riff_end`, the end of a RIFF by its header.
void ReportIfCutOff(const InputFile& file, std::uint64_t riff_end, Findings& findings);

// Takes a few MiB of memory at most, whatever sizes the file contains.
Result<AviHeaders> ReadAviHeaders(const InputFile& file, Findings& findings);

}  // namespace captoria
