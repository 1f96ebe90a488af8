// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/video/key_frame.h"

#include <array>
#include <string>

#include "base/ascii.h"

namespace captoria {
namespace {

struct KnownCompression {
  std::string_view name;
  PictureCoding coding;
};

constexpr std::array kKnown{
    KnownCompression{std::string_view("\0\0\0\0", 4), PictureCoding::Alone},
    KnownCompression{"DIB ", PictureCoding::Alone},
    KnownCompression{"RGB ", PictureCoding::Alone},
    KnownCompression{"MJPG", PictureCoding::Alone},
    KnownCompression{"LJPG", PictureCoding::Alone},
    KnownCompression{"DVSD", PictureCoding::Alone},
    KnownCompression{"HFYU", PictureCoding::Alone},
    KnownCompression{"FFVH", PictureCoding::Alone},
    KnownCompression{"YUY2", PictureCoding::Alone},
    KnownCompression{"UYVY", PictureCoding::Alone},
    KnownCompression{"YV12", PictureCoding::Alone},
    KnownCompression{"I420", PictureCoding::Alone},
    KnownCompression{"DIVX", PictureCoding::Mpeg4},
    KnownCompression{"DX50", PictureCoding::Mpeg4},
    KnownCompression{"XVID", PictureCoding::Mpeg4},
    KnownCompression{"FMP4", PictureCoding::Mpeg4},
    KnownCompression{"MP4V", PictureCoding::Mpeg4},
    KnownCompression{"M4S2", PictureCoding::Mpeg4},
    KnownCompression{"3IV2", PictureCoding::Mpeg4},
    KnownCompression{"MP42", PictureCoding::MsMpeg4},
    KnownCompression{"MP43", PictureCoding::MsMpeg4},
    KnownCompression{"DIV3", PictureCoding::MsMpeg4},
    KnownCompression{"DIV4", PictureCoding::MsMpeg4},
    KnownCompression{"H264", PictureCoding::H264},
    KnownCompression{"X264", PictureCoding::H264},
    KnownCompression{"AVC1", PictureCoding::H264},
    KnownCompression{"DAVC", PictureCoding::H264},
};

// The index of the byte after the next start code (00 00 01) at or after `from`, or the size if no byte follows one.
std::size_t AfterStartCode(ByteView data, std::size_t from) {
  for (std::size_t i = from; i + 3 < data.size(); ++i) {
    if (data[i] == 0 && data[i + 1] == 0 && data[i + 2] == 1) return i + 3;
  }
  return data.size();
}

// A picture begins with the start code B6. The next two bits are its type, 0 for a key frame.
std::optional<bool> IsKeyMpeg4(ByteView data) {
  for (std::size_t i = AfterStartCode(data, 0); i < data.size(); i = AfterStartCode(data, i)) {
    if (data[i] == 0xB6 && i + 1 < data.size()) return data[i + 1] >> 6 == 0;
  }
  return std::nullopt;
}

// The first unit with a part of a picture decides. Encoders that refresh without a full reset (open groups) repeat the
// parameters of the sequence before a picture from which decoding can start.
std::optional<bool> IsKeyH264(ByteView data) {
  constexpr int kPart = 1, kResetPart = 5, kParameters = 7;
  bool parameters = false;
  for (std::size_t i = AfterStartCode(data, 0); i < data.size(); i = AfterStartCode(data, i)) {
    const int unit = data[i] & 0x1F;
    if (unit == kResetPart) return true;
    if (unit == kPart) return parameters;
    if (unit == kParameters) parameters = true;
  }
  return std::nullopt;
}

}  // namespace

PictureCoding PictureCodingOf(std::string_view compression) {
  for (const KnownCompression& known : kKnown) {
    if (EqualsIgnoringCase(known.name, compression)) return known.coding;
  }
  return PictureCoding::Unknown;
}

std::optional<bool> IsKeyPicture(PictureCoding coding, ByteView beginning) {
  if (beginning.empty()) return false;  // repeats the picture before
  switch (coding) {
    case PictureCoding::Alone:
      return true;
    case PictureCoding::Mpeg4:
      return IsKeyMpeg4(beginning);
    case PictureCoding::MsMpeg4:
      return beginning[0] >> 6 == 0;
    case PictureCoding::H264:
      return IsKeyH264(beginning);
    case PictureCoding::Unknown:
      break;
  }
  return std::nullopt;
}

}  // namespace captoria
