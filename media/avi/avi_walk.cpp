// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/avi/avi_walk.h"

#include <algorithm>
#include <utility>

#include "base/ascii.h"
#include "media/avi/avi_chunk_keys.h"
#include "media/avi/riff.h"

namespace captoria {
namespace {

constexpr std::size_t kBlock = std::size_t{256} << 10;
constexpr std::size_t kLittle = 1024;
constexpr std::uint32_t kSmallChunk = 16384;   // reading whole small chunks is faster than one call for each
constexpr std::uint64_t kMaxSearch = 1 << 20;  // for chunks after damage
constexpr int kMaxProbes = 200'000;            // failed ones, in all searches together
constexpr std::uint64_t kNowhere = UINT64_MAX;

enum class PieceKind {
  Chunk,    // belongs to a stream
  Skipped,  // index, padding, other list, chunk of no stream
  Entered,  // a list of chunks
  NextRiff,
  Foreign,  // does not belong here
};

struct PlacedPiece {
  PieceKind kind = PieceKind::Foreign;
  RiffHeader header;
  int stream = 0;  // if it is a chunk
};

bool IsLetter(char letter) {
  return IsDigit(letter) || (LowerAscii(letter) >= 'a' && LowerAscii(letter) <= 'z') || letter == '_';
}

class Walk final : public AviChunkWalk {
 public:
  Walk(const InputFile& file, std::span<const AviStream> streams, const AviPlaces& places,
       std::shared_ptr<Findings> findings)
      : file_(file),
        window_(file),
        keys_(file, streams),
        places_(places),
        findings_(std::move(findings)),
        streams_(static_cast<int>(streams.size())),
        at_(places.movi == 0 ? file.Size() : places.movi + 4),
        riff_end_(places.riff_end) {}

  Result<std::optional<AviChunk>> Next() override {
    if (!std::exchange(opened_, true)) {
      if (auto opened = keys_.Open(places_, *findings_); !opened) return tl::unexpected(opened.error());
    }
    std::optional<AviChunk> chunk;
    while (!chunk && at_ < file_.Size()) {
      auto piece = PieceAt(at_);
      if (!piece) return tl::unexpected(piece.error());
      const auto stepped = Step(*piece, chunk);
      if (!stepped) return tl::unexpected(stepped.error());
    }
    return chunk;
  }

  FileWindow& Window() override { return window_; }

 private:
  // The piece at `position`; Foreign at the end of the file.
  Result<PlacedPiece> PieceAt(std::uint64_t position) {
    const auto bytes = window_.At(position, RiffHeader::kListSize, average_size_ < kSmallChunk ? kBlock : kLittle);
    if (!bytes) return tl::unexpected(bytes.error());
    return Classify(*bytes);
  }

  PlacedPiece Classify(ByteView bytes) const {
    PlacedPiece piece;
    if (bytes.size() < RiffHeader::kSize) return piece;
    piece.header = RiffHeader::Parse(bytes);
    const FourCc id = piece.header.id;
    const bool numbered = IsDigit(LetterOf(id, 0)) && IsDigit(LetterOf(id, 1));
    const FourCc letters = id >> 16;
    constexpr FourCc kIndexLetters = MakeFourCc("ix__") & 0xFFFF;
    if (numbered && letters != kIndexLetters && IsLetter(LetterOf(id, 2)) && IsLetter(LetterOf(id, 3))) {
      piece.stream = (LetterOf(id, 0) - '0') * 10 + LetterOf(id, 1) - '0';
      piece.kind = piece.stream < streams_ ? PieceKind::Chunk : PieceKind::Skipped;
    } else if (numbered && letters == kIndexLetters) {
      piece.kind = PieceKind::Skipped;
    } else {
      piece.kind = KindOf(piece.header);
    }
    return piece;
  }

