// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// "Extra": frame and background colour of the preview, and the entry in the file manager's menu.
#pragma once

#include <QPushButton>

#include "automation/context_menu.h"
#include "settings/track_style.h"
#include "ui/options/options_page.h"

namespace captoria {

class OptionsExtraPage final : public OptionsPage {
 public:
  // The prompts outlive the page.
  OptionsExtraPage(Prompts& prompts, QWidget* parent);

  void Load(const Settings& settings) override;
  void Store(Settings& settings) const override;

  // Shows whether the entry exists; creates or removes it to match the check box.
  void LoadEntry(const ContextMenuEntry& entry);
  Result<void> StoreEntry(ContextMenuEntry& entry) const;

 private:
  QWidget* BuildPreview();
  void ChooseColor();
  void ShowColor(int color);

  Prompts& prompts_;
  QSpinBox* frame_;
  QLabel* color_label_;
  QPushButton* color_button_;
  int color_ = 0;
  QCheckBox* at_right_click_;
};

}  // namespace captoria
