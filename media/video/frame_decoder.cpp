// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/video/frame_decoder.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/avutil.h>
#include <libavutil/frame.h>
#include <libavutil/imgutils.h>
#include <libswscale/swscale.h>
}

#include <algorithm>
#include <cmath>
#include <optional>
#include <thread>
#include <utility>

#include "media/video/video_demuxer.h"

namespace captoria {
namespace {

struct Freeing {
  void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
  void operator()(AVFrame* frame) const { av_frame_free(&frame); }
  void operator()(AVPacket* packet) const { av_packet_free(&packet); }
  void operator()(SwsContext* context) const { sws_freeContext(context); }
};
template <typename T>
using Freed = std::unique_ptr<T, Freeing>;

// More threads only cost memory, because few frames are decoded at a time.
constexpr unsigned kMostThreads = 4;

// Frames. Decoders reorder at most 16.
constexpr double kNear = 40;

// In any time base; larger times are invalid.
constexpr double kLatest = 1e15;

AVStream* FirstVideo(const AVFormatContext& video) {
  for (unsigned i = 0; i < video.nb_streams; ++i) {
    AVStream* stream = video.streams[i];
    const bool is_cover = (stream->disposition & AV_DISPOSITION_ATTACHED_PIC) != 0;
    if (stream->codecpar->codec_type == AVMEDIA_TYPE_VIDEO && !is_cover) return stream;
  }
  return nullptr;
}

Freed<AVCodecContext> OpenCodec(const AVStream& stream, const AVCodec* decoder) {
  Freed<AVCodecContext> codec(avcodec_alloc_context3(decoder));
  if (!codec || avcodec_parameters_to_context(codec.get(), stream.codecpar) < 0) return nullptr;
  codec->pkt_timebase = stream.time_base;
  codec->max_pixels = VideoDemuxer::kMostPixels;
  codec->thread_count = static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1U, kMostThreads));
  return avcodec_open2(codec.get(), decoder, nullptr) < 0 ? nullptr : std::move(codec);
}

// Nothing if the pixel format cannot be converted.
std::optional<VideoFrame> ToBgra(const AVFrame& frame) {
  const auto form = static_cast<AVPixelFormat>(frame.format);
  if (sws_isSupportedInput(form) == 0) return std::nullopt;
  Freed<SwsContext> scaler(sws_getContext(frame.width, frame.height, form, frame.width, frame.height, AV_PIX_FMT_BGRA,
                                          SWS_BICUBIC, nullptr, nullptr, nullptr));
  // The scaler writes whole vectors, so rows are aligned to 64 bytes.
  Freed<AVFrame> bgra(av_frame_alloc());
  if (!scaler || !bgra) return std::nullopt;
  bgra->format = AV_PIX_FMT_BGRA;
  bgra->width = frame.width;
  bgra->height = frame.height;
  if (av_frame_get_buffer(bgra.get(), 64) < 0) return std::nullopt;
  const int* matrix = sws_getCoefficients(frame.colorspace);
  sws_setColorspaceDetails(scaler.get(), matrix, frame.color_range == AVCOL_RANGE_JPEG ? 1 : 0,
                           sws_getCoefficients(SWS_CS_DEFAULT), 1, 0, 1 << 16, 1 << 16);
  if (sws_scale(scaler.get(), frame.data, frame.linesize, 0, frame.height, bgra->data, bgra->linesize) < 0) {
    return std::nullopt;
  }
  VideoFrame picture{.width = frame.width, .height = frame.height, .pixels = {}};
  const int row = 4 * frame.width;
  picture.pixels.resize(static_cast<std::size_t>(row) * static_cast<std::size_t>(frame.height));
  av_image_copy_plane(picture.pixels.data(), row, bgra->data[0], bgra->linesize[0], row, frame.height);
  return picture;
}

// Frames. A key frame this far back means a gap in the index.
constexpr double kLongGap = 500;

std::int64_t Place(double time) { return std::llround(std::clamp(time, -kLatest, kLatest)); }

// From the headers.
struct VideoFacts {
  int width = 0;
  int height = 0;
  std::int64_t frames = 0;
  std::int64_t duration = 0;
};

