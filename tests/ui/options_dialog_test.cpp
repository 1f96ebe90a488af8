// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/options/options_dialog.h"

#include <QComboBox>
#include <QPushButton>
#include <set>

#include "app/load_subtitle.h"
#include "settings/settings_values.h"
#include "tests/ui/workspace_fixture.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Act = std::pair<const char*, QVariant>;  // a control, and what it is set to
using Acts = std::vector<Act>;

class OptionsDialog : public WorkspaceFixture {
 protected:
  Workspace Start() { return {workspace_.folders, prompts_, view_}; }

  std::string File() const { return folder_.Get("data/Captoria.ini"); }

  // What a window that starts now has under an option's key.
  std::string Kept(const char* key) {
    const Workspace workspace = Start();
    IniDocument document;
    EXPECT_TRUE(SaveOptions(document, workspace.preferences.settings));
    return std::string{document.Find(kSettingsSection, key).value_or("nothing")};
  }

  static void Do(const Form2& dialog, const Acts& acts) {
    for (const auto& [name, value] : acts) {
      QWidget& part = PartOf(dialog, name);
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

  FileRegistry registry_{folder_.File("keys")};
  ContextMenuEntry entry_ = EntryIn(registry_);
};

struct Option {
  Acts acts;
  const char* key;
  const char* kept;
  const char* file = "";  // the settings it begins with
};

const Option kOptions[] = {
    {{{"optDivXMux", true}}, "UseBmpToXSub", "0"},
    {{{"optBmpToXSub", true}}, "UseBmpToXSub", "-1", "UseBmpToXSub=0\r\n"},
    {{{"chkUsePalMode1", true}}, "UsePalMode1", "-1"},
    {{{"optDivXMux", true}, {"chkForceVideoHeight", true}}, "ForceVideoHeight", "570"},
    {{{"optDivXMux", true}, {"chkForceVideoHeight", true}, {"txtForceVideoHeight", 600}}, "ForceVideoHeight", "600"},
    {{{"optDivXMux", true}, {"chkForceVideoHeight", false}}, "ForceVideoHeight", "0", "ForceVideoHeight=600\r\n"},
    {{{"chkDeleteTemp", false}}, "deleteTemp", "0"},
    {{{"chkDeleteTemp", false}, {"chkDeleteBmp", true}}, "deleteBmp", "-1"},
    {{{"chkDeleteTemp", false}, {"chkDeleteOther", true}}, "deleteOther", "-1"},
    {{{"chkWaitToEndDos", false}}, "WaitToEndDos", "0"},
    {{{"optReplaceDivX", true}}, "ReplaceDivX", "-1"},
    {{{"optAddUnderscore", true}}, "ReplaceDivX", "0", "ReplaceDivX=-1\r\n"},
    {{{"chkRunDivX", true}}, "RunDivX", "-1"},
    {{{"chkShowDos", false}}, "ShowDos", "0"},
    {{{"cmbShowDos", 4}}, "ShowDosCombo", "4"},
    {{{"chkShowDosPause", false}}, "ShowDosPause", "0"},
    {{{"chkLoadSubManyTimes", true}, {"txtLoadSubManyTimes", 3}}, "LoadSubManyTimes", "3"},
    {{{"txtLoadSubManyTimes", 5}, {"chkLoadSubManyTimes", false}}, "LoadSubManyTimes", "1", "LoadSubManyTimes=4\r\n"},
    {{{"chkUnLoadSrt", false}}, "UnLoadSrt", "0"},
    {{{"chkLoadSrtAuto", false}}, "LoadSrtAuto", "0"},
    {{{"chkLoadSrtAutoFolder", true}}, "LoadSrtAutoFolder", "-1"},
    {{{"txtLoadSrtAutoFolder", "/s"}}, "LoadSrtAutoFolderText", "/s", "LoadSrtAutoFolder=-1\r\n"},
    {{{"chkLoadAviAuto", false}}, "LoadAviAuto", "0"},
    {{{"chkLoadAviAutoFolder", true}}, "LoadAviAutoFolder", "-1"},
    {{{"txtLoadAviAutoFolder", "/v"}}, "LoadAviAutoFolderText", "/v", "LoadAviAutoFolder=-1\r\n"},
    {{{"txtFrameForPreview", 1234}}, "FrameForPreview", "1234"},
    {{{"txtFrameForPreview", 0}}, "FrameForPreview", "77", "FrameForPreview=77\r\n"},
    {{{"chkAutoShowAviInfo", true}}, "AutoShowAviInfo", "-1"},
    {{{"txtBatchToRun", "/no/such.cbx"}}, "BatchToRun", "/no/such.cbx"},
    // What a control cannot show stays too.
    {{}, "ForceVideoHeight", "20000", "ForceVideoHeight=20000\r\n"},
    {{}, "LoadSrtAutoFolderText", "/no\xFFtext", "LoadSrtAutoFolderText=/no\xFFtext\r\n"},
};

TEST_F(OptionsDialog, OptionsAreKeptByOkAndNotByCancel) {
  for (const auto& [acts, key, kept, file] : kOptions) {
    SCOPED_TRACE(std::string{key} + " becomes " + kept);
    const std::string before = std::string{"[General]\r\n"} + file;
    folder_.Put("data/Captoria.ini", before);
    const std::string kept_before = Kept(key);
    Workspace workspace = Start();
    {
      Form2 dialog(workspace, entry_, {}, nullptr);
      Do(dialog, acts);
      dialog.reject();
    }
    EXPECT_EQ(File(), before);
    {
      Form2 dialog(workspace, entry_, {}, nullptr);
      dialog.accept();
      EXPECT_EQ(Kept(key), kept_before) << "what was cancelled, or never touched, is as it was";
    }
    Form2 dialog(workspace, entry_, {}, nullptr);
    Do(dialog, acts);
    dialog.accept();
    EXPECT_EQ(Kept(key), kept);
  }
}

struct Enabling {
  Acts acts;
  std::vector<const char*> enabled, disabled;
};

const Enabling kEnabling[] = {
    {{},
     {"chkUsePalMode1", "chkDeleteTemp", "chkShowDosPause", "cmbShowDos"},
     {"chkForceVideoHeight", "txtForceVideoHeight", "chkDeleteBmp", "txtLoadSubManyTimes", "txtLoadSrtAutoFolder",
      "cmdLoadAviAutoFolder", "cmdSave"}},
    {{{"optDivXMux", true}}, {"chkForceVideoHeight"}, {"chkUsePalMode1", "txtForceVideoHeight"}},
    {{{"optDivXMux", true}, {"chkForceVideoHeight", true}}, {"txtForceVideoHeight"}, {}},
    {{{"optDivXMux", true}, {"chkForceVideoHeight", true}, {"optBmpToXSub", true}},
     {"chkUsePalMode1"},
     {"chkForceVideoHeight", "txtForceVideoHeight"}},
    {{{"chkDeleteTemp", false}}, {"chkDeleteBmp", "chkDeleteOther"}, {}},
    {{{"chkDeleteTemp", false}, {"chkWaitToEndDos", false}}, {}, {"chkDeleteTemp", "chkDeleteBmp", "chkDeleteOther"}},
    {{{"chkShowDos", false}}, {}, {"chkShowDosPause", "cmbShowDos"}},
    {{{"chkLoadSubManyTimes", true}}, {"txtLoadSubManyTimes", "lblLoadSubManyTimesNote"}, {}},
    {{{"chkLoadSrtAutoFolder", true}, {"chkLoadAviAutoFolder", true}},
     {"txtLoadSrtAutoFolder", "cmdLoadSrtAutoFolder", "txtLoadAviAutoFolder", "cmdLoadAviAutoFolder"},
     {}},
};

TEST_F(OptionsDialog, WhatCanBeUsedFollowsWhatIsChecked) {
  for (const auto& [acts, enabled, disabled] : kEnabling) {
    SCOPED_TRACE(acts.empty() ? "at first" : acts.back().first);
    Workspace workspace = Start();
    const Form2 dialog(workspace, entry_, {}, nullptr);
    Do(dialog, acts);
    for (const char* name : enabled) EXPECT_TRUE(PartOf(dialog, name).isEnabled()) << name;
    for (const char* name : disabled) EXPECT_FALSE(PartOf(dialog, name).isEnabled()) << name;
  }
}

TEST_F(OptionsDialog, EveryPageIsWorkedByTheKeyboardAlone) {
  Workspace workspace = Start();
  const Form2 dialog(workspace, entry_, {}, nullptr);
  const auto& tabs = PartOf<QTabBar>(dialog, "TabStrip1");
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
  workspace.language.document = *LanguageDocument::Parse("<L><Form2_Design lblForceVideoHeightHelp='drei'/></L>");
  Form2 dialog(workspace, entry_, {}, nullptr);
  prompts_.Expect("Background color", std::optional<std::uint32_t>{});
  PartOf<QPushButton>(dialog, "cmdBackColor").click();
  EXPECT_EQ(PartOf<QPushButton>(dialog, "cmdBackColor").text(), "RGB = (0, 0, 255)");
  prompts_.Expect("Background color", std::optional<std::uint32_t>{0x30201});
  PartOf<QPushButton>(dialog, "cmdBackColor").click();
  EXPECT_EQ(PartOf<QPushButton>(dialog, "cmdBackColor").text(), "RGB = (1, 2, 3)");

  Do(dialog, {{"chkLoadAviAutoFolder", true}});
  prompts_.Expect("folder", std::optional<std::string>{"/chosen"});
  PartOf<QAbstractButton>(dialog, "cmdLoadAviAutoFolder").click();
  prompts_.Expect("folder", std::optional<std::string>{});
  PartOf<QAbstractButton>(dialog, "cmdLoadAviAutoFolder").click();

  PartOf<QAbstractButton>(dialog, "cmdUsePalMode1Help").click();
  PartOf<QAbstractButton>(dialog, "cmdForceVideoHeightHelp").click();
  EXPECT_THAT(prompts_.TakeMessages(),
              ElementsAre(HasSubstr("conversion.\r\n\r\nPALMODE2 (default):\r\nUse original"), "drei"));
  dialog.accept();
  EXPECT_TRUE(dialog.Effect().back_color_or_width_changed);
  EXPECT_EQ(Kept("BackColor"), "197121");
  EXPECT_EQ(Kept("LoadAviAutoFolderText"), "/chosen");
}

TEST_F(OptionsDialog, AFontOfATrackThatIsNotOpenIsWrittenAtOnce) {
  Workspace workspace = Start();
  const std::string file = folder_.Put("a.srt", "1\n00:00:01,000 --> 00:00:02,000\nHello\n");
  ASSERT_TRUE(LoadFileToList(workspace, file, {.encoding{}, .measure = false}));
  workspace.project.SelectLastTab(workspace.preferences);
  const Font chosen{.name = "DejaVu Sans", .size = 11, .bold = true, .italic = false, .charset = 177};
  const auto choose = [&](const Form2& dialog, int index) {
    prompts_.Expect("Subtitle " + std::to_string(index + 1), std::optional{chosen});
    PartOf<QPushButton>(dialog, "cmdFont", index).click();
    EXPECT_EQ(PartOf<QLabel>(dialog, "lblFont", index).text(), "DejaVu Sans (11), B");
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
    EXPECT_EQ(PartOf<QCheckBox>(dialog, "chkAtRightClick").isChecked(), !wanted);
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
