// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include "media/xsub/xsub_file.h"
#include "media/xsub/xsub_packet.h"
#include "tests/support/run_program.h"
#include "tests/support/seen_subtitle.h"

namespace captoria {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

class BmpToXsub : public testing::Test {
 protected:
  BmpToXsub() {
    // 8 x 2 pixels, all of entry 1.
    std::string bitmap = "BM" + std::string(116, '\0') + std::string(8, '\x11');
    bitmap[10] = 118;
    bitmap[14] = 40;
    bitmap[18] = 8;
    bitmap[22] = 2;
    bitmap[26] = 1;
    bitmap[28] = 4;
    for (const char* name : {"bmp00001.bmp", "bmp00002.bmp"}) folder_.Put(name, bitmap);
  }

  ProgramRun Convert(const std::vector<std::string>& more = {}) {
    std::vector<std::string> arguments{list_, out_};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return RunProgram("bmptoxsub.exe", arguments);
  }

  // The top rows of all cues of the result.
  std::vector<int> Tops() const {
    std::vector<int> tops;
    const auto file = OpenXsubFile(out_);
    EXPECT_TRUE(file);
    for (std::size_t i = 0; file && i < (*file)->Count(); ++i) {
      tops.push_back(DecodeXsub((*file)->Packet(i).value()).value().picture.top);
    }
    return tops;
  }

  TestFolder folder_;
  std::string text_ =
      "[HEADER]\r\nTITLE\r\nFRAMERATE PAL\r\nDROPFRAME NO\r\nCONTRAST    (0 15 15 15)\r\nCOLOR       (0 2 1 3)\r\n\r\n"
      "[PALETTE]\r\n0 (0, 0, 255)\r\n1 (255, 255, 255)\r\n2 (0, 0, 0)\r\n3 (70, 70, 70)\r\n\r\n[LIST]\r\n"
      "bmp00001.bmp 00:00:01.000 00:00:03.500 008 002 356 514\r\n"
      "bmp00002.bmp 00:00:03.000 00:00:04.000 008 002 356 574\r\n";
  std::string list_ = folder_.Put("list.txt", text_);
  std::string out_ = folder_.File("a.xsub");
};

TEST_F(BmpToXsub, WritesAPacketACueAndTellsWhatItChanged) {
  const auto run = Convert();
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err,
            "bmptoxsub: warning [subtitle-changed] \"" + list_ + "\": 1 cue cut short where the next one starts\n");
  EXPECT_THAT(Tops(), ElementsAre(514, 574));
  EXPECT_EQ((*OpenXsubFile(out_))->Frame(), (Size{720, 576}));
}

TEST_F(BmpToXsub, PalMode1MovesTheCuesToTheNtscFrame) {
  EXPECT_EQ(Convert({"PALMODE1"}).status, 0);
  EXPECT_THAT(Tops(), ElementsAre(428, 478));
  EXPECT_EQ((*OpenXsubFile(out_))->Frame(), (Size{720, 480}));
}

TEST_F(BmpToXsub, FailsInOneLineAndLeavesTheOldFile) {
  folder_.Put("a.xsub", "old");
  folder_.Put("bmp00002.bmp", "BM");
  const auto damaged = Convert();
  EXPECT_EQ(damaged.status, 1);
  EXPECT_THAT(damaged.err, AllOf(HasSubstr("bmptoxsub: "), HasSubstr("bmp00002.bmp: ")));
  EXPECT_EQ(folder_.Get("a.xsub"), "old");

  folder_.Put("list.txt", text_ + "more");
  EXPECT_EQ(Convert().err,
            "bmptoxsub: " + list_ + ": line 17: a cue is expected: file, start, end, width, height, x and y\n");
  list_ = folder_.File("none.txt");
  EXPECT_EQ(Convert().status, 1);
}

TEST_F(BmpToXsub, NothingThatIsReadIsWrittenOver) {
  for (const char* name : {"list.txt", "bmp00002.bmp"}) {
    const std::string before = folder_.Get(name);
    out_ = folder_.File(std::string{"./"} + name);
    const auto run = Convert();
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr("choose another file"));
    EXPECT_EQ(folder_.Get(name), before);
  }
  out_ = folder_.File("none/a.xsub");
  EXPECT_EQ(Convert().status, 1);
}

TEST_F(BmpToXsub, WrongUsageIsToldApart) {
  EXPECT_EQ(RunProgram("bmptoxsub.exe", {list_}).status, 2);
  EXPECT_EQ(Convert({"PALMODE7"}).status, 2);
  EXPECT_EQ(Convert({"PALMODE1", "more"}).status, 2);
  EXPECT_THAT(RunProgram("bmptoxsub.exe", {"--help"}).out, HasSubstr("PALMODE1"));
  EXPECT_EQ(RunProgram("bmptoxsub.exe", {"--version"}).status, 0);
  EXPECT_FALSE(FileExists(out_));
}

}  // namespace
}  // namespace captoria
