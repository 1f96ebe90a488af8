// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What the styled-text engine needs of whatever it draws on. The real surface (render/font_surface.h) lays text out
// with fonts; tests record the calls on one whose letters all have the same width.
#pragma once

#include <string_view>

#include "base/color.h"
#include "settings/track_style.h"

namespace captoria {

// In pixels of the surface; right and bottom are the first column and row outside.
struct Rect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  Rect Moved(int dx, int dy) const { return {left + dx, top + dy, right + dx, bottom + dy}; }
  bool operator==(const Rect&) const = default;
};

// How a piece of text is laid out; combined by "|". Text is never broken into lines here, so left and centre differ
// only in name, but a surface is told which of them its caller works with.
using TextFlags = unsigned;
inline constexpr TextFlags kLeft = 0;
inline constexpr TextFlags kCenter = 0x1;
inline constexpr TextFlags kWordBreak = 0x10;
inline constexpr TextFlags kCalculateRectangle = 0x400;
inline constexpr TextFlags kRightToLeftReading = 0x20000;

class TextSurface {
 public:
  virtual ~TextSurface() = default;

  // The font of all measuring and drawing from now on.
  virtual void SelectFont(const Font& font) = 0;

  // The rectangle `text` takes when drawn from the left top corner of `rect`: as wide as its advance, as high as the
  // selected font's lines; an empty text has no height.
  virtual Rect Measure(std::string_view text, const Rect& rect, TextFlags flags) = 0;

  // Draws `text` in the text colour from the left top corner of `rect`, clipped to it.
  virtual void Draw(std::string_view text, const Rect& rect, TextFlags flags) = 0;

  // Draws `text` once for every place up to `width` pixels from `rect` in both directions, the unmoved one included,
  // each clipped to the rectangle moved along. A surface that can do this faster may, with the same pixels.
  virtual void DrawSpread(std::string_view text, const Rect& rect, int width, TextFlags flags) {
    for (int dx = -width; dx <= width; ++dx) {
      for (int dy = -width; dy <= width; ++dy) Draw(text, rect.Moved(dx, dy), flags);
    }
  }

  virtual Color TextColor() const = 0;
  virtual void SetTextColor(const Color& color) = 0;

  // Sets one of the 16 entries of the surface's colour table; `index` is 0 to 15.
  virtual void SetColorInPalette16(const Color& color, int index) = 0;
};

}  // namespace captoria
