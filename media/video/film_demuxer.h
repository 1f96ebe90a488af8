// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A film opened with libavformat so that nothing but its own file is ever read: not what a playlist or a reference in
// it names, and nothing from the network. The kinds of film are those that people have subtitles for.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/job_progress.h"
#include "base/result.h"
#include "platform/input_file.h"

struct AVFormatContext;
struct AVIOContext;
struct AVPacket;

namespace captoria {

class FilmDemuxer {
 public:
  // No picture with more pixels than this is decoded, not even to find out what the film is.
  static constexpr std::int64_t kMostPixels = std::int64_t{7680} * 4320;

  // Damaged when the file is no film. Opening is no matter of steps: `progress` is only asked whether to stop.
  static Result<std::unique_ptr<FilmDemuxer>> Open(const std::string& path, JobProgress& progress);
  FilmDemuxer(const FilmDemuxer&) = delete;
  FilmDemuxer& operator=(const FilmDemuxer&) = delete;
  ~FilmDemuxer();

  AVFormatContext* Context() const { return context_; }

  // From now on reading asks `progress`, which has to live until the next call. Null: nobody is asked.
  void Watch(JobProgress* progress);

  // What `progress` is told when it is next asked.
  void Tell(std::size_t done, std::size_t total);

  // Whether the user wants it stopped.
  bool IsStopped();

  // The next packet of stream `stream`; false at the end of what can be read of the film.
  Result<bool> Read(int stream, AVPacket* packet);

  Error Fail(ErrorKind kind, std::string_view what) const;

 private:
  explicit FilmDemuxer(InputFile file) : file_(std::move(file)) {}
  Result<void> Start();
  static int ReadBytes(void* self, std::uint8_t* buffer, int size);
  static std::int64_t Seek(void* self, std::int64_t offset, int whence);

  InputFile file_;
  std::uint64_t position_ = 0;
  AVIOContext* bytes_ = nullptr;
  AVFormatContext* context_ = nullptr;
  std::optional<Error> disk_error_;  // that reading has met

  JobProgress* progress_ = nullptr;
  std::size_t done_ = 0;
  std::size_t total_ = 0;
  bool stopped_ = false;
  std::chrono::steady_clock::time_point asked_;
};

}  // namespace captoria
