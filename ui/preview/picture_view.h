// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A picture, centred, in its own size or reduced to fit. Shows a text while there is no picture.
#pragma once

#include <QColor>
#include <QImage>
#include <QString>
#include <QWidget>

#include "media/video/frame_decoder.h"

namespace captoria {

// Takes over the pixels without a copy. A null image if there are none.
QImage ToImage(VideoFrame frame);

class PictureView final : public QWidget {
 public:
  // `name` is the accessible name.
  PictureView(const QString& name, QWidget* parent);

  // A null image removes the picture.
  void SetImage(const QImage& image);
  const QImage& Image() const { return image_; }

  // Removes the picture and shows `text` until the next picture.
  void SetText(const QString& text);
  const QString& Text() const { return text_; }

  // The background colour. Text is black or white, whichever is readable.
  void SetSurroundings(const QColor& color);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QSizeF ShownSize() const;
  void Scale(QSize pixels);

  QImage image_;
  QImage scaled_;  // to screen pixels
  QString text_;
};

}  // namespace captoria