// `period` is the duration of a frame in seconds.
VideoFacts FactsOf(const AVFormatContext& video, const AVStream& stream, double period) {
  VideoFacts facts{.width = stream.codecpar->width, .height = stream.codecpar->height};
  if (video.duration > 0) facts.duration = video.duration / (AV_TIME_BASE / 1000);
  double seconds = static_cast<double>(facts.duration) / 1000;
  if (stream.duration > 0) seconds = static_cast<double>(stream.duration) * av_q2d(stream.time_base);
  facts.frames = static_cast<std::int64_t>(std::min(std::round(seconds / period), kLatest));
  if (stream.nb_frames > 0) facts.frames = stream.nb_frames;
  return facts;
}

}  // namespace

// Times are in units of the stream's time base.
class FrameDecoder::Video {
 public:
  static Result<std::unique_ptr<Video>> Open(const std::string& path, JobProgress& progress);

  Result<VideoFrame> Frame(std::int64_t number, JobProgress& progress);

  const VideoFacts& Facts() const { return facts_; }

 private:
  enum class Search {
    Found,
    BeginsLater,  // all decoded frames are shown later
    EndsBefore,
  };

  Video() : packet_(av_packet_alloc()), frame_(av_frame_alloc()), held_(av_frame_alloc()) {}
  Result<void> Start(const std::string& path, JobProgress& progress);
  Result<void> OpenStream();
  Result<bool> Next();
  Result<void> Feed();
  Result<Search> Find(double time);
  bool IsFarBehind(double time) const;
  Result<void> WalkTo(double time);
  Result<Search> Seek(double time);
  Result<Search> Look(double time, JobProgress& progress);
  bool SeekTo(double time);
  Result<VideoFrame> Shown(Result<Search> search);

  std::string path_;
  VideoFacts facts_;
  std::unique_ptr<VideoDemuxer> demuxer_;
  AVStream* stream_ = nullptr;
  Freed<AVCodecContext> codec_;
  Freed<AVPacket> packet_;
  Freed<AVFrame> frame_;                // the last decoded frame
  Freed<AVFrame> held_;                 // the frame before it, during a search
  bool sought_ = false;                 // otherwise reading started at the beginning
  std::optional<double> time_;          // of frame_; unknown right after a seek
  std::optional<double> first_packet_;  // time of the first packet since the last seek
  double wanted_ = 0;                   // time of the frame that is searched for
  double period_ = 1;
  double first_ = 0;  // time of frame 0
};

Result<std::unique_ptr<FrameDecoder::Video>> FrameDecoder::Video::Open(const std::string& path, JobProgress& progress) {
  std::unique_ptr<Video> video(new Video);
  if (auto started = video->Start(path, progress); !started) return tl::unexpected(started.error());
  // In some videos decoding delays all times, so the first decoded frame is frame 0.
  const auto first = video->Next();
  if (!first) return tl::unexpected(first.error());
  if (!*first) return tl::unexpected(video->demuxer_->Fail(ErrorKind::Damaged, "no picture of it can be decoded"));
  video->first_ = *video->time_;
  video->demuxer_->Watch(nullptr);
  return video;
}

Result<void> FrameDecoder::Video::Start(const std::string& path, JobProgress& progress) {
  path_ = path;
  codec_.reset();
  auto demuxer = VideoDemuxer::Open(path, progress);
  if (!demuxer) return tl::unexpected(demuxer.error());
  demuxer_ = std::move(*demuxer);
  demuxer_->Watch(&progress);
  return OpenStream();
}

