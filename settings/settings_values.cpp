// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "settings/settings_values.h"

#include <algorithm>
#include <string>

#include "base/ascii.h"
#include "settings/number_text.h"

namespace captoria {
namespace {

constexpr double kLargestFont = 1000;  // points
constexpr float kFarthestTwip = 1e6F;  // a few hundred screens away

int IntOf(std::string_view text) { return RoundToInt(NumberOfText(text)); }

template <typename Record>
void Read(bool& value, std::string_view text, const KeyRow<Record>&) {
  value = BooleanOfText(text);
}
template <typename Record>
void Read(int& value, std::string_view text, const KeyRow<Record>& row) {
  value = IntOf(text);
  if (value >= row.least && value <= row.most) return;
  value = row.beyond == Beyond::Default ? IntOf(row.default_text) : std::clamp(value, row.least, row.most);
}
template <typename Record>
void Read(std::uint8_t& value, std::string_view text, const KeyRow<Record>&) {
  value = ByteOfText(text);
}
template <typename Record>
void Read(float& value, std::string_view text, const KeyRow<Record>&) {
  value = static_cast<float>(std::clamp<double>(NumberOfText(text), -kFarthestTwip, kFarthestTwip));
}
template <typename Record>
void Read(double& value, std::string_view text, const KeyRow<Record>& row) {
  const double size = NumberOfText(text);
  value = size > 0 ? std::clamp(size, 1.0, kLargestFont) : NumberOfText(row.default_text);
}
template <typename Record>
void Read(std::string& value, std::string_view text, const KeyRow<Record>&) {
  value = text;
}
template <typename Record>
void Read(Alignment& value, std::string_view text, const KeyRow<Record>&) {
  value = AlignmentOf(IntOf(text));
}

std::string TextOf(bool value) { return TextOfBoolean(value); }
std::string TextOf(int value) { return std::to_string(value); }
std::string TextOf(std::uint8_t value) { return std::to_string(value); }
std::string TextOf(float value) { return TextOfNumber(value); }
std::string TextOf(double value) { return TextOfNumber(value); }
std::string TextOf(const std::string& value) { return value; }
std::string TextOf(Alignment value) { return std::to_string(static_cast<int>(value)); }

template <typename Record>
std::string TextOfField(const KeyRow<Record>& row, Record& record) {
  return std::visit([&](auto field) { return TextOf(field(record)); }, row.field);
}

template <typename Record>
void Load(const IniDocument& document, const KeyRow<Record>& row, std::string_view name, Record& record) {
  const std::string_view text = document.Find(kSettingsSection, name).value_or(row.default_text);
  std::visit([&](auto field) { Read(field(record), text, row); }, row.field);
}

// Saves values and remembers the keys that could not be stored.
class Saver {
 public:
  explicit Saver(IniDocument& document) : document_(document) {}

  template <typename Record>
  void Save(const KeyRow<Record>& row, const std::string& name, Record& record) {
    if (!document_.Set(kSettingsSection, name, TextOfField(row, record)))
      refused_ += (refused_.empty() ? "" : ", ") + name;
  }

  void Save(std::span<const GlobalKey* const> keys, Settings settings) {
    for (const GlobalKey* key : keys) Save(*key, std::string{key->name}, settings);
  }

  void Save(std::span<const TrackKey> keys, std::size_t index, TrackValues track) {
    for (const TrackKey& key : keys) Save(key, NameForTrack(key, static_cast<int>(index)), track);
  }

  Result<void> Outcome() const {
    if (refused_.empty()) return {};
    return Failure(ErrorKind::Unsupported, refused_ + ": a text with a line break cannot be stored");
  }

