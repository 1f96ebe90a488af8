// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/style/position_slider.h"

#include <QCursor>
#include <QGridLayout>
#include <QSignalBlocker>
#include <QToolTip>

#include "ui/texts/captions.h"

namespace captoria {

PositionSlider::PositionSlider(const QString& name, const QString& caption, const QString& tool_tip, QWidget* parent)
    : QWidget(parent), value_(new QLabel("0", this)), slider_(new QSlider(Qt::Horizontal, this)) {
  auto* label = new QLabel(caption, this);
  label->setObjectName("lbl" + name);
  label->setBuddy(slider_);
  value_->setObjectName("lbl" + name + "Value");
  value_->setProperty(kShowsData, true);
  slider_->setObjectName("sld" + name);
  slider_->setToolTip(tool_tip);
  slider_->setSingleStep(1);
  slider_->setPageStep(5);
  // Left and right refer to the video frame, which no language mirrors.
  slider_->setLayoutDirection(Qt::LeftToRight);

  auto* layout = new QGridLayout(this);
  layout->setContentsMargins({});
  layout->setVerticalSpacing(2);
  layout->setColumnStretch(1, 1);
  layout->addWidget(label, 0, 0);
  layout->addWidget(value_, 0, 1, Qt::AlignTrailing);
  layout->addWidget(slider_, 1, 0, 1, 2);

  connect(slider_, &QSlider::valueChanged, this, [this](int value) {
    value_->setNum(value);
    emit Moved(value);
  });
  connect(slider_, &QSlider::sliderMoved, this,
          [this](int value) { QToolTip::showText(QCursor::pos(), QString::number(value), slider_); });
}

void PositionSlider::SetRange(int lowest, int highest) {
  const QSignalBlocker quiet(slider_);
  slider_->setRange(lowest, highest);
  value_->setNum(slider_->value());
}

void PositionSlider::ShowValue(int value) {
  const QSignalBlocker quiet(slider_);
  slider_->setValue(value);
  value_->setNum(slider_->value());
}

void PositionSlider::ComeHomeTo(int home) {
  slider_->setTickPosition(QSlider::TicksBelow);
  slider_->setTickInterval(Highest() - home);
  slider_->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(slider_, &QSlider::customContextMenuRequested, slider_, [this, home] { slider_->setValue(home); });
}

}  // namespace captoria
