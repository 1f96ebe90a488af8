// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "script/divxmux_arguments.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string_view>

#include "base/ascii.h"

namespace captoria {
namespace {

using Kind = DivxMuxStream::Kind;

constexpr std::string_view kProfile = "--profile";

tl::unexpected<Error> Wrong(std::string message) { return Failure(ErrorKind::Unsupported, std::move(message)); }

std::string Quoted(std::string_view text) { return "\"" + std::string{text} + "\""; }

// Whether every command interpreter takes `name` as one word. It has no folder.
bool IsPlainWord(std::string_view name) {
  return std::ranges::all_of(
      name, [](char c) { return IsDigit(c) || (LowerAscii(c) >= 'a' && LowerAscii(c) <= 'z') || c == '.'; });
}

std::string Words(const DivxMuxStream& stream) {
  const std::string title = "(" + stream.title + ") ", number = "#" + std::to_string(stream.number) + " ";
  switch (stream.kind) {
    case Kind::Video:
      return " -v " + title + Quoted(stream.path);
    case Kind::Audio:
      return " -a " + number + title + Quoted(stream.path);
    case Kind::Subtitle:
      return " -s " + number + title + Quoted(stream.path);
    case Kind::NewSubtitle:
      break;
  }
  return " -s " + title + (IsPlainWord(stream.path) ? stream.path : Quoted(stream.path));
}

bool IsOption(std::string_view argument) {
  constexpr std::array<std::string_view, 4> kOptions{"-v", "-a", "-s", "-o"};
  return argument.starts_with(kProfile) || std::ranges::find(kOptions, argument) != kOptions.end();
}

class Parser {
 public:
  explicit Parser(std::span<const std::string> arguments) : arguments_(arguments) {}

  Result<DivxMuxArguments> Run(const std::string& environment_profile) {
    profile_ = environment_profile;
    while (at_ < arguments_.size()) {
      if (auto taken = TakeOption(); !taken) return tl::unexpected(taken.error());
      if (parsed_.help || parsed_.version) return parsed_;
    }
    if (!has_video_) return Wrong("no video is given (-v)");
    if (parsed_.output.empty()) return Wrong("no file to write is given (-o)");
    if (!profile_.empty() && profile_ != "readers" && profile_ != "hardware") {
      return Wrong(Quoted(profile_) + " is not a profile; use readers or hardware");
    }
    parsed_.hardware_profile = profile_ == "hardware";
    return parsed_;
  }

 private:
  Result<void> TakeOption() {
    const std::string& option = arguments_[at_++];
    if (option == "--help" || option == "-h") {
      parsed_.help = true;
    } else if (option == "--version") {
      parsed_.version = true;
    } else if (option == "-o") {
      if (!parsed_.output.empty()) return Wrong("-o is given twice");
      return TakeText(option, parsed_.output);
    } else if (option == kProfile) {
      return TakeText(option, profile_);
    } else if (option.starts_with("--profile=")) {
      profile_ = option.substr(kProfile.size() + 1);
    } else if (option == "-v" || option == "-a" || option == "-s") {
      return TakeStream(option);
    } else {
      return Wrong(Quoted(option) + " is not an option");
    }
    return {};
  }

  Result<void> TakeText(const std::string& option, std::string& text) {
    if (at_ == arguments_.size() || arguments_[at_].empty()) return Wrong("something is missing after " + option);
    text = arguments_[at_++];
    return {};
  }

  Result<void> TakeStream(const std::string& option) {
    DivxMuxStream stream;
    stream.kind = option == "-v" ? Kind::Video : option == "-a" ? Kind::Audio : Kind::NewSubtitle;
    if (stream.kind == Kind::Video && has_video_) return Wrong("-v is given twice");
    if (stream.kind != Kind::Video && at_ < arguments_.size() && arguments_[at_].starts_with('#')) {
      const std::string& text = arguments_[at_++];
      const char* const end = text.data() + text.size();
      const auto [rest, failed] = std::from_chars(text.data() + 1, end, stream.number);
      if (failed != std::errc{} || rest != end || stream.number < 1) {
        return Wrong(Quoted(text) + " is not the number of a stream; the first is #1");
      }
      if (stream.kind == Kind::NewSubtitle) stream.kind = Kind::Subtitle;
    } else if (stream.kind == Kind::Audio) {
      return Wrong("-a needs the number of a stream, such as #1");
    }
    if (auto taken = TakeTitle(option, stream.title); !taken) return taken;
    if (auto taken = TakeText(option + " (" + stream.title + ")", stream.path); !taken) return taken;
    has_video_ = has_video_ || stream.kind == Kind::Video;
    parsed_.streams.push_back(std::move(stream));
    return {};
  }

  // A title may contain parentheses: it ends at the first ")" that is followed by a path and then an option or the end.
  Result<void> TakeTitle(const std::string& option, std::string& title) {
    std::optional<std::size_t> end;
    if (at_ < arguments_.size() && arguments_[at_].starts_with('(')) {
      for (std::size_t i = at_; i < arguments_.size(); ++i) {
        if (!arguments_[i].ends_with(')')) continue;
        if (!end) end = i;
        if (i + 2 >= arguments_.size() || IsOption(arguments_[i + 2])) {
          end = i;
          break;
        }
      }
    }
    if (!end) return Wrong("a title in parentheses is missing after " + option);
    std::string joined = arguments_[at_];
    while (at_ < *end) joined += " " + arguments_[++at_];
    ++at_;
    if (joined.size() < 2) return Wrong("a title in parentheses is missing after " + option);
    title = joined.substr(1, joined.size() - 2);
    return {};
  }

  std::span<const std::string> arguments_;
  std::size_t at_ = 0;
  bool has_video_ = false;
  std::string profile_;
  DivxMuxArguments parsed_;
};

}  // namespace

const DivxMuxStream& DivxMuxArguments::Video() const {
  return *std::ranges::find(streams, Kind::Video, &DivxMuxStream::kind);
}

Result<DivxMuxArguments> ParseDivxMuxArguments(std::span<const std::string> arguments,
                                               const std::string& environment_profile) {
  return Parser(arguments).Run(environment_profile);
}

std::string ComposeDivxMuxCommand(const DivxMuxArguments& arguments) {
  std::string command = "divxmux.exe";
  for (const DivxMuxStream& stream : arguments.streams) command += Words(stream);
  if (arguments.hardware_profile) command += " --profile hardware";
  return command + " -o " + Quoted(arguments.output);
}

}  // namespace captoria
