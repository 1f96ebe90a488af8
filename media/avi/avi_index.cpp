// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/avi/avi_index.h"

#include <algorithm>
#include <utility>

#include "media/avi/riff.h"

namespace captoria {

// Steps through the entries of one stream in the order of the index.
class AviIndexCursor {
 public:
  struct Entry {
    std::uint64_t position = 0;  // of the chunk's header
    bool key = false;
  };

  virtual ~AviIndexCursor() = default;

  // Skips all entries before `position`; they cannot be queried again.
  Result<std::optional<bool>> IsKey(std::uint64_t position) {
    while (!ended_ && (!entry_ || entry_->position < position)) {
      auto next = Next();
      if (!next) return tl::unexpected(next.error());
      entry_ = *next;
      ended_ = !entry_;
    }
    if (!entry_ || entry_->position != position) return std::nullopt;
    return entry_->key;
  }

 protected:
  virtual Result<std::optional<Entry>> Next() = 0;

 private:
  std::optional<Entry> entry_;
  bool ended_ = false;
};

namespace {

constexpr std::size_t kBlock = 8192;

std::string StreamLetters(int stream) {
  return {static_cast<char>('0' + stream / 10), static_cast<char>('0' + stream % 10)};
}

bool IsOfStream(FourCc id, const std::string& letters) {
  return LetterOf(id, 0) == letters[0] && LetterOf(id, 1) == letters[1];
}

// An entry of idx1: name, flags, offset and size of a chunk.
constexpr std::size_t kOldEntry = 16;
constexpr std::uint32_t kOldKeyFlag = 0x10;

class OldIndexCursor final : public AviIndexCursor {
 public:
  OldIndexCursor(const InputFile& file, const AviOldIndex& index, int stream)
      : window_(file),
        at_(index.span.position),
        end_(index.span.position + index.span.size),
        base_(index.base),
        letters_(StreamLetters(stream)) {}

 private:
  Result<std::optional<Entry>> Next() override {
    for (; at_ + kOldEntry <= end_; at_ += kOldEntry) {
      const auto bytes = window_.At(at_, kOldEntry, kBlock);
      if (!bytes) return tl::unexpected(bytes.error());
      if (bytes->size() < kOldEntry) break;
      ByteReader reader(*bytes);
      const FourCc id = reader.U32();
      const std::uint32_t flags = reader.U32();
      const std::uint32_t offset = reader.U32();
      if (!IsPrintable(id)) break;  // the rest of the index was never written
      // Without OpenDML, offsets start again at 0 after every 4 GiB.
      if (offset < last_offset_ && last_offset_ - offset > 1U << 31) base_ += std::int64_t{1} << 32;
      last_offset_ = offset;
      if (!IsOfStream(id, letters_)) continue;
      at_ += kOldEntry;
      return Entry{static_cast<std::uint64_t>(base_ + offset), (flags & kOldKeyFlag) != 0};
    }
    at_ = end_;
    return std::nullopt;
  }

  FileWindow window_;
  std::uint64_t at_;
  std::uint64_t end_;
  std::int64_t base_;
  std::uint32_t last_offset_ = 0;
  std::string letters_;
};

// The beginning of an OpenDML index.
struct IndexHeader {
  static constexpr std::size_t kSize = 24;
  static constexpr std::uint8_t kOfIndexes = 0;
  static constexpr std::uint8_t kOfChunks = 1;

  std::uint32_t entry_size = 0;
  std::uint8_t kind = 0;
  std::uint32_t entries = 0;
  FourCc chunk_id = 0;
  std::uint64_t base = 0;

  static IndexHeader Parse(ByteView bytes) {
    ByteReader reader(bytes);
    IndexHeader header;
    header.entry_size = reader.U16() * 4U;
    reader.Skip(1);
    header.kind = reader.U8();
    header.entries = reader.U32();
    header.chunk_id = reader.U32();
    header.base = reader.U64();
    return header;
  }
};

constexpr std::uint32_t kNotKeyBit = 0x80000000;

class OpenDmlCursor final : public AviIndexCursor {
 public:
  OpenDmlCursor(const InputFile& file, AviSpan indx, int stream)
      : file_(file), window_(file), indx_(indx), letters_(StreamLetters(stream)) {}

