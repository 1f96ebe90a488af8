// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What the window shows while nothing is open: what to do first.
#pragma once

#include <QAction>
#include <QWidget>

namespace captoria {

class StartPage final : public QWidget {
 public:
  // Its buttons do what the two actions do.
  StartPage(QAction* open_video, QAction* open_subtitle, QWidget* parent);
};

}  // namespace captoria
