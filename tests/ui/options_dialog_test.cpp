// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/options/options_dialog.h"

#include <gmock/gmock.h>

#include <QComboBox>
#include <QPushButton>
#include <set>
#include <stdexcept>

#include "app/load_subtitle.h"
#include "settings/settings_values.h"
#include "tests/support/qt_application.h"
#include "tests/support/quiet_view.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Act = std::pair<const char*, QVariant>;  // a control, and what it is set to
using Acts = std::vector<Act>;

constexpr const char* kOneCue = "1\n00:00:01,000 --> 00:00:02,000\nHello\n";

class OptionsDialog : public testing::Test {
 protected:
  static void SetUpTestSuite() { TestApplication(); }

  Workspace Start() { return {{.executable = folder_.Path(), .data = folder_.Path()}, prompts_, view_}; }

  std::string File() const { return folder_.Get("Captoria.ini"); }

  // What a session that starts now has under an option's key.
  std::string Kept(const char* key) {
    const Workspace workspace = Start();
    IniDocument document;
    EXPECT_TRUE(SaveOptions(document, workspace.preferences.settings));
    return std::string{document.Find(kSettingsSection, key).value_or("nothing")};
  }

  template <typename Widget = QWidget>
  static Widget& Part(const Form2& dialog, const char* name) {
    auto* part = dialog.findChild<Widget*>(name);
    if (part == nullptr) throw std::runtime_error(std::string{"no control "} + name);
    return *part;
  }

  template <typename Widget>
  static Widget& Member(const Form2& dialog, const char* name, int index) {
    for (auto* part : dialog.findChildren<Widget*>(name)) {
      if (part->property("Index") == index) return *part;
    }
    throw std::runtime_error(std::string{"no member of "} + name);
  }

  static void Do(const Form2& dialog, const Acts& acts) {
    for (const auto& [name, value] : acts) {
      QWidget& part = Part(dialog, name);
      if (auto* button = qobject_cast<QAbstractButton*>(&part)) {
        if (button->isChecked() != value.toBool()) button->click();
      } else {
        const char* property = part.inherits("QSpinBox")    ? "value"
                               : part.inherits("QComboBox") ? "currentIndex"
                                                            : "text";
        part.setProperty(property, value);
      }
    }
  }

  // As it would be with a file manager that reads a registry of its own.
  ContextMenuEntry EntryIn(RegistryClass& registry) {
    return {registry, FileActions([this](const std::string& name) -> std::optional<std::string> {
              if (name == "XDG_DATA_HOME") return folder_.File("data");
              if (name == "PATH") return "/nonexistent";
              return std::nullopt;
            }),
            folder_.Put("Captoria", "")};
  }

  ScriptedPrompts prompts_;
  QuietView view_;
  TestFolder folder_;
  FileRegistry registry_{folder_.File("keys")};
  ContextMenuEntry entry_ = EntryIn(registry_);
};

struct Option {
  const char* name;
  Acts acts;
  const char* key;
  const char* kept;
  const char* file = "";  // the settings it begins with
};

class OptionsOfDialog : public OptionsDialog, public testing::WithParamInterface<Option> {};

TEST_P(OptionsOfDialog, AreKeptByOkAndNotByCancel) {
  const std::string before = std::string{"[General]\r\n"} + GetParam().file;
  folder_.Put("Captoria.ini", before);
  const std::string kept_before = Kept(GetParam().key);
  Workspace workspace = Start();
  {
    Form2 dialog(workspace, entry_, {}, nullptr);
    Do(dialog, GetParam().acts);
    dialog.reject();
  }
  EXPECT_EQ(File(), before);
  {
    Form2 dialog(workspace, entry_, {}, nullptr);
    dialog.accept();
    EXPECT_EQ(Kept(GetParam().key), kept_before) << "what was cancelled, or never touched, is as it was";
  }
  Form2 dialog(workspace, entry_, {}, nullptr);
  Do(dialog, GetParam().acts);
  dialog.accept();
  EXPECT_EQ(Kept(GetParam().key), GetParam().kept);
}

