// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/xsub/xsub_stream.h"

namespace captoria {
namespace {

// Readers count packets and expect packet n at n * scale / rate seconds; its real show time is inside the packet. Some
// readers add both times. With the smallest unit the sum is not visibly late, and no reader mistakes a packet for a
// later one.
constexpr std::uint32_t kScale = 1, kRate = 1'000'000;

constexpr std::uint32_t kDisabled = 1;

// `strh`, all 56 bytes.
Bytes HeaderBytes(const AviStreamHeader& header) {
  ByteWriter out;
  out.Text(header.type).Text(header.handler).U32(header.flags).U16(header.priority).U16(header.language);
  out.U32(header.initial_frames).U32(header.scale).U32(header.rate).U32(header.start).U32(header.length);
  out.U32(header.suggested_buffer_size).U32(header.quality).U32(header.sample_size);
  for (const std::int16_t edge : header.frame) out.U16(static_cast<std::uint16_t>(edge));
  return out.Take();
}

// A BITMAPINFOHEADER. Its width and height are the frame that the coordinates in the packets refer to.
Bytes Format(Size frame) {
  const auto width = static_cast<std::uint32_t>(frame.width), height = static_cast<std::uint32_t>(frame.height);
  ByteWriter out;
  out.U32(40).U32(width).U32(height).U16(1).U16(4).Text("DXSB").U32((width * height + 1) / 2).Zeros(16);
  return out.Take();
}

}  // namespace

AviStream XsubStream(Size frame, std::size_t count, const std::string& name, PlayerProfile profile) {
  const bool hardware = profile == PlayerProfile::Hardware;
  AviStream stream;
  stream.header = {.type = "vids",
                   .handler = hardware ? "divx" : "DXSB",
                   .flags = hardware ? kDisabled : 0,
                   .scale = hardware ? 0 : kScale,
                   .rate = hardware ? 0 : kRate,
                   .length = static_cast<std::uint32_t>(count),
                   .quality = hardware ? 0 : 0xFFFFFFFF,
                   .frame = {0, 0, static_cast<std::int16_t>(frame.width), static_cast<std::int16_t>(frame.height)}};
  stream.header_bytes = HeaderBytes(stream.header);
  stream.format = Format(frame);
  stream.name = name;
  return stream;
}

bool XsubChunksAreKeys(PlayerProfile profile) { return profile == PlayerProfile::Readers; }

}  // namespace captoria
