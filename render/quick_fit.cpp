// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/quick_fit.h"

#include <algorithm>

#include "base/utf8.h"
#include "render/styled_text.h"
#include "subtitles/cue.h"

namespace captoria {
namespace {

// Whether the letter takes its own width wherever it occurs. Combining marks move or widen other letters.
bool IsSimple(std::size_t code) {
  const bool combining = (code >= 0x300 && code < 0x370) || (code >= 0x483 && code < 0x48A);
  return code >= ' ' && code != 0x7F && code != 0xAD && !combining;
}

// The length of the tag for bold or italic at `at`; 0 if there is no such tag.
std::size_t StyleTagLength(std::string_view text, std::size_t at) {
  for (const std::string_view tag : {"<b>", "<i>", "</b>", "</i>"}) {
    if (text.substr(at).starts_with(tag)) return tag.size();
  }
  return 0;
}

}  // namespace

QuickFit::QuickFit(TextSurface& surface, const Font& font, const Size& area) : surface_(surface), font_(font) {
  surface_.SelectFont(font_);
  const int line_height = LineHeight(surface_);
  // Kerning moves letters together far more often than apart; no font adds an eighth to the sum.
  width_ = area.width - area.width / 8;
  most_lines_ = line_height > 0 ? area.height / line_height + 1 : 0;
  for (Advances& advances : advances_) advances.fill(kUnknown);
}

int QuickFit::Measure(std::string_view letter, bool tagged) {
  int widest = 0;
  for (int style = 0; style < (tagged ? 4 : 1); ++style) {
    Font font = font_;
    font.bold = font.bold != ((style & 1) != 0);
    font.italic = font.italic != ((style & 2) != 0);
    surface_.SelectFont(font);
    widest = std::max(widest, surface_.Measure(letter, false).width);
  }
  return widest;
}

int QuickFit::Advance(std::string_view text, std::size_t& at, bool tagged) {
  const std::size_t length = Utf8CharacterLength(text, at);
  if (length != 1 && length != 2) return kUnknown;
  const std::string_view letter = text.substr(at, length);
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(letter[i]); };
  const std::size_t code = length == 1 ? byte(0) : (byte(0) & 0x1Fu) << 6 | (byte(1) & 0x3Fu);
  if (code >= kLetters || !IsSimple(code)) return kUnknown;
  at += length;
  int& advance = advances_[tagged ? 1 : 0][code];
  if (advance == kUnknown) advance = Measure(letter, tagged);
  return advance;
}

bool QuickFit::SurelyFits(std::string_view text) {
  const bool tagged = text.find('<') != text.npos;
  if (tagged && text.find("<font ") != text.npos) return false;
  int lines = 1, width = 0;
  for (std::size_t at = 0; at < text.size();) {
    if (const std::size_t tag = tagged ? StyleTagLength(text, at) : 0; tag > 0) {
      at += tag;
    } else if (text.substr(at).starts_with(kLineBreak)) {
      at += kLineBreak.size();
      width = 0;
      ++lines;
    } else {
      const int advance = Advance(text, at, tagged);
      width += advance;
      if (advance == kUnknown || width > width_) return false;
    }
  }
  return lines <= most_lines_;
}

}  // namespace captoria
