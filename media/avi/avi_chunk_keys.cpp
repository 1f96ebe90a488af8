// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/avi/avi_chunk_keys.h"

#include <algorithm>
#include <utility>

#include "media/avi/avi_info.h"

namespace captoria {
namespace {

// Each of these streams reads the whole index. Films rarely have more than one video stream.
constexpr int kMaxIndexed = 8;

PictureCoding CodingOf(const AviStream& stream) {
  if (stream.header.type != "vids" || stream.IsXsub()) return PictureCoding::Alone;
  const auto picture = PictureFormatOf(stream);
  return picture ? PictureCodingOf(picture->compression) : PictureCoding::Unknown;
}

}  // namespace

Result<void> AviChunkKeys::Open(const AviPlaces& places, Findings& findings) {
  auto idx1 = FindOldIndex(file_, places, static_cast<int>(streams_.size()));
  if (!idx1) return tl::unexpected(idx1.error());
  if (places.idx1 && !*idx1) ReportDamage(file_, "the index does not fit the file and was not used", findings);
  int indexed = 0;
  for (std::size_t i = 0; i < streams_.size(); ++i) {
    OfStream stream{.coding = CodingOf(streams_[i]), .index{}};
    if (stream.coding != PictureCoding::Alone && indexed < kMaxIndexed && (*idx1 || places.indx[i])) {
      stream.index.emplace_back(file_, *idx1, places.indx[i], static_cast<int>(i));
      ++indexed;
    }
    of_streams_.push_back(std::move(stream));
  }
  return {};
}

Result<bool> AviChunkKeys::IsKey(const AviChunk& chunk, FileWindow& window) {
  if (chunk.type == "pc") return false;  // a palette change is not a picture
  OfStream& stream = of_streams_[static_cast<std::size_t>(chunk.stream)];
  if (stream.coding != PictureCoding::Alone) return IsKeyPictureOf(stream, chunk, window);
  return chunk.size > 0 || streams_[static_cast<std::size_t>(chunk.stream)].header.type != "vids";
}

Result<bool> AviChunkKeys::IsKeyPictureOf(OfStream& stream, const AviChunk& chunk, FileWindow& window) {
  std::optional<bool> by_index;
  if (!stream.index.empty()) {
    const auto known = stream.index.front().IsKey(chunk.position);
    if (!known) return tl::unexpected(known.error());
    by_index = *known;
  }
  if (chunk.size == 0) return by_index.value_or(false);
  const bool first = !std::exchange(stream.begun, true);
  if (by_index && !stream.index_is_wrong && !(first && !*by_index)) return *by_index;
  const std::size_t look = std::min<std::size_t>(chunk.size, kKeyFrameLook);
  const auto beginning = window.At(chunk.DataPosition(), look, look);
  if (!beginning) return tl::unexpected(beginning.error());
  const auto by_look = IsKeyPicture(stream.coding, *beginning);
  // If not even the first picture is marked as a key frame, the program that wrote the index did not know.
  if (first && by_index && by_look && *by_index != *by_look) stream.index_is_wrong = true;
  if (by_look) return *by_look;
  return by_index.value_or(first);
}

}  // namespace captoria