  static PieceKind KindOf(const RiffHeader& header) {
    switch (header.id) {
      case MakeFourCc("LIST"):
        if (header.type == MakeFourCc("rec ") || header.type == MakeFourCc("movi")) return PieceKind::Entered;
        return IsPrintable(header.type) ? PieceKind::Skipped : PieceKind::Foreign;
      case MakeFourCc("RIFF"):
        return header.type == MakeFourCc("AVIX") ? PieceKind::NextRiff : PieceKind::Foreign;
      case MakeFourCc("JUNK"):
      case MakeFourCc("junk"):
      case MakeFourCc("idx1"):
        return PieceKind::Skipped;
      default:
        constexpr FourCc kIndexLetters = MakeFourCc("ix__") & 0xFFFF;
        return (header.id & 0xFFFF) == kIndexLetters && IsDigit(LetterOf(header.id, 2)) ? PieceKind::Skipped
                                                                                        : PieceKind::Foreign;
    }
  }

  // Moves past the piece at `at_`, or to the next piece after damage. Sets `chunk` if the piece is a chunk.
  Result<void> Step(const PlacedPiece& piece, std::optional<AviChunk>& chunk) {
    if (riff_end_ != 0 && at_ >= riff_end_ && piece.kind != PieceKind::NextRiff) return LeaveRiff(piece);
    switch (piece.kind) {
      case PieceKind::Chunk:
      case PieceKind::Skipped:
        return StepPast(piece, chunk);
      case PieceKind::NextRiff: {
        const std::uint64_t end = at_ + RiffHeader::kSize + piece.header.size;
        riff_end_ = piece.header.size == 0 || end > file_.Size() ? 0 : end;
        ReportIfCutOff(file_, end, *findings_);
        [[fallthrough]];
      }
      case PieceKind::Entered:
        at_ += RiffHeader::kListSize;
        after_index_ = odd_ = false;
        return {};
      case PieceKind::Foreign:
        break;
    }
    return StepOverForeign(piece);
  }

  // After the end of a RIFF only the next RIFF counts, whatever else is there. But if the RIFF ends within its chunks,
  // its size is wrong.
  Result<void> LeaveRiff(const PlacedPiece& piece) {
    const bool exact = at_ - std::exchange(riff_end_, 0) <= 1;
    if (!exact || (piece.kind == PieceKind::Chunk && !after_index_)) return {};
    return Search(at_, true).map([this](std::uint64_t found) { at_ = std::min(found, file_.Size()); });
  }

  Result<void> StepPast(const PlacedPiece& piece, std::optional<AviChunk>& chunk) {
    const std::uint64_t end = at_ + RiffHeader::kSize + piece.header.size;
    if (end > file_.Size()) return StepOverTooLarge(piece.kind);
    if (piece.kind == PieceKind::Chunk) {
      const FourCc id = piece.header.id;
      chunk.emplace(AviChunk{.position = at_,
                             .size = piece.header.size,
                             .stream = piece.stream,
                             .type = {LetterOf(id, 2), LetterOf(id, 3)}});
      const auto key = keys_.IsKey(*chunk, window_);
      if (!key) return tl::unexpected(key.error());
      chunk->key = *key;
    }
    after_index_ |= piece.header.id == MakeFourCc("idx1");
    average_size_ += (std::min(piece.header.size, kMaxCounted) / 8) - average_size_ / 8;
    odd_ = piece.header.size % 2 != 0;
    at_ = end + (odd_ ? 1 : 0);
    return {};
  }

  // Either the file is cut off within the piece, or its size is damaged and other pieces follow.
  Result<void> StepOverTooLarge(PieceKind kind) {
    const auto found = Search(at_ + RiffHeader::kSize, false);
    if (!found) return tl::unexpected(found.error());
    if (*found == kNowhere) {
      if (kind == PieceKind::Chunk) {
        ReportDamage(file_, "the file ends within its last chunk, which was left out", *findings_);
      }
      at_ = file_.Size();
    } else {
      ReportFirstDamage();
      at_ = *found;
    }
    return {};
  }