 private:
  Result<std::optional<Entry>> Next() override {
    while (at_ == end_) {
      const auto more = opened_ ? OpenNextIndex() : OpenIndx();
      if (!more) return tl::unexpected(more.error());
      if (!*more) return std::nullopt;
    }
    const auto bytes = window_.At(at_, kEntry, kBlock);
    if (!bytes) return tl::unexpected(bytes.error());
    if (bytes->size() < kEntry) return std::nullopt;
    at_ += entry_size_;
    ByteReader reader(*bytes);
    const std::uint32_t offset = reader.U32();
    // Offsets lead to the data, after the chunk's header.
    return Entry{base_ + offset - RiffHeader::kSize, (reader.U32() & kNotKeyBit) == 0};
  }

  // `indx` is usually a list of indices, rarely the index itself.
  Result<bool> OpenIndx() {
    opened_ = true;
    const auto header = HeaderAt(indx_.position, indx_.size);
    if (!header) return tl::unexpected(header.error());
    if (!*header) return false;
    if ((*header)->kind == IndexHeader::kOfChunks) return Use(**header, indx_);
    if ((*header)->kind != IndexHeader::kOfIndexes || (*header)->entry_size != kSuperEntry) return false;
    super_at_ = indx_.position + IndexHeader::kSize;
    super_left_ = std::min<std::uint64_t>((*header)->entries, (indx_.size - IndexHeader::kSize) / kSuperEntry);
    return super_left_ > 0;
  }

  // Indices must be in file order and must not overlap, so a damaged list cannot cause endless work.
  Result<bool> OpenNextIndex() {
    for (; super_left_ > 0; --super_left_, super_at_ += kSuperEntry) {
      Bytes bytes(kSuperEntry);
      if (auto read = file_.ReadExactly(super_at_, bytes); !read) return tl::unexpected(read.error());
      const std::uint64_t position = ByteReader(bytes).U64();
      if (position < after_last_ || position > file_.Size() ||
          file_.Size() - position < RiffHeader::kSize + IndexHeader::kSize) {
        continue;
      }
      Bytes piece(RiffHeader::kSize);
      if (auto read = file_.ReadExactly(position, piece); !read) return tl::unexpected(read.error());
      const std::uint64_t data = position + RiffHeader::kSize;
      const AviSpan span{data, std::min<std::uint64_t>(RiffHeader::Parse(piece).size, file_.Size() - data)};
      const auto header = HeaderAt(span.position, span.size);
      if (!header) return tl::unexpected(header.error());
      if (!*header || (*header)->kind != IndexHeader::kOfChunks || !Use(**header, span)) continue;
      after_last_ = span.position + span.size;
      --super_left_;
      super_at_ += kSuperEntry;
      return true;
    }
    return false;
  }

  Result<std::optional<IndexHeader>> HeaderAt(std::uint64_t position, std::uint64_t size) {
    if (size < IndexHeader::kSize) return std::nullopt;
    return window_.At(position, IndexHeader::kSize, kBlock).map([](ByteView bytes) -> std::optional<IndexHeader> {
      if (bytes.size() < IndexHeader::kSize) return std::nullopt;
      return IndexHeader::Parse(bytes);
    });
  }

  // In an index of fields every entry has a third number, the offset of the second field.
  bool Use(const IndexHeader& header, AviSpan span) {
    if (!IsOfStream(header.chunk_id, letters_) || (header.entry_size != kEntry && header.entry_size != kFieldEntry)) {
      return false;
    }
    base_ = header.base;
    entry_size_ = header.entry_size;
    at_ = span.position + IndexHeader::kSize;
    end_ = at_ + entry_size_ * std::min<std::uint64_t>(header.entries, (span.size - IndexHeader::kSize) / entry_size_);
    return at_ < end_;
  }

