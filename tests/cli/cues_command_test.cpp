// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "tests/support/run_program.h"

namespace captoria {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using Json = nlohmann::json;

class CuesCommand : public testing::Test {
 protected:
  ProgramRun Cues(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"cues", "--data", folder_.Path()});
    return RunProgram("captoria-cli", arguments);
  }

  TestFolder folder_;
};

constexpr const char* kTwoCues =
    "1\n00:00:01,000 --> 00:00:02,000\n<i>a</i>\nb\x1B[2J\n\n2\n00:00:03,000 --> 00:00:04,000\n\"c\"\n";

TEST_F(CuesCommand, ListsATableThatCannotSteerTheTerminal) {
  const auto run = Cues({folder_.Put("a.srt", kTwoCues)});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out,
            "Number  Show          Hide          Text\n"
            "1       00:00:01,000  00:00:02,000  <i>a</i> | b [2J\n"
            "2       00:00:03,000  00:00:04,000  \"c\"\n"
            "2 cue(s), read as UTF-8\n");
  EXPECT_THAT(run.err, IsEmpty());
}

TEST_F(CuesCommand, ListsJson) {
  const std::string file = folder_.Put("a.srt", kTwoCues);
  const auto run = Cues({file, "--json"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(Json::parse(run.out),
            Json::parse(R"({"file": ")" + file + R"(", "encoding": "UTF-8", "undecodable": 0, "cues": [
    {"number": 1, "show": "00:00:01,000", "hide": "00:00:02,000", "text": "<i>a</i>\r\nb\u001b[2J", "tag": "",
     "selected": false, "outside": false},
    {"number": 2, "show": "00:00:03,000", "hide": "00:00:04,000", "text": "\"c\"", "tag": "", "selected": false,
     "outside": false}],
    "problem": null})"));
}

TEST_F(CuesCommand, AFaultListsTheCuesKeptNamesTheLineAndFails) {
  const std::string file = folder_.Put("a.srt", std::string{kTwoCues} + "\n3\n00:00:05 --> 00:00:06\nd\n");
  const auto run = Cues({file, "--json"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, StartsWith("captoria-cli: warning: " + file + ", line 11: "));
  const Json listed = Json::parse(run.out);
  EXPECT_EQ(listed["cues"].size(), 1u);
  EXPECT_EQ(listed["problem"]["line"], 11);
}

TEST_F(CuesCommand, AnEncodingIsTakenOrRefusedByItsName) {
  const std::string file = folder_.Put("a.srt", "1\n00:00:01,000 --> 00:00:02,000\n\xE1\n");
  EXPECT_THAT(Cues({file, "--encoding", "windows-1253"}).out, HasSubstr("\xCE\xB1"));
  const auto refused = Cues({file, "--encoding", "klingon"});
  EXPECT_EQ(refused.status, 2);
  EXPECT_THAT(refused.err, HasSubstr("klingon"));
}

TEST_F(CuesCommand, TheFirstTracksCharacterSetNamesTheCodePage) {
  folder_.Put("Captoria.ini", "[General]\nFontCharset0=161\n");
  const std::string file = folder_.Put("a.srt", "1\n00:00:01,000 --> 00:00:02,000\n\xE1\n");
  EXPECT_EQ(Json::parse(Cues({file, "--json"}).out)["encoding"], "WINDOWS-1253");
}

TEST_F(CuesCommand, CuesOutsideTheSafeAreaAreMarkedAndHaveTheirFittedSize) {
  const std::string wide(40, 'W');
  const std::string file = folder_.Put("a.srt", kTwoCues + ("\n3\n00:00:05,000 --> 00:00:06,000\n" + wide + "\n"));
  const Json cues = Json::parse(Cues({file, "--json"}).out)["cues"];
  EXPECT_EQ(cues.at(1)["outside"], false);
  EXPECT_EQ(cues.at(2)["outside"], true);
  EXPECT_EQ(cues.at(2)["tag"], "14");
}

TEST_F(CuesCommand, RunsTheCommandsOfTheSettingsOrOfTheCommandLineInstead) {
  const std::string file = folder_.Put("a.srt", kTwoCues);
  folder_.Put("Captoria.ini",
              "[General]\nBatchToRun=" + folder_.Put("stored.cbx", "select 2,,\nposalignment 7, r") + "\n");
  const auto tags = [&](const std::vector<std::string>& arguments) {
    std::string tags;
    const Json listed = Json::parse(Cues(arguments).out);
    for (const Json& cue : listed["cues"]) {
      tags += cue["tag"].get<std::string>() + (cue["selected"] == true ? "+;" : "-;");
    }
    return tags;
  };
  EXPECT_EQ(tags({file, "--json"}), "|7r+;-;");
  EXPECT_EQ(tags({file, "--json", "--commands", folder_.Put("other .cbx ", "select 1,,\nposalignment 9,")}), "-;|9+;");

  const auto faulty = Cues({file, "--commands", folder_.Put("faulty.cbx", "\nselect 1")});
  EXPECT_EQ(faulty.status, 0);
  EXPECT_EQ(faulty.err, "captoria-cli: warning: " + folder_.File("faulty.cbx") +
                            ", line 2: the command is not understood and was skipped\n");
  for (const std::string& useless : {folder_.File("none.cbx"), folder_.Put("large.cbx", std::string(10 << 20, ','))}) {
    const auto refused = Cues({file, "--commands", useless});
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.err, HasSubstr(useless));
    EXPECT_THAT(refused.out, IsEmpty());
  }
}

TEST_F(CuesCommand, CommandsKnowTheLettersOfTheUsersLanguage) {
  const std::string file = folder_.Put("a.srt", "1\n00:00:01,000 --> 00:00:02,000\nIsparta\n");
  const std::string commands = folder_.Put("a.cbx", "select , \"i\", \"\"");
  const auto selected = [&](const char* locale) {
    setenv("LC_ALL", locale, 1);
    const Json cues = Json::parse(Cues({file, "--json", "--commands", commands}).out)["cues"];
    unsetenv("LC_ALL");
    return cues.at(0)["selected"].get<bool>();
  };
  EXPECT_TRUE(selected("en_US.UTF-8"));
  EXPECT_FALSE(selected("tr_TR.UTF-8"));
}

TEST_F(CuesCommand, AnIndexIsOneRow) {
  const auto run = Cues({folder_.Put("a.idx", "\xFF"), "--json"});
  EXPECT_EQ(run.status, 0);
  const Json listed = Json::parse(run.out);
  EXPECT_TRUE(listed["encoding"].is_null());
  EXPECT_EQ(listed["cues"].at(0)["hide"], "idx file");
}

TEST_F(CuesCommand, AFileNameThatIsNoUtf8StillGivesJson) {
  const auto run = Cues({folder_.Put("\xE9.srt", kTwoCues), "--json"});
  EXPECT_EQ(run.status, 0);
  EXPECT_TRUE(Json::accept(run.out));
}

TEST_F(CuesCommand, WhatCannotBeReadOrWrittenFails) {
  const auto missing = Cues({folder_.File("none.srt")});
  EXPECT_EQ(missing.status, 1);
  EXPECT_THAT(missing.err, HasSubstr("none.srt"));
  EXPECT_EQ(Cues({folder_.Path()}).status, 1);

  const std::string file = folder_.Put("a.srt", kTwoCues);
  const auto full = RunProgram("captoria-cli", {"cues", file, "--data", folder_.Path()}, "/dev/full");
  EXPECT_EQ(full.status, 1);
  EXPECT_THAT(full.err, HasSubstr("standard output"));
}

struct UsageRow {
  const char* name;
  std::vector<std::string> arguments;
  int status;
};

class CliUsage : public testing::TestWithParam<UsageRow> {};

TEST_P(CliUsage, HasItsExitStatus) {
  const auto run = RunProgram("captoria-cli", GetParam().arguments);
  EXPECT_EQ(run.status, GetParam().status);
  EXPECT_THAT(run.status == 0 ? run.out : run.err, Not(IsEmpty()));
}

INSTANTIATE_TEST_SUITE_P(CommandLines, CliUsage,
                         testing::Values(UsageRow{"Help", {"--help"}, 0}, UsageRow{"Version", {"--version"}, 0},
                                         UsageRow{"HelpOfACommand", {"cues", "--help"}, 0},
                                         UsageRow{"NoCommand", {}, 2}, UsageRow{"NoFile", {"cues"}, 2},
                                         UsageRow{"UnknownOption", {"cues", "a", "--x"}, 2},
                                         UsageRow{"UnknownCommand", {"dance"}, 2}),
                         [](const auto& row) { return std::string{row.param.name}; });

}  // namespace
}  // namespace captoria
