// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What the program has to know about a video before it adds subtitles: the table of its streams, and whether it is NTSC
// or PAL.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "base/video_system.h"
#include "media/avi/avi_info.h"

namespace captoria {

enum class StreamType { Video, Subtitle, Audio, Unknown };

// "Video", "Subtitle", "Audio" or "Unknown".
std::string_view TextOf(StreamType type);

struct StreamRow {
  StreamType type = StreamType::Unknown;
  std::string text;  // a summary, CR LF, and the stream's name

  // The stream's name, trimmed; empty if the text has no CR LF.
  std::string Title() const;
};

using StreamTable = std::vector<StreamRow>;

// The names that a dialog for videos offers, and whether a name is such a name, in any case.
inline constexpr const char* kVideoPatterns = "*.avi;*.divx";
bool IsVideoName(std::string_view name);

// PAL for 25 frames a second after rounding; NTSC for every other rate, and if there is no rate.
VideoSystem SystemOfRate(std::uint32_t rate, std::uint32_t scale);

// A row for each stream. A stream of the video type whose name begins with "subtitle", in any case, is a subtitle
// stream.
StreamTable DescribeStreams(const AviFileInfo& file, std::span<const AviStreamInfo> streams);

struct AviInspection {
  VideoSystem system = VideoSystem::Ntsc;
  StreamTable streams;
};

// Reads the headers of the video `path`. The errors of AviFile::Open.
Result<AviInspection> InspectAvi(const std::string& path);

// The first video or audio stream of a file.
struct FirstStream {
  int index = 0;
  std::uint32_t start = 0;   // in the stream's units
  std::uint32_t length = 0;  // the same
  float fps = 0;             // of the file; this and the values below only for video
  int width = 0;
  int height = 0;
};

enum class StreamKind { Video, Audio };

// No value if the file has no such stream. The errors of AviFile::Open.
Result<std::optional<FirstStream>> GetAviStreamInfo(const std::string& path, StreamKind kind);

}  // namespace captoria
