// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The surface that subtitles are really drawn on: fonts into a cDIB, without any smoothing.
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
  // `dib` outlives the surface and may be created anew at any time.
  FontSurface(std::shared_ptr<FontCollection> collection, cDIB& dib);

  void SelectFont(const Font& font) override;
  Size Measure(std::string_view text, bool right_to_left) override;
  void Draw(std::string_view text, const Rect& rect, bool right_to_left) override;
  void DrawSpread(std::string_view text, const Rect& rect, int width, bool right_to_left) override;
  Color TextColor() const override { return text_color_; }
  void SetTextColor(const Color& color) override { text_color_ = color; }
  void SetColorInPalette16(const Color& color, int index) override { dib_.SetColorInPalette16(color, index); }

  // Of everything measured or drawn so far.
  const FontReport& Report() const { return shaper_.Report(); }

 private:
  // A piece of text in one font, laid out once for measuring, shadow, outline and letters.
  struct Run {
    ShapedText shaped;
    LineMetrics metrics;  // of the chosen font
  };

  // What the run that was drawn last covers. Its shadow, its outline and its letters are drawn one after the other, so
  // one mask is all there is to keep.
  struct Mask {
    const Run* run = nullptr;
    Rect covered;       // the part of the run that was turned into coverage, from the left end of the line's top
    Coverage coverage;  // of that part
  };

  // A font that was selected before, with its metrics.
  struct KnownFont {
    Font font;
    LineMetrics metrics;
  };

  const Run& RunOf(std::string_view text, bool right_to_left);

  // The coverage of at least the part `wanted` of `run`.
  const Coverage& MaskOf(const Run& run, const Rect& wanted);

  // The coverage of the run drawn at `rect`, clipped to it and to what can show within `margin` pixels of the bitmap.
  Coverage CoverageOf(std::string_view text, const Rect& rect, int margin, bool right_to_left);

  cDIB& dib_;
  TextShaper shaper_;
  Color text_color_;
  std::vector<KnownFont> fonts_;
  std::size_t font_ = 0;         // the selected one
  std::size_t shaper_font_ = 0;  // the one the shaper has; changed only when something has to be laid out
  std::unordered_map<std::string, Run> runs_;
  std::size_t runs_size_ = 0;  // roughly, bytes
  Mask mask_;
};

}  // namespace captoria
