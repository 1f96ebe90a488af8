// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A position in pixels: its caption, its number and a slider under them. The arrow keys move by 1, the page keys by 5.
#pragma once

#include <QLabel>
#include <QSlider>
#include <QWidget>

namespace captoria {

class PositionSlider final : public QWidget {
  Q_OBJECT

 public:
  // `name` is that of the position: the slider's object name is "sldName", its caption's "lblName", its number's
  // "lblNameValue".
  PositionSlider(const QString& name, const QString& caption, const QString& tool_tip, QWidget* parent);

  int Value() const { return slider_->value(); }
  int Highest() const { return slider_->maximum(); }

  // Neither of these tells. A value beyond the range is shown as the nearest one within.
  void SetRange(int lowest, int highest);
  void ShowValue(int value);

  // From now on the right mouse button, or the keyboard's menu key, moves the slider to `home`, which is marked.
  void ComeHomeTo(int home);

 signals:
  void Moved(int value);

 private:
  QLabel* value_;
  QSlider* slider_;
};

}  // namespace captoria
