// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "media/vobsub/vobsub_index.h"
#include "media/vobsub/vobsub_picture.h"
#include "media/vobsub/vobsub_source.h"
#include "media/xsub/xsub_packet.h"
#include "tests/support/seen_subtitle.h"
#include "tests/support/test_folder.h"
#include "tests/support/vobsub_pair.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kHead =
    "# VobSub index file, v7 (do not modify this line!)\nsize: 720x576\norg: 0, 0\n"
    "palette: 101010, f0f0f0, 202080, 808080, ff0000, 00ff00, 0000ff, ffff00, 00ffff, ff00ff, 123456, 654321, abcdef, "
    "fedcba, 777777, 888888\n";

// Text-like: short runs of a few colours with clear margins.
PlacedPicture Noise(int width, int height, int left, int top, int colors = 4) {
  std::mt19937 random(static_cast<unsigned>(width * 1000 + height));
  SubtitlePicture picture(width, height);
  for (int y = 0; y < height; ++y) {
    int left_over = 0;
    std::uint8_t color = 0;
    for (std::uint8_t& pixel : picture.Row(y)) {
      if (left_over-- == 0) {
        left_over = static_cast<int>(random() % (random() % 8 == 0 ? 300 : 12));
        color = static_cast<std::uint8_t>(random() % static_cast<unsigned>(colors));
      }
      pixel = color;
    }
  }
  return {picture, left, top};
}

void ExpectSeenAlike(const SubtitleSource& source, const std::vector<SeenSubtitle>& reference) {
  ASSERT_EQ(source.Count(), reference.size());
  for (std::size_t i = 0; i < reference.size(); ++i) {
    SCOPED_TRACE(i);
    const auto packet = source.Packet(i);
    ASSERT_TRUE(packet) << packet.error().message;
    const auto seen = SeeXsubPacket(*packet);
    ASSERT_EQ(seen.size(), 1u);
    EXPECT_TRUE(DecodeXsub(*packet));
    EXPECT_EQ(seen[0].show, reference[i].show);
    EXPECT_EQ(source.ShowTime(i), reference[i].show);
    const bool end_told = reference[i].hide > reference[i].show;
    EXPECT_EQ(seen[0].hide, end_told ? reference[i].hide : seen[0].hide);
    EXPECT_FALSE(reference[i].pixels.empty());
    EXPECT_TRUE(seen[0].pixels == reference[i].pixels) << seen[0].pixels.size() << " " << reference[i].pixels.size();
  }
}

struct Pair {
  const char* name;
  std::vector<TestSpu> spus;
  std::string extra_language{};  // lines behind its id
  int language = 0;              // that is in use; all the languages' packs are mixed
  std::size_t stuffing = 0;      // see VobSubPair
};

// FFmpeg loses a unit whose packs are mixed with those of others, so its pair has them one after the other.
std::string Save(const Pair& row, bool mixed, const TestFolder& folder) {
  VobSubPair pair(row.stuffing);
  std::vector<std::string> languages(static_cast<std::size_t>(row.language) + 1);
  int time = 1234;
  for (const TestSpu& spu : row.spus) {
    std::vector<std::pair<int, Bytes>> units;
    for (int i = 0; i < row.language; ++i) units.emplace_back(i, SpuBytes({.placed = Noise(700, 90 + 10 * i, 8, 20)}));
    units.emplace_back(row.language, SpuBytes(spu));
    const auto begins = mixed ? pair.AddPacks(units) : std::vector<std::size_t>{};
    for (std::size_t i = 0; i < units.size(); ++i) {
      languages[i] += pair.Timestamp(time, mixed ? begins[i] : pair.AddPacks({units[i]})[0]);
    }
    time += 2345;
  }
  std::string index = kHead + std::string{"langidx: "} + std::to_string(row.language) + "\n\n";
  for (std::size_t i = 0; i < languages.size(); ++i) {
    index += "id: en, index: " + std::to_string(i) + "\n";
    if (i + 1 == languages.size()) index += row.extra_language;
    index += languages[i] + "\n";
  }
  return pair.Save(folder, index);
}

class AgainstFfmpeg : public testing::TestWithParam<Pair> {};

