// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "settings/key_table.h"

#include <algorithm>
#include <array>

#include "base/ascii.h"

namespace captoria {
namespace {

// The value that `Path`, one pointer to member after the other, leads to.
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

// Farther than any frame reaches, and near enough to be added up without fear.
constexpr int kFarthest = 32767;
constexpr int kLargestColor = 0xFFFFFF;
constexpr std::string_view kListFontSize = "8";

using S = Settings;
using T = TrackStyle;

// clang-format off
constexpr auto kGlobalKeys = std::to_array<GlobalKey>({
    {"Lang", "English", "language of the windows", kGlobal<&S::Lang>},
    {"UseBmpToXSub", "-1", "make bitmaps 720 pixels wide for the converter, else 640 for the muxer alone", kGlobal<&S::UseBmpToXSub>},
    {"DivXMuxPath", "", "file of the muxer, where the program's folder has none", kGlobal<&S::DivXMuxPath>},
    {"bmpToxSubPath", "", "file of the bitmap converter, where the program's folder has none", kGlobal<&S::bmpToxSubPath>},
    {"UseRightToLeftLang0", "0", "the first track is written from right to left", RightToLeft<0>},
    {"UseRightToLeftLang1", "0", "the second track is written from right to left", RightToLeft<1>},
    {"UseRightToLeftLang2", "0", "the third track is written from right to left", RightToLeft<2>},
    {"UseRightToLeftLang3", "0", "the fourth track is written from right to left", RightToLeft<3>},
    {"UseRightToLeftLang4", "0", "the fifth track is written from right to left", RightToLeft<4>},
    {"UseRightToLeftLang5", "0", "the sixth track is written from right to left", RightToLeft<5>},
    {"UseRightToLeftLang6", "0", "the seventh track is written from right to left", RightToLeft<6>},
    {"UseRightToLeftLang7", "0", "the eighth track is written from right to left", RightToLeft<7>},
    {"BatchToRun", "", "command file to run after a subtitle file was loaded", kGlobal<&S::BatchToRun>},
    {"BackColor", "16711680", "background of the bitmaps: red + 256 x green + 65536 x blue", kGlobal<&S::BackColor>, 0, kLargestColor},
    {"Preview", "-1", "show the preview", kGlobal<&S::Preview>},
    {"deleteTemp", "-1", "delete all temporary files when a film is made", kGlobal<&S::deleteTemp>},
    {"deleteBmp", "0", "delete the temporary bitmaps when a film is made", kGlobal<&S::deleteBmp>},
    {"deleteOther", "0", "delete the other temporary files when a film is made", kGlobal<&S::deleteOther>},
    {"ReplaceDivX", "0", "replace a film of the same name, else make another name", kGlobal<&S::ReplaceDivX>},
    {"FrameForPreview", "50", "number of the video frame behind the preview, -1 the first", kGlobal<&S::FrameForPreview>, -1},
    {"ForceVideoHeight", "", "video height to reckon with in pixels, 0 for the video's own", kGlobal<&S::ForceVideoHeight>, 0, kFarthest},
    {"UsePalMode1", "0", "move the subtitles for PAL to NTSC conversion", kGlobal<&S::UsePalMode1>},
    {"LoadSubManyTimes", "1", "number of tracks a subtitle file is loaded into", kGlobal<&S::LoadSubManyTimes>, 1},
    {"UnLoadSrt", "-1", "close all subtitle files when a video is opened", kGlobal<&S::UnLoadSrt>},
    {"LoadSrtAuto", "-1", "load subtitles named like an opened video from its folder", kGlobal<&S::LoadSrtAuto>},
    {"LoadSrtAutoFolder", "0", "load subtitles named like an opened video from the folder below", kGlobal<&S::LoadSrtAutoFolder>},
    {"LoadSrtAutoFolderText", "", "that folder", kGlobal<&S::LoadSrtAutoFolderText>},
    {"LoadAviAuto", "-1", "open the video named like a loaded subtitle file from its folder", kGlobal<&S::LoadAviAuto>},
    {"LoadAviAutoFolder", "0", "open the video named like a loaded subtitle file from the folder below", kGlobal<&S::LoadAviAutoFolder>},
    {"LoadAviAutoFolderText", "", "that folder", kGlobal<&S::LoadAviAutoFolderText>},
    {"ShowDos", "-1", "show the tools at work in a console window", kGlobal<&S::ShowDos>},
    {"ShowDosPause", "-1", "keep the console window open until a key is pressed", kGlobal<&S::ShowDosPause>},
    {"WaitToEndDos", "-1", "wait for the tools and say how they ended", kGlobal<&S::WaitToEndDos>},
    {"ShowDosCombo", "0", "style of the console window", kGlobal<&S::ShowDosCombo>},
    {"RunDivX", "0", "play the film when it is made", kGlobal<&S::RunDivX>},
    {"AutoShowAviInfo", "0", "show the streams of an opened video", kGlobal<&S::AutoShowAviInfo>},
    {"MiddlePos", "250", "top of the divider between the cues and the preview, twips", kGlobal<&S::MiddlePos>},
    {"FontNameL", kDefaultListFontName, "font of the cue lists", kListFont<&Font::name>},
    {"FontSizeL", kListFontSize, "its size in points", kListFont<&Font::size>},
    {"FontBoldL", "0", "bold", kListFont<&Font::bold>},
    {"FontItalicL", "0", "italic", kListFont<&Font::italic>},
    {"FontCharsetL", "1", "character set", kListFont<&Font::charset>, 0, 255},
    {"MainX", "150", "left of the main window, twips", kGlobal<&S::MainX>},
    {"MainY", "150", "top of the main window, twips", kGlobal<&S::MainY>},
    {"MainWidth", "9000", "width of the main window, twips", kGlobal<&S::MainWidth>},
    {"MainHeight", "9000", "height of the main window, twips", kGlobal<&S::MainHeight>},
    {"ShowWelcome", "-1", "greet the user at the next start", kGlobal<&S::ShowWelcome>},
});

constexpr auto kTrackKeys = std::to_array<TrackKey>({
    {"FitFont", "-1", "make the font of cues beyond the safe viewing area smaller", kStyle<&T::FitFont>},
    {"VertPos", "40", "pixels above the bottom of the frame", kStyle<&T::VertPos>, -kFarthest, kFarthest},
    {"HorPos", "0", "pixels right of the centred place", kStyle<&T::HorPos>, kHorPosMin, kHorPosMax},
    {"InAlign", "1", "alignment of the lines: 0 left, 1 centre, else right", kStyle<&T::InAlign>},
    {"Language", "en ENGLISH", "language of the stream: code, blank, name", kStyle<&T::Language>},
    {"SubType", "2", "type of the stream", kStyle<&T::SubType>},
    {"Color1R", "255", "red of the letters", kStyle<&T::ForeColor, &Color::red>},
    {"Color1G", "255", "green of the letters", kStyle<&T::ForeColor, &Color::green>},
    {"Color1B", "255", "blue of the letters", kStyle<&T::ForeColor, &Color::blue>},
    {"Color2R", "", "red of the outline", kStyle<&T::OutlineColor, &Color::red>},
    {"Color2G", "", "green of the outline", kStyle<&T::OutlineColor, &Color::green>},
    {"Color2B", "", "blue of the outline", kStyle<&T::OutlineColor, &Color::blue>},
    {"Color3R", "70", "red of the shadow", kStyle<&T::ShadowColor, &Color::red>},
    {"Color3G", "70", "green of the shadow", kStyle<&T::ShadowColor, &Color::green>},
    {"Color3B", "70", "blue of the shadow", kStyle<&T::ShadowColor, &Color::blue>},
    {"OutlineWidth", "1", "width of the outline, 0 to 4", kStyle<&T::OutlineWidth>, 0, kOutlineWidthMax},
    {"ShadowBevel", "0", "offset of the shadow in pixels", kStyle<&T::ShadowBevel>, -kFarthest, kFarthest},
    {"FontName", "Arial", "font of the subtitles", kFont<&Font::name>},
    {"FontSize", "22", "its size in points", kFont<&Font::size>},
    {"FontBold", "0", "bold", kFont<&Font::bold>},
    {"FontItalic", "0", "italic", kFont<&Font::italic>},
    {"FontCharset", "1", "character set", kFont<&Font::charset>, 0, 255},
    {"FontNameL", kDefaultListFontName, "font of this track's cue lists", kTrackListFont<&Font::name>},
    {"FontSizeL", kListFontSize, "its size in points", kTrackListFont<&Font::size>},
    {"FontBoldL", "0", "bold", kTrackListFont<&Font::bold>},
    {"FontItalicL", "0", "italic", kTrackListFont<&Font::italic>},
    {"FontCharsetL", "1", "character set", kTrackListFont<&Font::charset>, 0, 255},
});
// clang-format on

// The rows of these names. A name that no row has does not compile.
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

constexpr auto kSingleKeys = Rows("DivXMuxPath", "bmpToxSubPath", "ShowWelcome");

constexpr std::size_t kListFontRows = 5;
static_assert(kTrackKeys[kTrackKeys.size() - kListFontRows].name == "FontNameL", "a track's list font stands last");

template <typename Record>
KeyDescription Describe(const KeyRow<Record>& row, bool per_track) {
  const bool is_text = std::holds_alternative<std::string& (*)(Record&)>(row.field);
  return {row.name, row.default_text, row.meaning, per_track, is_text};
}

}  // namespace

std::span<const GlobalKey> GlobalKeys() { return kGlobalKeys; }
std::span<const TrackKey> TrackKeys() { return kTrackKeys; }
std::span<const GlobalKey* const> SessionKeys() { return kSessionKeys; }
std::span<const GlobalKey* const> OptionKeys() { return kOptionKeys; }
const GlobalKey& DivXMuxPathKey() { return *kSingleKeys[0]; }
const GlobalKey& BmpToXSubPathKey() { return *kSingleKeys[1]; }
const GlobalKey& ShowWelcomeKey() { return *kSingleKeys[2]; }
std::span<const TrackKey> ListFontKeys() { return TrackKeys().last(kListFontRows); }

std::string NameForTrack(const TrackKey& key, int index) { return std::string{key.name} + std::to_string(index); }

std::vector<KeyDescription> DescribeKeys() {
  std::vector<KeyDescription> keys;
  keys.reserve(kGlobalKeys.size() + kTrackKeys.size());
  for (const GlobalKey& row : kGlobalKeys) keys.push_back(Describe(row, false));
  for (const TrackKey& row : kTrackKeys) keys.push_back(Describe(row, true));
  return keys;
}

std::optional<KeyDescription> FindKey(std::string_view name) {
  const bool indexed = !name.empty() && name.back() >= '0' && name.back() < '0' + kMostTracks;
  const std::string_view base = name.substr(0, indexed ? name.size() - 1 : name.size());
  for (const KeyDescription& key : DescribeKeys()) {
    const bool named =
        key.per_track ? indexed && EqualsIgnoringCase(key.name, base) : EqualsIgnoringCase(key.name, name);
    if (named) return key;
  }
  return std::nullopt;
}

}  // namespace captoria
