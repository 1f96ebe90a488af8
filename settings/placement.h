// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A cue's own placement, which overrides that of its track. The cue keeps it as text in its `Tag`: "18|55r" is drawn at
// 18 points so that it fits, 55 pixels above the bottom of the frame, with its lines aligned right.
//
// The text before the first "|" is the fitting part, the text after it is the own placement. Writing one of them keeps
// the other.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace captoria {

enum class Alignment { Left, Center, Right };

// The alignment numbered 0, 1 or 2; Right for every other number.
constexpr Alignment AlignmentOf(int number) {
  return number == 0 ? Alignment::Left : number == 1 ? Alignment::Center : Alignment::Right;
}

// "l", "c" or "r", as placements write it.
char LetterOf(Alignment alignment);

// A cue's own values. If a value is absent, the track's applies.
struct Placement {
  std::optional<int> position;         // whole pixels above the bottom of the frame
  std::optional<Alignment> alignment;  // of the lines within the text block
};

// The placement in `tag`; empty without a "|". A position that is not a number, or too large for an int, is absent.
Placement ReadPlacement(std::string_view tag);

// `tag` with its own placement replaced. A value that is absent in `placement` is removed.
std::string WithPlacement(std::string_view tag, const Placement& placement);

// The same with any text to put after the "|", as commands may give it.
std::string WithPlacementText(std::string_view tag, std::string_view own);

// `tag` with another alignment. The text of its own position stays as it is.
std::string WithOwnAlignment(std::string_view tag, Alignment alignment);

std::string_view FittingPart(std::string_view tag);

// `tag` with another fitting part. Adds no "|".
std::string WithFittingPart(std::string_view tag, std::string_view fitting);

// The font size of the fitting part in points, 0 if the cue was not fitted. The decimal point may be a comma, as some
// locales write it.
double FittedSize(std::string_view tag);

}  // namespace captoria
