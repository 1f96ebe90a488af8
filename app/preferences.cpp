// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/preferences.h"

#include <variant>

#include "app/reporter.h"
#include "platform/files.h"
#include "settings/key_table.h"
#include "settings/settings_file.h"

namespace captoria {
namespace {

// A key of a track has no field in the settings, and is only checked.
Result<void> SetField(Settings& settings, std::string_view key, std::string_view value) {
  IniDocument document;
  if (auto valid = ApplySetting(document, key, value); !valid || FindGlobalKey(key) == nullptr) return valid;
  return SetKey(settings, key, value);
}

}  // namespace

Preferences::Preferences(std::string data_folder, Prompts& prompts)
    : data_folder_(std::move(data_folder)), ini_(prompts, data_folder_, kProgramTitle) {
  OpenedSettings opened = OpenSettingsFile(ini_.FullPath());
  problem_ = std::move(opened.report);
  settings = LoadValues(opened.document);
}

Result<void> Preferences::Override(std::string_view key, std::string_view value) {
  if (auto set = SetField(settings, key, value); !set) return set;
  overrides_.emplace_back(key, value);
  return {};
}

Result<void> Preferences::Store(std::string_view key, const std::string& value) {
  if (!remembers) return Override(key, value);
  if (auto set = SetField(settings, key, value); !set) return set;
  return Write([&](IniDocument& document) { return SaveKey(document, settings, key); });
}

Result<void> Preferences::StoreOptions(const Settings& edited) {
  Settings source = edited;
  for (const GlobalKey* key : OptionKeys()) {
    std::visit([&](auto field) { field(settings) = field(source); }, key->field);
  }
  return Write([this](IniDocument& document) { return SaveOptions(document, settings); });
}

TrackValues Preferences::TrackAt(int index) const {
  TrackValues track;
  // A file that cannot be read any longer counts as empty, as it does at the start.
  LoadValuesForIndex(ini_.Load().value_or(IniDocument{}), index, track.style, track.list_font);
  for (const auto& [key, value] : overrides_) {
    const auto of_track = FindTrackKey(key);
    if (of_track && of_track->index == index) (void)SetKey(track.style, track.list_font, key, value);
  }
  return track;
}

Result<void> Preferences::StoreListFont(int index, const Font& font) {
  return Write([&](IniDocument& document) { return SaveListFont(document, index, font); });
}

Result<void> Preferences::Save(std::span<const TrackValues> open_tracks, std::size_t current_track) {
  return Write([&](IniDocument& document) { return SaveValues(document, settings, open_tracks, current_track); });
}

Result<void> Preferences::Write(const std::function<Result<void>(IniDocument&)>& edit) {
  if (!remembers) return {};
  if (auto created = CreateFolder(data_folder_); !created) return created;
  Result<void> edited;
  const auto written = ini_.Update([&](IniDocument& document) { edited = edit(document); });
  return written ? edited : written;
}

}  // namespace captoria