 private:
  IniDocument& document_;
  std::string refused_;
};

tl::unexpected<Error> UnknownKey(std::string_view key) {
  return Failure(ErrorKind::Unsupported, std::string{key} + ": there is no setting with this name");
}

// Whether the key may have this value.
template <typename Record>
Result<void> CheckValue(const KeyRow<Record>& row, std::string_view key, std::string_view value) {
  if (!row.IsText() && !IsNumber(value)) {
    return Failure(ErrorKind::Unsupported, std::string{key} + ": \"" + std::string{value} + "\" is not a number");
  }
  if (IniDocument{}.Set(kSettingsSection, key, value)) return {};
  return Failure(ErrorKind::Unsupported, std::string{key} + ": a text with a line break cannot be stored");
}

template <typename Record>
Result<void> SetField(const KeyRow<Record>& row, std::string_view key, std::string_view value, Record& record) {
  auto checked = CheckValue(row, key, value);
  if (checked) std::visit([&](auto field) { Read(field(record), Trim(value), row); }, row.field);
  return checked;
}

}  // namespace

Settings LoadValues(const IniDocument& document) {
  Settings settings;
  for (const GlobalKey& key : GlobalKeys()) Load(document, key, key.name, settings);
  return settings;
}

void LoadValuesForIndex(const IniDocument& document, int index, TrackStyle& style, Font& list_font) {
  TrackValues track{style, list_font};
  for (const TrackKey& key : TrackKeys()) Load(document, key, NameForTrack(key, index), track);
  style = std::move(track.style);
  list_font = std::move(track.list_font);
}

TrackStyle DefaultTrackStyle() {
  TrackStyle style;
  Font unused;
  LoadValuesForIndex(IniDocument{}, 0, style, unused);
  return style;
}

Result<void> SaveValues(IniDocument& document, const Settings& settings, std::span<const TrackValues> tracks,
                        std::size_t current_track) {
  Settings current = settings;
  const std::size_t saved = std::min<std::size_t>(tracks.size(), kMostTracks);
  for (std::size_t i = 0; i < saved; ++i) current.right_to_left[i] = tracks[i].style.RightToLeft;
  if (current_track < tracks.size()) current.list_font = tracks[current_track].list_font;

  Saver saver(document);
  saver.Save(SessionKeys(), std::move(current));
  for (std::size_t i = 0; i < saved; ++i) saver.Save(TrackKeys(), i, tracks[i]);
  return saver.Outcome();
}

Result<void> SaveOptions(IniDocument& document, const Settings& settings) {
  Saver saver(document);
  saver.Save(OptionKeys(), settings);
  return saver.Outcome();
}

Result<void> SaveListFont(IniDocument& document, int index, const Font& list_font) {
  Saver saver(document);
  saver.Save(ListFontKeys(), static_cast<std::size_t>(index), TrackValues{{}, list_font});
  return saver.Outcome();
}

Result<void> ApplySetting(IniDocument& document, std::string_view key, std::string_view value) {
  const GlobalKey* global = FindGlobalKey(key);
  const auto of_track = FindTrackKey(key);
  if (global == nullptr && !of_track) return UnknownKey(key);
  auto checked = global != nullptr ? CheckValue(*global, key, value) : CheckValue(*of_track->row, key, value);
  if (checked) document.Set(kSettingsSection, key, value);
  return checked;
}

Result<void> SetKey(Settings& settings, std::string_view key, std::string_view text) {
  const GlobalKey* row = FindGlobalKey(key);
  return row == nullptr ? UnknownKey(key) : SetField(*row, key, text, settings);
}

Result<void> SetKey(TrackStyle& style, Font& list_font, std::string_view key, std::string_view text) {
  const auto found = FindTrackKey(key);
  if (!found) return UnknownKey(key);
  TrackValues track{style, list_font};
  auto set = SetField(*found->row, key, text, track);
  style = std::move(track.style);
  list_font = std::move(track.list_font);
  return set;
}

std::string TextOfKey(Settings settings, std::string_view key) {
  const GlobalKey* row = FindGlobalKey(key);
  return row == nullptr ? "" : TextOfField(*row, settings);
}

Result<void> SaveKey(IniDocument& document, const Settings& settings, std::string_view key) {
  if (FindGlobalKey(key) == nullptr) return UnknownKey(key);
  return ApplySetting(document, key, TextOfKey(settings, key));
}

}  // namespace captoria
