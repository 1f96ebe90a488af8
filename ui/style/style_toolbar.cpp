// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/style/style_toolbar.h"

#include <algorithm>

#include "ui/style/color_swatch.h"
#include "ui/texts/captions.h"
#include "ui/texts/qt_text.h"

// Links the icons. Q_INIT_RESOURCE must stand outside every namespace.
static void LinkIcons() { Q_INIT_RESOURCE(assets); }

namespace captoria {

QString FontText(const Font& font) {
  QString text = QStringLiteral("%1 (%2)").arg(ToQt(font.name)).arg(font.size);
  if (font.bold) text += ", B";
  if (font.italic) text += ", I";
  return text;
}

StyleToolBar::StyleToolBar(QWidget* parent) : QToolBar(parent), widths_(new QActionGroup(this)) {
  LinkIcons();
  setObjectName("Toolbar1");
  setMovable(false);
  setIconSize({20, 20});
  setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  font_ = addAction(QIcon(":/icons/font.svg"), "Font...", this, &StyleToolBar::FontAsked);
  font_->setObjectName("font");
  font_->setProperty(kShowsData, true);
  AddColor(1);
  AddColor(2);
  AddOutlineWidths();
  AddColor(3);
}

void StyleToolBar::AddColor(int palette_entry) {
  const auto index = static_cast<std::size_t>(palette_entry - 1);
  const StyleColor& color = kStyleColors.at(index);
  QAction* action =
      addAction(QString(color.title.text) + "...", this, [this, palette_entry] { emit ColorAsked(palette_entry); });
  action->setObjectName(color.key);
  action->setProperty(kShowsData, true);
  action->setIconText(color.short_title);
  widgetForAction(action)->setAccessibleName(color.title.text);
  colors_.at(index) = action;
}

void StyleToolBar::AddOutlineWidths() {
  for (int width = 0; width <= kOutlineWidthMax; ++width) {
    const QIcon icon(QStringLiteral(":/icons/out%1.svg").arg(width));
    QAction* action = addAction(icon, QString::number(width), this, [this, width] { emit OutlineWidthAsked(width); });
    action->setObjectName(QStringLiteral("out%1").arg(width));
    action->setCheckable(true);
    action->setToolTip(QStringLiteral("Outline width %1").arg(width));
    widgetForAction(action)->setAccessibleName(action->toolTip());
    widths_->addAction(action);
  }
}

void StyleToolBar::ShowStyle(const TrackStyle& style) {
  font_->setToolTip(FontText(style.font));
  for (std::size_t i = 0; i < colors_.size(); ++i) {
    const Color color = style.*kStyleColors.at(i).color;
    colors_.at(i)->setIcon(ColorSwatch(color));
    colors_.at(i)->setToolTip(RgbText(color));
  }
  widths_->actions().at(std::clamp(style.OutlineWidth, 0, kOutlineWidthMax))->setChecked(true);
}

}  // namespace captoria
