// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/font_surface.h"

#include <algorithm>
#include <utility>

namespace captoria {
namespace {

// Enough for all runs of any sensible cue, so that no run is laid out twice.
constexpr std::size_t kMostRunBytes = std::size_t{2} << 20;

void AddGlyph(const PlacedGlyph& placed, const LineMetrics& metrics, Coverage& coverage) {
  const int baseline = metrics.ascent + placed.y;
  if (placed.face != nullptr) {
    const GlyphBitmap& glyph = placed.face->Glyph(placed.glyph);
    coverage.AddBits(glyph.bits.data(), glyph.width, glyph.rows, glyph.pitch, placed.x + glyph.left,
                     baseline - glyph.top);
    return;
  }
  // A character that no font has is drawn as a hollow box.
  const Rect box{placed.x + 1, baseline - metrics.ascent * 3 / 4, placed.x + static_cast<int>(placed.glyph) - 1,
                 baseline};
  coverage.AddRectangle({box.left, box.top, box.right, box.top + 1});
  coverage.AddRectangle({box.left, box.bottom - 1, box.right, box.bottom});
  coverage.AddRectangle({box.left, box.top, box.left + 1, box.bottom});
  coverage.AddRectangle({box.right - 1, box.top, box.right, box.bottom});
}

}  // namespace

FontSurface::FontSurface(std::shared_ptr<FontCollection> collection, cDIB& dib)
    : dib_(dib), shaper_(std::move(collection)) {
  fonts_.push_back({Font{}, shaper_.Metrics()});
}

void FontSurface::SelectFont(const Font& font) {
  const auto known = std::ranges::find(fonts_, font, &KnownFont::font);
  font_ = static_cast<std::size_t>(known - fonts_.begin());
  if (known != fonts_.end()) return;
  shaper_.Select(font);
  shaper_font_ = font_;
  fonts_.push_back({font, shaper_.Metrics()});
}

const FontSurface::Run& FontSurface::RunOf(std::string_view text, bool right_to_left) {
  std::string key = std::to_string(font_) + (right_to_left ? 'r' : 'l');
  key += text;
  if (const auto known = runs_.find(key); known != runs_.end()) return known->second;

  if (shaper_font_ != font_) {
    shaper_.Select(fonts_[font_].font);
    shaper_font_ = font_;
  }
  Run run{shaper_.Shape(text, right_to_left), fonts_[font_].metrics};
  runs_size_ += key.size() + run.shaped.glyphs.size() * sizeof(PlacedGlyph);
  if (runs_size_ > kMostRunBytes) {
    runs_.clear();
    runs_size_ = 0;
    mask_ = {};
  }
  return runs_.emplace(std::move(key), std::move(run)).first->second;
}

Size FontSurface::Measure(std::string_view text, bool right_to_left) {
  if (text.empty()) return {};
  const Run& run = RunOf(text, right_to_left);
  return {run.shaped.width, run.metrics.Height()};
}

const Coverage& FontSurface::MaskOf(const Run& run, const Rect& wanted) {
  if (mask_.run == &run && Intersection(wanted, mask_.covered) == wanted) return mask_.coverage;
  // A little more than asked for: the run's shadow and outline are a few pixels away and can use the same mask.
  constexpr int kMore = 64;
  mask_.run = &run;
  mask_.covered = {wanted.left - kMore, wanted.top - kMore, wanted.right + kMore, wanted.bottom + kMore};
  const int height = run.metrics.Height();
  // Glyphs of fallback fonts may reach above and below the line.
  mask_.coverage = Coverage(Intersection(mask_.covered, {-height, -height, run.shaped.width + height, 2 * height}));
  for (const PlacedGlyph& glyph : run.shaped.glyphs) AddGlyph(glyph, run.metrics, mask_.coverage);
  return mask_.coverage;
}

Coverage FontSurface::CoverageOf(std::string_view text, const Rect& rect, int margin, bool right_to_left) {
  const Rect visible = Intersection(rect, {-margin, -margin, dib_.Width() + margin, dib_.Height() + margin});
  if (text.empty() || IsEmpty(visible)) return {};
  const Rect wanted = visible.Moved(-rect.left, -rect.top);
  return MaskOf(RunOf(text, right_to_left), wanted).Clipped(visible, rect.left, rect.top);
}

void FontSurface::Draw(std::string_view text, const Rect& rect, bool right_to_left) {
  CoverageOf(text, rect, 0, right_to_left).Paint(dib_, dib_.NearestEntry(text_color_));
}

void FontSurface::DrawSpread(std::string_view text, const Rect& rect, int width, bool right_to_left) {
  CoverageOf(text, rect, width, right_to_left).Spread(width).Paint(dib_, dib_.NearestEntry(text_color_));
}

}  // namespace captoria
