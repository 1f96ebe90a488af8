// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The keys of the settings file. The table has a row for each key: its name, the text that stands in for a missing one
// and the value it fills. Only this folder knows the names of keys; others use `keys` below.
//
// A track's key is named by its row and the index of the track: "VertPos0" to "VertPos7".
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "settings/settings.h"

namespace captoria {

inline constexpr std::string_view kSettingsSection = "General";

// Keys that are set one at a time.
namespace keys {
inline constexpr std::string_view kDivXMuxPath = "DivXMuxPath";
inline constexpr std::string_view kBmpToXSubPath = "bmpToxSubPath";
inline constexpr std::string_view kReplaceDivX = "ReplaceDivX";
inline constexpr std::string_view kRunDivX = "RunDivX";
inline constexpr std::string_view kShowDos = "ShowDos";
inline constexpr std::string_view kShowDosPause = "ShowDosPause";
inline constexpr std::string_view kShowWelcome = "ShowWelcome";
inline constexpr std::string_view kWaitToEndDos = "WaitToEndDos";
}  // namespace keys

// What the settings file keeps for one track.
struct TrackValues {
  TrackStyle style;
  Font list_font;
};

// Returns a value inside its record. The type of the value decides how it is read and written: a double is a font size
// in points, a float is a position on the screen in twips.
template <typename Record>
using Field = std::variant<bool& (*)(Record&), int& (*)(Record&), std::uint8_t& (*)(Record&), float& (*)(Record&),
                           double& (*)(Record&), std::string& (*)(Record&), Alignment& (*)(Record&)>;

// What a whole number beyond its range is read as: the nearest one within, or the default if the number chooses from a
// list and its neighbour there means something else.
enum class Beyond { Nearest, Default };

template <typename Record>
struct KeyRow {
  std::string_view name;
  std::string_view default_text;
  Field<Record> field;
  int least = std::numeric_limits<int>::min();
  int most = std::numeric_limits<int>::max();
  Beyond beyond = Beyond::Nearest;

  bool IsText() const { return std::holds_alternative<std::string& (*)(Record&)>(field); }
};

using GlobalKey = KeyRow<Settings>;
using TrackKey = KeyRow<TrackValues>;

// In the order they are read.
std::span<const GlobalKey> GlobalKeys();
std::span<const TrackKey> TrackKeys();

// In the order they are written: before the styles of the tracks, and by the options dialog.
std::span<const GlobalKey* const> SessionKeys();
std::span<const GlobalKey* const> OptionKeys();

// A track's keys for the font of its cue lists.
std::span<const TrackKey> ListFontKeys();

std::string NameForTrack(const TrackKey& key, int index);

// The row of a global key; null if there is no such key. Names are compared without regard to ASCII case.
const GlobalKey* FindGlobalKey(std::string_view name);

// The row of a track's key and the index of the track, 0 to 7, from a name such as "VertPos3".
struct KeyOfTrack {
  const TrackKey* row;
  int index;
};
std::optional<KeyOfTrack> FindTrackKey(std::string_view name);

}  // namespace captoria
