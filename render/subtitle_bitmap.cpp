// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/subtitle_bitmap.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "render/styled_text.h"
#include "subtitles/cue.h"

namespace captoria {
namespace {

// Room for outline and shadow above and below the text.
constexpr int kHeightBesideLines = 25;
constexpr int kBelowText = 5;
constexpr int kWidthBesideText = 4;

constexpr int Even(int length) { return length + length % 2; }

int Clamped(std::int64_t length, int most) { return static_cast<int>(std::clamp<std::int64_t>(length, 1, most)); }

}  // namespace

TrackStyle StyleOfCue(const TrackStyle& track, std::string_view tag) {
  TrackStyle style = track;
  if (const double fitted = FittedSize(tag); track.FitFont && fitted > 0) style.font.size = fitted;
  style.InAlign = ReadPlacement(tag).alignment.value_or(track.InAlign);
  return style;
}

SubtitleBitmap::SubtitleBitmap(std::shared_ptr<FontCollection> fonts, const BitmapFrame& frame)
    : frame_(frame), surface_(std::move(fonts), dib_) {
  dib_.Create(640, 480);
}

int SubtitleBitmap::LineHeight(const Font& font) {
  surface_.SelectFont(font);
  return captoria::LineHeight(surface_);
}

void SubtitleBitmap::SetDibProp(const TrackStyle& style, int lines) { Prepare(style, dib_.Width(), lines); }

void SubtitleBitmap::Prepare(const TrackStyle& style, int width, int lines) {
  const int line_height = LineHeight(style.font);
  const int height = Even(Clamped(std::int64_t{lines} * line_height + kHeightBesideLines, cDIB::kLongestSide));
  if (Even(width) != dib_.Width() || height != dib_.Height()) dib_.Create(Even(width), height);

  dib_.SetColorInPalette16(frame_.back_color, 0);
  dib_.SetColorInPalette16(style.ForeColor, 1);
  dib_.SetColorInPalette16(style.OutlineColor, 2);
  dib_.SetColorInPalette16(style.ShadowColor, 3);
  for (int entry = cDIB::kDrawnEntries; entry < cDIB::kEntries; ++entry) {
    const auto grey = static_cast<std::uint8_t>(entry);
    dib_.SetColorInPalette16({grey, grey, grey}, entry);
  }
  dib_.Cls(frame_.back_color);
  surface_.SetTextColor(style.ForeColor);
}

void SubtitleBitmap::RenderCueBitmap(std::string_view text, const TrackStyle& style) {
  const int outline = style.OutlineWidth, bevel = style.ShadowBevel, offset = std::abs(bevel);
  surface_.SelectFont(style.font);  // sizing begins with the font that is selected
  const int text_width = MeasureStyledText(surface_, text, style.font).width;
  const std::int64_t width = std::int64_t{offset} + text_width + outline + outline + kWidthBesideText;
  Prepare(style, Clamped(width, frame_.width), CountLines(text));

  const Rect rect{.left = bevel < 0 ? offset : bevel + 2 * outline,
                  .top = 0,
                  .right = offset + text_width + 2 * outline,
                  .bottom = dib_.Height() - kBelowText};
  DrawStyledText(surface_, text, rect,
                 {.font = style.font,
                  .outline_width = outline,
                  .outline_color = style.OutlineColor,
                  .alignment = style.InAlign,
                  .right_to_left = style.RightToLeft,
                  .shadow_bevel = bevel,
                  .shadow_color = style.ShadowColor});
}

}  // namespace captoria
