// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/avi/avi_headers.h"

#include <algorithm>
#include <utility>

#include "media/avi/riff.h"

namespace captoria {
namespace {

constexpr std::size_t kBlock = 16384;
constexpr std::size_t kMaxStreams = 100;       // a chunk's name has two digits for the stream
constexpr std::uint32_t kMaxPiece = 1 << 20;   // a larger size among the headers is damaged
constexpr std::size_t kMaxKept = 4 << 20;      // for all streams together
constexpr std::size_t kMaxExtras = 1 << 20;    // see AviFile::Extras()
constexpr std::uint64_t kMaxSearch = 1 << 20;  // for the next list after damage
constexpr int kMaxPieces = 20'000;             // a hundred streams have about eight hundred

AviMainHeader ParseMainHeader(ByteView bytes) {
  ByteReader reader(bytes);
  AviMainHeader main;
  for (std::uint32_t* field : {&main.micro_seconds_per_frame, &main.max_bytes_per_second, &main.padding_granularity,
                               &main.flags, &main.total_frames, &main.initial_frames, &main.streams,
                               &main.suggested_buffer_size, &main.width, &main.height}) {
    *field = reader.U32();
  }
  return main;
}

// Older files have shorter records; the missing fields at the end are read as 0.
AviStreamHeader ParseStreamHeader(ByteView bytes) {
  ByteReader reader(bytes);
  AviStreamHeader header;
  header.type = reader.FourCc();
  header.handler = reader.FourCc();
  header.flags = reader.U32();
  header.priority = reader.U16();
  header.language = reader.U16();
  for (std::uint32_t* field : {&header.initial_frames, &header.scale, &header.rate, &header.start, &header.length,
                               &header.suggested_buffer_size, &header.quality, &header.sample_size}) {
    *field = reader.U32();
  }
  for (std::int16_t& edge : header.frame) edge = static_cast<std::int16_t>(reader.U16());
  return header;
}

bool IsPadding(FourCc id) {
  return id == MakeFourCc("JUNK") || id == MakeFourCc("junk") || id == MakeFourCc("JUNQ") || id == MakeFourCc("PAD ");
}

// Whether the pieces of the list are read one by one instead of keeping the list whole.
bool IsEntered(FourCc type) {
  return type == MakeFourCc("hdrl") || type == MakeFourCc("strl") || type == MakeFourCc("odml") ||
         type == MakeFourCc("movi");
}

bool IsKnown(FourCc id) {
  for (const FourCc known : {MakeFourCc("LIST"), MakeFourCc("strh"), MakeFourCc("strf"), MakeFourCc("strd"),
                             MakeFourCc("strn"), MakeFourCc("vprp"), MakeFourCc("indx"), MakeFourCc("idx1")}) {
    if (id == known) return true;
  }
  return IsPadding(id);
}

// Enters a list by continuing after its header. The end of a list is only used if a piece in it has an impossible size.
// So neither a list nor a piece of wrong size hides what follows it.
class HeaderParser {
 public:
  HeaderParser(const InputFile& file, Findings& findings) : file_(file), window_(file), findings_(findings) {}

  Result<AviHeaders> Run() {
    auto done = ReadRiff().and_then([this] { return ReadUntilMovi(); }).and_then([this] { return ReadAfterMovi(); });
    if (!done) return tl::unexpected(done.error());
    if (headers_.streams.empty()) return Failure(ErrorKind::Damaged, file_.Path() + ": contains no stream");
    return std::move(headers_);
  }

 private:
  Result<void> ReadRiff() {
    const auto header = HeaderAt(0);
    if (!header) return tl::unexpected(header.error());
    // Some writers put 0x19 in place of the blank.
    if (!*header || (*header)->id != MakeFourCc("RIFF") ||
        ((*header)->type != MakeFourCc("AVI ") && (*header)->type != MakeFourCc("AVI\x19"))) {
      return Failure(ErrorKind::Damaged, file_.Path() + ": is not an AVI file");
    }
    const std::uint64_t end = RiffHeader::kSize + std::uint64_t{(*header)->size};
    if ((*header)->size == 0) {
      ReportDamage(file_, "the file was never finished: its header contains no length", findings_);
    } else if (end <= file_.Size()) {
      headers_.places.riff_end = end;
    } else {
      ReportIfCutOff(file_, end, findings_);
    }
    at_ = RiffHeader::kListSize;
    return {};
  }

  // The header of the piece at `position`; nothing at the end of the file.
  Result<std::optional<RiffHeader>> HeaderAt(std::uint64_t position) {
    return window_.At(position, RiffHeader::kListSize, kBlock).map([](ByteView bytes) -> std::optional<RiffHeader> {
      if (bytes.size() < RiffHeader::kSize) return std::nullopt;
      return RiffHeader::Parse(bytes);
    });
  }

