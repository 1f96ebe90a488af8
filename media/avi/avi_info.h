// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What a user sees of an AVI file and its streams: the frame rate, and for each stream its type, size, length and name.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "media/avi/avi_file.h"

namespace captoria {

// The frame rate is rate / scale frames per second; rate is 0 if the file does not contain a frame rate.
struct AviFileInfo {
  std::uint32_t scale = 1;  // never 0
  std::uint32_t rate = 0;
};

struct AviRectangle {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

// Times are in units of scale / rate seconds, as in the file: both may be 0.
struct AviStreamInfo {
  std::string type;  // four bytes: "vids", "auds"...
  std::uint32_t scale = 0;
  std::uint32_t rate = 0;
  std::uint32_t start = 0;
  std::uint32_t length = 0;
  AviRectangle frame;  // from the header, or else the size of the picture; empty for sound
  std::string name;    // at most 63 bytes; "film.avi Video #1" if the file does not name the stream
};

// The fields of BITMAPINFOHEADER that we use.
struct PictureFormat {
  std::int32_t width = 0;
  std::int32_t height = 0;  // negative if the first row is the top row
  std::string compression;  // four bytes
};

AviFileInfo InfoOf(const AviFile& file);

// `stream` is an index into file.Streams().
AviStreamInfo StreamInfoOf(const AviFile& file, int stream);

// Nothing if the stream is not video or its format is too short.
std::optional<PictureFormat> PictureFormatOf(const AviStream& stream);

}  // namespace captoria
