// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Subtitles as FFmpeg's decoders show them: which pixels of the frame they cover, and with what.
#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/bytes.h"

namespace captoria {

struct SeenSubtitle {
  std::int64_t show = 0;                                // milliseconds
  std::int64_t hide = 0;                                // equals `show` when no end is told
  std::map<std::pair<int, int>, std::uint32_t> pixels;  // 0xRRGGBB of what is not fully transparent, by row and column
};

class FfmpegSubtitleDecoder {
 public:
  explicit FfmpegSubtitleDecoder(AVCodecID codec) : context_(avcodec_alloc_context3(avcodec_find_decoder(codec))) {
    if (codec == AV_CODEC_ID_XSUB) context_->codec_tag = MKTAG('D', 'X', 'S', 'B');
  }
  FfmpegSubtitleDecoder(const FfmpegSubtitleDecoder&) = delete;
  FfmpegSubtitleDecoder& operator=(const FfmpegSubtitleDecoder&) = delete;
  ~FfmpegSubtitleDecoder() { avcodec_free_context(&context_); }

  AVCodecContext* Context() { return context_; }

  // The subtitles of one packet shown at `time`: none, or one.
  std::vector<SeenSubtitle> Decode(AVPacket* packet, std::int64_t time) {
    if (avcodec_is_open(context_) == 0) avcodec_open2(context_, nullptr, nullptr);
    AVSubtitle subtitle{};
    int got = 0;
    packet->pts = AV_NOPTS_VALUE;
    if (avcodec_decode_subtitle2(context_, &subtitle, &got, packet) < 0 || got == 0) return {};
    SeenSubtitle seen;
    seen.show = time + subtitle.start_display_time;
    seen.hide = std::max(seen.show, time + subtitle.end_display_time);
    for (unsigned i = 0; i < subtitle.num_rects; ++i) Draw(*subtitle.rects[i], seen);
    avsubtitle_free(&subtitle);
    return {seen};
  }

 private:
  static void Draw(const AVSubtitleRect& rect, SeenSubtitle& seen) {
    for (int y = 0; y < rect.h; ++y) {
      for (int x = 0; x < rect.w; ++x) {
        std::uint32_t argb = 0;
        std::memcpy(&argb, rect.data[1] + 4 * rect.data[0][y * rect.linesize[0] + x], sizeof argb);
        if (argb >> 24 != 0) seen.pixels[{rect.y + y, rect.x + x}] = argb & 0xFFFFFF;
      }
    }
  }

  AVCodecContext* context_;
};

// An XSUB packet as a player decodes it.
inline std::vector<SeenSubtitle> SeeXsubPacket(const Bytes& bytes) {
  FfmpegSubtitleDecoder decoder(AV_CODEC_ID_XSUB);
  AVPacket* packet = av_packet_alloc();
  std::vector<SeenSubtitle> seen;
  if (av_new_packet(packet, static_cast<int>(bytes.size())) == 0) {
    std::ranges::copy(bytes, packet->data);
    seen = decoder.Decode(packet, 0);
  }
  av_packet_free(&packet);
  return seen;
}

// The subtitles of the stream with number `id` (VobSub: the language's index) in a file.
inline std::vector<SeenSubtitle> SeeSubtitleStream(const std::string& path, int id) {
  std::vector<SeenSubtitle> all;
  AVFormatContext* file = nullptr;
  if (avformat_open_input(&file, path.c_str(), nullptr, nullptr) < 0) return all;
  int wanted = -1;
  for (unsigned i = 0; i < file->nb_streams; ++i) {
    if (file->streams[i]->id == id) wanted = static_cast<int>(i);
  }
  if (wanted >= 0) {
    FfmpegSubtitleDecoder decoder(file->streams[wanted]->codecpar->codec_id);
    avcodec_parameters_to_context(decoder.Context(), file->streams[wanted]->codecpar);
    AVPacket* packet = av_packet_alloc();
    while (av_read_frame(file, packet) >= 0) {
      const auto seen =
          packet->stream_index == wanted ? decoder.Decode(packet, packet->pts) : std::vector<SeenSubtitle>{};
      all.insert(all.end(), seen.begin(), seen.end());
      av_packet_unref(packet);
    }
    av_packet_free(&packet);
  }
  avformat_close_input(&file);
  return all;
}

}  // namespace captoria
