// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "cli/cue_listing.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <span>

namespace captoria {
namespace {

using Json = nlohmann::ordered_json;

// Collects text and passes it on in large pieces.
class BufferedSink {
 public:
  explicit BufferedSink(const ListingSink& sink) : sink_(sink) {}

  void Add(std::string_view text) {
    buffer_ += text;
    if (buffer_.size() >= kPiece) Flush();
  }

  bool Flush() {
    ok_ = ok_ && sink_(buffer_);
    buffer_.clear();
    return ok_;
  }

 private:
  static constexpr std::size_t kPiece = std::size_t{1} << 16;
  const ListingSink& sink_;
  std::string buffer_;
  bool ok_ = true;
};

std::string Serialized(const Json& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

bool IsControl(char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7F; }

// Appends `text` as one line without control characters. Without a branch for each character, so that a compiler can
// handle many characters with a few instructions.
void AddOneLine(std::string_view text, std::string& line) {
  while (true) {
    const std::size_t end = std::min(text.find(kLineBreak), text.size());
    const std::size_t from = line.size();
    line += text.substr(0, end);
    std::ranges::transform(std::span(line).subspan(from), line.begin() + static_cast<std::ptrdiff_t>(from),
                           [](char c) { return IsControl(c) ? ' ' : c; });
    if (end == text.size()) return;
    line += " | ";
    text.remove_prefix(end + kLineBreak.size());
  }
}

void AddPadded(std::string_view text, std::size_t width, std::string& line) {
  line += text;
  line.append(width - std::min(text.size(), width), ' ');
}

// Built by hand, except for the texts, which need escaping: a JSON tree for each cue would take twice as long.
void AddAsJson(const SubtitleCue& cue, bool outside, std::string& json) {
  json += "{\"number\":";
  json += cue.Number.empty() ? "null" : cue.Number;
  json += ",\"show\":\"" + cue.Show + "\",\"hide\":\"" + cue.Hide + "\",\"text\":";
  json += Serialized(cue.Text);
  json += ",\"tag\":";
  json += Serialized(cue.Tag);
  json += cue.Selected ? ",\"selected\":true" : ",\"selected\":false";
  json += outside ? ",\"outside\":true}" : ",\"outside\":false}";
}

}  // namespace

bool ListCuesAsTable(const SubtitleTrack& track, const ListingSink& sink) {
  BufferedSink out(sink);
  out.Add("Number  Show          Hide          Text\n");
  std::string line;
  for (const SubtitleCue& cue : track.cues) {
    line.clear();
    AddPadded(cue.Number, 8, line);
    AddPadded(cue.Show, 14, line);
    AddPadded(cue.Hide, 14, line);
    AddOneLine(cue.Text, line);
    line += '\n';
    out.Add(line);
  }
  if (!track.IsIdx()) {
    out.Add(std::to_string(track.cues.size()) + " cue(s), read as " + track.source.encoding);
    if (track.source.undecodable > 0) {
      out.Add("; " + std::to_string(track.source.undecodable) + " byte(s) mean nothing in it");
    }
    out.Add("\n");
  }
  return out.Flush();
}

bool ListCuesAsJson(const SubtitleTrack& track, const ListingSink& sink) {
  BufferedSink out(sink);
  const Json encoding = track.IsIdx() ? Json() : Json(track.source.encoding);
  out.Add("{\"file\":" + Serialized(track.path) + ",\"encoding\":" + Serialized(encoding));
  out.Add(",\"undecodable\":" + std::to_string(track.source.undecodable) + ",\"cues\":[");
  std::string line = "\n";
  auto next_outside = track.outside.begin();
  for (std::size_t row = 0; row < track.cues.size(); ++row) {
    const bool outside = next_outside != track.outside.end() && next_outside->row == row;
    if (outside) ++next_outside;
    AddAsJson(track.cues[row], outside, line);
    out.Add(line);
    line = ",\n";
  }
  Json problem;
  if (track.source.problem) {
    problem = {{"line", track.source.problem->line}, {"message", track.source.problem->message}};
  }
  out.Add("],\"problem\":" + Serialized(problem) + "}\n");
  return out.Flush();
}

}  // namespace captoria
