// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/subtitle_bitmap.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <random>

#include "settings/settings_values.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Key;

constexpr Color kBlue{0, 0, 255}, kWhite{255, 255, 255};
const std::string kGolden = CAPTORIA_TEST_DATA "/bitmaps/";

std::shared_ptr<FontCollection> Fonts() {
  static const auto fonts = FontCollection::Open().value();
  return fonts;
}

TrackStyle Style(const std::string& font = "Liberation Sans") {
  TrackStyle style = DefaultTrackStyle();
  style.font.name = font;
  return style;
}

TrackStyle With(void (*change)(TrackStyle&), TrackStyle style = Style()) {
  change(style);
  return style;
}

// A drawing that must not change by a pixel. The pictures were looked at when they were made;
// CAPTORIA_WRITE_GOLDEN=1 makes them anew.
struct GoldenRow {
  const char* name;
  std::string text;
  TrackStyle style;
};

class Golden : public testing::TestWithParam<GoldenRow> {};

TEST_P(Golden, IsDrawnPixelByPixel) {
  SubtitleBitmap bitmap(Fonts(), {720, kBlue});
  bitmap.RenderCueBitmap(GetParam().text, GetParam().style);
  EXPECT_THAT(bitmap.Report().missing, IsEmpty());
  const TestFolder folder;
  const std::string golden = kGolden + GetParam().name + ".bmp";
  if (std::getenv("CAPTORIA_WRITE_GOLDEN") != nullptr) {
    EXPECT_TRUE(bitmap.Dib().Save(golden)) << golden;
  }
  ASSERT_TRUE(bitmap.Dib().Save(folder.File("drawn.bmp")));
  EXPECT_TRUE(folder.Get("drawn.bmp") == ReadWholeFile(golden).value_or("")) << golden;
}

INSTANTIATE_TEST_SUITE_P(
    Cues, Golden,
    testing::Values(
        GoldenRow{"PlainTwoLines", "Plain text, two lines,\r\nnothing else.", Style()},
        GoldenRow{"BoldAndItalicRuns", "One <b>bold</b>, one <i>italic</i>,\r\none <b><i>both</i></b>.", Style()},
        GoldenRow{"NoOutline", "No outline", With([](TrackStyle& s) { s.OutlineWidth = 0; })},
        GoldenRow{"WidestOutline", "Outline of four", With([](TrackStyle& s) { s.OutlineWidth = 4; })},
        GoldenRow{"ShadowRightDown", "Shadow", With([](TrackStyle& s) { s.ShadowBevel = 3; })},
        GoldenRow{"ShadowLeftUp", "Shadow", With([](TrackStyle& s) { s.ShadowBevel = -3; })},
        GoldenRow{"AlignedLeft", "Left\r\nand longer", With([](TrackStyle& s) { s.InAlign = Alignment::Left; })},
        GoldenRow{"AlignedRight", "Right\r\nand longer", With([](TrackStyle& s) { s.InAlign = Alignment::Right; })},
        GoldenRow{"FontColour", "White, <font color=\"#FFC040\">amber</font>, white", Style()},
        GoldenRow{"GreekAndCyrillic", "Ελληνικά, русский", Style()},
        GoldenRow{"HebrewRightToLeft", "שלום, 12 abc!", With([](TrackStyle& s) { s.RightToLeft = true; })},
        GoldenRow{"ArabicJoined", "مرحبا بالعالم",
                  With([](TrackStyle& s) { s.RightToLeft = true; }, Style("Noto Sans Arabic"))},
        GoldenRow{"ThaiMarks", "ที่นี่ สวัสดี", Style("Noto Sans Thai")},
        GoldenRow{"Japanese", "日本語テスト", Style("Noto Sans CJK JP")},
        GoldenRow{"SmallSize", "Small and dense: ilI1 rn m", With([](TrackStyle& s) { s.font.size = 9; })}),
    [](const auto& row) { return std::string{row.param.name}; });

