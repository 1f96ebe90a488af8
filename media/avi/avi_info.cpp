// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/avi/avi_info.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace captoria {
namespace {

constexpr std::uint32_t kMicroSeconds = 1'000'000;
constexpr std::size_t kMaxName = 63;  // the longest name that the platform's own record holds

bool IsEmpty(const AviRectangle& frame) { return frame.right <= frame.left || frame.bottom <= frame.top; }

AviRectangle FrameOf(const AviStream& stream) {
  if (stream.header.type == "auds") return {};
  const auto [left, top, right, bottom] = stream.header.frame;
  const AviRectangle frame{left, top, right, bottom};
  const auto picture = PictureFormatOf(stream);
  if (!IsEmpty(frame) || !picture) return frame;
  const std::int64_t height = picture->height;
  return {0, 0, picture->width, static_cast<int>(std::min<std::int64_t>(std::abs(height), INT32_MAX))};
}

std::string_view WordFor(std::string_view type) {
  if (type == "vids") return "Video";
  if (type == "auds") return "Audio";
  if (type == "mids") return "Midi";
  if (type == "txts") return "Text";
  return "Stream";
}

std::string MadeName(const AviFile& file, std::size_t stream) {
  const auto streams = file.Streams().first(stream + 1);
  const std::string& type = streams.back().header.type;
  const auto number = std::ranges::count(streams, type, [](const AviStream& other) { return other.header.type; });
  std::string tail = " ";
  tail.append(WordFor(type)).append(" #").append(std::to_string(number));
  const std::string& path = file.File().Path();
  return path.substr(path.rfind('/') + 1).substr(0, kMaxName - tail.size()) + tail;
}

}  // namespace

// The frame rate of the first video stream is exact: a period of 33366 microseconds stands for 30000/1001.
AviFileInfo InfoOf(const AviFile& file) {
  const double period = file.Main().micro_seconds_per_frame;
  for (const AviStream& stream : file.Streams()) {
    const AviStreamHeader& header = stream.header;
    if (header.type != "vids" || stream.IsXsub() || header.scale == 0 || header.rate == 0) continue;
    const double exact = static_cast<double>(kMicroSeconds) * header.scale / header.rate;
    if (period == 0 || std::abs(exact - period) <= 1) return {header.scale, header.rate};
    break;
  }
  if (period == 0) return {};
  return {file.Main().micro_seconds_per_frame, kMicroSeconds};
}

AviStreamInfo StreamInfoOf(const AviFile& file, int stream) {
  const auto index = static_cast<std::size_t>(stream);
  const AviStream& source = file.Streams()[index];
  const AviStreamHeader& header = source.header;
  return {.type = header.type,
          .scale = header.scale,
          .rate = header.rate,
          .start = header.start,
          .length = header.length,
          .frame = FrameOf(source),
          .name = source.name.empty() ? MadeName(file, index) : source.name.substr(0, kMaxName)};
}

std::optional<PictureFormat> PictureFormatOf(const AviStream& stream) {
  if (stream.header.type != "vids") return std::nullopt;
  ByteReader reader(stream.format);
  PictureFormat format;
  reader.Skip(4);
  format.width = static_cast<std::int32_t>(reader.U32());
  format.height = static_cast<std::int32_t>(reader.U32());
  reader.Skip(4);
  format.compression = reader.FourCc();
  if (reader.Failed()) return std::nullopt;
  return format;
}

}  // namespace captoria
