// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The chunks of one RIFF of an AVI file that is being written, and the three forms of their index: `idx1`, the standard
// index of a stream (`ix##`), and its entry in the super index of the stream (`indx`).
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "media/avi/avi_file.h"
#include "media/avi/block_writer.h"

namespace captoria {

// "01wb" for stream 1 and "wb".
std::string ChunkId(int stream, std::string_view type);

// The same, followed by the size.
std::array<std::uint8_t, 8> ChunkHeader(int stream, std::string_view type, std::uint32_t size);

// Counts bytes and chunks of a stream in the units that its header uses for the length.
class StreamUnits {
 public:
  explicit StreamUnits(const AviStream& stream);

  void Add(std::uint32_t chunk_size, bool is_palette);
  std::uint64_t Count() const { return sample_size_ > 0 ? bytes_ / sample_size_ : units_; }

 private:
  std::uint32_t sample_size_ = 0;
  std::uint32_t block_ = 0;  // the most bytes in a unit if a chunk contains several; 0 if every chunk is one unit
  std::uint64_t bytes_ = 0;
  std::uint64_t units_ = 0;
};

struct IndexEntry {
  std::uint32_t offset = 0;  // of the chunk's header, relative to the letters "movi"
  std::uint32_t size = 0;
  std::uint8_t stream = 0;
  bool key = false;
  std::array<char, 2> type{};

  bool IsPalette() const { return type[0] == 'p' && type[1] == 'c'; }
};

struct SuperIndexEntry {
  std::uint64_t position = 0;  // of the header of the `ix##` chunk
  std::uint32_t size = 0;      // with its header
  std::uint32_t duration = 0;  // in units of the stream
};

class RiffIndex {
 public:
  // Keeps the entries below 16 MiB of memory.
  static constexpr std::size_t kMostEntries = std::size_t{1} << 20;

  // `movi` is the position of these letters.
  explicit RiffIndex(std::uint64_t movi) : movi_(movi) {}

  void Add(const IndexEntry& entry) { entries_.push_back(entry); }
  std::size_t Count() const { return entries_.size(); }

  Result<void> AppendIdx1(BlockWriter& out) const;

  // Appends the `ix##` of a stream whose chunks last `duration` units. A stream without chunks gets an empty index,
  // because some readers expect one for every stream.
  Result<SuperIndexEntry> AppendStandardIndex(BlockWriter& out, int stream, std::string_view type,
                                              std::uint32_t duration) const;

 private:
  std::uint64_t movi_;
  std::deque<IndexEntry> entries_;  // unlike a vector, it is never in memory twice while it grows
};

// The data of an `indx` chunk with room for `capacity` entries.
Bytes SuperIndex(std::span<const SuperIndexEntry> entries, std::size_t capacity, int stream, std::string_view type);

}  // namespace captoria