INSTANTIATE_TEST_SUITE_P(
    Controls, OptionsOfDialog,
    testing::Values(
        Option{"MuxerAlone", {{"optDivXMux", true}}, "UseBmpToXSub", "0"},
        Option{"Converter", {{"optBmpToXSub", true}}, "UseBmpToXSub", "-1", "UseBmpToXSub=0\r\n"},
        Option{"PalMode", {{"chkUsePalMode1", true}}, "UsePalMode1", "-1"},
        Option{"ProposedHeight", {{"optDivXMux", true}, {"chkForceVideoHeight", true}}, "ForceVideoHeight", "570"},
        Option{"Height",
               {{"optDivXMux", true}, {"chkForceVideoHeight", true}, {"txtForceVideoHeight", 600}},
               "ForceVideoHeight",
               "600"},
        Option{"NoHeight",
               {{"optDivXMux", true}, {"chkForceVideoHeight", false}},
               "ForceVideoHeight",
               "0",
               "ForceVideoHeight=600\r\n"},
        Option{"DeleteAll", {{"chkDeleteTemp", false}}, "deleteTemp", "0"},
        Option{"DeleteBitmaps", {{"chkDeleteTemp", false}, {"chkDeleteBmp", true}}, "deleteBmp", "-1"},
        Option{"DeleteOther", {{"chkDeleteTemp", false}, {"chkDeleteOther", true}}, "deleteOther", "-1"},
        Option{"Wait", {{"chkWaitToEndDos", false}}, "WaitToEndDos", "0"},
        Option{"Replace", {{"optReplaceDivX", true}}, "ReplaceDivX", "-1"},
        Option{"AddUnderscore", {{"optAddUnderscore", true}}, "ReplaceDivX", "0", "ReplaceDivX=-1\r\n"},
        Option{"Run", {{"chkRunDivX", true}}, "RunDivX", "-1"},
        Option{"ShowConsole", {{"chkShowDos", false}}, "ShowDos", "0"},
        Option{"ConsoleStyle", {{"cmbShowDos", 4}}, "ShowDosCombo", "4"},
        Option{"Pause", {{"chkShowDosPause", false}}, "ShowDosPause", "0"},
        Option{"ManyTimes", {{"chkLoadSubManyTimes", true}, {"txtLoadSubManyTimes", 3}}, "LoadSubManyTimes", "3"},
        Option{"OnceWhateverTheFieldHolds",
               {{"txtLoadSubManyTimes", 5}, {"chkLoadSubManyTimes", false}},
               "LoadSubManyTimes",
               "1",
               "LoadSubManyTimes=4\r\n"},
        Option{"Unload", {{"chkUnLoadSrt", false}}, "UnLoadSrt", "0"},
        Option{"SubtitlesBeside", {{"chkLoadSrtAuto", false}}, "LoadSrtAuto", "0"},
        Option{"SubtitlesElsewhere", {{"chkLoadSrtAutoFolder", true}}, "LoadSrtAutoFolder", "-1"},
        Option{"SubtitlesFolder",
               {{"chkLoadSrtAutoFolder", true}, {"txtLoadSrtAutoFolder", "/s"}},
               "LoadSrtAutoFolderText",
               "/s"},
        Option{"VideoBeside", {{"chkLoadAviAuto", false}}, "LoadAviAuto", "0"},
        Option{"VideoElsewhere", {{"chkLoadAviAutoFolder", true}}, "LoadAviAutoFolder", "-1"},
        Option{"VideoFolder",
               {{"chkLoadAviAutoFolder", true}, {"txtLoadAviAutoFolder", "/v"}},
               "LoadAviAutoFolderText",
               "/v"},
        Option{"Frame", {{"txtFrameForPreview", 1234}}, "FrameForPreview", "1234"},
        Option{
            "FrameZeroKeepsTheFrame", {{"txtFrameForPreview", 0}}, "FrameForPreview", "77", "FrameForPreview=77\r\n"},
        Option{"ShowStreams", {{"chkAutoShowAviInfo", true}}, "AutoShowAviInfo", "-1"},
        Option{"BatchToRun", {{"txtBatchToRun", "/no/such.cbx"}}, "BatchToRun", "/no/such.cbx"},
        Option{"WhatCouldNotBeTypedStays", {}, "ForceVideoHeight", "20000", "ForceVideoHeight=20000\r\n"}),
    [](const auto& row) { return std::string{row.param.name}; });

struct Enabling {
  const char* name;
  Acts acts;
  std::vector<const char*> enabled, disabled;
};

class OptionsEnabling : public OptionsDialog, public testing::WithParamInterface<Enabling> {};

TEST_P(OptionsEnabling, FollowsWhatIsChecked) {
  Workspace workspace = Start();
  const Form2 dialog(workspace, entry_, {}, nullptr);
  Do(dialog, GetParam().acts);
  for (const char* name : GetParam().enabled) EXPECT_TRUE(Part(dialog, name).isEnabled()) << name;
  for (const char* name : GetParam().disabled) EXPECT_FALSE(Part(dialog, name).isEnabled()) << name;
}

