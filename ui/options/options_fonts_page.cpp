// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/options/options_fonts_page.h"

#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/style/style_toolbar.h"
#include "ui/texts/captions.h"
#include "ui/texts/qt_text.h"

namespace captoria {

OptionsFontsPage::OptionsFontsPage(Workspace& workspace, QWidget* parent) : QWidget(parent), workspace_(workspace) {
  auto* fonts = new QGridLayout;
  fonts->setColumnStretch(1, 1);
  for (int i = 0; i < kMostTracks; ++i) {
    auto* button = Named(new QPushButton(QStringLiteral("Subtitle &%1").arg(i + 1), this), "cmdFont");
    button->setProperty("Index", i);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, button, i] { Choose(i, button->text().remove('&')); });
    auto* shown = Named(new QLabel(this), "lblFont");
    shown->setProperty("Index", i);
    shown->setProperty(kShowsData, true);
    shown->setTextFormat(Qt::PlainText);
    shown_.at(static_cast<std::size_t>(i)) = shown;
    ShowFont(i);
    fonts->addWidget(button, i, 0);
    fonts->addWidget(shown, i, 1, Qt::AlignLeading | Qt::AlignVCenter);
  }
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(Note("lblFontsNote",
                         "Select the font that will be used for displaying subtitles at listviews. \r\n"
                         "Useful for right to left languages",
                         this));
  layout->addLayout(fonts);
  layout->addStretch();
}

void OptionsFontsPage::Choose(int index, const QString& title) {
  auto& waiting = chosen_.at(static_cast<std::size_t>(index));
  const auto font = workspace_.prompts.AskFont(
      FromQt(title), waiting ? *waiting : ListFontOf(workspace_.preferences, workspace_.project, index));
  if (!font) return;
  if (IsOpen(workspace_.project, index)) {
    waiting = *font;
  } else if (const auto stored = workspace_.preferences.StoreListFont(index, *font); !stored) {
    workspace_.prompts.ShowMessage(kProgramTitle, stored.error().message);
  }
  ShowFont(index);
}

void OptionsFontsPage::ShowFont(int index) {
  const auto at = static_cast<std::size_t>(index);
  const Font font = chosen_.at(at) ? *chosen_.at(at) : ListFontOf(workspace_.preferences, workspace_.project, index);
  shown_.at(at)->setText(FontText(font));
}

}  // namespace captoria
