// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "settings/settings_values.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

TEST(SettingsValues, AnEmptyFileGivesTheDefaults) {
  const Settings settings = LoadValues(IniDocument{});
  EXPECT_EQ(settings.Lang, "English");
  EXPECT_EQ(BitmapWidth(settings), 720);
  EXPECT_EQ(settings.BackColor, 16711680);
  EXPECT_EQ(settings.FrameForPreview, 50);
  EXPECT_EQ(settings.ForceVideoHeight, 0);
  EXPECT_EQ(settings.MainX, 150);
  EXPECT_EQ(settings.MainHeight, 9000);

  TrackStyle style;
  Font list_font;
  style.RightToLeft = true;
  LoadValuesForIndex(IniDocument{}, 0, style, list_font);
  EXPECT_TRUE(style.RightToLeft) << "kept with the global settings";
  EXPECT_EQ(list_font.name, "MS Sans Serif");
  EXPECT_EQ(style.ForeColor, (Color{255, 255, 255}));
  EXPECT_EQ(style.OutlineColor, (Color{0, 0, 0}));
  EXPECT_EQ(style.ShadowColor, (Color{70, 70, 70}));
  EXPECT_EQ(style.VertPos, 40);
  EXPECT_EQ(style.HorPos, 0);
  EXPECT_EQ(style.InAlign, Alignment::Center);
  EXPECT_EQ(style.Language, "en ENGLISH");
  EXPECT_EQ(style.SubType, 2);
  EXPECT_EQ(style.OutlineWidth, 1);
  EXPECT_TRUE(style.FitFont);
  EXPECT_EQ(style.font.name, "Arial");
  EXPECT_EQ(style.font.size, 22);
  EXPECT_FALSE(style.font.bold || style.font.italic);
}

// What a key's text becomes is told by the text that is saved again.
struct Reading {
  const char* name;
  const char* key;
  const char* text;
  const char* saved;
};

void SaveEverything(IniDocument& document, const IniDocument& source, std::size_t tracks) {
  const Settings settings = LoadValues(source);
  std::vector<TrackValues> open;
  for (std::size_t i = 0; i < tracks; ++i) {
    open.push_back(TrackOf(source, static_cast<int>(i)));
    open[i].style.RightToLeft = settings.right_to_left[i];
  }
  // A current track that is none leaves the list font to the settings.
  EXPECT_TRUE(SaveValues(document, settings, open, tracks));
  EXPECT_TRUE(SaveOptions(document, settings));
  EXPECT_TRUE(SaveDivXMuxPath(document, settings));
  EXPECT_TRUE(SaveBmpToXSubPath(document, settings));
  EXPECT_TRUE(SaveShowWelcome(document, settings));
}

class SettingsReading : public testing::TestWithParam<Reading> {};

TEST_P(SettingsReading, BringsTheValueIntoItsRange) {
  IniDocument saved;
  SaveEverything(saved, Parsed(std::string{GetParam().key} + "=" + GetParam().text + "\n"), 1);
  EXPECT_EQ(saved.Find(kSettingsSection, GetParam().key), GetParam().saved);
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
        Reading{"WhiteBeyond", "BackColor", "99999999", "16777215"}),
    [](const auto& row) { return std::string{row.param.name}; });

std::string OtherText(const KeyDescription& key) {
  if (key.is_text) return std::string{key.default_text} + "\xC3\xA9 =;[x]";
  if (key.default_text == "0") return "-1";
  if (key.default_text == "-1") return "0";
  const int number = RoundToInt(NumberOfText(key.default_text));
  return std::to_string(number == 255 ? 254 : number + 1);
}

TEST(SettingsValues, EveryKeySurvivesSavingAndLoading) {
  std::map<std::string, std::string> wanted;
  std::string keys;
  for (const KeyDescription& key : DescribeKeys()) {
    for (int i = 0; i < (key.per_track ? 2 : 1); ++i) {
      const std::string name = std::string{key.name} + (key.per_track ? std::to_string(i) : "");
      wanted[name] = OtherText(key);
      keys += name + "=" + wanted[name] + "\n";
    }
  }
  ASSERT_EQ(wanted.size(), 47u + 2 * 27u);

  const std::string foreign = "; mine\n[Other]\nLang=x\n\n[general]\n#Lang=y\nTheirs = 1\n";
  IniDocument saved = IniDocument::Parse(foreign).value();
  SaveEverything(saved, Parsed(keys), 2);
  for (const auto& [name, text] : wanted) EXPECT_EQ(saved.Find("General", name), text) << name;
  EXPECT_THAT(saved.Text(), testing::StartsWith(foreign));

  const std::string once = saved.Text();
  SaveEverything(saved, saved, 2);
  EXPECT_EQ(saved.Text(), once);
}

TEST(SettingsValues, StylesOfTracksThatAreNotOpenStay) {
  const Settings settings = LoadValues(IniDocument{});
  std::vector<TrackValues> three(3, TrackOf(IniDocument{}, 0));
  three[2].style.VertPos = 77;
  three[2].style.RightToLeft = true;
  three[1].list_font.name = "Sans";
  IniDocument document;
  ASSERT_TRUE(SaveValues(document, settings, three, 1));
  EXPECT_EQ(LoadValues(document).list_font.name, "Sans");

  const std::vector<TrackValues> two(2, TrackOf(IniDocument{}, 0));
  ASSERT_TRUE(SaveValues(document, LoadValues(document), two, 0));
  EXPECT_EQ(TrackOf(document, 2).style.VertPos, 77);
  EXPECT_TRUE(LoadValues(document).right_to_left[2]);
  EXPECT_EQ(TrackOf(document, 3).style.VertPos, 40);
}

TEST(SettingsValues, SavingIsInTheOrderOfTheSession) {
  IniDocument document;
  ASSERT_TRUE(SaveValues(document, LoadValues({}), std::vector<TrackValues>(2, TrackOf({}, 0)), 0));
  const auto entries = document.Entries("General");
  ASSERT_EQ(entries.size(), 20u + 2 * 27u);
  EXPECT_EQ(entries[0].key, "Lang");
  EXPECT_EQ(entries[8].key, "UseRightToLeftLang7");
  EXPECT_EQ(entries[13].key, "Preview");
  EXPECT_EQ(entries[19].key, "FontCharsetL");
  EXPECT_EQ(entries[20].key, "FitFont0");
  EXPECT_EQ(entries[46].key, "FontCharsetL0");
  EXPECT_EQ(entries[73].key, "FontCharsetL1");
}

TEST(SettingsValues, ATextThatCannotBeStoredIsNamedAndTheRestIsSaved) {
  Settings settings = LoadValues({});
  settings.BatchToRun = "two\nlines";
  settings.LoadSubManyTimes = 3;
  IniDocument document;
  const auto saved = SaveOptions(document, settings);
  ASSERT_FALSE(saved);
  EXPECT_THAT(saved.error().message, HasSubstr("BatchToRun"));
  EXPECT_EQ(LoadValues(document).LoadSubManyTimes, 3);
  EXPECT_THAT(document.Text(), Not(HasSubstr("BatchToRun")));
}

TEST(SettingsValues, AListFontIsSavedForATrackThatIsNotOpen) {
  IniDocument document;
  ASSERT_TRUE(SaveListFont(document, 4, {"Sans", 9.5, true, false, 177}));
  EXPECT_EQ(document.Text(),
            "[General]\r\nFontNameL4=Sans\r\nFontSizeL4=9.5\r\nFontBoldL4=-1\r\nFontItalicL4=0\r\n"
            "FontCharsetL4=177\r\n");
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
  }
}

}  // namespace
}  // namespace captoria
