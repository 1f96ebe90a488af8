// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/bmp/bmp_file.h"

#include <algorithm>
#include <cstddef>

#include "platform/files.h"

namespace captoria {
namespace {

constexpr std::uint16_t kMagic = 0x4D42;  // "BM"
constexpr std::uint32_t kFileHeader = 14;
constexpr std::uint32_t kInfoHeader = 40;      // BITMAPINFOHEADER; later versions begin with the same fields
constexpr std::uint32_t kLongestHeader = 124;  // BITMAPV5HEADER
constexpr std::int64_t kLongestSide = 16384;
constexpr std::int64_t kMostPixels = std::int64_t{1} << 24;
constexpr std::uint32_t kTableEntry = 4;  // blue, green, red, unused
constexpr std::uint32_t kUncompressed = 0;
constexpr std::uint64_t kLargestFile = std::uint64_t{32} << 20;

// Rows are padded to four bytes.
constexpr std::size_t RowBytes(std::size_t width, unsigned bits) { return (width * bits + 31) / 32 * 4; }

// The fields of the two headers that are needed.
struct Headers {
  std::uint32_t rows_at = 0;
  std::uint32_t header_size = 0;
  std::int64_t width = 0;
  std::int64_t height = 0;  // negative: the top row comes first
  std::uint16_t planes = 0;
  std::uint16_t bits = 0;
  std::uint32_t compression = 0;
  std::uint32_t colors_used = 0;

