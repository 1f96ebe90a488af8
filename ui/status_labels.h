// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The four fields along the bottom edge: messages, cues outside the safe area, selected cues, the language.
#pragma once

#include <QLabel>
#include <QStatusBar>
#include <QTimer>

namespace captoria {

class StatusLabels final : public QObject {
  Q_OBJECT

 public:
  explicit StatusLabels(QStatusBar* bar);

  // Shown for some seconds.
  void Tell(const QString& text);

  // The number of cues outside, none for a track without cues of its own. `fitted`: they will be made to fit.
  void ShowOutside(std::optional<int> count, bool fitted);

  void ShowSelected(int count);

 private:
  QLabel* message_;
  QLabel* outside_;
  QLabel* selected_;
  QLabel* language_;
  QTimer timer_;
};

}  // namespace captoria
