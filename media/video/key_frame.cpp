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

// The index of the byte behind the next start code (00 00 01) from `from` on, which is there; or the size.
std::size_t BehindStartCode(ByteView data, std::size_t from) {
  for (std::size_t i = from; i + 3 < data.size(); ++i) {
    if (data[i] == 0 && data[i + 1] == 0 && data[i + 2] == 1) return i + 3;
  }
  return data.size();
}

// A picture's start code is B6; two bits of its type follow, 0 for one that stands alone.
std::optional<bool> IsKeyMpeg4(ByteView data) {
  for (std::size_t i = BehindStartCode(data, 0); i < data.size(); i = BehindStartCode(data, i)) {
    if (data[i] == 0xB6 && i + 1 < data.size()) return data[i + 1] >> 6 == 0;
  }
  return std::nullopt;
}

// The first unit that holds a part of a picture tells. Encoders that refresh without a full reset (open groups) repeat
// the sequence's parameters before a picture that can be begun with.
std::optional<bool> IsKeyH264(ByteView data) {
  constexpr int kPart = 1, kResetPart = 5, kParameters = 7;
  bool parameters = false;
  for (std::size_t i = BehindStartCode(data, 0); i < data.size(); i = BehindStartCode(data, i)) {
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
  return PictureCoding::NotLooked;
}

std::optional<bool> IsKeyPicture(PictureCoding coding, ByteView beginning) {
  if (beginning.empty()) return false;  // the picture before is shown again
  switch (coding) {
    case PictureCoding::Alone:
      return true;
    case PictureCoding::Mpeg4:
      return IsKeyMpeg4(beginning);
    case PictureCoding::MsMpeg4:
      return beginning[0] >> 6 == 0;
    case PictureCoding::H264:
      return IsKeyH264(beginning);
    case PictureCoding::NotLooked:
      break;
  }
  return std::nullopt;
}

}  // namespace captoria
