// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "settings/placement.h"

#include <algorithm>
#include <charconv>

#include "settings/number_text.h"

namespace captoria {
namespace {

constexpr std::string_view kLetters = "lcr";  // in the order of Alignment

// The text after the "|", split.
struct OwnPart {
  std::string_view position;
  std::optional<Alignment> alignment;
};

OwnPart OwnPartOf(std::string_view tag) {
  const auto bar = tag.find('|');
  if (bar == tag.npos) return {};
  OwnPart own{tag.substr(bar + 1), {}};
  if (own.position.empty()) return own;
  if (const auto letter = kLetters.find(own.position.back()); letter != kLetters.npos) {
    own.alignment = static_cast<Alignment>(letter);
    own.position.remove_suffix(1);
  }
  return own;
}

}  // namespace

char LetterOf(Alignment alignment) { return kLetters[static_cast<std::size_t>(alignment)]; }

Placement ReadPlacement(std::string_view tag) {
  const OwnPart own = OwnPartOf(tag);
  Placement placement{{}, own.alignment};
  int position = 0;
  const auto* const end = own.position.data() + own.position.size();
  if (std::from_chars(own.position.data(), end, position).ec == std::errc{}) placement.position = position;
  return placement;
}

std::string WithPlacement(std::string_view tag, const Placement& placement) {
  std::string own;
  if (placement.position) own += std::to_string(*placement.position);
  if (placement.alignment) own += LetterOf(*placement.alignment);
  return WithPlacementText(tag, own);
}

std::string WithPlacementText(std::string_view tag, std::string_view own) {
  std::string text{FittingPart(tag)};
  text += '|';
  text += own;
  return text;
}

std::string WithOwnAlignment(std::string_view tag, Alignment alignment) {
  std::string own{OwnPartOf(tag).position};
  own += LetterOf(alignment);
  return WithPlacementText(tag, own);
}

std::string_view FittingPart(std::string_view tag) { return tag.substr(0, tag.find('|')); }

std::string WithFittingPart(std::string_view tag, std::string_view fitting) {
  std::string text{fitting};
  text += tag.substr(FittingPart(tag).size());
  return text;
}

double FittedSize(std::string_view tag) {
  std::string fitting{FittingPart(tag)};
  std::ranges::replace(fitting, ',', '.');
  return NumberOfText(fitting);
}

}  // namespace captoria
