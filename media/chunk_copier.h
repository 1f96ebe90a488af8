// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Copies chunks of an AVI file into another file, not packet by packet but in extents: what follows each other in the
// source goes over together, straight into the blocks that are written. Where streams are left out and extents get
// short, the source is still read in large blocks.
//
// Headers, sizes and pad bytes come out right whatever the source has there.
#pragma once

#include <string>
#include <vector>

#include "media/avi_file.h"
#include "media/block_writer.h"
#include "platform/input_file.h"
#include "platform/output_file.h"

namespace captoria {

// "01wb" for stream 1 and "wb".
std::string ChunkId(int stream, std::string_view type);

class ChunkCopier {
 public:
  // Both files outlive the copier. `target` is touched by nobody else, except between a Flush and what follows it.
  ChunkCopier(const InputFile& source, OutputFile& target) : source_(source), target_(target) {}

  // Where in the target the next byte comes to lie. Always even, given that Append is given whole chunks.
  std::uint64_t Position() const { return target_.Position() + (end_ - begin_) + (pad_owed_ ? 1 : 0); }

  // Copies `chunk` with its header and pad byte, as a chunk of the stream that has the number `stream` in the target.
  Result<void> Copy(const AviChunk& chunk, int stream);

  // Appends bytes that are not of the source.
  Result<void> Append(ByteView bytes);

  // All of it reaches the target.
  Result<void> Flush();

 private:
  struct Header {
    std::uint64_t position = 0;
    std::array<std::uint8_t, 8> bytes{};
  };

  Result<void> EndExtent();
  Result<std::size_t> Read(std::uint64_t position, std::span<std::uint8_t> to, bool through_window);
  void WriteHeadersOver(std::uint64_t position, std::span<std::uint8_t> part) const;

  const InputFile& source_;
  BlockWriter target_;

  // The extent that waits: bytes of the source, headers to be changed in it, and a pad byte that belongs behind it.
  std::uint64_t begin_ = 0;
  std::uint64_t end_ = 0;
  std::vector<Header> headers_;
  bool pad_owed_ = false;

  // What was read last, kept because the next extent mostly begins inside it.
  std::uint64_t window_position_ = 0;
  Bytes window_;
};

}  // namespace captoria
