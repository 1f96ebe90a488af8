// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Shown while nothing is open: what to do first.
#pragma once

#include <QAction>
#include <QWidget>

namespace captoria {

class StartPage final : public QWidget {
 public:
  // The buttons trigger the two actions.
  StartPage(QAction* open_video, QAction* open_subtitle, QWidget* parent);
};

}  // namespace captoria
