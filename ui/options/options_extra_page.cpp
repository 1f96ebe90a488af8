// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/options/options_extra_page.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <limits>

#include "ui/style/color_swatch.h"
#include "ui/texts/captions.h"
#include "ui/texts/qt_text.h"

namespace captoria {

OptionsExtraPage::OptionsExtraPage(Prompts& prompts, QWidget* parent) : OptionsPage(parent), prompts_(prompts) {
  auto* files = Named(new QGroupBox("File manager", this), "FrameRightClick");
  at_right_click_ =
      Named(new QCheckBox("&Add the \"Create .divx with subs\" (auto) at right click for .avi files", files),
            "chkAtRightClick");
  auto* entry = new QVBoxLayout(files);
  entry->addWidget(at_right_click_);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(BuildPreview());
  layout->addWidget(files);
  layout->addStretch();
}

QWidget* OptionsExtraPage::BuildPreview() {
  auto* frame = Named(new QGroupBox("Preview", this), "FramePreview");
  frame_ = Named(new QSpinBox(frame), "txtFrameForPreview");
  frame_->setRange(-1, std::numeric_limits<int>::max());
  frame_->setMaximumWidth(frame_->fontMetrics().averageCharWidth() * 20);
  color_button_ = Named(new QPushButton(frame), "cmdBackColor");
  color_button_->setProperty(kShowsData, true);
  color_button_->setAutoDefault(false);
  connect(color_button_, &QAbstractButton::clicked, this, &OptionsExtraPage::ChooseColor);
  color_label_ = FieldLabel(color_button_, "lblBackColor", "&Background color for subtitles");
  auto* number = new QVBoxLayout;
  number->addWidget(frame_);
  number->addWidget(Note("lblFrameForPreviewNote", "-1 is the first frame, 0 keeps the current setting", frame));
  auto* color = new QHBoxLayout;
  color->addWidget(color_button_);
  color->addStretch();
  auto* form = new QFormLayout(frame);
  form->addRow(FieldLabel(frame_, "lblFrameForPreview", "&Frame to get for preview"), number);
  form->addRow(color_label_, color);
  return frame;
}

void OptionsExtraPage::Load(const Settings& settings) {
  ShowNumber(frame_, settings.FrameForPreview);
  ShowColor(settings.BackColor);
}

void OptionsExtraPage::Store(Settings& settings) const {
  if (frame_->value() != 0) settings.FrameForPreview = frame_->value();
  settings.BackColor = color_;
}

void OptionsExtraPage::LoadEntry(const ContextMenuEntry& entry) { at_right_click_->setChecked(entry.IsRegistered()); }

Result<void> OptionsExtraPage::StoreEntry(ContextMenuEntry& entry) const {
  if (entry.IsRegistered() == at_right_click_->isChecked()) return {};
  return at_right_click_->isChecked() ? entry.Register() : entry.Unregister();
}

void OptionsExtraPage::ChooseColor() {
  const QString title = color_label_->text().remove('&');
  const auto chosen = prompts_.AskColor(FromQt(title), static_cast<std::uint32_t>(color_));
  if (chosen) ShowColor(static_cast<int>(*chosen));
}

void OptionsExtraPage::ShowColor(int color) {
  color_ = color;
  color_button_->setIcon(ColorSwatch(SplitColour(color)));
  color_button_->setText(RgbText(SplitColour(color)));
}

}  // namespace captoria
