// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A cue's text with its markup, measured and drawn.
//
// Lines are separated by CR LF. Six tags change the style from where they stand: <b> <i> </b> </i> <font ...> </font>,
// in small letters and just so; anything else between angle brackets is text. Tags are not matched in pairs.
//
// Drawing and sizing read the tags by slightly different rules, and that is meant: films made by either rule have to
// stay the same. Drawing begins every line in the track's own style and goes back to the track's own bold and italic
// at a closing tag; sizing carries the style on from line to line and switches bold and italic off at a closing tag.
#pragma once

#include <string_view>

#include "base/color.h"
#include "base/geometry.h"
#include "render/text_surface.h"
#include "settings/placement.h"
#include "settings/track_style.h"

namespace captoria {

// The height of a line in the selected font, in pixels.
int LineHeight(TextSurface& surface);

// Everything a cue is drawn with besides its text.
struct DrawingStyle {
  Font font;
  int outline_width = 0;  // 0 to 4 pixels; 0 still draws the text once in the outline colour, below itself
  Color outline_color;
  Alignment alignment{};  // of the lines inside the block; the block as a whole is centred in the rectangle
  bool right_to_left = false;
  int shadow_bevel = 0;  // pixels right and down, negative left and up; 0 draws no shadow
  Color shadow_color;
};

// Draws `text` with its last line ending 3 pixels above the bottom of `rect`, in the surface's text colour. That colour
// is the same afterwards; the font is the last one a tag asked for, and colour-table entry 3 holds the last colour of a
// <font color=...> tag, in which all runs of such tags appear.
void DrawStyledText(TextSurface& surface, std::string_view text, const Rect& rect, const DrawingStyle& style);

// The room `text` takes by the sizing rules: the width of its widest line and the height of all its lines, 0 when
// nothing was measured.
Size MeasureStyledText(TextSurface& surface, std::string_view text, const Font& font);

struct TextFit {
  bool fits = false;
  bool has_font_tag = false;  // an opening <font ...> tag that is closed by ">"
};

// Whether `text` fits `area` by the sizing rules, where the height counts one line less than there are.
TextFit StyledTextFits(TextSurface& surface, std::string_view text, const Size& area, const Font& font);

}  // namespace captoria
