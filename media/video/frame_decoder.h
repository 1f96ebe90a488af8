// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Decodes single frames of a video's first video stream with FFmpeg's libraries.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/job_progress.h"
#include "base/result.h"

namespace captoria {

struct VideoFrame {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> pixels;  // blue, green, red, opacity; rows from the top, without gaps
};

// The name of the decoding library for bug reports: "FFmpeg 5.1.6".
std::string DecoderLibrary();

class FrameDecoder {
 public:
  // Unsupported if there is no decoder for the stream. Damaged if the file is not a video, has no video, or its first
  // picture cannot be decoded. TooLarge for pictures of more than 7680x4320 pixels. `progress` can stop both calls.
  static Result<FrameDecoder> Open(const std::string& path, JobProgress& progress);
  FrameDecoder(FrameDecoder&&) noexcept;
  FrameDecoder& operator=(FrameDecoder&&) noexcept;
  ~FrameDecoder();

  // Of the stream, in pixels. Single frames can differ.
  int Width() const;
  int Height() const;

  // From the headers, so a video that is cut off has fewer. 0 if unknown.
  std::int64_t FrameCount() const;

  // Of the whole video, in milliseconds; 0 if unknown.
  std::int64_t Duration() const;

  // The picture on the screen at the time of frame `number`, counted from 0. If the video has no picture for that time,
  // the picture before it. Decodes from the last key frame before it; `progress` counts the frames since then. NotFound
  // if the video ends earlier.
  Result<VideoFrame> Frame(std::int64_t number, JobProgress& progress);

 private:
  class Video;
  explicit FrameDecoder(std::unique_ptr<Video> video);

  std::unique_ptr<Video> video_;
};

}  // namespace captoria
