// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What was understood of a script means the same once more when it is written with every word in quotation marks.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "script/mux_script.h"

namespace {

using captoria::MuxScriptStep;

std::string Written(const MuxScriptStep& step) {
  if (step.kind == MuxScriptStep::Kind::Pause) return "pause";
  if (step.kind == MuxScriptStep::Kind::ChangeDrive) return step.words.front();
  std::string text = step.kind == MuxScriptStep::Kind::ChangeFolder ? "cd" : "";
  for (const std::string& word : step.words) {
    if (!captoria::CanBeQuoted(word)) std::abort();
    text += " \"" + word + "\"";
  }
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto steps = captoria::ParseMuxScript({reinterpret_cast<const char*>(data), size});
  if (!steps) return 0;
  std::string script;
  std::size_t line = 1;
  for (const MuxScriptStep& step : *steps) {
    for (; line < step.line; ++line) script += "\r\n";
    script += Written(step);
  }
  const auto again = captoria::ParseMuxScript(script);
  if (!again || *again != *steps) std::abort();
  return 0;
}
