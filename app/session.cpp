// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/session.h"

#include <utility>
#include <vector>

#include "localisation/language_files.h"
#include "platform/files.h"
#include "settings/settings_file.h"
#include "settings/settings_values.h"

namespace captoria {

Session::Session(ProgramFolders program_folders, Prompts& user_prompts, SessionView& session_view)
    : folders(std::move(program_folders)),
      prompts(user_prompts),
      view(session_view),
      ini_(user_prompts, folders.data, kProgramTitle) {
  OpenedSettings opened = OpenSettingsFile(ini_.FullPath());
  if (opened.report) prompts.ShowMessage(kProgramTitle, *opened.report);
  stored_ = std::move(opened.document);
  TakeSettings();
}

void Session::TakeSettings() {
  settings = LoadValues(stored_);
  SubtitleTrack& first = tracks.Current();
  LoadValuesForIndex(stored_, tracks.CurrentIndex(), first.style, first.list_font);
  first.list_font = settings.list_font;  // the lists on screen begin as the last ones on screen were
  tracks.SetRightToLeft(settings.right_to_left);
}

Result<void> Session::Override(std::string_view key, std::string_view value) {
  auto applied = ApplySetting(stored_, key, value);
  if (applied) TakeSettings();
  return applied;
}

Result<void> Session::Store(std::string_view key, const std::string& value) {
  if (auto applied = Override(key, value); !applied || !remembers) return applied;
  if (auto created = CreateFolder(folders.data); !created) return created;
  return ini_.Update([&](IniDocument& document) { (void)ApplySetting(document, key, value); });
}

Result<void> Session::StoreAtOnce(const std::function<Result<void>(IniDocument&)>& save) {
  auto stored = save(stored_);
  if (!remembers) return stored;
  if (auto created = CreateFolder(folders.data); !created) return created;
  auto written = ini_.Update([&](IniDocument& document) { (void)save(document); });
  return written ? stored : written;
}

Result<void> Session::SaveOptions() {
  return StoreAtOnce([this](IniDocument& document) { return captoria::SaveOptions(document, settings); });
}

Font Session::StoredListFont(int index) const {
  TrackStyle unused;
  Font font;
  LoadValuesForIndex(stored_, index, unused, font);
  return font;
}

Result<void> Session::StoreListFont(int index, const Font& font) {
  return StoreAtOnce([&](IniDocument& document) { return SaveListFont(document, index, font); });
}

void Session::SelectLastTab() {
  tracks.SelectLastTab(
      [this](int index, SubtitleTrack& track) { LoadValuesForIndex(stored_, index, track.style, track.list_font); });
}

Result<std::shared_ptr<FontCollection>> Session::Fonts() {
  if (!fonts_) {
    auto opened = FontCollection::Open();
    if (!opened) return opened;
    fonts_ = std::move(*opened);
  }
  return fonts_;
}

Result<SubtitleBitmap*> Session::Bitmap() {
  if (!bitmap_ || bitmap_->Frame() != Frame()) {
    const auto fonts = Fonts();
    if (!fonts) return tl::unexpected(fonts.error());
    bitmap_.emplace(*fonts, Frame());
  }
  return &*bitmap_;
}

Result<void> Session::Save() {
  if (auto created = CreateFolder(folders.data); !created) return created;
  settings.right_to_left = tracks.RightToLeft();
  if (!LangFile.empty()) settings.Lang = LanguageName(LangFile);
  std::vector<TrackValues> open;
  for (const SubtitleTrack& track : tracks.Open()) open.push_back({track.style, track.list_font});

  const auto save = [&](IniDocument& document) {
    return SaveValues(document, settings, open, static_cast<std::size_t>(tracks.CurrentIndex()));
  };
  Result<void> stored;
  const auto written = ini_.Update([&](IniDocument& document) { stored = save(document); });
  // What was overridden stays so in this session, and is not in the file.
  if (stored) stored = save(stored_);
  return written ? stored : written;
}

}  // namespace captoria
