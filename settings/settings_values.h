// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Converts settings between an INI document and the values that the program uses. Nothing here touches a file: callers
// load a document, and save inside one clsIniFile::Update, so that a save is written whole or not at all.
//
// Reading never fails. A missing key gives its default, and a text without a number gives 0. A number beyond its range
// gives the nearest one within, but the default if it chooses from a list. A font size of 0 or less gives the default.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "base/result.h"
#include "settings/ini_document.h"
#include "settings/key_table.h"
#include "settings/settings.h"

namespace captoria {

// The global settings (`LoadValues`).
Settings LoadValues(const IniDocument& document);

// The style last saved for the track with this index, 0 to 7. Leaves the right-to-left flag alone, which is kept with
// the global settings.
void LoadValuesForIndex(const IniDocument& document, int index, TrackStyle& style, Font& list_font);

TrackStyle DefaultTrackStyle();

// A save returns an error that names the keys whose texts cannot be stored (line breaks), and still saves the rest. It
// leaves all other keys and lines alone.

// `SaveValues`: language, window, right-to-left flags and the open tracks. An open track's flag and the current track's
// list font come from `tracks`, not from `settings`. The keys of tracks that are not open stay.
Result<void> SaveValues(IniDocument& document, const Settings& settings, std::span<const TrackValues> tracks,
                        std::size_t current_track);

// What the options dialog edits.
Result<void> SaveOptions(IniDocument& document, const Settings& settings);

Result<void> SaveListFont(IniDocument& document, int index, const Font& list_font);

// Puts one value into a document before it is loaded, such as KEY=VALUE of a command line: "VertPos0", "60".
// Unsupported if there is no such key, if the key needs a number and `value` is not one, or if `value` has a line
// break.
Result<void> ApplySetting(IniDocument& document, std::string_view key, std::string_view value);

// The functions below handle one key and its value, nothing else. `key` is the whole name, a track's with its index
// ("VertPos3"). The index is not used: the caller passes the style of that track. Unsupported if the record has no such
// key.

// Sets the value as a load of `text` would. Unsupported for the same reasons as ApplySetting.
Result<void> SetKey(Settings& settings, std::string_view key, std::string_view text);
Result<void> SetKey(TrackStyle& style, Font& list_font, std::string_view key, std::string_view text);

// The text of the value in a document; empty if the record has no such key.
std::string TextOfKey(Settings settings, std::string_view key);

// Puts that text into a document.
Result<void> SaveKey(IniDocument& document, const Settings& settings, std::string_view key);

}  // namespace captoria
