// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The controls for the style of the current track. Each change is written to the track at once and reported by a
// signal. The panel itself neither draws nor checks subtitles.
#pragma once

#include <QAction>
#include <QBoxLayout>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QList>
#include <QSpinBox>
#include <QWidget>

#include "app/workspace.h"
#include "ui/style/position_slider.h"
#include "ui/style/style_toolbar.h"

class QFormLayout;

namespace captoria {

class StylePanel final : public QWidget {
  Q_OBJECT

 public:
  // Shows the current track of the workspace, which outlives the panel.
  StylePanel(Workspace& workspace, QWidget* parent);

  // Updates all controls from the current track without sending a signal. A language that is not in the list becomes
  // English. The vertical maximum is raised to the track's position if needed.
  void LoadCorrectValues();

  // Enables or disables everything except language and type, including the shared menu actions. A track of bitmaps has
  // no style.
  void EnableButtons(bool enable);

  // The toolbar's actions, for a menu to share. Their object names are the keys listed in ui/style/style_toolbar.h.
  QList<QAction*> StyleActions() const { return toolbar_->actions(); }

  // The highest vertical position in pixels; values below 0 count as 0. The track keeps its position.
  void SetVerticalMaximum(int maximum);
  int VerticalMaximum() const { return vertical_->Highest(); }

  // The value of the vertical slider: the track's position, or the position of a cue set by ShowVerticalPosition, which
  // changes no track and sends no signal.
  int VerticalPosition() const { return vertical_->Value(); }
  void ShowVerticalPosition(int position) { vertical_->ShowValue(position); }

  // Shows a note if the cue's own alignment or position overrides the track's.
  void ShowOwn(const Placement& placement);

  // The toolbar's commands.
  void ChooseFont();
  void ChooseColor(int palette_entry);  // 1 fore, 2 outline, 3 shadow
  void SetOutlineWidth(int width);      // clamped to 0 ... kOutlineWidthMax

 signals:
  // The style changed; redraw the preview.
  void StyleChanged();

  // The font changed; check the safe viewing area and redraw. Sent instead of StyleChanged.
  void FontChanged();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  TrackStyle& Style() { return workspace_.project.tracks.Current().style; }
  void Build();
  QWidget* BuildOutline();
  QWidget* BuildAlignment();
  void KeepAlignmentOrder();
  void BuildStream(QFormLayout* form);
  void Connect();

  Workspace& workspace_;
  StyleToolBar* toolbar_;
  QLabel* font_;
  QComboBox* outline_width_;
  QSpinBox* bevel_;
  QWidget* outline_row_;
  QWidget* alignment_row_;
  QBoxLayout* alignment_buttons_;
  QButtonGroup* alignment_;
  QCheckBox* right_to_left_;
  PositionSlider* vertical_;
  PositionSlider* horizontal_;
  QLabel* own_alignment_;
  QLabel* own_position_;
  QComboBox* language_;
  QComboBox* type_;
};

}  // namespace captoria
