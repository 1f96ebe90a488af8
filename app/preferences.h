// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The settings: what the file contains, and what a command line put over it for this run.
//
// Storing a setting writes its key and changes its field; nothing else is read again. What was overridden stays in
// force for the whole run, whatever is stored.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/result.h"
#include "platform/prompts.h"
#include "settings/ini_file.h"
#include "settings/settings.h"
#include "settings/settings_values.h"

namespace captoria {

class Preferences {
 public:
  // Reads "Captoria.ini" in `data_folder`. Never fails: a file that cannot be used is put aside, and `problem` says so.
  // Nothing is written. `prompts` outlives the object and its copies.
  Preferences(std::string data_folder, Prompts& prompts);

  // What became of a settings file that could not be used; for the caller to show.
  const std::optional<std::string>& Problem() const { return problem_; }

  // Settings of this run, changed field by field by those who own the matter.
  Settings settings;

  // A run that is not to leave traces: nothing is written, and what is stored stays in memory.
  bool remembers = true;

  // Puts `value` in the place of what the file contains under `key`. Unsupported if there is no such setting or the
  // value is not of its kind. A key of a track takes effect when the track is made.
  Result<void> Override(std::string_view key, std::string_view value);

  // The same, written to the file at once.
  Result<void> Store(std::string_view key, const std::string& value);

  // Takes what the options dialog edits from `edited` and writes it at once, all or nothing. The settings change also
  // if they could not be written.
  Result<void> StoreOptions(const Settings& edited);

  // The style and list font that a new track of this index, 0 to 7, begins with, as the file has them now.
  TrackValues TrackAt(int index) const;

  // Writes the list font that the next track of this index begins with.
  Result<void> StoreListFont(int index, const Font& font);

  // Writes all that is remembered between runs (`SaveValues`), all or nothing. Open tracks come in tab order.
  Result<void> Save(std::span<const TrackValues> open_tracks, std::size_t current_track);

 private:
  Result<void> Write(const std::function<Result<void>(IniDocument&)>& edit);

  std::string data_folder_;
  clsIniFile ini_;
  std::optional<std::string> problem_;
  std::vector<std::pair<std::string, std::string>> overrides_;
};

}  // namespace captoria