TEST_P(AgainstFfmpeg, PacketsShowWhatTheDvdDecoderShows) {
  const Pair& row = GetParam();
  const TestFolder ours, reference;
  const std::string path = Save(row, true, ours), reference_path = Save(row, false, reference);

  Findings findings;
  const auto source = OpenVobSub(path, &findings);
  ASSERT_TRUE(source) << source.error().message;
  EXPECT_THAT(findings, testing::IsEmpty());
  EXPECT_EQ((*source)->Frame(), (Size{720, 576}));
  ExpectSeenAlike(**source, SeeSubtitleStream(reference_path, row.language));
}

const TestSpu kText{.placed = Noise(400, 60, 160, 500)};

INSTANTIATE_TEST_SUITE_P(
    Pairs, AgainstFfmpeg,
    testing::Values(Pair{"Plain", {kText, {.placed = Noise(4, 4, 716, 572)}, {.placed = Noise(720, 576, 0, 0)}}},
                    Pair{"UnitsOfSeveralPacks",
                         {{.placed = Noise(600, 200, 60, 300)}, {.placed = Noise(500, 300, 60, 200)}, kText}},
                    Pair{"StuffedPacks", {{.placed = Noise(600, 200, 60, 300)}, kText}, {}, 1, 5},
                    Pair{"Delayed", {kText, kText}, "delay: 00:00:01:250\n"},
                    Pair{"ThirdLanguageBetweenPacksOfOthers", {{.placed = Noise(600, 200, 60, 300)}, kText}, {}, 2},
                    Pair{"OddPlaceAndSize",
                         {{.placed = Noise(121, 21, 21, 201)},
                          {.placed = Noise(7, 3, 100, 101)},
                          {.placed = Noise(3, 5, 717, 571)}}},
                    Pair{"OddRowsFirst", {{.placed = Noise(300, 41, 20, 20), .odd_rows_first = true}, kText}},
                    Pair{"PartialContrast", {{.placed = kText.placed, .contrast = {0, 15, 3, 8}}}},
                    Pair{"HiddenPattern", {{.placed = kText.placed, .contrast = {0, 0, 15, 15}}}},
                    Pair{"VisibleBackground",
                         {{.placed = kText.placed, .contrast = {15, 15, 0, 15}},
                          {.placed = Noise(80, 20, 9, 9, 2), .contrast = {9, 9, 9, 9}}}},
                    Pair{"OtherPaletteNumbers", {{.placed = kText.placed, .palette_numbers = {9, 4, 15, 12}}}},
                    Pair{"NoEndTold",
                         {{.placed = kText.placed, .stop = {}}, kText, {.placed = kText.placed, .stop = {}}}}),
    [](const auto& row) { return std::string{row.param.name}; });

// One cue at each time; `lines` of the index come before them.
std::shared_ptr<SubtitleSource> OpenCues(const TestFolder& folder, const std::vector<std::pair<int, TestSpu>>& cues,
                                         const std::string& lines = "", Findings* findings = nullptr,
                                         std::size_t cut_off = 0) {
  VobSubPair pair;
  std::string index = kHead + std::string{"id: en, index: 0\n"} + lines;
  for (const auto& [time, spu] : cues) index += pair.Timestamp(time, pair.AddPacks({{0, SpuBytes(spu)}})[0]);
  pair.Sub().resize(pair.Sub().size() - cut_off);
  const auto source = OpenVobSub(pair.Save(folder, index), findings);
  EXPECT_TRUE(source) << source.error().message;
  return source ? *source : nullptr;
}

std::vector<std::pair<std::int64_t, std::int64_t>> TimesOf(const SubtitleSource& source) {
  std::vector<std::pair<std::int64_t, std::int64_t>> times;
  for (std::size_t i = 0; i < source.Count(); ++i) {
    const auto read = ReadXsubTimes(source.Packet(i).value_or(Bytes{}));
    times.emplace_back(read ? read->show : -1, read ? read->hide : -1);
  }
  return times;
}

TEST(VobSubSource, GivesEveryCueAnEndBeforeTheNext) {
  const TestFolder folder;
  const TestSpu endless{.placed = kText.placed, .stop = {}};
  // Its colours change in the middle of the picture, and at the end it fades to nothing.
  const TestSpu changing{
      .placed = kText.placed, .stop = 900, .before_end = {4, 0, 0}, .at_start = {7, 0, 6, 9, 9, 9, 9}};
  const auto source =
      OpenCues(folder, {{9000, endless}, {1000, endless}, {3000, changing}, {5000, kText}, {5000, kText}});
  EXPECT_THAT(TimesOf(*source),
              ElementsAre(std::pair{1000, 3000}, std::pair{3000, 5000}, std::pair{5000, 6001}, std::pair{9000, 14000}));
  const auto early = OpenCues(folder, {{1000, endless}, {4000, kText}}, "delay: -00:00:02:000\n");
  EXPECT_THAT(TimesOf(*early), ElementsAre(std::pair{0, 2000}, std::pair{2000, 3001})) << "begins before the film";
}

