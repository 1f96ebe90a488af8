// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A video opened with libavformat. Nothing but its own file is ever read: no file that a playlist or a reference in it
// names, and nothing from the network. Only the container formats of ordinary videos are supported.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/job_progress.h"
#include "base/result.h"
#include "platform/input_file.h"

struct AVFormatContext;
struct AVIOContext;
struct AVPacket;

namespace captoria {

class VideoDemuxer {
 public:
  // Larger pictures are not decoded, not even to detect the streams.
  static constexpr std::int64_t kMostPixels = std::int64_t{7680} * 4320;

  // Damaged if the file is not a video. Opening has no steps, so `progress` is only asked whether to stop.
  static Result<std::unique_ptr<VideoDemuxer>> Open(const std::string& path, JobProgress& progress);
  VideoDemuxer(const VideoDemuxer&) = delete;
  VideoDemuxer& operator=(const VideoDemuxer&) = delete;
  ~VideoDemuxer();

  AVFormatContext* Context() const { return context_; }

  // The pixels of a picture of stream `stream` by the video's header; 0 if it does not say. FFmpeg forgets the size of
  // pictures that it refuses to decode.
  std::int64_t PixelsByHeader(int stream) const;

  // From now on reading asks `progress` whether to stop. `progress` must live until the next call; null ends asking.
  void Watch(JobProgress* progress);

  // The numbers of the next progress report.
  void SetProgress(std::size_t done, std::size_t total);

  // Whether the user wants to stop.
  bool IsStopped();

  // Reads the next packet of stream `stream`; false at the end of the video, or of its readable part.
  Result<bool> Read(int stream, AVPacket* packet);

  Error Fail(ErrorKind kind, std::string_view what) const;

 private:
  explicit VideoDemuxer(InputFile file) : file_(std::move(file)) {}
  Result<void> Start();
  static int ReadBytes(void* self, std::uint8_t* buffer, int size);
  static std::int64_t Seek(void* self, std::int64_t offset, int whence);

  InputFile file_;
  std::uint64_t position_ = 0;
  AVIOContext* bytes_ = nullptr;
  AVFormatContext* context_ = nullptr;
  std::vector<std::int64_t> pixels_by_header_;  // of each stream
  std::optional<Error> disk_error_;             // of the last failed read

  JobProgress* progress_ = nullptr;
  std::size_t done_ = 0;
  std::size_t total_ = 0;
  bool stopped_ = false;
  std::chrono::steady_clock::time_point asked_;
};

}  // namespace captoria
