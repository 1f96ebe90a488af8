// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Measures and draws a cue's text with its markup.
//
// Lines are separated by CR LF. Six tags change the style of the text after them: <b> <i> </b> </i> <font ...> </font>,
// in small letters and in exactly this form; anything else in angle brackets is text. Tags need not come in pairs.
//
// Drawing and sizing interpret the tags by slightly different rules on purpose, so that the bitmaps of a film never
// change. Drawing starts every line in the track's own style, and a closing tag restores the track's own bold or
// italic. Sizing carries the style from line to line, and a closing tag switches bold or italic off.
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

// How the text of a cue is drawn.
struct DrawingStyle {
  Font font;
  int outline_width = 0;  // 0 to 4 pixels; with 0 the text is still drawn once in the outline colour, below itself
  Color outline_color;
  Alignment alignment{};  // of the lines inside the block; the block as a whole is centred in the rectangle
  bool right_to_left = false;
  int shadow_bevel = 0;  // pixels right and down, negative left and up; 0 draws no shadow
  Color shadow_color;
};

// Draws `text` in the surface's text colour; its last line ends 3 pixels above the bottom of `rect`. Afterwards the
// text colour is the same as before, and the selected font is the one that the last tag asked for. Colour-table entry 3
// holds the colour of the last <font color=...> tag, in which the text of all such tags appears.
void DrawStyledText(TextSurface& surface, std::string_view text, const Rect& rect, const DrawingStyle& style);

// The room `text` takes by the sizing rules: the width of its widest line and the height of all its lines, 0 when
// nothing was measured.
Size MeasureStyledText(TextSurface& surface, std::string_view text, const Font& font);

struct TextFit {
  bool fits = false;
  bool has_font_tag = false;  // the text has an opening <font ...> tag that is closed by ">"
};

// Whether `text` fits `area` by the sizing rules. Its height counts one line less than it has.
TextFit StyledTextFits(TextSurface& surface, std::string_view text, const Size& area, const Font& font);

}  // namespace captoria
