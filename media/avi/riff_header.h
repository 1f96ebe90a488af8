// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Everything of an AVI file that stands before its first chunk.
#pragma once

#include <vector>

#include "media/avi/avi_file.h"
#include "media/avi/riff_index.h"

namespace captoria {

// What an AVI file is to hold and how it is to be laid out.
struct AviLayout {
  AviMainHeader main;
  std::vector<AviStream> streams;   // in the order of their numbers; `header_bytes` are written, `header` is read
  std::vector<RiffPiece> extras;    // go between the headers and the first chunk
  bool open_dml = false;            // else one RIFF and an `idx1`, as every player knows it
  std::uint64_t riff_limit = 0;     // in OpenDML, a RIFF ends before it would be larger
  std::uint64_t expected_size = 0;  // of the whole file, roughly; decides how much room super indices get
};

// What is known of a stream once its chunks are written.
struct AviStreamIndex {
  std::string type;  // of its chunks: "dc", "wb"...
  std::vector<SuperIndexEntry> entries;
};

struct AviHeaderSizes {
  std::uint32_t riff = 0;  // of the first RIFF
  std::uint32_t movi = 0;
  std::uint32_t total_frames = 0;  // of the whole file
};

// How many RIFFs a file of that layout can have.
std::size_t MostRiffs(const AviLayout& layout);

// From "RIFF" to "movi". Its length depends on the layout alone, so it can be written over when all numbers are known.
Bytes AviHeader(const AviLayout& layout, std::span<const AviStreamIndex> indices, const AviHeaderSizes& sizes);

}  // namespace captoria