TEST(VobSubSource, LeavesOutWhatCannotBeShownAndSaysSo) {
  const TestFolder folder;
  Findings findings;
  // The last unit's control sequences are in the pack that is cut off.
  const auto source = OpenCues(folder, {{1000, kText}, {4000, {.placed = Noise(600, 200, 0, 0)}}}, "", &findings, 2048);
  EXPECT_EQ(source->Count(), 1u);
  EXPECT_THAT(findings, ElementsAre(Finding{.kind = FindingKind::DamagedSubtitle,
                                            .file = folder.File("film.idx"),
                                            .message = "1 of 2 subtitles cannot be shown and were left out"}));
}

TEST(VobSubSource, GathersUnitsWhoseSizeIsNonsense) {
  const TestFolder folder;
  const TestSpu large{.placed = Noise(600, 200, 0, 0)};
  const auto whole = OpenCues(folder, {{1000, large}, {4000, kText}});
  const Bytes packet = whole->Packet(0).value_or(Bytes{});
  for (const int high_byte : {0x00, 0xFF}) {
    std::string sub = folder.Get("film.sub");
    sub[29] = static_cast<char>(high_byte);
    folder.Put("film.sub", sub);
    const auto source = OpenVobSub(folder.File("film.idx"));
    ASSERT_TRUE(source);
    EXPECT_EQ((*source)->Count(), 2u);
    EXPECT_EQ((*source)->Packet(0).value_or(Bytes{}), packet);
  }
}

std::vector<Bytes> PacketsOf(const SubtitleSource& source) {
  std::vector<Bytes> packets;
  for (std::size_t i = 0; i < source.Count(); ++i) packets.push_back(source.Packet(i).value_or(Bytes{}));
  return packets;
}

TEST(VobSubSource, FindsTheOtherPicturesAfterBytesAreLostOrAdded) {
  const TestFolder folder;
  const TestSpu large{.placed = Noise(600, 200, 0, 0)};
  const auto whole = PacketsOf(*OpenCues(folder, {{1000, large}, {4000, kText}, {7000, large}, {10000, kText}}));
  const std::string sub = folder.Get("film.sub");
  struct Damage {
    const char* name;
    std::size_t at, lost, added;
    std::ptrdiff_t first_intact;
    std::size_t count;
  };
  for (const Damage& row : {Damage{"a byte of the first pack", 500, 1, 0, 1, 4},
                            Damage{"a byte of the second pack", 2048 + 500, 1, 0, 1, 4},
                            Damage{"the first byte", 0, 1, 0, 1, 3}, Damage{"700 bytes", 500, 700, 0, 1, 4},
                            Damage{"a byte more", 500, 0, 1, 1, 4}, Damage{"bytes before", 0, 0, 900, 0, 4}}) {
    std::string damaged = sub;
    folder.Put("film.sub", damaged.replace(row.at, row.lost, std::string(row.added, '\xFF')));
    const auto source = OpenVobSub(folder.File("film.idx"));
    ASSERT_TRUE(source) << row.name;
    const auto packets = PacketsOf(**source);
    ASSERT_EQ(packets.size(), row.count) << row.name;
    EXPECT_TRUE(std::equal(whole.begin() + row.first_intact, whole.end(), packets.end() - (4 - row.first_intact)))
        << row.name;
  }
}

TEST(VobSubSource, ReadsPacksThatAreNotPadded) {
  const TestFolder folder;
  const TestSpu large{.placed = Noise(600, 200, 0, 0)};
  const auto padded = PacketsOf(*OpenCues(folder, {{1000, large}, {4000, kText}, {7000, large}}));
  VobSubPair pair;
  std::string index = kHead + std::string{"id: en, index: 0\n"};
  for (const auto& [time, spu] : {std::pair{1000, large}, {4000, kText}, {7000, large}}) {
    index += pair.Timestamp(time, pair.AddPacks({{0, SpuBytes(spu)}})[0]);
    pair.CutPadding();
  }
  for (const bool damaged : {false, true}) {
    if (damaged) pair.Sub().erase(pair.Sub().begin() + 500);
    const auto source = OpenVobSub(pair.Save(folder, index));
    ASSERT_TRUE(source);
    const auto packets = PacketsOf(**source);
    ASSERT_EQ(packets.size(), 3u);
    EXPECT_TRUE(std::equal(padded.begin() + damaged, padded.end(), packets.begin() + damaged)) << damaged;
  }
}