Result<void> FrameDecoder::Video::OpenStream() {
  const auto fail = [&](ErrorKind kind, const char* what) { return tl::unexpected(demuxer_->Fail(kind, what)); };
  stream_ = FirstVideo(*demuxer_->Context());
  if (stream_ == nullptr) return fail(ErrorKind::Damaged, "has no video");
  const AVCodecParameters& form = *stream_->codecpar;
  const std::int64_t pixels = std::int64_t{form.width} * form.height;
  if (std::max(pixels, demuxer_->PixelsByHeader(stream_->index)) > VideoDemuxer::kMostPixels) {
    return fail(ErrorKind::TooLarge, "its pictures are too large");
  }
  const AVCodec* decoder = avcodec_find_decoder(form.codec_id);
  if (decoder == nullptr) return fail(ErrorKind::Unsupported, "there is no decoder for its video");
  codec_ = OpenCodec(*stream_, decoder);
  if (!codec_ || !packet_ || !frame_ || !held_) return fail(ErrorKind::Damaged, "its video cannot be decoded");

  // The demuxer guesses constant rates correctly. Without a rate, frames are numbered at 25 per second.
  AVRational rate = av_guess_frame_rate(demuxer_->Context(), stream_, nullptr);
  if (rate.num <= 0 || rate.den <= 0) rate = {25, 1};
  period_ = 1 / (av_q2d(rate) * av_q2d(stream_->time_base));
  facts_ = FactsOf(*demuxer_->Context(), *stream_, av_q2d(av_inv_q(rate)));
  for (unsigned i = 0; i < demuxer_->Context()->nb_streams; ++i) {
    AVStream* other = demuxer_->Context()->streams[i];
    if (other != stream_) other->discard = AVDISCARD_ALL;
  }
  time_.reset();
  first_packet_.reset();
  sought_ = false;
  return {};
}

// Passes one packet to the decoder, or reports the end of the video to it.
Result<void> FrameDecoder::Video::Feed() {
  const auto got = demuxer_->Read(stream_->index, packet_.get());
  if (!got) return tl::unexpected(got.error());
  if (*got && !first_packet_ && packet_->dts != AV_NOPTS_VALUE) first_packet_ = static_cast<double>(packet_->dts);
  // Skips frames that no other frame depends on until shortly before the wanted frame.
  const bool is_near = packet_->dts == AV_NOPTS_VALUE || static_cast<double>(packet_->dts) > wanted_ - kNear * period_;
  codec_->skip_frame = is_near ? AVDISCARD_DEFAULT : AVDISCARD_NONREF;
  // Invalid packets are skipped, as players do.
  avcodec_send_packet(codec_.get(), *got ? packet_.get() : nullptr);
  return {};
}

// Decodes the next frame into frame_; false at the end of the video.
Result<bool> FrameDecoder::Video::Next() {
  for (;;) {
    const int got = avcodec_receive_frame(codec_.get(), frame_.get());
    if (got == AVERROR_EOF) return false;
    if (got >= 0) break;
    if (auto fed = Feed(); !fed) return tl::unexpected(fed.error());
  }
  if (frame_->best_effort_timestamp != AV_NOPTS_VALUE) {
    time_ = static_cast<double>(frame_->best_effort_timestamp);
  } else if (time_) {
    // In a stream without display times, the last frames come out after the last packet, so no packet gives their time.
    time_ = *time_ + period_;
  } else if (!sought_) {
    time_ = first_;
  }
  return true;
}

// Decodes until held_ is the frame shown at `time`.
Result<FrameDecoder::Video::Search> FrameDecoder::Video::Find(double time) {
  wanted_ = time;
  std::optional<double> held_until;
  double begin = time;
  for (std::size_t done = 0;; ++done) {
    const auto got = Next();
    if (!got) return tl::unexpected(got.error());
    if (!*got && !held_until) return Search::BeginsLater;
    if (!*got) return time < *held_until ? Search::Found : Search::EndsBefore;
    if (!time_ || *time_ > time + period_ / 2) return held_until ? Search::Found : Search::BeginsLater;
    if (done == 0) begin = *time_;
    demuxer_->SetProgress(done, static_cast<std::size_t>(std::clamp((time - begin) / period_, 0.0, kLatest)) + 1);
    held_until = *time_ + std::max(period_, static_cast<double>(frame_->pkt_duration)) - period_ / 2;
    const bool is_own = *time_ > time - period_ / 2;
    av_frame_unref(held_.get());
    av_frame_move_ref(held_.get(), frame_.get());
    if (is_own) return Search::Found;
  }
}

// Seeks to the last key frame before `time`.
bool FrameDecoder::Video::SeekTo(double time) {
  avcodec_flush_buffers(codec_.get());
  time_.reset();
  first_packet_.reset();
  sought_ = true;
  return av_seek_frame(demuxer_->Context(), stream_->index, Place(time), AVSEEK_FLAG_BACKWARD) >= 0;
}

