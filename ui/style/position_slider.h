// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A position in pixels: a caption, the number, and a slider below. The arrow keys move by 1, the page keys by 5.
#pragma once

#include <QLabel>
#include <QSlider>
#include <QWidget>

namespace captoria {

class PositionSlider final : public QWidget {
  Q_OBJECT

 public:
  // For the name "Name", the slider is called "sldName", its caption "lblName" and its number "lblNameValue".
  PositionSlider(const QString& name, const QString& caption, const QString& tool_tip, QWidget* parent);

  int Value() const { return slider_->value(); }
  int Highest() const { return slider_->maximum(); }

  // These do not send Moved. A value outside the range is shown as the nearest value inside.
  void SetRange(int lowest, int highest);
  void ShowValue(int value);

  // From now on, the right mouse button and the menu key move the slider to `home`, which gets a tick mark.
  void ComeHomeTo(int home);

 signals:
  void Moved(int value);

 private:
  QLabel* value_;
  QSlider* slider_;
};

}  // namespace captoria
