// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Writes a long file in large blocks on a thread of its own, while the caller fills the next block. A copy spends half
// of its time reading and half writing; this way both happen at the same time.
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
  // `file` must outlive the writer. Other code may use it only between a Drain and the next call.
  explicit BlockWriter(OutputFile& file);
  BlockWriter(const BlockWriter&) = delete;
  BlockWriter& operator=(const BlockWriter&) = delete;
  ~BlockWriter();

  // The size that the file will have: what it contained before plus all bytes appended so far.
  std::uint64_t Position() const { return position_; }

  // Room for the next bytes, at least one. Fill it and report the number of bytes with Advance. Returns the error of an
  // earlier write.
  Result<std::span<std::uint8_t>> Room();
  void Advance(std::size_t count);

  Result<void> Append(ByteView bytes);

  // Writes everything appended so far to the file.
  Result<void> Drain();

 private:
  // Full blocks end at multiples of this size in the file, so that the system can write whole pages.
  static constexpr std::size_t kBlock = std::size_t{512} << 10;

  struct Block {
    Bytes bytes;  // empty, or kBlock bytes after the first use
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
  std::optional<Error> error_;  // of the first failed write; nothing is written after it
  std::thread thread_;
};

}  // namespace captoria