  Result<void> StepOverForeign(const PlacedPiece& piece) {
    if (std::exchange(odd_, false)) {
      // The writer omitted the pad byte.
      const auto before = PieceAt(at_ - 1);
      if (!before) return tl::unexpected(before.error());
      if (before->kind != PieceKind::Foreign) {
        --at_;
        return {};
      }
    }
    const std::uint64_t left = file_.Size() - at_;
    if (left < RiffHeader::kSize) {
      at_ = file_.Size();
      return {};
    }
    if (IsPrintable(piece.header.id) && left - RiffHeader::kSize >= piece.header.size) {
      const auto follows = PieceFollows(at_, piece.header.size);
      if (!follows) return tl::unexpected(follows.error());
      if (*follows) {
        at_ = AfterPiece(at_, piece.header.size);
        return {};
      }
    }
    const auto found = Search(at_ + 1, false);
    if (!found) return tl::unexpected(found.error());
    ReportFirstDamage();
    at_ = std::min(*found, file_.Size());
    return {};
  }

  void ReportFirstDamage() {
    if (std::exchange(damage_reported_, true)) return;
    ReportDamage(file_,
                 "the file is damaged from byte " + std::to_string(at_) + " on; bytes outside chunks were skipped",
                 *findings_);
  }

  // Whether the piece at `position`, with `size` bytes of data, is followed by a known piece or the end of the file.
  Result<bool> PieceFollows(std::uint64_t position, std::uint32_t size) const {
    const std::uint64_t end = position + RiffHeader::kSize + size;
    if (end + (size & 1) >= file_.Size()) return end <= file_.Size();
    // Not read through the window, because the position can be far away.
    std::array<std::uint8_t, RiffHeader::kListSize + 1> bytes{};
    const auto got = file_.ReadAt(end, bytes);
    if (!got) return tl::unexpected(got.error());
    const ByteView there = ByteView(bytes).first(*got);
    return Classify(there.subspan(size & 1)).kind != PieceKind::Foreign || Classify(there).kind != PieceKind::Foreign;
  }

  // Finds the next position within 1 MiB from which chunks can be read: a known piece followed by another known piece
  // or the end of the file. Otherwise kNowhere.
  Result<std::uint64_t> Search(std::uint64_t from, bool only_riff) {
    const std::uint64_t end = std::min(file_.Size(), from + kMaxSearch);
    for (std::uint64_t at = from; at < end;) {
      const auto bytes = window_.At(at, RiffHeader::kListSize, kBlock);
      if (!bytes) return tl::unexpected(bytes.error());
      if (bytes->size() < RiffHeader::kSize) break;
      const auto good = IsGoodStart(at, Classify(*bytes), only_riff);
      if (!good) return tl::unexpected(good.error());
      if (*good) return at;
      ++at;
    }
    return kNowhere;
  }

  Result<bool> IsGoodStart(std::uint64_t at, const PlacedPiece& piece, bool only_riff) {
    if (piece.kind == PieceKind::NextRiff) return true;
    if (only_riff || piece.kind == PieceKind::Foreign) return false;
    if (piece.kind == PieceKind::Entered) return true;
    if (failed_probes_ >= kMaxProbes || at + RiffHeader::kSize + piece.header.size > file_.Size()) return false;
    auto follows = PieceFollows(at, piece.header.size);
    if (follows && !*follows) ++failed_probes_;
    return follows;
  }

  static constexpr std::uint32_t kMaxCounted = 1 << 20;

  const InputFile& file_;
  FileWindow window_;
  AviChunkKeys keys_;
  const AviPlaces& places_;
  std::shared_ptr<Findings> findings_;
  int streams_;
  bool opened_ = false;
  std::uint64_t at_;
  std::uint64_t riff_end_;  // of the RIFF around `at_`; 0 if unknown
  bool after_index_ = false;
  bool odd_ = false;  // the piece before `at_` needs a pad byte, which may be missing
  std::uint32_t average_size_ = 0;
  int failed_probes_ = 0;
  bool damage_reported_ = false;
};

}  // namespace

std::unique_ptr<AviChunkWalk> WalkAviChunks(const InputFile& file, std::span<const AviStream> streams,
                                            const AviPlaces& places, std::shared_ptr<Findings> findings) {
  return std::make_unique<Walk>(file, streams, places, std::move(findings));
}

}  // namespace captoria
