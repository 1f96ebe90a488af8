// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "pipeline/mux_script_text.h"

#include <algorithm>

#include "base/ascii.h"
#include "base/path_text.h"
#include "pipeline/bitmap_job.h"
#include "platform/files.h"
#include "script/mux_script.h"

namespace captoria {
namespace {

constexpr const char* kExtension = ".divx";
constexpr std::size_t kLongestName = 255;  // bytes, on the file systems of our time

// Replaces characters that the script's quoting cannot carry: a title is only read by people.
std::string Readable(std::string title) {
  std::ranges::replace(title, '"', '\'');
  std::ranges::replace_if(
      title, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  return title;
}

// The title of a stream if it says what the stream is; other titles are left to the tool.
std::string TitleOf(const StreamRow& row, std::string_view beginning) {
  const std::string title = row.Title();
  const bool says_so = EqualsIgnoringCase(std::string_view{title}.substr(0, beginning.size()), beginning);
  return says_so ? Readable(title) : std::string{};
}

std::string SourceOf(const MuxScript& script, int number, const SubtitleTrack& track) {
  if (track.IsIdx()) return track.path;
  return script.form == ListForm::Converter ? XsubFileName(number) : ListFileName(number);
}

DivxMuxArguments ArgumentsOf(const MuxScript& script) {
  using Kind = DivxMuxStream::Kind;
  DivxMuxArguments arguments;
  const std::string title = script.streams.empty() ? std::string{} : TitleOf(script.streams.front(), "video");
  arguments.streams.push_back({.kind = Kind::Video, .title = title, .path = script.avi_path});
  int subtitles = 0, sounds = 0;
  for (const StreamRow& row : script.streams) {
    if (row.type == StreamType::Subtitle) {
      arguments.streams.push_back({Kind::Subtitle, ++subtitles, TitleOf(row, "subtitle"), script.avi_path});
    } else if (row.type == StreamType::Audio) {
      arguments.streams.push_back({Kind::Audio, ++sounds, TitleOf(row, "audio"), script.avi_path});
    }
  }
  int number = 0;
  for (const SubtitleTrack& track : script.tracks) {
    if (track.HasFile()) {
      arguments.streams.push_back({.kind = Kind::NewSubtitle,
                                   .title = Readable(SubtitleTitle(track.style)),
                                   .path = SourceOf(script, number, track)});
    }
    ++number;
  }
  arguments.output = script.output;
  return arguments;
}

}  // namespace

std::string OutputPath(const std::string& avi_path, bool replace, const NameTaken& in_making) {
  const std::string_view name = GetFileNameOnly(avi_path);
  std::string base = avi_path.substr(0, avi_path.size() - name.size()).append(RemoveExt(name));
  const auto path = [&] { return base + std::string{kExtension}; };
  if (replace) return EndsIgnoringCase(avi_path, kExtension) ? path() + std::string{kExtension} : path();
  // Files are tested last, so a film that another conversion has just finished is seen.
  while (in_making(path()) || FileExists(path()) || FolderExists(path())) base += "_";
  return path();
}

std::string LanguageCode(std::string_view language) {
  const auto blank = language.find(' ');
  return blank == language.npos ? "en" : std::string{language.substr(0, blank)};
}

std::string SubtitleTitle(const TrackStyle& style) {
  const std::string type = std::to_string(style.SubType);
  return "Subtitle - " + LanguageCode(style.Language) + ";" + (type.size() < 2 ? "0" : "") + type;
}

Result<void> CheckNames(const MuxScript& script) {
  std::vector<std::string> paths{script.temp_folder, script.avi_path, script.output};
  for (const SubtitleTrack& track : script.tracks) {
    if (track.IsIdx()) paths.push_back(track.path);
  }
  for (const std::string& path : paths) {
    if (CanBeQuoted(path)) continue;
    return Failure(ErrorKind::Unsupported,
                   path + ": a quotation mark or line break in a name cannot be passed on to the tools; rename it");
  }
  if (GetFileNameOnly(script.output).size() > kLongestName) {
    return Failure(ErrorKind::Unsupported, script.output + ": the name of the film would be longer than " +
                                               std::to_string(kLongestName) + " bytes; give the video a shorter one");
  }
  return {};
}

std::string TextOf(const MuxScript& script) {
  MuxScriptText text{.program_folder = script.program_folder,
                     .temp_folder = script.temp_folder,
                     .converters{},
                     .mux = ArgumentsOf(script),
                     .pause = script.pause};
  int number = 0;
  for (const SubtitleTrack& track : script.tracks) {
    if (script.form == ListForm::Converter && track.IsRendered()) {
      text.converters.push_back({ListFileName(number), XsubFileName(number), script.pal_mode1});
    }
    ++number;
  }
  return ComposeMuxScript(text);
}

}  // namespace captoria
