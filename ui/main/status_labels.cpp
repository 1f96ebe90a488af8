// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/main/status_labels.h"

#include "localisation/window_texts.h"
#include "ui/texts/captions.h"
#include "ui/texts/qt_text.h"

namespace captoria {
namespace {

constexpr int kShownFor = 4000;  // milliseconds

QLabel* Add(QStatusBar* bar, const char* name, int stretch) {
  auto* label = new QLabel(bar);
  label->setObjectName(name);
  label->setProperty(kShowsData, true);
  bar->addWidget(label, stretch);
  return label;
}

}  // namespace

StatusLabels::StatusLabels(QStatusBar* bar, const LanguageDocument& language)
    : QObject(bar),
      words_(language),
      message_(Add(bar, "lblStatus", 40)),
      outside_(Add(bar, "lblStatus2", 26)),
      selected_(Add(bar, "lblStatus3", 14)),
      language_(Add(bar, "lblStatus4", 20)) {
  timer_.setObjectName("Timer1");
  timer_.setSingleShot(true);
  timer_.setInterval(kShownFor);
  connect(&timer_, &QTimer::timeout, message_, &QLabel::clear);
}

void StatusLabels::Tell(const QString& text) {
  message_->setText(text);
  message_->setToolTip(text);
  timer_.start();
}

void StatusLabels::TellBatch(const QString& name) { Tell(ToQt(TextOf(words_, window_texts::kBatch)) + name); }

void StatusLabels::ShowOutside(std::optional<int> count, bool fitted) {
  // The sign is for users who cannot see the colour.
  const QString sign = fitted ? QString{} : QStringLiteral("\u26A0 ");
  const bool any = count.value_or(0) > 0;
  const QString words = ToQt(TextOf(words_, window_texts::kSubOut));
  outside_->setText(any ? sign + QString::number(*count) + words : QString{});
  outside_->setStyleSheet(!any     ? QString{}
                          : fitted ? QStringLiteral("background: #665500; color: #FFFF64")
                                   : QStringLiteral("color: #E03030; font-weight: bold"));
}

void StatusLabels::ShowSelected(int count) {
  const QString words = ToQt(TextOf(words_, window_texts::kSubSelected));
  selected_->setText(count > 0 ? QString::number(count) + words : QString{});
}

}  // namespace captoria
