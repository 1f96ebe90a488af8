// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/dialogs/link_label.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include "ui/texts/qt_text.h"

namespace captoria {

LinkLabel::LinkLabel(DocumentOpener& opener, AddressIn place, QWidget* parent)
    : QLabel(parent), opener_(opener), place_(place) {
  setTextFormat(Qt::PlainText);
}

bool LinkLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTipChange) LookLikeItsAddress();
  return QLabel::event(event);
}

void LinkLabel::showEvent(QShowEvent* event) {
  LookLikeItsAddress();
  QLabel::showEvent(event);
}

void LinkLabel::LookLikeItsAddress() {
  const bool leads = !Address().isEmpty();
  setForegroundRole(leads ? QPalette::Link : QPalette::NoRole);
  setFocusPolicy(leads ? Qt::StrongFocus : Qt::NoFocus);
  leads ? setCursor(Qt::PointingHandCursor) : unsetCursor();
  QFont own = font();
  own.setUnderline(leads);
  setFont(own);
}

void LinkLabel::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) Open();
}

void LinkLabel::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space || key == Qt::Key_Select) return Open();
  QLabel::keyPressEvent(event);
}

void LinkLabel::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  if (!hasFocus()) return;
  QPainter painter(this);
  QStyleOptionFocusRect ring;
  ring.initFrom(this);
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &ring, &painter, this);
}

void LinkLabel::Open() {
  if (Address().isEmpty()) return;
  if (const auto opened = opener_.Open(FromQt(Address())); !opened) emit NotOpened(ToQt(opened.error().message));
}

}  // namespace captoria
