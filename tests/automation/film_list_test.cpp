// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "automation/film_list.h"

#include <gmock/gmock.h>

#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;

TEST(FilmList, AFileIsListedOnceWhateverItsCase) {
  FilmList list;
  for (const char* path : {"/m/b.avi", "/m/a.avi", "", "/M/B.AVI", "/m/b.avi ", "/m/a.avi"}) list.AddFile(path);
  EXPECT_THAT(list.Files(), ElementsAre("/m/b.avi", "/m/a.avi", "/m/b.avi "));
  list.Remove(1);
  EXPECT_THAT(list.Files(), ElementsAre("/m/b.avi", "/m/b.avi "));
}

TEST(FilmList, AFolderIsListedAsOftenAsItIsAdded) {
  const TestFolder folder;
  const std::string a = folder.Put("a.AVI", ""), b = folder.Put("\xFF.avi", "");
  for (const char* other : {"c.divx", "d.avi.txt", "below/e.avi"}) folder.Put(other, "");
  FilmList list;
  list.AddFile(a);
  list.AddFolder(folder.Path());
  list.AddFolder(folder.Path() + "/");
  EXPECT_THAT(list.Files(), ElementsAre(a, a, b, a, b));
  list.AddFolder(folder.File("none"));
  EXPECT_EQ(list.Files().size(), 5u);
}

TEST(FilmList, OfWhatIsDroppedOnlyNewVideosStay) {
  const TestFolder folder;
  const std::string a = folder.Put("a.avi", ""), b = folder.Put("b.avi", "");
  FilmList list;
  for (const std::string& path : {b, folder.Path(), std::string{"/m/c.DivX"}, std::string{"/m/c.srt"}})
    list.AddDropped(path);
  EXPECT_THAT(list.Files(), ElementsAre(b, a, "/m/c.DivX"));
}

}  // namespace
}  // namespace captoria
