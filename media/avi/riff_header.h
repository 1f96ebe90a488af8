// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Everything in an AVI file before its first chunk.
#pragma once

#include <vector>

#include "media/avi/avi_file.h"
#include "media/avi/riff_index.h"

namespace captoria {

// The content and layout of an AVI file to be written.
struct AviLayout {
  AviMainHeader main;
  std::vector<AviStream> streams;   // in the order of their numbers; `header_bytes` is written, `header` only read
  std::vector<RiffPiece> extras;    // written between the headers and the first chunk
  bool open_dml = false;            // otherwise one RIFF and an `idx1`, which every player reads
  std::uint64_t riff_limit = 0;     // in OpenDML, the largest size of a RIFF
  std::uint64_t expected_size = 0;  // of the whole file, roughly; sets the room for super indices
};

// What is known about a stream after its chunks are written.
struct AviStreamIndex {
  std::string type;  // of its chunks: "dc", "wb"...
  std::vector<SuperIndexEntry> entries;
};

struct AviHeaderSizes {
  std::uint32_t riff = 0;  // of the first RIFF
  std::uint32_t movi = 0;
  std::uint32_t total_frames = 0;  // of the whole file
};

// How many RIFFs a file with this layout can have.
std::size_t MostRiffs(const AviLayout& layout);

// The bytes from "RIFF" to "movi". Their number depends only on the layout, so they can be overwritten at the end, when
// all numbers are known.
Bytes AviHeader(const AviLayout& layout, std::span<const AviStreamIndex> indices, const AviHeaderSizes& sizes);

}  // namespace captoria
