// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/styled_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <limits>
#include <string>
#include <vector>

namespace captoria {
namespace {

using testing::ElementsAre;
using Texts = std::vector<std::string>;

// A surface that notes what is asked of it. A byte is 10 pixels wide, 12 in bold, and 1 more in italic; a line is as
// high as the font has points.
class RecordingSurface : public TextSurface {
 public:
  // "abc/b" is abc in bold, "abc/" in the plain font. Fills and everything else that is drawn once are "abc/b@10,20
  // FF8000"; an outline has its width in front: "4*abc/b@10,20 000000".
  std::vector<std::string> drawn;
  std::vector<std::string> measured;
  std::vector<std::string> palette;  // "3=FF8000"
  std::vector<bool> right_to_left;   // of each call
  Rect drawn_at;
  Font font;

  void SelectFont(const Font& selected) override { font = selected; }

  Size Measure(std::string_view text, bool reading) override {
    measured.push_back(Styled(text));
    right_to_left.push_back(reading);
    const int advance = (font.bold ? 12 : 10) + (font.italic ? 1 : 0);
    return {advance * static_cast<int>(text.size()), text.empty() ? 0 : static_cast<int>(font.size)};
  }

  void Draw(std::string_view text, const Rect& rect, bool reading) override {
    drawn.push_back(Place(text, rect));
    right_to_left.push_back(reading);
    drawn_at = rect;
  }

  void DrawSpread(std::string_view text, const Rect& rect, int width, bool reading) override {
    right_to_left.push_back(reading);
    drawn.push_back(std::to_string(width) + "*" + Place(text, rect));
  }

  Color TextColor() const override { return color_; }
  void SetTextColor(const Color& color) override { color_ = color; }
  void SetColorInPalette16(const Color& color, int index) override {
    palette.push_back(std::to_string(index) + "=" + Hex(color));
  }

 private:
  std::string Styled(std::string_view text) const {
    return std::string{text} + "/" + (font.bold ? "b" : "") + (font.italic ? "i" : "");
  }

  std::string Place(std::string_view text, const Rect& rect) const {
    return Styled(text) + "@" + std::to_string(rect.left) + "," + std::to_string(rect.top) + " " + Hex(color_);
  }

  static std::string Hex(const Color& color) {
    char text[7];
    std::snprintf(text, sizeof text, "%02X%02X%02X", color.red, color.green, color.blue);
    return text;
  }

