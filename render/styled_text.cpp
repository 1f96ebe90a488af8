// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/styled_text.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

#include "render/markup.h"

namespace captoria {
namespace {

constexpr int kBottomMargin = 3;    // pixels below the last line
constexpr int kFontColorEntry = 3;  // of the surface's colour table

// Sizes are added in 64 bits. Coordinates for the surface are kept away from the limits of an int, so that the surface
// can add to them; nothing is visible that far out.
using Wide = std::int64_t;
constexpr Wide kFarthest = 1 << 29;

int Near(Wide coordinate) { return static_cast<int>(std::clamp(coordinate, -kFarthest, kFarthest)); }

int Saturated(Wide size) {
  return static_cast<int>(std::clamp<Wide>(size, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

enum class Rules { Drawing, Sizing };

// Bold and italic as the tags of a text are reached.
class RunningStyle {
 public:
  RunningStyle(const Font& own, Rules rules) : own_(own), font_(own), rules_(rules) {}

  const Font& Current() const { return font_; }

  void Reset() { font_ = own_; }

  void Reach(const MarkupRun& run) {
    const bool drawing = rules_ == Rules::Drawing;
    switch (run.tag) {
      case MarkupTag::Bold:
        font_.bold = true;
        break;
      case MarkupTag::Italic:
        font_.italic = true;
        break;
      case MarkupTag::BoldEnd:
        font_.bold = drawing && own_.bold;
        break;
      case MarkupTag::ItalicEnd:
        font_.italic = drawing && own_.italic;
        break;
      case MarkupTag::Font:
        ReachFontTag(run);
        break;
      case MarkupTag::FontEnd:
        font_.italic = own_.italic;
        font_.bold = font_.bold || own_.bold;
        break;
      case MarkupTag::None:
        break;
    }
  }

 private:
  // In sizing, a later <b> in the line already takes effect here.
  void ReachFontTag(const MarkupRun& run) {
    if (rules_ == Rules::Drawing) {
      font_.italic = own_.italic;
    } else if (run.bold_ahead) {
      font_.bold = true;
    }
  }

  const Font& own_;
  Font font_;
  Rules rules_;
};

// Visits the runs of a line. A run has the font that was selected before it; its tag selects the font of the next run.
template <typename Visit>
void WalkLine(TextSurface& surface, std::string_view line, RunningStyle& style, Visit visit) {
  MarkupReader reader(line);
  while (const auto run = reader.Next()) {
    style.Reach(*run);
    visit(*run);
    surface.SelectFont(style.Current());
  }
}

class Drawing {
 public:
  Drawing(TextSurface& surface, const Rect& rect, const DrawingStyle& style)
      : surface_(surface),
        rect_(rect),
        style_(style),
        base_color_(surface.TextColor()),
        running_(style.font, Rules::Drawing) {}

  void Draw(std::string_view text);

 private:
  template <typename Visit>
  void WalkDrawnLine(std::string_view line, Visit visit);
  void TakeColors(const MarkupRun& run, Color& color, Color& next);
  Wide LineWidth(std::string_view line);
  Wide LineLeft(Wide line_width, Wide block_width) const;
  void DrawLine(std::string_view line, Wide left, Wide top);
  void DrawRun(std::string_view text, const Rect& at, const Color& color);

  TextSurface& surface_;
  const Rect& rect_;
  const DrawingStyle& style_;
  Color base_color_;
  RunningStyle running_;
};

void Drawing::Draw(std::string_view text) {
  const std::vector<std::string_view> lines = SplitStyledLines(text);
  surface_.SelectFont(style_.font);
  const Wide line_height = LineHeight(surface_);
  if (lines.empty()) return;

  std::vector<Wide> widths;
  widths.reserve(lines.size());
  for (const std::string_view line : lines) widths.push_back(LineWidth(line));
  const Wide block_width = *std::ranges::max_element(widths);
  Wide top = rect_.bottom - static_cast<Wide>(lines.size()) * line_height - kBottomMargin;
  for (std::size_t i = 0; i < lines.size(); ++i, top += line_height) {
    DrawLine(lines[i], LineLeft(widths[i], block_width), top);
  }
  surface_.SetTextColor(base_color_);
}

// Visits the text and the colour of every run of a line. The line begins in the track's own style.
template <typename Visit>
void Drawing::WalkDrawnLine(std::string_view line, Visit visit) {
  running_.Reset();
  surface_.SelectFont(running_.Current());
  Color color = base_color_;
  WalkLine(surface_, line, running_, [&](const MarkupRun& run) {
    Color next = color;
    TakeColors(run, color, next);
    if (!run.text.empty()) visit(run.text, color);
    color = next;
  });
}

// A font tag also resets the colour of the run before it, which an earlier font tag may have set.
void Drawing::TakeColors(const MarkupRun& run, Color& color, Color& next) {
  if (run.tag == MarkupTag::FontEnd) next = base_color_;
  if (run.tag != MarkupTag::Font) return;
  color = next = base_color_;
  if (!run.attributes) return;
  if (const auto own = FontTagColor(*run.attributes)) {
    next = *own;
    surface_.SetColorInPalette16(next, kFontColorEntry);
  }
}

Wide Drawing::LineWidth(std::string_view line) {
  Wide width = 0;
  WalkDrawnLine(
      line, [&](std::string_view text, const Color&) { width += surface_.Measure(text, style_.right_to_left).width; });
  return width;
}

// Half a pixel is rounded to the even neighbour.
Wide Drawing::LineLeft(Wide line_width, Wide block_width) const {
  Wide twice = Wide{rect_.left} + rect_.right;
  switch (style_.alignment) {
    case Alignment::Left:
      twice -= block_width;
      break;
    case Alignment::Center:
      twice -= line_width;
      break;
    case Alignment::Right:
      twice += block_width - 2 * line_width;
      break;
  }
  const Wide below = twice >> 1;
  return below + (twice & below & 1);
}

void Drawing::DrawLine(std::string_view line, Wide left, Wide top) {
  WalkDrawnLine(line, [&](std::string_view text, const Color& color) {
    const Rect at{Near(left), Near(top), Near(rect_.right), Near(rect_.bottom)};
    DrawRun(text, at, color);
    left += surface_.Measure(text, style_.right_to_left).width;
  });
}

void Drawing::DrawRun(std::string_view text, const Rect& at, const Color& color) {
  if (style_.shadow_bevel != 0) {
    const int outline = style_.shadow_bevel > 0 ? style_.outline_width : -style_.outline_width;
    const int offset = Near(Wide{style_.shadow_bevel} + outline);
    surface_.SetTextColor(style_.shadow_color);
    surface_.Draw(text, at.Moved(offset, offset), style_.right_to_left);
  }
  surface_.SetTextColor(style_.outline_color);
  surface_.DrawSpread(text, at, style_.outline_width, style_.right_to_left);
  surface_.SetTextColor(color);
  surface_.Draw(text, at, style_.right_to_left);
}

struct Sizing {
  Wide widest = 0;
  Wide line_height = 0;  // of the last run that is not empty
  Wide lines = 0;
  bool has_font_tag = false;
};

// Starts with the font that is already selected; `font` takes effect after the first tag.
Sizing SizeStyledText(TextSurface& surface, std::string_view text, const Font& font) {
  RunningStyle style(font, Rules::Sizing);
  Sizing sizing;
  for (const std::string_view line : SplitStyledLines(text)) {
    Wide width = 0;
    WalkLine(surface, line, style, [&](const MarkupRun& run) {
      if (run.attributes) sizing.has_font_tag = true;
      if (run.text.empty()) return;
      const Size size = surface.Measure(run.text, false);
      width += size.width;
      sizing.line_height = size.height;
    });
    sizing.widest = std::max(sizing.widest, width);
    ++sizing.lines;
  }
  return sizing;
}

}  // namespace

int LineHeight(TextSurface& surface) { return surface.Measure("Haik", false).height; }

void DrawStyledText(TextSurface& surface, std::string_view text, const Rect& rect, const DrawingStyle& style) {
  Drawing(surface, rect, style).Draw(text);
}

Size MeasureStyledText(TextSurface& surface, std::string_view text, const Font& font) {
  const Sizing sizing = SizeStyledText(surface, text, font);
  return {Saturated(sizing.widest), Saturated(sizing.line_height * sizing.lines)};
}

TextFit StyledTextFits(TextSurface& surface, std::string_view text, const Size& area, const Font& font) {
  const Sizing sizing = SizeStyledText(surface, text, font);
  const Wide height = (sizing.lines - 1) * sizing.line_height;
  return {.fits = height <= area.height && sizing.widest <= area.width, .has_font_tag = sizing.has_font_tag};
}

}  // namespace captoria