TEST(VobSubSource, ShowsOnlyForcedPicturesWhenTheIndexAsksForThem) {
  const TestFolder folder;
  const auto source =
      OpenCues(folder, {{1000, kText}, {3000, {.placed = kText.placed, .forced = true}}}, "forced subs: ON\n");
  EXPECT_THAT(TimesOf(*source), ElementsAre(std::pair{3000, 4001}));
}

TEST(VobSubSource, TakesCodesOverAsTheyAre) {
  const TestFolder folder;
  // Rows that end with a run to the end of the row, which a row of eight pixels would not need.
  const std::array<Bytes, 2> codes{Bytes{0xD0, 0x00, 0x20, 0x00, 0x03}, Bytes{0x00, 0x01}};
  const TestSpu spu{.placed = {SubtitlePicture(8, 3), 4, 6}, .codes = codes};
  for (const bool odd_first : {false, true}) {
    TestSpu either = spu;
    either.odd_rows_first = odd_first;
    either.placed.picture = SubtitlePicture(8, 4);
    either.codes->at(1) = {0x00, 0x01, 0x00, 0x02};
    const auto source = OpenCues(folder, {{1000, either}});
    const Bytes packet = source->Packet(0).value_or(Bytes{});
    ASSERT_GT(packet.size(), kXsubHeader);
    EXPECT_EQ(packet[39], 5);
    EXPECT_THAT(Bytes(packet.begin() + kXsubHeader, packet.end()),
                ElementsAre(0xD0, 0x00, 0x20, 0x00, 0x03, 0x00, 0x01, 0x00, 0x02));
  }
  // An odd height has to be coded anew.
  const auto source = OpenCues(folder, {{1000, spu}});
  EXPECT_EQ(SeeXsubPacket(source->Packet(0).value_or(Bytes{})).at(0).pixels.size(), 8u + 8u + 8u);
}

TEST(VobSubSource, ShowsCustomColorsAtTheShiftedPlace) {
  const TestFolder folder;
  SubtitlePicture picture(4, 2);
  picture.pixels = {0, 1, 2, 3, 3, 2, 1, 0};
  const auto source =
      OpenCues(folder, {{1000, {.placed = {picture, 10, 20}}}},
               "org: 100, -10\ncustom colors: ON, tridx: 0010, colors: 112233, 445566, 778899, aabbcc\n");
  const auto seen = SeeXsubPacket(source->Packet(0).value_or(Bytes{}));
  const std::map<std::pair<int, int>, std::uint32_t> pixels{{{10, 110}, 0x112233}, {{10, 111}, 0x445566},
                                                            {{10, 113}, 0xAABBCC}, {{11, 110}, 0xAABBCC},
                                                            {{11, 112}, 0x445566}, {{11, 113}, 0x112233}};
  ASSERT_EQ(seen.size(), 1u);
  EXPECT_EQ(seen[0].pixels, pixels);
}

TEST(VobSubSource, NamesTheFileThatIsMissing) {
  const TestFolder folder;
  VobSubPair pair;
  const std::string path = pair.Save(folder, std::string{kHead} + "id: en, index: 0\n" + pair.Timestamp(0, 0));
  EXPECT_EQ(OpenVobSub(path).error().kind, ErrorKind::Damaged);
  std::filesystem::remove(folder.File("film.sub"));
  EXPECT_EQ(OpenVobSub(path).error().kind, ErrorKind::NotFound);
  EXPECT_THAT(OpenVobSub(path).error().message, HasSubstr("film.sub"));
  EXPECT_EQ(OpenVobSub(folder.Put("a.idx", "1\n00:00:01,000 --> 00:00:02,000\nHello\n")).error().kind,
            ErrorKind::Damaged);
}

TEST(ColorsOf, AreThoseOfMostDiscsWithoutAPalette) {
  EXPECT_THAT(ColorsOf({}, {}).colors,
              ElementsAre(Color{0, 0, 0}, Color{255, 255, 255}, Color{0, 0, 0}, Color{128, 128, 128}));
}