  Color color_{255, 255, 255};
};

constexpr auto RowName = [](const auto& row) { return std::string{row.param.name}; };

constexpr Rect kArea{0, 0, 1000, 203};
constexpr Color kShadow{17, 0, 0}, kOutline{0, 34, 0}, kWhite{255, 255, 255};

Font TestFont(std::string_view style = "") {
  return {.name = "Sans",
          .size = 20,
          .bold = style.find('b') != style.npos,
          .italic = style.find('i') != style.npos,
          .charset = 1};
}

DrawingStyle TestStyle(std::string_view style = "") {
  DrawingStyle drawing;
  drawing.font = TestFont(style);
  drawing.outline_color = kOutline;
  drawing.shadow_color = kShadow;
  return drawing;
}

// Without a shadow, a run is drawn as its outline and its fill.
Texts Fills(const RecordingSurface& surface) {
  Texts fills;
  for (std::size_t i = 1; i < surface.drawn.size(); i += 2) fills.push_back(surface.drawn[i]);
  return fills;
}

struct DrawnRow {
  const char* name;
  std::string_view own_style;
  std::string_view text;
  Texts fills;  // without their places
};

class DrawnRuns : public testing::TestWithParam<DrawnRow> {};

TEST_P(DrawnRuns, HaveTheStyleAndColorOfTheirTags) {
  RecordingSurface surface;
  DrawStyledText(surface, GetParam().text, kArea, TestStyle(GetParam().own_style));
  Texts fills;
  for (const std::string& fill : Fills(surface)) {
    const std::string color = fill.substr(fill.rfind(' '));
    fills.push_back(fill.substr(0, fill.rfind('@')) + (color == " FFFFFF" ? "" : color));
  }
  EXPECT_EQ(fills, GetParam().fills);
  EXPECT_EQ(surface.TextColor(), kWhite) << "the colour is put back";
}

INSTANTIATE_TEST_SUITE_P(
    Tags, DrawnRuns,
    testing::Values(
        DrawnRow{"EmptyCueDrawsNothing", "", "", {}}, DrawnRow{"EmptyLinesDrawNothing", "", "\r\n", {}},
        DrawnRow{"TagsAreNotDrawn", "", "a<b>b</b>c<i>d</i>e", {"a/", "b/b", "c/", "d/i", "e/"}},
        DrawnRow{"ClosingTagAtTheEnd", "", "abc</b>", {"abc/"}},
        DrawnRow{"OtherTagsAreText", "", "<u>x</u><B>y</B><font>z", {"<u>x</u><B>y</B><font>z/"}},
        DrawnRow{"TagsNeedNoPartner", "", "<b><i>a</b>b</font>c", {"a/bi", "b/i", "c/"}},
        DrawnRow{"TagsMayOverlap", "", "<<b>a<b<i>c", {"</", "a<b/b", "c/bi"}},
        DrawnRow{"BoldWaitsForItsTag", "", "<i>a</i>b<font x>c<b>d", {"a/i", "b/", "c/", "d/b"}},
        DrawnRow{"LinesBeginInTheOwnStyle", "", "<b><i>a\r\nb", {"a/bi", "b/"}},
        DrawnRow{"BoldTrackStaysBold", "b", "a<i>b</b>c</i>d</font>e", {"a/b", "b/bi", "c/bi", "d/b", "e/b"}},
        DrawnRow{"ItalicTrackStaysItalic", "i", "a</i>b<b>c</b>d", {"a/i", "b/i", "c/bi", "d/i"}},
        DrawnRow{"FontTagsEndItalic", "", "<i>a<font x>b<i>c</font>d", {"a/i", "b/", "c/i", "d/"}},
        DrawnRow{"FontTagsKeepBold", "", "<b>a<font x>b</font>c", {"a/b", "b/b", "c/b"}},
        DrawnRow{"LoneLineFeedIsText", "", "a\nb\rc", {"a\nb\rc/"}},
        DrawnRow{"OpenFontTagLosesSixLetters", "", "a<font color=red", {"a/", "color=red/"}},
        DrawnRow{"FontTagEndsAtTheFirstBracket", "", "<font <b>x>y", {"x>y/"}},
        DrawnRow{
            "ColorLastsToItsEnd", "", "a<font color=#FF8000>b<b>c</font>d", {"a/", "b/ FF8000", "c/b FF8000", "d/b"}},
        DrawnRow{"NextFontTagTakesTheColorBack", "", "<font color=#FF0000>a<font size=2>b", {"a/", "b/"}},
        DrawnRow{"LinesBeginInTheBaseColor", "", "<font color=#FF0000>a\r\nb", {"a/ FF0000", "b/"}},
        DrawnRow{"ColorHashInQuotes", "", "<font color=\"#ff8000\">x", {"x/ FF8000"}},
        DrawnRow{"ColorCapitalAttribute", "", "<font COLOR=FF8000>x", {"x/ FF8000"}},
        DrawnRow{"ColorMoreAttributesBehind", "", "<font color=#00FF00 size=2>x", {"x/ 00FF00"}},
        DrawnRow{"ColorAnotherAttributeFirst", "", "<font face=\"y\" color=#FF0000>x", {"x/"}},
        DrawnRow{"ColorSecondBlank", "", "<font  color=#FF0000>x", {"x/"}},
        DrawnRow{"ColorMissingPairs", "", "<font color=#12>x", {"x/ 120000"}},
        DrawnRow{"ColorHalfAPair", "", "<font color=#12345>x", {"x/ 123405"}},
        DrawnRow{"ColorNoDigits", "", "<font color=>x", {"x/ 000000"}},
        DrawnRow{"ColorPairEndsAtANonDigit", "", "<font color=1g-2 3>x", {"x/ 010000"}},
        DrawnRow{"ColorLongCharacterTakesOnePlace", "", "<font color=1\xC3\xA9z233>x", {"x/ 010033"}}),
    RowName);

TEST(FontColors, LastOneOfTheCueStaysInTheTable) {
  RecordingSurface surface;
  DrawStyledText(surface, "<font color=#FF0000>a</font>\r\n<font color=#0000FF>b</font>", kArea, TestStyle());
  EXPECT_EQ(surface.palette.back(), "3=0000FF");
}

struct SizedRow {
  const char* name;
  std::string_view own_style;
  std::string_view text;
  Texts runs;
  int width, height;
};

class SizedRuns : public testing::TestWithParam<SizedRow> {};

TEST_P(SizedRuns, FollowTheSizingRules) {
  RecordingSurface surface;
  surface.SelectFont(TestFont(GetParam().own_style));
  const Size size = MeasureStyledText(surface, GetParam().text, TestFont(GetParam().own_style));
  EXPECT_EQ(surface.measured, GetParam().runs);
  EXPECT_EQ(size.width, GetParam().width);
  EXPECT_EQ(size.height, GetParam().height);
}

INSTANTIATE_TEST_SUITE_P(
    Tags, SizedRuns,
    testing::Values(SizedRow{"EmptyCue", "", "", {}, 0, 0}, SizedRow{"OnlyEmptyLines", "", "\r\n\r\n", {}, 0, 0},
                    SizedRow{"EmptyLinesCountInTheHeight", "", "ab\r\n\r\n", {"ab/"}, 20, 60},
                    SizedRow{"WidestLineCounts", "", "ab\r\nabc\r\na", {"ab/", "abc/", "a/"}, 30, 60},
                    SizedRow{"RunsAddUp", "", "a<b>b</b>c<i>d</i>e", {"a/", "b/b", "c/", "d/i", "e/"}, 53, 20},
                    SizedRow{"StyleRunsOnIntoTheNextLine", "", "<b>a\r\nb", {"a/b", "b/b"}, 12, 40},
                    SizedRow{"BoldTrackLosesBold", "b", "a</b>b<i>c", {"a/b", "b/", "c/i"}, 33, 20},
                    SizedRow{"FontEndGivesBoldBack", "b", "a</b>b</font>c", {"a/b", "b/", "c/b"}, 34, 20},
                    SizedRow{"ItalicTrackLosesItalic", "i", "a</i>b</font>c", {"a/i", "b/", "c/i"}, 32, 20},
                    SizedRow{"FontTagKeepsItalic", "", "<i>a<font x>b</font>c", {"a/i", "b/i", "c/"}, 32, 20},
                    SizedRow{"BoldOfTheTagOutlastsAFontEnd", "", "<b>a</font>b", {"a/b", "b/b"}, 24, 20},
                    SizedRow{"BoldBeginsAtAFontTagBeforeIt", "", "a<font x>b<b>c", {"a/", "b/b", "c/b"}, 34, 20},
                    SizedRow{"BoldWaitsBehindOtherTags", "", "a<i>b</font>c<b>d", {"a/", "b/i", "c/", "d/b"}, 43, 20}),
    RowName);

TEST(Sizing, LastHeightThatWasMeasuredCountsForAllLines) {
  RecordingSurface surface;
  surface.font.size = 50;  // the selected one; that of the track is 20 points
  EXPECT_EQ(MeasureStyledText(surface, "a", TestFont()).height, 50);
  surface.font.size = 50;
  EXPECT_EQ(MeasureStyledText(surface, "a</b>b</b>\r\n", TestFont()).height, 40);
}

struct FitRow {
  const char* name;
  std::string_view text;
  int width, height;
  bool fits, has_font_tag;
};

class Fitting : public testing::TestWithParam<FitRow> {};

TEST_P(Fitting, CountsOneLineLess) {
  RecordingSurface surface;
  surface.SelectFont(TestFont());
  const TextFit fit = StyledTextFits(surface, GetParam().text, {GetParam().width, GetParam().height}, TestFont());
  EXPECT_EQ(fit.fits, GetParam().fits);
  EXPECT_EQ(fit.has_font_tag, GetParam().has_font_tag);
}

INSTANTIATE_TEST_SUITE_P(Texts, Fitting,
                         testing::Values(FitRow{"EmptyFitsAnywhere", "", 0, 0, true, false},
                                         FitRow{"OneLineNeedsNoHeight", "abc", 30, 0, true, false},
                                         FitRow{"OnePixelTooWide", "abc", 29, 100, false, false},
                                         FitRow{"ThreeLinesNeedTwo", "a\r\nb\r\nc", 30, 40, true, false},
                                         FitRow{"OnePixelTooHigh", "a\r\nb\r\nc", 30, 39, false, false},
                                         FitRow{"BoldRunsOnAndIsTooWide", "<b>\r\nabc", 30, 40, false, false},
                                         FitRow{"FontTag", "\r\na<font x>b", 20, 40, true, true},
                                         FitRow{"FontTagThatIsNotClosed", "<font x", 100, 40, true, false},
                                         FitRow{"FontEndIsNone", "a</font>", 100, 40, true, false}),
                         RowName);

struct PlaceRow {
  const char* name;
  Alignment alignment;
  int left, right;
  std::string_view text;
  Texts places;
};

class Placing : public testing::TestWithParam<PlaceRow> {};

TEST_P(Placing, AlignsTheLinesInsideACentredBlock) {
  RecordingSurface surface;
  DrawingStyle style = TestStyle();
  style.alignment = GetParam().alignment;
  DrawStyledText(surface, GetParam().text, {GetParam().left, -50, GetParam().right, 203}, style);
  Texts places;
  for (const std::string& fill : Fills(surface)) {
    const auto at = fill.find('@') + 1;
    places.push_back(fill.substr(at, fill.find(' ') - at));
  }
  EXPECT_EQ(places, GetParam().places);
  EXPECT_EQ(surface.drawn_at.right, GetParam().right);
  EXPECT_EQ(surface.drawn_at.bottom, 203);
}

// The lowest line stands at 203 - 3 - 20 = 180.
INSTANTIATE_TEST_SUITE_P(
    Lines, Placing,
    testing::Values(PlaceRow{"Right", Alignment::Right, 10, 310, "abcdefghij\r\nabcdef", {"110,160", "150,180"}},
                    PlaceRow{"Left", Alignment::Left, 10, 310, "abcdefghij\r\nabcdef", {"110,160", "110,180"}},
                    PlaceRow{"Center", Alignment::Center, 10, 310, "abcdefghij\r\nabcdef", {"110,160", "130,180"}},
                    PlaceRow{"RunsFollowEachOther",
                             Alignment::Left,
                             0,
                             86,
                             "a<b>bc</b>d\r\n<i>e",
                             {"21,160", "31,160", "55,160", "21,180"}},
                    PlaceRow{"EmptyLinesTakeTheirHeight", Alignment::Left, 0, 10, "a\r\n\r\nb\r\n", {"0,120", "0,160"}},
                    PlaceRow{"HalfDownToEven", Alignment::Left, 0, 15, "a", {"2,180"}},
                    PlaceRow{"HalfUpToEven", Alignment::Center, 0, 17, "a", {"4,180"}},
                    PlaceRow{"HalfOfTheSumIsRounded", Alignment::Right, 1, 16, "a", {"4,180"}},
                    PlaceRow{"NegativeHalfDown", Alignment::Left, 0, 7, "a", {"-2,180"}},
                    PlaceRow{"NegativeHalfUp", Alignment::Left, 0, 9, "a", {"0,180"}}),
    RowName);

struct LayerRow {
  const char* name;
  int outline_width, bevel;
  Texts drawn;  // of two runs
};

class Layers : public testing::TestWithParam<LayerRow> {};

TEST_P(Layers, AreDrawnFromBackToFront) {
  RecordingSurface surface;
  DrawingStyle style = TestStyle();
  style.outline_width = GetParam().outline_width;
  style.shadow_bevel = GetParam().bevel;
  DrawStyledText(surface, "a<b>b", {0, 0, 22, 23}, style);
  EXPECT_EQ(surface.drawn, GetParam().drawn);
}

INSTANTIATE_TEST_SUITE_P(Styles, Layers,
                         testing::Values(LayerRow{"NoneLeavesTheOutlineOnce",
                                                  0,
                                                  0,
                                                  {"0*a/@0,0 002200", "a/@0,0 FFFFFF", "0*b/b@10,0 002200",
                                                   "b/b@10,0 FFFFFF"}},
                                         LayerRow{"ShadowBeyondTheOutline",
                                                  3,
                                                  2,
                                                  {"a/@5,5 110000", "3*a/@0,0 002200", "a/@0,0 FFFFFF",  //
                                                   "b/b@15,5 110000", "3*b/b@10,0 002200", "b/b@10,0 FFFFFF"}},
                                         LayerRow{"ShadowLeftAndUp",
                                                  3,
                                                  -2,
                                                  {"a/@-5,-5 110000", "3*a/@0,0 002200", "a/@0,0 FFFFFF",  //
                                                   "b/b@5,-5 110000", "3*b/b@10,0 002200", "b/b@10,0 FFFFFF"}}),
                         RowName);

TEST(Drawing, RightToLeftIsAskedOfTheSurface) {
  RecordingSurface surface;
  DrawingStyle style = TestStyle();
  style.right_to_left = true;
  DrawStyledText(surface, "a", kArea, style);
  EXPECT_THAT(surface.right_to_left, ElementsAre(false, true, true, true, true)) << "all but the height of a line";
}

TEST(Drawing, PlacesBeyondAnIntStayOutsideThePicture) {
  constexpr int kLow = std::numeric_limits<int>::min();
  constexpr int kHigh = std::numeric_limits<int>::max();
  for (const Rect& rect : {Rect{kLow, kLow, kLow, kLow}, Rect{kHigh, kHigh, kHigh, kHigh}}) {
    RecordingSurface surface;
    DrawingStyle style = TestStyle();
    style.shadow_bevel = rect.left;
    DrawStyledText(surface, "abc\r\nd", rect, style);
    EXPECT_EQ(surface.drawn_at.left > 0, rect.left > 0);
    EXPECT_GT(std::abs(surface.drawn_at.left), 100'000'000);
  }
  RecordingSurface surface;
  surface.font.size = kHigh / 4;
  EXPECT_EQ(MeasureStyledText(surface, "a\r\n\r\n\r\n\r\n\r\n", TestFont()).height, kHigh);
}

class ForgetfulSurface : public RecordingSurface {
 public:
  Size Measure(std::string_view, bool) override { return {10, 20}; }
  void Draw(std::string_view, const Rect&, bool) override {}
  void DrawSpread(std::string_view, const Rect&, int, bool) override {}
  void SetColorInPalette16(const Color&, int) override {}
};

struct LongRow {
  const char* name;
  std::string_view piece;
  std::size_t size;
};

class LongLine : public testing::TestWithParam<LongRow> {};

// Searching the rest of the line at every tag would take from ten seconds to minutes here.
TEST_P(LongLine, TakesTimeInProportion) {
  std::string text;
  while (text.size() < GetParam().size) text += GetParam().piece;
  ForgetfulSurface surface;
  const auto start = std::chrono::steady_clock::now();
  MeasureStyledText(surface, text, TestFont());
  DrawStyledText(surface, text, kArea, TestStyle());
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds{5});
}

INSTANTIATE_TEST_SUITE_P(Texts, LongLine,
                         testing::Values(LongRow{"Brackets", "<", 1'000'000}, LongRow{"Bold", "<b>", 1'000'000},
                                         LongRow{"FontTagsThatAreNotClosed", "<font ", 3'000'000},
                                         LongRow{"Colors", "<font color=>", 1'000'000},
                                         LongRow{"FontEnds", "</font>x", 1'000'000}),
                         RowName);

}  // namespace
}  // namespace captoria