TEST(FontSurface, SpreadingAMaskDrawsWhatSingleDrawsWould) {
  constexpr int kWidth = 3;
  // Beside the ordinary place: cut off by the rectangle, and by each edge of the bitmap.
  for (const Rect& rect : {Rect{5, 0, 200, 60}, Rect{5, 0, 60, 40}, Rect{-40, -30, 90, 25}, Rect{150, 40, 500, 75}}) {
    cDIB spread, moved;
    FontSurface spread_surface(Fonts(), spread), moved_surface(Fonts(), moved);
    for (cDIB* dib : {&spread, &moved}) {
      dib->Create(220, 64);
      dib->SetColorInPalette16(kWhite, 1);
    }
    for (FontSurface* surface : {&spread_surface, &moved_surface}) {
      surface->SelectFont(Style().font);
      surface->SetTextColor(kWhite);
      surface->Draw("A fjord, a jetty", rect.Moved(-2, -2), false);
    }
    spread_surface.DrawSpread("A fjord, a jetty", rect, kWidth, false);
    for (int dx = -kWidth; dx <= kWidth; ++dx) {
      for (int dy = -kWidth; dy <= kWidth; ++dy) moved_surface.Draw("A fjord, a jetty", rect.Moved(dx, dy), false);
    }
    for (int y = 0; y < spread.Height(); ++y) ASSERT_TRUE(std::ranges::equal(spread.Row(y), moved.Row(y))) << y;
  }
}

TEST(FontSurface, ARunIsWholeWhereverItIsDrawnNext) {
  const std::string text(40, 'n');  // wider than the bitmap
  cDIB drawn, expected;
  for (cDIB* dib : {&drawn, &expected}) {
    dib->Create(220, 64);
    dib->SetColorInPalette16(kWhite, 1);
  }
  FontSurface surface(Fonts(), drawn), fresh(Fonts(), expected);
  for (FontSurface* each : {&surface, &fresh}) {
    each->SelectFont(Style().font);
    each->SetTextColor(kWhite);
  }
  surface.Draw(text, {-300, 0, 220, 64}, false);
  drawn.Cls({});
  surface.Draw(text, {0, 0, 220, 64}, false);
  fresh.Draw(text, {0, 0, 220, 64}, false);
  for (int y = 0; y < drawn.Height(); ++y) ASSERT_TRUE(std::ranges::equal(drawn.Row(y), expected.Row(y))) << y;
}

TEST(SubtitleBitmap, PicturesOfAColourFontBecomeLines) {
  SubtitleBitmap bitmap(Fonts(), {720, kBlue});
  TrackStyle style = With([](TrackStyle& plain) { plain.OutlineWidth = plain.ShadowBevel = 0; });
  bitmap.RenderCueBitmap("\U0001FAE0", style);  // a face of 2021, which only colour fonts have
  EXPECT_THAT(bitmap.Report().missing, IsEmpty());
  const int all = bitmap.Dib().Width() * bitmap.Dib().Height();
  int drawn = 0;
  for (int y = 0; y < bitmap.Dib().Height(); ++y) {
    const auto row = bitmap.Dib().Row(y);
    drawn += static_cast<int>(std::ranges::count_if(row, [](auto entry) { return entry != 0; }));
  }
  EXPECT_GT(drawn, all / 50) << "its edge, eyes and mouth";
  EXPECT_LT(drawn, all / 4) << "not filled";
  const int width = bitmap.Dib().Width();
  style.font.size *= 2;
  bitmap.RenderCueBitmap("\U0001FAE0", style);
  EXPECT_GT(bitmap.Dib().Width(), width * 3 / 2);
}

TEST(SubtitleBitmap, AThousandRandomCuesUseTheFirstFourEntriesAlone) {
  const std::vector<std::string> pieces{
      "word ", "<b>", "</i>", "<font color=#12FE80>", "</font>", "\r\n", "ÄÖÜ ", "<", "שלום ", "日本 ", "\t",
      "\xFF",  "😀",   "مرحبا"};
  std::mt19937 random(7);
  SubtitleBitmap bitmap(Fonts(), {720, kBlue});
  for (int i = 0; i < 1000; ++i) {
    TrackStyle style = Style();
    for (Color* color : {&style.ForeColor, &style.OutlineColor, &style.ShadowColor}) {
      *color = SplitColour(static_cast<std::int32_t>(random() & 0xFFFFFF));
    }
    style.OutlineWidth = static_cast<int>(random() % 5);
    style.ShadowBevel = static_cast<int>(random() % 21) - 10;
    style.InAlign = AlignmentOf(static_cast<int>(random() % 3));
    style.RightToLeft = random() % 2 == 0;
    style.font.size = static_cast<double>(5 + random() % 40);
    std::string text;
    for (auto count = random() % 12; count > 0; --count) text += pieces[random() % pieces.size()];
    bitmap.RenderCueBitmap(text, style);
    for (int y = 0; y < bitmap.Dib().Height(); ++y) {
      ASSERT_LT(std::ranges::max(bitmap.Dib().Row(y)), cDIB::kDrawnEntries) << "cue " << i;
    }
  }
}

