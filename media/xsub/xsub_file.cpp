// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/xsub/xsub_file.h"

#include <array>
#include <string_view>
#include <utility>
#include <vector>

#include "media/xsub/xsub_packet.h"
#include "platform/input_file.h"
#include "platform/output_file.h"

namespace captoria {
namespace {

constexpr std::string_view kMagic = "CapXsub";
constexpr std::uint8_t kVersion = 1;
constexpr std::size_t kHeader = 16;
constexpr std::size_t kPacketHeader = 12;

struct IndexEntry {
  std::uint64_t position = 0;  // of the packet's bytes
  std::uint32_t show = 0;
  std::uint32_t size = 0;
};

class XsubFileSource final : public SubtitleSource {
 public:
  XsubFileSource(InputFile file, Size frame, std::vector<IndexEntry> index)
      : file_(std::move(file)), frame_(frame), index_(std::move(index)) {}

  Size Frame() const override { return frame_; }
  std::size_t Count() const override { return index_.size(); }
  std::int64_t ShowTime(std::size_t index) const override { return index_[index].show; }

  Result<Bytes> Packet(std::size_t index) const override {
    const IndexEntry& entry = index_[index];
    Bytes packet(entry.size);
    if (auto read = file_.ReadExactly(entry.position, packet); !read) return tl::unexpected(read.error());
    const auto times = ReadXsubTimes(packet);
    if (!times || times->show != entry.show) {
      return Failure(ErrorKind::Damaged,
                     file_.Path() + ": packet " + std::to_string(index + 1) + " does not begin with its show time");
    }
    return packet;
  }

 private:
  InputFile file_;
  Size frame_;
  std::vector<IndexEntry> index_;
};

struct Header {
  Size frame;
  std::uint32_t count = 0;
};

Result<Header> ReadHeader(const InputFile& file) {
  const auto fail = [&](ErrorKind kind, const char* how) { return Failure(kind, file.Path() + ": " + how); };
  Bytes bytes(kHeader);
  const auto got = file.ReadAt(0, bytes);
  if (!got) return tl::unexpected(got.error());
  ByteReader in(ByteView{bytes}.first(*got));
  const ByteView magic = in.Take(kMagic.size());
  if (std::string_view{reinterpret_cast<const char*>(magic.data()), magic.size()} != kMagic) {
    return fail(ErrorKind::Damaged, "is not an XSUB file");
  }
  if (in.U8() != kVersion) return fail(ErrorKind::Unsupported, "is an XSUB file of a later version");
  Header header;
  header.frame.width = in.U16();
  header.frame.height = in.U16();
  header.count = in.U32();
  if (in.Failed()) return fail(ErrorKind::Damaged, "is cut off in its header");
  if (header.frame.width < 2 || header.frame.height < 2) return fail(ErrorKind::Damaged, "has no frame");
  // Checked before memory is allocated for the packets.
  if (header.count > (file.Size() - kHeader) / (kPacketHeader + kXsubHeader)) {
    return fail(ErrorKind::Damaged, "is too short for its packets");
  }
  return header;
}

Result<IndexEntry> ReadEntry(const InputFile& file, std::uint64_t position, std::uint32_t least_show,
                             std::size_t number) {
  std::array<std::uint8_t, kPacketHeader> bytes{};
  if (auto read = file.ReadExactly(position, bytes); !read) return tl::unexpected(read.error());
  ByteReader in(bytes);
  const std::uint32_t show = in.U32(), hide = in.U32(), size = in.U32();
  position += kPacketHeader;
  if (show < least_show || hide <= show || hide > kLatestXsubTime || size <= kXsubHeader || size > kLargestXsubPacket ||
      size > file.Size() - position) {
    return Failure(ErrorKind::Damaged, file.Path() + ": packet " + std::to_string(number) + " is damaged");
  }
  return IndexEntry{position, show, size};
}

Result<void> AppendPacket(OutputFile& out, const SubtitleSource& source, std::size_t index) {
  const auto packet = source.Packet(index);
  if (!packet) return tl::unexpected(packet.error());
  const auto times = ReadXsubTimes(*packet);
  if (!times) return Failure(ErrorKind::Damaged, "packet " + std::to_string(index + 1) + " has no times");
  ByteWriter entry;
  entry.U32(static_cast<std::uint32_t>(times->show)).U32(static_cast<std::uint32_t>(times->hide));
  entry.U32(static_cast<std::uint32_t>(packet->size())).Append(*packet);
  return out.Append(entry.Written());
}

}  // namespace

Result<void> WriteXsubFile(const std::string& path, const SubtitleSource& source, JobProgress& progress) {
  auto out = OutputFile::Create(path);
  if (!out) return tl::unexpected(out.error());
  const Size frame = source.Frame();
  ByteWriter header;
  header.Text(kMagic).U8(kVersion).U16(static_cast<std::uint16_t>(frame.width));
  header.U16(static_cast<std::uint16_t>(frame.height)).U32(static_cast<std::uint32_t>(source.Count()));
  if (auto written = out->Append(header.Written()); !written) return written;

  for (std::size_t i = 0; i < source.Count(); ++i) {
    if (!progress.Report(i, source.Count())) return Failure(ErrorKind::Cancelled, path + ": stopped");
    if (auto written = AppendPacket(*out, source, i); !written) return written;
  }
  // Asked again at the end, so that a stop during the last packet counts too.
  if (!progress.Report(source.Count(), source.Count())) return Failure(ErrorKind::Cancelled, path + ": stopped");
  return out->Commit();
}

Result<std::shared_ptr<SubtitleSource>> OpenXsubFile(const std::string& path) {
  auto file = InputFile::Open(path);
  if (!file) return tl::unexpected(file.error());
  const auto header = ReadHeader(*file);
  if (!header) return tl::unexpected(header.error());

  std::vector<IndexEntry> index;
  index.reserve(header->count);
  std::uint64_t position = kHeader;
  for (std::uint32_t i = 0; i < header->count; ++i) {
    const auto entry = ReadEntry(*file, position, index.empty() ? 0 : index.back().show, i + 1);
    if (!entry) return tl::unexpected(entry.error());
    index.push_back(*entry);
    position = entry->position + entry->size;
  }
  if (position != file->Size()) return Failure(ErrorKind::Damaged, path + ": continues after its last packet");
  return std::make_shared<XsubFileSource>(std::move(*file), header->frame, std::move(index));
}

}  // namespace captoria