Result<VideoFrame> FrameDecoder::Video::Shown(Result<Search> search) {
  if (!search) return tl::unexpected(search.error());
  if (*search != Search::Found) return tl::unexpected(demuxer_->Fail(ErrorKind::NotFound, "has no such frame"));
  auto picture = ToBgra(*held_);
  av_frame_unref(held_.get());
  if (!picture) return tl::unexpected(demuxer_->Fail(ErrorKind::Unsupported, "its pictures cannot be converted"));
  return std::move(*picture);
}

// Whether the key frame before `time` is so far back that the index probably has a gap.
bool FrameDecoder::Video::IsFarBehind(double time) const {
  const AVIndexEntry* entry = avformat_index_get_entry_from_timestamp(stream_, Place(time), AVSEEK_FLAG_BACKWARD);
  return entry != nullptr && time - static_cast<double>(entry->timestamp) > kLongGap * period_;
}

// Reads up to `time` without decoding; on the way the demuxer learns where the key frames are.
Result<void> FrameDecoder::Video::WalkTo(double time) {
  for (;;) {
    const auto got = demuxer_->Read(stream_->index, packet_.get());
    if (!got) return tl::unexpected(got.error());
    if (!*got || (packet_->dts != AV_NOPTS_VALUE && static_cast<double>(packet_->dts) >= time)) return {};
  }
}

Result<FrameDecoder::Video::Search> FrameDecoder::Video::Seek(double time) {
  if (!SeekTo(time)) return Search::BeginsLater;
  if (IsFarBehind(time)) {
    if (auto walked = WalkTo(time); !walked) return tl::unexpected(walked.error());
    if (!SeekTo(time)) return Search::BeginsLater;
  }
  const auto search = Find(time);
  // A frame stored after a key frame but shown before it also needs the key frame before.
  const bool is_behind = search && *search == Search::BeginsLater && first_packet_;
  return is_behind && SeekTo(*first_packet_ - 1) ? Find(time) : search;
}

Result<FrameDecoder::Video::Search> FrameDecoder::Video::Look(double time, JobProgress& progress) {
  Result<Search> search = Search::BeginsLater;
  if (codec_) search = Seek(time);
  if (!search || *search != Search::BeginsLater) return search;
  // There is no index, or it is wrong.
  if (auto again = Start(path_, progress); !again) return tl::unexpected(again.error());
  if (auto walked = WalkTo(time); !walked) return tl::unexpected(walked.error());
  search = Seek(time);
  if (!search || *search != Search::BeginsLater) return search;
  // Seeking does not work in this video, so decode everything from the beginning.
  if (auto again = Start(path_, progress); !again) return tl::unexpected(again.error());
  return Find(time);
}

Result<VideoFrame> FrameDecoder::Video::Frame(std::int64_t number, JobProgress& progress) {
  const double time = first_ + static_cast<double>(number) * period_;
  demuxer_->Watch(&progress);
  auto picture = number >= 0 && time < kLatest ? Shown(Look(time, progress)) : Shown(Search::EndsBefore);
  demuxer_->Watch(nullptr);
  return picture;
}

Result<FrameDecoder> FrameDecoder::Open(const std::string& path, JobProgress& progress) {
  auto video = Video::Open(path, progress);
  if (!video) return tl::unexpected(video.error());
  return FrameDecoder(std::move(*video));
}

FrameDecoder::FrameDecoder(std::unique_ptr<Video> video) : video_(std::move(video)) {}
FrameDecoder::FrameDecoder(FrameDecoder&&) noexcept = default;
FrameDecoder& FrameDecoder::operator=(FrameDecoder&&) noexcept = default;
FrameDecoder::~FrameDecoder() = default;

int FrameDecoder::Width() const { return video_->Facts().width; }
int FrameDecoder::Height() const { return video_->Facts().height; }
std::int64_t FrameDecoder::FrameCount() const { return video_->Facts().frames; }
std::int64_t FrameDecoder::Duration() const { return video_->Facts().duration; }

Result<VideoFrame> FrameDecoder::Frame(std::int64_t number, JobProgress& progress) {
  return video_->Frame(number, progress);
}

std::string DecoderLibrary() { return std::string("FFmpeg ") + av_version_info(); }

}  // namespace captoria
