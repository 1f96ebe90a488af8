// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/dialogs/welcome_dialog.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <array>

#include "ui/texts/captions.h"

namespace captoria {
namespace {

constexpr std::size_t kHeading = 1;

constexpr std::array kTexts = {
    "Program needs 2 files. DivXMux.exe and bmpToxSub.exe. Where to find them? Program will ask you for these files "
    "and give you links to download them.",
    "What to do",
    "First open the avi file (menu File - Open avi). Program will show you a frame (picture) from this file at main "
    "window. You can set what frame to show at dialog Options.",
    "After load your .srt or idx file (menu File - Open srt/idx). If you want to load an other srt/idx file, first "
    "click at tab <New> to tell the program that you want to use one more subtitle.",
    "For every subtitle file (srt) you load can set different settings. Font, color, outline width and color, shadow "
    "color and bevel, the language and type that subtitle is.",
    "If you click on a subtitle line you can see a preview of this line.",
    "You can check the dialog Options (menu File - Options). The settings there are easy to understand. Also, most of "
    "the menu commands can be used with the toolbar buttons.",
    "At the end go to menu Subtitles - \"Create DivX\" or use the button at toolbar.",
    "Also, inside alignment for subtitles with 2 lines and vertical position. These last settings can be set globally "
    "or only for some subtitles (lines). Just select the lines you want and right click. A menu will pop up. Select "
    "there "
    "the \"Set pos and alignment...\"",
    "You can reopen this window if you go to menu Help - \"Welcome dialog...\"",
};

}  // namespace

frmWelcome::frmWelcome(const LanguageDocument& language, QWidget* parent) : QDialog(parent) {
  setObjectName("frmWelcome");
  setWindowTitle("Welcome to the program");
  auto* page = new QWidget;
  auto* texts = new QVBoxLayout(page);
  for (std::size_t i = 0; i < kTexts.size(); ++i) {
    auto* label = new QLabel(kTexts[i], page);
    label->setObjectName("Label" + QString::number(i + 1));
    label->setTextFormat(Qt::PlainText);  // "<New>" is a tab, not a tag
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    if (i == kHeading) {
      QFont heading = label->font();
      heading.setBold(true);
      heading.setPointSizeF(heading.pointSizeF() * 1.3);
      label->setFont(heading);
    }
    texts->addWidget(label);
  }
  texts->addStretch();

  // A translation may not fit the height of the screen.
  auto* scroll = new QScrollArea(this);
  scroll->setWidget(page);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll->setAccessibleName(windowTitle());

  auto* ok = new QPushButton("OK", this);
  ok->setObjectName("OKButton");
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(scroll, 1);
  layout->addWidget(ok, 0, Qt::AlignTrailing);
  ok->setFocus();
  ApplyCaptions(*this, language);
  const QFontMetrics letters(font());
  resize(letters.averageCharWidth() * 90, letters.lineSpacing() * 26);
}

}  // namespace captoria
