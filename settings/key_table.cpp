// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "settings/key_table.h"

#include <algorithm>
#include <array>

#include "base/ascii.h"

namespace captoria {
namespace {

// Follows `Path`, a chain of pointers to members.
template <typename Record, auto... Path>
auto& Reach(Record& record) {
  return (record.*....*Path);
}

template <std::size_t Index>
bool& RightToLeft(Settings& settings) {
  return settings.right_to_left[Index];
}

template <auto... Path>
constexpr auto kGlobal = &Reach<Settings, Path...>;
template <auto... Path>
constexpr auto kListFont = &Reach<Settings, &Settings::list_font, Path...>;
template <auto... Path>
constexpr auto kStyle = &Reach<TrackValues, &TrackValues::style, Path...>;
template <auto Member>
constexpr auto kFont = kStyle<&TrackStyle::font, Member>;
template <auto Member>
constexpr auto kTrackListFont = &Reach<TrackValues, &TrackValues::list_font, Member>;

// Larger than any frame, and small enough that sums do not overflow.
constexpr int kFarthest = 32767;
constexpr int kLargestColor = 0xFFFFFF;
constexpr std::string_view kListFontSize = "8";

// The lengths of the lists that a number chooses from.
constexpr int kConsoleStyles = 5;
constexpr int kSubtitleTypes = 17;

using S = Settings;
using T = TrackStyle;

// clang-format off
constexpr auto kGlobalKeys = std::to_array<GlobalKey>({
    {"Lang", "English", kGlobal<&S::Lang>},  // language of the windows
    {"UseBmpToXSub", "-1", kGlobal<&S::UseBmpToXSub>},  // make bitmaps 720 pixels wide for the converter, otherwise 640 for the muxer alone
    {keys::kDivXMuxPath, "", kGlobal<&S::DivXMuxPath>},  // file of the muxer, used if the program's folder has none
    {keys::kBmpToXSubPath, "", kGlobal<&S::bmpToxSubPath>},  // file of the bitmap converter, used if the program's folder has none
    {"UseRightToLeftLang0", "0", RightToLeft<0>},  // the first track is written from right to left
    {"UseRightToLeftLang1", "0", RightToLeft<1>},  // the second track is written from right to left
    {"UseRightToLeftLang2", "0", RightToLeft<2>},  // the third track is written from right to left
    {"UseRightToLeftLang3", "0", RightToLeft<3>},  // the fourth track is written from right to left
    {"UseRightToLeftLang4", "0", RightToLeft<4>},  // the fifth track is written from right to left
    {"UseRightToLeftLang5", "0", RightToLeft<5>},  // the sixth track is written from right to left
    {"UseRightToLeftLang6", "0", RightToLeft<6>},  // the seventh track is written from right to left
    {"UseRightToLeftLang7", "0", RightToLeft<7>},  // the eighth track is written from right to left
    {"BatchToRun", "", kGlobal<&S::BatchToRun>},  // command file to run after a subtitle file was loaded
    {"BackColor", "16711680", kGlobal<&S::BackColor>, 0, kLargestColor},  // background of the bitmaps: red + 256 x green + 65536 x blue
    {"Preview", "-1", kGlobal<&S::Preview>},  // show the preview
    {"deleteTemp", "-1", kGlobal<&S::deleteTemp>},  // delete all temporary files after a film was made
    {"deleteBmp", "0", kGlobal<&S::deleteBmp>},  // delete the temporary bitmaps after a film was made
    {"deleteOther", "0", kGlobal<&S::deleteOther>},  // delete the other temporary files after a film was made
    {keys::kReplaceDivX, "0", kGlobal<&S::ReplaceDivX>},  // replace an existing film of the same name, otherwise choose another name
    {"FrameForPreview", "50", kGlobal<&S::FrameForPreview>, -1},  // number of the video frame shown in the preview, -1 for the first
    {"ForceVideoHeight", "", kGlobal<&S::ForceVideoHeight>, 0, kFarthest},  // video height in pixels to assume, 0 for the video's own
    {"UsePalMode1", "0", kGlobal<&S::UsePalMode1>},  // move the subtitles for PAL to NTSC conversion
    {"LoadSubManyTimes", "1", kGlobal<&S::LoadSubManyTimes>, 1},  // number of tracks a subtitle file is loaded into
    {"UnLoadSrt", "-1", kGlobal<&S::UnLoadSrt>},  // close all subtitle files when a video is opened
    {"LoadSrtAuto", "-1", kGlobal<&S::LoadSrtAuto>},  // load subtitles named like an opened video from its folder
    {"LoadSrtAutoFolder", "0", kGlobal<&S::LoadSrtAutoFolder>},  // load subtitles named like an opened video from the folder below
    {"LoadSrtAutoFolderText", "", kGlobal<&S::LoadSrtAutoFolderText>},  // that folder
    {"LoadAviAuto", "-1", kGlobal<&S::LoadAviAuto>},  // open the video named like a loaded subtitle file from its folder
    {"LoadAviAutoFolder", "0", kGlobal<&S::LoadAviAutoFolder>},  // open the video named like a loaded subtitle file from the folder below
    {"LoadAviAutoFolderText", "", kGlobal<&S::LoadAviAutoFolderText>},  // that folder
    {keys::kShowDos, "-1", kGlobal<&S::ShowDos>},  // show the tools in a console window
    {keys::kShowDosPause, "-1", kGlobal<&S::ShowDosPause>},  // keep the console window open until a key is pressed
    {keys::kWaitToEndDos, "-1", kGlobal<&S::WaitToEndDos>},  // wait for the tools and report how they ended
    {"ShowDosCombo", "0", kGlobal<&S::ShowDosCombo>, 0, kConsoleStyles - 1, Beyond::Default},  // style of the console window
    {keys::kRunDivX, "0", kGlobal<&S::RunDivX>},  // play the film after it was made
    {"AutoShowAviInfo", "0", kGlobal<&S::AutoShowAviInfo>},  // show the streams of an opened video
    {"MiddlePos", "250", kGlobal<&S::MiddlePos>},  // top of the divider between the cues and the preview, twips
    {"FontNameL", kDefaultListFontName, kListFont<&Font::name>},  // font of the cue lists
    {"FontSizeL", kListFontSize, kListFont<&Font::size>},  // its size in points
    {"FontBoldL", "0", kListFont<&Font::bold>},  // bold
    {"FontItalicL", "0", kListFont<&Font::italic>},  // italic
    {"FontCharsetL", "1", kListFont<&Font::charset>, 0, 255},  // character set
    {"MainX", "150", kGlobal<&S::MainX>},  // left of the main window, twips
    {"MainY", "150", kGlobal<&S::MainY>},  // top of the main window, twips
    {"MainWidth", "9000", kGlobal<&S::MainWidth>},  // width of the main window, twips
    {"MainHeight", "9000", kGlobal<&S::MainHeight>},  // height of the main window, twips
    {keys::kShowWelcome, "-1", kGlobal<&S::ShowWelcome>},  // show the welcome dialog at the next start
});

constexpr auto kTrackKeys = std::to_array<TrackKey>({
    {"FitFont", "-1", kStyle<&T::FitFont>},  // shrink the font of cues outside the safe viewing area
    {"VertPos", "40", kStyle<&T::VertPos>, -kFarthest, kFarthest},  // pixels above the bottom of the frame
    {"HorPos", "0", kStyle<&T::HorPos>, kHorPosMin, kHorPosMax},  // pixels to the right of the centre
    {"InAlign", "1", kStyle<&T::InAlign>},  // alignment of the lines: 0 left, 1 centre, otherwise right
    {"Language", "en ENGLISH", kStyle<&T::Language>},  // language of the stream: code, blank, name
    {"SubType", "2", kStyle<&T::SubType>, 1, kSubtitleTypes, Beyond::Default},  // type of the stream
    {"Color1R", "255", kStyle<&T::ForeColor, &Color::red>},  // red of the letters
    {"Color1G", "255", kStyle<&T::ForeColor, &Color::green>},  // green of the letters
    {"Color1B", "255", kStyle<&T::ForeColor, &Color::blue>},  // blue of the letters
    {"Color2R", "", kStyle<&T::OutlineColor, &Color::red>},  // red of the outline
    {"Color2G", "", kStyle<&T::OutlineColor, &Color::green>},  // green of the outline
    {"Color2B", "", kStyle<&T::OutlineColor, &Color::blue>},  // blue of the outline
    {"Color3R", "70", kStyle<&T::ShadowColor, &Color::red>},  // red of the shadow
    {"Color3G", "70", kStyle<&T::ShadowColor, &Color::green>},  // green of the shadow
    {"Color3B", "70", kStyle<&T::ShadowColor, &Color::blue>},  // blue of the shadow
    {"OutlineWidth", "1", kStyle<&T::OutlineWidth>, 0, kOutlineWidthMax},  // width of the outline, 0 to 4
    {"ShadowBevel", "0", kStyle<&T::ShadowBevel>, -kFarthest, kFarthest},  // offset of the shadow in pixels
    {"FontName", "Arial", kFont<&Font::name>},  // font of the subtitles
    {"FontSize", "22", kFont<&Font::size>},  // its size in points
    {"FontBold", "0", kFont<&Font::bold>},  // bold
    {"FontItalic", "0", kFont<&Font::italic>},  // italic
    {"FontCharset", "1", kFont<&Font::charset>, 0, 255},  // character set
    {"FontNameL", kDefaultListFontName, kTrackListFont<&Font::name>},  // font of this track's cue lists
    {"FontSizeL", kListFontSize, kTrackListFont<&Font::size>},  // its size in points
    {"FontBoldL", "0", kTrackListFont<&Font::bold>},  // bold
    {"FontItalicL", "0", kTrackListFont<&Font::italic>},  // italic
    {"FontCharsetL", "1", kTrackListFont<&Font::charset>, 0, 255},  // character set
});
// clang-format on

// The rows with these names. An unknown name does not compile.
template <typename... Name>
consteval auto Rows(Name... name) {
  const auto row = [](std::string_view wanted) { return &*std::ranges::find(kGlobalKeys, wanted, &GlobalKey::name); };
  const std::array rows{row(name)...};
  for (const GlobalKey* found : rows) {
    if (found == kGlobalKeys.data() + kGlobalKeys.size()) throw "no row of this name";
  }
  return rows;
}

constexpr auto kSessionKeys =
    Rows("Lang", "UseRightToLeftLang0", "UseRightToLeftLang1", "UseRightToLeftLang2", "UseRightToLeftLang3",
         "UseRightToLeftLang4", "UseRightToLeftLang5", "UseRightToLeftLang6", "UseRightToLeftLang7", "MainX", "MainY",
         "MainWidth", "MainHeight", "Preview", "MiddlePos", "FontNameL", "FontSizeL", "FontBoldL", "FontItalicL",
         "FontCharsetL");

constexpr auto kOptionKeys =
    Rows("ReplaceDivX", "UseBmpToXSub", "BatchToRun", "deleteTemp", "deleteBmp", "deleteOther", "UnLoadSrt",
         "LoadSrtAuto", "LoadSrtAutoFolder", "LoadSrtAutoFolderText", "LoadAviAuto", "LoadAviAutoFolder",
         "LoadAviAutoFolderText", "BackColor", "ShowDos", "ShowDosPause", "WaitToEndDos", "ShowDosCombo", "RunDivX",
         "AutoShowAviInfo", "FrameForPreview", "ForceVideoHeight", "UsePalMode1", "LoadSubManyTimes");

constexpr std::size_t kListFontRows = 5;
static_assert(kTrackKeys[kTrackKeys.size() - kListFontRows].name == "FontNameL",
              "the rows of a track's list font come last");

}  // namespace

std::span<const GlobalKey> GlobalKeys() { return kGlobalKeys; }
std::span<const TrackKey> TrackKeys() { return kTrackKeys; }
std::span<const GlobalKey* const> SessionKeys() { return kSessionKeys; }
std::span<const GlobalKey* const> OptionKeys() { return kOptionKeys; }
std::span<const TrackKey> ListFontKeys() { return TrackKeys().last(kListFontRows); }

std::string NameForTrack(const TrackKey& key, int index) { return std::string{key.name} + std::to_string(index); }

const GlobalKey* FindGlobalKey(std::string_view name) {
  const auto* const row =
      std::ranges::find_if(kGlobalKeys, [&](const GlobalKey& key) { return EqualsIgnoringCase(key.name, name); });
  return row == kGlobalKeys.end() ? nullptr : &*row;
}

std::optional<KeyOfTrack> FindTrackKey(std::string_view name) {
  if (name.empty() || name.back() < '0' || name.back() >= '0' + kMostTracks) return std::nullopt;
  const int index = name.back() - '0';
  name.remove_suffix(1);
  const auto* const row =
      std::ranges::find_if(kTrackKeys, [&](const TrackKey& key) { return EqualsIgnoringCase(key.name, name); });
  if (row == kTrackKeys.end()) return std::nullopt;
  return KeyOfTrack{&*row, index};
}

}  // namespace captoria
