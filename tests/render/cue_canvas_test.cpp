// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/cue_canvas.h"

#include <gtest/gtest.h>

namespace captoria {
namespace {

TEST(CueCanvas, TheBitmapFollowsItsFrameAndTheFontsStay) {
  CueCanvas canvas;
  const auto bitmap = canvas.Bitmap({.width = 720, .back_color = {0, 0, 255}});
  ASSERT_TRUE(bitmap);
  const auto fonts = *canvas.Fonts();
  EXPECT_EQ((*bitmap)->Frame().width, 720);
  const BitmapFrame narrow{.width = 640, .back_color = {1, 2, 3}};
  SubtitleBitmap* const changed = *canvas.Bitmap(narrow);
  EXPECT_EQ(changed->Frame(), narrow);
  EXPECT_EQ(*canvas.Bitmap(narrow), changed) << "made once";
  EXPECT_EQ(*canvas.Fonts(), fonts);
}

}  // namespace
}  // namespace captoria