  Result<void> ReadUntilMovi() {
    for (int pieces = 0; pieces < kMaxPieces && headers_.places.movi == 0; ++pieces) {
      const auto header = HeaderAt(at_);
      if (!header) return tl::unexpected(header.error());
      if (!*header || (*header)->id == MakeFourCc("RIFF")) break;
      if (!IsPrintable((*header)->id)) {
        ReportDamage(file_, "the headers are damaged", findings_);
        if (auto found = FindList(at_ + 1, at_); !found) return found;
        continue;
      }
      if (auto taken = (*header)->IsList() ? TakeList(**header) : TakePiece(**header); !taken) return taken;
    }
    if (headers_.places.movi == 0) ReportDamage(file_, "the file has no list of chunks", findings_);
    return {};
  }

  Result<void> TakeList(const RiffHeader& header) {
    const std::uint64_t end = at_ + RiffHeader::kSize + header.size;
    switch (header.type) {
      case MakeFourCc("movi"):
        headers_.places.movi = at_ + RiffHeader::kSize;
        after_movi_ = header.size == 0 ? file_.Size() : end;
        return {};
      case MakeFourCc("strl"):
        strl_end_ = end;
        stream_ = kNoStream;
        [[fallthrough]];
      case MakeFourCc("hdrl"):
        if (header.type == MakeFourCc("hdrl")) hdrl_end_ = end;
        [[fallthrough]];
      case MakeFourCc("odml"):
        at_ += RiffHeader::kListSize;
        return {};
      default:
        return TakePiece(header);
    }
  }

  Result<void> TakePiece(const RiffHeader& header) {
    const auto end = EndOf(header);
    if (!end) return tl::unexpected(end.error());
    const std::uint64_t begin = at_ + RiffHeader::kSize;
    const std::uint64_t size = std::min<std::uint64_t>(header.size, *end - begin);
    const bool in_stream = at_ < strl_end_;
    auto kept = Keep(header.id, {begin, size}, in_stream);
    if (!kept) return kept;
    at_ = *end;
    return size == header.size && header.size % 2 != 0 ? SkipPadByte() : kept;
  }

  // Some writers omit the pad byte; then the next piece begins here.
  Result<void> SkipPadByte() {
    const auto header = HeaderAt(at_);
    if (!header) return tl::unexpected(header.error());
    if (!*header || !IsKnown((*header)->id)) ++at_;
    return {};
  }

  // A size that exceeds the file, or far exceeds the list around the piece, is wrong. The piece then ends with that
  // list, or where the next list begins.
  Result<std::uint64_t> EndOf(const RiffHeader& header) {
    const std::uint64_t end = at_ + RiffHeader::kSize + header.size;
    std::uint64_t around = file_.Size();
    for (const std::uint64_t list_end : {hdrl_end_, strl_end_}) {
      if (list_end >= at_ + RiffHeader::kSize && list_end < around) around = list_end;
    }
    if (end <= around || (end <= file_.Size() && header.size <= kMaxPiece)) return end;
    ReportDamage(file_, "the header piece \"" + TextOf(header.id) + "\" has an impossible size", findings_);
    if (around < file_.Size()) return around;
    std::uint64_t next = 0;
    if (auto found = FindList(at_ + RiffHeader::kSize, next); !found) return tl::unexpected(found.error());
    return next;
  }

  // Sets `found` to the beginning of the next list of the headers, or to the end of the file.
  Result<void> FindList(std::uint64_t from, std::uint64_t& found) {
    const std::uint64_t end = std::min(file_.Size(), from + kMaxSearch);
    for (std::uint64_t position = from; position < end; ++position) {
      const auto header = HeaderAt(position);
      if (!header) return tl::unexpected(header.error());
      if (!*header) break;
      const FourCc type = (*header)->type;
      if ((*header)->IsList() && (type == MakeFourCc("strl") || type == MakeFourCc("movi") ||
                                  type == MakeFourCc("hdrl") || type == MakeFourCc("INFO"))) {
        found = position;
        return {};
      }
    }
    found = file_.Size();
    return {};
  }

  Result<void> Keep(FourCc id, AviSpan span, bool in_stream) {
    if (IsPadding(id)) return {};
    if (id == MakeFourCc("indx")) {
      if (stream_ != kNoStream) headers_.places.indx[stream_] = span;
      return {};
    }
    if (!in_stream && (id == MakeFourCc("LIST") || id == MakeFourCc("IDIT"))) return KeepExtra(id, span);
    auto data = Read(id, span, kMaxKept - kept_);
    if (!data) return tl::unexpected(data.error());
    if (!*data) return {};
    kept_ += (*data)->size();
    KeepRecord(id, *std::move(*data), in_stream);
    return {};
  }

  Result<void> KeepExtra(FourCc id, AviSpan span) {
    auto data = Read(id, span, kMaxExtras - extras_kept_);
    if (!data) return tl::unexpected(data.error());
    if (!*data) return {};
    extras_kept_ += (*data)->size();
    headers_.extras.push_back({TextOf(id), *std::move(*data)});
    return {};
  }

