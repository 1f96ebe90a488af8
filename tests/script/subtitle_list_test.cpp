// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "script/subtitle_list.h"

#include <gmock/gmock.h>

#include "tests/support/seen_subtitle.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kConverterHead =
    "[HEADER]\r\nTITLE\r\nFRAMERATE PAL\r\nDROPFRAME NO\r\nCONTRAST    (0 15 15 15)\r\nCOLOR       (0 2 1 3)\r\n\r\n"
    "[PALETTE]\r\n0 (0, 0, 255)\r\n1 (255, 255, 255)\r\n2 (0, 0, 0)\r\n3 (70, 70, 70)\r\n\r\n[LIST]\r\n";
constexpr const char* kMuxHead =
    "0 = (0, 0, 0)\r\n1 = (255, 255, 255)\r\n2 = (0, 0, 0)\r\n3 = (70, 70, 70)\r\n\r\nSUBPALETTE (0 1 2 3)\r\n";

std::string Replaced(std::string text, const std::string& what, const std::string& by) {
  const auto at = text.find(what);
  EXPECT_NE(at, text.npos) << what;
  return text.replace(at, what.size(), by);
}

// A bitmap of four bits a pixel with an odd colour table; `pixel` says what stands where, y from the top.
template <typename Pixel>
std::string Bitmap(int width, int height, Pixel pixel) {
  ByteWriter out;
  const int row_bytes = (4 * width + 31) / 32 * 4;
  out.Text("BM").Zeros(8).U32(118).U32(40).U32(static_cast<std::uint32_t>(width));
  out.U32(static_cast<std::uint32_t>(height)).U16(1).U16(4).Zeros(24);
  for (std::uint8_t i = 0; i < 16; ++i) out.U8(i).U8(2 * i).U8(3 * i).U8(0);
  for (int y = height - 1; y >= 0; --y) {
    for (int x = 0; x < 2 * row_bytes; x += 2) {
      const auto at = [&](int column) { return column < width ? pixel(column, y) : 0; };
      out.U8(static_cast<std::uint8_t>(at(x) << 4 | at(x + 1)));
    }
  }
  return {out.Written().begin(), out.Written().end()};
}

std::vector<std::string> Described(const Findings& findings) {
  std::vector<std::string> texts;
  for (const Finding& finding : findings) texts.push_back(Describe(finding));
  return texts;
}

class SubtitleListTest : public testing::Test {
 protected:
  Result<SubtitleList> Converter(const std::string& cues, ListFrame frame = ListFrame::AsListed) {
    return ReadConverterList(folder_.Put("a.txt", kConverterHead + cues), frame);
  }
  Result<SubtitleList> Mux(const std::string& cues) { return ReadMuxList(folder_.Put("a.txt", kMuxHead + cues)); }

  TestFolder folder_;
};

TEST_F(SubtitleListTest, TheConvertersFrameIsThatOfItsSystem) {
  EXPECT_EQ(Converter("")->frame, (Size{720, 576}));
  const auto ntsc = ReadConverterList(folder_.Put("b.txt", Replaced(kConverterHead, "PAL\r\n", "NTSC\n")));
  ASSERT_TRUE(ntsc) << ntsc.error().message;
  EXPECT_EQ(ntsc->frame, (Size{720, 480}));
  EXPECT_THAT(ntsc->findings, IsEmpty());
}

TEST_F(SubtitleListTest, TheMuxersFrameIsTheLowestTheCuesAllow) {
  const std::vector<std::pair<const char*, int>> rectangles{{"400 479", 480},    {"400 490", 480}, {"400 491", 576},
                                                            {"500 586", 576},    {"500 587", 720}, {"900 1000", 1080},
                                                            {"1400 1500", 1502}, {"000 700", 480}};
  for (const auto& [rows, height] : rectangles) {
    const std::string top_bottom = rows;
    const auto space = top_bottom.find(' ');
    const auto list = Mux("00:00:01.000 00:00:03.500 a.bmp (000 " + top_bottom.substr(0, space) + " 099 " +
                          top_bottom.substr(space + 1) + ")\r\n");
    ASSERT_TRUE(list) << list.error().message;
    EXPECT_EQ(list->frame, (Size{640, height})) << rows;
    EXPECT_EQ(list->findings.empty(), top_bottom[0] != '0') << "a cue higher than its frame is told";
  }
}

TEST_F(SubtitleListTest, PositionsMoveToTheNtscFrameInProportion) {
  const std::vector<std::array<int, 3>> moves{
      // height, y, y on 480 lines
      {62, 514, 418}, {62, 454, 368}, {62, 469, 380}, {62, 2, 0}, {76, 510, 412}, {500, 10, 0}};
  for (const auto& [height, y, moved] : moves) {
    const std::string cue =
        "a.bmp 00:00:01.000 00:00:03.500 412 " + std::to_string(height) + " 154 " + std::to_string(y);
    const auto list = Converter(cue, ListFrame::Ntsc);
    ASSERT_TRUE(list) << list.error().message;
    EXPECT_EQ(list->frame, (Size{720, 480}));
    EXPECT_EQ(list->cues.at(0).y, moved) << height << " at " << y;
  }
  const std::string ntsc = Replaced(kConverterHead, "PAL", "NTSC") + "a.bmp 00:00:01.000 00:00:03.500 412 062 154 373";
  EXPECT_EQ(ReadConverterList(folder_.Put("b.txt", ntsc), ListFrame::Ntsc)->cues.at(0).y, 373);
}

