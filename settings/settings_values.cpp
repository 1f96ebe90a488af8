// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "settings/settings_values.h"

#include <algorithm>
#include <string>

#include "settings/number_text.h"

namespace captoria {
namespace {

constexpr double kLargestFont = 1000;  // points
constexpr float kFarthestTwip = 1e6F;  // some hundred screens away

int IntOf(std::string_view text) { return RoundToInt(NumberOfText(text)); }

template <typename Record>
void Read(bool& value, std::string_view text, const KeyRow<Record>&) {
  value = BooleanOfText(text);
}
template <typename Record>
void Read(int& value, std::string_view text, const KeyRow<Record>& row) {
  value = std::clamp(IntOf(text), row.least, row.most);
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
void Load(const IniDocument& document, const KeyRow<Record>& row, std::string_view name, Record& record) {
  const std::string_view text = document.Find(kSettingsSection, name).value_or(row.default_text);
  std::visit([&](auto field) { Read(field(record), text, row); }, row.field);
}

// Saves values one after the other and remembers the keys that could not be stored.
class Saver {
 public:
  explicit Saver(IniDocument& document) : document_(document) {}

  template <typename Record>
  void Save(const KeyRow<Record>& row, const std::string& name, Record& record) {
    const std::string text = std::visit([&](auto field) { return TextOf(field(record)); }, row.field);
    if (!document_.Set(kSettingsSection, name, text)) refused_ += (refused_.empty() ? "" : ", ") + name;
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

Result<void> SaveOne(IniDocument& document, const GlobalKey& key, Settings settings) {
  Saver saver(document);
  saver.Save(key, std::string{key.name}, settings);
  return saver.Outcome();
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

Font DefaultListFont() { return LoadValues(IniDocument{}).list_font; }

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

Result<void> SaveDivXMuxPath(IniDocument& document, const Settings& settings) {
  return SaveOne(document, DivXMuxPathKey(), settings);
}

Result<void> SaveBmpToXSubPath(IniDocument& document, const Settings& settings) {
  return SaveOne(document, BmpToXSubPathKey(), settings);
}

Result<void> SaveShowWelcome(IniDocument& document, const Settings& settings) {
  return SaveOne(document, ShowWelcomeKey(), settings);
}

Result<void> SaveListFont(IniDocument& document, int index, const Font& list_font) {
  Saver saver(document);
  saver.Save(ListFontKeys(), static_cast<std::size_t>(index), TrackValues{{}, list_font});
  return saver.Outcome();
}

Result<void> ApplySetting(IniDocument& document, std::string_view key, std::string_view value) {
  const std::string name{key};
  const auto known = FindKey(key);
  if (!known) return Failure(ErrorKind::Unsupported, name + ": there is no setting of this name");
  if (!known->is_text && !IsNumber(value)) {
    return Failure(ErrorKind::Unsupported, name + ": \"" + std::string{value} + "\" is not a number");
  }
  if (document.Set(kSettingsSection, key, value)) return {};
  return Failure(ErrorKind::Unsupported, name + ": a text with a line break cannot be stored");
}

}  // namespace captoria