  // Nothing if the piece is larger than `limit`.
  Result<std::optional<Bytes>> Read(FourCc id, AviSpan span, std::size_t limit) {
    if (span.size > limit || span.size > kMaxPiece) {
      ReportDamage(file_, "the header piece \"" + TextOf(id) + "\" is too large and was left out", findings_);
      return std::nullopt;
    }
    Bytes data(static_cast<std::size_t>(span.size));
    return file_.ReadExactly(span.position, data).map([&data] { return std::optional(std::move(data)); });
  }

  void KeepRecord(FourCc id, Bytes data, bool of_stream) {
    switch (id) {
      case MakeFourCc("avih"):
        headers_.main = ParseMainHeader(data);
        return;
      case MakeFourCc("dmlh"):
        return;  // counted anew for every result
      case MakeFourCc("strh"):
        AddStream(std::move(data));
        return;
      default:
        if (stream_ != kNoStream) KeepOfStream(headers_.streams[stream_], id, std::move(data), of_stream);
    }
  }

  static void KeepOfStream(AviStream& stream, FourCc id, Bytes data, bool in_list) {
    if (id == MakeFourCc("strf")) {
      if (stream.format.empty()) stream.format = std::move(data);
    } else if (id == MakeFourCc("strn")) {
      stream.name.assign(data.begin(), std::ranges::find(data, 0));
    } else if (in_list) {
      stream.others.push_back({TextOf(id), std::move(data)});
    }
  }

  void AddStream(Bytes data) {
    stream_ = kNoStream;
    AviStream stream;
    stream.header = ParseStreamHeader(data);
    // This is padding in the form of a stream; it does not count as a stream.
    if (stream.header.type == "pads") return;
    if (headers_.streams.size() == kMaxStreams) {
      ReportDamage(file_, "the file has more than 100 streams; the others were left out", findings_);
      return;
    }
    stream.header_bytes = std::move(data);
    stream_ = headers_.streams.size();
    headers_.streams.push_back(std::move(stream));
    headers_.places.indx.emplace_back();
  }

  // Reads the index and the lists after the chunks of the first RIFF.
  Result<void> ReadAfterMovi() {
    if (headers_.places.movi == 0) return {};
    // The size of the RIFF is wrong if it ends before its chunks.
    if (headers_.places.riff_end < after_movi_) headers_.places.riff_end = 0;
    const std::uint64_t end = headers_.places.riff_end != 0 ? headers_.places.riff_end : file_.Size();
    at_ = after_movi_;
    for (int pieces = 0; pieces < kMaxPieces && at_ + RiffHeader::kSize <= end; ++pieces) {
      if (at_ % 2 != 0) {
        if (auto skipped = SkipPadByte(); !skipped) return skipped;
      }
      const auto header = HeaderAt(at_);
      if (!header) return tl::unexpected(header.error());
      if (!*header || !IsPrintable((*header)->id) || (*header)->id == MakeFourCc("RIFF")) break;
      const AviSpan data{at_ + RiffHeader::kSize, (*header)->size};
      const bool whole = data.position + data.size <= end;
      if ((*header)->id == MakeFourCc("idx1") && !headers_.places.idx1 && data.position <= end) {
        headers_.places.idx1 = {data.position, std::min(data.size, end - data.position)};
      } else if ((*header)->IsList() && whole && !IsEntered((*header)->type)) {
        if (auto kept = KeepExtra((*header)->id, data); !kept) return kept;
      }
      if (!whole) break;
      at_ = data.position + data.size;
    }
    return {};
  }

  static constexpr std::size_t kNoStream = kMaxStreams;

  const InputFile& file_;
  FileWindow window_;
  Findings& findings_;
  AviHeaders headers_;
  std::uint64_t at_ = 0;
  std::uint64_t hdrl_end_ = 0;
  std::uint64_t strl_end_ = 0;
  std::uint64_t after_movi_ = 0;
  std::size_t stream_ = kNoStream;  // that the pieces belong to
  std::size_t kept_ = 0;
  std::size_t extras_kept_ = 0;
};

}  // namespace

void ReportDamage(const InputFile& file, std::string message, Findings& findings) {
  Finding finding{.kind = FindingKind::DamagedVideo, .file = file.Path(), .message = std::move(message)};
  if (std::ranges::find(findings, finding) == findings.end()) findings.push_back(std::move(finding));
}

void ReportIfCutOff(const InputFile& file, std::uint64_t riff_end, Findings& findings) {
  // Many writers include a RIFF's own header in its size.
  if (riff_end <= file.Size() + RiffHeader::kSize) return;
  ReportDamage(file, "the file is cut off: " + std::to_string(riff_end - file.Size()) + " bytes are missing", findings);
}

Result<AviHeaders> ReadAviHeaders(const InputFile& file, Findings& findings) {
  return HeaderParser(file, findings).Run();
}

}  // namespace captoria
