// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "base/finding.h"

#include <algorithm>
#include <array>
#include <utility>

namespace captoria {
namespace {

constexpr auto kNames = std::to_array<std::pair<FindingKind, std::string_view>>({
    {FindingKind::ReadingStopped, "reading-stopped"},
    {FindingKind::UndecodableBytes, "undecodable-bytes"},
    {FindingKind::OutsideSafeArea, "outside-safe-area"},
    {FindingKind::MissingGlyph, "missing-glyph"},
    {FindingKind::CommandFault, "command-fault"},
    {FindingKind::StreamLeftOut, "stream-left-out"},
    {FindingKind::DamagedVideo, "damaged-video"},
    {FindingKind::DamagedSubtitle, "damaged-subtitle"},
    {FindingKind::SubtitleChanged, "subtitle-changed"},
    {FindingKind::LargeFilm, "large-film"},
    {FindingKind::NotSaved, "not-saved"},
    {FindingKind::ToolMessage, "tool-message"},
});

}  // namespace

std::string_view NameOf(FindingKind kind) {
  return std::ranges::find(kNames, kind, &std::pair<FindingKind, std::string_view>::first)->second;
}

std::optional<FindingKind> FindingKindOf(std::string_view name) {
  const auto* found = std::ranges::find(kNames, name, &std::pair<FindingKind, std::string_view>::second);
  if (found == kNames.end()) return std::nullopt;
  return found->first;
}

Finding FindingAbout(FindingKind kind, const std::string& file, std::string_view message) {
  const std::string beginning = file + ": ";
  if (message.starts_with(beginning)) message.remove_prefix(beginning.size());
  return {.kind = kind, .file = file, .message = std::string{message}};
}

std::string Describe(const Finding& finding) {
  if (finding.file.empty()) return finding.message;
  if (finding.line == 0) return finding.file + ": " + finding.message;
  return finding.file + ", line " + std::to_string(finding.line) + ": " + finding.message;
}

}  // namespace captoria