  bool TopDown() const { return height < 0; }
  std::int64_t Rows() const { return TopDown() ? -height : height; }
  std::size_t RowBytes() const { return captoria::RowBytes(static_cast<std::size_t>(width), bits); }
};

Result<Headers> ReadHeaders(ByteReader& in, const std::string& name) {
  const auto damaged = [&](const char* how) { return Failure(ErrorKind::Damaged, name + ": " + how); };
  Headers headers;
  if (in.U16() != kMagic) return damaged("is not a BMP file");
  in.Skip(8);
  headers.rows_at = in.U32();
  headers.header_size = in.U32();
  headers.width = static_cast<std::int32_t>(in.U32());
  headers.height = static_cast<std::int32_t>(in.U32());
  headers.planes = in.U16();
  headers.bits = in.U16();
  headers.compression = in.U32();
  in.Skip(12);
  headers.colors_used = in.U32();
  in.Skip(4);
  if (in.Failed()) return damaged("ends within the bitmap header");
  return headers;
}

Result<void> CheckHeaders(const Headers& headers, const std::string& name) {
  const auto fail = [&](ErrorKind kind, const std::string& how) { return Failure(kind, name + ": " + how); };
  if (headers.header_size < kInfoHeader || headers.header_size > kLongestHeader) {
    return fail(ErrorKind::Unsupported, "has a bitmap header of " + std::to_string(headers.header_size) + " bytes");
  }
  if (headers.planes != 1 || headers.width < 1 || headers.height == 0) {
    return fail(ErrorKind::Damaged, "has an invalid bitmap header");
  }
  if (headers.bits != 1 && headers.bits != 4 && headers.bits != 8) {
    return fail(ErrorKind::Unsupported,
                "has " + std::to_string(headers.bits) +
                    " bits per pixel; only bitmaps with a colour table (1, 4 or 8) can be used");
  }
  if (headers.compression != kUncompressed)
    return fail(ErrorKind::Unsupported, "is compressed, which is not supported");
  if (headers.width > kLongestSide || headers.Rows() > kLongestSide || headers.width * headers.Rows() > kMostPixels) {
    return fail(ErrorKind::TooLarge, "is a bitmap of " + std::to_string(headers.width) + " x " +
                                         std::to_string(headers.Rows()) + " pixels, which is too large");
  }
  if (headers.colors_used > 1U << headers.bits)
    return fail(ErrorKind::Damaged, "has more colours than its bits per pixel allow");
  return {};
}

void UnpackRow(ByteView packed, unsigned bits, std::span<std::uint8_t> row) {
  const unsigned per_byte = 8 / bits, mask = (1U << bits) - 1;
  for (std::size_t x = 0; x < row.size(); ++x) {
    const auto place = static_cast<unsigned>(x % per_byte);
    row[x] = static_cast<std::uint8_t>(packed[x / per_byte] >> (8 - bits * (place + 1)) & mask);
  }
}

// The leftmost pixel is in the highest bits of the first byte.
void UnpackRows(ByteView packed, const Headers& headers, BmpFile& bmp) {
  const auto width = static_cast<std::size_t>(bmp.width), height = static_cast<std::size_t>(bmp.height);
  bmp.pixels.resize(width * height);
  for (std::size_t i = 0; i < height; ++i) {
    const std::size_t y = headers.TopDown() ? i : height - 1 - i;
    UnpackRow(packed.subspan(i * headers.RowBytes(), headers.RowBytes()), headers.bits,
              std::span{bmp.pixels}.subspan(y * width, width));
  }
}

// `packed` is all 0 before.
void PackRow(std::span<const std::uint8_t> row, std::uint8_t* packed) {
  const std::size_t pairs = row.size() / 2;
  for (std::size_t i = 0; i < pairs; ++i) packed[i] = static_cast<std::uint8_t>(row[2 * i] << 4 | row[2 * i + 1]);
  if (row.size() % 2 != 0) packed[pairs] = static_cast<std::uint8_t>(row.back() << 4);
}

}  // namespace

Result<BmpFile> ParseBmp(ByteView bytes, const std::string& name) {
  ByteReader in(bytes);
  const auto headers = ReadHeaders(in, name);
  if (!headers) return tl::unexpected(headers.error());
  if (auto fine = CheckHeaders(*headers, name); !fine) return tl::unexpected(fine.error());

  BmpFile bmp;
  bmp.width = static_cast<int>(headers->width);
  bmp.height = static_cast<int>(headers->Rows());
  in.Skip(headers->header_size - kInfoHeader);
  bmp.colors.resize(headers->colors_used == 0 ? std::size_t{1} << headers->bits : headers->colors_used);
  for (Color& color : bmp.colors) {
    const std::uint8_t blue = in.U8(), green = in.U8(), red = in.U8();
    color = {red, green, blue};
    in.Skip(1);
  }
  if (in.Failed()) return Failure(ErrorKind::Damaged, name + ": ends within the colour table");

  const std::size_t size = headers->RowBytes() * static_cast<std::size_t>(bmp.height);
  if (headers->rows_at < kFileHeader + headers->header_size || headers->rows_at > bytes.size() ||
      bytes.size() - headers->rows_at < size) {
    return Failure(ErrorKind::Damaged, name + ": rows of the bitmap are missing");
  }
  UnpackRows(bytes.subspan(headers->rows_at, size), *headers, bmp);
  if (std::ranges::max(bmp.pixels) >= bmp.colors.size()) {
    return Failure(ErrorKind::Damaged, name + ": has pixels of a colour that is not in its colour table");
  }
  return bmp;
}

Result<BmpFile> ReadBmp(const std::string& path) {
  const auto content = ReadWholeFile(path, kLargestFile);
  if (!content) return tl::unexpected(content.error());
  return ParseBmp({reinterpret_cast<const std::uint8_t*>(content->data()), content->size()}, path);
}

Bytes FormatBmp(const BmpPicture& picture) {
  constexpr std::uint16_t kPlanes = 1, kBits = 4;
  constexpr std::uint32_t kRowsAt = kFileHeader + kInfoHeader + kTableEntry * decltype(picture.colors)::extent;
  const auto width = static_cast<std::uint32_t>(picture.size.width);
  const auto height = static_cast<std::uint32_t>(picture.size.height);
  const std::size_t row_bytes = RowBytes(width, kBits);
  const auto rows_size = static_cast<std::uint32_t>(row_bytes * height);

  ByteWriter headers;
  headers.U16(kMagic).U32(kRowsAt + rows_size).Zeros(4).U32(kRowsAt);
  headers.U32(kInfoHeader).U32(width).U32(height).U16(kPlanes).U16(kBits).U32(kUncompressed).U32(rows_size);
  headers.Zeros(16);  // resolution and number of colours: not given
  for (const Color& color : picture.colors) headers.U8(color.blue).U8(color.green).U8(color.red).U8(0);

  Bytes bytes = headers.Take();
  bytes.resize(kRowsAt + rows_size);
  std::uint8_t* packed = bytes.data() + kRowsAt;
  for (std::size_t y = height; y-- > 0; packed += row_bytes) PackRow(picture.pixels.subspan(y * width, width), packed);
  return bytes;
}

Result<void> WriteBmp(const std::string& path, const BmpPicture& picture) {
  const Bytes bytes = FormatBmp(picture);
  return WriteWholeFile(path, {reinterpret_cast<const char*>(bytes.data()), bytes.size()}, Sync::No);
}

}  // namespace captoria
