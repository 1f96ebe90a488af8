// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "script/tool_log.h"

#include <algorithm>
#include <sstream>

#include "base/ascii.h"
#include "platform/input_file.h"

namespace captoria {

ScriptLog ReadScriptLog(const std::string& path) {
  constexpr std::uint64_t kLooked = 64 << 10;
  constexpr std::size_t kLastLines = 10;
  constexpr std::string_view kMark = "warning:";
  ScriptLog log;
  const auto file = InputFile::Open(path);
  if (!file) return log;
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(std::min(kLooked, file->Size())));
  const auto got = file->ReadAt(file->Size() - bytes.size(), bytes);
  if (!got) return log;
  std::istringstream text({bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(*got)});
  for (std::string line; std::getline(text, line);) {
    // A tool that counts on a terminal leaves what it counted before the last carriage return.
    while (!line.empty() && line.back() == '\r') line.pop_back();
    line.erase(0, line.rfind('\r') + 1);
    if (Trim(line).empty()) continue;
    const auto mark = LowerAscii(std::string_view{line}).find(kMark);
    if (mark != line.npos) log.warnings.emplace_back(Trim(std::string_view{line}.substr(mark + kMark.size())));
    log.last_lines.push_back(line);
  }
  if (log.last_lines.size() > kLastLines)
    log.last_lines.erase(log.last_lines.begin(), log.last_lines.end() - kLastLines);
  return log;
}

}  // namespace captoria
