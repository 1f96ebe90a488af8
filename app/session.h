// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The program at work: its settings, its tracks and the file it last used. The state of the main window, without one.
//
// Commands are functions over a session, each in a file of its own; a session by itself only begins and ends.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/session_view.h"
#include "base/result.h"
#include "localisation/messages.h"
#include "pipeline/avi_inspection.h"
#include "platform/program_folder.h"
#include "platform/prompts.h"
#include "render/subtitle_bitmap.h"
#include "settings/ini_document.h"
#include "settings/ini_file.h"
#include "settings/settings.h"
#include "subtitles/track_set.h"

namespace captoria {

inline constexpr const char* kProgramTitle = "Captoria";

// The video that subtitles are put beside.
struct OpenVideo {
  std::string AviPath;  // empty while none was opened; set also when the file cannot be read
  captoria::VideoSystem VideoSystem = captoria::VideoSystem::Ntsc;
  StreamTable streams;

  int VideoHeight() const { return HeightOf(VideoSystem); }  // of the frame that subtitles are placed on, in pixels
};

class Session {
 public:
  // Start-up: one empty track, all settings read, the first track styled. Never fails: a settings file that cannot be
  // used is put aside and told through the prompts. Prompts and view outlive the session. Nothing is written.
  Session(ProgramFolders program_folders, Prompts& user_prompts, SessionView& session_view);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // Puts `value` in the place of what the settings file holds under `key`, for this session. Unsupported when there is
  // no such setting or the value is not of its kind.
  Result<void> Override(std::string_view key, std::string_view value);

  // The same, written to the settings file at once.
  Result<void> Store(std::string_view key, const std::string& value);

  // Selects the tab "<New>" or, with eight tracks, the last one.
  void SelectLastTab();

  // The fonts of this machine, and the bitmap that cues are measured against, in the frame of the settings as they are
  // now; it is good until the next call. Both are made when first asked for: a
  // session that only reads needs neither, and finding all fonts takes longer than reading a hundred thousand cues.
  Result<std::shared_ptr<FontCollection>> Fonts();
  Result<SubtitleBitmap*> Bitmap();
  BitmapFrame Frame() const { return {BitmapWidth(settings), SplitColour(settings.BackColor)}; }

  // Shutdown, and before a video is opened: writes all that is to be remembered (`SaveValues`), whole or not at all.
  Result<void> Save();

  // What the options dialog edits, written at once, whole or not at all.
  Result<void> SaveOptions();

  // The font that the cue list of the next track of this index, 0 to 7, begins with; and its change, written at once.
  Font StoredListFont(int index) const;
  Result<void> StoreListFont(int index, const Font& font);

  // The message in the language of the session.
  std::string TextFor(const Message& message) const { return MessageText(language, message); }

  ProgramFolders folders;
  Prompts& prompts;
  SessionView& view;
  LanguageDocument language;
  std::string LangFile;  // base name of the language's file, as in "English.Captoria.exe"; empty until one was loaded
  Settings settings;
  TrackSet tracks;
  OpenVideo video;
  std::string current_file;      // the file the last load used
  bool only_outside = false;     // the list on screen is that of the cues beyond the safe viewing area
  bool BatchConverting = false;  // a list of videos is worked through: nothing waits for a person
  bool remembers = true;         // settings are saved where the program saves them by itself

 private:
  void TakeSettings();

  // Saves into what is read from now on and, where this session remembers, into the file.
  Result<void> StoreAtOnce(const std::function<Result<void>(IniDocument&)>& save);

  clsIniFile ini_;
  IniDocument stored_;  // what the settings file held at the start, and what was put in its place
  std::shared_ptr<FontCollection> fonts_;
  std::optional<SubtitleBitmap> bitmap_;
};

}  // namespace captoria
