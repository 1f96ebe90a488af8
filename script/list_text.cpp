// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "script/list_text.h"

#include <algorithm>

#include "base/ascii.h"

namespace captoria {
namespace {

// "(255, 255, 255)"
std::string Components(const Color& color) {
  return "(" + std::to_string(color.red) + ", " + std::to_string(color.green) + ", " + std::to_string(color.blue) + ")";
}

std::string ThreeDigits(int number) {
  constexpr std::size_t kDigits = 3;
  const std::string digits = std::to_string(number);
  return std::string(kDigits - std::min(digits.size(), kDigits), '0') + digits;
}

std::string WithPoint(std::string_view time) {
  std::string text{time};
  std::ranges::replace(text, ',', '.');
  return text;
}

// The entries 1 to 3, with `between` after each number.
std::string PaletteLines(const ListColors& colors, std::string_view between) {
  std::string lines;
  int number = 1;
  for (const Color& color : colors)
    lines += (std::to_string(number++).append(between) + Components(color)).append(kCrLf);
  return lines;
}

}  // namespace

std::string ListHeader(ListForm form, const ListColors& colors, VideoSystem system) {
  if (form == ListForm::Mux) {
    return "0 = (0, 0, 0)\r\n" + PaletteLines(colors, " = ") + "\r\nSUBPALETTE (0 1 2 3)\r\n";
  }
  return std::string{"[HEADER]\r\nTITLE\r\nFRAMERATE "}.append(NameOf(system)) +
         "\r\nDROPFRAME NO\r\nCONTRAST    (0 15 15 15)\r\nCOLOR       (0 2 1 3)\r\n\r\n"
         "[PALETTE]\r\n0 (0, 0, 255)\r\n" +
         PaletteLines(colors, " ") + "\r\n[LIST]\r\n";
}

std::string ListLine(ListForm form, const ListEntry& cue) {
  const std::string times = WithPoint(cue.show) + " " + WithPoint(cue.hide);
  std::string line;
  if (form == ListForm::Mux) {
    line = times + " " + std::string{cue.bitmap} + " (" + ThreeDigits(cue.x) + " " + ThreeDigits(cue.y) + " " +
           ThreeDigits(cue.x + cue.width - 1) + " " + ThreeDigits(cue.y + cue.height - 1) + ")";
  } else {
    line = std::string{cue.bitmap} + " " + times + " " + ThreeDigits(cue.width) + " " + ThreeDigits(cue.height) + " " +
           ThreeDigits(cue.x) + " " + ThreeDigits(cue.y);
  }
  return line.append(kCrLf);
}

}  // namespace captoria
