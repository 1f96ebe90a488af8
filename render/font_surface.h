// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The surface that draws subtitles: text in real fonts, without smoothing, into a cDIB.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "render/coverage.h"
#include "render/dib.h"
#include "render/text_shaper.h"
#include "render/text_surface.h"

namespace captoria {

class FontSurface final : public TextSurface {
 public:
  // `dib` must outlive the surface. It may be created again at any time.
  FontSurface(std::shared_ptr<FontCollection> collection, cDIB& dib);

  void SelectFont(const Font& font) override;
  Size Measure(std::string_view text, bool right_to_left) override;
  void Draw(std::string_view text, const Rect& rect, bool right_to_left) override;
  void DrawSpread(std::string_view text, const Rect& rect, int width, bool right_to_left) override;
  Color TextColor() const override { return text_color_; }
  void SetTextColor(const Color& color) override { text_color_ = color; }
  void SetColorInPalette16(const Color& color, int index) override { dib_.SetColorInPalette16(color, index); }

  // Covers everything measured or drawn so far.
  const FontReport& Report() const { return shaper_.Report(); }

 private:
  // A piece of text in one font, laid out once for measuring, shadow, outline and letters.
  struct Run {
    ShapedText shaped;
    LineMetrics metrics;  // of the chosen font
  };

  // The coverage of the run that was drawn last. Its shadow, outline and letters are drawn one after the other, so one
  // mask is enough.
  struct Mask {
    const Run* run = nullptr;
    Rect covered;  // the part of the run that `coverage` shows; its origin is the top left corner of the line
    Coverage coverage;
  };

  // A font that has been selected at least once.
  struct KnownFont {
    Font font;
    LineMetrics metrics;
  };

  const Run& RunOf(std::string_view text, bool right_to_left);

  // The coverage of at least the part `wanted` of `run`; valid until the next call.
  const Coverage& MaskOf(const Run& run, const Rect& wanted);

  // The coverage of `text` drawn at `rect`, clipped to the rectangle and to the bitmap with a margin of `margin`
  // pixels.
  Coverage CoverageOf(std::string_view text, const Rect& rect, int margin, bool right_to_left);

  cDIB& dib_;
  TextShaper shaper_;
  Color text_color_;
  std::vector<KnownFont> fonts_;
  std::size_t font_ = 0;         // index of the selected font
  std::size_t shaper_font_ = 0;  // index of the shaper's font, which changes only when text has to be laid out
  std::unordered_map<std::string, Run> runs_;
  std::size_t runs_size_ = 0;  // estimated bytes
  Mask mask_;
};

}  // namespace captoria
