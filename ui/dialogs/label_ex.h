// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A label with raised text: the same label twice, the upper one moved up and left by a pixel. Every property applies to
// both.
#pragma once

#include <QLabel>

namespace captoria {

class LabelEx final : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)
  Q_PROPERTY(bool Enabled READ isEnabled WRITE setEnabled)
  Q_PROPERTY(int Appearance READ Appearance WRITE SetAppearance)
  Q_PROPERTY(QColor BackColor READ BackColor WRITE SetBackColor)
  Q_PROPERTY(Qt::Alignment Alignment READ Alignment WRITE SetAlignment)
  Q_PROPERTY(int BorderStyle READ BorderStyle WRITE SetBorderStyle)
  Q_PROPERTY(bool FontBold READ FontBold WRITE SetFontBold)
  Q_PROPERTY(QString TooltipTextInside READ TooltipTextInside WRITE SetTooltipTextInside)

 public:
  // `name` is the object name and the initial caption.
  LabelEx(const QString& name, QWidget* parent);

  QString Caption() const { return front_->text(); }
  void SetCaption(const QString& text);

  // Appearance of the border: 0 flat, 1 sunken.
  int Appearance() const { return appearance_; }
  void SetAppearance(int appearance);

  // 0: no border, 1: a line of one pixel.
  int BorderStyle() const { return border_; }
  void SetBorderStyle(int border);

  // Initially the palette's colour.
  QColor BackColor() const { return palette().color(QPalette::Window); }
  void SetBackColor(const QColor& color);

  Qt::Alignment Alignment() const { return front_->alignment(); }
  void SetAlignment(Qt::Alignment alignment);

  bool FontBold() const { return front_->font().bold(); }
  void SetFontBold(bool bold);

  QString TooltipTextInside() const { return front_->toolTip(); }
  void SetTooltipTextInside(const QString& text);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void DrawBorder();
  void ChooseRelief();

  QLabel* relief_;
  QLabel* front_;
  int appearance_ = 0;
  int border_ = 0;
};

}  // namespace captoria
