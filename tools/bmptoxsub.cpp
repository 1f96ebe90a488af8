// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// bmptoxsub.exe: turns the bitmaps of a list file into the packets of a subtitle stream.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <string>

#include "base/ascii.h"
#include "media/xsub/xsub_file.h"
#include "platform/exit_status.h"
#include "platform/files.h"
#include "platform/input_file.h"
#include "platform/terminal_progress.h"
#include "script/subtitle_list.h"
#include "script/tool_log.h"

namespace captoria {
namespace {

struct Options {
  std::string list;
  std::string out;
  std::string mode;
};

// `said` is a message or a finding.
void Complain(const auto& said) { std::fprintf(stderr, "%s\n", ToolLine("bmptoxsub", said).c_str()); }

// The target must not replace a file that is still to be read.
Result<void> CheckTarget(const Options& options, const SubtitleList& list) {
  if (!FileExists(options.out)) return {};
  bool source = IsSameFile(options.out, options.list);
  for (const ListedCue& cue : list.cues) source = source || IsSameFile(options.out, PathOf(list, cue));
  if (!source) return {};
  return Failure(ErrorKind::Unwritable,
                 options.out + ": is the list or one of its bitmaps; choose another file to write");
}

Result<void> Convert(const Options& options) {
  const ListFrame frame = options.mode.empty() ? ListFrame::AsListed : ListFrame::Ntsc;
  auto list = ReadConverterList(options.list, frame);
  if (!list) return tl::unexpected(list.error());
  if (auto fine = CheckTarget(options, *list); !fine) return fine;
  for (const Finding& finding : list->findings) Complain(finding);
  TerminalProgress progress("Converting bitmaps...");
  return WriteXsubFile(options.out, *PacketsOf(std::move(*list)), progress);
}

int Run(const Options& options) {
  const auto done = Convert(options);
  if (done) return kExitDone;
  if (done.error().kind == ErrorKind::Cancelled) return kExitInterrupted;
  Complain(done.error().message);
  return kExitFailed;
}

}  // namespace
}  // namespace captoria

int main(int argc, char** argv) {
  using namespace captoria;
  CLI::App app("Turns the bitmaps of a list file into a subtitle stream for DivXMux.", "bmptoxsub.exe");
  app.set_version_flag("-V,--version", "Captoria " CAPTORIA_VERSION);
  app.footer("Exit status: 0 done, 1 failed, 2 wrong usage, 130 interrupted.");
  Options options;
  app.add_option("LIST", options.list, "The list file, with its bitmaps beside it")->required()->type_name("");
  app.add_option("OUT.xsub", options.out, "The file to write")->required()->type_name("");
  app.add_option("PALMODE1", options.mode, "Move the subtitles from a 576-line frame to a 480-line frame")
      ->type_name("")
      ->check([](const std::string& mode) {
        return EqualsIgnoringCase(mode, "PALMODE1") ? std::string{}
                                                    : "\"" + mode + "\" is not a mode; the only mode is PALMODE1";
      });
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return app.exit(error);
    Complain(std::string{error.what()} + "; see --help");
    return kExitUsage;
  }
  return Run(options);
}
