// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "pipeline/avi_inspection.h"

#include <cmath>

#include "base/ascii.h"
#include "settings/number_text.h"
#include "subtitles/time_code.h"

namespace captoria {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

double Ratio(std::uint32_t over, std::uint32_t under) { return under == 0 ? 0 : static_cast<double>(over) / under; }

bool IsSubtitleName(std::string_view name) {
  constexpr std::string_view kBeginning = "subtitle";
  return EqualsIgnoringCase(name.substr(0, kBeginning.size()), kBeginning);
}

std::string SizeText(const AviRectangle& frame) {
  return std::to_string(frame.right) + " x " + std::to_string(frame.bottom) + " - ";
}

std::string DurationText(double seconds) { return MakeTime(static_cast<float>(seconds)); }

StreamRow RowOf(const AviFileInfo& file, const AviStreamInfo& stream) {
  StreamRow row;
  if (stream.type == "vids" && IsSubtitleName(stream.name)) {
    row.type = StreamType::Subtitle;
    row.text = SizeText(stream.frame) + "Lenght: " + std::to_string(stream.length);
  } else if (stream.type == "vids") {
    row.type = StreamType::Video;
    const double fps = std::round(Ratio(file.rate, file.scale) * 1000) / 1000;
    const double streams_own = Ratio(stream.rate, stream.scale);
    row.text = SizeText(stream.frame) + std::string{NameOf(SystemOfRate(file.rate, file.scale))} + " - " +
               TextOfNumber(fps) + " fps, Length: " + DurationText(streams_own > 0 ? stream.length / streams_own : 0);
  } else if (stream.type == "auds") {
    row.type = StreamType::Audio;
    // The length of sound is divided by the rate alone, as always. With a scale of 1 this is its duration.
    row.text = "SamplesPerSec: " + TextOfNumber(Ratio(stream.rate, stream.scale)) +
               ", Length: " + DurationText(Ratio(stream.length, stream.rate));
  }
  row.text.append(kLineEnd).append(stream.name);
  return row;
}

}  // namespace

bool IsVideoName(std::string_view name) { return EndsIgnoringCase(name, ".avi") || EndsIgnoringCase(name, ".divx"); }

std::string_view TextOf(StreamType type) {
  switch (type) {
    case StreamType::Video:
      return "Video";
    case StreamType::Subtitle:
      return "Subtitle";
    case StreamType::Audio:
      return "Audio";
    default:
      return "Unknown";
  }
}

std::string StreamRow::Title() const {
  const auto end = text.rfind(kLineEnd);
  return end == text.npos ? std::string{} : std::string{Trim(std::string_view{text}.substr(end + kLineEnd.size()))};
}

VideoSystem SystemOfRate(std::uint32_t rate, std::uint32_t scale) {
  return RoundToInt(Ratio(rate, scale)) == 25 ? VideoSystem::Pal : VideoSystem::Ntsc;
}

StreamTable DescribeStreams(const AviFileInfo& file, std::span<const AviStreamInfo> streams) {
  StreamTable table;
  for (const AviStreamInfo& stream : streams) table.push_back(RowOf(file, stream));
  return table;
}

Result<AviInspection> InspectAvi(const std::string& path) {
  const auto avi = AviFile::Open(path);
  if (!avi) return tl::unexpected(avi.error());
  const AviFileInfo info = InfoOf(*avi);
  std::vector<AviStreamInfo> streams;
  for (std::size_t i = 0; i < avi->Streams().size(); ++i) streams.push_back(StreamInfoOf(*avi, static_cast<int>(i)));
  return AviInspection{SystemOfRate(info.rate, info.scale), DescribeStreams(info, streams)};
}

Result<std::optional<FirstStream>> GetAviStreamInfo(const std::string& path, StreamKind kind) {
  const auto avi = AviFile::Open(path);
  if (!avi) return tl::unexpected(avi.error());
  const AviFileInfo file = InfoOf(*avi);
  const std::string_view type = kind == StreamKind::Video ? "vids" : "auds";
  for (std::size_t i = 0; i < avi->Streams().size(); ++i) {
    const AviStreamInfo stream = StreamInfoOf(*avi, static_cast<int>(i));
    if (stream.type != type) continue;
    FirstStream found{.index = static_cast<int>(i), .start = stream.start, .length = stream.length};
    if (kind == StreamKind::Video) {
      found.fps = static_cast<float>(Ratio(file.rate, file.scale));
      found.width = stream.frame.right;
      found.height = stream.frame.bottom;
    }
    return found;
  }
  return std::nullopt;
}

}  // namespace captoria
