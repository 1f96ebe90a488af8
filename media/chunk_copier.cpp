// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/chunk_copier.h"

#include <algorithm>
#include <utility>

namespace captoria {
namespace {

constexpr std::size_t kWindow = std::size_t{1} << 20;

// Below this an extent is cheaper to take from a block in memory than to ask the system for.
constexpr std::uint64_t kWorthACall = std::uint64_t{256} << 10;

// An extent is not let grow beyond this, so that a copy that should stop does so soon.
constexpr std::uint64_t kLargestExtent = std::uint64_t{4} << 20;

}  // namespace

std::string ChunkId(int stream, std::string_view type) {
  const std::string id{static_cast<char>('0' + stream / 10), static_cast<char>('0' + stream % 10)};
  return id + std::string{type};
}

Result<void> ChunkCopier::Copy(const AviChunk& chunk, int stream) {
  // A pad byte is taken from the source only where the next chunk follows it there; some writers leave it out.
  const bool follows = end_ > begin_ && chunk.position == end_ + (pad_owed_ ? 1 : 0);
  if (!follows || end_ - begin_ >= kLargestExtent) {
    if (auto ended = EndExtent(); !ended) return ended;
    begin_ = chunk.position;
  }
  end_ = chunk.DataPosition() + chunk.size;
  pad_owed_ = chunk.size % 2 != 0;
  // The header of a chunk that the file breaks off in promises more than there is.
  if (stream != chunk.stream || end_ >= source_.Size()) {
    Header header{.position = chunk.position};
    ByteWriter bytes;
    bytes.Text(ChunkId(stream, chunk.type)).U32(chunk.size);
    std::ranges::copy(bytes.Written(), header.bytes.begin());
    headers_.push_back(header);
  }
  return {};
}

Result<void> ChunkCopier::Append(ByteView bytes) {
  if (auto ended = EndExtent(); !ended) return ended;
  return target_.Append(bytes);
}

Result<void> ChunkCopier::Flush() {
  if (auto ended = EndExtent(); !ended) return ended;
  return target_.Drain();
}

Result<void> ChunkCopier::EndExtent() {
  const bool through_window = end_ - begin_ < kWorthACall;
  while (begin_ < end_) {
    const auto room = target_.Room();
    if (!room) return tl::unexpected(room.error());
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(end_ - begin_, room->size()));
    const auto got = Read(begin_, room->first(count), through_window);
    if (!got) return tl::unexpected(got.error());
    WriteHeadersOver(begin_, room->first(*got));
    target_.Advance(*got);
    begin_ += *got;
  }
  headers_.clear();
  constexpr std::uint8_t kPad[]{0};
  return std::exchange(pad_owed_, false) ? target_.Append(kPad) : Result<void>{};
}

// Reads at least one byte to the beginning of `to`.
Result<std::size_t> ChunkCopier::Read(std::uint64_t position, std::span<std::uint8_t> to, bool through_window) {
  if (!through_window) return source_.ReadExactly(position, to).map([&] { return to.size(); });
  if (position < window_position_ || position >= window_position_ + window_.size()) {
    const std::uint64_t left = source_.Size() - std::min(source_.Size(), position);
    window_.resize(static_cast<std::size_t>(std::clamp<std::uint64_t>(left, 1, kWindow)));
    window_position_ = position;
    if (auto read = source_.ReadExactly(position, window_); !read) return tl::unexpected(read.error());
  }
  const ByteView held = ByteView{window_}.subspan(static_cast<std::size_t>(position - window_position_));
  const std::size_t count = std::min(held.size(), to.size());
  std::ranges::copy(held.first(count), to.begin());
  return count;
}

void ChunkCopier::WriteHeadersOver(std::uint64_t position, std::span<std::uint8_t> part) const {
  const auto ends_after = [](std::uint64_t at, const Header& header) { return at < header.position + 8; };
  auto header = std::upper_bound(headers_.begin(), headers_.end(), position, ends_after);
  for (; header != headers_.end() && header->position < position + part.size(); ++header) {
    for (std::size_t i = 0; i < header->bytes.size(); ++i) {
      const std::uint64_t at = header->position + i;
      if (at >= position && at < position + part.size())
        part[static_cast<std::size_t>(at - position)] = header->bytes[i];
    }
  }
}

}  // namespace captoria
