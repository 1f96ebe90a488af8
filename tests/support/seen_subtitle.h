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
#include <array>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/bytes.h"
#include "media/xsub/subtitle_rle.h"
#include "media/xsub/xsub_packet.h"

namespace captoria {

struct SeenSubtitle {
  std::int64_t show = 0;                                // milliseconds
  std::int64_t hide = 0;                                // equals `show` if the subtitle has no end
  std::map<std::pair<int, int>, std::uint32_t> pixels;  // 0xRRGGBB of all visible ones, by row and column
  PlacedPicture picture;                                // the same with colour numbers
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

  // The subtitles of one packet shown at `time`: at most one.
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
    SubtitlePicture picture(rect.w, rect.h);
    std::array<std::uint32_t, 4> argb{};
    std::memcpy(argb.data(), rect.data[1], sizeof argb);
    for (int y = 0; y < rect.h; ++y) {
      std::copy_n(rect.data[0] + y * rect.linesize[0], rect.w, picture.Row(y).begin());
      for (int x = 0; x < rect.w; ++x) {
        const std::uint32_t color = argb[picture.Row(y)[static_cast<std::size_t>(x)] & 3];
        if (color >> 24 != 0) seen.pixels[{rect.y + y, rect.x + x}] = color & 0xFFFFFF;
      }
    }
    for (std::size_t i = 0; i < argb.size(); ++i) {
      const auto part = [&](int shift) { return static_cast<std::uint8_t>(argb[i] >> shift); };
      picture.colors[i] = {part(16), part(8), part(0)};
    }
    seen.picture = {std::move(picture), rect.x, rect.y};
  }

  AVCodecContext* context_;
};

// An XSUB packet as a player decodes it.
inline std::vector<SeenSubtitle> SeeXsubPacket(const Bytes& bytes) {
  av_log_set_level(AV_LOG_QUIET);
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

// The cue in an XSUB packet, decoded the same way.
inline Result<XsubCue> DecodeXsub(const Bytes& bytes) {
  const auto seen = SeeXsubPacket(bytes);
  if (seen.size() != 1) return Failure(ErrorKind::Damaged, "FFmpeg shows nothing");
  const SubtitlePicture& picture = seen[0].picture.picture;
  EXPECT_EQ(seen[0].pixels.size(), static_cast<std::size_t>(std::ranges::count_if(picture.pixels, std::identity{})))
      << "only the first colour lets the film through";
  // Players ignore the length of the first field's code, but other programs may not.
  SubtitlePicture again = picture;
  EXPECT_EQ(DecodeField(ByteView{bytes}.subspan(kXsubHeader), Field::Even, again),
            ByteReader(ByteView{bytes}.subspan(39)).U16());
  return XsubCue{.times = {seen[0].show, seen[0].hide}, .picture = seen[0].picture};
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
