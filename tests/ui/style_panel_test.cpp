// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/style/style_panel.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QContextMenuEvent>
#include <functional>

#include "tests/ui/workspace_fixture.h"

namespace captoria {
namespace {

class StylePanelTest : public WorkspaceFixture {
 protected:
  StylePanelTest() {
    QObject::connect(&panel_, &StylePanel::StyleChanged, [this] { ++style_changes_; });
    QObject::connect(&panel_, &StylePanel::FontChanged, [this] { ++font_changes_; });
  }

  template <typename T>
  T& Find(const char* name) {
    return PartOf<T>(panel_, name);
  }

  QAction& Action(const char* key) { return Find<QAction>(key); }
  TrackStyle& Style() { return workspace_.project.tracks.Current().style; }

  StylePanel panel_{workspace_, nullptr};
  int style_changes_ = 0;
  int font_changes_ = 0;
};

TEST_F(StylePanelTest, EachControlWritesItsFieldAndTellsOnce) {
  struct Change {
    const char* control;
    std::function<void()> make;
    std::function<bool(const TrackStyle&)> is_made;
  };
  using S = const TrackStyle&;
  const auto list = [this](const char* name, int row) {
    return [this, name, row] { Find<QComboBox>(name).setCurrentIndex(row); };
  };
  const auto slide = [this](const char* name, int to) {
    return [this, name, to] { Find<QSlider>(name).setValue(to); };
  };
  const auto press = [this](const char* name) { return [this, name] { Find<QAbstractButton>(name).click(); }; };
  const Change changes[] = {
      {"Combo1", list("Combo1", 4), [](S style) { return style.OutlineWidth == 4; }},
      {"out2", [this] { Action("out2").trigger(); },
       [this](S style) { return style.OutlineWidth == 2 && Find<QComboBox>("Combo1").currentIndex() == 2; }},
      {"bevel", [this] { Find<QSpinBox>("txtBevel").setValue(-3); }, [](S style) { return style.ShadowBevel == -3; }},
      {"Left", press("optLeft"), [](S style) { return style.InAlign == Alignment::Left; }},
      {"Right", press("optRight"), [](S style) { return style.InAlign == Alignment::Right; }},
      {"Center", press("optCenter"), [](S style) { return style.InAlign == Alignment::Center; }},
      {"right to left", press("chkRightToLeft"), [](S style) { return style.RightToLeft; }},
      {"vertical", slide("sldVertPos", 7), [](S style) { return style.VertPos == 7; }},
      {"horizontal", slide("sldHorPos", -200), [](S style) { return style.HorPos == -200; }},
      {"page key", [this] { Find<QSlider>("sldHorPos").triggerAction(QSlider::SliderPageStepAdd); },
       [](S style) { return style.HorPos == -195; }},
      {"language", list("Combo2", 0), [](S style) { return style.Language == "ab ABKHAZIAN"; }},
      {"first type", list("cmbType", 0), [](S style) { return style.SubType == 1; }},
      {"last type", list("cmbType", 16), [](S style) { return style.SubType == 17; }},
  };
  for (const Change& change : changes) {
    style_changes_ = 0;
    change.make();
    EXPECT_TRUE(change.is_made(Style())) << change.control;
    EXPECT_EQ(style_changes_, 1) << change.control;
  }
  EXPECT_EQ(font_changes_, 0);
}

TEST_F(StylePanelTest, AChosenColourIsShownAndACancelledOneIsNot) {
  prompts_.Expect("Outline color", std::optional<std::uint32_t>(0x030201));
  Action("outcolor").trigger();
  EXPECT_EQ(Style().OutlineColor, (Color{1, 2, 3}));
  EXPECT_EQ(Action("outcolor").toolTip(), "RGB = (1, 2, 3)");
  EXPECT_EQ(Action("outcolor").icon().pixmap(16, 16).toImage().pixelColor(8, 8), QColor(1, 2, 3));
  EXPECT_EQ(Action("color").toolTip(), "RGB = (255, 255, 255)");
  prompts_.Expect("Shadow color", std::optional<std::uint32_t>());
  Action("shadowcolor").trigger();
  EXPECT_EQ(Action("shadowcolor").toolTip(), "RGB = (70, 70, 70)");
  EXPECT_EQ(style_changes_, 1);
}

TEST_F(StylePanelTest, AChosenFontIsShownAndToldAsAFont) {
  prompts_.Expect("Font", std::optional<Font>());
  Action("font").trigger();
  EXPECT_EQ(font_changes_, 0);
  prompts_.Expect("Font", std::optional(Font{"DejaVu Sans", 12.5, true, true, 161}));
  Action("font").trigger();
  EXPECT_EQ(font_changes_, 1);
  EXPECT_EQ(style_changes_, 0);
  EXPECT_EQ(Style().font.charset, 161);
  EXPECT_EQ(Find<QLabel>("lblFont").text(), "DejaVu Sans (12.5), B, I");
  EXPECT_EQ(Action("font").toolTip(), "DejaVu Sans (12.5), B, I");
}

TEST_F(StylePanelTest, AnotherTracksValuesAreShownAndNothingIsTold) {
  Style() = {.FitFont = false,
             .VertPos = 300,
             .HorPos = -20,
             .InAlign = Alignment::Right,
             .RightToLeft = true,
             .Language = "iw HEBREW",
             .SubType = 7,
             .ForeColor = {9, 8, 7},
             .OutlineColor{},
             .ShadowColor{},
             .OutlineWidth = 3,
             .ShadowBevel = -500,
             .font = {.name = "Serif", .size = 30}};
  panel_.LoadCorrectValues();
  EXPECT_EQ(Find<QSlider>("sldVertPos").value(), 300);
  EXPECT_EQ(Find<QLabel>("lblVertPosValue").text(), "300");
  EXPECT_EQ(Find<QSlider>("sldHorPos").value(), -20);
  EXPECT_TRUE(Find<QAbstractButton>("optRight").isChecked());
  EXPECT_TRUE(Find<QCheckBox>("chkRightToLeft").isChecked());
  EXPECT_EQ(Find<QComboBox>("Combo2").currentText(), "iw HEBREW");
  EXPECT_EQ(Find<QComboBox>("cmbType").currentText(), "07 Forced");
  EXPECT_EQ(Find<QComboBox>("Combo1").currentText(), "3");
  EXPECT_TRUE(Action("out3").isChecked());
  EXPECT_EQ(Find<QSpinBox>("txtBevel").value(), -500);
  EXPECT_EQ(Action("color").toolTip(), "RGB = (9, 8, 7)");
  EXPECT_EQ(Find<QLabel>("lblFont").text(), "Serif (30)");
  for (const char* unknown : {"", "en", "EN ENGLISH", "tlh KLINGON", "fr*"}) {
    Style().Language = unknown;
    panel_.LoadCorrectValues();
    EXPECT_EQ(Style().Language, "en ENGLISH") << unknown;
  }
  EXPECT_EQ(Find<QComboBox>("Combo2").currentText(), "en ENGLISH");
  EXPECT_EQ(style_changes_ + font_changes_, 0);
}

TEST_F(StylePanelTest, TheVideoAndACueMoveTheSliderButNotTheTrack) {
  EXPECT_EQ(panel_.VerticalMaximum(), 40) << "the default position is beyond the first range";
  panel_.SetVerticalMaximum(30);
  EXPECT_EQ(panel_.VerticalPosition(), 30);
  EXPECT_EQ(Style().VertPos, 40) << "a video does not move the track";
  panel_.LoadCorrectValues();
  EXPECT_EQ(panel_.VerticalMaximum(), 40);
  panel_.SetVerticalMaximum(-5);
  EXPECT_EQ(panel_.VerticalMaximum(), 0);
  panel_.SetVerticalMaximum(400);
  panel_.ShowVerticalPosition(120);
  EXPECT_EQ(panel_.VerticalPosition(), 120);
  EXPECT_EQ(Style().VertPos, 40);
  EXPECT_EQ(style_changes_, 0);
}

TEST_F(StylePanelTest, TheRightMouseButtonCentresTheTrack) {
  auto& slider = Find<QSlider>("sldHorPos");
  slider.setValue(90);
  QContextMenuEvent right_click(QContextMenuEvent::Mouse, {5, 5}, slider.mapToGlobal(QPoint{5, 5}));
  QApplication::sendEvent(&slider, &right_click);
  EXPECT_EQ(slider.value(), 0);
  EXPECT_EQ(Style().HorPos, 0);
  EXPECT_EQ(style_changes_, 2);
}

TEST_F(StylePanelTest, PicturesKeepOnlyTheirLanguageAndType) {
  panel_.EnableButtons(false);
  for (const char* off : {"optLeft", "chkRightToLeft", "txtBevel", "lblBevel", "Combo1", "sldVertPos", "lblInAlign"})
    EXPECT_FALSE(Find<QWidget>(off).isEnabled()) << off;
  for (const QAction* action : panel_.StyleActions()) EXPECT_FALSE(action->isEnabled());
  EXPECT_TRUE(Find<QWidget>("Combo2").isEnabled());
  EXPECT_TRUE(Find<QWidget>("cmbType").isEnabled());
  panel_.EnableButtons(true);
  EXPECT_TRUE(Action("out0").isEnabled());
  EXPECT_TRUE(Find<QWidget>("optLeft").isEnabled());
}

TEST_F(StylePanelTest, EveryControlHasANameForThoseWhoCannotSeeIt) {
  for (QWidget* control : panel_.findChildren<QWidget*>()) {
    const bool own = control->window() == &panel_ && !control->objectName().startsWith("qt_");
    if (!own || control->focusPolicy() == Qt::NoFocus) continue;
    const QAccessibleInterface* told = QAccessible::queryAccessibleInterface(control);
    EXPECT_FALSE(told->text(QAccessible::Name).isEmpty()) << control->objectName().toStdString();
  }
}

}  // namespace
}  // namespace captoria