TEST(RenumberColors, MergesTheMostAlikeOfFourIntoTheCommonerOne) {
  SubtitlePicture picture(8, 1);
  picture.pixels = {0, 0, 1, 2, 2, 2, 3, 3};
  picture.colors = {Color{0, 0, 0}, {255, 255, 255}, {10, 0, 0}, {128, 128, 128}};
  EXPECT_TRUE(RenumberColors(picture, {true, true, true, true}));
  EXPECT_THAT(picture.pixels, ElementsAre(2, 2, 1, 2, 2, 2, 3, 3));
}

struct Line {
  const char* name;
  std::string text;
  std::string expected;
};

// What a test can say of an index in one line.
std::string Summary(const VobSubIndex& index) {
  std::string text = std::to_string(index.frame.width) + "x" + std::to_string(index.frame.height);
  for (const VobSubLanguage& language : index.languages) {
    text += " #" + std::to_string(language.substream);
    for (const VobSubCue& cue : language.cues)
      text += " " + std::to_string(cue.time) + "@" + std::to_string(cue.position);
  }
  return text;
}

TEST(VobSubIndex, IsReadTolerantly) {
  const std::vector<Line> lines{
      {"AnyCaseAndSpacing", "SIZE : 640 x 480\nID: el,index:3\r\ntimestamp:01:02:03:004,filepos:00000A800",
       "640x480 #3 3723004@43008"},
      {"UnusableLinesCountForNothing",
       "size: 0x9\nsize: 99999999999x1\nid: en, index: 0\ntimestamp: x\ntimestamp: 00:00:01:000\n"
       "timestamp: 00:00:01:000, filepos: zz\ntimestamp: 00:00:02:000, filepos: 10\n# timestamp: 00:00:09:000, "
       "filepos: 1\nid: xx, index: 77\ntimestamp: 00:00:03:000, filepos: 20\n",
       "720x576 #0 2000@16"},
      {"DelaysAddUpAndEndWithTheLanguage",
       "id: en, index: 0\ndelay: 00:00:01:000\ntimestamp: 00:00:01:000, filepos: 0\ndelay: -00:00:03:500\n"
       "timestamp: 00:00:01:000, filepos: 0\nid: fr, index: 1\ntimestamp: 00:00:01:000, filepos: 0\n",
       "720x576 #0 2000@0 -1500@0 #1 1000@0"},
      {"ALanguageMayComeTwice",
       "id: en, index: 0\ntimestamp: 00:00:01:000, filepos: 0\nid: fr, index: 1\nid: en, index: 0\n"
       "timestamp: 00:00:02:000, filepos: 1\n",
       "720x576 #0 1000@0 2000@1 #1"},
      {"CuesWithoutALanguage", "timestamp: 00:00:01:000, filepos: 5\n", "720x576 #0 1000@5"},
      {"MarkBeforeTheFirstLine", "\xEF\xBB\xBFsize: 352x288\nid: en", "352x288 #0"}};
  for (const auto& [name, text, expected] : lines) {
    const auto index = ParseVobSubIndex(text, "film.idx");
    ASSERT_TRUE(index) << name << ": " << index.error().message;
    EXPECT_EQ(Summary(*index), expected) << name;
  }
}

TEST(VobSubIndex, TakesALimitedNumberOfCues) {
  std::string text = "id: en\n";
  for (std::size_t i = 0; i < VobSubIndex::kMostCues; ++i) text += VobSubPair::Timestamp(1, i);
  EXPECT_TRUE(ParseVobSubIndex(text, ""));
  EXPECT_EQ(ParseVobSubIndex(text + VobSubPair::Timestamp(1, 0), "").error().kind, ErrorKind::TooLarge);
}

TEST(VobSubIndex, TakesTheFirstLanguageWithCuesWhenTheChosenOneHasNone) {
  const auto index = ParseVobSubIndex(
      "langidx: 2\nid: en, index: 0\nid: fr, index: 1\ntimestamp: 00:00:01:000, filepos: 0\nid: de, index: 2\n", "");
  ASSERT_TRUE(index);
  ASSERT_NE(index->Language(), nullptr);
  EXPECT_EQ(index->Language()->substream, 1);
}

}  // namespace
}  // namespace captoria