TEST_F(SubtitleListTest, OneCueIsShownAtATime) {
  const auto list = Converter(
      "c.bmp 00:00:05.000 00:00:04.000 010 010 000 000\r\n"  // ends before it starts
      "b.bmp 00:00:02.000 00:00:02.500 010 010 000 000\r\n"  // not in order
      "a.bmp 00:00:01.000 00:00:03.000 010 010 000 000\r\n"  // into the next
      "d.bmp 00:00:06.000 00:00:09.000 010 010 000 000\r\n"  // together with the next
      "e.bmp 00:00:06.000 00:00:07.000 010 010 000 000\r\n");
  ASSERT_TRUE(list) << list.error().message;
  std::vector<std::pair<std::string, XsubTimes>> shown;
  for (const ListedCue& cue : list->cues) shown.emplace_back(cue.file, cue.times);
  EXPECT_EQ(shown, (std::vector<std::pair<std::string, XsubTimes>>{{"a.bmp", {1000, 2000}},
                                                                   {"b.bmp", {2000, 2500}},
                                                                   {"c.bmp", {5000, 5001}},
                                                                   {"d.bmp", {6000, 6001}},
                                                                   {"e.bmp", {6000, 7000}}}));
  EXPECT_THAT(Described(list->findings),
              ElementsAre(HasSubstr("a.txt: 1 cue cut"), HasSubstr("a.txt: 2 cues shown for only")));
}

TEST_F(SubtitleListTest, ErrorsNameFileAndLine) {
  const std::string list = std::string{kConverterHead} + "bmp00001.bmp 00:00:01.000 00:00:03.500 412 062 154 469\r\n";
  const std::vector<std::array<std::string, 3>> faults{
      {"[HEADER]", "", "line 1:"},
      {"PAL", "SECAM", "line 3: \"FRAMERATE PAL\" or"},
      {"NO", "YES", "line 4:"},
      {"(0 15 15 15)", "(0 15 15 16)", "line 5: \"CONTRAST (...)\" with four numbers"},
      {"(0 2 1 3)", "(0 2 1 3) ", "line 6:"},
      {"(0, 0, 255)", "(0, 0, 256)", "line 9: \"0 (R, G, B)\""},
      {"2 (0", "3 (0", "line 11:"},
      {"[LIST]\r\n", "", "line 14:"},
      {"bmp00001", "../bmp00001", "line 15: the name of the bitmap"},
      {"bmp00001", "/etc/a", "line 15: the name"},
      {"bmp00001.bmp", "..", "line 15: the name"},
      {"bmp00001", "a\\b", "line 15: the name"},
      {"bmp00001", "c:a", "line 15: the name"},
      {"bmp00001", std::string(300, 'a'), "line 15: the name"},
      {"00:00:01.000", "00:00:01,000", "line 15: the start time"},
      {"00:00:01.000", "99:59:59.999", "line 15: the cue starts too late"},
      {"00:00:03.500", "00:60:03.500", "line 15: the end time"},
      {"00:00:03.500", "100:00:03.500", "line 15: the end time"},
      {"412", "000", "line 15: the rectangle is empty"},
      {"412", "567", "line 15: the rectangle reaches beyond the 720 columns"},
      {"412", "-12", "line 15: width"},
      {"469", "16385", "line 15: width"},
      {"bmp00001.bmp ", "bmp00001.bmp", "line 15: the end time"},
      {"469\r\n", "469\r\n\r\nbmp00001.bmp", "line 17: a cue follows an empty line"},
  };
  for (const auto& [what, by, message] : faults) {
    const std::string path = folder_.Put("a.txt", Replaced(list, what, by));
    const auto read = ReadConverterList(path);
    ASSERT_FALSE(read) << what << " as " << by;
    EXPECT_THAT(read.error().message, HasSubstr(path + ": " + message));
    EXPECT_EQ(read.error().kind, ErrorKind::Damaged);
  }
  const auto cut = ReadConverterList(folder_.Put("a.txt", "[HEADER]\r\n"));
  EXPECT_THAT(cut.error().message, HasSubstr("line 2: the list ends where \"TITLE\" is expected"));

  for (const char* rectangle : {"(000 000 640 010)", "(010 010 009 020)", "(0 0 1)", "(0 0 1 1) ", "0 0 1 1"}) {
    const auto read = Mux(std::string{"00:00:01.000 00:00:03.500 a.bmp "} + rectangle);
    ASSERT_FALSE(read) << rectangle;
    EXPECT_THAT(read.error().message, HasSubstr("a.txt: line 7: "));
  }
}

