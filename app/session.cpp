// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/session.h"

#include <utility>
#include <vector>

#include "platform/files.h"
#include "settings/settings_file.h"
#include "settings/settings_values.h"

namespace captoria {

Session::Session(ProgramFolders program_folders, Prompts& user_prompts)
    : folders(std::move(program_folders)), prompts(user_prompts), ini_(user_prompts, folders.data, kProgramTitle) {
  const OpenedSettings opened = OpenSettingsFile(ini_.FullPath());
  if (opened.report) prompts.ShowMessage(kProgramTitle, *opened.report);

  settings = LoadValues(opened.document);
  SubtitleTrack& first = tracks.Current();
  LoadValuesForIndex(opened.document, 0, first.style, first.list_font);
  first.list_font = settings.list_font;  // the lists on screen begin as the last ones on screen were
  tracks.SetRightToLeft(settings.right_to_left);
}

void Session::SelectLastTab() {
  tracks.SelectLastTab([this](int index, SubtitleTrack& track) {
    LoadValuesForIndex(ini_.Load().value_or(IniDocument{}), index, track.style, track.list_font);
  });
}

Result<void> Session::Save() {
  if (auto created = CreateFolder(folders.data); !created) return created;
  settings.right_to_left = tracks.RightToLeft();
  std::vector<TrackValues> open;
  for (const SubtitleTrack& track : tracks.Open()) open.push_back({track.style, track.list_font});

  Result<void> stored;
  const auto written = ini_.Update([&](IniDocument& document) {
    stored = SaveValues(document, settings, open, static_cast<std::size_t>(tracks.CurrentIndex()));
  });
  return written ? stored : written;
}

}  // namespace captoria
