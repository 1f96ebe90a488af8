// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/main/start_page.h"

#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace captoria {

StartPage::StartPage(QAction* open_video, QAction* open_subtitle, QWidget* parent) : QWidget(parent) {
  constexpr int kPicture = 96;
  auto* picture = new QLabel(this);
  picture->setPixmap(QIcon(":/icons/captoria.svg").pixmap(kPicture, kPicture));
  picture->setAlignment(Qt::AlignCenter);
  picture->setObjectName("picStart");
  auto* title = new QLabel("Open a video, or drop one here", this);
  title->setObjectName("lblStart");
  QFont font = title->font();
  font.setPointSizeF(font.pointSizeF() * 1.6);
  title->setFont(font);
  title->setAlignment(Qt::AlignCenter);
  auto* hint = new QLabel(
      "Subtitle files with the same name open too. Choose their style, check them over the picture, then create the "
      "DivX "
      "file.",
      this);
  hint->setObjectName("lblStartHint");
  hint->setWordWrap(true);
  hint->setAlignment(Qt::AlignCenter);
  auto* video = new QPushButton(open_video->icon(), "Open &video...", this);
  video->setObjectName("cmdStartVideo");
  video->setDefault(true);
  connect(video, &QPushButton::clicked, open_video, &QAction::trigger);
  auto* subtitle = new QPushButton(open_subtitle->icon(), "Open subtitle fi&le...", this);
  subtitle->setObjectName("cmdStartSubtitle");
  connect(subtitle, &QPushButton::clicked, open_subtitle, &QAction::trigger);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(video);
  buttons->addWidget(subtitle);
  buttons->addStretch();
  auto* layout = new QVBoxLayout(this);
  layout->addStretch(2);
  layout->addWidget(picture);
  layout->addWidget(title);
  layout->addWidget(hint);
  layout->addSpacing(font.pointSize());
  layout->addLayout(buttons);
  layout->addStretch(3);
}

}  // namespace captoria
