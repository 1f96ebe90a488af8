// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/bmp/bmp_file.h"

#include <gmock/gmock.h>

#include <array>

#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// A file of BMP's fields; each can be set to what a test needs.
struct Fields {
  std::uint32_t header_size = 40;
  std::uint32_t width = 5;
  std::int32_t height = 2;
  std::uint16_t planes = 1;
  std::uint16_t bits = 4;
  std::uint32_t compression = 0;
  std::uint32_t colors_used = 0;
  std::uint32_t colors = 16;     // that are there
  std::uint32_t gap = 0;         // between table and rows
  std::uint32_t moved_rows = 0;  // added to the place of the rows
  Bytes rows{0x01, 0x23, 0x30, 0, 0xF0, 0x00, 0x10, 0};

  Bytes File() const {
    ByteWriter out;
    out.Text("BM").U32(0).U32(0).U32(14 + header_size + 4 * colors + gap + moved_rows);
    out.U32(header_size).U32(width).U32(static_cast<std::uint32_t>(height)).U16(planes).U16(bits).U32(compression);
    out.Zeros(12).U32(colors_used).Zeros(4).Zeros(header_size - 40);
    for (std::uint32_t i = 0; i < colors; ++i) {
      const auto part = static_cast<std::uint8_t>(i);
      out.U8(part).U8(static_cast<std::uint8_t>(part + 100)).U8(static_cast<std::uint8_t>(part + 200)).U8(0);
    }
    return out.Zeros(gap).Append(rows).Take();
  }
};

TEST(BmpFile, PixelsAreReadFromTheTopWhateverTheirSizeAndOrder) {
  struct Layout {
    const char* name;
    Fields fields;
    std::vector<int> pixels;
  };
  const std::vector<Layout> layouts{
      {"4 bits from the bottom", {}, {15, 0, 0, 0, 1, 0, 1, 2, 3, 3}},
      {"4 bits from the top", {.height = -2}, {0, 1, 2, 3, 3, 15, 0, 0, 0, 1}},
      {"1 bit", {.bits = 1, .colors = 2, .rows = {0xA8, 0, 0, 0, 0x08, 0, 0, 0}}, {0, 0, 0, 0, 1, 1, 0, 1, 0, 1}},
      {"8 bits", {.height = 1, .bits = 8, .colors = 256, .rows = {9, 255, 0, 1, 2, 0, 0, 0}}, {9, 255, 0, 1, 2}},
      {"later header and a gap", {.header_size = 124, .height = -2, .gap = 7}, {0, 1, 2, 3, 3, 15, 0, 0, 0, 1}},
      {"a short table", {.height = 1, .colors_used = 4, .colors = 4, .rows = {0x01, 0x23, 0x00, 0}}, {0, 1, 2, 3, 0}},
  };
  for (const Layout& layout : layouts) {
    const auto bmp = ParseBmp(layout.fields.File(), "a.bmp");
    ASSERT_TRUE(bmp) << layout.name << ": " << bmp.error().message;
    EXPECT_EQ(std::vector<int>(bmp->pixels.begin(), bmp->pixels.end()), layout.pixels) << layout.name;
    EXPECT_EQ(bmp->colors.size(), layout.fields.colors) << layout.name;
    EXPECT_EQ(bmp->colors[1], (Color{201, 101, 1})) << layout.name;
  }
}

TEST(BmpFile, RefusesOthersByName) {
  struct Refusal {
    const char* message;
    ErrorKind kind;
    Fields fields;
  };
  const std::vector<Refusal> refusals{
      {"has 24 bits per pixel", ErrorKind::Unsupported, {.bits = 24}},
      {"has 0 bits per pixel", ErrorKind::Unsupported, {.bits = 0}},
      {"is compressed", ErrorKind::Unsupported, {.compression = 2}},
      {"bitmap header of 200 bytes", ErrorKind::Unsupported, {.header_size = 200}},
      {"invalid bitmap header", ErrorKind::Damaged, {.width = 0}},
      {"invalid bitmap header", ErrorKind::Damaged, {.width = 0x80000000}},
      {"invalid bitmap header", ErrorKind::Damaged, {.height = 0}},
      {"invalid bitmap header", ErrorKind::Damaged, {.planes = 0}},
      {"16385 x 2 pixels", ErrorKind::TooLarge, {.width = 16385}},
      {"5 x 2147483648 pixels", ErrorKind::TooLarge, {.height = INT32_MIN}},
      {"16384 x 1025 pixels", ErrorKind::TooLarge, {.width = 16384, .height = 1025}},
      {"more colours than", ErrorKind::Damaged, {.colors_used = 17}},
      {"colour that is not in its colour table", ErrorKind::Damaged, {.colors_used = 15}},
      {"colour table", ErrorKind::Damaged, {.colors = 1, .rows = {}}},
      {"rows of the bitmap are missing", ErrorKind::Damaged, {.height = 3}},
      {"rows of the bitmap are missing", ErrorKind::Damaged, {.moved_rows = 1}},
      {"rows of the bitmap are missing", ErrorKind::Damaged, {.moved_rows = 0xFFFFFF00}},
  };
  for (const Refusal& refusal : refusals) {
    const auto bmp = ParseBmp(refusal.fields.File(), "a.bmp");
    ASSERT_FALSE(bmp) << refusal.message;
    EXPECT_THAT(bmp.error().message, testing::AllOf(HasSubstr("a.bmp: "), HasSubstr(refusal.message)));
    EXPECT_EQ(bmp.error().kind, refusal.kind) << refusal.message;
  }
}

TEST(BmpFile, RefusesWhatBreaksOffAnywhere) {
  const Bytes whole = Fields{}.File();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_FALSE(ParseBmp(ByteView{whole}.first(size), "a.bmp")) << size;
  }
  EXPECT_EQ(ReadBmp(TestFolder().File("none.bmp")).error().kind, ErrorKind::NotFound);
}

TEST(BmpFile, WhatIsWrittenIsReadAgain) {
  std::array<Color, 16> colors;
  for (std::uint8_t i = 0; i < 16; ++i) colors[i] = {i, static_cast<std::uint8_t>(2 * i), 255};
  const std::vector<std::uint8_t> pixels{1, 2, 15, 0, 7, 3};
  const TestFolder folder;
  ASSERT_TRUE(WriteBmp(folder.File("a.bmp"), {{3, 2}, colors, pixels}));
  const auto bmp = ReadBmp(folder.File("a.bmp"));
  ASSERT_TRUE(bmp) << bmp.error().message;
  EXPECT_EQ(bmp->width, 3);
  EXPECT_EQ(bmp->height, 2);
  EXPECT_THAT(bmp->colors, testing::ElementsAreArray(colors));
  EXPECT_EQ(bmp->pixels, pixels);
}

}  // namespace
}  // namespace captoria
