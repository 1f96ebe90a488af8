// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/preview/picture_view.h"

#include <QPainter>
#include <QPalette>
#include <cmath>
#include <memory>
#include <utility>

namespace captoria {
namespace {

constexpr int kMargin = 12;
constexpr QSize kLeast{160, 60};

bool IsWholeMultiple(int length, int of) { return length % of == 0; }

}  // namespace

QImage ToImage(VideoFrame frame) {
  if (frame.pixels.empty()) return {};
  // On a little-endian machine, the bytes of Qt's 0xAARRGGBB are blue, green, red, alpha.
  static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN);
  auto kept = std::make_unique<VideoFrame>(std::move(frame));
  auto* pixels = kept->pixels.data();
  const int width = kept->width, height = kept->height;
  const auto release = [](void* owner) { delete static_cast<VideoFrame*>(owner); };
  return {pixels, width, height, qsizetype{4} * width, QImage::Format_RGB32, release, kept.release()};
}

PictureView::PictureView(const QString& name, QWidget* parent) : QWidget(parent) {
  setAccessibleName(name);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void PictureView::SetImage(const QImage& image) {
  image_ = image;
  scaled_ = {};
  text_.clear();
  setAccessibleDescription({});
  updateGeometry();
  update();
}

void PictureView::SetText(const QString& text) {
  SetImage({});
  text_ = text;
  setAccessibleDescription(text);
}

void PictureView::SetSurroundings(const QColor& color) {
  const bool is_dark = qGray(color.rgb()) < 128;
  QPalette colors = palette();
  colors.setColor(QPalette::Window, color);
  colors.setColor(QPalette::WindowText, is_dark ? Qt::white : Qt::black);
  setPalette(colors);
}

QSize PictureView::sizeHint() const { return image_.size().expandedTo(kLeast); }
QSize PictureView::minimumSizeHint() const { return kLeast; }

QSizeF PictureView::ShownSize() const {
  const QSizeF whole = image_.size();
  return whole.width() <= width() && whole.height() <= height() ? whole : whole.scaled(size(), Qt::KeepAspectRatio);
}

void PictureView::Scale(QSize pixels) {
  if (scaled_.size() == pixels) return;
  // At a whole multiple, each pixel becomes the same number of screen pixels and stays sharp.
  const bool is_exact =
      IsWholeMultiple(pixels.width(), image_.width()) && IsWholeMultiple(pixels.height(), image_.height());
  scaled_ = image_.scaled(pixels, Qt::IgnoreAspectRatio, is_exact ? Qt::FastTransformation : Qt::SmoothTransformation);
}

void PictureView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().window());
  if (image_.isNull()) {
    painter.setPen(palette().color(QPalette::WindowText));
    const QRect inner = rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
    painter.drawText(inner, Qt::AlignCenter | Qt::TextWrapAnywhere | Qt::TextWordWrap, text_);
    return;
  }
  const double ratio = devicePixelRatioF();
  const QSize pixels = (ShownSize() * ratio).toSize().expandedTo({1, 1});
  Scale(pixels);
  // Aligned to whole screen pixels; a fraction would blur the picture.
  const QPointF corner(std::floor((width() * ratio - pixels.width()) / 2),
                       std::floor((height() * ratio - pixels.height()) / 2));
  painter.scale(1 / ratio, 1 / ratio);
  painter.drawImage(corner, scaled_);
}

}  // namespace captoria