INSTANTIATE_TEST_SUITE_P(
    Rules, OptionsEnabling,
    testing::Values(
        Enabling{"AtFirst",
                 {},
                 {"chkUsePalMode1", "chkDeleteTemp", "chkShowDosPause", "cmbShowDos"},
                 {"chkForceVideoHeight", "txtForceVideoHeight", "chkDeleteBmp", "txtLoadSubManyTimes",
                  "txtLoadSrtAutoFolder", "cmdLoadAviAutoFolder", "cmdSave"}},
        Enabling{
            "MuxerAlone", {{"optDivXMux", true}}, {"chkForceVideoHeight"}, {"chkUsePalMode1", "txtForceVideoHeight"}},
        Enabling{"ForcedHeight", {{"optDivXMux", true}, {"chkForceVideoHeight", true}}, {"txtForceVideoHeight"}, {}},
        Enabling{"ForcedHeightForNothing",
                 {{"optDivXMux", true}, {"chkForceVideoHeight", true}, {"optBmpToXSub", true}},
                 {"chkUsePalMode1"},
                 {"chkForceVideoHeight", "txtForceVideoHeight"}},
        Enabling{"NotAll", {{"chkDeleteTemp", false}}, {"chkDeleteBmp", "chkDeleteOther"}, {}},
        Enabling{"NotWaiting",
                 {{"chkDeleteTemp", false}, {"chkWaitToEndDos", false}},
                 {},
                 {"chkDeleteTemp", "chkDeleteBmp", "chkDeleteOther"}},
        Enabling{"NoConsole", {{"chkShowDos", false}}, {}, {"chkShowDosPause", "cmbShowDos"}},
        Enabling{"ManyTimes", {{"chkLoadSubManyTimes", true}}, {"txtLoadSubManyTimes", "lblLoadSubManyTimesNote"}, {}},
        Enabling{"Folders",
                 {{"chkLoadSrtAutoFolder", true}, {"chkLoadAviAutoFolder", true}},
                 {"txtLoadSrtAutoFolder", "cmdLoadSrtAutoFolder", "txtLoadAviAutoFolder", "cmdLoadAviAutoFolder"},
                 {}}),
    [](const auto& row) { return std::string{row.param.name}; });

TEST_F(OptionsDialog, EveryPageIsWorkedByTheKeyboardAlone) {
  Workspace workspace = Start();
  const Form2 dialog(workspace, entry_, {}, nullptr);
  const auto& tabs = Part<QTabBar>(dialog, "TabStrip1");
  QStringList titles;
  for (int i = 0; i < tabs.count(); ++i) titles += tabs.tabText(i);
  EXPECT_EQ(titles, QStringList({"General", "Creating DivX", "Fonts", "Batch", "Extra"}));
  const auto* pages = dialog.findChild<QTabWidget*>();
  for (int i = 0; i < pages->count(); ++i) {
    std::set<QString> keys;
    const auto check = [&](const QString& text) {
      const QString key = QKeySequence::mnemonic(text).toString();
      EXPECT_TRUE(!key.isEmpty() && keys.insert(key).second)
          << text.toStdString() << " has the key " << key.toStdString();
    };
    for (const auto* button : pages->widget(i)->findChildren<QAbstractButton*>()) {
      if (button->accessibleName().isEmpty() && button->objectName() != "cmdBackColor") check(button->text());
    }
    for (const auto* label : pages->widget(i)->findChildren<QLabel*>()) {
      if (label->buddy() != nullptr) check(label->text());
    }
  }
}

TEST_F(OptionsDialog, QuestionsBehindItsButtons) {
  Workspace workspace = Start();
  Form2 dialog(workspace, entry_, {}, nullptr);
  prompts_.Expect("Background color", std::optional<std::uint32_t>{});
  Part<QPushButton>(dialog, "cmdBackColor").click();
  EXPECT_EQ(Part<QPushButton>(dialog, "cmdBackColor").text(), "RGB = (0, 0, 255)");
  prompts_.Expect("Background color", std::optional<std::uint32_t>{0x30201});
  Part<QPushButton>(dialog, "cmdBackColor").click();
  EXPECT_EQ(Part<QPushButton>(dialog, "cmdBackColor").text(), "RGB = (1, 2, 3)");

  Do(dialog, {{"chkLoadAviAutoFolder", true}});
  prompts_.Expect("folder", std::optional<std::string>{"/chosen"});
  Part<QAbstractButton>(dialog, "cmdLoadAviAutoFolder").click();
  prompts_.Expect("folder", std::optional<std::string>{});
  Part<QAbstractButton>(dialog, "cmdLoadAviAutoFolder").click();

  Part<QAbstractButton>(dialog, "cmdUsePalMode1Help").click();
  Part<QAbstractButton>(dialog, "cmdForceVideoHeightHelp").click();
  EXPECT_THAT(prompts_.TakeMessages(),
              ElementsAre("PALMODE1:\r\nMoves subtitles to NTSC save area for PAL->NTSC conversion.\r\n\r\n"
                          "PALMODE2 (default):\r\nUse original subtitle position.",
                          "Check this and type a big number (like 570) and 99% the subtitles will appear at the bottom "
                          "of the movie"));
  dialog.accept();
  EXPECT_TRUE(dialog.Effect().back_color_or_width_changed);
  EXPECT_EQ(Kept("BackColor"), "197121");
  EXPECT_EQ(Kept("LoadAviAutoFolderText"), "/chosen");
}