TEST(SubtitleBitmap, HugeCuesAreCutToTheFrame) {
  const auto start = std::chrono::steady_clock::now();
  SubtitleBitmap bitmap(Fonts(), {640, kBlue});
  std::string lines = "first";
  for (int i = 0; i < 199; ++i) lines += "\r\nline";
  bitmap.RenderCueBitmap(lines, Style());
  EXPECT_GT(bitmap.Dib().Height(), 200 * 20);

  TrackStyle huge = Style();
  huge.font.size = 1000;
  huge.ShadowBevel = -32767;
  huge.OutlineWidth = 4;
  bitmap.RenderCueBitmap(lines, huge);
  EXPECT_LE(bitmap.Dib().Height(), cDIB::kLongestSide);

  for (const std::string& text : {std::string(20'000, 'W'), std::string(10'000'000, 'i'), std::string(500'000, '<')}) {
    bitmap.RenderCueBitmap(text, Style());
    EXPECT_EQ(bitmap.Dib().Width(), 640);
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(FontReport, NamesTheFontsUsedAndTheCharactersNoFontHas) {
  SubtitleBitmap bitmap(Fonts(), {720, kBlue});
  bitmap.RenderCueBitmap("abc \xF3\xB0\x80\x81", Style("No Such Font"));
  EXPECT_THAT(bitmap.Report().fonts, Contains(Key("No Such Font")));
  EXPECT_THAT(bitmap.Report().fonts.at("No Such Font"), testing::Not(IsEmpty()));
  EXPECT_THAT(bitmap.Report().missing, ElementsAre(0xF0001)) << "of a private plane";
}

TEST(SubtitleBitmap, FontsWithoutItalicAreSlanted) {
  SubtitleBitmap upright(Fonts(), {720, kBlue}), italic(Fonts(), {720, kBlue});
  TrackStyle style = Style("Noto Sans CJK JP");
  upright.RenderCueBitmap("日", style);
  style.font.italic = true;
  italic.RenderCueBitmap("日", style);
  ASSERT_EQ(upright.Dib().Height(), italic.Dib().Height());
  int changed = 0;
  for (int y = 0; y < upright.Dib().Height(); ++y) {
    changed += std::ranges::equal(upright.Dib().Row(y), italic.Dib().Row(y)) ? 0 : 1;
  }
  EXPECT_GT(changed, 10);
}

TEST(SubtitleBitmap, HanCharactersFollowTheCharacterSet) {
  const auto fonts_of = [](int charset) {
    SubtitleBitmap bitmap(Fonts(), {720, kBlue});
    TrackStyle style = Style();
    style.font.charset = charset;
    bitmap.RenderCueBitmap("直", style);
    return bitmap.Report().fonts;
  };
  EXPECT_NE(fonts_of(128), fonts_of(134)) << "Japanese and Chinese";
}

TEST(SubtitleBitmap, CharactersNoFontHasAreHollowBoxes) {
  SubtitleBitmap bitmap(Fonts(), {720, kBlue});
  bitmap.RenderCueBitmap("\xF3\xB0\x80\x81", With([](TrackStyle& s) { s.OutlineWidth = s.ShadowBevel = 0; }));
  std::vector<std::ptrdiff_t> rows;  // letters' pixels in each row that has any
  for (int y = 0; y < bitmap.Dib().Height(); ++y) {
    if (const auto count = std::ranges::count(bitmap.Dib().Row(y), 1); count > 0) rows.push_back(count);
  }
  ASSERT_GT(rows.size(), 5u);
  EXPECT_GT(rows.front(), 5);
  EXPECT_EQ(rows.back(), rows.front());
  EXPECT_EQ(std::ranges::count(rows, 2), std::ssize(rows) - 2);
}

TEST(StyleOfCue, HeedsTheFittedSizeOnlyWhenTheTrackFits) {
  TrackStyle track = Style();
  EXPECT_EQ(StyleOfCue(track, "12,75|l").font.size, 12.75);
  EXPECT_EQ(StyleOfCue(track, "12,75|l").InAlign, Alignment::Left);
  EXPECT_EQ(StyleOfCue(track, "|40").font.size, 22);
  EXPECT_EQ(StyleOfCue(track, "|40").InAlign, Alignment::Center);
  track.FitFont = false;
  EXPECT_EQ(StyleOfCue(track, "12|r").font.size, 22);
}

}  // namespace
}  // namespace captoria
