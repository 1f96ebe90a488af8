// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Lists of videos, made into films with the real tools.
#include <gmock/gmock.h>

#include <cstdlib>
#include <nlohmann/json.hpp>

#include "base/path_text.h"
#include "script/list_parser.h"
#include "tests/support/avi_maker.h"
#include "tests/support/run_program.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class BatchCommand : public testing::Test {
 protected:
  // Gives the name of a film with a cue of two lines beside it.
  std::string Film(const std::string& name) const {
    folder_.Put(name + ".avi", avi_maker::Film(avi_maker::Content(), avi_maker::Headers(avi_maker::VideoStream() +
                                                                                        avi_maker::AudioStream())));
    folder_.Put(name + ".srt", "1\n00:00:00,000 --> 00:00:00,040\nHello\nworld\n");
    return name + ".avi";
  }

  ProgramRun Batch(const std::string& list, std::vector<std::string> more = {}) const {
    more.insert(more.begin(), {"batch", list, "--data", folder_.File("data")});
    return RunProgram("captoria-cli", more);
  }

  bool Made(const std::string& name) const { return FileExists(folder_.File(name)); }

  TestFolder folder_;
};

TEST_F(BatchCommand, ConvertsEachPathFromTheFolderOfTheListOn) {
  const std::string list =
      folder_.Put("lists/a.txt", "\xEF\xBB\xBF../" + Film("one") + "\r\n# " + Film("comment") + "\r\n  \r\n\n" +
                                     folder_.File(Film("two \xE9")) + "\n./" + "none.avi\r\nthree.avi");
  Film("lists/three");
  const auto run = Batch(list);
  EXPECT_EQ(run.status, 1) << run.err;
  EXPECT_EQ(run.out, folder_.File("one.divx") + "\n" + folder_.File("two \xE9.divx") + "\n" +
                         folder_.File("lists/three.divx") + "\n");
  EXPECT_THAT(run.err, HasSubstr("\"" + folder_.File("lists/none.avi") + "\"\n"));
  EXPECT_FALSE(Made("comment.divx"));
}

TEST_F(BatchCommand, TakesTheOptionsOfConvert) {
  const std::string list = folder_.Put("a.txt", Film("a"));
  const std::string commands = folder_.Put("a.cbx", "select 2,,\nposalignment 300,");
  const auto top = [&](const std::vector<std::string>& more) {
    std::vector<std::string> arguments{"--set", "VertPos0=20", "--json", "--quiet", "--keep-temp"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    const auto run = Batch(list, arguments);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(nlohmann::json::parse(run.out)["video"], folder_.File("a.avi"));
    const auto placed = ReadConverterList(JoinPath(folder_.File("data/tmp"), "linkerfile0.txt"));
    EXPECT_TRUE(placed) << placed.error().message;
    return placed ? placed->cues.at(0).y : 0;
  };
  EXPECT_EQ(top({}) - top({"--commands", commands}), 280);
  EXPECT_EQ(Batch(list, {"--commands", folder_.File("none.cbx")}).status, 2);
  EXPECT_EQ(Batch(list, {"--subtitle", "a.srt"}).status, 2);
}

TEST_F(BatchCommand, ReadsStandardInput) {
  const std::string command = "cd '" + folder_.Path() + "' && echo " + Film("a") + " | '" + CAPTORIA_BIN +
                              "/captoria-cli' batch - --data data >out 2>err";
  EXPECT_EQ(std::system(command.c_str()), 0) << folder_.Get("err");
  EXPECT_EQ(folder_.Get("out"), folder_.File("a.divx") + "\n");
}

TEST_F(BatchCommand, AListWithoutVideosIsNoErrorAndOneThatCannotBeReadIs) {
  const auto empty = Batch(folder_.Put("a.txt", "# none today\n"));
  EXPECT_EQ(empty.status, 0);
  EXPECT_THAT(empty.out + empty.err, IsEmpty());
  for (const std::string& list :
       {folder_.File("none.txt"), folder_.Path(), folder_.Put("b", std::string("a.avi\0", 6))}) {
    const auto run = Batch(list);
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr(list));
  }
  EXPECT_EQ(RunProgram("captoria-cli", {"batch"}).status, 2);
}

}  // namespace
}  // namespace captoria
