// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/style/color_swatch.h"

#include <QPainter>
#include <QPixmap>

namespace captoria {
namespace {

constexpr int kSide = 16;
constexpr int kLargeIcon = 20;
constexpr QColor kFrame{122, 129, 140};  // visible on light and on dark windows

// The square, centred in an icon of `side` logical pixels.
QPixmap Square(QColor color, int side, int ratio) {
  QPixmap icon(side * ratio, side * ratio);
  icon.setDevicePixelRatio(ratio);
  icon.fill(Qt::transparent);
  const int margin = (side - kSide) / 2;
  QPainter painter(&icon);
  painter.fillRect(margin, margin, kSide, kSide, color);
  painter.setPen(QPen(kFrame, 1));
  painter.drawRect(QRectF(margin + 0.5, margin + 0.5, kSide - 1, kSide - 1));
  return icon;
}

}  // namespace

QIcon ColorSwatch(Color color) {
  QIcon icon;
  for (const int side : {kSide, kLargeIcon}) {
    for (const int ratio : {1, 2, 3}) icon.addPixmap(Square(QColor(color.red, color.green, color.blue), side, ratio));
  }
  return icon;
}

QString RgbText(Color color) {
  return QStringLiteral("RGB = (%1, %2, %3)").arg(color.red).arg(color.green).arg(color.blue);
}

}  // namespace captoria
