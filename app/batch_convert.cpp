// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/batch_convert.h"

#include "app/load_subtitle.h"
#include "app/open_video.h"
#include "automation/batch_conversion.h"
#include "base/ascii.h"

namespace captoria {
namespace {

// The flag that keeps message boxes away while a list is worked through.
class WhileConverting {
 public:
  explicit WhileConverting(Session& session) : session_(session) { session_.BatchConverting = true; }
  WhileConverting(const WhileConverting&) = delete;
  WhileConverting& operator=(const WhileConverting&) = delete;
  ~WhileConverting() { session_.BatchConverting = false; }

 private:
  Session& session_;
};

class SessionSteps final : public BatchSteps {
 public:
  SessionSteps(Session& session, const Outside& outside, const ConvertOptions& options)
      : session_(session), outside_(outside), options_(options) {}

  void CloseAllTracks() override {
    EndVideo();
    session_.tracks.UnloadAllSrts();
    session_.view.ShowTracks();
  }

  bool OpenVideo(const std::string& path) override {
    current_ = {.video = path, .output{}, .error{}};
    options_.begin(path);
    std::string opened = path;
    const bool own = !options_.subtitles.empty();
    if (auto result = OpenAnAviFile(session_, opened, {.ignore_auto_srt = own, .is_batch = true}); !result) {
      return Fail(result.error());
    }
    for (const std::string& subtitle : options_.subtitles) {
      session_.SelectLastTab();
      auto loaded = OpenSubtitleFile(session_, subtitle, {.is_batch = true, .encoding{}, .find_video = false});
      if (!loaded) return Fail(loaded.error());
    }
    return true;
  }

  bool HasSubtitles() override {
    if (captoria::HasSubtitles(session_)) return true;
    current_.error = current_.video + ": no subtitle file was found for it";
    return false;
  }

  bool MakeDivX() override {
    auto made = MakeFinalDivX(session_, outside_, {.is_batch = true, .keep_temp = options_.keep_temp});
    stopped_ = !made && made.error().kind == ErrorKind::Cancelled;
    if (!made) return Fail(made.error());
    current_.output = made->output;
    return true;
  }

  bool Stopped() override { return stopped_; }

 private:
  bool Fail(const Error& error) {
    current_.error = error.message;
    return false;
  }

  void EndVideo() {
    if (!current_.video.empty()) options_.done(current_);
    current_ = {};
  }

  Session& session_;
  const Outside& outside_;
  const ConvertOptions& options_;
  ConvertedVideo current_;
  bool stopped_ = false;
};

constexpr std::string_view kSwitch = "/auto";

std::size_t FindSwitch(std::string_view text, std::size_t from = 0) { return LowerAscii(text).find(kSwitch, from); }

// Where slashes separate folders, one may be named "Autos": then the switch is only what stands by itself.
bool HoldsNoOtherSlash(std::string_view text) {
  for (auto at = text.find('/'); at != text.npos; at = text.find('/', at + 1)) {
    if (FindSwitch(text, at) != at) return false;
  }
  return true;
}

}  // namespace

ConvertReport ConvertVideos(Session& session, const Outside& outside, std::span<const std::string> videos,
                            const ConvertOptions& options) {
  const WhileConverting converting(session);
  SessionSteps steps(session, outside, options);
  std::string text = ConvertList(videos, steps);
  return {std::move(text), steps.Stopped()};
}

CommandLine ParseCommandLine(std::string_view arguments) {
  CommandLine line;
  std::string rest;
  for (std::string_view left = Trim(arguments); !left.empty(); left = Trim(left)) {
    const std::string_view word = left.substr(0, left.find(' '));
    left.remove_prefix(word.size());
    if (EqualsIgnoringCase(word, kSwitch)) {
      line.unattended = true;
      continue;
    }
    rest += word;
    while (left.starts_with(' ')) {
      rest += ' ';
      left.remove_prefix(1);
    }
  }
  if (!(line.unattended && rest.starts_with('/')) && HoldsNoOtherSlash(rest)) {
    for (auto at = FindSwitch(rest); at != rest.npos; at = FindSwitch(rest)) {
      line.unattended = true;
      rest.erase(at, kSwitch.size());
    }
  }
  const std::string_view path = Trim(rest);
  const bool quoted = path.size() >= 2 && path.front() == '"' && path.back() == '"';
  line.path = quoted ? path.substr(1, path.size() - 2) : path;
  return line;
}

Result<MadeDivX> RunUnattended(Session& session, const Outside& outside, const std::string& path) {
  session.current_file = path;
  std::string video = path;
  Result<MadeDivX> made = Failure(ErrorKind::NotFound, "Can not find any subtitles");
  if (auto opened = OpenAnAviFile(session, video, {.is_batch = true}); !opened) {
    made = tl::unexpected(opened.error());
  } else if (!HasSubtitles(session)) {
    session.prompts.ShowMessage(kProgramTitle, made.error().message);
  } else {
    made = MakeFinalDivX(session, outside, {.is_batch = true});
  }
  if (auto saved = session.Save(); !saved) session.view.Warn(saved.error().message);
  return made;
}

}  // namespace captoria