TEST_F(OptionsDialog, AFontOfATrackThatIsNotOpenIsWrittenAtOnce) {
  Workspace workspace = Start();
  const std::string file = folder_.Put("a.srt", kOneCue);
  const LoadOptions quiet{.encoding{}, .measure = false};
  ASSERT_TRUE(LoadFileToList(workspace, file, quiet));
  workspace.project.SelectLastTab(workspace.preferences);
  const Font chosen{.name = "DejaVu Sans", .size = 11, .bold = true, .italic = false, .charset = 177};
  const auto choose = [&](const Form2& dialog, int index) {
    prompts_.Expect("Subtitle " + std::to_string(index + 1), std::optional{chosen});
    Member<QPushButton>(dialog, "cmdFont", index).click();
    EXPECT_EQ(Member<QLabel>(dialog, "lblFont", index).text(), "DejaVu Sans (11), B");
  };
  {
    Form2 dialog(workspace, entry_, {}, nullptr);
    choose(dialog, 4);
    EXPECT_THAT(File(), HasSubstr("FontNameL4=DejaVu Sans\r\nFontSizeL4=11\r\nFontBoldL4=-1\r\nFontItalicL4=0\r\n"
                                  "FontCharsetL4=177\r\n"));
    choose(dialog, 1);
    dialog.reject();
    EXPECT_NE(workspace.project.tracks.Open()[1].list_font.name, "DejaVu Sans");
    EXPECT_FALSE(dialog.Effect().list_fonts_changed);
  }
  Form2 dialog(workspace, entry_, {}, nullptr);
  choose(dialog, 1);
  EXPECT_EQ(File().find("FontNameL1"), std::string::npos) << "saved with the track's style";
  dialog.accept();
  EXPECT_TRUE(dialog.Effect().list_fonts_changed);
  EXPECT_EQ(workspace.project.tracks.Open()[1].list_font.name, "DejaVu Sans");
  for (int i = 1; i < 4; ++i) {
    ASSERT_TRUE(LoadFileToList(workspace, file, quiet));
    workspace.project.SelectLastTab(workspace.preferences);
  }
  EXPECT_EQ(workspace.project.tracks.Current().list_font.charset, 177)
      << "the fifth track begins with what was chosen for it";
}

TEST_F(OptionsDialog, TheEntryAtRightClickIsMadeAndRemoved) {
  Workspace workspace = Start();
  for (const bool wanted : {true, false}) {
    {
      Form2 dialog(workspace, entry_, {}, nullptr);
      Do(dialog, {{"chkAtRightClick", wanted}});
      dialog.reject();
    }
    EXPECT_EQ(entry_.IsRegistered(), !wanted);
    Form2 dialog(workspace, entry_, {}, nullptr);
    EXPECT_EQ(Part<QCheckBox>(dialog, "chkAtRightClick").isChecked(), !wanted);
    Do(dialog, {{"chkAtRightClick", wanted}});
    dialog.accept();
    EXPECT_EQ(entry_.IsRegistered(), wanted);
  }
  EXPECT_THAT(prompts_.TakeMessages(), IsEmpty());
}

TEST_F(OptionsDialog, ARefusedEntryIsTold) {
  Workspace workspace = Start();
  FileRegistry refusing(folder_.Put("file", "") + "/keys");
  ContextMenuEntry entry = EntryIn(refusing);
  Form2 dialog(workspace, entry, {}, nullptr);
  Do(dialog, {{"chkAtRightClick", true}, {"chkRunDivX", true}});
  dialog.accept();
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre(HasSubstr(folder_.File("file"))));
  EXPECT_EQ(Kept("RunDivX"), "-1");
}

}  // namespace
}  // namespace captoria
