// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/avi/riff_index.h"

#include <algorithm>

namespace captoria {
namespace {

constexpr std::uint32_t kKeyFrame = 0x10;
constexpr std::uint32_t kNoTime = 0x100;
constexpr std::uint32_t kNotKeyFrame = std::uint32_t{1} << 31;

constexpr std::size_t kBlock = std::size_t{64} << 10;

// nBlockAlign of a WAVEFORMATEX. An audio chunk without a sample size counts one unit for each block that begins in it.
std::uint32_t BlockAlign(const AviStream& stream) {
  if (stream.header.type != "auds") return 0;
  ByteReader format(stream.format);
  format.Skip(12);
  return format.U16();
}

// Collects entries, so that a long index is neither in memory twice nor written entry by entry.
Result<void> AppendWhenFull(ByteWriter& bytes, BlockWriter& out, std::size_t full) {
  if (bytes.Size() < full) return {};
  return out.Append(bytes.Take());
}

}  // namespace

std::string ChunkId(int stream, std::string_view type) {
  std::string id{static_cast<char>('0' + stream / 10), static_cast<char>('0' + stream % 10)};
  return id.append(type);
}

std::array<std::uint8_t, 8> ChunkHeader(int stream, std::string_view type, std::uint32_t size) {
  // Called for every chunk of a film, so it allocates nothing.
  std::array<std::uint8_t, 8> header{};
  header[0] = static_cast<std::uint8_t>('0' + stream / 10);
  header[1] = static_cast<std::uint8_t>('0' + stream % 10);
  for (std::size_t i = 0; i < 2 && i < type.size(); ++i) header[2 + i] = static_cast<std::uint8_t>(type[i]);
  for (std::size_t i = 0; i < 4; ++i) header[4 + i] = static_cast<std::uint8_t>(size >> (8 * i));
  return header;
}

StreamUnits::StreamUnits(const AviStream& stream)
    : sample_size_(stream.header.sample_size), block_(BlockAlign(stream)) {}

void StreamUnits::Add(std::uint32_t chunk_size, bool is_palette) {
  if (is_palette) return;
  bytes_ += chunk_size;
  units_ += block_ == 0 ? 1 : (chunk_size + std::uint64_t{block_} - 1) / block_;
}

Result<void> RiffIndex::AppendIdx1(BlockWriter& out) const {
  ByteWriter bytes;
  bytes.Text("idx1").U32(static_cast<std::uint32_t>(entries_.size() * 16));
  for (const IndexEntry& entry : entries_) {
    const std::uint32_t flags = entry.IsPalette() ? kNoTime : entry.key ? kKeyFrame : 0;
    bytes.Text(ChunkId(entry.stream, {entry.type.data(), entry.type.size()}));
    bytes.U32(flags).U32(entry.offset).U32(entry.size);
    if (auto appended = AppendWhenFull(bytes, out, kBlock); !appended) return appended;
  }
  return AppendWhenFull(bytes, out, 1);
}

Result<SuperIndexEntry> RiffIndex::AppendStandardIndex(BlockWriter& out, int stream, std::string_view type,
                                                       std::uint32_t duration) const {
  // Palette changes take no time. If they were counted here, everything after them would shift by a frame.
  const auto belongs = [stream](const IndexEntry& entry) { return entry.stream == stream && !entry.IsPalette(); };
  const auto count = static_cast<std::uint32_t>(std::ranges::count_if(entries_, belongs));
  const SuperIndexEntry standard{.position = out.Position(), .size = 8 + 24 + 8 * count, .duration = duration};

  ByteWriter bytes;
  bytes.Text("ix" + ChunkId(stream, "")).U32(24 + 8 * count);
  bytes.U16(2).U8(0).U8(1).U32(count).Text(ChunkId(stream, type)).U64(movi_).U32(0);
  for (const IndexEntry& entry : entries_) {
    if (!belongs(entry)) continue;
    bytes.U32(entry.offset + 8).U32((entry.size & ~kNotKeyFrame) | (entry.key ? 0 : kNotKeyFrame));
    if (auto appended = AppendWhenFull(bytes, out, kBlock); !appended) return tl::unexpected(appended.error());
  }
  if (auto appended = AppendWhenFull(bytes, out, 1); !appended) return tl::unexpected(appended.error());
  return standard;
}

Bytes SuperIndex(std::span<const SuperIndexEntry> entries, std::size_t capacity, int stream, std::string_view type) {
  ByteWriter bytes;
  bytes.U16(4).U8(0).U8(0).U32(static_cast<std::uint32_t>(entries.size())).Text(ChunkId(stream, type)).Zeros(12);
  for (const SuperIndexEntry& entry : entries) bytes.U64(entry.position).U32(entry.size).U32(entry.duration);
  bytes.Zeros(16 * (capacity - entries.size()));
  return bytes.Take();
}

}  // namespace captoria
