// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Subtitles as FFmpeg's decoders show them.
#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/bytes.h"
#include "media/xsub/xsub_packet.h"

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

  // Calls `see` with the subtitle of one packet, if it shows one.
  template <typename See>
  void Show(AVPacket* packet, const See& see) {
    if (avcodec_is_open(context_) == 0) avcodec_open2(context_, nullptr, nullptr);
    AVSubtitle subtitle{};
    int got = 0;
    packet->pts = AV_NOPTS_VALUE;
    if (avcodec_decode_subtitle2(context_, &subtitle, &got, packet) < 0 || got == 0) return;
    see(subtitle);
    avsubtitle_free(&subtitle);
  }

  // The subtitles of one packet shown at `time`: none, or one.
  std::vector<SeenSubtitle> Decode(AVPacket* packet, std::int64_t time) {
    std::vector<SeenSubtitle> all;
    Show(packet, [&](const AVSubtitle& subtitle) {
      SeenSubtitle seen;
      seen.show = time + subtitle.start_display_time;
      seen.hide = std::max(seen.show, time + subtitle.end_display_time);
      for (unsigned i = 0; i < subtitle.num_rects; ++i) Draw(*subtitle.rects[i], seen);
      all.push_back(std::move(seen));
    });
    return all;
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

// Calls `see` with the decoder and a copy of the XSUB packet `bytes`.
template <typename See>
void WithXsubPacket(const Bytes& bytes, const See& see) {
  FfmpegSubtitleDecoder decoder(AV_CODEC_ID_XSUB);
  AVPacket* packet = av_packet_alloc();
  if (av_new_packet(packet, static_cast<int>(bytes.size())) == 0) {
    std::ranges::copy(bytes, packet->data);
    see(decoder, packet);
  }
  av_packet_free(&packet);
}

// The colours of an XSUB packet on the frame.
inline std::vector<SeenSubtitle> SeeXsubPacket(const Bytes& bytes) {
  std::vector<SeenSubtitle> seen;
  WithXsubPacket(bytes, [&](auto& decoder, AVPacket* packet) { seen = decoder.Decode(packet, 0); });
  return seen;
}

// What is in an XSUB packet, with the colour numbers of its pixels.
inline Result<XsubCue> DecodeXsub(const Bytes& bytes) {
  av_log_set_level(AV_LOG_QUIET);
  Result<XsubCue> cue = Failure(ErrorKind::Damaged, "FFmpeg shows nothing");
  const auto take = [&](const AVSubtitle& subtitle) {
    const AVSubtitleRect& rect = *subtitle.rects[0];
    cue = XsubCue{.times = {subtitle.start_display_time, subtitle.end_display_time},
                  .picture = {SubtitlePicture(rect.w, rect.h), rect.x, rect.y}};
    SubtitlePicture& picture = cue->picture.picture;
    for (int y = 0; y < rect.h; ++y) std::copy_n(rect.data[0] + y * rect.linesize[0], rect.w, picture.Row(y).begin());
    for (std::size_t i = 0; i < picture.colors.size(); ++i) {
      std::uint32_t argb = 0;
      std::memcpy(&argb, rect.data[1] + 4 * i, sizeof argb);
      EXPECT_EQ(argb >> 24, i == 0 ? 0 : 255) << "only the first colour lets the film through";
      const auto part = [&](int shift) { return static_cast<std::uint8_t>(argb >> shift); };
      picture.colors[i] = {part(16), part(8), part(0)};
    }
  };
  WithXsubPacket(bytes, [&](auto& decoder, AVPacket* packet) { decoder.Show(packet, take); });
  return cue;
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
