// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/video/video_demuxer.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/log.h>
}

#include <algorithm>
#include <span>
#include <vector>

namespace captoria {
namespace {

constexpr int kBuffer = 32 << 10;
constexpr const char* kFormats = "avi,matroska,mov,mpeg,mpegts,asf,flv,ogg";
constexpr std::chrono::milliseconds kAskEvery{20};

int RefuseOtherFiles(AVFormatContext*, AVIOContext**, const char*, int, AVDictionary**) { return AVERROR(EPERM); }

int IsInterrupted(void* self) { return static_cast<VideoDemuxer*>(self)->IsStopped() ? 1 : 0; }

// Detects the streams, with the help of decoders if the headers are not enough.
int FindStreams(AVFormatContext* context) {
  std::vector<AVDictionary*> options(context->nb_streams, nullptr);
  for (AVDictionary*& option : options) av_dict_set_int(&option, "max_pixels", VideoDemuxer::kMostPixels, 0);
  const int found = avformat_find_stream_info(context, options.data());
  for (AVDictionary*& option : options) av_dict_free(&option);
  return found;
}

}  // namespace

Result<std::unique_ptr<VideoDemuxer>> VideoDemuxer::Open(const std::string& path, JobProgress& progress) {
  // The log is global and goes to the terminal; the caller gets every failure as an Error.
  av_log_set_level(AV_LOG_QUIET);
  auto file = InputFile::Open(path);
  if (!file) return tl::unexpected(file.error());
  std::unique_ptr<VideoDemuxer> demuxer(new VideoDemuxer(std::move(*file)));
  demuxer->Watch(&progress);
  auto started = demuxer->Start();
  demuxer->Watch(nullptr);
  if (!started) return tl::unexpected(started.error());
  return demuxer;
}

Result<void> VideoDemuxer::Start() {
  auto* buffer = static_cast<unsigned char*>(av_malloc(kBuffer));
  if (buffer != nullptr) bytes_ = avio_alloc_context(buffer, kBuffer, 0, this, ReadBytes, nullptr, Seek);
  if (bytes_ == nullptr) {
    av_free(buffer);
    return tl::unexpected(Fail(ErrorKind::TooLarge, "not enough memory to open it"));
  }
  context_ = avformat_alloc_context();
  if (context_ == nullptr) return tl::unexpected(Fail(ErrorKind::TooLarge, "not enough memory to open it"));
  context_->pb = bytes_;
  context_->io_open = RefuseOtherFiles;
  context_->interrupt_callback = {IsInterrupted, this};
  AVDictionary* options = nullptr;
  av_dict_set(&options, "format_whitelist", kFormats, 0);
  // On failure, this frees the context.
  const int opened = avformat_open_input(&context_, nullptr, nullptr, &options);
  av_dict_free(&options);
  if (opened < 0) return tl::unexpected(Fail(ErrorKind::Damaged, "is not a readable video"));
  for (unsigned i = 0; i < context_->nb_streams; ++i) {
    const AVCodecParameters& form = *context_->streams[i]->codecpar;
    pixels_by_header_.push_back(std::int64_t{form.width} * form.height);
  }
  if (FindStreams(context_) < 0 || stopped_) {
    return tl::unexpected(Fail(ErrorKind::Damaged, "its streams cannot be read"));
  }
  return {};
}

VideoDemuxer::~VideoDemuxer() {
  avformat_close_input(&context_);
  if (bytes_ != nullptr) av_freep(&bytes_->buffer);
  avio_context_free(&bytes_);
}

std::int64_t VideoDemuxer::PixelsByHeader(int stream) const {
  const auto index = static_cast<std::size_t>(stream);
  return index < pixels_by_header_.size() ? pixels_by_header_[index] : 0;
}

void VideoDemuxer::Watch(JobProgress* progress) {
  progress_ = progress;
  stopped_ = false;
  disk_error_.reset();
  asked_ = {};
  if (bytes_ != nullptr) {
    // After a stop or a failed read, reading must be possible again.
    bytes_->error = 0;
    bytes_->eof_reached = 0;
  }
}

void VideoDemuxer::SetProgress(std::size_t done, std::size_t total) {
  done_ = done;
  total_ = total;
}

bool VideoDemuxer::IsStopped() {
  const auto now = std::chrono::steady_clock::now();
  if (progress_ == nullptr || stopped_ || now - asked_ < kAskEvery) return stopped_;
  asked_ = now;
  stopped_ = !progress_->Report(done_, total_);
  return stopped_;
}

Result<bool> VideoDemuxer::Read(int stream, AVPacket* packet) {
  while (!IsStopped()) {
    av_packet_unref(packet);
    const int got = av_read_frame(context_, packet);
    if (got == AVERROR(EAGAIN)) continue;
    if (stopped_ || disk_error_) break;
    if (got < 0) return false;
    if (packet->stream_index == stream) return true;
  }
  return tl::unexpected(Fail(ErrorKind::Damaged, "cannot be read"));
}

Error VideoDemuxer::Fail(ErrorKind kind, std::string_view what) const {
  if (stopped_) return {ErrorKind::Cancelled, file_.Path() + ": stopped"};
  if (disk_error_) return *disk_error_;
  return {kind, file_.Path() + ": " + std::string{what}};
}

int VideoDemuxer::ReadBytes(void* self, std::uint8_t* buffer, int size) {
  auto& video = *static_cast<VideoDemuxer*>(self);
  if (video.IsStopped()) return AVERROR_EXIT;
  const auto got = video.file_.ReadAt(video.position_, std::span(buffer, static_cast<std::size_t>(size)));
  if (!got) {
    video.disk_error_ = got.error();
    return AVERROR(EIO);
  }
  video.position_ += *got;
  return *got == 0 ? AVERROR_EOF : static_cast<int>(*got);
}

std::int64_t VideoDemuxer::Seek(void* self, std::int64_t offset, int whence) {
  auto& video = *static_cast<VideoDemuxer*>(self);
  const auto size = static_cast<std::int64_t>(video.file_.Size());
  whence &= ~AVSEEK_FORCE;
  if (whence == AVSEEK_SIZE) return size;
  const std::int64_t base = whence == SEEK_CUR   ? static_cast<std::int64_t>(video.position_)
                            : whence == SEEK_END ? size
                                                 : 0;
  if (offset < -base || offset > INT64_MAX - base) return AVERROR(EINVAL);
  video.position_ = static_cast<std::uint64_t>(base + offset);
  return base + offset;
}

}  // namespace captoria
