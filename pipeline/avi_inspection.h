// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What the program wants to know of a video before it puts subtitles beside it: the table of its streams, and whether
// its frames are those of NTSC or PAL.
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

  // The stream's name, trimmed; empty where the text has no CR LF.
  std::string Title() const;
};

using StreamTable = std::vector<StreamRow>;

// What a dialog for videos offers, and whether a name is one of those, in whatever case.
inline constexpr const char* kVideoPatterns = "*.avi;*.divx";
bool IsVideoName(std::string_view name);

// PAL for 25 frames a second, when rounded; NTSC for every other rate, also for none.
VideoSystem SystemOfRate(std::uint32_t rate, std::uint32_t scale);

// A row for each stream. Streams whose name begins with "subtitle" in any case are subtitles, although they are of the
// video type.
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
  float fps = 0;             // of the file; for video only, as those below
  int width = 0;
  int height = 0;
};

enum class StreamKind { Video, Audio };

// Nothing when the file has no such stream. The errors of AviFile::Open.
Result<std::optional<FirstStream>> GetAviStreamInfo(const std::string& path, StreamKind kind);

}  // namespace captoria
