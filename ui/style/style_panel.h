// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The controls of the current track's style. Whatever a person changes here is written to the track at once and told;
// the panel itself draws no subtitle and checks none.
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

  // Brings all controls in line with the current track and tells nothing. A track whose language is none of the list
  // becomes English. The vertical maximum is raised where the track stands higher.
  void LoadCorrectValues();

  // Cues that are pictures already have no style: all but language and type is off then, the menu's actions included.
  void EnableButtons(bool enable);

  // The toolbar's actions, for a menu to share; their object names are the keys of ui/style/style_toolbar.h.
  QList<QAction*> StyleActions() const { return toolbar_->actions(); }

  // Pixels a subtitle can stand above the bottom of the frame; below 0 counts as 0. The track keeps its position.
  void SetVerticalMaximum(int maximum);
  int VerticalMaximum() const { return vertical_->Highest(); }

  // What the vertical slider stands at: the track's position, or that of a cue shown by the second of these, which
  // leaves the track alone and tells nothing.
  int VerticalPosition() const { return vertical_->Value(); }
  void ShowVerticalPosition(int position) { vertical_->ShowValue(position); }

  // Notes that a cue does not go where the track goes, because of what its placement holds.
  void ShowOwn(const Placement& placement);

  // What the toolbar asks for.
  void ChooseFont();
  void ChooseColor(int palette_entry);  // 1 fore, 2 outline, 3 shadow
  void SetOutlineWidth(int width);      // 0 to kOutlineWidthMax; beyond it, the nearest

 signals:
  // The style is another; the preview has to be drawn again.
  void StyleChanged();

  // The same, because of the font: the safe viewing area has to be checked as well. StyleChanged is not told then.
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
