// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Where one cue goes when it does not go where its track says. A cue keeps this as text, in its `Tag`: "18|55r" is
// drawn at 18 points so that it fits, 55 pixels above the bottom of the frame, its lines flush right.
//
// The text before the first "|" is the fitting part; the own placement stands behind it. Whoever writes one of the two
// leaves the other as it is.
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

// What a cue has of its own. For a value that is absent, the track's applies.
struct Placement {
  std::optional<int> position;         // whole pixels above the bottom of the frame
  std::optional<Alignment> alignment;  // of the lines within the text block
};

// The placement in `tag`; nothing of its own without a "|". A position that is no number, or none an int can hold, is
// absent.
Placement ReadPlacement(std::string_view tag);

// `tag` with `placement` as its whole own placement: what is absent there is dropped here.
std::string WithPlacement(std::string_view tag, const Placement& placement);

// The same with the text to stand behind the "|", for commands that may carry any text.
std::string WithPlacementText(std::string_view tag, std::string_view own);

// `tag` with another alignment. Its own position stays, letter by letter.
std::string WithOwnAlignment(std::string_view tag, Alignment alignment);

std::string_view FittingPart(std::string_view tag);

// `tag` with another fitting part, without "|" where it had none.
std::string WithFittingPart(std::string_view tag, std::string_view fitting);

// The font size of the fitting part in points, 0 when the cue was not fitted. Its decimal point may be a comma, as
// some locales write it.
double FittedSize(std::string_view tag);

}  // namespace captoria
