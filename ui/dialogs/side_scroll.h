// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Scrolls its widget vertically if the window is too low for it. Never narrower than the widget, however long the
// captions of a language are.
#pragma once

#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>

namespace captoria {

class SideScroll final : public QScrollArea {
 public:
  SideScroll(QWidget* content, QWidget* parent) : QScrollArea(parent) {
    setWidget(content);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  }

  QSize minimumSizeHint() const override {
    const int width = widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width();
    return {width, QScrollArea::minimumSizeHint().height()};
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
    return QScrollArea::eventFilter(watched, event);
  }
};

}  // namespace captoria
