// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The toolbar of a track's style: font, three colours and five outline widths. It shows a style and sends signals; it
// does not change the style. The object names of its actions are the keys "font", "color", "outcolor", "out0" to "out4"
// and "shadowcolor".
#pragma once

#include <QActionGroup>
#include <QString>
#include <QToolBar>
#include <array>

#include "localisation/window_texts.h"
#include "settings/track_style.h"

namespace captoria {

// A colour of a style. Its position in kStyleColors, counted from 1, is its palette entry.
struct StyleColor {
  const char* key;
  WindowText title;
  const char* short_title;
  Color TrackStyle::*color;
};

constexpr std::array<StyleColor, 3> kStyleColors{{
    {"color", window_texts::kForeColor, "Fore", &TrackStyle::ForeColor},
    {"outcolor", window_texts::kOutlineColor, "Outline", &TrackStyle::OutlineColor},
    {"shadowcolor", window_texts::kShadowColor, "Shadow", &TrackStyle::ShadowColor},
}};

// "Arial (22), B, I"
QString FontText(const Font& font);

class StyleToolBar final : public QToolBar {
  Q_OBJECT

 public:
  explicit StyleToolBar(QWidget* parent);

  // No button is ever hidden, however long the captions are.
  QSize minimumSizeHint() const override { return sizeHint(); }

  // Sends no signal.
  void ShowStyle(const TrackStyle& style);

 signals:
  void FontAsked();
  void ColorAsked(int palette_entry);  // 1 to 3
  void OutlineWidthAsked(int width);   // 0 to kOutlineWidthMax

 private:
  void AddColor(int palette_entry);
  void AddOutlineWidths();

  QAction* font_;
  std::array<QAction*, kStyleColors.size()> colors_{};
  QActionGroup* widths_;
};

}  // namespace captoria
