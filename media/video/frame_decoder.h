// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Single pictures of a film's first video stream, decoded with FFmpeg's libraries.
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

// What decodes, for reports of faults: "FFmpeg 5.1.6".
std::string DecoderLibrary();

class FrameDecoder {
 public:
  // Unsupported when there is no decoder for the stream; Damaged when the file is no film, has no video, or its first
  // picture cannot be decoded; TooLarge for pictures beyond 7680x4320 pixels. Both calls can be stopped by `progress`.
  static Result<FrameDecoder> Open(const std::string& path, JobProgress& progress);
  FrameDecoder(FrameDecoder&&) noexcept;
  FrameDecoder& operator=(FrameDecoder&&) noexcept;
  ~FrameDecoder();

  // Of the stream, in pixels. A frame can differ where the stream changes.
  int Width() const;
  int Height() const;

  // By the headers, so a film that breaks off has fewer. 0 when they do not tell.
  std::int64_t FrameCount() const;

  // Of the whole film, in milliseconds; 0 when not known.
  std::int64_t Duration() const;

  // The picture shown while frame `number` is due, counted from 0: its own, or, where the film left it out or has no
  // constant rate, the one before. Decodes from the last key frame before it on; `progress` is told how many frames
  // of those are done. NotFound when the film ends before.
  Result<VideoFrame> Frame(std::int64_t number, JobProgress& progress);

 private:
  class Film;
  explicit FrameDecoder(std::unique_ptr<Film> film);

  std::unique_ptr<Film> film_;
};

}  // namespace captoria
