// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/avi/riff_header.h"

namespace captoria {
namespace {

constexpr std::size_t kFewestRiffs = 64;

void PutChunk(ByteWriter& out, std::string_view id, ByteView data) {
  out.Text(id).U32(static_cast<std::uint32_t>(data.size())).Append(data);
  if (data.size() % 2 != 0) out.U8(0);
}

void PutList(ByteWriter& out, std::string_view type, ByteView content) {
  ByteWriter list;
  list.Text(type).Append(content);
  PutChunk(out, "LIST", list.Written());
}

Bytes MainHeader(const AviMainHeader& main, std::size_t streams) {
  ByteWriter out;
  out.U32(main.micro_seconds_per_frame).U32(main.max_bytes_per_second).U32(main.padding_granularity).U32(main.flags);
  out.U32(main.total_frames).U32(main.initial_frames).U32(static_cast<std::uint32_t>(streams));
  out.U32(main.suggested_buffer_size).U32(main.width).U32(main.height).Zeros(16);
  return out.Take();
}

Bytes StreamList(const AviLayout& layout, std::size_t number, const AviStreamIndex& index) {
  const AviStream& stream = layout.streams[number];
  ByteWriter out;
  PutChunk(out, "strh", stream.header_bytes);
  PutChunk(out, "strf", stream.format);
  for (const RiffPiece& other : stream.others) PutChunk(out, other.id, other.data);
  if (!stream.name.empty()) {
    ByteWriter name;
    name.Text(stream.name).U8(0);
    PutChunk(out, "strn", name.Written());
  }
  if (layout.open_dml) {
    PutChunk(out, "indx", SuperIndex(index.entries, MostRiffs(layout), static_cast<int>(number), index.type));
  }
  return out.Take();
}

}  // namespace

std::size_t MostRiffs(const AviLayout& layout) {
  // Twice the expected number, because a RIFF with very many chunks ends early.
  const std::uint64_t expected = layout.riff_limit > 0 ? layout.expected_size / layout.riff_limit : 0;
  return kFewestRiffs + 2 * static_cast<std::size_t>(expected);
}

Bytes AviHeader(const AviLayout& layout, std::span<const AviStreamIndex> indices, const AviHeaderSizes& sizes) {
  ByteWriter lists;
  PutChunk(lists, "avih", MainHeader(layout.main, layout.streams.size()));
  for (std::size_t i = 0; i < layout.streams.size(); ++i) PutList(lists, "strl", StreamList(layout, i, indices[i]));
  if (layout.open_dml) {
    ByteWriter total, odml;
    total.U32(sizes.total_frames);
    PutChunk(odml, "dmlh", total.Written());
    PutList(lists, "odml", odml.Written());
  }

  ByteWriter out;
  out.Text("RIFF").U32(sizes.riff).Text("AVI ");
  PutList(out, "hdrl", lists.Written());
  for (const RiffPiece& extra : layout.extras) PutChunk(out, extra.id, extra.data);
  out.Text("LIST").U32(sizes.movi).Text("movi");
  return out.Take();
}

}  // namespace captoria
