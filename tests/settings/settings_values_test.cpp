// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "settings/settings_values.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <map>

#include "settings/number_text.h"

namespace captoria {
namespace {

using testing::HasSubstr;
using testing::Not;

IniDocument Parsed(const std::string& keys) { return IniDocument::Parse("[General]\n" + keys).value(); }

TrackValues TrackOf(const IniDocument& document, int index) {
  TrackValues track;
  LoadValuesForIndex(document, index, track.style, track.list_font);
  return track;
}

// The values of a document and of one of its tracks.
struct Values {
  explicit Values(const IniDocument& document) : settings(LoadValues(document)), track(TrackOf(document, 0)) {}

  Result<void> Set(std::string_view key, std::string_view text) {
    return FindTrackKey(key) ? SetKey(track.style, track.list_font, key, text) : SetKey(settings, key, text);
  }
  std::string Text(std::string_view key) const {
    if (!FindTrackKey(key)) return TextOfKey(settings, key);
    IniDocument saved;
    EXPECT_TRUE(SaveValues(saved, settings, std::array{track}, 1));
    return std::string{saved.Find(kSettingsSection, key).value_or("")};
  }

  Settings settings;
  TrackValues track;
};

void SaveEverything(IniDocument& document, const IniDocument& source, std::size_t tracks) {
  const Settings settings = LoadValues(source);
  std::vector<TrackValues> open;
  for (std::size_t i = 0; i < tracks; ++i) {
    open.push_back(TrackOf(source, static_cast<int>(i)));
    open[i].style.RightToLeft = settings.right_to_left[i];
  }
  // With a current track that is not open, the list font comes from the settings.
  EXPECT_TRUE(SaveValues(document, settings, open, tracks));
  EXPECT_TRUE(SaveOptions(document, settings));
  for (const auto key : {keys::kDivXMuxPath, keys::kBmpToXSubPath, keys::kShowWelcome}) {
    EXPECT_TRUE(SaveKey(document, settings, key));
  }
}

struct Reading {
  const char* name;
  const char* key;
  const char* text;
  const char* value;
};

class SettingsReading : public testing::TestWithParam<Reading> {};

TEST_P(SettingsReading, BringsTheValueIntoItsRange) {
  const Values values(Parsed(std::string{GetParam().key} + "=" + GetParam().text + "\n"));
  EXPECT_EQ(values.Text(GetParam().key), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, SettingsReading,
    testing::Values(
        Reading{"TrueIsOff", "Preview", "True", "0"}, Reading{"TwoIsOn", "deleteBmp", "2", "-1"},
        Reading{"LoadedNoTimesIsOnce", "LoadSubManyTimes", "0", "1"},
        Reading{"LoadedFewerTimesIsOnce", "LoadSubManyTimes", "-3", "1"}, Reading{"FarRight", "HorPos0", "300", "200"},
        Reading{"FarLeft", "HorPos0", "-350", "-200"}, Reading{"OtherAlignmentIsRight", "InAlign0", "7", "2"},
        Reading{"ColourAboveAByte", "Color1R0", "300", "255"}, Reading{"ColourBelowAByte", "Color3B0", "-4", "0"},
        Reading{"ThickOutline", "OutlineWidth0", "9", "4"}, Reading{"HugePosition", "VertPos0", "1e300", "32767"},
        Reading{"HalvesGoToEven", "VertPos0", "2.5", "2"}, Reading{"EmptyNumberIsZero", "VertPos0", "", "0"},
        Reading{"FontWithoutSize", "FontSize0", "big", "22"}, Reading{"NegativeFont", "FontSize0", "-5", "22"},
        Reading{"FractionOfAPoint", "FontSize0", "12.75", "12.75"}, Reading{"HugeFont", "FontSizeL", "1e300", "1000"},
        Reading{"WindowFraction", "MainX", "-75.5", "-75.5"}, Reading{"HugeWindow", "MainWidth", "1e99", "1000000"},
        Reading{"WhiteBeyond", "BackColor", "99999999", "16777215"},
        Reading{"FontBelowAPoint", "FontSize0", "0.3", "1"}, Reading{"CharsetAboveAByte", "FontCharset0", "300", "255"},
        Reading{"FrameBeforeTheFirst", "FrameForPreview", "-2", "-1"},
        Reading{"NegativeHeight", "ForceVideoHeight", "-5", "0"},
        Reading{"TypeZeroIsNotInTheList", "SubType0", "0", "2"}, Reading{"FirstType", "SubType0", "1", "1"},
        Reading{"LastType", "SubType0", "17", "17"}, Reading{"TypeBehindTheList", "SubType0", "18", "2"},
        Reading{"LastConsoleStyle", "ShowDosCombo", "4", "4"},
        Reading{"ConsoleStyleBehindTheList", "ShowDosCombo", "5", "0"},
        Reading{"ConsoleStyleBeforeTheList", "ShowDosCombo", "-1", "0"}),
    [](const auto& row) { return std::string{row.param.name}; });

template <typename Record>
std::string OtherText(const KeyRow<Record>& key) {
  if (key.IsText()) return std::string{key.default_text} + "\xC3\xA9 =;[x]";
  if (key.default_text == "0") return key.most == 4 ? "1" : "-1";
  if (key.default_text == "-1") return "0";
  const int number = RoundToInt(NumberOfText(key.default_text));
  return std::to_string(number == 255 ? 254 : number + 1);
}

// A value that is not the default for each key.
std::map<std::string, std::string> OtherTexts(int tracks) {
  std::map<std::string, std::string> texts;
  for (const GlobalKey& key : GlobalKeys()) texts[std::string{key.name}] = OtherText(key);
  for (const TrackKey& key : TrackKeys()) {
    for (int i = 0; i < tracks; ++i) texts[NameForTrack(key, i)] = OtherText(key);
  }
  return texts;
}

IniDocument DocumentOf(const std::map<std::string, std::string>& texts) {
  std::string keys;
  for (const auto& [name, text] : texts) keys += name + "=" + text + "\n";
  return Parsed(keys);
}

TEST(SettingsValues, EveryKeySurvivesSavingAndLoading) {
  const auto wanted = OtherTexts(2);
  ASSERT_EQ(wanted.size(), 47u + 2 * 27u);

  const std::string foreign = "; mine\n[Other]\nLang=x\n\n[general]\n#Lang=y\nTheirs = 1\n";
  IniDocument saved = IniDocument::Parse(foreign).value();
  SaveEverything(saved, DocumentOf(wanted), 2);
  for (const auto& [name, text] : wanted) EXPECT_EQ(saved.Find("General", name), text) << name;
  EXPECT_THAT(saved.Text(), testing::StartsWith(foreign));

  const std::string once = saved.Text();
  SaveEverything(saved, saved, 2);
  EXPECT_EQ(saved.Text(), once);
}

TEST(SettingsValues, ListFontAndRightToLeftComeFromTheTracks) {
  std::vector<TrackValues> tracks(3, TrackOf({}, 0));
  tracks[1].list_font.name = "Sans";
  tracks[2].style.RightToLeft = true;
  IniDocument document;
  ASSERT_TRUE(SaveValues(document, LoadValues({}), tracks, 1));
  EXPECT_EQ(LoadValues(document).list_font.name, "Sans") << "of the current track";
  EXPECT_TRUE(LoadValues(document).right_to_left[2]);
}

TEST(SettingsValues, SettingAKeyLeavesEveryOtherValueAlone) {
  const auto texts = OtherTexts(1);
  const IniDocument document = DocumentOf(texts);
  for (const auto& [set, other_text] : texts) {
    auto wanted = texts;
    wanted[set] = Values(IniDocument{}).Text(set);
    EXPECT_NE(wanted[set], other_text) << set;
    Values values(document);
    ASSERT_TRUE(values.Set(set, wanted[set])) << set;
    for (const auto& [key, text] : wanted) EXPECT_EQ(values.Text(key), text) << set << " changed " << key;
  }
}

TEST(SettingsValues, AKeyIsSetByTheRulesOfReadingAndSavedAlone) {
  Settings settings = LoadValues({});
  settings.RunDivX = true;
  ASSERT_TRUE(SetKey(settings, "showdoscombo", " 9 "));
  EXPECT_EQ(settings.ShowDosCombo, 0);
  IniDocument document = Parsed("Lang=x\n");
  ASSERT_TRUE(SaveKey(document, settings, "RunDivX"));
  TrackStyle style = DefaultTrackStyle();
  style.RightToLeft = true;
  Font list_font;
  LoadValuesForIndex({}, 3, style, list_font);
  EXPECT_TRUE(style.RightToLeft) << "is kept with the global settings";
  ASSERT_TRUE(SetKey(style, list_font, "HorPos3", "999"));
  EXPECT_EQ(style.HorPos, 200);
  EXPECT_EQ(document.Text(), "[General]\nLang=x\nRunDivX=-1\n");
}

TEST(SettingsValues, AnOverrideTakesKnownKeysAndFittingValues) {
  const std::vector<std::pair<const char*, const char*>> accepted{
      {"VertPos0", "60"},     {"vertpos7", "60"},  {"deleteTemp", "0"},           {"FontNameL", "Sans"},
      {"FontNameL3", "Sans"}, {"DivXMuxPath", ""}, {"UseRightToLeftLang7", "-1"},
  };
  for (const auto& [key, value] : accepted) {
    IniDocument document = Parsed("VertPos0=10\n");
    EXPECT_TRUE(ApplySetting(document, key, value)) << key;
    EXPECT_EQ(document.Find("General", key), value);
  }
  const std::vector<std::pair<const char*, const char*>> refused{
      {"VertPos8", "60"}, {"VertPos", "60"}, {"VertPos01", "60"},    {"deleteTemp0", "0"},
      {"Volume", "1"},    {"", "1"},         {"deleteTemp", "true"}, {"Lang", "a\nb"},
  };
  for (const auto& [key, value] : refused) {
    IniDocument document;
    const auto applied = ApplySetting(document, key, value);
    ASSERT_FALSE(applied) << key;
    EXPECT_THAT(applied.error().message, testing::StartsWith(key));
    EXPECT_EQ(document.Text(), "");
    EXPECT_FALSE(Values(IniDocument{}).Set(key, value)) << key;
  }
  IniDocument document;
  EXPECT_FALSE(SaveKey(document, Settings{}, "VertPos0"));
}

}  // namespace
}  // namespace captoria
