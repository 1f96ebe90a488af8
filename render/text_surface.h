// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The interface that the styled-text engine draws on. The real surface (render/font_surface.h) lays text out with
// fonts; tests use one that records the calls and gives all letters the same width.
#pragma once

#include <string_view>

#include "base/color.h"
#include "base/font.h"
#include "base/geometry.h"

namespace captoria {

// In pixels of the surface; `right` and `bottom` are the first column and row outside.
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

class TextSurface {
 public:
  virtual ~TextSurface() = default;

  // Sets the font for measuring and drawing.
  virtual void SelectFont(const Font& font) = 0;

  // The size of `text` when drawn: its advance, and the height of the selected font's lines. An empty text has no size.
  virtual Size Measure(std::string_view text, bool right_to_left) = 0;

  // Draws `text` in the text colour from the top left corner of `rect`, clipped to the rectangle.
  virtual void Draw(std::string_view text, const Rect& rect, bool right_to_left) = 0;

  // Draws `text` once for every place up to `width` pixels from `rect` in both directions, the unmoved one included,
  // each clipped to the rectangle moved along.
  virtual void DrawSpread(std::string_view text, const Rect& rect, int width, bool right_to_left) = 0;

  virtual Color TextColor() const = 0;
  virtual void SetTextColor(const Color& color) = 0;

  // Sets one of the 16 entries of the surface's colour table; `index` is 0 to 15.
  virtual void SetColorInPalette16(const Color& color, int index) = 0;
};

}  // namespace captoria
