// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// "General": which files are opened together.
#pragma once

#include "ui/options/options_page.h"

namespace captoria {

class OptionsGeneralPage final : public OptionsPage {
 public:
  // The prompts outlive the page.
  OptionsGeneralPage(Prompts& prompts, QWidget* parent);

  void Load(const Settings& settings) override;
  void Store(Settings& settings) const override;

 private:
  QWidget* BuildAfterVideo(Prompts& prompts);
  QWidget* BuildAfterSubtitle(Prompts& prompts);
  QLayout* BuildManyTimes();

  QCheckBox* unload_;
  QCheckBox* subtitles_beside_;
  FolderOption* subtitles_;
  QCheckBox* video_beside_;
  FolderOption* video_;
  QCheckBox* many_times_;
  QSpinBox* times_;
  QCheckBox* show_streams_;
};

}  // namespace captoria
