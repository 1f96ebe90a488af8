// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "script/list_text.h"

#include <gtest/gtest.h>

#include "script/list_parser.h"

namespace captoria {
namespace {

constexpr ListColors kColors{{{255, 128, 1}, {0, 0, 0}, {70, 70, 70}}};

TEST(ListText, HeadersAreByteForByte) {
  EXPECT_EQ(ListHeader(ListForm::Converter, kColors, VideoSystem::Ntsc),
            "[HEADER]\r\nTITLE\r\nFRAMERATE NTSC\r\nDROPFRAME NO\r\nCONTRAST    (0 15 15 15)\r\n"
            "COLOR       (0 2 1 3)\r\n\r\n[PALETTE]\r\n0 (0, 0, 255)\r\n1 (255, 128, 1)\r\n2 (0, 0, 0)\r\n"
            "3 (70, 70, 70)\r\n\r\n[LIST]\r\n");
  EXPECT_EQ(ListHeader(ListForm::Mux, kColors, VideoSystem::Ntsc),
            "0 = (0, 0, 0)\r\n1 = (255, 128, 1)\r\n2 = (0, 0, 0)\r\n3 = (70, 70, 70)\r\n\r\nSUBPALETTE (0 1 2 3)\r\n");
}

TEST(ListText, LinesArePaddedAndTimesGetAPoint) {
  ListEntry cue{.bitmap = "bmp00001.bmp",
                .show = "00:00:01,000",
                .hide = "00:00:03,500",
                .width = 412,
                .height = 62,
                .x = 114,
                .y = 469};
  EXPECT_EQ(ListLine(ListForm::Converter, cue), "bmp00001.bmp 00:00:01.000 00:00:03.500 412 062 114 469\r\n");
  EXPECT_EQ(ListLine(ListForm::Mux, cue), "00:00:01.000 00:00:03.500 bmp00001.bmp (114 469 525 530)\r\n");
  cue.x = 5, cue.y = 0, cue.height = 1024;
  EXPECT_EQ(ListLine(ListForm::Converter, cue), "bmp00001.bmp 00:00:01.000 00:00:03.500 412 1024 005 000\r\n");
  EXPECT_EQ(ListLine(ListForm::Mux, cue), "00:00:01.000 00:00:03.500 bmp00001.bmp (005 000 416 1023)\r\n");
}

TEST(ListText, IsReadBackAsItWasWritten) {
  const ListEntry cue{"bmp00001.bmp", "00:00:01,000", "00:00:03,500", 412, 62, 5, 469};
  for (const ListForm form : {ListForm::Converter, ListForm::Mux}) {
    const std::string text = ListHeader(form, kColors, VideoSystem::Pal) + ListLine(form, cue);
    const auto list = form == ListForm::Mux ? ParseMuxList(text, "a") : ParseConverterList(text, "a");
    ASSERT_TRUE(list) << list.error().message;
    const ListedCue& read = list->cues.at(0);
    EXPECT_EQ(read.file, cue.bitmap);
    EXPECT_EQ(read.times, (XsubTimes{1000, 3500}));
    EXPECT_EQ((std::array{read.width, read.height, read.x, read.y}), (std::array{412, 62, 5, 469}));
  }
}

}  // namespace
}  // namespace captoria
