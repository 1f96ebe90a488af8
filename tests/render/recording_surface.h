// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A surface that notes what is asked of it. A byte is 10 pixels wide, 12 in bold, and 1 more in italic; a line is as
// high as the font has points.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "render/text_surface.h"

namespace captoria {

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

}  // namespace captoria
