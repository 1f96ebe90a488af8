// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/avi/avi_info.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace captoria {
namespace {

constexpr std::uint32_t kMicroSeconds = 1'000'000;
constexpr std::size_t kMaxName = 63;  // the record has 64 with the NUL

struct FrameRate {
  std::uint32_t scale = 1;
  std::uint32_t rate = 0;
};

// The first stream of pictures tells the rate exactly: a period of 33366 microseconds stands for 30000/1001.
FrameRate FrameRateOf(const AviFile& file) {
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

// The header of the whole film is not to be trusted where the picture has its own: some writers count the packets of
// all streams there.
std::uint32_t FramesOf(const AviFile& file) {
  for (const AviStream& stream : file.Streams()) {
    if (stream.header.type == "vids" && !stream.IsXsub() && stream.header.length > 0) return stream.header.length;
  }
  return file.TotalFrames();
}

}  // namespace

AviFileInfo InfoOf(const AviFile& file) {
  const AviMainHeader& main = file.Main();
  const auto [scale, rate] = FrameRateOf(file);
  AviFileInfo info{.max_bytes_per_second = main.max_bytes_per_second,
                   .flags = main.flags,
                   .streams = static_cast<std::uint32_t>(file.Streams().size()),
                   .width = main.width,
                   .height = main.height,
                   .scale = scale,
                   .rate = rate,
                   .length = FramesOf(file)};
  for (const AviStream& stream : file.Streams()) {
    info.suggested_buffer_size = std::max(info.suggested_buffer_size, stream.header.suggested_buffer_size);
  }
  return info;
}

AviStreamInfo StreamInfoOf(const AviFile& file, int stream) {
  const auto index = static_cast<std::size_t>(stream);
  const AviStream& source = file.Streams()[index];
  const AviStreamHeader& header = source.header;
  AviStreamInfo info{.type = header.type,
                     .handler = header.handler,
                     .flags = header.flags,
                     .priority = header.priority,
                     .language = header.language,
                     .scale = header.scale,
                     .rate = header.rate,
                     .start = header.start,
                     .length = header.length,
                     .initial_frames = header.initial_frames,
                     .suggested_buffer_size = header.suggested_buffer_size,
                     .quality = header.quality,
                     .sample_size = header.sample_size,
                     .frame = FrameOf(source),
                     .name = source.name.substr(0, kMaxName),
                     .named = !source.name.empty()};
  if (!info.named) info.name = MadeName(file, index);
  if (const auto sound = SoundFormatOf(source)) info.sample_size = sound->block;
  const std::string none(4, '\0');
  const auto picture = PictureFormatOf(source);
  if (picture && picture->compression == none && (header.handler == none || header.handler == "NONE")) {
    info.handler = "DIB ";
  }
  return info;
}

std::optional<PictureFormat> PictureFormatOf(const AviStream& stream) {
  if (stream.header.type != "vids") return std::nullopt;
  ByteReader reader(stream.format);
  PictureFormat format;
  reader.Skip(4);
  format.width = static_cast<std::int32_t>(reader.U32());
  format.height = static_cast<std::int32_t>(reader.U32());
  reader.Skip(2);
  format.bits = reader.U16();
  format.compression = reader.FourCc();
  if (reader.Failed()) return std::nullopt;
  return format;
}

std::optional<SoundFormat> SoundFormatOf(const AviStream& stream) {
  if (stream.header.type != "auds") return std::nullopt;
  ByteReader reader(stream.format);
  SoundFormat format;
  format.tag = reader.U16();
  format.channels = reader.U16();
  format.samples_per_second = reader.U32();
  format.bytes_per_second = reader.U32();
  format.block = reader.U16();
  if (reader.Failed()) return std::nullopt;
  format.bits = reader.U16();  // older records end before it
  return format;
}

}  // namespace captoria
