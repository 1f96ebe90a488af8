// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/avi/block_writer.h"

#include <algorithm>
#include <cstring>
#include <system_error>

namespace captoria {

BlockWriter::BlockWriter(OutputFile& file) : file_(file), position_(file.Size()) {
  capacity_ = kBlock - position_ % kBlock;
  try {
    thread_ = std::thread([this] { WriteBlocks(); });
  } catch (const std::system_error&) {
    // Without a thread, HandOver writes the blocks itself.
  }
}

BlockWriter::~BlockWriter() {
  if (!thread_.joinable()) return;
  {
    const std::lock_guard lock(mutex_);
    ends_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

Result<std::span<std::uint8_t>> BlockWriter::Room() {
  if (blocks_[filling_].filled == capacity_) {
    if (auto handed = HandOver(); !handed) return tl::unexpected(handed.error());
  }
  Block& block = blocks_[filling_];
  if (block.bytes.empty()) block.bytes.resize(kBlock);
  return std::span{block.bytes}.subspan(block.filled, capacity_ - block.filled);
}

void BlockWriter::Advance(std::size_t count) {
  blocks_[filling_].filled += count;
  position_ += count;
}

Result<void> BlockWriter::Append(ByteView bytes) {
  while (!bytes.empty()) {
    const auto room = Room();
    if (!room) return tl::unexpected(room.error());
    const std::size_t count = std::min(bytes.size(), room->size());
    std::memcpy(room->data(), bytes.data(), count);
    Advance(count);
    bytes = bytes.subspan(count);
  }
  return {};
}

Result<void> BlockWriter::Drain() {
  auto handed = HandOver();
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return std::ranges::none_of(blocks_, &Block::handed_over); });
  if (error_) return tl::unexpected(*error_);
  return handed;
}

// Passes the current block to the thread and waits until the next block is free.
Result<void> BlockWriter::HandOver() {
  std::unique_lock lock(mutex_);
  if (blocks_[filling_].filled > 0) {
    blocks_[filling_].handed_over = true;
    if (thread_.joinable()) {
      changed_.notify_all();
      filling_ = (filling_ + 1) % blocks_.size();
      changed_.wait(lock, [this] { return !blocks_[filling_].handed_over; });
    } else {
      Write(blocks_[filling_], lock);
    }
  }
  capacity_ = kBlock - position_ % kBlock;
  if (error_) return tl::unexpected(*error_);
  return {};
}

void BlockWriter::WriteBlocks() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [this] { return ends_ || blocks_[writing_].handed_over; });
    if (ends_) return;  // without a Drain before, the file is abandoned
    Write(blocks_[writing_], lock);
    writing_ = (writing_ + 1) % blocks_.size();
  }
}

void BlockWriter::Write(Block& block, std::unique_lock<std::mutex>& lock) {
  lock.unlock();
  auto written = error_ ? Result<void>{} : file_.Append(ByteView{block.bytes}.first(block.filled));
  lock.lock();
  if (!written) error_ = written.error();
  block.filled = 0;
  block.handed_over = false;
  changed_.notify_all();
}

}  // namespace captoria
