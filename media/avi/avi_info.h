// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What is worth knowing of an AVI file and its streams before anything is done with it: the fields of the platform
// records AVIFILEINFO and AVISTREAMINFO, for any platform.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "media/avi/avi_file.h"

namespace captoria {

// rate / scale is the number of frames per second; rate 0 when the file tells none.
struct AviFileInfo {
  std::uint32_t max_bytes_per_second = 0;
  std::uint32_t flags = 0;
  std::uint32_t streams = 0;  // those that are there
  std::uint32_t suggested_buffer_size = 0;
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  std::uint32_t scale = 1;  // never 0
  std::uint32_t rate = 0;
  std::uint32_t length = 0;  // frames
};

struct AviRectangle {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

// Times are in units of scale / rate seconds; both may be 0, as files have it.
struct AviStreamInfo {
  std::string type;     // four bytes: "vids", "auds"...
  std::string handler;  // four bytes; "DIB " for uncompressed pictures that name none
  std::uint32_t flags = 0;
  std::uint16_t priority = 0;
  std::uint16_t language = 0;
  std::uint32_t scale = 0;
  std::uint32_t rate = 0;
  std::uint32_t start = 0;
  std::uint32_t length = 0;
  std::uint32_t initial_frames = 0;
  std::uint32_t suggested_buffer_size = 0;
  std::uint32_t quality = 0;
  std::uint32_t sample_size = 0;  // of sound: the format's block, whatever the header says
  AviRectangle frame;             // the header's, or the size of the picture; empty for sound
  std::string name;               // at most 63 bytes; "film.avi Video #1" where the file names none
  bool named = false;             // by the file
};

// BITMAPINFOHEADER, as far as it is looked at.
struct PictureFormat {
  std::int32_t width = 0;
  std::int32_t height = 0;  // negative when the first row is the top one
  std::uint16_t bits = 0;
  std::string compression;  // four bytes
};

// WAVEFORMATEX, the same.
struct SoundFormat {
  std::uint16_t tag = 0;
  std::uint16_t channels = 0;
  std::uint32_t samples_per_second = 0;
  std::uint32_t bytes_per_second = 0;
  std::uint16_t block = 0;
  std::uint16_t bits = 0;
};

AviFileInfo InfoOf(const AviFile& file);

// `stream` is an index into the file's streams.
AviStreamInfo StreamInfoOf(const AviFile& file, int stream);

// Nothing when the stream is of another type or its format is too short.
std::optional<PictureFormat> PictureFormatOf(const AviStream& stream);
std::optional<SoundFormat> SoundFormatOf(const AviStream& stream);

}  // namespace captoria
