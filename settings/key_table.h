// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Every key of the settings file, a row each: its name, the text that stands in for a missing one, what it means and
// the value it fills. Key names are known here and nowhere else.
//
// The keys of a track are named by their row and the track's index: "VertPos0" to "VertPos7".
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "settings/settings.h"

namespace captoria {

inline constexpr std::string_view kSettingsSection = "General";

// What is kept of one track.
struct TrackValues {
  TrackStyle style;
  Font list_font;
};

// Reaches a value inside the record it belongs to. The type of the value says how it is read and written; a double is a
// font size in points, a float a place on the screen in twips.
template <typename Record>
using Field = std::variant<bool& (*)(Record&), int& (*)(Record&), std::uint8_t& (*)(Record&), float& (*)(Record&),
                           double& (*)(Record&), std::string& (*)(Record&), Alignment& (*)(Record&)>;

template <typename Record>
struct KeyRow {
  std::string_view name;
  std::string_view default_text;
  std::string_view meaning;
  Field<Record> field;
  // A whole number beyond these is brought back to them when it is read.
  int least = std::numeric_limits<int>::min();
  int most = std::numeric_limits<int>::max();
};

using GlobalKey = KeyRow<Settings>;
using TrackKey = KeyRow<TrackValues>;

// In the order they are read.
std::span<const GlobalKey> GlobalKeys();
std::span<const TrackKey> TrackKeys();

// In the order they are written: with the tracks' styles, and by the options dialog.
std::span<const GlobalKey* const> SessionKeys();
std::span<const GlobalKey* const> OptionKeys();

// Keys that are written alone.
const GlobalKey& DivXMuxPathKey();
const GlobalKey& BmpToXSubPathKey();
const GlobalKey& ShowWelcomeKey();
std::span<const TrackKey> ListFontKeys();

std::string NameForTrack(const TrackKey& key, int index);

// A key as a person can be told of it.
struct KeyDescription {
  std::string_view name;  // of a track's key: without the index
  std::string_view default_text;
  std::string_view meaning;
  bool per_track;
  bool is_text;  // any text; else a number
};

std::vector<KeyDescription> DescribeKeys();

// The key of this name, a track's with its index 0 to 7, compared without regard to ASCII case.
std::optional<KeyDescription> FindKey(std::string_view name);

inline bool IsKnownKey(std::string_view name) { return FindKey(name).has_value(); }

}  // namespace captoria
