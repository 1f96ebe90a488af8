// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/desktop_entry.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/process.h"
#include "tests/support/environment.h"
#include "tests/support/other_process.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

class FileActionsTest : public testing::Test {
 protected:
  std::string PutProgram(const std::string& name, const std::string& script) const {
    std::string path = folder_.Put(name, "#!/bin/sh\n" + script);
    ::chmod(path.c_str(), 0755);
    return path;
  }

  FileAction ActionOf(const std::string& program) const {
    return {.id = "org.example.Convert",
            .name = "Convert it",
            .icon = "org.example",
            .mime_types = "video/x-msvideo;video/vnd.avi;",
            .executable = program,
            .option = "/AUTO"};
  }

  // The exit status of a program of the system with what it said before; nothing when there is no such program.
  std::optional<std::pair<int, std::string>> Run(const char* tool, const std::vector<std::string>& arguments) const {
    const auto program = FindOnPath(tool, ProcessEnvironment());
    if (!program) return std::nullopt;
    folder_.Put("said", "");
    auto process = Process::Start({.program = *program,
                                   .arguments = arguments,
                                   .folder{},
                                   .environment{},
                                   .log_file = folder_.File("said"),
                                   .shows_output = false});
    NoProgress progress;
    const int status = process ? process->Wait(progress).value_or(-1) : -1;
    return std::pair{status, folder_.Get("said")};
  }

  TestFolder folder_;
  const FileActions actions_{EnvironmentOf({{"XDG_DATA_HOME", folder_.File("data")}, {"PATH", folder_.File("tools")}})};
};

TEST_F(FileActionsTest, TheEntryStartsTheProgramWithThePathAsOneArgument) {
  if (!FindOnPath("gio", ProcessEnvironment())) GTEST_SKIP() << "no reader of desktop entries";
  const std::string film = folder_.Put("Ταινίες  μου/my \"film\" $(x) 100%f.avi", "");
  for (const char* name :
       {"plain", "Ωμέγα and blanks", "it's \"quoted\" `x` $HOME", "back\\slash\\\\n", "50%f", "a=b;c&d|e<f>*?#~(g)"}) {
    const std::string program =
        PutProgram(std::string{name} + "/Captoria", "printf '%s|' \"$0\" \"$@\" >'" + folder_.File("got") + "'\n");
    const FileAction action = ActionOf(program);
    ASSERT_TRUE(actions_.Offer(action)) << name;
    const std::string expected = program + "|/AUTO|" + film + "|";
    folder_.Put("got", "");
    const auto run = Run("gio", {"launch", actions_.EntryFile(action), film});
    EXPECT_EQ(run->first, 0) << run->second;
    EXPECT_TRUE(Soon([&] { return folder_.Get("got") == expected; })) << folder_.Get("got");
    if (const auto checked = Run("desktop-file-validate", {actions_.EntryFile(action)})) {
      EXPECT_EQ(*checked, std::pair(0, std::string{})) << name;
    }
  }
}

TEST_F(FileActionsTest, AnOfferIsForOneProgramAndCanBeTakenBack) {
  const FileAction old = ActionOf(PutProgram("old/Captoria", "")), moved = ActionOf(PutProgram("new/Captoria", ""));
  const std::string menu = folder_.File("data/kio/servicemenus/org.example.Convert.desktop");
  EXPECT_TRUE(actions_.Withdraw(old)) << "there is none";
  ASSERT_TRUE(actions_.Offer(old));
  EXPECT_TRUE(actions_.IsOffered(old));
  EXPECT_FALSE(actions_.IsOffered(moved));
  EXPECT_EQ(::access(menu.c_str(), X_OK), 0);
  ASSERT_TRUE(actions_.Offer(moved));
  EXPECT_TRUE(actions_.IsOffered(moved));
  EXPECT_FALSE(actions_.IsOffered(old));
  ASSERT_TRUE(actions_.Withdraw(old));
  EXPECT_FALSE(actions_.IsOffered(moved));
  EXPECT_FALSE(FileExists(menu));
}

TEST_F(FileActionsTest, ADoubleClickStartsWhatItStartedBefore) {
  const std::string said = folder_.File("asked");
  PutProgram("tools/xdg-mime", "echo $* >>'" + said +
                                   "'\n[ \"$*\" != 'query default video/x-msvideo' ] || echo player.desktop\n" +
                                   "[ \"$*\" != 'query default video/vnd.avi' ] || echo org.example.Convert.desktop\n");
  PutProgram("tools/update-desktop-database", "echo update $* >>'" + said + "'\nexit 1\n");
  const FileAction action = ActionOf(PutProgram("Captoria", ""));
  ASSERT_TRUE(actions_.Offer(action)) << "whatever becomes of the database";
  const std::string update = "update " + folder_.File("data/applications") + "\n";
  EXPECT_EQ(folder_.Get("asked"), "query default video/x-msvideo\nquery default video/vnd.avi\n" + update +
                                      "default player.desktop video/x-msvideo\n");
  folder_.Put("asked", "");
  ASSERT_TRUE(actions_.Withdraw(action));
  ASSERT_TRUE(actions_.Withdraw(action));
  EXPECT_EQ(folder_.Get("asked"), update);
}

TEST_F(FileActionsTest, SaysWhichProgramsCannotBeOffered) {
  for (const auto& [program, kind] : {std::pair{PutProgram("a\nName=b", ""), ErrorKind::Unsupported},
                                      std::pair{PutProgram("caf\xE9", ""), ErrorKind::Unsupported},
                                      std::pair{std::string{"Captoria"}, ErrorKind::Unsupported},
                                      std::pair{folder_.File("none"), ErrorKind::NotFound}}) {
    const auto offered = actions_.Offer(ActionOf(program));
    ASSERT_FALSE(offered) << program;
    EXPECT_EQ(offered.error().kind, kind) << program;
    EXPECT_THAT(offered.error().message, testing::StartsWith(program + ": "));
  }
  EXPECT_FALSE(FolderExists(folder_.File("data")));
}

TEST_F(FileActionsTest, HalfAnOfferIsNone) {
  for (const char* blocked : {"data/kio", "data/applications"}) {
    const FileAction action = ActionOf(PutProgram("Captoria", ""));
    folder_.Put(blocked, "");  // a file where a folder has to be, for root can write to any folder
    const auto offered = actions_.Offer(action);
    ASSERT_FALSE(offered) << blocked;
    EXPECT_EQ(offered.error().kind, ErrorKind::Unwritable);
    EXPECT_FALSE(actions_.IsOffered(action));
    EXPECT_FALSE(FileExists(actions_.EntryFile(action)));
    EXPECT_TRUE(actions_.Withdraw(action));
    std::filesystem::remove_all(folder_.File("data"));
  }
}

}  // namespace
}  // namespace captoria
