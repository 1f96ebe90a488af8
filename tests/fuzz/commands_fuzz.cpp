// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "automation/command_file.h"
#include "base/utf8.h"

namespace {

using namespace captoria;

// What was read is what is written of it, but for a number of lines below 1.
void CheckSelect(SelectRule rule, std::string_view text) {
  const auto again = ParseCommand(ComposeCommand(rule));
  if (rule.NumOfLines < 0) rule.NumOfLines = 0;
  if (!again || !*again || std::get<SelectRule>(**again) != rule) std::abort();
  for (const CaseRule case_rule : {CaseRule::Common, CaseRule::Turkish}) {
    (void)CueMatcher(rule, case_rule).Matches(text);
    (void)LowerCase(rule.txtToStart, case_rule);
  }
  const bool well_formed = TakeUtf8Census(rule.txtToEnd).invalid == 0;
  if (well_formed && ReversedCharacters(ReversedCharacters(rule.txtToEnd)) != rule.txtToEnd) std::abort();
}

void CheckPlacement(const PlacementCommand& command) {
  const auto again = ParseCommand(ComposeCommand(command));
  if (!again || !*again || std::get<PlacementCommand>(**again) != command) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text{reinterpret_cast<const char*>(data), size};
  std::size_t last = 0;
  for (const CommandFileLine& line : ParseCommands(text)) {
    if (line.number <= last) std::abort();
    last = line.number;
    if (!line.command) continue;
    if (const auto* rule = std::get_if<SelectRule>(&*line.command)) CheckSelect(*rule, text);
    if (const auto* placement = std::get_if<PlacementCommand>(&*line.command)) CheckPlacement(*placement);
  }
  return 0;
}
