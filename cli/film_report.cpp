// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "cli/film_report.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "base/ascii.h"
#include "base/utf8.h"
#include "pipeline/mux_script_text.h"
#include "settings/number_text.h"

namespace captoria {
namespace {

using Json = nlohmann::ordered_json;

std::string_view NameOf(ConversionStatus status) {
  switch (status) {
    case ConversionStatus::Made:
      return "made";
    case ConversionStatus::Failed:
      return "failed";
    case ConversionStatus::Planned:
      return "planned";
    default:
      return "skipped";
  }
}

std::string_view NameOf(Alignment alignment) {
  constexpr std::array<std::string_view, 3> kNames{"left", "center", "right"};
  return kNames.at(static_cast<std::size_t>(alignment));
}

// "#FFFFFF"
std::string NameOf(const Color& color) {
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "#%02X%02X%02X", color.red, color.green, color.blue);
  return text.data();
}

Json AsJson(const TrackStyle& style) {
  return {{"font", style.font.name},
          {"size", style.font.size},
          {"bold", style.font.bold},
          {"italic", style.font.italic},
          {"fit", style.FitFont},
          {"vertical", style.VertPos},
          {"horizontal", style.HorPos},
          {"alignment", NameOf(style.InAlign)},
          {"right_to_left", style.RightToLeft},
          {"type", style.SubType},
          {"colors", {NameOf(style.ForeColor), NameOf(style.OutlineColor), NameOf(style.ShadowColor)}},
          {"outline", style.OutlineWidth},
          {"shadow", style.ShadowBevel}};
}

Json AsJson(const Finding& finding) {
  return {{"kind", NameOf(finding.kind)},
          {"file", finding.file.empty() ? Json(nullptr) : Json(PathForJson(finding.file))},
          {"line", finding.line == 0 ? Json(nullptr) : Json(finding.line)},
          {"message", finding.message}};
}

Json AsJson(const FilmSubtitle& subtitle, bool with_style) {
  const bool is_text = !subtitle.encoding.empty();
  Json json{{"file", PathForJson(subtitle.file)},
            {"encoding", is_text ? Json(subtitle.encoding) : Json(nullptr)},
            {"cues", is_text ? Json(subtitle.cues) : Json(nullptr)},
            {"language", LanguageCode(subtitle.style.Language)},
            {"problem", nullptr}};
  if (subtitle.problem) json["problem"] = {{"line", subtitle.problem->line}, {"message", subtitle.problem->message}};
  if (with_style) json["style"] = AsJson(subtitle.style);
  return json;
}

std::string StyleText(const TrackStyle& style) {
  std::string text = style.font.name + " " + TextOfNumber(style.font.size);
  if (style.font.bold) text += " bold";
  if (style.font.italic) text += " italic";
  text += ", " + std::string{NameOf(style.InAlign)} + ", " + std::to_string(style.VertPos) + " pixels up";
  return style.RightToLeft ? text + ", right to left" : text;
}

}  // namespace

std::string PathForJson(std::string_view path) {
  constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyz0123456789/-._~";
  if (TakeUtf8Census(path).invalid == 0) return std::string{path};
  std::string address = "file://";
  for (const char c : path) {
    std::array<char, 4> coded{};
    std::snprintf(coded.data(), coded.size(), "%%%02X", static_cast<unsigned char>(c));
    address += kPlain.find(LowerAscii(c)) == kPlain.npos ? std::string{coded.data()} : std::string{c};
  }
  return address;
}

std::string FilmAsJson(const ConvertedFilm& film) {
  const bool planned = film.status == ConversionStatus::Planned;
  Json warnings = Json::array(), subtitles = Json::array();
  for (const Finding& finding : film.findings) warnings.push_back(AsJson(finding));
  for (const FilmSubtitle& subtitle : film.subtitles) subtitles.push_back(AsJson(subtitle, planned));
  Json json{{"video", PathForJson(film.video)},
            {"result", film.result.empty() ? Json(nullptr) : Json(PathForJson(film.result))},
            {"status", NameOf(film.status)},
            {"error", nullptr},
            {"warnings", warnings},
            {"subtitles", subtitles},
            {"seconds", std::round(film.time.count() * 1000) / 1000}};
  if (film.error) json["error"] = {{"kind", NameOf(film.error->kind)}, {"message", film.error->message}};
  if (planned) {
    Json streams = Json::array();
    for (const StreamRow& row : film.streams) {
      streams.push_back({{"type", TextOf(row.type)}, {"name", row.Title()}, {"kept", IsKept(row)}});
    }
    json["streams"] = streams;
  }
  return json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string PlanAsText(const ConvertedFilm& film) {
  std::string text = film.video + "\n  becomes " + film.result + "\n";
  int number = 0;
  for (const StreamRow& row : film.streams) {
    text += "  stream " + std::to_string(number++) + ": " + std::string{TextOf(row.type)};
    if (!row.Title().empty()) text += " \"" + row.Title() + "\"";
    text += IsKept(row) ? ", kept\n" : ", left out\n";
  }
  for (const FilmSubtitle& subtitle : film.subtitles) {
    text += "  subtitle: " + subtitle.file + ": ";
    if (!subtitle.encoding.empty()) text += subtitle.encoding + ", " + std::to_string(subtitle.cues) + " cues, ";
    text += subtitle.style.Language;
    text += subtitle.encoding.empty() ? ", copied as pictures\n" : ", " + StyleText(subtitle.style) + "\n";
  }
  return text;
}

}  // namespace captoria
