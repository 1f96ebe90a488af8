// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/dialogs/label_ex.h"

#include <QEvent>

namespace captoria {

LabelEx::LabelEx(const QString& name, QWidget* parent)
    : QWidget(parent), relief_(new QLabel(this)), front_(new QLabel(this)) {
  setObjectName(name);
  for (QLabel* label : {relief_, front_}) {
    label->setTextFormat(Qt::PlainText);
    label->setMargin(1);  // so that moving the label cuts off no letter
  }
  front_->move(-1, -1);
  SetCaption(name);
  ChooseRelief();
}

void LabelEx::SetCaption(const QString& text) {
  for (QLabel* label : {relief_, front_}) label->setText(text);
  setAccessibleName(text);
  updateGeometry();
}

void LabelEx::SetAppearance(int appearance) {
  appearance_ = appearance;
  DrawBorder();
}

void LabelEx::SetBorderStyle(int border) {
  border_ = border;
  DrawBorder();
}

void LabelEx::DrawBorder() {
  for (QLabel* label : {relief_, front_}) {
    label->setFrameShape(border_ == 0 ? QFrame::NoFrame : appearance_ == 0 ? QFrame::Box : QFrame::Panel);
    label->setFrameShadow(appearance_ == 0 ? QFrame::Plain : QFrame::Sunken);
  }
  updateGeometry();
}

void LabelEx::SetBackColor(const QColor& color) {
  QPalette own = palette();
  own.setColor(QPalette::Window, color);
  setPalette(own);
  setAutoFillBackground(true);
}

void LabelEx::SetAlignment(Qt::Alignment alignment) {
  for (QLabel* label : {relief_, front_}) label->setAlignment(alignment);
}

void LabelEx::SetFontBold(bool bold) {
  for (QLabel* label : {relief_, front_}) {
    QFont font = label->font();
    font.setBold(bold);
    label->setFont(font);
  }
  updateGeometry();
}

void LabelEx::SetTooltipTextInside(const QString& text) {
  for (QLabel* label : {relief_, front_}) label->setToolTip(text);
}

QSize LabelEx::sizeHint() const { return front_->sizeHint() + QSize(1, 1); }

void LabelEx::resizeEvent(QResizeEvent*) {
  for (QLabel* label : {relief_, front_}) label->resize(size());
}

void LabelEx::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) ChooseRelief();
  QWidget::changeEvent(event);
}

// A light edge for dark letters and a dark edge for light letters; the other way round the text looks blurred.
void LabelEx::ChooseRelief() {
  const bool dark_text = palette().color(QPalette::WindowText).lightness() < BackColor().lightness();
  relief_->setForegroundRole(dark_text ? QPalette::Light : QPalette::Shadow);
}

}  // namespace captoria
