// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// One picture in the middle of its surroundings: as large as it is, or reduced to the space there is. A text stands
// there while there is no picture.
#pragma once

#include <QColor>
#include <QImage>
#include <QString>
#include <QWidget>

#include "media/video/frame_decoder.h"

namespace captoria {

// Takes the pixels over; nothing is copied. A null image when there are none.
QImage ToImage(VideoFrame frame);

class PictureView final : public QWidget {
 public:
  // `name` is what screen readers call it.
  PictureView(const QString& name, QWidget* parent);

  // A null image is no picture.
  void SetImage(const QImage& image);
  const QImage& Image() const { return image_; }

  // Says why there is no picture; goes with the next one.
  void SetText(const QString& text);
  const QString& Text() const { return text_; }

  // Text is black or white there, whichever can be read.
  void SetSurroundings(const QColor& color);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QSizeF ShownSize() const;
  void Scale(QSize pixels);

  QImage image_;
  QImage scaled_;  // to the pixels of the screen
  QString text_;
};

}  // namespace captoria
