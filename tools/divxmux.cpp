// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// DivXMux.exe: writes a film from the named streams of a video and new subtitle streams.
#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "base/ascii.h"
#include "base/finding.h"
#include "media/avi/divx_mux.h"
#include "media/vobsub/vobsub_source.h"
#include "media/xsub/xsub_file.h"
#include "platform/exit_status.h"
#include "platform/input_file.h"
#include "platform/terminal_progress.h"
#include "script/divxmux_arguments.h"
#include "script/progress_file.h"
#include "script/subtitle_list.h"
#include "script/tool_log.h"

namespace captoria {
namespace {

constexpr const char* kHelp =
    R"(DivXMux adds subtitle pictures to a film and copies its video and audio unchanged.

  DivXMux.exe -v (TITLE) VIDEO [STREAM]... -o OUT

  -v (TITLE) VIDEO      the video stream of an AVI or DivX file
  -a #N (TITLE) VIDEO   its audio stream number N, counted from 1
  -s #N (TITLE) VIDEO   its subtitle stream number N, counted from 1
  -s (TITLE) SOURCE     a new subtitle stream: an .xsub file, a list of bitmaps (.txt) or a VobSub index (.idx)
  -o OUT                the film to write; an existing file is replaced
  --profile NAME        the form of the headers of new subtitle streams: readers (for programs that play files, the
                        default) or hardware (for hardware players); also read from DIVXMUX_PROFILE
  --help, --version

The film has the streams in the order of the command; other streams of the video are left out. Titles stand in
parentheses. If a title is empty, the stream keeps its name.
Exit status: 0 done, 1 failed, 2 wrong usage, 130 interrupted.
)";

// `said` is a message or a finding.
void Complain(const auto& said) { std::fprintf(stderr, "%s\n", ToolLine("divxmux", said).c_str()); }

bool IsSubtitle(const AviStream& stream) { return stream.IsXsub() || stream.header.type == "txts"; }

bool IsOfKind(const AviStream& stream, DivxMuxStream::Kind kind) {
  switch (kind) {
    case DivxMuxStream::Kind::Audio:
      return stream.header.type == "auds";
    case DivxMuxStream::Kind::Subtitle:
      return IsSubtitle(stream);
    default:
      return (stream.header.type == "vids" || stream.header.type == "iavs") && !IsSubtitle(stream);
  }
}

// A caller that recognises streams by their names counts only the subtitle streams named "Subtitle...". So if the
// stream of that number among those has exactly the wanted title, it is meant; otherwise all subtitle streams count.
std::size_t FindStream(std::span<const AviStream> streams, const DivxMuxStream& wanted) {
  constexpr std::string_view kName = "subtitle";
  std::size_t by_kind = streams.size(), by_name = streams.size();
  int of_kind = 0, of_name = 0;
  for (std::size_t i = 0; i < streams.size(); ++i) {
    if (!IsOfKind(streams[i], wanted.kind)) continue;
    if (++of_kind == wanted.number) by_kind = i;
    const bool has_name = EqualsIgnoringCase(std::string_view{streams[i].name}.substr(0, kName.size()), kName);
    if (has_name && ++of_name == wanted.number) by_name = i;
  }
  const auto is_titled = [&](std::size_t i) { return i < streams.size() && streams[i].name == wanted.title; };
  return wanted.kind == DivxMuxStream::Kind::Subtitle && is_titled(by_name) ? by_name : by_kind;
}

Result<MuxStream> SourceStream(const AviFile& source, const DivxMuxStream& wanted) {
  const std::string& path = source.File().Path();
  if (wanted.path != path && !IsSameFile(wanted.path, path)) {
    return Failure(ErrorKind::Unsupported, wanted.path + ": is not the video; streams can only be taken from " + path);
  }
  const std::size_t found = FindStream(source.Streams(), wanted);
  if (found < source.Streams().size()) {
    return MuxStream{.source_stream = static_cast<int>(found), .subtitle = nullptr, .title = wanted.title};
  }
  if (wanted.kind == DivxMuxStream::Kind::Video)
    return Failure(ErrorKind::NotFound, path + ": contains no video stream");
  const char* kind = wanted.kind == DivxMuxStream::Kind::Audio ? "audio" : "subtitle";
  return Failure(ErrorKind::NotFound, path + ": contains no " + kind + " stream #" + std::to_string(wanted.number));
}

Result<std::shared_ptr<SubtitleSource>> OpenSubtitle(const std::string& path, Findings& findings) {
  if (EndsIgnoringCase(path, ".xsub")) return OpenXsubFile(path);
  if (EndsIgnoringCase(path, ".txt")) return OpenMuxList(path, &findings);
  if (EndsIgnoringCase(path, ".idx")) return OpenVobSub(path, &findings);
  return Failure(ErrorKind::Unsupported, path + ": is not a .xsub, .txt or .idx file");
}

Result<MuxStream> NewStream(const DivxMuxStream& wanted, const std::string& output, Findings& findings) {
  if (IsSameFile(wanted.path, output)) {
    return Failure(ErrorKind::Unwritable, output + ": contains the subtitles; choose another file to write");
  }
  auto subtitle = OpenSubtitle(wanted.path, findings);
  if (!subtitle) return tl::unexpected(subtitle.error());
  return MuxStream{.source_stream = -1, .subtitle = std::move(*subtitle), .title = wanted.title};
}

// Shows progress on the terminal and reports it to the program that started this one.
class ReportedProgress final : public JobProgress {
 public:
  ReportedProgress(JobProgress& terminal, const std::string& file) : terminal_(terminal), file_(file) {}

