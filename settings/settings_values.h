// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Settings between the document that holds them and the values the program works with. Nothing here touches a file: a
// caller loads a document, and saves inside one clsIniFile::Update, so that a file has all of a save or nothing.
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

// The style last saved for the track of this index, 0 to 7. The right-to-left flag stays as it is, for it is kept with
// the global settings.
void LoadValuesForIndex(const IniDocument& document, int index, TrackStyle& style, Font& list_font);

TrackStyle DefaultTrackStyle();

// The saves give an error that names the keys whose texts cannot be stored (line breaks); the rest is saved all the
// same. Keys and lines of others are not touched.

// `SaveValues`: language, window, right-to-left flags and the open tracks. An open track's flag and the current track's
// list font come from `tracks`, whatever `settings` says; what is kept of tracks that are not open stays.
Result<void> SaveValues(IniDocument& document, const Settings& settings, std::span<const TrackValues> tracks,
                        std::size_t current_track);

// What the options dialog edits.
Result<void> SaveOptions(IniDocument& document, const Settings& settings);

Result<void> SaveListFont(IniDocument& document, int index, const Font& list_font);

// Puts one value into a document before it is loaded, as a command line's KEY=VALUE asks: "VertPos0", "60". Unsupported
// when there is no such key, or when the key wants a number and the text is none.
Result<void> ApplySetting(IniDocument& document, std::string_view key, std::string_view value);

// One key and the value it fills, nothing else. `key` is the whole name, a track's with its index ("VertPos3"), though
// nothing here looks at the index: the caller passes the style of that track. Unsupported if the record has no such
// key.

// Gives the value what a load of `text` would give it. Unsupported as in ApplySetting.
Result<void> SetKey(Settings& settings, std::string_view key, std::string_view text);
Result<void> SetKey(TrackStyle& style, Font& list_font, std::string_view key, std::string_view text);

// The text that stands for the value in a document; empty if the record has no such key.
std::string TextOfKey(Settings settings, std::string_view key);
std::string TextOfKey(const TrackStyle& style, const Font& list_font, std::string_view key);

// Puts that text into a document.
Result<void> SaveKey(IniDocument& document, const Settings& settings, std::string_view key);
Result<void> SaveKey(IniDocument& document, const TrackStyle& style, const Font& list_font, std::string_view key);

}  // namespace captoria