class ListedBitmap : public SubtitleListTest {
 protected:
  // The packet of a.bmp, listed with `height` rows at 5, 101.
  Result<XsubCue> Packet(const std::string& bitmap, int height, const std::string& contrast = "0 15 15 15") {
    folder_.Put("a.bmp", bitmap);
    const std::string cue = "a.bmp 00:00:01.000 00:00:03.500 21 " + std::to_string(height) + " 5 101\r\n";
    const auto list = ReadConverterList(folder_.Put("a.txt", Replaced(kConverterHead, "0 15 15 15", contrast) + cue));
    if (!list) return tl::unexpected(list.error());
    const auto packet = PacketsOf(*list)->Packet(0);
    if (!packet) return tl::unexpected(packet.error());
    return DecodeXsub(*packet);
  }
};

TEST_F(ListedBitmap, IsShownWithItsOwnColours) {
  const auto cue = Packet(Bitmap(21, 11, [](int x, int y) { return (x + y) % 4; }), 11);
  ASSERT_TRUE(cue) << cue.error().message;
  EXPECT_EQ(cue->times, (XsubTimes{1000, 3500}));
  const auto& [picture, left, top] = cue->picture;
  EXPECT_EQ((std::array{left, top, picture.width, picture.height}), (std::array{4, 100, 22, 12}));
  for (int y = 0; y < 11; ++y) {
    for (int x = 0; x < 21; ++x) EXPECT_EQ(picture.Row(y + 1)[static_cast<std::size_t>(x + 1)], (x + y) % 4);
  }
  EXPECT_THAT(picture.colors, ElementsAre(Color{6, 4, 2}, Color{3, 2, 1}, Color{6, 4, 2}, Color{9, 6, 3}));
}

TEST_F(ListedBitmap, LosesTwoOfAHundredRowsOnlyWhereNothingIsSeen) {
  struct Case {
    const char* name;
    int first, last;  // rows with a visible pixel
    int top, height;  // of the packet
  };
  for (const auto& [name, first, last, top, height] :
       {Case{"at the bottom", 0, 97, 100, 100}, Case{"at both ends", 1, 98, 102, 98},
        Case{"at the top", 2, 99, 102, 100}, Case{"nowhere", 0, 99, 100, 102}}) {
    const auto cue =
        Packet(Bitmap(21, 100, [&, a = first, b = last](int x, int y) { return x == 1 && (y == a || y == b); }), 98);
    ASSERT_TRUE(cue) << cue.error().message;
    const auto& picture = cue->picture;
    EXPECT_EQ((std::array{picture.top, picture.picture.height}), (std::array{top, height})) << name;
    EXPECT_EQ(picture.picture.Row(101 + first - top)[2], 1) << name;
    EXPECT_EQ(picture.picture.Row(101 + last - top)[2], 1) << name;
  }
}

TEST_F(ListedBitmap, AnEntryWithoutContrastIsNotSeen) {
  const auto cue = Packet(Bitmap(21, 1, [](int x, int) { return x % 4; }), 1, "0 15 0 1");
  ASSERT_TRUE(cue);
  EXPECT_THAT(cue->picture.picture.Row(1).subspan(1, 4), ElementsAre(0, 1, 0, 3));
}

TEST_F(ListedBitmap, FaultsAreToldWithTheBitmapsName) {
  const auto bitmap = Bitmap(21, 11, [](int, int) { return 1; });
  EXPECT_THAT(Packet(bitmap, 10).error().message, AllOf(HasSubstr("a.bmp: is 21 x 11"), HasSubstr("with 21 x 10")));
  EXPECT_FALSE(Packet(Bitmap(21, 102, [](int, int) { return 0; }), 98));
  EXPECT_FALSE(Packet(Bitmap(20, 11, [](int, int) { return 0; }), 11));
  EXPECT_THAT(Packet(Bitmap(21, 11, [](int x, int) { return x == 20 ? 4 : 0; }), 11).error().message,
              HasSubstr("a.bmp: has pixels of colour 4"));
  EXPECT_THAT(Packet("BM", 11).error().message, HasSubstr("a.bmp: "));
}

TEST_F(ListedBitmap, TheMuxersListGivesPacketsAndItsFindings) {
  folder_.Put("a.bmp", Bitmap(20, 10, [](int, int) { return 1; }));
  Findings findings;
  const auto source =
      OpenMuxList(folder_.Put("a.txt", std::string{kMuxHead} + "00:00:01.000 00:00:03.500 a.bmp (000 540 019 549)\r\n"
                                                               "00:00:01.000 00:00:03.500 b.bmp (000 540 019 549)\r\n"),
                  &findings);
  ASSERT_TRUE(source) << source.error().message;
  EXPECT_EQ((*source)->Frame(), (Size{640, 576}));
  EXPECT_EQ((*source)->Count(), 2U);
  EXPECT_EQ((*source)->ShowTime(0), 1000);
  EXPECT_TRUE((*source)->Packet(0));
  EXPECT_EQ((*source)->Packet(1).error().kind, ErrorKind::NotFound);
  EXPECT_THAT(Described(findings), ElementsAre(HasSubstr("a.txt: 1 cue shown for only a millisecond")));
}

}  // namespace
}  // namespace captoria