  static constexpr std::uint32_t kSuperEntry = 16;
  static constexpr std::uint32_t kEntry = 8;
  static constexpr std::uint32_t kFieldEntry = 12;

  const InputFile& file_;
  FileWindow window_;
  AviSpan indx_;
  std::string letters_;
  bool opened_ = false;
  std::uint64_t super_at_ = 0;
  std::uint64_t super_left_ = 0;
  std::uint64_t after_last_ = 0;
  std::uint64_t base_ = 0;
  std::uint32_t entry_size_ = 0;
  std::uint64_t at_ = 0;
  std::uint64_t end_ = 0;
};

// How many of the first entries lead to the chunk they name.
struct Fit {
  int entries = 0;
  int matches = 0;
};

Result<Fit> FitOf(const InputFile& file, ByteView entries, std::int64_t base, int streams) {
  Fit fit;
  for (ByteReader reader(entries); reader.Left() >= kOldEntry && fit.entries < 8;) {
    const FourCc id = reader.U32();
    reader.Skip(4);
    const std::int64_t position = base + reader.U32();
    const std::uint32_t size = reader.U32();
    const int tens = LetterOf(id, 0) - '0';
    const int ones = LetterOf(id, 1) - '0';
    if (tens < 0 || tens > 9 || ones < 0 || ones > 9 || tens * 10 + ones >= streams) continue;
    ++fit.entries;
    Bytes bytes(RiffHeader::kSize);
    if (position < 0 || static_cast<std::uint64_t>(position) + bytes.size() > file.Size()) continue;
    if (auto read = file.ReadExactly(static_cast<std::uint64_t>(position), bytes); !read) {
      return tl::unexpected(read.error());
    }
    const RiffHeader header = RiffHeader::Parse(bytes);
    if (header.id == id && header.size == size) ++fit.matches;
  }
  return fit;
}

}  // namespace

Result<std::optional<AviOldIndex>> FindOldIndex(const InputFile& file, const AviPlaces& places, int streams) {
  if (!places.idx1 || places.movi == 0) return std::nullopt;
  // Enough entries to find chunks even if `rec ` lists and other pieces come first.
  Bytes entries(static_cast<std::size_t>(std::min<std::uint64_t>(places.idx1->size, 64 * kOldEntry)));
  if (auto read = file.ReadExactly(places.idx1->position, entries); !read) return tl::unexpected(read.error());
  if (entries.size() < kOldEntry) return std::nullopt;
  const auto movi = static_cast<std::int64_t>(places.movi);
  const std::int64_t first = movi + 4 - ByteReader(ByteView(entries).subspan(8)).U32();
  for (const std::int64_t base : {movi, std::int64_t{0}, movi + 4, first}) {
    const auto fit = FitOf(file, entries, base, streams);
    if (!fit) return tl::unexpected(fit.error());
    if (fit->matches * 2 > fit->entries) return AviOldIndex{*places.idx1, base};
  }
  return std::nullopt;
}

AviKeyIndex::AviKeyIndex(const InputFile& file, const std::optional<AviOldIndex>& idx1,
                         const std::optional<AviSpan>& indx, int stream) {
  if (indx) cursors_.push_back(std::make_unique<OpenDmlCursor>(file, *indx, stream));
  if (idx1) cursors_.push_back(std::make_unique<OldIndexCursor>(file, *idx1, stream));
}

AviKeyIndex::AviKeyIndex(AviKeyIndex&&) noexcept = default;
AviKeyIndex::~AviKeyIndex() = default;

Result<std::optional<bool>> AviKeyIndex::IsKey(std::uint64_t position) {
  for (const auto& cursor : cursors_) {
    auto key = cursor->IsKey(position);
    if (!key || *key) return key;
  }
  return std::nullopt;
}

}  // namespace captoria