  bool Report(std::size_t done, std::size_t total) override {
    file_.Write(done, total);
    return terminal_.Report(done, total);
  }

 private:
  JobProgress& terminal_;
  ProgressFile file_;
};

// The size of the film in bytes.
Result<std::uint64_t> Run(const DivxMuxArguments& arguments, Findings& findings) {
  const auto source = AviFile::Open(arguments.Video().path);
  if (!source) return tl::unexpected(source.error());
  MuxJob job{.source = *source,
             .streams = {},
             .output = arguments.output,
             .profile = arguments.hardware_profile ? PlayerProfile::Hardware : PlayerProfile::Readers};
  for (const DivxMuxStream& wanted : arguments.streams) {
    auto stream = wanted.kind == DivxMuxStream::Kind::NewSubtitle ? NewStream(wanted, arguments.output, findings)
                                                                  : SourceStream(*source, wanted);
    if (!stream) return tl::unexpected(stream.error());
    job.streams.push_back(std::move(*stream));
  }
  const char* progress_file = std::getenv(kProgressVariable);
  TerminalProgress terminal("Writing the film:", TerminalProgress::Show::Percent);
  ReportedProgress progress(terminal, progress_file != nullptr ? progress_file : "");
  const auto report = Mux(job, progress);
  if (!report) return tl::unexpected(report.error());
  findings.insert(findings.end(), report->findings.begin(), report->findings.end());
  return report->size;
}

int Main(const std::vector<std::string>& words) {
  const char* profile = std::getenv("DIVXMUX_PROFILE");
  const auto arguments = ParseDivxMuxArguments(words, profile != nullptr ? profile : "");
  if (!arguments) {
    Complain(arguments.error().message + "; see --help");
    return kExitUsage;
  }
  if (arguments->help || arguments->version) {
    std::fputs(arguments->help ? kHelp : "DivXMux of Captoria " CAPTORIA_VERSION "\n", stdout);
    return std::fflush(stdout) == 0 ? kExitDone : kExitFailed;
  }
  Findings findings;
  const auto size = Run(*arguments, findings);
  for (const Finding& finding : findings) Complain(finding);
  if (!size) {
    Complain(size.error().message);
    return size.error().kind == ErrorKind::Cancelled ? kExitInterrupted : kExitFailed;
  }
  std::printf("%s: %zu stream(s), %llu bytes\n", arguments->output.c_str(), arguments->streams.size(),
              static_cast<unsigned long long>(*size));
  return kExitDone;
}

}  // namespace
}  // namespace captoria

int main(int argc, char** argv) { return captoria::Main({argv + 1, argv + argc}); }
