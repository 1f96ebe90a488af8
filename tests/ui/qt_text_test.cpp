// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/texts/qt_text.h"

#include <gtest/gtest.h>

namespace captoria {
namespace {

TEST(QtText, GoesThereAndBack) {
  for (const std::string text : {"", "a\r\nb", "\xD7\xA9\xCE\xB1", "\xF0\x9F\x99\x82"})
    EXPECT_EQ(FromQt(ToQt(text)), text);
  EXPECT_EQ(FromQt(ToQt(std::string_view{"a\xFF", 2})), "a\xEF\xBF\xBD");
}

}  // namespace
}  // namespace captoria
