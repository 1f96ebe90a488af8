// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "cli/info_command.h"

#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "pipeline/avi_inspection.h"

namespace captoria {
namespace {

using Json = nlohmann::ordered_json;

struct InfoOptions {
  std::string video;
  bool json = false;
};

std::string_view Summary(const StreamRow& row) { return std::string_view{row.text}.substr(0, row.text.rfind("\r\n")); }

std::string AsJson(const InfoOptions& options, const AviInspection& inspection) {
  Json streams = Json::array();
  for (const StreamRow& row : inspection.streams) {
    streams.push_back({{"type", TextOf(row.type)}, {"summary", Summary(row)}, {"name", row.Title()}});
  }
  const Json all{{"file", options.video},
                 {"system", NameOf(inspection.system)},
                 {"height", HeightOf(inspection.system)},
                 {"streams", streams}};
  return all.dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string AsText(const InfoOptions& options, const AviInspection& inspection) {
  std::string text = options.video + ": " + std::string{NameOf(inspection.system)} + ", subtitles are placed on " +
                     std::to_string(HeightOf(inspection.system)) + " lines\n";
  int number = 0;
  for (const StreamRow& row : inspection.streams) {
    std::string type{TextOf(row.type)};
    type.resize(10, ' ');
    text += "#" + std::to_string(number++) + "  " + type + std::string{Summary(row)} + "\n";
    if (!row.Title().empty()) text += std::string(14, ' ') + row.Title() + "\n";
  }
  return text;
}

int RunInfo(const InfoOptions& options) {
  const auto inspection = InspectAvi(options.video);
  if (!inspection) {
    Complain(inspection.error().message);
    return kExitFailed;
  }
  return Print(options.json ? AsJson(options, *inspection) : AsText(options, *inspection)) ? kExitDone : kExitFailed;
}

}  // namespace

void AddInfoCommand(CLI::App& app, CliContext& context) {
  auto options = std::make_shared<InfoOptions>();
  CLI::App* command = app.add_subcommand("info", "Show the streams of a video and the frame its subtitles stand on");
  command->add_option("video", options->video, "An AVI or DivX file")->required()->type_name("VIDEO");
  command->add_flag("--json", options->json, "Show as JSON");
  command->callback([options, &context] { context.status = RunInfo(*options); });
}

}  // namespace captoria
