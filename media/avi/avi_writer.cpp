// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/avi/avi_writer.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace captoria {
namespace {

constexpr std::uint32_t kHasIndex = 0x10, kMustUseIndex = 0x20, kIsInterleaved = 0x100;

// In OpenDML indices the highest bit of a size marks a chunk that is not a key frame.
constexpr std::uint32_t kLargestChunk = std::numeric_limits<std::int32_t>::max() - 1;

// Offsets in `strh`.
constexpr std::size_t kLengthField = 32, kBufferSizeField = 36;

void Put32(Bytes& bytes, std::size_t at, std::uint32_t value) {
  ByteWriter number;
  number.U32(value);
  if (at + 4 <= bytes.size()) std::ranges::copy(number.Written(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
}

std::uint32_t Fit32(std::uint64_t value) {
  return static_cast<std::uint32_t>(std::min<std::uint64_t>(value, std::numeric_limits<std::uint32_t>::max()));
}

// Takes from the window what it holds, and reads the rest straight into the blocks to be written.
Result<void> CopyData(FileWindow& source, std::uint64_t position, std::uint32_t size, BlockWriter& out) {
  for (const std::uint64_t end = position + size; position < end;) {
    const auto room = out.Room();
    if (!room) return tl::unexpected(room.error());
    const auto to = room->first(static_cast<std::size_t>(std::min<std::uint64_t>(end - position, room->size())));
    if (auto read = source.ReadExactly(position, to); !read) return read;
    out.Advance(to.size());
    position += to.size();
  }
  return {};
}

// For a stream without chunks, or before its first chunk.
std::string UsualChunkType(const AviStream& stream) {
  if (stream.IsXsub()) return "sb";
  if (stream.header.type == "auds") return "wb";
  return stream.header.type == "txts" ? "tx" : "dc";
}

}  // namespace

Result<std::unique_ptr<AviWriter>> AviWriter::Create(const std::string& path, AviLayout layout) {
  auto file = OutputFile::Create(path);
  if (!file) return tl::unexpected(file.error());
  std::unique_ptr<AviWriter> writer(new AviWriter(std::move(*file), std::move(layout)));
  if (auto begun = writer->BeginRiff(); !begun) return tl::unexpected(begun.error());
  return writer;
}

AviWriter::AviWriter(OutputFile file, AviLayout layout)
    : file_(std::move(file)), layout_(std::move(layout)), out_(file_) {
  for (const AviStream& stream : layout_.streams) {
    streams_.emplace_back(stream);
    indices_.push_back({.type = UsualChunkType(stream), .entries = {}});
    const bool is_video = stream.header.type == "vids" && !stream.IsXsub();
    if (is_video && video_ < 0) video_ = static_cast<int>(streams_.size()) - 1;
  }
}

Result<void> AviWriter::Copy(FileWindow& source, const AviChunk& chunk, int stream) {
  if (auto begun = BeginChunk(stream, chunk.type, chunk.key, chunk.size); !begun) return begun;
  if (auto written = out_.Append(ChunkHeader(stream, chunk.type, chunk.size)); !written) return written;
  if (auto copied = CopyData(source, chunk.DataPosition(), chunk.size, out_); !copied) return copied;
  constexpr std::uint8_t kPad[]{0};
  return chunk.size % 2 == 0 ? Result<void>{} : out_.Append(kPad);
}

Result<void> AviWriter::Append(int stream, std::string_view type, bool key, ByteView data) {
  const std::uint32_t size = Fit32(data.size());
  if (auto begun = BeginChunk(stream, type, key, size); !begun) return begun;
  Stream& appended = streams_[static_cast<std::size_t>(stream)];
  appended.largest_appended = std::max(appended.largest_appended, size);
  appended_bytes_ += 8 + data.size();
  ByteWriter chunk;
  chunk.Append(ChunkHeader(stream, type, size)).Append(data);
  if (size % 2 != 0) chunk.U8(0);
  return out_.Append(chunk.Written());
}

Result<void> AviWriter::BeginChunk(int stream, std::string_view type, bool key, std::uint32_t size) {
  if (size > kLargestChunk) return Failure(ErrorKind::TooLarge, "an AVI file cannot hold a chunk of 2 GiB or more");
  const std::uint64_t end = out_.Position() + 8 + size + size % 2;
  const bool many = index_.Count() >= RiffIndex::kMostEntries;
  if (!layout_.open_dml && (many || end + 8 + 16 * (index_.Count() + 1) > kLargestPlain)) {
    return Failure(ErrorKind::TooLarge, "the film is too large for a plain AVI file");
  }
  if (layout_.open_dml && index_.Count() > 0 && (many || end - riff_.begin > layout_.riff_limit)) {
    if (auto ended = EndRiff(); !ended) return ended;
    if (auto begun = BeginRiff(); !begun) return begun;
  }

  const auto number = static_cast<std::size_t>(stream);
  IndexEntry entry{.offset = static_cast<std::uint32_t>(out_.Position() - riff_.movi),
                   .size = size,
                   .stream = static_cast<std::uint8_t>(stream),
                   .key = key};
  std::ranges::copy(type.substr(0, 2), entry.type.begin());
  index_.Add(entry);
  streams_[number].in_riff.Add(size, entry.IsPalette());
  streams_[number].total.Add(size, entry.IsPalette());
  if (!entry.IsPalette()) indices_[number].type = type;
  largest_chunk_ = std::max(largest_chunk_, size);
  return {};
}

Result<void> AviWriter::BeginRiff() {
  if (riffs_ == MostRiffs(layout_)) return Failure(ErrorKind::TooLarge, "the film has more parts than its index holds");
  riff_.begin = out_.Position();
  Bytes header = AviHeader(layout_, indices_, sizes_);
  if (riffs_ > 0) {
    ByteWriter next;
    next.Text("RIFF").U32(0).Text("AVIX").Text("LIST").U32(0).Text("movi");
    header = next.Take();
  }
  riff_.movi = riff_.begin + header.size() - 4;
  index_ = RiffIndex(riff_.movi);
  for (std::size_t i = 0; i < streams_.size(); ++i) streams_[i].in_riff = StreamUnits(layout_.streams[i]);
  ++riffs_;
  return out_.Append(header);
}

Result<void> AviWriter::EndRiff() {
  for (std::size_t i = 0; layout_.open_dml && i < streams_.size(); ++i) {
    const auto entry =
        index_.AppendStandardIndex(out_, static_cast<int>(i), indices_[i].type, Fit32(streams_[i].in_riff.Count()));
    if (!entry) return tl::unexpected(entry.error());
    indices_[i].entries.push_back(*entry);
  }
  const std::uint64_t movi_size = out_.Position() - riff_.movi;
  if (riffs_ == 1) {
    if (auto appended = index_.AppendIdx1(out_); !appended) return appended;
    if (video_ >= 0) layout_.main.total_frames = Fit32(streams_[static_cast<std::size_t>(video_)].total.Count());
  }
  const std::uint64_t riff_size = out_.Position() - riff_.begin - 8;
  if (auto flushed = out_.Drain(); !flushed) return flushed;
  if (riffs_ == 1) {
    sizes_.riff = Fit32(riff_size);
    sizes_.movi = Fit32(movi_size);
    return {};
  }
  if (auto written = WriteSize(riff_.begin + 4, riff_size); !written) return written;
  return WriteSize(riff_.movi - 4, movi_size);
}

Result<void> AviWriter::WriteSize(std::uint64_t at, std::uint64_t size) {
  ByteWriter number;
  number.U32(Fit32(size));
  return file_.WriteAt(at, number.Written());
}

void AviWriter::CompleteStreamHeaders() {
  const auto promises_more = [&](std::size_t i) {
    return layout_.streams[i].header.length > streams_[i].total.Count();
  };
  const bool broken_off = video_ >= 0 && promises_more(static_cast<std::size_t>(video_));
  for (std::size_t i = 0; i < streams_.size(); ++i) {
    AviStream& stream = layout_.streams[i];
    if (stream.header.length == 0 || (broken_off && promises_more(i))) {
      Put32(stream.header_bytes, kLengthField, Fit32(streams_[i].total.Count()));
    }
    if (streams_[i].largest_appended > 0) Put32(stream.header_bytes, kBufferSizeField, streams_[i].largest_appended);
  }
}

void AviWriter::CompleteMainHeader() {
  AviMainHeader& main = layout_.main;
  main.flags = (main.flags | kHasIndex | kIsInterleaved) & ~kMustUseIndex;
  main.padding_granularity = 0;  // the padding of the source is not copied
  main.suggested_buffer_size = std::max(main.suggested_buffer_size, largest_chunk_);
  const std::uint64_t duration = std::uint64_t{sizes_.total_frames} * main.micro_seconds_per_frame;
  if (main.max_bytes_per_second > 0 && duration > 0) {
    main.max_bytes_per_second = Fit32(main.max_bytes_per_second + appended_bytes_ * 1'000'000 / duration);
  }
}

Result<std::uint64_t> AviWriter::Finish() {
  if (auto ended = EndRiff(); !ended) return tl::unexpected(ended.error());
  sizes_.total_frames = layout_.main.total_frames;
  if (video_ >= 0) sizes_.total_frames = Fit32(streams_[static_cast<std::size_t>(video_)].total.Count());
  CompleteStreamHeaders();
  CompleteMainHeader();
  if (auto written = file_.WriteAt(0, AviHeader(layout_, indices_, sizes_)); !written) {
    return tl::unexpected(written.error());
  }
  const std::uint64_t size = file_.Size();
  if (auto named = file_.Commit(); !named) return tl::unexpected(named.error());
  return size;
}

}  // namespace captoria
