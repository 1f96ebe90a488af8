// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Writes a long file in large blocks on a thread of its own, while the next block is being filled. Half of the time of
// a copy goes into reading and half into writing; this way they pass together.
#pragma once

#include <array>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

#include "base/bytes.h"
#include "platform/output_file.h"

namespace captoria {

class BlockWriter {
 public:
  // `file` outlives the writer. It is touched by nobody else, except between a Drain and what follows it.
  explicit BlockWriter(OutputFile& file);
  BlockWriter(const BlockWriter&) = delete;
  BlockWriter& operator=(const BlockWriter&) = delete;
  ~BlockWriter();

  // Bytes given to the writer so far, together with those that the file had before.
  std::uint64_t Position() const { return position_; }

  // Where the next bytes can be put, at least one; Advance tells how many were. An error is that of an earlier write.
  Result<std::span<std::uint8_t>> Room();
  void Advance(std::size_t count);

  Result<void> Append(ByteView bytes);

  // Everything given so far reaches the file.
  Result<void> Drain();

 private:
  // Full blocks end at multiples of this in the file: the system then takes them as whole pages.
  static constexpr std::size_t kBlock = std::size_t{512} << 10;

  struct Block {
    Bytes bytes;  // kBlock of them, once it is used
    std::size_t filled = 0;
    bool handed_over = false;
  };

  Result<void> HandOver();
  void WriteBlocks();
  void Write(Block& block, std::unique_lock<std::mutex>& lock);

  OutputFile& file_;
  std::uint64_t position_;

  std::array<Block, 3> blocks_;
  std::size_t filling_ = 0;
  std::size_t capacity_ = 0;  // of the block being filled

  std::mutex mutex_;
  std::condition_variable changed_;
  std::size_t writing_ = 0;
  bool ends_ = false;
  std::optional<Error> error_;  // of the first write that failed; none is tried after it
  std::thread thread_;
};

}  // namespace captoria
